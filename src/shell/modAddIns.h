// The add-ins entered in the program settings: section "Add-Ins" names them
// (one value per add-in, the value's name being the add-in's name), and each
// has a section "Add-Ins\<name>" with "Class", "File", "Version", "OS" and
// "Active".
#pragma once

#include <string>
#include <vector>

namespace rwz {

inline constexpr const char* kAddInsSection = "Add-Ins";

struct AddInEntry {
    std::string Name;
    std::string Class;    // the component class name it is created by
    std::string File;     // "" when not given
    std::string Version;  // "" when not given
    std::string OS;       // OS tags it is offered on, "*" for every system
    bool Active = false;  // "Active" is exactly "1"
};

// Every entered add-in, in the order of section "Add-Ins".
std::vector<AddInEntry> GetAddInEntries();
// Whether the add-in gets a menu entry on the system with this tag.
bool IsAddInOffered(const AddInEntry& aobjEntry, const std::string& astrOSTag);
// Writes "Active" as "1" or "0".
void SetAddInActive(const std::string& astrName, bool ablnActive);

// Menu captions are the name followed by "..."; the key is the caption
// without its last three characters.
std::string AddInCaption(const std::string& astrName);
std::string AddInKey(const std::string& astrCaption);

}  // namespace rwz
