// Network profiles applied from the command line on the simulated Windows
// 2000, XP and Server 2003 machines, with the networking services stood in
// for: what is written to the registry (compared raw, before and after), which
// addresses are pushed to the DHCP client, the joins and their refusals, the
// adapter a profile picks, profiles saved and read back, and the restart that
// follows a change that needs one.
#include <gtest/gtest.h>

#include <windows.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "bench/Bench.h"
#include "bench/standins/NetworkStandIns.h"

namespace {

const char kTcpip[] = "SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters";
const char kInterfaces[] = "SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters\\Interfaces\\";
const char kNetBTInterfaces[] =
    "SYSTEM\\CurrentControlSet\\Services\\NetBT\\Parameters\\Interfaces\\Tcpip_";
// The XP laptop's adapters.
const char kWired[] = "{6A3C7E10-5B2D-4F0E-9C41-8E2D5B7A9F01}";
const char kWireless[] = "{2F1B9D44-7C3A-4E5B-8D20-1A6C4E9B3D72}";
const char kFireWire[] = "{C83E1F5A-0D4B-4A97-B6E2-5F7A3C9D1E84}";

// --- Raw registry values ----------------------------------------------------

struct RawValue {
    DWORD type = 0;
    std::string data;
    bool operator==(const RawValue& other) const {
        return type == other.type && data == other.data;
    }
};
// "key\value" -> raw value, for every value below a key.
using Snapshot = std::map<std::string, RawValue>;

void TakeSnapshot(HKEY root, const std::string& key, Snapshot& snapshot) {
    HKEY handle = nullptr;
    if (RegOpenKeyExA(root, key.c_str(), 0, KEY_READ, &handle) != ERROR_SUCCESS) return;
    for (DWORD i = 0;; ++i) {
        char name[256];
        DWORD nameSize = sizeof name, type = 0, dataSize = 0;
        if (RegEnumValueA(handle, i, name, &nameSize, nullptr, &type, nullptr, &dataSize) !=
            ERROR_SUCCESS)
            break;
        std::string data(dataSize, '\0');
        nameSize = sizeof name;
        RegEnumValueA(handle, i, name, &nameSize, nullptr, &type, reinterpret_cast<BYTE*>(&data[0]),
                      &dataSize);
        data.resize(dataSize);
        snapshot[key + "\\" + name] = RawValue{type, data};
    }
    std::vector<std::string> subkeys;
    for (DWORD i = 0;; ++i) {
        char name[256];
        DWORD nameSize = sizeof name;
        if (RegEnumKeyExA(handle, i, name, &nameSize, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            break;
        subkeys.push_back(name);
    }
    RegCloseKey(handle);
    for (const std::string& subkey : subkeys) TakeSnapshot(root, key + "\\" + subkey, snapshot);
}

// Everything the network back end may touch.
Snapshot NetworkRegistry() {
    Snapshot snapshot;
    for (const char* key : {"SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters",
                            "SYSTEM\\CurrentControlSet\\Services\\NetBT\\Parameters",
                            "SYSTEM\\CurrentControlSet\\Services\\lanmanserver\\parameters",
                            "SYSTEM\\CurrentControlSet\\Control\\ComputerName"})
        TakeSnapshot(HKEY_LOCAL_MACHINE, key, snapshot);
    TakeSnapshot(HKEY_CURRENT_USER, "Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows",
                 snapshot);
    return snapshot;
}

// The values that differ (or exist on one side only).
std::set<std::string> Differences(const Snapshot& before, const Snapshot& after) {
    std::set<std::string> names;
    for (const auto& [name, value] : before) {
        auto found = after.find(name);
        if (found == after.end() || !(found->second == value)) names.insert(name);
    }
    for (const auto& entry : after)
        if (!before.count(entry.first)) names.insert(entry.first);
    return names;
}

// A multi-string's entries (empty entries at the end dropped).
std::vector<std::string> MultiString(const Snapshot& snapshot, const std::string& name) {
    auto found = snapshot.find(name);
    if (found == snapshot.end() || found->second.type != REG_MULTI_SZ)
        return {"<not REG_MULTI_SZ>"};
    std::vector<std::string> entries;
    std::string entry;
    for (char c : found->second.data) {
        if (c == '\0') {
            entries.push_back(entry);
            entry.clear();
        } else {
            entry += c;
        }
    }
    entries.push_back(entry);
    while (!entries.empty() && entries.back().empty()) entries.pop_back();
    return entries;
}

std::string Text(const Snapshot& snapshot, const std::string& name) {
    auto found = snapshot.find(name);
    if (found == snapshot.end()) return "<missing>";
    std::string data = found->second.data;
    while (!data.empty() && data.back() == '\0') data.pop_back();
    return data;
}

std::string Describe(const std::set<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += name + "\n";
    return text;
}

// --- Profiles -----------------------------------------------------------------

// Saves the machine's current configuration as a profile.
void SaveCurrent(const std::string& path) {
    bench::RunResult run = bench::RunRwz("/hidden /save " + path);
    ASSERT_TRUE(bench::FileExists(path)) << run.Describe();
}

void SetKey(const std::string& path, const char* section, const char* key,
            const std::string& value) {
    ASSERT_TRUE(WritePrivateProfileStringA(section, key, value.c_str(), path.c_str()));
}

// The [Network] and [Printer] sections of a profile, as written.
std::string NetworkSections(const std::string& path) {
    std::string text;
    bool inside = false;
    for (const std::string& line : bench::SplitLines(bench::ReadFileText(path))) {
        if (!line.empty() && line[0] == '[') inside = line == "[Network]" || line == "[Printer]";
        if (inside) text += line + "\n";
    }
    return text;
}

bool LogHas(const bench::RunResult& run, const std::string& text) {
    return run.log.find(text) != std::string::npos;
}

// --- Applying on the XP laptop -----------------------------------------------

TEST(NetworkApply, OfficeProfileWritesWhatDiffersAndNothingElse) {
    bench::Machine machine("xp-laptop");
    bench::NetworkStandIns network;
    network.Like(machine);
    SaveCurrent("C:\\cur.rwz");
    bench::CopyFileReplacing("C:\\cur.rwz", "C:\\office.rwz");
    const std::string office = "C:\\office.rwz";
    SetKey(office, "Network", "IPAddress", "10.1.0.5,10.1.0.6");
    SetKey(office, "Network", "IPMask", "255.255.0.0,255.255.255.0");
    SetKey(office, "Network", "DefaultGateway", "10.1.0.1,10.1.0.254");
    SetKey(office, "Network", "NameServer", "10.1.0.2");
    SetKey(office, "Network", "NameServer1", "10.1.0.3");
    SetKey(office, "Network", "NameServer2", "10.1.0.4");
    SetKey(office, "Network", "SearchList", "corp.example,example");
    SetKey(office, "Network", "Workgroup", "OFFICE");

    const Snapshot before = NetworkRegistry();
    bench::RunResult run = bench::RunRwz("/hidden /load C:\\office.rwz /apply");
    const Snapshot after = NetworkRegistry();
    EXPECT_TRUE(run.DialogsAsScripted()) << run.Describe();

    const std::string wired = std::string(kInterfaces) + kWired;
    const std::string wins = std::string(kNetBTInterfaces) + kWired;
    EXPECT_EQ((std::vector<std::string>{"10.1.0.5", "10.1.0.6"}),
              MultiString(after, wired + "\\IPAddress"));
    EXPECT_EQ((std::vector<std::string>{"255.255.0.0", "255.255.255.0"}),
              MultiString(after, wired + "\\SubnetMask"));
    EXPECT_EQ((std::vector<std::string>{"10.1.0.1", "10.1.0.254"}),
              MultiString(after, wired + "\\DefaultGateway"));
    EXPECT_EQ("10.1.0.2", Text(after, wired + "\\NameServer"));
    EXPECT_EQ((std::vector<std::string>{"10.1.0.3", "10.1.0.4"}),
              MultiString(after, wins + "\\NameServerList"));
    EXPECT_EQ("corp.example,example", Text(after, std::string(kTcpip) + "\\SearchList"));
    // Exactly these values changed: DHCP, the names, the other adapters, the
    // scope, the description are as they were, byte for byte.
    EXPECT_EQ(
        (std::set<std::string>{wired + "\\IPAddress", wired + "\\SubnetMask",
                               wired + "\\DefaultGateway", wired + "\\NameServer",
                               wins + "\\NameServerList", std::string(kTcpip) + "\\SearchList"}),
        Differences(before, after))
        << run.log;

    // Each address pushed once, with its index and mask.
    const auto pushes = network.Calls("DhcpNotifyConfigChange");
    ASSERT_EQ(2u, pushes.size()) << run.log;
    for (size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(kWired, pushes[i]["adapter"]);
        EXPECT_EQ(std::to_string(i), pushes[i]["index"]);
    }
    EXPECT_EQ("10.1.0.5", pushes[0]["address"]);
    EXPECT_EQ("255.255.0.0", pushes[0]["mask"]);
    EXPECT_EQ("10.1.0.6", pushes[1]["address"]);
    EXPECT_EQ("255.255.255.0", pushes[1]["mask"]);
    // The workgroup is joined: leave, then join without an account.
    const auto joins = network.Calls("NetJoinDomain");
    ASSERT_EQ(1u, joins.size()) << run.log;
    EXPECT_EQ("OFFICE", joins[0]["domain"]);
    EXPECT_EQ("0", joins[0]["options"]);
    EXPECT_EQ(1u, network.Calls("NetUnjoinDomain").size());
    EXPECT_TRUE(network.Calls("NetServerSetInfo").empty());
}

TEST(NetworkApply, WirelessProfileSwitchesDHCPOffAndRestarts) {
    bench::Machine machine("xp-laptop");
    bench::NetworkStandIns network;
    network.Like(machine);
    SaveCurrent("C:\\cur.rwz");
    bench::CopyFileReplacing("C:\\cur.rwz", "C:\\x.rwz");
    SetKey("C:\\x.rwz", "Network", "Adapter", "Wireless Network Connection");
    SetKey("C:\\x.rwz", "Network", "DHCP", "0");
    SetKey("C:\\x.rwz", "Network", "IPAddress", "10.2.0.5");
    SetKey("C:\\x.rwz", "Network", "IPMask", "255.255.255.0");

    const Snapshot before = NetworkRegistry();
    bench::RunResult run = bench::RunRwz("/hidden /load C:\\x.rwz /apply /reboot");
    const Snapshot after = NetworkRegistry();

    const std::string wireless = std::string(kInterfaces) + kWireless;
    EXPECT_EQ(std::string(4, '\0'), after.at(wireless + "\\EnableDHCP").data);
    EXPECT_EQ(REG_DWORD, after.at(wireless + "\\EnableDHCP").type);
    EXPECT_EQ(std::vector<std::string>{"10.2.0.5"}, MultiString(after, wireless + "\\IPAddress"));
    // Of the adapters' settings only that adapter's change (its WINS servers
    // too: the profile was saved from the wired adapter, which has some). The
    // names are left out: Wine's own restart rewrites them from the host.
    for (const std::string& name : Differences(before, after)) {
        if (name.find("\\Interfaces\\") != std::string::npos) {
            EXPECT_NE(std::string::npos, name.find(kWireless)) << name << " changed\n" << run.log;
        }
    }
    EXPECT_TRUE(LogHas(run, "ExitWindowsEx(18, 0) = ")) << run.log;
}

TEST(NetworkApply, NoRestartWithoutAChangeThatNeedsOne) {
    bench::Machine machine("xp-laptop");
    bench::NetworkStandIns network;
    network.Like(machine);
    SaveCurrent("C:\\cur.rwz");
    bench::CopyFileReplacing("C:\\cur.rwz", "C:\\x.rwz");
    SetKey("C:\\x.rwz", "Network", "SearchList", "corp.example");
    bench::RunResult run = bench::RunRwz("/hidden /load C:\\x.rwz /apply /reboot");
    std::string searchList;
    EXPECT_TRUE(bench::ReadRegistryString(HKEY_LOCAL_MACHINE, kTcpip, "SearchList", searchList));
    EXPECT_EQ("corp.example", searchList);
    EXPECT_FALSE(LogHas(run, "ExitWindowsEx(")) << run.log;
}

// --- Joins refused ------------------------------------------------------------

TEST(NetworkApply, ARefusedDomainJoinShowsItsMessage) {
    bench::Machine machine("xp-laptop");
    bench::NetworkStandIns network;
    network.Like(machine).Answer("NetJoinDomain", "1355");
    SaveCurrent("C:\\cur.rwz");
    bench::CopyFileReplacing("C:\\cur.rwz", "C:\\x.rwz");
    SetKey("C:\\x.rwz", "Network", "NTLogon", "1");
    SetKey("C:\\x.rwz", "Network", "NTDomain", "NORTHWIND");
    SetKey("C:\\x.rwz", "Network", "SearchList", "corp.example");

    bench::RunResult run =
        bench::RunRwz("/hidden /load C:\\x.rwz /apply", {bench::Answer("OK").Title("Roamwise")});
    ASSERT_EQ(1u, run.dialogs.size()) << run.Describe();
    EXPECT_EQ(
        "There was an error attempting to join the domain.\r\n\r\nThe specified domain does not "
        "exist.",
        run.dialogs[0].text);
    const auto joins = network.Calls("NetJoinDomain");
    ASSERT_EQ(1u, joins.size());
    EXPECT_EQ("NORTHWIND", joins[0]["domain"]);
    EXPECT_EQ("33", joins[0]["options"]);
    // The apply goes on after the refusal.
    std::string searchList;
    bench::ReadRegistryString(HKEY_LOCAL_MACHINE, kTcpip, "SearchList", searchList);
    EXPECT_EQ("corp.example", searchList);
}

TEST(NetworkApply, ADomainControllerKeepsItsDomain) {
    bench::Machine machine("win2003-server");
    bench::NetworkStandIns network;
    network.Like(machine).Answer("NetUnjoinDomain", "2693");
    SaveCurrent("C:\\cur.rwz");
    bench::CopyFileReplacing("C:\\cur.rwz", "C:\\x.rwz");
    SetKey("C:\\x.rwz", "Network", "NTLogon", "0");
    SetKey("C:\\x.rwz", "Network", "Workgroup", "HOME");

    bench::RunResult run =
        bench::RunRwz("/hidden /load C:\\x.rwz /apply", {bench::Answer("OK").Title("Roamwise")});
    ASSERT_EQ(1u, run.dialogs.size()) << run.Describe();
    EXPECT_EQ("A domain controller cannot have its connection method modified.",
              run.dialogs[0].text);
    EXPECT_TRUE(network.Calls("NetJoinDomain").empty());
}

// --- The adapter a profile picks ---------------------------------------------

struct AdapterCase {
    const char* machine;
    const char* adapter;      // the profile's "Adapter" value
    const char* expectedKey;  // whose interface key gets the address; "" for none
    bool showDisabled;
};

class NetworkAdapterChoice : public ::testing::TestWithParam<AdapterCase> {};

TEST_P(NetworkAdapterChoice, TheAddressGoesToThePickedAdapter) {
    const AdapterCase& c = GetParam();
    bench::Machine machine(c.machine);
    bench::NetworkStandIns network;
    network.Like(machine);
    if (c.showDisabled) {
        HKEY key = nullptr;
        ASSERT_EQ(ERROR_SUCCESS,
                  RegCreateKeyExA(HKEY_LOCAL_MACHINE, "Software\\Roamwise\\Options", 0, nullptr, 0,
                                  KEY_ALL_ACCESS, nullptr, &key, nullptr));
        RegSetValueExA(key, "ShowDisabledNICS", 0, REG_SZ, reinterpret_cast<const BYTE*>("1"), 2);
        RegCloseKey(key);
    }
    SaveCurrent("C:\\cur.rwz");
    bench::CopyFileReplacing("C:\\cur.rwz", "C:\\x.rwz");
    SetKey("C:\\x.rwz", "Network", "Adapter", c.adapter);
    SetKey("C:\\x.rwz", "Network", "DHCP", "0");
    SetKey("C:\\x.rwz", "Network", "IPAddress", "10.9.8.7");
    SetKey("C:\\x.rwz", "Network", "IPMask", "255.255.255.0");

    const Snapshot before = NetworkRegistry();
    bench::RunResult run = bench::RunRwz("/hidden /load C:\\x.rwz /apply");
    const Snapshot after = NetworkRegistry();
    EXPECT_TRUE(run.DialogsAsScripted()) << run.Describe();

    std::set<std::string> written;
    for (const std::string& name : Differences(before, after))
        if (name.size() > 10 && name.substr(name.size() - 10) == "\\IPAddress")
            written.insert(name);
    if (*c.expectedKey) {
        EXPECT_EQ(std::set<std::string>{std::string(kInterfaces) + c.expectedKey + "\\IPAddress"},
                  written)
            << run.log;
        EXPECT_EQ(std::vector<std::string>{"10.9.8.7"},
                  MultiString(after, std::string(kInterfaces) + c.expectedKey + "\\IPAddress"));
    } else {
        EXPECT_TRUE(written.empty()) << Describe(written);
        EXPECT_TRUE(network.Calls("DhcpNotifyConfigChange").empty());
    }
}

INSTANTIATE_TEST_SUITE_P(
    ByNamePatternAndIndex, NetworkAdapterChoice,
    ::testing::Values(AdapterCase{"xp-laptop", "Wireless Network Connection", kWireless, false},
                      AdapterCase{"xp-laptop", "{*Wireless*}", kWireless, false},
                      AdapterCase{"xp-laptop", "index:1", kWireless, false},
                      AdapterCase{"xp-laptop", "INDEX:0", kWired, false},
                      AdapterCase{"xp-laptop", "index:9", kWired, false},
                      AdapterCase{"xp-laptop", "1394 Connection (Disabled)", kFireWire, true},
                      AdapterCase{"xp-laptop", "{1394*}", kFireWire, true},
                      // Two adapters of one name: the later one.
                      AdapterCase{"win2k-pro", "3Com EtherLink XL 90XB/C Adapter Driver",
                                  "{9D2E4C71-8A05-4F3B-B1E6-2C7A5D0F8E93}", false},
                      // The server's second adapter is disabled: index 1 is past the list.
                      AdapterCase{"win2003-server", "index:1",
                                  "{5E7C2B90-1F3A-4C6D-8B4E-0A9D3F2E6C15}", false},
                      AdapterCase{"xp-no-network", "Local Area Connection", "", false}),
    [](const testing::TestParamInfo<AdapterCase>& info) {
        return "case" + std::to_string(info.index);
    });

// --- Saved and read back -------------------------------------------------------

class NetworkRoundTrip : public ::testing::TestWithParam<const char*> {};

TEST_P(NetworkRoundTrip, ACurrentProfileReadsBackAndChangesNothing) {
    bench::Machine machine(GetParam());
    bench::NetworkStandIns network;
    network.Like(machine);
    if (std::string(GetParam()) == "win2k-pro") {
        // Its two adapters share one name, which a profile resolves to the
        // later one; the tool opens on that one once it has applied a profile.
        HKEY key = nullptr;
        ASSERT_EQ(ERROR_SUCCESS,
                  RegCreateKeyExA(HKEY_LOCAL_MACHINE, "Software\\Roamwise\\Options", 0, nullptr, 0,
                                  KEY_ALL_ACCESS, nullptr, &key, nullptr));
        const char name[] = "3Com EtherLink XL 90XB/C Adapter Driver";
        RegSetValueExA(key, "LastNICApplied", 0, REG_SZ, reinterpret_cast<const BYTE*>(name),
                       sizeof name);
        RegCloseKey(key);
    }
    SaveCurrent("C:\\cur.rwz");
    const Snapshot before = NetworkRegistry();
    bench::RunResult run = bench::RunRwz("/hidden /load C:\\cur.rwz /save C:\\again.rwz /apply");
    const Snapshot after = NetworkRegistry();
    EXPECT_TRUE(run.DialogsAsScripted()) << run.Describe();
    const std::string first = NetworkSections("C:\\cur.rwz");
    EXPECT_NE(std::string::npos, first.find("[Network]"));
    EXPECT_EQ(first, NetworkSections("C:\\again.rwz"));
    EXPECT_TRUE(Differences(before, after).empty()) << Describe(Differences(before, after));
    for (const char* function :
         {"NetJoinDomain", "NetUnjoinDomain", "NetServerSetInfo", "DhcpNotifyConfigChange"})
        EXPECT_TRUE(network.Calls(function).empty()) << function;
    if (std::string(GetParam()) == "xp-no-network") {
        EXPECT_NE(std::string::npos, first.find("Adapter=No Adapters Installed"));
    }
}

INSTANTIATE_TEST_SUITE_P(EachMachine, NetworkRoundTrip,
                         ::testing::Values("xp-laptop", "win2k-pro", "win2003-server",
                                           "xp-no-network"),
                         [](const testing::TestParamInfo<const char*>& info) {
                             std::string name = info.param;
                             for (char& c : name)
                                 if (c == '-') c = '_';
                             return name;
                         });

// --- The account asked for at apply time ----------------------------------------

TEST(NetworkApply, APromptProfileAsksForTheAccountBeforeJoining) {
    bench::Machine machine("xp-laptop");
    bench::NetworkStandIns network;
    network.Like(machine);
    bench::RunRwz("/hidden /uid {Prompt} /pwd {Prompt} /save C:\\cur.rwz");
    bench::CopyFileReplacing("C:\\cur.rwz", "C:\\x.rwz");
    SetKey("C:\\x.rwz", "Network", "NTLogon", "1");
    SetKey("C:\\x.rwz", "Network", "NTDomain", "NORTHWIND");
    SetKey("C:\\x.rwz", "Advanced", "AutoApply", "1");
    SetKey("C:\\x.rwz", "Advanced", "AutoReboot", "0");

    // 3203 and 3204: the user name and password fields of the dialog.
    // What follows the apply (the restart decision) is not this test's matter.
    bench::RunOptions options;
    options.args = "/hidden /load C:\\x.rwz";
    options.script = {
        bench::Answer("OK").Title("Domain Account").Set(3203, "jsmith").Set(3204, "Secret99")};
    options.strictDialogs = false;
    bench::RunResult run = bench::RunRwz(options);
    ASSERT_GE(run.dialogs.size(), 1u) << run.Describe();
    EXPECT_EQ("Domain Account", run.dialogs[0].title);
    const auto joins = network.Calls("NetJoinDomain");
    ASSERT_EQ(1u, joins.size()) << run.Describe();
    EXPECT_EQ("jsmith", joins[0]["account"]);
    EXPECT_EQ("Secret99", joins[0]["password"]);
}

}  // namespace
