#include "RegistryDatWriter.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace rwz::test {

namespace {

constexpr uint32_t kMagic = 0x76644441;
constexpr uint32_t kDescriptorSize = 32;
constexpr uint16_t kKeyType = 1;

}  // namespace

RegistryDatWriter::RegistryDatWriter() {
    Node root;
    root.Name = "/";
    mobjNodes.push_back(root);
    // Leftover memory as Mozilla leaves it: noise, not zeros.
    uint32_t seed = 0x2004;
    for (int i = 0; i < 112; ++i) {
        seed = seed * 1103515245u + 12345u;
        mstrLeftover += static_cast<char>(seed >> 24);
    }
}

RegistryDatWriter::NodeId RegistryDatWriter::AddKey(NodeId aintParent,
                                                    const std::string& astrName) {
    Node key;
    key.Name = astrName;
    key.Type = kKeyType;
    key.Parent = aintParent;
    mobjNodes.push_back(key);
    const NodeId id = static_cast<NodeId>(mobjNodes.size() - 1);
    mobjNodes[aintParent].Keys.push_back(id);
    return id;
}

RegistryDatWriter::NodeId RegistryDatWriter::AddString(NodeId aintKey, const std::string& astrName,
                                                       const std::string& astrValue) {
    return AddEntry(aintKey, astrName, 0x11, astrValue + std::string(1, '\0'));
}

RegistryDatWriter::NodeId RegistryDatWriter::AddIntArray(NodeId aintKey,
                                                         const std::string& astrName,
                                                         const std::vector<uint32_t>& aobjValues) {
    std::string bytes;
    for (uint32_t value : aobjValues) {
        std::string four(4, '\0');
        PutLong(four, 0, value);
        bytes += four;
    }
    return AddEntry(aintKey, astrName, 0x12, bytes);
}

RegistryDatWriter::NodeId RegistryDatWriter::AddEntry(NodeId aintKey, const std::string& astrName,
                                                      uint16_t aintType,
                                                      const std::string& astrBytes) {
    Node entry;
    entry.Name = astrName;
    entry.Type = aintType;
    entry.Value = astrBytes;
    entry.Parent = aintKey;
    mobjNodes.push_back(entry);
    const NodeId id = static_cast<NodeId>(mobjNodes.size() - 1);
    mobjNodes[aintKey].Entries.push_back(id);
    return id;
}

std::string RegistryDatWriter::Build() {
    std::string out(16, '\0');
    out += mstrLeftover;
    Lay(Root(), out);
    for (NodeId id = 0; id < static_cast<NodeId>(mobjNodes.size()); ++id) Link(id, out);
    PutLong(out, 0, kMagic);
    PutShort(out, 4, 1);
    PutShort(out, 6, 2);
    PutLong(out, 8, static_cast<uint32_t>(out.size()));
    PutLong(out, 12, Offset(Root()));
    return out;
}

// Name, descriptor, value; then the key's entries, then its child keys.
void RegistryDatWriter::Lay(NodeId aintNode, std::string& astrOut) {
    Node& node = mobjNodes[aintNode];
    const uint32_t nameAt = static_cast<uint32_t>(astrOut.size());
    astrOut += node.Name + std::string(1, '\0');
    node.Offset = static_cast<uint32_t>(astrOut.size());
    std::string desc(kDescriptorSize, '\0');
    PutLong(desc, kLocation, node.Offset);
    PutLong(desc, kName, nameAt);
    PutShort(desc, kNameLength, static_cast<uint16_t>(node.Name.size() + 1));
    PutShort(desc, kType, node.Type);
    astrOut += desc;
    if (node.Type != kKeyType) {
        node.ValueOffset = static_cast<uint32_t>(astrOut.size());
        astrOut += node.Value;
    }
    for (NodeId entry : node.Entries) Lay(entry, astrOut);
    for (NodeId key : node.Keys) Lay(key, astrOut);
}

void RegistryDatWriter::Link(NodeId aintNode, std::string& astrOut) const {
    const Node& node = mobjNodes[aintNode];
    const uint32_t at = node.Offset;
    if (node.Parent >= 0) {
        const Node& parent = mobjNodes[node.Parent];
        const std::vector<NodeId>& chain = node.Type == kKeyType ? parent.Keys : parent.Entries;
        for (size_t i = 0; i + 1 < chain.size(); ++i) {
            if (chain[i] == aintNode) PutLong(astrOut, at + kLeft, Offset(chain[i + 1]));
        }
        // Mozilla keeps the parent's offset in the last field.
        PutLong(astrOut, at + kValueBuffer, parent.Offset);
    }
    if (node.Type == kKeyType) {
        if (!node.Keys.empty()) PutLong(astrOut, at + kDown, Offset(node.Keys.front()));
        if (!node.Entries.empty()) PutLong(astrOut, at + kValue, Offset(node.Entries.front()));
    } else {
        const uint32_t length = static_cast<uint32_t>(node.Value.size());
        PutLong(astrOut, at + kValue, node.ValueOffset);
        PutLong(astrOut, at + kValueLength, length);
        // As in Mozilla's files, an entry's second field holds the space kept
        // for its value; a reader must not take it for a child link.
        PutLong(astrOut, at + kDown, length);
    }
}

void RegistryDatWriter::PutLong(std::string& astrBytes, uint32_t alngAt, uint32_t alngValue) {
    for (int i = 0; i < 4; ++i) astrBytes.at(alngAt + i) = static_cast<char>(alngValue >> (8 * i));
}

void RegistryDatWriter::PutShort(std::string& astrBytes, uint32_t alngAt, uint16_t aintValue) {
    for (int i = 0; i < 2; ++i) astrBytes.at(alngAt + i) = static_cast<char>(aintValue >> (8 * i));
}

uint32_t RegistryDatWriter::GetLong(const std::string& astrBytes, uint32_t alngAt) {
    uint32_t value = 0;
    for (int i = 3; i >= 0; --i) {
        value = (value << 8) | static_cast<unsigned char>(astrBytes.at(alngAt + i));
    }
    return value;
}

SampleRegistry MakeSampleRegistry() {
    SampleRegistry s;
    RegistryDatWriter& w = s.Writer;
    s.Users = w.AddKey(w.Root(), "Users");
    s.Common = w.AddKey(w.Root(), "Common");
    s.Profiles = w.AddKey(s.Common, "Profiles");
    s.Version = w.AddString(s.Profiles, "Version", "1.0");
    s.CurrentProfile = w.AddString(s.Profiles, "CurrentProfile", "work");
    s.Default = w.AddKey(s.Profiles, "default");
    s.DefaultDirectory =
        w.AddString(s.Default, "directory",
                    "C:\\WINDOWS\\Application Data\\Mozilla\\Profiles\\default\\x1y2z3ab.slt");
    s.DefaultTime = w.AddString(s.Default, "Time", "40000000");
    w.AddString(s.Default, "migrated", "yes");
    s.Work = w.AddKey(s.Profiles, "work");
    s.WorkDirectory = w.AddString(s.Work, "directory",
                                  "C:\\Documents and Settings\\ann\\Application "
                                  "Data\\Mozilla\\Profiles\\work\\k9j8h7g6.slt");
    w.AddEntry(s.Work, "CreationTime", 0x13, std::string("\xca\x04\x97\x3e\xf9\0\0\0", 8));
    s.Home = w.AddKey(s.Profiles, "My Home");
    w.AddString(s.Home, "directory", "D:\\Mozilla Profiles\\My Home");
    s.NoDirectory = w.AddKey(s.Profiles, "nodir");
    s.NoDirectoryMigrated = w.AddString(s.NoDirectory, "migrated", "no");
    s.Bytes = w.Build();
    return s;
}

std::string SampleRegistryXml() {
    return "<?xml version=\"1.0\"?>\r\n"
           "<Root>\r\n"
           "\t<Users/>\r\n"
           "\t<Common>\r\n"
           "\t\t<Profiles>\r\n"
           "\t\t\t<Version>1.0</Version>\r\n"
           "\t\t\t<CurrentProfile>work</CurrentProfile>\r\n"
           "\t\t\t<default>\r\n"
           "\t\t\t\t<directory>C:\\WINDOWS\\Application "
           "Data\\Mozilla\\Profiles\\default\\x1y2z3ab.slt</directory>\r\n"
           "\t\t\t\t<Time>01/10/2004 13:37:04</Time>\r\n"
           "\t\t\t\t<migrated>yes</migrated>\r\n"
           "\t\t\t</default>\r\n"
           "\t\t\t<work>\r\n"
           "\t\t\t\t<directory>C:\\Documents and Settings\\ann\\Application "
           "Data\\Mozilla\\Profiles\\work\\k9j8h7g6.slt</directory>\r\n"
           "\t\t\t\t<CreationTime>1070496941258 (0xF93E9704CA)</CreationTime>\r\n"
           "\t\t\t</work>\r\n"
           "\t\t\t<My_Home>\r\n"
           "\t\t\t\t<directory>D:\\Mozilla Profiles\\My Home</directory>\r\n"
           "\t\t\t</My_Home>\r\n"
           "\t\t\t<nodir>\r\n"
           "\t\t\t\t<migrated>no</migrated>\r\n"
           "\t\t\t</nodir>\r\n"
           "\t\t</Profiles>\r\n"
           "\t</Common>\r\n"
           "</Root>\r\n";
}

}  // namespace rwz::test
