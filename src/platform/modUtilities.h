// Small helpers every subsystem uses: the program settings store, conditional
// profile values, validation and conversion of texts.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/clsEasyRegistry.h"

namespace rwz {

// The product name every settings-store caller passes.
inline constexpr const char* kProductName = "Roamwise";

// Program settings store under "\HKEY_LOCAL_MACHINE\Software\<product>\<section>".
// No operation raises: reads fall back to the default, writes fail silently.
void SaveProgramSetting(const std::string& astrProduct, const std::string& astrSection,
                        const std::string& astrKey, const std::string& astrValue);
std::string GetProgramSetting(const std::string& astrProduct, const std::string& astrSection,
                              const std::string& astrKey, const std::string& astrDefault);
std::vector<RegistryValueRow> GetAllProgramSettings(const std::string& astrProduct,
                                                    const std::string& astrSection);
// Without a key, the whole section is deleted.
void DeleteProgramSetting(const std::string& astrProduct, const std::string& astrSection,
                          const std::string& astrKey = std::string());

// Resolves a conditional profile value such as IsWindowsXP("a","b").
std::string EvaluateCondition(const std::string& astrValue);
// The same, for a given tag and edition (the running system's in EvaluateCondition).
std::string EvaluateConditionFor(const std::string& astrValue, const std::string& astrOSTag,
                                 bool ablnXPHome, bool ablnNTPlatform);

// The text up to its first NUL, trailing blanks removed.
std::string StripNulls(const std::string& astrText);
bool IsValidIP(const std::string& astrText);
// "a,b" gives the bytes 61 00 62; "" gives 00 00.
std::vector<uint8_t> CommaListToMultiString(const std::string& astrText);
bool FileExists(const std::string& astrPath);
// The text of a NUL-terminated string at an address, cut at its first NUL.
std::string StringFromPointer(const char* apszText);

// Blanks removed from both ends / the left / the right.
std::string Trim(const std::string& text);
std::string TrimLeft(const std::string& text);
std::string TrimRight(const std::string& text);
std::string ToLower(std::string text);
std::string ToUpper(std::string text);
// Splits at every occurrence of `separator` (VB's Split: "" gives one empty piece).
std::vector<std::string> Split(const std::string& text, const std::string& separator);
std::string Join(const std::vector<std::string>& pieces, const std::string& separator);

// The folder of the running executable, without a trailing separator.
std::string ProgramFolder();
// The help file: program folder + "\Rwz.hlp>main".
std::string HelpFilePath();

}  // namespace rwz
