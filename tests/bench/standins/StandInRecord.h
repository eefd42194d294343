// What the stand-in netapi32.dll and dhcpcsvc.dll share: they answer as the
// file NetworkStandIns.ini beside them says, and append one line per call to
// NetworkCalls.txt beside them (formats in tests/bench/README.md).
#pragma once

#include <windows.h>

#include <cstdlib>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace standin {

// The DLL's own module, set by its DllMain.
inline HMODULE gModule = nullptr;

inline std::string Folder() {
    char path[MAX_PATH] = {};
    GetModuleFileNameA(gModule, path, MAX_PATH);
    std::string folder = path;
    return folder.substr(0, folder.find_last_of('\\'));
}

inline std::string ConfigFile() {
    return Folder() + "\\NetworkStandIns.ini";
}
inline std::string RecordFile() {
    return Folder() + "\\NetworkCalls.txt";
}

// A value of the function's section, or `fallback`.
inline std::string Setting(const char* function, const char* key, const char* fallback) {
    char value[1024] = {};
    GetPrivateProfileStringA(function, key, fallback, value, sizeof value, ConfigFile().c_str());
    return value;
}

// The scripted result of this call of `function`.
inline DWORD Result(const char* function) {
    static std::map<std::string, size_t> calls;
    const size_t call = calls[function]++;
    const std::string list = Setting(function, "Result", "0");
    std::vector<std::string> results;
    size_t start = 0;
    for (size_t comma; (comma = list.find(',', start)) != std::string::npos; start = comma + 1)
        results.push_back(list.substr(start, comma - start));
    results.push_back(list.substr(start));
    const std::string& chosen = results[call < results.size() ? call : results.size() - 1];
    return static_cast<DWORD>(std::strtoul(chosen.c_str(), nullptr, 10));
}

inline std::string Text(const wchar_t* text) {
    if (!text) return "(null)";
    const int length = WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr);
    if (length <= 1) return "";
    std::string narrow(static_cast<size_t>(length), '\0');
    WideCharToMultiByte(CP_ACP, 0, text, -1, &narrow[0], length, nullptr, nullptr);
    narrow.resize(static_cast<size_t>(length - 1));
    return narrow;
}

// An IPv4 address in network byte order as dotted text.
inline std::string Address(DWORD address) {
    return std::to_string(address & 0xFF) + "." + std::to_string((address >> 8) & 0xFF) + "." +
           std::to_string((address >> 16) & 0xFF) + "." + std::to_string((address >> 24) & 0xFF);
}

inline std::string Escape(const std::string& text) {
    std::string out;
    const std::string special = "\\\t\r\n", letter = "\\trn";
    for (char c : text) {
        size_t at = special.find(c);
        out += at == std::string::npos ? std::string(1, c) : "\\" + letter.substr(at, 1);
    }
    return out;
}

inline void Record(const char* function,
                   const std::vector<std::pair<std::string, std::string>>& fields) {
    std::string line = function;
    for (const auto& field : fields) line += "\t" + field.first + "=" + Escape(field.second);
    line += "\r\n";
    HANDLE file = CreateFileA(RecordFile().c_str(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr,
                              OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    DWORD written = 0;
    WriteFile(file, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    CloseHandle(file);
}

}  // namespace standin
