// Applying the Internet Explorer and Opera areas of a profile from the command
// line (/hidden /load ... /apply) on the simulated machines: the registry
// values and "opera6.ini" keys written, the forms kept where the profile
// changes nothing, and the question asked while Opera runs.
#include <gtest/gtest.h>

#include <windows.h>

#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "bench/Bench.h"
#include "bench/standins/StandIns.h"

namespace {

const char kProfile[] = "C:\\Profiles\\away.rwz";
const char kApply[] = "/hidden /load C:\\Profiles\\away.rwz /apply";
const char kInternetSettings[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";
const char kConnections[] =
    "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\Connections";
const char kExplorerMain[] = "Software\\Microsoft\\Internet Explorer\\Main";
const char kAutoDial[] = "SOFTWARE\\Microsoft\\RAS AutoDial\\Default";
const char kRemoteAccess[] = "RemoteAccess";
const char kOperaIni[] = "C:\\Program Files\\Opera7\\profile\\opera6.ini";
const char kQuestionTitle[] = "Apply Configuration";
const char kOperaQuestion[] =
    "Opera is currently running.  Any changes applied while Opera is open may not be retained "
    "when you close your browser.\r\n\r\nWould you like Roamwise to close your browser before "
    "applying the changes?";

// --- The registry as the raw API gives it.

struct RawValue {
    DWORD type = REG_NONE;
    std::string data;  // the bytes as stored
    bool operator==(const RawValue& other) const {
        return type == other.type && data == other.data;
    }
};

RawValue Sz(const std::string& text) {
    return {REG_SZ, text + '\0'};
}
RawValue Dword(DWORD number) {
    return {REG_DWORD, std::string(reinterpret_cast<const char*>(&number), 4)};
}

std::ostream& operator<<(std::ostream& out, const RawValue& value) {
    out << "type " << value.type << " [";
    static const char hex[] = "0123456789abcdef";
    for (unsigned char c : value.data) {
        if (c >= 0x20 && c < 0x7f)
            out << c;
        else
            out << "\\x" << hex[c >> 4] << hex[c & 15];
    }
    return out << "]";
}

// A place in the registry: root, key, value name.
struct Place {
    HKEY root;
    std::string key;
    std::string name;
    bool operator<(const Place& other) const {
        if (root != other.root) return root < other.root;
        if (key != other.key) return key < other.key;
        return name < other.name;
    }
};

std::ostream& operator<<(std::ostream& out, const Place& place) {
    return out << (place.root == HKEY_LOCAL_MACHINE ? "HKLM\\" : "HKCU\\") << place.key << " \""
               << place.name << "\"";
}

using Snapshot = std::map<Place, RawValue>;

// Every value of a key (not of its subkeys); nothing when it is missing.
void AddValues(Snapshot& snapshot, HKEY root, const std::string& key) {
    HKEY opened = nullptr;
    if (RegOpenKeyExA(root, key.c_str(), 0, KEY_QUERY_VALUE, &opened) != ERROR_SUCCESS) return;
    for (DWORD index = 0;; ++index) {
        char name[16384];
        DWORD nameSize = sizeof name;
        BYTE data[65536];
        DWORD dataSize = sizeof data;
        DWORD type = 0;
        if (RegEnumValueA(opened, index, name, &nameSize, nullptr, &type, data, &dataSize) !=
            ERROR_SUCCESS)
            break;
        snapshot[{root, key, name}] = {type, std::string(reinterpret_cast<char*>(data), dataSize)};
    }
    RegCloseKey(opened);
}

// The values under every key Internet Explorer's back end reads or writes.
Snapshot ExplorerRegistry() {
    Snapshot snapshot;
    AddValues(snapshot, HKEY_CURRENT_USER, kInternetSettings);
    AddValues(snapshot, HKEY_CURRENT_USER, kConnections);
    AddValues(snapshot, HKEY_CURRENT_USER, kExplorerMain);
    AddValues(snapshot, HKEY_CURRENT_USER, kRemoteAccess);
    AddValues(snapshot, HKEY_LOCAL_MACHINE, kAutoDial);
    return snapshot;
}

// Every difference between two snapshots, one line each.
std::string Differences(const Snapshot& expected, const Snapshot& actual) {
    std::ostringstream out;
    for (const auto& [place, value] : expected) {
        auto found = actual.find(place);
        if (found == actual.end())
            out << place << ": missing, expected " << value << "\n";
        else if (!(found->second == value))
            out << place << ": " << found->second << ", expected " << value << "\n";
    }
    for (const auto& [place, value] : actual)
        if (!expected.count(place)) out << place << ": unexpected " << value << "\n";
    return out.str();
}

// --- "opera6.ini" as it stands in the file.

// Every "key=value" line by "section/key" (the first of duplicates).
std::map<std::string, std::string> IniLines(const std::string& path) {
    std::map<std::string, std::string> keys;
    std::string section;
    for (const std::string& line : bench::SplitLines(bench::ReadFileText(path))) {
        if (!line.empty() && line[0] == '[') {
            section = line.substr(1, line.find(']') - 1);
            continue;
        }
        const size_t equals = line.find('=');
        if (equals == std::string::npos || line[0] == ';') continue;
        keys.emplace(section + "/" + line.substr(0, equals), line.substr(equals + 1));
    }
    return keys;
}

std::string Differences(const std::map<std::string, std::string>& expected,
                        const std::map<std::string, std::string>& actual) {
    std::ostringstream out;
    for (const auto& [key, value] : expected) {
        auto found = actual.find(key);
        if (found == actual.end())
            out << key << ": missing, expected \"" << value << "\"\n";
        else if (found->second != value)
            out << key << ": \"" << found->second << "\", expected \"" << value << "\"\n";
    }
    for (const auto& [key, value] : actual)
        if (!expected.count(key)) out << key << ": unexpected \"" << value << "\"\n";
    return out.str();
}

FILETIME LastWrite(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data);
    return data.ftLastWriteTime;
}

bool SameTime(const FILETIME& a, const FILETIME& b) {
    return a.dwLowDateTime == b.dwLowDateTime && a.dwHighDateTime == b.dwHighDateTime;
}

// --- Profiles.

// A profile of the browser areas alone; the network area stays off.
std::string Profile(bool explorer, bool opera) {
    std::string text =
        ";--------------------------------------------\r\n"
        "; Roamwise - v1.0.0\r\n"
        ";\r\n"
        "; Roamwise configuration profile\r\n"
        ";--------------------------------------------\r\n"
        "\r\n"
        "[Enabled Sections]\r\n"
        "General=0\r\n";
    text += std::string("Internet Explorer=") + (explorer ? "1" : "0") + "\r\n";
    text += "Netscape Navigator=0\r\n";
    text += std::string("Opera=") + (opera ? "1" : "0") + "\r\n";
    text +=
        "[Advanced]\r\n"
        "AutoApply=0\r\n"
        "AutoReboot=0\r\n"
        "Comments=Away from the office\r\n"
        "[Internet Explorer]\r\n"
        "ProxyServer=http=home.proxy.test:3128;ftp=ftp.home.test:21;socks=socks.home.test:1080\r\n"
        "DialupISP=Home ISP\r\n"
        "ProxyEnable=1\r\n"
        "EnableAutoDial=1\r\n"
        "AutoDetectSettings=1\r\n"
        "AutoConfigURL=http://wpad.home.test/proxy.pac\r\n"
        "ProxyOverride=*.home.test;<local>\r\n"
        "DisablePWDCache=1\r\n"
        "DefHomePage=http://www.home.test/\r\n"
        "[Opera]\r\n"
        "DefHomePage=http://www.home.test/\r\n"
        "AutoConfigURL=http://wpad.home.test/proxy.pac\r\n"
        "AutoConfigURLEnabled=1\r\n"
        "ProxyExceptions=*.home.test\r\n"
        "ProxyExceptionsEnabled=1\r\n"
        "HTTPProxyEnabled=1\r\n"
        "HTTPProxyAddress=home.proxy.test\r\n"
        "HTTPProxyPort=3128\r\n"
        "HTTPSProxyEnabled=0\r\n"
        "HTTPSProxyAddress=proxy.northwind.test\r\n"
        "HTTPSProxyPort=8443\r\n"
        "FTPProxyEnabled=1\r\n"
        "FTPProxyAddress=proxy.northwind.test\r\n"
        "FTPProxyPort=2121\r\n"
        "GopherProxyEnabled=1\r\n"
        "GopherProxyAddress=gopher.home.test\r\n"
        "GopherProxyPort=\r\n"
        "WAISProxyEnabled=0\r\n"
        "WAISProxyAddress=\r\n"
        "WAISProxyPort=\r\n"
        "UserAgentID=1\r\n"
        "UserAgentVersion=1\r\n";
    return text;
}

// What the profile's Opera area changes in the laptop's "opera6.ini"; every
// other key stays as Opera wrote it (the HTTPS and FTP servers, the WAIS
// proxy, the exceptions switch are the laptop's own).
std::map<std::string, std::string> OperaIniAfterApply(std::map<std::string, std::string> keys) {
    keys["User Prefs/Home URL"] = "http://www.home.test/";
    keys["Proxy/Automatic Proxy Configuration URL"] = "http://wpad.home.test/proxy.pac";
    keys["Proxy/Use Automatic Proxy Configuration"] = "1";
    keys["Proxy/No Proxy Servers"] = "*.home.test";
    keys["Proxy/HTTP Server"] = "home.proxy.test:3128";
    keys["Proxy/Use HTTPS"] = "0";
    keys["Proxy/Use GOPHER"] = "1";
    keys["Proxy/Gopher Server"] = "gopher.home.test";
    keys["User Agent/Spoof UserAgent ID"] = "1";
    keys["User Agent/Spoof Version Code"] = "1";
    return keys;
}

bench::RunResult RunRwz(const std::string& args, std::vector<bench::Answer> script = {}) {
    bench::RunOptions options;
    options.args = args;
    options.script = std::move(script);
    options.timeoutMs = 60000;
    return bench::RunRwz(options);
}

bool StillRunning(HANDLE process) {
    return WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
}

// Ends a stand-in the test started, whatever the case did with it.
struct StandIn {
    HANDLE process = nullptr;
    ~StandIn() {
        if (!process) return;
        if (StillRunning(process)) TerminateProcess(process, 1);
        CloseHandle(process);
    }
};

// A top-level window of a browser's class, kept open by a thread of the test
// with its own message loop (so that a close request would be honoured).
class BrowserWindow {
  public:
    explicit BrowserWindow(const char* windowClass) {
        HANDLE ready = CreateEventA(nullptr, TRUE, FALSE, nullptr);
        mThread = std::thread([this, windowClass, ready] {
            WNDCLASSA wc = {};
            wc.lpfnWndProc = DefWindowProcA;
            wc.hInstance = GetModuleHandleA(nullptr);
            wc.lpszClassName = windowClass;
            RegisterClassA(&wc);
            mWindow = CreateWindowA(windowClass, "", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr,
                                    nullptr, wc.hInstance, nullptr);
            mThreadId = GetCurrentThreadId();
            SetEvent(ready);
            MSG message;
            while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
        });
        WaitForSingleObject(ready, 10000);
        CloseHandle(ready);
    }
    ~BrowserWindow() {
        PostThreadMessageA(mThreadId, WM_QUIT, 0, 0);
        mThread.join();
    }
    bool Open() const { return IsWindow(mWindow) != FALSE; }

  private:
    std::thread mThread;
    HWND mWindow = nullptr;
    DWORD mThreadId = 0;
};

// --- Internet Explorer.

struct ExplorerCase {
    const char* machine;
    // What applying the profile changes; every other value keeps its type and bytes.
    std::vector<std::pair<Place, RawValue>> changes;
    // Automatic detection goes on: bit value 8 of byte 8 of the connection record.
    bool setsAutoDetect;
};

void PrintTo(const ExplorerCase& aCase, std::ostream* out) {
    *out << aCase.machine;
}

class ExplorerApply : public testing::TestWithParam<ExplorerCase> {};

TEST_P(ExplorerApply, WritesWhatTheProfileChangesAndKeepsTheRest) {
    bench::Machine machine(GetParam().machine);
    bench::WriteFile(kProfile, Profile(true, false));
    const Snapshot before = ExplorerRegistry();
    ASSERT_FALSE(before.empty());

    bench::RunResult run = RunRwz(kApply);

    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    EXPECT_TRUE(run.DialogsAsScripted()) << run.Describe();
    EXPECT_NE(std::string::npos, run.log.find("clsExplorer - ApplyConfiguration")) << run.log;
    Snapshot expected = before;
    for (const auto& [place, value] : GetParam().changes) expected[place] = value;
    if (GetParam().setsAutoDetect) {
        RawValue& record = expected[{HKEY_CURRENT_USER, kConnections, "DefaultConnectionSettings"}];
        ASSERT_GT(record.data.size(), 8u);
        record.data[8] = static_cast<char>(record.data[8] | 8);
    }
    const std::string differences = Differences(expected, ExplorerRegistry());
    EXPECT_TRUE(differences.empty()) << differences;
}

Place IS(const char* name) {
    return {HKEY_CURRENT_USER, kInternetSettings, name};
}

const char kComposedProxies[] =
    "ftp=ftp.home.test:21;http=home.proxy.test:3128;socks=socks.home.test:1080";

INSTANTIATE_TEST_SUITE_P(
    Machines, ExplorerApply,
    testing::Values(
        // Per-protocol proxies at the office, LAN, automatic detection on
        // (already so: the record is left alone), no script, dial-up entry of
        // the dial-up service.
        ExplorerCase{
            "xp-laptop",
            {{IS("ProxyServer"), Sz(kComposedProxies)},
             {IS("ProxyOverride"), Sz("*.home.test;<local>")},
             {IS("EnableAutodial"), Dword(1)},
             {IS("AutoConfigURL"), Sz("http://wpad.home.test/proxy.pac")},
             {IS("DisablePasswordCaching"), Dword(1)},
             {{HKEY_CURRENT_USER, kExplorerMain, "Start Page"}, Sz("http://www.home.test/")},
             {{HKEY_LOCAL_MACHINE, kAutoDial, "DefaultInternet"}, Sz("Home ISP")}},
            false},
        // One proxy for all, dial-up already (binary flags stay as they are),
        // automatic detection off: only bit 8 of the record's byte 8 is set;
        // the entry goes to the user's RemoteAccess key.
        ExplorerCase{
            "win98-desktop",
            {{IS("ProxyServer"), Sz(kComposedProxies)},
             {IS("ProxyOverride"), Sz("*.home.test;<local>")},
             {IS("AutoConfigURL"), Sz("http://wpad.home.test/proxy.pac")},
             {IS("DisablePasswordCaching"), Dword(1)},
             {{HKEY_CURRENT_USER, kExplorerMain, "Start Page"}, Sz("http://www.home.test/")},
             {{HKEY_CURRENT_USER, kRemoteAccess, "InternetProfile"}, Sz("Home ISP")}},
            true}),
    [](const testing::TestParamInfo<ExplorerCase>& info) {
        std::string name = info.param.machine;
        for (char& c : name)
            if (c == '-') c = '_';
        return name;
    });

// --- Opera.

// The laptop with the stand-in Opera installed; its "opera6.ini" as Opera wrote it.
class OperaApply : public testing::Test {
  protected:
    void SetUp() override {
        bench::Machine machine("xp-laptop");
        mOpera = bench::InstallStandInOpera();
        ASSERT_FALSE(mOpera.empty());
        mBefore = IniLines(kOperaIni);
        ASSERT_EQ("3", mBefore["User Agent/Spoof UserAgent ID"]);
    }
    void ExpectApplied() {
        const std::string differences =
            Differences(OperaIniAfterApply(mBefore), IniLines(kOperaIni));
        EXPECT_TRUE(differences.empty()) << differences;
    }

    std::string mOpera;
    std::map<std::string, std::string> mBefore;
};

TEST_F(OperaApply, WritesWhatTheProfileChangesAndKeepsTheRest) {
    bench::WriteFile(kProfile, Profile(false, true));
    const Snapshot explorer = ExplorerRegistry();

    bench::RunResult run = RunRwz(kApply);

    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    EXPECT_TRUE(run.DialogsAsScripted()) << run.Describe();
    ExpectApplied();
    // The Internet Explorer area is off in this profile.
    EXPECT_TRUE(Differences(explorer, ExplorerRegistry()).empty());
}

TEST_F(OperaApply, RunningOperaIsClosedFirstOnYes) {
    bench::WriteFile(kProfile, Profile(false, true));
    StandIn opera;
    opera.process = bench::StartStandIn(mOpera, bench::kOperaWindowClass);

    bench::RunResult run = RunRwz(kApply, {bench::Answer("&Yes").Title(kQuestionTitle)});

    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    EXPECT_TRUE(run.DialogsAsScripted()) << run.Describe();
    ASSERT_EQ(1u, run.dialogs.size()) << run.Describe();
    EXPECT_EQ(kQuestionTitle, run.dialogs[0].title);
    EXPECT_EQ(kOperaQuestion, run.dialogs[0].text);
    EXPECT_EQ((std::vector<std::pair<int, std::string>>{{IDYES, "&Yes"}, {IDNO, "&No"}}),
              run.dialogs[0].buttons);
    // Closed: the stand-in ends when its window is closed.
    EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(opera.process, 5000));
    EXPECT_FALSE(FindWindowA(bench::kOperaWindowClass, nullptr));
    ExpectApplied();
}

TEST_F(OperaApply, RunningOperaStaysOpenOnNoAndTheProfileIsApplied) {
    bench::WriteFile(kProfile, Profile(false, true));
    StandIn opera;
    opera.process = bench::StartStandIn(mOpera, bench::kOperaWindowClass);

    bench::RunResult run = RunRwz(kApply, {bench::Answer("&No").Title(kQuestionTitle)});

    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    EXPECT_TRUE(run.DialogsAsScripted()) << run.Describe();
    ASSERT_EQ(1u, run.dialogs.size()) << run.Describe();
    EXPECT_EQ(kOperaQuestion, run.dialogs[0].text);
    EXPECT_TRUE(StillRunning(opera.process));
    EXPECT_TRUE(FindWindowA(bench::kOperaWindowClass, nullptr));
    ExpectApplied();
}

// A profile saved from the machine itself, with both browsers running: neither
// area differs, so neither is touched and nothing is asked.
TEST_F(OperaApply, AreasThatDoNotDifferAreNeitherAskedAboutNorTouched) {
    bench::MakeFolders("C:\\Profiles");
    bench::RunResult save = RunRwz("/hidden /save C:\\Profiles\\same.rwz");
    ASSERT_EQ(0u, save.exitCode) << save.Describe();
    ASSERT_TRUE(save.DialogsAsScripted()) << save.Describe();
    const std::string same = "C:\\Profiles\\same.rwz";
    ASSERT_TRUE(WritePrivateProfileStringA("Enabled Sections", "General", "0", same.c_str()));
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, same.c_str());
    const std::string saved = bench::ReadFileText(same);
    ASSERT_NE(std::string::npos, saved.find("[Internet Explorer]")) << saved;
    ASSERT_NE(std::string::npos, saved.find("[Opera]")) << saved;

    StandIn opera;
    opera.process = bench::StartStandIn(mOpera, bench::kOperaWindowClass);
    BrowserWindow explorer("IEFrame");
    ASSERT_TRUE(explorer.Open());
    const std::string iniBefore = bench::ReadFileText(kOperaIni);
    const FILETIME iniTime = LastWrite(kOperaIni);
    const Snapshot registryBefore = ExplorerRegistry();

    bench::RunResult run = RunRwz("/hidden /load C:\\Profiles\\same.rwz /apply");

    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    EXPECT_TRUE(run.dialogs.empty()) << run.Describe();
    EXPECT_EQ(std::string::npos, run.log.find("clsExplorer - ApplyConfiguration")) << run.log;
    EXPECT_EQ(std::string::npos, run.log.find("clsOpera - ApplyConfiguration")) << run.log;
    EXPECT_EQ(iniBefore, bench::ReadFileText(kOperaIni));
    EXPECT_TRUE(SameTime(iniTime, LastWrite(kOperaIni)));
    const std::string differences = Differences(registryBefore, ExplorerRegistry());
    EXPECT_TRUE(differences.empty()) << differences;
    EXPECT_TRUE(StillRunning(opera.process));
    EXPECT_TRUE(explorer.Open());
}

}  // namespace
