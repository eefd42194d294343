// The program's own version; also compiled into its version resource.
#pragma once

#define RWZ_VERSION_MAJOR 1
#define RWZ_VERSION_MINOR 0
#define RWZ_VERSION_REVISION 0
#define RWZ_VERSION_TEXT "1.0.0"
#define RWZ_PRODUCT_NAME "Roamwise"

#ifndef RC_INVOKED
#include <string>
namespace rwz {
// major "." minor "." revision, in decimal.
inline std::string ProgramVersionText() {
    return RWZ_VERSION_TEXT;
}
}  // namespace rwz
#endif
