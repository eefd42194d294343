// The paths of the shell's special folders that the browsers keep their files
// under.
#pragma once

#include <string>

namespace rwz {

// Shell folder numbers (the shell's CSIDL values).
inline constexpr int kShellFolderAppData = 26;       // the user's application data
inline constexpr int kShellFolderProgramFiles = 38;  // the program files folder

// The folder's path without a trailing separator; "" when the system knows no
// such folder. Shells before Windows 2000 (no desktop update) know neither of
// the two above: their paths are then taken from the registry entries the
// system keeps for them ("Shell Folders" "AppData", "ProgramFilesDir").
std::string GetShellFolderPath(int aintFolder);

}  // namespace rwz
