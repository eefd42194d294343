#include "network/INIC.h"

#include "network/clsNIC2K.h"
#include "platform/modAPI.h"

namespace rwz {

std::unique_ptr<INIC> CreateNIC(const std::string& astrOSTag) {
    if (astrOSTag == kOS2K || astrOSTag == kOSXP || astrOSTag == kOS2003)
        return std::make_unique<clsNIC2K>();
    return nullptr;
}

}  // namespace rwz
