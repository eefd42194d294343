// Rwz.exe applying a profile's Netscape area from the command line on
// simulated machines with Netscape 4 and Netscape 7: the prefs.js of the
// profile named (or of the first one found) holds the area's preferences and
// every other line as it was; a damaged profile registry does not stop the
// program; a running browser is asked about, and closed or left open.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "bench/Bench.h"
#include "bench/standins/StandIns.h"
#include "NetscapePrefLines.h"
#include "browsers/NetscapeMachine.h"

namespace rwz::test {
namespace {

const char kProfilePath[] = "C:\\Profiles\\x.rwz";
const char kApply[] = "/hidden /load C:\\Profiles\\x.rwz /apply";
const char kQuestionTitle[] = "Apply Configuration";
const char kQuestion[] =
    "Netscape is currently running.  Any changes applied while Netscape is open may not be "
    "retained when you close your browser.\r\n\r\n"
    "Note: If Quick Launch is running, it must be closed before applying any changes.\r\n\r\n"
    "Would you like Roamwise to close your browser before applying the changes?";

const char kPatPrefs[] = "C:\\Program Files\\Netscape\\Users\\pat\\prefs.js";
const char kReceptionPrefs[] = "C:\\Program Files\\Netscape\\Users\\reception\\prefs.js";

std::string WorkPrefs() {
    return AppDataFolder() + "\\Mozilla\\Profiles\\work\\k3x9q2mf.slt\\prefs.js";
}
std::string HomePrefs() {
    return AppDataFolder() + "\\Mozilla\\Profiles\\Home Office\\p0w8r5tz.slt\\prefs.js";
}

// A whole machine: its registry, files and Netscape (stand-in, profile registry).
struct NetscapeMachine {
    explicit NetscapeMachine(const std::string& astrName) : machine(astrName) {
        InstallNetscape(astrName, false);
    }
    bench::Machine machine;
};

void SetNavigatorWarning(const std::string& astrValue) {
    HKEY key = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExA(HKEY_LOCAL_MACHINE, "Software\\Roamwise\\Options", 0,
                                             nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr));
    RegSetValueExA(key, "NavigatorWarning", 0, REG_SZ,
                   reinterpret_cast<const BYTE*>(astrValue.c_str()),
                   static_cast<DWORD>(astrValue.size() + 1));
    RegCloseKey(key);
}

// A profile with only the Netscape area, whose section holds these lines.
void WriteProfile(const std::string& astrSection) {
    bench::WriteFile(kProfilePath,
                     "[Enabled Sections]\r\nGeneral=0\r\nInternet Explorer=0\r\n"
                     "Netscape Navigator=1\r\nOpera=0\r\n[Advanced]\r\nComments=\r\n"
                     "[Netscape Navigator]\r\n" +
                         astrSection);
}

const char kManualSection[] =
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

std::string ManualSection(const std::string& astrProfile) {
    return "NNPROFILE=" + astrProfile + "\r\n" + kManualSection;
}

// What kManualSection leaves in a prefs.js of either family, SOCKS and mail aside.
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

std::map<std::string, std::string> Netscape4ManualPrefs() {
    std::map<std::string, std::string> expected = ManualProxyPrefs();
    const auto text = [&](const char* name, const char* value) {
        expected[name] = TextPref(name, value);
    };
    text("network.hosts.socks_server", "socks.client.example");
    expected["network.hosts.socks_serverport"] =
        PlainPref("network.hosts.socks_serverport", "1081");
    text("mail.identity.username", "Pat Example (on site)");
    text("mail.identity.useremail", "pat@client.example");
    text("mail.identity.reply_to", "pat@harbourdental.example");
    text("mail.identity.organization", "Harbour Street Dental");
    text("network.hosts.pop_server", "pop.client.example");
    text("mail.pop_name", "guest17");
    text("network.hosts.smtp_server", "smtp.client.example");
    text("mail.smtp_name", "guest17");
    expected["mail.leave_on_server"] = PlainPref("mail.leave_on_server", "false");
    return expected;
}

// Netscape 6 and later: the later SOCKS names, no mail preferences.
std::map<std::string, std::string> MozillaManualPrefs() {
    std::map<std::string, std::string> expected = ManualProxyPrefs();
    expected["network.proxy.socks"] = TextPref("network.proxy.socks", "socks.client.example");
    expected["network.proxy.socks_port"] = PlainPref("network.proxy.socks_port", "1081");
    expected["network.proxy.socks_version"] = PlainPref("network.proxy.socks_version", "4");
    return expected;
}

// The prefs.js of a profile after the run holds exactly `expected` as the
// area's preferences, and its other lines as `before`.
void ExpectApplied(const std::string& astrPrefs, const std::vector<std::string>& before,
                   const std::map<std::string, std::string>& expected) {
    const std::vector<std::string> after = FileLines(astrPrefs);
    EXPECT_EQ(OtherLines(before), OtherLines(after)) << astrPrefs;
    EXPECT_EQ(expected, NavigatorPrefLines(after)) << astrPrefs;
}

bool LogHas(const bench::RunResult& run, const std::string& text) {
    return run.log.find(text) != std::string::npos;
}

// The "Netscape Navigator" section of the machine's current configuration,
// as the program saves it.
std::string CurrentSection() {
    bench::MakeFolders("C:\\Profiles");
    const bench::RunResult run = bench::RunRwz("/hidden /save C:\\Profiles\\current.rwz");
    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    const std::string text = bench::ReadFileText("C:\\Profiles\\current.rwz");
    const size_t start = text.find("[Netscape Navigator]\r\n");
    if (start == std::string::npos) {
        ADD_FAILURE() << "no Netscape section in:\n" << text;
        return std::string();
    }
    const size_t body = start + std::string("[Netscape Navigator]\r\n").size();
    const size_t end = text.find("\r\n[", body);
    return end == std::string::npos ? text.substr(body) : text.substr(body, end + 2 - body);
}

std::string Replaced(std::string astrText, const std::string& astrFrom, const std::string& astrTo) {
    const size_t at = astrText.find(astrFrom);
    EXPECT_NE(std::string::npos, at) << astrFrom;
    if (at != std::string::npos) astrText.replace(at, astrFrom.size(), astrTo);
    return astrText;
}

// --- Applying --------------------------------------------------------------------

TEST(NetscapeApply, Netscape4ProfileGetsExactlyTheAreasPreferences) {
    NetscapeMachine machine("win98-netscape4");
    const std::vector<std::string> before = FileLines(kPatPrefs);
    const std::string reception = bench::ReadFileText(kReceptionPrefs);
    WriteProfile(ManualSection("pat"));

    const bench::RunResult run = bench::RunRwz(kApply);
    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    EXPECT_FALSE(run.ShowedWindow()) << run.Describe();
    ExpectApplied(kPatPrefs, before, Netscape4ManualPrefs());
    EXPECT_EQ(reception, bench::ReadFileText(kReceptionPrefs));
    EXPECT_TRUE(LogHas(run, "frmNetscapeTab - Refill")) << run.log;
}

TEST(NetscapeApply, NamedMozillaProfileGetsExactlyTheAreasPreferences) {
    NetscapeMachine machine("xp-netscape7");
    SetNavigatorWarning("1");
    const std::vector<std::string> before = FileLines(HomePrefs());
    const std::string work = bench::ReadFileText(WorkPrefs());
    WriteProfile(ManualSection("Home Office"));

    const bench::RunResult run = bench::RunRwz(kApply);
    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    ExpectApplied(HomePrefs(), before, MozillaManualPrefs());
    EXPECT_EQ(work, bench::ReadFileText(WorkPrefs()));
}

TEST(NetscapeApply, EmptyProfileNameTakesTheFirstOfTwoMozillaProfiles) {
    NetscapeMachine machine("xp-netscape7");
    const std::vector<std::string> before = FileLines(WorkPrefs());
    const std::string home = bench::ReadFileText(HomePrefs());
    WriteProfile(ManualSection(""));

    // No profile is marked current: the notice names the one taken, in the log
    // of a hidden run.
    const bench::RunResult run = bench::RunRwz(kApply);
    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    EXPECT_TRUE(run.dialogs.empty()) << run.Describe();
    EXPECT_TRUE(LogHas(run, "NetscapeNotice - ") && LogHas(run, "'work'")) << run.log;
    ExpectApplied(WorkPrefs(), before, MozillaManualPrefs());
    EXPECT_EQ(home, bench::ReadFileText(HomePrefs()));
}

TEST(NetscapeApply, AccountThatDiffersOnlyInTheMailSettingsIsApplied) {
    NetscapeMachine machine("win98-netscape4");
    const std::string section = CurrentSection();
    ASSERT_NE(std::string::npos, section.find("EMailSMTPLogin=\r\n")) << section;
    const std::vector<std::string> before = FileLines(kPatPrefs);
    WriteProfile(Replaced(section, "EMailSMTPLogin=\r\n", "EMailSMTPLogin=pat.smtp\r\n"));

    const bench::RunResult run = bench::RunRwz(kApply);
    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    const std::map<std::string, std::string> prefs = NavigatorPrefLines(FileLines(kPatPrefs));
    ASSERT_EQ(1u, prefs.count("mail.smtp_name"));
    EXPECT_EQ(TextPref("mail.smtp_name", "pat.smtp"), prefs.at("mail.smtp_name"));
    EXPECT_EQ(NavigatorPrefLines(before).at("network.proxy.http"), prefs.at("network.proxy.http"));
    EXPECT_EQ(OtherLines(before), OtherLines(FileLines(kPatPrefs)));
}

// --- A damaged profile registry ----------------------------------------------------

struct DamagedRegistry {
    const char* name;
    bool truncated;       // a real registry cut short, else text that is none
    const char* warning;  // the option "NavigatorWarning"
};

class NetscapeDamagedRegistry : public testing::TestWithParam<DamagedRegistry> {};

TEST_P(NetscapeDamagedRegistry, ProgramStartsAndEnds) {
    NetscapeMachine machine("xp-netscape7");
    SetNavigatorWarning(GetParam().warning);
    const std::string real = bench::ReadFileText(MozillaRegistryFile());
    ASSERT_GT(real.size(), 200u);
    bench::WriteFile(MozillaRegistryFile(), GetParam().truncated
                                                ? real.substr(0, real.size() / 2)
                                                : "<not a registry>\r\n" + std::string(600, 'x'));

    // A hidden run logs the notice instead of showing it.
    const bool notice = std::string(GetParam().warning) == "0";
    const bench::RunResult run = bench::RunRwz("/hidden");
    EXPECT_EQ(notice, LogHas(run, "NetscapeNotice - ")) << run.log;
    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    EXPECT_FALSE(run.timedOut);
    EXPECT_TRUE(run.DialogsAsScripted()) << run.Describe();
    EXPECT_FALSE(run.ShowedWindow()) << run.Describe();
    EXPECT_TRUE(LogHas(run, "NavigatorLib - Class_Initialize")) << run.log;
    EXPECT_TRUE(LogHas(run, "clsRwzConfig - Class_Terminate")) << run.log;
}

INSTANTIATE_TEST_SUITE_P(Registries, NetscapeDamagedRegistry,
                         testing::Values(DamagedRegistry{"TruncatedWithNotice", true, "0"},
                                         DamagedRegistry{"TruncatedNoticeOff", true, "1"},
                                         DamagedRegistry{"GarbageWithNotice", false, "0"}),
                         [](const testing::TestParamInfo<DamagedRegistry>& info) {
                             return info.param.name;
                         });

// --- A running Netscape --------------------------------------------------------------

// The stand-in registered as this machine's Netscape, started.
HANDLE StartNetscape() {
    std::string program;
    EXPECT_TRUE(bench::ReadRegistryString(
        HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\netscape.exe",
        "", program));
    return bench::StartStandIn(program, "MozillaWindowClass");
}

long long Ticks(const FILETIME& time) {
    return (static_cast<long long>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
}

long long LastWrite(const std::string& astrPath) {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (!GetFileAttributesExA(astrPath.c_str(), GetFileExInfoStandard, &data)) return -1;
    return Ticks(data.ftLastWriteTime);
}

TEST(NetscapeRunning, YesClosesTheBrowserBeforeApplying) {
    NetscapeMachine machine("win98-netscape4");
    const std::vector<std::string> before = FileLines(kPatPrefs);
    WriteProfile(ManualSection("pat"));
    HANDLE netscape = StartNetscape();

    const bench::RunResult run =
        bench::RunRwz(kApply, {bench::Answer("&Yes").Title(kQuestionTitle)});
    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    ASSERT_EQ(1u, run.dialogs.size()) << run.Describe();
    EXPECT_EQ(kQuestion, run.dialogs[0].text);
    EXPECT_EQ("Rwz.exe", run.dialogs[0].exe);

    // The browser had ended when the file was written.
    ASSERT_EQ(WAIT_OBJECT_0, WaitForSingleObject(netscape, 5000));
    FILETIME created, exited, kernel, user;
    ASSERT_TRUE(GetProcessTimes(netscape, &created, &exited, &kernel, &user));
    EXPECT_GT(Ticks(exited), Ticks(created));
    EXPECT_LE(Ticks(exited), LastWrite(kPatPrefs));
    CloseHandle(netscape);
    ExpectApplied(kPatPrefs, before, Netscape4ManualPrefs());
}

TEST(NetscapeRunning, NoAppliesWithTheBrowserOpen) {
    NetscapeMachine machine("win98-netscape4");
    const std::vector<std::string> before = FileLines(kPatPrefs);
    WriteProfile(ManualSection("pat"));
    HANDLE netscape = StartNetscape();

    const bench::RunResult run =
        bench::RunRwz(kApply, {bench::Answer("&No").Title(kQuestionTitle)});
    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    ASSERT_EQ(1u, run.dialogs.size()) << run.Describe();
    EXPECT_EQ(kQuestion, run.dialogs[0].text);

    EXPECT_EQ(static_cast<DWORD>(WAIT_TIMEOUT), WaitForSingleObject(netscape, 0));
    EXPECT_TRUE(FindWindowA("MozillaWindowClass", nullptr));
    TerminateProcess(netscape, 0);
    CloseHandle(netscape);
    ExpectApplied(kPatPrefs, before, Netscape4ManualPrefs());
}

TEST(NetscapeRunning, UnchangedAreaAsksNothingAndWritesNothing) {
    NetscapeMachine machine("win98-netscape4");
    WriteProfile(CurrentSection());
    const std::string prefs = bench::ReadFileText(kPatPrefs);
    const long long written = LastWrite(kPatPrefs);
    HANDLE netscape = StartNetscape();

    const bench::RunResult run = bench::RunRwz(kApply);
    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    EXPECT_TRUE(run.dialogs.empty()) << run.Describe();
    EXPECT_FALSE(LogHas(run, "NavigatorLib - ApplyConfiguration")) << run.log;
    EXPECT_EQ(prefs, bench::ReadFileText(kPatPrefs));
    EXPECT_EQ(written, LastWrite(kPatPrefs));
    EXPECT_EQ(static_cast<DWORD>(WAIT_TIMEOUT), WaitForSingleObject(netscape, 0));
    TerminateProcess(netscape, 0);
    CloseHandle(netscape);
}

}  // namespace
}  // namespace rwz::test
