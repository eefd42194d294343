// Whether the address lists of the network record hold what the system can
// use: every entry a dotted quad, masks with their one bits first. The General
// tab checks a field with it when the field is left, and a back end checks
// every list it is about to write with it before it applies anything.
#pragma once

#include <cstdint>
#include <string>

#include "network/NetRecord.h"

namespace rwz {

// "a.b.c.d", each part a number from 0 to 255 written with 1 to 3 digits.
bool IsDottedQuad(const std::string& astrText);
// A dotted quad whose one bits all come before its zero bits.
bool IsContiguousMask(const std::string& astrText);

// The message for a list of the record (entries separated by "," or NUL) that
// holds a bad entry, or 0 when every entry is good (an empty list is good): 20
// for addresses and WINS servers, 21 for masks, 22 for gateways, 23 for DNS
// servers. `astrBad` receives the first bad entry.
int16_t AddressListMessage(NetText aField, const std::string& astrList,
                           std::string* astrBad = nullptr);

}  // namespace rwz
