// The network back end of Windows 95, 98 and ME. Every setting is a string
// value of the registry: the adapter's TCP/IP settings in its binding's key
// below the network-transport class ("...\Services\Class\" + adapter key),
// the machine-wide ones below VxD\MSTCP, names and workgroup below VNETSUP,
// the network logon below MSNP32 and Network\Logon. Nothing is joined or
// pushed: the system takes the values at its next start. The default printer
// is set through the spooler; a printer's new port is also written to WIN.INI,
// where programs of these systems look for it.
//
// Lists ("IPAddress", "IPMask", "DefaultGateway", "NameServer") are kept with
// "," between entries, as the system keeps them. DHCP is on when the adapter's
// address is 0.0.0.0; WINS is on when the adapter's NetBIOS node type is 8
// (hybrid), off at 1 (broadcast).
#pragma once

#include <string>
#include <vector>

#include "network/clsNetConfigBase.h"

namespace rwz {

class clsNetConfig9x : public clsNetConfigBase {
  public:
    clsNetConfig9x();
    ~clsNetConfig9x() override;

  protected:
    // Nearly every change takes effect only after a restart on these systems.
    void OnAssigned(NetSetting aSetting) override;
    void EnumerateAdapters(std::vector<std::string>& astrNames,
                           std::vector<std::string>& astrKeys) override;

  private:
    static NetConfigParticulars Particulars();

    void ReadWINSEnabled();
    void WriteWINSEnabled();
    void ReadDHCPEnabled();
    void WriteDHCPEnabled();
    void ReadNTLogon();
    void WriteDisablePWDCache();
    // Makes the record's printer the default one through the spooler.
    void WriteSpoolerDefaultPrinter();
};

}  // namespace rwz
