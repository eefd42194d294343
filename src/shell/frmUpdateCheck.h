// The outcome of Check for Updates. With an update page it offers to open it
// (the system's browser shows it); otherwise it only tells.
#pragma once

#include <windows.h>

#include <string>

#include "shell/clsDialog.h"

namespace rwz {

class frmUpdateCheck : public clsDialog {
  public:
    enum class Kind { Newer, Same, Failed };

    // `astrUpdateURL` is offered only for Kind::Newer.
    void Show(HWND owner, Kind aenmKind, const std::string& astrTitle, const std::string& astrText,
              const std::string& astrUpdateURL);

  private:
    bool OnInit() override;
    bool OnCommand(int aintId, int aintCode, HWND control) override;

    Kind menmKind = Kind::Same;
    std::string mstrTitle;
    std::string mstrText;
    std::string mstrUpdateURL;
};

}  // namespace rwz
