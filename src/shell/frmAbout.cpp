#include "shell/frmAbout.h"

#include "platform/AppVersion.h"
#include "shell/frmMainRes.h"

namespace rwz {

bool frmAbout::OnInit() {
    SetItemText(IDC_ABOUT_VERSION, "Version " + ProgramVersionText());
    return true;
}

}  // namespace rwz
