// The printers installed in the test's prefix, read with the raw spooler API.
// Listing them loads the spooler into the process, which reads the CUPS queues
// once; programs the process starts then see the printer list as it stands.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace rwz::test {

inline std::vector<std::string> InstalledPrinters() {
    std::vector<std::string> names;
    std::vector<BYTE> buffer(65536);
    DWORD needed = 0, count = 0;
    if (!EnumPrintersA(PRINTER_ENUM_LOCAL, nullptr, 2, buffer.data(), 65536, &needed, &count))
        return names;
    const auto* printers = reinterpret_cast<const PRINTER_INFO_2A*>(buffer.data());
    for (DWORD i = 0; i < count; ++i) names.push_back(printers[i].pPrinterName);
    return names;
}

}  // namespace rwz::test
