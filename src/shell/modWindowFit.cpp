#include "shell/modWindowFit.h"

#include <commctrl.h>

namespace rwz {

void FitWindowToToolbar(HWND ahWindow, HWND ahToolbar) {
    if (!ahWindow || !ahToolbar) return;
    const int count = static_cast<int>(SendMessageA(ahToolbar, TB_BUTTONCOUNT, 0, 0));
    if (count <= 0) return;
    RECT last = {};
    if (!SendMessageA(ahToolbar, TB_GETITEMRECT, count - 1, reinterpret_cast<LPARAM>(&last)))
        return;
    // The toolbar starts at the client area's left edge; a little room after
    // the last button keeps it from touching the frame.
    const int needed = last.right + 2 * GetSystemMetrics(SM_CXEDGE);
    RECT client;
    GetClientRect(ahWindow, &client);
    if (client.right >= needed) return;
    RECT frame;
    GetWindowRect(ahWindow, &frame);
    RECT work = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
    int width = frame.right - frame.left + needed - client.right;
    if (width > work.right - work.left) width = work.right - work.left;
    int left = frame.left;
    if (left + width > work.right) left = work.right - width;
    SetWindowPos(ahWindow, nullptr, left, frame.top, width, frame.bottom - frame.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace rwz
