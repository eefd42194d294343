// Reader of the binary profile registry "registry.dat" of Netscape 6 and later
// and Mozilla: builds the tree of keys and entries and renders it as XML text,
// from which the Netscape back end takes the profile names and folders.
//
// The file is read once into memory and every offset and length in it is
// checked against that buffer. A damaged or hostile file costs at most the
// limits below: a link that leaves the file, points at something that is not
// a node descriptor, or comes back to a node already read ends its chain, and
// the reader keeps what it could read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

#include "browsers/ZvRegKey.h"

namespace rwz {

// One profile listed under "/Common/Profiles".
struct ZvMozillaProfile {
    std::string Name;
    std::string Directory;  // the "directory" entry; "" when there is none
    bool HasDirectory = false;
};

class ZvMozillaLib {
  public:
    static constexpr uint32_t kMagic = 0x76644441;  // "ADdv"
    static constexpr uint32_t kHeaderSize = 16;
    static constexpr uint32_t kDescriptorSize = 32;
    // Most profile registries are a few dozen kilobytes, but a shared machine
    // with thousands of roaming profiles reaches ten megabytes and more. These
    // limits leave room for twice that and still keep a hostile file bounded.
    static constexpr uint32_t kMaxFileSize = 32u << 20;
    static constexpr int kMaxDepth = 64;
    static constexpr size_t kMaxNodes = 50000;
    static constexpr size_t kMaxTextBytes = 32u << 20;
    // Runtime error raised by the reading primitives outside the file.
    static constexpr int32_t kErrInputPastEnd = 62;

    ZvMozillaLib() = default;
    // The entries' values point into the bytes the reader holds.
    ZvMozillaLib(const ZvMozillaLib&) = delete;
    ZvMozillaLib& operator=(const ZvMozillaLib&) = delete;

    // Reads the file: true when its header is a registry's and its root node
    // could be read. Anything read before is dropped first.
    bool Open(const std::string& astrFile);
    // The same for a registry already held in memory (taken over when moved in).
    bool ReadRegistry(std::string astrData);

    // The whole tree as XML; only the header line when nothing was read.
    std::string ToXML() const;
    // The entries and child keys of one key, one element a line, indented by
    // aintIndent tabs (their own content one tab further).
    std::string RecurseToXML(const ZvRegKey& aobjKey, int aintIndent) const;

    const std::string& FilePath() const { return mstrFile; }
    uint16_t MajorVersion() const { return mintMajor; }
    uint16_t MinorVersion() const { return mintMinor; }
    uint32_t Available() const { return mlngAvailable; }
    uint32_t RootOffset() const { return mlngRoot; }
    // The top-level keys (normally the one key "/").
    const std::vector<ZvRegKey>& Keys() const { return mobjKeys; }
    // True when part of the file could not be read and was left out.
    bool IsDamaged() const { return mlngDamage != 0; }
    // Keys and entries read (those left out not counted).
    size_t NodeCount() const { return mlngNodes; }

    // The key at a path such as "/Common/Profiles" (names without case);
    // nullptr when there is none.
    const ZvRegKey* FindKey(const std::string& astrPath) const;
    // The profiles under "/Common/Profiles", in the file's order, names as
    // stored (with their blanks).
    std::vector<ZvMozillaProfile> ProfileList() const;
    // The "CurrentProfile" entry of "/Common/Profiles"; "" when there is none.
    std::string CurrentProfileName() const;

    // Reading primitives over the bytes read: little-endian values at an
    // offset or at the current position, which they move past what they read.
    // Outside the file they raise "Input past end of file".
    uint32_t ReadLong(uint32_t alngOffset);
    uint32_t ReadLong();
    uint16_t ReadShort();
    std::string ReadText(uint32_t alngLength);
    void Seek(uint32_t alngOffset) { mlngPosition = alngOffset; }
    uint32_t Position() const { return mlngPosition; }

  private:
    struct Descriptor {
        uint32_t Location = 0;
        uint32_t Name = 0;
        uint16_t NameLength = 0;
        uint16_t Type = 0;
        uint32_t Left = 0;
        uint32_t Down = 0;
        uint32_t Value = 0;
        uint32_t ValueLength = 0;
        uint32_t ValueBuffer = 0;
    };

    void Clear();
    bool ReadTree();
    // Reads the chain of nodes starting at alngOffset into aobjOwner: entries
    // become its entries, keys its child keys.
    void ReadChain(uint32_t alngOffset, ZvRegKey& aobjOwner, int aintDepth);
    bool ReadDescriptor(uint32_t alngOffset, Descriptor& aobjDesc);
    bool Fits(uint64_t alngOffset, uint64_t alngLength) const;
    // Takes text out of the budget; false (and reading stops) when it is spent.
    bool Spend(uint32_t alngBytes);
    void Damage(const std::string& astrWhat, uint32_t alngOffset);
    void AppendKeyContent(std::string& astrOut, const ZvRegKey& aobjKey, int aintIndent) const;

    std::string mstrFile;
    std::string mstrData;  // the whole file
    uint32_t mlngPosition = 0;

    uint32_t mlngMagic = 0;
    uint16_t mintMajor = 0;
    uint16_t mintMinor = 0;
    uint32_t mlngAvailable = 0;
    uint32_t mlngRoot = 0;
    std::vector<ZvRegKey> mobjKeys;

    std::unordered_set<uint32_t> mobjVisited;
    size_t mlngNodes = 0;
    size_t mlngTextBytes = 0;
    size_t mlngDamage = 0;
    bool mblnStopped = false;
};

}  // namespace rwz
