#include "browsers/NavigatorLib.h"

#include <windows.h>

#include <iterator>

#include "browsers/NavigatorPrefsLib.h"
#include "platform/Procedure.h"
#include "platform/RwzError.h"
#include "platform/modAPI.h"
#include "platform/modLogging.h"
#include "platform/modUtilities.h"
#include "shell/frmNetscapeNotice.h"

namespace rwz {

namespace {

const char kObject[] = "NavigatorLib";
const char kNoPrefsFileText[] = "Could not locate Navigator preferences file.";
// VB's runtime error for a number too large for its type.
constexpr int32_t kErrOverflow = 6;

// "network.proxy.type" as Netscape and Mozilla write it: 1 manual proxies,
// 2 a proxy configuration URL; a direct connection leaves it out.
const char kProxyType[] = "network.proxy.type";
constexpr int16_t kProxyTypeManual = 1;
constexpr int16_t kProxyTypeAutoConfig = 2;
const char kProxyTypeManualText[] = "1";

// The back end's own log lines ("NavigatorLib - Read Settings").
void Note(const std::string& astrText) {
    WriteLog(std::string(kObject) + " - " + astrText, kLogDebug);
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
        if (value > 32767) throw RwzError(kErrOverflow, "Rwz", "Overflow");
    }
    return static_cast<int16_t>(value);
}

enum class Kind {
    Text,        // a text preference
    Integer,     // read as text, written as an integer ("0" put in front: empty is 0)
    Boolean,     // "true"/"false"
    Direct,      // ConnectViaLAN: the proxy type absent; when on, the type is deleted
    Manual,      // ProxyEnabled: the proxy type 1; when on, written as 1
    AutoConfig,  // the script URL; written with proxy type 2 when neither of the above
};

}  // namespace

// One preference: the operation ("Get"/"Set" + name) its log lines carry, its
// name for Netscape 4 and for Netscape 6 and later (null: that version has
// none), the kind, the record member, and the text an empty value reads as.
struct NavigatorLib::Preference {
    const char* Operation;
    const char* Netscape4;
    const char* Netscape6;
    Kind Form;
    std::string BrowserRecord::*Text;
    bool BrowserRecord::*Flag;
    const char* Default;
    bool Mail;
};

namespace {

using R = BrowserRecord;
constexpr auto T = Kind::Text;
constexpr auto I = Kind::Integer;

}  // namespace

// Read and written in this order; the rows of one operation stay together.
const NavigatorLib::Preference NavigatorLib::kPreferences[] = {
    {"ProxyAddresses", "network.proxy.http", "network.proxy.http", T, &R::HTTPAddress, nullptr, "",
     false},
    {"ProxyAddresses", "network.proxy.http_port", "network.proxy.http_port", I, &R::HTTPPort,
     nullptr, "", false},
    {"ProxyAddresses", "network.proxy.ftp", "network.proxy.ftp", T, &R::FTPAddress, nullptr, "",
     false},
    {"ProxyAddresses", "network.proxy.ftp_port", "network.proxy.ftp_port", I, &R::FTPPort, nullptr,
     "", false},
    {"ProxyAddresses", "network.proxy.ssl", "network.proxy.ssl", T, &R::SecureAddress, nullptr, "",
     false},
    {"ProxyAddresses", "network.proxy.ssl_port", "network.proxy.ssl_port", I, &R::SecurePort,
     nullptr, "", false},
    {"ProxyAddresses", "network.proxy.gopher", "network.proxy.gopher", T, &R::GopherAddress,
     nullptr, "", false},
    {"ProxyAddresses", "network.proxy.gopher_port", "network.proxy.gopher_port", I, &R::GopherPort,
     nullptr, "", false},
    {"ProxyAddresses", "network.proxy.wais", "network.proxy.wais", T, &R::WAISAddress, nullptr, "",
     false},
    {"ProxyAddresses", "network.proxy.wais_port", "network.proxy.wais_port", I, &R::WAISPort,
     nullptr, "", false},
    {"ProxyAddresses", "network.hosts.socks_server", "network.proxy.socks", T, &R::SocksAddress,
     nullptr, "", false},
    {"ProxyAddresses", "network.hosts.socks_serverport", "network.proxy.socks_port", I,
     &R::SocksPort, nullptr, "", false},
    // Netscape 6 and later speak SOCKS 5 unless told otherwise.
    {"ProxyAddresses", nullptr, "network.proxy.socks_version", I, &R::SocksVersion, nullptr, "5",
     false},
    {"ProxyExceptions", "network.proxy.no_proxies_on", "network.proxy.no_proxies_on", T,
     &R::ProxyExceptions, nullptr, "", false},
    {"ConnectViaLAN", kProxyType, kProxyType, Kind::Direct, nullptr, &R::ConnectViaLAN, "", false},
    {"ProxyEnabled", kProxyType, kProxyType, Kind::Manual, nullptr, &R::ProxyEnabled, "", false},
    {"DefaultHomePage", "browser.startup.homepage", "browser.startup.homepage", T,
     &R::DefaultHomePage, nullptr, "", false},
    {"AutoConfigURL", "network.proxy.autoconfig_url", "network.proxy.autoconfig_url",
     Kind::AutoConfig, &R::AutoConfigURL, nullptr, "", false},
    {"EMailFullName", "mail.identity.username", "mail.identity.username", T, &R::EMailFullName,
     nullptr, "", true},
    {"EMailAddr", "mail.identity.useremail", "mail.identity.useremail", T, &R::EMailAddr, nullptr,
     "", true},
    {"EMailReplyToAddr", "mail.identity.reply_to", "mail.identity.reply_to", T,
     &R::EMailReplyToAddr, nullptr, "", true},
    {"EMailPOP3Server", "network.hosts.pop_server", "network.hosts.pop_server", T,
     &R::EMailPOP3Server, nullptr, "", true},
    {"EMailPOP3Login", "mail.pop_name", "mail.pop_name", T, &R::EMailPOP3Login, nullptr, "", true},
    {"EMailSMTPServer", "network.hosts.smtp_server", "network.hosts.smtp_server", T,
     &R::EMailSMTPServer, nullptr, "", true},
    {"EMailSMTPLogin", "mail.smtp_name", "mail.smtp_name", T, &R::EMailSMTPLogin, nullptr, "",
     true},
    {"EMailOrganization", "mail.identity.organization", "mail.identity.organization", T,
     &R::EMailOrganization, nullptr, "", true},
    {"EMailLeaveMailOnServer", "mail.leave_on_server", "mail.leave_on_server", Kind::Boolean,
     nullptr, &R::EMailLeaveMailOnServer, "", true},
};

bool NavigatorMailAvailable(float asngVersion) {
    return asngVersion <= 4.8f;
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

void NavigatorLib::FindProfiles() {
    Procedure proc(kObject, "FindProfiles");
    proc.Run([&] {
        mProfiles.Find();
        for (const NavigatorProfile& profile : mProfiles.Found())
            mRecord.ProfileList.push_back(profile.Name);
        mRecord.CurrentProfile = mProfiles.Current();

        if (mProfiles.Current().empty() &&
            GetProgramSetting(kProductName, "Options", "NavigatorWarning", "0") == "0") {
            const std::string first =
                mRecord.ProfileList.empty() ? std::string() : mRecord.ProfileList.front();
            ShowNetscapeNotice(GetActiveWindow(), first);
        }
        if (mRecord.CurrentProfile.empty() && !mRecord.ProfileList.empty())
            mRecord.CurrentProfile = mRecord.ProfileList.front();
        Note("Profile Name: " + mRecord.CurrentProfile);
    });
}

void NavigatorLib::Read(const Preference& aPref, NavigatorPrefsLib& aobjPrefs) {
    const char* name = msngVersion >= kLaterPrefsVersion ? aPref.Netscape6 : aPref.Netscape4;
    if (!name) return;
    std::string value = aobjPrefs.GetSetting(name);
    if (value.empty()) value = aPref.Default;
    switch (aPref.Form) {
        case Kind::Text:
        case Kind::Integer:
        case Kind::AutoConfig:
            mRecord.*aPref.Text = value;
            break;
        case Kind::Boolean:
            mRecord.*aPref.Flag = value == "true";
            break;
        case Kind::Direct:
            // Without the preference the browsers connect directly.
            mRecord.*aPref.Flag = value.empty();
            break;
        case Kind::Manual:
            mRecord.*aPref.Flag = value == kProxyTypeManualText;
            break;
    }
}

void NavigatorLib::Write(const Preference& aPref, NavigatorPrefsLib& aobjPrefs) {
    const char* name = msngVersion >= kLaterPrefsVersion ? aPref.Netscape6 : aPref.Netscape4;
    if (!name) return;
    switch (aPref.Form) {
        case Kind::Text:
            aobjPrefs.SaveSettingStr(name, mRecord.*aPref.Text);
            break;
        case Kind::Integer:
            aobjPrefs.SaveSettingInt(name, PrefInteger("0" + mRecord.*aPref.Text));
            break;
        case Kind::Boolean:
            aobjPrefs.SaveSettingBoolean(name, mRecord.*aPref.Flag);
            break;
        case Kind::Direct:
            // A direct connection is the browsers' default, which they keep by
            // leaving the preference out.
            if (mRecord.*aPref.Flag) aobjPrefs.DeleteSetting(name);
            break;
        case Kind::Manual:
            if (mRecord.*aPref.Flag) aobjPrefs.SaveSettingInt(name, kProxyTypeManual);
            break;
        case Kind::AutoConfig:
            // Neither a direct connection nor manual proxies: the proxies come
            // from the configuration script.
            if (mRecord.ConnectViaLAN || mRecord.ProxyEnabled) break;
            aobjPrefs.SaveSettingInt(kProxyType, kProxyTypeAutoConfig);
            aobjPrefs.SaveSettingStr(name, mRecord.*aPref.Text);
            break;
    }
}

void NavigatorLib::Transfer(NavigatorPrefsLib& aobjPrefs, bool ablnWrite) {
    const Preference* end = std::end(kPreferences);
    bool mailSeen = false;
    for (const Preference* group = std::begin(kPreferences); group != end;) {
        const Preference* next = group;
        while (next != end && std::string(next->Operation) == group->Operation) ++next;
        if (group->Mail && !mailSeen) {
            mailSeen = true;
            if (ablnWrite && !NavigatorMailAvailable(msngVersion)) break;
            if (!ablnWrite) Note("Read E-Mail Settings");
        }
        const std::string name = (ablnWrite ? "Set" : "Get") + std::string(group->Operation);
        Procedure proc(kObject, name.c_str());
        // An error is passed on, so that the caller abandons the file.
        proc.RunPassingOn([&] {
            for (const Preference* pref = group; pref != next; ++pref) {
                if (ablnWrite)
                    Write(*pref, aobjPrefs);
                else
                    Read(*pref, aobjPrefs);
            }
        });
        group = next;
    }
}

void NavigatorLib::LoadConfiguration() {
    Procedure proc(kObject, "LoadConfiguration");
    proc.Run([&] {
        Note("Profile Name: " + mRecord.CurrentProfile);
        Note("Prefs files: " + std::to_string(mProfiles.Found().size()));
        const std::string file = mProfiles.PrefsFileOf(mRecord.CurrentProfile);
        if (file.empty()) {
            Note("Prefs file not found");
            return;
        }
        NavigatorPrefsLib prefs;
        if (!prefs.OpenPrefsFile(file, false)) return;
        Note("Read Settings");
        Transfer(prefs, false);
        Note("Close Prefs File");
        prefs.ClosePrefsFile();
    });
    ResetFlags();
}

void NavigatorLib::ApplyConfiguration() {
    Procedure proc(kObject, "ApplyConfiguration");
    proc.Run([&] {
        if (!IsModified()) return;
        const std::string file = mProfiles.PrefsFileOf(mRecord.CurrentProfile);
        if (file.empty()) {
            proc.Log(kNoPrefsFileText);
            ShowBrowserMessage(kNoPrefsFileText);
            return;
        }

        // The whole profile is written, or nothing: the file is rewritten only
        // when every preference could be set.
        bool written = false;
        NavigatorPrefsLib prefs;
        if (prefs.OpenPrefsFile(file, true)) {
            try {
                Transfer(prefs, true);
                Note("Close Prefs File");
                written = prefs.ClosePrefsFile();
            } catch (const std::exception&) {
                prefs.SetWritePrefsOnClose(false);
                prefs.ClosePrefsFile();
            }
        }
        if (!written) {
            const std::string text = "Could not apply Navigator preferences for profile '" +
                                     mRecord.CurrentProfile + "'.";
            proc.Log(text);
            ShowBrowserMessage(text);
        }
    });
    ResetFlags();
}

}  // namespace rwz
