// The profile registry reader on a registry written by Mozilla itself (2004,
// one profile "default", plugins, leftover memory after the header).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "RegistryDatWriter.h"
#include "browsers/ZvMozillaLib.h"

namespace rwz::test {
namespace {

std::string FixtureBytes() {
    const std::string bytes = ReadWholeFile(MozillaFixturePath());
    EXPECT_EQ(bytes.size(), 20667u) << MozillaFixturePath();
    return bytes;
}

// The text between two tags with tabs and line ends taken out, as the
// Netscape back end looks at it.
std::string Between(const std::string& xml, const std::string& open, const std::string& close) {
    const size_t from = xml.find(open);
    const size_t to = xml.find(close);
    if (from == std::string::npos || to == std::string::npos || to < from) return "";
    std::string inner;
    for (char c : xml.substr(from + open.size(), to - from - open.size())) {
        if (c != '\t' && c != '\r' && c != '\n') inner += c;
    }
    return inner;
}

TEST(ZvMozillaLibFixture, ReadsTheWholeFile) {
    ZvMozillaLib registry;
    ASSERT_TRUE(registry.ReadRegistry(FixtureBytes())) << MozillaFixturePath();
    EXPECT_FALSE(registry.IsDamaged());
    EXPECT_EQ(registry.MajorVersion(), 1);
    EXPECT_EQ(registry.MinorVersion(), 2);
    EXPECT_EQ(registry.RootOffset(), 130u);
    EXPECT_EQ(registry.Available(), 20667u);
    // 50 keys and 148 entries, every one of them.
    EXPECT_EQ(registry.NodeCount(), 198u);

    ASSERT_EQ(registry.Keys().size(), 1u);
    const ZvRegKey& root = registry.Keys()[0];
    EXPECT_EQ(root.Name(), "/");
    std::vector<std::string> names;
    for (const ZvRegKey& key : root.Keys()) names.push_back(key.Name());
    EXPECT_EQ(names,
              (std::vector<std::string>{"Users", "Common", "Version Registry", "Private Arenas"}));

    const ZvRegKey* plugins = registry.FindKey("/Common/software/plugins");
    ASSERT_NE(plugins, nullptr);
    EXPECT_EQ(plugins->Keys().size(), 6u);
    ASSERT_NE(plugins->Entry("version"), nullptr);
    EXPECT_EQ(plugins->Entry("version")->Value(), "0.04");
    const ZvRegKey* java = plugins->Key("plugin-5");
    ASSERT_NE(java, nullptr);
    EXPECT_EQ(java->Keys().size(), 29u);
    EXPECT_EQ(java->Keys().back().Name(), "mimetype-28");
    EXPECT_EQ(java->Keys().back().Entry("mimetype")->Value(),
              "application/x-java-bean;jpi-version=1.4.2_01");
}

TEST(ZvMozillaLibFixture, FindsTheCurrentProfileAndItsDirectory) {
    ZvMozillaLib registry;
    ASSERT_TRUE(registry.ReadRegistry(FixtureBytes()));
    EXPECT_EQ(registry.CurrentProfileName(), "default");
    const std::vector<ZvMozillaProfile> profiles = registry.ProfileList();
    ASSERT_EQ(profiles.size(), 1u);
    EXPECT_EQ(profiles[0].Name, "default");
    EXPECT_TRUE(profiles[0].HasDirectory);
    EXPECT_EQ(profiles[0].Directory, "/home/hendry/.mozilla/default/ack41g03.slt");

    const ZvRegKey* list = registry.FindKey("/Common/Profiles");
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->Entry("Version")->Value(), "1.0");
    // An empty string is stored as a single NUL.
    EXPECT_EQ(list->Entry("HavePregInfo")->Value(), "");
    EXPECT_EQ(list->Entry("AutoStartWithLast")->Type(), 0x12);
    EXPECT_EQ(list->Entry("AutoStartWithLast")->Value(), std::string(4, '\0'));
    EXPECT_EQ(list->Key("default")->Entry("migrated")->Value(), "yes");
}

TEST(ZvMozillaLibFixture, RendersItAsXml) {
    ZvMozillaLib registry;
    ASSERT_TRUE(registry.ReadRegistry(FixtureBytes()));
    const std::string xml = registry.ToXML();
    EXPECT_EQ(xml.substr(0, 31), "<?xml version=\"1.0\"?>\r\n<Root>\r\n");
    EXPECT_EQ(xml.substr(xml.size() - 9), "</Root>\r\n");
    for (const char* line : {
             "\r\n\t<Users/>\r\n",
             "\r\n\t<Version_Registry/>\r\n",
             "\r\n\t<Private_Arenas/>\r\n",
             "\r\n\t\t<Profiles>\r\n\t\t\t<AutoStartWithLast>0 (0x0)</AutoStartWithLast>\r\n",
             "\r\n\t\t\t<HavePregInfo></HavePregInfo>\r\n",
             "\r\n\t\t\t<CurrentProfile>default</CurrentProfile>\r\n\t\t\t<default>\r\n",
             "\r\n\t\t\t\t<LastModTime>1091165976650 (0xFE0E8F784A)</LastModTime>\r\n",
             "\r\n\t\t\t\t<CreationTime>1070496941258 (0xF93E9704CA)</CreationTime>\r\n",
             "\r\n\t\t\t\t\t<canUnload>1 (0x1)</canUnload>\r\n",
             "\r\n\t\t\t\t\t<name>Shockwave Flash</name>\r\n",
             "\r\n\t\t\t\t\t<description></description>\r\n",
             "\r\n\t\t\t\t\t\t<mimetype>application/pdf</mimetype>\r\n",
         }) {
        EXPECT_NE(xml.find(line), std::string::npos) << line;
    }
    // What the Netscape back end takes out of it.
    EXPECT_EQ(Between(xml, "<Profiles>", "</Profiles>"),
              "<AutoStartWithLast>0 (0x0)</AutoStartWithLast><HavePregInfo></HavePregInfo>"
              "<Version>1.0</Version><CurrentProfile>default</CurrentProfile>"
              "<default><directory>/home/hendry/.mozilla/default/ack41g03.slt</directory>"
              "<LastModTime>1091165976650 (0xFE0E8F784A)</LastModTime>"
              "<CreationTime>1070496941258 (0xF93E9704CA)</CreationTime>"
              "<NCHavePregInfo></NCHavePregInfo><NCEmailAddress></NCEmailAddress>"
              "<NCServiceDenial></NCServiceDenial><NCProfileName></NCProfileName>"
              "<migrated>yes</migrated></default>");
}

TEST(ZvMozillaLibFixture, IgnoresTheLeftoverBytesAfterTheHeader) {
    const std::string bytes = FixtureBytes();
    ZvMozillaLib original;
    ASSERT_TRUE(original.ReadRegistry(bytes));
    const std::string xml = original.ToXML();
    for (char fill : {'\0', '\xff', '\x82'}) {
        std::string changed = bytes;
        for (size_t at = 16; at < 128; ++at) changed[at] = fill;
        ZvMozillaLib registry;
        ASSERT_TRUE(registry.ReadRegistry(changed));
        EXPECT_FALSE(registry.IsDamaged());
        EXPECT_EQ(registry.ToXML(), xml);
    }
}

}  // namespace
}  // namespace rwz::test
