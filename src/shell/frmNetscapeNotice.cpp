#include "shell/frmNetscapeNotice.h"

#include <utility>

#include "localization/modLocalization.h"
#include "platform/Procedure.h"
#include "platform/modLogging.h"
#include "platform/modUtilities.h"
#include "shell/modCommandLine.h"
#include "shell/frmNetscapeNoticeRes.h"

namespace rwz {

namespace {

// The language file's tag for this dialog in every category.
const char kTag[] = "NetscapeNotice";

// Label 0: a profile was taken instead; label 1: there is none.
const char kProfileTakenText[] =
    "Roamwise could not tell which Netscape profile is in use, so it shows the settings of "
    "the first profile it found: '{%0}'.\r\n\r\n"
    "If you use another profile, choose it on the Netscape tab before you apply a "
    "configuration.";
const char kNoProfileText[] =
    "Roamwise found Netscape on this computer but none of its user profiles, so the Netscape "
    "settings can be neither read nor applied.\r\n\r\n"
    "Start Netscape once to create a profile, then start Roamwise again.";

}  // namespace

std::string frmNetscapeNotice::NoticeText() const {
    if (mstrFirstProfile.empty()) {
        return Localization().GetLocalizedValue("Labels", std::string(kTag) + ":1", false,
                                                kNoProfileText);
    }
    return FillPlaceholders(Localization().GetLocalizedValue("Labels", std::string(kTag) + ":0",
                                                             false, kProfileTakenText),
                            {mstrFirstProfile});
}

INT_PTR frmNetscapeNotice::Show(HWND owner) {
    return DoModal("NETSCAPE_NOTICE", owner);
}

INT_PTR ShowNetscapeNotice(HWND owner, const std::string& astrFirstProfile) {
    frmNetscapeNotice form(astrFirstProfile);
    // A silent run shows no window that only informs: the notice goes to the log.
    if (!GetSwitch("hidden", GetCommandLineArgs(CommandLineText(GetCommandLineA()))).empty()) {
        WriteLog(std::string(kTag) + " - " + form.NoticeText(), kLogWarning);
        return IDOK;
    }
    return form.Show(owner);
}

bool frmNetscapeNotice::OnInit() {
    Form_Load();
    return true;
}

void frmNetscapeNotice::Form_Load() {
    Procedure proc("frmNetscapeNotice", "Form_Load");
    proc.Run([&] {
        SendDlgItemMessageA(mhWnd, IDC_NSNOTICE_ICON, STM_SETICON,
                            reinterpret_cast<WPARAM>(LoadIconA(nullptr, IDI_INFORMATION)), 0);
        SetDlgItemTextA(mhWnd, IDC_NSNOTICE_LABEL0, NoticeText().c_str());
        const clsLocalization& objLocalization = Localization();
        objLocalization.SetControlCaption(mhWnd, "WindowTitles", kTag);
        objLocalization.SetControlArrayCaption({GetDlgItem(mhWnd, IDOK)}, "Buttons", kTag);
        objLocalization.SetControlArrayCaption({GetDlgItem(mhWnd, IDC_NSNOTICE_CHECK0)},
                                               "Checkboxes", kTag);
        // Over a hidden or absent main window the notice must still come to the front.
        SetForegroundWindow(mhWnd);
    });
}

void frmNetscapeNotice::cmdButton_Click() {
    Procedure proc("frmNetscapeNotice", "cmdButton_Click");
    proc.Run([&] {
        mblnDoNotShowAgain = IsChecked(IDC_NSNOTICE_CHECK0);
        proc.LogValue(mblnDoNotShowAgain ? "1" : "0");
        if (mblnDoNotShowAgain)
            SaveProgramSetting(kProductName, "Options", "NavigatorWarning", "1");
    });
    End(IDOK);
}

}  // namespace rwz
