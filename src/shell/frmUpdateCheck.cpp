#include "shell/frmUpdateCheck.h"

#include <shellapi.h>

#include "localization/modLocalization.h"
#include "shell/frmUpdateCheckRes.h"

namespace rwz {

void frmUpdateCheck::Show(HWND owner, Kind aenmKind, const std::string& astrTitle,
                          const std::string& astrText, const std::string& astrUpdateURL) {
    menmKind = aenmKind;
    mstrTitle = astrTitle;
    mstrText = astrText;
    mstrUpdateURL = astrUpdateURL;
    DoModal("UPDATECHECK", owner);
}

bool frmUpdateCheck::OnInit() {
    SetCaption(mstrTitle);
    SetItemText(IDC_UPDATE_TEXT, mstrText);
    const char* icon = menmKind == Kind::Newer    ? IDI_QUESTION
                       : menmKind == Kind::Failed ? IDI_EXCLAMATION
                                                  : IDI_INFORMATION;
    SendMessageA(Item(IDC_UPDATE_ICON), STM_SETICON,
                 reinterpret_cast<WPARAM>(LoadIconA(nullptr, icon)), 0);
    const bool offer = menmKind == Kind::Newer && !mstrUpdateURL.empty();
    ShowWindow(Item(IDC_UPDATE_OPEN), offer ? SW_SHOW : SW_HIDE);
    Localization().SetControlCaption(Handle(), "WindowTitles", "UpdateCheck");
    // cmdButton(0) Close, (1) Open Update Page.
    Localization().SetControlArrayCaption({Item(IDOK), Item(IDC_UPDATE_OPEN)}, "Buttons",
                                          "UpdateCheck");
    return true;
}

bool frmUpdateCheck::OnCommand(int aintId, int aintCode, HWND control) {
    if (aintId == IDC_UPDATE_OPEN) {
        ShellExecuteA(Handle(), "open", mstrUpdateURL.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
        End(IDOK);
        return true;
    }
    return clsDialog::OnCommand(aintId, aintCode, control);
}

}  // namespace rwz
