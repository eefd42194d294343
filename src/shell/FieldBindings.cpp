#include "shell/FieldBindings.h"

#include <algorithm>
#include <utility>

namespace rwz {

namespace {

bool IsDropDownList(HWND combo) {
    return (GetWindowLongA(combo, GWL_STYLE) & 0x3) == CBS_DROPDOWNLIST;
}

std::string ItemText(HWND combo, int aintIndex) {
    const LRESULT length = SendMessageA(combo, CB_GETLBTEXTLEN, aintIndex, 0);
    if (length == CB_ERR) return std::string();
    std::string text(static_cast<size_t>(length) + 1, '\0');
    const LRESULT copied =
        SendMessageA(combo, CB_GETLBTEXT, aintIndex, reinterpret_cast<LPARAM>(&text[0]));
    text.resize(copied == CB_ERR ? 0 : static_cast<size_t>(copied));
    return text;
}

std::vector<std::string> Items(HWND combo) {
    std::vector<std::string> items;
    const LRESULT count = SendMessageA(combo, CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) items.push_back(ItemText(combo, static_cast<int>(i)));
    return items;
}

// The item that is exactly the text (the combo box's own search ignores case).
int FindItem(HWND combo, const std::string& astrText) {
    const std::vector<std::string> items = Items(combo);
    for (size_t i = 0; i < items.size(); ++i)
        if (items[i] == astrText) return static_cast<int>(i);
    return -1;
}

}  // namespace

void FieldBindings::AddText(int aintControlId, TextGetter get, TextSetter set) {
    Binding binding{aintControlId, Kind::Text};
    binding.getText = std::move(get);
    binding.setText = std::move(set);
    mBindings.push_back(std::move(binding));
}

void FieldBindings::AddCheck(int aintControlId, FlagGetter get, FlagSetter set) {
    Binding binding{aintControlId, Kind::Check};
    binding.getFlag = std::move(get);
    binding.setFlag = std::move(set);
    mBindings.push_back(std::move(binding));
}

void FieldBindings::AddOptionPair(int aintTrueId, int aintFalseId, FlagGetter get, FlagSetter set) {
    Binding binding{aintTrueId, Kind::OptionPair};
    binding.getFlag = std::move(get);
    binding.setFlag = std::move(set);
    binding.falseId = aintFalseId;
    mBindings.push_back(std::move(binding));
}

void FieldBindings::AddList(int aintControlId, ItemsGetter items, TextGetter get, TextSetter set) {
    Binding binding{aintControlId, Kind::List};
    binding.getItems = std::move(items);
    binding.getText = std::move(get);
    binding.setText = std::move(set);
    mBindings.push_back(std::move(binding));
}

void FieldBindings::AddChoice(int aintControlId, ItemsGetter items, IndexGetter get,
                              IndexSetter set) {
    Binding binding{aintControlId, Kind::Choice};
    binding.getItems = std::move(items);
    binding.getIndex = std::move(get);
    binding.setIndex = std::move(set);
    mBindings.push_back(std::move(binding));
}

std::string FieldBindings::ControlText(HWND page, int aintControlId) {
    HWND control = GetDlgItem(page, aintControlId);
    if (!control) return std::string();
    const int length = GetWindowTextLengthA(control);
    std::string text(static_cast<size_t>(length) + 1, '\0');
    text.resize(static_cast<size_t>(GetWindowTextA(control, &text[0], length + 1)));
    return text;
}

std::string FieldBindings::ListText(HWND page, int aintControlId) {
    HWND combo = GetDlgItem(page, aintControlId);
    if (!combo) return std::string();
    if (!IsDropDownList(combo)) return ControlText(page, aintControlId);
    const LRESULT selected = SendMessageA(combo, CB_GETCURSEL, 0, 0);
    return selected == CB_ERR ? std::string() : ItemText(combo, static_cast<int>(selected));
}

void FieldBindings::FillItems(HWND combo, const std::vector<std::string>& acolItems) {
    if (Items(combo) == acolItems) return;
    // The list changes under the value shown, which stays.
    const bool dropDownList = IsDropDownList(combo);
    const HWND page = GetParent(combo);
    const int id = GetDlgCtrlID(combo);
    const std::string shown = ListText(page, id);
    SendMessageA(combo, CB_RESETCONTENT, 0, 0);
    for (const std::string& item : acolItems)
        SendMessageA(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
    if (!ShowListText(combo, shown) && dropDownList)
        SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
}

bool FieldBindings::ShowListText(HWND combo, const std::string& astrValue) {
    const int index = FindItem(combo, astrValue);
    if (index >= 0) {
        SendMessageA(combo, CB_SETCURSEL, index, 0);
        return true;
    }
    if (IsDropDownList(combo)) return false;
    SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    SetWindowTextA(combo, astrValue.c_str());
    return true;
}

std::vector<int> FieldBindings::Refill(HWND page, bool ablnAssign, const std::vector<int>& aOnly) {
    std::vector<int> changed;
    mblnRefilling = true;
    for (const Binding& binding : mBindings) {
        if (!aOnly.empty() &&
            std::find(aOnly.begin(), aOnly.end(), binding.controlId) == aOnly.end())
            continue;
        switch (binding.kind) {
            case Kind::Check: {
                const bool value = binding.getFlag();
                const bool shown = IsDlgButtonChecked(page, binding.controlId) == BST_CHECKED;
                if (value == shown) continue;
                CheckDlgButton(page, binding.controlId, value ? BST_CHECKED : BST_UNCHECKED);
                if (ablnAssign) binding.setFlag(value);
                break;
            }
            case Kind::OptionPair: {
                const bool value = binding.getFlag();
                // Before the first refill neither button is chosen: that shows false.
                const bool shown = IsDlgButtonChecked(page, binding.controlId) == BST_CHECKED;
                CheckDlgButton(page, binding.controlId, value ? BST_CHECKED : BST_UNCHECKED);
                CheckDlgButton(page, binding.falseId, value ? BST_UNCHECKED : BST_CHECKED);
                if (value == shown) continue;
                if (ablnAssign) binding.setFlag(value);
                break;
            }
            case Kind::List: {
                HWND combo = GetDlgItem(page, binding.controlId);
                if (binding.getItems) FillItems(combo, binding.getItems());
                const std::string value = binding.getText();
                if (value == ListText(page, binding.controlId)) continue;
                if (!ShowListText(combo, value)) continue;
                if (ablnAssign) binding.setText(value);
                break;
            }
            case Kind::Choice: {
                HWND combo = GetDlgItem(page, binding.controlId);
                if (binding.getItems) FillItems(combo, binding.getItems());
                const int value = binding.getIndex();
                const LRESULT shown = SendMessageA(combo, CB_GETCURSEL, 0, 0);
                if (value == (shown == CB_ERR ? -1 : static_cast<int>(shown))) continue;
                SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(value), 0);
                if (ablnAssign) binding.setIndex(value);
                break;
            }
            case Kind::Text: {
                const std::string value = binding.getText();
                if (value == ControlText(page, binding.controlId)) continue;
                SetDlgItemTextA(page, binding.controlId, value.c_str());
                if (ablnAssign) binding.setText(value);
                break;
            }
        }
        changed.push_back(binding.controlId);
    }
    mblnRefilling = false;
    return changed;
}

bool FieldBindings::OnCommand(HWND page, WPARAM wParam, LPARAM lParam) {
    if (mblnRefilling) return false;
    const int id = LOWORD(wParam);
    const int code = HIWORD(wParam);
    for (const Binding& binding : mBindings) {
        const bool isFalseButton = binding.kind == Kind::OptionPair && binding.falseId == id;
        if (binding.controlId != id && !isFalseButton) continue;
        switch (binding.kind) {
            case Kind::Check:
                if (code != BN_CLICKED) return false;
                binding.setFlag(IsDlgButtonChecked(page, id) == BST_CHECKED);
                return true;
            case Kind::OptionPair:
                if (code != BN_CLICKED) return false;
                binding.setFlag(IsDlgButtonChecked(page, binding.controlId) == BST_CHECKED);
                return true;
            case Kind::List: {
                if (code == CBN_EDITCHANGE) {
                    binding.setText(ControlText(page, id));
                    return true;
                }
                if (code != CBN_SELCHANGE) return false;
                // The edit field of a drop-down combo still shows the old
                // text here: the chosen item's text is the value.
                HWND combo = GetDlgItem(page, id);
                const LRESULT selected = SendMessageA(combo, CB_GETCURSEL, 0, 0);
                if (selected == CB_ERR) return false;
                binding.setText(ItemText(combo, static_cast<int>(selected)));
                return true;
            }
            case Kind::Choice: {
                if (code != CBN_SELCHANGE) return false;
                const LRESULT selected = SendMessageA(GetDlgItem(page, id), CB_GETCURSEL, 0, 0);
                if (selected == CB_ERR) return false;
                binding.setIndex(static_cast<int>(selected));
                return true;
            }
            case Kind::Text:
                if (code != EN_CHANGE) return false;
                binding.setText(ControlText(page, id));
                return true;
        }
        return false;
    }
    return false;
}

}  // namespace rwz
