#include "profile/clsRwzConfig.h"

#include <windows.h>

#include "platform/DoEvents.h"
#include "platform/Procedure.h"
#include "platform/WaitCursor.h"
#include "platform/modAPI.h"
#include "platform/modLogging.h"
#include "profile/BackEndFactory.h"

namespace rwz {

namespace {

const char kObject[] = "clsRwzConfig";

// The browsers in the order they are applied, with their window classes.
struct BrowserArea {
    IBrowser* backEnd;
    bool apply;
    const char* windowClass;
    const char* name;
};

}  // namespace

UnsupportedSystemError::UnsupportedSystemError()
    : RwzError(kObjectError + 34, kObject, "The operating system is not supported.") {}

clsRwzConfig::clsRwzConfig() {
    WriteLog(std::string(kObject) + " - Class_Initialize", kLogDebug);
    const std::string tag = GetCurrentOSTag();
    if (OSFamilyOf(tag) == OSFamily::Unsupported) throw UnsupportedSystemError();
    try {
        mobjNet = CreateNetConfig(tag);
        if (!mobjNet) {
            WriteLog(std::string(kObject) + " - Class_Initialize: no network settings for " + tag,
                     kLogWarning);
        }
        if (IsNewerThan(GetIEVersionNumber(), 3.0f)) mobjIE = CreateInternetExplorerConfig();
        if (IsNewerThan(GetNetscapeVersionNumber(), 4.0f)) mobjNN = CreateNavigatorConfig();
        if (IsNewerThan(GetOperaVersionNumber(), 7.0f)) mobjOpera = CreateOperaConfig();
        mstrConfFile.clear();
        LoadCurrentConfiguration();
    } catch (const std::exception& error) {
        LogError(ErrorOf(error), std::string(kObject) + ":Initialize");
        throw;
    }
}

clsRwzConfig::~clsRwzConfig() {
    WriteLog(std::string(kObject) + " - Class_Terminate", kLogDebug);
}

void clsRwzConfig::LoadCurrentConfiguration() {
    Procedure proc(kObject, "LoadCurrentConfiguration");
    proc.RunPassingOn([&] {
        if (mobjNet) mobjNet->LoadConfiguration();
        for (IBrowser* browser : {mobjIE.get(), mobjNN.get(), mobjOpera.get()})
            if (browser) browser->LoadConfiguration();
    });
}

std::vector<ProfileSectionOwner> clsRwzConfig::SectionOwners(
    const AddInCollection& acolAddIns) const {
    std::vector<ProfileSectionOwner> owners;
    if (INetConfig* net = mobjNet.get()) {
        owners.push_back({ProfileArea::General, true,
                          [net](const std::string& file) { net->SaveConfigurationfile(file); },
                          [net](const std::string& file) { net->LoadConfigurationFile(file); }});
    }
    const std::pair<ProfileArea, IBrowser*> browsers[] = {
        {ProfileArea::InternetExplorer, mobjIE.get()},
        {ProfileArea::NetscapeNavigator, mobjNN.get()},
        {ProfileArea::Opera, mobjOpera.get()},
    };
    for (const auto& [area, browser] : browsers) {
        if (!browser) continue;  // not installed: never read nor written
        owners.push_back(
            {area, true,
             [browser](const std::string& file) { browser->SaveConfigurationFile(file); },
             [browser](const std::string& file) { browser->LoadConfigurationFile(file); }});
    }
    for (const std::shared_ptr<IAddIn>& addIn : acolAddIns) {
        if (!addIn) continue;
        IAddIn* target = addIn.get();
        owners.push_back(
            {ProfileArea::AddIn, true,
             [target](const std::string& file) { target->Call("SaveSettings", {file}); },
             [target](const std::string& file) { target->Call("LoadSettings", {file}); }});
    }
    return owners;
}

int clsRwzConfig::LoadConfigurationFile(const std::string& astrFile,
                                        const AddInCollection& acolAddIns) {
    Procedure proc(kObject, "LoadConfigurationFile");
    const std::string previous = mstrConfFile;
    mstrConfFile = astrFile;
    const int result =
        LoadProfileFile(proc.Where(), astrFile, mSettings, SectionOwners(acolAddIns));
    if (result != 0) mstrConfFile = previous;  // not a profile: nothing of it was taken
    return result;
}

std::optional<ErrorInfo> clsRwzConfig::SaveConfigurationFile(const std::string& astrFile,
                                                             const AddInCollection& acolAddIns) {
    Procedure proc(kObject, "SaveConfigurationFile");
    mstrConfFile = astrFile;
    return SaveProfileFile(proc.Where(), astrFile, mSettings, SectionOwners(acolAddIns));
}

void clsRwzConfig::LoadAdvancedSettings() {
    Procedure proc(kObject, "LoadAdvancedSettings");
    proc.Run([&] { ReadAdvancedSettings(mstrConfFile, mSettings); });
}

void clsRwzConfig::SaveAdvancedSettings() {
    Procedure proc(kObject, "SaveAdvancedSettings");
    proc.Run([&] { WriteAdvancedSettings(mstrConfFile, mSettings); });
}

bool clsRwzConfig::ApplyConfiguration(const AddInCollection& acolAddIns,
                                      const CloseBrowserQuestion& askCloseBrowser,
                                      const ApplyFailureNotice& tellFailure) {
    Procedure proc(kObject, "ApplyConfiguration");
    return proc.Run([&] {
        bool restart = false;
        if (ApplyGeneral() && mobjNet)
            for (const std::string& failure : mobjNet->ApplyConfiguration())
                if (tellFailure) tellFailure(failure);

        const BrowserArea browsers[] = {
            {mobjIE.get(), ApplyIE(), "IEFrame", "Internet Explorer"},
            {mobjNN.get(), ApplyNN(), "MozillaWindowClass", "Netscape"},
            {mobjOpera.get(), ApplyOpera(), "OpWindow", "Opera"},
        };
        for (const BrowserArea& area : browsers) {
            if (!area.backEnd || !area.apply) continue;
            // An area that does not differ from the browser is left alone: no question either.
            if (!area.backEnd->IsModified()) continue;
            if (FindWindowA(area.windowClass, nullptr) && askCloseBrowser &&
                askCloseBrowser(area.name))
                CloseBrowserWindows(area.windowClass);
            area.backEnd->ApplyConfiguration();
        }

        for (const std::shared_ptr<IAddIn>& addIn : acolAddIns) {
            if (!addIn) continue;
            addIn->Call("Initialize", {"IgnoreMapErrors"});
            addIn->Call("ApplySettings");
            if (addIn->Call("Restart") == "True") restart = true;
        }
        return restart;
    });
}

void CloseBrowserWindows(const char* aszWindowClass) {
    WaitCursor hourglass;
    // No time limit: a browser that asks its own question on closing keeps its
    // window until the user has answered it.
    while (HWND window = FindWindowA(aszWindowClass, nullptr)) {
        PostMessageA(window, WM_CLOSE, 0, 0);
        DoEvents();
        Sleep(50);
    }
}

}  // namespace rwz
