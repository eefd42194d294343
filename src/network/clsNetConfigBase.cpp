#include "network/clsNetConfigBase.h"

#include <windows.h>

#include <algorithm>
#include <utility>

#include "localization/modLocalization.h"
#include "network/modAdapterChoice.h"
#include "network/ZvPrinter.h"
#include "network/modAddressCheck.h"
#include "network/modPrinterCapture.h"
#include "network/modScramble.h"
#include "platform/Procedure.h"
#include "platform/modLogging.h"
#include "platform/modRegistry.h"
#include "platform/modUtilities.h"
#include "profile/modProfileIO.h"

namespace rwz {

namespace {

using R = NetRecord;
using S = NetSetting;

const char kNetworkSection[] = "Network";
const char kPrinterSection[] = "Printer";
const char kPrintersKey[] =
    "\\HKEY_LOCAL_MACHINE\\System\\CurrentControlSet\\Control\\Print\\Printers";

// The order in which LoadConfiguration captures the settings, after the
// adapters; a setting the back end has no row for is passed over.
const S kCaptureOrder[] = {
    S::ComputerName,   S::ComputerDescription,
    S::Workgroup,      S::Domain,
    S::Host,           S::IPAddress,
    S::IPMask,         S::LMHostFile,
    S::DNSServers,     S::WINSEnabled,
    S::WINSServer1,    S::WINSServer2,
    S::ScopeID,        S::SearchList,
    S::DNSEnabled,     S::DHCPEnabled,
    S::NTLogon,        S::NTDomain,
    S::PrinterList,    S::DefaultPrinter,
    S::DefaultGateway, S::DisablePWDCache,
    S::QuickLogon,     S::AdvPrinterSettings,
};

// What choosing another adapter re-reads, in this order.
const S kAdapterSettings[] = {S::DNSEnabled,  S::DNSServers,     S::IPAddress,
                              S::IPMask,      S::DefaultGateway, S::DHCPEnabled,
                              S::WINSServer1, S::WINSServer2,    S::WINSEnabled};

// The four advanced printer values share one flag.
bool IsAdvPrinterText(NetText aField) {
    return aField == &R::PrinterPort || aField == &R::PrinterCaptureDev ||
           aField == &R::PrinterCapturePath;
}

// Stored as assigned, with no flag: they only go with other settings.
bool IsUnflagged(NetText aField) {
    return aField == &R::NTDomainUserName || aField == &R::NTDomainPassword;
}
bool IsUnflagged(NetFlag aField) {
    return aField == &R::EnableDefaultPrinter || aField == &R::EnableAdvPrinterSettings;
}

// The keys of a profile's [Network] and [Printer] sections after "Adapter", in
// the order they are written and read.
enum class KeyKind { Text, Flag, FlagOrEmpty, AddressList, Scrambled };
enum class KeyScope { All, DomainAccount, LogonOptions, ReadOnly };
struct ProfileKey {
    const char* Section;
    const char* Key;
    KeyKind Kind;
    NetText Text;
    NetFlag Flag;
    KeyScope Scope;
};

const ProfileKey kProfileKeys[] = {
    {kNetworkSection, "IPAddress", KeyKind::AddressList, &R::IPAddress, nullptr, KeyScope::All},
    {kNetworkSection, "IPMask", KeyKind::AddressList, &R::IPMask, nullptr, KeyScope::All},
    {kNetworkSection, "DefaultGateway", KeyKind::Text, &R::DefaultGateway, nullptr, KeyScope::All},
    {kNetworkSection, "NameServer", KeyKind::Text, &R::DNSServers, nullptr, KeyScope::All},
    {kNetworkSection, "HostName", KeyKind::Text, &R::Host, nullptr, KeyScope::All},
    {kNetworkSection, "Domain", KeyKind::Text, &R::DomainName, nullptr, KeyScope::All},
    {kNetworkSection, "NTDomainUserName", KeyKind::Scrambled, &R::NTDomainUserName, nullptr,
     KeyScope::DomainAccount},
    {kNetworkSection, "NTDomainPassword", KeyKind::Scrambled, &R::NTDomainPassword, nullptr,
     KeyScope::DomainAccount},
    {kNetworkSection, "SearchList", KeyKind::Text, &R::SearchList, nullptr, KeyScope::All},
    // Taken from profiles, never written.
    {kNetworkSection, "LMHostFile", KeyKind::Text, &R::LMHostFile, nullptr, KeyScope::ReadOnly},
    {kNetworkSection, "NameServer1", KeyKind::Text, &R::WINSServer1, nullptr, KeyScope::All},
    {kNetworkSection, "NameServer2", KeyKind::Text, &R::WINSServer2, nullptr, KeyScope::All},
    {kNetworkSection, "ScopeID", KeyKind::Text, &R::ScopeID, nullptr, KeyScope::All},
    {kNetworkSection, "EnableDNS", KeyKind::Flag, nullptr, &R::DNSEnabled, KeyScope::All},
    {kNetworkSection, "ComputerName", KeyKind::Text, &R::ComputerName, nullptr, KeyScope::All},
    {kNetworkSection, "ComputerDescription", KeyKind::Text, &R::ComputerDescription, nullptr,
     KeyScope::All},
    {kNetworkSection, "Workgroup", KeyKind::Text, &R::Workgroup, nullptr, KeyScope::All},
    {kNetworkSection, "NTLogon", KeyKind::Flag, nullptr, &R::NTLogonEnabled, KeyScope::All},
    {kNetworkSection, "NTDomain", KeyKind::Text, &R::NTDomain, nullptr, KeyScope::All},
    {kNetworkSection, "DHCP", KeyKind::Flag, nullptr, &R::DHCPEnabled, KeyScope::All},
    {kNetworkSection, "WINS", KeyKind::Flag, nullptr, &R::WINSEnabled, KeyScope::All},
    {kNetworkSection, "DisablePWDCache", KeyKind::Flag, nullptr, &R::DisablePWDCache,
     KeyScope::LogonOptions},
    {kNetworkSection, "QuickLogon", KeyKind::Flag, nullptr, &R::QuickLogon, KeyScope::LogonOptions},
    {kPrinterSection, "DefaultPrinter", KeyKind::Text, &R::DefaultPrinter, nullptr, KeyScope::All},
    {kPrinterSection, "AdvancedSettingsEnabled", KeyKind::Flag, nullptr,
     &R::EnableAdvPrinterSettings, KeyScope::All},
    {kPrinterSection, "PrinterPort", KeyKind::Text, &R::PrinterPort, nullptr, KeyScope::All},
    {kPrinterSection, "PrinterCaptureDevice", KeyKind::Text, &R::PrinterCaptureDev, nullptr,
     KeyScope::All},
    {kPrinterSection, "PrinterCapturePath", KeyKind::Text, &R::PrinterCapturePath, nullptr,
     KeyScope::All},
    {kPrinterSection, "ReConnectAtLogon", KeyKind::Flag, nullptr, &R::PrinterCaptureReconnect,
     KeyScope::All},
    // A profile without the key sets the default printer.
    {kPrinterSection, "EnableDefaultPrinter", KeyKind::FlagOrEmpty, nullptr,
     &R::EnableDefaultPrinter, KeyScope::All},
};

// The lists whose every entry must be an address (or a mask) before anything
// of the area is applied.
const NetText kAddressLists[] = {&R::IPAddress,  &R::IPMask,      &R::DefaultGateway,
                                 &R::DNSServers, &R::WINSServer1, &R::WINSServer2};

// How long a program that does not answer may hold up the broadcast.
const UINT kBroadcastTimeout = 5000;
// LPT1 to LPT8.
const int kCaptureDevices = 8;

enum : int16_t {
    kMsgNoCapture = 38,
    kMsgNotAnAddress = 80,
    kMsgValueCut = 81,
    kMsgNoAdapterMatches = 82,
};

bool IsAddressList(NetText aField) {
    for (NetText field : kAddressLists)
        if (field == aField) return true;
    return false;
}

// The profile key that carries a field ("IPAddress", "NameServer", ...).
const char* KeyOf(NetText aField) {
    for (const ProfileKey& key : kProfileKeys)
        if (key.Text == aField) return key.Key;
    return "";
}

// Whether a value is longer than what a profile read returns.
bool IsCut(const std::string& astrFile, const char* astrSection, const char* astrKey,
           const std::string& astrValue) {
    if (astrValue.size() + 1 < kProfileValueBuffer) return false;
    std::vector<char> buffer(64 * 1024);
    const DWORD length =
        GetPrivateProfileStringA(astrSection, astrKey, "", buffer.data(),
                                 static_cast<DWORD>(buffer.size()), astrFile.c_str());
    return length > astrValue.size();
}

std::string Replaced(std::string astrText, char from, char to) {
    std::replace(astrText.begin(), astrText.end(), from, to);
    return astrText;
}

}  // namespace

NetSettingRow TextRow(const char* astrOperation, NetSetting aSetting, NetText aField,
                      ValueKind aKind, RegistryPlace aPlace, NetOperation aRead,
                      NetOperation aWrite) {
    return {astrOperation, aSetting, aField, nullptr, aKind, aPlace, aRead, aWrite};
}

NetSettingRow FlagRow(const char* astrOperation, NetSetting aSetting, NetFlag aField,
                      RegistryPlace aPlace, NetOperation aRead, NetOperation aWrite) {
    return {astrOperation, aSetting, nullptr, aField, ValueKind::Flag, aPlace, aRead, aWrite};
}

NetSettingRow Applied(NetSettingRow aRow, NetApply aApply) {
    aRow.Apply = aApply;
    return aRow;
}

// Every family ends its table with the same two printer rows: the list the
// spooler shows, then the port and capture, which read the default printer.
clsNetConfigBase::clsNetConfigBase(NetConfigParticulars aParticulars)
    : mParticulars(std::move(aParticulars)) {
    mParticulars.Rows.push_back(
        Applied(TextRow("PrinterList", S::PrinterList, nullptr, ValueKind::Text, {},
                        &clsNetConfigBase::ReadPrinterList),
                NetApply::Never));
    mParticulars.Rows.push_back(TextRow(
        "AdvPrinterSettings", S::AdvPrinterSettings, &R::PrinterPort, ValueKind::Text, {},
        &clsNetConfigBase::ReadAdvPrinterSettings, &clsNetConfigBase::WriteAdvPrinterSettings));
}

void clsNetConfigBase::LogLine(const std::string& astrText) const {
    WriteLog(std::string(ClassName()) + " - " + astrText, kLogDebug);
}

// --- Lists -------------------------------------------------------------------

std::vector<uint8_t> clsNetConfigBase::MultiStringBytes(
    const std::vector<std::string>& astrEntries) {
    std::vector<uint8_t> bytes;
    for (const std::string& entry : astrEntries) {
        bytes.insert(bytes.end(), entry.begin(), entry.end());
        bytes.push_back(0);
    }
    if (astrEntries.empty()) bytes.push_back(0);
    bytes.push_back(0);
    return bytes;
}

std::string clsNetConfigBase::AddressListFromCommas(const std::string& astrList) const {
    return mParticulars.NulSeparatedAddresses ? Replaced(astrList, ',', '\0') : astrList;
}

// --- Rows --------------------------------------------------------------------

const NetSettingRow* clsNetConfigBase::Row(NetSetting aSetting) const {
    for (const NetSettingRow& row : mParticulars.Rows)
        if (row.Setting == aSetting) return &row;
    return nullptr;
}

const NetSettingRow* clsNetConfigBase::RowOf(NetText aField) const {
    if (IsAdvPrinterText(aField)) return Row(S::AdvPrinterSettings);
    for (const NetSettingRow& row : mParticulars.Rows)
        if (row.Text == aField) return &row;
    return nullptr;
}

const NetSettingRow* clsNetConfigBase::RowOf(NetFlag aField) const {
    if (aField == &R::PrinterCaptureReconnect) return Row(S::AdvPrinterSettings);
    for (const NetSettingRow& row : mParticulars.Rows)
        if (row.Flag == aField) return &row;
    return nullptr;
}

std::string clsNetConfigBase::PlaceKey(const RegistryPlace& aPlace) const {
    if (!aPlace.Key) return std::string();
    if (!aPlace.PerAdapter) return aPlace.Key;
    const std::string adapter = CurrentAdapterKey();
    if (adapter.empty()) return std::string();
    return aPlace.Key + adapter + (aPlace.AdapterSubKey ? aPlace.AdapterSubKey : "");
}

std::string clsNetConfigBase::ReadPlaceText(const RegistryPlace& aPlace) const {
    const std::string key = PlaceKey(aPlace);
    if (key.empty()) return std::string();
    return reg::ReadText(key, aPlace.Name).value_or("");
}

void clsNetConfigBase::WritePlace(const RegistryPlace& aPlace, const RegistryData& aData) const {
    const std::string key = PlaceKey(aPlace);
    if (key.empty()) {
        LogLine(std::string("no adapter: ") + aPlace.Name + " not written");
        return;
    }
    if (reg::KeyExists(key)) reg::Write(key, aPlace.Name, aPlace.Type, aData);
}

void clsNetConfigBase::ReadRow(const NetSettingRow& aRow) {
    const std::string name = std::string("Get") + aRow.Operation;
    Procedure proc(ClassName(), name.c_str());
    proc.Run([&] {
        if (aRow.Read) {
            (this->*aRow.Read)();
            return;
        }
        const RegistryPlace& place = aRow.Place;
        if (aRow.Flag) {
            const std::string key = PlaceKey(place);
            mRecord.*aRow.Flag = !key.empty() && reg::ReadNumber(key, place.Name).value_or(0) == 1;
            return;
        }
        if (aRow.Kind == ValueKind::Number) {
            const std::string key = PlaceKey(place);
            const std::optional<long> number =
                key.empty() ? std::nullopt : reg::ReadNumber(key, place.Name);
            mRecord.*aRow.Text = number ? std::to_string(*number) : std::string();
            return;
        }
        std::string text = ReadPlaceText(place);
        // Multi-strings come NUL-separated; the record keeps its own separator.
        if (aRow.Kind == ValueKind::List ||
            (aRow.Kind == ValueKind::AddressList && !mParticulars.NulSeparatedAddresses))
            text = Replaced(text, '\0', ',');
        if (aRow.Kind == ValueKind::List && place.Separator)
            text = Join(ListEntries(Replaced(text, place.Separator[0], ',')), ",");
        mRecord.*aRow.Text = text;
    });
}

void clsNetConfigBase::WriteToPlace(const NetSettingRow& aRow) {
    const std::string name = std::string("Set") + aRow.Operation + " = ";
    const RegistryPlace& place = aRow.Place;
    if (aRow.Flag) {
        const bool on = mRecord.*aRow.Flag;
        LogLine(name + ProfileFlagText(on));
        if (!place.Key) return;
        WritePlace(place, place.Type == kRegString ? RegistryData(std::string(ProfileFlagText(on)))
                                                   : RegistryData(on ? 1.0 : 0.0));
        return;
    }
    const std::string& value = mRecord.*aRow.Text;
    if (aRow.Kind == ValueKind::Text || aRow.Kind == ValueKind::Number) {
        LogLine(name + value);
        if (!place.Key) return;
        if (aRow.Kind == ValueKind::Number)
            WritePlace(place, static_cast<double>(std::strtol(value.c_str(), nullptr, 10)));
        else
            WritePlace(place, value);
        return;
    }
    std::vector<std::string> entries = ListEntries(value);
    if (entries.empty() && aRow.Kind == ValueKind::AddressList)
        entries.push_back(kEmptyAddressList);
    LogLine(name + Join(entries, ","));
    if (!place.Key) return;
    if (place.Type == kRegMultiString)
        WritePlace(place, MultiStringBytes(entries));
    else
        WritePlace(place, Join(entries, place.Separator ? place.Separator : ","));
}

void clsNetConfigBase::WriteRow(const NetSettingRow& aRow) {
    const std::string name = std::string("Set") + aRow.Operation;
    Procedure proc(ClassName(), name.c_str());
    proc.Run([&] {
        switch (aRow.Apply) {
            case NetApply::Write:
                if (aRow.Write)
                    (this->*aRow.Write)();
                else
                    WriteToPlace(aRow);
                break;
            case NetApply::LogValue:
                proc.LogValue(aRow.Flag ? std::string(ProfileFlagText(mRecord.*aRow.Flag))
                                        : Replaced(mRecord.*aRow.Text, '\0', ','));
                break;
            case NetApply::EntryLine:
            case NetApply::Never:
                break;
        }
    });
}

void clsNetConfigBase::Write(NetSetting aSetting) {
    if (const NetSettingRow* row = Row(aSetting)) WriteRow(*row);
}

void clsNetConfigBase::Capture(NetSetting aSetting) {
    if (const NetSettingRow* row = Row(aSetting)) ReadRow(*row);
}

// --- Changed flags -------------------------------------------------------------

bool clsNetConfigBase::IsChanged(NetSetting aSetting) const {
    return mChanged.test(static_cast<size_t>(aSetting));
}

void clsNetConfigBase::MarkChanged(NetSetting aSetting) {
    mChanged.set(static_cast<size_t>(aSetting));
}

void clsNetConfigBase::ResetFlags() {
    Procedure proc(ClassName(), "ResetFlags");
    mChanged.reset();
    mRecord.ResetRequired = false;
    OnFlagsReset();
}

// Every assignment flags its setting, whether or not the value differs.
void clsNetConfigBase::Assign(NetText aField, const std::string& astrValue) {
    if (!aField) return;
    if (IsUnflagged(aField)) {
        mRecord.*aField = astrValue;
        return;
    }
    const NetSettingRow* row = RowOf(aField);
    if (!row) return;
    if (NoAdapterFor(*row)) {
        mRecord.*aField = astrValue;
        return;
    }
    // A list the profile read cut short stays refused until it is replaced.
    if (mRecord.*aField != astrValue)
        mCutFields.erase(std::remove(mCutFields.begin(), mCutFields.end(), aField),
                         mCutFields.end());
    mRecord.*aField = astrValue;
    MarkChanged(row->Setting);
    OnAssigned(row->Setting);
}

void clsNetConfigBase::Assign(NetFlag aField, bool ablnValue) {
    if (!aField) return;
    if (IsUnflagged(aField)) {
        mRecord.*aField = ablnValue;
        return;
    }
    const NetSettingRow* row = RowOf(aField);
    if (!row) return;
    mRecord.*aField = ablnValue;
    if (NoAdapterFor(*row)) return;
    MarkChanged(row->Setting);
    OnAssigned(row->Setting);
}

// --- Adapters --------------------------------------------------------------------

// A setting of the adapter on a machine without one: there is nothing to write
// it to, so it is kept but neither flagged nor waiting for a restart.
bool clsNetConfigBase::NoAdapterFor(const NetSettingRow& aRow) const {
    return aRow.Place.PerAdapter && mRecord.CurrentAdapter < 0;
}

bool clsNetConfigBase::IsAdapterIndex(int aintIndex) const {
    return aintIndex >= 0 && aintIndex < static_cast<int>(mRecord.AdapterList.size());
}

std::string clsNetConfigBase::CurrentAdapterKey() const {
    const int index = mRecord.CurrentAdapter;
    if (!IsAdapterIndex(index) || index >= static_cast<int>(mastrAdapterKeys.size()))
        return std::string();
    return mastrAdapterKeys[static_cast<size_t>(index)];
}

void clsNetConfigBase::SetCurrentAdapter(int16_t aintIndex) {
    Procedure proc(ClassName(), "SetCurrentAdapter");
    proc.Run([&] {
        // An index that names no adapter would make every read below use a
        // key that does not exist.
        if (!IsAdapterIndex(aintIndex)) {
            proc.Log("no adapter " + std::to_string(aintIndex));
            return;
        }
        mRecord.CurrentAdapter = aintIndex;
        mstrUnmatchedAdapter.clear();
        for (S setting : kAdapterSettings) Capture(setting);
    });
}

void clsNetConfigBase::SetCurrentAdapterNoRefresh(int16_t aintIndex) {
    if (IsAdapterIndex(aintIndex)) mRecord.CurrentAdapter = aintIndex;
}

void clsNetConfigBase::GetAdapterList() {
    Procedure proc(ClassName(), "GetAdapterList");
    proc.Run([&] {
        std::vector<std::string> names;
        std::vector<std::string> keys;
        EnumerateAdapters(names, keys);
        keys.resize(names.size());

        mRecord.AdapterList = std::move(names);
        mastrAdapterKeys = std::move(keys);
        if (mRecord.AdapterList.empty()) {
            mRecord.CurrentAdapter = -1;
            return;
        }
        // Open on the adapter the last applied profile configured; with two
        // equal names, the later one.
        const std::string lastApplied =
            GetProgramSetting(kProductName, "Options", "LastNICApplied", "");
        mRecord.CurrentAdapter = 0;
        for (size_t i = 0; i < mRecord.AdapterList.size(); ++i)
            if (mRecord.AdapterList[i] == lastApplied)
                mRecord.CurrentAdapter = static_cast<int16_t>(i);
    });
}

// --- The machine -------------------------------------------------------------------

void clsNetConfigBase::LoadConfiguration() {
    Procedure proc(ClassName(), "LoadConfiguration");
    proc.Run([&] {
        GetAdapterList();
        for (S setting : kCaptureOrder) Capture(setting);
        // A freshly captured record has nothing to apply.
        ResetFlags();
    });
}

std::vector<std::string> clsNetConfigBase::ApplyConfiguration() {
    Procedure proc(ClassName(), "ApplyConfiguration");
    mastrReports.clear();
    proc.Run([&] {
        // Nothing of the area is applied when any of it cannot be.
        const std::string refusal = Refusal();
        if (!refusal.empty()) {
            proc.Log("not applied: " + Replaced(refusal, '\n', ' '));
            Report(refusal);
            return;
        }
        for (const NetSettingRow& row : mParticulars.Rows) {
            if (row.Setting == S::AdvPrinterSettings || row.Apply == NetApply::Never) continue;
            if (!IsChanged(row.Setting)) continue;
            if (row.Setting == S::DefaultPrinter && !mRecord.EnableDefaultPrinter) continue;
            // An empty name would leave the machine without one: it is never written.
            if (IsNameSetting(row.Setting) && row.Text && Trim(mRecord.*row.Text).empty()) {
                WriteLog(std::string(ClassName()) + " - Set" + row.Operation +
                             ": an empty name is not written",
                         kLogWarning);
                continue;
            }
            WriteRow(row);
        }
        // It checks its own flag.
        Write(S::AdvPrinterSettings);
        ResetFlags();
    });
    return std::move(mastrReports);
}

bool clsNetConfigBase::IsNameSetting(NetSetting aSetting) {
    return aSetting == S::ComputerName || aSetting == S::Host || aSetting == S::Workgroup;
}

std::string clsNetConfigBase::Refusal() const {
    if (!mstrUnmatchedAdapter.empty())
        return MessageText(kMsgNoAdapterMatches, {mstrUnmatchedAdapter});
    for (NetText field : kAddressLists) {
        const NetSettingRow* row = RowOf(field);
        if (!row || !IsChanged(row->Setting)) continue;
        if (std::find(mCutFields.begin(), mCutFields.end(), field) != mCutFields.end())
            return MessageText(kMsgValueCut, {KeyOf(field)});
        std::string bad;
        if (const int16_t message = AddressListMessage(field, mRecord.*field, &bad))
            return JoinMessages(
                {MessageText(kMsgNotAnAddress, {KeyOf(field), bad}), MessageText(message)});
    }
    return std::string();
}

// --- Printers ----------------------------------------------------------------------

void clsNetConfigBase::ReadPrinterList() {
    mRecord.printerList.clear();
    for (const std::string& printer : reg::SubKeys(kPrintersKey)) {
        const std::string name =
            reg::ReadText(std::string(kPrintersKey) + "\\" + printer, "Name").value_or("");
        if (!name.empty()) mRecord.printerList.push_back(name.substr(0, name.find('\0')));
    }
}

void clsNetConfigBase::ReadDefaultPrinter() {
    // "Device" holds printer name, driver and port, separated by ",".
    char buffer[1024] = {};
    ::GetProfileStringA("windows", "Device", "", buffer, sizeof buffer);
    const std::string device = buffer;
    mRecord.DefaultPrinter = device.substr(0, device.find(','));
}

void clsNetConfigBase::WriteDefaultPrinter() {
    const std::string& printer = mRecord.DefaultPrinter;
    LogLine("SetDefaultPrinter = " + printer);
    if (printer.empty()) return;
    // The printer's entry: driver, port and the two time-outs.
    char buffer[1024] = {};
    ::GetProfileStringA("PrinterPorts", printer.c_str(), "", buffer, sizeof buffer);
    const std::vector<std::string> parts = Split(buffer, ",");
    const std::string driver = parts.empty() ? std::string() : Trim(parts[0]);
    const std::string port = parts.size() > 1 ? Trim(parts[1]) : std::string();
    if (driver.empty() || port.empty()) {
        LogLine("SetDefaultPrinter: no driver and port for the printer");
        return;
    }
    ::WriteProfileStringA("windows", "Device", (printer + "," + driver + "," + port).c_str());
    BroadcastWindowsChange();
}

// A hung program must not hold up the apply: it misses the news instead.
void clsNetConfigBase::BroadcastWindowsChange() {
    DWORD_PTR ignored = 0;
    SendMessageTimeoutA(HWND_BROADCAST, WM_WININICHANGE, 0, reinterpret_cast<LPARAM>("windows"),
                        SMTO_ABORTIFHUNG, kBroadcastTimeout, &ignored);
}

// The printer's port, and the first parallel port captured (with whether the
// system restores it at logon); no device when nothing is captured.
void clsNetConfigBase::ReadAdvPrinterSettings() {
    ReadPrinterPort();
    mRecord.PrinterCaptureDev.clear();
    mRecord.PrinterCapturePath.clear();
    mRecord.PrinterCaptureReconnect = false;
    for (int number = 1; number <= kCaptureDevices; ++number) {
        const std::string device = "LPT" + std::to_string(number);
        const std::string path = CapturePath(device);
        if (path.empty()) continue;
        mRecord.PrinterCaptureDev = device;
        mRecord.PrinterCapturePath = path;
        mRecord.PrinterCaptureReconnect = reg::KeyExists(mParticulars.ReconnectStore + device);
        return;
    }
}

void clsNetConfigBase::WriteAdvPrinterSettings() {
    if (!IsChanged(S::AdvPrinterSettings)) return;
    if (!mRecord.EnableAdvPrinterSettings) {
        LogLine("SetAdvPrinterSettings: not part of the profile");
        return;
    }
    WritePrinterPort();
    WriteCapture();
    // Running programs re-read the printer settings: the system's cached
    // WIN.INI first, then the news that its "windows" section changed.
    ::WriteProfileStringA(nullptr, nullptr, nullptr);
    BroadcastWindowsChange();
    LogLine("SetAdvPrinterSettings: change of \"windows\" broadcast");
}

void clsNetConfigBase::WritePrinterPort() {
    const std::string& printer = mRecord.DefaultPrinter;
    const std::string port = Trim(mRecord.PrinterPort);
    LogLine("SetAdvPrinterSettings: port of " + printer + " = " + port);
    if (printer.empty() || port.empty()) return;
    // A port the machine lacks would leave the printer printing nowhere.
    if (!ZvPrinter::HasPort(port)) {
        LogLine("SetAdvPrinterSettings: no port " + port + " here: the printer keeps its port");
        return;
    }
    const std::string key = std::string(kPrintersKey) + "\\" + printer;
    if (reg::KeyExists(key)) reg::Write(key, "Port", kRegString, port);
    const bool set = ZvPrinter::SetPort(printer, port);
    LogLine(std::string("SetAdvPrinterSettings: SetPrinter RC = ") + (set ? "1" : "0"));
    if (mParticulars.PortInWinIni) WritePortToWinIni(printer, port);
}

void clsNetConfigBase::WriteCapture() {
    const std::string device = Trim(mRecord.PrinterCaptureDev);
    const std::string path = Trim(mRecord.PrinterCapturePath);
    if (device.empty() || device == kNoCapture) {
        LogLine("SetAdvPrinterSettings: no capture");
        return;
    }
    const std::string failed = MessageText(kMsgNoCapture, {path + " - " + device});
    // What cannot be captured leaves the device's connection as it is.
    if (!IsCaptureDevice(device) || !IsPrinterPath(path)) {
        LogLine("SetAdvPrinterSettings: " + device + " cannot be captured to " + path);
        Report(failed);
        return;
    }
    // Any earlier connection of the device goes first.
    CancelCapture(device, mRecord.PrinterCaptureReconnect);
    if (AddCapture(device, path, mRecord.PrinterCaptureReconnect) != 0) Report(failed);
}

void clsNetConfigBase::WritePortToWinIni(const std::string& astrPrinter,
                                         const std::string& astrPort) const {
    // Each entry lists the driver first, then the port, then what follows it.
    struct Entry {
        const char* Section;
        const char* Key;
        size_t PortPart;
    };
    for (const Entry& entry :
         {Entry{"devices", astrPrinter.c_str(), 1}, Entry{"PrinterPorts", astrPrinter.c_str(), 1},
          Entry{"windows", "Device", 2}}) {
        char buffer[1024] = {};
        ::GetProfileStringA(entry.Section, entry.Key, "", buffer, sizeof buffer);
        std::vector<std::string> parts = Split(buffer, ",");
        if (parts.size() <= entry.PortPart) continue;
        // "Device" names the default printer first: only this printer's changes.
        if (entry.PortPart == 2 && Trim(parts[0]) != astrPrinter) continue;
        parts[entry.PortPart] = astrPort;
        ::WriteProfileStringA(entry.Section, entry.Key, Join(parts, ",").c_str());
    }
}

// Only the port follows the printer: the capture is the machine's, read with
// the configuration, and keeps what the user set since.
void clsNetConfigBase::GetAdvPrinterSettings() {
    Procedure proc(ClassName(), "GetAdvPrinterSettings");
    proc.Run([&] { ReadPrinterPort(); });
}

void clsNetConfigBase::ReadPrinterPort() {
    const std::string port =
        mRecord.DefaultPrinter.empty()
            ? std::string()
            : reg::ReadText(std::string(kPrintersKey) + "\\" + mRecord.DefaultPrinter, "Port")
                  .value_or("");
    mRecord.PrinterPort = port.substr(0, port.find('\0'));
}

// --- Profile file ----------------------------------------------------------------------

std::string clsNetConfigBase::EvaluateProfileValue(const std::string& astrValue) const {
    return EvaluateCondition(astrValue);
}

void clsNetConfigBase::ReadAdapter(const std::string& astrFile) {
    // Without adapters there is nothing to choose from.
    if (mRecord.CurrentAdapter == -1 || mRecord.AdapterList.empty()) return;
    const std::string value =
        EvaluateProfileValue(ReadProfileString(astrFile, kNetworkSection, "Adapter", ""));
    if (Trim(value) == kIgnoreValue) return;
    // Stored without re-reading the adapter: the profile's values follow.
    mRecord.CurrentAdapter = ChooseAdapter(value, mRecord.AdapterList);
    // A pattern that matches no adapter must not configure the first one.
    if (value.size() >= 2 && value.front() == '{' && value.back() == '}') {
        const std::string pattern = value.substr(1, value.size() - 2);
        bool matched = false;
        for (const std::string& name : mRecord.AdapterList)
            matched = matched || MatchesPattern(name, pattern);
        if (!matched) {
            mstrUnmatchedAdapter = value;
            LogLine("LoadConfigurationFile: no adapter matches " + value);
        }
    }
}

// Values go straight into the record, so nothing is flagged here; the keys
// are read one by one, and an error leaves the keys read so far in place.
void clsNetConfigBase::LoadConfigurationFile(const std::string& astrFile) {
    Procedure proc(ClassName(), "LoadConfigurationFile");
    proc.LogValue(astrFile);
    proc.Run([&] {
        mstrUnmatchedAdapter.clear();
        mCutFields.clear();
        ReadAdapter(astrFile);
        for (const ProfileKey& key : kProfileKeys) {
            if (key.Scope == KeyScope::DomainAccount && !mParticulars.DomainAccount) continue;
            if (key.Scope == KeyScope::LogonOptions && !Row(S::DisablePWDCache)) continue;
            const std::string raw = ReadProfileString(astrFile, key.Section, key.Key, "");
            const std::string value = EvaluateProfileValue(raw);
            if (Trim(value) == kIgnoreValue) continue;
            if (key.Text && IsAddressList(key.Text) && IsCut(astrFile, key.Section, key.Key, raw))
                mCutFields.push_back(key.Text);
            switch (key.Kind) {
                case KeyKind::Text:
                    mRecord.*key.Text = value;
                    break;
                case KeyKind::Flag:
                    mRecord.*key.Flag = ProfileFlag(value);
                    break;
                case KeyKind::FlagOrEmpty:
                    mRecord.*key.Flag = value.empty() || value == "1";
                    break;
                case KeyKind::AddressList:
                    mRecord.*key.Text = AddressListFromCommas(value);
                    break;
                case KeyKind::Scrambled:
                    mRecord.*key.Text = UnscrambleText(value);
                    break;
            }
        }
    });
}

// What is written is what the record holds, lists with "," between entries.
void clsNetConfigBase::SaveConfigurationfile(const std::string& astrFile) {
    Procedure proc(ClassName(), "SaveConfigurationfile");
    proc.LogValue(astrFile);
    proc.Run([&] {
        const int16_t adapter = mRecord.CurrentAdapter;
        WriteProfileString(
            astrFile, kNetworkSection, "Adapter",
            IsAdapterIndex(adapter) ? mRecord.AdapterList[adapter] : std::string(kNoAdapters));
        for (const ProfileKey& key : kProfileKeys) {
            if (key.Scope == KeyScope::ReadOnly) continue;
            if (key.Scope == KeyScope::DomainAccount && !mParticulars.DomainAccount) continue;
            if (key.Scope == KeyScope::LogonOptions && !Row(S::DisablePWDCache)) continue;
            std::string value;
            switch (key.Kind) {
                case KeyKind::Text:
                    value = mRecord.*key.Text;
                    break;
                case KeyKind::Flag:
                case KeyKind::FlagOrEmpty:
                    value = ProfileFlagText(mRecord.*key.Flag);
                    break;
                case KeyKind::AddressList:
                    value = Replaced(mRecord.*key.Text, '\0', ',');
                    if (value.empty()) value = kEmptyAddressList;
                    break;
                case KeyKind::Scrambled:
                    value = ScrambleText(mRecord.*key.Text);
                    break;
            }
            WriteProfileString(astrFile, key.Section, key.Key, value);
        }
    });
}

}  // namespace rwz
