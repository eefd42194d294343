// The domain account stored in a profile ("NTDomainUserName",
// "NTDomainPassword") is kept out of plain sight: each byte is mixed with a
// fixed key and with the byte before it and written as two hexadecimal digits.
// This hides the text from a casual reader of the file; it is not encryption.
#pragma once

#include <string>

namespace rwz {

// "" gives ""; anything else twice as many characters, all of "0-9A-F".
std::string ScrambleText(const std::string& astrText);

// Undoes ScrambleText. A value that is not a string of hexadecimal digit pairs
// was written by hand and is taken as it stands.
std::string UnscrambleText(const std::string& astrText);

// True when the text is made of hexadecimal digit pairs (and is not empty).
bool IsHexPairs(const std::string& astrText);

}  // namespace rwz
