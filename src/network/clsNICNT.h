// The network adapters of Windows NT 4: the cards listed under NetworkCards,
// each shown under its "Title" and known by its driver's service name. Cards
// the system marks "Hidden" (its internal adapters) are left out.
#pragma once

#include <string>
#include <vector>

#include "network/INIC.h"

namespace rwz {

class clsNICNT : public INIC {
  public:
    void EnumerateAdapters(std::vector<std::string>& astrNames,
                           std::vector<std::string>& astrKeys) override;

  private:
    // Walks the cards below "...\Windows NT\CurrentVersion\" + start.
    void EnumAdapters(const std::string& astrStart, std::vector<std::string>& astrNames,
                      std::vector<std::string>& astrKeys);
};

}  // namespace rwz
