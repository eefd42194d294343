// A page of the main window's tab control: a child dialog made from its own
// resource template. The main window fills it from the profile and hears of
// every edit the user makes on it.
#pragma once

#include <windows.h>

#include <string>

#include "shell/FieldBindings.h"
#include "shell/clsDialog.h"

namespace rwz {

class clsRwzConfig;

// What a page needs of the main window.
class ITabHost {
  public:
    virtual ~ITabHost() = default;
    // The user edited a field of a page (not called while a page is refilled).
    virtual void PageEdited() = 0;
};

class clsTabPage : public clsDialog {
  public:
    clsTabPage(const char* aszTemplate, std::string astrCaption);

    // Creates the page as a hidden child of `parent`.
    bool Create(HINSTANCE instance, HWND parent, ITabHost& host);
    // Sets the page up without a window, for a run that never shows one: its
    // bindings keep what the controls would show and edit the profile alike.
    void CreateWithoutWindow(HINSTANCE instance, ITabHost& host);
    const std::string& Caption() const { return mstrCaption; }

    // Shows the profile's settings. With `ablnAssign` (a profile was opened) a
    // field whose shown value changes assigns its property.
    virtual void Refill(clsRwzConfig& aobjConfig, bool ablnAssign);

    // Whether the page's area can be edited at all (its back end exists).
    bool Available() const { return mblnAvailable; }
    void SetAvailable(bool ablnAvailable);

  protected:
    // Called once the dialog exists (or, without a window, once the page is
    // set up): bind the fields, fill fixed lists.
    virtual void OnCreate() {}
    // A control notification that no binding took.
    using clsDialog::OnCommand;
    virtual void OnCommand(WPARAM /*wParam*/, LPARAM /*lParam*/) {}
    // Greys the controls that the values shown leave unused. Called after each
    // edit of a bound control and when the page becomes available again.
    virtual void UpdateEnabling() {}

    ITabHost& Host() { return *mpHost; }
    FieldBindings mBindings;

  private:
    bool OnInit() override;
    bool OnCommand(int aintId, int aintCode, HWND control) override;

    const char* mszTemplate;
    std::string mstrCaption;
    ITabHost* mpHost = nullptr;
    bool mblnAvailable = true;
};

}  // namespace rwz
