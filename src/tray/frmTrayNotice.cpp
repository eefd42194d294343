#include "tray/frmTrayNotice.h"

namespace rwz::tray {

namespace {

const char kNoticeClass[] = "RwzSysTrayNotice";
const UINT_PTR kCloseTimer = 1;
const UINT kShowMilliseconds = 15000;
const int kWidth = 320;
const int kHeight = 110;

HWND gNotice = nullptr;

LRESULT CALLBACK NoticeProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_TIMER:
        case WM_LBUTTONUP:
            DestroyWindow(window);
            return 0;
        case WM_COMMAND:  // the text is a static control: a click on it ends here
            DestroyWindow(window);
            return 0;
        case WM_DESTROY:
            if (gNotice == window) gNotice = nullptr;
            return 0;
        default:
            return DefWindowProcA(window, message, wParam, lParam);
    }
}

}  // namespace

void ShowTrayNotice(HINSTANCE ahInstance, const std::string& astrTitle,
                    const std::string& astrText) {
    static bool registered = false;
    if (!registered) {
        WNDCLASSA windowClass = {};
        windowClass.lpfnWndProc = NoticeProc;
        windowClass.hInstance = ahInstance;
        windowClass.hCursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(32512));
        windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_INFOBK + 1);
        windowClass.lpszClassName = kNoticeClass;
        registered = RegisterClassA(&windowClass) != 0;
    }
    if (gNotice) DestroyWindow(gNotice);

    // Above the taskbar's notification area: the work area's lower right corner.
    RECT work = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
    gNotice = CreateWindowExA(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, kNoticeClass, astrTitle.c_str(),
                              WS_POPUP | WS_CAPTION | WS_SYSMENU, work.right - kWidth - 8,
                              work.bottom - kHeight - 8, kWidth, kHeight, nullptr, nullptr,
                              ahInstance, nullptr);
    if (!gNotice) return;
    RECT client;
    GetClientRect(gNotice, &client);
    HWND text = CreateWindowExA(0, "STATIC", astrText.c_str(), WS_CHILD | WS_VISIBLE | SS_NOTIFY, 8,
                                6, client.right - 16, client.bottom - 12, gNotice, nullptr,
                                ahInstance, nullptr);
    SendMessageA(text, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)),
                 TRUE);
    SetTimer(gNotice, kCloseTimer, kShowMilliseconds, nullptr);
    ShowWindow(gNotice, SW_SHOWNOACTIVATE);
    UpdateWindow(gNotice);
}

}  // namespace rwz::tray
