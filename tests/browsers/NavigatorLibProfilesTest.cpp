// How the Netscape back end finds the browser's user profiles on simulated
// machines (tests/machines/*-netscape*), when it shows the Netscape notice,
// and that a damaged Mozilla profile registry stops nothing.
#include <windows.h>

#include <chrono>

#include "NavigatorLibTestSupport.h"
#include "bench/standins/StandIns.h"
#include "browsers/RegistryDatWriter.h"
#include "platform/modAPI.h"
#include "platform/modUtilities.h"
#include "profile/BackEndFactory.h"
#include "shell/frmNetscapeNoticeRes.h"

namespace rwz::test {
namespace {

using Profiles = std::vector<std::string>;

std::string MozillaProfilesFolder() {
    return AppDataFolder() + "\\Mozilla\\Profiles";
}

// --- The three places, in order ----------------------------------------------

TEST_F(NavigatorLibTest, Netscape4MachineWideListGivesTheCurrentUser) {
    InstallNetscape("win98-netscape4");
    NavigatorLib lib;

    EXPECT_EQ("4.79", lib.VersionString());
    EXPECT_FLOAT_EQ(4.79f, lib.Version());
    EXPECT_TRUE(lib.IsInstalled());
    EXPECT_FALSE(lib.UsesLaterPrefs());
    EXPECT_TRUE(lib.MailAvailable());
    // Only the current user of the list: "reception" is not looked at.
    EXPECT_EQ(Profiles({"pat"}), lib.ProfileList());
    EXPECT_EQ("pat", lib.CurrentProfile());
    EXPECT_TRUE(lib.CurrentProfileFound());
    EXPECT_EQ("C:\\Program Files\\Netscape\\Users\\pat\\prefs.js", lib.CurrentPrefsFile());
    EXPECT_TRUE(Boxes().empty()) << DescribeBoxes();
}

TEST_F(NavigatorLibTest, Netscape4PerUserListFindsEachFolderByItsFallback) {
    InstallNetscape("nt40-netscape4");
    NavigatorLib lib;

    // Mail state file (pat), install drive (lee_chan, whose mail state folder
    // is gone), Windows drive (sam); "olduser" has no folder anywhere.
    EXPECT_EQ(Profiles({"lee_chan", "pat", "sam"}), lib.ProfileList());
    EXPECT_EQ("C:\\Netscape\\Users\\lee_chan\\prefs.js", lib.PrefsFileOf("lee_chan"));
    EXPECT_EQ("C:\\Profiles\\pat\\prefs.js", lib.PrefsFileOf("pat"));
    EXPECT_EQ("C:\\Program Files\\Netscape\\Users\\sam\\prefs.js", lib.PrefsFileOf("sam"));
    EXPECT_EQ("", lib.PrefsFileOf("olduser"));
    // "CurrentUser" is "Lee Chan": the key name lower-cases it and has "_" for the blank.
    EXPECT_EQ("lee_chan", lib.CurrentProfile());
    EXPECT_TRUE(lib.CurrentProfileFound());
    EXPECT_TRUE(Boxes().empty()) << DescribeBoxes();
}

TEST_F(NavigatorLibTest, MachineWideUserWithoutPrefsLeavesThePerUserList) {
    InstallNetscape("nt40-netscape4");
    HKEY key = nullptr;
    ASSERT_EQ(
        ERROR_SUCCESS,
        RegCreateKeyExA(HKEY_LOCAL_MACHINE, "SOFTWARE\\Netscape\\Netscape Navigator\\Users\\ghost",
                        0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr));
    const char folder[] = "C:\\Program Files\\Netscape\\Users\\ghost";
    RegSetValueExA(key, "DirRoot", 0, REG_SZ, reinterpret_cast<const BYTE*>(folder), sizeof folder);
    RegCloseKey(key);
    ASSERT_EQ(ERROR_SUCCESS,
              RegCreateKeyExA(HKEY_LOCAL_MACHINE, "SOFTWARE\\Netscape\\Netscape Navigator\\Users",
                              0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr));
    RegSetValueExA(key, "CurrentUser", 0, REG_SZ, reinterpret_cast<const BYTE*>("ghost"), 6);
    RegCloseKey(key);

    NavigatorLib lib;
    EXPECT_EQ(Profiles({"lee_chan", "pat", "sam"}), lib.ProfileList());
    EXPECT_EQ("lee_chan", lib.CurrentProfile());
}

TEST_F(NavigatorLibTest, MozillaRegistryListsItsProfilesAndTakesTheFirst) {
    InstallNetscape("xp-netscape7");
    NavigatorLib lib;

    EXPECT_EQ("7.2", lib.VersionString());
    EXPECT_TRUE(lib.UsesLaterPrefs());
    EXPECT_FALSE(lib.MailAvailable());
    // "retired" has a folder entry but no folder; "Home Office" has no entry
    // and is found through its "*.slt" folder.
    EXPECT_EQ(Profiles({"work", "Home Office"}), lib.ProfileList());
    EXPECT_EQ(MozillaProfilesFolder() + "\\work\\k3x9q2mf.slt\\prefs.js", lib.PrefsFileOf("work"));
    EXPECT_EQ(MozillaProfilesFolder() + "\\Home Office\\p0w8r5tz.slt\\prefs.js",
              lib.PrefsFileOf("home office"));
    // The registry cannot say which profile Netscape uses: the notice, then the first.
    EXPECT_FALSE(lib.CurrentProfileFound());
    EXPECT_EQ("work", lib.CurrentProfile());
    ASSERT_EQ(1u, Boxes().size()) << DescribeBoxes();
    EXPECT_EQ(kNoticeTitle, Boxes()[0].Title);
    EXPECT_NE(std::string::npos, Boxes()[0].Text.find("'work'")) << Boxes()[0].Text;
    EXPECT_TRUE(Boxes()[0].Information);
}

TEST_F(NavigatorLibTest, Netscape4ProfilesComeBeforeMozillaOnes) {
    InstallNetscape("win98-netscape4");
    InstallNetscape("xp-netscape7");
    NavigatorLib lib;

    EXPECT_EQ(Profiles({"pat", "work", "Home Office"}), lib.ProfileList());
    EXPECT_EQ("pat", lib.CurrentProfile());
    EXPECT_TRUE(Boxes().empty()) << DescribeBoxes();
}

TEST_F(NavigatorLibTest, ProfileOfANameAlreadyFoundIsLeftOut) {
    InstallNetscape("xp-netscape7");
    const std::string work = MozillaProfilesFolder() + "\\work\\k3x9q2mf.slt";
    bench::WriteFile(MozillaRegistryFile(),
                     MakeMozillaRegistry({{"work", work}, {"WORK", work}, {"Home Office", ""}}));
    NavigatorLib lib;
    EXPECT_EQ(Profiles({"work", "Home Office"}), lib.ProfileList());
}

TEST_F(NavigatorLibTest, FactoryMakesTheNetscapeBackEnd) {
    InstallNetscape("win98-netscape4");
    std::unique_ptr<IBrowser> browser = CreateNavigatorConfig();
    ASSERT_NE(nullptr, browser);
    EXPECT_TRUE(browser->IsInstalled());
    EXPECT_EQ("pat", browser->CurrentProfile());
}

// The stand-in that the machines register: the version of its variant, and a
// "MozillaWindowClass" window that ends the program when asked to close.
TEST_F(NavigatorLibTest, StandInKeepsABrowserWindowUntilAskedToClose) {
    for (const char* variant : {"FakeNetscape479.exe", "FakeNetscape72.exe"}) {
        SCOPED_TRACE(variant);
        const std::string program = bench::BuildDir() + "\\tests\\" + variant;
        EXPECT_EQ(std::string(variant) == "FakeNetscape72.exe" ? "7.2" : "4.79",
                  GetFileProductVersion(program));

        HANDLE process = bench::StartStandIn(program, "MozillaWindowClass");
        HWND window = FindWindowA("MozillaWindowClass", nullptr);
        ASSERT_NE(nullptr, window);
        EXPECT_FALSE(IsWindowVisible(window));
        PostMessageA(window, WM_CLOSE, 0, 0);
        EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(process, 10000));
        DWORD exitCode = 1;
        GetExitCodeProcess(process, &exitCode);
        EXPECT_EQ(0u, exitCode);
        CloseHandle(process);
        EXPECT_EQ(nullptr, FindWindowA("MozillaWindowClass", nullptr));
    }
}

// --- The Netscape notice -------------------------------------------------------

TEST_F(NavigatorLibTest, NoticeFollowsTheOption) {
    const struct {
        const char* option;  // nullptr: not stored
        bool shown;
    } cases[] = {{nullptr, true}, {"0", true}, {"1", false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.option ? c.option : "(none)");
        RemoveNetscape();
        InstallNetscape("xp-netscape7");
        if (c.option) SaveProgramSetting(kProductName, "Options", "NavigatorWarning", c.option);
        mWatcher.Clear();
        NavigatorLib lib;
        EXPECT_EQ(c.shown ? 1u : 0u, BoxesTitled(kNoticeTitle)) << DescribeBoxes();
        // Shown or not, the first profile becomes current.
        EXPECT_EQ("work", lib.CurrentProfile());
    }
}

TEST_F(NavigatorLibTest, NoticeTickedNotToShowAgainStoresTheOption) {
    InstallNetscape("xp-netscape7");
    mWatcher.SetAnswer(IDOK, {IDC_NSNOTICE_CHECK0});
    { NavigatorLib lib; }
    ASSERT_EQ(1u, Boxes().size()) << DescribeBoxes();
    EXPECT_EQ(std::vector<int>({IDC_NSNOTICE_CHECK0}), Boxes()[0].Ticked);
    EXPECT_EQ("1", GetProgramSetting(kProductName, "Options", "NavigatorWarning", "0"));

    mWatcher.Clear();
    { NavigatorLib lib; }
    EXPECT_TRUE(Boxes().empty()) << DescribeBoxes();
}

TEST_F(NavigatorLibTest, NoticeClosedAsItIsKeepsShowing) {
    InstallNetscape("xp-netscape7");
    { NavigatorLib lib; }
    EXPECT_EQ("0", GetProgramSetting(kProductName, "Options", "NavigatorWarning", "0"));
    { NavigatorLib lib; }
    EXPECT_EQ(2u, BoxesTitled(kNoticeTitle)) << DescribeBoxes();
}

TEST_F(NavigatorLibTest, NoticeSaysSoWhenThereIsNoProfileAtAll) {
    InstallNetscape("xp-netscape7");
    DeleteTree(AppDataFolder() + "\\Mozilla");
    NavigatorLib lib;

    EXPECT_TRUE(lib.ProfileList().empty());
    EXPECT_EQ("", lib.CurrentProfile());
    ASSERT_EQ(1u, Boxes().size()) << DescribeBoxes();
    EXPECT_EQ(kNoticeTitle, Boxes()[0].Title);
    EXPECT_NE(std::string::npos, Boxes()[0].Text.find("none of its user profiles"))
        << Boxes()[0].Text;
}

// --- A damaged profile registry ------------------------------------------------

std::string Registry(const std::string& astrWorkFolder) {
    return MakeMozillaRegistry({{"work", astrWorkFolder}, {"Home Office", ""}}, "work");
}

TEST_F(NavigatorLibTest, DamagedMozillaRegistryEndsInTheNoticeNotInACrash) {
    InstallNetscape("xp-netscape7");
    const std::string work = MozillaProfilesFolder() + "\\work\\k3x9q2mf.slt";
    const std::string good = Registry(work);

    // A node whose sibling link points back at itself.
    RegistryDatWriter loopWriter;
    const auto common = loopWriter.AddKey(loopWriter.Root(), "Common");
    const auto list = loopWriter.AddKey(common, "Profiles");
    const auto first = loopWriter.AddKey(list, "work");
    loopWriter.AddString(first, "directory", work);
    std::string loop = loopWriter.Build();
    RegistryDatWriter::PutLong(loop, loopWriter.Offset(first) + RegistryDatWriter::kLeft,
                               loopWriter.Offset(first));

    std::string rootPastEnd = good;
    RegistryDatWriter::PutLong(rootPastEnd, 12, 0x7FFFFFF0u);
    std::string hugeName = good;
    RegistryDatWriter::PutShort(hugeName, RegistryDatWriter::GetLong(good, 12) + 8, 0xFFFF);

    const struct {
        const char* name;
        std::string bytes;
        bool mayListWork;  // what could be read may include "work"
    } cases[] = {
        {"empty", "", false},
        {"not a registry", std::string(4096, '\x5a'), false},
        {"header only", good.substr(0, 16), false},
        {"cut in half", good.substr(0, good.size() / 2), true},
        {"root past the end", rootPastEnd, false},
        {"name longer than the file", hugeName, false},
        {"chain looping on itself", loop, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        bench::WriteFile(MozillaRegistryFile(), c.bytes);
        mWatcher.Clear();
        const auto start = std::chrono::steady_clock::now();
        NavigatorLib lib;
        lib.LoadConfiguration();
        const auto seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start);
        EXPECT_LT(seconds.count(), 10.0);

        for (const std::string& name : lib.ProfileList())
            EXPECT_TRUE(c.mayListWork && name == "work") << name;
        EXPECT_EQ(1u, BoxesTitled(kNoticeTitle)) << DescribeBoxes();
        if (lib.ProfileList().empty()) {
            // Applying has nowhere to go and says so.
            lib.SetHTTPAddress("proxy.example");
            lib.ApplyConfiguration();
            EXPECT_EQ(1u, BoxesTitled("Roamwise")) << DescribeBoxes();
            EXPECT_FALSE(lib.IsModified());
        }
    }
}

TEST_F(NavigatorLibTest, RealMozillaRegistryIsReadWithItsUnixFolder) {
    InstallNetscape("xp-netscape7");
    bench::WriteFile(MozillaRegistryFile(), bench::ReadFileText(MozillaFixturePath()));
    NavigatorLib lib;
    // Its one profile's folder is a Unix path, which holds no prefs.js here.
    EXPECT_TRUE(lib.ProfileList().empty());
    EXPECT_EQ(1u, BoxesTitled(kNoticeTitle)) << DescribeBoxes();
}

}  // namespace
}  // namespace rwz::test
