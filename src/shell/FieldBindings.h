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
    using ItemsGetter = std::function<std::vector<std::string>()>;
    using IndexGetter = std::function<int()>;
    using IndexSetter = std::function<void(int)>;

    // An edit field (or any control whose value is its window text).
    void AddText(int aintControlId, TextGetter get, TextSetter set);
    // A check box.
    void AddCheck(int aintControlId, FlagGetter get, FlagSetter set);
    // Two option buttons for one flag: `aintTrueId` stands for true,
    // `aintFalseId` for false.
    void AddOptionPair(int aintTrueId, int aintFalseId, FlagGetter get, FlagSetter set);
    // A combo box whose value is the text of its choice, with the items it
    // offers (refreshed at every refill). A drop-down combo (with an edit
    // field) shows any text; a drop-down list can only show one of its items,
    // so a value that is none of them leaves the choice as it was.
    void AddList(int aintControlId, ItemsGetter items, TextGetter get, TextSetter set);
    // A drop-down list whose value is the position of its choice (-1: none),
    // for lists that may hold the same text twice.
    void AddChoice(int aintControlId, ItemsGetter items, IndexGetter get, IndexSetter set);

    // Shows every bound value on `page` (only the controls of `aOnly` when it
    // names some). Returns the ids of the controls whose shown value changed.
    std::vector<int> Refill(HWND page, bool ablnAssign, const std::vector<int>& aOnly = {});

    // A control notification (WM_COMMAND): a user's edit of a bound control
    // assigns its property. True when the control is bound and was assigned.
    bool OnCommand(HWND page, WPARAM wParam, LPARAM lParam);
    // True while Refill runs: a setter called now assigns a shown value
    // rather than taking a user's edit.
    bool Refilling() const { return mblnRefilling; }

    // The text of a control (edit fields and static texts alike).
    static std::string ControlText(HWND page, int aintControlId);
    // The shown value of a combo box: its edit text, or a drop-down list's choice.
    static std::string ListText(HWND page, int aintControlId);

  private:
    enum class Kind { Text, Check, OptionPair, List, Choice };
    struct Binding {
        Binding(int aintControlId, Kind aKind) : controlId(aintControlId), kind(aKind) {}
        int controlId;
        Kind kind;
        TextGetter getText;
        TextSetter setText;
        FlagGetter getFlag;
        FlagSetter setFlag;
        int falseId = 0;  // OptionPair: the button that stands for false
        ItemsGetter getItems;
        IndexGetter getIndex;
        IndexSetter setIndex;
    };

    static void FillItems(HWND combo, const std::vector<std::string>& acolItems);
    // Shows a combo box value; false when a drop-down list has no such item.
    static bool ShowListText(HWND combo, const std::string& astrValue);

    std::vector<Binding> mBindings;
    bool mblnRefilling = false;  // notifications of our own writes are not edits
};

}  // namespace rwz
