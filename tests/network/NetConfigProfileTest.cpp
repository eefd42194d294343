// The [Network] and [Printer] sections of a profile, read and written through
// the system's private-profile functions.
#include <gtest/gtest.h>

#include <windows.h>

#include <functional>
#include <map>
#include <memory>

#include "network/ProfileFiles.h"
#include "network/TestNetConfig.h"
#include "network/modScramble.h"
#include "platform/modAPI.h"

namespace rwz::test {
namespace {

using S = NetSetting;

FakeMachine LaptopMachine() {
    FakeMachine machine;
    machine.Adapters = {{"Intel PRO/100", "{A}", "10.0.0.5", "255.0.0.0", "10.0.0.1", "10.0.0.2",
                         "10.0.0.3", "", false},
                        {"Fast Ethernet Adapter", "{B}", "172.16.0.5", "255.255.0.0", "172.16.0.1",
                         "", "", "", true},
                        {"Wireless LAN", "{C}", "", "", "", "", "", "", true}};
    return machine;
}

// A back end that has captured the machine.
std::unique_ptr<TestNetConfig> Captured(NetConfigParticulars particulars = Particulars2K(),
                                        FakeMachine machine = LaptopMachine()) {
    auto backend = std::make_unique<TestNetConfig>(std::move(particulars));
    backend->Machine = std::move(machine);
    static_cast<INetConfig&>(*backend).LoadConfiguration();
    backend->Calls.clear();
    return backend;
}

std::string ProfileWith(const std::string& bytes) {
    const std::string path = NewProfilePath();
    WriteFileBytes(path, bytes);
    return path;
}

std::string Saved(INetConfig& net) {
    const std::string path = NewProfilePath();
    net.SaveConfigurationfile(path);
    return ReadFileBytes(path);
}

const std::string kUserName = "EXAMPLE\\joiner";
const std::string kPassword = "s3cret pass";

// The two sections as the Windows 2000/XP/2003 back end writes them.
std::string ExampleSections() {
    return CrLfLines({"[Network]",
                      "Adapter=Fast Ethernet Adapter",
                      "IPAddress=192.168.101.5,192.168.101.6",
                      "IPMask=255.255.255.0,255.255.255.0",
                      "DefaultGateway=192.168.101.1",
                      "NameServer=192.168.101.2,192.168.101.3",
                      "HostName=laptop1",
                      "Domain=example.lan",
                      "NTDomainUserName=" + ScrambleText(kUserName),
                      "NTDomainPassword=" + ScrambleText(kPassword),
                      "SearchList=",
                      "NameServer1=192.168.101.4",
                      "NameServer2=",
                      "ScopeID=",
                      "EnableDNS=1",
                      "ComputerName=LAPTOP1",
                      "ComputerDescription=Field laptop",
                      "Workgroup=WORKGROUP",
                      "NTLogon=0",
                      "NTDomain=",
                      "DHCP=0",
                      "WINS=1",
                      "[Printer]",
                      "DefaultPrinter=Office Laser",
                      "AdvancedSettingsEnabled=1",
                      "PrinterPort=LPT1:",
                      "PrinterCaptureDevice=LPT1",
                      "PrinterCapturePath=\\\\server\\laser",
                      "ReConnectAtLogon=1",
                      "EnableDefaultPrinter=1"});
}

struct Field {
    const char* Name;
    std::function<std::string(const INetConfig&)> Get;
};

std::string Flag(bool value) {
    return value ? "1" : "0";
}

// Every value of the record, as text.
const std::vector<Field>& RecordFields() {
    static const std::vector<Field> fields = {
        {"CurrentAdapter", [](const INetConfig& n) { return std::to_string(n.CurrentAdapter()); }},
        {"IPAddress", [](const INetConfig& n) { return n.IPAddress(); }},
        {"IPMask", [](const INetConfig& n) { return n.IPMask(); }},
        {"DefaultGateway", [](const INetConfig& n) { return n.DefaultGateway(); }},
        {"DNSServers", [](const INetConfig& n) { return n.DNSServers(); }},
        {"Host", [](const INetConfig& n) { return n.Host(); }},
        {"DomainName", [](const INetConfig& n) { return n.DomainName(); }},
        {"NTDomainUserName", [](const INetConfig& n) { return n.NTDomainUserName(); }},
        {"NTDomainPassword", [](const INetConfig& n) { return n.NTDomainPassword(); }},
        {"SearchList", [](const INetConfig& n) { return n.SearchList(); }},
        {"LMHostFile", [](const INetConfig& n) { return n.LMHostFile(); }},
        {"WINSServer1", [](const INetConfig& n) { return n.WINSServer1(); }},
        {"WINSServer2", [](const INetConfig& n) { return n.WINSServer2(); }},
        {"ScopeID", [](const INetConfig& n) { return n.ScopeID(); }},
        {"DNSEnabled", [](const INetConfig& n) { return Flag(n.DNSEnabled()); }},
        {"ComputerName", [](const INetConfig& n) { return n.ComputerName(); }},
        {"ComputerDescription", [](const INetConfig& n) { return n.ComputerDescription(); }},
        {"Workgroup", [](const INetConfig& n) { return n.Workgroup(); }},
        {"NTLogonEnabled", [](const INetConfig& n) { return Flag(n.NTLogonEnabled()); }},
        {"NTDomain", [](const INetConfig& n) { return n.NTDomain(); }},
        {"DHCPEnabled", [](const INetConfig& n) { return Flag(n.DHCPEnabled()); }},
        {"WINSEnabled", [](const INetConfig& n) { return Flag(n.WINSEnabled()); }},
        {"DisablePWDCache", [](const INetConfig& n) { return Flag(n.DisablePWDCache()); }},
        {"QuickLogon", [](const INetConfig& n) { return Flag(n.QuickLogon()); }},
        {"DefaultPrinter", [](const INetConfig& n) { return n.DefaultPrinter(); }},
        {"EnableAdvPrinterSettings",
         [](const INetConfig& n) { return Flag(n.EnableAdvPrinterSettings()); }},
        {"PrinterPort", [](const INetConfig& n) { return n.PrinterPort(); }},
        {"PrinterCaptureDev", [](const INetConfig& n) { return n.PrinterCaptureDev(); }},
        {"PrinterCapturePath", [](const INetConfig& n) { return n.PrinterCapturePath(); }},
        {"PrinterCaptureReconnect",
         [](const INetConfig& n) { return Flag(n.PrinterCaptureReconnect()); }},
        {"EnableDefaultPrinter",
         [](const INetConfig& n) { return Flag(n.EnableDefaultPrinter()); }},
    };
    return fields;
}

using Record = std::map<std::string, std::string>;

Record RecordOf(const INetConfig& net) {
    Record record;
    for (const Field& field : RecordFields()) record[field.Name] = field.Get(net);
    return record;
}

void ExpectRecord(const INetConfig& net, const Record& expected) {
    const Record actual = RecordOf(net);
    for (const auto& [name, value] : expected) {
        EXPECT_EQ(actual.at(name), value) << name;
    }
}

// --- The example sections --------------------------------------------------

TEST(NetConfigProfileTest, ExampleSectionsReadIntoTheRecordAndAreWrittenBackAsTheyWere) {
    auto backend = Captured();
    INetConfig& net = *backend;
    net.LoadConfigurationFile(ProfileWith(ExampleSections()));

    using namespace std::string_literals;
    ExpectRecord(net, {{"CurrentAdapter", "1"},
                       {"IPAddress", "192.168.101.5\000192.168.101.6"s},
                       {"IPMask", "255.255.255.0\000255.255.255.0"s},
                       {"DefaultGateway", "192.168.101.1"},
                       {"DNSServers", "192.168.101.2,192.168.101.3"},
                       {"Host", "laptop1"},
                       {"DomainName", "example.lan"},
                       {"NTDomainUserName", kUserName},
                       {"NTDomainPassword", kPassword},
                       {"SearchList", ""},
                       {"LMHostFile", ""},
                       {"WINSServer1", "192.168.101.4"},
                       {"WINSServer2", ""},
                       {"ScopeID", ""},
                       {"DNSEnabled", "1"},
                       {"ComputerName", "LAPTOP1"},
                       {"ComputerDescription", "Field laptop"},
                       {"Workgroup", "WORKGROUP"},
                       {"NTLogonEnabled", "0"},
                       {"NTDomain", ""},
                       {"DHCPEnabled", "0"},
                       {"WINSEnabled", "1"},
                       {"DefaultPrinter", "Office Laser"},
                       {"EnableAdvPrinterSettings", "1"},
                       {"PrinterPort", "LPT1:"},
                       {"PrinterCaptureDev", "LPT1"},
                       {"PrinterCapturePath", "\\\\server\\laser"},
                       {"PrinterCaptureReconnect", "1"},
                       {"EnableDefaultPrinter", "1"}});
    // Loading flags nothing and reads nothing from the machine.
    EXPECT_TRUE(backend->Calls.empty());
    for (int i = 0; i < static_cast<int>(S::Count); ++i) {
        EXPECT_FALSE(backend->IsChanged(static_cast<S>(i))) << SetOperationName(static_cast<S>(i));
    }

    const std::string path = NewProfilePath();
    net.SaveConfigurationfile(path);
    EXPECT_EQ(ReadFileBytes(path), ExampleSections());
    net.SaveConfigurationfile(path);  // nothing changed: the same bytes
    EXPECT_EQ(ReadFileBytes(path), ExampleSections());
}

TEST(NetConfigProfileTest, SectionsAreAddedAfterThoseTheFileAlreadyHas) {
    const std::string head =
        CrLfLines({"[Enabled Sections]", "General=1", "[Advanced]", "Comments=kept"});
    const std::string path = ProfileWith(head);
    auto backend = Captured();
    INetConfig& net = *backend;
    net.SaveConfigurationfile(path);
    const std::string bytes = ReadFileBytes(path);
    EXPECT_EQ(bytes.substr(0, head.size()), head);
    EXPECT_EQ(bytes.substr(head.size(), 11), "[Network]\r\n");
}

// Keys in the order the family writes them: what the sections hold, and what not.
TEST(NetConfigProfileTest, EachFamilyWritesItsOwnKeysInOrder) {
    const std::vector<std::string> head = {"[Network]",      "Adapter",    "IPAddress", "IPMask",
                                           "DefaultGateway", "NameServer", "HostName",  "Domain"};
    const std::vector<std::string> middle = {"SearchList",
                                             "NameServer1",
                                             "NameServer2",
                                             "ScopeID",
                                             "EnableDNS",
                                             "ComputerName",
                                             "ComputerDescription",
                                             "Workgroup",
                                             "NTLogon",
                                             "NTDomain",
                                             "DHCP",
                                             "WINS"};
    const std::vector<std::string> printer = {
        "[Printer]",        "DefaultPrinter",       "AdvancedSettingsEnabled",
        "PrinterPort",      "PrinterCaptureDevice", "PrinterCapturePath",
        "ReConnectAtLogon", "EnableDefaultPrinter"};
    struct Family {
        NetConfigParticulars Particulars;
        std::vector<std::string> Account;
        std::vector<std::string> Logon;
    };
    for (const Family& f : {Family{Particulars2K(), {"NTDomainUserName", "NTDomainPassword"}, {}},
                            Family{ParticularsNT(), {}, {}},
                            Family{Particulars9x(), {}, {"DisablePWDCache", "QuickLogon"}}}) {
        auto backend = Captured(f.Particulars);
        std::vector<std::string> expected = head;
        expected.insert(expected.end(), f.Account.begin(), f.Account.end());
        expected.insert(expected.end(), middle.begin(), middle.end());
        expected.insert(expected.end(), f.Logon.begin(), f.Logon.end());
        expected.insert(expected.end(), printer.begin(), printer.end());

        std::vector<std::string> keys;
        const std::string bytes = Saved(*backend);
        for (size_t start = 0; start < bytes.size();) {
            const size_t end = bytes.find("\r\n", start);
            const std::string line = bytes.substr(start, end - start);
            keys.push_back(line.substr(0, line.find('=')));
            start = end == std::string::npos ? bytes.size() : end + 2;
        }
        EXPECT_EQ(keys, expected) << f.Particulars.ClassName;
    }
}

TEST(NetConfigProfileTest, KeysOfOtherFamiliesAreIgnoredOnReading) {
    const std::string path =
        ProfileWith(CrLfLines({"[Network]", "NTDomainUserName=" + ScrambleText("other"),
                               "DisablePWDCache=0", "QuickLogon=0"}));
    auto nt = Captured(ParticularsNT());
    static_cast<INetConfig&>(*nt).SetNTDomainUserName("kept");
    nt->LoadConfigurationFile(path);
    EXPECT_EQ(nt->NTDomainUserName(), "kept");

    auto nine = Captured(Particulars9x());
    ASSERT_TRUE(nine->DisablePWDCache());
    nine->LoadConfigurationFile(path);
    EXPECT_FALSE(nine->DisablePWDCache());
    EXPECT_FALSE(nine->QuickLogon());
    EXPECT_EQ(nine->NTDomainUserName(), "");  // never read on this family
}

// --- Values ----------------------------------------------------------------

TEST(NetConfigProfileTest, IgnoreKeepsEveryValueTheRecordHeld) {
    auto backend = Captured(Particulars9x());
    INetConfig& net = *backend;
    net.SetCurrentAdapter(2);
    net.SetNTDomainUserName("user");
    net.SetEnableDefaultPrinter(false);
    const Record before = RecordOf(net);

    std::vector<std::string> lines = {"[Network]"};
    for (const char* key :
         {"Adapter",         "IPAddress", "IPMask",     "DefaultGateway", "NameServer",
          "HostName",        "Domain",    "SearchList", "LMHostFile",     "NameServer1",
          "NameServer2",     "ScopeID",   "EnableDNS",  "ComputerName",   "ComputerDescription",
          "Workgroup",       "NTLogon",   "NTDomain",   "DHCP",           "WINS",
          "DisablePWDCache", "QuickLogon"})
        lines.push_back(std::string(key) + "=  {IGNORE}");
    lines.push_back("[Printer]");
    for (const char* key :
         {"DefaultPrinter", "AdvancedSettingsEnabled", "PrinterPort", "PrinterCaptureDevice",
          "PrinterCapturePath", "ReConnectAtLogon", "EnableDefaultPrinter"})
        lines.push_back(std::string(key) + "={IGNORE}");
    std::string bytes;
    for (const std::string& line : lines) bytes += line + "\r\n";

    net.LoadConfigurationFile(ProfileWith(bytes));
    EXPECT_EQ(RecordOf(net), before);
}

TEST(NetConfigProfileTest, MissingKeysEmptyTheRecord) {
    for (const std::string& bytes : {std::string(), CrLfLines({"[Enabled Sections]", "General=1"}),
                                     CrLfLines({"[Network]", "[Printer]"})}) {
        auto backend = Captured(Particulars9x());
        INetConfig& net = *backend;
        net.SetNTDomainUserName("user");
        net.SetEnableDefaultPrinter(false);
        net.LoadConfigurationFile(ProfileWith(bytes));
        Record expected = RecordOf(net);
        for (auto& [name, value] : expected) {
            value = value == "1" || value == "0" ? "0" : "";
        }
        expected["CurrentAdapter"] = "0";
        expected["NTDomainUserName"] = "user";  // not a key of this family
        expected["EnableDefaultPrinter"] = "1";
        EXPECT_EQ(RecordOf(net), expected);
    }

    // A file that does not exist reads the same way.
    auto backend = Captured();
    INetConfig& net = *backend;
    net.LoadConfigurationFile(NewProfilePath());
    EXPECT_EQ(net.ComputerName(), "");
    EXPECT_TRUE(net.EnableDefaultPrinter());
}

TEST(NetConfigProfileTest, ValuesConvertAsTheirKeysSay) {
    struct Case {
        const char* Line;
        const char* Field;
        std::string Expected;
    };
    using namespace std::string_literals;
    const Case cases[] = {
        {"[Network]\r\nIPAddress=", "IPAddress", ""},
        {"[Network]\r\nIPAddress=1.2.3.4,5.6.7.8", "IPAddress", "1.2.3.4\0005.6.7.8"s},
        {"[Network]\r\nDefaultGateway=1.2.3.4,5.6.7.8", "DefaultGateway", "1.2.3.4,5.6.7.8"},
        {"[Network]\r\nDHCP=1", "DHCPEnabled", "1"},
        {"[Network]\r\nDHCP= 1 ", "DHCPEnabled", "1"},
        {"[Network]\r\nDHCP=yes", "DHCPEnabled", "0"},
        {"[Network]\r\nDHCP=01", "DHCPEnabled", "0"},
        {"[Network]\r\nDHCP=true", "DHCPEnabled", "0"},
        {"[Printer]\r\nEnableDefaultPrinter=", "EnableDefaultPrinter", "1"},
        {"[Printer]\r\nEnableDefaultPrinter=0", "EnableDefaultPrinter", "0"},
        {"[Printer]\r\nEnableDefaultPrinter=yes", "EnableDefaultPrinter", "0"},
        {"[Network]\r\nHostName={ignore}", "Host", "{ignore}"},  // the marker has one spelling
        {"[Network]\r\nhostname=lower", "Host", "lower"},        // key names without case
        {"[NETWORK]\r\nHostName=upper", "Host", "upper"},
        {"[Network]\r\nHostName=\"quoted\"", "Host", "quoted"},
        {"[Network]\r\nNTDomainUserName={prompt}", "NTDomainUserName", "{prompt}"},
        {"[Network]\r\nLMHostFile=C:\\lmhosts.sam", "LMHostFile", "C:\\lmhosts.sam"},
    };
    for (const Case& c : cases) {
        auto backend = Captured();
        INetConfig& net = *backend;
        net.LoadConfigurationFile(ProfileWith(std::string(c.Line) + "\r\n"));
        EXPECT_EQ(RecordOf(net).at(c.Field), c.Expected) << c.Line;
    }
}

TEST(NetConfigProfileTest, AnEmptyAddressListIsWrittenAsZeroes) {
    auto backend = Captured();
    INetConfig& net = *backend;
    net.LoadConfigurationFile(
        ProfileWith(CrLfLines({"[Network]", "IPAddress={IGNORE}", "IPMask="})));
    EXPECT_EQ(net.IPAddress(), "10.0.0.5");  // captured
    EXPECT_EQ(net.IPMask(), "");
    const std::string bytes = Saved(net);
    EXPECT_NE(bytes.find("\r\nIPAddress=10.0.0.5\r\n"), std::string::npos);
    EXPECT_NE(bytes.find("\r\nIPMask=0.0.0.0\r\n"), std::string::npos);
}

TEST(NetConfigProfileTest, LMHostFileIsReadButNeverWritten) {
    auto backend = Captured();
    INetConfig& net = *backend;
    net.LoadConfigurationFile(ProfileWith(CrLfLines({"[Network]", "LMHostFile=C:\\lm"})));
    EXPECT_EQ(net.LMHostFile(), "C:\\lm");
    EXPECT_EQ(Saved(net).find("LMHostFile"), std::string::npos);
}

TEST(NetConfigProfileTest, LongValuesAreCutToWhatTheBufferHolds) {
    const std::string longText(300, 'd');
    const std::string longName(200, 'u');
    auto backend = Captured();
    INetConfig& net = *backend;
    net.SetComputerDescription(longText);
    net.SetNTDomainUserName(longName);
    const std::string path = NewProfilePath();
    net.SaveConfigurationfile(path);

    auto reader = Captured();
    reader->LoadConfigurationFile(path);
    EXPECT_EQ(reader->ComputerDescription(), longText.substr(0, 254));
    // 254 digits are 127 scrambled characters.
    EXPECT_EQ(reader->NTDomainUserName(), longName.substr(0, 127));
}

TEST(NetConfigProfileTest, TheDomainAccountIsStoredScrambled) {
    auto backend = Captured();
    INetConfig& net = *backend;
    net.SetNTDomainUserName("{Prompt}");
    net.SetNTDomainPassword("{Prompt}");
    const std::string path = NewProfilePath();
    net.SaveConfigurationfile(path);
    const std::string bytes = ReadFileBytes(path);
    EXPECT_EQ(bytes.find("Prompt"), std::string::npos);
    EXPECT_NE(bytes.find("\r\nNTDomainUserName=" + ScrambleText("{Prompt}") + "\r\n"),
              std::string::npos);

    auto reader = Captured();
    reader->LoadConfigurationFile(path);
    EXPECT_EQ(reader->NTDomainUserName(), "{Prompt}");
    EXPECT_EQ(reader->NTDomainPassword(), "{Prompt}");
}

// --- Conditional values ----------------------------------------------------

TEST(NetConfigProfileTest, ConditionalValuesResolveForTheRunningSystem) {
    const std::string bytes = CrLfLines(
        {"[Network]", "IPAddress=IsWindowsXP(\"10.0.0.1,10.0.0.2\",\"10.9.9.9\")",
         "DHCP=IsWindows2000(\"1\",\"0\")", "HostName=IsWindowsXP(\"{IGNORE}\",\"elsewhere\")",
         "Adapter=isntplatform(\"index:2\",\"index:1\")", "[Printer]",
         "DefaultPrinter=IsWindows9x(\"Old\",\"New\")"});
    using namespace std::string_literals;
    struct Case {
        const char* Tag;
        Record Expected;
    };
    const Case cases[] = {
        {"XP",
         {{"IPAddress", "10.0.0.1\00010.0.0.2"s},
          {"DHCPEnabled", "0"},
          {"Host", "machinehost"},
          {"CurrentAdapter", "2"},
          {"DefaultPrinter", "New"}}},
        {"2K",
         {{"IPAddress", "10.9.9.9"},
          {"DHCPEnabled", "1"},
          {"Host", "elsewhere"},
          {"CurrentAdapter", "2"},
          {"DefaultPrinter", "New"}}},
        {"9x",
         {{"IPAddress", "10.9.9.9"},
          {"DHCPEnabled", "0"},
          {"Host", "elsewhere"},
          {"CurrentAdapter", "1"},
          {"DefaultPrinter", "Old"}}},
    };
    const std::string path = ProfileWith(bytes);
    for (const Case& c : cases) {
        auto backend = Captured();
        backend->ConditionTag = c.Tag;
        backend->LoadConfigurationFile(path);
        SCOPED_TRACE(c.Tag);
        ExpectRecord(*backend, c.Expected);
    }

    // Without a tag given, the prefix's own system decides.
    auto backend = Captured();
    backend->LoadConfigurationFile(path);
    const bool xp = GetCurrentOSTag() == "XP";
    EXPECT_EQ(backend->IPAddress(), xp ? "10.0.0.1\00010.0.0.2"s : "10.9.9.9"s);
    EXPECT_EQ(backend->Host(), xp ? "machinehost" : "elsewhere");
}

// --- The adapter -----------------------------------------------------------

TEST(NetConfigProfileTest, AdapterKeyChoosesByPatternIndexOrName) {
    struct Case {
        const char* Line;  // nullptr: no "Adapter" key
        int16_t Expected;
    };
    const Case cases[] = {{"Adapter={*Ether*}", 1},
                          {"Adapter={*LAN}", 2},
                          {"Adapter={Token*}", 0},
                          {"Adapter=index:1", 1},
                          {"Adapter=INDEX:2", 2},
                          {"Adapter=index:9", 0},
                          {"Adapter=Wireless LAN", 2},
                          {"Adapter=Unknown NIC", 0},
                          {"Adapter=", 0},
                          {nullptr, 0},
                          {"Adapter={IGNORE}", 2}};
    for (const Case& c : cases) {
        auto backend = Captured();
        INetConfig& net = *backend;
        net.SetCurrentAdapterNoRefresh(2);
        net.LoadConfigurationFile(
            ProfileWith(CrLfLines({"[Network]", c.Line ? c.Line : "HostName=x"})));
        EXPECT_EQ(net.CurrentAdapter(), c.Expected) << (c.Line ? c.Line : "(none)");
        EXPECT_TRUE(backend->CallsStartingWith("Get").empty());  // no refresh
    }
}

TEST(NetConfigProfileTest, WithoutAdaptersTheAdapterKeyIsIgnoredAndSavedAsNone) {
    auto backend = Captured(Particulars2K(), FakeMachine{});
    INetConfig& net = *backend;
    for (const char* line : {"Adapter=index:0", "Adapter={*}", "Adapter=Wireless LAN"}) {
        net.LoadConfigurationFile(ProfileWith(CrLfLines({"[Network]", line})));
        EXPECT_EQ(net.CurrentAdapter(), -1) << line;
    }
    EXPECT_EQ(Saved(net).substr(0, 44), "[Network]\r\nAdapter=No Adapters Installed\r\nIP");
}

// --- Bad input -------------------------------------------------------------

TEST(NetConfigProfileTest, DamagedFilesReadWithoutHarmToOtherKeys) {
    struct Case {
        const char* Name;
        std::string Bytes;
        Record Expected;
    };
    const std::string longLine(100000, 'x');
    const Case cases[] = {
        {"key without =",
         CrLfLines({"[Network]", "HostName", "ComputerName=PC1", "Workgroup", "Domain=d.lan"}),
         {{"Host", ""}, {"ComputerName", "PC1"}, {"Workgroup", ""}, {"DomainName", "d.lan"}}},
        {"line break in a value",
         CrLfLines({"[Network]", "ComputerDescription=Field", "laptop", "Workgroup=WG"}),
         {{"ComputerDescription", "Field"}, {"Workgroup", "WG"}}},
        {"section twice",
         CrLfLines({"[Network]", "HostName=first", "[Printer]", "PrinterPort=LPT2:", "[Network]",
                    "HostName=second"}),
         {{"Host", "first"}, {"PrinterPort", "LPT2:"}}},
        {"key twice",
         CrLfLines({"[Network]", "HostName=one", "HostName=two", "Workgroup=WG"}),
         {{"Host", "one"}, {"Workgroup", "WG"}}},
        {"bare line feeds",
         "[Network]\nHostName=unix\nWorkgroup=WG\n",
         {{"Host", "unix"}, {"Workgroup", "WG"}}},
        {"no line end at the end", "[Network]\r\nWorkgroup=WG", {{"Workgroup", "WG"}}},
        {"very long line",
         CrLfLines({"[Network]", "ComputerDescription=" + longLine, "Workgroup=WG"}),
         {{"ComputerDescription", std::string(254, 'x')}, {"Workgroup", "WG"}}},
        {"unclosed section name",
         CrLfLines({"[Network", "HostName=lost", "[Printer]", "PrinterPort=LPT3:"}),
         {{"PrinterPort", "LPT3:"}}},
        {"blanks around the key",
         CrLfLines({"[Network]", "  HostName  =  spaced  "}),
         {{"Host", "spaced"}}},
    };
    for (const Case& c : cases) {
        auto backend = Captured();
        backend->LoadConfigurationFile(ProfileWith(c.Bytes));
        SCOPED_TRACE(c.Name);
        ExpectRecord(*backend, c.Expected);
    }
}

TEST(NetConfigProfileTest, ALineBreakInAValueCannotBecomeAnotherKey) {
    for (const char* lineEnd : {"\r\n", "\n", "\r"}) {
        const std::string br = lineEnd;
        auto backend = Captured();
        INetConfig& net = *backend;
        net.SetWorkgroup("OFFICE");
        // LMHostFile is never written, so nothing would overwrite it later.
        net.SetComputerDescription("Field" + br + "Workgroup=EVIL" + br + "LMHostFile=EVIL" + br +
                                   "[Printer]" + br + "DefaultPrinter=EVIL");
        net.SetHost("one" + br + "two");
        const std::string path = NewProfilePath();
        net.SaveConfigurationfile(path);

        auto reader = Captured();
        reader->LoadConfigurationFile(path);
        SCOPED_TRACE(testing::PrintToString(br));
        EXPECT_EQ(reader->Workgroup(), "OFFICE");
        EXPECT_EQ(reader->ComputerDescription(), "Field");
        EXPECT_EQ(reader->Host(), "one");
        EXPECT_EQ(reader->DefaultPrinter(), "Machine Printer");
        EXPECT_EQ(reader->LMHostFile(), "");
        EXPECT_EQ(ReadFileBytes(path).find("EVIL"), std::string::npos);
    }
}

TEST(NetConfigProfileTest, AFileThatCannotBeWrittenEndsTheSaveQuietly) {
    auto backend = Captured();
    INetConfig& net = *backend;
    const std::string path = "C:\\no\\such\\folder\\profile.rwz";
    EXPECT_NO_THROW(net.SaveConfigurationfile(path));
    EXPECT_EQ(GetFileAttributesA(path.c_str()), INVALID_FILE_ATTRIBUTES);
}

}  // namespace
}  // namespace rwz::test
