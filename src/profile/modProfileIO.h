// Key-by-key access to INI text files (profiles, language files, opera6.ini)
// through the system's private-profile functions, so that names match without
// case, the first of duplicate sections or keys wins and blanks around a value
// are removed, exactly as Windows reads them.
#pragma once

#include <string>

namespace rwz {

// Values are read with a 255-character buffer, so at most 254 characters come back.
inline constexpr unsigned kProfileValueBuffer = 255;

// The value of a key, cut at its first NUL; `astrDefault` when the key or the
// section is missing (but not when the key is present with an empty value).
std::string ReadProfileString(const std::string& astrFile, const std::string& astrSection,
                              const std::string& astrKey, const std::string& astrDefault = "");

// Writes one key, creating the file or the section when needed. A value is one
// line of the file: a reader stops at a line break anyway, and what followed it
// would stand in the file as a line of its own, where it could pass for another
// key; so only the first line is written. Raises runtime error 75 (path/file
// access error) when the file cannot be written.
void WriteProfileString(const std::string& astrFile, const std::string& astrSection,
                        const std::string& astrKey, const std::string& astrValue);

// Flags in profiles are "1" and "0"; true only for exactly "1".
inline bool ProfileFlag(const std::string& astrValue) {
    return astrValue == "1";
}
inline const char* ProfileFlagText(bool ablnValue) {
    return ablnValue ? "1" : "0";
}

}  // namespace rwz
