#include "shell/frmLanguage.h"

#include <shellapi.h>

#include "localization/modLocalization.h"
#include "platform/Procedure.h"
#include "platform/modUtilities.h"
#include "shell/frmLanguageRes.h"

namespace rwz {

namespace {

const char kObject[] = "frmLanguage";
// The language file's tag for this dialog in every category.
const char kTag[] = "Language";

}  // namespace

bool frmLanguage::OnInit() {
    Procedure proc(kObject, "Form_Load");
    proc.Run([&] {
        const clsLocalization& objLocalization = Localization();
        objLocalization.SetControlCaption(mhWnd, "WindowTitles", kTag);
        objLocalization.SetControlArrayCaption({Item(IDOK), Item(IDCANCEL)}, "Buttons", kTag);
        objLocalization.SetControlArrayCaption(
            {Item(IDC_LANGUAGE_LABEL0), nullptr, Item(IDC_LANGUAGE_LABEL2)}, "Labels", kTag);

        mcolLanguages = InstalledLanguages(ProgramFolder());
        const std::string current = ToLower(CurrentLanguageTag());
        HWND list = Item(IDC_LANGUAGE_LIST);
        for (size_t i = 0; i < mcolLanguages.size(); ++i) {
            SendMessageA(list, LB_ADDSTRING, 0,
                         reinterpret_cast<LPARAM>(mcolLanguages[i].Name.c_str()));
            if (ToLower(mcolLanguages[i].Tag) == current) SendMessageA(list, LB_SETCURSEL, i, 0);
        }
        ShowAuthor();
    });
    return true;
}

bool frmLanguage::OnCommand(int aintId, int aintCode, HWND control) {
    if (aintId == IDC_LANGUAGE_LIST && aintCode == LBN_SELCHANGE) {
        ShowAuthor();
        return true;
    }
    if (aintId == IDC_LANGUAGE_LIST && aintCode == LBN_DBLCLK) {
        OnOK();
        return true;
    }
    // The author's address opens in the browser.
    if (aintId == IDC_LANGUAGE_LABEL3 && aintCode == STN_CLICKED) {
        const int index = Selected();
        if (index >= 0 && mcolLanguages[index].AuthorURL.find("://") != std::string::npos)
            ShellExecuteA(mhWnd, "open", mcolLanguages[index].AuthorURL.c_str(), nullptr, nullptr,
                          SW_SHOWNORMAL);
        return true;
    }
    return clsDialog::OnCommand(aintId, aintCode, control);
}

int frmLanguage::Selected() const {
    const LRESULT index = SendMessageA(Item(IDC_LANGUAGE_LIST), LB_GETCURSEL, 0, 0);
    return index >= 0 && index < static_cast<LRESULT>(mcolLanguages.size())
               ? static_cast<int>(index)
               : -1;
}

void frmLanguage::ShowAuthor() {
    const int index = Selected();
    SetItemText(IDC_LANGUAGE_LABEL1, index < 0 ? "" : mcolLanguages[index].Author);
    SetItemText(IDC_LANGUAGE_LABEL3, index < 0 ? "" : mcolLanguages[index].AuthorURL);
}

void frmLanguage::OnOK() {
    Procedure proc(kObject, "cmdOK_Click");
    proc.Run([&] {
        const int index = Selected();
        if (index < 0) return End(IDCANCEL);
        proc.LogValue(mcolLanguages[index].Tag);
        SetCurrentLanguageTag(mcolLanguages[index].Tag);
        End(IDOK);
    });
}

}  // namespace rwz
