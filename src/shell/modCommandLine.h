// The command-line grammar: "/" is the only separator, double quotes are
// dropped wherever they stand, blanks stay in the entries, and at most
// `maxArgs` entries are kept.
#pragma once

#include <string>
#include <vector>

namespace rwz {

inline constexpr int kMaxCommandLineArgs = 10;

// The arguments of the running process, without the program's own path.
std::string CommandLineText();

// Splits a command-line text into its entries (the main window's
// GetCommandLineArgs, logged under that name).
std::vector<std::string> GetCommandLineArgs(const std::string& astrText,
                                            int aintMaxArgs = kMaxCommandLineArgs);

// The first entry that begins with `astrName`, compared without case; "" when none.
std::string GetSwitch(const std::string& astrName, const std::vector<std::string>& avarArgs);

// A switch entry's value: the text after the name and one separating
// character (a blank, ":" or "=").
std::string SwitchValue(const std::string& astrEntry, const std::string& astrName);

// The text with the value of every "pwd" switch written as "****", for the log:
// the debug log is sent to support and never holds a password.
std::string MaskPasswords(const std::string& astrText);

}  // namespace rwz
