// "Create Desktop Shortcut": a shortcut on the user's desktop that applies a
// profile silently, the way users switch places with one double-click.
#pragma once

#include <windows.h>

#include <string>

namespace rwz {

// What the shortcut runs: Rwz.exe's arguments for a profile.
std::string ShortcutArguments(const std::string& astrProfile);
// The shortcut file for a profile: folder + "\" + the profile's name without
// its extension + ".lnk".
std::string ShortcutPath(const std::string& astrFolder, const std::string& astrProfile);

// Writes the shortcut file through the shell's link object: target the
// program (Rwz.exe), the arguments above, the program's icon. Raises on failure.
void WriteProfileShortcut(const std::string& astrLink, const std::string& astrProfile,
                          const std::string& astrProgram);

// The command: asks before replacing a shortcut of the same name, tells the
// user what failed. Returns the shortcut's path, "" when none was written.
std::string CreateDesktopShortcut(HWND ahOwner, const std::string& astrProfile);

}  // namespace rwz
