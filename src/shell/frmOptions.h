// The options dialog: what happens after a profile is applied, automatic reset
// and shutdown, the system-tray companion program, whether disabled adapters
// are listed, the length of the recent-files list, the association of profile
// files with the program and the visual style on Windows XP. The preferences
// live in the program settings ("Options", "Recent"); the start-up entries and
// the association live where the system reads them.
#pragma once

#include <optional>
#include <string>

#include "shell/clsDialog.h"

namespace rwz {

class frmOptions : public clsDialog {
  public:
    // chkOption(i): the check box of each preference.
    enum Check {
        kAutoReset,
        kAutoShutdown,
        kShowDisabledNICs,
        kTrayAtStartup,
        kProgramAtStartup,
        kAssociation,
        kXPLookAndFeel,
        kCheckCount
    };
    // The longest recent-files list the File menu shows.
    static constexpr int kMaxRecentFiles = 20;

    // Shows the dialog modally over `owner`. IDOK when the options were saved.
    INT_PTR Show(HWND owner) { return DoModal("OPTIONS", owner); }

    // The recent-files length as typed: a whole number from 0 to kMaxRecentFiles
    // (blanks around it allowed); nothing for anything else.
    static std::optional<int> ParseMaxRecent(const std::string& astrText);

  private:
    bool OnInit() override;
    bool OnCommand(int aintId, int aintCode, HWND control) override;
    void OnOK() override;

    void ApplyCaptions();
    void LoadOptions();
    // False when a value was refused (the dialog stays open).
    bool SaveOptions();
    void SaveTrayProgram(bool ablnOn);
    void SaveAssociation(bool ablnOn);
    void SetWindowsXPLookAndFeel(bool ablnOn);

    bool mblnIsXP = false;
    // As found when the dialog opened: only a change is written back.
    bool mblnAssociated = false;
    bool mblnXPLook = false;
};

}  // namespace rwz
