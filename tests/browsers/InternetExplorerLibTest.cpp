// Internet Explorer's settings against Wine's registry: read from the Internet
// Settings of the simulated machines, written back in Internet Explorer's own
// value forms, and left alone where the profile does not change them.
#include <gtest/gtest.h>

#include <windows.h>

#include <cstdint>
#include <algorithm>
#include <cctype>
#include <map>
#include <string>
#include <vector>

#include "TestBrowser.h"
#include "bench/Bench.h"
#include "browsers/InternetExplorerLib.h"
#include "platform/modAPI.h"

namespace rwz::test {
namespace {

const char kSettings[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";
const char kConnections[] =
    "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings\\Connections";
const char kMain[] = "Software\\Microsoft\\Internet Explorer\\Main";
const char kAutoDial[] = "SOFTWARE\\Microsoft\\RAS AutoDial\\Default";

// A registry value as the store holds it.
struct Raw {
    bool Exists = false;
    DWORD Type = REG_NONE;
    std::vector<uint8_t> Bytes;

    std::string Text() const { return std::string(Bytes.begin(), Bytes.end()).c_str(); }
    bool operator==(const Raw& other) const {
        return Exists == other.Exists && Type == other.Type && Bytes == other.Bytes;
    }
};

Raw ReadRaw(HKEY root, const std::string& key, const std::string& name) {
    Raw raw;
    HKEY handle = nullptr;
    if (RegOpenKeyExA(root, key.c_str(), 0, KEY_QUERY_VALUE, &handle) != ERROR_SUCCESS) return raw;
    DWORD size = 0;
    if (RegQueryValueExA(handle, name.c_str(), nullptr, &raw.Type, nullptr, &size) ==
        ERROR_SUCCESS) {
        raw.Bytes.resize(size);
        raw.Exists = RegQueryValueExA(handle, name.c_str(), nullptr, &raw.Type,
                                      size ? raw.Bytes.data() : nullptr, &size) == ERROR_SUCCESS;
        raw.Bytes.resize(size);
    }
    RegCloseKey(handle);
    return raw;
}

void WriteRaw(HKEY root, const std::string& key, const std::string& name, DWORD type,
              const std::vector<uint8_t>& bytes) {
    HKEY handle = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExA(root, key.c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                                             nullptr, &handle, nullptr));
    EXPECT_EQ(ERROR_SUCCESS, RegSetValueExA(handle, name.c_str(), 0, type, bytes.data(),
                                            static_cast<DWORD>(bytes.size())));
    RegCloseKey(handle);
}

void WriteText(HKEY root, const std::string& key, const std::string& name,
               const std::string& text) {
    std::vector<uint8_t> bytes(text.begin(), text.end());
    bytes.push_back(0);
    WriteRaw(root, key, name, REG_SZ, bytes);
}

void DeleteRaw(HKEY root, const std::string& key, const std::string& name) {
    HKEY handle = nullptr;
    if (RegOpenKeyExA(root, key.c_str(), 0, KEY_SET_VALUE, &handle) != ERROR_SUCCESS) return;
    RegDeleteValueA(handle, name.c_str());
    RegCloseKey(handle);
}

// A key with everything under it.
void DeleteTree(HKEY root, const std::string& key) {
    HKEY handle = nullptr;
    if (RegOpenKeyExA(root, key.c_str(), 0, KEY_ALL_ACCESS, &handle) != ERROR_SUCCESS) return;
    std::vector<std::string> children;
    char name[512];
    for (DWORD index = 0;; ++index) {
        DWORD length = sizeof name;
        if (RegEnumKeyExA(handle, index, name, &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS) {
            break;
        }
        children.emplace_back(name, length);
    }
    RegCloseKey(handle);
    for (const std::string& child : children) DeleteTree(root, key + "\\" + child);
    RegDeleteKeyA(root, key.c_str());
}

// Every value of a key, by name.
std::map<std::string, Raw> Snapshot(HKEY root, const std::string& key) {
    std::map<std::string, Raw> values;
    HKEY handle = nullptr;
    if (RegOpenKeyExA(root, key.c_str(), 0, KEY_QUERY_VALUE, &handle) != ERROR_SUCCESS) {
        return values;
    }
    for (DWORD index = 0;; ++index) {
        char name[512];
        DWORD nameLength = sizeof name;
        BYTE data[4096];
        DWORD size = sizeof data;
        Raw raw;
        if (RegEnumValueA(handle, index, name, &nameLength, nullptr, &raw.Type, data, &size) !=
            ERROR_SUCCESS) {
            break;
        }
        raw.Exists = true;
        raw.Bytes.assign(data, data + size);
        values[name] = raw;
    }
    RegCloseKey(handle);
    return values;
}

std::vector<uint8_t> Dword(uint32_t number) {
    return {static_cast<uint8_t>(number), static_cast<uint8_t>(number >> 8),
            static_cast<uint8_t>(number >> 16), static_cast<uint8_t>(number >> 24)};
}

// Each test starts from Internet Settings that name none of the values the
// back end handles, then loads the part of a simulated machine it needs.
class InternetExplorerLibTest : public testing::Test {
  protected:
    void SetUp() override {
        for (const char* name : {"ProxyEnable", "ProxyServer", "ProxyOverride", "AutoConfigURL",
                                 "EnableAutodial", "DisablePasswordCaching"}) {
            DeleteRaw(HKEY_CURRENT_USER, kSettings, name);
        }
        DeleteTree(HKEY_CURRENT_USER, kConnections);
        DeleteTree(HKEY_CURRENT_USER, "RemoteAccess");
        DeleteTree(HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\RAS AutoDial");
        DeleteRaw(HKEY_CURRENT_USER, kMain, "Start Page");
    }

    static void LoadMachine(const std::string& astrMachine) {
        bench::Machine::ImportRegFile(bench::SourceDir() + "\\tests\\machines\\" + astrMachine +
                                      "\\internet-settings.reg");
    }
};

// --- Capture: every machine's Internet Settings as the properties give them.

struct MachineCase {
    const char* Machine;
    const char* OSTag;
    bool UseSameProxy;
    const char* HTTP;  // host:port
    const char* Secure;
    const char* FTP;
    const char* Gopher;
    const char* Socks;
    bool ProxyEnabled;
    const char* Exceptions;
    bool IgnoreLocal;
    const char* HomePage;
    bool ConnectViaLAN;
    const char* CurrentDUN;
    size_t DUNs;
    bool AutoDetect;
    const char* AutoConfigURL;
    bool DisablePWDCache;
};

class InternetExplorerCapture : public InternetExplorerLibTest,
                                public testing::WithParamInterface<MachineCase> {};

std::string Pair(const std::string& host, const std::string& port) {
    return host + ":" + port;
}

TEST_P(InternetExplorerCapture, ReadsTheMachinesSettings) {
    const MachineCase& m = GetParam();
    LoadMachine(m.Machine);
    InternetExplorerLib explorer(m.OSTag);
    explorer.SetDefaultHomePage("stale");  // marks modified: the load must clear it
    explorer.LoadConfiguration();

    EXPECT_EQ(m.UseSameProxy, explorer.UseSameProxy());
    EXPECT_EQ(m.HTTP, Pair(explorer.HTTPAddress(), explorer.HTTPPort()));
    EXPECT_EQ(m.Secure, Pair(explorer.SecureAddress(), explorer.SecurePort()));
    EXPECT_EQ(m.FTP, Pair(explorer.FTPAddress(), explorer.FTPPort()));
    EXPECT_EQ(m.Gopher, Pair(explorer.GopherAddress(), explorer.GopherPort()));
    EXPECT_EQ(m.Socks, Pair(explorer.SocksAddress(), explorer.SocksPort()));
    EXPECT_EQ(m.ProxyEnabled, explorer.ProxyEnabled());
    EXPECT_EQ(m.Exceptions, explorer.ProxyExceptions());
    EXPECT_EQ(m.IgnoreLocal, explorer.IgnoreLocalAddresses());
    EXPECT_EQ(m.HomePage, explorer.DefaultHomePage());
    EXPECT_EQ(m.ConnectViaLAN, explorer.ConnectViaLAN());
    EXPECT_EQ(m.CurrentDUN, explorer.CurrentDUN());
    EXPECT_EQ(m.DUNs, explorer.DUNList().size());
    EXPECT_EQ(m.AutoDetect, explorer.AutoDetectSettings());
    EXPECT_EQ(m.AutoConfigURL, explorer.AutoConfigURL());
    EXPECT_EQ(std::string(m.AutoConfigURL) != "", explorer.UseAutoConfigURL());
    EXPECT_EQ(m.DisablePWDCache, explorer.DisablePWDCache());
    EXPECT_FALSE(explorer.IsModified());
}

INSTANTIATE_TEST_SUITE_P(
    Machines, InternetExplorerCapture,
    testing::Values(
        MachineCase{"xp-laptop", "XP", false, "proxy.northwind.test:8080",
                    "proxy.northwind.test:8443", "proxy.northwind.test:2121",
                    "proxy.northwind.test:70", "socks.northwind.test:1080", true,
                    "*.northwind.test;10.*", true, "http://intranet.northwind.test/", true,
                    "Northwind Dial-Up", 0, true, "", false},
        MachineCase{"win2k-pro", "2K", true, "cache.contoso.test:3128", "cache.contoso.test:3128",
                    "cache.contoso.test:3128", "cache.contoso.test:3128", ":", true, "", true,
                    "http://www.contoso.test/", true, "", 0, false,
                    "http://wpad.contoso.test/proxy.pac", true},
        // No "ProxyServer" at all: one proxy for all, with no host.
        MachineCase{"win2003-server", "2003", true, ":", ":", ":", ":", ":", false, "", false,
                    "about:blank", true, "", 0, false, "", true},
        // Binary flags of Internet Explorer 4, a list in its own order.
        MachineCase{"nt40-workstation", "NT", false, "proxy.fabrikam.test:80", ":",
                    "proxy.fabrikam.test:21", ":", ":", true, "fabrikam.test", true,
                    "http://home.fabrikam.test/", true, "", 0, false, "", false},
        // No "DefaultConnectionSettings": no automatic detection.
        MachineCase{"win95-desktop", "9x", true, ":", ":", ":", ":", ":", false, "", false,
                    "http://home.example.net/", false, "Home ISP", 2, false, "", false},
        MachineCase{"win98-desktop", "9x", true, "proxy.earthnet.test:8080",
                    "proxy.earthnet.test:8080", "proxy.earthnet.test:8080",
                    "proxy.earthnet.test:8080", ":", true, "", false, "http://www.earthnet.test/",
                    false, "EarthNet", 2, false, "", false},
        MachineCase{"winme-desktop", "9x", true, ":", ":", ":", ":", ":", false, "", false,
                    "http://www.familynet.test/", false, "Family Net", 2, true,
                    "http://config.familynet.test/autoproxy.pac", false}),
    [](const testing::TestParamInfo<MachineCase>& info) {
        std::string name = info.param.Machine;
        for (char& c : name) {
            if (!isalnum(static_cast<unsigned char>(c))) c = '_';
        }
        return name;
    });

TEST_F(InternetExplorerLibTest, ListsTheDialUpEntriesOf9xByName) {
    LoadMachine("win98-desktop");
    InternetExplorerLib explorer(kOS9x);
    explorer.GetDUNList();
    std::vector<std::string> names = explorer.DUNList();
    std::sort(names.begin(), names.end());
    EXPECT_EQ((std::vector<std::string>{"EarthNet", "Miller Office"}), names);
    // Asked again, the list is not doubled.
    explorer.GetDUNList();
    EXPECT_EQ(2u, explorer.DUNList().size());
}

// --- Apply: the values and forms written.

TEST_F(InternetExplorerLibTest, ApplyWritesEveryChangedValueInItsForm) {
    LoadMachine("xp-laptop");
    const Raw connectionsBefore =
        ReadRaw(HKEY_CURRENT_USER, kConnections, "DefaultConnectionSettings");
    InternetExplorerLib explorer(kOSXP);
    explorer.LoadConfiguration();

    explorer.SetUseSameProxy(false);
    explorer.SetHTTPAddress("h");
    explorer.SetHTTPPort("80");
    explorer.SetFTPAddress("f");
    explorer.SetFTPPort("");
    explorer.SetGopherAddress("");
    explorer.SetSecureAddress("");
    explorer.SetSocksAddress("");
    explorer.SetProxyEnabled(false);
    explorer.SetProxyExceptions("*.corp;intranet");
    explorer.SetIgnoreLocalAddresses(false);
    explorer.SetDefaultHomePage("http://home.test/");
    explorer.SetConnectViaLAN(false);
    explorer.SetCurrentDUN("Office");
    explorer.SetAutoDetectSettings(false);
    explorer.SetUseAutoConfigURL(true);
    explorer.SetAutoConfigURL("http://wpad.test/proxy.pac");
    explorer.SetDisablePWDCache(true);
    explorer.ApplyConfiguration();
    EXPECT_FALSE(explorer.IsModified());

    const Raw server = ReadRaw(HKEY_CURRENT_USER, kSettings, "ProxyServer");
    EXPECT_EQ(static_cast<DWORD>(REG_SZ), server.Type);
    EXPECT_EQ("ftp=f;http=h:80", server.Text());
    EXPECT_EQ(Dword(0), ReadRaw(HKEY_CURRENT_USER, kSettings, "ProxyEnable").Bytes);
    EXPECT_EQ("*.corp;intranet", ReadRaw(HKEY_CURRENT_USER, kSettings, "ProxyOverride").Text());
    EXPECT_EQ("http://home.test/", ReadRaw(HKEY_CURRENT_USER, kMain, "Start Page").Text());
    const Raw autodial = ReadRaw(HKEY_CURRENT_USER, kSettings, "EnableAutodial");
    EXPECT_EQ(static_cast<DWORD>(REG_DWORD), autodial.Type);
    EXPECT_EQ(Dword(1), autodial.Bytes);
    EXPECT_EQ("Office", ReadRaw(HKEY_LOCAL_MACHINE, kAutoDial, "DefaultInternet").Text());
    // Only bit value 8 of byte 8 changes: 0x0B becomes 0x03.
    std::vector<uint8_t> expected = connectionsBefore.Bytes;
    ASSERT_GT(expected.size(), 8u);
    ASSERT_EQ(0x0B, expected[8]);
    expected[8] = 0x03;
    EXPECT_EQ(expected,
              ReadRaw(HKEY_CURRENT_USER, kConnections, "DefaultConnectionSettings").Bytes);
    EXPECT_EQ("http://wpad.test/proxy.pac",
              ReadRaw(HKEY_CURRENT_USER, kSettings, "AutoConfigURL").Text());
    const Raw cache = ReadRaw(HKEY_CURRENT_USER, kSettings, "DisablePasswordCaching");
    EXPECT_EQ(static_cast<DWORD>(REG_DWORD), cache.Type);
    EXPECT_EQ(Dword(1), cache.Bytes);

    // What was written reads back as it was set.
    InternetExplorerLib again(kOSXP);
    again.LoadConfiguration();
    EXPECT_EQ("f", again.FTPAddress());
    EXPECT_EQ("", again.FTPPort());
    EXPECT_FALSE(again.ProxyEnabled());
    EXPECT_FALSE(again.ConnectViaLAN());
    EXPECT_FALSE(again.AutoDetectSettings());
    EXPECT_TRUE(again.UseAutoConfigURL());
    EXPECT_TRUE(again.DisablePWDCache());
    EXPECT_EQ("Office", again.CurrentDUN());
}

TEST_F(InternetExplorerLibTest, TurningOnSetsOnlyTheFlagsBits) {
    LoadMachine("win2003-server");
    InternetExplorerLib explorer(kOS2003);
    explorer.LoadConfiguration();
    explorer.SetProxyEnabled(true);
    explorer.SetUseSameProxy(true);
    explorer.SetHTTPAddress("proxy");
    explorer.SetHTTPPort("8080");
    explorer.SetIgnoreLocalAddresses(true);
    explorer.SetAutoDetectSettings(true);
    explorer.SetDisablePWDCache(false);
    explorer.ApplyConfiguration();

    EXPECT_EQ("proxy:8080", ReadRaw(HKEY_CURRENT_USER, kSettings, "ProxyServer").Text());
    EXPECT_EQ(Dword(1), ReadRaw(HKEY_CURRENT_USER, kSettings, "ProxyEnable").Bytes);
    EXPECT_EQ(";<local>", ReadRaw(HKEY_CURRENT_USER, kSettings, "ProxyOverride").Text());
    EXPECT_EQ(0x09, ReadRaw(HKEY_CURRENT_USER, kConnections, "DefaultConnectionSettings").Bytes[8]);
    EXPECT_EQ(Dword(0), ReadRaw(HKEY_CURRENT_USER, kSettings, "DisablePasswordCaching").Bytes);
}

TEST_F(InternetExplorerLibTest, BinaryFlagsStayBinary) {
    LoadMachine("nt40-workstation");
    InternetExplorerLib explorer(kOSNT);
    explorer.LoadConfiguration();
    explorer.SetProxyEnabled(false);
    explorer.SetConnectViaLAN(false);
    explorer.ApplyConfiguration();

    const Raw enable = ReadRaw(HKEY_CURRENT_USER, kSettings, "ProxyEnable");
    EXPECT_EQ(static_cast<DWORD>(REG_BINARY), enable.Type);
    EXPECT_EQ((std::vector<uint8_t>{0, 0, 0, 0}), enable.Bytes);
    const Raw autodial = ReadRaw(HKEY_CURRENT_USER, kSettings, "EnableAutodial");
    EXPECT_EQ(static_cast<DWORD>(REG_BINARY), autodial.Type);
    EXPECT_EQ((std::vector<uint8_t>{1, 0, 0, 0}), autodial.Bytes);
}

TEST_F(InternetExplorerLibTest, ScriptNotInUseIsDeleted) {
    LoadMachine("win2k-pro");
    InternetExplorerLib explorer(kOS2K);
    explorer.LoadConfiguration();
    ASSERT_TRUE(explorer.UseAutoConfigURL());
    explorer.SetUseAutoConfigURL(false);
    explorer.ApplyConfiguration();
    EXPECT_FALSE(ReadRaw(HKEY_CURRENT_USER, kSettings, "AutoConfigURL").Exists);
}

TEST_F(InternetExplorerLibTest, DialUpEntryOf9xGoesToRemoteAccess) {
    LoadMachine("win95-desktop");
    InternetExplorerLib explorer(kOS9x);
    explorer.LoadConfiguration();
    explorer.SetCurrentDUN("Backup ISP");
    explorer.ApplyConfiguration();
    EXPECT_EQ("Backup ISP", ReadRaw(HKEY_CURRENT_USER, "RemoteAccess", "InternetProfile").Text());
    EXPECT_FALSE(ReadRaw(HKEY_LOCAL_MACHINE, kAutoDial, "DefaultInternet").Exists);
}

TEST_F(InternetExplorerLibTest, DialUpEntryElsewhereCreatesTheAutoDialKey) {
    InternetExplorerLib explorer(kOS2K);
    explorer.LoadConfiguration();
    EXPECT_EQ("", explorer.CurrentDUN());
    explorer.SetCurrentDUN("Branch Office");
    explorer.ApplyConfiguration();
    EXPECT_EQ("Branch Office", ReadRaw(HKEY_LOCAL_MACHINE, kAutoDial, "DefaultInternet").Text());
}

TEST_F(InternetExplorerLibTest, ApplyWritesNothingUnlessModified) {
    LoadMachine("xp-laptop");
    InternetExplorerLib explorer(kOSXP);
    explorer.LoadConfiguration();
    WriteText(HKEY_CURRENT_USER, kMain, "Start Page", "http://changed.test/");
    explorer.ApplyConfiguration();
    EXPECT_EQ("http://changed.test/", ReadRaw(HKEY_CURRENT_USER, kMain, "Start Page").Text());

    explorer.SetDisablePWDCache(false);  // a setter marks modified, even with the same value
    explorer.ApplyConfiguration();
    EXPECT_EQ("http://intranet.northwind.test/",
              ReadRaw(HKEY_CURRENT_USER, kMain, "Start Page").Text());
}

// --- Values the profile does not change keep the form they were read in.

// Every value under the keys the back end writes.
std::map<std::string, Raw> AllValues() {
    std::map<std::string, Raw> all;
    for (const auto& [name, raw] : Snapshot(HKEY_CURRENT_USER, kSettings)) all["IS " + name] = raw;
    for (const auto& [name, raw] : Snapshot(HKEY_CURRENT_USER, kConnections))
        all["C " + name] = raw;
    for (const auto& [name, raw] : Snapshot(HKEY_CURRENT_USER, kMain)) all["M " + name] = raw;
    for (const auto& [name, raw] : Snapshot(HKEY_CURRENT_USER, "RemoteAccess"))
        all["R " + name] = raw;
    for (const auto& [name, raw] : Snapshot(HKEY_LOCAL_MACHINE, kAutoDial)) all["A " + name] = raw;
    return all;
}

struct MachineOS {
    const char* Machine;
    const char* OSTag;
};

class InternetExplorerUnchanged : public InternetExplorerLibTest,
                                  public testing::WithParamInterface<MachineOS> {};

TEST_P(InternetExplorerUnchanged, AProfileOfTheMachineLeavesTheRegistryAsItWas) {
    LoadMachine(GetParam().Machine);
    const std::map<std::string, Raw> before = AllValues();

    // Saved from the machine, opened again, every setting assigned by the tab.
    ScratchFile profile("ie-unchanged");
    InternetExplorerLib saved(GetParam().OSTag);
    saved.LoadConfiguration();
    saved.SaveConfigurationFile(profile.Path());
    InternetExplorerLib explorer(GetParam().OSTag);
    explorer.LoadConfiguration();
    explorer.LoadConfigurationFile(profile.Path());
    for (const TextProperty& property : TextProperties()) {
        (explorer.*property.Set)((explorer.*property.Get)());
    }
    for (const FlagProperty& property : FlagProperties()) {
        (explorer.*property.Set)((explorer.*property.Get)());
    }
    ASSERT_TRUE(explorer.IsModified());
    explorer.ApplyConfiguration();

    const std::map<std::string, Raw> after = AllValues();
    EXPECT_EQ(before.size(), after.size());
    for (const auto& [name, raw] : before) {
        auto found = after.find(name);
        ASSERT_NE(after.end(), found) << name << " is gone";
        EXPECT_TRUE(raw == found->second) << name << " changed";
    }
}

INSTANTIATE_TEST_SUITE_P(Machines, InternetExplorerUnchanged,
                         testing::Values(MachineOS{"xp-laptop", "XP"}, MachineOS{"win2k-pro", "2K"},
                                         MachineOS{"win2003-server", "2003"},
                                         MachineOS{"nt40-workstation", "NT"},
                                         MachineOS{"win95-desktop", "9x"},
                                         MachineOS{"win98-desktop", "9x"},
                                         MachineOS{"winme-desktop", "9x"}),
                         [](const testing::TestParamInfo<MachineOS>& info) {
                             std::string name = info.param.Machine;
                             for (char& c : name) {
                                 if (!isalnum(static_cast<unsigned char>(c))) c = '_';
                             }
                             return name;
                         });

TEST_F(InternetExplorerLibTest, ListsItCannotComposeAreKeptUntilTheProxiesChange) {
    // An order of its own, a protocol not handled, a blank, text after "<local>".
    const std::string list = "http=h:80;wais=w:210;ftp=f:21; ";
    const std::string exceptions = "a.test;<local>;b.test";
    WriteText(HKEY_CURRENT_USER, kSettings, "ProxyServer", list);
    WriteText(HKEY_CURRENT_USER, kSettings, "ProxyOverride", exceptions);
    InternetExplorerLib explorer(kOSXP);
    explorer.LoadConfiguration();
    explorer.SetDefaultHomePage("http://elsewhere.test/");
    explorer.ApplyConfiguration();
    EXPECT_EQ(list, ReadRaw(HKEY_CURRENT_USER, kSettings, "ProxyServer").Text());
    EXPECT_EQ(exceptions, ReadRaw(HKEY_CURRENT_USER, kSettings, "ProxyOverride").Text());

    explorer.SetGopherAddress("g");
    explorer.ApplyConfiguration();
    EXPECT_EQ("ftp=f:21;gopher=g;http=h:80",
              ReadRaw(HKEY_CURRENT_USER, kSettings, "ProxyServer").Text());
}

TEST_F(InternetExplorerLibTest, MissingValuesStayMissingWhenNothingIsSet) {
    InternetExplorerLib explorer(kOSXP);
    explorer.LoadConfiguration();
    explorer.SetDefaultHomePage("");
    explorer.ApplyConfiguration();
    for (const char* name : {"ProxyEnable", "ProxyServer", "ProxyOverride", "AutoConfigURL",
                             "EnableAutodial", "DisablePasswordCaching"}) {
        EXPECT_FALSE(ReadRaw(HKEY_CURRENT_USER, kSettings, name).Exists) << name;
    }
    EXPECT_FALSE(ReadRaw(HKEY_CURRENT_USER, kMain, "Start Page").Exists);
    EXPECT_FALSE(ReadRaw(HKEY_LOCAL_MACHINE, kAutoDial, "DefaultInternet").Exists);
}

// --- Bad input in the registry.

struct ServerCase {
    const char* Value;
    bool UseSameProxy;
    const char* HTTP;
    const char* FTP;
    const char* Secure;
};

class InternetExplorerProxyServer : public InternetExplorerLibTest,
                                    public testing::WithParamInterface<ServerCase> {};

TEST_P(InternetExplorerProxyServer, ReadsWhatItCanOfTheList) {
    WriteText(HKEY_CURRENT_USER, kSettings, "ProxyServer", GetParam().Value);
    InternetExplorerLib explorer(kOSXP);
    explorer.GetProxyAddresses();
    EXPECT_EQ(GetParam().UseSameProxy, explorer.UseSameProxy());
    EXPECT_EQ(GetParam().HTTP, Pair(explorer.HTTPAddress(), explorer.HTTPPort()));
    EXPECT_EQ(GetParam().FTP, Pair(explorer.FTPAddress(), explorer.FTPPort()));
    EXPECT_EQ(GetParam().Secure, Pair(explorer.SecureAddress(), explorer.SecurePort()));
}

INSTANTIATE_TEST_SUITE_P(
    Values, InternetExplorerProxyServer,
    testing::Values(ServerCase{"http=h:80;mms=m:1755;ftp=f:21", false, "h:80", "f:21", ":"},
                    ServerCase{"http=h:80;;ftp=f:21", false, "h:80", ":", ":"},
                    ServerCase{";;http=h:80", false, ":", ":", ":"},
                    ServerCase{"https=https://secure:443", false, ":", ":", "https://secure:443"},
                    ServerCase{"ftp=f;http=h", false, "h:", "f:", ":"},
                    ServerCase{"http=h:port;ftp=f:-1", false, "h:port", "f:-1", ":"},
                    ServerCase{"  proxy:8080  ", true, "proxy:8080", "proxy:8080", "proxy:8080"},
                    ServerCase{"", true, ":", ":", ":"}, ServerCase{"====", false, ":", ":", ":"}));

TEST_F(InternetExplorerLibTest, FlagsReadTrueOnlyForTheirOneForms) {
    struct Case {
        DWORD Type;
        std::vector<uint8_t> Bytes;
        bool Enabled;
    };
    const Case cases[] = {
        {REG_DWORD, Dword(1), true}, {REG_BINARY, {1, 0, 0, 0}, true}, {REG_BINARY, {1}, true},
        {REG_BINARY, {}, false},     {REG_DWORD, Dword(2), false},     {REG_SZ, {'1', 0}, false},
    };
    for (const Case& c : cases) {
        WriteRaw(HKEY_CURRENT_USER, kSettings, "ProxyEnable", c.Type, c.Bytes);
        InternetExplorerLib explorer(kOSXP);
        explorer.GetProxyEnabled();
        EXPECT_EQ(c.Enabled, explorer.ProxyEnabled())
            << "type " << c.Type << ", " << c.Bytes.size() << " bytes";
    }
}

TEST_F(InternetExplorerLibTest, ShortConnectionRecordsHaveNoAutoDetectFlag) {
    for (size_t size : {0u, 1u, 8u}) {
        const std::vector<uint8_t> bytes(size, 0xFF);
        WriteRaw(HKEY_CURRENT_USER, kConnections, "DefaultConnectionSettings", REG_BINARY, bytes);
        InternetExplorerLib explorer(kOSXP);
        explorer.GetAutoDetectSettings();
        EXPECT_FALSE(explorer.AutoDetectSettings()) << size << " bytes";
        // Turning detection on cannot change a record this short: it stays as it was.
        explorer.SetAutoDetectSettings(true);
        explorer.SetDefaultHomePage("http://after.test/");
        explorer.ApplyConfiguration();
        EXPECT_EQ(bytes,
                  ReadRaw(HKEY_CURRENT_USER, kConnections, "DefaultConnectionSettings").Bytes);
        // ... and the steps after it still run.
        EXPECT_EQ("http://after.test/", ReadRaw(HKEY_CURRENT_USER, kMain, "Start Page").Text());
    }

    std::vector<uint8_t> nine(9, 0);
    nine[8] = 8;
    WriteRaw(HKEY_CURRENT_USER, kConnections, "DefaultConnectionSettings", REG_BINARY, nine);
    InternetExplorerLib explorer(kOSXP);
    explorer.GetAutoDetectSettings();
    EXPECT_TRUE(explorer.AutoDetectSettings());
}

TEST_F(InternetExplorerLibTest, MissingConnectionRecordIsNotCreated) {
    InternetExplorerLib explorer(kOSXP);
    explorer.LoadConfiguration();
    EXPECT_FALSE(explorer.AutoDetectSettings());
    explorer.SetAutoDetectSettings(true);
    explorer.SetDisablePWDCache(true);
    explorer.ApplyConfiguration();
    EXPECT_FALSE(ReadRaw(HKEY_CURRENT_USER, kConnections, "DefaultConnectionSettings").Exists);
    EXPECT_EQ(Dword(1), ReadRaw(HKEY_CURRENT_USER, kSettings, "DisablePasswordCaching").Bytes);
}

// --- The profile section: the same splitter and composer as the registry.

TEST_F(InternetExplorerLibTest, SectionProxyServerGoesThroughTheSameSplitter) {
    ScratchFile profile("ie-proxyserver");
    profile.Write("[Internet Explorer]\r\nProxyServer=gopher=g;http=h:80;socks=s:1080\r\n");
    InternetExplorerLib explorer(kOSXP);
    explorer.LoadConfigurationFile(profile.Path());
    EXPECT_FALSE(explorer.UseSameProxy());
    EXPECT_EQ("g", explorer.GopherAddress());
    EXPECT_EQ("", explorer.GopherPort());
    EXPECT_EQ("s", explorer.SocksAddress());

    ScratchFile saved("ie-proxyserver-saved");
    explorer.SaveConfigurationFile(saved.Path());
    char value[256];
    GetPrivateProfileStringA("Internet Explorer", "ProxyServer", "", value, sizeof value,
                             saved.Path().c_str());
    EXPECT_STREQ("gopher=g;http=h:80;socks=s:1080", value);
}

TEST_F(InternetExplorerLibTest, EmptySectionProxyServerIsNotOneProxyForAll) {
    // The registry's missing value means one proxy for all; the profile's empty
    // key does not, as the file's value gets no extra ";".
    ScratchFile profile("ie-empty-proxyserver");
    profile.Write("[Internet Explorer]\r\nProxyServer=\r\n");
    InternetExplorerLib explorer(kOSXP);
    explorer.GetProxyAddresses();
    EXPECT_TRUE(explorer.UseSameProxy());
    explorer.LoadConfigurationFile(profile.Path());
    EXPECT_FALSE(explorer.UseSameProxy());
}

TEST_F(InternetExplorerLibTest, SectionScriptURLSaysWhetherTheScriptIsUsed) {
    LoadMachine("win2k-pro");
    ScratchFile profile("ie-script");
    profile.Write("[Internet Explorer]\r\nAutoConfigURL=\r\n");
    InternetExplorerLib explorer(kOS2K);
    explorer.LoadConfiguration();
    explorer.LoadConfigurationFile(profile.Path());
    EXPECT_FALSE(explorer.UseAutoConfigURL());
    explorer.SetAutoConfigURL(explorer.AutoConfigURL());
    explorer.ApplyConfiguration();
    EXPECT_FALSE(ReadRaw(HKEY_CURRENT_USER, kSettings, "AutoConfigURL").Exists);

    ScratchFile other("ie-script-other");
    other.Write("[Internet Explorer]\r\nAutoConfigURL=http://other.test/x.pac\r\n");
    explorer.LoadConfigurationFile(other.Path());
    EXPECT_TRUE(explorer.UseAutoConfigURL());
    explorer.SetAutoConfigURL(explorer.AutoConfigURL());
    explorer.ApplyConfiguration();
    EXPECT_EQ("http://other.test/x.pac",
              ReadRaw(HKEY_CURRENT_USER, kSettings, "AutoConfigURL").Text());
}

TEST_F(InternetExplorerLibTest, InstalledIsAVersionAboveThree) {
    InternetExplorerLib explorer(kOSXP);
    EXPECT_EQ(explorer.Version() > 3.0f, explorer.IsInstalled());
    EXPECT_FALSE(explorer.VersionString().empty());  // every Wine prefix registers one
}

}  // namespace
}  // namespace rwz::test
