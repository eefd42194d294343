#include "shell/frmAddIns.h"

#include "localization/modLocalization.h"
#include "platform/Procedure.h"
#include "shell/clsAddInObject.h"
#include "shell/frmAddInsRes.h"

namespace rwz {
namespace {

const char kObject[] = "frmAddIns";
const char kTag[] = "AddIns";

}  // namespace

bool frmAddIns::OnInit() {
    Procedure proc(kObject, "Form_Load");
    proc.Run([&] {
        const clsLocalization& objLocalization = Localization();
        objLocalization.SetControlCaption(Handle(), "WindowTitles", kTag);
        // cmdButton(0) Close, (1) About.
        objLocalization.SetControlArrayCaption({Item(IDOK), Item(IDC_ADDINS_ABOUT)}, "Buttons",
                                               kTag);
        mcolEntries = GetAddInEntries();
        for (const AddInEntry& entry : mcolEntries)
            SendMessageA(Item(IDC_ADDINS_LIST), LB_ADDSTRING, 0,
                         reinterpret_cast<LPARAM>(entry.Name.c_str()));
        if (!mcolEntries.empty()) SendMessageA(Item(IDC_ADDINS_LIST), LB_SETCURSEL, 0, 0);
        lstAddIns_Click();
    });
    return true;
}

bool frmAddIns::OnCommand(int aintId, int aintCode, HWND control) {
    switch (aintId) {
        case IDC_ADDINS_LIST:
            if (aintCode == LBN_SELCHANGE) lstAddIns_Click();
            return true;
        case IDC_ADDINS_ACTIVE:
            chkActive_Click();
            return true;
        case IDC_ADDINS_ABOUT:
            ShowAbout();
            return true;
    }
    return clsDialog::OnCommand(aintId, aintCode, control);
}

int frmAddIns::Selected() const {
    const int index = static_cast<int>(SendMessageA(Item(IDC_ADDINS_LIST), LB_GETCURSEL, 0, 0));
    return index >= 0 && index < static_cast<int>(mcolEntries.size()) ? index : -1;
}

void frmAddIns::lstAddIns_Click() {
    const int index = Selected();
    const bool any = index >= 0;
    const AddInEntry entry = any ? mcolEntries[index] : AddInEntry();
    SetItemText(IDC_ADDINS_FILE, !any                 ? ""
                                 : entry.File.empty() ? "<no file specified>"
                                                      : entry.File);
    SetItemText(IDC_ADDINS_VERSION, !any                    ? ""
                                    : entry.Version.empty() ? "<no version specified>"
                                                            : entry.Version);
    SetChecked(IDC_ADDINS_ACTIVE, entry.Active);
    EnableItem(IDC_ADDINS_ACTIVE, any);
    EnableItem(IDC_ADDINS_ABOUT, any);
}

void frmAddIns::chkActive_Click() {
    Procedure proc(kObject, "chkActive_Click");
    proc.Run([&] {
        const int index = Selected();
        if (index < 0) return;
        mcolEntries[index].Active = IsChecked(IDC_ADDINS_ACTIVE);
        SetAddInActive(mcolEntries[index].Name, mcolEntries[index].Active);
    });
}

void frmAddIns::ShowAbout() {
    Procedure proc(kObject, "ShowAbout");
    const int index = Selected();
    if (index < 0) return;
    const std::string className = mcolEntries[index].Class;
    proc.RunThen([&] { clsAddInObject::Create(className)->Call("about"); },
                 [&](const ErrorInfo& error) {
                     ShowMessage("Error referencing Add-In control: '" + className + "'.\r\n\r\n" +
                                     error.Description,
                                 MB_OK | MB_ICONEXCLAMATION);
                 });
}

}  // namespace rwz
