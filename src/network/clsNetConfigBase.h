// What the three network back ends share: the network record with its changed
// flags, the adapter lists, the [Network] and [Printer] sections of a profile,
// the capture sequence of LoadConfiguration and the apply walk. A back end
// derives from this class and adds its particulars (NetConfigParticulars), the
// adapter enumeration and the Get and Set operations that talk to its system.
//
// A back end that overrides a write operation such as SetIPAddress() hides the
// property setter SetIPAddress(x) in its own scope; call the setter through
// INetConfig, or add `using clsNetConfigBase::SetIPAddress;`.
#pragma once

#include <bitset>
#include <cstdint>
#include <string>
#include <vector>

#include "network/INetConfig.h"

namespace rwz {

// The settings that carry a changed flag, named after their Set operations.
// The four advanced printer values share AdvPrinterSettings.
enum class NetSetting : int {
    ComputerName,
    ComputerDescription,
    Workgroup,
    NTLogon,
    NTDomain,
    Domain,
    Host,
    IPAddress,
    IPMask,
    LMHostFile,
    DNSServers,
    WINSEnabled,
    WINSServer1,
    WINSServer2,
    ScopeID,
    SearchList,
    DNSEnabled,
    DHCPEnabled,
    DefaultPrinter,
    DefaultGateway,
    DisablePWDCache,
    QuickLogon,
    AdvPrinterSettings,
    Count
};

// "SetComputerName" ... "SetAdvPrinterSettings": the operation that writes the setting.
const char* SetOperationName(NetSetting aSetting);

// How one family of systems differs in the shared part.
struct NetConfigParticulars {
    // The back end's class name, which heads its log lines ("clsNetConfig2K").
    const char* ClassName = "";
    // Profiles carry the domain account ("NTDomainUserName", "NTDomainPassword").
    bool DomainAccount = false;
    // DisablePWDCache and QuickLogon are supported, read and written.
    bool LogonOptions = false;
    // IPAddress and IPMask are kept NUL-separated in memory, as a multi-string.
    bool NulSeparatedAddresses = false;
    // The settings ApplyConfiguration writes, in this order, each when flagged.
    // DefaultPrinter also needs EnableDefaultPrinter; SetAdvPrinterSettings is
    // always called after the list and need not be in it.
    std::vector<NetSetting> ApplyOrder;
};

class clsNetConfigBase : public INetConfig {
  public:
    // A profile value that keeps what the record holds.
    static constexpr const char* kIgnoreValue = "{IGNORE}";
    // The "Adapter" value written when the machine has no adapter.
    static constexpr const char* kNoAdapters = "No Adapters Installed";
    // An empty address or mask list as written to a profile.
    static constexpr const char* kEmptyAddressList = "0.0.0.0";

    // The write operations share their names with the property setters below.
    using INetConfig::SetComputerDescription;
    using INetConfig::SetComputerName;
    using INetConfig::SetDefaultGateway;
    using INetConfig::SetDefaultPrinter;
    using INetConfig::SetDHCPEnabled;
    using INetConfig::SetDNSEnabled;
    using INetConfig::SetDNSServers;
    using INetConfig::SetHost;
    using INetConfig::SetIPAddress;
    using INetConfig::SetIPMask;
    using INetConfig::SetLMHostFile;
    using INetConfig::SetNTDomain;
    using INetConfig::SetScopeID;
    using INetConfig::SetSearchList;
    using INetConfig::SetWINSEnabled;
    using INetConfig::SetWINSServer1;
    using INetConfig::SetWINSServer2;
    using INetConfig::SetWorkgroup;

    bool ResetRequired() const override { return mblnResetRequired; }
    std::string DefaultGateway() const override { return mstrDefaultGateway; }
    void SetDefaultGateway(const std::string& astrValue) override;
    bool EnableDefaultPrinter() const override { return mblnEnableDefaultPrinter; }
    void SetEnableDefaultPrinter(bool ablnValue) override { mblnEnableDefaultPrinter = ablnValue; }
    std::string DefaultPrinter() const override { return mstrDefaultPrinter; }
    void SetDefaultPrinter(const std::string& astrValue) override;
    bool EnableAdvPrinterSettings() const override { return mblnEnableAdvPrinterSettings; }
    void SetEnableAdvPrinterSettings(bool ablnValue) override {
        mblnEnableAdvPrinterSettings = ablnValue;
    }
    std::string PrinterPort() const override { return mstrPrinterPort; }
    void SetPrinterPort(const std::string& astrValue) override;
    std::string PrinterCaptureDev() const override { return mstrPrinterCaptureDev; }
    void SetPrinterCaptureDev(const std::string& astrValue) override;
    std::string PrinterCapturePath() const override { return mstrPrinterCapturePath; }
    void SetPrinterCapturePath(const std::string& astrValue) override;
    bool PrinterCaptureReconnect() const override { return mblnPrinterCaptureReconnect; }
    void SetPrinterCaptureReconnect(bool ablnValue) override;
    std::vector<std::string> printerList() const override { return mastrPrinterList; }
    bool NTLogonEnabled() const override { return mblnNTLogonEnabled; }
    void SetNTLogonEnabled(bool ablnValue) override;
    std::string NTDomain() const override { return mstrNTDomain; }
    void SetNTDomain(const std::string& astrValue) override;
    std::string NTDomainUserName() const override { return mstrNTDomainUserName; }
    void SetNTDomainUserName(const std::string& astrValue) override {
        mstrNTDomainUserName = astrValue;
    }
    std::string NTDomainPassword() const override { return mstrNTDomainPassword; }
    void SetNTDomainPassword(const std::string& astrValue) override {
        mstrNTDomainPassword = astrValue;
    }
    std::string DomainName() const override { return mstrDomainName; }
    void SetDomainName(const std::string& astrValue) override;
    std::string Host() const override { return mstrHost; }
    void SetHost(const std::string& astrValue) override;
    std::string LMHostFile() const override { return mstrLMHostFile; }
    void SetLMHostFile(const std::string& astrValue) override;
    std::string DNSServers() const override { return mstrDNSServers; }
    void SetDNSServers(const std::string& astrValue) override;
    std::string WINSServer1() const override { return mstrWINSServer1; }
    void SetWINSServer1(const std::string& astrValue) override;
    std::string WINSServer2() const override { return mstrWINSServer2; }
    void SetWINSServer2(const std::string& astrValue) override;
    std::string ScopeID() const override { return mstrScopeID; }
    void SetScopeID(const std::string& astrValue) override;
    std::string SearchList() const override { return mstrSearchList; }
    void SetSearchList(const std::string& astrValue) override;
    bool DNSEnabled() const override { return mblnDNSEnabled; }
    void SetDNSEnabled(bool ablnValue) override;
    bool DHCPEnabled() const override { return mblnDHCPEnabled; }
    void SetDHCPEnabled(bool ablnValue) override;
    std::string ComputerName() const override { return mstrComputerName; }
    void SetComputerName(const std::string& astrValue) override;
    std::string ComputerDescription() const override { return mstrComputerDescription; }
    void SetComputerDescription(const std::string& astrValue) override;
    std::string Workgroup() const override { return mstrWorkgroup; }
    void SetWorkgroup(const std::string& astrValue) override;
    bool WINSEnabled() const override { return mblnWINSEnabled; }
    void SetWINSEnabled(bool ablnValue) override;
    std::string IPAddress() const override { return mstrIPAddress; }
    void SetIPAddress(const std::string& astrValue) override;
    std::string IPMask() const override { return mstrIPMask; }
    void SetIPMask(const std::string& astrValue) override;
    std::vector<std::string> AdapterList() const override { return mastrAdapterList; }
    int16_t CurrentAdapter() const override { return mintCurrentAdapter; }
    void SetCurrentAdapter(int16_t aintIndex) override;
    void SetCurrentAdapterNoRefresh(int16_t aintIndex) override;
    bool DisablePWDCache() const override { return mblnDisablePWDCache; }
    void SetDisablePWDCache(bool ablnValue) override;
    bool QuickLogon() const override { return mblnQuickLogon; }
    void SetQuickLogon(bool ablnValue) override;

    void LoadConfiguration() override;
    void ApplyConfiguration() override;
    void LoadConfigurationFile(const std::string& astrFile) override;
    void SaveConfigurationfile(const std::string& astrFile) override;
    void ResetFlags() override;
    // Enumerates the adapters and opens on the one applied last ("LastNICApplied").
    void GetAdapterList() override;

    // Only the 95/98/ME back end has these; elsewhere they do nothing.
    void GetDisablePWDCache() override {}
    void GetQuickLogon() override {}
    void SetDisablePWDCache() override {}
    void SetQuickLogon() override {}

    // Whether an assignment has marked the setting for the next apply.
    bool IsChanged(NetSetting aSetting) const;
    // The adapter keys, parallel to AdapterList.
    const std::vector<std::string>& AdapterKeys() const { return mastrAdapterKeys; }
    // The key of the adapter at CurrentAdapter; "" when there is none.
    std::string CurrentAdapterKey() const;
    const char* ClassName() const { return mParticulars.ClassName; }
    const NetConfigParticulars& Particulars() const { return mParticulars; }

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

    // The network record.
    bool mblnResetRequired = false;
    std::string mstrDefaultGateway;
    // True until a profile says otherwise: a profile without the key sets the
    // default printer.
    bool mblnEnableDefaultPrinter = true;
    std::string mstrDefaultPrinter;
    bool mblnEnableAdvPrinterSettings = false;
    std::string mstrPrinterPort;
    std::string mstrPrinterCaptureDev;
    std::string mstrPrinterCapturePath;
    bool mblnPrinterCaptureReconnect = false;
    std::vector<std::string> mastrPrinterList;
    bool mblnNTLogonEnabled = false;
    std::string mstrNTDomain;
    std::string mstrNTDomainUserName;
    std::string mstrNTDomainPassword;
    std::string mstrDomainName;
    std::string mstrHost;
    std::string mstrLMHostFile;
    std::string mstrDNSServers;
    std::string mstrWINSServer1;
    std::string mstrWINSServer2;
    std::string mstrScopeID;
    std::string mstrSearchList;
    bool mblnDNSEnabled = false;
    bool mblnDHCPEnabled = false;
    std::string mstrComputerName;
    std::string mstrComputerDescription;
    std::string mstrWorkgroup;
    bool mblnWINSEnabled = false;
    std::string mstrIPAddress;
    std::string mstrIPMask;
    std::vector<std::string> mastrAdapterList;
    std::vector<std::string> mastrAdapterKeys;
    int16_t mintCurrentAdapter = -1;
    bool mblnDisablePWDCache = false;
    bool mblnQuickLogon = false;

  private:
    enum class KeyKind { Text, Flag, FlagOrEmpty, AddressList, Scrambled };
    enum class KeyScope { All, DomainAccount, LogonOptions };
    struct ProfileKey {
        const char* Section;
        const char* Key;
        KeyKind Kind;
        KeyScope Scope;
        std::string clsNetConfigBase::*Text;
        bool clsNetConfigBase::*Flag;
    };
    // The keys LoadConfigurationFile reads after "Adapter", in reading order.
    static const std::vector<ProfileKey>& ProfileKeys();
    bool InScope(KeyScope aScope) const;
    // A value of the profile, conditional values resolved.
    std::string ReadValue(const std::string& astrFile, const char* astrSection,
                          const char* astrKey) const;
    void ReadAdapter(const std::string& astrFile);
    void StoreValue(const ProfileKey& aKey, const std::string& astrValue);
    void RunSetOperation(NetSetting aSetting);
    bool IsAdapterIndex(int aintIndex) const;

    void AssignText(std::string& astrMember, const std::string& astrValue, NetSetting aSetting);
    void AssignFlag(bool& ablnMember, bool ablnValue, NetSetting aSetting);

    NetConfigParticulars mParticulars;
    std::bitset<static_cast<size_t>(NetSetting::Count)> mChanged;
};

}  // namespace rwz
