// The main window's add-in commands: starting the add-ins entered in the
// program settings, running one from its menu entry, and the manager.
#include <windows.h>

#include "localization/modLocalization.h"
#include "platform/Procedure.h"
#include "platform/modLogging.h"
#include "profile/clsRwzConfig.h"
#include "shell/clsAddInObject.h"
#include "shell/frmAddIns.h"
#include "shell/frmMain.h"
#include "shell/frmMainRes.h"
#include "shell/modAddIns.h"

namespace rwz {
namespace {

const char kObject[] = "frmMain";
const int kToolsMenu = 1;

enum : int16_t {
    kMsgAddInsFailed = 4,
    kMsgCheckAddIns = 5,
    kMsgNoAddInReference = 6,
    kMsgAddInError = 7,
};

}  // namespace

// Also run again after the manager: add-ins still offered keep their objects
// (and what they hold), newly offered ones are created, the others dropped.
void frmMain::InitializeAddIns() {
    Procedure proc(kObject, "InitializeAddIns");
    proc.RunThen(
        [&] {
            HMENU tools = GetSubMenu(Menu(), kToolsMenu);
            for (size_t i = 0; i < mstrAddInNames.size(); ++i)
                DeleteMenu(tools, IDM_ADDIN_FIRST + static_cast<UINT>(i), MF_BYCOMMAND);
            if (!mstrAddInNames.empty())  // the separator before the entries
                DeleteMenu(tools, GetMenuItemCount(tools) - 1, MF_BYPOSITION);
            const AddInCollection previous = mcolAddIns;
            const std::vector<std::string> previousNames = mstrAddInNames;
            mcolAddIns.clear();
            mstrAddInNames.clear();

            for (const AddInEntry& entry : GetAddInEntries()) {
                if (!IsAddInOffered(entry, mstrOS)) {
                    proc.Log("Add-In '" + entry.Name + "' not offered (Active " +
                             (entry.Active ? "1" : "0") + ", OS '" + entry.OS + "')");
                    continue;
                }
                if (mstrAddInNames.size() >= kMaxAddIns) break;
                std::shared_ptr<IAddIn> addIn;
                for (size_t i = 0; i < previousNames.size(); ++i)
                    if (previousNames[i] == entry.Name) addIn = previous[i];
                if (!addIn) {
                    try {
                        addIn = clsAddInObject::Create(entry.Class);
                    } catch (const std::exception& error) {
                        LogError(ErrorOf(error), proc.Where());
                        ShowMessage("Error referencing Add-In control: '" + entry.Class + "'.",
                                    MB_OK | MB_ICONEXCLAMATION);
                        continue;
                    }
                }
                // The entries follow the manager's command, after a separator.
                if (mstrAddInNames.empty()) AppendMenuA(tools, MF_SEPARATOR, 0, nullptr);
                const UINT id = IDM_ADDIN_FIRST + static_cast<UINT>(mstrAddInNames.size());
                AppendMenuA(tools, MF_STRING, id, AddInCaption(entry.Name).c_str());
                mcolAddIns.push_back(addIn);
                mstrAddInNames.push_back(entry.Name);
                proc.Log("Add-In menu entry: " + AddInCaption(entry.Name));
            }
            DrawMenuBar(mhWnd);
        },
        [&](const ErrorInfo& error) {
            ShowMessage(MessageText(kMsgAddInsFailed, {error.Description}) + "\r\n\r\n" +
                            MessageText(kMsgCheckAddIns),
                        MB_OK | MB_ICONEXCLAMATION);
        });
}

void frmMain::mnuAddIns_Click(int aintIndex) {
    Procedure proc(kObject, "mnuAddIns_Click");
    std::string key;
    proc.RunThen(
        [&] {
            char caption[256] = "";
            GetMenuStringA(Menu(), IDM_ADDIN_FIRST + aintIndex, caption, sizeof caption,
                           MF_BYCOMMAND);
            key = AddInKey(caption);
            std::shared_ptr<IAddIn> addIn;
            for (size_t i = 0; i < mstrAddInNames.size(); ++i)
                if (mstrAddInNames[i] == key) addIn = mcolAddIns[i];
            if (!addIn) {
                ShowMessage(MessageText(kMsgNoAddInReference, {key}), MB_OK | MB_ICONEXCLAMATION);
                return;
            }
            // The add-in is told which profile it edits: its path, "" for the
            // machine's current configuration.
            addIn->Call("Show", {mobjConfig ? mobjConfig->ConfFile() : std::string()});
            // Its changes are kept by the add-in itself and written with the
            // profile: the window only has to know that there is something to save.
            if (addIn->Call("Changed") == "True") SetChanged(true);
            if (addIn->Call("Restart") == "True") {
                SetPanelText(4, "Restart Required");
                SetPanelVisible(4, true);
            }
        },
        [&](const ErrorInfo& error) {
            ShowMessage(MessageText(kMsgAddInError, {key}) + "\r\n\r\n" + error.Description,
                        MB_OK | MB_ICONEXCLAMATION);
        });
}

void frmMain::mnuAddInTools_Click() {
    Procedure proc(kObject, "mnuAddInTools_Click");
    proc.Run([&] { DisplayAddInManager(); });
}

void frmMain::DisplayAddInManager() {
    Procedure proc(kObject, "DisplayAddInManager");
    proc.Run([&] {
        frmAddIns manager;
        manager.Show(mhWnd);
        // Switching an add-in on or off shows at once in the menu.
        InitializeAddIns();
    });
}

}  // namespace rwz
