// The bench tested with a probe program in place of Rwz.exe: dialogs are
// answered as scripted, surprises fail the test, runs never hang, and every
// machine emulates the Windows version its registry claims.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <map>

#include "bench/Bench.h"

namespace {

const char kReport[] = "C:\\probe-report.txt";

bench::RunOptions ProbeRun(const std::string& args) {
    DeleteFileA(kReport);
    bench::RunOptions options;
    options.program = bench::BuildDir() + "\\tests\\BenchProbe.exe";
    options.args = std::string("report=") + kReport + " " + args;
    options.timeoutMs = 20000;
    return options;
}

bench::RunResult RunProbe(const std::string& args, std::vector<bench::Answer> script = {}) {
    bench::RunOptions options = ProbeRun(args);
    options.script = std::move(script);
    return bench::RunRwz(options);
}

std::vector<std::string> Report() {
    return bench::SplitLines(bench::ReadFileText(kReport));
}

using Buttons = std::vector<std::pair<int, std::string>>;

TEST(DialogWatcher, PressesTheScriptedButtonsInOrder) {
    bench::RunResult run = RunProbe("\"box=36:Question:Go on?\\nReally?\" box=3:Three:Pick",
                                    {bench::Answer("No").Title("Question"), bench::Answer("#2")});

    EXPECT_EQ(std::vector<std::string>({"box 7", "box 2"}), Report());
    ASSERT_EQ(2u, run.dialogs.size()) << run.Describe();
    const bench::DialogRecord& first = run.dialogs[0];
    EXPECT_EQ("Question", first.title);
    EXPECT_EQ("Go on?\nReally?", first.text);
    EXPECT_EQ(Buttons({{6, "&Yes"}, {7, "&No"}}), first.buttons);
    EXPECT_EQ("Rwz.exe", first.exe);  // the probe runs installed as Rwz.exe
    EXPECT_EQ(run.pid, first.pid);
    EXPECT_TRUE(first.expected);
    EXPECT_EQ(Buttons({{6, "&Yes"}, {7, "&No"}, {2, "Cancel"}}), run.dialogs[1].buttons);
    EXPECT_EQ(2, run.dialogs[1].answerId);
    EXPECT_EQ(0u, run.scriptLeft);
    EXPECT_EQ("stopped", run.watcherEnd);
}

TEST(DialogWatcher, RecordsControlsAndSetsThemBeforePressing) {
    bench::RunResult run = RunProbe(
        "dialog=Credentials", {bench::Answer("OK").Set(100, "jsmith").Uncheck(102).Check(104)});
    EXPECT_EQ(std::vector<std::string>({"dialog 1 jsmith unchecked 104"}), Report());

    // The record shows the dialog as it came up.
    ASSERT_EQ(1u, run.dialogs.size());
    const bench::DialogRecord& dialog = run.dialogs[0];
    EXPECT_EQ("Enter a text:", dialog.text);
    ASSERT_NE(nullptr, dialog.Control(100));
    EXPECT_EQ("edit", dialog.Control(100)->kind);
    EXPECT_EQ("preset", dialog.Control(100)->text);
    ASSERT_NE(nullptr, dialog.Control(102));
    EXPECT_EQ("check", dialog.Control(102)->kind);
    EXPECT_TRUE(dialog.Control(102)->checked);
    ASSERT_NE(nullptr, dialog.Control(104));
    EXPECT_EQ("radio", dialog.Control(104)->kind);
    EXPECT_FALSE(dialog.Control(104)->checked);
    EXPECT_TRUE(dialog.Control(103)->checked);
    EXPECT_EQ(Buttons({{IDOK, "OK"}, {IDCANCEL, "Cancel"}}), dialog.buttons);
}

TEST(DialogWatcher, TickingATickedBoxLeavesItTicked) {
    RunProbe("dialog=Credentials", {bench::Answer("Cancel").Check(102)});
    EXPECT_EQ(std::vector<std::string>({"dialog 2 preset checked 103"}), Report());
}

// Each of these runs must fail the test, and still end.
static bench::RunResult gFailedRun;

TEST(DialogWatcher, UnscriptedDialogGetsItsDefaultButtonAndFails) {
    EXPECT_NONFATAL_FAILURE(gFailedRun = RunProbe("box=292:Unplanned:Delete?"),
                            "not the ones scripted");
    // MB_YESNO | MB_DEFBUTTON2: Enter would press No.
    EXPECT_EQ(std::vector<std::string>({"box 7"}), Report());
    ASSERT_EQ(1u, gFailedRun.dialogs.size());
    EXPECT_FALSE(gFailedRun.dialogs[0].expected);
    EXPECT_EQ("&No", gFailedRun.dialogs[0].answerText);
}

TEST(DialogWatcher, DialogWithAnotherTitleIsNotTheScriptedOne) {
    EXPECT_NONFATAL_FAILURE(
        gFailedRun = RunProbe("box=0:Mine:Text", {bench::Answer("OK").Title("Other")}),
        "not the ones scripted");
    ASSERT_EQ(1u, gFailedRun.dialogs.size());
    EXPECT_FALSE(gFailedRun.dialogs[0].expected);
    EXPECT_EQ(1u, gFailedRun.scriptLeft);
}

TEST(DialogWatcher, ScriptedDialogThatNeverCameFails) {
    EXPECT_NONFATAL_FAILURE(gFailedRun = RunProbe("exit=0", {bench::Answer("OK")}),
                            "not the ones scripted");
    EXPECT_TRUE(gFailedRun.dialogs.empty());
    EXPECT_EQ(1u, gFailedRun.scriptLeft);
}

TEST(DialogWatcher, WrongButtonStillEndsTheDialog) {
    // No button with id 99: the box is answered with its default button instead.
    EXPECT_NONFATAL_FAILURE(gFailedRun = RunProbe("box=1:Twice:Text", {bench::Answer("#99")}),
                            "not the ones scripted");
    EXPECT_EQ(std::vector<std::string>({"box 1"}), Report());
}

TEST(RunRwz, StopsAProgramAtTheTimeLimit) {
    DWORD start = GetTickCount();
    EXPECT_NONFATAL_FAILURE(
        {
            bench::RunOptions options = ProbeRun("sleep=60000");
            options.timeoutMs = 1500;
            gFailedRun = bench::RunRwz(options);
        },
        "did not end within 1500 ms");
    EXPECT_TRUE(gFailedRun.timedOut);
    EXPECT_LT(GetTickCount() - start, 15000u);
}

TEST(RunRwz, PassesTheExitCodeAndSeesWindows) {
    bench::RunResult quiet = RunProbe("exit=3");
    EXPECT_EQ(3u, quiet.exitCode);
    EXPECT_FALSE(quiet.ShowedWindow()) << quiet.Describe();

    bench::RunResult shown = RunProbe("\"window=300:Probe Main\"");
    EXPECT_TRUE(shown.ShowedWindow()) << shown.Describe();
    ASSERT_FALSE(shown.windows.empty());
    EXPECT_EQ("BenchProbeWindow", shown.windows[0].windowClass);
    EXPECT_EQ("Probe Main", shown.windows[0].title);
}

TEST(RunRwz, SeesAWindowShownOnlyForAMoment) {
    // Far shorter than the watcher's polling interval.
    bench::RunResult flash = RunProbe("window=0:Flash");
    EXPECT_TRUE(flash.ShowedWindow()) << flash.Describe();
}

TEST(RunRwz, InstallsTheProgramWhereTheLogIsRead) {
    bench::RunResult run = RunProbe("exit=0");
    EXPECT_TRUE(bench::FileExists(bench::InstalledRwz()));
    EXPECT_FALSE(run.logExists);  // the probe writes no DEBUG.LOG
}

TEST(DialogWatch, AnswersDialogsOfTheTestProcessItself) {
    bench::DialogWatch watch({bench::Answer("&No").Title("Here")});
    EXPECT_EQ(IDNO, MessageBoxA(nullptr, "In the test", "Here", MB_YESNO));
    const bench::WatchResult& seen = watch.Stop();
    EXPECT_TRUE(seen.DialogsAsScripted());
    ASSERT_EQ(1u, seen.dialogs.size());
    EXPECT_EQ("In the test", seen.dialogs[0].text);
    EXPECT_EQ(GetCurrentProcessId(), seen.dialogs[0].pid);
}

// --- machines --------------------------------------------------------------

struct Emulated {
    DWORD platform, major, minor;
    const char* registryVersion;  // 9x: VersionNumber prefix; NT: CurrentVersion
};

const std::map<std::string, Emulated> kVersions = {
    {"win95", {1, 4, 0, "4.00."}}, {"win98", {1, 4, 10, "4.10."}}, {"winme", {1, 4, 90, "4.90."}},
    {"nt40", {2, 4, 0, "4.0"}},    {"win2k", {2, 5, 0, "5.0"}},    {"winxp", {2, 5, 1, "5.1"}},
    {"win2003", {2, 5, 2, "5.2"}}, {"win10", {2, 6, 2, "6.3"}},
};

TEST(Machines, EachEmulatesItsVersionAndHasMatchingRegistry) {
    std::vector<std::string> names = bench::Machine::All();
    ASSERT_GE(names.size(), 8u);
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        bench::Machine machine(name);
        auto expected = kVersions.find(machine.Version());
        ASSERT_NE(kVersions.end(), expected) << "unknown version " << machine.Version();
        const Emulated& version = expected->second;

        RunProbe("version");
        EXPECT_EQ(std::vector<std::string>({"version " + std::to_string(version.platform) + " " +
                                            std::to_string(version.major) + " " +
                                            std::to_string(version.minor)}),
                  Report());

        std::string value;
        if (version.platform == 1) {
            ASSERT_TRUE(bench::ReadRegistryString(HKEY_LOCAL_MACHINE,
                                                  "Software\\Microsoft\\Windows\\CurrentVersion",
                                                  "VersionNumber", value));
            EXPECT_EQ(0u, value.find(version.registryVersion)) << value;
        } else {
            ASSERT_TRUE(bench::ReadRegistryString(HKEY_LOCAL_MACHINE,
                                                  "Software\\Microsoft\\Windows NT\\CurrentVersion",
                                                  "CurrentVersion", value));
            EXPECT_EQ(version.registryVersion, value);
        }
        // Internet Explorer is registered, and its program is where App Paths says.
        ASSERT_TRUE(bench::ReadRegistryString(
            HKEY_LOCAL_MACHINE,
            "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\IEXPLORE.EXE", "", value));
        EXPECT_TRUE(bench::FileExists(value)) << value;
        ASSERT_TRUE(bench::ReadRegistryString(
            HKEY_LOCAL_MACHINE, "Software\\Microsoft\\Internet Explorer", "Version", value));
        EXPECT_FALSE(value.empty());
    }
}

TEST(Machines, LoadsRegistryAndFilesWithoutTouchingTheBasePrefix) {
    bench::Machine machine(bench::SourceDir() + "\\tests\\bench\\selftest\\machine");
    EXPECT_EQ("win98", machine.Version());

    std::string value;
    EXPECT_TRUE(bench::ReadRegistryString(HKEY_LOCAL_MACHINE, "Software\\RwzBench", "", value));
    EXPECT_EQ("default value", value);
    EXPECT_TRUE(bench::ReadRegistryString(HKEY_LOCAL_MACHINE, "Software\\RwzBench", "Text", value));
    EXPECT_EQ("a \"quoted\" C:\\path", value);
    EXPECT_TRUE(bench::ReadRegistryString(HKEY_CURRENT_USER, "Software\\RwzBench\\Nested\\Deeper",
                                          "Here", value));
    EXPECT_EQ("yes", value);

    EXPECT_EQ("placed by the machine folder\r\n",
              bench::ReadFileText("C:\\Program Files\\Bench Probe\\readme.txt"));
    const char* hosts = "\\windows\\system32\\drivers\\etc\\hosts";
    EXPECT_NE(std::string::npos,
              bench::ReadFileText(std::string("C:") + hosts).find("rwz-bench-marker"));
    // The prefix's own hosts file is a hard link into the base prefix.
    char base[MAX_PATH] = "";
    ASSERT_TRUE(GetEnvironmentVariableA("RWZ_BASE_PREFIX", base, MAX_PATH));
    std::string baseHosts = bench::WindowsPath(base) + "\\drive_c" + hosts;
    ASSERT_TRUE(bench::FileExists(baseHosts));
    EXPECT_EQ(std::string::npos, bench::ReadFileText(baseHosts).find("rwz-bench-marker"));
}

TEST(Machines, MissingMachineIsAClearError) {
    try {
        bench::Machine machine("no-such-machine");
        FAIL() << "loaded a machine that does not exist";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string::npos, std::string(error.what()).find("no-such-machine"));
    }
}

}  // namespace
