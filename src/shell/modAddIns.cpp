#include "shell/modAddIns.h"

#include <cctype>

#include "platform/modUtilities.h"

namespace rwz {
namespace {

std::string Section(const std::string& astrName) {
    return std::string(kAddInsSection) + "\\" + astrName;
}

std::string Lower(std::string text) {
    for (char& c : text) c = static_cast<char>(tolower(static_cast<unsigned char>(c)));
    return text;
}

}  // namespace

std::vector<AddInEntry> GetAddInEntries() {
    std::vector<AddInEntry> entries;
    for (const RegistryValueRow& row : GetAllProgramSettings(kProductName, kAddInsSection)) {
        if (row.Name.empty()) continue;  // the section key's default value
        AddInEntry entry;
        entry.Name = row.Name;
        const std::string section = Section(row.Name);
        entry.Class = GetProgramSetting(kProductName, section, "Class", "");
        entry.File = GetProgramSetting(kProductName, section, "File", "");
        entry.Version = GetProgramSetting(kProductName, section, "Version", "");
        entry.OS = GetProgramSetting(kProductName, section, "OS", "");
        entry.Active = GetProgramSetting(kProductName, section, "Active", "") == "1";
        entries.push_back(entry);
    }
    return entries;
}

bool IsAddInOffered(const AddInEntry& aobjEntry, const std::string& astrOSTag) {
    const std::string os = Lower(aobjEntry.OS);
    return aobjEntry.Active && (os == "*" || os == Lower(astrOSTag));
}

void SetAddInActive(const std::string& astrName, bool ablnActive) {
    SaveProgramSetting(kProductName, Section(astrName), "Active", ablnActive ? "1" : "0");
}

std::string AddInCaption(const std::string& astrName) {
    return astrName + "...";
}

std::string AddInKey(const std::string& astrCaption) {
    return astrCaption.size() < 3 ? std::string() : astrCaption.substr(0, astrCaption.size() - 3);
}

}  // namespace rwz
