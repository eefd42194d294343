// Opera 7's settings file "opera6.ini", read and written through the system's
// private-profile functions, and the stand-in Opera of the simulated machines.
#include <gtest/gtest.h>

#include <windows.h>

#include <map>
#include <string>
#include <vector>

#include "TestBrowser.h"
#include "bench/Bench.h"
#include "bench/standins/StandIns.h"
#include "browsers/OperaLib.h"
#include "browsers/modShellFolders.h"

namespace rwz::test {
namespace {

const char kMissing[] = "<missing>";

// A folder of its own for each test, removed with everything in it.
class ScratchFolder {
  public:
    explicit ScratchFolder(const std::string& astrName) {
        char temp[MAX_PATH];
        GetTempPathA(sizeof temp, temp);
        mstrPath = std::string(temp) + "rwz-opera-" + std::to_string(GetCurrentProcessId()) + "-" +
                   astrName;
        Remove(mstrPath);
        bench::MakeFolders(mstrPath);
    }
    ~ScratchFolder() { Remove(mstrPath); }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::string File(const std::string& astrName) const { return mstrPath + "\\" + astrName; }

    static void Remove(const std::string& astrPath) {
        WIN32_FIND_DATAA found;
        HANDLE search = FindFirstFileA((astrPath + "\\*").c_str(), &found);
        if (search != INVALID_HANDLE_VALUE) {
            do {
                const std::string name = found.cFileName;
                if (name == "." || name == "..") continue;
                const std::string path = astrPath + "\\" + name;
                if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
                    Remove(path);
                } else {
                    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
                    DeleteFileA(path.c_str());
                }
            } while (FindNextFileA(search, &found));
            FindClose(search);
        }
        RemoveDirectoryA(astrPath.c_str());
    }

  private:
    std::string mstrPath;
};

std::string MachineIni(const std::string& astrMachine) {
    return bench::SourceDir() + "\\tests\\machines\\" + astrMachine +
           "\\files\\Program Files\\Opera7\\profile\\opera6.ini";
}

// One key as the system reads it; kMissing when absent.
std::string Key(const std::string& astrFile, const char* astrSection, const char* astrKey) {
    char value[1024];
    GetPrivateProfileStringA(astrSection, astrKey, kMissing, value, sizeof value, astrFile.c_str());
    return value;
}

// Every "key=value" line of a file by "section/key", as it stands in the file.
std::map<std::string, std::string> Entries(const std::string& astrText) {
    std::map<std::string, std::string> entries;
    std::string section;
    for (const std::string& line : bench::SplitLines(astrText)) {
        if (!line.empty() && line.front() == '[') {
            section = line;
            continue;
        }
        const std::string::size_type equals = line.find('=');
        if (equals != std::string::npos)
            entries[section + "/" + line.substr(0, equals)] = line.substr(equals);
    }
    return entries;
}

// An OperaLib reading the file given, not the one it found.
class OperaAt : public OperaLib {
  public:
    explicit OperaAt(const std::string& astrFile) {
        SetSettingsFile(astrFile);
        LoadConfiguration();
    }
};

std::string Pair(const std::string& host, const std::string& port) {
    return host + ":" + port;
}

// --- Reading.

TEST(OperaLib, ReadsTheOfficeLaptopsSettings) {
    OperaAt opera(MachineIni("xp-laptop"));
    EXPECT_EQ("http://intranet.northwind.test/", opera.DefaultHomePage());
    EXPECT_TRUE(opera.HTTPProxyEnabled());
    EXPECT_EQ("proxy.northwind.test:8080", Pair(opera.HTTPAddress(), opera.HTTPPort()));
    EXPECT_TRUE(opera.SecureProxyEnabled());
    EXPECT_EQ("proxy.northwind.test:8443", Pair(opera.SecureAddress(), opera.SecurePort()));
    EXPECT_TRUE(opera.FTPProxyEnabled());
    EXPECT_EQ("proxy.northwind.test:2121", Pair(opera.FTPAddress(), opera.FTPPort()));
    EXPECT_FALSE(opera.GopherProxyEnabled());
    EXPECT_EQ(":", Pair(opera.GopherAddress(), opera.GopherPort()));
    EXPECT_FALSE(opera.WAISProxyEnabled());
    EXPECT_TRUE(opera.ProxyEnabled());
    EXPECT_EQ("*.northwind.test;10.*", opera.ProxyExceptions());
    EXPECT_TRUE(opera.ProxyExceptionsEnabled());
    EXPECT_FALSE(opera.UseAutoConfigURL());
    EXPECT_EQ("", opera.AutoConfigURL());
    // "Spoof UserAgent ID" 3 and no version code.
    EXPECT_EQ("Identify as MSIE 6.0", opera.CurrentUserAgent());
    EXPECT_FALSE(opera.IsModified());
}

TEST(OperaLib, ReadsAServerWithoutPortAsHostAlone) {
    OperaAt opera(MachineIni("win98-desktop"));
    EXPECT_EQ("proxy.earthnet.test", opera.HTTPAddress());
    EXPECT_EQ("", opera.HTTPPort());
    EXPECT_TRUE(opera.ProxyEnabled());
    EXPECT_EQ("Identify as Mozilla 4.78", opera.CurrentUserAgent());
}

TEST(OperaLib, AnyProtocolsSwitchEnablesTheProxy) {
    ScratchFolder folder("switches");
    const char* switches[] = {"Use HTTP", "Use HTTPS", "Use FTP", "Use GOPHER", "Use WAIS"};
    for (const char* on : switches) {
        const std::string file = folder.File(std::string(on).substr(4) + ".ini");
        std::string text = "[Proxy]\r\n";
        for (const char* key : switches)
            text += std::string(key) + (key == on ? "=1\r\n" : "=0\r\n");
        bench::WriteFile(file, text);
        OperaAt opera(file);
        EXPECT_TRUE(opera.ProxyEnabled()) << on;
    }
    const std::string none = folder.File("none.ini");
    bench::WriteFile(none, "[Proxy]\r\nUse HTTP=true\r\nUse FTP=01\r\n");
    EXPECT_FALSE(OperaAt(none).ProxyEnabled());  // only "1" is on
}

TEST(OperaLib, ServerValuesSplitAtTheFirstColon) {
    ScratchFolder folder("servers");
    const std::string file = folder.File("opera6.ini");
    bench::WriteFile(file,
                     "[Proxy]\r\nHTTP Server=h:8080\r\nHTTPS Server=s:\r\nFTP Server=:21\r\n"
                     "Gopher Server=http://g:70\r\nWAIS Server=w   \r\n");
    OperaAt opera(file);
    EXPECT_EQ("h:8080", Pair(opera.HTTPAddress(), opera.HTTPPort()));
    EXPECT_EQ("s:", Pair(opera.SecureAddress(), opera.SecurePort()));
    EXPECT_EQ(":21", Pair(opera.FTPAddress(), opera.FTPPort()));
    EXPECT_EQ("http", opera.GopherAddress());
    EXPECT_EQ("//g:70", opera.GopherPort());
    EXPECT_EQ("w:", Pair(opera.WAISAddress(), opera.WAISPort()));
}

TEST(OperaLib, MissingIdentityIsMSIE) {
    ScratchFolder folder("identity");
    const std::string file = folder.File("opera6.ini");
    bench::WriteFile(file, "[User Agent]\r\nSpoof Version Code=2\r\n");
    EXPECT_EQ("Identify as MSIE 6.0", OperaAt(file).CurrentUserAgent());
}

TEST(OperaLib, MissingFileLeavesThePropertiesAsTheyWere) {
    ScratchFolder folder("missing");
    OperaLib opera;
    opera.SetSettingsFile(folder.File("opera6.ini"));
    opera.SetDefaultHomePage("http://kept.test/");
    opera.SetHTTPProxyEnabled(true);
    opera.SetCurrentUserAgent("Identify as Mozilla 3.0");
    opera.LoadConfiguration();
    EXPECT_EQ("http://kept.test/", opera.DefaultHomePage());
    EXPECT_TRUE(opera.HTTPProxyEnabled());
    EXPECT_EQ("Identify as Mozilla 3.0", opera.CurrentUserAgent());
}

TEST(OperaLib, EmptyFileReadsAsNothingSetAndStaysEmpty) {
    ScratchFolder folder("empty");
    const std::string file = folder.File("opera6.ini");
    bench::WriteFile(file, "");
    OperaLib opera;
    opera.SetSettingsFile(file);
    opera.SetDefaultHomePage("http://stale.test/");
    opera.SetFTPProxyEnabled(true);
    opera.LoadConfiguration();
    EXPECT_EQ("", opera.DefaultHomePage());
    EXPECT_FALSE(opera.FTPProxyEnabled());
    EXPECT_FALSE(opera.ProxyEnabled());
    EXPECT_EQ("Identify as MSIE 6.0", opera.CurrentUserAgent());

    opera.SetDefaultHomePage("");
    opera.ApplyConfiguration();
    EXPECT_EQ("", bench::ReadFileText(file));
}

// --- Writing.

TEST(OperaLib, ApplyWritesTheKeysInOperasForms) {
    ScratchFolder folder("apply");
    const std::string file = folder.File("opera6.ini");
    bench::CopyFileReplacing(MachineIni("xp-laptop"), file);
    const std::map<std::string, std::string> before = Entries(bench::ReadFileText(file));

    OperaAt opera(file);
    opera.SetDefaultHomePage("http://home.test/");
    opera.SetHTTPAddress("h");
    opera.SetHTTPPort("3128");
    opera.SetSecureProxyEnabled(false);
    opera.SetFTPAddress("f");
    opera.SetFTPPort("");
    opera.SetGopherProxyEnabled(true);
    opera.SetGopherAddress("g");
    opera.SetGopherPort("70");
    opera.SetWAISAddress("");
    opera.SetWAISPort("210");
    opera.SetProxyExceptions("*.test");
    opera.SetProxyExceptionsEnabled(false);
    opera.SetUseAutoConfigURL(true);
    opera.SetAutoConfigURL("http://wpad.test/proxy.pac");
    opera.SetCurrentUserAgent("Identify as Mozilla 5.0");
    opera.ApplyConfiguration();
    EXPECT_FALSE(opera.IsModified());

    EXPECT_EQ("http://home.test/", Key(file, "User Prefs", "Home URL"));
    EXPECT_EQ("h:3128", Key(file, "Proxy", "HTTP Server"));
    EXPECT_EQ("1", Key(file, "Proxy", "Use HTTP"));
    EXPECT_EQ("0", Key(file, "Proxy", "Use HTTPS"));
    EXPECT_EQ("f", Key(file, "Proxy", "FTP Server"));
    EXPECT_EQ("1", Key(file, "Proxy", "Use GOPHER"));
    EXPECT_EQ("g:70", Key(file, "Proxy", "Gopher Server"));
    EXPECT_EQ(":210", Key(file, "Proxy", "WAIS Server"));
    EXPECT_EQ("*.test", Key(file, "Proxy", "No Proxy Servers"));
    EXPECT_EQ("0", Key(file, "Proxy", "No Proxy Servers Check"));
    EXPECT_EQ("1", Key(file, "Proxy", "Use Automatic Proxy Configuration"));
    EXPECT_EQ("http://wpad.test/proxy.pac",
              Key(file, "Proxy", "Automatic Proxy Configuration URL"));
    EXPECT_EQ("2", Key(file, "User Agent", "Spoof UserAgent ID"));
    EXPECT_EQ("0", Key(file, "User Agent", "Spoof Version Code"));

    // Opera's other settings are all still there, as they were.
    const std::string text = bench::ReadFileText(file);
    const std::map<std::string, std::string> after = Entries(text);
    for (const auto& [key, value] : before) {
        if (key.find("[Proxy]") == 0 || key.find("[User Agent]") == 0 ||
            key == "[User Prefs]/Home URL") {
            continue;
        }
        auto found = after.find(key);
        ASSERT_NE(after.end(), found) << key << " is gone";
        EXPECT_EQ(value, found->second) << key;
    }
    EXPECT_EQ(0u, text.find("Opera Preferences version 2.0\r\n")) << text.substr(0, 200);
}

TEST(OperaLib, KeysTheProfileDoesNotChangeKeepTheirForm) {
    ScratchFolder folder("unchanged");
    const std::string file = folder.File("opera6.ini");
    bench::CopyFileReplacing(MachineIni("win98-desktop"), file);
    // A spare colon, a flag Opera never writes, a code outside the menu.
    WritePrivateProfileStringA("Proxy", "FTP Server", "ftp-gate:", file.c_str());
    WritePrivateProfileStringA("Proxy", "Use WAIS", "yes", file.c_str());
    WritePrivateProfileStringA("User Agent", "Spoof UserAgent ID", "5", file.c_str());
    const std::string before = bench::ReadFileText(file);

    // Saved to a profile, opened again and every setting assigned by the tab.
    ScratchFile profile("opera-unchanged");
    OperaAt(file).SaveConfigurationFile(profile.Path());
    OperaAt opera(file);
    opera.LoadConfigurationFile(profile.Path());
    for (const TextProperty& property : TextProperties()) {
        (opera.*property.Set)((opera.*property.Get)());
    }
    for (const FlagProperty& property : FlagProperties()) {
        (opera.*property.Set)((opera.*property.Get)());
    }
    ASSERT_TRUE(opera.IsModified());
    opera.ApplyConfiguration();
    EXPECT_EQ(before, bench::ReadFileText(file));
}

TEST(OperaLib, ReadOnlyFileIsNotChanged) {
    ScratchFolder folder("readonly");
    const std::string file = folder.File("opera6.ini");
    bench::CopyFileReplacing(MachineIni("xp-laptop"), file);
    const std::string before = bench::ReadFileText(file);
    ASSERT_TRUE(SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_READONLY));

    OperaAt opera(file);
    opera.SetDefaultHomePage("http://home.test/");
    opera.SetHTTPPort("1");
    opera.ApplyConfiguration();
    EXPECT_EQ(before, bench::ReadFileText(file));
    EXPECT_TRUE(opera.IsModified());  // not applied: still to do
}

TEST(OperaLib, FileOpenElsewhereIsNotChanged) {
    ScratchFolder folder("locked");
    const std::string file = folder.File("opera6.ini");
    bench::CopyFileReplacing(MachineIni("xp-laptop"), file);
    const std::string before = bench::ReadFileText(file);
    OperaAt opera(file);
    opera.SetDefaultHomePage("http://home.test/");
    {
        // Held open without sharing, as a running program may.
        HANDLE held = CreateFileA(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
        ASSERT_NE(INVALID_HANDLE_VALUE, held);
        opera.ApplyConfiguration();
        CloseHandle(held);
    }
    EXPECT_EQ(before, bench::ReadFileText(file));
    EXPECT_TRUE(opera.IsModified());
    opera.ApplyConfiguration();  // once the file is free
    EXPECT_EQ("http://home.test/", Key(file, "User Prefs", "Home URL"));
}

TEST(OperaLib, FileInAMissingFolderIsNotCreated) {
    ScratchFolder folder("nofolder");
    const std::string file = folder.File("Opera7\\profile\\opera6.ini");
    OperaLib opera;
    opera.SetSettingsFile(file);
    opera.SetDefaultHomePage("http://home.test/");
    opera.ApplyConfiguration();
    EXPECT_FALSE(bench::FileExists(file));
    EXPECT_TRUE(opera.IsModified());
}

// --- The user agent identities and their codes.

TEST(OperaLib, OffersTheIdentitiesOfItsMenu) {
    OperaLib opera;
    EXPECT_EQ((std::vector<std::string>{"Identify as Opera", "Identify as Mozilla 5.0",
                                        "Identify as Mozilla 4.78", "Identify as Mozilla 3.0",
                                        "Identify as MSIE 6.0"}),
              opera.GetUserAgents());
}

struct AgentCase {
    const char* Agent;
    const char* ID;
    const char* Version;
};

class OperaUserAgent : public testing::TestWithParam<AgentCase> {};

TEST_P(OperaUserAgent, IsWrittenAsItsTwoCodes) {
    ScratchFolder folder("agent");
    const std::string file = folder.File("opera6.ini");
    bench::WriteFile(file, "[User Agent]\r\nSpoof UserAgent ID=1\r\nSpoof Version Code=7\r\n");
    OperaAt opera(file);
    opera.SetCurrentUserAgent(GetParam().Agent);
    opera.ApplyConfiguration();
    EXPECT_EQ(GetParam().ID, Key(file, "User Agent", "Spoof UserAgent ID"));
    EXPECT_EQ(GetParam().Version, Key(file, "User Agent", "Spoof Version Code"));
    EXPECT_EQ(GetParam().Agent, OperaAt(file).CurrentUserAgent());
}

INSTANTIATE_TEST_SUITE_P(
    Agents, OperaUserAgent,
    testing::Values(AgentCase{"Identify as Mozilla 5.0", "2", "0"},
                    AgentCase{"Identify as Mozilla 4.78", "2", "1"},
                    AgentCase{"Identify as Mozilla 3.0", "2", "2"},
                    AgentCase{"Identify as MSIE 6.0", "3", "0"},
                    // The identity the codes already give keeps them as they are.
                    AgentCase{"Identify as Opera", "1", "7"}));

TEST(OperaLib, IdentitiesOfTheCodes) {
    struct Case {
        const char* ID;
        const char* Version;
        const char* Agent;
    };
    const Case cases[] = {
        {"1", "1", "Identify as Opera"},
        {"1", "", "Identify as Opera"},
        {"2", "0", "Identify as Mozilla 5.0"},
        {"2", "1", "Identify as Mozilla 4.78"},
        {"2", "2", "Identify as Mozilla 3.0"},
        {"2", "3", ""},
        {"2", "", ""},
        {"3", "", "Identify as MSIE 6.0"},
        {"3", "9", "Identify as MSIE 6.0"},
        {"4", "0", ""},
        {"", "", ""},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.Agent, OperaLib::UserAgentOf(c.ID, c.Version)) << c.ID << "/" << c.Version;
    }
}

TEST(OperaLib, UnknownIdentityLeavesTheCodes) {
    ScratchFolder folder("unknown-agent");
    const std::string file = folder.File("opera6.ini");
    bench::WriteFile(file, "[User Agent]\r\nSpoof UserAgent ID=2\r\nSpoof Version Code=1\r\n");
    OperaAt opera(file);
    opera.SetCurrentUserAgent("Identify as Lynx");
    opera.ApplyConfiguration();
    EXPECT_EQ("2", Key(file, "User Agent", "Spoof UserAgent ID"));
    EXPECT_EQ("1", Key(file, "User Agent", "Spoof Version Code"));
}

// --- The profile section.

TEST(OperaLib, SectionGivesTheIdentityAndTheProxySwitch) {
    ScratchFolder folder("section");
    const std::string file = folder.File("opera6.ini");
    bench::CopyFileReplacing(MachineIni("win98-desktop"), file);
    ScratchFile profile("opera-section");
    OperaAt(file).SaveConfigurationFile(profile.Path());
    EXPECT_EQ("2", Key(profile.Path(), "Opera", "UserAgentID"));
    EXPECT_EQ("1", Key(profile.Path(), "Opera", "UserAgentVersion"));
    EXPECT_EQ("proxy.earthnet.test", Key(profile.Path(), "Opera", "HTTPProxyAddress"));

    OperaLib opera;
    EXPECT_FALSE(opera.ProxyEnabled());
    opera.LoadConfigurationFile(profile.Path());
    EXPECT_EQ("Identify as Mozilla 4.78", opera.CurrentUserAgent());
    EXPECT_TRUE(opera.ProxyEnabled());
    EXPECT_FALSE(opera.IsModified());
}

TEST(OperaLib, ProfileWithoutCodesLeavesOperasIdentity) {
    ScratchFolder folder("nocodes");
    const std::string file = folder.File("opera6.ini");
    bench::CopyFileReplacing(MachineIni("win98-desktop"), file);
    ScratchFile profile("opera-nocodes");
    profile.Write("[Opera]\r\nDefHomePage=http://profile.test/\r\n");
    OperaAt opera(file);
    opera.LoadConfigurationFile(profile.Path());
    opera.SetDefaultHomePage(opera.DefaultHomePage());
    opera.ApplyConfiguration();
    EXPECT_EQ("http://profile.test/", Key(file, "User Prefs", "Home URL"));
    EXPECT_EQ("2", Key(file, "User Agent", "Spoof UserAgent ID"));
    EXPECT_EQ("1", Key(file, "User Agent", "Spoof Version Code"));
}

// --- Where the settings file is.

TEST(OperaLib, SettingsFileIsTheUsersBeforeTheProgramsOne) {
    const std::string appData = GetShellFolderPath(kShellFolderAppData);
    const std::string programs = GetShellFolderPath(kShellFolderProgramFiles);
    ASSERT_FALSE(appData.empty());
    ASSERT_FALSE(programs.empty());
    const std::string users = appData + "\\Opera\\Opera7\\profile\\opera6.ini";
    const std::string shared = programs + "\\Opera7\\profile\\opera6.ini";
    ScratchFolder::Remove(appData + "\\Opera");
    ScratchFolder::Remove(programs + "\\Opera7");

    EXPECT_EQ(shared, OperaLib::FindSettingsFile());  // neither yet: Opera's own folder
    bench::WriteFile(shared, "[User Prefs]\r\nHome URL=http://shared.test/\r\n");
    EXPECT_EQ(shared, OperaLib::FindSettingsFile());
    bench::WriteFile(users, "[User Prefs]\r\nHome URL=http://user.test/\r\n");
    EXPECT_EQ(users, OperaLib::FindSettingsFile());
    OperaLib opera;
    opera.LoadConfiguration();
    EXPECT_EQ("http://user.test/", opera.DefaultHomePage());

    ScratchFolder::Remove(appData + "\\Opera");
    ScratchFolder::Remove(programs + "\\Opera7");
}

// --- The stand-in Opera of the simulated machines.

TEST(OperaLib, StandInIsFoundInstalledAndClosesOnRequest) {
    bench::Machine::ImportRegFile(bench::SourceDir() + "\\tests\\machines\\xp-laptop\\opera.reg");
    const std::string program = bench::InstallStandInOpera();
    ASSERT_EQ("C:\\Program Files\\Opera7\\Opera.exe", program);

    OperaLib opera;
    EXPECT_EQ("7.54", opera.VersionString());
    EXPECT_FLOAT_EQ(7.54f, opera.Version());
    EXPECT_TRUE(opera.IsInstalled());

    HANDLE process = bench::StartStandIn(program, bench::kOperaWindowClass);
    HWND window = FindWindowA(bench::kOperaWindowClass, nullptr);
    ASSERT_NE(nullptr, window);
    PostMessageA(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(static_cast<DWORD>(WAIT_OBJECT_0), WaitForSingleObject(process, 10000));
    DWORD exitCode = 1;
    GetExitCodeProcess(process, &exitCode);
    EXPECT_EQ(0u, exitCode);
    if (exitCode == STILL_ACTIVE) TerminateProcess(process, 1);
    CloseHandle(process);
    EXPECT_EQ(nullptr, FindWindowA(bench::kOperaWindowClass, nullptr));
    ScratchFolder::Remove("C:\\Program Files\\Opera7");
}

}  // namespace
}  // namespace rwz::test
