// Damaged and hostile profile registries (random damage is the fuzzer's part):
// truncated files, links that loop or leave the file, lengths larger than the
// file, files built to blow up. Each read ends, within the reader's limits, as
// "not a registry" or with what could be read.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "RegistryDatWriter.h"
#include "browsers/ZvMozillaLib.h"

namespace rwz::test {
namespace {

using W = RegistryDatWriter;

std::vector<std::string> ProfileNames(const ZvMozillaLib& registry) {
    std::vector<std::string> names;
    for (const ZvMozillaProfile& p : registry.ProfileList()) names.push_back(p.Name);
    return names;
}

size_t CountEntries(const ZvRegKey& key) {
    size_t count = key.Entries().size();
    for (const ZvRegKey& child : key.Keys()) count += CountEntries(child);
    return count;
}

int Depth(const ZvRegKey& key) {
    int deepest = 0;
    for (const ZvRegKey& child : key.Keys()) deepest = std::max(deepest, Depth(child));
    return deepest + 1;
}

using Clock = std::chrono::steady_clock;

double Seconds(Clock::time_point since) {
    return std::chrono::duration<double>(Clock::now() - since).count();
}

// Cutting a file anywhere costs nothing but what lies past the cut.
void ExpectTruncationsAreHarmless(const std::string& bytes, size_t step) {
    ZvMozillaLib whole;
    ASSERT_TRUE(whole.ReadRegistry(bytes));
    const std::string wholeXml = whole.ToXML();
    const uint32_t root = W::GetLong(bytes, 12);
    const auto start = Clock::now();
    size_t cuts = 0;
    for (size_t size = 0; size < bytes.size(); size += step, ++cuts) {
        ZvMozillaLib registry;
        const bool read = registry.ReadRegistry(bytes.substr(0, size));
        if (size < root + ZvMozillaLib::kDescriptorSize) {
            EXPECT_FALSE(read) << "cut at " << size;
        }
        if (!read) {
            EXPECT_TRUE(registry.Keys().empty()) << "cut at " << size;
            continue;
        }
        EXPECT_TRUE(registry.IsDamaged()) << "cut at " << size;
        EXPECT_LT(registry.NodeCount(), whole.NodeCount()) << "cut at " << size;
        EXPECT_LE(registry.ToXML().size(), wholeXml.size()) << "cut at " << size;
    }
    const double seconds = Seconds(start);
    std::printf("    %zu cuts of %zu bytes read in %.2f s\n", cuts, bytes.size(), seconds);
    EXPECT_LT(seconds, 60.0);
}

TEST(ZvMozillaLibDamage, TruncatedGeneratedRegistry) {
    ExpectTruncationsAreHarmless(MakeSampleRegistry().Bytes, 1);
}

TEST(ZvMozillaLibDamage, TruncatedRealRegistry) {
    const std::string bytes = ReadWholeFile(MozillaFixturePath());
    ASSERT_EQ(bytes.size(), 20667u);
    ExpectTruncationsAreHarmless(bytes, 7);
}

// One change to the sample registry and what must still be read after it.
struct LinkCase {
    const char* What;
    std::function<void(const SampleRegistry&, std::string&)> Damage;
    std::vector<std::string> Profiles;  // still listed, each once
    const char* Current;                // the CurrentProfile still read
};

const std::vector<std::string> kAll = {"default", "work", "My Home", "nodir"};

void Put(std::string& bytes, uint32_t descriptor, uint32_t field, uint32_t value) {
    W::PutLong(bytes, descriptor + field, value);
}

TEST(ZvMozillaLibDamage, BrokenLinksEndTheirChain) {
    const uint32_t kFar = 0xfffffff0;  // offset + a descriptor wraps in 32 bits
    const std::vector<LinkCase> cases = {
        {"key chain loops back to its first key",
         [](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.NoDirectory), W::kLeft, s.Writer.Offset(s.Default));
         },
         kAll, "work"},
        {"key links to itself",
         [](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.Work), W::kLeft, s.Writer.Offset(s.Work));
         },
         {"default", "work"},
         "work"},
        {"entry chain loops back to its first entry",
         [](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.CurrentProfile), W::kLeft, s.Writer.Offset(s.Version));
         },
         kAll, "work"},
        {"entry links to itself",
         [](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.Version), W::kLeft, s.Writer.Offset(s.Version));
         },
         kAll, ""},
        {"child key is its own ancestor",
         [](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.Work), W::kDown, s.Writer.Offset(s.Writer.Root()));
         },
         kAll, "work"},
        {"child key is its parent",
         [](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.Profiles), W::kDown, s.Writer.Offset(s.Profiles));
         },
         {},
         "work"},
        {"entry chain of a key starts at an ancestor",
         [](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.Home), W::kValue, s.Writer.Offset(s.Common));
         },
         kAll, "work"},
        {"two keys share one child",
         [](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.Users), W::kDown, s.Writer.Offset(s.Profiles));
         },
         {},
         ""},
        {"next key past the end",
         [](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.Work), W::kLeft, static_cast<uint32_t>(b.size() + 64));
         },
         {"default", "work"},
         "work"},
        {"next key at the top of the offset range",
         [kFar](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.Work), W::kLeft, kFar);
         },
         {"default", "work"},
         "work"},
        {"next key in the last bytes of the file",
         [](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.Work), W::kLeft, static_cast<uint32_t>(b.size() - 31));
         },
         {"default", "work"},
         "work"},
        {"next key off by one byte",
         [](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.Work), W::kLeft, s.Writer.Offset(s.Home) + 1);
         },
         {"default", "work"},
         "work"},
        {"first child past the end",
         [kFar](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.Profiles), W::kDown, kFar);
         },
         {},
         "work"},
        {"first entry past the end",
         [](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.Profiles), W::kValue, 0x7fffffff);
         },
         kAll, ""},
        {"value past the end",
         [](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.CurrentProfile), W::kValue, static_cast<uint32_t>(b.size()));
         },
         kAll, ""},
        {"value offset wraps around",
         [](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.CurrentProfile), W::kValue, 0xffffffff);
         },
         kAll, ""},
        {"value longer than the file",
         [](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.CurrentProfile), W::kValueLength, 0xffffffff);
         },
         kAll, ""},
        {"value runs one byte past the end",
         [](const SampleRegistry& s, std::string& b) {
             const uint32_t at = s.Writer.ValueOffset(s.CurrentProfile);
             Put(b, s.Writer.Offset(s.CurrentProfile), W::kValueLength,
                 static_cast<uint32_t>(b.size()) - at + 1);
         },
         kAll, ""},
        {"name longer than the file",
         [](const SampleRegistry& s, std::string& b) {
             W::PutShort(b, s.Writer.Offset(s.Home) + W::kNameLength, 0xffff);
         },
         {"default", "work", "nodir"},
         "work"},
        {"name past the end",
         [](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.Default), W::kName, 0xfffffffe);
         },
         {"work", "My Home", "nodir"},
         "work"},
        {"directory value past the end",
         [](const SampleRegistry& s, std::string& b) {
             Put(b, s.Writer.Offset(s.DefaultDirectory), W::kValue, 0x10000000);
         },
         kAll, "work"},
    };
    const SampleRegistry sample = MakeSampleRegistry();
    for (const LinkCase& c : cases) {
        std::string bytes = sample.Bytes;
        c.Damage(sample, bytes);
        ZvMozillaLib registry;
        ASSERT_TRUE(registry.ReadRegistry(bytes)) << c.What;
        EXPECT_TRUE(registry.IsDamaged()) << c.What;
        EXPECT_LE(registry.NodeCount(), 17u) << c.What;
        EXPECT_EQ(ProfileNames(registry), c.Profiles) << c.What;
        EXPECT_EQ(registry.CurrentProfileName(), c.Current) << c.What;
        const std::string xml = registry.ToXML();
        EXPECT_EQ(xml.substr(0, 31), "<?xml version=\"1.0\"?>\r\n<Root>\r\n") << c.What;
        EXPECT_LE(xml.size(), SampleRegistryXml().size()) << c.What;
    }
}

TEST(ZvMozillaLibDamage, DamagedDirectoryEntryIsLeftOutNotEmptied) {
    SampleRegistry sample = MakeSampleRegistry();
    Put(sample.Bytes, sample.Writer.Offset(sample.DefaultDirectory), W::kValueLength, 0x7fffffff);
    ZvMozillaLib registry;
    ASSERT_TRUE(registry.ReadRegistry(sample.Bytes));
    // Without the entry the back end falls back to the profile's folder.
    EXPECT_FALSE(registry.ProfileList()[0].HasDirectory);
    EXPECT_EQ(registry.FindKey("/Common/Profiles/default")->Entry("Time")->Value(), "40000000");
}

TEST(ZvMozillaLibDamage, HugeFileIsRefusedWithoutReadingIt) {
    std::string bytes = MakeSampleRegistry().Bytes;
    bytes.resize(ZvMozillaLib::kMaxFileSize + 1, '\0');
    const auto start = Clock::now();
    ZvMozillaLib registry;
    EXPECT_FALSE(registry.ReadRegistry(bytes));
    EXPECT_TRUE(registry.Keys().empty());
    EXPECT_LT(Seconds(start), 5.0);

    // At the limit it is still a registry.
    bytes.resize(ZvMozillaLib::kMaxFileSize);
    EXPECT_TRUE(registry.ReadRegistry(bytes));
    EXPECT_EQ(registry.ProfileList().size(), 4u);
}

TEST(ZvMozillaLibDamage, TooManyNodesStopAtTheLimit) {
    W writer;
    const W::NodeId key = writer.AddKey(writer.Root(), "many");
    for (size_t i = 0; i < ZvMozillaLib::kMaxNodes + 500; ++i) writer.AddString(key, "e", "v");
    const auto start = Clock::now();
    ZvMozillaLib registry;
    ASSERT_TRUE(registry.ReadRegistry(writer.Build()));
    EXPECT_TRUE(registry.IsDamaged());
    EXPECT_EQ(registry.NodeCount(), ZvMozillaLib::kMaxNodes);
    EXPECT_EQ(registry.Keys()[0].Keys()[0].Entries().size(), ZvMozillaLib::kMaxNodes - 2);
    EXPECT_FALSE(registry.ToXML().empty());
    EXPECT_LT(Seconds(start), 10.0);
}

TEST(ZvMozillaLibDamage, DeepNestingStopsAtTheDepthLimit) {
    W writer;
    W::NodeId key = writer.Root();
    for (int i = 0; i < 1000; ++i) key = writer.AddKey(key, "k");
    ZvMozillaLib registry;
    ASSERT_TRUE(registry.ReadRegistry(writer.Build()));
    EXPECT_TRUE(registry.IsDamaged());
    EXPECT_EQ(Depth(registry.Keys()[0]), ZvMozillaLib::kMaxDepth + 1);
    const std::string xml = registry.ToXML();
    EXPECT_LT(xml.size(), 20000u);
}

TEST(ZvMozillaLibDamage, SharedSubtreesAreReadOnce) {
    // 300 keys whose children are all the same key of 300 entries: followed
    // naively that is 90,000 entries from a file of a few kilobytes.
    W writer;
    std::vector<W::NodeId> keys;
    for (int i = 0; i < 300; ++i) keys.push_back(writer.AddKey(writer.Root(), "k"));
    const W::NodeId shared = writer.AddKey(keys[0], "shared");
    for (int i = 0; i < 300; ++i) writer.AddString(shared, "e", "v");
    std::string bytes = writer.Build();
    for (W::NodeId k : keys) Put(bytes, writer.Offset(k), W::kDown, writer.Offset(shared));
    ZvMozillaLib registry;
    ASSERT_TRUE(registry.ReadRegistry(bytes));
    EXPECT_TRUE(registry.IsDamaged());
    EXPECT_EQ(CountEntries(registry.Keys()[0]), 300u);
}

TEST(ZvMozillaLibDamage, ValuesSharingOneLargeBlockStopAtTheTextLimit) {
    // Thousands of entries whose values all cover the same large block.
    W writer;
    const W::NodeId key = writer.AddKey(writer.Root(), "k");
    const W::NodeId big = writer.AddEntry(key, "big", 0x13, std::string(200000, 'x'));
    std::vector<W::NodeId> entries;
    for (int i = 0; i < 5000; ++i) entries.push_back(writer.AddEntry(key, "e", 0x13, "y"));
    std::string bytes = writer.Build();
    for (W::NodeId e : entries) {
        Put(bytes, writer.Offset(e), W::kValue, writer.ValueOffset(big));
        Put(bytes, writer.Offset(e), W::kValueLength, 200000);
    }
    const auto start = Clock::now();
    ZvMozillaLib registry;
    ASSERT_TRUE(registry.ReadRegistry(bytes));
    EXPECT_TRUE(registry.IsDamaged());
    size_t kept = 0;
    for (const ZvRegEntry& e : registry.Keys()[0].Keys()[0].Entries()) kept += e.Value().size();
    EXPECT_LE(kept, ZvMozillaLib::kMaxTextBytes);
    EXPECT_GT(kept, ZvMozillaLib::kMaxTextBytes / 2);
    EXPECT_LT(Seconds(start), 10.0);
}

}  // namespace
}  // namespace rwz::test
