// Restart actions: which system call each code makes, with which flags.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/PowerControl.h"
#include "support/RecordingPowerControl.h"
#include "platform/modAPI.h"
#include "profile/modRestart.h"

namespace rwz {
namespace {

using test::RecordingPowerControl;

class RestartTest : public ::testing::Test {
  protected:
    void SetUp() override {
        mSaved = GetRestartPreference();
        SetPowerControl(&power);
    }
    void TearDown() override {
        SetPowerControl(nullptr);
        SetRestartPreference(mSaved);
    }
    RecordingPowerControl power;

  private:
    std::string mSaved;
};

TEST_F(RestartTest, EachCodeMakesItsCallWithTheForceFlagOfTheNTFamily) {
    ASSERT_TRUE(IsNTPlatform()) << "the test prefix emulates an NT-family system";
    struct Case {
        const char* code;
        int result;
        std::vector<std::string> calls;
    };
    const Case cases[] = {
        {"0", 0, {"privilege"}},
        {"1", 1, {"privilege", "ExitWindowsEx 18"}},
        {"2", 1, {"privilege", "ExitWindowsEx 24"}},
        {"3", 1, {"privilege", "SetSystemPowerState 1 0"}},
        {"4", 1, {"privilege", "ExitWindowsEx 16"}},
        {"5", 0, {"privilege"}},
        {"reboot", 0, {"privilege"}},
    };
    for (const Case& c : cases) {
        power.calls.clear();
        EXPECT_EQ(c.result, ExecuteRestartOption(c.code)) << c.code;
        EXPECT_EQ(c.calls, power.calls) << c.code;
    }
}

TEST_F(RestartTest, AnEmptyCodeTakesTheSavedPreference) {
    SetRestartPreference("2");
    EXPECT_EQ(1, ExecuteRestartOption(""));
    EXPECT_EQ((std::vector<std::string>{"privilege", "ExitWindowsEx 24"}), power.calls);

    power.calls.clear();
    SetRestartPreference("4");
    ExecuteRestartOption("");
    EXPECT_EQ((std::vector<std::string>{"privilege", "ExitWindowsEx 16"}), power.calls);
}

}  // namespace
}  // namespace rwz
