// The settings store against Wine's registry, and the text helpers as tables.
#include "platform/modUtilities.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "support/RawRegistry.h"

namespace rwz {
namespace {

using test::Bytes;
using test::RawCreateKey;
using test::RawDeleteTree;
using test::RawKeyExists;
using test::RawQuery;

const std::string Q = "\"";

TEST(EvaluateConditionTest, PicksTheTextByTheSystem) {
    const struct {
        std::string Value;
        const char* Tag;
        bool XPHome;
        bool NTPlatform;
        std::string Expected;
    } cases[] = {
        {"IsWindowsXP(" + Q + "10.0.0.1" + Q + "," + Q + "10.0.0.2" + Q + ")", "XP", false, true,
         "10.0.0.1"},
        {"IsWindowsXP(" + Q + "10.0.0.1" + Q + "," + Q + "10.0.0.2" + Q + ")", "2K", false, true,
         "10.0.0.2"},
        {"IsWindows2000(" + Q + "a" + Q + "," + Q + "b" + Q + ")", "2K", false, true, "a"},
        {"ISNTPLATFORM(" + Q + "x" + Q + "," + Q + "y" + Q + ")", "9x", false, false, "y"},
        {"isntplatform(" + Q + "x" + Q + "," + Q + "y" + Q + ")", "XP", false, true, "x"},
        {"IsWindows9x(" + Q + "a" + Q + "," + Q + "b" + Q + ")", "9x", false, false, "a"},
        {"IsWindowsNT(" + Q + "a" + Q + "," + Q + "b" + Q + ")", "NT", false, true, "a"},
        {"IsWindowsNT(" + Q + "a" + Q + "," + Q + "b" + Q + ")", "2K", false, true, "b"},
        {"IsWindows2003(" + Q + "a" + Q + "," + Q + "b" + Q + ")", "2003", false, true, "a"},
        // XP Home is a condition of its own, not the XP tag.
        {"IsWindowsXPHome(" + Q + "home" + Q + "," + Q + "other" + Q + ")", "XP", true, true,
         "home"},
        {"IsWindowsXPHome(" + Q + "home" + Q + "," + Q + "other" + Q + ")", "XP", false, true,
         "other"},
        // Anything between and after the quoted texts is ignored.
        {"IsWindowsXP( " + Q + "a" + Q + " ; " + Q + "b" + Q + " ) tail", "2K", false, true, "b"},
        // A leading blank keeps the head from matching; trailing blanks and NULs go.
        {" IsWindowsXP(" + Q + "a" + Q + "," + Q + "b" + Q + ")  ", "XP", false, true,
         " IsWindowsXP(" + Q + "a" + Q + "," + Q + "b" + Q + ")"},
        {std::string("plain value  \0garbage", 21), "XP", false, true, "plain value"},
        {"{IGNORE}", "XP", false, true, "{IGNORE}"},
        {"IsWindowsXPx(" + Q + "a" + Q + ")", "XP", false, true,
         "IsWindowsXPx(" + Q + "a" + Q + ")"},
        // A missing second text yields the empty string.
        {"IsWindowsXP(" + Q + "a" + Q + ")", "2K", false, true, ""},
        {"", "XP", false, true, ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(EvaluateConditionFor(c.Value, c.Tag, c.XPHome, c.NTPlatform), c.Expected)
            << c.Value << " on " << c.Tag;
    }
}

TEST(EvaluateConditionTest, AsksTheRunningSystem) {
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    ASSERT_TRUE(GetVersionExA(&version));
    const bool nt = version.dwPlatformId == VER_PLATFORM_WIN32_NT;
    EXPECT_EQ(EvaluateCondition("IsNTPlatform(" + Q + "nt" + Q + "," + Q + "9x" + Q + ")"),
              nt ? "nt" : "9x");
    EXPECT_EQ(EvaluateCondition("IsWindowsXPHome(" + Q + "home" + Q + "," + Q + "pro" + Q + ")"),
              "pro");
    EXPECT_EQ(EvaluateCondition("10.0.0.1 "), "10.0.0.1");
}

TEST(TextHelpersTest, StripNulls) {
    const struct {
        std::string Text, Expected;
    } cases[] = {
        {std::string("abc\0def", 7), "abc"},
        {std::string("abc  \0x", 7), "abc"},
        {"  abc  ", "  abc"},
        {std::string("\0abc", 4), ""},
        {"", ""},
    };
    for (const auto& c : cases) EXPECT_EQ(StripNulls(c.Text), c.Expected) << c.Text;
}

TEST(TextHelpersTest, IsValidIP) {
    const struct {
        const char* Text;
        bool Valid;
    } cases[] = {
        {"", true},           {"1.2.3.4", true},   {"0.0.0.0", true},     {"255.255.255.255", true},
        {"001.2.3.4", true},  {"1.2.3", false},    {"1.2.3.4.5", false},  {"256.1.1.1", false},
        {"1.2.3.256", false}, {"1.2.3.4 ", false}, {" 1.2.3.4", false},   {"1..3.4", false},
        {".1.2.3", false},    {"1.2.3.", false},   {"1.2.3.0255", false}, {"0001.2.3.4", false},
        {"a.b.c.d", false},   {"1.2.3.-4", false}, {"...", false},
    };
    for (const auto& c : cases) EXPECT_EQ(IsValidIP(c.Text), c.Valid) << "'" << c.Text << "'";
}

TEST(TextHelpersTest, CommaListToMultiString) {
    EXPECT_EQ(CommaListToMultiString("a,b"), (std::vector<uint8_t>{0x61, 0, 0x62}));
    EXPECT_EQ(CommaListToMultiString(""), (std::vector<uint8_t>{0, 0}));
    EXPECT_EQ(CommaListToMultiString(","), (std::vector<uint8_t>{0}));
    EXPECT_EQ(CommaListToMultiString("10.0.0.1,10.0.0.2"), Bytes(std::string("10.0.0.1\0"
                                                                             "10.0.0.2",
                                                                             17)));
    EXPECT_EQ(CommaListToMultiString("\xE9"), (std::vector<uint8_t>{0xE9}));
}

TEST(TextHelpersTest, SplitJoinTrimAndCase) {
    const struct {
        const char* Text;
        const char* Separator;
        std::vector<std::string> Pieces;
    } cases[] = {
        {"a,b,,c", ",", {"a", "b", "", "c"}},
        {"", ",", {""}},
        {",", ",", {"", ""}},
        {"abc", "", {"abc"}},
        {"a::b:c", "::", {"a", "b:c"}},
        {"x\"y\"z", "\"", {"x", "y", "z"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Split(c.Text, c.Separator), c.Pieces) << c.Text;
        EXPECT_EQ(Join(c.Pieces, c.Separator[0] ? c.Separator : ","),
                  c.Separator[0] ? c.Text : "abc");
    }
    EXPECT_EQ(Trim("  a b \t "), "a b \t");
    EXPECT_EQ(TrimLeft("  a  "), "a  ");
    EXPECT_EQ(TrimRight("  a  "), "  a");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(ToUpper("Software\\x1"), "SOFTWARE\\X1");
    EXPECT_EQ(ToLower("IsWindowsXP("), "iswindowsxp(");
}

TEST(FilesTest, FileExistsProgramFolderAndHelpFile) {
    char exe[MAX_PATH];
    ASSERT_GT(GetModuleFileNameA(nullptr, exe, MAX_PATH), 0u);
    const std::string self = exe;
    const std::string folder = self.substr(0, self.rfind('\\'));
    EXPECT_EQ(ProgramFolder(), folder);
    EXPECT_EQ(HelpFilePath(), folder + "\\Rwz.hlp>main");

    EXPECT_TRUE(FileExists(self));
    EXPECT_TRUE(FileExists(folder + "\\*.exe"));
    EXPECT_FALSE(FileExists(folder + "\\no such file.rwz"));
    EXPECT_FALSE(FileExists(folder + "\\no such folder\\x.rwz"));
    EXPECT_FALSE(FileExists(""));

    EXPECT_EQ(StringFromPointer("abc"), "abc");
    EXPECT_EQ(StringFromPointer(nullptr), "");
    const char buffer[] = "cut\0here";
    EXPECT_EQ(StringFromPointer(buffer), "cut");
}

// The store under \HKEY_LOCAL_MACHINE\Software\<product>; a product of its own here.
class SettingsStoreTest : public ::testing::Test {
  protected:
    void SetUp() override { RawDeleteTree(HKEY_LOCAL_MACHINE, mKey); }
    void TearDown() override { RawDeleteTree(HKEY_LOCAL_MACHINE, mKey); }
    const std::string mProduct = "RoamwiseSettingsTest";
    const std::string mKey = "Software\\RoamwiseSettingsTest";
};

TEST_F(SettingsStoreTest, RoundTripWithDefaults) {
    EXPECT_EQ(GetProgramSetting(mProduct, "Options", "AutoReset", "0"), "0");
    EXPECT_TRUE(GetAllProgramSettings(mProduct, "Options").empty());

    SaveProgramSetting(mProduct, "Options", "ShowDisabledNICs", "1");
    const test::RawValue raw = RawQuery(HKEY_LOCAL_MACHINE, mKey + "\\Options", "ShowDisabledNICs");
    EXPECT_EQ(raw.Type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(raw.Data, Bytes(std::string("1", 2)));

    // Key names without regard to case; a missing key in an existing section gives the default.
    EXPECT_EQ(GetProgramSetting(mProduct, "Options", "ShowDisabledNICS", "0"), "1");
    EXPECT_EQ(GetProgramSetting(mProduct, "options", "showdisablednics", "0"), "1");
    EXPECT_EQ(GetProgramSetting(mProduct, "Options", "NICWarning", "1"), "1");

    SaveProgramSetting(mProduct, "Options", "ShowDisabledNICs", "");
    EXPECT_EQ(GetProgramSetting(mProduct, "Options", "ShowDisabledNICs", "0"), "");
    SaveProgramSetting(mProduct, "Recent", "File1", "C:\\Profiles\\Office.rwz");
    SaveProgramSetting(mProduct, "Recent", "MaxFile", "5");

    const std::vector<RegistryValueRow> rows = GetAllProgramSettings(mProduct, "Recent");
    ASSERT_EQ(rows.size(), 2u);
    for (const RegistryValueRow& row : rows) {
        EXPECT_EQ(row.Type, "0");
        EXPECT_EQ(row.Data, row.Name == "File1" ? "C:\\Profiles\\Office.rwz" : "5");
    }
}

TEST_F(SettingsStoreTest, DeletingKeysAndSections) {
    SaveProgramSetting(mProduct, "Recent", "File1", "a");
    SaveProgramSetting(mProduct, "Recent", "File2", "b");
    DeleteProgramSetting(mProduct, "Recent", "File1");
    EXPECT_EQ(GetProgramSetting(mProduct, "Recent", "File1", "none"), "none");
    EXPECT_EQ(GetProgramSetting(mProduct, "Recent", "File2", "none"), "b");
    DeleteProgramSetting(mProduct, "Recent", "File1");  // already gone: nothing happens

    DeleteProgramSetting(mProduct, "Recent");
    EXPECT_FALSE(RawKeyExists(HKEY_LOCAL_MACHINE, mKey + "\\Recent"));
    EXPECT_TRUE(GetAllProgramSettings(mProduct, "Recent").empty());
    EXPECT_EQ(GetProgramSetting(mProduct, "Recent", "File2", "none"), "none");

    // A section with sub-keys is refused by the store and stays, without an error raised.
    RawCreateKey(HKEY_LOCAL_MACHINE, mKey + "\\Add-Ins\\Sample");
    EXPECT_NO_THROW(DeleteProgramSetting(mProduct, "Add-Ins"));
    EXPECT_TRUE(RawKeyExists(HKEY_LOCAL_MACHINE, mKey + "\\Add-Ins\\Sample"));

    // Missing products and sections: never an error, always the neutral result.
    EXPECT_NO_THROW(DeleteProgramSetting("RoamwiseNoSuchProduct", "Options"));
    EXPECT_NO_THROW(DeleteProgramSetting("RoamwiseNoSuchProduct", "Options", "Key"));
    EXPECT_EQ(GetProgramSetting("RoamwiseNoSuchProduct", "Options", "Key", "dflt"), "dflt");
    EXPECT_FALSE(RawKeyExists(HKEY_LOCAL_MACHINE, "Software\\RoamwiseNoSuchProduct"));
}

}  // namespace
}  // namespace rwz
