// Network profiles on the simulated Windows 95, 98 and ME machines: what a
// capture finds and saves, that a saved profile applied again changes nothing,
// and what each setting writes (always a string) when a profile changes it.
// Workgroup, domain and logon are plain registry values there: no join.
#include <gtest/gtest.h>

#include <windows.h>
#include <winspool.h>

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

const char kClass[] = "HKLM\\System\\CurrentControlSet\\Services\\Class\\NetTrans\\";
const char kMSTCP[] = "HKLM\\System\\CurrentControlSet\\Services\\VxD\\MSTCP\\";
const char kVNETSUP[] = "HKLM\\System\\CurrentControlSet\\Services\\VxD\\VNETSUP\\";
const char kProvider[] = "HKLM\\System\\CurrentControlSet\\Services\\MSNP32\\NetworkProvider\\";
const char kPolicies[] = "HKLM\\Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\Network\\";

// Everything the 95/98/ME back end reads.
bench::RegSnapshot Watched() {
    return bench::Snapshot({"HKLM\\System\\CurrentControlSet\\Services\\Class",
                            "HKLM\\System\\CurrentControlSet\\Services\\VxD",
                            "HKLM\\System\\CurrentControlSet\\Services\\MSNP32",
                            "HKLM\\System\\CurrentControlSet\\Control\\ComputerName",
                            "HKLM\\System\\CurrentControlSet\\Control\\Print\\Printers",
                            "HKLM\\Software\\Microsoft\\Windows\\CurrentVersion\\Policies",
                            "HKLM\\Network", "HKLM\\Enum",
                            "HKCU\\Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows"});
}

// --- Capture, save, load, apply --------------------------------------------------

struct CaptureCase {
    const char* machine;
    std::vector<std::string> adapters;
    // Keys of the saved profile; "P:" marks the [Printer] section.
    std::vector<std::pair<std::string, std::string>> keys;
};

class Win9xCapture : public testing::TestWithParam<CaptureCase> {};

TEST_P(Win9xCapture, SavesTheMachineAndAppliesItBackUnchanged) {
    const CaptureCase& c = GetParam();
    bench::Machine machine(c.machine);
    bench::NetworkStandIns network;
    network.Like(machine);

    bench::RunResult saved = bench::RunRwz("/hidden /save C:\\cur.rwz /export C:\\cur.txt");
    EXPECT_EQ(c.adapters, FoundAdapters(saved, "clsNIC9x")) << saved.log;
    EXPECT_EQ("1", Key("C:\\cur.rwz", "Enabled Sections", "General"));
    for (const auto& [key, value] : c.keys) {
        const bool printer = key.compare(0, 2, "P:") == 0;
        EXPECT_EQ(value, Key("C:\\cur.rwz", printer ? "Printer" : "Network",
                             (printer ? key.substr(2) : key).c_str()))
            << key;
    }
    EXPECT_EQ("<missing>", Key("C:\\cur.rwz", "Network", "NTDomainUserName"));
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
    Machines, Win9xCapture,
    testing::Values(
        // The ISA card has no TCP/IP binding; the dial-up adapter has a fixed address.
        CaptureCase{"win95-desktop",
                    {"Dial-Up Adapter"},
                    {{"Adapter", "Dial-Up Adapter"},
                     {"DHCP", "0"},
                     {"IPAddress", "172.16.9.30"},
                     {"IPMask", "255.255.255.0"},
                     {"DefaultGateway", "172.16.9.1"},
                     {"WINS", "1"},
                     {"NameServer1", "172.16.9.4"},
                     {"NameServer2", ""},
                     {"NameServer", "172.16.9.2"},
                     {"EnableDNS", "1"},
                     {"HostName", "frontdesk"},
                     {"Domain", "dialup.test"},
                     {"ComputerName", "FRONTDESK"},
                     {"ComputerDescription", "Front desk"},
                     {"Workgroup", "CLINIC"},
                     {"NTLogon", "0"},
                     {"NTDomain", ""},
                     {"DisablePWDCache", "0"},
                     {"QuickLogon", "0"},
                     {"P:DefaultPrinter", "Epson LQ-570"}}},
        CaptureCase{
            "win98-desktop",
            {"Dial-Up Adapter", "3Com Fast EtherLink XL 10/100Mb TX Ethernet NIC (3C905B-TX)"},
            {{"Adapter", "Dial-Up Adapter"},
             {"DHCP", "1"},
             {"IPAddress", "0.0.0.0"},
             {"WINS", "0"},
             {"NameServer", "192.168.7.2,192.168.7.3"},
             {"SearchList", "harbor.test"},
             {"Workgroup", "HARBOR"},
             {"NTLogon", "0"},
             {"NTDomain", "HARBOR"},
             {"DisablePWDCache", "0"},
             {"QuickLogon", "0"},
             {"P:DefaultPrinter", "HP DeskJet 690C"}}},
        CaptureCase{"winme-desktop",
                    {"Dial-Up Adapter", "3Com 10/100 Mini PCI Ethernet Adapter"},
                    {{"Adapter", "Dial-Up Adapter"},
                     {"DHCP", "1"},
                     {"EnableDNS", "0"},
                     {"NTLogon", "1"},
                     {"NTDomain", "NORTHWIND"},
                     {"DisablePWDCache", "1"},
                     {"QuickLogon", "1"},
                     {"P:DefaultPrinter", ""}}},
        CaptureCase{"win98-no-network",
                    {},
                    {{"Adapter", "No Adapters Installed"},
                     {"ComputerName", "KIOSK"},
                     {"Workgroup", "WORKGROUP"},
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
    std::vector<std::pair<const char*, const char*>> profile;
    // Every registry value that must change, as "<type>:<data>".
    std::vector<std::pair<std::string, const char*>> written;
};

class Win9xApply : public testing::TestWithParam<ApplyCase> {};

TEST_P(Win9xApply, WritesExactlyTheChangedSettingsAndAsksForARestart) {
    const ApplyCase& c = GetParam();
    bench::Machine machine(c.machine);
    bench::NetworkStandIns network;
    network.Like(machine);
    bench::RunRwz("/hidden /save C:\\x.rwz");
    for (const auto& [key, value] : c.profile) {
        const std::string k = key;
        const bool printer = k.compare(0, 2, "P:") == 0;
        SetKey("C:\\x.rwz", printer ? "Printer" : "Network", (printer ? k.substr(2) : k).c_str(),
               value);
    }

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
    EXPECT_TRUE(network.Calls().empty()) << network.Calls()[0].Describe();
    EXPECT_NE(std::string::npos, run.log.find("ExecuteRestartOption: Code = 0")) << run.log;
}

INSTANTIATE_TEST_SUITE_P(
    Profiles, Win9xApply,
    testing::Values(
        // The PCI card, by pattern: its class key.
        ApplyCase{"PCICard",
                  "win98-desktop",
                  {{"Adapter", "{3Com*}"},
                   {"DHCP", "0"},
                   {"WINS", "1"},
                   {"IPAddress", "192.168.7.21"},
                   {"IPMask", "255.255.0.0"},
                   {"DefaultGateway", "192.168.7.254"},
                   {"NameServer1", "192.168.7.6"},
                   {"NameServer2", "192.168.7.7"}},
                  {{std::string(kClass) + "0000\\IPAddress", "REG_SZ:192.168.7.21"},
                   {std::string(kClass) + "0000\\IPMask", "REG_SZ:255.255.0.0"},
                   {std::string(kClass) + "0000\\DefaultGateway", "REG_SZ:192.168.7.254"},
                   {std::string(kClass) + "0000\\NameServer1", "REG_SZ:192.168.7.6"},
                   {std::string(kClass) + "0000\\NameServer2", "REG_SZ:192.168.7.7"}}},
        // Every machine-wide setting.
        ApplyCase{"MachineWide",
                  "win98-desktop",
                  {{"NameServer", "192.168.7.8,192.168.7.9"},
                   {"HostName", "desk2"},
                   {"Domain", "corp.test"},
                   {"SearchList", "corp.test,test"},
                   {"ScopeID", "corp"},
                   {"ComputerName", "DESK2"},
                   {"ComputerDescription", "Desk two"},
                   {"Workgroup", "OFFICE"},
                   {"NTLogon", "1"},
                   {"NTDomain", "CORP"},
                   {"QuickLogon", "1"},
                   {"DisablePWDCache", "1"}},
                  {{std::string(kMSTCP) + "NameServer", "REG_SZ:192.168.7.8,192.168.7.9"},
                   {std::string(kMSTCP) + "HostName", "REG_SZ:desk2"},
                   {std::string(kMSTCP) + "Domain", "REG_SZ:corp.test"},
                   {std::string(kMSTCP) + "SearchList", "REG_SZ:corp.test,test"},
                   {std::string(kMSTCP) + "ScopeID", "REG_SZ:corp"},
                   {"HKLM\\System\\CurrentControlSet\\Control\\ComputerName\\ComputerName\\"
                    "ComputerName",
                    "REG_SZ:DESK2"},
                   {std::string(kVNETSUP) + "Comment", "REG_SZ:Desk two"},
                   {std::string(kVNETSUP) + "Workgroup", "REG_SZ:OFFICE"},
                   {std::string(kProvider) + "AuthenticatingAgent", "REG_SZ:CORP"},
                   {std::string(kProvider) + "LogonDisconnected", "REG_SZ:1"},
                   {"HKLM\\Network\\Logon\\LMLogon", "REG_SZ:1"},
                   {std::string(kPolicies) + "DisablePwdCaching", "REG_SZ:1"}}},
        // DHCP on: the address and mask go back to 0.0.0.0.
        ApplyCase{"DHCPOn",
                  "win95-desktop",
                  {{"DHCP", "1"}},
                  {{std::string(kClass) + "0003\\IPAddress", "REG_SZ:0.0.0.0"},
                   {std::string(kClass) + "0003\\IPMask", "REG_SZ:0.0.0.0"}}},
        // WINS off: the node type goes from hybrid (8) to broadcast (1).
        ApplyCase{"WINSOff",
                  "win95-desktop",
                  {{"WINS", "0"}},
                  {{std::string(kClass) + "0003\\NodeType", "REG_SZ:1"}}},
        // The PC Card, by name, off DHCP.
        ApplyCase{"PCCard",
                  "winme-desktop",
                  {{"Adapter", "3Com 10/100 Mini PCI Ethernet Adapter"},
                   {"DHCP", "0"},
                   {"IPAddress", "10.5.0.9"},
                   {"IPMask", "255.255.255.0"}},
                  {{std::string(kClass) + "0001\\IPAddress", "REG_SZ:10.5.0.9"},
                   {std::string(kClass) + "0001\\IPMask", "REG_SZ:255.255.255.0"}}},
        // The domain logon, quick logon and password cache off.
        ApplyCase{"LogonOff",
                  "winme-desktop",
                  {{"NTLogon", "0"}, {"QuickLogon", "0"}, {"DisablePWDCache", "0"}},
                  {{std::string(kProvider) + "LogonDisconnected", "REG_SZ:0"},
                   {"HKLM\\Network\\Logon\\LMLogon", "REG_SZ:0"},
                   {std::string(kPolicies) + "DisablePwdCaching", "REG_SZ:0"}}}),
    [](const testing::TestParamInfo<ApplyCase>& info) { return info.param.name; });

// The example office profile on the 98 desktop: the first adapter's class key,
// DNS and names, the workgroup and the domain logon; a restart is asked for.
TEST(Win9xApply, OfficeProfile) {
    bench::Machine machine("win98-desktop");
    bench::NetworkStandIns network;
    network.Like(machine);
    bench::CopyFileReplacing(bench::SourceDir() + "\\examples\\office.rwz", "C:\\office.rwz");
    for (const char* area : {"Internet Explorer", "Netscape Navigator", "Opera"})
        SetKey("C:\\office.rwz", "Enabled Sections", area, "0");

    const bench::RegSnapshot before = Watched();
    bench::RunResult run = bench::RunRwz("/hidden /load C:\\office.rwz /apply /manual");
    const bench::RegSnapshot after = Watched();

    const std::string dialUp = std::string(kClass) + "0002\\";
    const std::vector<std::pair<std::string, const char*>> written = {
        {dialUp + "IPAddress", "REG_SZ:192.168.101.5"},
        {dialUp + "IPMask", "REG_SZ:255.255.255.0"},
        {dialUp + "DefaultGateway", "REG_SZ:192.168.101.1"},
        {dialUp + "NameServer1", "REG_SZ:192.168.101.4"},
        {dialUp + "NodeType", "REG_SZ:8"},
        {std::string(kMSTCP) + "NameServer", "REG_SZ:192.168.101.2,192.168.101.3"},
        {std::string(kMSTCP) + "HostName", "REG_SZ:fieldlaptop"},
        {std::string(kMSTCP) + "Domain", "REG_SZ:northwind.test"},
        {std::string(kMSTCP) + "SearchList", "REG_SZ:northwind.test"},
        {std::string(kVNETSUP) + "Workgroup", "REG_SZ:WORKGROUP"},
        {std::string(kProvider) + "AuthenticatingAgent", "REG_SZ:NORTHWIND"},
        {"HKLM\\Network\\Logon\\LMLogon", "REG_SZ:1"}};
    std::set<std::string> expected;
    for (const auto& [name, shown] : written) {
        expected.insert(name);
        EXPECT_EQ(shown, bench::Shown(after, name)) << name;
    }
    EXPECT_EQ(expected, bench::Differences(before, after)) << run.log;
    EXPECT_TRUE(network.Calls().empty()) << network.Calls()[0].Describe();
    EXPECT_NE(std::string::npos, run.log.find("ExecuteRestartOption: Code = 0")) << run.log;
}

// The default printer goes through the spooler, which marks the printer as the
// default one (PRINTER_ATTRIBUTE_DEFAULT in its record).
TEST(Win9xApply, DefaultPrinter) {
    bench::Machine machine("win98-desktop");
    bench::RunRwz("/hidden /save C:\\x.rwz");
    SetKey("C:\\x.rwz", "Printer", "DefaultPrinter", "HP LaserJet 4000 Series PCL");
    SetKey("C:\\x.rwz", "Printer", "EnableDefaultPrinter", "1");
    bench::RunResult run = bench::RunRwz("/hidden /load C:\\x.rwz /apply");
    const bench::RegSnapshot after = Watched();
    const std::string attributes =
        "HKLM\\System\\CurrentControlSet\\Control\\Print\\Printers\\HP LaserJet 4000 Series "
        "PCL\\Attributes";
    ASSERT_TRUE(after.count(attributes)) << run.log;
    EXPECT_EQ(PRINTER_ATTRIBUTE_DEFAULT,
              *reinterpret_cast<const DWORD*>(after.at(attributes).data.data()) &
                  PRINTER_ATTRIBUTE_DEFAULT)
        << run.log;
}

// A 95/98/ME profile's logon keys mean nothing on XP: not written there, not saved.
TEST(Win9xKeys, AreIgnoredOnXP) {
    bench::Machine machine("xp-laptop");
    bench::NetworkStandIns network;
    network.Like(machine);
    bench::RunRwz("/hidden /save C:\\x.rwz");
    SetKey("C:\\x.rwz", "Network", "QuickLogon", "1");
    SetKey("C:\\x.rwz", "Network", "DisablePWDCache", "1");
    const bench::RegSnapshot before = Watched();
    bench::RunResult run = bench::RunRwz("/hidden /load C:\\x.rwz /save C:\\again.rwz /apply");
    const std::set<std::string> changed = bench::Differences(before, Watched());
    EXPECT_TRUE(changed.empty()) << Describe(changed) << run.log;
    EXPECT_EQ("<missing>", Key("C:\\again.rwz", "Network", "QuickLogon"));
    EXPECT_EQ("<missing>", Key("C:\\again.rwz", "Network", "DisablePWDCache"));
}

}  // namespace
