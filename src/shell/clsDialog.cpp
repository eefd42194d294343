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

namespace {

// Reads a dialog template (DLGTEMPLATE or DLGTEMPLATEEX) front to back.
class TemplateReader {
  public:
    TemplateReader(const BYTE* data, size_t size) : mData(data), mSize(size) {}
    bool Ok() const { return mPos <= mSize; }
    WORD Word() { return static_cast<WORD>(Byte() | (Byte() << 8)); }
    DWORD Dword() { return Word() | (static_cast<DWORD>(Word()) << 16); }
    void Skip(size_t count) { mPos += count; }
    void AlignDword() { mPos = (mPos + 3) & ~static_cast<size_t>(3); }
    // A string of WCHARs, or 0xFFFF and an ordinal, or 0 for none.
    void SkipNameOrOrdinal() {
        const WORD first = Word();
        if (first == 0xFFFF)
            Word();
        else
            while (first != 0 && Ok() && Word() != 0) {
            }
    }
    void SkipString() {
        while (Ok() && Word() != 0) {
        }
    }

  private:
    BYTE Byte() { return mPos < mSize ? mData[mPos++] : (++mPos, 0); }
    const BYTE* mData;
    size_t mSize;
    size_t mPos = 0;
};

}  // namespace

std::map<int, DWORD> DialogControlStyles(HINSTANCE instance, const char* aszTemplate) {
    std::map<int, DWORD> styles;
    HRSRC found = FindResourceA(instance, aszTemplate, MAKEINTRESOURCEA(5));  // RT_DIALOG
    HGLOBAL loaded = found ? LoadResource(instance, found) : nullptr;
    const BYTE* data = loaded ? static_cast<const BYTE*>(LockResource(loaded)) : nullptr;
    if (!data) return styles;
    TemplateReader in(data, SizeofResource(instance, found));
    const bool extended = in.Word() == 1 && in.Word() == 0xFFFF;
    DWORD style = 0;
    if (extended) {
        in.Skip(8);  // help id, extended style
        style = in.Dword();
    } else {
        in = TemplateReader(data, SizeofResource(instance, found));
        style = in.Dword();
        in.Skip(4);  // extended style
    }
    const WORD count = in.Word();
    in.Skip(8);              // position and size
    in.SkipNameOrOrdinal();  // menu
    in.SkipNameOrOrdinal();  // window class
    in.SkipString();         // caption
    if (style & DS_SETFONT) {
        in.Skip(extended ? 6 : 2);  // point size (weight, italic, character set)
        in.SkipString();            // face name
    }
    for (WORD i = 0; i < count && in.Ok(); ++i) {
        in.AlignDword();
        DWORD controlStyle = 0;
        int id = 0;
        if (extended) {
            in.Skip(8);  // help id, extended style
            controlStyle = in.Dword();
            in.Skip(8);
            id = static_cast<int>(in.Dword());
        } else {
            controlStyle = in.Dword();
            in.Skip(12);  // extended style, position and size
            id = static_cast<short>(in.Word());
        }
        in.SkipNameOrOrdinal();  // class
        in.SkipNameOrOrdinal();  // caption
        in.Skip(in.Word());      // creation data
        if (in.Ok()) styles[id] = controlStyle;
    }
    return styles;
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
