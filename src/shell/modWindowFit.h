// Window sizes that follow their contents: the captions of the chosen
// language may make a toolbar wider than the window designed for English.
#pragma once

#include <windows.h>

namespace rwz {

// Widens the window (never beyond the screen's work area) until its client
// area shows every button of the toolbar; a wide enough window is left alone.
void FitWindowToToolbar(HWND ahWindow, HWND ahToolbar);

}  // namespace rwz
