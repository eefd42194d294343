#include "platform/modSafeFile.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "platform/RwzError.h"
#include "platform/Win32Handles.h"

namespace rwz {

namespace {

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

}  // namespace

std::string ReadWholeFile(const std::string& astrFile, size_t alngMaxBytes) {
    KernelHandle file(CreateFileA(astrFile.c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) RaiseLastFileError();
    DWORD high = 0;
    const DWORD low = GetFileSize(file.Get(), &high);
    if (low == INVALID_FILE_SIZE && GetLastError() != NO_ERROR) RaiseLastFileError();
    if (high != 0 || low > alngMaxBytes) RaiseRuntimeError(kErrOutOfMemory, "Rwz");

    // Room for a file that grows a little, so that reading to its end copies nothing.
    std::string text;
    text.reserve(static_cast<size_t>(low) + 65536);
    text.resize(low);
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
        if (used > alngMaxBytes) RaiseRuntimeError(kErrOutOfMemory, "Rwz");
    }
    text.resize(used);
    return text;
}

namespace {

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

// The file's attributes (INVALID_FILE_ATTRIBUTES when there is none yet).
// A read-only file is how users lock their settings: it is left alone.
DWORD WritableAttributes(const std::string& astrFile) {
    const DWORD attributes = GetFileAttributesA(astrFile.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES &&
        (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY))) {
        RaiseRuntimeError(kErrPathFileAccess, "Rwz");
    }
    return attributes;
}

// The new file keeps the hidden and system marks of the one it replaces.
void KeepMarks(const std::string& astrNewFile, DWORD alngOldAttributes) {
    if (alngOldAttributes == INVALID_FILE_ATTRIBUTES) return;
    const DWORD kept = alngOldAttributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
    if (kept) SetFileAttributesA(astrNewFile.c_str(), kept | FILE_ATTRIBUTE_ARCHIVE);
}

}  // namespace

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
    const DWORD attributes = WritableAttributes(astrFile);

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
    KeepMarks(tempFile, attributes);
    ReplaceFileByRename(tempFile, astrFile, true);
    guard.Release();
}

void EditFileSafely(const std::string& astrFile,
                    const std::function<void(const std::string& astrCopy)>& aobjEdit) {
    const DWORD attributes = WritableAttributes(astrFile);
    const std::string copy = NewTempFileIn(FolderOf(astrFile));
    TempFileGuard guard(copy);
    if (attributes != INVALID_FILE_ATTRIBUTES && !CopyFileA(astrFile.c_str(), copy.c_str(), FALSE))
        RaiseLastFileError();
    SetFileAttributesA(copy.c_str(), FILE_ATTRIBUTE_NORMAL);
    aobjEdit(copy);
    // Windows 95 keeps private-profile writes in a cache: out to disk first.
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, copy.c_str());
    KeepMarks(copy, attributes);
    ReplaceFileByRename(copy, astrFile, true);
    guard.Release();
}

void ShowFileMessage(const std::string& astrText) {
    MessageBoxA(GetActiveWindow(), astrText.c_str(), "Roamwise", MB_OK | MB_ICONEXCLAMATION);
}

}  // namespace rwz
