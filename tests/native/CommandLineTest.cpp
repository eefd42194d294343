// The command-line grammar, as people type it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/modText.h"
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

TEST(CommandLineArgs, KeepsEveryEntry) {
    const Args args = GetCommandLineArgs(
        "/a /b /c /d /e /f /g /h /i /j /hidden /load C:\\Profiles\\office.rwz /apply");
    ASSERT_EQ(13u, args.size());
    EXPECT_EQ("hidden ", GetSwitch("hidden", args));
    EXPECT_EQ("apply", args.back());
    EXPECT_EQ((Args{"a ", "b ", "j "}), UnknownSwitches({"a ", "load x ", "b ", "x.rwz ", "j "}));
    EXPECT_EQ("unknown switches: 'a ', 'b '", UnknownSwitchesText({"a ", "b "}));
    EXPECT_EQ("unknown switches: 'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x' (and 2 more)",
              UnknownSwitchesText(Args(12, "x")));
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
        const char* password;  // the value the program takes
    };
    const Case cases[] = {
        {"/load a.rwz /uid jsmith /pwd s3cret /apply", "/load a.rwz /uid jsmith /pwd **** /apply",
         "s3cret"},
        {"/PWD=s3cret", "/PWD=****", "s3cret"},
        {"/pwd \"two words\" /apply", "/pwd **** /apply", "two words"},
        {"/pwd abc/def /apply", "/pwd **** /apply", "abc/def"},
        {"/pwd", "/pwd", ""},
        {"/pwd/apply", "/pwd/apply", ""},
        {"/pwdsecret", "/pwd****", "ecret"},
        {"/ pwd secret", "/ pwd ****", ""},
        {"/password=secret /apply", "/password=**** /apply", ""},
        {"/load a.rwz", "/load a.rwz", ""},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.logged, MaskPasswords(c.text)) << c.text;
        const Args args = GetCommandLineArgs(c.text);
        EXPECT_EQ(c.password, Trim(SwitchValue(GetSwitch("pwd", args), "pwd"))) << c.text;
    }
}

TEST(CommandLineLoad, SaysWhyAPathCannotBeTried) {
    EXPECT_NE("", ProfilePathProblem(""));
    EXPECT_NE(std::string::npos, ProfilePathProblem("  ").find("missing"));
    EXPECT_NE(std::string::npos,
              ProfilePathProblem("C:\\" + std::string(300, 'x')).find("too long"));
    EXPECT_EQ("", ProfilePathProblem("C:\\" + std::string(250, 'x')));
}

}  // namespace
}  // namespace rwz
