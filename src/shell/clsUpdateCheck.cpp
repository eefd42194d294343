#include "shell/clsUpdateCheck.h"

#include <windows.h>

#include "network/modScramble.h"
#include "platform/AppVersion.h"
#include "platform/Procedure.h"
#include "platform/WaitCursor.h"
#include "shell/frmUpdateCheck.h"

namespace rwz {

clsUpdateCheck::Result clsUpdateCheck::Fetch(const HttpLimits& aobjLimits) const {
    Result result;
    std::string response;
    int status = 0;
    std::string body;
    const std::string request =
        BuildVersionRequest(mstrHost, mintPort, mstrVersionPage, mstrAccount,
                            UnscrambleText(mstrPassword), ProgramVersionText());
    if (!HttpExchange(mstrHost, mintPort, request, aobjLimits, response, result.problem) ||
        !ParseHttpResponse(response, status, body, result.problem) ||
        !ParseVersionPage(body, result.page, result.problem))
        return result;
    result.outcome = CompareVersions(result.page.Version, ProgramVersionText()) > 0 ? Outcome::Newer
                                                                                    : Outcome::Same;
    return result;
}

void clsUpdateCheck::Check() {
    Procedure proc("clsUpdateCheck", "Check");
    proc.Run([&] {
        Result result;
        {
            WaitCursor hourglass;
            result = Fetch();
        }
        proc.Log(result.outcome == Outcome::Failed
                     ? "Failed: " + result.problem
                     : "Version on the server: " + result.page.Version);
        ShowResult(result);
    });
}

void clsUpdateCheck::ShowResult(const Result& aobjResult) const {
    const std::string current = ProgramVersionText();
    frmUpdateCheck dialog;
    switch (aobjResult.outcome) {
        case Outcome::Newer: {
            std::string text =
                "A newer version of Roamwise is available.\r\n\r\nYour version: " + current +
                "\r\nNew version: " + aobjResult.page.Version;
            if (!aobjResult.page.Released.empty())
                text += " (released " + aobjResult.page.Released + ")";
            if (!aobjResult.page.Notes.empty()) text += "\r\n" + aobjResult.page.Notes;
            text += "\r\n\r\nThe update page: " + mstrUpdateURL;
            dialog.Show(GetActiveWindow(), frmUpdateCheck::Kind::Newer, mstrTitle, text,
                        mstrUpdateURL);
            break;
        }
        case Outcome::Same:
            dialog.Show(GetActiveWindow(), frmUpdateCheck::Kind::Same, mstrTitle,
                        "You have the latest version of Roamwise (" + current + ").", "");
            break;
        case Outcome::Failed:
            dialog.Show(GetActiveWindow(), frmUpdateCheck::Kind::Failed, mstrTitle,
                        "Roamwise could not check for a newer version.\r\n\r\n" +
                            aobjResult.problem + "\r\n\r\nPlease try again later, or visit " +
                            mstrHomePageURL,
                        "");
            break;
    }
}

}  // namespace rwz
