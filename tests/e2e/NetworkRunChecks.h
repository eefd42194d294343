// What the end-to-end runs on NT 4 and 95/98/ME machines read back: profile
// keys, the network sections of a saved profile, the adapters a walk logged.
#pragma once

#include <windows.h>

#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "bench/Bench.h"

namespace bench {

inline std::string Key(const std::string& file, const char* section, const char* key) {
    char buffer[1024] = {};
    GetPrivateProfileStringA(section, key, "<missing>", buffer, sizeof buffer, file.c_str());
    return buffer;
}

inline void SetKey(const std::string& file, const char* section, const char* key,
                   const std::string& value) {
    ASSERT_TRUE(WritePrivateProfileStringA(section, key, value.c_str(), file.c_str()));
}

// The [Network] and [Printer] sections of a profile, as written.
inline std::string NetworkSections(const std::string& path) {
    std::string text;
    bool inside = false;
    for (const std::string& line : SplitLines(ReadFileText(path))) {
        if (!line.empty() && line[0] == '[') inside = line == "[Network]" || line == "[Printer]";
        if (inside) text += line + "\n";
    }
    return text;
}

// The adapters a run found, in order, from the log lines of the walker `astrWalker`.
inline std::vector<std::string> FoundAdapters(const RunResult& run, const std::string& astrWalker) {
    std::vector<std::string> names;
    const std::string mark = "]: Display Name: ";
    for (const std::string& line : run.LogLines()) {
        const size_t at = line.find(mark);
        if (at != std::string::npos && line.find(astrWalker + " - ") != std::string::npos)
            names.push_back(line.substr(at + mark.size()));
    }
    return names;
}

inline std::string Describe(const std::set<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += name + "\n";
    return text;
}

}  // namespace bench
