// What happens after a profile has been applied: restart, power off, suspend,
// log off, or nothing, by a restart action code.
#pragma once

#include <string>

namespace rwz {

// Restart action codes, as the command line, the restart dialog and the saved
// preference (Options/Restart) use them.
inline constexpr const char* kRestartNone = "0";
inline constexpr const char* kRestartReboot = "1";
inline constexpr const char* kRestartPowerOff = "2";
inline constexpr const char* kRestartSuspend = "3";
inline constexpr const char* kRestartLogOff = "4";

// The saved preference, "0" when none was saved.
std::string GetRestartPreference();
void SetRestartPreference(const std::string& astrCode);

// Gives the process the shutdown right.
void EnableShutdownPrivilege();

// Performs a restart action; an empty code takes the saved preference. Returns
// the system call's result (nonzero = accepted), 0 for "0" or an unknown code.
int ExecuteRestartOption(const std::string& astrCode);

}  // namespace rwz
