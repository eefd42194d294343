#include "network/ZvPrinter.h"

#include <vector>

#include "platform/Procedure.h"
#include "platform/Win32Handles.h"

namespace rwz {

BOOL PrinterTraits::Close(HANDLE h) {
    return h ? ClosePrinter(h) : TRUE;
}

namespace {

const char kObject[] = "ZvPrinter";

bool Refused(const Procedure& proc, const char* astrStep) {
    proc.Log(std::string(astrStep) + " failed: " + std::to_string(GetLastError()));
    return false;
}

}  // namespace

bool ZvPrinter::Update(const std::string& astrPrinter,
                       const std::function<void(PRINTER_INFO_2A&)>& aEdit) {
    Procedure proc(kObject, "Update");
    return proc.Run([&] {
        proc.LogValue(astrPrinter);
        PRINTER_DEFAULTSA access{nullptr, nullptr, PRINTER_ALL_ACCESS};
        HANDLE opened = nullptr;
        if (!OpenPrinterA(const_cast<char*>(astrPrinter.c_str()), &opened, &access))
            return Refused(proc, "OpenPrinter");
        PrinterHandle handle(opened);
        // Asked once for its size, then read into four-byte units so that
        // the record's pointers are aligned.
        DWORD needed = 0;
        std::vector<DWORD> buffer(1);
        GetPrinterA(handle.Get(), 2, reinterpret_cast<BYTE*>(buffer.data()), sizeof(DWORD),
                    &needed);
        buffer.resize(needed / sizeof(DWORD) + 3);
        if (!GetPrinterA(handle.Get(), 2, reinterpret_cast<BYTE*>(buffer.data()),
                         static_cast<DWORD>(buffer.size() * sizeof(DWORD)), &needed))
            return Refused(proc, "GetPrinter");
        auto* info = reinterpret_cast<PRINTER_INFO_2A*>(buffer.data());
        aEdit(*info);
        if (!SetPrinterA(handle.Get(), 2, reinterpret_cast<BYTE*>(info), 0))
            return Refused(proc, "SetPrinter");
        return true;
    });
}

bool ZvPrinter::SetPort(const std::string& astrPrinter, const std::string& astrPort) {
    Procedure proc(kObject, "SetPort");
    proc.LogValue(astrPort);
    // The record points into this copy until SetPrinter has taken it.
    std::string port = astrPort;
    return Update(astrPrinter, [&](PRINTER_INFO_2A& info) { info.pPortName = &port[0]; });
}

bool ZvPrinter::HasPort(const std::string& astrPort) {
    DWORD needed = 0;
    DWORD count = 0;
    EnumPortsA(nullptr, 1, nullptr, 0, &needed, &count);
    if (needed == 0) return true;
    std::vector<DWORD> buffer(needed / sizeof(DWORD) + 1);
    if (!EnumPortsA(nullptr, 1, reinterpret_cast<BYTE*>(buffer.data()),
                    static_cast<DWORD>(buffer.size() * sizeof(DWORD)), &needed, &count))
        return true;
    const auto* ports = reinterpret_cast<const PORT_INFO_1A*>(buffer.data());
    for (DWORD i = 0; i < count; ++i)
        if (ports[i].pName && lstrcmpiA(ports[i].pName, astrPort.c_str()) == 0) return true;
    return false;
}

}  // namespace rwz
