// A printer's record in the spooler (level 2: names, port, driver,
// attributes), read, changed and written back in one step. Spooler failures
// are logged and returned, never raised: a printer that cannot be changed
// simply keeps what it had.
#pragma once

#include <windows.h>
#include <winspool.h>

#include <functional>
#include <string>

namespace rwz {

class ZvPrinter {
  public:
    // Changes the printer's record as `aEdit` says; false when the spooler
    // refused (no such printer, access denied, a port it does not know).
    static bool Update(const std::string& astrPrinter,
                       const std::function<void(PRINTER_INFO_2A&)>& aEdit);
    // Gives the printer another port.
    static bool SetPort(const std::string& astrPrinter, const std::string& astrPort);
    // Whether the spooler lists the port (names compared without case); true
    // when it cannot say.
    static bool HasPort(const std::string& astrPort);
};

}  // namespace rwz
