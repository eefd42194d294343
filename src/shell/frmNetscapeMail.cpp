#include "shell/frmNetscapeMail.h"

#include "localization/modLocalization.h"
#include "platform/Procedure.h"
#include "shell/frmNetscapeMailRes.h"

namespace rwz {

namespace {

// The language file's tag for this dialog in every category.
const char kTag[] = "NetscapeMail";

ControlArray Controls(HWND window, int aintFirstId, int aintCount) {
    ControlArray controls;
    for (int i = 0; i < aintCount; ++i) controls.push_back(GetDlgItem(window, aintFirstId + i));
    return controls;
}

}  // namespace

const std::array<NetscapeMailField, 8>& NetscapeMailFields() {
    using B = BrowserRecord;
    static const std::array<NetscapeMailField, 8> fields = {
        &B::EMailFullName,   &B::EMailAddr,      &B::EMailReplyToAddr, &B::EMailOrganization,
        &B::EMailPOP3Server, &B::EMailPOP3Login, &B::EMailSMTPServer,  &B::EMailSMTPLogin,
    };
    return fields;
}

frmNetscapeMail::frmNetscapeMail(IBrowser& aobjBrowser) : mobjBrowser(aobjBrowser) {
    const auto& fields = NetscapeMailFields();
    for (size_t i = 0; i < fields.size(); ++i) {
        mstrTexts[i] = mobjBrowser.Record().*fields[i];
        mBindings.AddText(
            IDC_NSMAIL_TEXT0 + static_cast<int>(i), [this, i] { return mstrTexts[i]; },
            [this, i](const std::string& value) { mstrTexts[i] = value; });
    }
    mblnLeaveOnServer = mobjBrowser.Record().EMailLeaveMailOnServer;
    mBindings.AddCheck(
        IDC_NSMAIL_CHECK0, [this] { return mblnLeaveOnServer; },
        [this](bool value) { mblnLeaveOnServer = value; });
}

bool frmNetscapeMail::Show(HWND owner) {
    DoModal("NETSCAPE_MAIL", owner);
    return mblnAssigned;
}

bool ShowNetscapeMail(HWND owner, IBrowser& aobjBrowser) {
    frmNetscapeMail form(aobjBrowser);
    return form.Show(owner);
}

bool frmNetscapeMail::OnInit() {
    Form_Load();
    return true;
}

bool frmNetscapeMail::OnCommand(int aintId, int aintCode, HWND control) {
    if (mBindings.OnCommand(mhWnd, MAKEWPARAM(aintId, aintCode), reinterpret_cast<LPARAM>(control)))
        return true;
    return clsDialog::OnCommand(aintId, aintCode, control);
}

void frmNetscapeMail::OnOK() {
    cmdOK_Click();
    End(IDOK);
}

void frmNetscapeMail::Form_Load() {
    Procedure proc("frmNetscapeMail", "Form_Load");
    proc.Run([&] {
        mBindings.Refill(mhWnd, false);
        const clsLocalization& objLocalization = Localization();
        objLocalization.SetControlCaption(mhWnd, "WindowTitles", kTag);
        objLocalization.SetControlArrayCaption(
            Controls(mhWnd, IDC_NSMAIL_LABEL0, NETSCAPE_MAIL_LABELS), "Labels", kTag);
        objLocalization.SetControlArrayCaption(
            Controls(mhWnd, IDC_NSMAIL_FRAME0, NETSCAPE_MAIL_FRAMES), "Frames", kTag);
        objLocalization.SetControlArrayCaption(Controls(mhWnd, IDC_NSMAIL_CHECK0, 1), "Checkboxes",
                                               kTag);
        objLocalization.SetControlArrayCaption(
            {GetDlgItem(mhWnd, IDOK), GetDlgItem(mhWnd, IDCANCEL)}, "Buttons", kTag);
    });
}

void frmNetscapeMail::cmdOK_Click() {
    Procedure proc("frmNetscapeMail", "cmdOK_Click");
    proc.Run([&] {
        // Only what was changed is assigned, so that an untouched account
        // leaves the area as it was.
        const auto& fields = NetscapeMailFields();
        for (size_t i = 0; i < fields.size(); ++i) {
            if (mobjBrowser.Record().*fields[i] == mstrTexts[i]) continue;
            mobjBrowser.Assign(fields[i], mstrTexts[i]);
            mblnAssigned = true;
        }
        if (mobjBrowser.Record().EMailLeaveMailOnServer != mblnLeaveOnServer) {
            mobjBrowser.Assign(&BrowserRecord::EMailLeaveMailOnServer, mblnLeaveOnServer);
            mblnAssigned = true;
        }
        proc.LogValue(mblnAssigned ? "changed" : "unchanged");
    });
}

}  // namespace rwz
