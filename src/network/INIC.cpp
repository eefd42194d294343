#include "network/INIC.h"

#include "network/clsNIC2K.h"
#include "network/clsNIC9x.h"
#include "network/clsNICNT.h"
#include "platform/modAPI.h"

namespace rwz {

std::unique_ptr<INIC> CreateNIC(const std::string& astrOSTag) {
    const OSFamily family = OSFamilyOf(astrOSTag);
    if (IsNT5Family(family)) return std::make_unique<clsNIC2K>();
    if (family == OSFamily::NT4) return std::make_unique<clsNICNT>();
    if (family == OSFamily::Win9x) return std::make_unique<clsNIC9x>();
    return nullptr;
}

}  // namespace rwz
