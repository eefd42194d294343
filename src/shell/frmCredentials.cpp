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

}  // namespace

bool IsPromptPlaceholder(const std::string& astrValue) {
    // Blanks around it are no part of a name (a switch value keeps its trailing one).
    return ToLower(Trim(astrValue)) == "{prompt}";
}

INT_PTR frmCredentials::Show(HWND owner) {
    mblnCancelled = true;
    return DoModal("CREDENTIALS", owner);
}

bool frmCredentials::OnInit() {
    Form_Load();
    return true;
}

bool frmCredentials::OnCommand(int aintId, int aintCode, HWND control) {
    if (aintId == IDC_CRED_CHECK0 && aintCode == BN_CLICKED) {
        chkOption_Click();
        return true;
    }
    return clsDialog::OnCommand(aintId, aintCode, control);
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
        SetItemText(IDC_CRED_TEXT0, mstrUserName);
        SetItemText(IDC_CRED_TEXT1, mstrPassword);
        SetChecked(IDC_CRED_CHECK0, mblnPromptForCredentials);
        ShowWindow(Item(IDC_CRED_CHECK0), mblnShowPrompt ? SW_SHOW : SW_HIDE);
        chkOption_Click();
    });
}

void frmCredentials::chkOption_Click() {
    // The fields are not needed when the account is asked for at each apply.
    const bool prompt = mblnShowPrompt && IsChecked(IDC_CRED_CHECK0);
    for (int id : {IDC_CRED_LABEL0, IDC_CRED_TEXT0, IDC_CRED_LABEL1, IDC_CRED_TEXT1})
        EnableItem(id, !prompt);
}

void frmCredentials::cmdButton_Click(int aintIndex) {
    mblnCancelled = aintIndex != 0;
    if (!mblnCancelled) {
        mstrUserName = ItemText(IDC_CRED_TEXT0);
        mstrPassword = ItemText(IDC_CRED_TEXT1);
        mblnPromptForCredentials = mblnShowPrompt && IsChecked(IDC_CRED_CHECK0);
    }
    End(mblnCancelled ? IDCANCEL : IDOK);
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
            throw RwzError(kDialogFailed, "frmCredentials",
                           "The credentials dialog cannot be shown.");
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
            throw RwzError(kDialogFailed, "frmCredentials",
                           "The credentials dialog cannot be shown.");
        if (form.Cancelled()) return;
        blnCancelled = false;
        aobjNet.Assign(&NetRecord::NTDomainUserName, form.UserName());
        aobjNet.Assign(&NetRecord::NTDomainPassword, form.Password());
    });
    return blnCancelled;
}

}  // namespace rwz
