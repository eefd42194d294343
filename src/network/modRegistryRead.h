// Reading one value of the network registry with a type check, for the
// adapter walkers and the network back ends. Registry access with errors
// suppressed: a key or value that cannot be read, or that has a type the
// caller cannot use, is a plain "false".
#pragma once

#include <string>

#include "platform/clsEasyRegistry.h"

namespace rwz {

// A string value (REG_SZ, REG_EXPAND_SZ unexpanded, REG_MULTI_SZ) of the key
// at an absolute path. For a multi-string the entries stay separated by NUL,
// with no NUL at the end.
bool ReadRegistryText(clsEasyRegistry& aobjRegistry, const std::string& astrKey,
                      const std::string& astrValue, std::string& astrText);

// A double word, or a string that holds a whole number.
bool ReadRegistryNumber(clsEasyRegistry& aobjRegistry, const std::string& astrKey,
                        const std::string& astrValue, long& alngNumber);

}  // namespace rwz
