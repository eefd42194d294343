// The browser sections of a profile file, written and read through the
// system's private-profile functions.
#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "TestBrowser.h"
#include "platform/RwzError.h"
#include "platform/modAPI.h"

namespace rwz::test {
namespace {

// The file a section alone is written to.
std::string Saved(TestBrowser& browser, const char* astrName) {
    ScratchFile file(astrName);
    browser.SaveConfigurationFile(file.Path());
    return file.Read();
}

// --- Layout: the keys, their order and encodings, as the file holds them.

TEST(BrowserSection, InternetExplorerLayout) {
    TestBrowser browser(BrowserSection::InternetExplorer);
    browser.ProxyServerText = "ftp=f:21;http=h:80";
    browser.SetCurrentDUN("Office VPN");
    browser.SetProxyEnabled(true);
    browser.SetConnectViaLAN(true);
    browser.SetAutoDetectSettings(false);
    browser.SetAutoConfigURL("http://wpad/proxy.pac");
    browser.SetProxyExceptions("*.corp;intranet");
    browser.SetIgnoreLocalAddresses(true);
    browser.SetDisablePWDCache(true);
    browser.SetDefaultHomePage("http://home/");
    EXPECT_EQ(Saved(browser, "ie-layout"),
              "[Internet Explorer]\r\n"
              "ProxyServer=ftp=f:21;http=h:80\r\n"
              "DialupISP=Office VPN\r\n"
              "ProxyEnable=1\r\n"
              "EnableAutoDial=0\r\n"
              "AutoDetectSettings=0\r\n"
              "AutoConfigURL=http://wpad/proxy.pac\r\n"
              "ProxyOverride=*.corp;intranet;<local>\r\n"
              "DisablePWDCache=1\r\n"
              "DefHomePage=http://home/\r\n");
}

TEST(BrowserSection, NavigatorLayout) {
    TestBrowser browser(BrowserSection::Navigator);
    browser.SetCurrentProfile("default");
    browser.SetProxyEnabled(true);
    browser.SetConnectViaLAN(false);
    browser.SetAutoConfigURL("http://wpad/proxy.pac");
    browser.SetProxyExceptions("localhost, .corp");
    browser.SetHTTPAddress("http-proxy");
    browser.SetHTTPPort("8080");
    browser.SetFTPAddress("ftp-proxy");
    browser.SetFTPPort("2121");
    browser.SetGopherAddress("gopher-proxy");
    browser.SetGopherPort("70");
    browser.SetSecureAddress("ssl-proxy");
    browser.SetSecurePort("443");
    browser.SetSocksAddress("socks-host");
    browser.SetSocksPort("1080");
    browser.SetSocksVersion("5");
    browser.SetWAISAddress("wais-proxy");
    browser.SetWAISPort("210");
    browser.SetDefaultHomePage("http://home/");
    browser.SetEMailFullName("Ann Smith");
    browser.SetEMailAddr("ann@example.com");
    browser.SetEMailReplyToAddr("reply@example.com");
    browser.SetEMailPOP3Server("pop.example.com");
    browser.SetEMailPOP3Login("ann");
    browser.SetEMailSMTPServer("smtp.example.com");
    browser.SetEMailSMTPLogin("ann.smtp");
    browser.SetEMailOrganization("Example Ltd");
    browser.SetEMailLeaveMailOnServer(true);
    EXPECT_EQ(Saved(browser, "nn-layout"),
              "[Netscape Navigator]\r\n"
              "NNPROFILE=default\r\n"
              "NNPROXYENABLE=1\r\n"
              "NNDIRECTCONNECTION=0\r\n"
              "NNAUTOCONFIGURL=http://wpad/proxy.pac\r\n"
              "NNPROXYOVERRIDE=localhost, .corp\r\n"
              "NNHTTPADDRESS=http-proxy\r\n"
              "NNHTTPPORT=8080\r\n"
              "NNFTPADDRESS=ftp-proxy\r\n"
              "NNFTPPORT=2121\r\n"
              "NNGOPHERADDRESS=gopher-proxy\r\n"
              "NNGOPHERPORT=70\r\n"
              "NNSSLADDRESS=ssl-proxy\r\n"
              "NNSSLPORT=443\r\n"
              "NNSOCKSADDRESS=socks-host\r\n"
              "NNSOCKSPORT=1080\r\n"
              "NNSOCKSVERSION=5\r\n"
              "NNWAISADDRESS=wais-proxy\r\n"
              "NNWAISPORT=210\r\n"
              "NNDEFHOMEPAGE=http://home/\r\n"
              "EMailFullName=Ann Smith\r\n"
              "EMailAddr=ann@example.com\r\n"
              "EMailReplyToAddr=reply@example.com\r\n"
              "EMailPOP3Server=pop.example.com\r\n"
              "EMailPOP3Login=ann\r\n"
              "EMailSMTPServer=smtp.example.com\r\n"
              "EMailSMTPLogin=ann.smtp\r\n"
              "EMailOrganization=Example Ltd\r\n"
              "EMailLeaveMailOnServer=1\r\n");
}

TEST(BrowserSection, OperaLayout) {
    TestBrowser browser(BrowserSection::Opera);
    browser.SetDefaultHomePage("http://home/");
    browser.SetAutoConfigURL("http://wpad/proxy.pac");
    browser.SetUseAutoConfigURL(false);
    browser.SetProxyExceptions("*.corp");
    browser.SetProxyExceptionsEnabled(true);
    browser.SetHTTPProxyEnabled(true);
    browser.SetHTTPAddress("http-proxy");
    browser.SetHTTPPort("8080");
    browser.SetSecureProxyEnabled(false);
    browser.SetSecureAddress("https-proxy");
    browser.SetSecurePort("443");
    browser.SetFTPProxyEnabled(true);
    browser.SetFTPAddress("ftp-proxy");
    browser.SetFTPPort("21");
    browser.SetGopherProxyEnabled(false);
    browser.SetGopherAddress("");
    browser.SetGopherPort("");
    browser.SetWAISProxyEnabled(true);
    browser.SetWAISAddress("wais-proxy");
    browser.SetWAISPort("210");
    browser.UserAgentID() = "2";
    browser.UserAgentVersion() = "1";
    EXPECT_EQ(Saved(browser, "opera-layout"),
              "[Opera]\r\n"
              "DefHomePage=http://home/\r\n"
              "AutoConfigURL=http://wpad/proxy.pac\r\n"
              "AutoConfigURLEnabled=0\r\n"
              "ProxyExceptions=*.corp\r\n"
              "ProxyExceptionsEnabled=1\r\n"
              "HTTPProxyEnabled=1\r\n"
              "HTTPProxyAddress=http-proxy\r\n"
              "HTTPProxyPort=8080\r\n"
              "HTTPSProxyEnabled=0\r\n"
              "HTTPSProxyAddress=https-proxy\r\n"
              "HTTPSProxyPort=443\r\n"
              "FTPProxyEnabled=1\r\n"
              "FTPProxyAddress=ftp-proxy\r\n"
              "FTPProxyPort=21\r\n"
              "GopherProxyEnabled=0\r\n"
              "GopherProxyAddress=\r\n"
              "GopherProxyPort=\r\n"
              "WAISProxyEnabled=1\r\n"
              "WAISProxyAddress=wais-proxy\r\n"
              "WAISProxyPort=210\r\n"
              "UserAgentID=2\r\n"
              "UserAgentVersion=1\r\n");
}

// --- Round trips: every property a section carries comes back, and only those.

struct SectionProperties {
    BrowserSection Section;
    std::set<std::string> Texts;
    std::set<std::string> Flags;
};

const std::vector<SectionProperties>& CarriedProperties() {
    static const std::vector<SectionProperties> sections = {
        {BrowserSection::InternetExplorer,
         {"CurrentDUN", "AutoConfigURL", "ProxyExceptions", "DefaultHomePage"},
         {"ProxyEnabled", "ConnectViaLAN", "AutoDetectSettings", "IgnoreLocalAddresses",
          "DisablePWDCache"}},
        {BrowserSection::Navigator,
         {"CurrentProfile",   "AutoConfigURL",  "ProxyExceptions", "HTTPAddress",
          "HTTPPort",         "FTPAddress",     "FTPPort",         "GopherAddress",
          "GopherPort",       "SecureAddress",  "SecurePort",      "SocksAddress",
          "SocksPort",        "SocksVersion",   "WAISAddress",     "WAISPort",
          "DefaultHomePage",  "EMailFullName",  "EMailAddr",       "EMailReplyToAddr",
          "EMailPOP3Server",  "EMailPOP3Login", "EMailSMTPServer", "EMailSMTPLogin",
          "EMailOrganization"},
         {"ProxyEnabled", "ConnectViaLAN", "EMailLeaveMailOnServer"}},
        {BrowserSection::Opera,
         {"DefaultHomePage", "AutoConfigURL", "ProxyExceptions", "HTTPAddress", "HTTPPort",
          "SecureAddress", "SecurePort", "FTPAddress", "FTPPort", "GopherAddress", "GopherPort",
          "WAISAddress", "WAISPort"},
         {"UseAutoConfigURL", "ProxyExceptionsEnabled", "HTTPProxyEnabled", "SecureProxyEnabled",
          "FTPProxyEnabled", "GopherProxyEnabled", "WAISProxyEnabled"}},
    };
    return sections;
}

// Fills every property: texts with their own names (so a key read into the
// wrong property shows), flags alternating from `ablnFirst`.
void Fill(IBrowser& browser, const std::string& astrSuffix, bool ablnFirst) {
    for (const TextProperty& p : TextProperties()) (browser.*p.Set)(p.Name + astrSuffix);
    bool flag = ablnFirst;
    for (const FlagProperty& p : FlagProperties()) {
        (browser.*p.Set)(flag);
        flag = !flag;
    }
}

TEST(BrowserSection, EachSectionReadsBackItsPropertiesAndNoOthers) {
    for (const SectionProperties& carried : CarriedProperties()) {
        const char* section = BrowserSectionName(carried.Section);
        for (bool first : {true, false}) {
            SCOPED_TRACE(std::string(section) + (first ? " (flags 1010...)" : " (flags 0101...)"));
            ScratchFile file("roundtrip");
            TestBrowser writer(carried.Section);
            Fill(writer, "-saved", first);
            writer.ProxyServerText = "http=saved:80";
            writer.UserAgentID() = "2";
            writer.UserAgentVersion() = "0";
            writer.SaveConfigurationFile(file.Path());

            TestBrowser reader(carried.Section);
            Fill(reader, "-before", !first);
            reader.LoadConfigurationFile(file.Path());

            for (const TextProperty& p : TextProperties()) {
                const bool inSection = carried.Texts.count(p.Name) > 0;
                EXPECT_EQ((reader.*p.Get)(),
                          std::string(p.Name) + (inSection ? "-saved" : "-before"))
                    << p.Name;
            }
            for (const FlagProperty& p : FlagProperties()) {
                // The reader started with the opposite of every flag the writer saved.
                const bool inSection = carried.Flags.count(p.Name) > 0;
                EXPECT_EQ((reader.*p.Get)() == (writer.*p.Get)(), inSection) << p.Name;
            }
            const bool explorer = carried.Section == BrowserSection::InternetExplorer;
            const bool opera = carried.Section == BrowserSection::Opera;
            EXPECT_EQ(reader.ProxyServerText, explorer ? "http=saved:80" : "");
            EXPECT_EQ(reader.UserAgentID(), opera ? "2" : "");
            EXPECT_EQ(reader.UserAgentVersion(), opera ? "0" : "");
        }
    }
}

// All three sections in one file, as a profile holds them: keys of the same
// name ("DefHomePage", "AutoConfigURL") stay in their own section, and a
// second save of unchanged settings gives the same bytes.
TEST(BrowserSection, ThreeSectionsShareOneFile) {
    ScratchFile file("three");
    TestBrowser explorer(BrowserSection::InternetExplorer);
    TestBrowser navigator(BrowserSection::Navigator);
    TestBrowser opera(BrowserSection::Opera);
    explorer.SetDefaultHomePage("http://ie/");
    explorer.SetAutoConfigURL("http://ie/pac");
    navigator.SetDefaultHomePage("http://nn/");
    opera.SetDefaultHomePage("http://opera/");
    opera.SetAutoConfigURL("http://opera/pac");
    for (TestBrowser* browser : {&explorer, &navigator, &opera}) {
        browser->SaveConfigurationFile(file.Path());
    }
    const std::string once = file.Read();
    for (TestBrowser* browser : {&explorer, &navigator, &opera}) {
        browser->SaveConfigurationFile(file.Path());
    }
    EXPECT_EQ(file.Read(), once);
    EXPECT_EQ(once.find("[Internet Explorer]\r\n"), 0u);
    EXPECT_LT(once.find("[Netscape Navigator]\r\n"), once.find("[Opera]\r\n"));

    TestBrowser explorerRead(BrowserSection::InternetExplorer);
    TestBrowser navigatorRead(BrowserSection::Navigator);
    TestBrowser operaRead(BrowserSection::Opera);
    explorerRead.LoadConfigurationFile(file.Path());
    navigatorRead.LoadConfigurationFile(file.Path());
    operaRead.LoadConfigurationFile(file.Path());
    EXPECT_EQ(explorerRead.DefaultHomePage(), "http://ie/");
    EXPECT_EQ(explorerRead.AutoConfigURL(), "http://ie/pac");
    EXPECT_EQ(navigatorRead.DefaultHomePage(), "http://nn/");
    EXPECT_EQ(operaRead.DefaultHomePage(), "http://opera/");
    EXPECT_EQ(operaRead.AutoConfigURL(), "http://opera/pac");
}

// --- Encodings, read from files as people write them by hand.

struct ReadCase {
    const char* Line;  // the key's line in the section, or "" for no line at all
    bool Expected;
};

bool ReadFlag(BrowserSection aSection, const std::string& astrLine,
              bool (IBrowser::*aGetter)() const, bool ablnBefore) {
    ScratchFile file("flag");
    file.Write(std::string("[") + BrowserSectionName(aSection) + "]\r\n" + astrLine + "\r\n");
    TestBrowser browser(aSection);
    if (ablnBefore) {
        browser.SetConnectViaLAN(true);
        browser.SetProxyEnabled(true);
    }
    browser.LoadConfigurationFile(file.Path());
    return (browser.*aGetter)();
}

// "EnableAutoDial" says whether to dial: the local network is its "0".
TEST(BrowserSection, EnableAutoDialIsInverted) {
    const ReadCase cases[] = {
        {"EnableAutoDial=0", true},   {"EnableAutoDial=1", false},
        {"EnableAutoDial=", false},   {"", false},
        {"EnableAutoDial=00", false}, {"EnableAutoDial= 0 ", true},
        {"enableautodial=0", true},   {"EnableAutoDial=no", false},
    };
    for (const ReadCase& c : cases) {
        for (bool before : {false, true}) {
            EXPECT_EQ(ReadFlag(BrowserSection::InternetExplorer, c.Line, &IBrowser::ConnectViaLAN,
                               before),
                      c.Expected)
                << "'" << c.Line << "' over " << before;
        }
    }
    TestBrowser browser(BrowserSection::InternetExplorer);
    browser.SetConnectViaLAN(false);
    EXPECT_NE(Saved(browser, "autodial").find("\r\nEnableAutoDial=1\r\n"), std::string::npos);
}

// Only "1" is true, in every section.
TEST(BrowserSection, FlagsAreTrueOnlyForOne) {
    const ReadCase cases[] = {
        {"=1", true}, {"= 1", true},   {"=\"1\"", true}, {"=true", false}, {"=01", false},
        {"=", false}, {"=yes", false}, {"=-1", false},   {"=1.0", false},
    };
    const std::pair<BrowserSection, const char*> keys[] = {
        {BrowserSection::InternetExplorer, "ProxyEnable"},
        {BrowserSection::Navigator, "NNPROXYENABLE"},
        {BrowserSection::Navigator, "NNDIRECTCONNECTION"},
    };
    for (const auto& [section, key] : keys) {
        for (const ReadCase& c : cases) {
            bool (IBrowser::*getter)() const = std::string(key) == "NNDIRECTCONNECTION"
                                                   ? &IBrowser::ConnectViaLAN
                                                   : &IBrowser::ProxyEnabled;
            EXPECT_EQ(ReadFlag(section, std::string(key) + c.Line, getter, true), c.Expected)
                << key << c.Line;
        }
    }
}

TEST(BrowserSection, ProxyOverrideCarriesTheLocalMark) {
    struct Case {
        const char* Value;
        const char* Exceptions;
        bool IgnoreLocal;
    };
    const Case cases[] = {
        {"*.corp;intranet;<local>", "*.corp;intranet", true},
        {"*.corp;intranet", "*.corp;intranet", false},
        {"<local>", "", true},
        {";<local>", "", true},
        {"a;<local>;b", "a", true},  // whatever follows the mark is dropped
        {"", "", false},
    };
    for (const Case& c : cases) {
        ScratchFile file("override");
        file.Write(std::string("[Internet Explorer]\r\nProxyOverride=") + c.Value + "\r\n");
        TestBrowser browser(BrowserSection::InternetExplorer);
        browser.SetIgnoreLocalAddresses(!c.IgnoreLocal);
        browser.LoadConfigurationFile(file.Path());
        EXPECT_EQ(browser.ProxyExceptions(), c.Exceptions) << c.Value;
        EXPECT_EQ(browser.IgnoreLocalAddresses(), c.IgnoreLocal) << c.Value;
    }

    const Case written[] = {
        {"*.corp;intranet;<local>", "*.corp;intranet", true},
        {"*.corp;intranet", "*.corp;intranet", false},
        {";<local>", "", true},
        {"", "", false},
    };
    for (const Case& c : written) {
        TestBrowser browser(BrowserSection::InternetExplorer);
        browser.SetProxyExceptions(c.Exceptions);
        browser.SetIgnoreLocalAddresses(c.IgnoreLocal);
        EXPECT_NE(Saved(browser, "override-out")
                      .find(std::string("\r\nProxyOverride=") + c.Value + "\r\n"),
                  std::string::npos)
            << c.Value;
    }
}

// The proxy list reaches the back end's splitter as the file holds it, with
// no ";" added, and is not split at all when the key says "{IGNORE}".
TEST(BrowserSection, ProxyServerGoesToTheBackEndsSplitter) {
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"ProxyServer=proxy:8080", {"proxy:8080"}},
        {"ProxyServer=", {""}},
        {"", {""}},
        {"ProxyServer={IGNORE}", {}},
    };
    for (const auto& [line, splits] : cases) {
        ScratchFile file("proxyserver");
        file.Write(std::string("[Internet Explorer]\r\n") + line + "\r\n");
        TestBrowser browser(BrowserSection::InternetExplorer);
        browser.LoadConfigurationFile(file.Path());
        EXPECT_EQ(browser.ProxyServerSplits, splits) << line;
    }
}

TEST(BrowserSection, EmptyProfileNameTakesTheFirstProfileFound) {
    struct Case {
        const char* Line;
        std::vector<std::string> Profiles;
        const char* Expected;
    };
    const Case cases[] = {
        {"NNPROFILE=", {"default", "work"}, "default"},
        {R"(NNPROFILE=IsNTPlatform("  ","  "))", {"default", "work"}, "default"},
        {"", {"default", "work"}, "default"},
        {"NNPROFILE=work", {"default", "work"}, "work"},
        {"NNPROFILE=gone", {"default", "work"}, "gone"},
        {"NNPROFILE=", {}, ""},
        {"NNPROFILE={IGNORE}", {"default", "work"}, "kept"},
    };
    for (const Case& c : cases) {
        ScratchFile file("nnprofile");
        file.Write(std::string("[Netscape Navigator]\r\n") + c.Line + "\r\n");
        TestBrowser browser(BrowserSection::Navigator);
        browser.SetProfiles(c.Profiles);
        browser.SetCurrentProfile("kept");
        browser.LoadConfigurationFile(file.Path());
        EXPECT_EQ(browser.CurrentProfile(), c.Expected) << c.Line;
    }
}

// --- "{IGNORE}" keeps the value; a missing key empties it.

TEST(BrowserSection, IgnoreKeepsTheRecordsValueOfEveryKind) {
    struct Case {
        BrowserSection Section;
        const char* Line;
        std::function<void(TestBrowser&)> Before;
        std::function<void(const TestBrowser&)> Check;
    };
    const Case cases[] = {
        {BrowserSection::InternetExplorer, "DialupISP={IGNORE}",
         [](TestBrowser& b) { b.SetCurrentDUN("dun"); },
         [](const TestBrowser& b) { EXPECT_EQ(b.CurrentDUN(), "dun"); }},
        {BrowserSection::InternetExplorer, "ProxyEnable={IGNORE}",
         [](TestBrowser& b) { b.SetProxyEnabled(true); },
         [](const TestBrowser& b) { EXPECT_TRUE(b.ProxyEnabled()); }},
        {BrowserSection::InternetExplorer, "EnableAutoDial={IGNORE}",
         [](TestBrowser& b) { b.SetConnectViaLAN(true); },
         [](const TestBrowser& b) { EXPECT_TRUE(b.ConnectViaLAN()); }},
        {BrowserSection::InternetExplorer, "ProxyOverride={IGNORE}",
         [](TestBrowser& b) {
             b.SetProxyExceptions("a;b");
             b.SetIgnoreLocalAddresses(true);
         },
         [](const TestBrowser& b) {
             EXPECT_EQ(b.ProxyExceptions(), "a;b");
             EXPECT_TRUE(b.IgnoreLocalAddresses());
         }},
        {BrowserSection::InternetExplorer, "ProxyServer={IGNORE}",
         [](TestBrowser& b) { b.ProxyServerText = "http=h:80"; },
         [](const TestBrowser& b) { EXPECT_EQ(b.ProxyServerText, "http=h:80"); }},
        {BrowserSection::Navigator, "NNSSLPORT= {IGNORE} ",
         [](TestBrowser& b) { b.SetSecurePort("443"); },
         [](const TestBrowser& b) { EXPECT_EQ(b.SecurePort(), "443"); }},
        {BrowserSection::Navigator, "EMailLeaveMailOnServer={IGNORE}",
         [](TestBrowser& b) { b.SetEMailLeaveMailOnServer(true); },
         [](const TestBrowser& b) { EXPECT_TRUE(b.EMailLeaveMailOnServer()); }},
        {BrowserSection::Opera, "UserAgentID={IGNORE}",
         [](TestBrowser& b) { b.UserAgentID() = "2"; },
         [](const TestBrowser& b) { EXPECT_EQ(b.UserAgentID(), "2"); }},
        {BrowserSection::Opera, "HTTPSProxyEnabled={IGNORE}",
         [](TestBrowser& b) { b.SetSecureProxyEnabled(true); },
         [](const TestBrowser& b) { EXPECT_TRUE(b.SecureProxyEnabled()); }},
        {BrowserSection::InternetExplorer, "DialupISP=\"{IGNORE}  \"",
         [](TestBrowser& b) { b.SetCurrentDUN("dun"); },
         [](const TestBrowser& b) { EXPECT_EQ(b.CurrentDUN(), "dun"); }},
        // Only the exact word counts.
        {BrowserSection::InternetExplorer, "DialupISP={ignore}",
         [](TestBrowser& b) { b.SetCurrentDUN("dun"); },
         [](const TestBrowser& b) { EXPECT_EQ(b.CurrentDUN(), "{ignore}"); }},
        {BrowserSection::InternetExplorer, "DialupISP={IGNORE}x",
         [](TestBrowser& b) { b.SetCurrentDUN("dun"); },
         [](const TestBrowser& b) { EXPECT_EQ(b.CurrentDUN(), "{IGNORE}x"); }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Line);
        ScratchFile file("ignore");
        file.Write(std::string("[") + BrowserSectionName(c.Section) + "]\r\n" + c.Line + "\r\n");
        TestBrowser browser(c.Section);
        c.Before(browser);
        browser.SetDefaultHomePage("home");  // a key the file lacks
        browser.LoadConfigurationFile(file.Path());
        c.Check(browser);
        EXPECT_EQ(browser.DefaultHomePage(), "");
    }
}

// A missing file, a missing section and an empty section all read as every
// key missing: each setting of the section is emptied, nothing else changes,
// and reading creates no file.
TEST(BrowserSection, MissingKeysEmptyTheirSettings) {
    const std::pair<const char*, const char*> files[] = {
        {"no file", nullptr},
        {"other section only", "[Advanced]\r\nComments=x\r\n"},
        {"empty section", "[Internet Explorer]\r\n[Netscape Navigator]\r\n[Opera]\r\n"},
    };
    for (const auto& [name, content] : files) {
        for (const SectionProperties& carried : CarriedProperties()) {
            SCOPED_TRACE(std::string(name) + ", " + BrowserSectionName(carried.Section));
            ScratchFile file("missing");
            if (content) file.Write(content);
            TestBrowser browser(carried.Section);
            Fill(browser, "", true);
            for (const FlagProperty& p : FlagProperties()) (browser.*p.Set)(true);
            browser.ResetFlags();
            browser.LoadConfigurationFile(file.Path());
            for (const TextProperty& p : TextProperties()) {
                EXPECT_EQ((browser.*p.Get)(), carried.Texts.count(p.Name) ? "" : p.Name) << p.Name;
            }
            for (const FlagProperty& p : FlagProperties()) {
                EXPECT_EQ((browser.*p.Get)(), carried.Flags.count(p.Name) == 0) << p.Name;
            }
            EXPECT_FALSE(browser.IsModified());
            EXPECT_EQ(file.Exists(), content != nullptr);
        }
    }
}

// --- Conditional values pick by the running system.

TEST(BrowserSection, ConditionalValuesResolveByTheRunningSystem) {
    const std::string tag = GetCurrentOSTag();
    const bool nt = IsNTPlatform();
    struct Case {
        BrowserSection Section;
        std::string Line;
        bool Holds;
        std::function<void(const TestBrowser&, bool)> Check;
    };
    const auto homePage = [](const TestBrowser& b, bool holds) {
        EXPECT_EQ(b.DefaultHomePage(), holds ? "http://a/" : "http://b/");
    };
    const Case cases[] = {
        {BrowserSection::InternetExplorer, R"(DefHomePage=IsWindowsXP("http://a/","http://b/"))",
         tag == "XP", homePage},
        {BrowserSection::InternetExplorer, R"(DefHomePage=iswindows9x("http://a/","http://b/"))",
         tag == "9x", homePage},
        {BrowserSection::InternetExplorer, R"(DefHomePage=ISWINDOWSNT("http://a/","http://b/"))",
         tag == "NT", homePage},
        {BrowserSection::InternetExplorer, R"(DefHomePage=IsWindows2000("http://a/","http://b/"))",
         tag == "2K", homePage},
        {BrowserSection::InternetExplorer, R"(DefHomePage=IsWindows2003("http://a/","http://b/"))",
         tag == "2003", homePage},
        {BrowserSection::InternetExplorer, R"(DefHomePage=IsNTPlatform("http://a/","http://b/"))",
         nt, homePage},
        {BrowserSection::InternetExplorer, R"(ProxyEnable=IsNTPlatform("1","0"))", nt,
         [](const TestBrowser& b, bool holds) { EXPECT_EQ(b.ProxyEnabled(), holds); }},
        {BrowserSection::InternetExplorer, R"(EnableAutoDial=IsNTPlatform("0","1"))", nt,
         [](const TestBrowser& b, bool holds) { EXPECT_EQ(b.ConnectViaLAN(), holds); }},
        {BrowserSection::InternetExplorer, R"(ProxyOverride=IsNTPlatform("a;<local>","b"))", nt,
         [](const TestBrowser& b, bool holds) {
             EXPECT_EQ(b.ProxyExceptions(), holds ? "a" : "b");
             EXPECT_EQ(b.IgnoreLocalAddresses(), holds);
         }},
        {BrowserSection::InternetExplorer, R"(ProxyServer=IsNTPlatform("nt:80","9x:80"))", nt,
         [](const TestBrowser& b, bool holds) {
             EXPECT_EQ(b.ProxyServerText, holds ? "nt:80" : "9x:80");
         }},
        {BrowserSection::Navigator, R"(NNPROFILE=IsNTPlatform("","work"))", nt,
         [](const TestBrowser& b, bool holds) {
             EXPECT_EQ(b.CurrentProfile(), holds ? "default" : "work");
         }},
        {BrowserSection::Opera, R"(HTTPProxyPort=IsWindowsXP("8080","3128"))", tag == "XP",
         [](const TestBrowser& b, bool holds) {
             EXPECT_EQ(b.HTTPPort(), holds ? "8080" : "3128");
         }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Line + " on " + tag);
        ScratchFile file("conditional");
        file.Write(std::string("[") + BrowserSectionName(c.Section) + "]\r\n" + c.Line + "\r\n");
        TestBrowser browser(c.Section);
        browser.SetProfiles({"default", "work"});
        browser.LoadConfigurationFile(file.Path());
        c.Check(browser, c.Holds);
    }
}

// --- Long values and bad input.

// A value is written whole but read back through a 255-character buffer.
TEST(BrowserSection, LongValuesReadBackAsTheirFirst254Characters) {
    std::string long300;
    for (int i = 0; i < 300; ++i) long300 += static_cast<char>('a' + i % 26);
    ScratchFile file("long");
    TestBrowser writer(BrowserSection::InternetExplorer);
    writer.SetDefaultHomePage(long300);
    writer.SetProxyExceptions(long300);
    writer.SetIgnoreLocalAddresses(true);
    writer.ProxyServerText = long300;
    writer.SaveConfigurationFile(file.Path());
    EXPECT_NE(file.Read().find("DefHomePage=" + long300 + "\r\n"), std::string::npos);
    EXPECT_NE(file.Read().find("ProxyOverride=" + long300 + ";<local>\r\n"), std::string::npos);

    TestBrowser reader(BrowserSection::InternetExplorer);
    reader.LoadConfigurationFile(file.Path());
    EXPECT_EQ(reader.DefaultHomePage(), long300.substr(0, 254));
    EXPECT_EQ(reader.ProxyServerText, long300.substr(0, 254));
    // The local mark stood beyond the 254th character, so it is not seen.
    EXPECT_EQ(reader.ProxyExceptions(), long300.substr(0, 254));
    EXPECT_FALSE(reader.IgnoreLocalAddresses());
}

// Hand-edited files: comments, a key without "=", a key twice, a section
// twice, blanks and quotes around values, names in another case.
TEST(BrowserSection, HandEditedFileReadsByThePrivateProfileRules) {
    ScratchFile file("handmade");
    file.Write(
        "; written by hand\r\n"
        "\r\n"
        "[internet explorer]\r\n"
        "ProxyEnable\r\n"
        "DialupISP=first\r\n"
        "dialupisp=second\r\n"
        "  DefHomePage  =   \"http://quoted/\"  \r\n"
        "a line without an equals sign\r\n"
        "DisablePWDCache=1\r\n"
        "AutoConfigURL=\"http://pac/  \"\r\n"
        "[Opera]\r\n"
        "DefHomePage=http://opera/\r\n"
        "[Internet Explorer]\r\n"
        "ProxyEnable=1\r\n"
        "DialupISP=third\r\n");
    TestBrowser explorer(BrowserSection::InternetExplorer);
    explorer.LoadConfigurationFile(file.Path());
    EXPECT_FALSE(explorer.ProxyEnabled());
    EXPECT_EQ(explorer.CurrentDUN(), "first");
    EXPECT_EQ(explorer.DefaultHomePage(), "http://quoted/");
    EXPECT_TRUE(explorer.DisablePWDCache());
    EXPECT_EQ(explorer.AutoConfigURL(), "http://pac/");  // trailing blanks go, even quoted
    TestBrowser opera(BrowserSection::Opera);
    opera.LoadConfigurationFile(file.Path());
    EXPECT_EQ(opera.DefaultHomePage(), "http://opera/");
}

// A line break inside a setting cannot be carried by the file: the setting
// reads back up to the break, and what follows it, even when it looks like a
// key or a section, takes no other key's place.
TEST(BrowserSection, LineBreakInAValueDamagesNoOtherKey) {
    for (const char* lineBreak : {"\r\n", "\n", "\r"}) {
        SCOPED_TRACE(lineBreak[0] == '\r' ? (lineBreak[1] ? "CR LF" : "CR") : "LF");
        const std::string br = lineBreak;
        ScratchFile file("linebreak");
        TestBrowser explorer(BrowserSection::InternetExplorer);
        explorer.SetCurrentDUN("first" + br + "ProxyEnable=0" + br + "DefHomePage=injected" + br +
                               "[Opera]" + br + "DefHomePage=injected");
        explorer.SetProxyEnabled(true);
        explorer.SetAutoConfigURL("http://pac/" + br + "DialupISP=injected");
        explorer.SetDefaultHomePage("http://ie/" + br + "ProxyEnable=0");
        TestBrowser opera(BrowserSection::Opera);
        opera.SetDefaultHomePage("http://opera/");
        opera.SetHTTPPort("8080");
        for (int save = 0; save < 2; ++save) {
            explorer.SaveConfigurationFile(file.Path());
            opera.SaveConfigurationFile(file.Path());
        }

        TestBrowser explorerRead(BrowserSection::InternetExplorer);
        explorerRead.LoadConfigurationFile(file.Path());
        EXPECT_EQ(explorerRead.CurrentDUN(), "first");
        EXPECT_TRUE(explorerRead.ProxyEnabled());
        EXPECT_EQ(explorerRead.AutoConfigURL(), "http://pac/");
        EXPECT_EQ(explorerRead.DefaultHomePage(), "http://ie/");
        TestBrowser operaRead(BrowserSection::Opera);
        operaRead.LoadConfigurationFile(file.Path());
        EXPECT_EQ(operaRead.DefaultHomePage(), "http://opera/");
        EXPECT_EQ(operaRead.HTTPPort(), "8080");
    }
}

TEST(BrowserSection, UnreadableBytesReadAsMissingKeys) {
    std::string garbage;
    for (int i = 0; i < 5000; ++i) garbage += static_cast<char>((i * 7919 + 13) % 256);
    const std::string contents[] = {
        garbage,
        "[Internet Explorer]\r\nDialupISP=" + std::string(20000, 'x') + "\r\nProxyEnable=1\r\n",
        "[Internet Explorer",
        "[Internet Explorer]\r\nDialupISP=a" + std::string(1, '\0') + "b\r\nProxyEnable=1\r\n",
    };
    for (const std::string& content : contents) {
        ScratchFile file("garbage");
        file.Write(content);
        TestBrowser browser(BrowserSection::InternetExplorer);
        browser.SetDefaultHomePage("home");
        browser.LoadConfigurationFile(file.Path());
        EXPECT_EQ(browser.DefaultHomePage(), "");
        EXPECT_LE(browser.CurrentDUN().size(), 254u);
    }
}

// A file that cannot be written raises runtime error 75, for the profile
// object to report; the settings are untouched.
TEST(BrowserSection, UnwritableFileRaisesPathFileAccessError) {
    char folder[MAX_PATH];
    GetTempPathA(sizeof folder, folder);
    ScratchFile missing("missing-folder");
    const std::string paths[] = {
        folder,                            // a folder, not a file
        missing.Path() + "\\profile.rwz",  // in a folder that does not exist
    };
    for (const std::string& path : paths) {
        TestBrowser browser(BrowserSection::InternetExplorer);
        browser.SetCurrentDUN("new");
        try {
            browser.SaveConfigurationFile(path);
            ADD_FAILURE() << "no error for " << path;
        } catch (const RwzError& error) {
            EXPECT_EQ(error.Number(), kErrPathFileAccess) << path;
        }
        EXPECT_EQ(browser.CurrentDUN(), "new");
        EXPECT_TRUE(browser.IsModified());
    }
}

}  // namespace
}  // namespace rwz::test
