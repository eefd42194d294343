// The tray program: an icon in the taskbar's notification area whose menu
// lists the profiles and applies the chosen one by running
// Rwz.exe /hidden /load "<profile>" /apply, then tells what happened.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "platform/Win32Handles.h"
#include "tray/modTrayProfiles.h"

namespace rwz::tray {

class clsSysTray {
  public:
    explicit clsSysTray(HINSTANCE ahInstance);
    ~clsSysTray();
    clsSysTray(const clsSysTray&) = delete;
    clsSysTray& operator=(const clsSysTray&) = delete;

    // Runs until "Exit" (or the session ends); returns the exit code.
    int Run();

    // Applies one profile through Rwz.exe and reports the outcome.
    void ApplyProfile(const std::string& astrProfile);

  private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

    bool CreateTrayWindow();
    bool AddIcon();
    void RemoveIcon();
    void RefreshProfiles();
    void ShowMenu();
    void OnCommand(int aintCommand);
    void ChooseFolder();
    void OpenRoamwise();
    // Balloon where the shell shows them (5.0 and later), else a small window.
    void Notify(const std::string& astrText, bool ablnWarning);
    void Fail(const std::string& astrText);
    // Runs Rwz.exe with the arguments and waits, handling messages meanwhile;
    // false when it could not be started.
    bool RunRwz(const std::string& astrArguments, bool ablnWait, DWORD& alngExitCode);
    std::string Caption(const std::string& astrTag, const std::string& astrDefault,
                        const std::vector<std::string>& avarParms = {}) const;

    HINSTANCE mhInstance;
    HWND mhWnd = nullptr;
    HICON mhIcon = nullptr;
    UINT mlngTaskbarCreated = 0;
    bool mblnIconShown = false;
    bool mblnBalloons = false;  // the shell is 5.0 or later
    bool mblnBusy = false;      // an apply runs: the menu waits
    KernelHandle mhCopyMutex;
    TrayProfiles mProfiles;
    std::vector<std::string> mcolMenuProfiles;
};

// Rwz.exe beside the tray program.
std::string RwzPath();

}  // namespace rwz::tray
