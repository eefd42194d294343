// How a profile's adapter value picks an adapter: wildcard patterns, an index
// or an exact name. The cases are in adapter-choice.txt.
#include <gtest/gtest.h>

#include <sstream>

#include "bench/Bench.h"
#include "network/modAdapterChoice.h"

namespace rwz {
namespace {

// The tab-separated fields of each case line of one kind.
std::vector<std::vector<std::string>> Cases(const std::string& astrKind) {
    std::istringstream in(
        bench::ReadFileText(bench::SourceDir() + "\\tests\\network\\adapter-choice.txt"));
    std::vector<std::vector<std::string>> cases;
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        std::vector<std::string> fields;
        for (size_t start = 0, tab;; start = tab + 1) {
            tab = line.find('\t', start);
            fields.push_back(line.substr(start, tab - start));
            if (tab == std::string::npos) break;
        }
        if (fields[0] == astrKind) cases.emplace_back(fields.begin() + 1, fields.end());
    }
    EXPECT_FALSE(cases.empty());
    return cases;
}

TEST(AdapterChoiceTest, MatchesLikeTheWildcardRules) {
    for (const auto& c : Cases("match"))
        EXPECT_EQ(c[2] == "1", MatchesPattern(c[0], c[1])) << c[0] << " / " << c[1];
    // Backtracking over many stars must not take forever.
    const std::string text(20000, 'a');
    EXPECT_FALSE(MatchesPattern(text, "*a*a*a*a*a*a*a*a*b"));
}

TEST(AdapterChoiceTest, PicksByPatternIndexOrName) {
    const std::vector<std::string> names = {"Intel PRO/100", "Fast Ethernet Adapter",
                                            "Wireless LAN", "Fast Ethernet Adapter"};
    for (const auto& c : Cases("choose"))
        EXPECT_EQ(std::stoi(c[1]), ChooseAdapter(c[0], names)) << c[0];
}

TEST(AdapterChoiceTest, LeadingNumberReadsOnlyTheNumberInFront) {
    EXPECT_EQ(LeadingNumber("  12abc"), 12);
    EXPECT_EQ(LeadingNumber("-1"), -1);
    EXPECT_EQ(LeadingNumber("x1"), 0);
    EXPECT_GT(LeadingNumber("99999999999999999999999"), 32767);
}

}  // namespace
}  // namespace rwz
