// The Netscape mail account dialog, opened from the Netscape page: the
// identity Netscape 4 sends mail with and its POP3 and SMTP servers. Its
// fields show a copy of the back end's mail settings; OK assigns each setting
// whose value was changed, Cancel assigns nothing.
#pragma once

#include <windows.h>

#include <array>
#include <string>

#include "browsers/IBrowser.h"
#include "shell/FieldBindings.h"
#include "shell/clsDialog.h"

namespace rwz {

// One text setting of the mail account, in the dialog's field order.
using NetscapeMailField = std::string BrowserRecord::*;
// The eight text settings: full name, address, reply-to address,
// organization, POP3 server and login, SMTP server and login. The page keeps
// them in the same order.
const std::array<NetscapeMailField, 8>& NetscapeMailFields();

class frmNetscapeMail : public clsDialog {
  public:
    explicit frmNetscapeMail(IBrowser& aobjBrowser);

    // Shows the dialog modally over `owner`. True when OK assigned a setting.
    bool Show(HWND owner);

  private:
    bool OnInit() override;
    bool OnCommand(int aintId, int aintCode, HWND control) override;
    void OnOK() override;
    void Form_Load();
    // OK: assigns what differs from the back end.
    void cmdOK_Click();

    IBrowser& mobjBrowser;
    // What the fields show.
    std::array<std::string, 8> mstrTexts;
    bool mblnLeaveOnServer = false;
    FieldBindings mBindings;
    bool mblnAssigned = false;
};

// Shows a new mail dialog for `aobjBrowser`; returns as frmNetscapeMail::Show.
bool ShowNetscapeMail(HWND owner, IBrowser& aobjBrowser);

}  // namespace rwz
