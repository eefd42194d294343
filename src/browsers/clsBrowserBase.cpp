#include "browsers/clsBrowserBase.h"

#include <windows.h>

#include "platform/Procedure.h"
#include "platform/modUtilities.h"
#include "profile/modProfileIO.h"

namespace rwz {

namespace {

// Internet Explorer marks "bypass the proxy for local addresses" inside its
// exception list.
constexpr const char* kLocalMark = "<local>";
constexpr const char* kLocalSuffix = ";<local>";

enum class KeyKind {
    Text,           // the text as it stands
    Flag,           // "1"/"0"; only "1" is true
    InvertedFlag,   // "0" is true ("EnableAutoDial" against ConnectViaLAN)
    ProxyServer,    // Internet Explorer's proxy list, split and composed by its back end
    ProxyOverride,  // exception list with ";<local>" for IgnoreLocalAddresses
    ProfileName,    // empty: the first profile found
    ScriptURL,      // a URL, which means the script is in use; written only when in use
};

struct SectionKey {
    BrowserSection Section;
    const char* Key;
    KeyKind Kind;
    std::string BrowserRecord::*Text;
    bool BrowserRecord::*Flag;
};

using R = BrowserRecord;
constexpr auto IE = BrowserSection::InternetExplorer;
constexpr auto NN = BrowserSection::Navigator;
constexpr auto OP = BrowserSection::Opera;
constexpr auto T = KeyKind::Text;
constexpr auto F = KeyKind::Flag;

// The keys of every section in file order. The sections differ on purpose
// (mixed case against "NN" upper case, "HTTPS" against "SSL"): files written
// by earlier versions must keep reading.
const SectionKey kSectionKeys[] = {
    {IE, "ProxyServer", KeyKind::ProxyServer, nullptr, nullptr},
    {IE, "DialupISP", T, &R::CurrentDUN, nullptr},
    {IE, "ProxyEnable", F, nullptr, &R::ProxyEnabled},
    {IE, "EnableAutoDial", KeyKind::InvertedFlag, nullptr, &R::ConnectViaLAN},
    {IE, "AutoDetectSettings", F, nullptr, &R::AutoDetectSettings},
    {IE, "AutoConfigURL", KeyKind::ScriptURL, &R::AutoConfigURL, &R::UseAutoConfigURL},
    {IE, "ProxyOverride", KeyKind::ProxyOverride, &R::ProxyExceptions, &R::IgnoreLocalAddresses},
    {IE, "DisablePWDCache", F, nullptr, &R::DisablePWDCache},
    {IE, "DefHomePage", T, &R::DefaultHomePage, nullptr},
    {NN, "NNPROFILE", KeyKind::ProfileName, &R::CurrentProfile, nullptr},
    {NN, "NNPROXYENABLE", F, nullptr, &R::ProxyEnabled},
    {NN, "NNDIRECTCONNECTION", F, nullptr, &R::ConnectViaLAN},
    {NN, "NNAUTOCONFIGURL", T, &R::AutoConfigURL, nullptr},
    {NN, "NNPROXYOVERRIDE", T, &R::ProxyExceptions, nullptr},
    {NN, "NNHTTPADDRESS", T, &R::HTTPAddress, nullptr},
    {NN, "NNHTTPPORT", T, &R::HTTPPort, nullptr},
    {NN, "NNFTPADDRESS", T, &R::FTPAddress, nullptr},
    {NN, "NNFTPPORT", T, &R::FTPPort, nullptr},
    {NN, "NNGOPHERADDRESS", T, &R::GopherAddress, nullptr},
    {NN, "NNGOPHERPORT", T, &R::GopherPort, nullptr},
    {NN, "NNSSLADDRESS", T, &R::SecureAddress, nullptr},
    {NN, "NNSSLPORT", T, &R::SecurePort, nullptr},
    {NN, "NNSOCKSADDRESS", T, &R::SocksAddress, nullptr},
    {NN, "NNSOCKSPORT", T, &R::SocksPort, nullptr},
    {NN, "NNSOCKSVERSION", T, &R::SocksVersion, nullptr},
    {NN, "NNWAISADDRESS", T, &R::WAISAddress, nullptr},
    {NN, "NNWAISPORT", T, &R::WAISPort, nullptr},
    {NN, "NNDEFHOMEPAGE", T, &R::DefaultHomePage, nullptr},
    {NN, "EMailFullName", T, &R::EMailFullName, nullptr},
    {NN, "EMailAddr", T, &R::EMailAddr, nullptr},
    {NN, "EMailReplyToAddr", T, &R::EMailReplyToAddr, nullptr},
    {NN, "EMailPOP3Server", T, &R::EMailPOP3Server, nullptr},
    {NN, "EMailPOP3Login", T, &R::EMailPOP3Login, nullptr},
    {NN, "EMailSMTPServer", T, &R::EMailSMTPServer, nullptr},
    {NN, "EMailSMTPLogin", T, &R::EMailSMTPLogin, nullptr},
    {NN, "EMailOrganization", T, &R::EMailOrganization, nullptr},
    {NN, "EMailLeaveMailOnServer", F, nullptr, &R::EMailLeaveMailOnServer},
    {OP, "DefHomePage", T, &R::DefaultHomePage, nullptr},
    {OP, "AutoConfigURL", T, &R::AutoConfigURL, nullptr},
    {OP, "AutoConfigURLEnabled", F, nullptr, &R::UseAutoConfigURL},
    {OP, "ProxyExceptions", T, &R::ProxyExceptions, nullptr},
    {OP, "ProxyExceptionsEnabled", F, nullptr, &R::ProxyExceptionsEnabled},
    {OP, "HTTPProxyEnabled", F, nullptr, &R::HTTPProxyEnabled},
    {OP, "HTTPProxyAddress", T, &R::HTTPAddress, nullptr},
    {OP, "HTTPProxyPort", T, &R::HTTPPort, nullptr},
    {OP, "HTTPSProxyEnabled", F, nullptr, &R::SecureProxyEnabled},
    {OP, "HTTPSProxyAddress", T, &R::SecureAddress, nullptr},
    {OP, "HTTPSProxyPort", T, &R::SecurePort, nullptr},
    {OP, "FTPProxyEnabled", F, nullptr, &R::FTPProxyEnabled},
    {OP, "FTPProxyAddress", T, &R::FTPAddress, nullptr},
    {OP, "FTPProxyPort", T, &R::FTPPort, nullptr},
    {OP, "GopherProxyEnabled", F, nullptr, &R::GopherProxyEnabled},
    {OP, "GopherProxyAddress", T, &R::GopherAddress, nullptr},
    {OP, "GopherProxyPort", T, &R::GopherPort, nullptr},
    {OP, "WAISProxyEnabled", F, nullptr, &R::WAISProxyEnabled},
    {OP, "WAISProxyAddress", T, &R::WAISAddress, nullptr},
    {OP, "WAISProxyPort", T, &R::WAISPort, nullptr},
    {OP, "UserAgentID", T, &R::UserAgentID, nullptr},
    {OP, "UserAgentVersion", T, &R::UserAgentVersion, nullptr},
};

}  // namespace

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

void clsBrowserBase::ShowBrowserMessage(const std::string& astrText) {
    MessageBoxA(GetActiveWindow(), astrText.c_str(), kProductName, MB_OK | MB_ICONEXCLAMATION);
}

clsBrowserBase::clsBrowserBase(BrowserSection aSection, const char* astrLogTag)
    : mSection(aSection), mLogTag(astrLogTag) {}

void clsBrowserBase::LoadConfigurationFile(const std::string& astrFile) {
    Procedure proc(mLogTag, "LoadConfigurationFile");
    proc.RunPassingOn([&] {
        proc.Log(astrFile);
        const std::string section = BrowserSectionName(mSection);
        for (const SectionKey& key : kSectionKeys) {
            if (key.Section != mSection) continue;
            const std::string raw = StripNulls(ReadProfileString(astrFile, section, key.Key, ""));
            if (raw == kIgnoreValue) continue;
            const std::string value = EvaluateCondition(raw);
            switch (key.Kind) {
                case KeyKind::Text:
                    mRecord.*key.Text = value;
                    break;
                case KeyKind::Flag:
                    mRecord.*key.Flag = ProfileFlag(value);
                    break;
                case KeyKind::InvertedFlag:
                    mRecord.*key.Flag = value == "0";
                    break;
                case KeyKind::ProxyServer:
                    SplitProxyServer(value);
                    break;
                case KeyKind::ProxyOverride: {
                    const std::string::size_type local = value.find(kLocalMark);
                    const bool ignoreLocal = local != std::string::npos;
                    mRecord.*key.Flag = ignoreLocal;
                    // The list is what stands before ";<local>"; anything after the mark is
                    // dropped.
                    mRecord.*key.Text =
                        ignoreLocal ? value.substr(0, local == 0 ? 0 : local - 1) : value;
                    break;
                }
                case KeyKind::ProfileName:
                    // A profile naming no browser profile takes the first one found.
                    mRecord.*key.Text = Trim(value).empty() && !mRecord.ProfileList.empty()
                                            ? mRecord.ProfileList.front()
                                            : value;
                    break;
                case KeyKind::ScriptURL:
                    // As in the registry, a URL means the script is used.
                    mRecord.*key.Text = value;
                    mRecord.*key.Flag = !value.empty();
                    break;
            }
        }
    });
}

void clsBrowserBase::SaveConfigurationFile(const std::string& astrFile) {
    Procedure proc(mLogTag, "SaveConfigurationFile");
    proc.RunPassingOn([&] {
        proc.Log(astrFile);
        const std::string section = BrowserSectionName(mSection);
        for (const SectionKey& key : kSectionKeys) {
            if (key.Section != mSection) continue;
            std::string text;
            switch (key.Kind) {
                case KeyKind::Text:
                case KeyKind::ProfileName:
                    text = mRecord.*key.Text;
                    break;
                case KeyKind::Flag:
                    text = ProfileFlagText(mRecord.*key.Flag);
                    break;
                case KeyKind::InvertedFlag:
                    text = ProfileFlagText(!(mRecord.*key.Flag));
                    break;
                case KeyKind::ProxyServer:
                    text = ComposeProxyServer();
                    break;
                case KeyKind::ProxyOverride:
                    text = mRecord.*key.Flag ? mRecord.*key.Text + kLocalSuffix : mRecord.*key.Text;
                    break;
                case KeyKind::ScriptURL:
                    // A script not in use is not kept, so that it reads back unused.
                    text = mRecord.*key.Flag ? mRecord.*key.Text : std::string();
                    break;
            }
            WriteProfileString(astrFile, section, key.Key, text);
        }
    });
}

}  // namespace rwz
