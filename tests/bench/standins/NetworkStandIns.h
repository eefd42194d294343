// The networking services of a program under test, stood in for: the DLLs
// netapi32.dll, dhcpcsvc.dll and mpr.dll built from tests/bench/standins are
// copied beside the program, and Wine is told to load them for it instead of
// its own (Wine's netapi32 lacks NetJoinDomain and NetUnjoinDomain and ends the
// process in NetServerSetInfo; its dhcpcsvc does so in DhcpNotifyConfigChange;
// its mpr has no network to capture a printer port to).
// They answer as scripted and record every call.
//
//   bench::Machine machine("xp-laptop");
//   bench::NetworkStandIns network;                 // beside the installed Rwz.exe
//   network.Like(machine).Answer("NetJoinDomain", "1355");
//   bench::RunRwz("/hidden /load C:\\office.rwz /apply", {...});
//   for (const bench::StandInCall& call : network.Calls("DhcpNotifyConfigChange"))
//       ... call["index"], call["address"], call["mask"] ...
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "bench/Bench.h"

namespace bench {

// One call a stand-in recorded: the function and its fields (arguments and
// "result"), "(null)" standing for a null pointer.
struct StandInCall {
    std::string function;
    std::vector<std::pair<std::string, std::string>> fields;

    // The value of a field; "" when the call has no such field.
    std::string operator[](const std::string& name) const;
    // "NetJoinDomain(domain=NORTHWIND, ...)", for failure messages.
    std::string Describe() const;
};

class NetworkStandIns {
  public:
    // Puts the stand-ins beside `program` (a Windows path; its folder is made
    // when missing) and has Wine prefer them for every program of that file
    // name. The script starts empty: every function answers 0, and
    // NetGetJoinInformation the workgroup "WORKGROUP".
    explicit NetworkStandIns(const std::string& program = InstalledRwz());

    // Takes the script of a machine's network-services.ini, when it has one.
    NetworkStandIns& Like(const Machine& machine);
    // The results of a function: one code ("1355"), or a list for successive
    // calls ("2691,0"; the last one repeats).
    NetworkStandIns& Answer(const std::string& function, const std::string& results);
    // What NetGetJoinInformation reports: 2 = a workgroup, 3 = a domain.
    NetworkStandIns& JoinInformation(const std::string& name, unsigned status);

    // Every call recorded so far, in order; or those of one function.
    std::vector<StandInCall> Calls() const;
    std::vector<StandInCall> Calls(const std::string& function) const;

    const std::string& Folder() const { return mFolder; }
    std::string ScriptFile() const { return mFolder + "\\NetworkStandIns.ini"; }
    std::string RecordFile() const { return mFolder + "\\NetworkCalls.txt"; }

  private:
    void Set(const std::string& section, const std::string& key, const std::string& value);

    std::string mFolder;
};

// Where the build puts the stand-ins.
std::string StandInsDir();

}  // namespace bench
