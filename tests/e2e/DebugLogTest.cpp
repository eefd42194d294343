// Where DEBUG.LOG goes when it cannot be written beside the program, and what a
// second copy does to the log of the copy that runs.
#include <gtest/gtest.h>

#include "bench/Bench.h"
#include "bench/standins/NetworkStandIns.h"

namespace {

// A log that cannot be written beside the program (here: a folder has its
// name) goes to the user's temporary folder, and its header says so.
TEST(DebugLog, AnUnwritableLogGoesToTheTemporaryFolder) {
    bench::Machine machine("xp-laptop");
    bench::MakeFolders(bench::DebugLogPath());
    char temp[MAX_PATH] = "";
    GetTempPathA(sizeof temp, temp);
    const std::string moved = std::string(temp) + "DEBUG.LOG";
    DeleteFileA(moved.c_str());

    bench::RunResult run = bench::RunRwz("/hidden");
    RemoveDirectoryA(bench::DebugLogPath().c_str());
    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    const std::string log = bench::ReadFileText(moved);
    DeleteFileA(moved.c_str());
    EXPECT_NE(std::string::npos, log.find("\r\nLog:\t" + moved + " ")) << log;
    EXPECT_NE(std::string::npos, log.find("frmMain - Form_Load")) << log;
}

// A copy started while another runs (here: the test holds the running copy's
// mutex) keeps that copy's log. Asked to apply, it waits for the other to end
// and then applies; otherwise it says why it ends.
TEST(DebugLog, ASecondCopyAddsToTheRunningCopysLog) {
    bench::Machine machine("xp-laptop");
    bench::NetworkStandIns network;
    network.Like(machine);
    const std::string running = "a line of the running copy\r\n";
    bench::MakeFolders("C:\\Profiles");
    bench::CopyFileReplacing(bench::SourceDir() + "\\examples\\office.rwz",
                             "C:\\Profiles\\office.rwz");

    HANDLE other = CreateMutexA(nullptr, FALSE, "Roamwise.MainWindow");
    bench::WriteFile(bench::DebugLogPath(), running);
    bench::RunResult ends = bench::RunRwz("/hidden");
    EXPECT_EQ(0u, ends.exitCode) << ends.Describe();
    EXPECT_EQ(0u, ends.log.find(running)) << ends.log;
    EXPECT_NE(std::string::npos, ends.log.find("this copy brings it forward and ends")) << ends.log;
    EXPECT_EQ(std::string::npos, ends.log.find("Roamwise Log File")) << ends.log;

    // The other copy ends once this one has said that it waits.
    bench::WriteFile(bench::DebugLogPath(), running);
    HANDLE release = CreateThread(
        nullptr, 0,
        [](void* mutex) -> DWORD {
            for (int i = 0; i < 300; ++i) {
                std::string log;
                bench::ReadFile(bench::DebugLogPath(), log);
                if (log.find("this copy applies when it has finished") != std::string::npos) break;
                Sleep(100);
            }
            CloseHandle(static_cast<HANDLE>(mutex));
            return 0;
        },
        other, 0, nullptr);
    bench::RunOptions apply;
    apply.args = "/hidden /load C:\\Profiles\\office.rwz /apply";
    apply.strictDialogs = false;  // what the apply itself asks is not the point here
    bench::RunResult applies = bench::RunRwz(apply);
    WaitForSingleObject(release, INFINITE);
    CloseHandle(release);
    EXPECT_EQ(3010u, applies.exitCode) << applies.Describe();
    EXPECT_EQ(0u, applies.log.find(running)) << applies.log;
    const size_t waits = applies.log.find("this copy applies when it has finished");
    const size_t header = applies.log.find("Roamwise Log File");
    EXPECT_LT(waits, header) << applies.log;
    EXPECT_NE(std::string::npos, applies.log.find("ApplyConfiguration", header)) << applies.log;
}

}  // namespace
