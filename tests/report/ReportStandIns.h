// Back ends whose records the report tests fill by hand: the shared network
// and browser bases with every machine operation doing nothing.
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
    using clsNetConfigBase::mastrAdapterList;
    using clsNetConfigBase::mastrPrinterList;
    using clsNetConfigBase::mblnDHCPEnabled;
    using clsNetConfigBase::mblnDNSEnabled;
    using clsNetConfigBase::mblnNTLogonEnabled;
    using clsNetConfigBase::mblnWINSEnabled;
    using clsNetConfigBase::mintCurrentAdapter;
    using clsNetConfigBase::mstrComputerDescription;
    using clsNetConfigBase::mstrComputerName;
    using clsNetConfigBase::mstrDefaultGateway;
    using clsNetConfigBase::mstrDefaultPrinter;
    using clsNetConfigBase::mstrDNSServers;
    using clsNetConfigBase::mstrDomainName;
    using clsNetConfigBase::mstrHost;
    using clsNetConfigBase::mstrIPAddress;
    using clsNetConfigBase::mstrIPMask;
    using clsNetConfigBase::mstrNTDomain;
    using clsNetConfigBase::mstrScopeID;
    using clsNetConfigBase::mstrSearchList;
    using clsNetConfigBase::mstrWINSServer1;
    using clsNetConfigBase::mstrWINSServer2;
    using clsNetConfigBase::mstrWorkgroup;

#define RWZ_NOTHING(name) \
    void name() override {}
    RWZ_NOTHING(GetComputerName)
    RWZ_NOTHING(GetComputerDescription)
    RWZ_NOTHING(GetWorkgroup)
    RWZ_NOTHING(GetDomain)
    RWZ_NOTHING(GetHost)
    RWZ_NOTHING(GetIPAddress)
    RWZ_NOTHING(GetIPMask)
    RWZ_NOTHING(GetLMHostFile)
    RWZ_NOTHING(GetDNSServers)
    RWZ_NOTHING(GetWINSEnabled)
    RWZ_NOTHING(GetWINSServer1)
    RWZ_NOTHING(GetWINSServer2)
    RWZ_NOTHING(GetScopeID)
    RWZ_NOTHING(GetSearchList)
    RWZ_NOTHING(GetDNSEnabled)
    RWZ_NOTHING(GetDHCPEnabled)
    RWZ_NOTHING(GetNTLogon)
    RWZ_NOTHING(GetNTDomain)
    RWZ_NOTHING(GetDefaultPrinter)
    RWZ_NOTHING(GetPrinterList)
    RWZ_NOTHING(GetDefaultGateway)
    RWZ_NOTHING(GetAdvPrinterSettings)
    RWZ_NOTHING(SetComputerName)
    RWZ_NOTHING(SetComputerDescription)
    RWZ_NOTHING(SetWorkgroup)
    RWZ_NOTHING(SetDomain)
    RWZ_NOTHING(SetHost)
    RWZ_NOTHING(SetIPAddress)
    RWZ_NOTHING(SetIPMask)
    RWZ_NOTHING(SetLMHostFile)
    RWZ_NOTHING(SetDNSServers)
    RWZ_NOTHING(SetWINSEnabled)
    RWZ_NOTHING(SetWINSServer1)
    RWZ_NOTHING(SetWINSServer2)
    RWZ_NOTHING(SetScopeID)
    RWZ_NOTHING(SetSearchList)
    RWZ_NOTHING(SetDNSEnabled)
    RWZ_NOTHING(SetDHCPEnabled)
    RWZ_NOTHING(SetNTLogon)
    RWZ_NOTHING(SetNTDomain)
    RWZ_NOTHING(SetDefaultPrinter)
    RWZ_NOTHING(SetDefaultGateway)
    RWZ_NOTHING(SetAdvPrinterSettings)
#undef RWZ_NOTHING

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
