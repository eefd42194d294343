#include "profile/BackEndFactory.h"

#include "platform/modAPI.h"

namespace rwz {

std::unique_ptr<INetConfig> CreateNetConfig(const std::string& astrOSTag) {
    return nullptr;
}

std::unique_ptr<IBrowser> CreateInternetExplorerConfig() { return nullptr; }

std::unique_ptr<IBrowser> CreateNavigatorConfig() { return nullptr; }

std::unique_ptr<IBrowser> CreateOperaConfig() { return nullptr; }

}  // namespace rwz
