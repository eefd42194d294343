// The browsers' profile sections: every key written under its own name from
// its own setting (golden sections), read back into the same setting, and the
// value forms that differ between keys.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "bench/Bench.h"
#include "browsers/clsBrowserBase.h"
#include "browsers/InternetExplorerLib.h"
#include "browsers/OperaLib.h"

namespace rwz::test {
namespace {

using R = BrowserRecord;

// A back end with no live browser behind it: the profile section alone.
class TestBrowser : public clsBrowserBase {
  public:
    explicit TestBrowser(BrowserSection aSection) : clsBrowserBase(aSection, "clsTestBrowser") {}
    void SetProfiles(std::vector<std::string> acolProfiles) {
        mRecord.ProfileList = std::move(acolProfiles);
    }
    void LoadConfiguration() override {}
    void ApplyConfiguration() override {}
};

std::string ScratchPath(const std::string& astrName) {
    char folder[MAX_PATH];
    GetTempPathA(sizeof folder, folder);
    return std::string(folder) + "rwz-browsers-" + astrName + ".rwz";
}

// Every text setting a section can carry, filled with its own name so that a
// value under a wrong key shows.
const std::vector<std::pair<const char*, std::string R::*>> kTexts = {
    {"AutoConfigURL", &R::AutoConfigURL},
    {"CurrentProfile", &R::CurrentProfile},
    {"DefaultHomePage", &R::DefaultHomePage},
    {"EMailAddr", &R::EMailAddr},
    {"EMailFullName", &R::EMailFullName},
    {"EMailOrganization", &R::EMailOrganization},
    {"EMailPOP3Login", &R::EMailPOP3Login},
    {"EMailPOP3Server", &R::EMailPOP3Server},
    {"EMailReplyToAddr", &R::EMailReplyToAddr},
    {"EMailSMTPLogin", &R::EMailSMTPLogin},
    {"EMailSMTPServer", &R::EMailSMTPServer},
    {"FTPAddress", &R::FTPAddress},
    {"FTPPort", &R::FTPPort},
    {"CurrentDUN", &R::CurrentDUN},
    {"GopherAddress", &R::GopherAddress},
    {"GopherPort", &R::GopherPort},
    {"HTTPAddress", &R::HTTPAddress},
    {"HTTPPort", &R::HTTPPort},
    {"ProxyExceptions", &R::ProxyExceptions},
    {"SecureAddress", &R::SecureAddress},
    {"SecurePort", &R::SecurePort},
    {"SocksAddress", &R::SocksAddress},
    {"SocksPort", &R::SocksPort},
    {"SocksVersion", &R::SocksVersion},
    {"WAISAddress", &R::WAISAddress},
    {"WAISPort", &R::WAISPort},
    {"UserAgentID", &R::UserAgentID},
    {"UserAgentVersion", &R::UserAgentVersion},
};
// Every flag; those at even positions are set, so that a swapped pair shows.
const std::vector<bool R::*> kFlags = {
    &R::AutoDetectSettings, &R::ConnectViaLAN,        &R::DisablePWDCache,
    &R::ProxyEnabled,       &R::IgnoreLocalAddresses, &R::EMailLeaveMailOnServer,
    &R::FTPProxyEnabled,    &R::GopherProxyEnabled,   &R::HTTPProxyEnabled,
    &R::SecureProxyEnabled, &R::WAISProxyEnabled,     &R::ProxyExceptionsEnabled,
    &R::UseAutoConfigURL,   &R::UseSameProxy,
};

void Fill(IBrowser& browser) {
    for (const auto& [name, field] : kTexts) browser.Assign(field, name);
    for (size_t i = 0; i < kFlags.size(); ++i) browser.Assign(kFlags[i], i % 2 == 0);
}

const char kExplorerGolden[] =
    "[Internet Explorer]\r\n"
    "ProxyServer=ftp=FTPAddress:FTPPort;gopher=GopherAddress:GopherPort;http=HTTPAddress:HTTPPort;"
    "https=SecureAddress:SecurePort;socks=SocksAddress:SocksPort\r\n"
    "DialupISP=CurrentDUN\r\nProxyEnable=0\r\nEnableAutoDial=1\r\nAutoDetectSettings=1\r\n"
    "AutoConfigURL=AutoConfigURL\r\nProxyOverride=ProxyExceptions;<local>\r\n"
    "DisablePWDCache=1\r\nDefHomePage=DefaultHomePage\r\n";
const char kNavigatorGolden[] =
    "[Netscape Navigator]\r\n"
    "NNPROFILE=CurrentProfile\r\nNNPROXYENABLE=0\r\nNNDIRECTCONNECTION=0\r\n"
    "NNAUTOCONFIGURL=AutoConfigURL\r\nNNPROXYOVERRIDE=ProxyExceptions\r\n"
    "NNHTTPADDRESS=HTTPAddress\r\nNNHTTPPORT=HTTPPort\r\nNNFTPADDRESS=FTPAddress\r\n"
    "NNFTPPORT=FTPPort\r\nNNGOPHERADDRESS=GopherAddress\r\nNNGOPHERPORT=GopherPort\r\n"
    "NNSSLADDRESS=SecureAddress\r\nNNSSLPORT=SecurePort\r\nNNSOCKSADDRESS=SocksAddress\r\n"
    "NNSOCKSPORT=SocksPort\r\nNNSOCKSVERSION=SocksVersion\r\nNNWAISADDRESS=WAISAddress\r\n"
    "NNWAISPORT=WAISPort\r\nNNDEFHOMEPAGE=DefaultHomePage\r\nEMailFullName=EMailFullName\r\n"
    "EMailAddr=EMailAddr\r\nEMailReplyToAddr=EMailReplyToAddr\r\n"
    "EMailPOP3Server=EMailPOP3Server\r\nEMailPOP3Login=EMailPOP3Login\r\n"
    "EMailSMTPServer=EMailSMTPServer\r\nEMailSMTPLogin=EMailSMTPLogin\r\n"
    "EMailOrganization=EMailOrganization\r\nEMailLeaveMailOnServer=0\r\n";
const char kOperaGolden[] =
    "[Opera]\r\n"
    "DefHomePage=DefaultHomePage\r\nAutoConfigURL=AutoConfigURL\r\nAutoConfigURLEnabled=1\r\n"
    "ProxyExceptions=ProxyExceptions\r\nProxyExceptionsEnabled=0\r\nHTTPProxyEnabled=1\r\n"
    "HTTPProxyAddress=HTTPAddress\r\nHTTPProxyPort=HTTPPort\r\nHTTPSProxyEnabled=0\r\n"
    "HTTPSProxyAddress=SecureAddress\r\nHTTPSProxyPort=SecurePort\r\nFTPProxyEnabled=1\r\n"
    "FTPProxyAddress=FTPAddress\r\nFTPProxyPort=FTPPort\r\nGopherProxyEnabled=0\r\n"
    "GopherProxyAddress=GopherAddress\r\nGopherProxyPort=GopherPort\r\nWAISProxyEnabled=1\r\n"
    "WAISProxyAddress=WAISAddress\r\nWAISProxyPort=WAISPort\r\nUserAgentID=UserAgentID\r\n"
    "UserAgentVersion=UserAgentVersion\r\n";

// Writes `written`'s section, compares it with the golden text, reads it into
// `read` and expects every setting the section carries to come back.
void RoundTrip(IBrowser& written, IBrowser& read, const char* golden) {
    const std::string file = ScratchPath("section");
    Fill(written);
    bench::WriteFile(file, "");
    written.SaveConfigurationFile(file);
    EXPECT_EQ(golden, bench::ReadFileText(file));
    read.LoadConfigurationFile(file);
    const std::string text = golden;
    for (const auto& [name, field] : kTexts) {
        if (text.find(name) == std::string::npos) continue;  // not carried by this section
        EXPECT_EQ(written.Record().*field, read.Record().*field) << name;
    }
    EXPECT_FALSE(read.IsModified());
}

TEST(BrowserSection, InternetExplorerKeys) {
    InternetExplorerLib written(OSFamily::XP), read(OSFamily::XP);
    written.Assign(&R::UseSameProxy, false);
    RoundTrip(written, read, kExplorerGolden);
    for (bool R::*flag : {&R::ProxyEnabled, &R::ConnectViaLAN, &R::AutoDetectSettings,
                          &R::IgnoreLocalAddresses, &R::DisablePWDCache})
        EXPECT_EQ(written.Record().*flag, read.Record().*flag);
}

TEST(BrowserSection, NavigatorKeys) {
    TestBrowser written(BrowserSection::Navigator), read(BrowserSection::Navigator);
    RoundTrip(written, read, kNavigatorGolden);
    for (bool R::*flag : {&R::ProxyEnabled, &R::ConnectViaLAN, &R::EMailLeaveMailOnServer})
        EXPECT_EQ(written.Record().*flag, read.Record().*flag);
}

TEST(BrowserSection, OperaKeys) {
    OperaLib written, read;
    RoundTrip(written, read, kOperaGolden);
    for (bool R::*flag : {&R::UseAutoConfigURL, &R::ProxyExceptionsEnabled, &R::HTTPProxyEnabled,
                          &R::SecureProxyEnabled, &R::FTPProxyEnabled, &R::GopherProxyEnabled,
                          &R::WAISProxyEnabled})
        EXPECT_EQ(written.Record().*flag, read.Record().*flag);
}

// One key line read into a record that holds "old" texts and set flags.
struct ValueCase {
    BrowserSection Section;
    const char* Line;
    std::string R::*Text;
    const char* Expected;  // the text, or "1"/"0" for `Flag`
    bool R::*Flag;
};

TEST(BrowserSection, ValueForms) {
    const std::string longValue(300, 'x');
    const std::string longLine = "NNDEFHOMEPAGE=" + longValue;
    const std::string cutValue = longValue.substr(0, 254);
    const auto IE = BrowserSection::InternetExplorer;
    const auto NN = BrowserSection::Navigator;
    const ValueCase cases[] = {
        {IE, "EnableAutoDial=0", nullptr, "1", &R::ConnectViaLAN},
        {IE, "EnableAutoDial=", nullptr, "0", &R::ConnectViaLAN},
        {IE, "EnableAutoDial=1", nullptr, "0", &R::ConnectViaLAN},
        {IE, "ProxyOverride=a.example;b.example;<local>", &R::ProxyExceptions,
         "a.example;b.example", nullptr},
        {IE, "ProxyOverride=a.example;<local>", nullptr, "1", &R::IgnoreLocalAddresses},
        {IE, "ProxyOverride=<local>", &R::ProxyExceptions, "", nullptr},
        {IE, "ProxyOverride=a.example", nullptr, "0", &R::IgnoreLocalAddresses},
        {IE, "AutoConfigURL=http://wpad/x.pac", nullptr, "1", &R::UseAutoConfigURL},
        {IE, "AutoConfigURL=", nullptr, "0", &R::UseAutoConfigURL},
        {NN, "NNPROXYENABLE=true", nullptr, "0", &R::ProxyEnabled},
        {NN, "NNPROXYENABLE=1", nullptr, "1", &R::ProxyEnabled},
        {NN, "NNHTTPADDRESS={IGNORE}", &R::HTTPAddress, "old", nullptr},
        {NN, "NNPROXYENABLE={IGNORE}", nullptr, "1", &R::ProxyEnabled},
        {NN, "NNFTPADDRESS=", &R::FTPAddress, "", nullptr},
        {NN, "NNPROFILE=", &R::CurrentProfile, "first", nullptr},
        {NN, "NNPROFILE=second", &R::CurrentProfile, "second", nullptr},
        {NN, longLine.c_str(), &R::DefaultHomePage, cutValue.c_str(), nullptr},
    };
    for (const ValueCase& c : cases) {
        SCOPED_TRACE(c.Line);
        TestBrowser browser(c.Section);
        browser.SetProfiles({"first", "second"});
        for (const auto& [name, field] : kTexts) browser.Assign(field, "old");
        for (bool R::*flag : kFlags) browser.Assign(flag, true);
        const std::string file = ScratchPath("value");
        bench::WriteFile(
            file, std::string("[") + BrowserSectionName(c.Section) + "]\r\n" + c.Line + "\r\n");
        browser.LoadConfigurationFile(file);
        if (c.Text) EXPECT_EQ(c.Expected, browser.Record().*c.Text);
        if (c.Flag) EXPECT_EQ(std::string(c.Expected) == "1", browser.Record().*c.Flag);
    }
}

}  // namespace
}  // namespace rwz::test
