// The profiles the tray menu offers: the program's recent files, then the
// profiles of the folder the user chose, each path once.
#pragma once

#include <string>
#include <vector>

namespace rwz::tray {

struct TrayProfiles {
    std::vector<std::string> recent;  // from the recent-files list, most recent first
    std::vector<std::string> folder;  // *.rwz of the profile folder, by name
    std::string folderPath;           // the chosen folder, "" when none
    bool folderMissing = false;       // chosen, but no longer there
};

// The chosen profile folder ("Options"/"TrayProfileFolder"), "" when none.
std::string ProfileFolderSetting();
void SaveProfileFolderSetting(const std::string& astrFolder);

// Reads the recent-files list and the folder. A recent file that no longer
// exists is left out; a profile of the folder that is also recent is listed
// once, among the recent ones.
TrayProfiles ListTrayProfiles();

// All profiles in menu order: recent ones first.
std::vector<std::string> MenuOrder(const TrayProfiles& aProfiles);

// "C:\Profiles\Office.rwz" -> "Office".
std::string ProfileDisplayName(const std::string& astrPath);

}  // namespace rwz::tray
