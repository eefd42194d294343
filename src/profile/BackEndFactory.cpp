#include "profile/BackEndFactory.h"

#include "browsers/InternetExplorerLib.h"
#include "browsers/NavigatorLib.h"
#include "browsers/OperaLib.h"
#include "network/clsNetConfig2K.h"
#include "network/clsNetConfig9x.h"
#include "network/clsNetConfigNT.h"
#include "platform/modAPI.h"

namespace rwz {

std::unique_ptr<INetConfig> CreateNetConfig(const std::string& astrOSTag) {
    const OSFamily family = OSFamilyOf(astrOSTag);
    if (IsNT5Family(family)) return std::make_unique<clsNetConfig2K>();
    if (family == OSFamily::NT4) return std::make_unique<clsNetConfigNT>();
    if (family == OSFamily::Win9x) return std::make_unique<clsNetConfig9x>();
    return nullptr;
}

std::unique_ptr<IBrowser> CreateInternetExplorerConfig() {
    return std::make_unique<InternetExplorerLib>();
}

std::unique_ptr<IBrowser> CreateNavigatorConfig() {
    return std::make_unique<NavigatorLib>();
}

std::unique_ptr<IBrowser> CreateOperaConfig() {
    return std::make_unique<OperaLib>();
}

}  // namespace rwz
