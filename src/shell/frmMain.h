// The main window: the program's start-up object. Its load handler runs the
// whole start-up and executes the command line; the program then either ends
// without ever showing the window or shows it and waits for the user. The
// window owns the one profile object and edits it through the tab pages.
#pragma once

#include <windows.h>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Win32Handles.h"
#include "profile/IAddIn.h"
#include "shell/clsDialog.h"
#include "shell/clsMRUList.h"
#include "shell/clsTabPage.h"

namespace rwz {

class clsRwzConfig;

class frmMain : public clsDialog, public ITabHost {
  public:
    explicit frmMain(HINSTANCE instance);
    ~frmMain() override;

    // Creates the window, runs Form_Load and, unless the program ended there,
    // shows the window and runs the message loop. Returns the exit code.
    int Run(int showCommand);

    void PageEdited() override;

  private:
    // The four pages, in tab order.
    enum Page { kPageGeneral, kPageIE, kPageNetscape, kPageOpera, kPageCount };
    // Status bar panels, numbered from 1 as users see them.
    static constexpr int kPanelCount = 4;

    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool OnCommand(int aintId, int aintCode, HWND control) override;
    bool OnNotify(const NMHDR& header, LRESULT& result) override;
    void RunCommand(int aintId);

    // Start-up (frmMain.cpp).
    bool CreateMainWindow();
    // A run that never shows the window (the switch "hidden") makes none: the
    // tabs keep what they would show, the menu is loaded on its own.
    void CreateWithoutWindow();
    void CreateBars();
    void CreatePages();
    // The window's menu, or the one loaded without a window.
    HMENU Menu() const { return mhWnd ? GetMenu(mhWnd) : mhOwnMenu.Get(); }
    // Only one copy runs at a time. The exit code when this copy is to end
    // because another one runs: 0 when it brought that one forward, 1 when it
    // was asked to apply and the other did not finish in time.
    std::optional<int> EndForOtherCopy();
    void Form_Load();
    void InitializeForm();
    void ProcessCommandLineSwitches(const std::vector<std::string>& avarArgs);
    void DisplayAboutDialog();
    void ShowOptions();
    // The printer options dialog, from the General page.
    void PrinterOptions();
    void ShowLanguage();
    // The captions of the window, its tabs, menus and tool tips in the current
    // language; built-in English where the language file has no text.
    void ApplyLanguage();
    // The caption of the machine's current configuration, or of the profile file.
    void UpdateCaption();
    void ShowHelpContents();
    void Unload();
    void Layout();

    // Window state.
    void SetCaption(const std::string& astrCaption);
    void SetPanelText(int aintPanel, const std::string& astrText);
    void SetPanelVisible(int aintPanel, bool ablnVisible);
    bool PanelVisible(int aintPanel) const { return mblnPanelVisible[aintPanel - 1]; }
    // The restart indicator: panel 4.
    void UpdateRestartIndicator();
    bool RestartPending() const { return PanelVisible(4); }
    void SetChanged(bool ablnChanged);
    void SelectPage(int aintPage);
    void SelectFirstEnabledPage();
    void RefillPages(bool ablnAssign);
    void ToggleArea(int aintPage);
    void UpdateAreaButtons();

    // Commands (frmMainCommands.cpp).
    void OpenFile();
    void OpenConfigurationFile(const std::string& astrPath);
    void OpenMRUFile(int aintIndex);
    void SaveFile();
    void SaveFileAs();
    void SaveConfigurationFile(const std::string& astrPath);
    void ApplyCurrentConfiguration();
    // True when an add-in needs a restart.
    bool ApplyConfiguration();
    void RestartDecision(bool ablnAddInRestart);
    // The settings report of the profile: to a text file chosen by the user,
    // or to a printer chosen in the Print dialog.
    void ExportSettings();
    void PrintSettings();
    void PrintSetup();
    void InitializeMenu();
    // False when the user chose to keep the window open.
    bool Form_QueryUnload();
    void ExitApplication();
    std::string ProfileFolder() const;

    // Add-ins and the update check (frmMainAddIns.cpp, frmMainUpdates.cpp).
    static constexpr size_t kMaxAddIns = 100;
    void InitializeAddIns();
    void mnuAddIns_Click(int aintIndex);
    void mnuAddInTools_Click();
    void DisplayAddInManager();
    void CheckForUpdates();

    HINSTANCE mhInstance;
    HWND mhToolbar = nullptr;
    HWND mhStatusBar = nullptr;
    HWND mhTabs = nullptr;
    HACCEL mhAccelerators = nullptr;
    std::array<std::unique_ptr<clsTabPage>, kPageCount> mobjPages;
    // A page whose back end is absent (browser not installed) cannot be selected.
    std::array<bool, kPageCount> mblnInstalled{};
    int mintMRUItems = 0;  // recent-file items (and their separator) in the File menu
    KernelHandle mhCopyMutex;
    MenuHandle mhOwnMenu;  // the menu of a run without a window
    bool mblnWindowless = false;
    std::array<bool, kPanelCount> mblnPanelVisible{{true, true, true, true}};
    std::array<std::string, kPanelCount> mstrPanelText;
    // The built-in captions of the menu items, in menu order (separators left
    // out). Commands are found by id, as the recent files move them; popups by
    // position.
    struct MenuCaption {
        HMENU menu;
        UINT item;
        bool byPosition;
        std::string text;
    };
    std::vector<MenuCaption> mcolMenuCaptions;

    std::string mstrOS;
    bool mblnWaitedForOtherCopy = false;  // its log goes on after the other copy's
    bool mblnAutoReset = false;
    bool mblnShowNICWarning = false;
    bool mblnExitAfterSwitches = false;
    bool mblnLoading = false;
    bool mblnChanged = false;
    bool mblnFileLoaded = false;
    bool mblnAutoReboot = false;
    bool mblnUnloaded = false;
    unsigned long mlngExitCode = 0;  // see shell/RwzExitCode.h
    clsMRUList mobjMRU;
    std::unique_ptr<clsRwzConfig> mobjConfig;
    AddInCollection mcolAddIns;
    std::vector<std::string> mstrAddInNames;  // the collection's keys, in its order
};

}  // namespace rwz
