// The text helpers and conditional values, as tables.
#include "platform/modText.h"

#include <gtest/gtest.h>

#include "Table.h"

namespace rwz {
namespace {

TEST(EvaluateConditionTest, PicksTheTextByTheSystem) {
    for (const auto& row : test::Rows("conditions.txt")) {
        EXPECT_EQ(EvaluateConditionFor(row[0], row[1], row[2] == "1", row[3] == "1"), row[4])
            << row[0] << " on " << row[1];
    }
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

TEST(TextHelpersTest, IniSectionNames) {
    using Names = std::vector<std::string>;
    EXPECT_EQ(IniSectionNames("; c\r\n[Enabled Sections]\r\nGeneral=1\r\n  [ Opera ]  \r\n[x"),
              (Names{"Enabled Sections", "Opera"}));
    EXPECT_EQ(IniSectionNames("\xEF\xBB\xBF[Network]\n"), Names{"Network"});
    EXPECT_EQ(IniSectionNames(std::string("\xFF\xFE[\0N\0]\0\r\0\n\0[\0", 15)), Names{});
    EXPECT_EQ(IniSectionNames(""), Names{});
}

TEST(SplitIP, SplitsTrimsAndPads) {
    const struct {
        std::string text, separator;
        int minCount;
        std::vector<std::string> expected;
    } cases[] = {
        {"1.1.1.1,2.2.2.2", "", 0, {"1.1.1.1", "2.2.2.2"}},
        {"  1.1.1.1 ,  2.2.2.2  ", ",", 0, {"1.1.1.1", "2.2.2.2"}},
        {"1.1.1.1", ",", 3, {"1.1.1.1", "", ""}},
        {"", ",", 2, {"", ""}},
        {"a,,b", ",", 0, {"a", "", "b"}},
        {"aXbxc", "x", 0, {"a", "b", "c"}},  // the separator is found without case
        {"a; b", "; ", 0, {"a", "b"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.expected, SplitIP(c.text, c.separator, c.minCount)) << c.text;
}

TEST(MergeIP, JoinsAndDropsTrailingEmptyEntries) {
    EXPECT_EQ("1.1.1.1,2.2.2.2", MergeIP({"1.1.1.1", "2.2.2.2"}));
    EXPECT_EQ("1.1.1.1", MergeIP({"1.1.1.1", "", ""}));
    // An entry being retyped keeps the place of those after it.
    EXPECT_EQ(",2.2.2.2", MergeIP({"", "2.2.2.2"}));
    EXPECT_EQ("", MergeIP({"", ""}));
    for (const std::string& list : {"10.0.0.1", "10.0.0.1,10.0.0.2,10.0.0.3"})
        EXPECT_EQ(list, MergeIP(SplitIP(list)));
}

}  // namespace
}  // namespace rwz
