#include "network/TestNetConfig.h"

#include "platform/modRegistry.h"

namespace rwz::test {

namespace {

using R = NetRecord;
using S = NetSetting;
using K = ValueKind;

const std::string kAdapters = std::string(kTestNetKey) + "\\Adapters\\";

RegistryPlace Machine(const char* astrName) {
    return {kTestNetKey, astrName, kRegString, false};
}
RegistryPlace Adapter(const char* astrName, int aintType = kRegString) {
    static const std::string key = kAdapters;
    return {key.c_str(), astrName, aintType, true};
}

NetConfigParticulars TestParticulars() {
    NetConfigParticulars particulars;
    particulars.ClassName = "TestNetConfig";
    particulars.DomainAccount = true;
    particulars.NulSeparatedAddresses = true;
    particulars.Rows = {
        TextRow("ComputerName", S::ComputerName, &R::ComputerName, K::Text, Machine("Computer")),
        TextRow("ComputerDescription", S::ComputerDescription, &R::ComputerDescription, K::Text,
                Machine("Description")),
        FlagRow("NTLogon", S::NTLogon, &R::NTLogonEnabled, Machine("NTLogon")),
        TextRow("NTDomain", S::NTDomain, &R::NTDomain, K::Text, Machine("NTDomain")),
        TextRow("Workgroup", S::Workgroup, &R::Workgroup, K::Text, Machine("Workgroup")),
        TextRow("Domain", S::Domain, &R::DomainName, K::Text, Machine("Domain")),
        TextRow("Host", S::Host, &R::Host, K::Text, Machine("Host")),
        FlagRow("DHCPEnabled", S::DHCPEnabled, &R::DHCPEnabled, Adapter("DHCP", kRegDword)),
        TextRow("DefaultGateway", S::DefaultGateway, &R::DefaultGateway, K::List,
                Adapter("Gateway")),
        TextRow("IPAddress", S::IPAddress, &R::IPAddress, K::AddressList,
                Adapter("IPAddress", kRegMultiString)),
        TextRow("IPMask", S::IPMask, &R::IPMask, K::AddressList,
                Adapter("IPMask", kRegMultiString)),
        TextRow("LMHostFile", S::LMHostFile, &R::LMHostFile, K::Text, Machine("LMHostFile")),
        TextRow("DNSServers", S::DNSServers, &R::DNSServers, K::Text, Adapter("DNS")),
        FlagRow("WINSEnabled", S::WINSEnabled, &R::WINSEnabled, Machine("WINS")),
        TextRow("WINSServer1", S::WINSServer1, &R::WINSServer1, K::Text, Adapter("WINS1")),
        TextRow("WINSServer2", S::WINSServer2, &R::WINSServer2, K::Text, Adapter("WINS2")),
        TextRow("ScopeID", S::ScopeID, &R::ScopeID, K::Text, Machine("ScopeID")),
        TextRow("SearchList", S::SearchList, &R::SearchList, K::Text, Machine("SearchList")),
        FlagRow("DNSEnabled", S::DNSEnabled, &R::DNSEnabled, Machine("DNSEnabled")),
        TextRow("DefaultPrinter", S::DefaultPrinter, &R::DefaultPrinter, K::Text,
                Machine("DefaultPrinter")),
        Applied(TextRow("PrinterList", S::PrinterList, nullptr, K::Text, {},
                        Op(&TestNetConfig::ReadPrinters)),
                NetApply::Never),
        TextRow("AdvPrinterSettings", S::AdvPrinterSettings, &R::PrinterPort, K::Text,
                Machine("PrinterPort")),
    };
    return particulars;
}

}  // namespace

TestNetConfig::TestNetConfig() : clsNetConfigBase(TestParticulars()) {}

void TestNetConfig::Clear() {
    reg::DeleteKey("\\HKEY_CURRENT_USER\\Software", "Roamwise Tests");
}

void TestNetConfig::Put(const std::string& astrName, const std::string& astrValue,
                        const std::string& astrAdapter) {
    const std::string key =
        astrAdapter.empty() ? std::string(kTestNetKey) : kAdapters + astrAdapter;
    if (astrValue.find('\0') == std::string::npos) {
        reg::Write(key, astrName, kRegString, astrValue);
        return;
    }
    reg::Write(key, astrName, kRegMultiString, MultiStringBytes(ListEntries(astrValue)));
}

void TestNetConfig::OnAssigned(NetSetting aSetting) {
    if (aSetting == S::WINSEnabled) {
        MarkChanged(S::WINSServer1);
        MarkChanged(S::WINSServer2);
        MarkChanged(S::ScopeID);
        mRecord.ResetRequired = true;
    } else if (aSetting == S::DHCPEnabled) {
        mRecord.ResetRequired = true;
    }
}

void TestNetConfig::EnumerateAdapters(std::vector<std::string>& astrNames,
                                      std::vector<std::string>& astrKeys) {
    for (const auto& [name, key] : Adapters) {
        astrNames.push_back(name);
        astrKeys.push_back(key);
    }
}

void TestNetConfig::ReadPrinters() {
    mRecord.printerList = Printers;
}

}  // namespace rwz::test
