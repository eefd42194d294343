// Which adapter a profile's "Adapter" value names: a wildcard pattern between
// braces, "index:" and a number, or a display name.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace rwz {

// Wildcard match of the whole text, case-sensitive: "*" any run of characters,
// "?" one character, "#" one digit, "[list]" / "[!list]" one character in / not
// in the list (ranges as "a-z"). A malformed pattern (an unclosed "[", a range
// running backwards) matches nothing.
bool MatchesPattern(const std::string& astrText, const std::string& astrPattern);

// The leading number of a text as a whole number, the way a user writes an
// index: blanks before it and a sign allowed, anything after it ignored; 0 when
// there is no number.
long long LeadingNumber(const std::string& astrText);

// The index an "Adapter" value picks from the display names:
// - "{pattern}": the first name the pattern matches;
// - "index:N" (prefix compared without case): N, when it names an adapter;
// - otherwise the last name equal to the value.
// 0 when nothing fits. The list must not be empty.
int16_t ChooseAdapter(const std::string& astrValue, const std::vector<std::string>& astrNames);

}  // namespace rwz
