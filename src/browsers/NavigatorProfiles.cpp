#include "browsers/NavigatorProfiles.h"

#include <windows.h>

#include <map>
#include <set>

#include "browsers/ZvMozillaLib.h"
#include "browsers/modShellFolders.h"
#include "platform/Procedure.h"
#include "platform/Win32Handles.h"
#include "platform/modLogging.h"
#include "platform/modRegistry.h"
#include "platform/modUtilities.h"

namespace rwz {

namespace {

// The log lines are the Netscape back end's.
const char kObject[] = "NavigatorLib";

const char kNetscapeKey[] = "\\HKEY_LOCAL_MACHINE\\Software\\Netscape\\Netscape Navigator\\Users";
const char kBiffKey[] = "\\HKEY_CURRENT_USER\\Software\\Netscape\\Netscape Navigator\\biff";
const char kBiffUsersKey[] =
    "\\HKEY_CURRENT_USER\\Software\\Netscape\\Netscape Navigator\\biff\\users";
const char kBiffUserKey[] =
    "\\HKEY_CURRENT_USER\\Software\\Netscape\\Netscape Navigator\\biff\\Users\\";
const char kMainKey[] = "\\HKEY_CURRENT_USER\\Software\\Netscape\\Netscape Navigator\\Main";
const char kMailState[] = "\\mail\\popstate.dat";
const char kPrefsName[] = "prefs.js";

void Note(const std::string& astrText) {
    WriteLog(std::string(kObject) + " - " + astrText, kLogDebug);
}

// A string value, "" when the key or the value is missing.
std::string RegistryText(const std::string& astrKey, const std::string& astrValue) {
    const std::optional<RegistryValue> value = reg::Read(astrKey, astrValue);
    return value ? StripNulls(value->Text) : std::string();
}

bool IsFile(const std::string& astrPath) {
    const DWORD attributes = GetFileAttributesA(astrPath.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::string WithoutTrailingSlash(std::string astrFolder) {
    while (astrFolder.size() > 3 && (astrFolder.back() == '\\' || astrFolder.back() == '/'))
        astrFolder.pop_back();
    return astrFolder;
}

// The folder of a file, without the "\" that ends it.
std::string FolderOf(const std::string& astrFile) {
    const std::string::size_type slash = astrFile.find_last_of("\\/");
    return slash == std::string::npos ? std::string() : astrFile.substr(0, slash);
}

// The prefs.js of a profile folder; "" for no folder (never a relative path).
std::string PrefsIn(const std::string& astrFolder) {
    const std::string folder = WithoutTrailingSlash(astrFolder);
    if (folder.empty()) return std::string();
    return folder.back() == '\\' ? folder + kPrefsName : folder + "\\" + kPrefsName;
}

// Netscape 4 keeps a user's keys under the name lower-cased, blanks as "_".
std::string UserKeyName(const std::string& astrUser) {
    std::string name = ToLower(astrUser);
    for (char& c : name)
        if (c == ' ') c = '_';
    return name;
}

// The text up to and including the first "\" ("C:\"); "" without one.
std::string DriveOf(const std::string& astrPath) {
    const std::string::size_type slash = astrPath.find('\\');
    return slash == std::string::npos ? std::string() : astrPath.substr(0, slash + 1);
}

std::string WindowsDrive() {
    char folder[MAX_PATH + 1] = {};
    const UINT length = GetWindowsDirectoryA(folder, sizeof folder);
    return length == 0 || length > MAX_PATH ? std::string() : DriveOf(folder);
}

// The first folder matching "*.slt" in a folder; "" when there is none.
std::string FirstSaltFolder(const std::string& astrFolder) {
    WIN32_FIND_DATAA found;
    FindHandle listing(FindFirstFileA((astrFolder + "\\*.slt").c_str(), &found));
    if (!listing) return std::string();
    do {
        if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
            return astrFolder + "\\" + found.cFileName;
    } while (FindNextFileA(listing.Get(), &found));
    return std::string();
}

}  // namespace

// Whether a path can exist, judged from listings of the folders it passes
// through: a registry may name thousands of profiles whose folders are gone,
// and one listing of the folder they shared answers for all of them. A
// folder is listed once paths through it have been asked about twice; what
// the listings cannot judge (another form than "C:\a\b", names the file
// system would trim or fold otherwise) may exist, for the file system to say.
class FolderListings {
  public:
    bool MayExist(const std::string& astrPath) {
        if (astrPath.size() < 4 || astrPath[1] != ':' || astrPath[2] != '\\') return true;
        size_t start = 3;
        while (start < astrPath.size()) {
            const size_t end = astrPath.find('\\', start);
            const std::string name =
                astrPath.substr(start, end == std::string::npos ? std::string::npos : end - start);
            if (!Judgeable(name)) return true;
            const std::set<std::string>* names = Listing(ToUpper(astrPath.substr(0, start)));
            if (names && names->count(ToUpper(name)) == 0) return false;
            if (end == std::string::npos) break;
            start = end + 1;
        }
        return true;
    }

  private:
    // Plain ASCII names, which every system compares alike without case.
    static bool Judgeable(const std::string& astrName) {
        if (astrName.empty() || astrName == "." || astrName == ".." || astrName.back() == '.' ||
            astrName.back() == ' ')
            return false;
        for (char c : astrName) {
            const unsigned char u = static_cast<unsigned char>(c);
            if (u < 0x20 || u >= 0x80 || std::string("*?/:\"<>|~").find(c) != std::string::npos)
                return false;
        }
        return true;
    }

    // The names in a folder (its path upper-case, ending in "\"), or nothing.
    const std::set<std::string>* Listing(const std::string& astrFolder) {
        const auto listed = mListed.find(astrFolder);
        if (listed != mListed.end()) return listed->second.first ? &listed->second.second : nullptr;
        if (++mAsked[astrFolder] < 2) return nullptr;
        std::pair<bool, std::set<std::string>>& entry = mListed[astrFolder];
        WIN32_FIND_DATAA found;
        FindHandle listing(FindFirstFileA((astrFolder + "*").c_str(), &found));
        if (!listing) return nullptr;
        do {
            entry.second.insert(ToUpper(found.cFileName));
        } while (FindNextFileA(listing.Get(), &found));
        entry.first = GetLastError() == ERROR_NO_MORE_FILES;
        return entry.first ? &entry.second : nullptr;
    }

    std::map<std::string, int> mAsked;
    std::map<std::string, std::pair<bool, std::set<std::string>>> mListed;
};

void NavigatorProfiles::Find() {
    FindMachineWideProfile();
    if (mstrCurrent.empty()) FindPerUserProfiles();
    FindMozillaProfiles();
}

std::string NavigatorProfiles::PrefsFileOf(const std::string& astrProfile) const {
    const auto found = mcolByName.find(ToLower(astrProfile));
    return found == mcolByName.end() ? std::string() : mcolFound[found->second].PrefsFile;
}

// Logs the search for a prefs file; true when it exists.
bool NavigatorProfiles::FindPrefs(const std::string& astrPrefsFile, FolderListings* aobjListings) {
    Note("Searching for Prefs: " + astrPrefsFile);
    if ((aobjListings && !aobjListings->MayExist(astrPrefsFile)) || !IsFile(astrPrefsFile)) {
        Note("Prefs file not found");
        return false;
    }
    Note("Prefs file found: " + astrPrefsFile);
    return true;
}

bool NavigatorProfiles::AddProfile(const std::string& astrName, const std::string& astrPrefsFile) {
    Note("Profile Name: " + astrName);
    Note("Profile Folder: " + FolderOf(astrPrefsFile));
    // Profile names are keys: a second profile of a name already found is left out.
    if (astrName.empty() || !PrefsFileOf(astrName).empty()) {
        Note("Profile already listed: " + astrName);
        return false;
    }
    mcolByName.emplace(ToLower(astrName), mcolFound.size());
    mcolFound.push_back({astrName, astrPrefsFile});
    return true;
}

// Netscape 4, machine-wide: the user list of HKEY_LOCAL_MACHINE names the
// current user and its folder.
void NavigatorProfiles::FindMachineWideProfile() {
    Procedure proc(kObject, "FindMachineWideProfile");
    proc.Run([&] {
        const std::string user = RegistryText(kNetscapeKey, "CurrentUser");
        if (user.empty()) return;
        const std::string folder = RegistryText(std::string(kNetscapeKey) + "\\" + user, "DirRoot");
        if (folder.empty()) return;
        const std::string file = PrefsIn(folder);
        if (FindPrefs(file) && AddProfile(user, file)) {
            mstrCurrent = user;
        }
    });
}

// Netscape 4, per user: the mail notifier's user list. A user's folder is the
// one holding its mail state file, else "Netscape\Users\<user>" on the install
// drive, else "Program Files\Netscape\Users\<user>" on the Windows drive.
void NavigatorProfiles::FindPerUserProfiles() {
    Procedure proc(kObject, "FindPerUserProfiles");
    proc.Run([&] {
        const std::string currentKey = UserKeyName(RegistryText(kBiffKey, "CurrentUser"));
        const std::string installDrive = DriveOf(RegistryText(kMainKey, "Install Directory"));
        const std::string windowsDrive = WindowsDrive();

        for (const std::string& user : reg::SubKeys(kBiffUsersKey)) {
            const std::string userKey = kBiffUserKey + UserKeyName(user);
            const std::string server = RegistryText(userKey, "defaultServer");
            std::vector<std::string> candidates;
            if (!server.empty()) {
                // The value that names the mail state file, whatever its name.
                for (const RegistryValueRow& row : reg::Values(userKey + "\\servers\\" + server)) {
                    const std::string path = StripNulls(row.Data);
                    const std::string::size_type at = ToLower(path).find(kMailState);
                    if (row.Type == "0" && at != std::string::npos) {
                        candidates.push_back(PrefsIn(path.substr(0, at)));
                        break;
                    }
                }
            }
            if (!installDrive.empty())
                candidates.push_back(installDrive + "Netscape\\Users\\" + user + "\\" + kPrefsName);
            if (!windowsDrive.empty())
                candidates.push_back(windowsDrive + "Program Files\\Netscape\\Users\\" + user +
                                     "\\" + kPrefsName);

            for (const std::string& file : candidates) {
                if (!FindPrefs(file)) continue;
                if (AddProfile(user, file) && !currentKey.empty() &&
                    UserKeyName(user) == currentKey) {
                    mstrCurrent = user;
                }
                break;
            }
        }
    });
}

// Netscape 6 and later, Mozilla: the profile registry lists each profile with
// its folder; a profile without one lives in a "*.slt" folder under
// "Mozilla\Profiles\<name>".
void NavigatorProfiles::FindMozillaProfiles() {
    Procedure proc(kObject, "FindMozillaProfiles");
    proc.Run([&] {
        const std::string appData = GetShellFolderPath(kShellFolderAppData);
        if (appData.empty()) return;
        const std::string registryFile = appData + "\\Mozilla\\registry.dat";
        Note("Searching for Prefs: " + registryFile);
        if (!IsFile(registryFile)) return;

        FolderListings listings;
        ZvMozillaLib registry;
        if (!registry.Open(registryFile)) {
            proc.Log("not a profile registry: " + registryFile);
            return;
        }
        for (const ZvMozillaProfile& profile : registry.ProfileList()) {
            std::string folder = WithoutTrailingSlash(profile.Directory);
            if (folder.empty()) {
                folder = FirstSaltFolder(appData + "\\Mozilla\\Profiles\\" + profile.Name);
                if (folder.empty()) {
                    Note("Profile Name: " + profile.Name);
                    Note("Prefs file not found");
                    continue;
                }
            }
            const std::string file = PrefsIn(folder);
            if (FindPrefs(file, &listings)) AddProfile(profile.Name, file);
        }
    });
}

}  // namespace rwz
