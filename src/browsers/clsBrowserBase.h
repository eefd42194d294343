// What the three browser back ends share: the settings record, the modified
// mark that every property setter sets, and the reading and writing of the
// browser's section of a profile file. A back end derives from this class,
// fills the record from its live browser and writes it back there; it adds
// only LoadConfiguration, ApplyConfiguration and the live Get/Set operations
// it uses (the others do nothing here).
//
// A back end that overrides a live operation such as SetProxyEnabled() hides
// the property setter of the same name; add `using clsBrowserBase::SetProxyEnabled;`
// to call the setter from inside the back end.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "browsers/IBrowser.h"

namespace rwz {

// The profile file section each back end owns.
enum class BrowserSection { InternetExplorer, Navigator, Opera };

// "Internet Explorer", "Netscape Navigator" or "Opera": the section's name,
// which is also its key in [Enabled Sections].
const char* BrowserSectionName(BrowserSection aSection);

class clsBrowserBase : public IBrowser {
  public:
    // A value that keeps the setting the record already holds.
    static constexpr const char* kIgnoreValue = "{IGNORE}";

    bool AutoDetectSettings() const override { return mblnAutoDetectSettings; }
    void SetAutoDetectSettings(bool ablnValue) override;
    std::string AutoConfigURL() const override { return mstrAutoConfigURL; }
    void SetAutoConfigURL(const std::string& astrValue) override;
    bool ConnectViaLAN() const override { return mblnConnectViaLAN; }
    void SetConnectViaLAN(bool ablnValue) override;
    std::string CurrentProfile() const override { return mstrCurrentProfile; }
    void SetCurrentProfile(const std::string& astrValue) override;
    std::string CurrentUserAgent() const override { return mstrCurrentUserAgent; }
    void SetCurrentUserAgent(const std::string& astrValue) override;
    std::string DefaultHomePage() const override { return mstrDefaultHomePage; }
    void SetDefaultHomePage(const std::string& astrValue) override;
    bool DisablePWDCache() const override { return mblnDisablePWDCache; }
    void SetDisablePWDCache(bool ablnValue) override;
    std::string EMailAddr() const override { return mstrEMailAddr; }
    void SetEMailAddr(const std::string& astrValue) override;
    std::string EMailFullName() const override { return mstrEMailFullName; }
    void SetEMailFullName(const std::string& astrValue) override;
    std::string EMailOrganization() const override { return mstrEMailOrganization; }
    void SetEMailOrganization(const std::string& astrValue) override;
    std::string EMailPOP3Login() const override { return mstrEMailPOP3Login; }
    void SetEMailPOP3Login(const std::string& astrValue) override;
    std::string EMailPOP3Server() const override { return mstrEMailPOP3Server; }
    void SetEMailPOP3Server(const std::string& astrValue) override;
    std::string EMailReplyToAddr() const override { return mstrEMailReplyToAddr; }
    void SetEMailReplyToAddr(const std::string& astrValue) override;
    std::string EMailSMTPLogin() const override { return mstrEMailSMTPLogin; }
    void SetEMailSMTPLogin(const std::string& astrValue) override;
    std::string EMailSMTPServer() const override { return mstrEMailSMTPServer; }
    void SetEMailSMTPServer(const std::string& astrValue) override;
    bool EMailLeaveMailOnServer() const override { return mblnEMailLeaveMailOnServer; }
    void SetEMailLeaveMailOnServer(bool ablnValue) override;
    std::string FTPAddress() const override { return mstrFTPAddress; }
    void SetFTPAddress(const std::string& astrValue) override;
    std::string FTPPort() const override { return mstrFTPPort; }
    void SetFTPPort(const std::string& astrValue) override;
    std::vector<std::string> DUNList() const override { return mcolDUNList; }
    std::string CurrentDUN() const override { return mstrCurrentDUN; }
    void SetCurrentDUN(const std::string& astrValue) override;
    std::string GopherAddress() const override { return mstrGopherAddress; }
    void SetGopherAddress(const std::string& astrValue) override;
    std::string GopherPort() const override { return mstrGopherPort; }
    void SetGopherPort(const std::string& astrValue) override;
    bool IsModified() const override { return mblnIsModified; }
    std::string HTTPAddress() const override { return mstrHTTPAddress; }
    void SetHTTPAddress(const std::string& astrValue) override;
    std::string HTTPPort() const override { return mstrHTTPPort; }
    void SetHTTPPort(const std::string& astrValue) override;
    bool IgnoreLocalAddresses() const override { return mblnIgnoreLocalAddresses; }
    void SetIgnoreLocalAddresses(bool ablnValue) override;
    bool IsInstalled() const override { return mblnIsInstalled; }
    std::vector<std::string> ProfileList() const override { return mcolProfileList; }
    bool ProxyEnabled() const override { return mblnProxyEnabled; }
    void SetProxyEnabled(bool ablnValue) override;
    bool FTPProxyEnabled() const override { return mblnFTPProxyEnabled; }
    void SetFTPProxyEnabled(bool ablnValue) override;
    bool GopherProxyEnabled() const override { return mblnGopherProxyEnabled; }
    void SetGopherProxyEnabled(bool ablnValue) override;
    bool HTTPProxyEnabled() const override { return mblnHTTPProxyEnabled; }
    void SetHTTPProxyEnabled(bool ablnValue) override;
    bool SecureProxyEnabled() const override { return mblnSecureProxyEnabled; }
    void SetSecureProxyEnabled(bool ablnValue) override;
    bool WAISProxyEnabled() const override { return mblnWAISProxyEnabled; }
    void SetWAISProxyEnabled(bool ablnValue) override;
    bool ProxyExceptionsEnabled() const override { return mblnProxyExceptionsEnabled; }
    void SetProxyExceptionsEnabled(bool ablnValue) override;
    std::string ProxyExceptions() const override { return mstrProxyExceptions; }
    void SetProxyExceptions(const std::string& astrValue) override;
    std::string SecureAddress() const override { return mstrSecureAddress; }
    void SetSecureAddress(const std::string& astrValue) override;
    std::string SecurePort() const override { return mstrSecurePort; }
    void SetSecurePort(const std::string& astrValue) override;
    std::string SocksAddress() const override { return mstrSocksAddress; }
    void SetSocksAddress(const std::string& astrValue) override;
    std::string SocksPort() const override { return mstrSocksPort; }
    void SetSocksPort(const std::string& astrValue) override;
    std::string SocksVersion() const override { return mstrSocksVersion; }
    void SetSocksVersion(const std::string& astrValue) override;
    bool UseAutoConfigURL() const override { return mblnUseAutoConfigURL; }
    void SetUseAutoConfigURL(bool ablnValue) override;
    bool UseSameProxy() const override { return mblnUseSameProxy; }
    void SetUseSameProxy(bool ablnValue) override;
    float Version() const override { return msngVersion; }
    std::string VersionString() const override { return mstrVersionString; }
    std::string WAISAddress() const override { return mstrWAISAddress; }
    void SetWAISAddress(const std::string& astrValue) override;
    std::string WAISPort() const override { return mstrWAISPort; }
    void SetWAISPort(const std::string& astrValue) override;

    // Live operations a browser has no use for: nothing to do.
    std::vector<std::string> GetUserAgents() override { return {}; }
    void GetDisablePWDCache() override {}
    void GetEMailAddr() override {}
    void GetEMailFullName() override {}
    void GetEMailLeaveMailOnServer() override {}
    void GetEMailOrganization() override {}
    void GetEMailPOP3Login() override {}
    void GetEMailPOP3Server() override {}
    void GetEMailReplyToAddr() override {}
    void GetEMailSMTPLogin() override {}
    void GetEMailSMTPServer() override {}
    void SetDisablePWDCache() override {}
    void SetEMailAddr() override {}
    void SetEMailFullName() override {}
    void SetEMailLeaveMailOnServer() override {}
    void SetEMailOrganization() override {}
    void SetEMailPOP3Login() override {}
    void SetEMailPOP3Server() override {}
    void SetEMailReplyToAddr() override {}
    void SetEMailSMTPLogin() override {}
    void SetEMailSMTPServer() override {}
    void GetDUNList() override {}
    void GetAutoDetectSettings() override {}
    void GetAutoConfigURL() override {}
    void GetConnectViaLAN() override {}
    void SetConnectViaLAN() override {}
    void SetDefaultHomePage() override {}
    void SetDUN() override {}
    void SetProxyAddresses() override {}
    void SetProxyEnabled() override {}
    void SetProxyExceptions() override {}
    void GetProxyAddresses() override {}
    void GetProxyEnabled() override {}
    void GetProxyExceptions() override {}
    void GetDefaultHomePage() override {}
    void SetAutoDetectSettings() override {}
    void SetAutoConfigURL() override {}

    // The browser's section of a profile file. Reading fills every key's
    // setting (a missing key empties it, "{IGNORE}" keeps it) and leaves the
    // modified state alone; writing writes every key in the section's order.
    // File errors (runtime error 75 on writing) are passed on to the caller.
    void LoadConfigurationFile(const std::string& astrFile) override;
    void SaveConfigurationFile(const std::string& astrFile) override;
    void ResetFlags() override { mblnIsModified = false; }

    BrowserSection Section() const { return mSection; }

    // A key's value as a back end uses it: read through the 255-character
    // buffer, cut at its first NUL, trailing blanks removed, then the
    // conditional value resolved. Empty when the key is "{IGNORE}".
    static std::optional<std::string> ReadSectionValue(const std::string& astrFile,
                                                       const std::string& astrSection,
                                                       const std::string& astrKey);

  protected:
    // `astrLogTag` is the object name of the back end's log lines ("clsOpera").
    clsBrowserBase(BrowserSection aSection, const char* astrLogTag);

    const char* LogTag() const { return mLogTag; }
    void MarkModified() { mblnIsModified = true; }

    // Internet Explorer keeps its proxies in one "ProxyServer" text, in its
    // section as in the registry; its back end splits and composes it with the
    // same code in both places. Nothing to do for the other browsers.
    virtual void SplitProxyServer(const std::string& /*astrProxyServer*/) {}
    virtual std::string ComposeProxyServer() const { return std::string(); }

    // The settings record. A back end fills it from its live browser by
    // assigning these directly, which leaves the modified state alone.
    bool mblnAutoDetectSettings = false;
    std::string mstrAutoConfigURL;
    bool mblnConnectViaLAN = false;
    std::string mstrCurrentProfile;
    std::string mstrCurrentUserAgent;
    std::string mstrDefaultHomePage;
    bool mblnDisablePWDCache = false;
    std::string mstrEMailAddr;
    std::string mstrEMailFullName;
    std::string mstrEMailOrganization;
    std::string mstrEMailPOP3Login;
    std::string mstrEMailPOP3Server;
    std::string mstrEMailReplyToAddr;
    std::string mstrEMailSMTPLogin;
    std::string mstrEMailSMTPServer;
    bool mblnEMailLeaveMailOnServer = false;
    std::string mstrFTPAddress;
    std::string mstrFTPPort;
    std::vector<std::string> mcolDUNList;
    std::string mstrCurrentDUN;
    std::string mstrGopherAddress;
    std::string mstrGopherPort;
    std::string mstrHTTPAddress;
    std::string mstrHTTPPort;
    bool mblnIgnoreLocalAddresses = false;
    bool mblnIsInstalled = false;
    std::vector<std::string> mcolProfileList;
    bool mblnProxyEnabled = false;
    bool mblnFTPProxyEnabled = false;
    bool mblnGopherProxyEnabled = false;
    bool mblnHTTPProxyEnabled = false;
    bool mblnSecureProxyEnabled = false;
    bool mblnWAISProxyEnabled = false;
    bool mblnProxyExceptionsEnabled = false;
    std::string mstrProxyExceptions;
    std::string mstrSecureAddress;
    std::string mstrSecurePort;
    std::string mstrSocksAddress;
    std::string mstrSocksPort;
    std::string mstrSocksVersion;
    bool mblnUseAutoConfigURL = false;
    bool mblnUseSameProxy = false;
    float msngVersion = 0;
    std::string mstrVersionString;
    std::string mstrWAISAddress;
    std::string mstrWAISPort;
    // Opera's two codes behind CurrentUserAgent ("Spoof UserAgent ID" and
    // "Spoof Version Code"), kept in its section as "UserAgentID" and
    // "UserAgentVersion".
    std::string mstrUserAgentID;
    std::string mstrUserAgentVersion;

  private:
    struct SectionKey;
    static const std::vector<SectionKey>& KeysOf(BrowserSection aSection);
    void ReadKey(const SectionKey& aKey, const std::string& astrValue);
    std::string KeyText(const SectionKey& aKey) const;

    template <class T>
    void Assign(T& aMember, const T& aValue) {
        aMember = aValue;
        mblnIsModified = true;
    }

    BrowserSection mSection;
    const char* mLogTag;
    bool mblnIsModified = false;
};

}  // namespace rwz
