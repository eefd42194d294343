#include "browsers/clsBrowserBase.h"

#include "platform/Procedure.h"
#include "platform/modUtilities.h"
#include "profile/modProfileIO.h"

namespace rwz {

namespace {

// Internet Explorer marks "bypass the proxy for local addresses" inside its
// exception list.
constexpr const char* kLocalMark = "<local>";
constexpr const char* kLocalSuffix = ";<local>";

enum class KeyEncoding {
    Text,           // the text as it stands
    Flag,           // "1"/"0"; only "1" is true
    InvertedFlag,   // "0" is true ("EnableAutoDial" against ConnectViaLAN)
    ProxyServer,    // Internet Explorer's proxy list, split and composed by its back end
    ProxyOverride,  // exception list with ";<local>" for IgnoreLocalAddresses
    ProfileName,    // empty: the first profile found
};

}  // namespace

struct clsBrowserBase::SectionKey {
    const char* Key;
    KeyEncoding Encoding;
    std::string clsBrowserBase::*Text;
    bool clsBrowserBase::*Flag;
};

const char* BrowserSectionName(BrowserSection aSection) {
    switch (aSection) {
        case BrowserSection::InternetExplorer:
            return "Internet Explorer";
        case BrowserSection::Navigator:
            return "Netscape Navigator";
        case BrowserSection::Opera:
            return "Opera";
    }
    return "";
}

clsBrowserBase::clsBrowserBase(BrowserSection aSection, const char* astrLogTag)
    : mSection(aSection), mLogTag(astrLogTag) {}

// The keys of each section in file order. The sections differ on purpose
// (mixed case against "NN" upper case, "HTTPS" against "SSL"): files written
// by earlier versions must keep reading.
const std::vector<clsBrowserBase::SectionKey>& clsBrowserBase::KeysOf(BrowserSection aSection) {
    using B = clsBrowserBase;
    constexpr auto T = KeyEncoding::Text;
    constexpr auto F = KeyEncoding::Flag;
    static const std::vector<SectionKey> explorer = {
        {"ProxyServer", KeyEncoding::ProxyServer, nullptr, nullptr},
        {"DialupISP", T, &B::mstrCurrentDUN, nullptr},
        {"ProxyEnable", F, nullptr, &B::mblnProxyEnabled},
        {"EnableAutoDial", KeyEncoding::InvertedFlag, nullptr, &B::mblnConnectViaLAN},
        {"AutoDetectSettings", F, nullptr, &B::mblnAutoDetectSettings},
        {"AutoConfigURL", T, &B::mstrAutoConfigURL, nullptr},
        {"ProxyOverride", KeyEncoding::ProxyOverride, nullptr, nullptr},
        {"DisablePWDCache", F, nullptr, &B::mblnDisablePWDCache},
        {"DefHomePage", T, &B::mstrDefaultHomePage, nullptr},
    };
    static const std::vector<SectionKey> navigator = {
        {"NNPROFILE", KeyEncoding::ProfileName, &B::mstrCurrentProfile, nullptr},
        {"NNPROXYENABLE", F, nullptr, &B::mblnProxyEnabled},
        {"NNDIRECTCONNECTION", F, nullptr, &B::mblnConnectViaLAN},
        {"NNAUTOCONFIGURL", T, &B::mstrAutoConfigURL, nullptr},
        {"NNPROXYOVERRIDE", T, &B::mstrProxyExceptions, nullptr},
        {"NNHTTPADDRESS", T, &B::mstrHTTPAddress, nullptr},
        {"NNHTTPPORT", T, &B::mstrHTTPPort, nullptr},
        {"NNFTPADDRESS", T, &B::mstrFTPAddress, nullptr},
        {"NNFTPPORT", T, &B::mstrFTPPort, nullptr},
        {"NNGOPHERADDRESS", T, &B::mstrGopherAddress, nullptr},
        {"NNGOPHERPORT", T, &B::mstrGopherPort, nullptr},
        {"NNSSLADDRESS", T, &B::mstrSecureAddress, nullptr},
        {"NNSSLPORT", T, &B::mstrSecurePort, nullptr},
        {"NNSOCKSADDRESS", T, &B::mstrSocksAddress, nullptr},
        {"NNSOCKSPORT", T, &B::mstrSocksPort, nullptr},
        {"NNSOCKSVERSION", T, &B::mstrSocksVersion, nullptr},
        {"NNWAISADDRESS", T, &B::mstrWAISAddress, nullptr},
        {"NNWAISPORT", T, &B::mstrWAISPort, nullptr},
        {"NNDEFHOMEPAGE", T, &B::mstrDefaultHomePage, nullptr},
        {"EMailFullName", T, &B::mstrEMailFullName, nullptr},
        {"EMailAddr", T, &B::mstrEMailAddr, nullptr},
        {"EMailReplyToAddr", T, &B::mstrEMailReplyToAddr, nullptr},
        {"EMailPOP3Server", T, &B::mstrEMailPOP3Server, nullptr},
        {"EMailPOP3Login", T, &B::mstrEMailPOP3Login, nullptr},
        {"EMailSMTPServer", T, &B::mstrEMailSMTPServer, nullptr},
        {"EMailSMTPLogin", T, &B::mstrEMailSMTPLogin, nullptr},
        {"EMailOrganization", T, &B::mstrEMailOrganization, nullptr},
        {"EMailLeaveMailOnServer", F, nullptr, &B::mblnEMailLeaveMailOnServer},
    };
    static const std::vector<SectionKey> opera = {
        {"DefHomePage", T, &B::mstrDefaultHomePage, nullptr},
        {"AutoConfigURL", T, &B::mstrAutoConfigURL, nullptr},
        {"AutoConfigURLEnabled", F, nullptr, &B::mblnUseAutoConfigURL},
        {"ProxyExceptions", T, &B::mstrProxyExceptions, nullptr},
        {"ProxyExceptionsEnabled", F, nullptr, &B::mblnProxyExceptionsEnabled},
        {"HTTPProxyEnabled", F, nullptr, &B::mblnHTTPProxyEnabled},
        {"HTTPProxyAddress", T, &B::mstrHTTPAddress, nullptr},
        {"HTTPProxyPort", T, &B::mstrHTTPPort, nullptr},
        {"HTTPSProxyEnabled", F, nullptr, &B::mblnSecureProxyEnabled},
        {"HTTPSProxyAddress", T, &B::mstrSecureAddress, nullptr},
        {"HTTPSProxyPort", T, &B::mstrSecurePort, nullptr},
        {"FTPProxyEnabled", F, nullptr, &B::mblnFTPProxyEnabled},
        {"FTPProxyAddress", T, &B::mstrFTPAddress, nullptr},
        {"FTPProxyPort", T, &B::mstrFTPPort, nullptr},
        {"GopherProxyEnabled", F, nullptr, &B::mblnGopherProxyEnabled},
        {"GopherProxyAddress", T, &B::mstrGopherAddress, nullptr},
        {"GopherProxyPort", T, &B::mstrGopherPort, nullptr},
        {"WAISProxyEnabled", F, nullptr, &B::mblnWAISProxyEnabled},
        {"WAISProxyAddress", T, &B::mstrWAISAddress, nullptr},
        {"WAISProxyPort", T, &B::mstrWAISPort, nullptr},
        {"UserAgentID", T, &B::mstrUserAgentID, nullptr},
        {"UserAgentVersion", T, &B::mstrUserAgentVersion, nullptr},
    };
    switch (aSection) {
        case BrowserSection::InternetExplorer:
            return explorer;
        case BrowserSection::Navigator:
            return navigator;
        case BrowserSection::Opera:
            break;
    }
    return opera;
}

std::optional<std::string> clsBrowserBase::ReadSectionValue(const std::string& astrFile,
                                                            const std::string& astrSection,
                                                            const std::string& astrKey) {
    const std::string value = StripNulls(ReadProfileString(astrFile, astrSection, astrKey, ""));
    if (value == kIgnoreValue) return std::nullopt;
    return EvaluateCondition(value);
}

void clsBrowserBase::ReadKey(const SectionKey& aKey, const std::string& astrValue) {
    switch (aKey.Encoding) {
        case KeyEncoding::Text:
            this->*aKey.Text = astrValue;
            break;
        case KeyEncoding::Flag:
            this->*aKey.Flag = ProfileFlag(astrValue);
            break;
        case KeyEncoding::InvertedFlag:
            this->*aKey.Flag = astrValue == "0";
            break;
        case KeyEncoding::ProxyServer:
            SplitProxyServer(astrValue);
            break;
        case KeyEncoding::ProxyOverride: {
            const std::string::size_type local = astrValue.find(kLocalMark);
            mblnIgnoreLocalAddresses = local != std::string::npos;
            // The list is what stands before ";<local>"; anything after the mark is dropped.
            mstrProxyExceptions = mblnIgnoreLocalAddresses
                                      ? astrValue.substr(0, local == 0 ? 0 : local - 1)
                                      : astrValue;
            break;
        }
        case KeyEncoding::ProfileName:
            // A profile naming no browser profile takes the first one found.
            this->*aKey.Text = Trim(astrValue).empty() && !mcolProfileList.empty()
                                   ? mcolProfileList.front()
                                   : astrValue;
            break;
    }
}

std::string clsBrowserBase::KeyText(const SectionKey& aKey) const {
    switch (aKey.Encoding) {
        case KeyEncoding::Text:
        case KeyEncoding::ProfileName:
            return this->*aKey.Text;
        case KeyEncoding::Flag:
            return ProfileFlagText(this->*aKey.Flag);
        case KeyEncoding::InvertedFlag:
            return ProfileFlagText(!(this->*aKey.Flag));
        case KeyEncoding::ProxyServer:
            return ComposeProxyServer();
        case KeyEncoding::ProxyOverride:
            return mblnIgnoreLocalAddresses ? mstrProxyExceptions + kLocalSuffix
                                            : mstrProxyExceptions;
    }
    return std::string();
}

void clsBrowserBase::LoadConfigurationFile(const std::string& astrFile) {
    Procedure proc(mLogTag, "LoadConfigurationFile");
    proc.RunPassingOn([&] {
        proc.Log(astrFile);
        const std::string section = BrowserSectionName(mSection);
        for (const SectionKey& key : KeysOf(mSection)) {
            const std::optional<std::string> value = ReadSectionValue(astrFile, section, key.Key);
            if (value) ReadKey(key, *value);
        }
    });
}

void clsBrowserBase::SaveConfigurationFile(const std::string& astrFile) {
    Procedure proc(mLogTag, "SaveConfigurationFile");
    proc.RunPassingOn([&] {
        proc.Log(astrFile);
        const std::string section = BrowserSectionName(mSection);
        for (const SectionKey& key : KeysOf(mSection)) {
            WriteProfileString(astrFile, section, key.Key, KeyText(key));
        }
    });
}

// Property setters: store and mark modified, even when the value is the one
// already held.
void clsBrowserBase::SetAutoDetectSettings(bool ablnValue) {
    Assign(mblnAutoDetectSettings, ablnValue);
}
void clsBrowserBase::SetAutoConfigURL(const std::string& astrValue) {
    Assign(mstrAutoConfigURL, astrValue);
}
void clsBrowserBase::SetConnectViaLAN(bool ablnValue) {
    Assign(mblnConnectViaLAN, ablnValue);
}
void clsBrowserBase::SetCurrentProfile(const std::string& astrValue) {
    Assign(mstrCurrentProfile, astrValue);
}
void clsBrowserBase::SetCurrentUserAgent(const std::string& astrValue) {
    Assign(mstrCurrentUserAgent, astrValue);
}
void clsBrowserBase::SetDefaultHomePage(const std::string& astrValue) {
    Assign(mstrDefaultHomePage, astrValue);
}
void clsBrowserBase::SetDisablePWDCache(bool ablnValue) {
    Assign(mblnDisablePWDCache, ablnValue);
}
void clsBrowserBase::SetEMailAddr(const std::string& astrValue) {
    Assign(mstrEMailAddr, astrValue);
}
void clsBrowserBase::SetEMailFullName(const std::string& astrValue) {
    Assign(mstrEMailFullName, astrValue);
}
void clsBrowserBase::SetEMailOrganization(const std::string& astrValue) {
    Assign(mstrEMailOrganization, astrValue);
}
void clsBrowserBase::SetEMailPOP3Login(const std::string& astrValue) {
    Assign(mstrEMailPOP3Login, astrValue);
}
void clsBrowserBase::SetEMailPOP3Server(const std::string& astrValue) {
    Assign(mstrEMailPOP3Server, astrValue);
}
void clsBrowserBase::SetEMailReplyToAddr(const std::string& astrValue) {
    Assign(mstrEMailReplyToAddr, astrValue);
}
void clsBrowserBase::SetEMailSMTPLogin(const std::string& astrValue) {
    Assign(mstrEMailSMTPLogin, astrValue);
}
void clsBrowserBase::SetEMailSMTPServer(const std::string& astrValue) {
    Assign(mstrEMailSMTPServer, astrValue);
}
void clsBrowserBase::SetEMailLeaveMailOnServer(bool ablnValue) {
    Assign(mblnEMailLeaveMailOnServer, ablnValue);
}
void clsBrowserBase::SetFTPAddress(const std::string& astrValue) {
    Assign(mstrFTPAddress, astrValue);
}
void clsBrowserBase::SetFTPPort(const std::string& astrValue) {
    Assign(mstrFTPPort, astrValue);
}
void clsBrowserBase::SetCurrentDUN(const std::string& astrValue) {
    Assign(mstrCurrentDUN, astrValue);
}
void clsBrowserBase::SetGopherAddress(const std::string& astrValue) {
    Assign(mstrGopherAddress, astrValue);
}
void clsBrowserBase::SetGopherPort(const std::string& astrValue) {
    Assign(mstrGopherPort, astrValue);
}
void clsBrowserBase::SetHTTPAddress(const std::string& astrValue) {
    Assign(mstrHTTPAddress, astrValue);
}
void clsBrowserBase::SetHTTPPort(const std::string& astrValue) {
    Assign(mstrHTTPPort, astrValue);
}
void clsBrowserBase::SetIgnoreLocalAddresses(bool ablnValue) {
    Assign(mblnIgnoreLocalAddresses, ablnValue);
}
void clsBrowserBase::SetProxyEnabled(bool ablnValue) {
    Assign(mblnProxyEnabled, ablnValue);
}
void clsBrowserBase::SetFTPProxyEnabled(bool ablnValue) {
    Assign(mblnFTPProxyEnabled, ablnValue);
}
void clsBrowserBase::SetGopherProxyEnabled(bool ablnValue) {
    Assign(mblnGopherProxyEnabled, ablnValue);
}
void clsBrowserBase::SetHTTPProxyEnabled(bool ablnValue) {
    Assign(mblnHTTPProxyEnabled, ablnValue);
}
void clsBrowserBase::SetSecureProxyEnabled(bool ablnValue) {
    Assign(mblnSecureProxyEnabled, ablnValue);
}
void clsBrowserBase::SetWAISProxyEnabled(bool ablnValue) {
    Assign(mblnWAISProxyEnabled, ablnValue);
}
void clsBrowserBase::SetProxyExceptionsEnabled(bool ablnValue) {
    Assign(mblnProxyExceptionsEnabled, ablnValue);
}
void clsBrowserBase::SetProxyExceptions(const std::string& astrValue) {
    Assign(mstrProxyExceptions, astrValue);
}
void clsBrowserBase::SetSecureAddress(const std::string& astrValue) {
    Assign(mstrSecureAddress, astrValue);
}
void clsBrowserBase::SetSecurePort(const std::string& astrValue) {
    Assign(mstrSecurePort, astrValue);
}
void clsBrowserBase::SetSocksAddress(const std::string& astrValue) {
    Assign(mstrSocksAddress, astrValue);
}
void clsBrowserBase::SetSocksPort(const std::string& astrValue) {
    Assign(mstrSocksPort, astrValue);
}
void clsBrowserBase::SetSocksVersion(const std::string& astrValue) {
    Assign(mstrSocksVersion, astrValue);
}
void clsBrowserBase::SetUseAutoConfigURL(bool ablnValue) {
    Assign(mblnUseAutoConfigURL, ablnValue);
}
void clsBrowserBase::SetUseSameProxy(bool ablnValue) {
    Assign(mblnUseSameProxy, ablnValue);
}
void clsBrowserBase::SetWAISAddress(const std::string& astrValue) {
    Assign(mstrWAISAddress, astrValue);
}
void clsBrowserBase::SetWAISPort(const std::string& astrValue) {
    Assign(mstrWAISPort, astrValue);
}

}  // namespace rwz
