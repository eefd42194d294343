// The network side of a configuration profile, as the rest of the program sees
// it: one adapter's TCP/IP settings, the computer's names, workgroup or domain
// membership, the network logon, the default printer and the printer capture.
// One implementation per family of systems; callers hold an INetConfig and
// never the concrete class.
//
// Properties: the getter has the property's name, the setter "Set" + name. The
// operations that read one setting from the machine are Get + setting, those
// that write it Set + setting with no argument. Where a property setter and a
// write operation share a name (SetIPAddress(x) stores and flags the value,
// SetIPAddress() writes it to the machine) they are told apart by the argument.
#pragma once

// The system headers are included here, once, so that the macros below can be
// removed for every file that sees this interface: GetComputerName,
// SetComputerName, GetDefaultPrinter and SetDefaultPrinter would otherwise be
// renamed to their ...A forms in some files and not in others.
#include <windows.h>
#include <winspool.h>

#undef GetComputerName
#undef SetComputerName
#undef GetDefaultPrinter
#undef SetDefaultPrinter

#include <cstdint>
#include <string>
#include <vector>

namespace rwz {

class INetConfig {
  public:
    virtual ~INetConfig() = default;

    // A setting was changed that only takes effect after a restart.
    virtual bool ResetRequired() const = 0;
    virtual std::string DefaultGateway() const = 0;
    virtual void SetDefaultGateway(const std::string& astrValue) = 0;
    virtual bool EnableDefaultPrinter() const = 0;
    virtual void SetEnableDefaultPrinter(bool ablnValue) = 0;
    virtual std::string DefaultPrinter() const = 0;
    virtual void SetDefaultPrinter(const std::string& astrValue) = 0;
    virtual bool EnableAdvPrinterSettings() const = 0;
    virtual void SetEnableAdvPrinterSettings(bool ablnValue) = 0;
    virtual std::string PrinterPort() const = 0;
    virtual void SetPrinterPort(const std::string& astrValue) = 0;
    virtual std::string PrinterCaptureDev() const = 0;
    virtual void SetPrinterCaptureDev(const std::string& astrValue) = 0;
    virtual std::string PrinterCapturePath() const = 0;
    virtual void SetPrinterCapturePath(const std::string& astrValue) = 0;
    virtual bool PrinterCaptureReconnect() const = 0;
    virtual void SetPrinterCaptureReconnect(bool ablnValue) = 0;
    virtual std::vector<std::string> printerList() const = 0;
    virtual bool NTLogonEnabled() const = 0;
    virtual void SetNTLogonEnabled(bool ablnValue) = 0;
    virtual std::string NTDomain() const = 0;
    virtual void SetNTDomain(const std::string& astrValue) = 0;
    virtual std::string NTDomainUserName() const = 0;
    virtual void SetNTDomainUserName(const std::string& astrValue) = 0;
    virtual std::string NTDomainPassword() const = 0;
    virtual void SetNTDomainPassword(const std::string& astrValue) = 0;
    virtual std::string DomainName() const = 0;
    virtual void SetDomainName(const std::string& astrValue) = 0;
    virtual std::string Host() const = 0;
    virtual void SetHost(const std::string& astrValue) = 0;
    virtual std::string LMHostFile() const = 0;
    virtual void SetLMHostFile(const std::string& astrValue) = 0;
    virtual std::string DNSServers() const = 0;
    virtual void SetDNSServers(const std::string& astrValue) = 0;
    virtual std::string WINSServer1() const = 0;
    virtual void SetWINSServer1(const std::string& astrValue) = 0;
    virtual std::string WINSServer2() const = 0;
    virtual void SetWINSServer2(const std::string& astrValue) = 0;
    virtual std::string ScopeID() const = 0;
    virtual void SetScopeID(const std::string& astrValue) = 0;
    virtual std::string SearchList() const = 0;
    virtual void SetSearchList(const std::string& astrValue) = 0;
    virtual bool DNSEnabled() const = 0;
    virtual void SetDNSEnabled(bool ablnValue) = 0;
    virtual bool DHCPEnabled() const = 0;
    virtual void SetDHCPEnabled(bool ablnValue) = 0;
    virtual std::string ComputerName() const = 0;
    virtual void SetComputerName(const std::string& astrValue) = 0;
    virtual std::string ComputerDescription() const = 0;
    virtual void SetComputerDescription(const std::string& astrValue) = 0;
    virtual std::string Workgroup() const = 0;
    virtual void SetWorkgroup(const std::string& astrValue) = 0;
    virtual bool WINSEnabled() const = 0;
    virtual void SetWINSEnabled(bool ablnValue) = 0;
    // Address and mask lists; the separator in memory is the back end's own.
    virtual std::string IPAddress() const = 0;
    virtual void SetIPAddress(const std::string& astrValue) = 0;
    virtual std::string IPMask() const = 0;
    virtual void SetIPMask(const std::string& astrValue) = 0;
    // Display names of the installed adapters, indexed from 0.
    virtual std::vector<std::string> AdapterList() const = 0;
    // Index into AdapterList of the adapter the record describes; -1 for none.
    // Setting it re-reads that adapter's settings; ...NoRefresh only stores it.
    virtual int16_t CurrentAdapter() const = 0;
    virtual void SetCurrentAdapter(int16_t aintIndex) = 0;
    virtual void SetCurrentAdapterNoRefresh(int16_t aintIndex) = 0;
    virtual bool DisablePWDCache() const = 0;
    virtual void SetDisablePWDCache(bool ablnValue) = 0;
    virtual bool QuickLogon() const = 0;
    virtual void SetQuickLogon(bool ablnValue) = 0;

    // Captures the machine's current settings; no setting is flagged afterwards.
    virtual void LoadConfiguration() = 0;
    // Writes every flagged setting to the machine, then clears the flags.
    virtual void ApplyConfiguration() = 0;
    // Overlays the record from the [Network] and [Printer] sections of a profile.
    virtual void LoadConfigurationFile(const std::string& astrFile) = 0;
    // Writes the record to those sections.
    virtual void SaveConfigurationfile(const std::string& astrFile) = 0;
    // Clears every changed flag and ResetRequired.
    virtual void ResetFlags() = 0;

    // Each reads one setting from the machine into the record, unflagged.
    virtual void GetAdapterList() = 0;
    virtual void GetComputerName() = 0;
    virtual void GetComputerDescription() = 0;
    virtual void GetWorkgroup() = 0;
    virtual void GetDomain() = 0;
    virtual void GetHost() = 0;
    virtual void GetIPAddress() = 0;
    virtual void GetIPMask() = 0;
    virtual void GetLMHostFile() = 0;
    virtual void GetDNSServers() = 0;
    virtual void GetWINSEnabled() = 0;
    virtual void GetWINSServer1() = 0;
    virtual void GetWINSServer2() = 0;
    virtual void GetScopeID() = 0;
    virtual void GetSearchList() = 0;
    virtual void GetDNSEnabled() = 0;
    virtual void GetDHCPEnabled() = 0;
    virtual void GetNTLogon() = 0;
    virtual void GetNTDomain() = 0;
    virtual void GetDisablePWDCache() = 0;
    virtual void GetDefaultPrinter() = 0;
    virtual void GetPrinterList() = 0;
    virtual void GetDefaultGateway() = 0;
    virtual void GetAdvPrinterSettings() = 0;
    virtual void GetQuickLogon() = 0;

    // Each writes one setting of the record to the machine.
    virtual void SetQuickLogon() = 0;
    virtual void SetDisablePWDCache() = 0;
    virtual void SetComputerName() = 0;
    virtual void SetComputerDescription() = 0;
    virtual void SetWorkgroup() = 0;
    virtual void SetDomain() = 0;
    virtual void SetHost() = 0;
    virtual void SetIPAddress() = 0;
    virtual void SetIPMask() = 0;
    virtual void SetLMHostFile() = 0;
    virtual void SetDNSServers() = 0;
    virtual void SetWINSEnabled() = 0;
    virtual void SetWINSServer1() = 0;
    virtual void SetWINSServer2() = 0;
    virtual void SetScopeID() = 0;
    virtual void SetSearchList() = 0;
    virtual void SetDNSEnabled() = 0;
    virtual void SetDHCPEnabled() = 0;
    virtual void SetNTLogon() = 0;
    virtual void SetNTDomain() = 0;
    virtual void SetDefaultPrinter() = 0;
    virtual void SetDefaultGateway() = 0;
    virtual void SetAdvPrinterSettings() = 0;
};

}  // namespace rwz
