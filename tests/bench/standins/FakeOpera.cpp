// A stand-in for Opera 7 on the simulated machines: its version resource says
// 7.54 (what the installed-browser check reads), and while it runs it keeps one
// top-level window of Opera's class "OpWindow" (what the running-browser check
// looks for). It ends when that window is asked to close.
//
//   Opera.exe            opens the window and waits
//   Opera.exe /hidden    the same window, never shown
#include <windows.h>

#include <cstring>

namespace {

const char kWindowClass[] = "OpWindow";

LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CLOSE:
            DestroyWindow(window);
            return 0;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcA(window, message, wParam, lParam);
    }
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR commandLine, int showCommand) {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    windowClass.lpszClassName = kWindowClass;
    if (!RegisterClassA(&windowClass)) return 1;

    HWND window = CreateWindowA(kWindowClass, "Opera", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                CW_USEDEFAULT, 640, 480, nullptr, nullptr, instance, nullptr);
    if (!window) return 1;
    if (!std::strstr(commandLine ? commandLine : "", "/hidden")) {
        ShowWindow(window, showCommand);
        UpdateWindow(window);
    }

    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
