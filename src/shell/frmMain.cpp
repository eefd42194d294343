#include "shell/frmMain.h"

#include "platform/Procedure.h"
#include "platform/WaitCursor.h"
#include "platform/modAPI.h"
#include "platform/modLogging.h"
#include "platform/modUtilities.h"
#include "shell/modCommandLine.h"

namespace rwz {

namespace {

const char kWindowClass[] = "RoamwiseMain";
const char kUnsupportedTitle[] = "Non-Supported Operating System";
const char kUnsupportedText[] =
    "The current operating system is not supported by this version of Roamwise.  "
    "Please check the Roamwise web site to see if there is an updated version available.";

}  // namespace

frmMain::frmMain(HINSTANCE instance) : mhInstance(instance) {}

int frmMain::Run(int showCommand) {
    if (!CreateMainWindow()) return 1;
    Form_Load();
    if (mblnUnloaded) return 0;
    ShowWindow(mhWnd, showCommand);
    UpdateWindow(mhWnd);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}

bool frmMain::CreateMainWindow() {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = mhInstance;
    windowClass.hCursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(32512));
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassA(&windowClass);
    mhWnd = CreateWindowExA(0, kWindowClass, "Roamwise", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                            CW_USEDEFAULT, 640, 480, nullptr, nullptr, mhInstance, this);
    return mhWnd != nullptr;
}

LRESULT CALLBACK frmMain::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* create = reinterpret_cast<CREATESTRUCTA*>(lParam);
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
        reinterpret_cast<frmMain*>(create->lpCreateParams)->mhWnd = window;
    }
    auto* form = reinterpret_cast<frmMain*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (!form) return DefWindowProcA(window, message, wParam, lParam);
    return form->HandleMessage(message, wParam, lParam);
}

LRESULT frmMain::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_DESTROY:
            if (!mblnUnloaded) PostQuitMessage(0);
            return 0;
    }
    return DefWindowProcA(mhWnd, message, wParam, lParam);
}

void frmMain::Form_Load() {
    // The header comes before the entry line. In a read-only folder there is
    // no log, and the program runs on without one.
    try {
        WriteLogHeader();
    } catch (const std::exception&) {
    }
    Procedure proc("frmMain", "Form_Load");
    proc.Run([&] {
        WaitCursor hourglass;
        mblnActivated = false;

        mstrOS = Trim(GetCurrentOSTag());
        if (mstrOS.empty()) {
            MessageBoxA(nullptr, kUnsupportedText, kUnsupportedTitle, MB_OK | MB_ICONSTOP);
            Unload();
            return;
        }

        const std::string text = CommandLineText();
        if (!text.empty()) {
            ProcessCommandLineSwitches(GetCommandLineArgs(text));
            if (mblnExitAfterSwitches) Unload();
        }
    });
}

void frmMain::ProcessCommandLineSwitches(const std::vector<std::string>& avarArgs) {
    Procedure proc("frmMain", "ProcessCommandLineSwitches");
    proc.Run([&] {
        if (!GetSwitch("hidden", avarArgs).empty()) mblnExitAfterSwitches = true;
    });
}

void frmMain::Unload() {
    mblnUnloaded = true;
    DestroyWindow(mhWnd);
    mhWnd = nullptr;
}

}  // namespace rwz
