#include "network/modScramble.h"

namespace rwz {

namespace {

const char kKey[] = "Roamwise/NetConfig";
constexpr size_t kKeyLength = sizeof kKey - 1;
constexpr unsigned char kFirstLink = 0xA7;

unsigned char KeyByte(size_t index) {
    return static_cast<unsigned char>(kKey[index % kKeyLength] + 13 * index);
}

int HexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

}  // namespace

bool IsHexPairs(const std::string& astrText) {
    if (astrText.empty() || astrText.size() % 2 != 0) return false;
    for (char c : astrText) {
        if (HexValue(c) < 0) return false;
    }
    return true;
}

std::string ScrambleText(const std::string& astrText) {
    static const char digits[] = "0123456789ABCDEF";
    std::string result;
    result.reserve(astrText.size() * 2);
    unsigned char link = kFirstLink;
    for (size_t i = 0; i < astrText.size(); ++i) {
        // Chained, so that repeated characters do not show as repeated pairs.
        const unsigned char mixed = static_cast<unsigned char>(astrText[i]) ^ KeyByte(i) ^ link;
        result += digits[mixed >> 4];
        result += digits[mixed & 0x0F];
        link = mixed;
    }
    return result;
}

std::string UnscrambleText(const std::string& astrText) {
    if (!IsHexPairs(astrText)) return astrText;
    std::string result;
    result.reserve(astrText.size() / 2);
    unsigned char link = kFirstLink;
    for (size_t i = 0; i * 2 < astrText.size(); ++i) {
        const unsigned char mixed = static_cast<unsigned char>(HexValue(astrText[2 * i]) * 16 +
                                                               HexValue(astrText[2 * i + 1]));
        const unsigned char plain = mixed ^ KeyByte(i) ^ link;
        if (plain == 0) break;  // hand-made digits; a NUL would end the text anyway
        result += static_cast<char>(plain);
        link = mixed;
    }
    return result;
}

}  // namespace rwz
