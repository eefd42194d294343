// The command-line grammar: "/" is the only separator, double quotes are
// dropped wherever they stand, and blanks stay in the entries. There is no
// limit on the number of entries. A password's value may hold "/": within a
// "pwd" entry only a "/" after a blank starts the next entry.
#pragma once

#include <string>
#include <vector>

namespace rwz {

// The arguments of a process's full command line (as GetCommandLineA gives
// it), without the program's own path and the blanks after it.
std::string CommandLineText(const char* apszFullCommandLine);

// Splits a command-line text into its entries (the main window's
// GetCommandLineArgs, logged under that name with passwords masked).
std::vector<std::string> GetCommandLineArgs(const std::string& astrText);

// The same, unlogged: for looking at the command line before the log has begun.
std::vector<std::string> SplitCommandLine(const std::string& astrText);

// The first entry that begins with `astrName`, compared without case; "" when none.
std::string GetSwitch(const std::string& astrName, const std::vector<std::string>& avarArgs);

// The same, unlogged.
std::string FindSwitch(const std::string& astrName, const std::vector<std::string>& avarArgs);

// A switch entry's value: the text after the name and one separating
// character (a blank, ":" or "=").
std::string SwitchValue(const std::string& astrEntry, const std::string& astrName);

// The entries that name no switch the program knows (a bare profile path
// excepted), for the log.
std::vector<std::string> UnknownSwitches(const std::vector<std::string>& avarArgs);

// One log line naming them: "unknown switches: 'a ', 'b '", the first ten
// only, then how many more there were.
std::string UnknownSwitchesText(const std::vector<std::string>& acolUnknown);

// The text with the value of every entry that is, or looks like, a password
// switch written as "****", for the log: the debug log is sent to support and
// never holds a character of a password.
std::string MaskPasswords(const std::string& astrText);

// Why a profile path given on the command line cannot be opened before even
// trying: "" when it can be tried.
std::string ProfilePathProblem(const std::string& astrPath);

}  // namespace rwz
