// The Netscape and Mozilla back end: Netscape Navigator 4, Netscape 6 and later,
// and Mozilla. It finds the browser's user profiles and each one's "prefs.js",
// reads and writes the proxy, home page and mail preferences of the current
// profile there, and keeps them in the profile section "Netscape Navigator".
//
// Profiles are looked for once, when the object is created, in this order:
//   1. Netscape 4's machine-wide user list (HKLM ...\Netscape Navigator\Users),
//      whose "CurrentUser" becomes the current profile;
//   2. otherwise Netscape 4's per-user list (HKCU ...\Netscape Navigator\biff),
//      each user's folder found through its mail state file, or under the
//      install drive's or the Windows drive's "Netscape\Users" folders;
//   3. the Mozilla profile registry "Mozilla\registry.dat" in the user's
//      application data folder (used by Netscape 6 and later and by Mozilla),
//      a profile without a "directory" entry found through its "*.slt" folder.
// With no current profile, the Netscape notice is shown (unless the option
// "NavigatorWarning" is "1") and the first profile found becomes current.
//
// Netscape 6 changed some preference names; Version() below 6 uses Netscape
// 4's. Mail settings are only Netscape 4's (up to version 4.8).
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "browsers/NavigatorPrefsLib.h"
#include "browsers/clsBrowserBase.h"

namespace rwz {

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
    ~NavigatorLib() override;

    // --- For the Netscape tab and the mail dialog.
    // The preferences file of a profile (name without case); "" when none.
    std::string PrefsFileOf(const std::string& astrProfile) const;
    // The preferences file of the current profile; "" when it has none.
    std::string CurrentPrefsFile() const { return PrefsFileOf(mstrCurrentProfile); }
    // Every profile found with its preferences file, in the order found.
    const std::vector<std::pair<std::string, std::string>>& PrefsFiles() const {
        return mcolPrefsFiles;
    }
    // True when the profile search found the current profile itself (rather
    // than taking the first one found).
    bool CurrentProfileFound() const { return mblnCurrentProfileFound; }
    bool UsesLaterPrefs() const { return msngVersion >= kLaterPrefsVersion; }
    bool MailAvailable() const { return NavigatorMailAvailable(msngVersion); }

    // --- IBrowser: the live browser is the current profile's prefs.js.
    void LoadConfiguration() override;
    void ApplyConfiguration() override;

    // Each reads or writes one setting. Inside LoadConfiguration and
    // ApplyConfiguration they work on the file those opened; called on their
    // own, they open the current profile's file for that one setting.
    void GetProxyAddresses() override;
    void GetProxyExceptions() override;
    void GetConnectViaLAN() override;
    void GetProxyEnabled() override;
    void GetDefaultHomePage() override;
    void GetAutoConfigURL() override;
    void GetEMailFullName() override;
    void GetEMailAddr() override;
    void GetEMailReplyToAddr() override;
    void GetEMailPOP3Server() override;
    void GetEMailPOP3Login() override;
    void GetEMailSMTPServer() override;
    void GetEMailSMTPLogin() override;
    void GetEMailOrganization() override;
    void GetEMailLeaveMailOnServer() override;

    void SetProxyAddresses() override;
    void SetProxyExceptions() override;
    void SetConnectViaLAN() override;
    void SetProxyEnabled() override;
    void SetDefaultHomePage() override;
    void SetAutoConfigURL() override;
    void SetEMailFullName() override;
    void SetEMailAddr() override;
    void SetEMailReplyToAddr() override;
    void SetEMailPOP3Server() override;
    void SetEMailPOP3Login() override;
    void SetEMailSMTPServer() override;
    void SetEMailSMTPLogin() override;
    void SetEMailOrganization() override;
    void SetEMailLeaveMailOnServer() override;

    // The live operations above hide the property setters of the same names.
    using clsBrowserBase::SetAutoConfigURL;
    using clsBrowserBase::SetConnectViaLAN;
    using clsBrowserBase::SetDefaultHomePage;
    using clsBrowserBase::SetEMailAddr;
    using clsBrowserBase::SetEMailFullName;
    using clsBrowserBase::SetEMailLeaveMailOnServer;
    using clsBrowserBase::SetEMailOrganization;
    using clsBrowserBase::SetEMailPOP3Login;
    using clsBrowserBase::SetEMailPOP3Server;
    using clsBrowserBase::SetEMailReplyToAddr;
    using clsBrowserBase::SetEMailSMTPLogin;
    using clsBrowserBase::SetEMailSMTPServer;
    using clsBrowserBase::SetProxyEnabled;
    using clsBrowserBase::SetProxyExceptions;

  private:
    class PrefsSession;

    void FindProfiles();
    void FindMachineWideProfile();
    void FindPerUserProfiles();
    void FindMozillaProfiles();
    static bool FindPrefs(const std::string& astrPrefsFile);
    // Lists a profile whose prefs.js exists; false for a name already listed.
    bool AddProfile(const std::string& astrName, const std::string& astrPrefsFile);
    bool HasProfile(const std::string& astrName) const;
    // Runs one live Get/Set on the prefs file in use (see PrefsSession).
    template <class Body>
    void Live(const char* astrName, bool ablnWrite, Body&& body);

    // The open prefs file of LoadConfiguration/ApplyConfiguration, or one
    // opened for a single Get/Set call; null when there is no file.
    NavigatorPrefsLib* mobjPrefs = nullptr;

    std::vector<std::pair<std::string, std::string>> mcolPrefsFiles;  // name, prefs.js
    bool mblnCurrentProfileFound = false;
};

}  // namespace rwz
