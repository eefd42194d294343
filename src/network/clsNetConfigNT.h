// The network back end of Windows NT 4. Every setting lives in the registry:
// the adapter's TCP/IP settings below its driver service ("...\Services\" +
// adapter key + "\Parameters\Tcpip", lists as multi-strings), the machine-wide
// ones below Tcpip and NetBT. Only the server comment goes through the server
// service. Nothing is pushed to a running service and nothing is joined: the
// changes take effect at the next start. Workgroup, domain and logon are read
// where Windows 95/98/ME keep them (normally absent here) and never written.
//
// IPAddress and IPMask are kept with "," between entries, as are the DNS
// servers and the suffix search list, which NT 4 keeps separated by blanks.
#pragma once

#include <string>
#include <vector>

#include "network/clsNetConfigBase.h"

namespace rwz {

class clsNetConfigNT : public clsNetConfigBase {
  public:
    clsNetConfigNT();
    ~clsNetConfigNT() override;

  protected:
    // Everything but the server comment, the printers and the values NT 4
    // never writes takes effect only after a restart.
    void OnAssigned(NetSetting aSetting) override;
    void EnumerateAdapters(std::vector<std::string>& astrNames,
                           std::vector<std::string>& astrKeys) override;

  private:
    static NetConfigParticulars Particulars();

    void WriteComputerDescription();
    void ReadWINSEnabled();
};

}  // namespace rwz
