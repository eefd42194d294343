// The Netscape and Mozilla back end: Netscape Navigator 4, Netscape 6 and later,
// and Mozilla. It finds the browser's user profiles (NavigatorProfiles), reads
// and writes the proxy, home page and mail preferences of the current profile
// in its "prefs.js", and keeps them in the profile section "Netscape Navigator".
//
// With no current profile, the Netscape notice is shown (unless the option
// "NavigatorWarning" is "1") and the first profile found becomes current.
// Netscape 6 changed some preference names; Version() below 6 uses Netscape
// 4's. Mail settings are only Netscape 4's (up to version 4.8).
#pragma once

#include <string>

#include "browsers/NavigatorProfiles.h"
#include "browsers/clsBrowserBase.h"

namespace rwz {

class NavigatorPrefsLib;
class Procedure;

// What the Netscape tab shows instead of the mail dialog for later versions.
inline constexpr const char* kNavigatorMailUnavailableText =
    "Netscape E-mail settings are currently available only for Netscape version 4.8 or less.";

// Whether a Netscape version keeps its mail settings where this back end
// reads and writes them (4.8 or less).
bool NavigatorMailAvailable(float asngVersion);

class NavigatorLib : public clsBrowserBase {
  public:
    // The first version that uses the later preference names.
    static constexpr float kLaterPrefsVersion = 6.0f;

    // Takes the installed Netscape's version and finds the profiles (which may
    // show the Netscape notice).
    NavigatorLib();

    // The live browser is the current profile's prefs.js.
    void LoadConfiguration() override;
    void ApplyConfiguration() override;

  private:
    struct Preference;
    static const Preference kPreferences[];
    void FindProfiles();
    // Reads or writes every preference, one logged operation per group of rows.
    void Transfer(NavigatorPrefsLib& aobjPrefs, bool ablnWrite);
    void Read(const Preference& aPref, NavigatorPrefsLib& aobjPrefs);
    void Write(const Preference& aPref, NavigatorPrefsLib& aobjPrefs);

    NavigatorProfiles mProfiles;
};

}  // namespace rwz
