// Direct registry calls for the tests: they set up and check what the code under
// test reads and writes, without going through it.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace rwz::test {

// The names of a key's sub-keys; none for a missing key.
inline std::vector<std::string> RawSubKeys(HKEY root, const std::string& path) {
    std::vector<std::string> names;
    HKEY key = nullptr;
    if (RegOpenKeyExA(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return names;
    char name[1024];
    for (DWORD length = sizeof name;
         RegEnumKeyExA(key, static_cast<DWORD>(names.size()), name, &length, nullptr, nullptr,
                       nullptr, nullptr) == ERROR_SUCCESS;
         length = sizeof name)
        names.emplace_back(name, length);
    RegCloseKey(key);
    return names;
}

// Deletes a key with everything below it; a missing key is fine.
inline void RawDeleteTree(HKEY root, const std::string& path) {
    for (const std::string& child : RawSubKeys(root, path))
        RawDeleteTree(root, path + "\\" + child);
    RegDeleteKeyA(root, path.c_str());
}

// Deletes a value; a missing key or value is fine.
inline void RawDeleteValue(HKEY root, const std::string& path, const std::string& name) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(root, path.c_str(), 0, KEY_SET_VALUE, &key) != ERROR_SUCCESS) return;
    RegDeleteValueA(key, name.c_str());
    RegCloseKey(key);
}

// Sets a value, creating its key; `name` null only creates the key.
inline LONG RawSetValue(HKEY root, const std::string& path, const char* name, DWORD type = 0,
                        const std::vector<uint8_t>& data = {}) {
    HKEY key = nullptr;
    LONG result =
        RegCreateKeyExA(root, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    if (result != ERROR_SUCCESS) return result;
    if (name)
        result = RegSetValueExA(key, name, 0, type, data.empty() ? nullptr : data.data(),
                                static_cast<DWORD>(data.size()));
    RegCloseKey(key);
    return result;
}

inline std::vector<uint8_t> Bytes(const std::string& text) {
    return std::vector<uint8_t>(text.begin(), text.end());
}

inline LONG RawSetString(HKEY root, const std::string& path, const std::string& name,
                         const std::string& text, DWORD type = REG_SZ) {
    return RawSetValue(root, path, name.c_str(), type,
                       Bytes(std::string(text.c_str(), text.size() + 1)));
}

// Type, exact size and bytes of a value as the store reports them.
struct RawValue {
    LONG Result = ERROR_FILE_NOT_FOUND;
    DWORD Type = REG_NONE;
    std::vector<uint8_t> Data;
};
inline RawValue RawQuery(HKEY root, const std::string& path, const std::string& name) {
    RawValue value;
    HKEY key = nullptr;
    value.Result = RegOpenKeyExA(root, path.c_str(), 0, KEY_QUERY_VALUE, &key);
    if (value.Result != ERROR_SUCCESS) return value;
    DWORD size = 65536;
    value.Data.resize(size);
    value.Result =
        RegQueryValueExA(key, name.c_str(), nullptr, &value.Type, value.Data.data(), &size);
    value.Data.resize(value.Result == ERROR_SUCCESS ? size : 0);
    RegCloseKey(key);
    return value;
}

// "ROOT\key\value" -> type and bytes, for every value below some keys: what a
// test compares before and after a run to see exactly what was written.
struct RawEntry {
    DWORD Type = REG_NONE;
    std::string Data;
    bool operator==(const RawEntry& o) const { return Type == o.Type && Data == o.Data; }
};
using RawSnapshot = std::map<std::string, RawEntry>;

inline void RawSnapshotAdd(HKEY root, const std::string& rootName, const std::string& path,
                           RawSnapshot& snapshot) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    char name[1024];
    std::string data(65536, '\0');
    DWORD type = 0;
    for (DWORD index = 0, nameSize = sizeof name, size = 65536;
         RegEnumValueA(key, index, name, &nameSize, nullptr, &type,
                       reinterpret_cast<BYTE*>(&data[0]), &size) == ERROR_SUCCESS;
         ++index, nameSize = sizeof name, size = 65536)
        snapshot[rootName + "\\" + path + "\\" + name] = RawEntry{type, data.substr(0, size)};
    RegCloseKey(key);
    for (const std::string& child : RawSubKeys(root, path))
        RawSnapshotAdd(root, rootName, path + "\\" + child, snapshot);
}

// The names whose type or bytes differ, or that exist on one side only.
inline std::set<std::string> RawDifferences(const RawSnapshot& before, const RawSnapshot& after) {
    std::set<std::string> names;
    for (const auto& [name, entry] : before)
        if (!after.count(name) || !(after.at(name) == entry)) names.insert(name);
    for (const auto& [name, entry] : after)
        if (!before.count(name)) names.insert(name);
    return names;
}

// A multi-string's entries; reads both the documented double-NUL end and none.
inline std::vector<std::string> MultiStringEntries(const std::string& data) {
    std::vector<std::string> entries;
    for (size_t start = 0, end; start < data.size() && data[start]; start = end + 1) {
        end = std::min(data.find('\0', start), data.size());
        entries.push_back(data.substr(start, end - start));
    }
    return entries;
}

}  // namespace rwz::test
