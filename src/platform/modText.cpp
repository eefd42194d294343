#include "platform/modText.h"

#include "platform/Procedure.h"

namespace rwz {

// ---------------------------------------------------------------------------
// Text helpers
// ---------------------------------------------------------------------------

std::string Trim(const std::string& text) {
    return TrimLeft(TrimRight(text));
}

std::string TrimLeft(const std::string& text) {
    const size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? std::string() : text.substr(first);
}

std::string TrimRight(const std::string& text) {
    const size_t last = text.find_last_not_of(' ');
    return last == std::string::npos ? std::string() : text.substr(0, last + 1);
}

namespace {

// Code page 1252: A-Z, the accented capitals from 0xC0 (but not the
// multiplication sign 0xD7), and the four capitals between 0x8A and 0x9F.
unsigned char Lower1252(unsigned char c) {
    if ((c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7)) return c + 0x20;
    switch (c) {
        case 0x8A:
        case 0x8C:
        case 0x8E:
            return c + 0x10;
        case 0x9F:
            return 0xFF;
        default:
            return c;
    }
}

unsigned char Upper1252(unsigned char c) {
    if ((c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7)) return c - 0x20;
    switch (c) {
        case 0x9A:
        case 0x9C:
        case 0x9E:
            return c - 0x10;
        case 0xFF:
            return 0x9F;
        default:
            return c;
    }
}

}  // namespace

std::string ToLower(std::string text) {
    for (char& c : text) c = static_cast<char>(Lower1252(static_cast<unsigned char>(c)));
    return text;
}

std::string ToUpper(std::string text) {
    for (char& c : text) c = static_cast<char>(Upper1252(static_cast<unsigned char>(c)));
    return text;
}

std::vector<std::string> Split(const std::string& text, const std::string& separator) {
    if (separator.empty()) return {text};
    std::vector<std::string> pieces;
    size_t start = 0;
    for (size_t found; (found = text.find(separator, start)) != std::string::npos;
         start = found + separator.size()) {
        pieces.push_back(text.substr(start, found - start));
    }
    pieces.push_back(text.substr(start));
    return pieces;
}

std::string Join(const std::vector<std::string>& pieces, const std::string& separator) {
    std::string joined;
    for (size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0) joined += separator;
        joined += pieces[i];
    }
    return joined;
}

// ---------------------------------------------------------------------------
// Validation and conversion
// ---------------------------------------------------------------------------

std::string StripNulls(const std::string& astrText) {
    return TrimRight(astrText.substr(0, astrText.find('\0')));
}

bool IsValidIP(const std::string& astrText) {
    Procedure proc("modUtilities", "IsValidIP");
    return proc.Run([&] {
        if (astrText.empty()) return true;
        if (astrText.find_first_not_of("0123456789.") != std::string::npos) return false;
        const std::vector<std::string> pieces = Split(astrText, ".");
        if (pieces.size() != 4) return false;
        for (const std::string& piece : pieces) {
            if (piece.empty() || piece.size() >= 4 || std::stoi(piece) > 255) return false;
        }
        return true;
    });
}

std::vector<uint8_t> CommaListToMultiString(const std::string& astrText) {
    if (astrText.empty()) return {0, 0};
    std::vector<uint8_t> bytes;
    bytes.reserve(astrText.size());
    for (char c : astrText) bytes.push_back(c == ',' ? 0 : static_cast<uint8_t>(c));
    return bytes;
}

std::vector<std::string> IniSectionNames(const std::string& astrText) {
    std::vector<std::string> names;
    size_t start = astrText.compare(0, 3, "\xEF\xBB\xBF") == 0 ? 3 : 0;
    while (start < astrText.size()) {
        size_t end = astrText.find('\n', start);
        if (end == std::string::npos) end = astrText.size();
        const size_t first = astrText.find_first_not_of(" \t", start);
        if (first < end && astrText[first] == '[') {
            const size_t close = astrText.find(']', first);
            if (close < end) {
                const std::string name = astrText.substr(first + 1, close - first - 1);
                const size_t from = name.find_first_not_of(" \t");
                const size_t to = name.find_last_not_of(" \t");
                names.push_back(from == std::string::npos ? std::string()
                                                          : name.substr(from, to - from + 1));
            }
        }
        start = end + 1;
    }
    return names;
}

// ---------------------------------------------------------------------------
// Address lists
// ---------------------------------------------------------------------------

std::vector<std::string> SplitIP(const std::string& astrText, const std::string& astrSeparator,
                                 int aintMinCount) {
    Procedure proc("modUtilities", "SplitIP");
    return proc.Run([&] {
        const std::string separator = astrSeparator.empty() ? "," : astrSeparator;
        const std::string lowerSeparator = ToLower(separator);
        std::vector<std::string> entries;
        const std::string text = Trim(astrText) + separator;
        const std::string lowerText = ToLower(text);
        size_t start = 0;
        for (size_t found; (found = lowerText.find(lowerSeparator, start)) != std::string::npos;
             start = found + separator.size())
            entries.push_back(Trim(text.substr(start, found - start)));
        while (aintMinCount > 0 && static_cast<int>(entries.size()) < aintMinCount)
            entries.emplace_back();
        return entries;
    });
}

std::string MergeIP(const std::vector<std::string>& astrEntries, const std::string& astrSeparator) {
    Procedure proc("modUtilities", "MergeIP");
    return proc.Run([&] {
        const std::string separator = astrSeparator.empty() ? "," : astrSeparator;
        size_t count = astrEntries.size();
        while (count > 0 && astrEntries[count - 1].empty()) --count;
        std::string merged;
        for (size_t i = 0; i < count; ++i) merged += (i ? separator : "") + astrEntries[i];
        return merged;
    });
}

// ---------------------------------------------------------------------------
// Conditional profile values
// ---------------------------------------------------------------------------

namespace {

// Checked in this order; the first head the value starts with decides.
const char* const kConditionHeads[] = {
    "iswindows9x(",     "iswindowsnt(",   "iswindows2000(", "iswindowsxp(",
    "iswindowsxphome(", "iswindows2003(", "isntplatform(",
};
// The tag each head asks for; "" for the two that ask for an edition or platform.
const char* const kConditionTags[] = {"9x", "NT", "2K", "XP", "", "2003", ""};
constexpr int kXPHomeHead = 4;
constexpr int kNTPlatformHead = 6;

}  // namespace

std::string EvaluateConditionFor(const std::string& astrValue, const std::string& astrOSTag,
                                 bool ablnXPHome, bool ablnNTPlatform) {
    const std::string stripped = StripNulls(astrValue);
    const std::string lower = ToLower(stripped);
    for (int i = 0; i < static_cast<int>(sizeof kConditionHeads / sizeof *kConditionHeads); ++i) {
        if (lower.compare(0, std::char_traits<char>::length(kConditionHeads[i]),
                          kConditionHeads[i]) != 0) {
            continue;
        }
        const bool holds = i == kXPHomeHead       ? ablnXPHome
                           : i == kNTPlatformHead ? ablnNTPlatform
                                                  : astrOSTag == kConditionTags[i];
        // The first quoted text when the condition holds, the second otherwise.
        const std::vector<std::string> pieces = Split(stripped, "\"");
        const size_t index = holds ? 1 : 3;
        return index < pieces.size() ? pieces[index] : std::string();
    }
    return stripped;
}

}  // namespace rwz
