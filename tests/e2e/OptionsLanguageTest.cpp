// The options and language dialogs as a user meets them: Rwz.exe runs with its
// main window open on a simulated XP laptop, the test chooses menu commands,
// the dialog watcher answers the dialogs, and a probe inside Rwz.exe reads the
// window's title, menus, tabs, tool tips and lists.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "bench/Bench.h"
#include "shell/frmLanguageRes.h"
#include "shell/frmMainRes.h"
#include "shell/frmOptionsRes.h"

namespace {

const char kSettings[] = "Software\\Roamwise\\";
constexpr int kAdapterBox = 3001;  // the General tab's adapter list

std::string Setting(const std::string& section, const std::string& key) {
    std::string value;
    bench::ReadRegistryString(HKEY_LOCAL_MACHINE, kSettings + section, key, value);
    return value;
}

// What the probe read: one list of texts per kind ("title", "menu", "tab",
// "tip", "combo3001"), in the window's order.
using Captions = std::map<std::string, std::vector<std::string>>;

std::string gProbeAnswer;

LRESULT CALLBACK ReceiverProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COPYDATA) {
        const auto* copy = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        gProbeAnswer.assign(static_cast<const char*>(copy->lpData), copy->cbData);
        return TRUE;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

// Rwz.exe with its main window open, started the way a user starts it.
class MainWindow {
  public:
    MainWindow() {
        bench::MakeFolders(bench::InstallDir());
        bench::CopyFileReplacing(bench::BuildDir() + "\\bin\\Rwz.exe", bench::InstalledRwz());
        bench::CopyFileReplacing(bench::BuildDir() + "\\bin\\de-de.slf",
                                 bench::InstallDir() + "\\de-de.slf");
        mProcess = bench::LaunchProcess(bench::InstalledRwz(), "\"" + bench::InstalledRwz() + "\"",
                                        bench::InstallDir());
        for (int i = 0; i < 400 && !mWindow; ++i, Sleep(50)) {
            HWND window = FindWindowA("RoamwiseMain", nullptr);
            if (window && IsWindowVisible(window)) mWindow = window;
        }
    }
    ~MainWindow() {
        if (mWindow) PostMessageA(mWindow, WM_CLOSE, 0, 0);
        if (WaitForSingleObject(mProcess.hProcess, 10000) != WAIT_OBJECT_0)
            TerminateProcess(mProcess.hProcess, 1);
        CloseHandle(mProcess.hThread);
        CloseHandle(mProcess.hProcess);
    }
    HWND Window() const { return mWindow; }

    void Command(int id) const { PostMessageA(mWindow, WM_COMMAND, id, 0); }

    // Reads the captions from inside the program.
    Captions Probe() const {
        Captions captions;
        HMODULE probe = LoadLibraryA((bench::BuildDir() + "\\tests\\MainWindowProbe.dll").c_str());
        if (!probe) return captions;
        auto proc = reinterpret_cast<HOOKPROC>(GetProcAddress(probe, "MainWindowProbeProc"));
        const DWORD thread = GetWindowThreadProcessId(mWindow, nullptr);
        HHOOK hook = SetWindowsHookExA(WH_CALLWNDPROC, proc, probe, thread);
        WNDCLASSA receiverClass = {};
        receiverClass.lpfnWndProc = ReceiverProc;
        receiverClass.lpszClassName = "RwzProbeReceiver";
        RegisterClassA(&receiverClass);
        HWND receiver = CreateWindowExA(0, "RwzProbeReceiver", "", 0, 0, 0, 0, 0, HWND_MESSAGE,
                                        nullptr, nullptr, nullptr);
        gProbeAnswer.clear();
        DWORD_PTR ignored;
        SendMessageTimeoutA(mWindow, RegisterWindowMessageA("RwzMainWindowProbe"),
                            reinterpret_cast<WPARAM>(receiver), 0, SMTO_NORMAL, 10000, &ignored);
        DestroyWindow(receiver);
        UnhookWindowsHookEx(hook);
        FreeLibrary(probe);
        for (const std::string& line : bench::SplitLines(gProbeAnswer)) {
            const size_t first = line.find('\t');
            const size_t second = line.find('\t', first + 1);
            if (second == std::string::npos) continue;
            std::string kind = line.substr(0, first);
            if (kind == "combo") kind += line.substr(first + 1, second - first - 1);
            if (kind == "menu-grayed") kind = "menu";
            captions[kind].push_back(line.substr(second + 1));
        }
        return captions;
    }

  private:
    PROCESS_INFORMATION mProcess = {};
    HWND mWindow = nullptr;
};

// Waits until `done` holds (an answered dialog takes effect a moment later).
template <class Done>
bool WaitFor(Done done) {
    for (int i = 0; i < 200; ++i, Sleep(50))
        if (done()) return true;
    return false;
}

// The File menu's recent-file items, in order.
std::vector<std::string> RecentFileItems(const Captions& captions) {
    std::vector<std::string> items;
    for (const std::string& item : captions.at("menu"))
        if (item.size() > 3 && item[0] == '&' && item[2] == '.') items.push_back(item);
    return items;
}

TEST(Options, RecentFilesAndDisabledAdaptersFollowTheDialog) {
    bench::Machine machine("xp-laptop");
    {
        MainWindow main;
        ASSERT_TRUE(main.Window());
        bench::DialogWatch watch({bench::Answer("OK")
                                      .Title("Options")
                                      .Set(IDC_OPTIONS_MAXRECENT, "4")
                                      .Check(IDC_OPTIONS_CHECK2)});
        main.Command(IDM_TOOLS_OPTIONS);
        ASSERT_TRUE(WaitFor([] { return Setting("Recent", "MaxFile") == "4"; }));
        const bench::WatchResult& seen = watch.Stop();
        EXPECT_TRUE(seen.DialogsAsScripted());
        ASSERT_EQ(1u, seen.dialogs.size());
        // Shown as stored before: five recent files, disabled adapters listed.
        EXPECT_EQ("5", seen.dialogs[0].Control(IDC_OPTIONS_MAXRECENT)->text);
        EXPECT_TRUE(seen.dialogs[0].Control(IDC_OPTIONS_CHECK2)->checked);
        EXPECT_EQ("1", Setting("Options", "ShowDisabledNICs"));
    }
    const char* const profiles[] = {"A", "B", "C", "D", "E"};
    for (const char* name : profiles) {
        const std::string file = std::string("C:\\Profiles\\") + name + ".rwz";
        bench::WriteFile(file, "[Enabled Sections]\r\nGeneral=0\r\n");
        bench::RunResult run = bench::RunRwz("/hidden /load " + file);
        ASSERT_TRUE(run.DialogsAsScripted()) << run.Describe();
    }

    MainWindow main;
    ASSERT_TRUE(main.Window());
    const Captions captions = main.Probe();
    EXPECT_EQ(RecentFileItems(captions),
              (std::vector<std::string>{"&1. E.rwz", "&2. D.rwz", "&3. C.rwz", "&4. B.rwz"}));
    const auto& adapters = captions.at("combo" + std::to_string(kAdapterBox));
    EXPECT_NE(std::find(adapters.begin(), adapters.end(), "1394 Connection (Disabled)"),
              adapters.end());
}

TEST(Options, ARecentFilesLengthThatIsNoNumberFromZeroToTwentyChangesNothing) {
    bench::Machine machine("xp-laptop");
    MainWindow main;
    ASSERT_TRUE(main.Window());
    const struct {
        const char* typed;
        const char* stored;  // "" when refused
    } rows[] = {
        {"99999", ""},
        {"text", ""},
        {"21", ""},
        {"0", "0"},
    };
    for (const auto& row : rows) {
        const bool refused = *row.stored == '\0';
        std::vector<bench::Answer> script = {
            bench::Answer("OK").Title("Options").Set(IDC_OPTIONS_MAXRECENT, row.typed)};
        if (refused) script.push_back(bench::Answer("OK").Title("Roamwise"));
        bench::DialogWatch watch(script);
        main.Command(IDM_TOOLS_OPTIONS);
        if (refused) {
            // The dialog stays open for a better value behind message 30: the
            // user gives up once the box is answered (the watcher may answer it
            // before a look finds it, so the first wait may come back empty).
            WaitFor([] { return FindWindowA("#32770", "Roamwise") != nullptr; });
            ASSERT_TRUE(WaitFor([] { return FindWindowA("#32770", "Options") != nullptr; }));
            PostMessageA(FindWindowA("#32770", "Options"), WM_COMMAND, IDCANCEL, 0);
        }
        // An accepted value can close the dialog before a look finds it open.
        ASSERT_TRUE(WaitFor([&] {
            return FindWindowA("#32770", "Options") == nullptr &&
                   (refused || Setting("Recent", "MaxFile") == row.stored);
        })) << row.typed;
        const bench::WatchResult& seen = watch.Stop();
        EXPECT_EQ(0u, seen.scriptLeft) << row.typed;
        if (refused) {
            // On a slow machine the watcher may press the waiting dialog's OK
            // again: each press is refused the same way.
            ASSERT_GE(seen.dialogs.size(), 2u) << row.typed;
            for (const bench::DialogRecord& dialog : seen.dialogs) {
                if (dialog.title == "Roamwise")
                    EXPECT_EQ("Please enter a numeric value from 0 to 20.", dialog.text);
                else
                    EXPECT_EQ("Options", dialog.title);
            }
        } else {
            EXPECT_TRUE(seen.DialogsAsScripted()) << row.typed;
        }
        EXPECT_EQ(row.stored, Setting("Recent", "MaxFile")) << row.typed;
    }
}

TEST(Language, GermanChangesTheWindowAtOnceAndStaysAfterARestart) {
    bench::Machine machine("xp-laptop");
    Captions english, german;
    {
        MainWindow main;
        ASSERT_TRUE(main.Window());
        english = main.Probe();
        EXPECT_EQ("[Current Configuration] - Roamwise", english["title"].at(0));
        EXPECT_EQ((std::vector<std::string>{"General", "Internet Explorer", "Netscape", "Opera"}),
                  english["tab"]);

        main.Command(IDM_TOOLS_LANGUAGE);
        HWND dialog = nullptr;
        ASSERT_TRUE(
            WaitFor([&] { return (dialog = FindWindowA("#32770", "Language")) != nullptr; }));
        HWND list = GetDlgItem(dialog, IDC_LANGUAGE_LIST);
        // The built-in English first, then the language files by name.
        ASSERT_EQ(2, SendMessageA(list, LB_GETCOUNT, 0, 0));
        EXPECT_EQ(0, SendMessageA(list, LB_GETCURSEL, 0, 0)) << "English is the current language";
        SendMessageA(list, LB_SETCURSEL, 1, 0);
        bench::DialogWatch watch({bench::Answer("OK").Title("Language")});
        ASSERT_TRUE(WaitFor([] { return Setting("UserInfo", "Language") == "de-de"; }));
        EXPECT_TRUE(watch.Stop().DialogsAsScripted());
        german = main.Probe();
    }
    EXPECT_EQ("[Aktuelle Konfiguration] - Roamwise", german["title"].at(0));
    EXPECT_EQ((std::vector<std::string>{"Allgemein", "Internet Explorer", "Netscape", "Opera"}),
              german["tab"]);
    // Every menu item and every tool tip now reads differently.
    ASSERT_EQ(english["menu"].size(), german["menu"].size());
    for (size_t i = 0; i < english["menu"].size(); ++i)
        EXPECT_NE(english["menu"][i], german["menu"][i]) << english["menu"][i];
    ASSERT_EQ(english["tip"].size(), german["tip"].size());
    for (size_t i = 0; i < english["tip"].size(); ++i)
        EXPECT_NE(english["tip"][i], german["tip"][i]) << english["tip"][i];
    EXPECT_EQ("&Datei", german["menu"].at(0));
    EXPECT_EQ(
        "Profil \xF6"
        "ffnen",
        german["tip"].at(0));

    MainWindow restarted;
    ASSERT_TRUE(restarted.Window());
    const Captions again = restarted.Probe();
    EXPECT_EQ(german["title"], again.at("title"));
    EXPECT_EQ(german["menu"], again.at("menu"));
    EXPECT_EQ(german["tip"], again.at("tip"));
}

}  // namespace
