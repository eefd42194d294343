// A small window in the corner above the taskbar that tells what the tray
// program did, for shells older than 5.0, which show no balloons. It closes
// when clicked or after a while.
#pragma once

#include <windows.h>

#include <string>

namespace rwz::tray {

// Shows the notice (replacing one that is still open); the window belongs to
// the calling thread and lives on without the caller.
void ShowTrayNotice(HINSTANCE ahInstance, const std::string& astrTitle,
                    const std::string& astrText);

}  // namespace rwz::tray
