#include "shell/clsUpdateCheck.h"

#include <windows.h>
#include <shellapi.h>

#include "localization/modLocalization.h"
#include "network/modScramble.h"
#include "platform/AppVersion.h"
#include "platform/Procedure.h"
#include "platform/WaitCursor.h"

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
    switch (aobjResult.outcome) {
        case Outcome::Newer: {
            std::string text =
                "A newer version of Roamwise is available.\r\n\r\nYour version: " + current +
                "\r\nNew version: " + aobjResult.page.Version;
            if (!aobjResult.page.Released.empty())
                text += " (released " + aobjResult.page.Released + ")";
            if (!aobjResult.page.Notes.empty()) text += "\r\n" + aobjResult.page.Notes;
            text += "\r\n\r\nWould you like to open the update page now?\r\n" + mstrUpdateURL;
            if (ShowMessage(text, MB_YESNO | MB_ICONQUESTION, mstrTitle) == IDYES)
                ShellExecuteA(GetActiveWindow(), "open", mstrUpdateURL.c_str(), nullptr, nullptr,
                              SW_SHOWNORMAL);
            break;
        }
        case Outcome::Same:
            ShowMessage("You have the latest version of Roamwise (" + current + ").",
                        MB_OK | MB_ICONINFORMATION, mstrTitle);
            break;
        case Outcome::Failed:
            ShowMessage("Roamwise could not check for a newer version.\r\n\r\n" +
                            aobjResult.problem + "\r\n\r\nPlease try again later, or visit " +
                            mstrHomePageURL,
                        MB_OK | MB_ICONEXCLAMATION, mstrTitle);
            break;
    }
}

}  // namespace rwz
