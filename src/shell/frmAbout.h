// The About box: the program's name and version.
#pragma once

#include "shell/clsDialog.h"

namespace rwz {

class frmAbout : public clsDialog {
  public:
    // Shows the box modally over `owner` (may be null).
    void Show(HWND owner) { DoModal("ABOUTBOX", owner); }

  private:
    bool OnInit() override;
};

}  // namespace rwz
