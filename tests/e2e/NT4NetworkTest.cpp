// Network profiles on the simulated Windows NT 4 machines: what a capture
// finds and saves, that a saved profile applied again changes nothing, and
// what each setting writes (where, with which registry type) when a profile
// changes it. NT 4 writes its settings to the registry only: no address push,
// no domain or workgroup join.
#include <gtest/gtest.h>

#include <windows.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "bench/Bench.h"
#include "bench/standins/NetworkStandIns.h"
#include "e2e/NetworkRunChecks.h"
#include "e2e/RegistrySnapshot.h"

namespace {

using bench::Describe;
using bench::FoundAdapters;
using bench::Key;
using bench::NetworkSections;
using bench::SetKey;

const char kServices[] = "HKLM\\SYSTEM\\CurrentControlSet\\Services\\";
const char kTcpip[] = "HKLM\\SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters\\";
const char kNetBT[] = "HKLM\\SYSTEM\\CurrentControlSet\\Services\\NetBT\\";

// Everything the NT 4 back end reads, and the 95/98/ME places it must leave alone.
bench::RegSnapshot Watched() {
    return bench::Snapshot({"HKLM\\SYSTEM\\CurrentControlSet\\Services\\Tcpip",
                            "HKLM\\SYSTEM\\CurrentControlSet\\Services\\NetBT",
                            "HKLM\\SYSTEM\\CurrentControlSet\\Services\\E100B1",
                            "HKLM\\SYSTEM\\CurrentControlSet\\Services\\DC21X41",
                            "HKLM\\SYSTEM\\CurrentControlSet\\Services\\Elnk31",
                            "HKLM\\SYSTEM\\CurrentControlSet\\Services\\NdisWan4",
                            "HKLM\\SYSTEM\\CurrentControlSet\\Services\\LanmanServer",
                            "HKLM\\SYSTEM\\CurrentControlSet\\Services\\VxD",
                            "HKLM\\SYSTEM\\CurrentControlSet\\Services\\MSNP32",
                            "HKLM\\SYSTEM\\CurrentControlSet\\Control\\ComputerName",
                            "HKLM\\SYSTEM\\CurrentControlSet\\Control\\Print\\Printers",
                            "HKLM\\Network",
                            "HKCU\\Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows"});
}

// --- Capture, save, load, apply --------------------------------------------------

struct CaptureCase {
    const char* machine;
    std::vector<std::string> adapters;
    // [Network] or [Printer] keys of the saved profile (section "P" for [Printer]).
    std::vector<std::pair<std::string, std::string>> keys;
};

class NT4Capture : public testing::TestWithParam<CaptureCase> {};

TEST_P(NT4Capture, SavesTheMachineAndAppliesItBackUnchanged) {
    const CaptureCase& c = GetParam();
    bench::Machine machine(c.machine);
    bench::NetworkStandIns network;
    network.Like(machine);

    bench::RunResult saved = bench::RunRwz("/hidden /save C:\\cur.rwz /export C:\\cur.txt");
    EXPECT_EQ(c.adapters, FoundAdapters(saved, "clsNICNT")) << saved.log;
    EXPECT_EQ("1", Key("C:\\cur.rwz", "Enabled Sections", "General"));
    for (const auto& [key, value] : c.keys) {
        const bool printer = key.compare(0, 2, "P:") == 0;
        EXPECT_EQ(value, Key("C:\\cur.rwz", printer ? "Printer" : "Network",
                             (printer ? key.substr(2) : key).c_str()))
            << key;
    }
    // Keys of the other families are not written on NT 4.
    for (const char* key : {"DisablePWDCache", "QuickLogon", "NTDomainUserName", "LMHostFile"})
        EXPECT_EQ("<missing>", Key("C:\\cur.rwz", "Network", key)) << key;
    const std::string report = bench::ReadFileText("C:\\cur.txt");
    EXPECT_NE(std::string::npos, report.find("Network Settings")) << report;

    const bench::RegSnapshot before = Watched();
    bench::RunResult run = bench::RunRwz("/hidden /load C:\\cur.rwz /save C:\\again.rwz /apply");
    const std::set<std::string> changed = bench::Differences(before, Watched());
    EXPECT_TRUE(run.DialogsAsScripted()) << run.Describe();
    EXPECT_EQ(NetworkSections("C:\\cur.rwz"), NetworkSections("C:\\again.rwz"));
    EXPECT_TRUE(changed.empty()) << Describe(changed) << run.log;
    EXPECT_TRUE(network.Calls().empty()) << network.Calls()[0].Describe();
}

INSTANTIATE_TEST_SUITE_P(
    Machines, NT4Capture,
    testing::Values(CaptureCase{"nt40-server",
                                {"[1] Intel EtherExpress PRO/100B PCI Adapter",
                                 "[2] DEC PCI Fast Ethernet DECchip 21140"},
                                {{"Adapter", "[1] Intel EtherExpress PRO/100B PCI Adapter"},
                                 {"DHCP", "0"},
                                 {"IPAddress", "192.168.40.10,192.168.40.11"},
                                 {"IPMask", "255.255.255.0,255.255.255.0"},
                                 {"DefaultGateway", "192.168.40.1"},
                                 {"NameServer", "192.168.40.2,192.168.40.3"},
                                 {"HostName", "files1"},
                                 {"Domain", "office.northwind.test"},
                                 {"SearchList", "office.northwind.test,northwind.test"},
                                 {"EnableDNS", "1"},
                                 {"WINS", "1"},
                                 {"NameServer1", "192.168.40.4"},
                                 {"NameServer2", "192.168.40.5"},
                                 {"ScopeID", ""},
                                 {"ComputerName", "FILES1"},
                                 {"ComputerDescription", "Office file server"},
                                 {"Workgroup", ""},
                                 {"NTLogon", "0"},
                                 {"NTDomain", ""},
                                 {"P:DefaultPrinter", ""}}},
                    CaptureCase{"nt40-workstation",
                                {"[1] 3Com Etherlink III Adapter"},
                                {{"Adapter", "[1] 3Com Etherlink III Adapter"},
                                 {"DHCP", "1"},
                                 {"IPAddress", "0.0.0.0"},
                                 {"IPMask", "0.0.0.0"},
                                 {"DefaultGateway", ""},
                                 {"NameServer", "10.20.0.2,10.20.0.3"},
                                 {"EnableDNS", "0"},
                                 {"WINS", "0"},
                                 {"NameServer1", ""},
                                 {"ComputerName", "SURVEY7"},
                                 {"P:DefaultPrinter", "HP LaserJet 5"}}},
                    CaptureCase{"nt40-no-network",
                                {},
                                {{"Adapter", "No Adapters Installed"},
                                 {"IPAddress", "0.0.0.0"},
                                 {"ComputerName", "LAB3"},
                                 {"P:DefaultPrinter", ""}}}),
    [](const testing::TestParamInfo<CaptureCase>& info) {
        std::string name = info.param.machine;
        for (char& c : name)
            if (c == '-') c = '_';
        return name;
    });

// --- What each setting writes ------------------------------------------------------

struct ApplyCase {
    const char* name;
    const char* machine;
    // Profile keys changed from the machine's own saved profile.
    std::vector<std::pair<const char*, const char*>> profile;
    // Every registry value that must change, as "<type>:<data>" (NULs as "|").
    std::vector<std::pair<std::string, const char*>> written;
    // Networking functions the run calls (the stand-ins record them).
    std::vector<const char*> calls;
    bool restart;
};

class NT4Apply : public testing::TestWithParam<ApplyCase> {};

TEST_P(NT4Apply, WritesExactlyTheChangedSettings) {
    const ApplyCase& c = GetParam();
    bench::Machine machine(c.machine);
    bench::NetworkStandIns network;
    network.Like(machine);
    bench::RunRwz("/hidden /save C:\\x.rwz");
    for (const auto& [key, value] : c.profile) SetKey("C:\\x.rwz", "Network", key, value);

    const bench::RegSnapshot before = Watched();
    // "manual" runs the restart action "0" (no restart) when one is pending.
    bench::RunResult run = bench::RunRwz("/hidden /load C:\\x.rwz /apply /manual");
    const bench::RegSnapshot after = Watched();

    std::set<std::string> expected;
    for (const auto& [name, shown] : c.written) {
        expected.insert(name);
        EXPECT_EQ(shown, bench::Shown(after, name)) << name;
    }
    EXPECT_EQ(expected, bench::Differences(before, after)) << run.log;
    std::vector<std::string> calls;
    for (const bench::StandInCall& call : network.Calls()) calls.push_back(call.function);
    EXPECT_EQ(std::vector<std::string>(c.calls.begin(), c.calls.end()), calls);
    EXPECT_EQ(c.restart, run.log.find("ExecuteRestartOption: Code = 0") != std::string::npos)
        << run.log;
}

const std::string kE100 = std::string(kServices) + "E100B1\\Parameters\\Tcpip\\";
const std::string kDec = std::string(kServices) + "DC21X41\\Parameters\\Tcpip\\";
const std::string kElnk = std::string(kServices) + "Elnk31\\Parameters\\Tcpip\\";
const std::string kE100Wins = std::string(kNetBT) + "Adapters\\E100B1\\";

INSTANTIATE_TEST_SUITE_P(
    Profiles, NT4Apply,
    testing::Values(
        ApplyCase{"EverySetting",
                  "nt40-server",
                  {{"IPAddress", "10.1.0.5,10.1.0.6"},
                   {"IPMask", "255.255.0.0,255.255.255.0"},
                   {"DefaultGateway", "10.1.0.1,10.1.0.254"},
                   {"NameServer", "10.1.0.2,10.1.0.3"},
                   {"HostName", "files2"},
                   {"Domain", "corp.test"},
                   {"SearchList", "corp.test,test"},
                   {"NameServer1", "10.1.0.4"},
                   {"NameServer2", "10.1.0.7"},
                   {"ScopeID", "corp"},
                   {"ComputerName", "FILES2"},
                   {"ComputerDescription", "Corporate file server"}},
                  {{kE100 + "IPAddress", "REG_MULTI_SZ:10.1.0.5|10.1.0.6||"},
                   {kE100 + "SubnetMask", "REG_MULTI_SZ:255.255.0.0|255.255.255.0||"},
                   {kE100 + "DefaultGateway", "REG_MULTI_SZ:10.1.0.1|10.1.0.254||"},
                   {std::string(kTcpip) + "NameServer", "REG_SZ:10.1.0.2 10.1.0.3"},
                   {std::string(kTcpip) + "Hostname", "REG_SZ:files2"},
                   {std::string(kTcpip) + "Domain", "REG_SZ:corp.test"},
                   {std::string(kTcpip) + "SearchList", "REG_SZ:corp.test test"},
                   {kE100Wins + "NameServer", "REG_SZ:10.1.0.4"},
                   {kE100Wins + "NameServerBackup", "REG_SZ:10.1.0.7"},
                   {std::string(kNetBT) + "Parameters\\ScopeID", "REG_SZ:corp"},
                   {"HKLM\\SYSTEM\\CurrentControlSet\\Control\\ComputerName\\ComputerName\\"
                    "ComputerName",
                    "REG_SZ:FILES2"}},
                  {"NetServerSetInfo"},
                  true},
        // DHCP off with a fixed address; the gateway list emptied.
        ApplyCase{"FixedAddress",
                  "nt40-workstation",
                  {{"DHCP", "0"}, {"IPAddress", "10.20.0.31"}, {"IPMask", "255.255.0.0"}},
                  {{kElnk + "EnableDHCP", "REG_DWORD:0"},
                   {kElnk + "IPAddress", "REG_MULTI_SZ:10.20.0.31||"},
                   {kElnk + "SubnetMask", "REG_MULTI_SZ:255.255.0.0||"}},
                  {},
                  true},
        // The second card, by name; an empty address list is written as 0.0.0.0.
        ApplyCase{"SecondCard",
                  "nt40-server",
                  {{"Adapter", "[2] DEC PCI Fast Ethernet DECchip 21140"},
                   {"DHCP", "0"},
                   {"IPAddress", "10.99.0.40"},
                   {"IPMask", ""},
                   {"DefaultGateway", ""},
                   {"NameServer1", ""},
                   {"NameServer2", ""},
                   {"WINS", "0"}},
                  {{kDec + "EnableDHCP", "REG_DWORD:0"},
                   {kDec + "IPAddress", "REG_MULTI_SZ:10.99.0.40||"}},
                  {},
                  true},
        // Membership is not changed on NT 4: the values stay in the record.
        ApplyCase{"Domain",
                  "nt40-workstation",
                  {{"NTLogon", "1"}, {"NTDomain", "NORTHWIND"}, {"Workgroup", "SURVEY"}},
                  {},
                  {},
                  false}),
    [](const testing::TestParamInfo<ApplyCase>& info) { return info.param.name; });

// The example office profile on the server: the wired card's addresses, DNS,
// WINS and names; the domain it names only in the record.
TEST(NT4Apply, OfficeProfile) {
    bench::Machine machine("nt40-server");
    bench::NetworkStandIns network;
    network.Like(machine);
    bench::CopyFileReplacing(bench::SourceDir() + "\\examples\\office.rwz", "C:\\office.rwz");
    for (const char* area : {"Internet Explorer", "Netscape Navigator", "Opera"})
        SetKey("C:\\office.rwz", "Enabled Sections", area, "0");

    const bench::RegSnapshot before = Watched();
    bench::RunResult run = bench::RunRwz("/hidden /load C:\\office.rwz /apply");
    const bench::RegSnapshot after = Watched();

    const std::vector<std::pair<std::string, const char*>> written = {
        {kE100 + "IPAddress", "REG_MULTI_SZ:192.168.101.5||"},
        {kE100 + "SubnetMask", "REG_MULTI_SZ:255.255.255.0||"},
        {kE100 + "DefaultGateway", "REG_MULTI_SZ:192.168.101.1||"},
        {std::string(kTcpip) + "NameServer", "REG_SZ:192.168.101.2 192.168.101.3"},
        {std::string(kTcpip) + "Hostname", "REG_SZ:fieldlaptop"},
        {std::string(kTcpip) + "Domain", "REG_SZ:northwind.test"},
        {std::string(kTcpip) + "SearchList", "REG_SZ:northwind.test"},
        {kE100Wins + "NameServer", "REG_SZ:192.168.101.4"},
        {kE100Wins + "NameServerBackup", "REG_SZ:"}};
    std::set<std::string> expected;
    for (const auto& [name, shown] : written) {
        expected.insert(name);
        EXPECT_EQ(shown, bench::Shown(after, name)) << name;
    }
    EXPECT_EQ(expected, bench::Differences(before, after)) << run.log;
    EXPECT_TRUE(network.Calls().empty()) << network.Calls()[0].Describe();
}

}  // namespace
