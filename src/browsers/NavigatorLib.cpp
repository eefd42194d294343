#include "browsers/NavigatorLib.h"

#include <windows.h>

#include <memory>

#include "browsers/ZvMozillaLib.h"
#include "browsers/modShellFolders.h"
#include "platform/Procedure.h"
#include "platform/RwzError.h"
#include "platform/Win32Handles.h"
#include "platform/clsEasyRegistry.h"
#include "platform/modAPI.h"
#include "platform/modLogging.h"
#include "platform/modUtilities.h"
#include "shell/frmNetscapeNotice.h"

namespace rwz {

namespace {

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

const char kNoPrefsFileText[] = "Could not locate Navigator preferences file.";
// VB's runtime error for a number too large for its type.
constexpr int32_t kErrOverflow = 6;

// Preference names.
const char kHttp[] = "network.proxy.http";
const char kHttpPort[] = "network.proxy.http_port";
const char kFtp[] = "network.proxy.ftp";
const char kFtpPort[] = "network.proxy.ftp_port";
const char kSsl[] = "network.proxy.ssl";
const char kSslPort[] = "network.proxy.ssl_port";
const char kGopher[] = "network.proxy.gopher";
const char kGopherPort[] = "network.proxy.gopher_port";
const char kWais[] = "network.proxy.wais";
const char kWaisPort[] = "network.proxy.wais_port";
const char kSocks4[] = "network.hosts.socks_server";
const char kSocks4Port[] = "network.hosts.socks_serverport";
const char kSocks[] = "network.proxy.socks";
const char kSocksPort[] = "network.proxy.socks_port";
const char kSocksVersion[] = "network.proxy.socks_version";
const char kProxyType[] = "network.proxy.type";
const char kAutoConfigURL[] = "network.proxy.autoconfig_url";
const char kNoProxiesOn[] = "network.proxy.no_proxies_on";
const char kHomePage[] = "browser.startup.homepage";
const char kMailFullName[] = "mail.identity.username";
const char kMailAddr[] = "mail.identity.useremail";
const char kMailReplyTo[] = "mail.identity.reply_to";
const char kMailOrganization[] = "mail.identity.organization";
const char kMailPOP3Server[] = "network.hosts.pop_server";
const char kMailPOP3Login[] = "mail.pop_name";
const char kMailSMTPServer[] = "network.hosts.smtp_server";
const char kMailSMTPLogin[] = "mail.smtp_name";
const char kMailLeaveOnServer[] = "mail.leave_on_server";

// "network.proxy.type" as Netscape and Mozilla write it: 1 manual proxies,
// 2 a proxy configuration URL; a direct connection leaves it out.
constexpr int16_t kProxyTypeManual = 1;
constexpr int16_t kProxyTypeAutoConfig = 2;
const char kProxyTypeManualText[] = "1";
// Netscape 6 and later speak SOCKS 5 unless told otherwise.
const char kDefaultSocksVersion[] = "5";

// The back end's own log lines ("NavigatorLib - Prefs file found: ...").
void Note(const std::string& astrText) {
    WriteLog(std::string(kObject) + " - " + astrText, kLogDebug);
}

// A string value, "" when the key or the value is missing.
std::string RegistryText(const std::string& astrKey, const std::string& astrValue) {
    clsEasyRegistry registry;
    registry.SetSuppressErrors(true);
    registry.SetCurrentKey(astrKey);
    if (registry.LastError() != 0) return std::string();
    const RegistryValue value = registry.ValueOf(astrValue);
    return registry.LastError() == 0 ? StripNulls(value.Text) : std::string();
}

std::vector<std::string> RegistrySubKeys(const std::string& astrKey) {
    clsEasyRegistry registry;
    registry.SetSuppressErrors(true);
    registry.SetCurrentKey(astrKey);
    if (registry.LastError() != 0) return {};
    return registry.DirKey().value_or(std::vector<std::string>());
}

std::vector<RegistryValueRow> RegistryValues(const std::string& astrKey) {
    clsEasyRegistry registry;
    registry.SetSuppressErrors(true);
    registry.SetCurrentKey(astrKey);
    if (registry.LastError() != 0) return {};
    return registry.DirValue();
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

// An integer preference's value: the text as VB's Val("0" & text) reads it
// (blanks skipped, digits up to the first other character), which must fit
// the 16 bits a preference integer is written with.
int16_t PrefInteger(const std::string& astrText) {
    long value = 0;
    for (char c : astrText) {
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n') continue;
        if (c < '0' || c > '9') break;
        value = value * 10 + (c - '0');
        if (value > 32767) Err::Raise(kErrOverflow, "Rwz", "Overflow");
    }
    return static_cast<int16_t>(value);
}

void ShowExclamation(const std::string& astrText) {
    MessageBoxA(GetActiveWindow(), astrText.c_str(), kProductName, MB_OK | MB_ICONEXCLAMATION);
}

}  // namespace

bool NavigatorMailAvailable(float asngVersion) {
    return asngVersion <= 4.8f;
}

// The prefs file a live Get/Set works on: the one LoadConfiguration or
// ApplyConfiguration holds open, or else the current profile's file opened for
// this one call (and, for a Set, written back when the call succeeded).
class NavigatorLib::PrefsSession {
  public:
    PrefsSession(NavigatorLib& aobjOwner, bool ablnWrite) : mobjOwner(aobjOwner) {
        if (mobjOwner.mobjPrefs) return;
        const std::string file = mobjOwner.CurrentPrefsFile();
        if (file.empty()) return;
        mobjOwn = std::make_unique<NavigatorPrefsLib>();
        if (!mobjOwn->OpenPrefsFile(file, ablnWrite)) {
            mobjOwn.reset();
            return;
        }
        mobjOwner.mobjPrefs = mobjOwn.get();
    }
    ~PrefsSession() {
        if (!mobjOwn) return;
        // Reached by an error: nothing half-done is written.
        mobjOwn->SetWritePrefsOnClose(false);
        mobjOwn->ClosePrefsFile();
        mobjOwner.mobjPrefs = nullptr;
    }
    PrefsSession(const PrefsSession&) = delete;
    PrefsSession& operator=(const PrefsSession&) = delete;

    NavigatorPrefsLib* Prefs() const { return mobjOwner.mobjPrefs; }
    // Ends a call that opened its own file, writing it when opened for writing.
    void Finish() {
        if (!mobjOwn) return;
        mobjOwn->ClosePrefsFile();
        mobjOwn.reset();
        mobjOwner.mobjPrefs = nullptr;
    }

  private:
    NavigatorLib& mobjOwner;
    std::unique_ptr<NavigatorPrefsLib> mobjOwn;
};

template <class Body>
void NavigatorLib::Live(const char* astrName, bool ablnWrite, Body&& body) {
    Procedure proc(kObject, astrName);
    auto run = [&] {
        PrefsSession session(*this, ablnWrite);
        if (NavigatorPrefsLib* prefs = session.Prefs()) {
            body(*prefs);
            session.Finish();
        }
    };
    // Inside LoadConfiguration and ApplyConfiguration an error is passed on, so
    // that the caller abandons the file; a call on its own stops it here.
    if (mobjPrefs) {
        proc.RunPassingOn(run);
    } else {
        proc.Run(run);
    }
}

NavigatorLib::NavigatorLib() : clsBrowserBase(BrowserSection::Navigator, kObject) {
    Procedure proc(kObject, "Class_Initialize");
    proc.Run([&] {
        mstrVersionString = GetNetscapeVersion();
        msngVersion = VersionNumber(mstrVersionString);
        mblnIsInstalled = msngVersion > 4.0f;
        proc.LogValue(mstrVersionString);
    });
    FindProfiles();
}

NavigatorLib::~NavigatorLib() = default;

// --- Finding the profiles ---------------------------------------------------

void NavigatorLib::FindProfiles() {
    Procedure proc(kObject, "FindProfiles");
    proc.Run([&] {
        FindMachineWideProfile();
        if (!mblnCurrentProfileFound) FindPerUserProfiles();
        FindMozillaProfiles();

        if (!mblnCurrentProfileFound &&
            GetProgramSetting(kProductName, "Options", "NavigatorWarning", "0") == "0") {
            const std::string first =
                mcolProfileList.empty() ? std::string() : mcolProfileList.front();
            ShowNetscapeNotice(GetActiveWindow(), first);
        }
        if (mstrCurrentProfile.empty() && !mcolProfileList.empty())
            mstrCurrentProfile = mcolProfileList.front();
        Note("Profile Name: " + mstrCurrentProfile);
    });
}

bool NavigatorLib::HasProfile(const std::string& astrName) const {
    const std::string name = ToLower(astrName);
    for (const auto& profile : mcolPrefsFiles)
        if (ToLower(profile.first) == name) return true;
    return false;
}

// Logs the search for a prefs file; true when it exists.
bool NavigatorLib::FindPrefs(const std::string& astrPrefsFile) {
    Note("Searching for Prefs: " + astrPrefsFile);
    if (!IsFile(astrPrefsFile)) {
        Note("Prefs file not found");
        return false;
    }
    Note("Prefs file found: " + astrPrefsFile);
    return true;
}

bool NavigatorLib::AddProfile(const std::string& astrName, const std::string& astrPrefsFile) {
    Note("Profile Name: " + astrName);
    Note("Profile Folder: " + FolderOf(astrPrefsFile));
    // Profile names are keys: a second profile of a name already found is left out.
    if (astrName.empty() || HasProfile(astrName)) {
        Note("Profile already listed: " + astrName);
        return false;
    }
    mcolProfileList.push_back(astrName);
    mcolPrefsFiles.emplace_back(astrName, astrPrefsFile);
    return true;
}

// Netscape 4, machine-wide: the user list of HKEY_LOCAL_MACHINE names the
// current user and its folder.
void NavigatorLib::FindMachineWideProfile() {
    Procedure proc(kObject, "FindMachineWideProfile");
    proc.Run([&] {
        const std::string user = RegistryText(kNetscapeKey, "CurrentUser");
        if (user.empty()) return;
        const std::string folder = RegistryText(std::string(kNetscapeKey) + "\\" + user, "DirRoot");
        if (folder.empty()) return;
        const std::string file = PrefsIn(folder);
        if (FindPrefs(file) && AddProfile(user, file)) {
            mstrCurrentProfile = user;
            mblnCurrentProfileFound = true;
        }
    });
}

// Netscape 4, per user: the mail notifier's user list. A user's folder is the
// one holding its mail state file, else "Netscape\Users\<user>" on the install
// drive, else "Program Files\Netscape\Users\<user>" on the Windows drive.
void NavigatorLib::FindPerUserProfiles() {
    Procedure proc(kObject, "FindPerUserProfiles");
    proc.Run([&] {
        const std::string currentKey = UserKeyName(RegistryText(kBiffKey, "CurrentUser"));
        const std::string installDrive = DriveOf(RegistryText(kMainKey, "Install Directory"));
        const std::string windowsDrive = WindowsDrive();

        for (const std::string& user : RegistrySubKeys(kBiffUsersKey)) {
            const std::string userKey = kBiffUserKey + UserKeyName(user);
            const std::string server = RegistryText(userKey, "defaultServer");
            std::vector<std::string> candidates;
            if (!server.empty()) {
                // The value that names the mail state file, whatever its name.
                for (const RegistryValueRow& row :
                     RegistryValues(userKey + "\\servers\\" + server)) {
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
                    mstrCurrentProfile = user;
                    mblnCurrentProfileFound = true;
                }
                break;
            }
        }
    });
}

// Netscape 6 and later, Mozilla: the profile registry lists each profile with
// its folder; a profile without one lives in a "*.slt" folder under
// "Mozilla\Profiles\<name>".
void NavigatorLib::FindMozillaProfiles() {
    Procedure proc(kObject, "FindMozillaProfiles");
    proc.Run([&] {
        const std::string appData = GetShellFolderPath(kShellFolderAppData);
        if (appData.empty()) return;
        const std::string registryFile = appData + "\\Mozilla\\registry.dat";
        Note("Searching for Prefs: " + registryFile);
        if (!IsFile(registryFile)) return;

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
            if (FindPrefs(file)) AddProfile(profile.Name, file);
        }
    });
}

std::string NavigatorLib::PrefsFileOf(const std::string& astrProfile) const {
    const std::string name = ToLower(astrProfile);
    for (const auto& profile : mcolPrefsFiles)
        if (ToLower(profile.first) == name) return profile.second;
    return std::string();
}

// --- Loading and applying ---------------------------------------------------

void NavigatorLib::LoadConfiguration() {
    Procedure proc(kObject, "LoadConfiguration");
    proc.Run([&] {
        Note("Profile Name: " + mstrCurrentProfile);
        Note("Prefs files: " + std::to_string(mcolPrefsFiles.size()));
        const std::string file = CurrentPrefsFile();
        if (!file.empty()) {
            NavigatorPrefsLib prefs;
            if (prefs.OpenPrefsFile(file, false)) {
                mobjPrefs = &prefs;
                struct Detach {
                    NavigatorPrefsLib*& Prefs;
                    ~Detach() { Prefs = nullptr; }
                } detach{mobjPrefs};

                Note("Read Settings");
                GetProxyAddresses();
                GetProxyExceptions();
                GetConnectViaLAN();
                GetProxyEnabled();
                GetDefaultHomePage();
                GetAutoConfigURL();
                Note("Read E-Mail Settings");
                GetEMailFullName();
                GetEMailAddr();
                GetEMailReplyToAddr();
                GetEMailPOP3Server();
                GetEMailPOP3Login();
                GetEMailSMTPServer();
                GetEMailSMTPLogin();
                GetEMailOrganization();
                GetEMailLeaveMailOnServer();
                Note("Close Prefs File");
                prefs.ClosePrefsFile();
            }
        } else {
            Note("Prefs file not found");
        }
    });
    ResetFlags();
}

void NavigatorLib::ApplyConfiguration() {
    Procedure proc(kObject, "ApplyConfiguration");
    proc.Run([&] {
        if (!IsModified()) return;
        const std::string file = CurrentPrefsFile();
        if (file.empty()) {
            proc.Log(kNoPrefsFileText);
            ShowExclamation(kNoPrefsFileText);
            return;
        }

        // The whole profile is written, or nothing: the file is rewritten only
        // when every preference could be set.
        bool written = false;
        NavigatorPrefsLib prefs;
        if (prefs.OpenPrefsFile(file, true)) {
            mobjPrefs = &prefs;
            struct Detach {
                NavigatorPrefsLib*& Prefs;
                ~Detach() { Prefs = nullptr; }
            } detach{mobjPrefs};
            try {
                SetProxyAddresses();
                SetProxyExceptions();
                SetConnectViaLAN();
                SetProxyEnabled();
                SetDefaultHomePage();
                SetAutoConfigURL();
                if (MailAvailable()) {
                    SetEMailFullName();
                    SetEMailAddr();
                    SetEMailReplyToAddr();
                    SetEMailPOP3Server();
                    SetEMailPOP3Login();
                    SetEMailSMTPServer();
                    SetEMailSMTPLogin();
                    SetEMailOrganization();
                    SetEMailLeaveMailOnServer();
                }
                Note("Close Prefs File");
                written = prefs.ClosePrefsFile();
            } catch (const std::exception&) {
                prefs.SetWritePrefsOnClose(false);
                prefs.ClosePrefsFile();
            }
        }
        if (!written) {
            const std::string text =
                "Could not apply Navigator preferences for profile '" + mstrCurrentProfile + "'.";
            proc.Log(text);
            ShowExclamation(text);
        }
    });
    ResetFlags();
}

// --- Reading single settings ------------------------------------------------

void NavigatorLib::GetProxyAddresses() {
    Live("GetProxyAddresses", false, [&](NavigatorPrefsLib& prefs) {
        mstrHTTPAddress = prefs.GetSetting(kHttp);
        mstrHTTPPort = prefs.GetSetting(kHttpPort);
        mstrFTPAddress = prefs.GetSetting(kFtp);
        mstrFTPPort = prefs.GetSetting(kFtpPort);
        mstrSecureAddress = prefs.GetSetting(kSsl);
        mstrSecurePort = prefs.GetSetting(kSslPort);
        mstrGopherAddress = prefs.GetSetting(kGopher);
        mstrGopherPort = prefs.GetSetting(kGopherPort);
        mstrWAISAddress = prefs.GetSetting(kWais);
        mstrWAISPort = prefs.GetSetting(kWaisPort);
        if (UsesLaterPrefs()) {
            mstrSocksAddress = prefs.GetSetting(kSocks);
            mstrSocksPort = prefs.GetSetting(kSocksPort);
            mstrSocksVersion = prefs.GetSetting(kSocksVersion);
            if (mstrSocksVersion.empty()) mstrSocksVersion = kDefaultSocksVersion;
        } else {
            mstrSocksAddress = prefs.GetSetting(kSocks4);
            mstrSocksPort = prefs.GetSetting(kSocks4Port);
        }
    });
}

void NavigatorLib::GetProxyExceptions() {
    Live("GetProxyExceptions", false,
         [&](NavigatorPrefsLib& prefs) { mstrProxyExceptions = prefs.GetSetting(kNoProxiesOn); });
}

// Without the preference the browsers connect directly.
void NavigatorLib::GetConnectViaLAN() {
    Live("GetConnectViaLAN", false, [&](NavigatorPrefsLib& prefs) {
        mblnConnectViaLAN = prefs.GetSetting(kProxyType).empty();
    });
}

void NavigatorLib::GetProxyEnabled() {
    Live("GetProxyEnabled", false, [&](NavigatorPrefsLib& prefs) {
        mblnProxyEnabled = prefs.GetSetting(kProxyType) == kProxyTypeManualText;
    });
}

void NavigatorLib::GetDefaultHomePage() {
    Live("GetDefaultHomePage", false,
         [&](NavigatorPrefsLib& prefs) { mstrDefaultHomePage = prefs.GetSetting(kHomePage); });
}

void NavigatorLib::GetAutoConfigURL() {
    Live("GetAutoConfigURL", false,
         [&](NavigatorPrefsLib& prefs) { mstrAutoConfigURL = prefs.GetSetting(kAutoConfigURL); });
}

void NavigatorLib::GetEMailFullName() {
    Live("GetEMailFullName", false,
         [&](NavigatorPrefsLib& prefs) { mstrEMailFullName = prefs.GetSetting(kMailFullName); });
}

void NavigatorLib::GetEMailAddr() {
    Live("GetEMailAddr", false,
         [&](NavigatorPrefsLib& prefs) { mstrEMailAddr = prefs.GetSetting(kMailAddr); });
}

void NavigatorLib::GetEMailReplyToAddr() {
    Live("GetEMailReplyToAddr", false,
         [&](NavigatorPrefsLib& prefs) { mstrEMailReplyToAddr = prefs.GetSetting(kMailReplyTo); });
}

void NavigatorLib::GetEMailPOP3Server() {
    Live("GetEMailPOP3Server", false, [&](NavigatorPrefsLib& prefs) {
        mstrEMailPOP3Server = prefs.GetSetting(kMailPOP3Server);
    });
}

void NavigatorLib::GetEMailPOP3Login() {
    Live("GetEMailPOP3Login", false,
         [&](NavigatorPrefsLib& prefs) { mstrEMailPOP3Login = prefs.GetSetting(kMailPOP3Login); });
}

void NavigatorLib::GetEMailSMTPServer() {
    Live("GetEMailSMTPServer", false, [&](NavigatorPrefsLib& prefs) {
        mstrEMailSMTPServer = prefs.GetSetting(kMailSMTPServer);
    });
}

void NavigatorLib::GetEMailSMTPLogin() {
    Live("GetEMailSMTPLogin", false,
         [&](NavigatorPrefsLib& prefs) { mstrEMailSMTPLogin = prefs.GetSetting(kMailSMTPLogin); });
}

void NavigatorLib::GetEMailOrganization() {
    Live("GetEMailOrganization", false, [&](NavigatorPrefsLib& prefs) {
        mstrEMailOrganization = prefs.GetSetting(kMailOrganization);
    });
}

void NavigatorLib::GetEMailLeaveMailOnServer() {
    Live("GetEMailLeaveMailOnServer", false, [&](NavigatorPrefsLib& prefs) {
        mblnEMailLeaveMailOnServer = prefs.GetSetting(kMailLeaveOnServer) == "true";
    });
}

// --- Writing single settings ------------------------------------------------

void NavigatorLib::SetProxyAddresses() {
    Live("SetProxyAddresses", true, [&](NavigatorPrefsLib& prefs) {
        prefs.SaveSettingStr(kHttp, mstrHTTPAddress);
        prefs.SaveSettingInt(kHttpPort, PrefInteger("0" + mstrHTTPPort));
        prefs.SaveSettingStr(kFtp, mstrFTPAddress);
        prefs.SaveSettingInt(kFtpPort, PrefInteger("0" + mstrFTPPort));
        prefs.SaveSettingStr(kSsl, mstrSecureAddress);
        prefs.SaveSettingInt(kSslPort, PrefInteger("0" + mstrSecurePort));
        prefs.SaveSettingStr(kGopher, mstrGopherAddress);
        prefs.SaveSettingInt(kGopherPort, PrefInteger("0" + mstrGopherPort));
        prefs.SaveSettingStr(kWais, mstrWAISAddress);
        prefs.SaveSettingInt(kWaisPort, PrefInteger("0" + mstrWAISPort));
        if (UsesLaterPrefs()) {
            prefs.SaveSettingStr(kSocks, mstrSocksAddress);
            prefs.SaveSettingInt(kSocksPort, PrefInteger("0" + mstrSocksPort));
            prefs.SaveSettingInt(kSocksVersion, PrefInteger("0" + mstrSocksVersion));
        } else {
            prefs.SaveSettingStr(kSocks4, mstrSocksAddress);
            prefs.SaveSettingInt(kSocks4Port, PrefInteger("0" + mstrSocksPort));
        }
    });
}

void NavigatorLib::SetProxyExceptions() {
    Live("SetProxyExceptions", true, [&](NavigatorPrefsLib& prefs) {
        prefs.SaveSettingStr(kNoProxiesOn, mstrProxyExceptions);
    });
}

// A direct connection is the browsers' default, which they keep by leaving the
// preference out.
void NavigatorLib::SetConnectViaLAN() {
    Live("SetConnectViaLAN", true, [&](NavigatorPrefsLib& prefs) {
        if (mblnConnectViaLAN) prefs.DeleteSetting(kProxyType);
    });
}

void NavigatorLib::SetProxyEnabled() {
    Live("SetProxyEnabled", true, [&](NavigatorPrefsLib& prefs) {
        if (mblnProxyEnabled) prefs.SaveSettingInt(kProxyType, kProxyTypeManual);
    });
}

void NavigatorLib::SetDefaultHomePage() {
    Live("SetDefaultHomePage", true,
         [&](NavigatorPrefsLib& prefs) { prefs.SaveSettingStr(kHomePage, mstrDefaultHomePage); });
}

// Neither a direct connection nor manual proxies: the proxies come from the
// configuration script, as the browsers' "Automatic proxy configuration URL".
void NavigatorLib::SetAutoConfigURL() {
    Live("SetAutoConfigURL", true, [&](NavigatorPrefsLib& prefs) {
        if (mblnConnectViaLAN || mblnProxyEnabled) return;
        prefs.SaveSettingInt(kProxyType, kProxyTypeAutoConfig);
        prefs.SaveSettingStr(kAutoConfigURL, mstrAutoConfigURL);
    });
}

void NavigatorLib::SetEMailFullName() {
    Live("SetEMailFullName", true,
         [&](NavigatorPrefsLib& prefs) { prefs.SaveSettingStr(kMailFullName, mstrEMailFullName); });
}

void NavigatorLib::SetEMailAddr() {
    Live("SetEMailAddr", true,
         [&](NavigatorPrefsLib& prefs) { prefs.SaveSettingStr(kMailAddr, mstrEMailAddr); });
}

void NavigatorLib::SetEMailReplyToAddr() {
    Live("SetEMailReplyToAddr", true, [&](NavigatorPrefsLib& prefs) {
        prefs.SaveSettingStr(kMailReplyTo, mstrEMailReplyToAddr);
    });
}

void NavigatorLib::SetEMailPOP3Server() {
    Live("SetEMailPOP3Server", true, [&](NavigatorPrefsLib& prefs) {
        prefs.SaveSettingStr(kMailPOP3Server, mstrEMailPOP3Server);
    });
}

void NavigatorLib::SetEMailPOP3Login() {
    Live("SetEMailPOP3Login", true, [&](NavigatorPrefsLib& prefs) {
        prefs.SaveSettingStr(kMailPOP3Login, mstrEMailPOP3Login);
    });
}

void NavigatorLib::SetEMailSMTPServer() {
    Live("SetEMailSMTPServer", true, [&](NavigatorPrefsLib& prefs) {
        prefs.SaveSettingStr(kMailSMTPServer, mstrEMailSMTPServer);
    });
}

void NavigatorLib::SetEMailSMTPLogin() {
    Live("SetEMailSMTPLogin", true, [&](NavigatorPrefsLib& prefs) {
        prefs.SaveSettingStr(kMailSMTPLogin, mstrEMailSMTPLogin);
    });
}

void NavigatorLib::SetEMailOrganization() {
    Live("SetEMailOrganization", true, [&](NavigatorPrefsLib& prefs) {
        prefs.SaveSettingStr(kMailOrganization, mstrEMailOrganization);
    });
}

void NavigatorLib::SetEMailLeaveMailOnServer() {
    Live("SetEMailLeaveMailOnServer", true, [&](NavigatorPrefsLib& prefs) {
        prefs.SaveSettingBoolean(kMailLeaveOnServer, mblnEMailLeaveMailOnServer);
    });
}

}  // namespace rwz
