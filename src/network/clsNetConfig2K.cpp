#include <winsock2.h>

#include "network/clsNetConfig2K.h"

#include "localization/modLocalization.h"
#include "network/NetworkServices.h"
#include "network/clsNIC2K.h"
#include "platform/Procedure.h"
#include "platform/modUtilities.h"
#include "profile/modProfileIO.h"

namespace rwz {

namespace {

const char kObject[] = "clsNetConfig2K";
const char kTcpipKey[] =
    "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters";
// The adapter's interface keys; the adapter key follows.
const char kInterfacesKey[] =
    "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\TCPIP\\Parameters\\Interfaces\\";
const char kNetBTInterfacesKey[] =
    "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\NetBT\\Parameters\\Interfaces\\"
    "Tcpip_";
const char kNetBTKey[] =
    "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\NetBT\\Parameters";
const char kServerKey[] =
    "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\lanmanserver\\parameters";
// The Windows 95/98/ME place, kept on purpose: here the value is normally
// absent and the setting reads empty.
const char kMSTCPKey[] = "\\HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Services\\VxD\\MSTCP";
// NERR_SetupDomainController: a domain controller cannot leave its domain.
const DWORD kDomainController = 2693;

using C = clsNetConfig2K;
using R = NetRecord;
using S = NetSetting;
using K = ValueKind;

const RegistryPlace kNoPlace{};
RegistryPlace Adapter(const char* astrName, int aintType) {
    return {kInterfacesKey, astrName, aintType, true};
}
const RegistryPlace kWINSPlace{kNetBTInterfacesKey, "NameServerList", kRegMultiString, true};

}  // namespace

std::string NetResultText(DWORD alngResult) {
    switch (alngResult) {
        case 5:
            return MessageText(46);
        case 87:
            return MessageText(48);
        case 1323:
            return MessageText(47);
        case 1326:
            return MessageText(57);
        case 1327:
            return MessageText(54);
        case 1328:
            return MessageText(55);
        case 1329:
            return MessageText(56);
        case 1331:
            return MessageText(52);
        case 1332:
            return MessageText(58);
        case 1355:
            return MessageText(49);
        case 1793:
            return MessageText(53);
        case 2691:
            return MessageText(50);
        case 2695:
            return MessageText(51);
        default:
            return MessageText(59, {std::to_string(alngResult)});
    }
}

// The settings in the order they are applied.
NetConfigParticulars clsNetConfig2K::Particulars() {
    NetConfigParticulars particulars;
    particulars.ClassName = kObject;
    particulars.DomainAccount = true;
    particulars.NulSeparatedAddresses = true;
    particulars.Rows = {
        TextRow("ComputerName", S::ComputerName, &R::ComputerName, K::Text, kNoPlace,
                Op(&C::ReadComputerName), Op(&C::WriteComputerName)),
        TextRow("ComputerDescription", S::ComputerDescription, &R::ComputerDescription, K::Text,
                {kServerKey, "srvcomment", kRegString}, nullptr, Op(&C::WriteComputerDescription)),
        // Membership is changed by SetNTDomain and SetWorkgroup.
        Applied(FlagRow("NTLogon", S::NTLogon, &R::NTLogonEnabled, kNoPlace,
                        Op(&C::ReadJoinInformation)),
                NetApply::LogValue),
        TextRow("NTDomain", S::NTDomain, &R::NTDomain, K::Text, kNoPlace,
                Op(&C::ReadJoinInformation), Op(&C::JoinDomain)),
        TextRow("Workgroup", S::Workgroup, &R::Workgroup, K::Text, kNoPlace,
                Op(&C::ReadJoinInformation), Op(&C::JoinWorkgroup)),
        TextRow("Domain", S::Domain, &R::DomainName, K::Text, kNoPlace, Op(&C::ReadDomain),
                Op(&C::WriteDomain)),
        TextRow("Host", S::Host, &R::Host, K::Text, kNoPlace, Op(&C::ReadHost), Op(&C::WriteHost)),
        FlagRow("DHCPEnabled", S::DHCPEnabled, &R::DHCPEnabled, Adapter("EnableDHCP", kRegDword)),
        TextRow("DefaultGateway", S::DefaultGateway, &R::DefaultGateway, K::List,
                Adapter("DefaultGateway", kRegMultiString)),
        TextRow("IPAddress", S::IPAddress, &R::IPAddress, K::AddressList,
                Adapter("IPAddress", kRegMultiString), nullptr, Op(&C::WriteIPAddress)),
        TextRow("IPMask", S::IPMask, &R::IPMask, K::AddressList,
                Adapter("SubnetMask", kRegMultiString), nullptr, Op(&C::WriteIPMask)),
        Applied(TextRow("LMHostFile", S::LMHostFile, &R::LMHostFile, K::Text,
                        {kMSTCPKey, "LMHostFile", kRegString}),
                NetApply::LogValue),
        TextRow("DNSServers", S::DNSServers, &R::DNSServers, K::Text,
                Adapter("NameServer", kRegString), Op(&C::ReadDNSServers)),
        // WINS follows the servers that SetWINSServer1 writes.
        Applied(FlagRow("WINSEnabled", S::WINSEnabled, &R::WINSEnabled, kNoPlace,
                        Op(&C::ReadWINSEnabled)),
                NetApply::LogValue),
        TextRow("WINSServer1", S::WINSServer1, &R::WINSServer1, K::Text, kWINSPlace,
                Op(&C::ReadWINSServer1), Op(&C::WriteWINSServers)),
        TextRow("WINSServer2", S::WINSServer2, &R::WINSServer2, K::Text, kWINSPlace,
                Op(&C::ReadWINSServer2), Op(&C::WriteWINSServer2)),
        TextRow("ScopeID", S::ScopeID, &R::ScopeID, K::Text, {kNetBTKey, "ScopeID", kRegString}),
        TextRow("SearchList", S::SearchList, &R::SearchList, K::Text,
                {kTcpipKey, "SearchList", kRegString}),
        // DNS cannot be switched off on these systems.
        Applied(
            FlagRow("DNSEnabled", S::DNSEnabled, &R::DNSEnabled, kNoPlace, Op(&C::ReadDNSEnabled)),
            NetApply::EntryLine),
        TextRow("DefaultPrinter", S::DefaultPrinter, &R::DefaultPrinter, K::Text, kNoPlace,
                Op(&C::ReadDefaultPrinter), Op(&C::WriteDefaultPrinter)),
    };
    return particulars;
}

clsNetConfig2K::clsNetConfig2K() : clsNetConfigBase(Particulars()) {
    Procedure proc(kObject, "Initialize");
}

clsNetConfig2K::~clsNetConfig2K() {
    Procedure proc(kObject, "Terminate");
}

void clsNetConfig2K::OnAssigned(NetSetting aSetting) {
    if (aSetting == S::WINSEnabled) {
        MarkChanged(S::WINSServer1);
        MarkChanged(S::WINSServer2);
        MarkChanged(S::ScopeID);
        mRecord.ResetRequired = true;
    } else if (aSetting == S::DHCPEnabled) {
        mRecord.ResetRequired = true;
    }
}

void clsNetConfig2K::EnumerateAdapters(std::vector<std::string>& astrNames,
                                       std::vector<std::string>& astrKeys) {
    clsNIC2K().EnumerateAdapters(astrNames, astrKeys);
}

std::string clsNetConfig2K::CurrentAdapterType() const {
    return clsNIC2K().AdapterType(CurrentAdapterKey());
}

void clsNetConfig2K::Fail(std::initializer_list<std::string> astrTexts) {
    Report(JoinMessages(astrTexts));
}

// --- Names and description ---------------------------------------------------

void clsNetConfig2K::ReadComputerName() {
    char buffer[256] = {};
    DWORD size = sizeof buffer;
    mRecord.ComputerName = GetComputerNameA(buffer, &size) ? std::string(buffer) : std::string();
}

void clsNetConfig2K::WriteComputerName() {
    LogLine("SetComputerName = " + mRecord.ComputerName);
    const BOOL result = SetComputerNameA(mRecord.ComputerName.c_str());
    LogLine("SetComputerName:RC = " + std::to_string(result));
}

void clsNetConfig2K::WriteComputerDescription() {
    const DWORD result = NetworkServices().NetServerSetInfo(mRecord.ComputerDescription);
    LogLine("SetComputerDescription: NetServerSetInfo RC = " + std::to_string(result));
    if (result != 0) Fail({MessageText(67), NetResultText(result)});
}

void clsNetConfig2K::ReadDomain() {
    if (!NetworkServices().GetComputerNameExA(kNameDnsDomain, mRecord.DomainName))
        mRecord.DomainName.clear();
}

void clsNetConfig2K::WriteDomain() {
    LogLine("SetDomain = " + mRecord.DomainName);
    const bool result =
        NetworkServices().SetComputerNameExA(kNamePhysicalDnsDomain, mRecord.DomainName);
    LogLine("SetDomain:RC = " + std::to_string(result ? 1 : 0));
}

void clsNetConfig2K::ReadHost() {
    if (!NetworkServices().GetComputerNameExA(kNameDnsHostname, mRecord.Host)) mRecord.Host.clear();
}

void clsNetConfig2K::WriteHost() {
    LogLine("SetHost = " + mRecord.Host);
    const bool result =
        NetworkServices().SetComputerNameExA(kNamePhysicalDnsHostname, mRecord.Host);
    LogLine("SetHost:RC = " + std::to_string(result ? 1 : 0));
}

// --- Workgroup and domain ------------------------------------------------------

void clsNetConfig2K::ReadJoinInformation() {
    mRecord.Workgroup.clear();
    mRecord.NTDomain.clear();
    std::string name;
    DWORD status = 0;
    const DWORD result = NetworkServices().NetGetJoinInformation(name, status);
    if (result != 0) {
        LogLine("NetGetJoinInformation RC = " + std::to_string(result));
        return;
    }
    if (status == kJoinStatusWorkgroup) {
        mRecord.Workgroup = name;
    } else if (status == kJoinStatusDomain) {
        mRecord.NTLogonEnabled = true;
        mRecord.NTDomain = name;
    }
}

void clsNetConfig2K::JoinDomain() {
    if (!mRecord.NTLogonEnabled) return;
    INetworkServices& services = NetworkServices();
    const DWORD unjoined = services.NetUnjoinDomain(std::nullopt, std::nullopt, 0);
    LogLine("SetNTDomain: NetUnjoinDomain RC = " + std::to_string(unjoined));
    if (unjoined == ERROR_INVALID_PARAMETER) {
        Fail({MessageText(39), MessageText(41)});
        return;
    }
    if (unjoined == kDomainController) {
        Fail({MessageText(42)});
        return;
    }
    // Whatever else the unjoin said, the join is tried: with no account the
    // machine joins with its own credentials.
    const bool account = !mRecord.NTDomainUserName.empty();
    const DWORD joined = services.NetJoinDomain(
        mRecord.NTDomain, account ? std::optional(mRecord.NTDomainUserName) : std::nullopt,
        account ? std::optional(mRecord.NTDomainPassword) : std::nullopt, kJoinDomainOptions);
    LogLine("SetNTDomain: NetJoinDomain RC = " + std::to_string(joined));
    if (joined != 0) Fail({MessageText(43), NetResultText(joined)});
}

void clsNetConfig2K::JoinWorkgroup() {
    if (mRecord.NTLogonEnabled) return;
    INetworkServices& services = NetworkServices();
    const DWORD unjoined = services.NetUnjoinDomain(std::nullopt, std::nullopt, 0);
    LogLine("SetWorkgroup: NetUnjoinDomain RC = " + std::to_string(unjoined));
    if (unjoined == ERROR_INVALID_PARAMETER) {
        Fail({MessageText(40), MessageText(41)});
        return;
    }
    if (unjoined == kDomainController) {
        Fail({MessageText(42)});
        return;
    }
    // Unlike SetNTDomain, any other failure of the unjoin ends it silently.
    if (unjoined != 0) return;
    const DWORD joined = services.NetJoinDomain(mRecord.Workgroup, std::nullopt, std::nullopt, 0);
    LogLine("SetWorkgroup: NetJoinDomain RC = " + std::to_string(joined));
    if (joined != 0) Fail({MessageText(44), NetResultText(joined)});
}

// --- Addresses ---------------------------------------------------------------

void clsNetConfig2K::WriteIPAddress() {
    WriteToPlace(*Row(S::IPAddress));
    PushAddresses();
}

void clsNetConfig2K::WriteIPMask() {
    WriteToPlace(*Row(S::IPMask));
    PushAddresses();
}

void clsNetConfig2K::PushAddresses() {
    if (mblnAddressesPushed) return;
    const std::string key = CurrentAdapterKey();
    if (key.empty()) return;
    const std::vector<std::string> addresses = ListEntries(mRecord.IPAddress);
    const std::vector<std::string> masks = ListEntries(mRecord.IPMask);
    for (size_t i = 0; i < addresses.size(); ++i) {
        // An address without a usable mask takes effect at the next restart.
        if (i >= masks.size() || !IsValidIP(addresses[i]) || !IsValidIP(masks[i])) {
            LogLine("SetIPAddressAndMask[" + key + "]: not pushed: " + addresses[i] + " / " +
                    (i < masks.size() ? masks[i] : std::string("no mask")));
            continue;
        }
        const DWORD result = NetworkServices().DhcpNotifyConfigChange(
            key, true, static_cast<DWORD>(i), inet_addr(addresses[i].c_str()),
            inet_addr(masks[i].c_str()), kDhcpIgnoreFlag);
        LogLine("SetIPAddressAndMask[" + key + "]:RC = " + std::to_string(result));
    }
    mblnAddressesPushed = true;
}

// --- Name resolution -----------------------------------------------------------

void clsNetConfig2K::ReadDNSServers() {
    LogLine("getDNSServers for " + CurrentAdapterKey());
    mRecord.DNSServers = ReadPlaceText(Row(S::DNSServers)->Place);
}

void clsNetConfig2K::ReadDNSEnabled() {
    mRecord.DNSEnabled = !ReadPlaceText(Row(S::DNSServers)->Place).empty();
}

std::vector<std::string> clsNetConfig2K::ReadWINSServers(const char* astrCaller) const {
    LogLine(std::string(astrCaller) + "; Key = " + PlaceKey(kWINSPlace));
    const std::string list = ReadPlaceText(kWINSPlace);
    if (list.empty()) return {};
    return Split(list, std::string(1, '\0'));
}

void clsNetConfig2K::ReadWINSServer1() {
    const std::vector<std::string> servers = ReadWINSServers("getWINSServer1");
    mRecord.WINSServer1 = servers.size() > 0 ? servers[0] : std::string();
}

void clsNetConfig2K::ReadWINSServer2() {
    const std::vector<std::string> servers = ReadWINSServers("getWINSServer2");
    mRecord.WINSServer2 = servers.size() > 1 ? servers[1] : std::string();
}

void clsNetConfig2K::ReadWINSEnabled() {
    mRecord.WINSEnabled = !mRecord.WINSServer1.empty() || !mRecord.WINSServer2.empty();
}

void clsNetConfig2K::WriteWINSServers() {
    // Both servers in one list; an empty primary would end the list before
    // the secondary, so only the servers given are listed.
    std::vector<std::string> servers;
    for (const std::string& server : {mRecord.WINSServer1, mRecord.WINSServer2})
        if (!Trim(server).empty()) servers.push_back(Trim(server));
    LogLine("SetWINSServer(s) = " + Join(servers, ","));
    WritePlace(kWINSPlace, MultiStringBytes(servers));
}

void clsNetConfig2K::WriteWINSServer2() {
    Write(S::WINSServer1);
}

}  // namespace rwz
