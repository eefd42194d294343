// Rwz.exe driven from the command line as a desktop shortcut drives it: open,
// save, apply, restart, and the recent-files list, on simulated machines.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bench/Bench.h"

namespace {

const char kRecent[] = "Software\\Roamwise\\Recent";
const char kOptions[] = "Software\\Roamwise\\Options";

// Program settings are set up and read back with the raw registry API.
void SetSetting(const std::string& key, const std::string& name, const std::string& value) {
    HKEY handle = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExA(HKEY_LOCAL_MACHINE, key.c_str(), 0, nullptr, 0,
                                             KEY_ALL_ACCESS, nullptr, &handle, nullptr));
    EXPECT_EQ(ERROR_SUCCESS,
              RegSetValueExA(handle, name.c_str(), 0, REG_SZ,
                             reinterpret_cast<const BYTE*>(value.c_str()), value.size() + 1));
    RegCloseKey(handle);
}

std::string Setting(const std::string& key, const std::string& name) {
    std::string value;
    return bench::ReadRegistryString(HKEY_LOCAL_MACHINE, key, name, value) ? value : "<missing>";
}

// The recent files as stored: File1, File2, ... up to the first missing one.
std::vector<std::string> RecentFiles() {
    std::vector<std::string> files;
    for (int i = 1; i <= 25; ++i) {
        std::string value;
        if (!bench::ReadRegistryString(HKEY_LOCAL_MACHINE, kRecent, "File" + std::to_string(i),
                                       value))
            break;
        files.push_back(value);
    }
    return files;
}

// A profile as people write it by hand, with every area off: these cases are
// about the command line, not about what an area changes.
std::string Profile(const std::string& advanced) {
    return "; written by hand\r\n[Enabled Sections]\r\nGeneral=0\r\nInternet Explorer=0\r\n"
           "Netscape Navigator=0\r\nOpera=0\r\n[Advanced]\r\n" +
           advanced;
}

bool LogHas(const bench::RunResult& run, const std::string& text) {
    return run.log.find(text) != std::string::npos;
}

TEST(CommandLine, LoadAndSaveWritesTheContainerAndEndsWithoutAWindow) {
    bench::Machine machine("xp-laptop");
    bench::WriteFile("C:\\Profiles\\a.rwz",
                     Profile("AutoApply=0\r\nComments=Office, 3rd floor\r\n"));

    bench::RunResult run =
        bench::RunRwz("/hidden /load C:\\Profiles\\a.rwz /save C:\\Profiles\\b.rwz");

    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    EXPECT_TRUE(run.dialogs.empty()) << run.Describe();
    EXPECT_FALSE(run.ShowedWindow()) << run.Describe();
    const std::vector<std::string> lines =
        bench::SplitLines(bench::ReadFileText("C:\\Profiles\\b.rwz"));
    ASSERT_GE(lines.size(), 16u) << bench::ReadFileText("C:\\Profiles\\b.rwz");
    EXPECT_EQ(";" + std::string(44, '-'), lines[0]);
    EXPECT_EQ("; Roamwise - v1.0.0", lines[1]);
    EXPECT_EQ("", lines[6]);
    const std::vector<std::string> sections(lines.begin() + 7, lines.begin() + 16);
    EXPECT_EQ(
        (std::vector<std::string>{"[Enabled Sections]", "General=0", "Internet Explorer=0",
                                  "Netscape Navigator=0", "Opera=0", "[Advanced]", "AutoApply=0",
                                  "AutoReboot=0", "Comments=Office, 3rd floor"}),
        sections);
    // Saving takes the new name to the top of the recent files.
    EXPECT_EQ((std::vector<std::string>{"C:\\Profiles\\b.rwz", "C:\\Profiles\\a.rwz"}),
              RecentFiles());
}

TEST(CommandLine, AMissingProfileIsReportedDroppedFromTheRecentFilesAndChangesNothing) {
    bench::Machine machine("xp-laptop");
    SetSetting(kRecent, "MaxFile", "5");
    SetSetting(kRecent, "File1", "C:\\Profiles\\gone.rwz");
    SetSetting(kRecent, "File2", "C:\\Profiles\\home.rwz");
    std::string hostBefore;
    bench::ReadRegistryString(HKEY_LOCAL_MACHINE,
                              "SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters", "Hostname",
                              hostBefore);

    bench::RunResult run = bench::RunRwz("/hidden /load C:\\Profiles\\gone.rwz /apply",
                                         {bench::Answer("OK").Title("Roamwise")});

    ASSERT_EQ(1u, run.dialogs.size()) << run.Describe();
    EXPECT_EQ(
        "The file 'C:\\Profiles\\gone.rwz' could not be opened.\r\n\r\n"
        "It has been removed from the most recently used (MRU) list.",
        run.dialogs[0].text);
    EXPECT_EQ((std::vector<std::string>{"C:\\Profiles\\home.rwz"}), RecentFiles());
    // The apply that follows finds nothing changed: the machine is as it was.
    EXPECT_NE("C:\\Profiles\\gone.rwz", Setting(kOptions, "LastFileApplied"));
    std::string hostAfter;
    bench::ReadRegistryString(HKEY_LOCAL_MACHINE,
                              "SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters", "Hostname",
                              hostAfter);
    EXPECT_EQ(hostBefore, hostAfter);
    EXPECT_FALSE(run.ShowedWindow());
}

TEST(CommandLine, TheRecentFilesKeepTheMaximumMoveAReopenedPathAndDropAVanishedOne) {
    bench::Machine machine("xp-laptop");
    SetSetting(kRecent, "MaxFile", "3");
    for (const char* name : {"one", "two", "three", "four"})
        bench::WriteFile(std::string("C:\\Profiles\\") + name + ".rwz", Profile(""));
    for (const char* name : {"one", "two", "three", "four"}) {
        bench::RunResult run =
            bench::RunRwz(std::string("/hidden /load C:\\Profiles\\") + name + ".rwz");
        ASSERT_EQ(0u, run.exitCode) << run.Describe();
    }
    EXPECT_EQ((std::vector<std::string>{"C:\\Profiles\\four.rwz", "C:\\Profiles\\three.rwz",
                                        "C:\\Profiles\\two.rwz"}),
              RecentFiles());

    // Reopened in other letters: moved to the top, not listed twice.
    bench::RunRwz("/hidden /load C:\\PROFILES\\TWO.RWZ");
    EXPECT_EQ((std::vector<std::string>{"C:\\PROFILES\\TWO.RWZ", "C:\\Profiles\\four.rwz",
                                        "C:\\Profiles\\three.rwz"}),
              RecentFiles());

    // A file deleted since it entered the list is dropped when opened.
    DeleteFileA("C:\\Profiles\\three.rwz");
    bench::RunResult run = bench::RunRwz("/hidden /load C:\\Profiles\\three.rwz",
                                         {bench::Answer("OK").Title("Roamwise")});
    EXPECT_EQ((std::vector<std::string>{"C:\\PROFILES\\TWO.RWZ", "C:\\Profiles\\four.rwz"}),
              RecentFiles());
}

TEST(CommandLine, SwitchesAreReadInAnyCaseWithAnyOneSeparator) {
    bench::Machine machine("xp-laptop");
    bench::WriteFile("C:\\Profiles\\a.rwz", Profile("Comments=x\r\n"));
    for (const char* args :
         {"/HIDDEN /LOAD C:\\Profiles\\a.rwz /Save=C:\\Profiles\\b.rwz",
          "/hidden /load:C:\\Profiles\\a.rwz /save:C:\\Profiles\\c.rwz",
          "/hidden /load \"C:\\Profiles\\a.rwz\" /save \"C:\\Profiles\\d.rwz\""}) {
        bench::RunResult run = bench::RunRwz(args);
        EXPECT_TRUE(run.dialogs.empty()) << args << "\n" << run.Describe();
        EXPECT_FALSE(run.ShowedWindow()) << args;
    }
    for (const char* saved : {"b", "c", "d"})
        EXPECT_TRUE(bench::FileExists(std::string("C:\\Profiles\\") + saved + ".rwz")) << saved;
}

TEST(CommandLine, TheLogNeverHoldsThePassword) {
    bench::Machine machine("xp-laptop");
    bench::RunResult run = bench::RunRwz("/hidden /uid jsmith /pwd Secret99 /apply");
    EXPECT_FALSE(LogHas(run, "Secret99")) << run.log;
    EXPECT_TRUE(LogHas(run, "frmMain - GetCommandLineArgs = /hidden /uid jsmith /pwd **** /apply"))
        << run.log;
    EXPECT_TRUE(LogHas(run, "frmMain - GetSwitch: pwd = pwd **** ")) << run.log;
}

// Which system call a restart switch makes, by family: Windows 95/98/ME knows
// no force-if-hung flag (16) and no shutdown privilege.
struct RestartCase {
    const char* machine;
    const char* args;
    const char* logged;  // nullptr: no restart at all
};

class RestartSwitch : public testing::TestWithParam<RestartCase> {};

TEST_P(RestartSwitch, ActsOnlyWhenARestartIsPendingOrForced) {
    const RestartCase& c = GetParam();
    bench::Machine machine(c.machine);
    bench::RunResult run = bench::RunRwz(c.args);
    EXPECT_FALSE(run.timedOut) << run.Describe();
    if (c.logged) {
        EXPECT_TRUE(LogHas(run, c.logged)) << run.log;
    } else {
        EXPECT_FALSE(LogHas(run, "modRestart - ExecuteRestartOption")) << run.log;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Machines, RestartSwitch,
    testing::Values(
        RestartCase{"xp-laptop", "/hidden /reboot", nullptr},
        RestartCase{"xp-laptop", "/hidden /shutdown /suspend", nullptr},
        RestartCase{"xp-laptop", "/hidden /reboot /force", "ExitWindowsEx(18, 0) = "},
        RestartCase{"xp-laptop", "/hidden /force /shutdown", "ExitWindowsEx(24, 0) = "},
        RestartCase{"xp-laptop", "/hidden /force /suspend", "SetSystemPowerState(1, 0) = "},
        RestartCase{"win98-desktop", "/hidden /force /reboot", "ExitWindowsEx(2, 0) = "},
        RestartCase{"win98-desktop", "/hidden /force /shutdown", "ExitWindowsEx(8, 0) = "},
        RestartCase{"nt40-workstation", "/hidden /force /reboot", "ExitWindowsEx(18, 0) = "}),
    [](const testing::TestParamInfo<RestartCase>& info) {
        return "case" + std::to_string(info.index);
    });

TEST(CommandLine, AnAutoApplyProfileIsAppliedAsSoonAsItIsOpened) {
    bench::Machine machine("xp-laptop");
    bench::WriteFile("C:\\Profiles\\auto.rwz", Profile("AutoApply=1\r\nAutoReboot=0\r\n"));

    bench::RunResult run = bench::RunRwz("/hidden /load C:\\Profiles\\auto.rwz",
                                         {bench::Answer("OK").Title("Roamwise")});

    // No question first (AutoApply), and the result is told.
    ASSERT_EQ(1u, run.dialogs.size()) << run.Describe();
    EXPECT_EQ("Configuration updated - no restart required.", run.dialogs[0].text);
    EXPECT_EQ("C:\\Profiles\\auto.rwz", Setting(kOptions, "LastFileApplied"));
    EXPECT_TRUE(LogHas(run, "clsRwzConfig - ApplyConfiguration")) << run.log;
}

TEST(CommandLine, AutoRebootTakesTheSavedRestartPreference) {
    struct Case {
        const char* preference;
        const char* logged;
    };
    for (const Case& c : {Case{"2", "ExitWindowsEx(24, 0) = "},
                          Case{"4", "ExitWindowsEx(16, 0) = "}, Case{"0", "Code = 0"}}) {
        bench::Machine machine("xp-laptop");
        SetSetting(kOptions, "Restart", c.preference);
        bench::WriteFile("C:\\Profiles\\auto.rwz", Profile("AutoApply=1\r\nAutoReboot=1\r\n"));
        bench::RunResult run = bench::RunRwz("/hidden /load C:\\Profiles\\auto.rwz");
        EXPECT_TRUE(run.dialogs.empty()) << c.preference << "\n" << run.Describe();
        EXPECT_TRUE(LogHas(run, c.logged)) << c.preference << "\n" << run.log;
    }
}

TEST(CommandLine, AboutShowsTheAboutBoxWithoutTheMainWindow) {
    bench::Machine machine("xp-laptop");
    bench::RunResult run = bench::RunRwz("/about", {bench::Answer("OK").Title("About Roamwise")});
    ASSERT_EQ(1u, run.dialogs.size()) << run.Describe();
    EXPECT_NE(std::string::npos, run.dialogs[0].text.find("Version 1.0.0"));
    EXPECT_FALSE(run.ShowedWindow()) << run.Describe();
    EXPECT_EQ(0u, run.exitCode);
}

}  // namespace

namespace {

HWND FindMainWindow() {
    struct Search {
        HWND found = nullptr;
    } search;
    EnumWindows(
        [](HWND window, LPARAM data) -> BOOL {
            char title[256] = "";
            GetWindowTextA(window, title, sizeof title);
            if (std::string(title).find("- Roamwise") == std::string::npos) return TRUE;
            reinterpret_cast<Search*>(data)->found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

TEST(CommandLine, ASecondCopyLeavesTheFirstOpenAndEnds) {
    bench::Machine machine("xp-laptop");
    // The first copy runs from a folder of its own: the bench installs the
    // second one over the usual place.
    const std::string firstCopy = "C:\\First\\Rwz.exe";
    bench::MakeFolders("C:\\First");
    bench::CopyFileReplacing(bench::BuildDir() + "\\bin\\Rwz.exe", firstCopy);
    PROCESS_INFORMATION first = bench::LaunchProcess(firstCopy, "\"" + firstCopy + "\"");
    CloseHandle(first.hThread);
    HWND window = nullptr;
    for (int i = 0; i < 200 && !window; ++i, Sleep(50)) window = FindMainWindow();
    ASSERT_TRUE(window) << "the first copy showed no main window";

    bench::RunResult second = bench::RunRwz("");

    EXPECT_FALSE(second.timedOut) << second.Describe();
    EXPECT_EQ(0u, second.exitCode);
    EXPECT_EQ(WAIT_TIMEOUT, WaitForSingleObject(first.hProcess, 0)) << "the first copy ended";
    EXPECT_EQ(window, FindMainWindow());
    // Nothing was changed in it, so it closes without a question.
    PostMessageA(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(first.hProcess, 10000));
    TerminateProcess(first.hProcess, 1);
    CloseHandle(first.hProcess);
}

}  // namespace
