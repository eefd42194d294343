// The restart dialog: after a profile has been applied, the user chooses to
// restart later, restart now, suspend or shut down, and may keep the choice as
// the saved preference that unattended applies use.
//
// The form's state (which option is selected, whether the check box is ticked)
// lives in the object, so that LoadOptions, SetOptions and ProcessRestartOption
// work with or without the window; the dialog procedure only copies it between
// the controls and the object.
#pragma once

#include <windows.h>

#include <string>

#include "shell/clsDialog.h"

namespace rwz {

// Restart action code of option button `aintIndex`; "" for no such button.
// Indices 2 and 3 are crossed: 2 suspends ("3"), 3 powers off ("2").
std::string RestartCodeOfOption(int aintIndex);
// The option button of a code; -1 for a code no button offers ("4", unknown).
int RestartOptionOfCode(const std::string& astrCode);

class frmRestart : public clsDialog {
  public:
    static constexpr int kOptionCount = 4;

    // Shows the dialog modally over `owner` (may be null). Returns IDOK or
    // IDCANCEL as the dialog was closed, -1 when it could not be created.
    INT_PTR Show(HWND owner);

    // optOption: the index of the selected button, -1 for none.
    int SelectedOption() const { return mintSelectedOption; }
    void SetSelectedOption(int aintIndex);
    // chkOption(0): the choice becomes the saved preference.
    bool RememberChoice() const { return mblnRememberChoice; }
    void SetRememberChoice(bool ablnRemember) { mblnRememberChoice = ablnRemember; }

    // Selects the option of the saved preference; with the window open, also
    // shows it and applies the language's captions.
    void LoadOptions();
    // Stores the selected option's code as the preference, if the box is ticked.
    void SetOptions();
    // SetOptions, then carries out the selected option: the first one only tells
    // the user that the changes wait for the next restart.
    void ProcessRestartOption();

  private:
    bool OnInit() override;
    bool OnCommand(int aintId, int aintCode, HWND control) override;
    void Form_Load();
    // cmdButton(0) OK, (1) Help, any other Cancel.
    void cmdButton_Click(int aintIndex);
    void ApplyCaptions();
    void ShowState();
    void ReadState();

    int mintSelectedOption = -1;
    bool mblnRememberChoice = false;
};

// Shows a new restart dialog modally over `owner`; returns as frmRestart::Show.
int ShowRestartDialog(HWND owner);

}  // namespace rwz
