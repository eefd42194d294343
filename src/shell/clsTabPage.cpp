#include "shell/clsTabPage.h"

#include <utility>

namespace rwz {

clsTabPage::clsTabPage(const char* aszTemplate, std::string astrCaption)
    : mszTemplate(aszTemplate), mstrCaption(std::move(astrCaption)) {}

clsTabPage::~clsTabPage() {
    if (mhWnd) DestroyWindow(mhWnd);
}

bool clsTabPage::Create(HINSTANCE instance, HWND parent, ITabHost& host) {
    mpHost = &host;
    mhWnd = CreateDialogParamA(instance, mszTemplate, parent, DialogProc,
                               reinterpret_cast<LPARAM>(this));
    return mhWnd != nullptr;
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

INT_PTR CALLBACK clsTabPage::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        auto* page = reinterpret_cast<clsTabPage*>(lParam);
        SetWindowLongPtrA(window, DWLP_USER, lParam);
        page->mhWnd = window;
        page->OnCreate();
        return TRUE;
    }
    auto* page = reinterpret_cast<clsTabPage*>(GetWindowLongPtrA(window, DWLP_USER));
    if (!page) return FALSE;
    if (message == WM_COMMAND) {
        if (page->mBindings.OnCommand(window, wParam, lParam)) {
            page->UpdateEnabling();
            page->Host().PageEdited();
        } else {
            page->OnCommand(wParam, lParam);
        }
        return TRUE;
    }
    return FALSE;
}

}  // namespace rwz
