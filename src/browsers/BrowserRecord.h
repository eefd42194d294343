// One browser's settings as the profile and the tabs see them. Texts stay
// texts even where they hold numbers (ports, the SOCKS version). A back end
// uses the members its browser has and leaves the others alone.
#pragma once

#include <string>
#include <vector>

namespace rwz {

struct BrowserRecord {
    bool AutoDetectSettings = false;
    std::string AutoConfigURL;
    // Internet Explorer: the local network rather than a dial-up entry;
    // Netscape: a direct connection without proxy.
    bool ConnectViaLAN = false;
    // The browser user profile the settings belong to (Netscape/Mozilla).
    std::string CurrentProfile;
    // The user agent identity (Opera).
    std::string CurrentUserAgent;
    std::string DefaultHomePage;
    bool DisablePWDCache = false;
    std::string EMailAddr;
    std::string EMailFullName;
    std::string EMailOrganization;
    std::string EMailPOP3Login;
    std::string EMailPOP3Server;
    std::string EMailReplyToAddr;
    std::string EMailSMTPLogin;
    std::string EMailSMTPServer;
    bool EMailLeaveMailOnServer = false;
    std::string FTPAddress;
    std::string FTPPort;
    // The system's dial-up entries, in the order found.
    std::vector<std::string> DUNList;
    std::string CurrentDUN;
    std::string GopherAddress;
    std::string GopherPort;
    std::string HTTPAddress;
    std::string HTTPPort;
    bool IgnoreLocalAddresses = false;
    // The browser user profiles found, in the order found (Netscape/Mozilla).
    std::vector<std::string> ProfileList;
    bool ProxyEnabled = false;
    // Per-protocol proxy switches (Opera).
    bool FTPProxyEnabled = false;
    bool GopherProxyEnabled = false;
    bool HTTPProxyEnabled = false;
    bool SecureProxyEnabled = false;
    bool WAISProxyEnabled = false;
    bool ProxyExceptionsEnabled = false;
    // Hosts and domains that bypass the proxy, in the browser's own list form.
    std::string ProxyExceptions;
    std::string SecureAddress;
    std::string SecurePort;
    std::string SocksAddress;
    std::string SocksPort;
    std::string SocksVersion;
    bool UseAutoConfigURL = false;
    // One proxy server serves all protocols (Internet Explorer).
    bool UseSameProxy = false;
    std::string WAISAddress;
    std::string WAISPort;
    // Opera's two codes behind CurrentUserAgent ("Spoof UserAgent ID" and
    // "Spoof Version Code").
    std::string UserAgentID;
    std::string UserAgentVersion;
};

}  // namespace rwz
