// The network back end of Windows 2000, XP and Server 2003: its settings as
// rows (where each lives in the registry), plus the settings that go through
// the networking services (network/NetworkServices.h): the computer's names,
// the server comment, workgroup and domain membership, the address push.
//
// IPAddress and IPMask are kept NUL-separated, as the registry's
// multi-strings; the gateway list keeps its commas.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "network/clsNetConfigBase.h"

namespace rwz {

// The text shown for a networking result code after the messages about a
// failed join or a failed server comment.
std::string NetResultText(DWORD alngResult);

class clsNetConfig2K : public clsNetConfigBase {
  public:
    clsNetConfig2K();
    ~clsNetConfig2K() override;

    std::string CurrentAdapterType() const override;

  protected:
    // The WINS switch carries the servers and the scope with it; WINS and DHCP
    // changes need a restart.
    void OnAssigned(NetSetting aSetting) override;
    // Forgets that the addresses were pushed in this apply.
    void OnFlagsReset() override { mblnAddressesPushed = false; }
    void EnumerateAdapters(std::vector<std::string>& astrNames,
                           std::vector<std::string>& astrKeys) override;

  private:
    static NetConfigParticulars Particulars();

    void ReadComputerName();
    void WriteComputerName();
    void WriteComputerDescription();
    void ReadDomain();
    void WriteDomain();
    void ReadHost();
    void WriteHost();
    // Workgroup, domain and logon from the join information.
    void ReadJoinInformation();
    void JoinDomain();
    void JoinWorkgroup();
    void WriteIPAddress();
    void WriteIPMask();
    // Announces the addresses and masks to the DHCP client, once per apply.
    void PushAddresses();
    void ReadDNSServers();
    void ReadDNSEnabled();
    void ReadWINSServer1();
    void ReadWINSServer2();
    void ReadWINSEnabled();
    // Both servers as one list.
    void WriteWINSServers();
    void WriteWINSServer2();
    // The WINS servers of the current adapter, as the registry lists them.
    std::vector<std::string> ReadWINSServers(const char* astrCaller) const;
    // A failure the user is told about: the texts joined by blank lines.
    void Fail(std::initializer_list<std::string> astrTexts);

    bool mblnAddressesPushed = false;
};

}  // namespace rwz
