// Direct registry calls for the tests: they set up and check what the code under
// test reads and writes, without going through it.
#pragma once

#include <windows.h>

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
    for (DWORD index = 0;; ++index) {
        DWORD length = sizeof name;
        if (RegEnumKeyExA(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            break;
        names.emplace_back(name, length);
    }
    RegCloseKey(key);
    return names;
}

// Deletes a key with everything below it; a missing key is fine. The sub-keys
// are listed first, so a sub-key that cannot be deleted cannot keep it busy.
inline void RawDeleteTree(HKEY root, const std::string& path) {
    for (const std::string& child : RawSubKeys(root, path))
        RawDeleteTree(root, path + "\\" + child);
    RegDeleteKeyA(root, path.c_str());
}

inline bool RawCreateKey(HKEY root, const std::string& path) {
    HKEY key = nullptr;
    if (RegCreateKeyExA(root, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                        nullptr) != ERROR_SUCCESS) {
        return false;
    }
    RegCloseKey(key);
    return true;
}

inline bool RawKeyExists(HKEY root, const std::string& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(root, path.c_str(), 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
}

inline LONG RawSetValue(HKEY root, const std::string& path, const std::string& name, DWORD type,
                        const std::vector<uint8_t>& data) {
    HKEY key = nullptr;
    LONG result =
        RegCreateKeyExA(root, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    if (result != ERROR_SUCCESS) return result;
    result = RegSetValueExA(key, name.c_str(), 0, type, data.empty() ? nullptr : data.data(),
                            static_cast<DWORD>(data.size()));
    RegCloseKey(key);
    return result;
}

inline LONG RawSetString(HKEY root, const std::string& path, const std::string& name,
                         const std::string& text, DWORD type = REG_SZ) {
    std::vector<uint8_t> data(text.begin(), text.end());
    data.push_back(0);
    return RawSetValue(root, path, name, type, data);
}

struct RawValue {
    LONG Result = ERROR_FILE_NOT_FOUND;
    DWORD Type = REG_NONE;
    std::vector<uint8_t> Data;
};

// Type, exact size and bytes of a value as the store reports them.
inline RawValue RawQuery(HKEY root, const std::string& path, const std::string& name) {
    RawValue value;
    HKEY key = nullptr;
    value.Result = RegOpenKeyExA(root, path.c_str(), 0, KEY_QUERY_VALUE, &key);
    if (value.Result != ERROR_SUCCESS) return value;
    DWORD size = 0;
    value.Result = RegQueryValueExA(key, name.c_str(), nullptr, &value.Type, nullptr, &size);
    if (value.Result == ERROR_SUCCESS) {
        value.Data.resize(size);
        value.Result = RegQueryValueExA(key, name.c_str(), nullptr, &value.Type,
                                        size ? value.Data.data() : nullptr, &size);
        value.Data.resize(size);
    }
    RegCloseKey(key);
    return value;
}

inline std::vector<uint8_t> Bytes(const std::string& text) {
    return std::vector<uint8_t>(text.begin(), text.end());
}

// "ROOT\key\value" -> type and bytes, for every value below some keys: what a
// test compares before and after a run to see exactly what was written.
struct RawEntry {
    DWORD Type = REG_NONE;
    std::string Data;
    bool operator==(const RawEntry& other) const {
        return Type == other.Type && Data == other.Data;
    }
};
using RawSnapshot = std::map<std::string, RawEntry>;

inline void RawSnapshotAdd(HKEY root, const std::string& rootName, const std::string& path,
                           RawSnapshot& snapshot) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    for (DWORD index = 0;; ++index) {
        char name[1024];
        DWORD nameSize = sizeof name, type = 0, size = 0;
        if (RegEnumValueA(key, index, name, &nameSize, nullptr, &type, nullptr, &size) !=
            ERROR_SUCCESS)
            break;
        std::string data(size, '\0');
        nameSize = sizeof name;
        RegEnumValueA(key, index, name, &nameSize, nullptr, &type,
                      reinterpret_cast<BYTE*>(&data[0]), &size);
        data.resize(size);
        snapshot[rootName + "\\" + path + "\\" + name] = RawEntry{type, data};
    }
    RegCloseKey(key);
    for (const std::string& child : RawSubKeys(root, path))
        RawSnapshotAdd(root, rootName, path + "\\" + child, snapshot);
}

// The names whose type or bytes differ, or that exist on one side only.
inline std::set<std::string> RawDifferences(const RawSnapshot& before, const RawSnapshot& after) {
    std::set<std::string> names;
    for (const auto& [name, entry] : before) {
        auto found = after.find(name);
        if (found == after.end() || !(found->second == entry)) names.insert(name);
    }
    for (const auto& entry : after)
        if (!before.count(entry.first)) names.insert(entry.first);
    return names;
}

// A multi-string's entries; reads both the documented double-NUL end and none.
inline std::vector<std::string> MultiStringEntries(const std::string& data) {
    std::vector<std::string> entries;
    size_t start = 0;
    while (start < data.size()) {
        size_t end = data.find('\0', start);
        if (end == std::string::npos) end = data.size();
        if (end == start) break;  // the empty entry that ends the list
        entries.push_back(data.substr(start, end - start));
        start = end + 1;
    }
    return entries;
}

}  // namespace rwz::test
