// The main window's file commands: open, save, save as, apply, the recent
// files in the File menu, and closing the window.
#include <shlobj.h>

#include <cstdlib>

#include "localization/modLocalization.h"
#include "platform/Procedure.h"
#include "platform/WaitCursor.h"
#include "platform/modAPI.h"
#include "platform/modUtilities.h"
#include "profile/clsRwzConfig.h"
#include "profile/modRestart.h"
#include "report/clsSettings.h"
#include "shell/frmCredentials.h"
#include "shell/frmMain.h"
#include "shell/frmMainRes.h"
#include "shell/frmRestart.h"

namespace rwz {

namespace {

const char kObject[] = "frmMain";
const char kOptions[] = "Options";
const char kTitle[] = "Roamwise";
const char kProfileFilter[] = "Roamwise Files (*.rwz)|*.rwz|All Files (*.*)|*.*";
const char kReportFilter[] = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*";

// Numbered messages of the file commands.
enum : int16_t {
    kMsgSaveConfiguration = 3,
    kMsgNoChanges = 8,
    kMsgApplyChanges = 9,
    kMsgRestartLater = 10,
    kMsgNoRestartRequired = 11,
    kMsgCouldNotOpen = 12,
    kMsgRemovedFromMRU = 13,
    kMsgInvalidFile = 14,
    kMsgErrorOpening = 15,
    kMsgErrorSaving = 19,
};

// What the user is told when saving failed: messages 35 and 36 for a file that
// cannot be written (error 75), otherwise "Error: " and the description.
std::string SaveFailureText(const ErrorInfo& aError, const std::string& astrFile) {
    if (aError.Number == kErrPathFileAccess) {
        return JoinMessages({MessageText(35, {astrFile}), MessageText(36)});
    }
    return "Error: " + aError.Description;
}

// The question asked before applying to a running browser.
std::string RunningBrowserQuestion(const std::string& astrBrowser) {
    const std::string crlf2 = "\r\n\r\n";
    std::string text = astrBrowser + " is currently running.  Any changes applied while " +
                       astrBrowser + " is open may not be retained when you close your browser." +
                       crlf2;
    if (astrBrowser == "Netscape")
        text += "Note: If Quick Launch is running, it must be closed before applying any changes." +
                crlf2;
    return text + "Would you like Roamwise to close your browser before " + "applying the changes?";
}

// Asks it; Yes closes the browser first.
bool AskCloseBrowser(const std::string& astrBrowser) {
    return ShowMessage(RunningBrowserQuestion(astrBrowser), MB_YESNO | MB_ICONQUESTION,
                       "Apply Configuration") == IDYES;
}

void ShowApplyFailure(const std::string& astrText) {
    ShowMessage(astrText, MB_OK | MB_ICONEXCLAMATION);
}

std::string CurrentFolder() {
    char folder[MAX_PATH] = "";
    GetCurrentDirectoryA(sizeof folder, folder);
    return folder;
}

}  // namespace

std::string frmMain::ProfileFolder() const {
    const std::string file = mobjConfig ? mobjConfig->ConfFile() : std::string();
    const size_t slash = file.rfind('\\');
    return slash == std::string::npos ? CurrentFolder() : file.substr(0, slash);
}

void frmMain::OpenFile() {
    Procedure proc(kObject, "OpenFile");
    proc.Run([&] {
        const std::string file = ShowOpenFileDialog(mhWnd, "Open", kProfileFilter, ProfileFolder());
        if (!file.empty()) OpenConfigurationFile(file);
    });
}

void frmMain::OpenMRUFile(int aintIndex) {
    Procedure proc(kObject, "OpenMRUFile");
    proc.Run([&] {
        const auto& files = mobjMRU.FileList();
        if (aintIndex >= 0 && aintIndex < static_cast<int>(files.size()))
            OpenConfigurationFile(files[aintIndex]);
    });
}

void frmMain::OpenConfigurationFile(const std::string& astrPath) {
    Procedure proc(kObject, "OpenConfigurationFile");
    proc.LogValue(astrPath);
    proc.RunThen(
        [&] {
            WaitCursor hourglass;
            if (!mobjConfig) return;
            const std::string file = astrPath.find('\\') == std::string::npos
                                         ? CurrentFolder() + "\\" + astrPath
                                         : astrPath;
            if (!FileExists(file)) {
                mobjMRU.RemoveRecentFile(file);
                InitializeMenu();
                ShowMessage(JoinMessages({MessageText(kMsgCouldNotOpen, {file}),
                                          MessageText(kMsgRemovedFromMRU)}),
                            MB_OK | MB_ICONINFORMATION, kTitle);
                return;
            }
            if (mobjConfig->LoadConfigurationFile(file, mcolAddIns) == 1) {
                ShowMessage(MessageText(kMsgInvalidFile), MB_OK | MB_ICONSTOP);
                mobjMRU.RemoveRecentFile(file);
                InitializeMenu();
                return;
            }
            // Showing the profile assigns every setting in which it differs
            // from what the tabs showed: that is what applying will change.
            RefillPages(true);
            UpdateAreaButtons();
            SetCaption(clsMRUList::GetFileName(file) + " - " + kTitle +
                       (mobjConfig->ReadOnly() ? " - [Read Only]" : ""));
            mblnLoading = false;
            mblnFileLoaded = true;
            SetChanged(false);
            mobjMRU.SetRecentFile(file);
            InitializeMenu();
            SelectFirstEnabledPage();
            mblnAutoReboot = mobjConfig->AutoReboot();
            UpdateRestartIndicator();
            if (mobjConfig->AutoApply()) ApplyCurrentConfiguration();
            if (mblnUnloaded) return;

            for (const auto& addIn : mcolAddIns) {
                if (addIn && addIn->Call("Restart") == "True") {
                    SetPanelText(4, "Restart Required");
                    SetPanelVisible(4, true);
                }
            }
            SHAddToRecentDocs(SHARD_PATHA, file.c_str());
        },
        [&] {
            ShowMessage(MessageText(kMsgErrorOpening, {astrPath}), MB_OK | MB_ICONEXCLAMATION);
        });
}

void frmMain::SaveFile() {
    Procedure proc(kObject, "SaveFile");
    proc.Run([&] {
        if (!mobjConfig) return;
        if (mobjConfig->ConfFile().empty())
            SaveFileAs();
        else
            SaveConfigurationFile(mobjConfig->ConfFile());
    });
}

void frmMain::SaveFileAs() {
    Procedure proc(kObject, "SaveFileAs");
    proc.Run([&] {
        if (!mobjConfig) return;
        const std::string start =
            mobjConfig->ConfFile().empty() ? ProfileFolder() : mobjConfig->ConfFile();
        const std::string file = ShowSaveFileDialog(mhWnd, "Save As", kProfileFilter, start);
        if (!file.empty()) SaveConfigurationFile(file);
    });
}

void frmMain::SaveConfigurationFile(const std::string& astrPath) {
    Procedure proc(kObject, "SaveConfigurationFile");
    proc.Run([&] {
        if (!mobjConfig) return;
        if (const auto failure = mobjConfig->SaveConfigurationFile(astrPath, mcolAddIns)) {
            ShowMessage(SaveFailureText(*failure, astrPath), MB_OK | MB_ICONEXCLAMATION);
            ShowMessage(MessageText(kMsgErrorSaving), MB_OK | MB_ICONEXCLAMATION);
            return;
        }
        SetCaption(clsMRUList::GetFileName(astrPath) + " - " + kTitle);
        mblnFileLoaded = true;
        SetChanged(false);
        mobjMRU.SetRecentFile(astrPath);
        InitializeMenu();
    });
}

void frmMain::ApplyCurrentConfiguration() {
    Procedure proc(kObject, "ApplyCurrentConfiguration");
    proc.Run([&] {
        if (!mobjConfig) return;
        if (!mblnFileLoaded && !mblnChanged) {
            ShowMessage(MessageText(kMsgNoChanges), MB_OK | MB_ICONINFORMATION);
            return;
        }
        if (!mobjConfig->AutoApply() &&
            ShowMessage(MessageText(kMsgApplyChanges), MB_YESNO | MB_ICONQUESTION) != IDYES)
            return;
        // A profile that keeps no account asks for one now; Cancel stops the apply.
        if (INetConfig* net = mobjConfig->GetNetConfig()) {
            if ((IsPromptPlaceholder(net->Record().NTDomainUserName) ||
                 IsPromptPlaceholder(net->Record().NTDomainPassword)) &&
                PromptForCredentials(*net, mhWnd))
                return;
        }
        const bool addInRestart = ApplyConfiguration();
        SetPanelText(1, mobjConfig->ConfFile().empty()
                            ? "Current (unsaved) configuration applied"
                            : "Last file applied: " + mobjConfig->ConfFile());
        RestartDecision(addInRestart);
        if (!mblnUnloaded) SetChanged(false);
    });
}

bool frmMain::ApplyConfiguration() {
    Procedure proc(kObject, "ApplyConfiguration");
    return proc.Run([&] {
        if (!mobjConfig) return false;
        SaveProgramSetting(kProductName, kOptions, "LastFileApplied", mobjConfig->ConfFile());
        if (INetConfig* net = mobjConfig->GetNetConfig()) {
            const auto& adapters = net->Record().AdapterList;
            const int current = net->Record().CurrentAdapter;
            if (current >= 0 && current < static_cast<int>(adapters.size()))
                SaveProgramSetting(kProductName, kOptions, "LastNICApplied", adapters[current]);
        }
        return mobjConfig->ApplyConfiguration(mcolAddIns, AskCloseBrowser, ShowApplyFailure);
    });
}

void frmMain::RestartDecision(bool ablnAddInRestart) {
    Procedure proc(kObject, "RestartDecision");
    proc.Run([&] {
        const bool needed = RestartPending() || ablnAddInRestart;
        if (!needed) {
            if (mblnAutoReboot) {
                ExecuteRestartOption("");
                Unload();
            } else {
                ShowMessage(MessageText(kMsgNoRestartRequired), MB_OK | MB_ICONINFORMATION);
            }
        } else if (mblnAutoReboot) {
            ExecuteRestartOption("");
            if (GetRestartPreference() == kRestartNone)
                ShowMessage(MessageText(kMsgRestartLater), MB_OK | MB_ICONINFORMATION);
            Unload();
        } else {
            ShowRestartDialog(mhWnd);
        }
    });
}

void frmMain::ExportSettings() {
    Procedure proc(kObject, "ExportSettings");
    proc.Run([&] {
        if (!mobjConfig) return;
        // Offered: the profile's name with ".txt", in the profile's folder.
        std::string name = clsMRUList::GetFileName(mobjConfig->ConfFile());
        const size_t dot = name.rfind('.');
        if (dot != std::string::npos) name.erase(dot);
        if (name.empty()) name = "Settings";
        const std::string file = ShowSaveFileDialog(mhWnd, "Export Settings", kReportFilter,
                                                    ProfileFolder() + "\\" + name + ".txt");
        if (!file.empty()) clsSettings().ExportAllSettings(*mobjConfig, file);
    });
}

void frmMain::PrintSettings() {
    Procedure proc(kObject, "PrintSettings");
    proc.Run([&] {
        // On the default printer, which Print Setup chooses.
        if (mobjConfig) clsSettings().PrintAllSettings(*mobjConfig);
    });
}

void frmMain::PrintSetup() {
    Procedure proc(kObject, "PrintSetup");
    proc.Run([&] { ShowPrintSetupDialog(mhWnd); });
}

void frmMain::InitializeMenu() {
    Procedure proc(kObject, "InitializeMenu");
    proc.Run([&] {
        HMENU file = GetSubMenu(Menu(), 0);
        if (!file) return;
        // The recent files and their separator stand just before "Exit".
        for (int i = 0; i < mintMRUItems; ++i) {
            const int exitPosition = GetMenuItemCount(file) - 1;
            DeleteMenu(file, exitPosition - 1, MF_BYPOSITION);
        }
        mintMRUItems = 0;

        // Shown up to the stored maximum, which defaults to none here (the list
        // itself defaults to five).
        const int maximum =
            std::atoi(GetProgramSetting(kProductName, "Recent", "MaxFile", "0").c_str());
        const auto& files = mobjMRU.FileList();
        const int count =
            std::min<int>(std::min(maximum, clsMRUList::kMaxFiles), static_cast<int>(files.size()));
        if (count < 1) return;
        const int exitPosition = GetMenuItemCount(file) - 1;
        for (int i = 0; i < count; ++i) {
            const std::string caption =
                "&" + std::to_string(i + 1) + ". " + clsMRUList::GetFileName(files[i]);
            InsertMenuA(file, exitPosition + i, MF_BYPOSITION | MF_STRING, IDM_FILE_MRU_FIRST + i,
                        caption.c_str());
        }
        InsertMenuA(file, exitPosition + count, MF_BYPOSITION | MF_SEPARATOR, 0, nullptr);
        mintMRUItems = count + 1;
    });
}

bool frmMain::Form_QueryUnload() {
    Procedure proc(kObject, "Form_QueryUnload");
    return proc.Run(
        [&] {
            if (!mblnChanged) return true;
            switch (
                ShowMessage(MessageText(kMsgSaveConfiguration), MB_YESNOCANCEL | MB_ICONQUESTION)) {
                case IDYES:
                    SaveFile();
                    return true;
                case IDNO:
                    return true;
                default:
                    return false;
            }
        },
        true);
}

void frmMain::ExitApplication() {
    Procedure proc(kObject, "ExitApplication");
    proc.Run([&] {
        if (Form_QueryUnload()) Unload();
    });
}

}  // namespace rwz
