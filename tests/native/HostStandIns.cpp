// What the host offers in place of the program's Win32 modules: a log that
// goes nowhere, and whole-file reads and writes through the standard library.
#include <fstream>
#include <sstream>
#include <string>

#include "platform/RwzError.h"
#include "platform/modLogging.h"
#include "platform/modSafeFile.h"

namespace rwz {

void WriteLog(const std::string&, int) {}

void LogError(const ErrorInfo&, const std::string&) {}

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
