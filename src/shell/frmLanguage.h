// The language dialog: lists the language files beside the program (and the
// built-in English), shows each one's author, and stores the chosen language
// for the windows to take over.
#pragma once

#include <string>
#include <vector>

#include "localization/clsLocalization.h"
#include "shell/clsDialog.h"

namespace rwz {

class frmLanguage : public clsDialog {
  public:
    // Shows the dialog modally over `owner`. IDOK when a language was stored.
    INT_PTR Show(HWND owner) { return DoModal("LANGUAGE_CHOICE", owner); }

  private:
    bool OnInit() override;
    bool OnCommand(int aintId, int aintCode, HWND control) override;
    void OnOK() override;

    // The selected entry; -1 for none.
    int Selected() const;
    void ShowAuthor();

    std::vector<LanguageEntry> mcolLanguages;
};

}  // namespace rwz
