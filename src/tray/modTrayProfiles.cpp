#include "tray/modTrayProfiles.h"

#include <windows.h>

#include <algorithm>

#include "platform/Procedure.h"
#include "platform/Win32Handles.h"
#include "platform/modUtilities.h"
#include "shell/clsMRUList.h"
#include "tray/TrayCommands.h"

namespace rwz::tray {

namespace {

const char kOptions[] = "Options";
const char kFolderKey[] = "TrayProfileFolder";

bool IsFolder(const std::string& astrPath) {
    const DWORD attributes = GetFileAttributesA(astrPath.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool SamePath(const std::string& a, const std::string& b) {
    return ToLower(a) == ToLower(b);
}

}  // namespace

std::string ProfileFolderSetting() {
    std::string folder = Trim(GetProgramSetting(kProductName, kOptions, kFolderKey, ""));
    while (folder.size() > 3 && folder.back() == '\\') folder.pop_back();
    return folder;
}

void SaveProfileFolderSetting(const std::string& astrFolder) {
    SaveProgramSetting(kProductName, kOptions, kFolderKey, astrFolder);
}

TrayProfiles ListTrayProfiles() {
    Procedure proc("modTrayProfiles", "ListTrayProfiles");
    return proc.Run([&] {
        TrayProfiles profiles;
        clsMRUList recent;
        recent.GetRecentList();
        for (const std::string& file : recent.FileList())
            if (FileExists(file)) profiles.recent.push_back(file);

        profiles.folderPath = ProfileFolderSetting();
        if (profiles.folderPath.empty()) return profiles;
        if (!IsFolder(profiles.folderPath)) {
            profiles.folderMissing = true;
            proc.Log("folder not found: " + profiles.folderPath);
            return profiles;
        }
        const std::string prefix =
            profiles.folderPath.back() == '\\' ? profiles.folderPath : profiles.folderPath + "\\";
        WIN32_FIND_DATAA found;
        FindHandle search(FindFirstFileA((prefix + "*.rwz").c_str(), &found));
        for (bool more = static_cast<bool>(search); more;
             more = FindNextFileA(search.Get(), &found) != FALSE) {
            if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) continue;
            const std::string path = prefix + found.cFileName;
            const bool listed =
                std::any_of(profiles.recent.begin(), profiles.recent.end(),
                            [&](const std::string& file) { return SamePath(file, path); });
            if (!listed) profiles.folder.push_back(path);
        }
        std::sort(
            profiles.folder.begin(), profiles.folder.end(),
            [](const std::string& a, const std::string& b) { return ToLower(a) < ToLower(b); });
        return profiles;
    });
}

std::vector<std::string> MenuOrder(const TrayProfiles& aProfiles) {
    std::vector<std::string> all = aProfiles.recent;
    all.insert(all.end(), aProfiles.folder.begin(), aProfiles.folder.end());
    if (all.size() > static_cast<size_t>(kMaxProfiles)) all.resize(kMaxProfiles);
    return all;
}

std::string ProfileDisplayName(const std::string& astrPath) {
    std::string name = astrPath.substr(astrPath.find_last_of("\\/") + 1);
    const size_t dot = name.rfind('.');
    if (dot != std::string::npos && dot > 0) name.erase(dot);
    return name;
}

}  // namespace rwz::tray
