#include "shell/frmCredentials.h"

#include "localization/modLocalization.h"
#include "platform/Procedure.h"
#include "platform/modUtilities.h"
#include "shell/frmCredentialsRes.h"

namespace rwz {

namespace {

// The key tag of the dialog's captions in the language file.
const char kTag[] = "LogonCred";
// The error raised when the dialog cannot be created.
const int32_t kDialogFailed = 5;

std::string ItemText(HWND control) {
    const int length = GetWindowTextLengthA(control);
    std::string text(static_cast<size_t>(length) + 1, '\0');
    text.resize(static_cast<size_t>(GetWindowTextA(control, &text[0], length + 1)));
    return text;
}

}  // namespace

bool IsPromptPlaceholder(const std::string& astrValue) {
    // Blanks around it are no part of a name (a switch value keeps its trailing one).
    return ToLower(Trim(astrValue)) == "{prompt}";
}

INT_PTR frmCredentials::Show(HWND owner) {
    mblnCancelled = true;
    return DialogBoxParamA(GetModuleHandleA(nullptr), "CREDENTIALS", owner, DialogProc,
                           reinterpret_cast<LPARAM>(this));
}

INT_PTR CALLBACK frmCredentials::DialogProc(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(window, DWLP_USER, lParam);
        reinterpret_cast<frmCredentials*>(lParam)->mhWnd = window;
    }
    auto* form = reinterpret_cast<frmCredentials*>(GetWindowLongPtrA(window, DWLP_USER));
    if (!form) return FALSE;
    const INT_PTR result = form->HandleMessage(message, wParam, lParam);
    if (message == WM_NCDESTROY) form->mhWnd = nullptr;
    return result;
}

INT_PTR frmCredentials::HandleMessage(UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_INITDIALOG:
            Form_Load();
            return TRUE;
        case WM_COMMAND:
            if (HIWORD(wParam) != BN_CLICKED) return FALSE;
            switch (LOWORD(wParam)) {
                case IDOK:
                    cmdButton_Click(0);
                    return TRUE;
                case IDCANCEL:
                    cmdButton_Click(1);
                    return TRUE;
                case IDC_CRED_CHECK0:
                    chkOption_Click();
                    return TRUE;
            }
            return FALSE;
        case WM_CLOSE:
            cmdButton_Click(1);
            return TRUE;
    }
    return FALSE;
}

void frmCredentials::Form_Load() {
    Procedure proc("frmCredentials", "Form_Load");
    proc.Run([&] {
        const clsLocalization& objLocalization = Localization();
        objLocalization.SetControlCaption(mhWnd, "WindowTitles", kTag);
        objLocalization.SetControlArrayCaption({Item(IDC_CRED_LABEL0), Item(IDC_CRED_LABEL1)},
                                               "Labels", kTag);
        objLocalization.SetControlArrayCaption({Item(IDOK), Item(IDCANCEL)}, "Buttons", kTag);
        objLocalization.SetControlArrayCaption({Item(IDC_CRED_CHECK0)}, "Checkboxes", kTag);
        SetDlgItemTextA(mhWnd, IDC_CRED_TEXT0, mstrUserName.c_str());
        SetDlgItemTextA(mhWnd, IDC_CRED_TEXT1, mstrPassword.c_str());
        CheckDlgButton(mhWnd, IDC_CRED_CHECK0,
                       mblnPromptForCredentials ? BST_CHECKED : BST_UNCHECKED);
        ShowWindow(Item(IDC_CRED_CHECK0), mblnShowPrompt ? SW_SHOW : SW_HIDE);
        chkOption_Click();
    });
}

void frmCredentials::chkOption_Click() {
    // The fields are not needed when the account is asked for at each apply.
    const bool prompt = mblnShowPrompt && IsDlgButtonChecked(mhWnd, IDC_CRED_CHECK0) == BST_CHECKED;
    for (int id : {IDC_CRED_LABEL0, IDC_CRED_TEXT0, IDC_CRED_LABEL1, IDC_CRED_TEXT1})
        EnableWindow(Item(id), !prompt);
}

void frmCredentials::cmdButton_Click(int aintIndex) {
    mblnCancelled = aintIndex != 0;
    if (!mblnCancelled) {
        mstrUserName = ItemText(Item(IDC_CRED_TEXT0));
        mstrPassword = ItemText(Item(IDC_CRED_TEXT1));
        mblnPromptForCredentials =
            mblnShowPrompt && IsDlgButtonChecked(mhWnd, IDC_CRED_CHECK0) == BST_CHECKED;
    }
    EndDialog(mhWnd, mblnCancelled ? IDCANCEL : IDOK);
}

void ModifyCredentials(INetConfig& aobjNet, HWND owner) {
    Procedure proc("frmMain", "ModifyCredentials");
    proc.Run([&] {
        frmCredentials form;
        form.SetShowPrompt(true);
        if (IsPromptPlaceholder(aobjNet.Record().NTDomainUserName)) {
            form.SetPromptForCredentials(true);
        } else {
            form.SetUserName(aobjNet.Record().NTDomainUserName);
            form.SetPassword(aobjNet.Record().NTDomainPassword);
            form.SetPromptForCredentials(false);
        }
        if (form.Show(owner) < 0)
            Err::Raise(kDialogFailed, "frmCredentials", "The credentials dialog cannot be shown.");
        if (form.Cancelled()) return;
        if (form.PromptForCredentials()) {
            aobjNet.Assign(&NetRecord::NTDomainUserName, kPromptPlaceholder);
            aobjNet.Assign(&NetRecord::NTDomainPassword, kPromptPlaceholder);
        } else {
            aobjNet.Assign(&NetRecord::NTDomainUserName, form.UserName());
            aobjNet.Assign(&NetRecord::NTDomainPassword, form.Password());
        }
    });
}

bool PromptForCredentials(INetConfig& aobjNet, HWND owner) {
    Procedure proc("frmMain", "PromptForCredentials");
    bool blnCancelled = true;
    proc.Run([&] {
        frmCredentials form;
        form.SetShowPrompt(false);
        if (form.Show(owner) < 0)
            Err::Raise(kDialogFailed, "frmCredentials", "The credentials dialog cannot be shown.");
        if (form.Cancelled()) return;
        blnCancelled = false;
        aobjNet.Assign(&NetRecord::NTDomainUserName, form.UserName());
        aobjNet.Assign(&NetRecord::NTDomainPassword, form.Password());
    });
    return blnCancelled;
}

}  // namespace rwz
