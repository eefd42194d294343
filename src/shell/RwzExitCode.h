// What Rwz.exe tells the program that started it when it ends after its
// command line: the tray program reads it after running "/hidden /load ... /apply".
#pragma once

namespace rwz {

// Nothing went wrong; a profile, if one was applied, needs no restart.
inline constexpr unsigned long kExitApplied = 0;
// The window could not be created.
inline constexpr unsigned long kExitNoWindow = 1;
// "apply" was given but nothing was applied: the profile named by "load"
// could not be opened, or the program ended before it came to applying.
inline constexpr unsigned long kExitNotApplied = 2;
// Applied; the system must restart for some settings to take effect (the
// value Windows' own installers use for this).
inline constexpr unsigned long kExitRestartPending = 3010;

}  // namespace rwz
