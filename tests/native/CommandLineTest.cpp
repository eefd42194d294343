// The command-line grammar, as people type it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Table.h"
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
    EXPECT_EQ("unknown switches: 'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x', 'x' (and 2 more)",
              UnknownSwitchesText(Args(12, "x")));
}

TEST(CommandLineSwitch, MatchesTheFirstEntryInAnyCaseAndSkipsOneCharacter) {
    const Args args = {"LOAD c:\\x.rwz ", "helpme", "load c:\\y.rwz"};
    EXPECT_EQ("LOAD c:\\x.rwz ", GetSwitch("load", args));
    EXPECT_EQ("helpme", GetSwitch("help", args));
    EXPECT_EQ("", GetSwitch("apply", args));
    for (const char* entry : {"load c:\\x.rwz", "load=c:\\x.rwz", "load:c:\\x.rwz"})
        EXPECT_EQ("c:\\x.rwz", SwitchValue(entry, "load")) << entry;
    EXPECT_EQ(":\\x.rwz", SwitchValue("loadc:\\x.rwz", "load"));
    EXPECT_EQ("", SwitchValue("load", "load"));
}

TEST(CommandLineLog, NeverShowsAPassword) {
    for (const auto& row : test::Rows("passwords.txt")) {
        EXPECT_EQ(row[1], MaskPasswords(row[0])) << row[0];
        const Args args = GetCommandLineArgs(row[0]);
        EXPECT_EQ(row[2], Trim(SwitchValue(GetSwitch("pwd", args), "pwd"))) << row[0];
    }
}

}  // namespace
}  // namespace rwz
