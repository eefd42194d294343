// The Netscape notice: shown while the Netscape back end looks for the
// browser's profiles when it cannot tell which one is in use. It names the
// profile whose settings the program takes instead (or says that there is
// none) and offers to stop showing itself, which sets the option
// "NavigatorWarning" to "1".
#pragma once

#include <windows.h>

#include <string>
#include <utility>

#include "shell/clsDialog.h"

namespace rwz {

class frmNetscapeNotice : public clsDialog {
  public:
    // `astrFirstProfile`: the profile taken instead; "" when none was found.
    explicit frmNetscapeNotice(std::string astrFirstProfile)
        : mstrFirstProfile(std::move(astrFirstProfile)) {}

    // Shows the notice modally over `owner` (may be null). IDOK when closed,
    // -1 when it could not be created. Closing it with the box ticked stores
    // the option.
    INT_PTR Show(HWND owner);

    // The notice's text, as built in.
    std::string NoticeText() const;
    // chkOption(0): do not show the notice again.
    bool DoNotShowAgain() const { return mblnDoNotShowAgain; }

  private:
    bool OnInit() override;
    // OK, Enter and Escape all close the notice.
    void OnOK() override { cmdButton_Click(); }
    void OnCancel() override { cmdButton_Click(); }
    void Form_Load();
    void cmdButton_Click();

    std::string mstrFirstProfile;
    bool mblnDoNotShowAgain = false;
};

// Shows a new notice modally over `owner`; returns as frmNetscapeNotice::Show.
// In a run with the "hidden" switch the notice is logged instead, and IDOK returned.
INT_PTR ShowNetscapeNotice(HWND owner, const std::string& astrFirstProfile);

}  // namespace rwz
