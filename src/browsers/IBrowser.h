// The one interface through which the profile object and the browser tabs
// handle a web browser's settings. Internet Explorer, Netscape/Mozilla and
// Opera each implement it; their operations are only ever called through it.
//
// Properties are getter/setter pairs (`HTTPPort()`, `SetHTTPPort(x)`). Every
// property setter marks the settings modified. The operations named Get... and
// Set... without arguments read a setting from, or write it to, the live
// browser; they share their names with the property setters and differ only in
// taking no argument. An operation a browser has no use for does nothing.
#pragma once

#include <string>
#include <vector>

namespace rwz {

class IBrowser {
  public:
    virtual ~IBrowser() = default;

    // --- Properties. Texts stay texts even where they hold numbers (ports,
    // the SOCKS version).
    virtual bool AutoDetectSettings() const = 0;
    virtual void SetAutoDetectSettings(bool ablnValue) = 0;
    virtual std::string AutoConfigURL() const = 0;
    virtual void SetAutoConfigURL(const std::string& astrValue) = 0;
    // Internet Explorer: the local network rather than a dial-up entry;
    // Netscape: a direct connection without proxy.
    virtual bool ConnectViaLAN() const = 0;
    virtual void SetConnectViaLAN(bool ablnValue) = 0;
    // The browser user profile the settings belong to (Netscape/Mozilla).
    virtual std::string CurrentProfile() const = 0;
    virtual void SetCurrentProfile(const std::string& astrValue) = 0;
    // The user agent identity (Opera).
    virtual std::string CurrentUserAgent() const = 0;
    virtual void SetCurrentUserAgent(const std::string& astrValue) = 0;
    virtual std::string DefaultHomePage() const = 0;
    virtual void SetDefaultHomePage(const std::string& astrValue) = 0;
    virtual bool DisablePWDCache() const = 0;
    virtual void SetDisablePWDCache(bool ablnValue) = 0;
    virtual std::string EMailAddr() const = 0;
    virtual void SetEMailAddr(const std::string& astrValue) = 0;
    virtual std::string EMailFullName() const = 0;
    virtual void SetEMailFullName(const std::string& astrValue) = 0;
    virtual std::string EMailOrganization() const = 0;
    virtual void SetEMailOrganization(const std::string& astrValue) = 0;
    virtual std::string EMailPOP3Login() const = 0;
    virtual void SetEMailPOP3Login(const std::string& astrValue) = 0;
    virtual std::string EMailPOP3Server() const = 0;
    virtual void SetEMailPOP3Server(const std::string& astrValue) = 0;
    virtual std::string EMailReplyToAddr() const = 0;
    virtual void SetEMailReplyToAddr(const std::string& astrValue) = 0;
    virtual std::string EMailSMTPLogin() const = 0;
    virtual void SetEMailSMTPLogin(const std::string& astrValue) = 0;
    virtual std::string EMailSMTPServer() const = 0;
    virtual void SetEMailSMTPServer(const std::string& astrValue) = 0;
    virtual bool EMailLeaveMailOnServer() const = 0;
    virtual void SetEMailLeaveMailOnServer(bool ablnValue) = 0;
    virtual std::string FTPAddress() const = 0;
    virtual void SetFTPAddress(const std::string& astrValue) = 0;
    virtual std::string FTPPort() const = 0;
    virtual void SetFTPPort(const std::string& astrValue) = 0;
    // The system's dial-up entries, in the order found (filled by GetDUNList).
    virtual std::vector<std::string> DUNList() const = 0;
    virtual std::string CurrentDUN() const = 0;
    virtual void SetCurrentDUN(const std::string& astrValue) = 0;
    virtual std::string GopherAddress() const = 0;
    virtual void SetGopherAddress(const std::string& astrValue) = 0;
    virtual std::string GopherPort() const = 0;
    virtual void SetGopherPort(const std::string& astrValue) = 0;
    // A setting was changed since the last load from the browser or reset.
    virtual bool IsModified() const = 0;
    virtual std::string HTTPAddress() const = 0;
    virtual void SetHTTPAddress(const std::string& astrValue) = 0;
    virtual std::string HTTPPort() const = 0;
    virtual void SetHTTPPort(const std::string& astrValue) = 0;
    virtual bool IgnoreLocalAddresses() const = 0;
    virtual void SetIgnoreLocalAddresses(bool ablnValue) = 0;
    virtual bool IsInstalled() const = 0;
    // The browser user profiles found, in the order found (Netscape/Mozilla).
    virtual std::vector<std::string> ProfileList() const = 0;
    virtual bool ProxyEnabled() const = 0;
    virtual void SetProxyEnabled(bool ablnValue) = 0;
    // Per-protocol proxy switches (Opera).
    virtual bool FTPProxyEnabled() const = 0;
    virtual void SetFTPProxyEnabled(bool ablnValue) = 0;
    virtual bool GopherProxyEnabled() const = 0;
    virtual void SetGopherProxyEnabled(bool ablnValue) = 0;
    virtual bool HTTPProxyEnabled() const = 0;
    virtual void SetHTTPProxyEnabled(bool ablnValue) = 0;
    virtual bool SecureProxyEnabled() const = 0;
    virtual void SetSecureProxyEnabled(bool ablnValue) = 0;
    virtual bool WAISProxyEnabled() const = 0;
    virtual void SetWAISProxyEnabled(bool ablnValue) = 0;
    virtual bool ProxyExceptionsEnabled() const = 0;
    virtual void SetProxyExceptionsEnabled(bool ablnValue) = 0;
    // Hosts and domains that bypass the proxy, in the browser's own list form.
    virtual std::string ProxyExceptions() const = 0;
    virtual void SetProxyExceptions(const std::string& astrValue) = 0;
    virtual std::string SecureAddress() const = 0;
    virtual void SetSecureAddress(const std::string& astrValue) = 0;
    virtual std::string SecurePort() const = 0;
    virtual void SetSecurePort(const std::string& astrValue) = 0;
    virtual std::string SocksAddress() const = 0;
    virtual void SetSocksAddress(const std::string& astrValue) = 0;
    virtual std::string SocksPort() const = 0;
    virtual void SetSocksPort(const std::string& astrValue) = 0;
    virtual std::string SocksVersion() const = 0;
    virtual void SetSocksVersion(const std::string& astrValue) = 0;
    virtual bool UseAutoConfigURL() const = 0;
    virtual void SetUseAutoConfigURL(bool ablnValue) = 0;
    // One proxy server serves all protocols (Internet Explorer).
    virtual bool UseSameProxy() const = 0;
    virtual void SetUseSameProxy(bool ablnValue) = 0;
    virtual float Version() const = 0;
    virtual std::string VersionString() const = 0;
    virtual std::string WAISAddress() const = 0;
    virtual void SetWAISAddress(const std::string& astrValue) = 0;
    virtual std::string WAISPort() const = 0;
    virtual void SetWAISPort(const std::string& astrValue) = 0;

    // --- Operations.
    // The user agent identities the browser offers (Opera).
    virtual std::vector<std::string> GetUserAgents() = 0;
    // Read one setting from the live browser into its property.
    virtual void GetDisablePWDCache() = 0;
    virtual void GetEMailAddr() = 0;
    virtual void GetEMailFullName() = 0;
    virtual void GetEMailLeaveMailOnServer() = 0;
    virtual void GetEMailOrganization() = 0;
    virtual void GetEMailPOP3Login() = 0;
    virtual void GetEMailPOP3Server() = 0;
    virtual void GetEMailReplyToAddr() = 0;
    virtual void GetEMailSMTPLogin() = 0;
    virtual void GetEMailSMTPServer() = 0;
    // Write one property to the live browser.
    virtual void SetDisablePWDCache() = 0;
    virtual void SetEMailAddr() = 0;
    virtual void SetEMailFullName() = 0;
    virtual void SetEMailLeaveMailOnServer() = 0;
    virtual void SetEMailOrganization() = 0;
    virtual void SetEMailPOP3Login() = 0;
    virtual void SetEMailPOP3Server() = 0;
    virtual void SetEMailReplyToAddr() = 0;
    virtual void SetEMailSMTPLogin() = 0;
    virtual void SetEMailSMTPServer() = 0;
    // Fills DUNList from the system.
    virtual void GetDUNList() = 0;
    virtual void GetAutoDetectSettings() = 0;
    virtual void GetAutoConfigURL() = 0;
    virtual void GetConnectViaLAN() = 0;
    virtual void SetConnectViaLAN() = 0;
    virtual void SetDefaultHomePage() = 0;
    // Writes CurrentDUN.
    virtual void SetDUN() = 0;
    // Writes all host/port pairs.
    virtual void SetProxyAddresses() = 0;
    virtual void SetProxyEnabled() = 0;
    virtual void SetProxyExceptions() = 0;
    // Fills every property from the live browser.
    virtual void LoadConfiguration() = 0;
    // Makes the properties effective in the live browser; nothing unless modified.
    virtual void ApplyConfiguration() = 0;
    // Fills the properties from the browser's section of a profile file; the
    // modified state is left as it was.
    virtual void LoadConfigurationFile(const std::string& astrFile) = 0;
    // Writes every key of the browser's section to a profile file.
    virtual void SaveConfigurationFile(const std::string& astrFile) = 0;
    // Clears the modified state.
    virtual void ResetFlags() = 0;
    virtual void GetProxyAddresses() = 0;
    virtual void GetProxyEnabled() = 0;
    virtual void GetProxyExceptions() = 0;
    virtual void GetDefaultHomePage() = 0;
    virtual void SetAutoDetectSettings() = 0;
    virtual void SetAutoConfigURL() = 0;
};

}  // namespace rwz
