#include "profile/modRestart.h"

#include <windows.h>

#include "platform/PowerControl.h"
#include "platform/Procedure.h"
#include "platform/modAPI.h"
#include "platform/modUtilities.h"

namespace rwz {

namespace {

const char kOptions[] = "Options";
const char kRestartKey[] = "Restart";

// ExitWindowsEx flags.
constexpr UINT kLogOff = 0;
constexpr UINT kReboot = 2;
constexpr UINT kPowerOff = 8;
constexpr UINT kForceIfHung = 16;

}  // namespace

std::string GetRestartPreference() {
    return GetProgramSetting(kProductName, kOptions, kRestartKey, kRestartNone);
}

void SetRestartPreference(const std::string& astrCode) {
    SaveProgramSetting(kProductName, kOptions, kRestartKey, astrCode);
}

void EnableShutdownPrivilege() {
    Procedure proc("modRestart", "EnableShutdownPrivilege");
    proc.Run([&] { PowerControl().EnableShutdownPrivilege(); });
}

int ExecuteRestartOption(const std::string& astrCode) {
    Procedure proc("modRestart", "ExecuteRestartOption");
    return proc.Run([&]() -> int {
        // Windows 95/98/ME know neither the privilege nor the force-if-hung flag.
        UINT force = 0;
        if (IsNTPlatform()) {
            EnableShutdownPrivilege();
            force = kForceIfHung;
        }
        const std::string code = astrCode.empty() ? GetRestartPreference() : astrCode;
        proc.Log("Code = " + code);

        auto exitWindows = [&](UINT flags) {
            const BOOL result = PowerControl().EndSession(flags | force);
            proc.Log("ExitWindowsEx(" + std::to_string(flags | force) +
                     ", 0) = " + std::to_string(result));
            return static_cast<int>(result);
        };
        if (code == kRestartNone) return 0;
        if (code == kRestartReboot) return exitWindows(kReboot);
        if (code == kRestartPowerOff) return exitWindows(kPowerOff);
        if (code == kRestartSuspend) {
            const BOOL result = PowerControl().SetPowerState(TRUE, FALSE);
            proc.Log("SetSystemPowerState(1, 0) = " + std::to_string(result));
            return static_cast<int>(result);
        }
        if (code == kRestartLogOff) return exitWindows(kLogOff);
        return 0;
    });
}

}  // namespace rwz
