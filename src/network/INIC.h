// Adapter enumeration: which network adapters the machine has, the name under
// which each one is shown, and the key under which the system keeps its TCP/IP
// settings. One walker per family of systems, each reading its own registry.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace rwz {

class INIC {
  public:
    virtual ~INIC() = default;

    // Appends one display name and one adapter key for every adapter found, in
    // the order the registry lists them; the two lists stay parallel. Reports
    // nothing: an adapter whose registry data cannot be read is left out.
    virtual void EnumerateAdapters(std::vector<std::string>& astrNames,
                                   std::vector<std::string>& astrKeys) = 0;

    // What kind of adapter the key names ("Wireless", "LAN", ...), "" when
    // that cannot be told.
    virtual std::string AdapterType(const std::string& astrKey) { return std::string(); }
};

// The walker for an operating-system tag ("2K", "XP", "2003", ...); nullptr for
// a family that has none in this build.
std::unique_ptr<INIC> CreateNIC(const std::string& astrOSTag);

}  // namespace rwz
