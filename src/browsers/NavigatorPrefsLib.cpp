#include "browsers/NavigatorPrefsLib.h"

#include <windows.h>

#include <algorithm>
#include <string>
#include <utility>

#include "platform/Procedure.h"
#include "platform/RwzError.h"
#include "platform/Win32Handles.h"
#include "platform/modUtilities.h"

namespace rwz {

namespace {

const char kObject[] = "NavigatorPrefsLib";
const char kNoPrefsFileText[] = "Could not locate Netscape preference file.";
const char kLineEnd[] = "\r\n";

char AsciiLower(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string AsciiLower(std::string text) {
    for (char& c : text) c = AsciiLower(c);
    return text;
}

// The runtime error that describes a failed file call.
int32_t RuntimeErrorFor(DWORD error) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
            return kErrFileNotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
            return kErrPathNotFound;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_WRITE_PROTECT:
            return kErrPermissionDenied;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return kErrDiskFull;
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_FILENAME_EXCED_RANGE:
            return kErrBadFileName;
        case ERROR_NOT_ENOUGH_MEMORY:
        case ERROR_OUTOFMEMORY:
            return kErrOutOfMemory;
        default:
            return kErrPathFileAccess;
    }
}

[[noreturn]] void RaiseFileError(DWORD error) {
    RaiseRuntimeError(RuntimeErrorFor(error), "Rwz");
}
[[noreturn]] void RaiseLastFileError() {
    RaiseFileError(GetLastError());
}

// The folder part of a path with its trailing separator ("C:\" stays the
// root, not the current folder of drive C); "." for a bare file name.
std::string FolderOf(const std::string& astrFile) {
    const size_t separator = astrFile.find_last_of("\\/");
    return separator == std::string::npos ? std::string(".") : astrFile.substr(0, separator + 1);
}

// A new, empty file with a unique name in the folder.
std::string NewTempFileIn(const std::string& astrFolder) {
    char name[MAX_PATH + 1] = {};
    if (!GetTempFileNameA(astrFolder.c_str(), "rwz", 0, name)) RaiseLastFileError();
    return name;
}

// Deletes a temporary file when the write is abandoned.
class TempFileGuard {
  public:
    explicit TempFileGuard(std::string astrFile) : mstrFile(std::move(astrFile)) {}
    ~TempFileGuard() {
        if (!mstrFile.empty()) DeleteFileA(mstrFile.c_str());
    }
    TempFileGuard(const TempFileGuard&) = delete;
    TempFileGuard& operator=(const TempFileGuard&) = delete;
    void Release() { mstrFile.clear(); }

  private:
    std::string mstrFile;
};

std::string ReadWholeFile(const std::string& astrFile) {
    KernelHandle file(CreateFileA(astrFile.c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) RaiseLastFileError();
    DWORD high = 0;
    const DWORD low = GetFileSize(file.Get(), &high);
    if (low == INVALID_FILE_SIZE && GetLastError() != NO_ERROR) RaiseLastFileError();
    if (high != 0) RaiseRuntimeError(kErrOutOfMemory, "Rwz");

    std::string text(low, '\0');
    size_t used = 0;
    for (;;) {
        // The file may grow while it is read: keep reading until it ends.
        if (used == text.size()) text.resize(text.size() + 65536);
        DWORD got = 0;
        if (!ReadFile(file.Get(), &text[used], static_cast<DWORD>(text.size() - used), &got,
                      nullptr)) {
            RaiseLastFileError();
        }
        if (got == 0) break;
        used += got;
    }
    text.resize(used);
    return text;
}

void WriteAll(HANDLE file, const std::string& astrText) {
    const size_t kChunk = 1u << 20;
    for (size_t done = 0; done < astrText.size();) {
        const DWORD want = static_cast<DWORD>(std::min(kChunk, astrText.size() - done));
        DWORD wrote = 0;
        if (!WriteFile(file, astrText.data() + done, want, &wrote, nullptr)) RaiseLastFileError();
        if (wrote == 0) RaiseRuntimeError(kErrDiskFull, "Rwz");
        done += wrote;
    }
}

void ShowNoPrefsFileMessage() {
    MessageBoxA(GetActiveWindow(), kNoPrefsFileText, kProductName, MB_OK | MB_ICONEXCLAMATION);
}

}  // namespace

std::vector<std::string> SplitPrefsLines(const std::string& astrText) {
    std::vector<std::string> lines;
    lines.reserve(static_cast<size_t>(std::count(astrText.begin(), astrText.end(), '\n')) + 1);
    size_t start = 0;
    while (start < astrText.size()) {
        const size_t lineFeed = astrText.find('\n', start);
        const bool ended = lineFeed != std::string::npos;
        size_t stop = ended ? lineFeed : astrText.size();
        if (ended && stop > start && astrText[stop - 1] == '\r') --stop;
        lines.emplace_back(astrText, start, stop - start);
        if (!ended) break;
        start = lineFeed + 1;
    }
    return lines;
}

void ReplaceFileByRename(const std::string& astrNewFile, const std::string& astrFile,
                         bool ablnUseMoveFileEx) {
    if (ablnUseMoveFileEx) {
        // Windows 95, 98 and ME lack it (or answer "not implemented").
        using MoveFileExFn = BOOL(WINAPI*)(LPCSTR, LPCSTR, DWORD);
        HMODULE kernel = GetModuleHandleA("kernel32.dll");
        auto moveFileEx = kernel ? reinterpret_cast<MoveFileExFn>(reinterpret_cast<void*>(
                                       GetProcAddress(kernel, "MoveFileExA")))
                                 : nullptr;
        if (moveFileEx) {
            if (moveFileEx(astrNewFile.c_str(), astrFile.c_str(), MOVEFILE_REPLACE_EXISTING))
                return;
            const DWORD error = GetLastError();
            if (error != ERROR_CALL_NOT_IMPLEMENTED) RaiseFileError(error);
        }
    }

    if (GetFileAttributesA(astrFile.c_str()) == INVALID_FILE_ATTRIBUTES) {
        if (!MoveFileA(astrNewFile.c_str(), astrFile.c_str())) RaiseLastFileError();
        return;
    }
    // MoveFileA will not replace a file: the old one steps aside under a free
    // name, so that at every moment one complete copy exists on disk.
    const std::string backup = NewTempFileIn(FolderOf(astrFile));
    DeleteFileA(backup.c_str());
    if (!MoveFileA(astrFile.c_str(), backup.c_str())) RaiseLastFileError();
    if (!MoveFileA(astrNewFile.c_str(), astrFile.c_str())) {
        const DWORD error = GetLastError();
        MoveFileA(backup.c_str(), astrFile.c_str());
        RaiseFileError(error);
    }
    DeleteFileA(backup.c_str());
}

void WriteFileSafely(const std::string& astrFile, const std::string& astrText) {
    const DWORD attributes = GetFileAttributesA(astrFile.c_str());
    const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
    // A read-only prefs.js is how users lock their settings: leave it alone.
    if (exists && (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY))) {
        RaiseRuntimeError(kErrPathFileAccess, "Rwz");
    }

    const std::string tempFile = NewTempFileIn(FolderOf(astrFile));
    TempFileGuard guard(tempFile);
    {
        KernelHandle file(CreateFileA(tempFile.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!file) RaiseLastFileError();
        WriteAll(file.Get(), astrText);
        // On disk before it takes the old file's name.
        if (!FlushFileBuffers(file.Get())) RaiseLastFileError();
        if (!file.Close()) RaiseLastFileError();
    }
    const DWORD kept = exists ? attributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM) : 0;
    if (kept) SetFileAttributesA(tempFile.c_str(), kept | FILE_ATTRIBUTE_ARCHIVE);
    ReplaceFileByRename(tempFile, astrFile, true);
    guard.Release();
}

// --- NavigatorPrefsLib ---------------------------------------------------------------

NavigatorPrefsLib::~NavigatorPrefsLib() {
    if (mstrPrefsFile.empty()) return;
    try {
        ClosePrefsFile();
    } catch (...) {
        // Nothing may leave a destructor; the close has logged what it could.
    }
}

bool NavigatorPrefsLib::OpenPrefsFile(const std::string& astrFile, bool ablnWriteOnClose) {
    Procedure proc(kObject, "OpenPrefsFile");
    return proc.Run([&] {
        if (astrFile.empty()) {
            ShowNoPrefsFileMessage();
            return false;
        }
        // Closed until the whole file is read: a file that could not be read
        // must never be written over by ClosePrefsFile.
        mstrPrefsFile.clear();
        mcolLines.clear();
        mblnWritePrefsOnClose = false;
        proc.Log(astrFile);
        std::vector<std::string> lines = SplitPrefsLines(ReadWholeFile(astrFile));
        mcolLines = std::move(lines);
        mstrPrefsFile = astrFile;
        mblnWritePrefsOnClose = ablnWriteOnClose;
        return true;
    });
}

bool NavigatorPrefsLib::ClosePrefsFile() {
    Procedure proc(kObject, "ClosePrefsFile");
    const bool written = proc.Run(
        [&] {
            if (mblnWritePrefsOnClose && !mstrPrefsFile.empty()) {
                size_t size = 0;
                for (const std::string& line : mcolLines) size += line.size() + 2;
                std::string text;
                text.reserve(size);
                for (const std::string& line : mcolLines) {
                    text += line;
                    text += kLineEnd;
                }
                WriteFileSafely(mstrPrefsFile, text);
            }
            return true;
        },
        false);
    mcolLines.clear();
    mcolLines.shrink_to_fit();
    mstrPrefsFile.clear();
    return written;
}

size_t NavigatorPrefsLib::FindSetting(const std::string& astrName) const {
    const std::string key = "user_pref(\"" + AsciiLower(astrName) + "\"";
    for (size_t index = 0; index < mcolLines.size(); ++index) {
        const std::string& line = mcolLines[index];
        const size_t first = line.find_first_not_of(' ');
        if (first == std::string::npos || line.size() - first < key.size()) continue;
        size_t k = 0;
        while (k < key.size() && AsciiLower(line[first + k]) == key[k]) ++k;
        if (k == key.size()) return index + 1;
    }
    return 0;
}

std::string NavigatorPrefsLib::GetSetting(const std::string& astrName) const {
    Procedure proc(kObject, "GetSetting");
    return proc.Run([&]() -> std::string {
        const size_t number = FindSetting(astrName);
        if (number == 0) return std::string();
        const std::string& line = mcolLines[number - 1];
        // The value runs from two characters after the first "," to the first
        // ")" of the line, even when that ")" belongs to the value.
        const size_t paren = line.find(')');
        const size_t comma = line.find(',');
        const size_t start = comma == std::string::npos ? 1 : comma + 2;
        if (paren == std::string::npos || paren < start) return std::string();
        std::string value = line.substr(start, paren - start);
        if (!value.empty() && value.front() == '"') {
            value = value.size() >= 2 ? value.substr(1, value.size() - 2) : std::string();
        }
        return value;
    });
}

void NavigatorPrefsLib::StoreLine(const std::string& astrName, std::string astrLine,
                                  bool ablnTextPreference) {
    const size_t number = FindSetting(astrName);
    const size_t count = mcolLines.size();
    if (number == 0) {
        // Appending goes after the last line; an empty list has none.
        if (count == 0) RaiseRuntimeError(kErrInvalidProcedureCall, "Rwz");
        mcolLines.push_back(std::move(astrLine));
        return;
    }
    if (count == 1) {
        // Once the only line is removed there is no line to put the new one
        // before or after: it is lost with the old one.
        mcolLines.clear();
        RaiseRuntimeError(kErrInvalidProcedureCall, "Rwz");
    }
    if (ablnTextPreference && number == count) {
        // A text preference on the last line goes in before the line above it.
        mcolLines[count - 1] = std::move(mcolLines[count - 2]);
        mcolLines[count - 2] = std::move(astrLine);
    } else {
        mcolLines[number - 1] = std::move(astrLine);
    }
}

void NavigatorPrefsLib::SaveSettingStr(const std::string& astrName, const std::string& astrValue) {
    Procedure proc(kObject, "SaveSettingStr");
    proc.Run([&] {
        StoreLine(astrName, "user_pref(\"" + astrName + "\", \"" + astrValue + "\");", true);
    });
}

void NavigatorPrefsLib::SaveSettingInt(const std::string& astrName, int16_t aintValue) {
    Procedure proc(kObject, "SaveSettingInt");
    proc.Run([&] {
        StoreLine(astrName, "user_pref(\"" + astrName + "\", " + std::to_string(aintValue) + ");",
                  false);
    });
}

void NavigatorPrefsLib::SaveSettingBoolean(const std::string& astrName, bool ablnValue) {
    Procedure proc(kObject, "SaveSettingBoolean");
    proc.Run([&] {
        StoreLine(astrName,
                  "user_pref(\"" + astrName + "\", " + (ablnValue ? "true" : "false") + ");",
                  false);
    });
}

void NavigatorPrefsLib::DeleteSetting(const std::string& astrName) {
    Procedure proc(kObject, "DeleteSetting");
    proc.Run([&] {
        const size_t number = FindSetting(astrName);
        if (number != 0) mcolLines.erase(mcolLines.begin() + static_cast<ptrdiff_t>(number - 1));
    });
}

}  // namespace rwz
