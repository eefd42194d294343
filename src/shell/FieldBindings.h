// Binds dialog controls to record properties, written once for every tab.
//
// Refill shows the record's values; a control whose shown value changes
// assigns its property (when `assign` is set), so that opening a profile flags
// exactly the settings in which it differs from what was shown before. A user's
// edit assigns the property at once. A refill that shows the same value
// assigns nothing.
//
// A page may also have no window at all (a run that never shows one): then
// the bindings keep what each control would show, start from what an empty
// dialog shows, and compare and assign exactly as with the window.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
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

    // Shows every bound value on `page` (null: a page without a window), only
    // the controls of `aOnly` when it names some. Returns the ids of the
    // controls whose shown value changed.
    std::vector<int> Refill(HWND page, bool ablnAssign, const std::vector<int>& aOnly = {});

    // The styles of the page's controls by id, from its dialog template, for
    // a page without a window: a combo box that is a drop-down list can only
    // show one of its items.
    void SetControlStyles(std::map<int, DWORD> acolStyles) { mcolStyles = std::move(acolStyles); }
    // What a bound check box or option button shows (its window's state, or
    // what the page without a window remembers).
    bool Checked(HWND page, int aintControlId) const;
    // The position a bound drop-down list shows chosen, -1 for none.
    int Choice(HWND page, int aintControlId) const;
    // Ticks or clears a bound check box (a page's own rule, not a user's edit).
    void ShowChecked(HWND page, int aintControlId, bool ablnChecked);

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
        // What the control shows, kept for a page without a window.
        std::string shownText;           // an edit field; a drop-down combo's edit field
        bool shownChecked = false;       // a check box; an option pair's true button
        bool shownFalseChecked = false;  // an option pair's false button
        std::vector<std::string> shownItems;
        int shownChoice = -1;
    };

    // The combo box of a binding, on the page or remembered (page null).
    bool IsDropDownList(HWND page, const Binding& binding) const;
    std::string ShownListText(HWND page, const Binding& binding) const;
    int ShownChoice(HWND page, const Binding& binding) const;
    void SelectItem(HWND page, Binding& binding, int aintIndex) const;
    void FillItems(HWND page, Binding& binding, const std::vector<std::string>& acolItems) const;
    // Shows a combo box value; false when a drop-down list has no such item.
    bool ShowListText(HWND page, Binding& binding, const std::string& astrValue) const;
    const Binding* Find(int aintControlId) const;

    std::vector<Binding> mBindings;
    std::map<int, DWORD> mcolStyles;
    bool mblnRefilling = false;  // notifications of our own writes are not edits
};

}  // namespace rwz
