// Simulated machines: a machine folder loaded into the running prefix.
#include <algorithm>
#include <stdexcept>

#include "bench/Bench.h"

namespace bench {

namespace {

std::string Trim(const std::string& text) {
    size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) return "";
    size_t last = text.find_last_not_of(" \t\r\n");
    return text.substr(first, last - first + 1);
}

std::vector<std::string> Entries(const std::string& pattern, bool folders) {
    std::vector<std::string> names;
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        std::string name = found.cFileName;
        bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (name != "." && name != ".." && isFolder == folders) names.push_back(name);
    } while (FindNextFileA(search, &found));
    FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
}

// The emulated Windows version of Rwz.exe (HKCU\Software\Wine\AppDefaults).
void SetRwzVersion(const std::string& version) {
    HKEY key = nullptr;
    LONG result = RegCreateKeyExA(HKEY_CURRENT_USER, "Software\\Wine\\AppDefaults\\Rwz.exe", 0,
                                  nullptr, 0, KEY_SET_VALUE, nullptr, &key, nullptr);
    if (result == ERROR_SUCCESS) {
        result = RegSetValueExA(key, "Version", 0, REG_SZ,
                                reinterpret_cast<const BYTE*>(version.c_str()),
                                static_cast<DWORD>(version.size() + 1));
        RegCloseKey(key);
    }
    if (result != ERROR_SUCCESS)
        throw std::runtime_error("cannot set the Windows version of Rwz.exe (error " +
                                 std::to_string(result) + ")");
}

}  // namespace

Machine::Machine(const std::string& name) : mName(name) {
    bool isPath = name.find_first_of("\\/:") != std::string::npos;
    mFolder = isPath ? WindowsPath(name) : SourceDir() + "\\tests\\machines\\" + name;
    DWORD attributes = GetFileAttributesA(mFolder.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_DIRECTORY))
        throw std::runtime_error("no machine folder " + mFolder);

    std::string versionText;
    if (!ReadFile(mFolder + "\\version", versionText))
        throw std::runtime_error("machine " + name + " has no version file");
    std::string version = Trim(versionText);
    if (version.empty()) throw std::runtime_error("machine " + name + ": empty version file");

    for (const std::string& file : Entries(mFolder + "\\*.reg", false))
        ImportRegFile(mFolder + "\\" + file);
    SetRwzVersion(version);
    if (GetFileAttributesA((mFolder + "\\files").c_str()) != INVALID_FILE_ATTRIBUTES)
        CopyTree(mFolder + "\\files", "C:");
}

void Machine::ImportRegFile(const std::string& path) {
    if (!FileExists(path)) throw std::runtime_error("no registry file " + path);
    char windows[MAX_PATH];
    GetWindowsDirectoryA(windows, MAX_PATH);
    DWORD exitCode =
        RunAndWait("\"" + std::string(windows) + "\\regedit.exe\" /s \"" + path + "\"", 30000);
    if (exitCode != 0)
        throw std::runtime_error("regedit could not import " + path + " (exit code " +
                                 std::to_string(exitCode) + ")");
}

}  // namespace bench
