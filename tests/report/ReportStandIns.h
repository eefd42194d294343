// Back ends whose records the report tests fill by hand: the shared network
// base with no settings of its own, and the browser base with every machine
// operation doing nothing.
#pragma once

#include <string>
#include <vector>

#include "browsers/clsBrowserBase.h"
#include "network/clsNetConfigBase.h"

namespace rwz::test {

inline NetConfigParticulars StandInParticulars() {
    NetConfigParticulars particulars;
    particulars.ClassName = "clsStandInNet";
    particulars.NulSeparatedAddresses = true;  // as the Windows 2000/XP/2003 back end
    return particulars;
}

class StandInNet : public clsNetConfigBase {
  public:
    StandInNet() : clsNetConfigBase(StandInParticulars()) {}

    // The record, open to the tests.
    std::vector<std::string>& mastrAdapterList = mRecord.AdapterList;
    std::vector<std::string>& mastrPrinterList = mRecord.printerList;
    bool& mblnDHCPEnabled = mRecord.DHCPEnabled;
    bool& mblnDNSEnabled = mRecord.DNSEnabled;
    bool& mblnNTLogonEnabled = mRecord.NTLogonEnabled;
    bool& mblnWINSEnabled = mRecord.WINSEnabled;
    int16_t& mintCurrentAdapter = mRecord.CurrentAdapter;
    std::string& mstrComputerDescription = mRecord.ComputerDescription;
    std::string& mstrComputerName = mRecord.ComputerName;
    std::string& mstrDefaultGateway = mRecord.DefaultGateway;
    std::string& mstrDefaultPrinter = mRecord.DefaultPrinter;
    std::string& mstrDNSServers = mRecord.DNSServers;
    std::string& mstrDomainName = mRecord.DomainName;
    std::string& mstrHost = mRecord.Host;
    std::string& mstrIPAddress = mRecord.IPAddress;
    std::string& mstrIPMask = mRecord.IPMask;
    std::string& mstrNTDomain = mRecord.NTDomain;
    std::string& mstrScopeID = mRecord.ScopeID;
    std::string& mstrSearchList = mRecord.SearchList;
    std::string& mstrWINSServer1 = mRecord.WINSServer1;
    std::string& mstrWINSServer2 = mRecord.WINSServer2;
    std::string& mstrWorkgroup = mRecord.Workgroup;

  protected:
    void EnumerateAdapters(std::vector<std::string>&, std::vector<std::string>&) override {}
};

class StandInBrowser : public clsBrowserBase {
  public:
    explicit StandInBrowser(BrowserSection aSection = BrowserSection::InternetExplorer)
        : clsBrowserBase(aSection, "clsStandInBrowser") {}

    void SetVersionText(const std::string& astrVersion, float asngVersion) {
        mstrVersionString = astrVersion;
        msngVersion = asngVersion;
    }

    void LoadConfiguration() override {}
    void ApplyConfiguration() override {}
};

}  // namespace rwz::test
