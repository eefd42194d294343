// What the host offers in place of the program's Win32 modules: the debug log
// kept in memory (so that a test can look at what a run would have written to
// DEBUG.LOG), and whole-file reads and writes through the standard library.
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "HostLog.h"
#include "platform/RwzError.h"
#include "platform/modLogging.h"
#include "platform/modSafeFile.h"

namespace rwz {

std::vector<std::string>& HostLogLines() {
    static std::vector<std::string> lines;
    return lines;
}

void WriteLog(const std::string& message, int) {
#ifndef RWZ_FUZZ
    // A fuzzer counts memory kept from one input to the next as a leak.
    HostLogLines().push_back(message);
#else
    (void)message;
#endif
}

void LogError(const ErrorInfo& error, const std::string& where) {
    WriteLog(error.Description + " (" + std::to_string(error.Number) + ") : " + where, kLogError);
}


std::string ReadWholeFile(const std::string& astrFile, size_t alngMaxBytes) {
    std::ifstream file(astrFile, std::ios::binary);
    if (!file) RaiseRuntimeError(kErrFileNotFound, "Rwz");
    std::ostringstream text;
    text << file.rdbuf();
    if (text.str().size() > alngMaxBytes) RaiseRuntimeError(kErrOutOfMemory, "Rwz");
    return text.str();
}

void WriteFileSafely(const std::string& astrFile, const std::string& astrText) {
    std::ofstream file(astrFile, std::ios::binary | std::ios::trunc);
    if (!(file << astrText)) RaiseRuntimeError(kErrPathFileAccess, "Rwz");
}

void ShowFileMessage(const std::string& astrText) {
    WriteLog("message: " + astrText, kLogWarning);
}

}  // namespace rwz
