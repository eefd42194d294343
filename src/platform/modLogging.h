// The debug log DEBUG.LOG beside the executable: a header block written once
// per run, then one line per call, each written by its own open-write-close so
// that the log is complete even when the program is ended abruptly.
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

// The program's folder + "\DEBUG.LOG" (joined without looking at the folder).
std::string LogFilePath();

// Creates or truncates the log and writes the header block. Raises a runtime
// error when the file cannot be created.
void WriteLogHeader();

// Appends one line. Never fails: a line that cannot be written is lost.
void WriteLog(const std::string& message, int level);

// Appends an error as an ERROR line: description (number) : where.
void LogError(const ErrorInfo& error, const std::string& where);

// The texts of one log line and of the header's date, for the given clock.
std::string LevelWord(int level);
std::string FormatLogLine(unsigned long threadId, const struct _SYSTEMTIME& now,
                          const std::string& levelWord, const std::string& message);

}  // namespace rwz
