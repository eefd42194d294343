// The debug log DEBUG.LOG beside the executable (or, where the program's folder
// cannot be written, in the user's temporary folder): a header block written
// once per run, then one line per call. The file stays open for the run and
// every line goes to the system at once, so that the log is complete even when
// the program is ended abruptly.
#pragma once

#include <string>

#include "platform/RwzError.h"

namespace rwz {

enum LogLevel : int {
    kLogInformation = 0,
    kLogWarning = 1,
    kLogError = 2,
    kLogDebug = 3,
};

// Where the log is written: the program's folder + "\DEBUG.LOG" (joined
// without looking at the folder) until the header moved it elsewhere.
std::string LogFilePath();

enum class LogStart { Replace, Append };

// Creates or truncates the log (or, with Append, adds to what another copy of
// the program logged) and writes the header block. When the program's folder
// cannot be written, the log goes to the user's temporary folder and the
// header says so. Raises a runtime error when neither can be written.
void WriteLogHeader(LogStart start = LogStart::Replace);

// Appends one line. Never fails: a line that cannot be written is lost.
void WriteLog(const std::string& message, int level);

// Appends an error as an ERROR line: description (number) : where.
void LogError(const ErrorInfo& error, const std::string& where);

// The texts of one log line and of the header's date, for the given clock.
std::string LevelWord(int level);
std::string FormatLogLine(unsigned long threadId, const struct _SYSTEMTIME& now,
                          const std::string& levelWord, const std::string& message);

}  // namespace rwz
