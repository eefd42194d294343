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
        if (!mobjBrowser) return changed;
        changed = mBindings.Refill(mhWnd, ablnAssign);
        if (ablnAssign && !changed.empty())
            proc.Log(std::to_string(changed.size()) + " settings differ");
        UpdateEnabling();
        return changed;
    });
}

// The page is shown before a back end exists and stays without one when the
// browser is not installed: then a binding neither shows nor assigns anything.
void clsBrowserTab::BindText(int aintControlId, TextField aField) {
    mBindings.AddText(
        aintControlId,
        [this, aField] { return mobjBrowser ? mobjBrowser->Record().*aField : std::string(); },
        [this, aField](const std::string& value) {
            if (mobjBrowser) mobjBrowser->Assign(aField, value);
        });
}

void clsBrowserTab::BindCheck(int aintControlId, FlagField aField) {
    mBindings.AddCheck(
        aintControlId, [this, aField] { return mobjBrowser && mobjBrowser->Record().*aField; },
        [this, aField](bool value) {
            if (mobjBrowser) mobjBrowser->Assign(aField, value);
        });
}

void clsBrowserTab::BindOptionPair(int aintTrueId, int aintFalseId, FlagField aField) {
    mBindings.AddOptionPair(
        aintTrueId, aintFalseId,
        [this, aField] { return mobjBrowser && mobjBrowser->Record().*aField; },
        [this, aField](bool value) {
            if (mobjBrowser) mobjBrowser->Assign(aField, value);
        });
}

void clsBrowserTab::BindList(int aintControlId, ListGetter items, TextField aField) {
    mBindings.AddList(
        aintControlId,
        [this, items] { return mobjBrowser ? items(*mobjBrowser) : std::vector<std::string>(); },
        [this, aField] { return mobjBrowser ? mobjBrowser->Record().*aField : std::string(); },
        [this, aField](const std::string& value) {
            if (mobjBrowser) mobjBrowser->Assign(aField, value);
        });
}

bool clsBrowserTab::IsChecked(int aintControlId) const {
    return mBindings.Checked(mhWnd, aintControlId);
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
