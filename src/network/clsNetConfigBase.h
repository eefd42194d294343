// What the network back ends share. A back end declares its settings as rows
// (NetSettingRow): where each lives in the registry, or the function that
// reads and writes it when a networking service is involved. The base runs
// the rows: the capture walk of LoadConfiguration, the refresh when another
// adapter is chosen, the apply walk in the back end's order, the changed
// flags, and the [Network] and [Printer] sections of a profile. It also holds
// what every family does alike: list conversions and the printer operations.
#pragma once

#include <bitset>
#include <cstdint>
#include <string>
#include <vector>

#include "network/INetConfig.h"
#include "network/modAddressCheck.h"
#include "platform/clsEasyRegistry.h"

namespace rwz {

class clsNetConfigBase;
// A back end's own read or write of one setting.
using NetOperation = void (clsNetConfigBase::*)();
template <class Backend>
NetOperation Op(void (Backend::*aOperation)()) {
    return static_cast<NetOperation>(aOperation);
}

// How a value is kept in the record and in the registry.
enum class ValueKind {
    Text,         // a string
    Flag,         // a switch: 1 or 0, as a double word or as text
    List,         // a "," list in the record; a multi-string or text in the registry
    AddressList,  // IPAddress, IPMask: in the back end's separator; empty written as "0.0.0.0"
    Number,       // a whole number kept as text in the record, a double word in the registry
};

// Where a setting lives in the registry. With PerAdapter the current adapter's
// key is appended to Key.
struct RegistryPlace {
    const char* Key = nullptr;
    const char* Name = nullptr;
    int Type = 0;
    bool PerAdapter = false;
    // Follows the adapter's key in the path, as "\Parameters\Tcpip".
    const char* AdapterSubKey = nullptr;
    // Between the entries of a List kept as text, when not "," (one character).
    const char* Separator = nullptr;
};

// What applying a flagged setting does.
enum class NetApply {
    Write,      // the row's Write, or else the value written to its place
    LogValue,   // the value is only logged: the system takes it from other settings
    EntryLine,  // nothing but the operation's log line: the system has no such switch
    Never,      // the setting is read but this system never writes it
};

// One setting of a back end. Operation names it in the log ("IPAddress" gives
// "GetIPAddress" and "SetIPAddress"). Read and Write, when given, replace the
// registry read or write of the place.
struct NetSettingRow {
    const char* Operation;
    NetSetting Setting;
    NetText Text;
    NetFlag Flag;
    ValueKind Kind;
    RegistryPlace Place;
    NetOperation Read = nullptr;
    NetOperation Write = nullptr;
    NetApply Apply = NetApply::Write;
};

// Row helpers: a text or a switch in the registry, or handled by functions.
NetSettingRow TextRow(const char* astrOperation, NetSetting aSetting, NetText aField,
                      ValueKind aKind, RegistryPlace aPlace, NetOperation aRead = nullptr,
                      NetOperation aWrite = nullptr);
NetSettingRow FlagRow(const char* astrOperation, NetSetting aSetting, NetFlag aField,
                      RegistryPlace aPlace, NetOperation aRead = nullptr,
                      NetOperation aWrite = nullptr);
// The row with another way of applying.
NetSettingRow Applied(NetSettingRow aRow, NetApply aApply);

// How one family of systems differs in the shared part.
struct NetConfigParticulars {
    // The back end's class name, which heads its log lines ("clsNetConfig2K").
    const char* ClassName = "";
    // Profiles carry the domain account ("NTDomainUserName", "NTDomainPassword").
    bool DomainAccount = false;
    // IPAddress and IPMask are kept NUL-separated in memory, as a multi-string.
    bool NulSeparatedAddresses = false;
    // The settings, in the order ApplyConfiguration writes them (each when
    // flagged; DefaultPrinter also needs EnableDefaultPrinter). The
    // PrinterList and AdvPrinterSettings rows are the same for every family:
    // the base appends them; AdvPrinterSettings is written last, even
    // unflagged: it checks its own flag. DisablePWDCache and QuickLogon are
    // supported exactly when they have a row.
    std::vector<NetSettingRow> Rows;
    // Where the system keeps the connections it restores at logon, one key
    // per local device ("LPT1") below it.
    const char* ReconnectStore = "\\HKEY_CURRENT_USER\\Network\\";
    // Programs take a printer's port from WIN.INI ("devices", "PrinterPorts",
    // the "windows" section's "Device"), which the system does not update.
    bool PortInWinIni = false;
};

class clsNetConfigBase : public INetConfig {
  public:
    // A profile value that keeps what the record holds.
    static constexpr const char* kIgnoreValue = "{IGNORE}";
    // The "Adapter" value written when the machine has no adapter.
    static constexpr const char* kNoAdapters = "No Adapters Installed";
    // An empty address or mask list as written.
    static constexpr const char* kEmptyAddressList = "0.0.0.0";

    const NetRecord& Record() const override { return mRecord; }
    void Assign(NetText aField, const std::string& astrValue) override;
    void Assign(NetFlag aField, bool ablnValue) override;
    void SetCurrentAdapter(int16_t aintIndex) override;
    void SetCurrentAdapterNoRefresh(int16_t aintIndex) override;

    void LoadConfiguration() override;
    std::vector<std::string> ApplyConfiguration() override;
    void LoadConfigurationFile(const std::string& astrFile) override;
    void SaveConfigurationfile(const std::string& astrFile) override;
    void ResetFlags() override;
    void GetAdapterList() override;
    void GetAdvPrinterSettings() override;
    std::string AddressListFromCommas(const std::string& astrList) const override;
    std::string CurrentAdapterType() const override { return ""; }

    // Whether an assignment has marked the setting for the next apply.
    bool IsChanged(NetSetting aSetting) const;
    // The key of the adapter at CurrentAdapter; "" when there is none.
    std::string CurrentAdapterKey() const;
    const char* ClassName() const { return mParticulars.ClassName; }

    // A multi-string as Windows documents it: each entry ends in a NUL and the
    // list ends in one more (an empty list is two NULs).
    static std::vector<uint8_t> MultiStringBytes(const std::vector<std::string>& astrEntries);

  protected:
    explicit clsNetConfigBase(NetConfigParticulars aParticulars);

    void MarkChanged(NetSetting aSetting);
    // Called after every assignment that flags `aSetting`: the place for a back
    // end's side effects (more flags, ResetRequired).
    virtual void OnAssigned(NetSetting aSetting) {}
    // Appends the installed adapters to two parallel lists: display names and
    // adapter keys, in the order the system lists them.
    virtual void EnumerateAdapters(std::vector<std::string>& astrNames,
                                   std::vector<std::string>& astrKeys) = 0;
    // Resolves a conditional profile value for the running system.
    virtual std::string EvaluateProfileValue(const std::string& astrValue) const;
    // Called when the flags are cleared, for a back end's own per-apply state.
    virtual void OnFlagsReset() {}
    // Tells the user something after the apply (one message box each).
    void Report(std::string astrText) { mastrReports.push_back(std::move(astrText)); }
    // "clsNetConfig2K - <text>" at level Debug, for lines that are not a
    // procedure's entry line.
    void LogLine(const std::string& astrText) const;

    // The registry key of a place; "" when it belongs to an adapter and there is none.
    std::string PlaceKey(const RegistryPlace& aPlace) const;
    // A string value of a place; "" when it cannot be read.
    std::string ReadPlaceText(const RegistryPlace& aPlace) const;
    // Writes a value where its key exists; a missing key is passed over.
    void WritePlace(const RegistryPlace& aPlace, const RegistryData& aData) const;

    // Writes a row's value to its place (or only logs it without a place),
    // for a back end's Write that does more.
    void WriteToPlace(const NetSettingRow& aRow);
    // Applies one setting as its row says, with the operation's log line.
    void Write(NetSetting aSetting);
    const NetSettingRow* Row(NetSetting aSetting) const;

    // The printer operations all families share: the printers the spooler
    // lists, the "windows" section's default printer, the printer's port and
    // the capture of a printer port.
    void ReadPrinterList();
    void ReadDefaultPrinter();
    void WriteDefaultPrinter();
    // Tells running programs that WIN.INI's "windows" section changed.
    static void BroadcastWindowsChange();
    void ReadAdvPrinterSettings();
    void WriteAdvPrinterSettings();
    // The "Port" of the record's default printer into PrinterPort.
    void ReadPrinterPort();

    NetRecord mRecord;

  private:
    const NetSettingRow* RowOf(NetText aField) const;
    const NetSettingRow* RowOf(NetFlag aField) const;
    void ReadRow(const NetSettingRow& aRow);
    void WriteRow(const NetSettingRow& aRow);
    void Capture(NetSetting aSetting);
    bool IsAdapterIndex(int aintIndex) const;
    bool NoAdapterFor(const NetSettingRow& aRow) const;
    void ReadAdapter(const std::string& astrFile);
    // Why nothing of the area may be applied: a profile's adapter pattern that
    // matched no adapter, a list cut short by the profile read, an entry that
    // is not an address; "" when all is well.
    std::string Refusal() const;
    // The computer name, host name and workgroup: never written empty.
    static bool IsNameSetting(NetSetting aSetting);
    // The two steps of WriteAdvPrinterSettings.
    void WritePrinterPort();
    void WriteCapture();
    void WritePortToWinIni(const std::string& astrPrinter, const std::string& astrPort) const;

    NetConfigParticulars mParticulars;
    std::vector<std::string> mastrAdapterKeys;
    std::bitset<static_cast<size_t>(NetSetting::Count)> mChanged;
    std::vector<std::string> mastrReports;
    // The profile's "Adapter" pattern when it matched no adapter.
    std::string mstrUnmatchedAdapter;
    // The lists the profile read cut short.
    std::vector<NetText> mCutFields;
};

}  // namespace rwz
