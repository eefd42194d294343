// The main window: the program's start-up object. Its load handler runs the
// whole start-up, executes the command line and either ends the program
// without ever showing the window or shows it and waits for the user.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace rwz {

class frmMain {
public:
    explicit frmMain(HINSTANCE instance);
    frmMain(const frmMain&) = delete;
    frmMain& operator=(const frmMain&) = delete;

    // Creates the window, runs Form_Load and, unless the program ended there,
    // shows the window and runs the message loop. Returns the exit code.
    int Run(int showCommand);

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);

    bool CreateMainWindow();
    void Form_Load();
    void ProcessCommandLineSwitches(const std::vector<std::string>& avarArgs);
    // Ends the program: the window goes away without ever having been shown.
    void Unload();

    HINSTANCE mhInstance;
    HWND mhWnd = nullptr;
    std::string mstrOS;
    bool mblnActivated = false;
    bool mblnExitAfterSwitches = false;
    bool mblnUnloaded = false;
};

}  // namespace rwz
