// MainWindowProbe.dll: reads the main window's captions from inside Rwz.exe,
// where its menus, tabs and tool tips can be read at all. A test hooks the
// window's thread (WH_CALLWNDPROC) with this DLL and sends the window the
// message "RwzMainWindowProbe" with its own window in wParam; the probe answers
// with WM_COPYDATA: one line per caption, "kind<TAB>index<TAB>text".
#include <windows.h>
#include <commctrl.h>

#include <string>

namespace {

const ULONG_PTR kProbeAnswer = 0x52575A32;  // "RWZ2"

void Line(std::string& out, const char* kind, int index, const std::string& text) {
    out += std::string(kind) + '\t' + std::to_string(index) + '\t' + text + '\n';
}

void Menus(HMENU menu, std::string& out, int& index) {
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        char text[256] = "";
        MENUITEMINFOA info = {};
        info.cbSize = sizeof info;
        info.fMask = MIIM_TYPE | MIIM_SUBMENU | MIIM_STATE;
        info.dwTypeData = text;
        info.cch = sizeof text;
        if (!GetMenuItemInfoA(menu, i, TRUE, &info) || (info.fType & MFT_SEPARATOR)) continue;
        Line(out, (info.fState & MFS_GRAYED) ? "menu-grayed" : "menu", index++, text);
        if (info.hSubMenu) Menus(info.hSubMenu, out, index);
    }
}

std::string Probe(HWND window) {
    std::string out;
    char text[512] = "";
    GetWindowTextA(window, text, sizeof text);
    Line(out, "title", 0, text);
    int index = 0;
    Menus(GetMenu(window), out, index);
    if (HWND tabs = FindWindowExA(window, nullptr, "SysTabControl32", nullptr)) {
        const int count = static_cast<int>(SendMessageA(tabs, TCM_GETITEMCOUNT, 0, 0));
        for (int i = 0; i < count; ++i) {
            TCITEMA item = {};
            item.mask = TCIF_TEXT;
            item.pszText = text;
            item.cchTextMax = sizeof text;
            text[0] = '\0';
            SendMessageA(tabs, TCM_GETITEMA, i, reinterpret_cast<LPARAM>(&item));
            Line(out, "tab", i, text);
        }
    }
    if (HWND toolbar = FindWindowExA(window, nullptr, "ToolbarWindow32", nullptr)) {
        HWND tips = reinterpret_cast<HWND>(SendMessageA(toolbar, TB_GETTOOLTIPS, 0, 0));
        const int count = static_cast<int>(SendMessageA(toolbar, TB_BUTTONCOUNT, 0, 0));
        for (int i = 0; i < count && tips; ++i) {
            TBBUTTON button = {};
            SendMessageA(toolbar, TB_GETBUTTON, i, reinterpret_cast<LPARAM>(&button));
            if (button.fsStyle & BTNS_SEP) continue;
            TOOLINFOA tool = {};
            tool.cbSize = TTTOOLINFOA_V1_SIZE;
            tool.hwnd = toolbar;
            tool.uId = static_cast<UINT_PTR>(button.idCommand);
            tool.lpszText = text;
            text[0] = '\0';
            SendMessageA(tips, TTM_GETTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
            Line(out, "tip", i + 1, text);
        }
    }
    // The items of every combo box on the tab pages, as "combo<TAB>id<TAB>item".
    struct Combos {
        std::string* out;
    } combos{&out};
    EnumChildWindows(
        window,
        [](HWND child, LPARAM data) -> BOOL {
            char name[32] = "";
            GetClassNameA(child, name, sizeof name);
            if (lstrcmpiA(name, "ComboBox") != 0) return TRUE;
            const int id = GetDlgCtrlID(child);
            const int count = static_cast<int>(SendMessageA(child, CB_GETCOUNT, 0, 0));
            for (int i = 0; i < count; ++i) {
                char item[512] = "";
                if (SendMessageA(child, CB_GETLBTEXTLEN, i, 0) < static_cast<LRESULT>(sizeof item))
                    SendMessageA(child, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(item));
                Line(*reinterpret_cast<Combos*>(data)->out, "combo", id, item);
            }
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&combos));
    return out;
}

}  // namespace

extern "C" __declspec(dllexport) LRESULT CALLBACK
    MainWindowProbeProc(int code, WPARAM wParam, LPARAM lParam) {
    static const UINT probe = RegisterWindowMessageA("RwzMainWindowProbe");
    if (code == HC_ACTION) {
        const auto* message = reinterpret_cast<const CWPSTRUCT*>(lParam);
        if (message->message == probe) {
            const std::string answer = Probe(message->hwnd);
            COPYDATASTRUCT copy = {kProbeAnswer, static_cast<DWORD>(answer.size()),
                                   const_cast<char*>(answer.data())};
            DWORD_PTR ignored;
            SendMessageTimeoutA(reinterpret_cast<HWND>(message->wParam), WM_COPYDATA, 0,
                                reinterpret_cast<LPARAM>(&copy), SMTO_BLOCK, 5000, &ignored);
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}
