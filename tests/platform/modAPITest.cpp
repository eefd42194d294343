// System identification by version numbers, and browser versions found
// through their "App Paths" entries.
#include "platform/modAPI.h"

#include <gtest/gtest.h>

#include "support/RawRegistry.h"

namespace rwz {
namespace {

TEST(OSTagTest, TagForEveryPlatformAndVersion) {
    const struct {
        DWORD Platform, Major, Minor;
        const char* Tag;
    } cases[] = {
        {1, 4, 0, "9x"}, {1, 4, 10, "9x"}, {1, 4, 90, "9x"},  {2, 4, 0, "NT"},
        {2, 5, 0, "2K"}, {2, 5, 1, "XP"},  {2, 5, 2, "2003"}, {2, 5, 3, ""},
        {2, 6, 0, ""},   {2, 3, 51, ""},   {0, 3, 10, ""},    {3, 4, 0, ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(OSTagFor(c.Platform, c.Major, c.Minor), c.Tag)
            << c.Platform << " " << c.Major << "." << c.Minor;
}

TEST(VersionNumberTest, LeadingNumber) {
    const struct {
        const char* Text;
        float Number;
    } cases[] = {
        {"4.79 [en]", 4.79f}, {"6.0.2900.2180", 6.0f},
        {"7", 7.0f},          {"  5.5", 5.5f},
        {".5", 0.5f},         {"", 0.0f},
        {"abc", 0.0f},        {"1.2x", 1.2f},
    };
    for (const auto& c : cases) EXPECT_FLOAT_EQ(VersionNumber(c.Text), c.Number) << c.Text;
}

// Netscape's three "App Paths" names are tried in order: an empty path goes on
// to the next, a non-empty one decides even when its file has no version.
TEST(BrowserVersionTest, NetscapeKeysAreTriedInOrder) {
    const std::string appPaths = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";
    const test::RawValue ie = test::RawQuery(HKEY_LOCAL_MACHINE, appPaths + "IEXPLORE.EXE", "");
    const std::string iePath = std::string(ie.Data.begin(), ie.Data.end()).c_str();
    ASSERT_FALSE(GetIEVersion().empty());
    EXPECT_EQ(GetNetscapeVersion(), "");
    test::RawSetString(HKEY_LOCAL_MACHINE, appPaths + "netscape.exe", "", iePath);
    EXPECT_EQ(GetNetscapeVersion(), GetIEVersion());
    test::RawSetString(HKEY_LOCAL_MACHINE, appPaths + "Netscp6.exe", "", "");
    EXPECT_EQ(GetNetscapeVersion(), GetIEVersion());
    test::RawSetString(HKEY_LOCAL_MACHINE, appPaths + "Netscp.exe", "", "C:\\no such file.exe");
    EXPECT_EQ(GetNetscapeVersion(), "");
    EXPECT_EQ(GetOperaVersion(), "");
    test::RawSetString(HKEY_LOCAL_MACHINE, appPaths + "Opera.exe", "", iePath);
    EXPECT_EQ(GetOperaVersion(), GetIEVersion());
}

}  // namespace
}  // namespace rwz
