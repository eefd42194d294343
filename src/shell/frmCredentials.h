// The domain account dialog: the user name and password that join a domain,
// or the placeholder that asks for them each time the profile is applied, so
// that no password need be stored in the profile.
//
// The form's state lives in the object: the caller sets the properties, shows
// the dialog and reads them back afterwards.
#pragma once

#include <windows.h>

#include <string>

#include "network/INetConfig.h"
#include "shell/clsDialog.h"

namespace rwz {

// What the dialog stores for "ask when applying", in the user name and the
// password alike; readers compare it without regard to case.
inline constexpr const char* kPromptPlaceholder = "{Prompt}";
// Whether a stored user name (or password) is the placeholder, in any case,
// with or without blanks around it.
bool IsPromptPlaceholder(const std::string& astrValue);

class frmCredentials : public clsDialog {
  public:
    // Closed with Cancel (or not shown at all).
    bool Cancelled() const { return mblnCancelled; }
    const std::string& UserName() const { return mstrUserName; }
    void SetUserName(const std::string& astrValue) { mstrUserName = astrValue; }
    const std::string& Password() const { return mstrPassword; }
    void SetPassword(const std::string& astrValue) { mstrPassword = astrValue; }
    // chkOption(0): ask for the account at each apply.
    bool PromptForCredentials() const { return mblnPromptForCredentials; }
    void SetPromptForCredentials(bool ablnValue) { mblnPromptForCredentials = ablnValue; }
    // Whether that check box is offered at all.
    void SetShowPrompt(bool ablnValue) { mblnShowPrompt = ablnValue; }

    // Shows the dialog modally over `owner` (may be null). Returns IDOK or
    // IDCANCEL as it was closed, -1 when it could not be created.
    INT_PTR Show(HWND owner);

  private:
    bool OnInit() override;
    bool OnCommand(int aintId, int aintCode, HWND control) override;
    void OnOK() override { cmdButton_Click(0); }
    void OnCancel() override { cmdButton_Click(1); }
    void Form_Load();
    // cmdButton(0) OK, (1) Cancel.
    void cmdButton_Click(int aintIndex);
    void chkOption_Click();

    bool mblnCancelled = true;
    std::string mstrUserName;
    std::string mstrPassword;
    bool mblnPromptForCredentials = false;
    bool mblnShowPrompt = true;
};

// Edits the account the profile stores (the "Domain Account..." button of the
// General page). Cancel leaves it as it was.
void ModifyCredentials(INetConfig& aobjNet, HWND owner);

// Asks for the account for this apply and puts it into the record (in memory
// only). True when the user cancelled, or on error: the apply stops then.
bool PromptForCredentials(INetConfig& aobjNet, HWND owner);

}  // namespace rwz
