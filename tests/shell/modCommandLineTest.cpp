// The command-line grammar, as people type it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/modCommandLine.h"

namespace rwz {
namespace {

using Args = std::vector<std::string>;

TEST(CommandLineArgs, SplitsAtEverySlashKeepingBlanksAndDroppingQuotes) {
    struct Case {
        const char* text;
        Args args;
    };
    const Case cases[] = {
        {"/hidden /load C:\\Profiles\\Office.rwz /apply /reboot",
         {"hidden ", "load C:\\Profiles\\Office.rwz ", "apply ", "reboot"}},
        {"/load \"C:\\My Profiles\\Home.rwz\" /apply",
         {"load C:\\My Profiles\\Home.rwz ", "apply"}},
        {"C:\\x.rwz", {"C:\\x.rwz"}},
        {"before /after", {"before ", "after"}},
        {"/load C:/x.rwz", {"load C:", "x.rwz"}},  // a slash inside a value splits it
        {"//hidden//", {"hidden"}},
        {"", {}},
    };
    for (const Case& c : cases) EXPECT_EQ(c.args, GetCommandLineArgs(c.text)) << c.text;
}

TEST(CommandLineArgs, KeepsOnlyTheFirstTen) {
    const Args args = GetCommandLineArgs("/a/b/c/d/e/f/g/h/i/j/k/l");
    ASSERT_EQ(10u, args.size());
    EXPECT_EQ("j", args.back());
    EXPECT_EQ(2u, GetCommandLineArgs("/a/b/c", 2).size());
}

TEST(CommandLineSwitch, MatchesTheFirstEntryThatBeginsWithTheNameInAnyCase) {
    const Args args = {"LOAD c:\\x.rwz ", "helpme", "load c:\\y.rwz"};
    EXPECT_EQ("LOAD c:\\x.rwz ", GetSwitch("load", args));
    EXPECT_EQ("helpme", GetSwitch("help", args));
    EXPECT_EQ("", GetSwitch("apply", args));
}

TEST(CommandLineSwitch, ValueSkipsTheNameAndAnyOneCharacter) {
    struct Case {
        const char* entry;
        const char* value;
    };
    const Case cases[] = {
        {"load c:\\x.rwz ", "c:\\x.rwz "},
        {"load=c:\\x.rwz", "c:\\x.rwz"},
        {"load:c:\\x.rwz", "c:\\x.rwz"},
        {"loadc:\\x.rwz", ":\\x.rwz"},
        {"load", ""},
        {"load ", ""},
    };
    for (const Case& c : cases) EXPECT_EQ(c.value, SwitchValue(c.entry, "load")) << c.entry;
}

TEST(CommandLineLog, NeverShowsAPassword) {
    struct Case {
        const char* text;
        const char* logged;
    };
    const Case cases[] = {
        {"/load a.rwz /uid jsmith /pwd s3cret /apply", "/load a.rwz /uid jsmith /pwd **** /apply"},
        {"/PWD=s3cret", "/PWD=****"},
        {"/pwd \"two words\" /apply", "/pwd **** /apply"},
        {"/pwd", "/pwd"},
        {"/pwdsecret", "/pwds****"},  // the one character after the name is not the value
        {"/load a.rwz", "/load a.rwz"},
    };
    for (const Case& c : cases) EXPECT_EQ(c.logged, MaskPasswords(c.text)) << c.text;
}

}  // namespace
}  // namespace rwz
