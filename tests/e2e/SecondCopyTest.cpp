// A second copy of Rwz.exe started while one runs brings the first to the
// front and ends; the first stays open. (Other command-line cases are scenarios.)
#include <gtest/gtest.h>

#include <windows.h>

#include <string>

#include "bench/Bench.h"

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
