#include "profile/BackEndFactory.h"

#include "browsers/InternetExplorerLib.h"
#include "browsers/NavigatorLib.h"
#include "browsers/OperaLib.h"
#include "network/clsNetConfig2K.h"
#include "platform/modAPI.h"

namespace rwz {

std::unique_ptr<INetConfig> CreateNetConfig(const std::string& astrOSTag) {
    if (IsNT5Family(OSFamilyOf(astrOSTag))) return std::make_unique<clsNetConfig2K>();
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
