// Binds dialog controls to record properties, written once for every tab.
//
// Refill shows the record's values; a control whose shown value changes
// assigns its property (when `assign` is set), so that opening a profile flags
// exactly the settings in which it differs from what was shown before. A user's
// edit assigns the property at once. A refill that shows the same value
// assigns nothing.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace rwz {

class FieldBindings {
  public:
    using TextGetter = std::function<std::string()>;
    using TextSetter = std::function<void(const std::string&)>;
    using FlagGetter = std::function<bool()>;
    using FlagSetter = std::function<void(bool)>;

    // An edit field (or any control whose value is its window text).
    void AddText(int aintControlId, TextGetter get, TextSetter set);
    // A check box.
    void AddCheck(int aintControlId, FlagGetter get, FlagSetter set);

    // Shows every bound value on `page`. Returns the ids of the controls whose
    // shown value changed.
    std::vector<int> Refill(HWND page, bool ablnAssign);

    // A control notification (WM_COMMAND): a user's edit of a bound control
    // assigns its property. True when the control is bound and was assigned.
    bool OnCommand(HWND page, WPARAM wParam, LPARAM lParam);
    // True while Refill runs: a setter called now assigns a shown value
    // rather than taking a user's edit.
    bool Refilling() const { return mblnRefilling; }

    // The text of a control (edit fields and static texts alike).
    static std::string ControlText(HWND page, int aintControlId);

  private:
    struct Binding {
        int controlId;
        bool isCheck;
        TextGetter getText;
        TextSetter setText;
        FlagGetter getFlag;
        FlagSetter setFlag;
    };

    std::vector<Binding> mBindings;
    bool mblnRefilling = false;  // notifications of our own writes are not edits
};

}  // namespace rwz
