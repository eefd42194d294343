// The program settings store, kept in the registry under
// "\HKEY_LOCAL_MACHINE\Software\<product>\<section>". No operation raises:
// reads fall back to the default, writes fail silently.
#pragma once

#include <string>
#include <vector>

#include "platform/clsEasyRegistry.h"

namespace rwz {

// The product name every settings-store caller passes.
inline constexpr const char* kProductName = "Roamwise";

void SaveProgramSetting(const std::string& astrProduct, const std::string& astrSection,
                        const std::string& astrKey, const std::string& astrValue);
std::string GetProgramSetting(const std::string& astrProduct, const std::string& astrSection,
                              const std::string& astrKey, const std::string& astrDefault);
std::vector<RegistryValueRow> GetAllProgramSettings(const std::string& astrProduct,
                                                    const std::string& astrSection);
// Without a key, the whole section is deleted.
void DeleteProgramSetting(const std::string& astrProduct, const std::string& astrSection,
                          const std::string& astrKey = std::string());

}  // namespace rwz
