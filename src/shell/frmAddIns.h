// The add-in manager: lists the add-ins entered in the program settings,
// shows each one's file and version, switches it on or off ("Active") and
// shows its about box.
#pragma once

#include <windows.h>

#include <vector>

#include "shell/clsDialog.h"
#include "shell/modAddIns.h"

namespace rwz {

class frmAddIns : public clsDialog {
  public:
    // Shows the manager modally over `owner` (may be null).
    void Show(HWND owner) { DoModal("ADDINS", owner); }

  private:
    bool OnInit() override;
    bool OnCommand(int aintId, int aintCode, HWND control) override;
    // The selected add-in's file, version and active state.
    void lstAddIns_Click();
    void chkActive_Click();
    // Creates the selected add-in by its class name and calls its "about".
    void ShowAbout();
    int Selected() const;

    std::vector<AddInEntry> mcolEntries;
};

}  // namespace rwz
