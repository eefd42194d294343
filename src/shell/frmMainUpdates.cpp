// The main window's update command: sets up the update-checking component
// from the program settings and starts it.
#include <cstdlib>

#include "platform/Procedure.h"
#include "platform/modUtilities.h"
#include "shell/clsUpdateCheck.h"
#include "shell/frmMain.h"

namespace rwz {
namespace {

const char kUpdates[] = "Updates";
const char kDefaultHost[] = "www.roamwise.example";
const char kDefaultUpdateURL[] = "http://www.roamwise.example/";
// The account the product's web host expects from the check; its password
// is kept scrambled.
const char kUpdateAccount[] = "rwzupdate";
const char kUpdatePassword[] = "87948E77F1389134C068";

}  // namespace

void frmMain::CheckForUpdates() {
    Procedure proc("frmMain", "CheckForUpdates");
    proc.Run([&] {
        const std::string host = GetProgramSetting(kProductName, kUpdates, "Host", kDefaultHost);
        const std::string port = GetProgramSetting(kProductName, kUpdates, "Port", "80");
        const std::string updateURL =
            GetProgramSetting(kProductName, kUpdates, "UpdateURL", kDefaultUpdateURL);
        const std::string homePageURL =
            GetProgramSetting(kProductName, kUpdates, "HomePageURL", kDefaultUpdateURL);

        clsUpdateCheck check;
        check.SetServer(host, std::atoi(port.c_str()));
        check.SetUpdateURL(updateURL);
        check.SetHomePageURL(homePageURL);
        check.SetVersionPage("rwz_version.htm");
        check.SetAccount(kUpdateAccount);
        check.SetPassword(kUpdatePassword);
        check.SetTitle("Check for Program Updates");
        check.Check();
    });
}

}  // namespace rwz
