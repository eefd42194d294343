// A browser back end whose live browser is a record in memory, and the
// property tables and scratch files the browser tests share.
#pragma once

#include <windows.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "browsers/clsBrowserBase.h"

namespace rwz::test {

class TestBrowser : public clsBrowserBase {
  public:
    explicit TestBrowser(BrowserSection aSection = BrowserSection::InternetExplorer)
        : clsBrowserBase(aSection, "clsTestBrowser") {}

    // The live browser: what LoadConfiguration finds there.
    std::string LiveHomePage;
    std::vector<std::string> LiveDUNs;
    int ApplyCount = 0;

    // Internet Explorer's proxy list, kept as the text the section holds.
    std::string ProxyServerText;
    std::vector<std::string> ProxyServerSplits;

    void LoadConfiguration() override {
        mstrDefaultHomePage = LiveHomePage;
        mcolDUNList = LiveDUNs;
        ResetFlags();
    }
    void ApplyConfiguration() override {
        if (!IsModified()) return;
        LiveHomePage = mstrDefaultHomePage;
        ++ApplyCount;
        ResetFlags();
    }

    void SetProfiles(std::vector<std::string> acolProfiles) {
        mcolProfileList = std::move(acolProfiles);
    }
    std::string& UserAgentID() { return mstrUserAgentID; }
    const std::string& UserAgentID() const { return mstrUserAgentID; }
    std::string& UserAgentVersion() { return mstrUserAgentVersion; }
    const std::string& UserAgentVersion() const { return mstrUserAgentVersion; }

  protected:
    void SplitProxyServer(const std::string& astrProxyServer) override {
        ProxyServerText = astrProxyServer;
        ProxyServerSplits.push_back(astrProxyServer);
    }
    std::string ComposeProxyServer() const override { return ProxyServerText; }
};

// Every settable property, by kind, with the interface's accessors.
struct TextProperty {
    const char* Name;
    std::string (IBrowser::*Get)() const;
    void (IBrowser::*Set)(const std::string&);
};
struct FlagProperty {
    const char* Name;
    bool (IBrowser::*Get)() const;
    void (IBrowser::*Set)(bool);
};

inline const std::vector<TextProperty>& TextProperties() {
    using I = IBrowser;
    static const std::vector<TextProperty> properties = {
        {"AutoConfigURL", &I::AutoConfigURL, &I::SetAutoConfigURL},
        {"CurrentProfile", &I::CurrentProfile, &I::SetCurrentProfile},
        {"CurrentUserAgent", &I::CurrentUserAgent, &I::SetCurrentUserAgent},
        {"DefaultHomePage", &I::DefaultHomePage, &I::SetDefaultHomePage},
        {"EMailAddr", &I::EMailAddr, &I::SetEMailAddr},
        {"EMailFullName", &I::EMailFullName, &I::SetEMailFullName},
        {"EMailOrganization", &I::EMailOrganization, &I::SetEMailOrganization},
        {"EMailPOP3Login", &I::EMailPOP3Login, &I::SetEMailPOP3Login},
        {"EMailPOP3Server", &I::EMailPOP3Server, &I::SetEMailPOP3Server},
        {"EMailReplyToAddr", &I::EMailReplyToAddr, &I::SetEMailReplyToAddr},
        {"EMailSMTPLogin", &I::EMailSMTPLogin, &I::SetEMailSMTPLogin},
        {"EMailSMTPServer", &I::EMailSMTPServer, &I::SetEMailSMTPServer},
        {"FTPAddress", &I::FTPAddress, &I::SetFTPAddress},
        {"FTPPort", &I::FTPPort, &I::SetFTPPort},
        {"CurrentDUN", &I::CurrentDUN, &I::SetCurrentDUN},
        {"GopherAddress", &I::GopherAddress, &I::SetGopherAddress},
        {"GopherPort", &I::GopherPort, &I::SetGopherPort},
        {"HTTPAddress", &I::HTTPAddress, &I::SetHTTPAddress},
        {"HTTPPort", &I::HTTPPort, &I::SetHTTPPort},
        {"ProxyExceptions", &I::ProxyExceptions, &I::SetProxyExceptions},
        {"SecureAddress", &I::SecureAddress, &I::SetSecureAddress},
        {"SecurePort", &I::SecurePort, &I::SetSecurePort},
        {"SocksAddress", &I::SocksAddress, &I::SetSocksAddress},
        {"SocksPort", &I::SocksPort, &I::SetSocksPort},
        {"SocksVersion", &I::SocksVersion, &I::SetSocksVersion},
        {"WAISAddress", &I::WAISAddress, &I::SetWAISAddress},
        {"WAISPort", &I::WAISPort, &I::SetWAISPort},
    };
    return properties;
}

inline const std::vector<FlagProperty>& FlagProperties() {
    using I = IBrowser;
    static const std::vector<FlagProperty> properties = {
        {"AutoDetectSettings", &I::AutoDetectSettings, &I::SetAutoDetectSettings},
        {"ConnectViaLAN", &I::ConnectViaLAN, &I::SetConnectViaLAN},
        {"DisablePWDCache", &I::DisablePWDCache, &I::SetDisablePWDCache},
        {"EMailLeaveMailOnServer", &I::EMailLeaveMailOnServer, &I::SetEMailLeaveMailOnServer},
        {"IgnoreLocalAddresses", &I::IgnoreLocalAddresses, &I::SetIgnoreLocalAddresses},
        {"ProxyEnabled", &I::ProxyEnabled, &I::SetProxyEnabled},
        {"FTPProxyEnabled", &I::FTPProxyEnabled, &I::SetFTPProxyEnabled},
        {"GopherProxyEnabled", &I::GopherProxyEnabled, &I::SetGopherProxyEnabled},
        {"HTTPProxyEnabled", &I::HTTPProxyEnabled, &I::SetHTTPProxyEnabled},
        {"SecureProxyEnabled", &I::SecureProxyEnabled, &I::SetSecureProxyEnabled},
        {"WAISProxyEnabled", &I::WAISProxyEnabled, &I::SetWAISProxyEnabled},
        {"ProxyExceptionsEnabled", &I::ProxyExceptionsEnabled, &I::SetProxyExceptionsEnabled},
        {"UseAutoConfigURL", &I::UseAutoConfigURL, &I::SetUseAutoConfigURL},
        {"UseSameProxy", &I::UseSameProxy, &I::SetUseSameProxy},
    };
    return properties;
}

// A profile file in the temporary folder, removed when the test ends.
class ScratchFile {
  public:
    explicit ScratchFile(const std::string& astrName) {
        char folder[MAX_PATH];
        GetTempPathA(sizeof folder, folder);
        mstrPath = std::string(folder) + "rwz-browsers-" + std::to_string(GetCurrentProcessId()) +
                   "-" + astrName + ".rwz";
        DeleteFileA(mstrPath.c_str());
    }
    ~ScratchFile() { DeleteFileA(mstrPath.c_str()); }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    const std::string& Path() const { return mstrPath; }
    bool Exists() const { return GetFileAttributesA(mstrPath.c_str()) != INVALID_FILE_ATTRIBUTES; }

    void Write(const std::string& astrBytes) const {
        std::ofstream out(mstrPath, std::ios::binary | std::ios::trunc);
        out << astrBytes;
    }
    std::string Read() const {
        std::ifstream in(mstrPath, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }

  private:
    std::string mstrPath;
};

}  // namespace rwz::test
