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
const char kLogName[] = "DEBUG.LOG";
// A byte far past any log's end, locked while a line is written: several
// running copies may share the file, and each line goes in whole.
const DWORD kLineLockOffset = 0xFFFFFFF0u;

// The log's path once the header chose it, and the file, open for the run.
std::string& LogPath() {
    static std::string path;
    return path;
}
KernelHandle& LogFile() {
    static KernelHandle file;
    return file;
}
// Whether LogFile() may only append.
bool& LogAppendsOnly() {
    static bool appendsOnly = false;
    return appendsOnly;
}

HANDLE OpenLog(const std::string& astrPath, DWORD adwDisposition) {
    return CreateFileA(astrPath.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                       adwDisposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

// On NT a handle that may only append writes each line at the file's end in
// one step, whatever other copies write meanwhile; 95, 98 and ME know only
// whole write access, and there a locked byte keeps two copies' lines apart.
bool SystemAppendsOnly() {
    return (GetVersion() & 0x80000000u) == 0;
}

// Opens the log for its lines, created when missing, as LogFile().
void OpenLogForLines(const std::string& astrPath) {
    LogAppendsOnly() = SystemAppendsOnly();
    LogFile().Reset(LogAppendsOnly() ? CreateFileA(astrPath.c_str(), FILE_APPEND_DATA | SYNCHRONIZE,
                                                   FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                                   OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)
                                     : OpenLog(astrPath, OPEN_ALWAYS));
}

// Appends text at the file's end as one piece. False when it was not written.
bool AppendToLog(HANDLE file, const std::string& astrText, bool ablnAppendsOnly) {
    DWORD written = 0;
    if (ablnAppendsOnly)
        return WriteFile(file, astrText.data(), static_cast<DWORD>(astrText.size()), &written,
                         nullptr) &&
               written == astrText.size();
    bool locked = false;
    for (int attempt = 0; attempt < 100 && !locked; ++attempt) {
        locked = LockFile(file, kLineLockOffset, 0, 1, 0) != FALSE;
        if (!locked) Sleep(1);
    }
    SetFilePointer(file, 0, nullptr, FILE_END);
    const bool ok =
        WriteFile(file, astrText.data(), static_cast<DWORD>(astrText.size()), &written, nullptr) &&
        written == astrText.size();
    if (locked) UnlockFile(file, kLineLockOffset, 0, 1, 0);
    return ok;
}

std::string TempFolder() {
    char folder[MAX_PATH + 1] = "";
    const DWORD length = GetTempPathA(sizeof folder, folder);
    if (length == 0 || length > MAX_PATH) return "";
    std::string text(folder, length);
    if (text.back() == '\\') text.pop_back();
    return text;
}

std::string TwoDigits(int value) {
    char text[8];
    std::snprintf(text, sizeof text, "%02d", value % 100);
    return text;
}

}  // namespace

std::string LogFilePath() {
    return LogPath().empty() ? ProgramFolder() + "\\" + kLogName : LogPath();
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

void WriteLogHeader(LogStart start) {
    // The block first: what its lookups log goes before it, and a new log
    // starts after them.
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

    const DWORD disposition = start == LogStart::Replace ? CREATE_ALWAYS : OPEN_ALWAYS;
    std::string path = ProgramFolder() + "\\" + kLogName;
    KernelHandle file(OpenLog(path, disposition));
    if (!file) {
        // A read-only program folder (or a read-only log in it): the user's
        // temporary folder always takes a file.
        const std::string folder = TempFolder();
        if (!folder.empty()) {
            path = folder + "\\" + kLogName;
            file.Reset(OpenLog(path, disposition));
            if (file) block += "Log:\t" + path + " (the program's folder cannot be written)" + eol;
        }
    }
    if (!file) RaiseRuntimeError(kErrPermissionDenied, "Rwz");
    block += std::string(kRule) + eol;

    // Created or emptied: the block goes in like every line after it.
    file.Reset();
    OpenLogForLines(path);
    if (!LogFile() || !AppendToLog(LogFile().Get(), block, LogAppendsOnly()))
        RaiseRuntimeError(kErrDiskFull, "Rwz");
    LogPath() = path;
}

void WriteLog(const std::string& message, int level) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    const std::string line =
        FormatLogLine(GetCurrentThreadId(), now, LevelWord(level), message) + "\r\n";
    // Before the header (and in programs that write none) the log is opened
    // where it stands; a line that cannot be written is lost, as logging never
    // disturbs the caller.
    for (int attempt = 0; attempt < 100 && !LogFile(); ++attempt) {
        OpenLogForLines(LogFilePath());
        if (!LogFile() && GetLastError() != ERROR_SHARING_VIOLATION) break;
        if (!LogFile()) Sleep(1);  // a reader without write sharing: its turn ends soon
    }
    if (LogFile()) AppendToLog(LogFile().Get(), line, LogAppendsOnly());
}

void LogError(const ErrorInfo& error, const std::string& where) {
    std::string text = error.Description + " (" + std::to_string(error.Number) + ") : " + where;
    WriteLog(Trim(text), kLogError);
}

}  // namespace rwz
