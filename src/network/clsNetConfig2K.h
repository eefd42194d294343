// The network back end of Windows 2000, XP and Server 2003. The adapter's
// TCP/IP settings live in the registry below the adapter's interface keys;
// names, membership, the server comment and the DHCP client are reached
// through the networking services (network/NetworkServices.h), which a test
// can stand in for.
//
// IPAddress and IPMask are kept NUL-separated, as the registry's
// multi-strings; the gateway list keeps its commas.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "network/clsNetConfigBase.h"
#include "platform/clsEasyRegistry.h"

namespace rwz {

// The text shown for a networking result code after the messages about a
// failed join or a failed server comment.
std::string NetResultText(DWORD alngResult);

// The particulars of this family: class name, the domain account in profiles,
// NUL-separated address lists and the order in which settings are applied.
NetConfigParticulars NetConfig2KParticulars();

class clsNetConfig2K : public clsNetConfigBase {
  public:
    clsNetConfig2K();
    ~clsNetConfig2K() override;

    // The write operations below hide the property setters of the same names.
    using clsNetConfigBase::SetComputerDescription;
    using clsNetConfigBase::SetComputerName;
    using clsNetConfigBase::SetDefaultGateway;
    using clsNetConfigBase::SetDefaultPrinter;
    using clsNetConfigBase::SetDHCPEnabled;
    using clsNetConfigBase::SetDNSEnabled;
    using clsNetConfigBase::SetDNSServers;
    using clsNetConfigBase::SetHost;
    using clsNetConfigBase::SetIPAddress;
    using clsNetConfigBase::SetIPMask;
    using clsNetConfigBase::SetLMHostFile;
    using clsNetConfigBase::SetNTDomain;
    using clsNetConfigBase::SetScopeID;
    using clsNetConfigBase::SetSearchList;
    using clsNetConfigBase::SetWINSEnabled;
    using clsNetConfigBase::SetWINSServer1;
    using clsNetConfigBase::SetWINSServer2;
    using clsNetConfigBase::SetWorkgroup;

    // Also forgets that the addresses were pushed in this apply.
    void ResetFlags() override;

    // What kind of adapter the current one is ("Wireless", "LAN", ...); "" when
    // that cannot be told or there is no adapter.
    std::string CurrentAdapterType() const;

    void GetComputerName() override;
    void GetComputerDescription() override;
    void GetWorkgroup() override;
    void GetDomain() override;
    void GetHost() override;
    void GetIPAddress() override;
    void GetIPMask() override;
    void GetLMHostFile() override;
    void GetDNSServers() override;
    void GetWINSEnabled() override;
    void GetWINSServer1() override;
    void GetWINSServer2() override;
    void GetScopeID() override;
    void GetSearchList() override;
    void GetDNSEnabled() override;
    void GetDHCPEnabled() override;
    void GetNTLogon() override;
    void GetNTDomain() override;
    void GetDefaultPrinter() override;
    void GetPrinterList() override;
    void GetDefaultGateway() override;
    void GetAdvPrinterSettings() override;

    void SetComputerName() override;
    void SetComputerDescription() override;
    void SetWorkgroup() override;
    void SetDomain() override;
    void SetHost() override;
    void SetIPAddress() override;
    void SetIPMask() override;
    void SetLMHostFile() override;
    void SetDNSServers() override;
    void SetWINSEnabled() override;
    void SetWINSServer1() override;
    void SetWINSServer2() override;
    void SetScopeID() override;
    void SetSearchList() override;
    void SetDNSEnabled() override;
    void SetDHCPEnabled() override;
    void SetNTLogon() override;
    void SetNTDomain() override;
    void SetDefaultPrinter() override;
    void SetDefaultGateway() override;
    void SetAdvPrinterSettings() override;

  protected:
    // The WINS switch carries the servers and the scope with it; WINS and DHCP
    // changes need a restart.
    void OnAssigned(NetSetting aSetting) override;
    void EnumerateAdapters(std::vector<std::string>& astrNames,
                           std::vector<std::string>& astrKeys) override;

  private:
    // The current adapter's keys below Tcpip and NetBT; "" without an adapter.
    std::string InterfaceKey() const;
    std::string NetBTInterfaceKey() const;
    // A string value of a key; "" when it cannot be read.
    std::string ReadText(const std::string& astrKey, const std::string& astrValue);
    // Writes a value; a key that cannot be opened is passed over.
    void WriteValue(const std::string& astrKey, const std::string& astrValue, int aintType,
                    const RegistryData& avarData);
    // The WINS servers of the current adapter, as the registry lists them.
    std::vector<std::string> ReadWINSServers(const char* astrCaller);
    // Announces the addresses and masks to the DHCP client, once per apply.
    void PushAddresses();
    // Workgroup, domain and logon from the join information.
    void ReadJoinInformation();
    // The failure box: the texts joined by blank lines.
    void ShowFailure(std::initializer_list<std::string> astrTexts) const;

    clsEasyRegistry mobjRegistry;
    bool mblnAddressesPushed = false;
};

}  // namespace rwz
