// Raw registry snapshots for the end-to-end network tests of NT 4 and 95/98/ME:
// every value below some keys, with its type and bytes, taken before and after
// a run, and what differs between two of them.
#pragma once

#include <windows.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace bench {

struct RawRegValue {
    DWORD type = 0;
    std::string data;
    bool operator==(const RawRegValue& other) const {
        return type == other.type && data == other.data;
    }
};
// "HKLM\key\value" -> raw value.
using RegSnapshot = std::map<std::string, RawRegValue>;

inline void TakeSnapshot(HKEY root, const std::string& key, RegSnapshot& snapshot) {
    HKEY handle = nullptr;
    if (RegOpenKeyExA(root, key.c_str(), 0, KEY_READ, &handle) != ERROR_SUCCESS) return;
    const std::string prefix = (root == HKEY_CURRENT_USER ? "HKCU\\" : "HKLM\\") + key + "\\";
    for (DWORD i = 0;; ++i) {
        char name[256];
        DWORD nameSize = sizeof name, type = 0, dataSize = 0;
        if (RegEnumValueA(handle, i, name, &nameSize, nullptr, &type, nullptr, &dataSize) !=
            ERROR_SUCCESS)
            break;
        std::string data(dataSize, '\0');
        nameSize = sizeof name;
        RegEnumValueA(handle, i, name, &nameSize, nullptr, &type,
                      reinterpret_cast<BYTE*>(data.empty() ? nullptr : &data[0]), &dataSize);
        data.resize(dataSize);
        snapshot[prefix + name] = RawRegValue{type, data};
    }
    std::vector<std::string> subkeys;
    for (DWORD i = 0;; ++i) {
        char name[256];
        DWORD nameSize = sizeof name;
        if (RegEnumKeyExA(handle, i, name, &nameSize, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            break;
        subkeys.push_back(name);
    }
    RegCloseKey(handle);
    for (const std::string& subkey : subkeys) TakeSnapshot(root, key + "\\" + subkey, snapshot);
}

// Every value below the keys, "HKLM\..." or "HKCU\...".
inline RegSnapshot Snapshot(const std::vector<std::string>& keys) {
    RegSnapshot snapshot;
    for (const std::string& key : keys)
        TakeSnapshot(key.compare(0, 5, "HKCU\\") == 0 ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE,
                     key.substr(5), snapshot);
    return snapshot;
}

// The values that differ, or exist on one side only.
inline std::set<std::string> Differences(const RegSnapshot& before, const RegSnapshot& after) {
    std::set<std::string> names;
    for (const auto& [name, value] : before) {
        auto found = after.find(name);
        if (found == after.end() || !(found->second == value)) names.insert(name);
    }
    for (const auto& entry : after)
        if (!before.count(entry.first)) names.insert(entry.first);
    return names;
}

// A value as "<type>:<data>" with NULs shown as "|" (a string's closing NULs left
// out): "REG_SZ:abc", "REG_MULTI_SZ:a|b||",
// "REG_DWORD:1"; "<missing>" when absent.
inline std::string Shown(const RegSnapshot& snapshot, const std::string& name) {
    auto found = snapshot.find(name);
    if (found == snapshot.end()) return "<missing>";
    const RawRegValue& value = found->second;
    if (value.type == REG_DWORD && value.data.size() == 4)
        return "REG_DWORD:" + std::to_string(*reinterpret_cast<const DWORD*>(value.data.data()));
    std::string data = value.data;
    // A string's own end is no part of what the tests compare.
    if (value.type == REG_SZ)
        while (!data.empty() && data.back() == '\0') data.pop_back();
    for (char& c : data)
        if (c == '\0') c = '|';
    switch (value.type) {
        case REG_SZ:
            return "REG_SZ:" + data;
        case REG_MULTI_SZ:
            return "REG_MULTI_SZ:" + data;
        case REG_BINARY:
            return "REG_BINARY:" + data;
        default:
            return std::to_string(value.type) + ":" + data;
    }
}

}  // namespace bench
