// Writes Mozilla profile registries ("registry.dat") for the reader's tests, in
// the layout Mozilla itself uses: a 16-byte header, leftover bytes, then each
// node as its NUL-terminated name, its 32-byte descriptor and its value.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace rwz::test {

class RegistryDatWriter {
  public:
    using NodeId = int;

    // Descriptor fields, as offsets inside a descriptor.
    enum Field : uint32_t {
        kLocation = 0,
        kName = 4,
        kNameLength = 8,
        kType = 10,
        kLeft = 12,
        kDown = 16,
        kValue = 20,
        kValueLength = 24,
        kValueBuffer = 28,
    };

    // Starts with the root key "/".
    RegistryDatWriter();

    NodeId Root() const { return 0; }
    NodeId AddKey(NodeId aintParent, const std::string& astrName);
    // A string entry, stored with its NUL as Mozilla does.
    NodeId AddString(NodeId aintKey, const std::string& astrName, const std::string& astrValue);
    NodeId AddIntArray(NodeId aintKey, const std::string& astrName,
                       const std::vector<uint32_t>& aobjValues);
    // Any entry with its stored bytes exactly as given.
    NodeId AddEntry(NodeId aintKey, const std::string& astrName, uint16_t aintType,
                    const std::string& astrBytes);

    // The bytes between the header and the first node (Mozilla leaves old
    // memory there). 112 bytes of noise unless set.
    void SetLeftover(const std::string& astrBytes) { mstrLeftover = astrBytes; }

    // Lays the registry out and returns its bytes.
    std::string Build();
    // After Build: where a node's descriptor lies, and where its value lies.
    uint32_t Offset(NodeId aintNode) const { return mobjNodes[aintNode].Offset; }
    uint32_t ValueOffset(NodeId aintNode) const { return mobjNodes[aintNode].ValueOffset; }

    static void PutLong(std::string& astrBytes, uint32_t alngAt, uint32_t alngValue);
    static void PutShort(std::string& astrBytes, uint32_t alngAt, uint16_t aintValue);
    static uint32_t GetLong(const std::string& astrBytes, uint32_t alngAt);

  private:
    struct Node {
        std::string Name;
        uint16_t Type = 1;
        std::string Value;
        NodeId Parent = -1;
        std::vector<NodeId> Entries;
        std::vector<NodeId> Keys;
        uint32_t Offset = 0;
        uint32_t ValueOffset = 0;
    };

    void Lay(NodeId aintNode, std::string& astrOut);
    void Link(NodeId aintNode, std::string& astrOut) const;

    std::vector<Node> mobjNodes;
    std::string mstrLeftover;
};

// A registry as Mozilla keeps it for several profiles: "work" is current,
// "My Home" has a blank in its name, "nodir" has no "directory" entry, and
// "default" carries a "Time" entry.
struct SampleRegistry {
    RegistryDatWriter Writer;
    RegistryDatWriter::NodeId Users = 0, Common = 0, Profiles = 0;
    RegistryDatWriter::NodeId Version = 0, CurrentProfile = 0;
    RegistryDatWriter::NodeId Default = 0, DefaultDirectory = 0, DefaultTime = 0;
    RegistryDatWriter::NodeId Work = 0, WorkDirectory = 0;
    RegistryDatWriter::NodeId Home = 0, NoDirectory = 0, NoDirectoryMigrated = 0;
    std::string Bytes;
};
SampleRegistry MakeSampleRegistry();
// The XML the sample renders as.
std::string SampleRegistryXml();

}  // namespace rwz::test
