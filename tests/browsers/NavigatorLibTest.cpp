// The Netscape back end on simulated machines (tests/machines/*-netscape*):
// which profiles it finds and which one it takes, a whole prefs.js after an
// apply compared with its golden copy, what it reads back, and its failures
// (a port too large, no preferences file, a damaged profile registry).
#include <windows.h>

#include <chrono>

#include "NavigatorLibTestSupport.h"
#include "TestBrowser.h"
#include "browsers/RegistryDatWriter.h"

namespace rwz::test {
namespace {

using R = BrowserRecord;
const char kPatPrefs[] = "C:\\Program Files\\Netscape\\Users\\pat\\prefs.js";

std::string Mozilla(const std::string& astrRest) {
    return AppDataFolder() + "\\Mozilla\\Profiles\\" + astrRest;
}
std::string WorkPrefs() {
    return Mozilla("work\\k3x9q2mf.slt\\prefs.js");
}
std::string Golden(const std::string& astrName) {
    return bench::ReadFileText(bench::SourceDir() + "\\tests\\browsers\\golden\\" + astrName);
}

// Every profile found as "name=prefs file", in the order found.
std::vector<std::string> Found(const NavigatorProfiles& aProfiles) {
    std::vector<std::string> found;
    for (const NavigatorProfile& profile : aProfiles.Found())
        found.push_back(profile.Name + "=" + profile.PrefsFile);
    return found;
}

TEST_F(NavigatorLibTest, FindsTheProfilesOfEachPlaceInOrder) {
    const struct {
        std::vector<const char*> Machines;
        std::vector<std::string> Found;
        const char* Current;
    } cases[] = {
        // Only the machine-wide list's current user; "reception" is not looked at.
        {{"win98-netscape4"}, {std::string("pat=") + kPatPrefs}, "pat"},
        // Mail state file (pat), install drive (lee_chan), Windows drive (sam);
        // "CurrentUser" "Lee Chan" is the key "lee_chan".
        {{"nt40-netscape4"},
         {"lee_chan=C:\\Netscape\\Users\\lee_chan\\prefs.js", "pat=C:\\Profiles\\pat\\prefs.js",
          "sam=C:\\Program Files\\Netscape\\Users\\sam\\prefs.js"},
         "lee_chan"},
        // "retired" has no folder; "Home Office" is found through its "*.slt" folder.
        {{"xp-netscape7"},
         {"work=" + WorkPrefs(), "Home Office=" + Mozilla("Home Office\\p0w8r5tz.slt\\prefs.js")},
         ""},
        {{"win98-netscape4", "xp-netscape7"},
         {std::string("pat=") + kPatPrefs, "work=" + WorkPrefs(),
          "Home Office=" + Mozilla("Home Office\\p0w8r5tz.slt\\prefs.js")},
         "pat"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Machines.front());
        RemoveNetscape();
        for (const char* machine : c.Machines) InstallNetscape(machine);
        NavigatorProfiles profiles;
        profiles.Find();
        EXPECT_EQ(c.Found, Found(profiles));
        EXPECT_EQ(c.Current, profiles.Current());
    }
}

TEST_F(NavigatorLibTest, WithoutACurrentProfileShowsTheNoticeAndTakesTheFirst) {
    InstallNetscape("xp-netscape7");
    NavigatorLib lib;
    EXPECT_EQ("work", lib.Record().CurrentProfile);
    ASSERT_EQ(1u, BoxesTitled(kNoticeTitle)) << DescribeBoxes();
    EXPECT_NE(std::string::npos, Boxes()[0].Text.find("'work'")) << Boxes()[0].Text;
}

TEST_F(NavigatorLibTest, DamagedMozillaRegistryEndsInTheNoticeNotInACrash) {
    InstallNetscape("xp-netscape7");
    const std::string work = Mozilla("work\\k3x9q2mf.slt");
    const std::string good = MakeMozillaRegistry({{"work", work}, {"Home Office", ""}}, "work");
    // A node whose sibling link points back at itself.
    RegistryDatWriter loopWriter;
    const auto common = loopWriter.AddKey(loopWriter.Root(), "Common");
    const auto first = loopWriter.AddKey(loopWriter.AddKey(common, "Profiles"), "work");
    loopWriter.AddString(first, "directory", work);
    std::string loop = loopWriter.Build();
    RegistryDatWriter::PutLong(loop, loopWriter.Offset(first) + RegistryDatWriter::kLeft,
                               loopWriter.Offset(first));
    std::string rootPastEnd = good;
    RegistryDatWriter::PutLong(rootPastEnd, 12, 0x7FFFFFF0u);

    const std::pair<const char*, std::string> cases[] = {
        {"empty", ""},
        {"not a registry", std::string(4096, '\x5a')},
        {"header only", good.substr(0, 16)},
        {"cut in half", good.substr(0, good.size() / 2)},
        {"root past the end", rootPastEnd},
        {"chain looping on itself", loop},
    };
    for (const auto& [name, bytes] : cases) {
        SCOPED_TRACE(name);
        bench::WriteFile(MozillaRegistryFile(), bytes);
        mWatcher.Clear();
        const auto start = std::chrono::steady_clock::now();
        NavigatorLib lib;
        lib.LoadConfiguration();
        EXPECT_LT(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(),
                  10.0);
        for (const std::string& profile : lib.Record().ProfileList) EXPECT_EQ("work", profile);
        EXPECT_EQ(1u, BoxesTitled(kNoticeTitle)) << DescribeBoxes();
    }
}

// A profile's Netscape area as the main window applies it: the section is
// read, the tab marks the area changed, and the back end applies it.
void ApplySection(NavigatorLib& lib, const std::string& astrLines) {
    ScratchFile section("navigator");
    section.Write("[Netscape Navigator]\r\n" + astrLines);
    lib.LoadConfigurationFile(section.Path());
    lib.Assign(&R::CurrentProfile, lib.Record().CurrentProfile);
    lib.ApplyConfiguration();
}

const char kManualSection[] =
    "NNPROFILE=\r\nNNPROXYENABLE=1\r\nNNDIRECTCONNECTION=0\r\n"
    "NNAUTOCONFIGURL=http://wpad.client.example/wpad.dat\r\n"
    "NNPROXYOVERRIDE=localhost, .client.example\r\n"
    "NNHTTPADDRESS=web-proxy.client.example\r\nNNHTTPPORT=3128\r\n"
    "NNFTPADDRESS=ftp-proxy.client.example\r\nNNFTPPORT=2121\r\n"
    "NNGOPHERADDRESS=\r\nNNGOPHERPORT=\r\n"
    "NNSSLADDRESS=web-proxy.client.example\r\nNNSSLPORT=3129\r\n"
    "NNSOCKSADDRESS=socks.client.example\r\nNNSOCKSPORT=1081\r\nNNSOCKSVERSION=4\r\n"
    "NNWAISADDRESS=\r\nNNWAISPORT=\r\nNNDEFHOMEPAGE=http://extranet.client.example/\r\n"
    "EMailFullName=Pat Example (on site)\r\nEMailAddr=pat@client.example\r\n"
    "EMailReplyToAddr=pat@harbourdental.example\r\nEMailPOP3Server=pop.client.example\r\n"
    "EMailPOP3Login=guest17\r\nEMailSMTPServer=smtp.client.example\r\n"
    "EMailSMTPLogin=guest17\r\nEMailOrganization=Harbour Street Dental\r\n"
    "EMailLeaveMailOnServer=0\r\n";

// Netscape 4 takes the mail account and its own SOCKS names; Netscape 7 the
// later SOCKS names with the version, and an automatic configuration.
TEST_F(NavigatorLibTest, ApplyGivesTheGoldenPrefsFiles) {
    const struct {
        const char* Machine;
        std::string Section;
        std::string File;
        const char* Golden;
    } cases[] = {
        {"win98-netscape4", kManualSection, kPatPrefs, "pat-prefs-applied.js"},
        {"xp-netscape7",
         "NNPROXYENABLE=0\r\n" + std::string(kManualSection), WorkPrefs(),
         "work-prefs-applied.js"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Machine);
        RemoveNetscape();
        InstallNetscape(c.Machine);
        NavigatorLib lib;
        mWatcher.Clear();
        ApplySection(lib, c.Section);
        EXPECT_TRUE(Boxes().empty()) << DescribeBoxes();
        EXPECT_FALSE(lib.IsModified());
        EXPECT_EQ(Golden(c.Golden), bench::ReadFileText(c.File));

        // And the profile reads back as applied.
        NavigatorLib again;
        again.LoadConfiguration();
        EXPECT_EQ("socks.client.example", again.Record().SocksAddress);
        EXPECT_EQ("3129", again.Record().SecurePort);
        EXPECT_EQ("localhost, .client.example", again.Record().ProxyExceptions);
        EXPECT_EQ("http://extranet.client.example/", again.Record().DefaultHomePage);
    }
}

TEST_F(NavigatorLibTest, ReadsEachPreferenceIntoItsSetting) {
    const struct {
        const char* Profile;
        std::string R::*Text;
        bool R::*Flag;
        const char* Expected;  // the text, or "1"/"0"
    } cases[] = {
        {"sam", &R::DefaultHomePage, nullptr, "about:blank"},
        {"sam", nullptr, &R::ConnectViaLAN, "1"},
        {"sam", nullptr, &R::ProxyEnabled, "0"},
        {"sam", &R::EMailFullName, nullptr, "Sam Rivera"},
        {"sam", &R::EMailAddr, nullptr, "sam@northwind.example"},
        {"sam", &R::EMailPOP3Login, nullptr, "sam"},
        {"sam", &R::EMailSMTPServer, nullptr, "mail.northwind.example"},
        {"sam", &R::EMailOrganization, nullptr, "Northwind Surveying"},
        {"pat", nullptr, &R::ConnectViaLAN, "0"},
        {"pat", nullptr, &R::ProxyEnabled, "1"},
        {"pat", &R::HTTPAddress, nullptr, "gate.northwind.example"},
        {"pat", &R::SecurePort, nullptr, "3128"},
    };
    InstallNetscape("nt40-netscape4");
    NavigatorLib lib;
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.Profile) + " " + c.Expected);
        lib.Assign(&R::CurrentProfile, c.Profile);
        lib.LoadConfiguration();
        if (c.Text) EXPECT_EQ(c.Expected, lib.Record().*c.Text);
        if (c.Flag) EXPECT_EQ(std::string(c.Expected) == "1", lib.Record().*c.Flag);
        EXPECT_FALSE(lib.IsModified());
    }
}

TEST_F(NavigatorLibTest, FailuresApplyNothingAndSaySo) {
    const struct {
        const char* Section;
        const char* Text;
    } cases[] = {
        {"NNPROFILE=pat\r\nNNSOCKSPORT=40000\r\n",
         "Could not apply Navigator preferences for profile 'pat'."},
        {"NNPROFILE=reception\r\n", kNoPrefsFileText},
    };
    InstallNetscape("win98-netscape4");
    const std::string before = bench::ReadFileText(kPatPrefs);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Text);
        mWatcher.Clear();
        NavigatorLib lib;
        ApplySection(lib, c.Section);
        ASSERT_EQ(1u, Boxes().size()) << DescribeBoxes();
        EXPECT_EQ("Roamwise", Boxes()[0].Title);
        EXPECT_EQ(c.Text, Boxes()[0].Text);
        EXPECT_EQ(before, bench::ReadFileText(kPatPrefs));
        EXPECT_FALSE(lib.IsModified());
    }
}

}  // namespace
}  // namespace rwz::test
