#include "shell/clsBrowserTab.h"

#include "localization/modLocalization.h"
#include "platform/Procedure.h"

namespace rwz {

void clsBrowserTab::Refill(clsRwzConfig& aobjConfig, bool ablnAssign) {
    RefillFrom(BackEnd(aobjConfig), ablnAssign);
}

std::vector<int> clsBrowserTab::RefillFrom(IBrowser* aobjBrowser, bool ablnAssign) {
    Procedure proc(LogTag(), "Refill");
    return proc.Run([&] {
        mobjBrowser = aobjBrowser;
        std::vector<int> changed;
        if (!mobjBrowser || !mhWnd) return changed;
        changed = mBindings.Refill(mhWnd, ablnAssign);
        if (ablnAssign && !changed.empty())
            proc.Log(std::to_string(changed.size()) + " settings differ");
        UpdateEnabling();
        return changed;
    });
}

// The page is shown before a back end exists and stays without one when the
// browser is not installed: then a binding neither shows nor assigns anything.
void clsBrowserTab::BindText(int aintControlId, TextGetter get, TextSetter set) {
    mBindings.AddText(
        aintControlId, [this, get] { return mobjBrowser ? (mobjBrowser->*get)() : std::string(); },
        [this, set](const std::string& value) {
            if (mobjBrowser) (mobjBrowser->*set)(value);
        });
}

void clsBrowserTab::BindCheck(int aintControlId, FlagGetter get, FlagSetter set) {
    mBindings.AddCheck(
        aintControlId, [this, get] { return mobjBrowser && (mobjBrowser->*get)(); },
        [this, set](bool value) {
            if (mobjBrowser) (mobjBrowser->*set)(value);
        });
}

void clsBrowserTab::BindOptionPair(int aintTrueId, int aintFalseId, FlagGetter get,
                                   FlagSetter set) {
    mBindings.AddOptionPair(
        aintTrueId, aintFalseId, [this, get] { return mobjBrowser && (mobjBrowser->*get)(); },
        [this, set](bool value) {
            if (mobjBrowser) (mobjBrowser->*set)(value);
        });
}

void clsBrowserTab::BindList(int aintControlId, ListGetter items, TextGetter get, TextSetter set) {
    mBindings.AddList(
        aintControlId,
        [this, items] { return mobjBrowser ? items(*mobjBrowser) : std::vector<std::string>(); },
        [this, get] { return mobjBrowser ? (mobjBrowser->*get)() : std::string(); },
        [this, set](const std::string& value) {
            if (mobjBrowser) (mobjBrowser->*set)(value);
        });
}

bool clsBrowserTab::IsChecked(int aintControlId) const {
    return IsDlgButtonChecked(mhWnd, aintControlId) == BST_CHECKED;
}

void clsBrowserTab::Enable(int aintControlId, bool ablnEnabled) const {
    if (HWND control = GetDlgItem(mhWnd, aintControlId)) EnableWindow(control, ablnEnabled);
}

void clsBrowserTab::SetArrayCaption(int aintFirstId, int aintCount, const char* aszCategory) const {
    ControlArray controls;
    for (int i = 0; i < aintCount; ++i) controls.push_back(GetDlgItem(mhWnd, aintFirstId + i));
    Localization().SetControlArrayCaption(controls, aszCategory, LogTag());
}

}  // namespace rwz
