#include "network/modRegistryRead.h"

#include <cstdlib>

#include "platform/modUtilities.h"

namespace rwz {

namespace {

// Opens the key and reads the value; false when either fails.
bool ReadValue(clsEasyRegistry& aobjRegistry, const std::string& astrKey,
               const std::string& astrValue, RegistryValue& aValue) {
    aobjRegistry.SetSuppressErrors(true);
    aobjRegistry.SetCurrentKey(astrKey);
    if (aobjRegistry.LastError() != 0) return false;
    aValue = aobjRegistry.ValueOf(astrValue);
    return aobjRegistry.LastError() == 0;
}

}  // namespace

bool ReadRegistryText(clsEasyRegistry& aobjRegistry, const std::string& astrKey,
                      const std::string& astrValue, std::string& astrText) {
    astrText.clear();
    RegistryValue value;
    if (!ReadValue(aobjRegistry, astrKey, astrValue, value) || value.Type != kRegString)
        return false;
    astrText = value.Text;
    while (!astrText.empty() && astrText.back() == '\0') astrText.pop_back();
    return true;
}

bool ReadRegistryNumber(clsEasyRegistry& aobjRegistry, const std::string& astrKey,
                        const std::string& astrValue, long& alngNumber) {
    alngNumber = 0;
    RegistryValue value;
    if (!ReadValue(aobjRegistry, astrKey, astrValue, value)) return false;
    if (value.Type == kRegDword) {
        alngNumber = static_cast<long>(static_cast<unsigned long>(value.Number));
        return true;
    }
    if (value.Type != kRegString) return false;
    const std::string text = Trim(value.Text.substr(0, value.Text.find('\0')));
    if (text.empty()) return false;
    char* end = nullptr;
    const long number = std::strtol(text.c_str(), &end, 10);
    if (!end || *end != '\0') return false;
    alngNumber = number;
    return true;
}

}  // namespace rwz
