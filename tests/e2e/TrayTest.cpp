// What a user does every day: switch places from the tray program's menu or
// from a desktop shortcut. RwzSysTray.exe lists the profiles, applies the
// chosen one through Rwz.exe and tells what happened; bad input is told and
// the tray runs on. A shortcut made for a profile applies it silently.
#include <windows.h>
// after windows.h
#include <shellapi.h>
#include <tlhelp32.h>

#include <gtest/gtest.h>

#include "bench/Bench.h"
#include "bench/standins/NetworkStandIns.h"
#include "support/RawRegistry.h"
#include "browsers/modShellFolders.h"
#include "shell/RwzExitCode.h"
#include "shell/modShortcut.h"
#include "tray/TrayCommands.h"

namespace {

using rwz::tray::kCmdExit;
using rwz::tray::kCmdFirstProfile;

const char kProfiles[] = "C:\\Profiles";

void SetSetting(const std::string& section, const std::string& key, const std::string& value) {
    HKEY key_ = nullptr;
    ASSERT_EQ(ERROR_SUCCESS,
              RegCreateKeyExA(HKEY_LOCAL_MACHINE, ("Software\\Roamwise\\" + section).c_str(), 0,
                              nullptr, 0, KEY_WRITE, nullptr, &key_, nullptr));
    RegSetValueExA(key_, key.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                   static_cast<DWORD>(value.size() + 1));
    RegCloseKey(key_);
}

std::string Setting(const std::string& section, const std::string& key) {
    std::string value;
    bench::ReadRegistryString(HKEY_LOCAL_MACHINE, "Software\\Roamwise\\" + section, key, value);
    return value;
}

void Install(const char* program) {
    bench::MakeFolders(bench::InstallDir());
    bench::CopyFileReplacing(bench::BuildDir() + "\\bin\\" + program,
                             bench::InstallDir() + "\\" + program);
}

void CopyExamples(const std::string& folder) {
    bench::MakeFolders(folder);
    for (const char* name : {"office.rwz", "home.rwz", "client-site.rwz"})
        bench::CopyFileReplacing(bench::SourceDir() + "\\examples\\" + name, folder + "\\" + name);
}

// DEBUG.LOG once it holds the text, polled for up to `ms`; "" if it never did.
std::string WaitForLog(const std::string& text, DWORD ms = 90000) {
    for (DWORD waited = 0; waited < ms; waited += 100) {
        const std::string log = bench::ReadFileText(bench::DebugLogPath());
        if (log.find(text) != std::string::npos) return log;
        Sleep(100);
    }
    return "";
}

// Until a message box has come up and the watcher has answered it.
void WaitUntilAnswered() {
    for (int i = 0; i < 600 && !FindWindowA("#32770", nullptr); ++i) Sleep(50);
    for (int i = 0; i < 600 && FindWindowA("#32770", nullptr); ++i) Sleep(50);
}

// A running process of that image name, waited for up to `ms`; nullptr if none came.
HANDLE FindProcess(const char* image, DWORD ms) {
    for (DWORD waited = 0; waited < ms; waited += 100, Sleep(100)) {
        HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
        PROCESSENTRY32 entry = {};
        entry.dwSize = sizeof entry;
        HANDLE found = nullptr;
        for (BOOL more = Process32First(snapshot, &entry); more && !found;
             more = Process32Next(snapshot, &entry))
            if (lstrcmpiA(entry.szExeFile, image) == 0)
                found = OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE,
                                    entry.th32ProcessID);
        CloseHandle(snapshot);
        if (found) return found;
    }
    return nullptr;
}

struct KernelProcess {
    explicit KernelProcess(HANDLE h) : handle(h) {}
    ~KernelProcess() {
        if (handle) CloseHandle(handle);
    }
    KernelProcess(const KernelProcess&) = delete;
    KernelProcess& operator=(const KernelProcess&) = delete;
    HANDLE handle;
};

// RwzSysTray.exe running from the install folder, told what to do through
// the commands of its menu.
class Tray {
  public:
    Tray() {
        mProcess = bench::LaunchProcess(bench::InstallDir() + "\\RwzSysTray.exe", "RwzSysTray.exe",
                                        bench::InstallDir());
        for (int i = 0; i < 200 && !mWindow; ++i, Sleep(50))
            mWindow = FindWindowA(rwz::tray::kTrayWindowClass, nullptr);
    }
    ~Tray() {
        if (Running()) Command(kCmdExit);
        if (WaitForSingleObject(mProcess.hProcess, 10000) != WAIT_OBJECT_0)
            TerminateProcess(mProcess.hProcess, 1);
        CloseHandle(mProcess.hProcess);
        CloseHandle(mProcess.hThread);
    }
    HWND Window() const { return mWindow; }
    void Command(int id) { PostMessageA(mWindow, WM_COMMAND, id, 0); }
    bool Running() const { return WaitForSingleObject(mProcess.hProcess, 0) == WAIT_TIMEOUT; }
    // Ends it through "Exit"; its exit code, or -1 when it did not end.
    long Exit() {
        Command(kCmdExit);
        if (WaitForSingleObject(mProcess.hProcess, 10000) != WAIT_OBJECT_0) return -1;
        DWORD code = 0;
        GetExitCodeProcess(mProcess.hProcess, &code);
        return static_cast<long>(code);
    }

  private:
    PROCESS_INFORMATION mProcess{};
    HWND mWindow = nullptr;
};

TEST(Tray, ListsTheRecentAndTheFolderProfilesAndAppliesTheChosenOneSilently) {
    bench::Machine machine("xp-laptop");
    CopyExamples(kProfiles);
    SetSetting("Recent", "MaxFile", "5");
    SetSetting("Recent", "File1", "C:\\Profiles\\home.rwz");
    SetSetting("Options", "TrayProfileFolder", kProfiles);
    Install("Rwz.exe");
    Install("RwzSysTray.exe");
    bench::NetworkStandIns network;
    network.Like(machine);
    bench::DialogWatch watch;

    Tray tray;
    ASSERT_TRUE(tray.Window() != nullptr);
    // The recent file first, then the folder's others by name, each once.
    std::string log = WaitForLog("RefreshProfiles: 2 = ", 10000);
    EXPECT_NE(std::string::npos, log.find("RefreshProfiles: 0 = C:\\Profiles\\home.rwz\r\n"))
        << log;
    EXPECT_NE(std::string::npos,
              log.find("RefreshProfiles: 1 = C:\\Profiles\\client-site.rwz\r\n"));
    EXPECT_NE(std::string::npos, log.find("RefreshProfiles: 2 = C:\\Profiles\\office.rwz\r\n"));
    EXPECT_EQ(std::string::npos, log.find("RefreshProfiles: 3 = "));
    EXPECT_EQ("1", Setting("Options", "TrayIconActive"));

    tray.Command(kCmdFirstProfile + 2);
    log = WaitForLog("clsSysTray - Notify = ");
    // Rwz.exe's run (it starts the log afresh) and then the tray's account of it.
    const size_t header = log.find("Roamwise Log File");
    const size_t opened = log.find("frmMain - OpenConfigurationFile = C:\\Profiles\\office.rwz");
    const size_t ended = log.find("clsSysTray - ApplyProfile: Rwz.exe ended with ");
    ASSERT_NE(std::string::npos, ended) << log;
    EXPECT_LT(header, opened);
    EXPECT_LT(opened, ended);
    EXPECT_NE(std::string::npos, log.find("clsSysTray - Notify = office applied. ", ended)) << log;
    EXPECT_EQ("C:\\Profiles\\office.rwz", Setting("Options", "LastFileApplied"));
    std::string host;
    bench::ReadRegistryString(HKEY_LOCAL_MACHINE,
                              "SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters", "Hostname",
                              host);
    EXPECT_EQ("fieldlaptop", host);

    EXPECT_EQ(0, tray.Exit());
    EXPECT_EQ("0", Setting("Options", "TrayIconActive"));
    const bench::WatchResult& seen = watch.Stop();
    EXPECT_TRUE(seen.DialogsAsScripted());
    for (const bench::WindowRecord& window : seen.windows)
        EXPECT_NE("Rwz.exe", window.exe) << "Rwz.exe showed " << window.title;
}

TEST(Tray, AGoneFolderAMissingRwzAndAFailedApplyAreToldAndTheTrayRunsOn) {
    bench::Machine machine("xp-laptop");
    CopyExamples(kProfiles);
    SetSetting("Recent", "File1", "C:\\Profiles\\home.rwz");
    SetSetting("Options", "TrayProfileFolder", "C:\\Gone");
    Install("RwzSysTray.exe");  // and no Rwz.exe beside it, for now
    bench::DialogWatch watch({bench::Answer("OK").Title("Roamwise"),
                              bench::Answer("OK").Title("Non-Supported Operating System"),
                              bench::Answer("OK").Title("Roamwise")});

    Tray tray;
    ASSERT_TRUE(tray.Window() != nullptr);
    EXPECT_NE("", WaitForLog("folder not found: C:\\Gone", 10000));

    tray.Command(kCmdFirstProfile);
    EXPECT_NE("", WaitForLog("clsSysTray - Fail: Could not locate: " + bench::InstalledRwz()));
    WaitUntilAnswered();

    // Rwz.exe refuses the system it finds: nothing is applied, and the tray says so.
    Install("Rwz.exe");
    rwz::test::RawSetString(HKEY_CURRENT_USER, "Software\\Wine\\AppDefaults\\Rwz.exe", "Version",
                            "win10");
    tray.Command(kCmdFirstProfile);
    const std::string log = WaitForLog("clsSysTray - Fail: home could not be applied.");
    WaitUntilAnswered();
    EXPECT_NE(std::string::npos,
              log.find("Rwz.exe ended with " + std::to_string(rwz::kExitNotApplied)))
        << log;

    EXPECT_TRUE(tray.Running());
    EXPECT_TRUE(IsWindow(tray.Window()));
    EXPECT_EQ(0, tray.Exit());
    const bench::WatchResult& seen = watch.Stop();
    EXPECT_TRUE(seen.DialogsAsScripted());
}

TEST(Shortcut, AShortcutToAProfileWithBlanksAndAccentsAppliesItSilently) {
    bench::Machine machine("xp-laptop");
    const std::string folder = "C:\\Mes profils";
    const std::string profile = folder + "\\Bureau Z\xFCrich.rwz";
    bench::MakeFolders(folder);
    bench::CopyFileReplacing(bench::SourceDir() + "\\examples\\office.rwz", profile);
    Install("Rwz.exe");
    bench::NetworkStandIns network;
    network.Like(machine);
    const std::string desktop = rwz::GetShellFolderPath(0x10);
    ASSERT_NE("", desktop);
    const std::string link = rwz::ShortcutPath(desktop, profile);
    ASSERT_EQ(desktop + "\\Bureau Z\xFCrich.lnk", link);
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
    // The shell starts the link's target itself; the process is Rwz.exe's.
    KernelProcess rwz(run.hProcess ? run.hProcess : FindProcess("Rwz.exe", 20000));
    ASSERT_TRUE(rwz.handle != nullptr) << "Rwz.exe did not start";
    ASSERT_EQ(WAIT_OBJECT_0, WaitForSingleObject(rwz.handle, 60000));
    DWORD code = 99;
    GetExitCodeProcess(rwz.handle, &code);
    const std::string log = bench::ReadFileText(bench::DebugLogPath());

    EXPECT_NE(std::string::npos,
              log.find("frmMain - GetCommandLineArgs = /hidden /load \"" + profile + "\" /apply"))
        << log;
    EXPECT_NE(std::string::npos, log.find("frmMain - OpenConfigurationFile = " + profile + "\r\n"));
    EXPECT_EQ(profile, Setting("Options", "LastFileApplied"));
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
