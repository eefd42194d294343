// Helps scripts/screenshots.sh show a window of Roamwise as a user would see
// it: waits for a top-level window whose title contains a text, optionally
// selects a tab of the main window (as the arrow keys do), brings it to the
// front and prints its rectangle on the screen as "WIDTHxHEIGHT+X+Y".
//   ShotHelper.exe TITLE-PART [TAB-INDEX]
// With --tray-menu it opens the tray program's menu, as a right click on its
// icon does, and prints the menu's rectangle.
#include <windows.h>
#include <commctrl.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

struct Search {
    std::string part;
    HWND found = nullptr;
};

BOOL CALLBACK Visit(HWND window, LPARAM data) {
    auto* search = reinterpret_cast<Search*>(data);
    char title[256] = "";
    GetWindowTextA(window, title, sizeof title);
    if (IsWindowVisible(window) && std::string(title).find(search->part) != std::string::npos) {
        search->found = window;
        return FALSE;
    }
    return TRUE;
}

}  // namespace

// The rectangle of the first visible window of the class, waited for.
int PrintWindowOfClass(const char* windowClass) {
    HWND window = nullptr;
    for (int i = 0; i < 100 && !(window && IsWindowVisible(window)); ++i, Sleep(100))
        window = FindWindowA(windowClass, nullptr);
    if (!window) return 1;
    Sleep(500);
    RECT rect;
    GetWindowRect(window, &rect);
    std::printf("%ldx%ld+%ld+%ld\n", rect.right - rect.left, rect.bottom - rect.top, rect.left,
                rect.top);
    return 0;
}

int OpenTrayMenu() {
    HWND tray = nullptr;
    for (int i = 0; i < 100 && !tray; ++i, Sleep(100))
        tray = FindWindowA("RwzSysTrayWindow", nullptr);
    if (!tray) return 1;
    SetCursorPos(520, 360);
    // The icon's message (WM_APP + 1) with the mouse event it reports.
    PostMessageA(tray, WM_APP + 1, 1, WM_RBUTTONUP);
    return PrintWindowOfClass("#32768");
}

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    if (std::string(argv[1]) == "--tray-menu") return OpenTrayMenu();
    Search search{argv[1]};
    for (int i = 0; i < 300 && !search.found; ++i) {
        EnumWindows(Visit, reinterpret_cast<LPARAM>(&search));
        if (!search.found) Sleep(100);
    }
    if (!search.found) {
        std::fprintf(stderr, "no window \"%s\"\n", argv[1]);
        return 1;
    }
    HWND window = search.found;
    if (argc > 2) {
        HWND tabs = FindWindowExA(window, nullptr, WC_TABCONTROLA, nullptr);
        if (!tabs) return 1;
        // As the keyboard does it: the tab before (or after) is selected
        // quietly, then an arrow key moves to the wanted one, and the tab
        // control tells its window (notifications do not cross processes).
        const int index = std::atoi(argv[2]);
        SendMessageA(tabs, TCM_SETCURSEL, index > 0 ? index - 1 : 1, 0);
        PostMessageA(tabs, WM_KEYDOWN, index > 0 ? VK_RIGHT : VK_LEFT, 0);
        PostMessageA(tabs, WM_KEYUP, index > 0 ? VK_RIGHT : VK_LEFT, 0xC0000000);
        Sleep(300);
    }
    SetForegroundWindow(window);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    Sleep(700);
    RECT rect;
    GetWindowRect(window, &rect);
    std::printf("%ldx%ld+%ld+%ld\n", rect.right - rect.left, rect.bottom - rect.top, rect.left,
                rect.top);
    return 0;
}
