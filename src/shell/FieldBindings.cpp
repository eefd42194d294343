#include "shell/FieldBindings.h"

#include <algorithm>
#include <utility>

namespace rwz {

namespace {

bool IsDropDownListCombo(HWND combo) {
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
    if (!IsDropDownListCombo(combo)) return ControlText(page, aintControlId);
    const LRESULT selected = SendMessageA(combo, CB_GETCURSEL, 0, 0);
    return selected == CB_ERR ? std::string() : ItemText(combo, static_cast<int>(selected));
}

const FieldBindings::Binding* FieldBindings::Find(int aintControlId) const {
    for (const Binding& binding : mBindings)
        if (binding.controlId == aintControlId) return &binding;
    return nullptr;
}

bool FieldBindings::IsDropDownList(HWND page, const Binding& binding) const {
    if (page) return IsDropDownListCombo(GetDlgItem(page, binding.controlId));
    const auto style = mcolStyles.find(binding.controlId);
    return style != mcolStyles.end() && (style->second & 0x3) == CBS_DROPDOWNLIST;
}

std::string FieldBindings::ShownListText(HWND page, const Binding& binding) const {
    if (page) return ListText(page, binding.controlId);
    if (!IsDropDownList(page, binding)) return binding.shownText;
    return binding.shownChoice < 0 ? std::string() : binding.shownItems[binding.shownChoice];
}

int FieldBindings::ShownChoice(HWND page, const Binding& binding) const {
    if (!page) return binding.shownChoice;
    const LRESULT shown = SendMessageA(GetDlgItem(page, binding.controlId), CB_GETCURSEL, 0, 0);
    return shown == CB_ERR ? -1 : static_cast<int>(shown);
}

void FieldBindings::SelectItem(HWND page, Binding& binding, int aintIndex) const {
    if (page) {
        SendMessageA(GetDlgItem(page, binding.controlId), CB_SETCURSEL,
                     static_cast<WPARAM>(aintIndex), 0);
        return;
    }
    // A position past the list clears the choice; a combo's edit field shows the choice.
    const bool valid = aintIndex >= 0 && aintIndex < static_cast<int>(binding.shownItems.size());
    binding.shownChoice = valid ? aintIndex : -1;
    binding.shownText = valid ? binding.shownItems[aintIndex] : std::string();
}

void FieldBindings::FillItems(HWND page, Binding& binding,
                              const std::vector<std::string>& acolItems) const {
    HWND combo = page ? GetDlgItem(page, binding.controlId) : nullptr;
    if ((page ? Items(combo) : binding.shownItems) == acolItems) return;
    // The list changes under the value shown, which stays.
    const bool dropDownList = IsDropDownList(page, binding);
    const std::string shown = ShownListText(page, binding);
    if (page) {
        SendMessageA(combo, CB_RESETCONTENT, 0, 0);
        for (const std::string& item : acolItems)
            SendMessageA(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
    } else {
        // Emptied, edit field and all; an item shows up to its first NUL.
        binding.shownItems.clear();
        for (const std::string& item : acolItems) binding.shownItems.push_back(item.c_str());
        binding.shownChoice = -1;
        binding.shownText.clear();
    }
    if (!ShowListText(page, binding, shown) && dropDownList) SelectItem(page, binding, -1);
}

bool FieldBindings::ShowListText(HWND page, Binding& binding, const std::string& astrValue) const {
    const std::vector<std::string> items =
        page ? Items(GetDlgItem(page, binding.controlId)) : binding.shownItems;
    for (size_t i = 0; i < items.size(); ++i) {
        if (items[i] == astrValue) {
            SelectItem(page, binding, static_cast<int>(i));
            return true;
        }
    }
    if (IsDropDownList(page, binding)) return false;
    SelectItem(page, binding, -1);
    if (page)
        SetWindowTextA(GetDlgItem(page, binding.controlId), astrValue.c_str());
    else
        binding.shownText = astrValue.c_str();
    return true;
}

bool FieldBindings::Checked(HWND page, int aintControlId) const {
    if (page) return IsDlgButtonChecked(page, aintControlId) == BST_CHECKED;
    for (const Binding& binding : mBindings) {
        if (binding.controlId == aintControlId) return binding.shownChecked;
        if (binding.kind == Kind::OptionPair && binding.falseId == aintControlId)
            return binding.shownFalseChecked;
    }
    return false;
}

int FieldBindings::Choice(HWND page, int aintControlId) const {
    const Binding* binding = Find(aintControlId);
    if (!page || !binding) return binding ? binding->shownChoice : -1;
    return ShownChoice(page, *binding);
}

void FieldBindings::ShowChecked(HWND page, int aintControlId, bool ablnChecked) {
    if (page) {
        CheckDlgButton(page, aintControlId, ablnChecked ? BST_CHECKED : BST_UNCHECKED);
        return;
    }
    for (Binding& binding : mBindings)
        if (binding.controlId == aintControlId && binding.kind == Kind::Check)
            binding.shownChecked = ablnChecked;
}

std::vector<int> FieldBindings::Refill(HWND page, bool ablnAssign, const std::vector<int>& aOnly) {
    std::vector<int> changed;
    mblnRefilling = true;
    for (Binding& binding : mBindings) {
        if (!aOnly.empty() &&
            std::find(aOnly.begin(), aOnly.end(), binding.controlId) == aOnly.end())
            continue;
        switch (binding.kind) {
            case Kind::Check: {
                const bool value = binding.getFlag();
                if (value == Checked(page, binding.controlId)) continue;
                if (page)
                    CheckDlgButton(page, binding.controlId, value ? BST_CHECKED : BST_UNCHECKED);
                binding.shownChecked = value;
                if (ablnAssign) binding.setFlag(value);
                break;
            }
            case Kind::OptionPair: {
                const bool value = binding.getFlag();
                // Before the first refill neither button is chosen: that shows false.
                const bool shown = Checked(page, binding.controlId);
                if (page) {
                    CheckDlgButton(page, binding.controlId, value ? BST_CHECKED : BST_UNCHECKED);
                    CheckDlgButton(page, binding.falseId, value ? BST_UNCHECKED : BST_CHECKED);
                }
                binding.shownChecked = value;
                binding.shownFalseChecked = !value;
                if (value == shown) continue;
                if (ablnAssign) binding.setFlag(value);
                break;
            }
            case Kind::List: {
                if (binding.getItems) FillItems(page, binding, binding.getItems());
                const std::string value = binding.getText();
                if (value == ShownListText(page, binding)) continue;
                if (!ShowListText(page, binding, value)) continue;
                if (ablnAssign) binding.setText(value);
                break;
            }
            case Kind::Choice: {
                if (binding.getItems) FillItems(page, binding, binding.getItems());
                const int value = binding.getIndex();
                if (value == ShownChoice(page, binding)) continue;
                SelectItem(page, binding, value);
                if (ablnAssign) binding.setIndex(value);
                break;
            }
            case Kind::Text: {
                const std::string value = binding.getText();
                if (value == (page ? ControlText(page, binding.controlId) : binding.shownText))
                    continue;
                if (page)
                    SetDlgItemTextA(page, binding.controlId, value.c_str());
                else
                    binding.shownText = value.c_str();  // a field shows up to the first NUL
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
