#include <winsock2.h>

#include "network/clsNetConfig2K.h"

#include <algorithm>

#include "localization/modLocalization.h"
#include "network/NetworkServices.h"
#include "network/clsNIC2K.h"
#include "network/modRegistryRead.h"
#include "platform/Procedure.h"
#include "platform/modLogging.h"
#include "platform/modUtilities.h"
#include "profile/modProfileIO.h"

namespace rwz {

namespace {

const char kObject[] = "clsNetConfig2K";
const char kTcpipKey[] =
    "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters";
const char kInterfacesKey[] =
    "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\TCPIP\\Parameters\\Interfaces\\";
const char kNetBTKey[] =
    "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\NetBT\\Parameters";
const char kServerKey[] =
    "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\lanmanserver\\parameters";
const char kMSTCPKey[] = "\\HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Services\\VxD\\MSTCP";
const char kPrintersKey[] =
    "\\HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Control\\Print\\Printers";
// What the address and mask values hold when the lists are empty.
const char kNoAddress[] = "0.0.0.0";

using S = NetSetting;

// Writes "clsNetConfig2K - <text>" at level Debug, for the log lines that are
// not a procedure's entry line.
void LogLine(const std::string& astrText) {
    WriteLog(std::string(kObject) + " - " + astrText, kLogDebug);
}

std::string TrimBlanks(const std::string& astrText) {
    const size_t first = astrText.find_first_not_of(" \t");
    if (first == std::string::npos) return std::string();
    return astrText.substr(first, astrText.find_last_not_of(" \t") - first + 1);
}

// The entries of an address list, separated by NUL or ",": blanks around an
// entry removed and empty entries left out, as an empty entry would end the
// registry's list early and hide the addresses after it.
std::vector<std::string> ListEntries(const std::string& astrList) {
    std::vector<std::string> entries;
    std::string strEntry;
    for (size_t i = 0; i <= astrList.size(); ++i) {
        const char c = i < astrList.size() ? astrList[i] : '\0';
        if (c != '\0' && c != ',') {
            strEntry += c;
            continue;
        }
        strEntry = TrimBlanks(strEntry);
        if (!strEntry.empty()) entries.push_back(strEntry);
        strEntry.clear();
    }
    return entries;
}

// A multi-string's bytes: each character its code, a 0 byte between entries.
std::vector<uint8_t> MultiStringBytes(const std::vector<std::string>& astrEntries) {
    std::vector<uint8_t> bytes;
    for (size_t i = 0; i < astrEntries.size(); ++i) {
        if (i > 0) bytes.push_back(0);
        bytes.insert(bytes.end(), astrEntries[i].begin(), astrEntries[i].end());
    }
    return bytes;
}

// A list as the log shows it: entries separated by ",".
std::string Printable(std::string astrList) {
    std::replace(astrList.begin(), astrList.end(), '\0', ',');
    return astrList;
}

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

NetConfigParticulars NetConfig2KParticulars() {
    NetConfigParticulars particulars;
    particulars.ClassName = kObject;
    particulars.DomainAccount = true;
    particulars.NulSeparatedAddresses = true;
    particulars.ApplyOrder = {S::ComputerName,   S::ComputerDescription,
                              S::NTLogon,        S::NTDomain,
                              S::Workgroup,      S::Domain,
                              S::Host,           S::DHCPEnabled,
                              S::DefaultGateway, S::IPAddress,
                              S::IPMask,         S::LMHostFile,
                              S::DNSServers,     S::WINSEnabled,
                              S::WINSServer1,    S::WINSServer2,
                              S::ScopeID,        S::SearchList,
                              S::DNSEnabled,     S::DefaultPrinter};
    return particulars;
}

clsNetConfig2K::clsNetConfig2K() : clsNetConfigBase(NetConfig2KParticulars()) {
    Procedure proc(kObject, "Initialize");
    mobjRegistry.SetSuppressErrors(true);
}

clsNetConfig2K::~clsNetConfig2K() {
    Procedure proc(kObject, "Terminate");
}

void clsNetConfig2K::ResetFlags() {
    clsNetConfigBase::ResetFlags();
    mblnAddressesPushed = false;
}

void clsNetConfig2K::OnAssigned(NetSetting aSetting) {
    if (aSetting == S::WINSEnabled) {
        MarkChanged(S::WINSServer1);
        MarkChanged(S::WINSServer2);
        MarkChanged(S::ScopeID);
        mblnResetRequired = true;
    } else if (aSetting == S::DHCPEnabled) {
        mblnResetRequired = true;
    }
}

void clsNetConfig2K::EnumerateAdapters(std::vector<std::string>& astrNames,
                                       std::vector<std::string>& astrKeys) {
    clsNIC2K().EnumerateAdapters(astrNames, astrKeys);
}

std::string clsNetConfig2K::CurrentAdapterType() const {
    return clsNIC2K().AdapterType(CurrentAdapterKey());
}

// --- Registry helpers --------------------------------------------------------

std::string clsNetConfig2K::InterfaceKey() const {
    const std::string strKey = CurrentAdapterKey();
    return strKey.empty() ? std::string() : kInterfacesKey + strKey;
}

std::string clsNetConfig2K::NetBTInterfaceKey() const {
    const std::string strKey = CurrentAdapterKey();
    return strKey.empty() ? std::string()
                          : std::string(kNetBTKey) + "\\Interfaces\\Tcpip_" + strKey;
}

std::string clsNetConfig2K::ReadText(const std::string& astrKey, const std::string& astrValue) {
    std::string strText;
    if (!astrKey.empty()) ReadRegistryText(mobjRegistry, astrKey, astrValue, strText);
    return strText;
}

void clsNetConfig2K::WriteValue(const std::string& astrKey, const std::string& astrValue,
                                int aintType, const RegistryData& avarData) {
    if (astrKey.empty()) {
        LogLine("no adapter: " + astrValue + " not written");
        return;
    }
    mobjRegistry.SetSuppressErrors(true);
    mobjRegistry.SetCurrentKey(astrKey);
    if (mobjRegistry.LastError() != 0) return;
    mobjRegistry.SetValueOf(astrValue, aintType, avarData);
}

void clsNetConfig2K::ShowFailure(std::initializer_list<std::string> astrTexts) const {
    ShowMessage(JoinMessages(astrTexts), MB_OK | MB_ICONEXCLAMATION);
}

// --- Names and description ---------------------------------------------------

void clsNetConfig2K::GetComputerName() {
    Procedure proc(kObject, "GetComputerName");
    proc.Run([&] {
        char buffer[256] = {};
        DWORD size = sizeof buffer;
        mstrComputerName = GetComputerNameA(buffer, &size) ? std::string(buffer) : std::string();
    });
}

void clsNetConfig2K::SetComputerName() {
    Procedure proc(kObject, "SetComputerName");
    proc.Run([&] {
        proc.LogValue(mstrComputerName);
        const BOOL result = SetComputerNameA(mstrComputerName.c_str());
        LogLine("SetComputerName:RC = " + std::to_string(result));
    });
}

void clsNetConfig2K::GetComputerDescription() {
    Procedure proc(kObject, "GetComputerDescription");
    proc.Run([&] { mstrComputerDescription = ReadText(kServerKey, "srvcomment"); });
}

void clsNetConfig2K::SetComputerDescription() {
    Procedure proc(kObject, "SetComputerDescription");
    proc.Run([&] {
        const DWORD result = NetworkServices().NetServerSetInfo(mstrComputerDescription);
        proc.Log("NetServerSetInfo RC = " + std::to_string(result));
        if (result != 0) ShowFailure({MessageText(67), NetResultText(result)});
    });
}

void clsNetConfig2K::GetDomain() {
    Procedure proc(kObject, "GetDomain");
    proc.Run([&] {
        if (!NetworkServices().GetComputerNameExA(kNameDnsDomain, mstrDomainName))
            mstrDomainName.clear();
    });
}

void clsNetConfig2K::SetDomain() {
    Procedure proc(kObject, "SetDomain");
    proc.Run([&] {
        proc.LogValue(mstrDomainName);
        const bool result =
            NetworkServices().SetComputerNameExA(kNamePhysicalDnsDomain, mstrDomainName);
        LogLine("SetDomain:RC = " + std::to_string(result ? 1 : 0));
    });
}

void clsNetConfig2K::GetHost() {
    Procedure proc(kObject, "GetHost");
    proc.Run([&] {
        if (!NetworkServices().GetComputerNameExA(kNameDnsHostname, mstrHost)) mstrHost.clear();
    });
}

void clsNetConfig2K::SetHost() {
    Procedure proc(kObject, "SetHost");
    proc.Run([&] {
        proc.LogValue(mstrHost);
        const bool result =
            NetworkServices().SetComputerNameExA(kNamePhysicalDnsHostname, mstrHost);
        LogLine("SetHost:RC = " + std::to_string(result ? 1 : 0));
    });
}

// --- Workgroup and domain ------------------------------------------------------

void clsNetConfig2K::ReadJoinInformation() {
    mstrWorkgroup.clear();
    mstrNTDomain.clear();
    std::string strName;
    DWORD lngStatus = 0;
    const DWORD result = NetworkServices().NetGetJoinInformation(strName, lngStatus);
    if (result != 0) {
        LogLine("NetGetJoinInformation RC = " + std::to_string(result));
        return;
    }
    if (lngStatus == kJoinStatusWorkgroup) {
        mstrWorkgroup = strName;
    } else if (lngStatus == kJoinStatusDomain) {
        mblnNTLogonEnabled = true;
        mstrNTDomain = strName;
    }
}

void clsNetConfig2K::GetWorkgroup() {
    Procedure proc(kObject, "GetWorkgroup");
    proc.Run([&] { ReadJoinInformation(); });
}

void clsNetConfig2K::GetNTLogon() {
    Procedure proc(kObject, "GetNTLogon");
    proc.Run([&] { ReadJoinInformation(); });
}

void clsNetConfig2K::GetNTDomain() {
    Procedure proc(kObject, "GetNTDomain");
    proc.Run([&] { ReadJoinInformation(); });
}

void clsNetConfig2K::SetNTLogon() {
    // Membership is changed by SetNTDomain and SetWorkgroup.
    Procedure proc(kObject, "SetNTLogon");
    proc.LogValue(ProfileFlagText(mblnNTLogonEnabled));
}

void clsNetConfig2K::SetNTDomain() {
    Procedure proc(kObject, "SetNTDomain");
    proc.Run([&] {
        if (!mblnNTLogonEnabled) return;
        INetworkServices& services = NetworkServices();
        const DWORD unjoined = services.NetUnjoinDomain(std::nullopt, std::nullopt, 0);
        LogLine("SetNTDomain: NetUnjoinDomain RC = " + std::to_string(unjoined));
        if (unjoined == ERROR_INVALID_PARAMETER) {
            ShowFailure({MessageText(39), MessageText(41)});
            return;
        }
        if (unjoined == 2693) {  // NERR_SetupDomainController
            ShowFailure({MessageText(42)});
            return;
        }
        // Whatever else the unjoin said, the join is tried: with no account the
        // machine joins with its own credentials.
        DWORD joined;
        if (mstrNTDomainUserName.empty()) {
            joined = services.NetJoinDomain(mstrNTDomain, std::nullopt, std::nullopt,
                                            kJoinDomainOptions);
        } else {
            joined = services.NetJoinDomain(mstrNTDomain, mstrNTDomainUserName,
                                            mstrNTDomainPassword, kJoinDomainOptions);
        }
        LogLine("SetNTDomain: NetJoinDomain RC = " + std::to_string(joined));
        if (joined != 0) ShowFailure({MessageText(43), NetResultText(joined)});
    });
}

void clsNetConfig2K::SetWorkgroup() {
    Procedure proc(kObject, "SetWorkgroup");
    proc.Run([&] {
        if (mblnNTLogonEnabled) return;
        INetworkServices& services = NetworkServices();
        const DWORD unjoined = services.NetUnjoinDomain(std::nullopt, std::nullopt, 0);
        LogLine("SetWorkgroup: NetUnjoinDomain RC = " + std::to_string(unjoined));
        if (unjoined == ERROR_INVALID_PARAMETER) {
            ShowFailure({MessageText(40), MessageText(41)});
            return;
        }
        if (unjoined == 2693) {  // NERR_SetupDomainController
            ShowFailure({MessageText(42)});
            return;
        }
        // Unlike SetNTDomain, any other failure of the unjoin ends it silently.
        if (unjoined != 0) return;
        const DWORD joined = services.NetJoinDomain(mstrWorkgroup, std::nullopt, std::nullopt, 0);
        LogLine("SetWorkgroup: NetJoinDomain RC = " + std::to_string(joined));
        if (joined != 0) ShowFailure({MessageText(44), NetResultText(joined)});
    });
}

// --- Addresses ---------------------------------------------------------------

void clsNetConfig2K::GetIPAddress() {
    Procedure proc(kObject, "GetIPAddress");
    proc.Run([&] { mstrIPAddress = ReadText(InterfaceKey(), "IPAddress"); });
}

void clsNetConfig2K::GetIPMask() {
    Procedure proc(kObject, "GetIPMask");
    proc.Run([&] { mstrIPMask = ReadText(InterfaceKey(), "SubnetMask"); });
}

void clsNetConfig2K::SetIPAddress() {
    Procedure proc(kObject, "SetIPAddress");
    proc.Run([&] {
        std::vector<std::string> entries = ListEntries(mstrIPAddress);
        if (entries.empty()) entries.push_back(kNoAddress);
        proc.LogValue(Join(entries, ","));
        WriteValue(InterfaceKey(), "IPAddress", kRegMultiString, MultiStringBytes(entries));
        PushAddresses();
    });
}

void clsNetConfig2K::SetIPMask() {
    Procedure proc(kObject, "SetIPMask");
    proc.Run([&] {
        std::vector<std::string> entries = ListEntries(mstrIPMask);
        if (entries.empty()) entries.push_back(kNoAddress);
        proc.LogValue(Join(entries, ","));
        WriteValue(InterfaceKey(), "SubnetMask", kRegMultiString, MultiStringBytes(entries));
        PushAddresses();
    });
}

void clsNetConfig2K::PushAddresses() {
    if (mblnAddressesPushed) return;
    const std::string strKey = CurrentAdapterKey();
    if (strKey.empty()) return;
    const std::vector<std::string> addresses = ListEntries(mstrIPAddress);
    const std::vector<std::string> masks = ListEntries(mstrIPMask);
    for (size_t i = 0; i < addresses.size(); ++i) {
        // An address without a usable mask takes effect at the next restart.
        if (i >= masks.size() || !IsValidIP(addresses[i]) || !IsValidIP(masks[i])) {
            LogLine("SetIPAddressAndMask[" + strKey + "]: not pushed: " + addresses[i] + " / " +
                    (i < masks.size() ? masks[i] : std::string("no mask")));
            continue;
        }
        const DWORD result = NetworkServices().DhcpNotifyConfigChange(
            strKey, true, static_cast<DWORD>(i), inet_addr(addresses[i].c_str()),
            inet_addr(masks[i].c_str()), kDhcpIgnoreFlag);
        LogLine("SetIPAddressAndMask[" + strKey + "]:RC = " + std::to_string(result));
    }
    mblnAddressesPushed = true;
}

void clsNetConfig2K::GetDefaultGateway() {
    Procedure proc(kObject, "GetDefaultGateway");
    proc.Run([&] { mstrDefaultGateway = Printable(ReadText(InterfaceKey(), "DefaultGateway")); });
}

void clsNetConfig2K::SetDefaultGateway() {
    Procedure proc(kObject, "SetDefaultGateway");
    proc.Run([&] {
        const std::vector<std::string> entries = ListEntries(mstrDefaultGateway);
        proc.LogValue(Join(entries, ","));
        WriteValue(InterfaceKey(), "DefaultGateway", kRegMultiString,
                   entries.empty() ? CommaListToMultiString("") : MultiStringBytes(entries));
    });
}

void clsNetConfig2K::GetDHCPEnabled() {
    Procedure proc(kObject, "GetDHCPEnabled");
    proc.Run([&] {
        long lngValue = 0;
        const std::string strKey = InterfaceKey();
        mblnDHCPEnabled = !strKey.empty() &&
                          ReadRegistryNumber(mobjRegistry, strKey, "EnableDHCP", lngValue) &&
                          lngValue == 1;
    });
}

void clsNetConfig2K::SetDHCPEnabled() {
    Procedure proc(kObject, "SetDHCPEnabled");
    proc.Run([&] {
        proc.LogValue(ProfileFlagText(mblnDHCPEnabled));
        WriteValue(InterfaceKey(), "EnableDHCP", kRegDword, mblnDHCPEnabled ? 1.0 : 0.0);
    });
}

// --- Name resolution -----------------------------------------------------------

void clsNetConfig2K::GetDNSServers() {
    Procedure proc(kObject, "GetDNSServers");
    proc.Run([&] {
        LogLine("getDNSServers for " + CurrentAdapterKey());
        mstrDNSServers = ReadText(InterfaceKey(), "NameServer");
    });
}

void clsNetConfig2K::SetDNSServers() {
    Procedure proc(kObject, "SetDNSServers");
    proc.Run([&] {
        proc.LogValue(mstrDNSServers);
        WriteValue(InterfaceKey(), "NameServer", kRegString, mstrDNSServers);
    });
}

void clsNetConfig2K::GetDNSEnabled() {
    Procedure proc(kObject, "GetDNSEnabled");
    proc.Run([&] { mblnDNSEnabled = !ReadText(InterfaceKey(), "NameServer").empty(); });
}

void clsNetConfig2K::SetDNSEnabled() {
    // DNS cannot be switched off on these systems.
    Procedure proc(kObject, "SetDNSEnabled");
}

std::vector<std::string> clsNetConfig2K::ReadWINSServers(const char* astrCaller) {
    const std::string strKey = NetBTInterfaceKey();
    LogLine(std::string(astrCaller) + "; Key = " + strKey);
    const std::string strList = ReadText(strKey, "NameServerList");
    if (strList.empty()) return {};
    return Split(strList, std::string(1, '\0'));
}

void clsNetConfig2K::GetWINSServer1() {
    Procedure proc(kObject, "GetWINSServer1");
    proc.Run([&] {
        const std::vector<std::string> servers = ReadWINSServers("getWINSServer1");
        mstrWINSServer1 = servers.size() > 0 ? servers[0] : std::string();
    });
}

void clsNetConfig2K::GetWINSServer2() {
    Procedure proc(kObject, "GetWINSServer2");
    proc.Run([&] {
        const std::vector<std::string> servers = ReadWINSServers("getWINSServer2");
        mstrWINSServer2 = servers.size() > 1 ? servers[1] : std::string();
    });
}

void clsNetConfig2K::SetWINSServer1() {
    Procedure proc(kObject, "SetWINSServer1");
    proc.Run([&] {
        // Both servers in one list; an empty primary would end the list before
        // the secondary, so only the servers given are listed.
        std::vector<std::string> servers;
        for (const std::string& server : {mstrWINSServer1, mstrWINSServer2}) {
            const std::string strServer = TrimBlanks(server);
            if (!strServer.empty()) servers.push_back(strServer);
        }
        LogLine("SetWINSServer(s) = " + Join(servers, ","));
        std::vector<uint8_t> bytes = MultiStringBytes(servers);
        bytes.push_back(0);
        bytes.push_back(0);
        WriteValue(NetBTInterfaceKey(), "NameServerList", kRegMultiString, bytes);
    });
}

void clsNetConfig2K::SetWINSServer2() {
    Procedure proc(kObject, "SetWINSServer2");
    proc.Run([&] { SetWINSServer1(); });
}

void clsNetConfig2K::GetWINSEnabled() {
    Procedure proc(kObject, "GetWINSEnabled");
    mblnWINSEnabled = !mstrWINSServer1.empty() || !mstrWINSServer2.empty();
}

void clsNetConfig2K::SetWINSEnabled() {
    // WINS follows the servers that SetWINSServer1 writes.
    Procedure proc(kObject, "SetWINSEnabled");
    proc.LogValue(ProfileFlagText(mblnWINSEnabled));
}

void clsNetConfig2K::GetScopeID() {
    Procedure proc(kObject, "GetScopeID");
    proc.Run([&] { mstrScopeID = ReadText(kNetBTKey, "ScopeID"); });
}

void clsNetConfig2K::SetScopeID() {
    Procedure proc(kObject, "SetScopeID");
    proc.Run([&] {
        proc.LogValue(mstrScopeID);
        WriteValue(kNetBTKey, "ScopeID", kRegString, mstrScopeID);
    });
}

void clsNetConfig2K::GetSearchList() {
    Procedure proc(kObject, "GetSearchList");
    proc.Run([&] { mstrSearchList = ReadText(kTcpipKey, "SearchList"); });
}

void clsNetConfig2K::SetSearchList() {
    Procedure proc(kObject, "SetSearchList");
    proc.Run([&] {
        proc.LogValue(mstrSearchList);
        WriteValue(kTcpipKey, "SearchList", kRegString, mstrSearchList);
    });
}

void clsNetConfig2K::GetLMHostFile() {
    // The Windows 95/98/ME place: on these systems the value is normally
    // absent and the setting reads empty.
    Procedure proc(kObject, "GetLMHostFile");
    proc.Run([&] { mstrLMHostFile = ReadText(kMSTCPKey, "LMHostFile"); });
}

void clsNetConfig2K::SetLMHostFile() {
    Procedure proc(kObject, "SetLMHostFile");
    proc.LogValue(mstrLMHostFile);
}

// --- Printers ------------------------------------------------------------------

void clsNetConfig2K::GetPrinterList() {
    Procedure proc(kObject, "GetPrinterList");
    proc.Run([&] {
        mastrPrinterList.clear();
        mobjRegistry.SetCurrentKey(kPrintersKey);
        if (mobjRegistry.LastError() != 0) return;
        const auto printers = mobjRegistry.DirKey();
        if (!printers) return;
        for (const std::string& strPrinter : *printers) {
            const std::string strName =
                ReadText(std::string(kPrintersKey) + "\\" + strPrinter, "Name");
            if (!strName.empty()) mastrPrinterList.push_back(strName.substr(0, strName.find('\0')));
        }
    });
}

void clsNetConfig2K::GetDefaultPrinter() {
    Procedure proc(kObject, "GetDefaultPrinter");
    proc.Run([&] {
        // "Device" holds printer name, driver and port, separated by ",".
        char buffer[1024] = {};
        ::GetProfileStringA("windows", "Device", "", buffer, sizeof buffer);
        const std::string strDevice = buffer;
        mstrDefaultPrinter = strDevice.substr(0, strDevice.find(','));
    });
}

void clsNetConfig2K::SetDefaultPrinter() {
    Procedure proc(kObject, "SetDefaultPrinter");
    proc.Run([&] {
        proc.LogValue(mstrDefaultPrinter);
        if (mstrDefaultPrinter.empty()) return;
        // The printer's entry: driver, port and the two time-outs.
        char buffer[1024] = {};
        ::GetProfileStringA("PrinterPorts", mstrDefaultPrinter.c_str(), "", buffer, sizeof buffer);
        const std::vector<std::string> parts = Split(buffer, ",");
        const std::string strDriver = TrimBlanks(parts[0]);
        const std::string strPort = parts.size() > 1 ? TrimBlanks(parts[1]) : std::string();
        if (strDriver.empty() || strPort.empty()) {
            proc.Log("no driver and port for the printer");
            return;
        }
        ::WriteProfileStringA("windows", "Device",
                              (mstrDefaultPrinter + "," + strDriver + "," + strPort).c_str());
        SendMessageA(HWND_BROADCAST, WM_WININICHANGE, 0, reinterpret_cast<LPARAM>("windows"));
    });
}

void clsNetConfig2K::GetAdvPrinterSettings() {
    Procedure proc(kObject, "GetAdvPrinterSettings");
    proc.Run([&] {
        mstrPrinterPort =
            mstrDefaultPrinter.empty()
                ? std::string()
                : ReadText(std::string(kPrintersKey) + "\\" + mstrDefaultPrinter, "Port");
        mstrPrinterPort = mstrPrinterPort.substr(0, mstrPrinterPort.find('\0'));
    });
}

void clsNetConfig2K::SetAdvPrinterSettings() {
    Procedure proc(kObject, "SetAdvPrinterSettings");
    if (!IsChanged(S::AdvPrinterSettings)) return;
    // The printer's port and the capture of a printer port are not set by this
    // back end yet; the values stay in the record and in the profile.
    proc.Log("port and capture left as they are");
}

}  // namespace rwz
