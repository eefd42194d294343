#include "network/modAdapterChoice.h"

#include <bitset>
#include <cctype>

#include "platform/modUtilities.h"

namespace rwz {

namespace {

// One character position of a pattern, or a "*".
struct PatternToken {
    bool Star = false;
    std::bitset<256> Accepts;
};

// False for a malformed pattern.
bool ParsePattern(const std::string& astrPattern, std::vector<PatternToken>& tokens) {
    const size_t count = astrPattern.size();
    for (size_t i = 0; i < count; ++i) {
        const unsigned char c = static_cast<unsigned char>(astrPattern[i]);
        PatternToken token;
        if (c == '*') {
            if (!tokens.empty() && tokens.back().Star) continue;
            token.Star = true;
        } else if (c == '?') {
            token.Accepts.set();
        } else if (c == '#') {
            for (char d = '0'; d <= '9'; ++d) token.Accepts.set(static_cast<unsigned char>(d));
        } else if (c == '[') {
            const size_t close = astrPattern.find(']', i + 1);
            if (close == std::string::npos) return false;
            size_t k = i + 1;
            const bool negate = k < close && astrPattern[k] == '!';
            if (negate) ++k;
            if (!negate && k == close) {  // "[]" stands for no character at all
                i = close;
                continue;
            }
            while (k < close) {
                const unsigned char first = static_cast<unsigned char>(astrPattern[k]);
                if (k + 2 < close && astrPattern[k + 1] == '-') {
                    const unsigned char last = static_cast<unsigned char>(astrPattern[k + 2]);
                    if (last < first) return false;
                    for (unsigned v = first; v <= last; ++v) token.Accepts.set(v);
                    k += 3;
                } else {
                    token.Accepts.set(first);
                    ++k;
                }
            }
            if (negate) token.Accepts.flip();
            i = close;
        } else {
            token.Accepts.set(c);
        }
        tokens.push_back(token);
    }
    return true;
}

}  // namespace

bool MatchesPattern(const std::string& astrText, const std::string& astrPattern) {
    std::vector<PatternToken> tokens;
    if (!ParsePattern(astrPattern, tokens)) return false;

    // Every token but "*" takes exactly one character, so backing up to the
    // last "*" seen is enough.
    const size_t none = std::string::npos;
    size_t t = 0, p = 0, starToken = none, starText = 0;
    while (t < astrText.size()) {
        const unsigned char c = static_cast<unsigned char>(astrText[t]);
        if (p < tokens.size() && tokens[p].Star) {
            starToken = p++;
            starText = t;
        } else if (p < tokens.size() && tokens[p].Accepts.test(c)) {
            ++p;
            ++t;
        } else if (starToken != none) {
            p = starToken + 1;
            t = ++starText;
        } else {
            return false;
        }
    }
    while (p < tokens.size() && tokens[p].Star) ++p;
    return p == tokens.size();
}

long long LeadingNumber(const std::string& astrText) {
    size_t i = 0;
    while (i < astrText.size() && (astrText[i] == ' ' || astrText[i] == '\t')) ++i;
    bool negative = false;
    if (i < astrText.size() && (astrText[i] == '-' || astrText[i] == '+')) {
        negative = astrText[i] == '-';
        ++i;
    }
    long long number = 0;
    for (; i < astrText.size() && std::isdigit(static_cast<unsigned char>(astrText[i])); ++i) {
        if (number < 1000000000LL) number = number * 10 + (astrText[i] - '0');  // large stays large
    }
    return negative ? -number : number;
}

int16_t ChooseAdapter(const std::string& astrValue, const std::vector<std::string>& astrNames) {
    const long long last = static_cast<long long>(astrNames.size()) - 1;

    if (astrValue.size() >= 2 && astrValue.front() == '{' && astrValue.back() == '}') {
        const std::string pattern = astrValue.substr(1, astrValue.size() - 2);
        for (size_t i = 0; i < astrNames.size(); ++i) {
            if (MatchesPattern(astrNames[i], pattern)) return static_cast<int16_t>(i);
        }
        return 0;
    }

    if (ToLower(astrValue.substr(0, 6)) == "index:") {
        const long long index = LeadingNumber(astrValue.substr(6));
        // A negative number would mean "no adapter" although there are some.
        return index >= 0 && index <= last ? static_cast<int16_t>(index) : 0;
    }

    int16_t chosen = 0;
    for (size_t i = 0; i < astrNames.size(); ++i) {
        if (astrNames[i] == astrValue) chosen = static_cast<int16_t>(i);
    }
    return chosen;
}

}  // namespace rwz
