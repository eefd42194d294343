// The update-checking component of the main window: fetches the version page
// from the product's web host, compares its version with the running one and
// tells the user, offering the update page when there is a newer version.
// The main window sets it up from the program settings and starts it.
#pragma once

#include <string>

#include "shell/modHttpGet.h"
#include "shell/modUpdateProtocol.h"

namespace rwz {

class clsUpdateCheck {
  public:
    void SetServer(const std::string& astrHost, int aintPort) {
        mstrHost = astrHost;
        mintPort = aintPort;
    }
    void SetUpdateURL(const std::string& astrURL) { mstrUpdateURL = astrURL; }
    void SetHomePageURL(const std::string& astrURL) { mstrHomePageURL = astrURL; }
    void SetVersionPage(const std::string& astrPage) { mstrVersionPage = astrPage; }
    void SetAccount(const std::string& astrAccount) { mstrAccount = astrAccount; }
    // The password as kept: scrambled, in hexadecimal.
    void SetPassword(const std::string& astrScrambled) { mstrPassword = astrScrambled; }
    void SetTitle(const std::string& astrTitle) { mstrTitle = astrTitle; }

    // Runs the check and shows its outcome; never raises.
    void Check();

    // The outcome of a check, before it is shown.
    enum class Outcome { Newer, Same, Failed };
    struct Result {
        Outcome outcome = Outcome::Failed;
        VersionPage page;
        std::string problem;
    };
    Result Fetch(const HttpLimits& aobjLimits = HttpLimits()) const;

  private:
    void ShowResult(const Result& aobjResult) const;

    std::string mstrHost;
    int mintPort = 80;
    std::string mstrUpdateURL;
    std::string mstrHomePageURL;
    std::string mstrVersionPage;
    std::string mstrAccount;
    std::string mstrPassword;
    std::string mstrTitle;
};

}  // namespace rwz
