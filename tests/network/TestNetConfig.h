// A network back end for tests: the "machine" is a plain structure, and every
// Get and Set operation is recorded by name, in the order it was called, so
// that the shared walks (capture, adapter refresh, apply) can be checked.
#pragma once

#include <string>
#include <vector>

#include "network/clsNetConfigBase.h"

namespace rwz::test {

struct FakeAdapter {
    std::string Name;
    std::string Key;
    std::string IPAddress;
    std::string IPMask;
    std::string DefaultGateway;
    std::string DNSServers;
    std::string WINSServer1;
    std::string WINSServer2;
    bool DHCPEnabled = false;
};

struct FakeMachine {
    std::vector<FakeAdapter> Adapters;
    std::string ComputerName = "MACHINE";
    std::string ComputerDescription = "machine description";
    std::string Workgroup = "MACHINEWG";
    std::string Domain = "machine.lan";
    std::string Host = "machinehost";
    std::string LMHostFile = "C:\\lmhosts";
    std::string ScopeID = "machinescope";
    std::string SearchList = "machine.lan";
    bool NTLogon = false;
    std::string NTDomain = "MACHINEDOM";
    std::vector<std::string> Printers = {"Machine Printer"};
    std::string DefaultPrinter = "Machine Printer";
    std::string PrinterPort = "LPT2:";
    bool DisablePWDCache = true;
    bool QuickLogon = true;
};

// The particulars of the three families, as their back ends declare them.
NetConfigParticulars Particulars2K();
NetConfigParticulars ParticularsNT();
NetConfigParticulars Particulars9x();

class TestNetConfig : public clsNetConfigBase {
  public:
    explicit TestNetConfig(NetConfigParticulars aParticulars = Particulars2K())
        : clsNetConfigBase(std::move(aParticulars)),
          mblnLike2K(std::string(ClassName()) == "clsNetConfig2K") {}

    FakeMachine Machine;
    std::vector<std::string> Calls;
    // When set, conditional values resolve for this system tag instead of the
    // running one.
    std::string ConditionTag;

    // Only the calls whose names begin with `prefix` ("Set", "Get").
    std::vector<std::string> CallsStartingWith(const std::string& prefix) const;

    void ResetFlags() override;

    void GetComputerName() override;
    void GetComputerDescription() override;
    void GetWorkgroup() override;
    void GetDomain() override;
    void GetHost() override;
    void GetIPAddress() override;
    void GetIPMask() override;
    void GetLMHostFile() override;
    void GetDNSServers() override;
    void GetWINSEnabled() override;
    void GetWINSServer1() override;
    void GetWINSServer2() override;
    void GetScopeID() override;
    void GetSearchList() override;
    void GetDNSEnabled() override;
    void GetDHCPEnabled() override;
    void GetNTLogon() override;
    void GetNTDomain() override;
    void GetDisablePWDCache() override;
    void GetDefaultPrinter() override;
    void GetPrinterList() override;
    void GetDefaultGateway() override;
    void GetAdvPrinterSettings() override;
    void GetQuickLogon() override;

    void SetQuickLogon() override { Calls.push_back("SetQuickLogon"); }
    void SetDisablePWDCache() override { Calls.push_back("SetDisablePWDCache"); }
    void SetComputerName() override { Calls.push_back("SetComputerName"); }
    void SetComputerDescription() override { Calls.push_back("SetComputerDescription"); }
    void SetWorkgroup() override { Calls.push_back("SetWorkgroup"); }
    void SetDomain() override { Calls.push_back("SetDomain"); }
    void SetHost() override { Calls.push_back("SetHost"); }
    void SetIPAddress() override { Calls.push_back("SetIPAddress"); }
    void SetIPMask() override { Calls.push_back("SetIPMask"); }
    void SetLMHostFile() override { Calls.push_back("SetLMHostFile"); }
    void SetDNSServers() override { Calls.push_back("SetDNSServers"); }
    void SetWINSEnabled() override { Calls.push_back("SetWINSEnabled"); }
    void SetWINSServer1() override { Calls.push_back("SetWINSServer1"); }
    void SetWINSServer2() override { Calls.push_back("SetWINSServer2"); }
    void SetScopeID() override { Calls.push_back("SetScopeID"); }
    void SetSearchList() override { Calls.push_back("SetSearchList"); }
    void SetDNSEnabled() override { Calls.push_back("SetDNSEnabled"); }
    void SetDHCPEnabled() override { Calls.push_back("SetDHCPEnabled"); }
    void SetNTLogon() override { Calls.push_back("SetNTLogon"); }
    void SetNTDomain() override { Calls.push_back("SetNTDomain"); }
    void SetDefaultPrinter() override { Calls.push_back("SetDefaultPrinter"); }
    void SetDefaultGateway() override { Calls.push_back("SetDefaultGateway"); }
    void SetAdvPrinterSettings() override { Calls.push_back("SetAdvPrinterSettings"); }

  protected:
    // As the Windows 2000/XP/2003 back end (the others add nothing): the WINS
    // switch carries the servers and the scope with it; WINS and DHCP changes
    // need a restart.
    void OnAssigned(NetSetting aSetting) override;
    void EnumerateAdapters(std::vector<std::string>& astrNames,
                           std::vector<std::string>& astrKeys) override;
    std::string EvaluateProfileValue(const std::string& astrValue) const override;

  private:
    const FakeAdapter* Current() const;
    bool mblnLike2K;
};

}  // namespace rwz::test
