// The bench tested with a probe program in place of Rwz.exe: dialogs are
// answered as scripted, surprises fail the test, runs never hang, and a window
// shown for a moment is seen. (Each machine's version: the start-up scenarios.)
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

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
    EXPECT_EQ(run.pid, first.pid);
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

TEST(RunRwz, SeesAWindowShownOnlyForAMoment) {
    // Far shorter than the watcher's polling interval.
    bench::RunResult flash = RunProbe("window=0:Flash");
    EXPECT_TRUE(flash.ShowedWindow()) << flash.Describe();
}

}  // namespace
