// The text helpers and conditional values, as tables.
#include "platform/modText.h"

#include <gtest/gtest.h>

namespace rwz {
namespace {

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
    // Code page 1252, as the system maps names: accents and the letters above 0x80.
    EXPECT_EQ(ToLower("\xC9T\xC9 \x8A\x9F\xD7"), "\xE9t\xE9 \x9A\xFF\xD7");
    EXPECT_EQ(ToUpper("\xE9t\xE9 \x9A\xFF\xF7"), "\xC9T\xC9 \x8A\x9F\xF7");
}

TEST(TextHelpersTest, IniSectionNames) {
    using Names = std::vector<std::string>;
    EXPECT_EQ(IniSectionNames("; c\r\n[Enabled Sections]\r\nGeneral=1\r\n  [ Opera ]  \r\n[x"),
              (Names{"Enabled Sections", "Opera"}));
    EXPECT_EQ(IniSectionNames("\xEF\xBB\xBF[Network]\n"), Names{"Network"});
    EXPECT_EQ(IniSectionNames(std::string("\xFF\xFE[\0N\0]\0\r\0\n\0[\0", 15)), Names{});
    EXPECT_EQ(IniSectionNames(""), Names{});
}

TEST(SplitIP, SplitsTrimsAndPads) {
    struct Case {
        std::string text, separator;
        int minCount;
        std::vector<std::string> expected;
    } cases[] = {
        {"1.1.1.1,2.2.2.2", "", 0, {"1.1.1.1", "2.2.2.2"}},
        {"  1.1.1.1 ,  2.2.2.2  ", ",", 0, {"1.1.1.1", "2.2.2.2"}},
        {"1.1.1.1", ",", 3, {"1.1.1.1", "", ""}},
        {"", ",", 0, {""}},
        {"", ",", 2, {"", ""}},
        {"a,,b", ",", 0, {"a", "", "b"}},
        {"aXbxc", "x", 0, {"a", "b", "c"}},  // the separator is found without case
        {"a; b", "; ", 0, {"a", "b"}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.expected, SplitIP(c.text, c.separator, c.minCount)) << c.text;
}

TEST(MergeIP, JoinsAndDropsTrailingEmptyEntries) {
    EXPECT_EQ("1.1.1.1,2.2.2.2", MergeIP({"1.1.1.1", "2.2.2.2"}));
    EXPECT_EQ("1.1.1.1;2.2.2.2", MergeIP({"1.1.1.1", "2.2.2.2"}, ";"));
    EXPECT_EQ("1.1.1.1", MergeIP({"1.1.1.1", "", ""}));
    // An entry being retyped keeps the place of those after it.
    EXPECT_EQ(",2.2.2.2", MergeIP({"", "2.2.2.2"}));
    EXPECT_EQ("", MergeIP({}));
    EXPECT_EQ("", MergeIP({"", ""}));
    for (const std::string& list : {"10.0.0.1", "10.0.0.1,10.0.0.2,10.0.0.3"})
        EXPECT_EQ(list, MergeIP(SplitIP(list)));
}

}  // namespace
}  // namespace rwz
