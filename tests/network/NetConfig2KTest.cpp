// The Windows 2000/XP/2003 network back end against the simulated machines:
// what it captures, the profile keys it writes and reads, the flags an
// assignment sets, what an apply writes (and what it leaves alone) and in
// which order, the address push, and joining a domain or a workgroup with the
// texts of refusals.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <optional>
#include <set>

#include "localization/modLocalization.h"
#include "network/NetworkBench.h"
#include "network/clsNetConfig2K.h"
#include "platform/modUtilities.h"

namespace rwz::test {
namespace {

using Strings = std::vector<std::string>;

std::string TempProfile(const std::string& astrName) {
    char temp[MAX_PATH];
    GetTempPathA(MAX_PATH, temp);
    const std::string path = std::string(temp) + astrName;
    DeleteFileA(path.c_str());
    return path;
}

// The short names of the values that differ: "IPAddress", "Hostname", ...
std::set<std::string> Changed(const std::map<std::string, StoredValue>& before,
                              const std::map<std::string, StoredValue>& after) {
    std::set<std::string> names;
    for (const auto& value : after)
        if (!(before.at(value.first) == value.second))
            names.insert(value.first.substr(value.first.find_last_of('\\') + 1));
    return names;
}

class NetConfig2KTest : public ::testing::Test {
  protected:
    void Load(const char* astrMachine) {
        mMachine.emplace(LoadMachine(astrMachine));
        mServices.Like(*mMachine);
    }

    std::unique_ptr<clsNetConfig2K> Capture() {
        auto config = std::make_unique<clsNetConfig2K>();
        config->LoadConfiguration();
        mServices.ClearCalls();
        return config;
    }

    // Applies with the dialog watcher looking on: the back end shows no box,
    // it returns what the user must be told.
    Strings Apply(clsNetConfig2K& aConfig) {
        bench::DialogWatch watch;
        const Strings texts = aConfig.ApplyConfiguration();
        EXPECT_TRUE(watch.Stop().dialogs.empty());
        return texts;
    }

    RecordingServices mServices;
    std::optional<bench::Machine> mMachine;
};

// --- Capture -------------------------------------------------------------------

struct Captured {
    const char* Machine;
    Strings Adapters;
    int Current;
    Strings IPAddress, IPMask;
    std::string Gateway, DNS;
    bool DNSEnabled, DHCP;
    std::string WINS1, WINS2;
    std::string Computer, Description, Workgroup;
    bool NTLogon;
    std::string NTDomain, Domain, Host, SearchList, ScopeID;
    Strings Printers;
    std::string DefaultPrinter, Port;
};

class NetConfig2KCapture : public NetConfig2KTest,
                           public ::testing::WithParamInterface<Captured> {};

TEST_P(NetConfig2KCapture, ReadsEverySettingOfTheMachine) {
    const Captured& x = GetParam();
    Load(x.Machine);
    const auto config = Capture();
    EXPECT_EQ(x.Adapters, config->Record().AdapterList);
    EXPECT_EQ(x.Current, config->Record().CurrentAdapter);
    EXPECT_EQ(NulList(x.IPAddress), config->Record().IPAddress);
    EXPECT_EQ(NulList(x.IPMask), config->Record().IPMask);
    EXPECT_EQ(x.Gateway, config->Record().DefaultGateway);
    EXPECT_EQ(x.DNS, config->Record().DNSServers);
    EXPECT_EQ(x.DNSEnabled, config->Record().DNSEnabled);
    EXPECT_EQ(x.DHCP, config->Record().DHCPEnabled);
    EXPECT_EQ(x.WINS1, config->Record().WINSServer1);
    EXPECT_EQ(x.WINS2, config->Record().WINSServer2);
    // Captured before the servers are read: reflects the empty record.
    EXPECT_FALSE(config->Record().WINSEnabled);
    EXPECT_EQ(x.Computer, config->Record().ComputerName);
    EXPECT_EQ(x.Description, config->Record().ComputerDescription);
    EXPECT_EQ(x.Workgroup, config->Record().Workgroup);
    EXPECT_EQ(x.NTLogon, config->Record().NTLogonEnabled);
    EXPECT_EQ(x.NTDomain, config->Record().NTDomain);
    EXPECT_EQ(x.Domain, config->Record().DomainName);
    EXPECT_EQ(x.Host, config->Record().Host);
    EXPECT_EQ(x.SearchList, config->Record().SearchList);
    EXPECT_EQ(x.ScopeID, config->Record().ScopeID);
    EXPECT_EQ("", config->Record().LMHostFile);
    EXPECT_EQ(x.Printers, config->Record().printerList);
    EXPECT_EQ(x.DefaultPrinter, config->Record().DefaultPrinter);
    EXPECT_EQ(x.Port, config->Record().PrinterPort);
    EXPECT_FALSE(config->Record().ResetRequired);
    for (int setting = 0; setting < static_cast<int>(NetSetting::Count); ++setting)
        EXPECT_FALSE(config->IsChanged(static_cast<NetSetting>(setting))) << setting;
}

const std::string k3Com = "3Com EtherLink XL 90XB/C Adapter Driver";

INSTANTIATE_TEST_SUITE_P(
    Machines, NetConfig2KCapture,
    ::testing::Values(
        Captured{"xp-laptop",
                 {"Local Area Connection", "Wireless Network Connection"},
                 0,
                 {"192.168.101.5", "192.168.101.6"},
                 {"255.255.255.0", "255.255.255.0"},
                 "192.168.101.1",
                 "192.168.101.2,192.168.101.3",
                 true,
                 false,
                 "192.168.101.4",
                 "192.168.101.7",
                 "LAPTOP1",
                 "Field laptop",
                 "WORKGROUP",
                 false,
                 "",
                 "",
                 "laptop1",
                 "",
                 "",
                 {"EPSON Stylus C84 Series", "HP LaserJet 4050 Series PCL"},
                 "HP LaserJet 4050 Series PCL",
                 "IP_192.168.101.20"},
        Captured{"win2k-pro",
                 {k3Com, k3Com},
                 0,
                 {"10.1.4.27"},
                 {"255.255.0.0"},
                 "10.1.0.1",
                 "10.1.0.5,10.1.0.6",
                 true,
                 false,
                 "",
                 "",
                 "ACCT-PC07",
                 "",
                 "",
                 true,
                 "NORTHWIND",
                 "northwind.lan",
                 "acct-pc07",
                 "northwind.lan,corp.northwind.lan",
                 "ACCOUNTS",
                 {},
                 "",
                 ""},
        Captured{"xp-no-network", {},    -1, {}, {},      "", "", false, false, "", "", "KIOSK", "",
                 "WORKGROUP",     false, "", "", "kiosk", "", "", {},    "",    ""}),
    [](const ::testing::TestParamInfo<Captured>& info) {
        std::string name = info.param.Machine;
        for (char& c : name)
            if (c == '-') c = '_';
        return name;
    });

TEST_F(NetConfig2KTest, OpensOnTheAdapterAppliedLastTheLaterOfTwoEqualNames) {
    Load("win2k-pro");
    SaveProgramSetting(kProductName, "Options", "LastNICApplied", k3Com);
    auto config = Capture();
    EXPECT_EQ(1, config->Record().CurrentAdapter);
    // The second card is on DHCP, unplugged.
    EXPECT_TRUE(config->Record().DHCPEnabled);
    EXPECT_EQ("0.0.0.0", config->Record().IPAddress);
    EXPECT_FALSE(config->Record().DNSEnabled);
}

TEST_F(NetConfig2KTest, SelectingAnAdapterRereadsItsSettingsAndItsType) {
    Load("xp-laptop");
    auto config = Capture();
    EXPECT_EQ("LAN", config->CurrentAdapterType());
    config->SetCurrentAdapter(1);
    EXPECT_EQ("Wireless", config->CurrentAdapterType());
    EXPECT_EQ("0.0.0.0", config->Record().IPAddress);
    EXPECT_EQ("", config->Record().DefaultGateway);
    EXPECT_TRUE(config->Record().DHCPEnabled);
    EXPECT_FALSE(config->Record().DNSEnabled);
    EXPECT_EQ("", config->Record().WINSServer1);
    EXPECT_FALSE(config->Record().WINSEnabled);
    // Selecting reads the servers before WINS is judged.
    config->SetCurrentAdapter(0);
    EXPECT_TRUE(config->Record().WINSEnabled);
    EXPECT_EQ("192.168.101.7", config->Record().WINSServer2);
    EXPECT_FALSE(config->IsChanged(NetSetting::IPAddress));
}

// --- Damaged adapter data ----------------------------------------------------------

TEST_F(NetConfig2KTest, AdapterValuesMissingReadAsEmpty) {
    Load("xp-laptop");
    for (const char* value :
         {"IPAddress", "SubnetMask", "DefaultGateway", "EnableDHCP", "NameServer"})
        DeleteStored(HKEY_LOCAL_MACHINE, InterfaceKey(kLaptopWired), value);
    DeleteStored(HKEY_LOCAL_MACHINE, NetBTInterfaceKey(kLaptopWired), "NameServerList");
    auto config = Capture();
    EXPECT_EQ("", config->Record().IPAddress);
    EXPECT_EQ("", config->Record().IPMask);
    EXPECT_EQ("", config->Record().DefaultGateway);
    EXPECT_FALSE(config->Record().DHCPEnabled);
    EXPECT_FALSE(config->Record().DNSEnabled);
    EXPECT_EQ("", config->Record().WINSServer1);
    EXPECT_EQ("Field laptop", config->Record().ComputerDescription);  // the rest is read
}

// --- Profiles ------------------------------------------------------------------------

class NetConfig2KRoundTrip : public NetConfig2KTest,
                             public ::testing::WithParamInterface<const char*> {};

TEST_P(NetConfig2KRoundTrip, AProfileSavedFromTheMachineReadsBackIntoTheSameRecord) {
    Load(GetParam());
    auto saved = Capture();
    saved->Assign(&NetRecord::NTDomainUserName, "jsmith");
    saved->Assign(&NetRecord::NTDomainPassword, "pa55, word");
    const std::string file = TempProfile("roundtrip.rwz");
    saved->SaveConfigurationfile(file);

    auto read = Capture();
    read->Assign(&NetRecord::IPAddress, "9.9.9.9");
    read->Assign(&NetRecord::IPMask, "255.0.0.0");
    using N = NetRecord;
    for (NetText field :
         {&N::DefaultGateway, &N::DNSServers, &N::Host, &N::DomainName, &N::SearchList,
          &N::WINSServer1, &N::WINSServer2, &N::ScopeID, &N::ComputerName, &N::ComputerDescription,
          &N::Workgroup, &N::NTDomain, &N::DefaultPrinter, &N::PrinterPort})
        read->Assign(field, "junk");
    read->Assign(&NetRecord::DNSEnabled, !saved->Record().DNSEnabled);
    read->Assign(&NetRecord::NTLogonEnabled, !saved->Record().NTLogonEnabled);
    read->Assign(&NetRecord::DHCPEnabled, !saved->Record().DHCPEnabled);
    read->Assign(&NetRecord::WINSEnabled, !saved->Record().WINSEnabled);
    read->Assign(&NetRecord::EnableDefaultPrinter, !saved->Record().EnableDefaultPrinter);
    read->LoadConfigurationFile(file);

    // Two equal names pick the later adapter: the same name, perhaps another index.
    const Strings adapters = read->Record().AdapterList;
    if (saved->Record().CurrentAdapter < 0) {
        EXPECT_EQ(-1, read->Record().CurrentAdapter);
    } else {
        EXPECT_EQ(saved->Record().AdapterList[saved->Record().CurrentAdapter],
                  adapters[read->Record().CurrentAdapter]);
    }
    // An empty list is saved as "0.0.0.0".
    auto saving = [](const std::string& list) { return list.empty() ? "0.0.0.0" : list; };
    EXPECT_EQ(saving(saved->Record().IPAddress), read->Record().IPAddress);
    EXPECT_EQ(saving(saved->Record().IPMask), read->Record().IPMask);
    EXPECT_EQ(saved->Record().DefaultGateway, read->Record().DefaultGateway);
    EXPECT_EQ(saved->Record().DNSServers, read->Record().DNSServers);
    EXPECT_EQ(saved->Record().Host, read->Record().Host);
    EXPECT_EQ(saved->Record().DomainName, read->Record().DomainName);
    EXPECT_EQ(saved->Record().SearchList, read->Record().SearchList);
    EXPECT_EQ(saved->Record().WINSServer1, read->Record().WINSServer1);
    EXPECT_EQ(saved->Record().WINSServer2, read->Record().WINSServer2);
    EXPECT_EQ(saved->Record().ScopeID, read->Record().ScopeID);
    EXPECT_EQ(saved->Record().ComputerName, read->Record().ComputerName);
    EXPECT_EQ(saved->Record().ComputerDescription, read->Record().ComputerDescription);
    EXPECT_EQ(saved->Record().Workgroup, read->Record().Workgroup);
    EXPECT_EQ(saved->Record().NTLogonEnabled, read->Record().NTLogonEnabled);
    EXPECT_EQ(saved->Record().NTDomain, read->Record().NTDomain);
    EXPECT_EQ("jsmith", read->Record().NTDomainUserName);
    EXPECT_EQ("pa55, word", read->Record().NTDomainPassword);
    EXPECT_EQ(saved->Record().DNSEnabled, read->Record().DNSEnabled);
    EXPECT_EQ(saved->Record().DHCPEnabled, read->Record().DHCPEnabled);
    EXPECT_EQ(saved->Record().WINSEnabled, read->Record().WINSEnabled);
    EXPECT_EQ(saved->Record().DefaultPrinter, read->Record().DefaultPrinter);
    EXPECT_EQ(saved->Record().PrinterPort, read->Record().PrinterPort);
    EXPECT_EQ(saved->Record().EnableDefaultPrinter, read->Record().EnableDefaultPrinter);
    EXPECT_EQ("", read->Record().LMHostFile);
}

INSTANTIATE_TEST_SUITE_P(Machines, NetConfig2KRoundTrip,
                         ::testing::Values("xp-laptop", "xp-no-network"),
                         [](const ::testing::TestParamInfo<const char*>& info) {
                             std::string name = info.param;
                             for (char& c : name)
                                 if (c == '-') c = '_';
                             return name;
                         });

TEST_F(NetConfig2KTest, WithoutAdaptersTheProfileSaysSo) {
    Load("xp-no-network");
    auto config = Capture();
    const std::string file = TempProfile("none.rwz");
    config->SaveConfigurationfile(file);
    char value[256] = {};
    GetPrivateProfileStringA("Network", "Adapter", "", value, sizeof value, file.c_str());
    EXPECT_STREQ("No Adapters Installed", value);
    GetPrivateProfileStringA("Network", "IPAddress", "", value, sizeof value, file.c_str());
    EXPECT_STREQ("0.0.0.0", value);
}

// Each key of a profile section in file order, as "key=value".
Strings SectionLines(const std::string& astrFile, const char* astrSection) {
    std::vector<char> buffer(8192);
    const DWORD length = GetPrivateProfileSectionA(
        astrSection, buffer.data(), static_cast<DWORD>(buffer.size()), astrFile.c_str());
    Strings lines;
    for (const char* line = buffer.data(); line < buffer.data() + length && *line;
         line += strlen(line) + 1)
        lines.push_back(line);
    return lines;
}

TEST_F(NetConfig2KTest, SavesEveryKeyUnderItsNameInItsOrder) {
    Load("xp-laptop");
    auto config = Capture();
    config->Assign(&NetRecord::NTDomainUserName, "jsmith");
    config->Assign(&NetRecord::LMHostFile, "C:\\lmhosts");  // read from profiles, never written
    const std::string file = TempProfile("golden.rwz");
    config->SaveConfigurationfile(file);
    const std::string account = "NTDomainUserName=" + SectionLines(file, "Network")[7].substr(17);
    EXPECT_NE("NTDomainUserName=jsmith", account);  // scrambled
    EXPECT_EQ((Strings{"Adapter=Local Area Connection",
                       "IPAddress=192.168.101.5,192.168.101.6",
                       "IPMask=255.255.255.0,255.255.255.0",
                       "DefaultGateway=192.168.101.1",
                       "NameServer=192.168.101.2,192.168.101.3",
                       "HostName=laptop1",
                       "Domain=",
                       account,
                       "NTDomainPassword=",
                       "SearchList=",
                       "NameServer1=192.168.101.4",
                       "NameServer2=192.168.101.7",
                       "ScopeID=",
                       "EnableDNS=1",
                       "ComputerName=LAPTOP1",
                       "ComputerDescription=Field laptop",
                       "Workgroup=WORKGROUP",
                       "NTLogon=0",
                       "NTDomain=",
                       "DHCP=0",
                       "WINS=0"}),
              SectionLines(file, "Network"));
    EXPECT_EQ((Strings{"DefaultPrinter=HP LaserJet 4050 Series PCL", "AdvancedSettingsEnabled=0",
                       "PrinterPort=IP_192.168.101.20", "PrinterCaptureDevice=",
                       "PrinterCapturePath=", "ReConnectAtLogon=0", "EnableDefaultPrinter=1"}),
              SectionLines(file, "Printer"));
}

// --- Changed flags -------------------------------------------------------------------

struct FlagCase {
    NetText Text;
    NetFlag Flag;
    std::set<NetSetting> Flagged;
    bool Restart;
};

TEST_F(NetConfig2KTest, EveryAssignmentFlagsItsSetting) {
    using N = NetRecord;
    using S = NetSetting;
    const FlagCase cases[] = {
        {&N::DefaultGateway, nullptr, {S::DefaultGateway}, false},
        {&N::DefaultPrinter, nullptr, {S::DefaultPrinter}, false},
        {&N::PrinterPort, nullptr, {S::AdvPrinterSettings}, false},
        {&N::PrinterCaptureDev, nullptr, {S::AdvPrinterSettings}, false},
        {&N::PrinterCapturePath, nullptr, {S::AdvPrinterSettings}, false},
        {nullptr, &N::PrinterCaptureReconnect, {S::AdvPrinterSettings}, false},
        {nullptr, &N::NTLogonEnabled, {S::NTLogon}, false},
        {&N::NTDomain, nullptr, {S::NTDomain}, false},
        {&N::DomainName, nullptr, {S::Domain}, false},
        {&N::Host, nullptr, {S::Host}, false},
        {&N::LMHostFile, nullptr, {S::LMHostFile}, false},
        {&N::DNSServers, nullptr, {S::DNSServers}, false},
        {&N::WINSServer1, nullptr, {S::WINSServer1}, false},
        {&N::WINSServer2, nullptr, {S::WINSServer2}, false},
        {&N::ScopeID, nullptr, {S::ScopeID}, false},
        {&N::SearchList, nullptr, {S::SearchList}, false},
        {nullptr, &N::DNSEnabled, {S::DNSEnabled}, false},
        {nullptr, &N::DHCPEnabled, {S::DHCPEnabled}, true},
        {&N::ComputerName, nullptr, {S::ComputerName}, false},
        {&N::ComputerDescription, nullptr, {S::ComputerDescription}, false},
        {&N::Workgroup, nullptr, {S::Workgroup}, false},
        {nullptr,
         &N::WINSEnabled,
         {S::WINSEnabled, S::WINSServer1, S::WINSServer2, S::ScopeID},
         true},
        {&N::IPAddress, nullptr, {S::IPAddress}, false},
        {&N::IPMask, nullptr, {S::IPMask}, false},
        {&N::NTDomainUserName, nullptr, {}, false},
        {&N::NTDomainPassword, nullptr, {}, false},
        {nullptr, &N::EnableDefaultPrinter, {}, false},
        {nullptr, &N::EnableAdvPrinterSettings, {}, false},
        {nullptr, &N::DisablePWDCache, {}, false},  // not on this system
        {nullptr, &N::QuickLogon, {}, false},
    };
    Load("xp-laptop");
    auto config = Capture();
    for (const FlagCase& c : cases) {
        config->ResetFlags();
        // The same value as held: an assignment flags all the same.
        if (c.Text) config->Assign(c.Text, config->Record().*c.Text);
        if (c.Flag) config->Assign(c.Flag, true);
        std::set<NetSetting> flagged;
        for (int i = 0; i < static_cast<int>(S::Count); ++i)
            if (config->IsChanged(static_cast<S>(i))) flagged.insert(static_cast<S>(i));
        EXPECT_EQ(c.Flagged, flagged) << &c - cases;
        EXPECT_EQ(c.Restart, config->Record().ResetRequired) << &c - cases;
    }
    EXPECT_FALSE(config->Record().DisablePWDCache);
}

// --- Apply: what is written, and nothing else --------------------------------------------

struct SettingCase {
    const char* Name;
    void (*Assign)(clsNetConfig2K&);
    std::set<std::string> Written;
    Strings Calls;
};

class NetConfig2KApplyOne : public NetConfig2KTest,
                            public ::testing::WithParamInterface<SettingCase> {};

TEST_P(NetConfig2KApplyOne, WritesTheFlaggedSettingOnly) {
    Load("xp-laptop");
    auto config = Capture();
    const auto before = WritableValues(kLaptopWired);
    const auto wirelessBefore = WritableValues(kLaptopWireless);
    GetParam().Assign(*config);
    EXPECT_TRUE(Apply(*config).empty());
    EXPECT_EQ(GetParam().Written, Changed(before, WritableValues(kLaptopWired)));
    // The other adapter's values stay as they were.
    for (const std::string& name : Changed(wirelessBefore, WritableValues(kLaptopWireless)))
        EXPECT_TRUE(GetParam().Written.count(name)) << name;
    EXPECT_EQ(GetParam().Calls, mServices.Functions());
    EXPECT_FALSE(config->Record().ResetRequired);
}

const Strings kTwoPushes = {"DhcpNotifyConfigChange", "DhcpNotifyConfigChange"};
const Strings kJoin = {"NetUnjoinDomain", "NetJoinDomain"};

INSTANTIATE_TEST_SUITE_P(
    Settings, NetConfig2KApplyOne,
    ::testing::Values(
        SettingCase{"Nothing", [](clsNetConfig2K&) {}, {}, {}},
        SettingCase{"IPAddress",
                    [](clsNetConfig2K& c) {
                        c.Assign(&NetRecord::IPAddress, NulList({"10.0.0.5", "10.0.0.6"}));
                    },
                    {"IPAddress"},
                    kTwoPushes},
        SettingCase{"IPMask",
                    [](clsNetConfig2K& c) {
                        c.Assign(&NetRecord::IPMask, NulList({"255.0.0.0", "255.255.0.0"}));
                    },
                    {"SubnetMask"},
                    kTwoPushes},
        SettingCase{
            "DefaultGateway",
            [](clsNetConfig2K& c) { c.Assign(&NetRecord::DefaultGateway, "10.0.0.1,10.0.0.254"); },
            {"DefaultGateway"},
            {}},
        SettingCase{"DHCPEnabled",
                    [](clsNetConfig2K& c) { c.Assign(&NetRecord::DHCPEnabled, true); },
                    {"EnableDHCP"},
                    {}},
        SettingCase{
            "DNSServers",
            [](clsNetConfig2K& c) { c.Assign(&NetRecord::DNSServers, "10.0.0.2,10.0.0.3"); },
            {"NameServer"},
            {}},
        SettingCase{"WINSServer2",
                    [](clsNetConfig2K& c) { c.Assign(&NetRecord::WINSServer2, "10.0.0.9"); },
                    {"NameServerList"},
                    {}},
        SettingCase{"ScopeID",
                    [](clsNetConfig2K& c) { c.Assign(&NetRecord::ScopeID, "SCOPE"); },
                    {"ScopeID"},
                    {}},
        SettingCase{"SearchList",
                    [](clsNetConfig2K& c) { c.Assign(&NetRecord::SearchList, "a.lan,b.lan"); },
                    {"SearchList"},
                    {}},
        SettingCase{"ComputerName",
                    [](clsNetConfig2K& c) { c.Assign(&NetRecord::ComputerName, "ROAMER"); },
                    {"ComputerName"},
                    {}},
        // The system derives the NetBIOS name from the physical DNS host name.
        SettingCase{"Host",
                    [](clsNetConfig2K& c) { c.Assign(&NetRecord::Host, "roamer"); },
                    {"Hostname", "ComputerName"},
                    {"SetComputerNameExA"}},
        SettingCase{"DomainName",
                    [](clsNetConfig2K& c) { c.Assign(&NetRecord::DomainName, "office.lan"); },
                    {"Domain"},
                    {"SetComputerNameExA"}},
        SettingCase{
            "ComputerDescription",
            [](clsNetConfig2K& c) { c.Assign(&NetRecord::ComputerDescription, "Spare laptop"); },
            {},
            {"NetServerSetInfo"}},
        SettingCase{"Workgroup",
                    [](clsNetConfig2K& c) { c.Assign(&NetRecord::Workgroup, "HOME"); },
                    {},
                    kJoin},
        SettingCase{"NTDomain",
                    [](clsNetConfig2K& c) {
                        c.Assign(&NetRecord::NTLogonEnabled, true);
                        c.Assign(&NetRecord::NTDomain, "NORTHWIND");
                        c.Assign(&NetRecord::Workgroup, "");  // ignored while joining a domain
                    },
                    {},
                    kJoin},
        SettingCase{"DefaultPrinter",
                    [](clsNetConfig2K& c) {
                        c.Assign(&NetRecord::DefaultPrinter, "EPSON Stylus C84 Series");
                    },
                    {"Device"},
                    {}},
        SettingCase{"SettingsWithoutEffect",
                    [](clsNetConfig2K& c) {
                        c.Assign(&NetRecord::LMHostFile, "C:\\lmhosts");
                        c.Assign(&NetRecord::DNSEnabled, false);
                        c.Assign(&NetRecord::NTLogonEnabled, false);
                        c.Assign(&NetRecord::PrinterPort, "LPT2:");
                    },
                    {},
                    {}}),
    [](const ::testing::TestParamInfo<SettingCase>& info) { return std::string(info.param.Name); });

struct AddressCase {
    const char* Name;
    std::string Addresses, Masks;
    Strings WrittenAddresses, WrittenMasks;
    Strings Pushed;  // "address/mask" per call, indexes counting from 0
};

class NetConfig2KAddresses : public NetConfig2KTest,
                             public ::testing::WithParamInterface<AddressCase> {};

TEST_P(NetConfig2KAddresses, BadListsAreWrittenCleanAndTheApplyGoesOn) {
    const AddressCase& x = GetParam();
    Load("xp-laptop");
    auto config = Capture();
    config->Assign(&NetRecord::IPAddress, x.Addresses);
    config->Assign(&NetRecord::IPMask, x.Masks);
    config->Assign(&NetRecord::SearchList, "after.lan");
    EXPECT_TRUE(Apply(*config).empty());
    EXPECT_EQ(x.WrittenAddresses,
              ReadStored(HKEY_LOCAL_MACHINE, InterfaceKey(kLaptopWired), "IPAddress").Entries());
    EXPECT_EQ(x.WrittenMasks,
              ReadStored(HKEY_LOCAL_MACHINE, InterfaceKey(kLaptopWired), "SubnetMask").Entries());
    Strings pushed;
    for (const bench::StandInCall& call : mServices.Calls("DhcpNotifyConfigChange"))
        pushed.push_back(call["index"] + ":" + call["address"] + "/" + call["mask"]);
    EXPECT_EQ(x.Pushed, pushed);
    EXPECT_EQ("after.lan", ReadStored(HKEY_LOCAL_MACHINE, kTcpipParameters, "SearchList").Text());
}

const std::string kNul(1, '\0');

INSTANTIATE_TEST_SUITE_P(
    Lists, NetConfig2KAddresses,
    ::testing::Values(AddressCase{"Empty", "", "", {"0.0.0.0"}, {"0.0.0.0"}, {}},
                      AddressCase{"BlanksAndEmptyEntries",
                                  " 10.0.0.5 " + kNul + kNul + "10.0.0.6,",
                                  "255.0.0.0" + kNul + " 255.255.0.0",
                                  {"10.0.0.5", "10.0.0.6"},
                                  {"255.0.0.0", "255.255.0.0"},
                                  {"0:10.0.0.5/255.0.0.0", "1:10.0.0.6/255.255.0.0"}},
                      AddressCase{"MoreMasksThanAddresses",
                                  "10.0.0.5",
                                  NulList({"255.0.0.0", "255.255.0.0"}),
                                  {"10.0.0.5"},
                                  {"255.0.0.0", "255.255.0.0"},
                                  {"0:10.0.0.5/255.0.0.0"}},
                      AddressCase{"FewerMasksThanAddresses",
                                  NulList({"10.0.0.5", "10.0.0.6"}),
                                  "255.0.0.0",
                                  {"10.0.0.5", "10.0.0.6"},
                                  {"255.0.0.0"},
                                  {"0:10.0.0.5/255.0.0.0"}},
                      AddressCase{"NoMasks",
                                  NulList({"10.0.0.5", "10.0.0.6"}),
                                  "",
                                  {"10.0.0.5", "10.0.0.6"},
                                  {"0.0.0.0"},
                                  {}}),
    [](const ::testing::TestParamInfo<AddressCase>& info) { return std::string(info.param.Name); });

TEST_F(NetConfig2KTest, WritesDhcpNameServersAndWinsInTheirForms) {
    Load("xp-laptop");
    auto config = Capture();
    config->Assign(&NetRecord::DHCPEnabled, true);
    config->Assign(&NetRecord::DNSServers, "10.0.0.2,10.0.0.3");
    config->Assign(&NetRecord::WINSServer1, "");
    config->Assign(&NetRecord::WINSServer2, "10.0.0.9");
    EXPECT_TRUE(Apply(*config).empty());

    const StoredValue dhcp =
        ReadStored(HKEY_LOCAL_MACHINE, InterfaceKey(kLaptopWired), "EnableDHCP");
    EXPECT_EQ(static_cast<DWORD>(REG_DWORD), dhcp.Type);
    EXPECT_EQ(1u, dhcp.Number());
    const StoredValue dns =
        ReadStored(HKEY_LOCAL_MACHINE, InterfaceKey(kLaptopWired), "NameServer");
    EXPECT_EQ(static_cast<DWORD>(REG_SZ), dns.Type);
    EXPECT_EQ("10.0.0.2,10.0.0.3", dns.Text());
    // An empty primary server would hide the secondary one.
    const StoredValue wins =
        ReadStored(HKEY_LOCAL_MACHINE, NetBTInterfaceKey(kLaptopWired), "NameServerList");
    EXPECT_EQ(static_cast<DWORD>(REG_MULTI_SZ), wins.Type);
    EXPECT_EQ(Strings{"10.0.0.9"}, wins.Entries());
}

TEST_F(NetConfig2KTest, SwitchingWinsWritesTheServersAndTheScopeOfTheRecord) {
    Load("xp-laptop");
    auto config = Capture();
    // Straight into the record, unflagged, as a profile puts them.
    const std::string file = TempProfile("wins.rwz");
    WritePrivateProfileStringA("Network", "NameServer1", "10.9.9.1", file.c_str());
    WritePrivateProfileStringA("Network", "NameServer2", "10.9.9.2", file.c_str());
    WritePrivateProfileStringA("Network", "ScopeID", "FIELD", file.c_str());
    config->LoadConfigurationFile(file);
    EXPECT_FALSE(config->IsChanged(NetSetting::WINSServer1));

    config->Assign(&NetRecord::WINSEnabled, true);
    EXPECT_TRUE(config->Record().ResetRequired);
    EXPECT_TRUE(config->IsChanged(NetSetting::WINSServer1));
    EXPECT_TRUE(config->IsChanged(NetSetting::WINSServer2));
    EXPECT_TRUE(config->IsChanged(NetSetting::ScopeID));
    EXPECT_TRUE(Apply(*config).empty());
    EXPECT_FALSE(config->Record().ResetRequired);
    EXPECT_EQ((Strings{"10.9.9.1", "10.9.9.2"}),
              ReadStored(HKEY_LOCAL_MACHINE, NetBTInterfaceKey(kLaptopWired), "NameServerList")
                  .Entries());
    EXPECT_EQ("FIELD", ReadStored(HKEY_LOCAL_MACHINE, kNetBTParameters, "ScopeID").Text());
}

TEST_F(NetConfig2KTest, OnlyDhcpAndWinsChangesNeedARestart) {
    Load("xp-laptop");
    auto config = Capture();
    config->Assign(&NetRecord::IPAddress, "10.0.0.5");
    config->Assign(&NetRecord::ComputerName, "ROAMER");
    EXPECT_FALSE(config->Record().ResetRequired);
    config->Assign(&NetRecord::DHCPEnabled, false);  // also when the value stays
    EXPECT_TRUE(config->Record().ResetRequired);
    config->ResetFlags();
    EXPECT_FALSE(config->Record().ResetRequired);
    EXPECT_FALSE(config->IsChanged(NetSetting::IPAddress));
}

TEST_F(NetConfig2KTest, WithoutAnAdapterOrItsKeyTheAdapterSettingsArePassedOver) {
    for (const char* machine : {"xp-no-network", "xp-laptop"}) {
        SCOPED_TRACE(machine);
        Load(machine);
        RawDeleteTree(HKEY_LOCAL_MACHINE, InterfaceKey(kLaptopWired));
        auto config = Capture();
        mServices.ClearCalls();
        config->Assign(&NetRecord::IPAddress, "10.0.0.5");
        config->Assign(&NetRecord::DHCPEnabled, true);
        config->Assign(&NetRecord::DefaultGateway, "10.0.0.1");
        config->Assign(&NetRecord::SearchList, "after.lan");
        EXPECT_TRUE(Apply(*config).empty());
        HKEY key = nullptr;
        EXPECT_NE(ERROR_SUCCESS,
                  RegOpenKeyExA(HKEY_LOCAL_MACHINE, InterfaceKey(kLaptopWired).c_str(), 0, KEY_READ,
                                &key));
        HKEY interfaces = nullptr;
        if (RegOpenKeyExA(HKEY_LOCAL_MACHINE,
                          (std::string(kTcpipParameters) + "\\Interfaces").c_str(), 0, KEY_READ,
                          &interfaces) == ERROR_SUCCESS) {
            DWORD values = 0;
            RegQueryInfoKeyA(interfaces, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                             &values, nullptr, nullptr, nullptr, nullptr);
            EXPECT_EQ(0u, values) << "written into the Interfaces key itself";
            RegCloseKey(interfaces);
        }
        EXPECT_EQ("after.lan",
                  ReadStored(HKEY_LOCAL_MACHINE, kTcpipParameters, "SearchList").Text());
    }
}

TEST_F(NetConfig2KTest, AppliesInTheFixedOrderAndLogsWhatItDid) {
    Load("xp-laptop");
    auto config = Capture();
    config->Assign(&NetRecord::SearchList, "a.lan");
    config->Assign(&NetRecord::DNSEnabled, true);
    config->Assign(&NetRecord::ScopeID, "");
    config->Assign(&NetRecord::WINSServer2, "10.0.0.9");
    config->Assign(&NetRecord::WINSServer1, "10.0.0.8");
    config->Assign(&NetRecord::WINSEnabled, true);
    config->Assign(&NetRecord::DNSServers, "10.0.0.2");
    config->Assign(&NetRecord::LMHostFile, "");
    config->Assign(&NetRecord::IPMask, "255.0.0.0");
    config->Assign(&NetRecord::IPAddress, "10.0.0.5");
    config->Assign(&NetRecord::DefaultGateway, "10.0.0.1");
    config->Assign(&NetRecord::DHCPEnabled, false);
    config->Assign(&NetRecord::Host, "roamer");
    config->Assign(&NetRecord::DomainName, "office.lan");
    config->Assign(&NetRecord::Workgroup, "HOME");
    config->Assign(&NetRecord::NTDomain, "NORTHWIND");
    config->Assign(&NetRecord::NTLogonEnabled, false);
    config->Assign(&NetRecord::ComputerDescription, "Spare");
    config->Assign(&NetRecord::ComputerName, "ROAMER");
    config->Assign(&NetRecord::DefaultPrinter, "EPSON Stylus C84 Series");
    LogWatch log;
    EXPECT_TRUE(Apply(*config).empty());

    Strings operations;
    for (const std::string& line : log.Lines()) {
        const std::string head = "clsNetConfig2K - Set";
        if (line.rfind(head, 0) == 0 &&
            line.find_first_of(" :=[", head.size()) == std::string::npos)
            operations.push_back(line.substr(17));
    }
    EXPECT_EQ((Strings{"SetComputerName",   "SetComputerDescription",
                       "SetNTLogon",        "SetNTDomain",
                       "SetWorkgroup",      "SetDomain",
                       "SetHost",           "SetDHCPEnabled",
                       "SetDefaultGateway", "SetIPAddress",
                       "SetIPMask",         "SetLMHostFile",
                       "SetDNSServers",     "SetWINSEnabled",
                       "SetWINSServer1",    "SetWINSServer2",
                       "SetWINSServer1",    "SetScopeID",
                       "SetSearchList",     "SetDNSEnabled",
                       "SetDefaultPrinter", "SetAdvPrinterSettings"}),
              operations);
    const Strings lines = log.Lines();
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ("clsNetConfig2K - ApplyConfiguration", lines.front());
    for (const std::string& line :
         {std::string("clsNetConfig2K - SetComputerName = ROAMER"),
          std::string("clsNetConfig2K - SetComputerName:RC = 1"),
          std::string("clsNetConfig2K - SetHost = roamer"),
          std::string("clsNetConfig2K - SetHost:RC = 1"),
          std::string("clsNetConfig2K - SetDomain = office.lan"),
          std::string("clsNetConfig2K - SetDomain:RC = 1"),
          std::string("clsNetConfig2K - SetWorkgroup: NetUnjoinDomain RC = 0"),
          std::string("clsNetConfig2K - SetWorkgroup: NetJoinDomain RC = 0"),
          std::string("clsNetConfig2K - SetWINSServer(s) = 10.0.0.8,10.0.0.9"),
          "clsNetConfig2K - SetIPAddressAndMask[" + std::string(kLaptopWired) + "]:RC = 0"})
        EXPECT_TRUE(log.Contains(line)) << line;
    // The host and domain are the physical DNS names.
    const auto names = mServices.Calls("SetComputerNameExA");
    ASSERT_EQ(2u, names.size());
    EXPECT_EQ("6", names[0]["type"]);
    EXPECT_EQ("5", names[1]["type"]);
}

// --- Membership and description ----------------------------------------------------------

struct JoinCase {
    const char* Name;
    bool Domain;
    DWORD Unjoin, Join;
    const char* User;
    Strings Calls;
    Strings Box;  // the texts of the one box shown, empty for none
};

class NetConfig2KJoin : public NetConfig2KTest, public ::testing::WithParamInterface<JoinCase> {};

TEST_P(NetConfig2KJoin, JoinsOrShowsTheRefusal) {
    const JoinCase& x = GetParam();
    Load("xp-laptop");
    auto config = Capture();
    mServices.Answer("NetUnjoinDomain", {x.Unjoin}).Answer("NetJoinDomain", {x.Join});
    config->Assign(&NetRecord::NTLogonEnabled, x.Domain);
    if (x.Domain) {
        config->Assign(&NetRecord::NTDomain, "NORTHWIND");
        config->Assign(&NetRecord::NTDomainUserName, x.User);
        config->Assign(&NetRecord::NTDomainPassword, "pa55");
    } else {
        config->Assign(&NetRecord::Workgroup, "HOME");
    }
    // Both are flagged, as the tab flags both; only one of them acts.
    config->Assign(&NetRecord::NTDomain, config->Record().NTDomain);
    config->Assign(&NetRecord::Workgroup, config->Record().Workgroup);
    config->Assign(&NetRecord::SearchList, "after.lan");
    const Strings boxes = Apply(*config);

    EXPECT_EQ(x.Calls, mServices.Functions());
    const auto unjoin = mServices.Calls("NetUnjoinDomain");
    ASSERT_EQ(1u, unjoin.size());
    EXPECT_EQ("(null)", unjoin[0]["server"]);
    EXPECT_EQ("(null)", unjoin[0]["account"]);
    EXPECT_EQ("(null)", unjoin[0]["password"]);
    EXPECT_EQ("0", unjoin[0]["options"]);
    for (const bench::StandInCall& join : mServices.Calls("NetJoinDomain")) {
        EXPECT_EQ("(null)", join["server"]);
        EXPECT_EQ("(null)", join["ou"]);
        EXPECT_EQ(x.Domain ? "NORTHWIND" : "HOME", join["domain"]);
        EXPECT_EQ(x.Domain ? "33" : "0", join["options"]);
        const bool account = x.Domain && std::string(x.User) != "";
        EXPECT_EQ(account ? x.User : "(null)", join["account"]);
        EXPECT_EQ(account ? "pa55" : "(null)", join["password"]);
    }
    if (x.Box.empty()) {
        EXPECT_TRUE(boxes.empty());
    } else {
        ASSERT_EQ(1u, boxes.size());
        EXPECT_EQ(BoxText(x.Box), boxes[0]);
    }
    // The apply goes on after a refusal.
    EXPECT_EQ("after.lan", ReadStored(HKEY_LOCAL_MACHINE, kTcpipParameters, "SearchList").Text());
}

const char kCannotLeaveWorkgroup[] = "Could not disconnect from the current workgroup.";
const char kCannotLeaveDomain[] = "Could not disconnect from the current domain.";
const char kNotChanged[] = "Your connection method has not been changed.";
const char kController[] = "A domain controller cannot have its connection method modified.";
const char kDomainError[] = "There was an error attempting to join the domain.";
const char kWorkgroupError[] = "There was an error attempting to join the workgroup.";
const Strings kUnjoinOnly = {"NetUnjoinDomain"};

INSTANTIATE_TEST_SUITE_P(
    Membership, NetConfig2KJoin,
    ::testing::Values(
        JoinCase{"DomainWithAccount", true, 0, 0, "jsmith", kJoin, {}},
        JoinCase{"DomainWithTheMachinesCredentials", true, 0, 0, "", kJoin, {}},
        JoinCase{"DomainAfterAFailedUnjoin", true, 2692, 0, "jsmith", kJoin, {}},
        JoinCase{"DomainUnjoinRefused",
                 true,
                 87,
                 0,
                 "jsmith",
                 kUnjoinOnly,
                 {kCannotLeaveWorkgroup, kNotChanged}},
        JoinCase{"DomainOnAController", true, 2693, 0, "jsmith", kUnjoinOnly, {kController}},
        JoinCase{"DomainDoesNotExist",
                 true,
                 0,
                 1355,
                 "jsmith",
                 kJoin,
                 {kDomainError, "The specified domain does not exist."}},
        JoinCase{"DomainBadPassword",
                 true,
                 0,
                 1326,
                 "jsmith",
                 kJoin,
                 {kDomainError, "Unknown user name or bad password."}},
        JoinCase{"Workgroup", false, 0, 0, "", kJoin, {}},
        JoinCase{"WorkgroupAfterAFailedUnjoinIsSilent", false, 2692, 0, "", kUnjoinOnly, {}},
        JoinCase{"WorkgroupUnjoinRefused",
                 false,
                 87,
                 0,
                 "",
                 kUnjoinOnly,
                 {kCannotLeaveDomain, kNotChanged}},
        JoinCase{"WorkgroupOnAController", false, 2693, 0, "", kUnjoinOnly, {kController}},
        JoinCase{"WorkgroupDoesNotExist",
                 false,
                 0,
                 2695,
                 "",
                 kJoin,
                 {kWorkgroupError, "The specified workgroup does not exist."}},
        JoinCase{"WorkgroupUndefinedError",
                 false,
                 0,
                 1234,
                 "",
                 kJoin,
                 {kWorkgroupError, "Undefined Error (1234)."}}),
    [](const ::testing::TestParamInfo<JoinCase>& info) { return std::string(info.param.Name); });

TEST_F(NetConfig2KTest, TheDescriptionGoesToTheServerServiceWithItsRefusalShown) {
    Load("xp-laptop");
    auto config = Capture();
    mServices.Answer("NetServerSetInfo", {0, 5, 2351});
    const char kDescriptionError[] =
        "There was an error attempting to set the computer description.";
    const Strings expected[] = {
        {},
        {BoxText({kDescriptionError, "Access denied (check your User Name and Password)."})},
        {BoxText({kDescriptionError, "Undefined Error (2351)."})}};
    for (const Strings& boxes : expected) {
        config->Assign(&NetRecord::ComputerDescription, "Spare laptop");
        EXPECT_EQ(boxes, Apply(*config));
    }
    const auto calls = mServices.Calls("NetServerSetInfo");
    ASSERT_EQ(3u, calls.size());
    EXPECT_EQ("1005", calls[0]["level"]);
    EXPECT_EQ("Spare laptop", calls[0]["comment"]);
}

TEST(NetResultText, HasATextForEveryKnownCode) {
    const std::pair<DWORD, const char*> codes[] = {
        {5, "Access denied (check your User Name and Password)."},
        {87, "Your connection method has not been changed."},
        {1323,
         "Unable to update the password. The value provided as the current password is "
         "incorrect."},
        {1326, "Unknown user name or bad password."},
        {1327, "User account restriction."},
        {1328, "Account logon time restriction violation."},
        {1329, "User not allowed to logon to this computer."},
        {1331, "Account currently disabled."},
        {1332, "No mapping between account names and security IDs was done."},
        {1355, "The specified domain does not exist."},
        {1793, "Account expired."},
        {2691, "This computer is already joined to a domain."},
        {2695, "The specified workgroup does not exist."},
        {0, "Undefined Error (0)."},
        {127, "Undefined Error (127)."}};
    for (const auto& code : codes) EXPECT_EQ(code.second, NetResultText(code.first)) << code.first;
}

// --- Printers --------------------------------------------------------------------------

TEST_F(NetConfig2KTest, TheDefaultPrinterIsSetThroughTheWindowsSection) {
    Load("xp-laptop");
    auto config = Capture();
    config->Assign(&NetRecord::DefaultPrinter, "EPSON Stylus C84 Series");
    config->GetAdvPrinterSettings();
    EXPECT_EQ("USB001", config->Record().PrinterPort);
    EXPECT_TRUE(Apply(*config).empty());
    const std::string windows = "Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows";
    EXPECT_EQ("EPSON Stylus C84 Series,winspool,Ne01:",
              ReadStored(HKEY_CURRENT_USER, windows, "Device").Text());
    EXPECT_EQ("EPSON Stylus C84 Series", Capture()->Record().DefaultPrinter);

    // Not when the profile leaves the default printer alone, nor for a printer
    // without a driver and port.
    config->Assign(&NetRecord::EnableDefaultPrinter, false);
    config->Assign(&NetRecord::DefaultPrinter, "HP LaserJet 4050 Series PCL");
    Apply(*config);
    config->Assign(&NetRecord::EnableDefaultPrinter, true);
    config->Assign(&NetRecord::DefaultPrinter, "Gone Printer");
    Apply(*config);
    EXPECT_EQ("EPSON Stylus C84 Series,winspool,Ne01:",
              ReadStored(HKEY_CURRENT_USER, windows, "Device").Text());
}

}  // namespace
}  // namespace rwz::test
