// The Internet Explorer page of the main window: every setting of
// InternetExplorerLib, edited through its IBrowser properties.
//
// Greyed while unused: every proxy field when no proxy is used; the secure,
// FTP, Gopher and SOCKS proxies when one proxy serves all protocols (only the
// HTTP one is written then); the script address when no script is used; the
// dial-up entry when connecting through the local network.
#pragma once

#include <string>

#include "shell/clsBrowserTab.h"

namespace rwz {

class frmExplorerTab : public clsBrowserTab {
  public:
    frmExplorerTab(const char* aszTemplate, std::string astrCaption);

  protected:
    IBrowser* BackEnd(clsRwzConfig& aobjConfig) const override;
    const char* LogTag() const override { return "frmExplorerTab"; }
    void OnCreate() override;
    void UpdateEnabling() override;
};

}  // namespace rwz
