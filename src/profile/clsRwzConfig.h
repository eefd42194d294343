// The profile in memory: the machine's current configuration, or a profile
// file read over it. It owns the network back end of the running system and a
// back end per installed browser, loads and saves profile files, and applies
// a profile to the machine area by area.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "browsers/IBrowser.h"
#include "network/INetConfig.h"
#include "profile/IAddIn.h"
#include "profile/modProfileFile.h"

namespace rwz {

// Raised, unlogged, by the profile object's creation on a system the program
// does not support; the creator tells the user and ends the program.
class UnsupportedSystemError : public RwzError {
  public:
    UnsupportedSystemError();
};

// Asked before applying to a browser whose window is open ("Internet Explorer",
// "Netscape" or "Opera"): true closes the browser first.
using CloseBrowserQuestion = std::function<bool(const std::string& astrBrowser)>;
// Told what failed while applying, one message box's text at a time (the
// network area's refusals and join failures), before the browsers are applied.
using ApplyFailureNotice = std::function<void(const std::string& astrText)>;

class clsRwzConfig {
  public:
    // Chooses the back ends for the running system and reads the machine's
    // current configuration. Errors are logged and raised to the creator.
    clsRwzConfig();
    ~clsRwzConfig();
    clsRwzConfig(const clsRwzConfig&) = delete;
    clsRwzConfig& operator=(const clsRwzConfig&) = delete;

    const std::string& Comments() const { return mSettings.Comments; }
    void SetComments(const std::string& astrValue) { mSettings.Comments = astrValue; }
    bool AutoApply() const { return mSettings.AutoApply; }
    void SetAutoApply(bool ablnValue) { mSettings.AutoApply = ablnValue; }
    bool AutoReboot() const { return mSettings.AutoReboot; }
    void SetAutoReboot(bool ablnValue) { mSettings.AutoReboot = ablnValue; }
    bool ReadOnly() const { return mSettings.ReadOnly; }
    void SetReadOnly(bool ablnValue) { mSettings.ReadOnly = ablnValue; }
    bool ApplyGeneral() const { return mSettings.ApplyGeneral; }
    void SetApplyGeneral(bool ablnValue) { mSettings.ApplyGeneral = ablnValue; }
    bool ApplyIE() const { return mSettings.ApplyIE; }
    void SetApplyIE(bool ablnValue) { mSettings.ApplyIE = ablnValue; }
    bool ApplyNN() const { return mSettings.ApplyNN; }
    void SetApplyNN(bool ablnValue) { mSettings.ApplyNN = ablnValue; }
    bool ApplyOpera() const { return mSettings.ApplyOpera; }
    void SetApplyOpera(bool ablnValue) { mSettings.ApplyOpera = ablnValue; }
    // The profile's file; "" for the machine's current configuration.
    const std::string& ConfFile() const { return mstrConfFile; }
    void SetConfFile(const std::string& astrValue) { mstrConfFile = astrValue; }
    bool IEInstalled() const { return mobjIE != nullptr; }
    bool NNInstalled() const { return mobjNN != nullptr; }
    bool OperaInstalled() const { return mobjOpera != nullptr; }

    // The owned back ends; nullptr for one that is absent.
    INetConfig* GetNetConfig() const { return mobjNet.get(); }
    IBrowser* GetIEConfig() const { return mobjIE.get(); }
    IBrowser* GetNNConfig() const { return mobjNN.get(); }
    IBrowser* GetOperaConfig() const { return mobjOpera.get(); }

    // Reads a profile file over the current settings. Always 0.
    int LoadConfigurationFile(const std::string& astrFile, const AddInCollection& acolAddIns);
    // Writes the profile file. Nothing on success, else the error (see SaveProfileFile).
    std::optional<ErrorInfo> SaveConfigurationFile(const std::string& astrFile,
                                                   const AddInCollection& acolAddIns);
    // Applies the enabled, modified areas. True when an add-in needs a restart.
    bool ApplyConfiguration(const AddInCollection& acolAddIns,
                            const CloseBrowserQuestion& askCloseBrowser,
                            const ApplyFailureNotice& tellFailure = {});

    // The installed-browser bounds are exclusive: exactly 3.0, 4.0 or 7.0 is
    // not installed.
    static bool IsNewerThan(float asngVersion, float asngBound) { return asngVersion > asngBound; }

  private:
    void LoadCurrentConfiguration();
    void LoadAdvancedSettings();
    void SaveAdvancedSettings();
    std::vector<ProfileSectionOwner> SectionOwners(const AddInCollection& acolAddIns) const;

    ProfileFileSettings mSettings;
    std::string mstrConfFile;
    std::unique_ptr<INetConfig> mobjNet;
    std::unique_ptr<IBrowser> mobjIE;
    std::unique_ptr<IBrowser> mobjNN;
    std::unique_ptr<IBrowser> mobjOpera;
};

// Closes every top-level window of the class, waiting (and keeping the window
// responsive) until none is left.
void CloseBrowserWindows(const char* aszWindowClass);

}  // namespace rwz
