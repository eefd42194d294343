// Paths, files, processes and simulated machines inside the test prefix.
#include "bench/Bench.h"

#include <algorithm>
#include <stdexcept>

#include "support/RawRegistry.h"

namespace bench {

namespace {

std::string EnvironmentPath(const char* name) {
    char buffer[32768];
    DWORD length = GetEnvironmentVariableA(name, buffer, sizeof buffer);
    if (length == 0 || length >= sizeof buffer)
        throw std::runtime_error(std::string(name) +
                                 " is not set: run the test through tests/bench/run-tests.sh");
    return WindowsPath(std::string(buffer, length));
}

std::string Win32Message(DWORD error) {
    char* text = nullptr;
    FormatMessageA(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, error, 0, reinterpret_cast<LPSTR>(&text), 0, nullptr);
    std::string message = text ? text : "";
    if (text) LocalFree(text);
    while (!message.empty() && (message.back() == '\n' || message.back() == '\r'))
        message.pop_back();
    return "error " + std::to_string(error) + (message.empty() ? "" : " (" + message + ")");
}

std::string ParentOf(const std::string& path) {
    size_t slash = path.find_last_of('\\');
    return slash == std::string::npos ? "" : path.substr(0, slash);
}

}  // namespace

std::string WindowsPath(const std::string& unixPath) {
    if (unixPath.empty() || unixPath[0] != '/') return unixPath;  // already a Windows path
    std::string path = "Z:" + unixPath;
    for (char& c : path)
        if (c == '/') c = '\\';
    while (path.size() > 3 && path.back() == '\\') path.pop_back();
    return path;
}

std::string SourceDir() {
    return EnvironmentPath("RWZ_SOURCE_DIR");
}
std::string BuildDir() {
    return EnvironmentPath("RWZ_BUILD_DIR");
}
std::string InstallDir() {
    return "C:\\Program Files\\Roamwise";
}
std::string InstalledRwz() {
    return InstallDir() + "\\Rwz.exe";
}
std::string DebugLogPath() {
    return InstallDir() + "\\DEBUG.LOG";
}

bool FileExists(const std::string& path) {
    DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool ReadFile(const std::string& path, std::string& contents) {
    contents.clear();
    HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                              nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    char buffer[65536];
    DWORD got = 0;
    bool ok = true;
    while ((ok = ::ReadFile(file, buffer, sizeof buffer, &got, nullptr)) && got > 0)
        contents.append(buffer, got);
    CloseHandle(file);
    return ok;
}

std::string ReadFileText(const std::string& path) {
    std::string contents;
    ReadFile(path, contents);
    return contents;
}

void MakeFolders(const std::string& path) {
    if (path.empty() || GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES) return;
    MakeFolders(ParentOf(path));
    if (!CreateDirectoryA(path.c_str(), nullptr) && GetLastError() != ERROR_ALREADY_EXISTS)
        throw std::runtime_error("cannot create folder " + path + ": " +
                                 Win32Message(GetLastError()));
}

void WriteFile(const std::string& path, const std::string& contents) {
    MakeFolders(ParentOf(path));
    DeleteFileA(path.c_str());  // never write through a link shared with the base prefix
    HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        throw std::runtime_error("cannot write " + path + ": " + Win32Message(GetLastError()));
    DWORD written = 0;
    BOOL ok =
        ::WriteFile(file, contents.data(), static_cast<DWORD>(contents.size()), &written, nullptr);
    CloseHandle(file);
    if (!ok || written != contents.size())
        throw std::runtime_error("cannot write " + path + ": " + Win32Message(GetLastError()));
}

void CopyFileReplacing(const std::string& from, const std::string& to) {
    MakeFolders(ParentOf(to));
    SetFileAttributesA(to.c_str(), FILE_ATTRIBUTE_NORMAL);
    DeleteFileA(to.c_str());
    if (!CopyFileA(from.c_str(), to.c_str(), FALSE))
        throw std::runtime_error("cannot copy " + from + " to " + to + ": " +
                                 Win32Message(GetLastError()));
}

void CopyTree(const std::string& from, const std::string& to) {
    MakeFolders(to);
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA((from + "\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        std::string name = found.cFileName;
        if (name == "." || name == "..") continue;
        if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
            CopyTree(from + "\\" + name, to + "\\" + name);
        else
            CopyFileReplacing(from + "\\" + name, to + "\\" + name);
    } while (FindNextFileA(search, &found));
    FindClose(search);
}

PROCESS_INFORMATION LaunchProcess(const std::string& application, const std::string& commandLine,
                                  const std::string& workDir) {
    std::vector<char> line(commandLine.begin(), commandLine.end());
    line.push_back('\0');
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    // Under heavy load Wine now and then fails to start a process with an
    // internal error (1359); a try a moment later succeeds.
    DWORD error = 0;
    for (int attempt = 0; attempt < 3; ++attempt) {
        if (attempt > 0) Sleep(500);
        if (CreateProcessA(application.empty() ? nullptr : application.c_str(), line.data(),
                           nullptr, nullptr, FALSE, 0, nullptr,
                           workDir.empty() ? nullptr : workDir.c_str(), &startup, &process))
            return process;
        error = GetLastError();
        if (error != ERROR_INTERNAL_ERROR) break;
    }
    throw std::runtime_error("cannot start " + commandLine + ": " + Win32Message(error));
}

DWORD RunAndWait(const std::string& commandLine, DWORD timeoutMs) {
    PROCESS_INFORMATION process = LaunchProcess("", commandLine);
    CloseHandle(process.hThread);
    DWORD waited = WaitForSingleObject(process.hProcess, timeoutMs);
    DWORD exitCode = 1;
    if (waited != WAIT_OBJECT_0) {
        TerminateProcess(process.hProcess, 1);
        WaitForSingleObject(process.hProcess, 5000);
        CloseHandle(process.hProcess);
        throw std::runtime_error("did not end within " + std::to_string(timeoutMs) +
                                 " ms: " + commandLine);
    }
    GetExitCodeProcess(process.hProcess, &exitCode);
    CloseHandle(process.hProcess);
    return exitCode;
}

std::vector<std::string> SplitLines(const std::string& text) {
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        std::string line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
        start = end + 1;
    }
    return lines;
}

bool ReadRegistryString(HKEY root, const std::string& key, const std::string& value,
                        std::string& data) {
    const rwz::test::RawValue raw = rwz::test::RawQuery(root, key, value);
    const bool text =
        raw.Result == ERROR_SUCCESS && (raw.Type == REG_SZ || raw.Type == REG_EXPAND_SZ);
    data = text ? std::string(raw.Data.begin(), raw.Data.end()).c_str() : std::string();
    return text;
}

std::vector<std::string> FindFiles(const std::string& pattern) {
    std::vector<std::string> names;
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do
        if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) names.push_back(found.cFileName);
    while (FindNextFileA(search, &found));
    FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
}

Machine::Machine(const std::string& name) : mName(name) {
    const bool isPath = name.find_first_of("\\/:") != std::string::npos;
    mFolder = isPath ? WindowsPath(name) : SourceDir() + "\\tests\\machines\\" + name;
    std::string version;
    if (!ReadFile(mFolder + "\\version", version))
        throw std::runtime_error("no machine folder with a version file: " + mFolder);
    version = version.substr(0, version.find_first_of(" \t\r\n"));
    if (version.empty()) throw std::runtime_error("machine " + name + ": empty version file");
    for (const std::string& file : FindFiles(mFolder + "\\*.reg"))
        ImportRegFile(mFolder + "\\" + file);
    // The Windows version Wine emulates for Rwz.exe.
    const LONG result = rwz::test::RawSetString(
        HKEY_CURRENT_USER, "Software\\Wine\\AppDefaults\\Rwz.exe", "Version", version);
    if (result != ERROR_SUCCESS)
        throw std::runtime_error("cannot set the Windows version of Rwz.exe: " +
                                 Win32Message(result));
    if (GetFileAttributesA((mFolder + "\\files").c_str()) != INVALID_FILE_ATTRIBUTES)
        CopyTree(mFolder + "\\files", "C:");
}

void Machine::ImportRegFile(const std::string& path) {
    if (!FileExists(path)) throw std::runtime_error("no registry file " + path);
    char windows[MAX_PATH];
    GetWindowsDirectoryA(windows, MAX_PATH);
    const DWORD exitCode =
        RunAndWait("\"" + std::string(windows) + "\\regedit.exe\" /s \"" + path + "\"");
    if (exitCode != 0)
        throw std::runtime_error("regedit could not import " + path + " (exit code " +
                                 std::to_string(exitCode) + ")");
}

}  // namespace bench
