// System identification and browser versions from real version resources.
#include "platform/modAPI.h"

#include <gtest/gtest.h>

#include <fstream>
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

}  // namespace
}  // namespace rwz
