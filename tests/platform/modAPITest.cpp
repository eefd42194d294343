// System identification, browser versions from real version resources, and the
// file dialogs answered by a watcher thread.
#include "platform/modAPI.h"

#include <dlgs.h>
#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <functional>
#include <thread>
#include <vector>

#include "support/RawRegistry.h"
#include "platform/modLogging.h"

namespace rwz {
namespace {

using test::RawDeleteTree;
using test::RawQuery;
using test::RawSetString;

OSVERSIONINFOA RawVersion() {
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    GetVersionExA(&version);
    return version;
}

TEST(OSTagTest, TagForEveryPlatformAndVersion) {
    const struct {
        DWORD Platform, Major, Minor;
        const char* Tag;
    } cases[] = {
        {1, 4, 0, "9x"}, {1, 4, 10, "9x"},  {1, 4, 90, "9x"}, {2, 4, 0, "NT"}, {2, 5, 0, "2K"},
        {2, 5, 1, "XP"}, {2, 5, 2, "2003"}, {2, 5, 3, ""},    {2, 6, 0, ""},   {2, 6, 1, ""},
        {2, 3, 51, ""},  {0, 3, 10, ""},    {3, 4, 0, ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(OSTagFor(c.Platform, c.Major, c.Minor), c.Tag)
            << c.Platform << " " << c.Major << "." << c.Minor;
    }
}

TEST(OSTagTest, RunningSystemAndItsLogLine) {
    OSVERSIONINFOEXA version;
    ASSERT_TRUE(QueryOSVersion(version));
    EXPECT_EQ(version.dwOSVersionInfoSize, sizeof(OSVERSIONINFOEXA));  // the extended record
    const OSVERSIONINFOA raw = RawVersion();
    EXPECT_EQ(version.dwMajorVersion, raw.dwMajorVersion);
    EXPECT_EQ(version.dwMinorVersion, raw.dwMinorVersion);

    EXPECT_EQ(GetCurrentOSTag(),
              OSTagFor(raw.dwPlatformId, raw.dwMajorVersion, raw.dwMinorVersion));
    EXPECT_EQ(IsNTPlatform(), raw.dwPlatformId == VER_PLATFORM_WIN32_NT);
    EXPECT_FALSE(IsXPHomeEdition());  // Wine has no suite bit for XP Home

    std::ifstream log(LogFilePath());
    std::string line, last;
    while (std::getline(log, line)) {
        if (line.find("modAPI - GetCurrentOSTag: ") != std::string::npos) last = line;
    }
    const std::string expected =
        "- Debug - modAPI - GetCurrentOSTag: Major = " + std::to_string(raw.dwMajorVersion) +
        "  Minor = " + std::to_string(raw.dwMinorVersion);
    ASSERT_GE(last.size(), expected.size());
    EXPECT_EQ(last.substr(last.size() - expected.size()), expected);
}

TEST(VersionNumberTest, LeadingNumber) {
    const struct {
        const char* Text;
        float Number;
    } cases[] = {
        {"4.79 [en]", 4.79f}, {"6.0.2900.2180", 6.0f}, {"8.00.6001.18702", 8.0f},
        {"7", 7.0f},          {"  5.5", 5.5f},         {".5", 0.5f},
        {"", 0.0f},           {"abc", 0.0f},           {"1.2x", 1.2f},
    };
    for (const auto& c : cases) EXPECT_FLOAT_EQ(VersionNumber(c.Text), c.Number) << c.Text;
}

const char kAppPaths[] = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";

// Netscape and Opera are registered by the tests under their "App Paths" names,
// pointing at programs that are really there.
class BrowserVersionTest : public ::testing::Test {
  protected:
    void SetUp() override {
        Clear();
        mIEPath = RawString(std::string(kAppPaths) + "IEXPLORE.EXE");
        ASSERT_FALSE(mIEPath.empty());
        char temp[MAX_PATH];
        GetTempPathA(MAX_PATH, temp);
        mNoResource = std::string(temp) + "RoamwiseNoVersion.exe";
        std::ofstream(mNoResource) << "not a program";
    }
    void TearDown() override {
        Clear();
        DeleteFileA(mNoResource.c_str());
    }

    static void Clear() {
        for (const char* exe : {"Netscp.exe", "Netscp6.exe", "netscape.exe", "Opera.exe"}) {
            RawDeleteTree(HKEY_LOCAL_MACHINE, std::string(kAppPaths) + exe);
        }
    }
    static std::string RawString(const std::string& key) {
        const test::RawValue value = RawQuery(HKEY_LOCAL_MACHINE, key, "");
        return value.Result ? std::string()
                            : std::string(value.Data.begin(), value.Data.end()).c_str();
    }
    static void Register(const char* exe, const std::string& path) {
        RawSetString(HKEY_LOCAL_MACHINE, std::string(kAppPaths) + exe, "", path);
    }

    std::string mIEPath;
    std::string mNoResource;  // a file that exists but has no version resource
};

TEST_F(BrowserVersionTest, InternetExplorerFromItsVersionResource) {
    const std::string version = GetIEVersion();
    EXPECT_FALSE(version.empty());
    EXPECT_EQ(version, GetFileProductVersion(mIEPath));
    EXPECT_GT(GetIEVersionNumber(), 0.0f);
    EXPECT_FLOAT_EQ(GetIEVersionNumber(), VersionNumber(version));

    EXPECT_EQ(GetFileProductVersion(mNoResource), "");
    EXPECT_EQ(GetFileProductVersion("C:\\no such file.exe"), "");
    EXPECT_EQ(GetFileProductVersion(""), "");
}

TEST_F(BrowserVersionTest, NetscapeKeysAreTriedInOrder) {
    EXPECT_EQ(GetNetscapeVersion(), "");
    EXPECT_EQ(GetNetscapeVersionNumber(), 0.0f);

    // Found through the third name alone.
    Register("netscape.exe", mIEPath);
    EXPECT_EQ(GetNetscapeVersion(), GetIEVersion());

    // An empty path goes on to the next name ...
    Register("Netscp6.exe", "");
    EXPECT_EQ(GetNetscapeVersion(), GetIEVersion());
    // ... a non-empty one decides, even when its file has no version.
    Register("Netscp.exe", mNoResource);
    EXPECT_EQ(GetNetscapeVersion(), "");
}

TEST_F(BrowserVersionTest, Opera) {
    EXPECT_EQ(GetOperaVersion(), "");
    EXPECT_EQ(GetOperaVersionNumber(), 0.0f);
    Register("Opera.exe", mIEPath);
    EXPECT_EQ(GetOperaVersion(), GetIEVersion());
}

struct DialogSearch {
    const std::string* Title;
    HWND Found;
};

BOOL CALLBACK FindDialog(HWND window, LPARAM param) {
    auto* search = reinterpret_cast<DialogSearch*>(param);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    char windowClass[16] = "";
    char title[256] = "";
    GetClassNameA(window, windowClass, sizeof windowClass);
    GetWindowTextA(window, title, sizeof title);
    if (process == GetCurrentProcessId() && IsWindowVisible(window) &&
        std::string(windowClass) == "#32770" &&
        (search->Title->empty() || *search->Title == title)) {
        search->Found = window;
        return FALSE;
    }
    return TRUE;
}

// Answers the first dialog of this process titled `title` (any title when empty)
// from another thread.
class DialogAnswer {
  public:
    DialogAnswer(const std::string& title, std::function<void(HWND)> answer)
        : mThread([this, title, answer] {
              for (int i = 0; i < 300 && !mDone; ++i) {
                  DialogSearch search{&title, nullptr};
                  EnumWindows(FindDialog, reinterpret_cast<LPARAM>(&search));
                  if (search.Found) {
                      answer(search.Found);
                      return;
                  }
                  Sleep(50);
              }
          }) {}
    ~DialogAnswer() {
        mDone = true;
        mThread.join();
    }

  private:
    std::atomic<bool> mDone{false};
    std::thread mThread;
};

std::string ItemText(HWND dialog, int id) {
    char text[MAX_PATH] = "";
    GetDlgItemTextA(dialog, id, text, MAX_PATH);
    return text;
}

// The file-name field: a combo box (cmb13) in the explorer-style dialog, an edit (edt1) else.
void SetFileName(HWND dialog, const std::string& name) {
    SetDlgItemTextA(dialog, cmb13, name.c_str());
    SetDlgItemTextA(dialog, edt1, name.c_str());
}

void Press(HWND dialog, int id) {
    PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
}

class FileDialogTest : public ::testing::Test {
  protected:
    void SetUp() override {
        char temp[MAX_PATH];
        GetTempPathA(MAX_PATH, temp);
        mFolder = std::string(temp) + "RoamwiseDialogTest";
        CreateDirectoryA(mFolder.c_str(), nullptr);
        std::ofstream(mFolder + "\\Office.rwz") << "[Enabled Sections]\n";
    }
    void TearDown() override {
        DeleteFileA((mFolder + "\\Office.rwz").c_str());
        RemoveDirectoryA(mFolder.c_str());
    }
    std::string mFolder;
    const std::string mFilter = "Roamwise Files (*.rwz)|*.rwz|All Files (*.*)|*.*";
};

TEST_F(FileDialogTest, OpenShowsTheFilterAndReturnsTheChosenFile) {
    std::vector<std::string> types;
    std::string chosen;
    {
        DialogAnswer answer("Open", [&](HWND dialog) {
            HWND typeList = GetDlgItem(dialog, cmb1);
            const int count = static_cast<int>(SendMessageA(typeList, CB_GETCOUNT, 0, 0));
            for (int i = 0; i < count; ++i) {
                char text[256] = "";
                SendMessageA(typeList, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text));
                types.push_back(text);
            }
            SetFileName(dialog, "Office.rwz");
            Press(dialog, IDOK);
        });
        chosen = ShowOpenFileDialog(nullptr, "Open", mFilter, mFolder);
    }
    EXPECT_EQ(types, (std::vector<std::string>{"Roamwise Files (*.rwz)", "All Files (*.*)"}));
    EXPECT_EQ(chosen, mFolder + "\\Office.rwz");
}

TEST_F(FileDialogTest, SaveStartsAtTheDefaultNameAndAddsTheExtension) {
    std::string shown;
    std::string chosen;
    {
        DialogAnswer answer("Save As", [&](HWND dialog) {
            Sleep(200);
            shown = ItemText(dialog, cmb13) + ItemText(dialog, edt1);
            SetFileName(dialog, "Home");
            Press(dialog, IDOK);
        });
        chosen = ShowSaveFileDialog(nullptr, "Save As", mFilter, mFolder + "\\Office.rwz");
    }
    EXPECT_EQ(shown, "Office.rwz");
    EXPECT_EQ(chosen, mFolder + "\\Home.rwz");
}

TEST_F(FileDialogTest, CancelGivesAnEmptyPath) {
    DialogAnswer answer("Open", [](HWND dialog) { Press(dialog, IDCANCEL); });
    EXPECT_EQ(ShowOpenFileDialog(nullptr, "Open", mFilter, mFolder), "");
}

// Without a printer the system says so in a box of its own; with one, the setup
// dialog appears. Either way a cancel is reported as false.
TEST(PrintSetupDialogTest, CancelGivesFalse) {
    DialogAnswer answer("", [](HWND dialog) { Press(dialog, IDCANCEL); });
    EXPECT_FALSE(ShowPrintSetupDialog(nullptr));
}

}  // namespace
}  // namespace rwz
