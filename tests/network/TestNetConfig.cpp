#include "network/TestNetConfig.h"

#include <algorithm>

#include "platform/modUtilities.h"

namespace rwz::test {

using S = NetSetting;

NetConfigParticulars Particulars2K() {
    NetConfigParticulars p;
    p.ClassName = "clsNetConfig2K";
    p.DomainAccount = true;
    p.NulSeparatedAddresses = true;
    p.ApplyOrder = {S::ComputerName,   S::ComputerDescription,
                    S::NTLogon,        S::NTDomain,
                    S::Workgroup,      S::Domain,
                    S::Host,           S::DHCPEnabled,
                    S::DefaultGateway, S::IPAddress,
                    S::IPMask,         S::LMHostFile,
                    S::DNSServers,     S::WINSEnabled,
                    S::WINSServer1,    S::WINSServer2,
                    S::ScopeID,        S::SearchList,
                    S::DNSEnabled,     S::DefaultPrinter};
    return p;
}

NetConfigParticulars ParticularsNT() {
    NetConfigParticulars p;
    p.ClassName = "clsNetConfigNT";
    p.ApplyOrder = {S::ComputerName,   S::ComputerDescription, S::Domain,
                    S::Host,           S::IPAddress,           S::IPMask,
                    S::LMHostFile,     S::DNSServers,          S::WINSEnabled,
                    S::WINSServer1,    S::WINSServer2,         S::ScopeID,
                    S::SearchList,     S::DNSEnabled,          S::DHCPEnabled,
                    S::DefaultPrinter, S::DefaultGateway};
    return p;
}

NetConfigParticulars Particulars9x() {
    NetConfigParticulars p;
    p.ClassName = "clsNetConfig9x";
    p.LogonOptions = true;
    p.ApplyOrder = {S::ComputerName,
                    S::ComputerDescription,
                    S::Workgroup,
                    S::Domain,
                    S::Host,
                    S::IPAddress,
                    S::IPMask,
                    S::LMHostFile,
                    S::DNSServers,
                    S::WINSEnabled,
                    S::WINSServer1,
                    S::WINSServer2,
                    S::ScopeID,
                    S::SearchList,
                    S::DNSEnabled,
                    S::DHCPEnabled,
                    S::NTLogon,
                    S::NTDomain,
                    S::DefaultPrinter,
                    S::DefaultGateway,
                    S::DisablePWDCache,
                    S::QuickLogon};
    return p;
}

std::vector<std::string> TestNetConfig::CallsStartingWith(const std::string& prefix) const {
    std::vector<std::string> result;
    std::copy_if(Calls.begin(), Calls.end(), std::back_inserter(result),
                 [&](const std::string& call) { return call.rfind(prefix, 0) == 0; });
    return result;
}

void TestNetConfig::ResetFlags() {
    Calls.push_back("ResetFlags");
    clsNetConfigBase::ResetFlags();
}

const FakeAdapter* TestNetConfig::Current() const {
    const std::string key = CurrentAdapterKey();
    for (const FakeAdapter& adapter : Machine.Adapters) {
        if (!key.empty() && adapter.Key == key) return &adapter;
    }
    return nullptr;
}

void TestNetConfig::EnumerateAdapters(std::vector<std::string>& astrNames,
                                      std::vector<std::string>& astrKeys) {
    Calls.push_back("EnumerateAdapters");
    for (const FakeAdapter& adapter : Machine.Adapters) {
        astrNames.push_back(adapter.Name);
        astrKeys.push_back(adapter.Key);
    }
}

std::string TestNetConfig::EvaluateProfileValue(const std::string& astrValue) const {
    if (ConditionTag.empty()) return clsNetConfigBase::EvaluateProfileValue(astrValue);
    return EvaluateConditionFor(astrValue, ConditionTag, false, ConditionTag != "9x");
}

void TestNetConfig::OnAssigned(NetSetting aSetting) {
    if (!mblnLike2K) return;
    if (aSetting == S::WINSEnabled) {
        MarkChanged(S::WINSServer1);
        MarkChanged(S::WINSServer2);
        MarkChanged(S::ScopeID);
        mblnResetRequired = true;
    } else if (aSetting == S::DHCPEnabled) {
        mblnResetRequired = true;
    }
}

// The Get operations copy from the machine; per-adapter values come from the
// adapter at CurrentAdapter, or are empty without one.

void TestNetConfig::GetComputerName() {
    Calls.push_back("GetComputerName");
    mstrComputerName = Machine.ComputerName;
}
void TestNetConfig::GetComputerDescription() {
    Calls.push_back("GetComputerDescription");
    mstrComputerDescription = Machine.ComputerDescription;
}
void TestNetConfig::GetWorkgroup() {
    Calls.push_back("GetWorkgroup");
    mstrWorkgroup = Machine.Workgroup;
}
void TestNetConfig::GetDomain() {
    Calls.push_back("GetDomain");
    mstrDomainName = Machine.Domain;
}
void TestNetConfig::GetHost() {
    Calls.push_back("GetHost");
    mstrHost = Machine.Host;
}
void TestNetConfig::GetIPAddress() {
    Calls.push_back("GetIPAddress");
    mstrIPAddress = Current() ? Current()->IPAddress : "";
}
void TestNetConfig::GetIPMask() {
    Calls.push_back("GetIPMask");
    mstrIPMask = Current() ? Current()->IPMask : "";
}
void TestNetConfig::GetLMHostFile() {
    Calls.push_back("GetLMHostFile");
    mstrLMHostFile = Machine.LMHostFile;
}
void TestNetConfig::GetDNSServers() {
    Calls.push_back("GetDNSServers");
    mstrDNSServers = Current() ? Current()->DNSServers : "";
}
void TestNetConfig::GetWINSEnabled() {
    Calls.push_back("GetWINSEnabled");
    mblnWINSEnabled = !mstrWINSServer1.empty() || !mstrWINSServer2.empty();
}
void TestNetConfig::GetWINSServer1() {
    Calls.push_back("GetWINSServer1");
    mstrWINSServer1 = Current() ? Current()->WINSServer1 : "";
}
void TestNetConfig::GetWINSServer2() {
    Calls.push_back("GetWINSServer2");
    mstrWINSServer2 = Current() ? Current()->WINSServer2 : "";
}
void TestNetConfig::GetScopeID() {
    Calls.push_back("GetScopeID");
    mstrScopeID = Machine.ScopeID;
}
void TestNetConfig::GetSearchList() {
    Calls.push_back("GetSearchList");
    mstrSearchList = Machine.SearchList;
}
void TestNetConfig::GetDNSEnabled() {
    Calls.push_back("GetDNSEnabled");
    mblnDNSEnabled = Current() && !Current()->DNSServers.empty();
}
void TestNetConfig::GetDHCPEnabled() {
    Calls.push_back("GetDHCPEnabled");
    mblnDHCPEnabled = Current() && Current()->DHCPEnabled;
}
void TestNetConfig::GetNTLogon() {
    Calls.push_back("GetNTLogon");
    mblnNTLogonEnabled = Machine.NTLogon;
}
void TestNetConfig::GetNTDomain() {
    Calls.push_back("GetNTDomain");
    mstrNTDomain = Machine.NTDomain;
}
void TestNetConfig::GetDisablePWDCache() {
    Calls.push_back("GetDisablePWDCache");
    mblnDisablePWDCache = Machine.DisablePWDCache;
}
void TestNetConfig::GetDefaultPrinter() {
    Calls.push_back("GetDefaultPrinter");
    mstrDefaultPrinter = Machine.DefaultPrinter;
}
void TestNetConfig::GetPrinterList() {
    Calls.push_back("GetPrinterList");
    mastrPrinterList = Machine.Printers;
}
void TestNetConfig::GetDefaultGateway() {
    Calls.push_back("GetDefaultGateway");
    mstrDefaultGateway = Current() ? Current()->DefaultGateway : "";
}
void TestNetConfig::GetAdvPrinterSettings() {
    Calls.push_back("GetAdvPrinterSettings");
    mstrPrinterPort = Machine.PrinterPort;
}
void TestNetConfig::GetQuickLogon() {
    Calls.push_back("GetQuickLogon");
    mblnQuickLogon = Machine.QuickLogon;
}

}  // namespace rwz::test
