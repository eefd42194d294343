#include <gtest/gtest.h>

#include "network/modAdapterChoice.h"

namespace rwz {
namespace {

struct PatternCase {
    const char* Text;
    const char* Pattern;
    bool Matches;
};

class PatternTest : public ::testing::TestWithParam<PatternCase> {};

TEST_P(PatternTest, MatchesLikeTheWildcardRules) {
    const PatternCase& c = GetParam();
    EXPECT_EQ(MatchesPattern(c.Text, c.Pattern), c.Matches) << c.Text << " / " << c.Pattern;
}

INSTANTIATE_TEST_SUITE_P(
    Wildcards, PatternTest,
    ::testing::Values(
        PatternCase{"Fast Ethernet Adapter", "*Ether*", true},
        PatternCase{"Fast Ethernet Adapter", "*ether*", false},  // case counts
        PatternCase{"Fast Ethernet Adapter", "Ether*", false},   // whole text
        PatternCase{"Fast Ethernet Adapter", "*Adapter", true},
        PatternCase{"Fast Ethernet Adapter", "*Adapter?", false}, PatternCase{"", "*", true},
        PatternCase{"", "?", false}, PatternCase{"NIC 3", "NIC #", true},
        PatternCase{"NIC x", "NIC #", false}, PatternCase{"NIC 12", "NIC #", false},
        PatternCase{"Wireless", "[A-Z]ireless", true},
        PatternCase{"wireless", "[A-Z]ireless", false},
        PatternCase{"Wireless", "[!W]ireless", false}, PatternCase{"Bireless", "[!W]ireless", true},
        PatternCase{"a-b", "a[-]b", true}, PatternCase{"a*b", "a[*]b", true},
        PatternCase{"axb", "a[*]b", false}, PatternCase{"ab", "a[]b", true},
        PatternCase{"a[b", "a[b", false},  // unclosed list: malformed
        PatternCase{"Wireless", "[Z-A]ireless", false}, PatternCase{"aXbXc", "a*b*c", true},
        PatternCase{"abcbd", "*b?", true}, PatternCase{"mississippi", "*sip*", true},
        PatternCase{"mississippi", "m*iss*ppi", true},
        PatternCase{"mississippi", "m*iss*ppx", false}));

TEST(AdapterChoiceTest, LongTextAgainstManyStarsEndsQuickly) {
    const std::string text(20000, 'a');
    EXPECT_FALSE(MatchesPattern(text, "*a*a*a*a*a*a*a*a*b"));
    EXPECT_TRUE(MatchesPattern(text, "*a*a*a*a*a*a*a*a"));
}

TEST(AdapterChoiceTest, LeadingNumberReadsOnlyTheNumberInFront) {
    EXPECT_EQ(LeadingNumber("2"), 2);
    EXPECT_EQ(LeadingNumber("  12abc"), 12);
    EXPECT_EQ(LeadingNumber("-1"), -1);
    EXPECT_EQ(LeadingNumber("x1"), 0);
    EXPECT_EQ(LeadingNumber(""), 0);
    EXPECT_GT(LeadingNumber("99999999999999999999999"), 32767);
}

struct ChoiceCase {
    const char* Value;
    int16_t Index;
};

class ChooseAdapterTest : public ::testing::TestWithParam<ChoiceCase> {};

TEST_P(ChooseAdapterTest, PicksByPatternIndexOrName) {
    const std::vector<std::string> names = {"Intel PRO/100", "Fast Ethernet Adapter",
                                            "Wireless LAN", "Fast Ethernet Adapter"};
    EXPECT_EQ(ChooseAdapter(GetParam().Value, names), GetParam().Index) << GetParam().Value;
}

INSTANTIATE_TEST_SUITE_P(
    Values, ChooseAdapterTest,
    ::testing::Values(ChoiceCase{"{*Ether*}", 1},  // first match
                      ChoiceCase{"{*LAN}", 2}, ChoiceCase{"{Token*}", 0}, ChoiceCase{"{*}", 0},
                      ChoiceCase{"index:2", 2}, ChoiceCase{"INDEX:3", 3},  // prefix without case
                      ChoiceCase{"Index: 1", 1}, ChoiceCase{"index:4", 0}, ChoiceCase{"index:9", 0},
                      ChoiceCase{"index:-1", 0}, ChoiceCase{"index:", 0}, ChoiceCase{"index:x", 0},
                      ChoiceCase{"Wireless LAN", 2},
                      ChoiceCase{"Fast Ethernet Adapter", 3},  // the last equal name
                      ChoiceCase{"wireless lan", 0},           // names compare exactly
                      ChoiceCase{"No Adapters Installed", 0}, ChoiceCase{"", 0}, ChoiceCase{"{", 0},
                      ChoiceCase{"}", 0}, ChoiceCase{"{Intel PRO/100}", 0},
                      ChoiceCase{"{Wireless LAN}", 2}));

}  // namespace
}  // namespace rwz
