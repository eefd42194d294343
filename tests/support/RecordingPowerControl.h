// Stands in for the machine going down: records each power call, in order,
// and accepts it. Put in place with SetPowerControl(&recorder).
#pragma once

#include <string>
#include <vector>

#include "platform/PowerControl.h"

namespace rwz::test {

class RecordingPowerControl : public IPowerControl {
  public:
    BOOL EndSession(UINT flags) override {
        calls.push_back("ExitWindowsEx " + std::to_string(flags));
        return TRUE;
    }
    BOOL SetPowerState(BOOL suspend, BOOL force) override {
        calls.push_back("SetSystemPowerState " + std::to_string(suspend) + " " +
                        std::to_string(force));
        return TRUE;
    }
    void EnableShutdownPrivilege() override { calls.push_back("privilege"); }

    std::vector<std::string> calls;
};

}  // namespace rwz::test
