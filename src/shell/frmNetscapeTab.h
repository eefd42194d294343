// The Netscape page of the main window: the settings of NavigatorLib, edited
// through its IBrowser properties.
//
// The profile list names the Netscape or Mozilla user profile the settings
// belong to. Choosing another one switches the back end to it and shows that
// profile's own settings, read afresh from its prefs.js. The connection is
// one of three (direct, manual proxies, a configuration URL); the proxy
// fields and exceptions are greyed unless the proxies are manual, the URL
// unless it is used, the SOCKS version for Netscape 4 (which has none).
// The mail account is edited in its own dialog, offered for Netscape 4.8 or
// less only; the page keeps its values in fields it never shows, so that it
// is bound like every other setting.
#pragma once

#include <string>

#include "shell/clsBrowserTab.h"

namespace rwz {

class frmNetscapeTab : public clsBrowserTab {
  public:
    frmNetscapeTab(const char* aszTemplate, std::string astrCaption);

  protected:
    IBrowser* BackEnd(clsRwzConfig& aobjConfig) const override;
    const char* LogTag() const override { return "frmNetscapeTab"; }
    void OnCreate() override;
    void OnCommand(WPARAM wParam, LPARAM lParam) override;
    void UpdateEnabling() override;

  private:
    // Binds a connection option button: `inForce` tells whether its
    // connection is the one in force; picking it sets the two flags that
    // make the connection (direct, manual proxies).
    void BindConnection(int aintOptionId, bool (*inForce)(const IBrowser&), bool ablnDirect,
                        bool ablnManual);
    // The user chose another profile.
    void SwitchProfile(const std::string& astrProfile);
    // The version and whether the mail dialog is offered.
    void ShowBrowserFacts();
    void cmdMailAccount_Click();
};

}  // namespace rwz
