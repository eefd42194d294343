#include "platform/modFindPartEnum.h"

namespace rwz {

namespace {

struct Search {
    const std::string* part;
    HWND except;
    HWND found;
};

BOOL CALLBACK VisitWindow(HWND window, LPARAM data) {
    auto* search = reinterpret_cast<Search*>(data);
    if (window == search->except) return TRUE;
    char title[256];
    const int length = GetWindowTextA(window, title, sizeof title);
    if (length > 0 && std::string(title, length).find(*search->part) != std::string::npos) {
        search->found = window;
        return FALSE;  // the first match wins
    }
    return TRUE;
}

}  // namespace

HWND FindWindowByPartialTitle(const std::string& astrPart, HWND except) {
    Search search{&astrPart, except, nullptr};
    EnumWindows(VisitWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

}  // namespace rwz
