#include "network/clsNetConfigNT.h"

#include "localization/modLocalization.h"
#include "network/NetworkServices.h"
#include "network/clsNetConfig2K.h"
#include "network/clsNICNT.h"
#include "platform/Procedure.h"

namespace rwz {

namespace {

const char kObject[] = "clsNetConfigNT";
const char kComputerNameKey[] =
    "\\HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\control\\ComputerName\\ComputerName";
const char kServerKey[] =
    "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\lanmanserver\\parameters";
const char kTcpipKey[] =
    "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters";
const char kNetBTKey[] =
    "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\NetBT\\Parameters";
// The services key; the adapter key (its driver service) follows.
const char kServicesKey[] = "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\";
const char kAdapterTcpip[] = "\\Parameters\\Tcpip";
const char kNetBTAdaptersKey[] =
    "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\NetBT\\Adapters\\";
// Where Windows 95/98/ME keep these; on NT 4 they are normally absent.
const char kMSTCPKey[] = "\\HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Services\\VxD\\MSTCP";
const char kVNETSUPKey[] =
    "\\HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Services\\VxD\\VNETSUP";
const char kProviderKey[] =
    "\\HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Services\\MSNP32\\NetworkProvider";
const char kLogonKey[] = "\\HKEY_LOCAL_MACHINE\\Network\\Logon";
// NT 4 separates the entries of its DNS lists by blanks.
const char kBlank[] = " ";

using C = clsNetConfigNT;
using R = NetRecord;
using S = NetSetting;
using K = ValueKind;

const RegistryPlace kNoPlace{};
RegistryPlace AdapterTcpip(const char* astrName, int aintType) {
    return {kServicesKey, astrName, aintType, true, kAdapterTcpip};
}
RegistryPlace Text(const char* astrKey, const char* astrName) {
    return {astrKey, astrName, kRegString};
}

}  // namespace

// The settings in the order they are applied; NTLogon, NTDomain and Workgroup
// are read but never written.
NetConfigParticulars clsNetConfigNT::Particulars() {
    NetConfigParticulars particulars;
    particulars.ClassName = kObject;
    particulars.Rows = {
        TextRow("ComputerName", S::ComputerName, &R::ComputerName, K::Text,
                Text(kComputerNameKey, "ComputerName")),
        TextRow("ComputerDescription", S::ComputerDescription, &R::ComputerDescription, K::Text,
                Text(kServerKey, "srvcomment"), nullptr, Op(&C::WriteComputerDescription)),
        TextRow("Domain", S::Domain, &R::DomainName, K::Text, Text(kTcpipKey, "Domain")),
        TextRow("Host", S::Host, &R::Host, K::Text, Text(kTcpipKey, "Hostname")),
        TextRow("IPAddress", S::IPAddress, &R::IPAddress, K::AddressList,
                AdapterTcpip("IPAddress", kRegMultiString)),
        TextRow("IPMask", S::IPMask, &R::IPMask, K::AddressList,
                AdapterTcpip("SubnetMask", kRegMultiString)),
        Applied(TextRow("LMHostFile", S::LMHostFile, &R::LMHostFile, K::Text,
                        Text(kMSTCPKey, "LMHostFile")),
                NetApply::LogValue),
        TextRow("DNSServers", S::DNSServers, &R::DNSServers, K::List,
                {kTcpipKey, "NameServer", kRegString, false, nullptr, kBlank}),
        // NT 4 has no WINS switch: WINS is used when servers are given.
        Applied(FlagRow("WINSEnabled", S::WINSEnabled, &R::WINSEnabled, kNoPlace,
                        Op(&C::ReadWINSEnabled)),
                NetApply::LogValue),
        TextRow("WINSServer1", S::WINSServer1, &R::WINSServer1, K::Text,
                {kNetBTAdaptersKey, "NameServer", kRegString, true}),
        TextRow("WINSServer2", S::WINSServer2, &R::WINSServer2, K::Text,
                {kNetBTAdaptersKey, "NameServerBackup", kRegString, true}),
        TextRow("ScopeID", S::ScopeID, &R::ScopeID, K::Text, Text(kNetBTKey, "ScopeID")),
        TextRow("SearchList", S::SearchList, &R::SearchList, K::List,
                {kTcpipKey, "SearchList", kRegString, false, nullptr, kBlank}),
        FlagRow("DNSEnabled", S::DNSEnabled, &R::DNSEnabled, {kNetBTKey, "EnableDNS", kRegDword}),
        FlagRow("DHCPEnabled", S::DHCPEnabled, &R::DHCPEnabled,
                AdapterTcpip("EnableDHCP", kRegDword)),
        TextRow("DefaultPrinter", S::DefaultPrinter, &R::DefaultPrinter, K::Text, kNoPlace,
                Op(&C::ReadDefaultPrinter), Op(&C::WriteDefaultPrinter)),
        TextRow("DefaultGateway", S::DefaultGateway, &R::DefaultGateway, K::List,
                AdapterTcpip("DefaultGateway", kRegMultiString)),
        // Membership is not changed on NT 4: these stay in the record.
        Applied(FlagRow("NTLogon", S::NTLogon, &R::NTLogonEnabled, Text(kLogonKey, "LMLogon")),
                NetApply::Never),
        Applied(TextRow("NTDomain", S::NTDomain, &R::NTDomain, K::Text,
                        Text(kProviderKey, "AuthenticatingAgent")),
                NetApply::Never),
        Applied(TextRow("Workgroup", S::Workgroup, &R::Workgroup, K::Text,
                        Text(kVNETSUPKey, "Workgroup")),
                NetApply::Never),
    };
    return particulars;
}

clsNetConfigNT::clsNetConfigNT() : clsNetConfigBase(Particulars()) {
    Procedure proc(kObject, "Initialize");
}

clsNetConfigNT::~clsNetConfigNT() {
    Procedure proc(kObject, "Terminate");
}

void clsNetConfigNT::OnAssigned(NetSetting aSetting) {
    switch (aSetting) {
        case S::ComputerDescription:  // the server service takes it at once
        case S::LMHostFile:           // never written here
        case S::Workgroup:
        case S::NTLogon:
        case S::NTDomain:
        case S::DefaultPrinter:
        case S::AdvPrinterSettings:
            break;
        default:
            mRecord.ResetRequired = true;
    }
}

void clsNetConfigNT::EnumerateAdapters(std::vector<std::string>& astrNames,
                                       std::vector<std::string>& astrKeys) {
    clsNICNT().EnumerateAdapters(astrNames, astrKeys);
}

void clsNetConfigNT::WriteComputerDescription() {
    const DWORD result = NetworkServices().NetServerSetInfo(mRecord.ComputerDescription);
    LogLine("SetComputerDescription: NetServerSetInfo RC = " + std::to_string(result));
    if (result != 0) Report(JoinMessages({MessageText(67), NetResultText(result)}));
}

// From the registry, not from the record: the capture reads WINS before the
// servers.
void clsNetConfigNT::ReadWINSEnabled() {
    mRecord.WINSEnabled = !ReadPlaceText(Row(S::WINSServer1)->Place).empty() ||
                          !ReadPlaceText(Row(S::WINSServer2)->Place).empty();
}

}  // namespace rwz
