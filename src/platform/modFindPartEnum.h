// Finds a top-level window by a part of its title.
#pragma once

#include <windows.h>

#include <string>

namespace rwz {

// The first top-level window, in the system's enumeration order, whose title
// (read into a 256-character buffer) contains `astrPart`, compared with case;
// nullptr when none does. `except` is passed over (the caller's own window).
HWND FindWindowByPartialTitle(const std::string& astrPart, HWND except = nullptr);

}  // namespace rwz
