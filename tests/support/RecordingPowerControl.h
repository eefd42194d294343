// Stands in for the machine going down: records each power call, in order,
// and accepts it. Put in place with SetPowerControl(&recorder).
#pragma once

#include <string>
#include <vector>

#include "platform/PowerControl.h"

namespace rwz::test {

class RecordingPowerControl : public IPowerControl {
  public:
    BOOL EndSession(UINT flags) override { return Note("ExitWindowsEx " + std::to_string(flags)); }
    BOOL SetPowerState(BOOL suspend, BOOL force) override {
        return Note("SetSystemPowerState " + std::to_string(suspend) + " " + std::to_string(force));
    }
    void EnableShutdownPrivilege() override { Note("privilege"); }
    BOOL Note(const std::string& call) { return calls.push_back(call), TRUE; }

    std::vector<std::string> calls;
};

}  // namespace rwz::test
