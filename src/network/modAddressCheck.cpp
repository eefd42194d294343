#include "network/modAddressCheck.h"

#include <cstdint>
#include <vector>

#include "platform/modUtilities.h"

namespace rwz {

namespace {

enum : int16_t { kMsgAddress = 20, kMsgMask = 21, kMsgGateway = 22, kMsgDNS = 23 };

bool ParseQuad(const std::string& astrText, uint32_t& alngValue) {
    const std::vector<std::string> parts = Split(astrText, ".");
    if (parts.size() != 4) return false;
    alngValue = 0;
    for (const std::string& part : parts) {
        if (part.empty() || part.size() > 3 ||
            part.find_first_not_of("0123456789") != std::string::npos)
            return false;
        const int number = std::stoi(part);
        if (number > 255) return false;
        alngValue = (alngValue << 8) | static_cast<uint32_t>(number);
    }
    return true;
}

}  // namespace

bool IsDottedQuad(const std::string& astrText) {
    uint32_t value = 0;
    return ParseQuad(astrText, value);
}

bool IsContiguousMask(const std::string& astrText) {
    uint32_t value = 0;
    if (!ParseQuad(astrText, value)) return false;
    // The zero bits after the ones, plus one, is a power of two.
    const uint32_t zeros = ~value;
    return (zeros & (zeros + 1)) == 0;
}

int16_t AddressListMessage(NetText aField, const std::string& astrList, std::string* astrBad) {
    const bool mask = aField == &NetRecord::IPMask;
    int16_t message = kMsgAddress;
    if (mask) message = kMsgMask;
    if (aField == &NetRecord::DefaultGateway) message = kMsgGateway;
    if (aField == &NetRecord::DNSServers) message = kMsgDNS;
    std::string entry;
    for (size_t i = 0; i <= astrList.size(); ++i) {
        const char c = i < astrList.size() ? astrList[i] : '\0';
        if (c != '\0' && c != ',') {
            entry += c;
            continue;
        }
        entry = Trim(entry);
        if (!entry.empty() && !(mask ? IsContiguousMask(entry) : IsDottedQuad(entry))) {
            if (astrBad) *astrBad = entry;
            return message;
        }
        entry.clear();
    }
    return 0;
}

}  // namespace rwz
