// Menu command numbers of the tray program's window. A profile's command is
// kCmdFirstProfile plus its position in the listed profiles (0 for the first).
#pragma once

namespace rwz::tray {

inline constexpr int kCmdOpenRoamwise = 100;
inline constexpr int kCmdChooseFolder = 101;
inline constexpr int kCmdExit = 102;
inline constexpr int kCmdFirstProfile = 1000;
// At most this many profiles are listed (the menu stays usable).
inline constexpr int kMaxProfiles = 200;

// The class of the tray program's hidden window.
inline constexpr const char* kTrayWindowClass = "RwzSysTrayWindow";

}  // namespace rwz::tray
