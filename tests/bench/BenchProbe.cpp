// A stand-in for Rwz.exe with which the bench tests itself: it does what its
// arguments say, one after the other, and reports what happened to a file.
//
//   report=FILE             lines below go to FILE (appended)
//   box=FLAGS:TITLE:TEXT    MessageBoxA with those MB_ flags (decimal); writes "box RESULT"
//   dialog=TITLE            a dialog with an edit field (id 100, "preset"), a check
//                           box (102, ticked), option buttons (103 chosen, 104), OK
//                           and Cancel; writes "dialog RESULT EDIT-TEXT CHECK OPTION"
//   window=MS:TITLE         shows a top-level window for MS milliseconds
//   sleep=MS                waits
//   exit=CODE               ends with that exit code
// In texts, "\n" stands for a line break.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

std::string gReport;

void Report(const std::string& line) {
    if (gReport.empty()) return;
    FILE* out = fopen(gReport.c_str(), "ab");
    if (!out) return;
    fprintf(out, "%s\r\n", line.c_str());
    fclose(out);
}

std::string Unescape(const std::string& text) {
    std::string out;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size() && text[i + 1] == 'n') {
            out += '\n';
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

void Pump(DWORD milliseconds) {
    DWORD start = GetTickCount();
    for (;;) {
        DWORD elapsed = GetTickCount() - start;
        if (elapsed >= milliseconds) break;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds - elapsed, QS_ALLINPUT);
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
}

void ShowWindowFor(DWORD milliseconds, const std::string& title) {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "BenchProbeWindow";
    RegisterClassA(&windowClass);
    HWND window =
        CreateWindowExA(0, "BenchProbeWindow", title.c_str(), WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                        CW_USEDEFAULT, 300, 200, nullptr, nullptr, windowClass.hInstance, nullptr);
    ShowWindow(window, SW_SHOWNORMAL);
    Pump(milliseconds);
    DestroyWindow(window);
}

INT_PTR CALLBACK EditDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) {
        SetDlgItemTextA(dialog, 100, "preset");
        CheckDlgButton(dialog, 102, BST_CHECKED);
        CheckRadioButton(dialog, 103, 104, 103);
        return TRUE;
    }
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
        char text[256] = "";
        GetDlgItemTextA(dialog, 100, text, sizeof text);
        Report(std::string("dialog ") + std::to_string(LOWORD(wParam)) + " " + text + " " +
               (IsDlgButtonChecked(dialog, 102) == BST_CHECKED ? "checked" : "unchecked") + " " +
               (IsDlgButtonChecked(dialog, 104) == BST_CHECKED ? "104" : "103"));
        EndDialog(dialog, LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

// An in-memory dialog template: a prompt, an edit field, a check box, two
// option buttons, OK (default) and Cancel.
void ShowEditDialog(const std::string& title) {
    std::vector<WORD> t;
    auto add = [&t](WORD w) { t.push_back(w); };
    auto addText = [&t](const std::string& s) {
        for (char c : s) t.push_back(static_cast<unsigned char>(c));
        t.push_back(0);
    };
    auto align = [&t] {
        if (t.size() % 2) t.push_back(0);
    };
    auto addItem = [&](DWORD style, short x, short y, short cx, short cy, WORD id, WORD kind,
                       const std::string& text) {
        align();
        style |= WS_CHILD | WS_VISIBLE;
        add(LOWORD(style));
        add(HIWORD(style));
        add(0);
        add(0);  // extended style
        add(x);
        add(y);
        add(cx);
        add(cy);
        add(id);
        add(0xFFFF);
        add(kind);
        addText(text);
        add(0);  // no creation data
    };
    DWORD style = DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_SETFONT;
    add(LOWORD(style));
    add(HIWORD(style));
    add(0);
    add(0);
    add(7);  // items
    add(0);
    add(0);
    add(200);
    add(110);
    add(0);  // no menu
    add(0);  // standard class
    addText(title);
    add(8);
    addText("MS Shell Dlg");
    addItem(SS_LEFT, 7, 7, 186, 10, 101, 0x0082, "Enter a text:");
    addItem(WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, 7, 20, 186, 14, 100, 0x0081, "");
    addItem(BS_AUTOCHECKBOX | WS_TABSTOP, 7, 40, 186, 10, 102, 0x0080, "Remember");
    addItem(BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, 7, 54, 90, 10, 103, 0x0080, "First");
    addItem(BS_AUTORADIOBUTTON, 100, 54, 90, 10, 104, 0x0080, "Second");
    addItem(BS_DEFPUSHBUTTON | WS_TABSTOP | WS_GROUP, 90, 88, 50, 14, IDOK, 0x0080, "OK");
    addItem(BS_PUSHBUTTON | WS_TABSTOP, 143, 88, 50, 14, IDCANCEL, 0x0080, "Cancel");
    DialogBoxIndirectParamA(GetModuleHandleA(nullptr), reinterpret_cast<LPCDLGTEMPLATEA>(t.data()),
                            nullptr, EditDialogProc, 0);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    for (int i = 1; i < __argc; ++i) {
        std::string arg = __argv[i];
        size_t equals = arg.find('=');
        std::string name = arg.substr(0, equals);
        std::string value = equals == std::string::npos ? "" : arg.substr(equals + 1);
        if (name == "report") {
            gReport = value;
        } else if (name == "box") {
            size_t first = value.find(':');
            size_t second = value.find(':', first + 1);
            UINT flags = static_cast<UINT>(atoi(value.substr(0, first).c_str()));
            std::string title = value.substr(first + 1, second - first - 1);
            std::string text = Unescape(value.substr(second + 1));
            int result = MessageBoxA(nullptr, text.c_str(), title.c_str(), flags);
            Report("box " + std::to_string(result));
        } else if (name == "dialog") {
            ShowEditDialog(value);
        } else if (name == "window") {
            size_t colon = value.find(':');
            ShowWindowFor(static_cast<DWORD>(atoi(value.substr(0, colon).c_str())),
                          value.substr(colon + 1));
        } else if (name == "sleep") {
            Sleep(static_cast<DWORD>(atoi(value.c_str())));
        } else if (name == "exit") {
            return atoi(value.c_str());
        }
    }
    return 0;
}
