// One named value of a Mozilla profile registry ("registry.dat").
#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace rwz {

// Node types as the registry stores them. A node whose type has kRegTypeEntry
// set is a named value; any other node is a key.
constexpr uint16_t kRegTypeEntry = 0x10;
constexpr uint16_t kRegTypeString = 0x11;    // single-byte text with its NUL
constexpr uint16_t kRegTypeIntArray = 0x12;  // little-endian 32-bit integers
constexpr uint16_t kRegTypeBytes = 0x13;     // raw bytes
constexpr uint16_t kRegTypeFile = 0x14;      // a path, stored as text

class ZvRegEntry {
  public:
    ZvRegEntry() = default;
    ZvRegEntry(std::string astrName, std::string astrValue, uint16_t aintType)
        : mstrName(std::move(astrName)), mstrValue(std::move(astrValue)), mintType(aintType) {}

    const std::string& Name() const { return mstrName; }
    void SetName(const std::string& astrName) { mstrName = astrName; }
    // Text and file values hold the text without its NUL; other types hold
    // the stored bytes as they are.
    const std::string& Value() const { return mstrValue; }
    void SetValue(const std::string& astrValue) { mstrValue = astrValue; }
    uint16_t Type() const { return mintType; }
    void SetType(uint16_t aintType) { mintType = aintType; }

    // True for the types whose value is text (string and file entries).
    bool IsText() const { return mintType == kRegTypeString || mintType == kRegTypeFile; }

  private:
    std::string mstrName;
    std::string mstrValue;
    uint16_t mintType = kRegTypeString;
};

}  // namespace rwz
