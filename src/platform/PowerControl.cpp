#include "platform/PowerControl.h"

#include "platform/Win32Handles.h"

namespace rwz {

namespace {

class SystemPowerControl : public IPowerControl {
  public:
    BOOL EndSession(UINT flags) override { return ExitWindowsEx(flags, 0); }

    BOOL SetPowerState(BOOL suspend, BOOL force) override {
        // Looked up at run time: not every supported system exports it.
        using SetSystemPowerStateFn = BOOL(WINAPI*)(BOOL, BOOL);
        HMODULE kernel = GetModuleHandleA("kernel32.dll");
        auto setState = kernel ? reinterpret_cast<SetSystemPowerStateFn>(
                                     GetProcAddress(kernel, "SetSystemPowerState"))
                               : nullptr;
        return setState ? setState(suspend, force) : FALSE;
    }

    void EnableShutdownPrivilege() override {
        HANDLE token = nullptr;
        if (!OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &token))
            return;
        KernelHandle owner(token);
        TOKEN_PRIVILEGES privileges = {};
        privileges.PrivilegeCount = 1;
        privileges.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
        if (!LookupPrivilegeValueA(nullptr, "SeShutdownPrivilege", &privileges.Privileges[0].Luid))
            return;
        TOKEN_PRIVILEGES previous = {};
        DWORD previousLength = sizeof previous;
        // Failures are not reported: a refused restart simply does not happen.
        AdjustTokenPrivileges(token, FALSE, &privileges, sizeof previous, &previous,
                              &previousLength);
    }
};

SystemPowerControl gSystemPowerControl;
IPowerControl* gPowerControl = &gSystemPowerControl;

}  // namespace

IPowerControl& PowerControl() {
    return *gPowerControl;
}

void SetPowerControl(IPowerControl* control) {
    gPowerControl = control ? control : &gSystemPowerControl;
}

}  // namespace rwz
