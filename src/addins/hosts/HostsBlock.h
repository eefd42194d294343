// The part of the hosts file that the add-in owns: the lines between its two
// marker lines. Everything else in the file is the user's and stays as it is.
// Plain C++ (no windows.h), so it can be tested on any machine.
#pragma once

#include <string>
#include <vector>

namespace rwzhosts {

inline constexpr const char* kBeginMarker = "# Roamwise hosts entries: begin";
inline constexpr const char* kEndMarker = "# Roamwise hosts entries: end";

// The entries between the markers (blank lines dropped); none without markers.
std::vector<std::string> ReadBlock(const std::string& astrFile);

// The file with its block replaced by `avarEntries` (appended when there was
// none; removed, markers too, when there are no entries). Lines end in CR LF.
std::string ReplaceBlock(const std::string& astrFile, const std::vector<std::string>& avarEntries);

// One entry per line of an edit field's text; blanks around each removed,
// empty lines dropped.
std::vector<std::string> SplitEntries(const std::string& astrText);
std::string JoinEntries(const std::vector<std::string>& avarEntries);

}  // namespace rwzhosts
