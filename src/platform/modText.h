// Text helpers over plain bytes: trimming, case, splitting, the checks and
// conversions of profile values, and conditional profile values resolved for
// a given system. Nothing here touches the system, so the parsers built on it
// compile and are tested on any host.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace rwz {

// Blanks removed from both ends / the left / the right.
std::string Trim(const std::string& text);
std::string TrimLeft(const std::string& text);
std::string TrimRight(const std::string& text);
// Case mapping of the Western ANSI code page (1252), as the system maps
// registry and file names.
std::string ToLower(std::string text);
std::string ToUpper(std::string text);
// Splits at every occurrence of `separator` (VB's Split: "" gives one empty piece).
std::vector<std::string> Split(const std::string& text, const std::string& separator);
std::string Join(const std::vector<std::string>& pieces, const std::string& separator);

// The text up to its first NUL, trailing blanks removed.
std::string StripNulls(const std::string& astrText);
bool IsValidIP(const std::string& astrText);
// "a,b" gives the bytes 61 00 62; "" gives 00 00.
std::vector<uint8_t> CommaListToMultiString(const std::string& astrText);

// Splits a list at `astrSeparator` ("," when empty; found without regard to
// case) into trimmed entries, padded with empty ones to `aintMinCount`.
std::vector<std::string> SplitIP(const std::string& astrText,
                                 const std::string& astrSeparator = ",", int aintMinCount = 0);
// Joins entries with `astrSeparator` ("," when empty). Empty entries at the
// end are left out; empty entries between others are kept, so that an entry
// being retyped keeps the positions of those after it.
std::string MergeIP(const std::vector<std::string>& astrEntries,
                    const std::string& astrSeparator = ",");

// The names of the sections of an INI text ("[name]" lines, blanks around the
// line and the name removed), in file order. A UTF-8 byte-order mark is
// skipped; UTF-16 text has none (its lines do not begin with "[").
std::vector<std::string> IniSectionNames(const std::string& astrText);

// Resolves a conditional profile value such as IsWindowsXP("a","b") for the
// given system tag and edition.
std::string EvaluateConditionFor(const std::string& astrValue, const std::string& astrOSTag,
                                 bool ablnXPHome, bool ablnNTPlatform);

}  // namespace rwz
