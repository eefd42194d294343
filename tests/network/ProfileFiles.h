// Profile files for tests: each test gets fresh file names in a folder of the
// Wine prefix's temporary directory, so that no two cases share a file (the
// private-profile functions cache the file they read last).
#pragma once

#include <initializer_list>
#include <string>

namespace rwz::test {

// A new, not yet existing path ending in ".rwz".
std::string NewProfilePath();

void WriteFileBytes(const std::string& astrPath, const std::string& astrBytes);
// The file's bytes; "" when it cannot be read.
std::string ReadFileBytes(const std::string& astrPath);

// Lines joined with CR LF, each line ended by one, as the profile writer does.
std::string CrLfLines(std::initializer_list<std::string> lines);

}  // namespace rwz::test
