// One named value of a Mozilla profile registry ("registry.dat").
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace rwz {

// Node types as the registry stores them. A node whose type has kRegTypeEntry
// set is a named value; any other node is a key.
constexpr uint16_t kRegTypeEntry = 0x10;
constexpr uint16_t kRegTypeString = 0x11;    // single-byte text with its NUL
constexpr uint16_t kRegTypeIntArray = 0x12;  // little-endian 32-bit integers
constexpr uint16_t kRegTypeBytes = 0x13;     // raw bytes
constexpr uint16_t kRegTypeFile = 0x14;      // a path, stored as text

// The value is a view of the bytes the reader holds: an entry lives only as
// long as the reader that read it. Values are left where they are, as a
// registry of thousands of profiles is mostly values no caller looks at.
class ZvRegEntry {
  public:
    ZvRegEntry() = default;
    ZvRegEntry(std::string astrName, std::string_view aValue, uint16_t aintType)
        : mstrName(std::move(astrName)), mValue(aValue), mintType(aintType) {}

    const std::string& Name() const { return mstrName; }
    // Text and file values: the text up to its NUL; other types: the stored
    // bytes as they are.
    std::string_view Value() const {
        return IsText() ? mValue.substr(0, mValue.find('\0')) : mValue;
    }
    uint16_t Type() const { return mintType; }

    // True for the types whose value is text (string and file entries).
    bool IsText() const { return mintType == kRegTypeString || mintType == kRegTypeFile; }

  private:
    std::string mstrName;
    std::string_view mValue;
    uint16_t mintType = kRegTypeString;
};

}  // namespace rwz
