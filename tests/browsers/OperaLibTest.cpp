// Opera 7's settings file "opera6.ini": each key read into its own setting,
// a whole file after an apply compared with its golden copy, keys the
// profile does not change left in Opera's own form, and the identity codes.
#include <gtest/gtest.h>

#include <windows.h>

#include <string>

#include "TestBrowser.h"
#include "bench/Bench.h"
#include "browsers/InProcessWatcher.h"
#include "browsers/OperaLib.h"

namespace rwz::test {
namespace {

using R = BrowserRecord;

std::string MachineIni(const std::string& astrMachine) {
    return bench::SourceDir() + "\\tests\\machines\\" + astrMachine +
           "\\files\\Program Files\\Opera7\\profile\\opera6.ini";
}

// An OperaLib reading and writing the file given, not the one it found.
class OperaAt : public OperaLib {
  public:
    explicit OperaAt(const std::string& astrFile) {
        SetSettingsFile(astrFile);
        LoadConfiguration();
    }
};

// A copy of a machine's opera6.ini (or of the text given) in the temporary folder.
struct IniCopy : ScratchFile {
    explicit IniCopy(const std::string& astrText) : ScratchFile("opera6", ".ini") {
        Write(astrText);
    }
};

struct ReadCase {
    const char* Machine;
    std::string R::*Text;
    bool R::*Flag;
    const char* Expected;  // the text, or "1"/"0"
};

TEST(OperaLib, ReadsEachKeyIntoItsSetting) {
    const ReadCase cases[] = {
        {"xp-laptop", &R::DefaultHomePage, nullptr, "http://intranet.northwind.test/"},
        {"xp-laptop", &R::HTTPAddress, nullptr, "proxy.northwind.test"},
        {"xp-laptop", &R::HTTPPort, nullptr, "8080"},
        {"xp-laptop", &R::SecurePort, nullptr, "8443"},
        {"xp-laptop", &R::FTPPort, nullptr, "2121"},
        {"xp-laptop", &R::GopherAddress, nullptr, ""},
        {"xp-laptop", &R::ProxyExceptions, nullptr, "*.northwind.test;10.*"},
        {"xp-laptop", &R::CurrentUserAgent, nullptr, "Identify as MSIE 6.0"},
        {"xp-laptop", nullptr, &R::HTTPProxyEnabled, "1"},
        {"xp-laptop", nullptr, &R::SecureProxyEnabled, "1"},
        {"xp-laptop", nullptr, &R::GopherProxyEnabled, "0"},
        {"xp-laptop", nullptr, &R::ProxyExceptionsEnabled, "1"},
        {"xp-laptop", nullptr, &R::UseAutoConfigURL, "0"},
        {"xp-laptop", nullptr, &R::ProxyEnabled, "1"},
        {"win98-desktop", &R::HTTPAddress, nullptr, "proxy.earthnet.test"},
        {"win98-desktop", &R::HTTPPort, nullptr, ""},
        {"win98-desktop", &R::CurrentUserAgent, nullptr, "Identify as Mozilla 4.78"},
    };
    for (const ReadCase& c : cases) {
        SCOPED_TRACE(c.Expected);
        OperaAt opera(MachineIni(c.Machine));
        if (c.Text) EXPECT_EQ(c.Expected, opera.Record().*c.Text);
        if (c.Flag) EXPECT_EQ(std::string(c.Expected) == "1", opera.Record().*c.Flag);
        EXPECT_FALSE(opera.IsModified());
    }
}

TEST(OperaLib, AnyProtocolsSwitchEnablesTheProxy) {
    for (const char* key : {"Use HTTP", "Use HTTPS", "Use FTP", "Use GOPHER", "Use WAIS"}) {
        IniCopy ini(std::string("Opera Preferences version 2.0\r\n[Proxy]\r\n") + key + "=1\r\n");
        EXPECT_TRUE(OperaAt(ini.Path()).Record().ProxyEnabled) << key;
    }
    IniCopy none("[Proxy]\r\nUse HTTP=true\r\n");
    EXPECT_FALSE(OperaAt(none.Path()).Record().ProxyEnabled);
}

TEST(OperaLib, ApplyGivesTheGoldenFile) {
    IniCopy ini(bench::ReadFileText(MachineIni("xp-laptop")));
    OperaAt opera(ini.Path());
    opera.Assign(&R::DefaultHomePage, "http://home.test/");
    opera.Assign(&R::HTTPAddress, "h");
    opera.Assign(&R::HTTPPort, "3128");
    opera.Assign(&R::SecureProxyEnabled, false);
    opera.Assign(&R::FTPPort, "");
    opera.Assign(&R::GopherProxyEnabled, true);
    opera.Assign(&R::GopherAddress, "g");
    opera.Assign(&R::GopherPort, "70");
    opera.Assign(&R::WAISPort, "210");
    opera.Assign(&R::ProxyExceptions, "*.test");
    opera.Assign(&R::ProxyExceptionsEnabled, false);
    opera.Assign(&R::UseAutoConfigURL, true);
    opera.Assign(&R::AutoConfigURL, "http://wpad.test/proxy.pac");
    opera.Assign(&R::CurrentUserAgent, "Identify as Mozilla 5.0");
    opera.ApplyConfiguration();
    EXPECT_FALSE(opera.IsModified());
    EXPECT_EQ(
        bench::ReadFileText(bench::SourceDir() + "\\tests\\browsers\\golden\\opera6-applied.ini"),
        ini.Read());
}

TEST(OperaLib, KeysTheProfileDoesNotChangeKeepTheirForm) {
    // A spare colon, a flag Opera never writes, a code outside the menu.
    IniCopy ini(bench::ReadFileText(MachineIni("win98-desktop")));
    WritePrivateProfileStringA("Proxy", "FTP Server", "ftp-gate:", ini.Path().c_str());
    WritePrivateProfileStringA("Proxy", "Use WAIS", "yes", ini.Path().c_str());
    WritePrivateProfileStringA("User Agent", "Spoof UserAgent ID", "5", ini.Path().c_str());
    const std::string before = ini.Read();

    ScratchFile profile("opera-unchanged");
    OperaAt(ini.Path()).SaveConfigurationFile(profile.Path());
    OperaAt opera(ini.Path());
    opera.LoadConfigurationFile(profile.Path());
    opera.Assign(&R::CurrentUserAgent, opera.Record().CurrentUserAgent);
    opera.ApplyConfiguration();
    EXPECT_EQ(before, ini.Read());
}

TEST(OperaLib, ReadOnlyFileIsNotChangedAndTheUserIsTold) {
    IniCopy ini(bench::ReadFileText(MachineIni("xp-laptop")));
    const std::string before = ini.Read();
    ASSERT_TRUE(SetFileAttributesA(ini.Path().c_str(), FILE_ATTRIBUTE_READONLY));
    InProcessWatcher watcher;
    OperaAt opera(ini.Path());
    opera.Assign(&R::DefaultHomePage, "http://home.test/");
    opera.ApplyConfiguration();
    EXPECT_EQ(before, ini.Read());
    ASSERT_EQ(1u, watcher.Boxes().size());
    EXPECT_EQ("Could not apply Opera preferences to '" + ini.Path() + "'.",
              watcher.Boxes()[0].Text);
    SetFileAttributesA(ini.Path().c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(OperaLib, IdentityIsWrittenAsItsTwoCodes) {
    const struct {
        const char* Name;
        const char* ID;
        const char* Version;
    } cases[] = {
        {"Identify as Opera", "1", "1"},        {"Identify as Mozilla 5.0", "2", "0"},
        {"Identify as Mozilla 4.78", "2", "1"}, {"Identify as Mozilla 3.0", "2", "2"},
        {"Identify as MSIE 6.0", "3", "0"},
    };
    OperaLib opera;
    EXPECT_EQ(5u, opera.GetUserAgents().size());
    for (const auto& c : cases) {
        opera.Assign(&R::CurrentUserAgent, "Identify as Opera");
        opera.Assign(&R::CurrentUserAgent, c.Name);
        EXPECT_EQ(c.ID, opera.Record().UserAgentID) << c.Name;
        if (std::string(c.ID) != "1")
            EXPECT_EQ(c.Version, opera.Record().UserAgentVersion) << c.Name;
        // Saved and opened again, the codes give the identity back.
        ScratchFile profile("identity");
        opera.SaveConfigurationFile(profile.Path());
        OperaLib reopened;
        reopened.LoadConfigurationFile(profile.Path());
        EXPECT_EQ(c.Name, reopened.Record().CurrentUserAgent);
    }
}

}  // namespace
}  // namespace rwz::test
