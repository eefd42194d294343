#include "shell/clsTabPage.h"

#include <utility>

namespace rwz {

clsTabPage::clsTabPage(const char* aszTemplate, std::string astrCaption)
    : mszTemplate(aszTemplate), mstrCaption(std::move(astrCaption)) {}

bool clsTabPage::Create(HINSTANCE instance, HWND parent, ITabHost& host) {
    mpHost = &host;
    return clsDialog::Create(mszTemplate, parent, instance);
}

void clsTabPage::CreateWithoutWindow(HINSTANCE instance, ITabHost& host) {
    mpHost = &host;
    mBindings.SetControlStyles(DialogControlStyles(instance, mszTemplate));
    OnCreate();
}

void clsTabPage::Refill(clsRwzConfig&, bool ablnAssign) {
    mBindings.Refill(mhWnd, ablnAssign);
}

void clsTabPage::SetAvailable(bool ablnAvailable) {
    mblnAvailable = ablnAvailable;
    for (HWND child = GetWindow(mhWnd, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        EnableWindow(child, ablnAvailable);
    if (ablnAvailable) UpdateEnabling();
}

bool clsTabPage::OnInit() {
    OnCreate();
    return true;
}

bool clsTabPage::OnCommand(int aintId, int aintCode, HWND control) {
    const WPARAM wParam = MAKEWPARAM(aintId, aintCode);
    const LPARAM lParam = reinterpret_cast<LPARAM>(control);
    if (mBindings.OnCommand(mhWnd, wParam, lParam)) {
        UpdateEnabling();
        Host().PageEdited();
    } else {
        OnCommand(wParam, lParam);
    }
    return true;
}

}  // namespace rwz
