#include <gtest/gtest.h>

#include <set>

#include "network/modScramble.h"

namespace rwz {
namespace {

TEST(ScrambleTest, RoundTripsAndWritesOnlyHexPairs) {
    const std::string texts[] = {"a",
                                 "Administrator",
                                 "EXAMPLE\\joiner",
                                 "p@ss w0rd! \"quoted\" =;[x]",
                                 "{Prompt}",
                                 std::string("\xE9t\xE9 \xFF\x01", 6),
                                 std::string(127, 'x')};
    for (const std::string& text : texts) {
        const std::string scrambled = ScrambleText(text);
        EXPECT_EQ(scrambled.size(), text.size() * 2);
        EXPECT_EQ(scrambled.find_first_not_of("0123456789ABCDEF"), std::string::npos) << scrambled;
        EXPECT_EQ(UnscrambleText(scrambled), text);
    }
    EXPECT_EQ(ScrambleText(""), "");
    EXPECT_EQ(UnscrambleText(""), "");
}

TEST(ScrambleTest, HidesTheTextAndItsRepetitions) {
    const std::string scrambled = ScrambleText("aaaaaaaa");
    EXPECT_EQ(scrambled.find("61"), std::string::npos);  // the hex of "a"
    std::set<std::string> pairs;
    for (size_t i = 0; i < scrambled.size(); i += 2) pairs.insert(scrambled.substr(i, 2));
    EXPECT_GT(pairs.size(), 4u) << scrambled;
}

TEST(ScrambleTest, TextWrittenByHandIsTakenAsItStands) {
    EXPECT_EQ(UnscrambleText("{prompt}"), "{prompt}");
    EXPECT_EQ(UnscrambleText("EXAMPLE\\joiner"), "EXAMPLE\\joiner");
    EXPECT_EQ(UnscrambleText("ABC"), "ABC");  // odd number of digits
    // Lower-case digits are accepted, as a hand-edited file may have them.
    std::string lower = ScrambleText("user");
    for (char& c : lower) c = static_cast<char>(tolower(static_cast<unsigned char>(c)));
    EXPECT_EQ(UnscrambleText(lower), "user");
}

}  // namespace
}  // namespace rwz
