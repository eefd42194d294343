// The registry as the rest of the program reads and writes it: one call per
// value, by absolute path ("\HKEY_LOCAL_MACHINE\SOFTWARE\..."). Nothing here
// raises: a key or value that is absent, or of a type the caller cannot use, is
// std::nullopt (or an empty list); a write that fails is `false`. Callers never
// switch clsEasyRegistry's error mode themselves.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/clsEasyRegistry.h"

namespace rwz::reg {

// A value as stored, with its type code.
std::optional<RegistryValue> Read(const std::string& astrKey, const std::string& astrName);
// A string value (REG_SZ, REG_EXPAND_SZ unexpanded, REG_MULTI_SZ). A multi-string's
// entries stay separated by NUL; NULs at the end are removed.
std::optional<std::string> ReadText(const std::string& astrKey, const std::string& astrName);
// A double word, or a string that holds a whole number.
std::optional<long> ReadNumber(const std::string& astrKey, const std::string& astrName);

bool KeyExists(const std::string& astrKey);
// Sub-key names and values of a key; empty when the key is absent.
std::vector<std::string> SubKeys(const std::string& astrKey);
std::vector<RegistryValueRow> Values(const std::string& astrKey);

// Writes a value, creating the key and any missing parent first.
bool Write(const std::string& astrKey, const std::string& astrName, int aintType,
           const RegistryData& aData);
bool DeleteValue(const std::string& astrKey, const std::string& astrName);
// Deletes a sub-key (with what it holds) of an existing key.
bool DeleteKey(const std::string& astrKey, const std::string& astrSubKey);

}  // namespace rwz::reg
