// The network record: one adapter's TCP/IP settings plus the machine-wide
// network and printer settings, as a back end captures them, a profile
// overlays them and the General tab edits them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace rwz {

struct NetRecord {
    // A setting was changed that only takes effect after a restart.
    bool ResetRequired = false;
    // Lists of addresses: IPAddress and IPMask in the back end's own separator
    // (NUL on 2000/XP/2003), the others with ",".
    std::string DefaultGateway;
    // True until a profile says otherwise: a profile without the key sets the
    // default printer.
    bool EnableDefaultPrinter = true;
    std::string DefaultPrinter;
    bool EnableAdvPrinterSettings = false;
    std::string PrinterPort;
    std::string PrinterCaptureDev;
    std::string PrinterCapturePath;
    bool PrinterCaptureReconnect = false;
    std::vector<std::string> printerList;
    bool NTLogonEnabled = false;
    std::string NTDomain;
    std::string NTDomainUserName;
    std::string NTDomainPassword;
    std::string DomainName;
    std::string Host;
    std::string LMHostFile;
    std::string DNSServers;
    std::string WINSServer1;
    std::string WINSServer2;
    std::string ScopeID;
    std::string SearchList;
    bool DNSEnabled = false;
    bool DHCPEnabled = false;
    std::string ComputerName;
    std::string ComputerDescription;
    std::string Workgroup;
    bool WINSEnabled = false;
    std::string IPAddress;
    std::string IPMask;
    // Display names of the installed adapters, indexed from 0.
    std::vector<std::string> AdapterList;
    // Index into AdapterList of the adapter the record describes; -1 for none.
    int16_t CurrentAdapter = -1;
    bool DisablePWDCache = false;
    bool QuickLogon = false;
};

// A text or a switch of the record, as callers name it in an assignment.
using NetText = std::string NetRecord::*;
using NetFlag = bool NetRecord::*;

// The settings that carry a changed flag, named after the operations that
// write them. The four advanced printer values share AdvPrinterSettings;
// PrinterList is only ever read.
enum class NetSetting : int {
    ComputerName,
    ComputerDescription,
    Workgroup,
    NTLogon,
    NTDomain,
    Domain,
    Host,
    IPAddress,
    IPMask,
    LMHostFile,
    DNSServers,
    WINSEnabled,
    WINSServer1,
    WINSServer2,
    ScopeID,
    SearchList,
    DNSEnabled,
    DHCPEnabled,
    DefaultPrinter,
    DefaultGateway,
    DisablePWDCache,
    QuickLogon,
    AdvPrinterSettings,
    PrinterList,
    Count
};

}  // namespace rwz
