// The profile registry reader: the tree and XML of a generated registry and of
// one Mozilla wrote, each kind of value, files that are not registries, and
// damaged links (random damage and truncation are the fuzzer's part).
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "RegistryDatWriter.h"
#include "Table.h"
#include "browsers/ZvMozillaLib.h"

namespace rwz::test {
namespace {

using W = RegistryDatWriter;
using Names = std::vector<std::string>;

Names ProfileNames(const ZvMozillaLib& registry) {
    Names names;
    for (const ZvMozillaProfile& p : registry.ProfileList())
        names.push_back(p.Name + "=" + p.Directory);
    return names;
}

TEST(ZvMozillaLib, ReadsTheProfilesOfAGeneratedRegistry) {
    const SampleRegistry sample = MakeSampleRegistry();
    ZvMozillaLib registry;
    ASSERT_TRUE(registry.ReadRegistry(sample.Bytes));
    EXPECT_FALSE(registry.IsDamaged());
    EXPECT_EQ(registry.NodeCount(), 17u);
    EXPECT_EQ(registry.CurrentProfileName(), "work");
    EXPECT_EQ(ProfileNames(registry)[0],
              "default=C:\\WINDOWS\\Application Data\\Mozilla\\Profiles\\default\\x1y2z3ab.slt");
    EXPECT_EQ(ProfileNames(registry)[2], "My Home=D:\\Mozilla Profiles\\My Home");
    EXPECT_EQ(ProfileNames(registry)[3], "nodir=");
    EXPECT_EQ(registry.FindKey("/common/PROFILES/My Home")->Name(), "My Home");
    EXPECT_EQ(registry.ToXML(), SampleRegistryXml());
}

TEST(ZvMozillaLib, ReadsARegistryMozillaWrote) {
    const char* shared = std::getenv("RWZ_SHARED_DIR");
    std::ifstream file(std::string(shared && *shared ? shared : RWZ_ROOT "/../shared") +
                           "/fixtures/mozilla-registry-2004.dat",
                       std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    ZvMozillaLib registry;
    ASSERT_TRUE(registry.ReadRegistry(bytes.str()));
    EXPECT_FALSE(registry.IsDamaged());
    EXPECT_EQ(registry.NodeCount(), 198u);  // 50 keys and 148 entries
    EXPECT_EQ(ProfileNames(registry), Names{"default=/home/hendry/.mozilla/default/ack41g03.slt"});
    EXPECT_EQ(registry.CurrentProfileName(), "default");
    EXPECT_NE(registry.ToXML().find(
                  "\r\n\t\t\t\t<LastModTime>1091165976650 (0xFE0E8F784A)</LastModTime>"),
              std::string::npos);
}

TEST(ZvMozillaLib, RendersEachKindOfValue) {
    const auto rows = Rows("registry-values.txt");
    RegistryDatWriter writer;  // each value in a key of its own
    for (size_t i = 0; i < rows.size(); ++i)
        writer.AddEntry(writer.AddKey(writer.Root(), "k" + std::to_string(i)), rows[i][0],
                        static_cast<uint16_t>(std::stoi(rows[i][1], nullptr, 16)), rows[i][2]);
    ZvMozillaLib registry;
    ASSERT_TRUE(registry.ReadRegistry(writer.Build()));
    const std::string xml = registry.ToXML();
    for (size_t i = 0; i < rows.size(); ++i) {
        std::string tag = rows[i][0];
        for (char& c : tag) c = c == ' ' ? '_' : c;
        const std::string k = "k" + std::to_string(i);
        EXPECT_NE(xml.find("<" + k + ">\r\n\t\t<" + tag + ">" + rows[i][3] + "</" + tag + ">"),
                  std::string::npos)
            << k;
    }
}

std::string Header(uint32_t magic, uint32_t root, size_t size) {
    std::string bytes(size, '\0');
    if (size >= 4) W::PutLong(bytes, 0, magic);
    if (size >= 16) W::PutLong(bytes, 12, root);
    return bytes;
}

TEST(ZvMozillaLib, RefusesWhatIsNotARegistry) {
    std::string rootNotANode = MakeSampleRegistry().Bytes;
    W::PutLong(rootNotANode, 12, W::GetLong(rootNotANode, 12) + 4);
    for (const std::string& bytes :
         {std::string(), Header(0x76644441, 16, 15), Header(0x76644441, 16, 16),
          Header(0x76644441, 0, 200), Header(0x76644441, 190, 200),
          Header(0x76644441, 0xfffffff0, 200), Header(0x76644441, 4, 200),
          Header(0x41446476, 16, 200), rootNotANode}) {
        ZvMozillaLib registry;
        EXPECT_FALSE(registry.ReadRegistry(bytes)) << bytes.size();
        EXPECT_EQ(registry.ToXML(), "<?xml version=\"1.0\"?>\r\n") << bytes.size();
    }
}

// One link of the sample registry pointed elsewhere: the reader ends that
// chain, reads each node once, and keeps what it can still reach.
TEST(ZvMozillaLib, BrokenLinksEndTheirChain) {
    using Node = W::NodeId SampleRegistry::*;
    const Names all = {"default", "work", "My Home", "nodir"};
    const struct {
        Node At;
        W::Field Field;
        Node To;  // the target's offset plus Add, or Add alone
        uint32_t Add;
        Names Profiles;
        const char* Current;
    } cases[] = {
        {&SampleRegistry::NoDirectory, W::kLeft, &SampleRegistry::Default, 0, all, "work"},
        {&SampleRegistry::Work, W::kLeft, &SampleRegistry::Work, 0, {"default", "work"}, "work"},
        {&SampleRegistry::CurrentProfile, W::kLeft, &SampleRegistry::Version, 0, all, "work"},
        {&SampleRegistry::Version, W::kLeft, &SampleRegistry::Version, 0, all, ""},
        {&SampleRegistry::Work, W::kDown, &SampleRegistry::Common, 0, all, "work"},
        {&SampleRegistry::Profiles, W::kDown, &SampleRegistry::Profiles, 0, {}, "work"},
        {&SampleRegistry::Home, W::kValue, &SampleRegistry::Common, 0, all, "work"},
        {&SampleRegistry::Users, W::kDown, &SampleRegistry::Profiles, 0, {}, ""},
        {&SampleRegistry::Work, W::kLeft, nullptr, 0xfffffff0, {"default", "work"}, "work"},
        {&SampleRegistry::Work, W::kLeft, &SampleRegistry::Home, 1, {"default", "work"}, "work"},
        {&SampleRegistry::Profiles, W::kValue, nullptr, 0x7fffffff, all, ""},
        {&SampleRegistry::CurrentProfile, W::kValue, nullptr, 0xffffffff, all, ""},
        {&SampleRegistry::CurrentProfile, W::kValueLength, nullptr, 0xffffffff, all, ""},
        {&SampleRegistry::Default,
         W::kName,
         nullptr,
         0xfffffffe,
         {"work", "My Home", "nodir"},
         "work"},
        {&SampleRegistry::DefaultDirectory, W::kValue, nullptr, 0x10000000, all, "work"},
    };
    const SampleRegistry sample = MakeSampleRegistry();
    for (const auto& c : cases) {
        std::string bytes = sample.Bytes;
        const uint32_t to = (c.To ? sample.Writer.Offset(sample.*c.To) : 0) + c.Add;
        W::PutLong(bytes, sample.Writer.Offset(sample.*c.At) + c.Field, to);
        ZvMozillaLib registry;
        const std::string what = std::to_string(&c - cases);
        ASSERT_TRUE(registry.ReadRegistry(bytes)) << what;
        EXPECT_TRUE(registry.IsDamaged()) << what;
        EXPECT_LE(registry.NodeCount(), 17u) << what;
        Names names;
        for (const ZvMozillaProfile& p : registry.ProfileList()) names.push_back(p.Name);
        EXPECT_EQ(names, c.Profiles) << what;
        EXPECT_EQ(registry.CurrentProfileName(), c.Current) << what;
        EXPECT_LE(registry.ToXML().size(), SampleRegistryXml().size()) << what;
    }
}

}  // namespace
}  // namespace rwz::test
