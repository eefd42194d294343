// ShowHook.dll: a global window hook the dialog watcher installs, so that a
// top-level window that is shown only for a moment, too briefly for the
// watcher's polling, is still seen. Loaded by Wine into every process of the
// prefix that receives messages; in each, it tells the watcher (WM_COPYDATA to
// its message-only window) about each top-level window being shown.
#include <windows.h>

#include <string>

namespace {

const char kWatcherClass[] = "RwzDialogWatcher";
const ULONG_PTR kShownWindow = 0x52575A31;  // "RWZ1"

void Tell(HWND window) {
    HWND watcher = FindWindowExA(HWND_MESSAGE, nullptr, kWatcherClass, nullptr);
    if (!watcher) return;
    DWORD watcherPid = 0;
    GetWindowThreadProcessId(watcher, &watcherPid);
    if (watcherPid == GetCurrentProcessId()) return;
    char windowClass[256] = "";
    char title[1024] = "";
    GetClassNameA(window, windowClass, sizeof windowClass);
    GetWindowTextA(window, title, sizeof title);
    // pid, handle, class, title; the watcher escapes them.
    std::string data = std::to_string(GetCurrentProcessId()) + '\t' +
                       std::to_string(reinterpret_cast<ULONG_PTR>(window)) + '\t' + windowClass +
                       '\t' + title;
    COPYDATASTRUCT copy = {kShownWindow, static_cast<DWORD>(data.size()),
                           const_cast<char*>(data.data())};
    DWORD_PTR ignored;
    SendMessageTimeoutA(watcher, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&copy),
                        SMTO_ABORTIFHUNG | SMTO_BLOCK, 1000, &ignored);
}

bool IsTopLevel(HWND window) {
    return !(GetWindowLongA(window, GWL_STYLE) & WS_CHILD);
}

}  // namespace

extern "C" __declspec(dllexport) LRESULT CALLBACK
    ShowHookProc(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HC_ACTION) {
        const auto* message = reinterpret_cast<const CWPRETSTRUCT*>(lParam);
        bool shown =
            (message->message == WM_SHOWWINDOW && message->wParam) ||
            (message->message == WM_WINDOWPOSCHANGED &&
             (reinterpret_cast<const WINDOWPOS*>(message->lParam)->flags & SWP_SHOWWINDOW));
        if (shown && IsTopLevel(message->hwnd)) Tell(message->hwnd);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}
