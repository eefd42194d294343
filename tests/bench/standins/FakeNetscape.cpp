// A stand-in for Netscape Navigator on a simulated machine: what Roamwise sees
// of the browser is its program file's version resource (the version check)
// and a top-level window of class "MozillaWindowClass" (the running-browser
// check), which ends the program when it is asked to close.
//
//   netscape.exe           a "MozillaWindowClass" window titled "Netscape"
//   netscape.exe /hidden   the same window, never shown (bench::StartStandIn)
#include <windows.h>

#include <string>

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
    windowClass.lpszClassName = "MozillaWindowClass";
    if (!RegisterClassA(&windowClass)) return 1;

    HWND window =
        CreateWindowA("MozillaWindowClass", "Netscape", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                      CW_USEDEFAULT, 640, 480, nullptr, nullptr, instance, nullptr);
    if (!window) return 2;
    if (std::string(commandLine ? commandLine : "").find("/hidden") == std::string::npos)
        ShowWindow(window, show);

    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
