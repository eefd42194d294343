// A desktop shortcut made for a profile applies it silently when the shell
// starts it. Not a scenario: the shell, not the bench, starts Rwz.exe.
#include <windows.h>
// after windows.h
#include <shellapi.h>
#include <tlhelp32.h>

#include <gtest/gtest.h>

#include "bench/Bench.h"
#include "bench/standins/NetworkStandIns.h"
#include "browsers/modShellFolders.h"
#include "shell/RwzExitCode.h"
#include "shell/modShortcut.h"

namespace {

// The Rwz.exe process the shell started, waited for up to 20 s; nullptr if none came.
HANDLE FindRwz() {
    for (int waited = 0; waited < 20000; waited += 100, Sleep(100)) {
        HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
        PROCESSENTRY32 entry = {};
        entry.dwSize = sizeof entry;
        HANDLE found = nullptr;
        for (BOOL more = Process32First(snapshot, &entry); more && !found;
             more = Process32Next(snapshot, &entry))
            if (lstrcmpiA(entry.szExeFile, "Rwz.exe") == 0)
                found = OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE,
                                    entry.th32ProcessID);
        CloseHandle(snapshot);
        if (found) return found;
    }
    return nullptr;
}

TEST(Shortcut, AShortcutToAProfileWithBlanksAndAccentsAppliesItSilently) {
    bench::Machine machine("xp-laptop");
    const std::string profile = "C:\\Mes profils\\Bureau Z\xFCrich.rwz";
    bench::MakeFolders("C:\\Mes profils");
    bench::CopyFileReplacing(bench::SourceDir() + "\\examples\\office.rwz", profile);
    bench::MakeFolders(bench::InstallDir());
    bench::CopyFileReplacing(bench::BuildDir() + "\\bin\\Rwz.exe", bench::InstalledRwz());
    bench::NetworkStandIns network;
    network.Like(machine);
    const std::string link = rwz::ShortcutPath(rwz::GetShellFolderPath(0x10), profile);
    ASSERT_NE(std::string::npos, link.find("\\Bureau Z\xFCrich.lnk")) << link;
    rwz::WriteProfileShortcut(link, profile, bench::InstalledRwz());
    bench::DialogWatch watch({bench::Answer("&No")});

    // The command asks before it replaces a shortcut; "No" keeps it.
    EXPECT_EQ("", rwz::CreateDesktopShortcut(nullptr, profile));

    SHELLEXECUTEINFOA run = {};
    run.cbSize = sizeof run;
    run.fMask = SEE_MASK_NOCLOSEPROCESS;
    run.lpFile = link.c_str();
    run.nShow = SW_SHOWNORMAL;
    ASSERT_TRUE(ShellExecuteExA(&run)) << GetLastError();
    // The shell may start the link's target itself; the process is Rwz.exe's.
    HANDLE rwz = run.hProcess ? run.hProcess : FindRwz();
    ASSERT_TRUE(rwz != nullptr) << "Rwz.exe did not start";
    ASSERT_EQ(WAIT_OBJECT_0, WaitForSingleObject(rwz, 60000));
    DWORD code = 99;
    GetExitCodeProcess(rwz, &code);
    CloseHandle(rwz);
    const std::string log = bench::ReadFileText(bench::DebugLogPath());

    EXPECT_NE(std::string::npos,
              log.find("frmMain - GetCommandLineArgs = /hidden /load \"" + profile + "\" /apply"))
        << log;
    EXPECT_NE(rwz::kExitNotApplied, code);
    const bench::WatchResult& seen = watch.Stop();
    ASSERT_EQ(1u, seen.dialogs.size());
    EXPECT_EQ("A shortcut named Bureau Z\xFCrich.lnk is already on the desktop.  Replace it?",
              seen.dialogs[0].text);
    EXPECT_TRUE(seen.DialogsAsScripted());
    for (const bench::WindowRecord& window : seen.windows)
        EXPECT_NE("Rwz.exe", window.exe) << "Rwz.exe showed " << window.title;
}

}  // namespace
