#include "platform/modRegistry.h"

#include <cstdlib>

namespace rwz::reg {

namespace {

// The one place that puts clsEasyRegistry into its quiet mode: every call below
// tests LastError() instead of catching.
struct QuietRegistry {
    clsEasyRegistry registry;
    QuietRegistry() { registry.SetSuppressErrors(true); }
    bool Open(const std::string& astrKey) {
        registry.SetCurrentKey(astrKey);
        return registry.LastError() == 0;
    }
    bool Ok() const { return registry.LastError() == 0; }
};

std::string TrimBlanks(const std::string& astrText) {
    const size_t first = astrText.find_first_not_of(" \t");
    if (first == std::string::npos) return std::string();
    return astrText.substr(first, astrText.find_last_not_of(" \t") - first + 1);
}

}  // namespace

std::optional<RegistryValue> Read(const std::string& astrKey, const std::string& astrName) {
    QuietRegistry q;
    if (!q.Open(astrKey)) return std::nullopt;
    RegistryValue value = q.registry.ValueOf(astrName);
    if (!q.Ok()) return std::nullopt;
    return value;
}

std::optional<std::string> ReadText(const std::string& astrKey, const std::string& astrName) {
    std::optional<RegistryValue> value = Read(astrKey, astrName);
    if (!value || value->Type != kRegString) return std::nullopt;
    std::string text = std::move(value->Text);
    while (!text.empty() && text.back() == '\0') text.pop_back();
    return text;
}

std::optional<long> ReadNumber(const std::string& astrKey, const std::string& astrName) {
    const std::optional<RegistryValue> value = Read(astrKey, astrName);
    if (!value) return std::nullopt;
    if (value->Type == kRegDword)
        return static_cast<long>(static_cast<unsigned long>(value->Number));
    if (value->Type != kRegString) return std::nullopt;
    const std::string text = TrimBlanks(value->Text.substr(0, value->Text.find('\0')));
    if (text.empty()) return std::nullopt;
    char* end = nullptr;
    const long number = std::strtol(text.c_str(), &end, 10);
    if (!end || *end != '\0') return std::nullopt;
    return number;
}

bool KeyExists(const std::string& astrKey) {
    QuietRegistry q;
    return q.Open(astrKey);
}

std::vector<std::string> SubKeys(const std::string& astrKey) {
    QuietRegistry q;
    if (!q.Open(astrKey)) return {};
    return q.registry.DirKey().value_or(std::vector<std::string>());
}

std::vector<RegistryValueRow> Values(const std::string& astrKey) {
    QuietRegistry q;
    if (!q.Open(astrKey)) return {};
    return q.registry.DirValue();
}

bool Write(const std::string& astrKey, const std::string& astrName, int aintType,
           const RegistryData& aData) {
    QuietRegistry q;
    if (!q.Open(astrKey)) {
        // Create the missing part below the deepest key that exists.
        std::string::size_type cut = astrKey.size();
        std::string parent;
        do {
            cut = astrKey.rfind('\\', cut - 1);
            if (cut == std::string::npos || cut == 0) return false;
            parent = astrKey.substr(0, cut);
        } while (!q.Open(parent));
        q.registry.MakeKey(astrKey.substr(cut + 1));
        if (!q.Ok() || !q.Open(astrKey)) return false;
    }
    q.registry.SetValueOf(astrName, aintType, aData);
    return q.Ok();
}

bool DeleteValue(const std::string& astrKey, const std::string& astrName) {
    QuietRegistry q;
    if (!q.Open(astrKey)) return false;
    q.registry.DeleteValue(astrName);
    return q.Ok();
}

bool DeleteKey(const std::string& astrKey, const std::string& astrSubKey) {
    QuietRegistry q;
    if (!q.Open(astrKey)) return false;
    q.registry.DeleteKey(astrSubKey);
    return q.Ok();
}

}  // namespace rwz::reg
