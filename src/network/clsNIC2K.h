// The network adapters of Windows 2000, XP and Server 2003: the cards listed
// under NetworkCards, each shown under its connection name (the name the user
// sees in the network connections folder), disabled ones only on request.
#pragma once

#include <string>
#include <vector>

#include "network/INIC.h"

namespace rwz {

class clsNIC2K : public INIC {
  public:
    void EnumerateAdapters(std::vector<std::string>& astrNames,
                           std::vector<std::string>& astrKeys) override;
    // From the connection's media type (Windows XP and later), else from the
    // lower binding of the adapter's driver (Windows 2000).
    std::string AdapterType(const std::string& astrKey) override;

  private:
    // Walks the cards below "...\Windows NT\CurrentVersion\" + start.
    void EnumAdapters(const std::string& astrStart, std::vector<std::string>& astrNames,
                      std::vector<std::string>& astrKeys);
};

}  // namespace rwz
