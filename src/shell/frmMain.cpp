#include "shell/frmMain.h"

#include <commctrl.h>

#include "localization/modLocalization.h"
#include "platform/AppVersion.h"
#include "platform/Procedure.h"
#include "platform/WaitCursor.h"
#include "platform/modAPI.h"
#include "platform/modFindPartEnum.h"
#include "platform/modLogging.h"
#include "platform/modUtilities.h"
#include "profile/clsRwzConfig.h"
#include "profile/modRestart.h"
#include "report/clsSettings.h"
#include "shell/frmAbout.h"
#include "shell/frmExplorerTab.h"
#include "shell/frmGeneralTab.h"
#include "shell/frmGeneralTabRes.h"
#include "shell/frmLanguage.h"
#include "shell/frmMainRes.h"
#include "shell/frmNetscapeTab.h"
#include "shell/frmOperaTab.h"
#include "shell/frmOptions.h"
#include "shell/frmPrinter.h"
#include "shell/frmRestart.h"
#include "shell/RwzExitCode.h"
#include "shell/modCommandLine.h"
#include "shell/modShortcut.h"
#include "shell/modWindowFit.h"

namespace rwz {

namespace {

const char kObject[] = "frmMain";
const char kOptions[] = "Options";
const char kWindowClass[] = "RoamwiseMain";
const char kUnsupportedTitle[] = "Non-Supported Operating System";
const char kUnsupportedText[] =
    "The current operating system is not supported by this version of Roamwise.  "
    "Please check the Roamwise web site to see if there is an updated version available.";
// Only one copy of the window stays open; a second one brings it forward.
const char kCopyMutex[] = "Roamwise.MainWindow";
// How long a copy asked to apply waits for a running copy to finish (a silent
// apply takes well under a second).
constexpr DWORD kOtherCopyWaitMs = 10000;
constexpr DWORD kOtherCopyPollMs = 100;

constexpr int16_t kMsgCurrentConfiguration = 60;
constexpr int16_t kMsgUnsupportedSystem = 34;

// Toolbar buttons, in order; the area buttons switch an area of the profile on or off.
// Each is as wide as its own text (shells before 5.80 make them all alike).
struct ToolbarButton {
    int bitmap;
    int command;
    BYTE style;
    const char* text;
};
const ToolbarButton kToolbarButtons[] = {
    {STD_FILEOPEN, IDM_FILE_OPEN, BTNS_BUTTON | BTNS_AUTOSIZE, "Open"},
    {STD_FILESAVE, IDM_FILE_SAVE, BTNS_BUTTON | BTNS_AUTOSIZE, "Save"},
    {STD_REDOW, IDM_FILE_APPLY, BTNS_BUTTON | BTNS_AUTOSIZE, "Apply"},
    {0, 0, BTNS_SEP, nullptr},
    {STD_PROPERTIES, IDM_AREA_GENERAL, BTNS_CHECK | BTNS_AUTOSIZE, "General"},
    {STD_PROPERTIES, IDM_AREA_IE, BTNS_CHECK | BTNS_AUTOSIZE, "Internet Explorer"},
    {STD_PROPERTIES, IDM_AREA_NETSCAPE, BTNS_CHECK | BTNS_AUTOSIZE, "Netscape"},
    {STD_PROPERTIES, IDM_AREA_OPERA, BTNS_CHECK | BTNS_AUTOSIZE, "Opera"},
};
const int kAreaCommands[] = {IDM_AREA_GENERAL, IDM_AREA_IE, IDM_AREA_NETSCAPE, IDM_AREA_OPERA};

// Collects the items of a menu and its sub-menus, depth first: a popup's own
// caption before its items.
template <class Item>
void CollectMenuItems(HMENU menu, std::vector<Item>& items) {
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        MENUITEMINFOA info = {};
        info.cbSize = sizeof info;
        info.fMask = MIIM_TYPE | MIIM_SUBMENU | MIIM_ID;
        if (!GetMenuItemInfoA(menu, i, TRUE, &info) || (info.fType & MFT_SEPARATOR)) continue;
        char text[256] = "";
        GetMenuStringA(menu, i, text, sizeof text, MF_BYPOSITION);
        const bool popup = info.hSubMenu != nullptr;
        items.push_back({menu, popup ? static_cast<UINT>(i) : info.wID, popup, text});
        if (popup) CollectMenuItems(info.hSubMenu, items);
    }
}

void SetMenuText(HMENU menu, UINT item, bool byPosition, const std::string& astrText) {
    MENUITEMINFOA info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_TYPE;
    info.fType = MFT_STRING;
    info.dwTypeData = const_cast<char*>(astrText.c_str());
    SetMenuItemInfoA(menu, item, byPosition, &info);
}

// The tool tip of a toolbar button, by its command.
void SetToolTip(HWND toolbar, int command, const std::string& astrText) {
    HWND tips = reinterpret_cast<HWND>(SendMessageA(toolbar, TB_GETTOOLTIPS, 0, 0));
    if (!tips) return;
    std::string text = astrText;
    TOOLINFOA tool = {};
    tool.cbSize = TTTOOLINFOA_V1_SIZE;
    tool.hwnd = toolbar;
    tool.uId = static_cast<UINT_PTR>(command);
    tool.lpszText = &text[0];
    SendMessageA(tips, TTM_UPDATETIPTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
}

// Widths of the status bar panels 2 to 4; panel 1 takes the rest.
const int kPanelWidths[] = {0, 110, 90, 110};

}  // namespace

frmMain::frmMain(HINSTANCE instance) : mhInstance(instance) {}

frmMain::~frmMain() = default;

int frmMain::Run(int showCommand) {
    if (const std::optional<int> code = EndForOtherCopy()) return *code;
    // A hidden run never shows the window, so it makes none: a process's first
    // window, and its teardown, cost most of what a silent run took.
    mblnWindowless =
        !FindSwitch("hidden", SplitCommandLine(CommandLineText(GetCommandLineA()))).empty();
    if (mblnWindowless)
        CreateWithoutWindow();
    else if (!CreateMainWindow())
        return kExitNoWindow;
    // Until a profile has been applied, a run asked to apply says it was not
    // (an unsupported system, for one, ends before the switches).
    if (ToLower(CommandLineText(GetCommandLineA())).find("/apply") != std::string::npos)
        mlngExitCode = kExitNotApplied;
    Form_Load();
    if (mblnUnloaded || mblnWindowless) return static_cast<int>(mlngExitCode);
    ShowWindow(mhWnd, showCommand);
    UpdateWindow(mhWnd);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (mhWnd && TranslateAcceleratorA(mhWnd, mhAccelerators, &message)) continue;
        if (mhWnd && IsDialogMessageA(mhWnd, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}

bool frmMain::CreateMainWindow() {
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_BAR_CLASSES | ICC_TAB_CLASSES};
    if (!InitCommonControlsEx(&controls)) InitCommonControls();
    mhAccelerators = LoadAcceleratorsA(mhInstance, "MAIN_KEYS");
    // The class the template names: a dialog's window procedure under a name of its own.
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = DefDlgProcA;
    windowClass.cbWndExtra = DLGWINDOWEXTRA;
    windowClass.hInstance = mhInstance;
    windowClass.hCursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(32512));
    windowClass.hIcon = LoadIconA(mhInstance, MAKEINTRESOURCEA(1));  // the program's icon
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassA(&windowClass);
    if (!Create("MAIN", nullptr, mhInstance)) return false;
    mhTabs = GetDlgItem(mhWnd, IDC_MAIN_TABS);
    CollectMenuItems(GetMenu(mhWnd), mcolMenuCaptions);
    CreateBars();
    CreatePages();
    Layout();
    return true;
}

void frmMain::CreateWithoutWindow() {
    mhOwnMenu.Reset(LoadMenuA(mhInstance, "MAIN_MENU"));
    CollectMenuItems(Menu(), mcolMenuCaptions);
    CreatePages();
}

void frmMain::CreateBars() {
    mhToolbar = CreateWindowExA(
        0, TOOLBARCLASSNAMEA, nullptr,
        WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT | TBSTYLE_LIST | TBSTYLE_TOOLTIPS | CCS_TOP, 0, 0, 0,
        0, mhWnd, nullptr, mhInstance, nullptr);
    SendMessageA(mhToolbar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    TBADDBITMAP bitmap = {HINST_COMMCTRL, IDB_STD_SMALL_COLOR};
    SendMessageA(mhToolbar, TB_ADDBITMAP, 0, reinterpret_cast<LPARAM>(&bitmap));
    std::vector<TBBUTTON> buttons;
    for (const ToolbarButton& b : kToolbarButtons) {
        TBBUTTON button = {};
        button.iBitmap = b.bitmap;
        button.idCommand = b.command;
        button.fsState = TBSTATE_ENABLED;
        button.fsStyle = b.style;
        if (b.text) {
            std::string text = b.text;
            text.push_back('\0');
            button.iString =
                SendMessageA(mhToolbar, TB_ADDSTRINGA, 0, reinterpret_cast<LPARAM>(text.c_str()));
        }
        buttons.push_back(button);
    }
    SendMessageA(mhToolbar, TB_ADDBUTTONSA, buttons.size(),
                 reinterpret_cast<LPARAM>(buttons.data()));
    SendMessageA(mhToolbar, TB_AUTOSIZE, 0, 0);

    mhStatusBar =
        CreateWindowExA(0, STATUSCLASSNAMEA, nullptr, WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0,
                        0, 0, mhWnd, nullptr, mhInstance, nullptr);
}

void frmMain::CreatePages() {
    const char* templates[kPageCount] = {"GENERAL_TAB", "IE_TAB", "NETSCAPE_TAB", "OPERA_TAB"};
    const char* captions[kPageCount] = {"General", "Internet Explorer", "Netscape", "Opera"};
    for (int i = 0; i < kPageCount; ++i) {
        if (i == kPageGeneral)
            mobjPages[i] = std::make_unique<frmGeneralTab>(templates[i], captions[i]);
        else if (i == kPageIE)
            mobjPages[i] = std::make_unique<frmExplorerTab>(templates[i], captions[i]);
        else if (i == kPageNetscape)
            mobjPages[i] = std::make_unique<frmNetscapeTab>(templates[i], captions[i]);
        else if (i == kPageOpera)
            mobjPages[i] = std::make_unique<frmOperaTab>(templates[i], captions[i]);
        else
            mobjPages[i] = std::make_unique<clsTabPage>(templates[i], captions[i]);
        if (mblnWindowless) {
            mobjPages[i]->CreateWithoutWindow(mhInstance, *this);
            continue;
        }
        mobjPages[i]->Create(mhInstance, mhWnd, *this);
        TCITEMA item = {};
        item.mask = TCIF_TEXT;
        std::string caption = mobjPages[i]->Caption();
        item.pszText = &caption[0];
        SendMessageA(mhTabs, TCM_INSERTITEMA, i, reinterpret_cast<LPARAM>(&item));
    }
}

void frmMain::Layout() {
    if (!mhWnd) return;
    RECT client;
    GetClientRect(mhWnd, &client);
    SendMessageA(mhToolbar, TB_AUTOSIZE, 0, 0);
    SendMessageA(mhStatusBar, WM_SIZE, 0, 0);
    RECT bar;
    GetWindowRect(mhToolbar, &bar);
    const int top = bar.bottom - bar.top + 4;
    GetWindowRect(mhStatusBar, &bar);
    const int bottom = client.bottom - (bar.bottom - bar.top) - 4;
    MoveWindow(mhTabs, 4, top, client.right - 8, bottom - top, TRUE);

    RECT display = {4, top, client.right - 4, bottom};
    SendMessageA(mhTabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&display));
    for (auto& page : mobjPages) {
        if (!page || !page->Handle()) continue;
        SetWindowPos(page->Handle(), HWND_TOP, display.left, display.top,
                     display.right - display.left, display.bottom - display.top, 0);
    }

    // Panel 1 takes what the visible panels 2 to 4 leave.
    int edges[kPanelCount];
    int right = client.right;
    for (int panel = kPanelCount; panel >= 1; --panel) {
        edges[panel - 1] = panel == kPanelCount ? -1 : right;
        if (panel > 1 && PanelVisible(panel)) right -= kPanelWidths[panel - 1];
    }
    SendMessageA(mhStatusBar, SB_SETPARTS, kPanelCount, reinterpret_cast<LPARAM>(edges));
    for (int panel = 1; panel <= kPanelCount; ++panel) {
        const std::string text = PanelVisible(panel) ? mstrPanelText[panel - 1] : std::string();
        SendMessageA(mhStatusBar, SB_SETTEXTA, panel - 1, reinterpret_cast<LPARAM>(text.c_str()));
    }
}

bool frmMain::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            Layout();
            return true;
        case WM_CLOSE:
            ExitApplication();
            return true;
        case WM_DESTROY:
            PostQuitMessage(0);
            return true;
    }
    return clsDialog::OnMessage(message, wParam, lParam);
}

bool frmMain::OnCommand(int aintId, int, HWND) {
    RunCommand(aintId);
    return true;
}

bool frmMain::OnNotify(const NMHDR& header, LRESULT&) {
    if (header.hwndFrom == mhTabs && header.code == TCN_SELCHANGE) {
        const int selected = static_cast<int>(SendMessageA(mhTabs, TCM_GETCURSEL, 0, 0));
        if (selected >= 0 && mblnInstalled[selected])
            SelectPage(selected);
        else
            SelectFirstEnabledPage();
    }
    return true;
}

void frmMain::RunCommand(int aintId) {
    if (aintId >= IDM_FILE_MRU_FIRST && aintId < IDM_FILE_MRU_FIRST + clsMRUList::kMaxFiles) {
        OpenMRUFile(aintId - IDM_FILE_MRU_FIRST);
        return;
    }
    if (aintId >= IDM_ADDIN_FIRST && aintId < IDM_ADDIN_FIRST + static_cast<int>(kMaxAddIns))
        return mnuAddIns_Click(aintId - IDM_ADDIN_FIRST);
    for (int page = 0; page < kPageCount; ++page)
        if (aintId == kAreaCommands[page]) return ToggleArea(page);
    switch (aintId) {
        case IDM_FILE_OPEN:
            return OpenFile();
        case IDM_FILE_SAVE:
            return SaveFile();
        case IDM_FILE_SAVEAS:
            return SaveFileAs();
        case IDM_FILE_APPLY:
            return ApplyCurrentConfiguration();
        case IDM_FILE_EXPORT:
            return ExportSettings();
        case IDM_FILE_PRINT:
            return PrintSettings();
        case IDM_FILE_SHORTCUT:
            CreateDesktopShortcut(mhWnd, mobjConfig ? mobjConfig->ConfFile() : std::string());
            return;
        case IDM_FILE_PRINTSETUP:
            return PrintSetup();
        case IDM_TOOLS_OPTIONS:
            return ShowOptions();
        case IDC_GEN_PRINTEROPTIONS:
            return PrinterOptions();
        case IDM_TOOLS_LANGUAGE:
            return ShowLanguage();
        case IDM_FILE_EXIT:
            return ExitApplication();
        case IDM_HELP_CONTENTS:
            return ShowHelpContents();
        case IDM_HELP_ABOUT:
            return DisplayAboutDialog();
        case IDM_HELP_UPDATE:
            return CheckForUpdates();
        case IDM_TOOLS_ADDINS:
            return mnuAddInTools_Click();
    }
}

std::optional<int> frmMain::EndForOtherCopy() {
    mhCopyMutex.Reset(CreateMutexA(nullptr, FALSE, kCopyMutex));
    if (GetLastError() != ERROR_ALREADY_EXISTS) return std::nullopt;
    // The other copy's log is left as it is; this copy only adds why it ends or waits.
    if (GetSwitch("apply", GetCommandLineArgs(CommandLineText(GetCommandLineA()))).empty()) {
        WriteLog("Another copy of Roamwise is running: this copy brings it forward and ends.",
                 kLogInformation);
        if (HWND other = FindWindowByPartialTitle("- Roamwise")) {
            if (IsIconic(other)) ShowWindow(other, SW_RESTORE);
            SetForegroundWindow(other);
        }
        return 0;
    }
    WriteLog("Another copy of Roamwise is running: this copy applies when it has finished.",
             kLogInformation);
    // The mutex lives while any copy holds it: let go, look again.
    for (DWORD waited = 0; waited < kOtherCopyWaitMs; waited += kOtherCopyPollMs) {
        mhCopyMutex.Reset();
        Sleep(kOtherCopyPollMs);
        mhCopyMutex.Reset(CreateMutexA(nullptr, FALSE, kCopyMutex));
        if (GetLastError() != ERROR_ALREADY_EXISTS) {
            mblnWaitedForOtherCopy = true;
            return std::nullopt;
        }
    }
    WriteLog("The other copy of Roamwise did not finish within " +
                 std::to_string(kOtherCopyWaitMs / 1000) +
                 " seconds: this copy ends without applying.",
             kLogWarning);
    return 1;
}

void frmMain::Form_Load() {
    // The header comes before the entry line. When no folder takes the log,
    // the program runs on without one.
    try {
        WriteLogHeader(mblnWaitedForOtherCopy ? LogStart::Append : LogStart::Replace);
    } catch (const std::exception&) {
    }
    Procedure proc(kObject, "Form_Load");
    proc.Run([&] {
        WaitCursor hourglass;

        ApplyLanguage();

        mstrOS = Trim(GetCurrentOSTag());
        if (mstrOS.empty()) {
            SetPanelVisible(3, false);
            ShowMessage(kUnsupportedText, MB_OK | MB_ICONSTOP, kUnsupportedTitle);
            Unload();
            return;
        }

        mblnAutoReset = GetProgramSetting(kProductName, kOptions, "AutoReset", "0") == "1";
        mobjMRU.GetRecentList();
        InitializeMenu();
        InitializeForm();
        InitializeAddIns();

        const std::string text = CommandLineText(GetCommandLineA());
        if (!text.empty()) {
            ProcessCommandLineSwitches(GetCommandLineArgs(text));
            if (mblnExitAfterSwitches) Unload();
        }
    });
}

void frmMain::InitializeForm() {
    Procedure proc(kObject, "InitializeForm");
    auto step = [&](const std::string& text) { proc.Log(text); };
    proc.RunThen(
        [&] {
            WaitCursor hourglass;
            mblnShowNICWarning =
                GetProgramSetting(kProductName, kOptions, "NICWarning", "0") == "0";
            step(std::string("mblnShowNICWarning = ") + (mblnShowNICWarning ? "True" : "False"));
            UpdateCaption();

            mblnLoading = true;
            mblnChanged = false;
            try {
                mobjConfig = std::make_unique<clsRwzConfig>();
            } catch (const UnsupportedSystemError&) {
                ShowMessage(MessageText(kMsgUnsupportedSystem), MB_OK | MB_ICONINFORMATION);
                ExitProcess(0);
            }

            // Nothing to save or apply yet: the toolbar's second button (Save) and
            // the File menu's first two items (Save, Apply) start disabled.
            SetChanged(false);

            if (mobjConfig->IEInstalled()) step("Internet Explorer is Installed");
            if (mobjConfig->NNInstalled()) step("Netscape Navigator/Mozilla is Installed");
            if (mobjConfig->OperaInstalled()) step("Opera is Installed");

            mblnInstalled = {mobjConfig->GetNetConfig() != nullptr, mobjConfig->IEInstalled(),
                             mobjConfig->NNInstalled(), mobjConfig->OperaInstalled()};
            if (mblnInstalled[kPageGeneral]) {
                step("Calling InitializeNICControls...");
                step("Calling InitializeMiscControls...");
                mobjPages[kPageGeneral]->Refill(*mobjConfig, false);
            }
            struct Browser {
                Page page;
                const char* name;
                const char* initializer;
                void (clsRwzConfig::*turnOff)(bool);
            };
            const Browser browsers[] = {
                {kPageIE, "IE", "InitializeIEControls", &clsRwzConfig::SetApplyIE},
                {kPageNetscape, "Netscape", "InitializeNetscapeControls",
                 &clsRwzConfig::SetApplyNN},
                {kPageOpera, "Opera", "InitializeOperaControls", &clsRwzConfig::SetApplyOpera},
            };
            for (const Browser& b : browsers) {
                if (!mblnInstalled[b.page]) {
                    step(std::string("Disable ") + b.name + " Controls...");
                    (mobjConfig.get()->*b.turnOff)(false);
                } else {
                    step(std::string("Calling ") + b.initializer + "...");
                    mobjPages[b.page]->Refill(*mobjConfig, false);
                }
            }
            if (!mblnInstalled[kPageGeneral]) mobjConfig->SetApplyGeneral(false);
            step(mobjConfig->ApplyGeneral() ? "Configure 'General' tab's controls..."
                                            : "Disable 'General' tab's controls...");
            UpdateAreaButtons();

            step("Enable first availabe tab...");
            SelectFirstEnabledPage();

            step("Update status bar...");
            SetPanelVisible(3, false);
            SetPanelVisible(4, false);
            SetPanelText(1, "Last file applied: " + GetProgramSetting(kProductName, kOptions,
                                                                      "LastFileApplied", "None"));
            SetPanelText(2, "Roamwise " + ProgramVersionText() + "b");
            SetPanelText(2, "Debug Version");

            step("Clear status variables...");
            for (IBrowser* browser : {mobjConfig->GetIEConfig(), mobjConfig->GetNNConfig(),
                                      mobjConfig->GetOperaConfig()})
                if (browser) browser->ResetFlags();
            mblnLoading = false;
            mblnChanged = false;
            WriteLog("frmMain - InitializeForm - Done.", kLogDebug);
        },
        [&](const ErrorInfo& error) {
            ShowMessage(error.Description, MB_OK | MB_ICONEXCLAMATION, "Error");
        });
}

void frmMain::ProcessCommandLineSwitches(const std::vector<std::string>& avarArgs) {
    Procedure proc(kObject, "ProcessCommandLineSwitches");
    proc.Run([&] {
        bool handled = false;
        std::string value;
        // Looks a switch up; a switch that is there counts as handled.
        auto found = [&](const char* name, bool counts = true) {
            const std::string entry = GetSwitch(name, avarArgs);
            if (entry.empty()) return false;
            value = SwitchValue(entry, name);
            if (counts) handled = true;
            return !mblnUnloaded;  // an applied profile may have ended the program
        };
        INetConfig* net = mobjConfig ? mobjConfig->GetNetConfig() : nullptr;

        if (found("hidden")) mblnExitAfterSwitches = true;
        if (found("about")) {
            mblnExitAfterSwitches = true;
            DisplayAboutDialog();
        }
        if (found("help")) {
            mblnExitAfterSwitches = true;
            ShowHelpContents();
        }
        const std::vector<std::string> unknown = UnknownSwitches(avarArgs);
        if (!unknown.empty()) proc.Log(UnknownSwitchesText(unknown));
        // A profile that was named but not loaded is never applied, saved or exported.
        bool notLoaded = false;
        if (found("load")) {
            const std::string problem = ProfilePathProblem(Trim(value));
            notLoaded = true;
            if (problem.empty()) {
                OpenConfigurationFile(Trim(value));
                notLoaded = !mblnFileLoaded;
            } else {
                WriteLog("frmMain - ProcessCommandLineSwitches: " + problem, kLogWarning);
                ShowMessage(problem, MB_OK | MB_ICONEXCLAMATION, kProductName);
            }
        }
        // Credentials never carry the blanks around them.
        if (found("uid") && net) net->Assign(&NetRecord::NTDomainUserName, Trim(value));
        if (found("pwd") && net) net->Assign(&NetRecord::NTDomainPassword, Trim(value));
        if (notLoaded)
            proc.Log("the profile was not loaded: nothing is saved, exported or applied");
        if (found("save") && !notLoaded) SaveConfigurationFile(value);
        if (found("export") && mobjConfig && !notLoaded)
            clsSettings().ExportAllSettings(*mobjConfig, value);
        if (found("apply") && !notLoaded) ApplyConfiguration();
        const bool loadFailed = notLoaded;
        const bool pending = RestartPending();
        // Whoever started a silent apply learns from the exit code how it went.
        if (found("apply", false))
            mlngExitCode = loadFailed ? kExitNotApplied
                           : pending  ? kExitRestartPending
                                      : kExitApplied;
        if (found("print") && mobjConfig) clsSettings().PrintAllSettings(*mobjConfig);
        const bool force = found("force", false);
        const bool restart = pending || force;
        if (found("prompt") && restart) ShowRestartDialog(mhWnd);
        if (found("manual") && restart) ExecuteRestartOption(kRestartNone);
        if (found("reboot") && restart) ExecuteRestartOption(kRestartReboot);
        if (found("shutdown") && restart) ExecuteRestartOption(kRestartPowerOff);
        if (found("suspend") && restart) ExecuteRestartOption(kRestartSuspend);

        // A profile opened from the desktop shell: its path is the only argument.
        if (!handled && !avarArgs.empty()) {
            const std::string& first = avarArgs.front();
            if (first.size() >= 4 && ToLower(first.substr(first.size() - 4)) == ".rwz")
                OpenConfigurationFile(first);
        }
    });
}

void frmMain::DisplayAboutDialog() {
    Procedure proc(kObject, "DisplayAboutDialog");
    proc.Run([&] { frmAbout().Show(mhWnd); });
}

void frmMain::ShowOptions() {
    Procedure proc(kObject, "mnuOptions_Click");
    proc.Run([&] {
        if (frmOptions().Show(mhWnd) != IDOK) return;
        // What the window keeps of the options follows them at once.
        mblnAutoReset = GetProgramSetting(kProductName, kOptions, "AutoReset", "0") == "1";
        mobjMRU.GetRecentList();
        InitializeMenu();
    });
}

void frmMain::PrinterOptions() {
    Procedure proc(kObject, "PrinterOptions");
    proc.Run([&] {
        INetConfig* net = mobjConfig ? mobjConfig->GetNetConfig() : nullptr;
        if (!net || frmPrinter(*net).Show(mhWnd) != IDOK) return;
        // The page takes the new options as shown, the window the edit.
        mobjPages[kPageGeneral]->Refill(*mobjConfig, false);
        PageEdited();
    });
}

void frmMain::ShowLanguage() {
    Procedure proc(kObject, "mnuLanguage_Click");
    proc.Run([&] {
        if (frmLanguage().Show(mhWnd) != IDOK) return;
        // A new instance reads the new choice; the window takes it over at once.
        ResetLocalization();
        ApplyLanguage();
        UpdateCaption();
    });
}

void frmMain::ApplyLanguage() {
    Procedure proc(kObject, "ApplyLanguage");
    proc.Run([&] {
        const clsLocalization& objLocalization = Localization();
        objLocalization.SetControlCaption(mhWnd, "WindowTitles", kObject);
        for (int i = 0; i < kPageCount; ++i) {
            std::string caption = objLocalization.GetLocalizedValue(
                "Labels", ControlArrayKey(kObject, i), false, mobjPages[i]->Caption());
            TCITEMA item = {};
            item.mask = TCIF_TEXT;
            item.pszText = &caption[0];
            SendMessageA(mhTabs, TCM_SETITEMA, i, reinterpret_cast<LPARAM>(&item));
        }
        for (size_t i = 0; i < mcolMenuCaptions.size(); ++i) {
            const MenuCaption& item = mcolMenuCaptions[i];
            SetMenuText(
                item.menu, item.item, item.byPosition,
                objLocalization.GetLocalizedValue(
                    "Menus", ControlArrayKey(kObject, static_cast<int>(i)), false, item.text));
        }
        DrawMenuBar(mhWnd);
        FitWindowToToolbar(mhWnd, mhToolbar);
        // Built-in tips first, so that a language without them shows English.
        for (const ToolbarButton& b : kToolbarButtons)
            if (b.text) SetToolTip(mhToolbar, b.command, b.text);
        objLocalization.SetToolbarTooltips(mhToolbar, "ToolbarTips", kObject);
    });
}

void frmMain::UpdateCaption() {
    if (!mblnFileLoaded || !mobjConfig || mobjConfig->ConfFile().empty()) {
        SetCaption("[" + MessageText(kMsgCurrentConfiguration) + "] - Roamwise");
        return;
    }
    SetCaption(clsMRUList::GetFileName(mobjConfig->ConfFile()) + " - Roamwise" +
               (mobjConfig->ReadOnly() ? " - [Read Only]" : ""));
}

void frmMain::ShowHelpContents() {
    Procedure proc(kObject, "ShowHelpContents");
    proc.Run([&] { WinHelpA(mhWnd, HelpFilePath().c_str(), HELP_FINDER, 0); });
}

void frmMain::Unload() {
    mblnUnloaded = true;
    mobjPages = {};
    mhOwnMenu.Reset();  // as the window's menu goes with the window
    Destroy();
    // The window procedure is detached, so the message loop is told directly.
    PostQuitMessage(0);
}

void frmMain::SetCaption(const std::string& astrCaption) {
    if (mhWnd) SetWindowTextA(mhWnd, astrCaption.c_str());
}

void frmMain::SetPanelText(int aintPanel, const std::string& astrText) {
    mstrPanelText[aintPanel - 1] = astrText;
    if (mhStatusBar && PanelVisible(aintPanel))
        SendMessageA(mhStatusBar, SB_SETTEXTA, aintPanel - 1,
                     reinterpret_cast<LPARAM>(astrText.c_str()));
}

void frmMain::SetPanelVisible(int aintPanel, bool ablnVisible) {
    mblnPanelVisible[aintPanel - 1] = ablnVisible;
    Layout();
}

void frmMain::UpdateRestartIndicator() {
    INetConfig* net = mobjConfig ? mobjConfig->GetNetConfig() : nullptr;
    if (net && net->Record().ResetRequired) {
        SetPanelText(4, "Restart Required");
        SetPanelVisible(4, true);
    }
}

void frmMain::PageEdited() {
    if (!mblnLoading) SetChanged(true);
    UpdateRestartIndicator();
}

void frmMain::SetChanged(bool ablnChanged) {
    mblnChanged = ablnChanged;
    // Saving and applying need a profile file or a change to it.
    const bool enable = mblnChanged || mblnFileLoaded;
    HMENU file = GetSubMenu(Menu(), 0);
    EnableMenuItem(file, IDM_FILE_SAVE, MF_BYCOMMAND | (enable ? MF_ENABLED : MF_GRAYED));
    EnableMenuItem(file, IDM_FILE_APPLY, MF_BYCOMMAND | (enable ? MF_ENABLED : MF_GRAYED));
    SendMessageA(mhToolbar, TB_ENABLEBUTTON, IDM_FILE_SAVE, MAKELONG(enable, 0));
}

void frmMain::SelectPage(int aintPage) {
    SendMessageA(mhTabs, TCM_SETCURSEL, aintPage, 0);
    for (int i = 0; i < kPageCount; ++i)
        if (mobjPages[i]) ShowWindow(mobjPages[i]->Handle(), i == aintPage ? SW_SHOW : SW_HIDE);
}

void frmMain::SelectFirstEnabledPage() {
    for (int i = 0; i < kPageCount; ++i) {
        if (mblnInstalled[i]) return SelectPage(i);
    }
    SelectPage(0);
}

void frmMain::RefillPages(bool ablnAssign) {
    for (int i = 0; i < kPageCount; ++i)
        if (mblnInstalled[i]) mobjPages[i]->Refill(*mobjConfig, ablnAssign);
}

void frmMain::ToggleArea(int aintPage) {
    if (!mobjConfig || !mblnInstalled[aintPage]) return;
    const bool on = SendMessageA(mhToolbar, TB_ISBUTTONCHECKED, kAreaCommands[aintPage], 0) != 0;
    switch (aintPage) {
        case kPageGeneral:
            mobjConfig->SetApplyGeneral(on);
            break;
        case kPageIE:
            mobjConfig->SetApplyIE(on);
            break;
        case kPageNetscape:
            mobjConfig->SetApplyNN(on);
            break;
        case kPageOpera:
            mobjConfig->SetApplyOpera(on);
            break;
    }
    UpdateAreaButtons();
    SetChanged(true);
}

void frmMain::UpdateAreaButtons() {
    if (!mobjConfig) return;
    const bool apply[kPageCount] = {mobjConfig->ApplyGeneral(), mobjConfig->ApplyIE(),
                                    mobjConfig->ApplyNN(), mobjConfig->ApplyOpera()};
    for (int i = 0; i < kPageCount; ++i) {
        const bool on = mblnInstalled[i] && apply[i];
        SendMessageA(mhToolbar, TB_ENABLEBUTTON, kAreaCommands[i], MAKELONG(mblnInstalled[i], 0));
        SendMessageA(mhToolbar, TB_CHECKBUTTON, kAreaCommands[i], MAKELONG(on, 0));
        mobjPages[i]->SetAvailable(on);
    }
}

}  // namespace rwz
