#include "shell/frmRestart.h"

#include "localization/modLocalization.h"
#include "platform/Procedure.h"
#include "platform/modUtilities.h"
#include "profile/modRestart.h"
#include "shell/frmRestartRes.h"

namespace rwz {

namespace {

// Option index -> restart code. The last two are crossed on purpose: the third
// button suspends, the fourth powers off.
const char* const kOptionCodes[frmRestart::kOptionCount] = {kRestartNone, kRestartReboot,
                                                            kRestartSuspend, kRestartPowerOff};

// The language file's tag for this dialog in every category.
const char kTag[] = "Restart";
constexpr DWORD kHelpTopic = 90;
constexpr int16_t kMsgChangesAtNextReboot = 31;

// cmdButton(0) to cmdButton(2).
const int kButtonIds[] = {IDOK, IDC_RESTART_HELP, IDCANCEL};

int OptionId(int aintIndex) {
    return IDC_RESTART_OPTION0 + aintIndex;
}

}  // namespace

std::string RestartCodeOfOption(int aintIndex) {
    if (aintIndex < 0 || aintIndex >= frmRestart::kOptionCount) return std::string();
    return kOptionCodes[aintIndex];
}

int RestartOptionOfCode(const std::string& astrCode) {
    for (int i = 0; i < frmRestart::kOptionCount; ++i) {
        if (astrCode == kOptionCodes[i]) return i;
    }
    return -1;
}

void frmRestart::SetSelectedOption(int aintIndex) {
    mintSelectedOption = aintIndex >= 0 && aintIndex < kOptionCount ? aintIndex : -1;
}

INT_PTR frmRestart::Show(HWND owner) {
    return DoModal("RESTART", owner);
}

int ShowRestartDialog(HWND owner) {
    frmRestart form;
    return static_cast<int>(form.Show(owner));
}

bool frmRestart::OnInit() {
    Form_Load();
    return true;  // focus to the first control
}

bool frmRestart::OnCommand(int aintId, int aintCode, HWND) {
    if (aintCode != BN_CLICKED) return false;
    for (int i = 0; i < 3; ++i) {
        if (aintId == kButtonIds[i]) {
            cmdButton_Click(i);
            return true;
        }
    }
    return false;
}

void frmRestart::Form_Load() {
    Procedure proc("frmRestart", "Form_Load");
    proc.Run([&] { LoadOptions(); });
}

void frmRestart::cmdButton_Click(int aintIndex) {
    Procedure proc("frmRestart", "cmdButton_Click");
    proc.Run([&] {
        switch (aintIndex) {
            case 0:
                ReadState();
                ProcessRestartOption();
                End(IDOK);
                break;
            case 1:
                WinHelpA(mhWnd, HelpFilePath().c_str(), HELP_CONTEXT, kHelpTopic);
                break;
            default:
                End(IDCANCEL);
                break;
        }
    });
}

void frmRestart::LoadOptions() {
    Procedure proc("frmRestart", "LoadOptions");
    proc.Run([&] {
        const std::string strCode = GetRestartPreference();
        proc.LogValue(strCode);
        SetSelectedOption(RestartOptionOfCode(strCode));
        if (mhWnd) {
            ShowState();
            ApplyCaptions();
        }
    });
}

void frmRestart::SetOptions() {
    Procedure proc("frmRestart", "SetOptions");
    proc.Run([&] {
        if (!mblnRememberChoice) return;
        // With no button selected (a preference no button offers, such as log
        // off) there is no choice to keep, and the preference stays.
        const std::string strCode = RestartCodeOfOption(mintSelectedOption);
        if (strCode.empty()) return;
        proc.LogValue(strCode);
        SetRestartPreference(strCode);
    });
}

void frmRestart::ProcessRestartOption() {
    Procedure proc("frmRestart", "ProcessRestartOption");
    proc.Run([&] {
        SetOptions();
        std::string strCode;
        for (int index : {1, 3, 2}) {
            if (mintSelectedOption == index) strCode = RestartCodeOfOption(index);
        }
        if (strCode.empty()) {
            ShowMessage(MessageText(kMsgChangesAtNextReboot), MB_OK | MB_ICONINFORMATION);
            return;
        }
        ExecuteRestartOption(strCode);
    });
}

void frmRestart::ApplyCaptions() {
    const clsLocalization& objLocalization = Localization();
    objLocalization.SetControlCaption(mhWnd, "WindowTitles", kTag);
    // Only OK and Cancel; the Help button keeps its built-in caption.
    objLocalization.SetControlArrayCaption({Item(IDOK), nullptr, Item(IDCANCEL)}, "Buttons", kTag);
    objLocalization.SetControlArrayCaption({Item(IDC_RESTART_FRAME0)}, "Frames", kTag);
    ControlArray optOption;
    for (int i = 0; i < kOptionCount; ++i) optOption.push_back(Item(OptionId(i)));
    objLocalization.SetControlArrayCaption(optOption, "RadioButtons", kTag);
    objLocalization.SetControlArrayCaption({Item(IDC_RESTART_CHECK0)}, "Checkboxes", kTag);
}

void frmRestart::ShowState() {
    for (int i = 0; i < kOptionCount; ++i) SetChecked(OptionId(i), i == mintSelectedOption);
    SetChecked(IDC_RESTART_CHECK0, mblnRememberChoice);
}

void frmRestart::ReadState() {
    int intSelected = -1;
    for (int i = 0; i < kOptionCount; ++i) {
        if (IsChecked(OptionId(i))) intSelected = i;
    }
    SetSelectedOption(intSelected);
    mblnRememberChoice = IsChecked(IDC_RESTART_CHECK0);
}

}  // namespace rwz
