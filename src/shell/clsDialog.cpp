#include "shell/clsDialog.h"

#include <exception>

#include "platform/modLogging.h"

namespace rwz {

std::string WindowText(HWND window) {
    const int length = GetWindowTextLengthA(window);
    std::string text(static_cast<size_t>(length) + 1, '\0');
    text.resize(static_cast<size_t>(GetWindowTextA(window, &text[0], length + 1)));
    return text;
}

clsDialog::~clsDialog() {
    if (!mblnModal) Destroy();
}

INT_PTR clsDialog::DoModal(const char* aszTemplate, HWND owner, HINSTANCE instance) {
    mblnModal = true;
    return DialogBoxParamA(instance ? instance : GetModuleHandleA(nullptr), aszTemplate, owner,
                           DialogProc, reinterpret_cast<LPARAM>(this));
}

bool clsDialog::Create(const char* aszTemplate, HWND parent, HINSTANCE instance) {
    mblnModal = false;
    CreateDialogParamA(instance ? instance : GetModuleHandleA(nullptr), aszTemplate, parent,
                       DialogProc, reinterpret_cast<LPARAM>(this));
    return mhWnd != nullptr;
}

void clsDialog::End(INT_PTR result) {
    if (mhWnd) EndDialog(mhWnd, result);
}

void clsDialog::Destroy() {
    if (!mhWnd) return;
    HWND window = mhWnd;
    mhWnd = nullptr;
    // Detached first: the messages of the destruction reach no handler.
    SetWindowLongPtrA(window, DWLP_USER, 0);
    DestroyWindow(window);
}

bool clsDialog::OnCommand(int aintId, int, HWND) {
    if (aintId == IDOK) {
        OnOK();
        return true;
    }
    if (aintId == IDCANCEL) {
        OnCancel();
        return true;
    }
    return false;
}

bool clsDialog::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            return OnCommand(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
        case WM_NOTIFY: {
            LRESULT result = 0;
            if (!OnNotify(*reinterpret_cast<const NMHDR*>(lParam), result)) return false;
            SetWindowLongPtrA(mhWnd, DWLP_MSGRESULT, result);
            return true;
        }
    }
    return false;
}

std::string clsDialog::ItemText(int aintId) const {
    return WindowText(Item(aintId));
}

void clsDialog::SetItemText(int aintId, const std::string& astrText) const {
    SetDlgItemTextA(mhWnd, aintId, astrText.c_str());
}

bool clsDialog::IsChecked(int aintId) const {
    return IsDlgButtonChecked(mhWnd, aintId) == BST_CHECKED;
}

void clsDialog::SetChecked(int aintId, bool ablnChecked) const {
    CheckDlgButton(mhWnd, aintId, ablnChecked ? BST_CHECKED : BST_UNCHECKED);
}

void clsDialog::EnableItem(int aintId, bool ablnEnabled) const {
    EnableWindow(Item(aintId), ablnEnabled);
}

void clsDialog::SetCaption(const std::string& astrText) const {
    SetWindowTextA(mhWnd, astrText.c_str());
}

INT_PTR CALLBACK clsDialog::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(window, DWLP_USER, lParam);
        reinterpret_cast<clsDialog*>(lParam)->mhWnd = window;
    }
    auto* dialog = reinterpret_cast<clsDialog*>(GetWindowLongPtrA(window, DWLP_USER));
    if (!dialog) return FALSE;
    INT_PTR handled = FALSE;
    // An error must not unwind through the system's code that called us.
    try {
        handled = message == WM_INITDIALOG ? dialog->OnInit()
                                           : dialog->OnMessage(message, wParam, lParam);
    } catch (const std::exception& error) {
        WriteLog(std::string("clsDialog - DialogProc: ") + error.what(), kLogError);
    }
    if (message == WM_NCDESTROY) dialog->mhWnd = nullptr;
    return handled;
}

}  // namespace rwz
