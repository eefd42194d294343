#include "network/clsNetConfig9x.h"

#include <windows.h>

#include "network/ZvPrinter.h"
#include "network/clsNIC9x.h"
#include "platform/Procedure.h"
#include "platform/modRegistry.h"
#include "platform/modUtilities.h"
#include "profile/modProfileIO.h"

namespace rwz {

namespace {

const char kObject[] = "clsNetConfig9x";
const char kComputerNameKey[] =
    "\\HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\control\\ComputerName\\ComputerName";
const char kVNETSUPKey[] =
    "\\HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Services\\VxD\\VNETSUP";
const char kMSTCPKey[] = "\\HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Services\\VxD\\MSTCP";
const char kMSTCPHostKey[] =
    "\\HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Services\\VxD\\MSTCP\\";
// The network-transport class; the adapter key ("NetTrans\0000") follows.
const char kClassKey[] = "\\HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Services\\Class\\";
const char kProviderKey[] =
    "\\HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Services\\MSNP32\\NetworkProvider";
const char kLogonKey[] = "\\HKEY_LOCAL_MACHINE\\Network\\Logon";
const char kPoliciesKey[] =
    "\\HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\Network";
// NetBIOS node types: hybrid (WINS first, then broadcast) and broadcast only.
const char kNodeHybrid[] = "8";
const char kNodeBroadcast[] = "1";
// The address of an adapter that takes its address from DHCP.
const char kNoAddress[] = "0.0.0.0";

using C = clsNetConfig9x;
using R = NetRecord;
using S = NetSetting;
using K = ValueKind;

const RegistryPlace kNoPlace{};
RegistryPlace Text(const char* astrKey, const char* astrName) {
    return {astrKey, astrName, kRegString};
}
RegistryPlace Adapter(const char* astrName) {
    return {kClassKey, astrName, kRegString, true};
}
const RegistryPlace kNodeType = Adapter("NodeType");
const RegistryPlace kAddress = Adapter("IPAddress");
const RegistryPlace kMask = Adapter("IPMask");

}  // namespace

// The settings in the order they are applied.
NetConfigParticulars clsNetConfig9x::Particulars() {
    NetConfigParticulars particulars;
    particulars.ClassName = kObject;
    particulars.ReconnectStore = "\\HKEY_CURRENT_USER\\Network\\Persistent\\";
    particulars.PortInWinIni = true;
    particulars.Rows = {
        TextRow("ComputerName", S::ComputerName, &R::ComputerName, K::Text,
                Text(kComputerNameKey, "ComputerName")),
        TextRow("ComputerDescription", S::ComputerDescription, &R::ComputerDescription, K::Text,
                Text(kVNETSUPKey, "Comment")),
        TextRow("Workgroup", S::Workgroup, &R::Workgroup, K::Text, Text(kVNETSUPKey, "Workgroup")),
        TextRow("Domain", S::Domain, &R::DomainName, K::Text, Text(kMSTCPKey, "Domain")),
        TextRow("Host", S::Host, &R::Host, K::Text, Text(kMSTCPHostKey, "Hostname")),
        TextRow("IPAddress", S::IPAddress, &R::IPAddress, K::AddressList, kAddress),
        TextRow("IPMask", S::IPMask, &R::IPMask, K::AddressList, kMask),
        TextRow("LMHostFile", S::LMHostFile, &R::LMHostFile, K::Text,
                Text(kMSTCPKey, "LMHostFile")),
        TextRow("DNSServers", S::DNSServers, &R::DNSServers, K::List,
                Text(kMSTCPKey, "NameServer")),
        FlagRow("WINSEnabled", S::WINSEnabled, &R::WINSEnabled, kNodeType, Op(&C::ReadWINSEnabled),
                Op(&C::WriteWINSEnabled)),
        TextRow("WINSServer1", S::WINSServer1, &R::WINSServer1, K::Text, Adapter("NameServer1")),
        TextRow("WINSServer2", S::WINSServer2, &R::WINSServer2, K::Text, Adapter("NameServer2")),
        TextRow("ScopeID", S::ScopeID, &R::ScopeID, K::Text, Text(kMSTCPKey, "ScopeID")),
        TextRow("SearchList", S::SearchList, &R::SearchList, K::List,
                Text(kMSTCPKey, "SearchList")),
        FlagRow("DNSEnabled", S::DNSEnabled, &R::DNSEnabled, Text(kMSTCPKey, "EnableDNS")),
        FlagRow("DHCPEnabled", S::DHCPEnabled, &R::DHCPEnabled, kAddress, Op(&C::ReadDHCPEnabled),
                Op(&C::WriteDHCPEnabled)),
        FlagRow("NTLogon", S::NTLogon, &R::NTLogonEnabled, Text(kLogonKey, "LMLogon"),
                Op(&C::ReadNTLogon)),
        TextRow("NTDomain", S::NTDomain, &R::NTDomain, K::Text,
                Text(kProviderKey, "AuthenticatingAgent")),
        TextRow("DefaultPrinter", S::DefaultPrinter, &R::DefaultPrinter, K::Text, kNoPlace,
                Op(&C::ReadDefaultPrinter), Op(&C::WriteSpoolerDefaultPrinter)),
        TextRow("DefaultGateway", S::DefaultGateway, &R::DefaultGateway, K::List,
                Adapter("DefaultGateway")),
        FlagRow("DisablePWDCache", S::DisablePWDCache, &R::DisablePWDCache,
                Text(kPoliciesKey, "DisablePwdCaching"), nullptr, Op(&C::WriteDisablePWDCache)),
        FlagRow("QuickLogon", S::QuickLogon, &R::QuickLogon,
                Text(kProviderKey, "LogonDisconnected")),
    };
    return particulars;
}

clsNetConfig9x::clsNetConfig9x() : clsNetConfigBase(Particulars()) {
    Procedure proc(kObject, "Initialize");
}

clsNetConfig9x::~clsNetConfig9x() {
    Procedure proc(kObject, "Terminate");
}

void clsNetConfig9x::OnAssigned(NetSetting aSetting) {
    // The printers are the only settings these systems take at once.
    if (aSetting != S::DefaultPrinter && aSetting != S::AdvPrinterSettings)
        mRecord.ResetRequired = true;
}

void clsNetConfig9x::EnumerateAdapters(std::vector<std::string>& astrNames,
                                       std::vector<std::string>& astrKeys) {
    clsNIC9x().EnumerateAdapters(astrNames, astrKeys);
}

void clsNetConfig9x::ReadWINSEnabled() {
    mRecord.WINSEnabled = ReadPlaceText(kNodeType) == kNodeHybrid;
}

void clsNetConfig9x::WriteWINSEnabled() {
    const char* node = mRecord.WINSEnabled ? kNodeHybrid : kNodeBroadcast;
    LogLine(std::string("SetWINSEnabled: NodeType = ") + node);
    WritePlace(kNodeType, std::string(node));
}

void clsNetConfig9x::ReadDHCPEnabled() {
    const std::string address = Trim(ReadPlaceText(kAddress));
    mRecord.DHCPEnabled = address.empty() || address == kNoAddress;
}

// With DHCP the adapter's address and mask are 0.0.0.0; without it they are
// the record's, which SetIPAddress and SetIPMask write.
void clsNetConfig9x::WriteDHCPEnabled() {
    LogLine(std::string("SetDHCPEnabled = ") + ProfileFlagText(mRecord.DHCPEnabled));
    if (!mRecord.DHCPEnabled) return;
    WritePlace(kAddress, std::string(kNoAddress));
    WritePlace(kMask, std::string(kNoAddress));
}

// "LMLogon" is kept as four bytes by the network setup and as text by older
// tools: either way 1 is on.
void clsNetConfig9x::ReadNTLogon() {
    const std::string key = PlaceKey(Row(S::NTLogon)->Place);
    const std::optional<RegistryValue> value = reg::Read(key, "LMLogon");
    if (value && value->Type == kRegBinary)
        mRecord.NTLogonEnabled = !value->Bytes.empty() && value->Bytes[0] == 1;
    else
        mRecord.NTLogonEnabled = reg::ReadNumber(key, "LMLogon").value_or(0) == 1;
}

// The policy key is made when it is not there yet.
void clsNetConfig9x::WriteDisablePWDCache() {
    const char* value = ProfileFlagText(mRecord.DisablePWDCache);
    LogLine(std::string("SetDisablePWDCache = ") + value);
    reg::Write(kPoliciesKey, "DisablePwdCaching", kRegString, std::string(value));
}

void clsNetConfig9x::WriteSpoolerDefaultPrinter() {
    const std::string& printer = mRecord.DefaultPrinter;
    LogLine("SetDefaultPrinter = " + printer);
    if (printer.empty()) return;
    if (!ZvPrinter::Update(
            printer, [](PRINTER_INFO_2A& info) { info.Attributes |= PRINTER_ATTRIBUTE_DEFAULT; }))
        return;
    BroadcastWindowsChange();
}

}  // namespace rwz
