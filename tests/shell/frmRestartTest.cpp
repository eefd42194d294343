// The restart dialog: which code each option button stands for, what is stored
// as the preference, and what is carried out, through the real dialog driven
// from a second thread.
#include <windows.h>

#include <atomic>
#include <functional>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/PowerControl.h"
#include "support/RecordingPowerControl.h"
#include "profile/modRestart.h"
#include "shell/frmRestart.h"
#include "shell/frmRestartRes.h"
#include "support/DialogScript.h"

namespace rwz {
namespace {

using test::RecordingPowerControl;

using test::DialogScript;
using test::Text;

// What the restart dialog showed when it opened.
struct RestartView {
    int checkedOption = -1;
    bool remember = false;
};

RestartView ReadRestartDialog(HWND dialog) {
    RestartView view;
    for (int i = 0; i < frmRestart::kOptionCount; ++i) {
        if (IsDlgButtonChecked(dialog, IDC_RESTART_OPTION0 + i) == BST_CHECKED)
            view.checkedOption = i;
    }
    view.remember = IsDlgButtonChecked(dialog, IDC_RESTART_CHECK0) == BST_CHECKED;
    return view;
}

// Clicks a button as the user would. The button that closes the dialog is
// posted: its handler may open a message box, which would block a sent click.
void Click(HWND dialog, int id) {
    SendMessageA(GetDlgItem(dialog, id), BM_CLICK, 0, 0);
}
void PostClick(HWND dialog, int id) {
    PostMessageA(GetDlgItem(dialog, id), BM_CLICK, 0, 0);
}

// A message box: its text and whether it carries the information icon.
struct Box {
    std::string title;
    std::string text;
    bool information = false;
};

Box AnswerBox(HWND box) {
    Box seen{Text(box), "", false};
    char text[1024] = "";
    GetDlgItemTextA(box, 0xFFFF, text, sizeof text);
    seen.text = text;
    const HICON information = LoadIconA(nullptr, IDI_INFORMATION);
    for (int id : {0x14, 0x440}) {  // the icon's control id: Windows, Wine
        HWND icon = GetDlgItem(box, id);
        if (icon && reinterpret_cast<HICON>(SendMessageA(icon, STM_GETICON, 0, 0)) == information)
            seen.information = true;
    }
    PostMessageA(box, WM_COMMAND, IDOK, 0);
    return seen;
}

class RestartDialogTest : public ::testing::Test {
  protected:
    void SetUp() override {
        mSavedPreference = GetRestartPreference();
        SetPowerControl(&power);
    }
    void TearDown() override {
        SetPowerControl(nullptr);
        SetRestartPreference(mSavedPreference);
    }

    // Opens the dialog and lets `act` read and operate it; further dialogs
    // (message boxes) are answered and recorded. Returns what Show returned.
    INT_PTR RunDialog(const std::function<void(HWND)>& act, int expectedBoxes = 0) {
        std::vector<DialogScript::Step> steps{[&](HWND dialog) {
            view = ReadRestartDialog(dialog);
            act(dialog);
        }};
        for (int i = 0; i < expectedBoxes; ++i)
            steps.push_back([&](HWND box) { boxes.push_back(AnswerBox(box)); });
        INT_PTR result;
        {
            DialogScript script(std::move(steps));
            result = ShowRestartDialog(nullptr);
            // The last step may still be returning from its click.
            for (int i = 0; i < 100 && script.StepsRun() < 1 + expectedBoxes; ++i) Sleep(20);
            EXPECT_EQ(1 + expectedBoxes, script.StepsRun());
            EXPECT_EQ(0, script.Unexpected());
        }
        return result;
    }

    RecordingPowerControl power;
    RestartView view;
    std::vector<Box> boxes;

  private:
    std::string mSavedPreference;
};

TEST(RestartOptions, IndicesAndCodesAreCrossedForSuspendAndShutDown) {
    const struct {
        int index;
        const char* code;
    } table[] = {{0, "0"}, {1, "1"}, {2, "3"}, {3, "2"}};
    for (const auto& row : table) {
        EXPECT_EQ(row.code, RestartCodeOfOption(row.index)) << row.index;
        EXPECT_EQ(row.index, RestartOptionOfCode(row.code)) << row.code;
    }
    // Log off has no button; neither has anything else.
    for (const char* code : {"4", "", "5", " 1"}) EXPECT_EQ(-1, RestartOptionOfCode(code)) << code;
    for (int index : {-1, 4}) EXPECT_EQ("", RestartCodeOfOption(index)) << index;
}

TEST_F(RestartDialogTest, TheTickedBoxStoresTheCodeOfTheSelectedOption) {
    const char* const stored[] = {"0", "1", "3", "2"};
    for (int index = 0; index < frmRestart::kOptionCount; ++index) {
        SetRestartPreference("4");
        frmRestart form;
        form.SetSelectedOption(index);
        form.SetOptions();
        EXPECT_EQ("4", GetRestartPreference()) << "unticked, index " << index;
        form.SetRememberChoice(true);
        form.SetOptions();
        EXPECT_EQ(stored[index], GetRestartPreference()) << "ticked, index " << index;
    }
    // A preference no button offers survives a ticked box with nothing selected.
    SetRestartPreference("4");
    frmRestart form;
    form.LoadOptions();
    EXPECT_EQ(-1, form.SelectedOption());
    form.SetRememberChoice(true);
    form.SetOptions();
    EXPECT_EQ("4", GetRestartPreference());
    EXPECT_TRUE(power.calls.empty());
}

TEST_F(RestartDialogTest, EachOptionCarriesOutItsActionThroughTheRealDialog) {
    const struct {
        int index;
        std::vector<std::string> calls;
        const char* stored;
    } table[] = {
        {1, {"privilege", "ExitWindowsEx 18"}, "1"},
        {2, {"privilege", "SetSystemPowerState 1 0"}, "3"},
        {3, {"privilege", "ExitWindowsEx 24"}, "2"},
    };
    for (const auto& row : table) {
        SetRestartPreference("0");
        power.calls.clear();
        const INT_PTR result = RunDialog([&](HWND dialog) {
            Click(dialog, IDC_RESTART_OPTION0 + row.index);
            Click(dialog, IDC_RESTART_CHECK0);
            PostClick(dialog, IDOK);
        });
        EXPECT_EQ(IDOK, result) << row.index;
        EXPECT_EQ(row.calls, power.calls) << row.index;
        EXPECT_EQ(row.stored, GetRestartPreference()) << row.index;
    }
}

TEST_F(RestartDialogTest, FirstOptionAndOKShowsMessage31AndKeepsTheMachineRunning) {
    SetRestartPreference("1");
    const INT_PTR result = RunDialog(
        [](HWND dialog) {
            Click(dialog, IDC_RESTART_OPTION0);
            Click(dialog, IDC_RESTART_CHECK0);
            PostClick(dialog, IDOK);
        },
        1);
    EXPECT_EQ(IDOK, result);
    EXPECT_EQ(1, view.checkedOption) << "the dialog opened on the saved preference";
    EXPECT_FALSE(view.remember);
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Roamwise", boxes[0].title);
    EXPECT_EQ("The network changes will take effect the next time you reboot.", boxes[0].text);
    EXPECT_TRUE(boxes[0].information);
    EXPECT_EQ(std::vector<std::string>{}, power.calls);
    EXPECT_EQ("0", GetRestartPreference()) << "the ticked box still keeps the choice";
}

TEST_F(RestartDialogTest, PreferenceSelectsItsOptionAndCancelDoesNothing) {
    // "2" powers off: the fourth button.
    const struct {
        const char* preference;
        int checked;
    } table[] = {{"2", 3}, {"3", 2}, {"0", 0}, {"4", -1}};
    for (const auto& row : table) {
        SetRestartPreference(row.preference);
        const INT_PTR result = RunDialog([](HWND dialog) {
            Click(dialog, IDC_RESTART_OPTION1);
            Click(dialog, IDC_RESTART_CHECK0);
            PostClick(dialog, IDCANCEL);
        });
        EXPECT_EQ(IDCANCEL, result);
        EXPECT_EQ(row.checked, view.checkedOption) << row.preference;
        EXPECT_EQ(row.preference, GetRestartPreference());
    }
    EXPECT_TRUE(power.calls.empty());
}

}  // namespace
}  // namespace rwz
