#include "network/clsNetConfigBase.h"

#include <algorithm>
#include <utility>

#include "network/modAdapterChoice.h"
#include "network/modScramble.h"
#include "platform/Procedure.h"
#include "platform/modLogging.h"
#include "platform/modUtilities.h"
#include "profile/modProfileIO.h"

namespace rwz {

namespace {

const char kNetworkSection[] = "Network";
const char kPrinterSection[] = "Printer";

// Lists are written to profiles with "," between entries, whatever the
// separator in memory.
std::string CommaList(std::string astrList) {
    std::replace(astrList.begin(), astrList.end(), '\0', ',');
    return astrList;
}

}  // namespace

const char* SetOperationName(NetSetting aSetting) {
    switch (aSetting) {
        case NetSetting::ComputerName:
            return "SetComputerName";
        case NetSetting::ComputerDescription:
            return "SetComputerDescription";
        case NetSetting::Workgroup:
            return "SetWorkgroup";
        case NetSetting::NTLogon:
            return "SetNTLogon";
        case NetSetting::NTDomain:
            return "SetNTDomain";
        case NetSetting::Domain:
            return "SetDomain";
        case NetSetting::Host:
            return "SetHost";
        case NetSetting::IPAddress:
            return "SetIPAddress";
        case NetSetting::IPMask:
            return "SetIPMask";
        case NetSetting::LMHostFile:
            return "SetLMHostFile";
        case NetSetting::DNSServers:
            return "SetDNSServers";
        case NetSetting::WINSEnabled:
            return "SetWINSEnabled";
        case NetSetting::WINSServer1:
            return "SetWINSServer1";
        case NetSetting::WINSServer2:
            return "SetWINSServer2";
        case NetSetting::ScopeID:
            return "SetScopeID";
        case NetSetting::SearchList:
            return "SetSearchList";
        case NetSetting::DNSEnabled:
            return "SetDNSEnabled";
        case NetSetting::DHCPEnabled:
            return "SetDHCPEnabled";
        case NetSetting::DefaultPrinter:
            return "SetDefaultPrinter";
        case NetSetting::DefaultGateway:
            return "SetDefaultGateway";
        case NetSetting::DisablePWDCache:
            return "SetDisablePWDCache";
        case NetSetting::QuickLogon:
            return "SetQuickLogon";
        case NetSetting::AdvPrinterSettings:
            return "SetAdvPrinterSettings";
        case NetSetting::Count:
            break;
    }
    return "";
}

clsNetConfigBase::clsNetConfigBase(NetConfigParticulars aParticulars)
    : mParticulars(std::move(aParticulars)) {}

// --- Changed flags ---------------------------------------------------------

bool clsNetConfigBase::IsChanged(NetSetting aSetting) const {
    return mChanged.test(static_cast<size_t>(aSetting));
}

void clsNetConfigBase::MarkChanged(NetSetting aSetting) {
    mChanged.set(static_cast<size_t>(aSetting));
}

void clsNetConfigBase::ResetFlags() {
    Procedure proc(ClassName(), "ResetFlags");
    mChanged.reset();
    mblnResetRequired = false;
}

// Every assignment flags its setting, whether or not the value differs.
void clsNetConfigBase::AssignText(std::string& astrMember, const std::string& astrValue,
                                  NetSetting aSetting) {
    astrMember = astrValue;
    MarkChanged(aSetting);
    OnAssigned(aSetting);
}

void clsNetConfigBase::AssignFlag(bool& ablnMember, bool ablnValue, NetSetting aSetting) {
    ablnMember = ablnValue;
    MarkChanged(aSetting);
    OnAssigned(aSetting);
}

// --- Property setters ------------------------------------------------------

void clsNetConfigBase::SetDefaultGateway(const std::string& astrValue) {
    AssignText(mstrDefaultGateway, astrValue, NetSetting::DefaultGateway);
}
void clsNetConfigBase::SetDefaultPrinter(const std::string& astrValue) {
    AssignText(mstrDefaultPrinter, astrValue, NetSetting::DefaultPrinter);
}
void clsNetConfigBase::SetPrinterPort(const std::string& astrValue) {
    AssignText(mstrPrinterPort, astrValue, NetSetting::AdvPrinterSettings);
}
void clsNetConfigBase::SetPrinterCaptureDev(const std::string& astrValue) {
    AssignText(mstrPrinterCaptureDev, astrValue, NetSetting::AdvPrinterSettings);
}
void clsNetConfigBase::SetPrinterCapturePath(const std::string& astrValue) {
    AssignText(mstrPrinterCapturePath, astrValue, NetSetting::AdvPrinterSettings);
}
void clsNetConfigBase::SetPrinterCaptureReconnect(bool ablnValue) {
    AssignFlag(mblnPrinterCaptureReconnect, ablnValue, NetSetting::AdvPrinterSettings);
}
void clsNetConfigBase::SetNTLogonEnabled(bool ablnValue) {
    AssignFlag(mblnNTLogonEnabled, ablnValue, NetSetting::NTLogon);
}
void clsNetConfigBase::SetNTDomain(const std::string& astrValue) {
    AssignText(mstrNTDomain, astrValue, NetSetting::NTDomain);
}
void clsNetConfigBase::SetDomainName(const std::string& astrValue) {
    AssignText(mstrDomainName, astrValue, NetSetting::Domain);
}
void clsNetConfigBase::SetHost(const std::string& astrValue) {
    AssignText(mstrHost, astrValue, NetSetting::Host);
}
void clsNetConfigBase::SetLMHostFile(const std::string& astrValue) {
    AssignText(mstrLMHostFile, astrValue, NetSetting::LMHostFile);
}
void clsNetConfigBase::SetDNSServers(const std::string& astrValue) {
    AssignText(mstrDNSServers, astrValue, NetSetting::DNSServers);
}
void clsNetConfigBase::SetWINSServer1(const std::string& astrValue) {
    AssignText(mstrWINSServer1, astrValue, NetSetting::WINSServer1);
}
void clsNetConfigBase::SetWINSServer2(const std::string& astrValue) {
    AssignText(mstrWINSServer2, astrValue, NetSetting::WINSServer2);
}
void clsNetConfigBase::SetScopeID(const std::string& astrValue) {
    AssignText(mstrScopeID, astrValue, NetSetting::ScopeID);
}
void clsNetConfigBase::SetSearchList(const std::string& astrValue) {
    AssignText(mstrSearchList, astrValue, NetSetting::SearchList);
}
void clsNetConfigBase::SetDNSEnabled(bool ablnValue) {
    AssignFlag(mblnDNSEnabled, ablnValue, NetSetting::DNSEnabled);
}
void clsNetConfigBase::SetDHCPEnabled(bool ablnValue) {
    AssignFlag(mblnDHCPEnabled, ablnValue, NetSetting::DHCPEnabled);
}
void clsNetConfigBase::SetComputerName(const std::string& astrValue) {
    AssignText(mstrComputerName, astrValue, NetSetting::ComputerName);
}
void clsNetConfigBase::SetComputerDescription(const std::string& astrValue) {
    AssignText(mstrComputerDescription, astrValue, NetSetting::ComputerDescription);
}
void clsNetConfigBase::SetWorkgroup(const std::string& astrValue) {
    AssignText(mstrWorkgroup, astrValue, NetSetting::Workgroup);
}
void clsNetConfigBase::SetWINSEnabled(bool ablnValue) {
    AssignFlag(mblnWINSEnabled, ablnValue, NetSetting::WINSEnabled);
}
void clsNetConfigBase::SetIPAddress(const std::string& astrValue) {
    AssignText(mstrIPAddress, astrValue, NetSetting::IPAddress);
}
void clsNetConfigBase::SetIPMask(const std::string& astrValue) {
    AssignText(mstrIPMask, astrValue, NetSetting::IPMask);
}
void clsNetConfigBase::SetDisablePWDCache(bool ablnValue) {
    if (!mParticulars.LogonOptions) return;
    AssignFlag(mblnDisablePWDCache, ablnValue, NetSetting::DisablePWDCache);
}
void clsNetConfigBase::SetQuickLogon(bool ablnValue) {
    if (!mParticulars.LogonOptions) return;
    AssignFlag(mblnQuickLogon, ablnValue, NetSetting::QuickLogon);
}

// --- Adapters --------------------------------------------------------------

bool clsNetConfigBase::IsAdapterIndex(int aintIndex) const {
    return aintIndex >= 0 && aintIndex < static_cast<int>(mastrAdapterList.size());
}

std::string clsNetConfigBase::CurrentAdapterKey() const {
    if (!IsAdapterIndex(mintCurrentAdapter) ||
        mintCurrentAdapter >= static_cast<int>(mastrAdapterKeys.size()))
        return "";
    return mastrAdapterKeys[mintCurrentAdapter];
}

void clsNetConfigBase::SetCurrentAdapter(int16_t aintIndex) {
    Procedure proc(ClassName(), "SetCurrentAdapter");
    proc.Run([&] {
        // An index that names no adapter would make every Get below read from
        // a key that does not exist.
        if (!IsAdapterIndex(aintIndex)) {
            proc.Log("no adapter " + std::to_string(aintIndex));
            return;
        }
        mintCurrentAdapter = aintIndex;
        GetDNSEnabled();
        GetDNSServers();
        GetIPAddress();
        GetIPMask();
        GetDefaultGateway();
        GetDHCPEnabled();
        GetWINSServer1();
        GetWINSServer2();
        GetWINSEnabled();
    });
}

void clsNetConfigBase::SetCurrentAdapterNoRefresh(int16_t aintIndex) {
    if (IsAdapterIndex(aintIndex)) mintCurrentAdapter = aintIndex;
}

void clsNetConfigBase::GetAdapterList() {
    Procedure proc(ClassName(), "GetAdapterList");
    proc.Run([&] {
        std::vector<std::string> names;
        std::vector<std::string> keys;
        EnumerateAdapters(names, keys);
        keys.resize(names.size());

        mastrAdapterList = std::move(names);
        mastrAdapterKeys = std::move(keys);
        if (mastrAdapterList.empty()) {
            mintCurrentAdapter = -1;
            return;
        }
        // Open on the adapter the last applied profile configured; with two
        // equal names, the later one.
        const std::string lastApplied =
            GetProgramSetting(kProductName, "Options", "LastNICApplied", "");
        mintCurrentAdapter = 0;
        for (size_t i = 0; i < mastrAdapterList.size(); ++i) {
            if (mastrAdapterList[i] == lastApplied) mintCurrentAdapter = static_cast<int16_t>(i);
        }
    });
}

// --- The machine -----------------------------------------------------------

void clsNetConfigBase::LoadConfiguration() {
    Procedure proc(ClassName(), "LoadConfiguration");
    proc.Run([&] {
        GetAdapterList();
        GetComputerName();
        GetComputerDescription();
        GetWorkgroup();
        GetDomain();
        GetHost();
        GetIPAddress();
        GetIPMask();
        GetLMHostFile();
        GetDNSServers();
        GetWINSEnabled();
        GetWINSServer1();
        GetWINSServer2();
        GetScopeID();
        GetSearchList();
        GetDNSEnabled();
        GetDHCPEnabled();
        GetNTLogon();
        GetNTDomain();
        GetPrinterList();
        GetDefaultPrinter();
        GetDefaultGateway();
        if (mParticulars.LogonOptions) {
            GetDisablePWDCache();
            GetQuickLogon();
        }
        GetAdvPrinterSettings();
        // A freshly captured record has nothing to apply.
        ResetFlags();
    });
}

void clsNetConfigBase::RunSetOperation(NetSetting aSetting) {
    // An empty name would leave the machine without one: it is never written.
    const bool emptyName =
        (aSetting == NetSetting::ComputerName && Trim(mstrComputerName).empty()) ||
        (aSetting == NetSetting::Host && Trim(mstrHost).empty()) ||
        (aSetting == NetSetting::Workgroup && Trim(mstrWorkgroup).empty());
    if (emptyName) {
        WriteLog(std::string("clsNetConfigBase - ") + SetOperationName(aSetting) +
                     ": an empty name is not written",
                 kLogWarning);
        return;
    }
    switch (aSetting) {
        case NetSetting::ComputerName:
            SetComputerName();
            break;
        case NetSetting::ComputerDescription:
            SetComputerDescription();
            break;
        case NetSetting::Workgroup:
            SetWorkgroup();
            break;
        case NetSetting::NTLogon:
            SetNTLogon();
            break;
        case NetSetting::NTDomain:
            SetNTDomain();
            break;
        case NetSetting::Domain:
            SetDomain();
            break;
        case NetSetting::Host:
            SetHost();
            break;
        case NetSetting::IPAddress:
            SetIPAddress();
            break;
        case NetSetting::IPMask:
            SetIPMask();
            break;
        case NetSetting::LMHostFile:
            SetLMHostFile();
            break;
        case NetSetting::DNSServers:
            SetDNSServers();
            break;
        case NetSetting::WINSEnabled:
            SetWINSEnabled();
            break;
        case NetSetting::WINSServer1:
            SetWINSServer1();
            break;
        case NetSetting::WINSServer2:
            SetWINSServer2();
            break;
        case NetSetting::ScopeID:
            SetScopeID();
            break;
        case NetSetting::SearchList:
            SetSearchList();
            break;
        case NetSetting::DNSEnabled:
            SetDNSEnabled();
            break;
        case NetSetting::DHCPEnabled:
            SetDHCPEnabled();
            break;
        case NetSetting::DefaultPrinter:
            SetDefaultPrinter();
            break;
        case NetSetting::DefaultGateway:
            SetDefaultGateway();
            break;
        case NetSetting::DisablePWDCache:
            SetDisablePWDCache();
            break;
        case NetSetting::QuickLogon:
            SetQuickLogon();
            break;
        case NetSetting::AdvPrinterSettings:
        case NetSetting::Count:
            break;
    }
}

void clsNetConfigBase::ApplyConfiguration() {
    Procedure proc(ClassName(), "ApplyConfiguration");
    proc.Run([&] {
        for (NetSetting setting : mParticulars.ApplyOrder) {
            // The advanced printer settings come last, whatever the order says.
            if (setting == NetSetting::AdvPrinterSettings || !IsChanged(setting)) continue;
            if (setting == NetSetting::DefaultPrinter && !mblnEnableDefaultPrinter) continue;
            RunSetOperation(setting);
        }
        // It checks its own flag.
        SetAdvPrinterSettings();
        ResetFlags();
    });
}

// --- Profile file ----------------------------------------------------------

std::string clsNetConfigBase::EvaluateProfileValue(const std::string& astrValue) const {
    return EvaluateCondition(astrValue);
}

std::string clsNetConfigBase::ReadValue(const std::string& astrFile, const char* astrSection,
                                        const char* astrKey) const {
    return EvaluateProfileValue(ReadProfileString(astrFile, astrSection, astrKey, ""));
}

const std::vector<clsNetConfigBase::ProfileKey>& clsNetConfigBase::ProfileKeys() {
    using C = clsNetConfigBase;
    const char* N = kNetworkSection;
    const char* P = kPrinterSection;
    static const std::vector<ProfileKey> keys = {
        {N, "IPAddress", KeyKind::AddressList, KeyScope::All, &C::mstrIPAddress, nullptr},
        {N, "IPMask", KeyKind::AddressList, KeyScope::All, &C::mstrIPMask, nullptr},
        {N, "DefaultGateway", KeyKind::Text, KeyScope::All, &C::mstrDefaultGateway, nullptr},
        {N, "NameServer", KeyKind::Text, KeyScope::All, &C::mstrDNSServers, nullptr},
        {N, "HostName", KeyKind::Text, KeyScope::All, &C::mstrHost, nullptr},
        {N, "Domain", KeyKind::Text, KeyScope::All, &C::mstrDomainName, nullptr},
        {N, "SearchList", KeyKind::Text, KeyScope::All, &C::mstrSearchList, nullptr},
        {N, "LMHostFile", KeyKind::Text, KeyScope::All, &C::mstrLMHostFile, nullptr},
        {N, "NameServer1", KeyKind::Text, KeyScope::All, &C::mstrWINSServer1, nullptr},
        {N, "NameServer2", KeyKind::Text, KeyScope::All, &C::mstrWINSServer2, nullptr},
        {N, "ScopeID", KeyKind::Text, KeyScope::All, &C::mstrScopeID, nullptr},
        {N, "EnableDNS", KeyKind::Flag, KeyScope::All, nullptr, &C::mblnDNSEnabled},
        {N, "ComputerName", KeyKind::Text, KeyScope::All, &C::mstrComputerName, nullptr},
        {N, "ComputerDescription", KeyKind::Text, KeyScope::All, &C::mstrComputerDescription,
         nullptr},
        {N, "Workgroup", KeyKind::Text, KeyScope::All, &C::mstrWorkgroup, nullptr},
        {N, "NTLogon", KeyKind::Flag, KeyScope::All, nullptr, &C::mblnNTLogonEnabled},
        {N, "NTDomain", KeyKind::Text, KeyScope::All, &C::mstrNTDomain, nullptr},
        {N, "NTDomainUserName", KeyKind::Scrambled, KeyScope::DomainAccount,
         &C::mstrNTDomainUserName, nullptr},
        {N, "NTDomainPassword", KeyKind::Scrambled, KeyScope::DomainAccount,
         &C::mstrNTDomainPassword, nullptr},
        {N, "DHCP", KeyKind::Flag, KeyScope::All, nullptr, &C::mblnDHCPEnabled},
        {N, "WINS", KeyKind::Flag, KeyScope::All, nullptr, &C::mblnWINSEnabled},
        {N, "DisablePWDCache", KeyKind::Flag, KeyScope::LogonOptions, nullptr,
         &C::mblnDisablePWDCache},
        {N, "QuickLogon", KeyKind::Flag, KeyScope::LogonOptions, nullptr, &C::mblnQuickLogon},
        {P, "DefaultPrinter", KeyKind::Text, KeyScope::All, &C::mstrDefaultPrinter, nullptr},
        {P, "AdvancedSettingsEnabled", KeyKind::Flag, KeyScope::All, nullptr,
         &C::mblnEnableAdvPrinterSettings},
        {P, "PrinterPort", KeyKind::Text, KeyScope::All, &C::mstrPrinterPort, nullptr},
        {P, "PrinterCaptureDevice", KeyKind::Text, KeyScope::All, &C::mstrPrinterCaptureDev,
         nullptr},
        {P, "PrinterCapturePath", KeyKind::Text, KeyScope::All, &C::mstrPrinterCapturePath,
         nullptr},
        {P, "ReConnectAtLogon", KeyKind::Flag, KeyScope::All, nullptr,
         &C::mblnPrinterCaptureReconnect},
        // A profile without the key sets the default printer.
        {P, "EnableDefaultPrinter", KeyKind::FlagOrEmpty, KeyScope::All, nullptr,
         &C::mblnEnableDefaultPrinter},
    };
    return keys;
}

bool clsNetConfigBase::InScope(KeyScope aScope) const {
    switch (aScope) {
        case KeyScope::DomainAccount:
            return mParticulars.DomainAccount;
        case KeyScope::LogonOptions:
            return mParticulars.LogonOptions;
        case KeyScope::All:
            break;
    }
    return true;
}

void clsNetConfigBase::StoreValue(const ProfileKey& aKey, const std::string& astrValue) {
    switch (aKey.Kind) {
        case KeyKind::Text:
            this->*aKey.Text = astrValue;
            break;
        case KeyKind::Flag:
            this->*aKey.Flag = ProfileFlag(astrValue);
            break;
        case KeyKind::FlagOrEmpty:
            this->*aKey.Flag = astrValue.empty() || astrValue == "1";
            break;
        case KeyKind::AddressList: {
            std::string list = astrValue;
            if (mParticulars.NulSeparatedAddresses)
                std::replace(list.begin(), list.end(), ',', '\0');
            this->*aKey.Text = list;
            break;
        }
        case KeyKind::Scrambled:
            this->*aKey.Text = UnscrambleText(astrValue);
            break;
    }
}

void clsNetConfigBase::ReadAdapter(const std::string& astrFile) {
    // Without adapters there is nothing to choose from.
    if (mintCurrentAdapter == -1 || mastrAdapterList.empty()) return;
    const std::string value = ReadValue(astrFile, kNetworkSection, "Adapter");
    if (Trim(value) == kIgnoreValue) return;
    // Stored without re-reading the adapter: the profile's values follow.
    mintCurrentAdapter = ChooseAdapter(value, mastrAdapterList);
}

// Values go straight into the record, so nothing is flagged here; the keys
// are read one by one, and an error leaves the keys read so far in place.
void clsNetConfigBase::LoadConfigurationFile(const std::string& astrFile) {
    Procedure proc(ClassName(), "LoadConfigurationFile");
    proc.LogValue(astrFile);
    proc.Run([&] {
        ReadAdapter(astrFile);
        for (const ProfileKey& key : ProfileKeys()) {
            if (!InScope(key.Scope)) continue;
            const std::string value = ReadValue(astrFile, key.Section, key.Key);
            if (Trim(value) == kIgnoreValue) continue;
            StoreValue(key, value);
        }
    });
}

// What is written is what the property getters show. "LMHostFile" is read
// from profiles but never written.
void clsNetConfigBase::SaveConfigurationfile(const std::string& astrFile) {
    Procedure proc(ClassName(), "SaveConfigurationfile");
    proc.LogValue(astrFile);
    proc.Run([&] {
        auto network = [&](const char* key, const std::string& value) {
            WriteProfileString(astrFile, kNetworkSection, key, value);
        };
        auto printer = [&](const char* key, const std::string& value) {
            WriteProfileString(astrFile, kPrinterSection, key, value);
        };
        auto addressList = [](const std::string& list) {
            const std::string text = CommaList(list);
            return text.empty() ? std::string(kEmptyAddressList) : text;
        };

        const int16_t adapter = CurrentAdapter();
        const std::vector<std::string> adapters = AdapterList();
        network("Adapter", adapter >= 0 && adapter < static_cast<int>(adapters.size())
                               ? adapters[adapter]
                               : std::string(kNoAdapters));
        network("IPAddress", addressList(IPAddress()));
        network("IPMask", addressList(IPMask()));
        network("DefaultGateway", DefaultGateway());
        network("NameServer", DNSServers());
        network("HostName", Host());
        network("Domain", DomainName());
        if (mParticulars.DomainAccount) {
            network("NTDomainUserName", ScrambleText(NTDomainUserName()));
            network("NTDomainPassword", ScrambleText(NTDomainPassword()));
        }
        network("SearchList", SearchList());
        network("NameServer1", WINSServer1());
        network("NameServer2", WINSServer2());
        network("ScopeID", ScopeID());
        network("EnableDNS", ProfileFlagText(DNSEnabled()));
        network("ComputerName", ComputerName());
        network("ComputerDescription", ComputerDescription());
        network("Workgroup", Workgroup());
        network("NTLogon", ProfileFlagText(NTLogonEnabled()));
        network("NTDomain", NTDomain());
        network("DHCP", ProfileFlagText(DHCPEnabled()));
        network("WINS", ProfileFlagText(WINSEnabled()));
        if (mParticulars.LogonOptions) {
            network("DisablePWDCache", ProfileFlagText(DisablePWDCache()));
            network("QuickLogon", ProfileFlagText(QuickLogon()));
        }

        printer("DefaultPrinter", DefaultPrinter());
        printer("AdvancedSettingsEnabled", ProfileFlagText(EnableAdvPrinterSettings()));
        printer("PrinterPort", PrinterPort());
        printer("PrinterCaptureDevice", PrinterCaptureDev());
        printer("PrinterCapturePath", PrinterCapturePath());
        printer("ReConnectAtLogon", ProfileFlagText(PrinterCaptureReconnect()));
        printer("EnableDefaultPrinter", ProfileFlagText(EnableDefaultPrinter()));
    });
}

}  // namespace rwz
