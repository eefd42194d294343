#include "platform/modLogging.h"

#include <windows.h>

#include <cstdio>

#include "platform/AppVersion.h"
#include "platform/RwzError.h"
#include "platform/Win32Handles.h"
#include "platform/modAPI.h"
#include "platform/modUtilities.h"

namespace rwz {

namespace {

const char kRule[] = "---------------------";

std::string TwoDigits(int value) {
    char text[8];
    std::snprintf(text, sizeof text, "%02d", value % 100);
    return text;
}

}  // namespace

std::string LogFilePath() {
    return ProgramFolder() + "\\" + "DEBUG.LOG";
}

std::string LevelWord(int level) {
    switch (level) {
        case kLogInformation:
            return "Information";
        case kLogWarning:
            return "Warning";
        case kLogError:
            return "ERROR";
        case kLogDebug:
            return "Debug";
        default:
            return "";  // deliberately no default word
    }
}

std::string FormatLogLine(unsigned long threadId, const SYSTEMTIME& now,
                          const std::string& levelWord, const std::string& message) {
    char id[16];
    std::snprintf(id, sizeof id, "%08lX", threadId & 0xFFFFFFFFul);
    return std::string("[0x") + id + "][" + TwoDigits(now.wMonth) + "/" + TwoDigits(now.wDay) +
           "/" + TwoDigits(now.wYear) + " " + TwoDigits(now.wHour) + ":" + TwoDigits(now.wMinute) +
           ":" + TwoDigits(now.wSecond) + "] - " + levelWord + " - " + message;
}

void WriteLogHeader() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    char stamp[32];
    std::snprintf(stamp, sizeof stamp, " %02d/%02d/%04d %02d:%02d:%02d", now.wMonth, now.wDay,
                  now.wYear, now.wHour, now.wMinute, now.wSecond);
    const std::string eol = "\r\n";
    std::string block;
    block += std::string(kRule) + eol + "Roamwise Log File" + eol + kRule + eol;
    block += stamp + eol + kRule + eol;
    block += "Rwz:\t" + ProgramVersionText() + eol;
    block += " OS:\t" + GetCurrentOSTag() + eol;
    block += " IE:\t" + GetIEVersion() + eol;
    block += " NN:\t" + GetNetscapeVersion() + eol;
    block += std::string(kRule) + eol;

    const std::string path = LogFilePath();
    FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) RaiseRuntimeError(kErrPermissionDenied, "Rwz");
    const bool written = std::fwrite(block.data(), 1, block.size(), file) == block.size();
    std::fclose(file);
    if (!written) RaiseRuntimeError(kErrDiskFull, "Rwz");
}

void WriteLog(const std::string& message, int level) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    const std::string line =
        FormatLogLine(GetCurrentThreadId(), now, LevelWord(level), message) + "\r\n";
    // Several running copies may write here. Opening the file without write
    // sharing makes each open-write-close a whole line: another writer waits a
    // moment for its turn rather than writing over this line.
    KernelHandle file;
    for (int attempt = 0; attempt < 100 && !file; ++attempt) {
        file.Reset(CreateFileA(LogFilePath().c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                               OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!file && GetLastError() != ERROR_SHARING_VIOLATION) return;
        if (!file) Sleep(1);
    }
    if (!file) return;  // the line is lost; logging never disturbs the caller
    SetFilePointer(file.Get(), 0, nullptr, FILE_END);
    DWORD written = 0;
    WriteFile(file.Get(), line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
}

void LogError(const ErrorInfo& error, const std::string& where) {
    std::string text = error.Description + " (" + std::to_string(error.Number) + ") : " + where;
    WriteLog(Trim(text), kLogError);
}


}  // namespace rwz
