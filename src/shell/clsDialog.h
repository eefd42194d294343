// One dialog window made from a resource template, with one dialog procedure
// for every form: it keeps `this` with the window and hands each message to
// the object's handlers. Forms derive from it and override what they handle.
//
//   class frmAsk : public clsDialog {
//       bool OnInit() override { SetItemText(IDC_ASK_NAME, mstrName); return true; }
//       void OnOK() override { mstrName = ItemText(IDC_ASK_NAME); End(IDOK); }
//   };
//   frmAsk form;
//   if (form.DoModal("ASK", owner) == IDOK) ...
#pragma once

#include <windows.h>

#include <map>
#include <string>

namespace rwz {

class clsDialog {
  public:
    clsDialog() = default;
    virtual ~clsDialog();
    clsDialog(const clsDialog&) = delete;
    clsDialog& operator=(const clsDialog&) = delete;

    // Shows the dialog `aszTemplate` modally over `owner` (may be null) and
    // returns what End was given, or -1 when it could not be created.
    INT_PTR DoModal(const char* aszTemplate, HWND owner, HINSTANCE instance = nullptr);
    // Creates the dialog modeless (as a child when its template says so). The
    // object owns the window and destroys it with itself.
    bool Create(const char* aszTemplate, HWND parent, HINSTANCE instance = nullptr);
    // Closes a modal dialog with `result`.
    void End(INT_PTR result);
    // Destroys a modeless dialog; its handlers are no longer called.
    void Destroy();

    HWND Handle() const { return mhWnd; }

  protected:
    // WM_INITDIALOG. True lets the dialog give the focus to its first control.
    virtual bool OnInit() { return true; }
    // WM_COMMAND. True when handled; by default OK and Cancel end the dialog.
    virtual bool OnCommand(int aintId, int aintCode, HWND control);
    // WM_NOTIFY. True when handled; `result` is the answer to the notification.
    virtual bool OnNotify(const NMHDR& /*header*/, LRESULT& /*result*/) { return false; }
    // Every message. True when handled; the default dispatches to the handlers above.
    virtual bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    virtual void OnOK() { End(IDOK); }
    virtual void OnCancel() { End(IDCANCEL); }

    // Controls.
    HWND Item(int aintId) const { return GetDlgItem(mhWnd, aintId); }
    std::string ItemText(int aintId) const;
    void SetItemText(int aintId, const std::string& astrText) const;
    bool IsChecked(int aintId) const;
    void SetChecked(int aintId, bool ablnChecked) const;
    void EnableItem(int aintId, bool ablnEnabled) const;
    // The window's caption.
    void SetCaption(const std::string& astrText) const;

    // The window, null before creation and after destruction. Derived forms
    // read it; only the dialog procedure sets it.
    HWND mhWnd = nullptr;

  private:
    static INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    bool mblnModal = false;
};

// The text of any window (edit field, static text, caption).
std::string WindowText(HWND window);

// The style of each control of a dialog template, by control id, read from
// the resource without making a window.
std::map<int, DWORD> DialogControlStyles(HINSTANCE instance, const char* aszTemplate);

}  // namespace rwz
