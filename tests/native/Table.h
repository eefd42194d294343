// The rows of a table kept in tests/native/data: one row a line, fields split
// by tabs, "#" lines are notes, and \xNN stands for any byte.
#pragma once

#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace rwz::test {

inline std::vector<std::vector<std::string>> Rows(const std::string& name) {
    std::ifstream in(std::string(RWZ_ROOT) + "/tests/native/data/" + name);
    if (!in) throw std::runtime_error("no table " + name);
    std::vector<std::vector<std::string>> rows;
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#') continue;
        rows.emplace_back(1);
        for (size_t i = 0; i < line.size(); ++i) {
            if (line[i] == '\t') {
                rows.back().emplace_back();
            } else if (line.compare(i, 2, "\\x") == 0 && i + 4 <= line.size()) {
                rows.back().back() +=
                    static_cast<char>(std::stoi(line.substr(i + 2, 2), nullptr, 16));
                i += 3;
            } else {
                rows.back().back() += line[i];
            }
        }
    }
    return rows;
}

}  // namespace rwz::test
