// The profile registry reader on registries laid out like Mozilla's own: the
// tree it reads, the XML it renders, and the files it refuses.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "RegistryDatWriter.h"
#include "browsers/ZvMozillaLib.h"
#include "platform/RwzError.h"

namespace rwz::test {
namespace {

const std::string kXmlHeader = "<?xml version=\"1.0\"?>\r\n";

TEST(ZvMozillaLib, ReadsTheProfilesOfAGeneratedRegistry) {
    const SampleRegistry sample = MakeSampleRegistry();
    ZvMozillaLib registry;
    ASSERT_TRUE(registry.ReadRegistry(sample.Bytes));
    EXPECT_FALSE(registry.IsDamaged());
    EXPECT_EQ(registry.NodeCount(), 17u);
    EXPECT_EQ(registry.MajorVersion(), 1);
    EXPECT_EQ(registry.MinorVersion(), 2);
    EXPECT_EQ(registry.Available(), sample.Bytes.size());
    EXPECT_EQ(registry.RootOffset(), sample.Writer.Offset(sample.Writer.Root()));

    EXPECT_EQ(registry.CurrentProfileName(), "work");
    const std::vector<ZvMozillaProfile> profiles = registry.ProfileList();
    ASSERT_EQ(profiles.size(), 4u);
    EXPECT_EQ(profiles[0].Name, "default");
    EXPECT_EQ(profiles[0].Directory,
              "C:\\WINDOWS\\Application Data\\Mozilla\\Profiles\\default\\x1y2z3ab.slt");
    EXPECT_EQ(profiles[1].Name, "work");
    // Names come without their stored NUL, blanks kept.
    EXPECT_EQ(profiles[2].Name, "My Home");
    EXPECT_EQ(profiles[2].Directory, "D:\\Mozilla Profiles\\My Home");
    EXPECT_TRUE(profiles[2].HasDirectory);
    EXPECT_EQ(profiles[3].Name, "nodir");
    EXPECT_FALSE(profiles[3].HasDirectory);
    EXPECT_EQ(profiles[3].Directory, "");

    const ZvRegKey* home = registry.FindKey("/common/PROFILES/My Home");
    ASSERT_NE(home, nullptr);
    EXPECT_EQ(home->Name(), "My Home");
    EXPECT_EQ(registry.FindKey("/Common/Profiles/nobody"), nullptr);
    EXPECT_EQ(registry.FindKey("/")->Name(), "/");
}

TEST(ZvMozillaLib, RendersTheWholeTreeAsXml) {
    ZvMozillaLib registry;
    ASSERT_TRUE(registry.ReadRegistry(MakeSampleRegistry().Bytes));
    EXPECT_EQ(registry.ToXML(), SampleRegistryXml());
}

TEST(ZvMozillaLib, RecurseToXmlRendersOneKeyAtTheGivenIndentation) {
    ZvMozillaLib registry;
    ASSERT_TRUE(registry.ReadRegistry(MakeSampleRegistry().Bytes));
    const ZvRegKey* profiles = registry.FindKey("/Common/Profiles");
    ASSERT_NE(profiles, nullptr);
    const std::string xml = registry.RecurseToXML(*profiles, 0);
    EXPECT_EQ(xml.substr(0, 24), "<Version>1.0</Version>\r\n");
    EXPECT_NE(xml.find("\r\n<My_Home>\r\n\t<directory>D:\\Mozilla Profiles\\My Home</directory>"
                       "\r\n</My_Home>\r\n"),
              std::string::npos);
    EXPECT_EQ(registry.RecurseToXML(*registry.FindKey("/Users"), 3), "");
}

// How each kind of value is rendered; each case sits in a key of its own.
struct ValueCase {
    const char* Name;
    uint16_t Type;
    std::string Bytes;
    const char* Expected;
};

TEST(ZvMozillaLib, RendersEachKindOfValue) {
    using namespace std::string_literals;
    const std::vector<ValueCase> cases = {
        {"Time", 0x11, "40000000\0"s, "01/10/2004 13:37:04"},
        {"Time", 0x11, "0x3f8a2b10\0"s, "10/13/2003 04:33:20"},
        {"Time", 0x11, "0\0"s, "01/01/1970 00:00:00"},
        {"Time", 0x11, "FFFFFFFF\0"s, "02/07/2106 06:28:15"},
        {"Time", 0x11, "soon\0"s, "soon"},
        {"Time", 0x11, "FFFFFFFFFFFF\0"s, "FFFFFFFFFFFF"},  // past the year 9999
        {"Time", 0x11, "\0"s, ""},
        {"CreationTime", 0x11, "40000000\0"s, "40000000"},  // only "Time" is a date
        {"AutoStartWithLast", 0x12, "\0\0\0\0"s, "0 (0x0)"},
        {"pair", 0x12, "\x01\0\0\0\xff\xff\xff\xff"s, "1 (0x1), 4294967295 (0xFFFFFFFF)"},
        {"none", 0x12, ""s, ""},
        {"LastModTime", 0x13, "\xca\x04\x97\x3e\xf9\0\0\0"s, "1070496941258 (0xF93E9704CA)"},
        {"flag", 0x13, "\x07"s, "7 (0x7)"},
        {"name", 0x13, "rpnp.so\0"s, "rpnp.so"},
        {"description", 0x13, "\0"s, ""},
        {"blob", 0x13, "\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0a"s, "0x0102030405060708090A"},
        {"file", 0x14, "C:\\Profiles\\x.slt\0"s, "C:\\Profiles\\x.slt"},
        {"cut", 0x11, "abc\0junk\0"s, "abc"},
        {"bare", 0x11, "abc"s, "abc"},
        {"Last Used Name", 0x11, "x\0"s, "x"},
        {"odd", 0x1f, "\x10\x27\0\0"s, "10000 (0x2710)"},
    };
    RegistryDatWriter writer;
    for (size_t i = 0; i < cases.size(); ++i) {
        const auto key = writer.AddKey(writer.Root(), "case " + std::to_string(i));
        writer.AddEntry(key, cases[i].Name, cases[i].Type, cases[i].Bytes);
    }
    ZvMozillaLib registry;
    ASSERT_TRUE(registry.ReadRegistry(writer.Build()));
    EXPECT_FALSE(registry.IsDamaged());
    const std::string xml = registry.ToXML();
    for (size_t i = 0; i < cases.size(); ++i) {
        std::string tag = cases[i].Name;
        for (char& c : tag) c = c == ' ' ? '_' : c;
        const std::string key = "case_" + std::to_string(i);
        const std::string expected = "\t<" + key + ">\r\n\t\t<" + tag + ">" + cases[i].Expected +
                                     "</" + tag + ">\r\n\t</" + key + ">\r\n";
        EXPECT_NE(xml.find(expected), std::string::npos) << "case " << i << ": " << expected;
    }
}

// Files that are not registries: nothing is read and the XML is the header line.
struct HeaderCase {
    const char* What;
    std::string Bytes;
};

std::string Header(uint32_t magic, uint32_t root, size_t size) {
    std::string bytes(size, '\0');
    if (size >= 4) RegistryDatWriter::PutLong(bytes, 0, magic);
    if (size >= 16) RegistryDatWriter::PutLong(bytes, 12, root);
    return bytes;
}

TEST(ZvMozillaLib, RefusesWhatIsNotARegistry) {
    const std::string good = MakeSampleRegistry().Bytes;
    std::string wrongMagic = good;
    wrongMagic[3] = 0x77;
    std::string prefsFile = "// Mozilla User Preferences\r\nuser_pref(\"a\", 1);\r\n";
    std::string rootNotANode = good;
    RegistryDatWriter::PutLong(rootNotANode, 12, RegistryDatWriter::GetLong(good, 12) + 4);
    std::string rootIsAnEntry;
    {
        RegistryDatWriter writer;
        writer.AddString(writer.Root(), "x", "y");
        rootIsAnEntry = writer.Build();
        RegistryDatWriter::PutLong(rootIsAnEntry, 12, writer.Offset(1));
    }
    const std::vector<HeaderCase> cases = {
        {"empty file", ""},
        {"three bytes of magic", std::string("\x41\x44\x64", 3)},
        {"magic only", Header(0x76644441, 0, 4)},
        {"header one byte short", Header(0x76644441, 16, 15)},
        {"header without nodes", Header(0x76644441, 16, 16)},
        {"root offset 0", Header(0x76644441, 0, 200)},
        {"root past the end", Header(0x76644441, 0x7fffffff, 200)},
        {"root at the last bytes", Header(0x76644441, 190, 200)},
        {"root at the top of the offset range", Header(0x76644441, 0xfffffff0, 200)},
        {"root inside the header", Header(0x76644441, 4, 200)},
        {"wrong magic", wrongMagic},
        {"magic byte-swapped", Header(0x41446476, 16, 200)},
        {"a prefs.js file", prefsFile},
        {"root is not a node", rootNotANode},
        {"root is an entry", rootIsAnEntry},
    };
    for (const HeaderCase& c : cases) {
        ZvMozillaLib registry;
        EXPECT_FALSE(registry.ReadRegistry(c.Bytes)) << c.What;
        EXPECT_TRUE(registry.Keys().empty()) << c.What;
        EXPECT_EQ(registry.ToXML(), kXmlHeader) << c.What;
        EXPECT_EQ(registry.ProfileList().size(), 0u) << c.What;
        EXPECT_EQ(registry.CurrentProfileName(), "") << c.What;
    }
}

}  // namespace
}  // namespace rwz::test
