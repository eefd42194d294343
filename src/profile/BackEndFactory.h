// Creates the back ends a profile owns: one network back end for the running
// family of systems, and one back end per installed browser.
#pragma once

#include <memory>
#include <string>

#include "browsers/IBrowser.h"
#include "network/INetConfig.h"

namespace rwz {

// The network back end for an operating-system tag: "2K", "XP" and "2003" share
// one, "NT" and "9x" have their own. Empty for any other tag, and for a family
// whose back end this build does not have yet.
std::unique_ptr<INetConfig> CreateNetConfig(const std::string& astrOSTag);

// The browser back ends; empty when this build has none for the browser.
std::unique_ptr<IBrowser> CreateInternetExplorerConfig();
std::unique_ptr<IBrowser> CreateNavigatorConfig();
std::unique_ptr<IBrowser> CreateOperaConfig();

}  // namespace rwz
