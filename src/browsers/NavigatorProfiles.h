// Where Netscape and Mozilla keep their user profiles, each with its
// preferences file "prefs.js". Looked in, in this order:
//   1. Netscape 4's machine-wide user list (HKLM ...\Netscape Navigator\Users),
//      whose "CurrentUser" becomes the current profile;
//   2. otherwise Netscape 4's per-user list (HKCU ...\Netscape Navigator\biff),
//      each user's folder found through its mail state file, or under the
//      install drive's or the Windows drive's "Netscape\Users" folders;
//   3. the Mozilla profile registry "Mozilla\registry.dat" in the user's
//      application data folder (Netscape 6 and later, Mozilla), a profile
//      without a "directory" entry found through its "*.slt" folder.
// Only profiles whose prefs.js exists are listed; a name is listed once.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

namespace rwz {

class FolderListings;

struct NavigatorProfile {
    std::string Name;
    std::string PrefsFile;
};

class NavigatorProfiles {
  public:
    void Find();

    // In the order found.
    const std::vector<NavigatorProfile>& Found() const { return mcolFound; }
    // The profile a Netscape 4 list names as current; "" when none was found.
    const std::string& Current() const { return mstrCurrent; }
    // The preferences file of a profile (name without case); "" when none.
    std::string PrefsFileOf(const std::string& astrProfile) const;

  private:
    void FindMachineWideProfile();
    void FindPerUserProfiles();
    void FindMozillaProfiles();
    // With `aobjListings`, a file that its folders' listings show missing is
    // not looked for.
    static bool FindPrefs(const std::string& astrPrefsFile, FolderListings* aobjListings = nullptr);
    // Lists a profile; false for a name already listed.
    bool AddProfile(const std::string& astrName, const std::string& astrPrefsFile);

    std::vector<NavigatorProfile> mcolFound;
    // Positions in mcolFound by lower-case name: a registry may list thousands.
    std::unordered_map<std::string, size_t> mcolByName;
    std::string mstrCurrent;
};

}  // namespace rwz
