// The Opera page of the main window: every setting of OperaLib, edited through
// its IBrowser properties.
//
// Opera has a switch per protocol and no switch for the proxy as a whole: a
// protocol's host and port are greyed while its switch is off, the exception
// list while the exceptions are not in force, the automatic configuration URL
// while it is not used.
#pragma once

#include <string>

#include "shell/clsBrowserTab.h"

namespace rwz {

class frmOperaTab : public clsBrowserTab {
  public:
    frmOperaTab(const char* aszTemplate, std::string astrCaption);

  protected:
    IBrowser* BackEnd(clsRwzConfig& aobjConfig) const override;
    const char* LogTag() const override { return "frmOperaTab"; }
    void OnCreate() override;
    void UpdateEnabling() override;
};

}  // namespace rwz
