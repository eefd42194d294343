// Opera 7's settings, kept by Opera in its own INI file "opera6.ini": the home
// page, the proxies with a switch per protocol, the automatic configuration
// script and the identity Opera gives web sites. Kept in the profile section
// "Opera".
//
// Opera has no proxy switch of its own: ProxyEnabled reads true when any
// protocol's switch is on, and is not written back. Writing leaves a key alone
// when the profile does not change what it says, so Opera's own form of a
// value (a server without a port, a spare colon) stays as Opera wrote it.
#pragma once

#include <string>
#include <vector>

#include "browsers/clsBrowserBase.h"

namespace rwz {

class OperaLib : public clsBrowserBase {
  public:
    // Finds the settings file and takes the installed version.
    OperaLib();

    // "Identify as Opera", "... Mozilla 5.0", "... Mozilla 4.78", "... Mozilla
    // 3.0", "... MSIE 6.0", in the order of Opera's own menu.
    std::vector<std::string> GetUserAgents() const override;
    // Does nothing when the settings file does not exist.
    void LoadConfiguration() override;
    // Writes the keys the record changes. A file that is read-only or not
    // Opera's ("Opera Preferences version" on its first line) is left alone,
    // and the user is told, as when the file cannot be written.
    void ApplyConfiguration() override;
    void LoadConfigurationFile(const std::string& astrFile) override;

  protected:
    // The settings file read and written (another one for a test).
    void SetSettingsFile(const std::string& astrFile) { mstrSettingsFile = astrFile; }
    // Assigning CurrentUserAgent one of GetUserAgents() also sets the two
    // codes Opera keeps for it; any other text leaves the codes as they are.
    void Assigned(std::string BrowserRecord::*aField) override;

  private:
    // "opera6.ini" under the user's application data ("\Opera\Opera7\profile\"),
    // else the one under the program files ("\Opera7\profile\"). The second
    // path also when neither file exists yet.
    static std::string FindSettingsFile();
    // The identity for Opera's two codes ("Spoof UserAgent ID", "Spoof Version
    // Code"); "" for codes Opera 7 does not offer in its menu.
    static std::string UserAgentOf(const std::string& astrID, const std::string& astrVersion);
    static bool IsOperaSettingsFile(const std::string& astrFile);
    struct IniKey;
    static const std::vector<IniKey>& IniKeys();
    void DeriveFromCodesAndSwitches();

    std::string mstrSettingsFile;
};

}  // namespace rwz
