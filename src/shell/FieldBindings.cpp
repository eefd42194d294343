#include "shell/FieldBindings.h"

#include <utility>

namespace rwz {

void FieldBindings::AddText(int aintControlId, TextGetter get, TextSetter set) {
    mBindings.push_back({aintControlId, false, std::move(get), std::move(set), {}, {}});
}

void FieldBindings::AddCheck(int aintControlId, FlagGetter get, FlagSetter set) {
    mBindings.push_back({aintControlId, true, {}, {}, std::move(get), std::move(set)});
}

std::string FieldBindings::ControlText(HWND page, int aintControlId) {
    HWND control = GetDlgItem(page, aintControlId);
    if (!control) return std::string();
    const int length = GetWindowTextLengthA(control);
    std::string text(static_cast<size_t>(length) + 1, '\0');
    text.resize(static_cast<size_t>(GetWindowTextA(control, &text[0], length + 1)));
    return text;
}

std::vector<int> FieldBindings::Refill(HWND page, bool ablnAssign) {
    std::vector<int> changed;
    mblnRefilling = true;
    for (const Binding& binding : mBindings) {
        if (binding.isCheck) {
            const bool value = binding.getFlag();
            const bool shown = IsDlgButtonChecked(page, binding.controlId) == BST_CHECKED;
            if (value == shown) continue;
            CheckDlgButton(page, binding.controlId, value ? BST_CHECKED : BST_UNCHECKED);
            if (ablnAssign) binding.setFlag(value);
        } else {
            const std::string value = binding.getText();
            if (value == ControlText(page, binding.controlId)) continue;
            SetDlgItemTextA(page, binding.controlId, value.c_str());
            if (ablnAssign) binding.setText(value);
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
        if (binding.controlId != id) continue;
        if (binding.isCheck && code == BN_CLICKED) {
            binding.setFlag(IsDlgButtonChecked(page, id) == BST_CHECKED);
            return true;
        }
        if (!binding.isCheck && code == EN_CHANGE) {
            binding.setText(ControlText(page, id));
            return true;
        }
        return false;
    }
    return false;
}

}  // namespace rwz
