// The Netscape back end reading and writing the prefs.js of Netscape 4 and
// Mozilla-family profiles on simulated machines: what it reads, that applying
// a profile's Netscape area leaves exactly the back end's preferences changed
// and every other line as it was, and its failures.
#include <windows.h>

#include "NavigatorLibTestSupport.h"
#include "TestBrowser.h"

namespace rwz::test {
namespace {

const char kPatPrefs[] = "C:\\Program Files\\Netscape\\Users\\pat\\prefs.js";

std::string WorkPrefs() {
    return AppDataFolder() + "\\Mozilla\\Profiles\\work\\k3x9q2mf.slt\\prefs.js";
}
std::string HomePrefs() {
    return AppDataFolder() + "\\Mozilla\\Profiles\\Home Office\\p0w8r5tz.slt\\prefs.js";
}

// A profile file whose "Netscape Navigator" section holds these lines.
class ProfileSection {
  public:
    explicit ProfileSection(const std::string& astrLines) : mFile("navigator") {
        std::string text = "[Enabled Sections]\r\nNetscape Navigator=1\r\n[Netscape Navigator]\r\n";
        text += astrLines;
        mFile.Write(text);
    }
    const std::string& Path() const { return mFile.Path(); }

  private:
    ScratchFile mFile;
};

// The Netscape area of a profile as the main window applies it: the section is
// read, the tab marks the area changed, and the back end applies it.
void ApplySection(NavigatorLib& lib, const std::string& astrLines) {
    ProfileSection section(astrLines);
    lib.LoadConfigurationFile(section.Path());
    lib.SetCurrentProfile(lib.CurrentProfile());
    lib.ApplyConfiguration();
}

const char kManualSection[] =
    "NNPROFILE=\r\n"
    "NNPROXYENABLE=1\r\n"
    "NNDIRECTCONNECTION=0\r\n"
    "NNAUTOCONFIGURL=http://wpad.client.example/wpad.dat\r\n"
    "NNPROXYOVERRIDE=localhost, .client.example\r\n"
    "NNHTTPADDRESS=web-proxy.client.example\r\n"
    "NNHTTPPORT=3128\r\n"
    "NNFTPADDRESS=ftp-proxy.client.example\r\n"
    "NNFTPPORT=2121\r\n"
    "NNGOPHERADDRESS=\r\n"
    "NNGOPHERPORT=\r\n"
    "NNSSLADDRESS=web-proxy.client.example\r\n"
    "NNSSLPORT=3129\r\n"
    "NNSOCKSADDRESS=socks.client.example\r\n"
    "NNSOCKSPORT=1081\r\n"
    "NNSOCKSVERSION=4\r\n"
    "NNWAISADDRESS=\r\n"
    "NNWAISPORT=\r\n"
    "NNDEFHOMEPAGE=http://extranet.client.example/\r\n"
    "EMailFullName=Pat Example (on site)\r\n"
    "EMailAddr=pat@client.example\r\n"
    "EMailReplyToAddr=pat@harbourdental.example\r\n"
    "EMailPOP3Server=pop.client.example\r\n"
    "EMailPOP3Login=guest17\r\n"
    "EMailSMTPServer=smtp.client.example\r\n"
    "EMailSMTPLogin=guest17\r\n"
    "EMailOrganization=Harbour Street Dental\r\n"
    "EMailLeaveMailOnServer=0\r\n";

// kManualSection with some keys' values replaced.
std::string ManualSection(const std::map<std::string, std::string>& acolValues) {
    std::string text;
    for (const std::string& line : bench::SplitLines(kManualSection)) {
        const std::string key = line.substr(0, line.find('='));
        const auto value = acolValues.find(key);
        text += value == acolValues.end() ? line : key + "=" + value->second;
        text += "\r\n";
    }
    return text;
}

// What kManualSection leaves in the prefs.js, by name, besides the SOCKS and mail lines.
std::map<std::string, std::string> ManualProxyPrefs() {
    return {
        {"network.proxy.http", TextPref("network.proxy.http", "web-proxy.client.example")},
        {"network.proxy.http_port", PlainPref("network.proxy.http_port", "3128")},
        {"network.proxy.ftp", TextPref("network.proxy.ftp", "ftp-proxy.client.example")},
        {"network.proxy.ftp_port", PlainPref("network.proxy.ftp_port", "2121")},
        {"network.proxy.ssl", TextPref("network.proxy.ssl", "web-proxy.client.example")},
        {"network.proxy.ssl_port", PlainPref("network.proxy.ssl_port", "3129")},
        {"network.proxy.gopher", TextPref("network.proxy.gopher", "")},
        {"network.proxy.gopher_port", PlainPref("network.proxy.gopher_port", "0")},
        {"network.proxy.wais", TextPref("network.proxy.wais", "")},
        {"network.proxy.wais_port", PlainPref("network.proxy.wais_port", "0")},
        {"network.proxy.no_proxies_on",
         TextPref("network.proxy.no_proxies_on", "localhost, .client.example")},
        {"network.proxy.type", PlainPref("network.proxy.type", "1")},
        {"browser.startup.homepage",
         TextPref("browser.startup.homepage", "http://extranet.client.example/")},
    };
}

// Every line ends in CR LF, the last one included.
void ExpectCrLfOnly(const std::string& astrText) {
    for (size_t i = 0; i < astrText.size(); ++i) {
        if (astrText[i] == '\n') {
            ASSERT_TRUE(i > 0 && astrText[i - 1] == '\r') << "bare LF at byte " << i;
        }
    }
    EXPECT_EQ("\r\n", astrText.substr(astrText.size() - 2));
}

// --- Reading -------------------------------------------------------------------

TEST_F(NavigatorLibTest, LoadsANetscape4Profile) {
    InstallNetscape("win98-netscape4");
    NavigatorLib lib;
    lib.LoadConfiguration();

    EXPECT_EQ("proxy.harbourdental.example", lib.HTTPAddress());
    EXPECT_EQ("8080", lib.HTTPPort());
    EXPECT_EQ("proxy.harbourdental.example", lib.FTPAddress());
    EXPECT_EQ("8080", lib.FTPPort());
    EXPECT_EQ("", lib.SecureAddress());
    EXPECT_EQ("", lib.SecurePort());
    EXPECT_EQ("socks.harbourdental.example", lib.SocksAddress());
    EXPECT_EQ("1080", lib.SocksPort());
    EXPECT_EQ("", lib.SocksVersion());
    EXPECT_EQ("localhost, .harbourdental.example", lib.ProxyExceptions());
    EXPECT_TRUE(lib.ProxyEnabled());
    EXPECT_FALSE(lib.ConnectViaLAN());
    EXPECT_EQ("http://intranet.harbourdental.example/", lib.DefaultHomePage());
    EXPECT_EQ("Pat Example", lib.EMailFullName());
    EXPECT_EQ("pat@harbourdental.example", lib.EMailAddr());
    EXPECT_EQ("", lib.EMailReplyToAddr());
    EXPECT_EQ("mail.harbourdental.example", lib.EMailPOP3Server());
    EXPECT_EQ("pat", lib.EMailPOP3Login());
    EXPECT_EQ("mail.harbourdental.example", lib.EMailSMTPServer());
    EXPECT_EQ("", lib.EMailSMTPLogin());
    EXPECT_EQ("Harbour Street Dental", lib.EMailOrganization());
    EXPECT_TRUE(lib.EMailLeaveMailOnServer());
    EXPECT_FALSE(lib.IsModified());
}

TEST_F(NavigatorLibTest, LoadsTheConnectionTypeOfEachProfile) {
    InstallNetscape("nt40-netscape4");
    InstallNetscape("xp-netscape7");
    const struct {
        const char* profile;
        bool direct, manual;
        const char* autoConfigURL;
        const char* homePage;
    } cases[] = {
        {"pat", false, true, "", "http://www.northwind.example/"},
        {"lee_chan", false, false, "http://gate.northwind.example/proxy.pac",
         "http://crew.northwind.example/"},
        {"sam", true, false, "", "about:blank"},
        // Mozilla 1.x, LF line ends.
        {"Home Office", true, false, "", "about:blank"},
    };
    NavigatorLib lib;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.profile);
        lib.SetCurrentProfile(c.profile);
        lib.LoadConfiguration();
        EXPECT_EQ(c.direct, lib.ConnectViaLAN());
        EXPECT_EQ(c.manual, lib.ProxyEnabled());
        EXPECT_EQ(c.autoConfigURL, lib.AutoConfigURL());
        EXPECT_EQ(c.homePage, lib.DefaultHomePage());
        EXPECT_FALSE(lib.IsModified());
    }
}

TEST_F(NavigatorLibTest, LoadsAMozillaProfileWithTheLaterNames) {
    InstallNetscape("xp-netscape7");
    NavigatorLib lib;
    lib.LoadConfiguration();

    EXPECT_EQ("work", lib.CurrentProfile());
    EXPECT_EQ("proxy.okafor-consulting.example", lib.HTTPAddress());
    EXPECT_EQ("8080", lib.SecurePort());
    EXPECT_EQ("socks.okafor-consulting.example", lib.SocksAddress());
    EXPECT_EQ("1080", lib.SocksPort());
    // Absent: Netscape 6 and later take SOCKS 5.
    EXPECT_EQ("5", lib.SocksVersion());
    EXPECT_EQ("localhost, 127.0.0.1, .okafor-consulting.example", lib.ProxyExceptions());
    EXPECT_TRUE(lib.ProxyEnabled());
    // Netscape 7 keeps its mail accounts elsewhere.
    EXPECT_EQ("", lib.EMailFullName());
}

TEST_F(NavigatorLibTest, ProfileWithoutPrefsFileKeepsTheSettings) {
    InstallNetscape("xp-netscape7");
    NavigatorLib lib;
    lib.SetHTTPAddress("kept.example");
    lib.SetCurrentProfile("nobody");
    lib.LoadConfiguration();
    EXPECT_EQ("kept.example", lib.HTTPAddress());
    EXPECT_FALSE(lib.IsModified());
}

// --- Applying ------------------------------------------------------------------

TEST_F(NavigatorLibTest, AppliesTheAreaToANetscape4Profile) {
    InstallNetscape("win98-netscape4");
    const std::vector<std::string> before = FileLines(kPatPrefs);
    NavigatorLib lib;
    lib.LoadConfiguration();
    ApplySection(lib, kManualSection);

    EXPECT_TRUE(Boxes().empty()) << DescribeBoxes();
    EXPECT_FALSE(lib.IsModified());
    const std::string text = bench::ReadFileText(kPatPrefs);
    ExpectCrLfOnly(text);
    const std::vector<std::string> after = bench::SplitLines(text);
    EXPECT_EQ(OtherLines(before), OtherLines(after));

    std::map<std::string, std::string> expected = ManualProxyPrefs();
    expected["network.hosts.socks_server"] =
        TextPref("network.hosts.socks_server", "socks.client.example");
    expected["network.hosts.socks_serverport"] =
        PlainPref("network.hosts.socks_serverport", "1081");
    expected["mail.identity.username"] =
        TextPref("mail.identity.username", "Pat Example (on site)");
    expected["mail.identity.useremail"] = TextPref("mail.identity.useremail", "pat@client.example");
    expected["mail.identity.reply_to"] =
        TextPref("mail.identity.reply_to", "pat@harbourdental.example");
    expected["mail.identity.organization"] =
        TextPref("mail.identity.organization", "Harbour Street Dental");
    expected["network.hosts.pop_server"] =
        TextPref("network.hosts.pop_server", "pop.client.example");
    expected["mail.pop_name"] = TextPref("mail.pop_name", "guest17");
    expected["network.hosts.smtp_server"] =
        TextPref("network.hosts.smtp_server", "smtp.client.example");
    expected["mail.smtp_name"] = TextPref("mail.smtp_name", "guest17");
    expected["mail.leave_on_server"] = PlainPref("mail.leave_on_server", "false");
    EXPECT_EQ(expected, NavigatorPrefLines(after));

    // A preference the file held keeps its place.
    const auto placeOf = [](const std::vector<std::string>& lines, const std::string& name) {
        for (size_t i = 0; i < lines.size(); ++i)
            if (PrefNameOf(lines[i]) == name) return i;
        return lines.size();
    };
    EXPECT_EQ(placeOf(before, "network.proxy.http_port"),
              placeOf(after, "network.proxy.http_port"));
    EXPECT_EQ(placeOf(before, "mail.leave_on_server"), placeOf(after, "mail.leave_on_server"));

    // And the profile reads back as applied.
    NavigatorLib again;
    again.LoadConfiguration();
    EXPECT_EQ("socks.client.example", again.SocksAddress());
    EXPECT_EQ("3129", again.SecurePort());
    EXPECT_EQ("guest17", again.EMailSMTPLogin());
    EXPECT_FALSE(again.EMailLeaveMailOnServer());
}

TEST_F(NavigatorLibTest, AppliesTheAreaToTheFirstMozillaProfileWhenNoneIsNamed) {
    InstallNetscape("xp-netscape7");
    const std::vector<std::string> before = FileLines(WorkPrefs());
    const std::string homeBefore = bench::ReadFileText(HomePrefs());
    NavigatorLib lib;
    lib.LoadConfiguration();
    mWatcher.Clear();  // the notice
    ApplySection(lib, kManualSection);

    EXPECT_EQ("work", lib.CurrentProfile());
    EXPECT_TRUE(Boxes().empty()) << DescribeBoxes();
    const std::string text = bench::ReadFileText(WorkPrefs());
    ExpectCrLfOnly(text);
    const std::vector<std::string> after = bench::SplitLines(text);
    EXPECT_EQ(OtherLines(before), OtherLines(after));

    // Later names for SOCKS, its version an integer; no mail preferences for 7.2.
    std::map<std::string, std::string> expected = ManualProxyPrefs();
    expected["network.proxy.socks"] = TextPref("network.proxy.socks", "socks.client.example");
    expected["network.proxy.socks_port"] = PlainPref("network.proxy.socks_port", "1081");
    expected["network.proxy.socks_version"] = PlainPref("network.proxy.socks_version", "4");
    EXPECT_EQ(expected, NavigatorPrefLines(after));
    EXPECT_EQ(homeBefore, bench::ReadFileText(HomePrefs()));

    // The section names the profile applied.
    ScratchFile saved("navigator-saved");
    lib.SaveConfigurationFile(saved.Path());
    EXPECT_NE(std::string::npos, saved.Read().find("NNPROFILE=work\r\n")) << saved.Read();
}

TEST_F(NavigatorLibTest, AppliesANamedMozillaProfileWithLfLineEnds) {
    InstallNetscape("xp-netscape7");
    const std::vector<std::string> before = FileLines(HomePrefs());
    NavigatorLib lib;
    ApplySection(lib, ManualSection({{"NNPROFILE", "Home Office"}}));

    EXPECT_EQ("Home Office", lib.CurrentProfile());
    const std::string text = bench::ReadFileText(HomePrefs());
    ExpectCrLfOnly(text);
    EXPECT_EQ(OtherLines(before), OtherLines(bench::SplitLines(text)));
    EXPECT_EQ(PlainPref("network.proxy.type", "1"),
              NavigatorPrefLines(bench::SplitLines(text))["network.proxy.type"]);
}

TEST_F(NavigatorLibTest, AppliesEachConnectionType) {
    InstallNetscape("xp-netscape7");
    const struct {
        const char* name;
        const char* keys;
        const char* type;           // the line's value; nullptr: no line
        const char* autoConfigURL;  // nullptr: no line
    } cases[] = {
        {"direct", "NNDIRECTCONNECTION=1\r\nNNPROXYENABLE=0\r\n", nullptr, nullptr},
        {"manual", "NNDIRECTCONNECTION=0\r\nNNPROXYENABLE=1\r\n", "1", nullptr},
        {"automatic", "NNDIRECTCONNECTION=0\r\nNNPROXYENABLE=0\r\n", "2",
         "http://wpad.client.example/wpad.dat"},
        // Both ticked: the manual proxies win.
        {"direct and manual", "NNDIRECTCONNECTION=1\r\nNNPROXYENABLE=1\r\n", "1", nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        RemoveNetscape();
        InstallNetscape("xp-netscape7");
        NavigatorLib lib;
        ApplySection(
            lib, std::string("NNAUTOCONFIGURL=http://wpad.client.example/wpad.dat\r\n") + c.keys);
        auto prefs = NavigatorPrefLines(FileLines(WorkPrefs()));
        EXPECT_EQ(c.type ? PlainPref("network.proxy.type", c.type) : "",
                  prefs["network.proxy.type"]);
        EXPECT_EQ(c.autoConfigURL ? TextPref("network.proxy.autoconfig_url", c.autoConfigURL) : "",
                  prefs["network.proxy.autoconfig_url"]);

        NavigatorLib again;
        again.LoadConfiguration();
        EXPECT_EQ(c.type == nullptr, again.ConnectViaLAN());
        EXPECT_EQ(c.type && std::string(c.type) == "1", again.ProxyEnabled());
    }
}

TEST_F(NavigatorLibTest, PortsAreWrittenAsIntegers) {
    InstallNetscape("xp-netscape7");
    const struct {
        const char* port;
        const char* written;
    } cases[] = {{"8080", "8080"}, {"", "0"},   {" 80", "80"},     {"0080", "80"},
                 {"81x", "81"},    {"-5", "0"}, {"32767", "32767"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.port);
        NavigatorLib lib;
        ApplySection(lib, std::string("NNPROXYENABLE=1\r\nNNHTTPPORT=") + c.port + "\r\n");
        EXPECT_EQ(PlainPref("network.proxy.http_port", c.written),
                  NavigatorPrefLines(FileLines(WorkPrefs()))["network.proxy.http_port"]);
    }
}

TEST_F(NavigatorLibTest, PortBeyondAnIntegerPreferenceAppliesNothing) {
    InstallNetscape("win98-netscape4");
    const std::string before = bench::ReadFileText(kPatPrefs);
    NavigatorLib lib;
    ApplySection(lib, ManualSection({{"NNSOCKSPORT", "40000"}, {"NNPROFILE", "pat"}}));

    ASSERT_EQ(1u, Boxes().size()) << DescribeBoxes();
    EXPECT_EQ("Roamwise", Boxes()[0].Title);
    EXPECT_EQ("Could not apply Navigator preferences for profile 'pat'.", Boxes()[0].Text);
    EXPECT_TRUE(Boxes()[0].Exclamation);
    EXPECT_EQ(before, bench::ReadFileText(kPatPrefs));
    EXPECT_FALSE(lib.IsModified());
}

TEST_F(NavigatorLibTest, ReadOnlyPrefsFileAppliesNothing) {
    InstallNetscape("win98-netscape4");
    SetFileAttributesA(kPatPrefs, FILE_ATTRIBUTE_READONLY);
    const std::string before = bench::ReadFileText(kPatPrefs);
    NavigatorLib lib;
    ApplySection(lib, kManualSection);

    ASSERT_EQ(1u, Boxes().size()) << DescribeBoxes();
    EXPECT_EQ("Could not apply Navigator preferences for profile 'pat'.", Boxes()[0].Text);
    EXPECT_EQ(before, bench::ReadFileText(kPatPrefs));
}

TEST_F(NavigatorLibTest, ProfileWithoutPrefsFileIsReportedOnApplying) {
    InstallNetscape("win98-netscape4");
    const std::string before = bench::ReadFileText(kPatPrefs);
    NavigatorLib lib;
    ApplySection(lib, ManualSection({{"NNPROFILE", "reception"}}));

    ASSERT_EQ(1u, Boxes().size()) << DescribeBoxes();
    EXPECT_EQ("Roamwise", Boxes()[0].Title);
    EXPECT_EQ(kNoPrefsFileText, Boxes()[0].Text);
    EXPECT_TRUE(Boxes()[0].Exclamation);
    EXPECT_EQ(before, bench::ReadFileText(kPatPrefs));
    EXPECT_FALSE(lib.IsModified());
}

TEST_F(NavigatorLibTest, UnchangedAreaIsNotWritten) {
    InstallNetscape("win98-netscape4");
    const std::string before = bench::ReadFileText(kPatPrefs);
    NavigatorLib lib;
    ProfileSection section(kManualSection);
    lib.LoadConfigurationFile(section.Path());
    ASSERT_FALSE(lib.IsModified());
    lib.ApplyConfiguration();
    EXPECT_EQ(before, bench::ReadFileText(kPatPrefs));
    EXPECT_TRUE(Boxes().empty()) << DescribeBoxes();
}

TEST_F(NavigatorLibTest, SingleSettingsReachTheCurrentProfileOnTheirOwn) {
    InstallNetscape("nt40-netscape4");
    NavigatorLib lib;
    lib.SetCurrentProfile("sam");
    lib.GetDefaultHomePage();
    EXPECT_EQ("about:blank", lib.DefaultHomePage());

    lib.SetEMailReplyToAddr("crew@northwind.example");
    lib.SetEMailReplyToAddr();
    EXPECT_EQ(TextPref("mail.identity.reply_to", "crew@northwind.example"),
              NavigatorPrefLines(FileLines(lib.PrefsFileOf("sam")))["mail.identity.reply_to"]);
    // The others' files are not touched.
    EXPECT_EQ("", NavigatorPrefLines(FileLines(lib.PrefsFileOf("pat")))["mail.identity.reply_to"]);
}

}  // namespace
}  // namespace rwz::test
