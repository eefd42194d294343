// A stand-in browser on the simulated machines. What Roamwise sees of a browser
// is its program file's version resource (the installed-browser check; each
// build of this program has its own .rc with the version) and a top-level
// window of the browser's class (the running-browser check), which ends the
// program when it is asked to close. Built once per browser, with
// FAKE_BROWSER_CLASS and FAKE_BROWSER_TITLE:
//   Netscape: "MozillaWindowClass", "Netscape"; Opera: "OpWindow", "Opera".
//
//   program.exe            opens the window and waits
//   program.exe /hidden    the same window, never shown (bench::StartStandIn)
#include <windows.h>

#include <cstring>

namespace {

LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CLOSE:
            DestroyWindow(window);
            return 0;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR commandLine, int show) {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    windowClass.lpszClassName = FAKE_BROWSER_CLASS;
    if (!RegisterClassA(&windowClass)) return 1;
    HWND window = CreateWindowA(FAKE_BROWSER_CLASS, FAKE_BROWSER_TITLE, WS_OVERLAPPEDWINDOW,
                                CW_USEDEFAULT, CW_USEDEFAULT, 640, 480, nullptr, nullptr, instance,
                                nullptr);
    if (!window) return 2;
    if (!std::strstr(commandLine ? commandLine : "", "/hidden")) {
        ShowWindow(window, show);
        UpdateWindow(window);
    }
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
