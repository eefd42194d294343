// A recent-files length that is no number from 0 to 20 is refused by the
// options dialog, which stays open for a better one. Not a scenario: the test
// gives up on the dialog itself once the refusal has been answered.
#include <gtest/gtest.h>

#include "bench/Bench.h"
#include "shell/frmMainRes.h"
#include "shell/frmOptionsRes.h"

namespace {

std::string MaxFile() {
    std::string value;
    bench::ReadRegistryString(HKEY_LOCAL_MACHINE, "Software\\Roamwise\\Recent", "MaxFile", value);
    return value;
}

template <class Done>
bool WaitFor(Done done) {
    for (int i = 0; i < 200; ++i, Sleep(50))
        if (done()) return true;
    return false;
}

TEST(Options, ARecentFilesLengthThatIsNoNumberFromZeroToTwentyChangesNothing) {
    bench::Machine machine("xp-laptop");
    bench::MakeFolders(bench::InstallDir());
    bench::CopyFileReplacing(bench::BuildDir() + "\\bin\\Rwz.exe", bench::InstalledRwz());
    PROCESS_INFORMATION rwz = bench::LaunchProcess(
        bench::InstalledRwz(), "\"" + bench::InstalledRwz() + "\"", bench::InstallDir());
    HWND main = nullptr;
    WaitFor([&] { return (main = FindWindowA("RoamwiseMain", nullptr)) && IsWindowVisible(main); });
    ASSERT_TRUE(main);
    for (const char* typed : {"99999", "text", "21"}) {
        bench::DialogWatch watch(
            {bench::Answer("OK").Title("Options").Set(IDC_OPTIONS_MAXRECENT, typed),
             bench::Answer("OK").Title("Roamwise")});
        PostMessageA(main, WM_COMMAND, IDM_TOOLS_OPTIONS, 0);
        // The watcher may answer the refusal before a look finds it.
        WaitFor([] { return FindWindowA("#32770", "Roamwise") != nullptr; });
        ASSERT_TRUE(WaitFor([] {
            HWND options = FindWindowA("#32770", "Options");
            return options && IsWindowEnabled(options) && !FindWindowA("#32770", "Roamwise");
        })) << typed;
        PostMessageA(FindWindowA("#32770", "Options"), WM_COMMAND, IDCANCEL, 0);
        ASSERT_TRUE(WaitFor([] { return !FindWindowA("#32770", "Options"); })) << typed;
        const bench::WatchResult& seen = watch.Stop();
        EXPECT_EQ(0u, seen.scriptLeft) << typed;
        // A slow machine may see the waiting dialog's OK pressed again: refused the same way.
        for (const bench::DialogRecord& dialog : seen.dialogs) {
            if (dialog.title == "Roamwise") {
                EXPECT_EQ("Please enter a numeric value from 0 to 20.", dialog.text);
            }
        }
        EXPECT_EQ("", MaxFile()) << typed;
    }
    PostMessageA(main, WM_CLOSE, 0, 0);
    if (WaitForSingleObject(rwz.hProcess, 10000) != WAIT_OBJECT_0)
        TerminateProcess(rwz.hProcess, 1);
    CloseHandle(rwz.hThread);
    CloseHandle(rwz.hProcess);
}

}  // namespace
