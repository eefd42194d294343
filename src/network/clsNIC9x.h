// The network adapters of Windows 95, 98 and ME: the devices of class "Net"
// found below the buses of the hardware tree (HKEY_LOCAL_MACHINE\Enum), each
// shown under its "DeviceDesc". Only devices bound to TCP/IP are listed; the
// key of one is the "Driver" of its TCP/IP binding, the binding's settings key
// below the network-transport class.
#pragma once

#include <string>
#include <vector>

#include "network/INIC.h"

namespace rwz {

class clsNIC9x : public INIC {
  public:
    void EnumerateAdapters(std::vector<std::string>& astrNames,
                           std::vector<std::string>& astrKeys) override;

  private:
    // Walks the devices below "\HKEY_LOCAL_MACHINE\Enum\" + bus.
    void EnumAdapters(const std::string& astrStart, std::vector<std::string>& astrNames,
                      std::vector<std::string>& astrKeys);
};

}  // namespace rwz
