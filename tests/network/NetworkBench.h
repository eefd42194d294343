// What the tests of the Windows 2000/XP/2003 network classes share: a
// simulated machine loaded into the running prefix (after the network places a
// previous machine left behind are cleared). The networking services are the
// stand-ins run-tests.sh puts beside the test program (bench/standins).
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "bench/Bench.h"
#include "bench/standins/NetworkStandIns.h"
#include "support/RawRegistry.h"

namespace rwz::test {

// Removes what a machine's network, names and printers files put into the
// registry, and the program's own settings, so that the next machine starts
// from a clean prefix.
void ClearNetworkRegistry();
// ClearNetworkRegistry, then the machine's folder loaded into the prefix.
bench::Machine LoadMachine(const std::string& astrName);

// A message box text as the watcher reads it: the texts joined by blank lines.
std::string BoxText(const std::vector<std::string>& astrTexts);

}  // namespace rwz::test
