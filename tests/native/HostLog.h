// The lines the host's debug log has taken since the last clear.
#pragma once

#include <string>
#include <vector>

namespace rwz {
std::vector<std::string>& HostLogLines();
}
