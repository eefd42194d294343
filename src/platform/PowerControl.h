// The calls that end the session: restart, power off, log off, suspend. They
// sit behind this interface so that tests can see which call was made with
// which flags without the machine going down.
#pragma once

#include <windows.h>

namespace rwz {

class IPowerControl {
  public:
    virtual ~IPowerControl() = default;
    // ExitWindowsEx(flags, 0). Nonzero when the system accepted the request.
    virtual BOOL EndSession(UINT flags) = 0;
    // SetSystemPowerState(suspend, force). Nonzero when accepted.
    virtual BOOL SetPowerState(BOOL suspend, BOOL force) = 0;
    // Gives the process the right to shut the system down (NT family).
    virtual void EnableShutdownPrivilege() = 0;
};

// The power control in use: the system's, unless a test put another in place.
IPowerControl& PowerControl();
// Puts `control` in place (nullptr restores the system's). For tests.
void SetPowerControl(IPowerControl* control);

}  // namespace rwz
