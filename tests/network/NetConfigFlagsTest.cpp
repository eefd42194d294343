// The changed flags, the apply walk, the capture sequence and the adapter
// selection that every network back end shares.
#include <gtest/gtest.h>

#include <functional>

#include "network/TestNetConfig.h"
#include "platform/modUtilities.h"

namespace rwz::test {
namespace {

using S = NetSetting;
using Calls = std::vector<std::string>;

FakeMachine TwoAdapterMachine() {
    FakeMachine machine;
    machine.Adapters = {
        {"Wired", "{WIRED}", "10.0.0.5", "255.0.0.0", "10.0.0.1", "10.0.0.2", "10.0.0.3", "",
         false},
        {"Wireless", "{WLAN}", "192.168.1.9", "255.255.255.0", "192.168.1.1", "", "", "", true}};
    return machine;
}

struct Assignment {
    const char* Name;
    std::function<void(INetConfig&)> Assign;
    S Flag;
};

// Every assignment that flags its setting, and the setting it flags.
const std::vector<Assignment>& FlaggingAssignments() {
    static const std::vector<Assignment> list = {
        {"DomainName", [](INetConfig& n) { n.SetDomainName("d"); }, S::Domain},
        {"Host", [](INetConfig& n) { n.SetHost("h"); }, S::Host},
        {"LMHostFile", [](INetConfig& n) { n.SetLMHostFile("l"); }, S::LMHostFile},
        {"DNSServers", [](INetConfig& n) { n.SetDNSServers("1.1.1.1"); }, S::DNSServers},
        {"WINSServer1", [](INetConfig& n) { n.SetWINSServer1("1.1.1.2"); }, S::WINSServer1},
        {"WINSServer2", [](INetConfig& n) { n.SetWINSServer2("1.1.1.3"); }, S::WINSServer2},
        {"ScopeID", [](INetConfig& n) { n.SetScopeID("s"); }, S::ScopeID},
        {"SearchList", [](INetConfig& n) { n.SetSearchList("a.lan"); }, S::SearchList},
        {"DNSEnabled", [](INetConfig& n) { n.SetDNSEnabled(true); }, S::DNSEnabled},
        {"DHCPEnabled", [](INetConfig& n) { n.SetDHCPEnabled(false); }, S::DHCPEnabled},
        {"WINSEnabled", [](INetConfig& n) { n.SetWINSEnabled(true); }, S::WINSEnabled},
        {"ComputerName", [](INetConfig& n) { n.SetComputerName("PC"); }, S::ComputerName},
        {"ComputerDescription", [](INetConfig& n) { n.SetComputerDescription("c"); },
         S::ComputerDescription},
        {"Workgroup", [](INetConfig& n) { n.SetWorkgroup("WG"); }, S::Workgroup},
        {"NTLogonEnabled", [](INetConfig& n) { n.SetNTLogonEnabled(true); }, S::NTLogon},
        {"NTDomain", [](INetConfig& n) { n.SetNTDomain("DOM"); }, S::NTDomain},
        {"DefaultPrinter", [](INetConfig& n) { n.SetDefaultPrinter("P"); }, S::DefaultPrinter},
        {"DefaultGateway", [](INetConfig& n) { n.SetDefaultGateway("1.1.1.4"); },
         S::DefaultGateway},
        {"IPAddress", [](INetConfig& n) { n.SetIPAddress("1.1.1.5"); }, S::IPAddress},
        {"IPMask", [](INetConfig& n) { n.SetIPMask("255.0.0.0"); }, S::IPMask},
        {"PrinterPort", [](INetConfig& n) { n.SetPrinterPort("LPT1:"); }, S::AdvPrinterSettings},
        {"PrinterCaptureDev", [](INetConfig& n) { n.SetPrinterCaptureDev("LPT1"); },
         S::AdvPrinterSettings},
        {"PrinterCapturePath", [](INetConfig& n) { n.SetPrinterCapturePath("\\\\s\\p"); },
         S::AdvPrinterSettings},
        {"PrinterCaptureReconnect", [](INetConfig& n) { n.SetPrinterCaptureReconnect(false); },
         S::AdvPrinterSettings},
        {"DisablePWDCache", [](INetConfig& n) { n.SetDisablePWDCache(true); }, S::DisablePWDCache},
        {"QuickLogon", [](INetConfig& n) { n.SetQuickLogon(true); }, S::QuickLogon},
    };
    return list;
}

std::vector<S> FlaggedSettings(const clsNetConfigBase& net) {
    std::vector<S> flagged;
    for (int i = 0; i < static_cast<int>(S::Count); ++i) {
        if (net.IsChanged(static_cast<S>(i))) flagged.push_back(static_cast<S>(i));
    }
    return flagged;
}

TEST(NetConfigFlagsTest, EachAssignmentFlagsExactlyItsOwnSetting) {
    for (const Assignment& a : FlaggingAssignments()) {
        TestNetConfig backend(Particulars9x());  // the only family with every setting
        INetConfig& net = backend;
        a.Assign(net);
        EXPECT_EQ(FlaggedSettings(backend), std::vector<S>{a.Flag}) << a.Name;
        EXPECT_FALSE(net.ResetRequired()) << a.Name;
    }
}

TEST(NetConfigFlagsTest, AssigningTheValueAlreadyHeldFlagsToo) {
    TestNetConfig backend;
    backend.Machine = TwoAdapterMachine();
    INetConfig& net = backend;
    net.LoadConfiguration();
    net.SetComputerName(net.ComputerName());
    net.SetDNSEnabled(net.DNSEnabled());
    EXPECT_EQ(FlaggedSettings(backend), (std::vector<S>{S::ComputerName, S::DNSEnabled}));
}

TEST(NetConfigFlagsTest, SomeAssignmentsFlagNothing) {
    TestNetConfig backend;
    backend.Machine = TwoAdapterMachine();
    INetConfig& net = backend;
    net.LoadConfiguration();
    net.SetNTDomainUserName("user");
    net.SetNTDomainPassword("secret");
    net.SetEnableDefaultPrinter(false);
    net.SetEnableAdvPrinterSettings(true);
    net.SetCurrentAdapter(1);
    net.SetCurrentAdapterNoRefresh(0);
    EXPECT_TRUE(FlaggedSettings(backend).empty());
    EXPECT_EQ(net.NTDomainUserName(), "user");
    EXPECT_EQ(net.NTDomainPassword(), "secret");
    EXPECT_FALSE(net.EnableDefaultPrinter());
    EXPECT_TRUE(net.EnableAdvPrinterSettings());
}

TEST(NetConfigFlagsTest, LogonOptionsExistOnlyWhereTheBackEndHasThem) {
    for (const NetConfigParticulars& p : {Particulars2K(), ParticularsNT()}) {
        TestNetConfig backend(p);
        INetConfig& net = backend;
        net.SetDisablePWDCache(true);
        net.SetQuickLogon(true);
        EXPECT_FALSE(net.DisablePWDCache()) << p.ClassName;
        EXPECT_FALSE(net.QuickLogon()) << p.ClassName;
        EXPECT_TRUE(FlaggedSettings(backend).empty()) << p.ClassName;
    }
}

TEST(NetConfigFlagsTest, BackEndParticularsRideOnAssignmentsAndResetFlagsClearsThem) {
    TestNetConfig backend;  // WINS carries servers and scope, and needs a restart
    INetConfig& net = backend;
    net.SetWINSEnabled(true);
    EXPECT_EQ(FlaggedSettings(backend),
              (std::vector<S>{S::WINSEnabled, S::WINSServer1, S::WINSServer2, S::ScopeID}));
    EXPECT_TRUE(net.ResetRequired());
    net.ResetFlags();
    EXPECT_TRUE(FlaggedSettings(backend).empty());
    EXPECT_FALSE(net.ResetRequired());
}

// --- Applying --------------------------------------------------------------

TEST(NetConfigApplyTest, CallsOnlyFlaggedSetOperationsInTheBackEndsOrder) {
    TestNetConfig backend;
    backend.Machine = TwoAdapterMachine();
    INetConfig& net = backend;
    net.LoadConfiguration();
    backend.Calls.clear();

    net.SetIPMask("255.255.0.0");
    net.SetHost("laptop");
    net.SetIPAddress("10.1.0.5");
    net.SetComputerName("LAPTOP");
    net.ApplyConfiguration();

    EXPECT_EQ(backend.Calls, (Calls{"SetComputerName", "SetHost", "SetIPAddress", "SetIPMask",
                                    "SetAdvPrinterSettings", "ResetFlags"}));
    EXPECT_TRUE(FlaggedSettings(backend).empty());

    backend.Calls.clear();
    net.ApplyConfiguration();  // nothing left to apply
    EXPECT_EQ(backend.Calls, (Calls{"SetAdvPrinterSettings", "ResetFlags"}));
}

TEST(NetConfigApplyTest, EveryFlaggedSettingIsWrittenOnceInEachFamilysOrder) {
    struct Family {
        NetConfigParticulars Particulars;
        Calls Expected;
    };
    const Family families[] = {
        {Particulars2K(),
         {"SetComputerName",
          "SetComputerDescription",
          "SetNTLogon",
          "SetNTDomain",
          "SetWorkgroup",
          "SetDomain",
          "SetHost",
          "SetDHCPEnabled",
          "SetDefaultGateway",
          "SetIPAddress",
          "SetIPMask",
          "SetLMHostFile",
          "SetDNSServers",
          "SetWINSEnabled",
          "SetWINSServer1",
          "SetWINSServer2",
          "SetScopeID",
          "SetSearchList",
          "SetDNSEnabled",
          "SetDefaultPrinter",
          "SetAdvPrinterSettings",
          "ResetFlags"}},
        {ParticularsNT(),
         {"SetComputerName", "SetComputerDescription", "SetDomain", "SetHost", "SetIPAddress",
          "SetIPMask", "SetLMHostFile", "SetDNSServers", "SetWINSEnabled", "SetWINSServer1",
          "SetWINSServer2", "SetScopeID", "SetSearchList", "SetDNSEnabled", "SetDHCPEnabled",
          "SetDefaultPrinter", "SetDefaultGateway", "SetAdvPrinterSettings", "ResetFlags"}},
        {Particulars9x(),
         {"SetComputerName",
          "SetComputerDescription",
          "SetWorkgroup",
          "SetDomain",
          "SetHost",
          "SetIPAddress",
          "SetIPMask",
          "SetLMHostFile",
          "SetDNSServers",
          "SetWINSEnabled",
          "SetWINSServer1",
          "SetWINSServer2",
          "SetScopeID",
          "SetSearchList",
          "SetDNSEnabled",
          "SetDHCPEnabled",
          "SetNTLogon",
          "SetNTDomain",
          "SetDefaultPrinter",
          "SetDefaultGateway",
          "SetDisablePWDCache",
          "SetQuickLogon",
          "SetAdvPrinterSettings",
          "ResetFlags"}},
    };
    for (const Family& family : families) {
        TestNetConfig backend(family.Particulars);
        INetConfig& net = backend;
        for (const Assignment& a : FlaggingAssignments()) a.Assign(net);
        net.ApplyConfiguration();
        EXPECT_EQ(backend.Calls, family.Expected) << family.Particulars.ClassName;
    }
}

TEST(NetConfigApplyTest, DefaultPrinterNeedsItsFlagAndTheEnableSwitch) {
    struct Case {
        bool Assign;
        bool Enable;
        bool Called;
    };
    for (const Case c :
         {Case{true, true, true}, Case{true, false, false}, Case{false, true, false}}) {
        TestNetConfig backend;
        INetConfig& net = backend;
        if (c.Assign) net.SetDefaultPrinter("Office Laser");
        net.SetEnableDefaultPrinter(c.Enable);
        net.ApplyConfiguration();
        const Calls sets = backend.CallsStartingWith("Set");
        EXPECT_EQ(std::count(sets.begin(), sets.end(), "SetDefaultPrinter"), c.Called ? 1 : 0);
        EXPECT_EQ(sets.back(), "SetAdvPrinterSettings");
        EXPECT_EQ(backend.Calls.back(), "ResetFlags");
    }
}

// --- Capturing the machine and choosing an adapter -------------------------

TEST(NetConfigCaptureTest, LoadConfigurationReadsEverySettingThenClearsTheFlags) {
    const Calls common = {"EnumerateAdapters", "GetComputerName", "GetComputerDescription",
                          "GetWorkgroup",      "GetDomain",       "GetHost",
                          "GetIPAddress",      "GetIPMask",       "GetLMHostFile",
                          "GetDNSServers",     "GetWINSEnabled",  "GetWINSServer1",
                          "GetWINSServer2",    "GetScopeID",      "GetSearchList",
                          "GetDNSEnabled",     "GetDHCPEnabled",  "GetNTLogon",
                          "GetNTDomain",       "GetPrinterList",  "GetDefaultPrinter",
                          "GetDefaultGateway"};
    for (const NetConfigParticulars& p : {Particulars2K(), ParticularsNT(), Particulars9x()}) {
        TestNetConfig backend(p);
        backend.Machine = TwoAdapterMachine();
        INetConfig& net = backend;
        net.SetHost("before");
        net.LoadConfiguration();

        Calls expected = common;
        if (p.LogonOptions)
            expected.insert(expected.end(), {"GetDisablePWDCache", "GetQuickLogon"});
        expected.insert(expected.end(), {"GetAdvPrinterSettings", "ResetFlags"});
        EXPECT_EQ(backend.Calls, expected) << p.ClassName;
        EXPECT_TRUE(FlaggedSettings(backend).empty()) << p.ClassName;
        EXPECT_EQ(net.Host(), "machinehost");
        EXPECT_EQ(net.DisablePWDCache(), p.LogonOptions) << p.ClassName;
    }
}

TEST(NetConfigCaptureTest, SelectingAnAdapterReReadsItsSettings) {
    TestNetConfig backend;
    backend.Machine = TwoAdapterMachine();
    INetConfig& net = backend;
    net.LoadConfiguration();
    ASSERT_EQ(net.CurrentAdapter(), 0);
    EXPECT_EQ(backend.CurrentAdapterKey(), "{WIRED}");
    backend.Calls.clear();

    net.SetCurrentAdapter(1);
    EXPECT_EQ(backend.Calls, (Calls{"GetDNSEnabled", "GetDNSServers", "GetIPAddress", "GetIPMask",
                                    "GetDefaultGateway", "GetDHCPEnabled", "GetWINSServer1",
                                    "GetWINSServer2", "GetWINSEnabled"}));
    EXPECT_EQ(net.CurrentAdapter(), 1);
    EXPECT_EQ(net.IPAddress(), "192.168.1.9");
    EXPECT_TRUE(net.DHCPEnabled());
    EXPECT_FALSE(net.WINSEnabled());

    backend.Calls.clear();
    net.SetCurrentAdapterNoRefresh(0);
    EXPECT_TRUE(backend.Calls.empty());
    EXPECT_EQ(net.CurrentAdapter(), 0);
    EXPECT_EQ(net.IPAddress(), "192.168.1.9");  // still the other adapter's

    // An index that names no adapter changes nothing.
    for (int16_t index : {int16_t{2}, int16_t{-1}, int16_t{-7}}) {
        net.SetCurrentAdapter(index);
        net.SetCurrentAdapterNoRefresh(index);
        EXPECT_EQ(net.CurrentAdapter(), 0);
    }
}

TEST(NetConfigCaptureTest, AdapterListOpensOnTheAdapterAppliedLast) {
    FakeMachine machine = TwoAdapterMachine();
    machine.Adapters.push_back(machine.Adapters[1]);
    machine.Adapters.back().Key = "{WLAN2}";  // two adapters named "Wireless"

    struct Case {
        const char* LastApplied;
        int16_t Expected;
    };
    for (const Case c : {Case{"Wireless", 2}, Case{"Wired", 0}, Case{"Gone", 0}, Case{"", 0}}) {
        SaveProgramSetting(kProductName, "Options", "LastNICApplied", c.LastApplied);
        TestNetConfig backend;
        backend.Machine = machine;
        INetConfig& net = backend;
        net.GetAdapterList();
        EXPECT_EQ(net.CurrentAdapter(), c.Expected) << c.LastApplied;
        EXPECT_EQ(net.AdapterList(), (std::vector<std::string>{"Wired", "Wireless", "Wireless"}));
        EXPECT_EQ(backend.AdapterKeys(),
                  (std::vector<std::string>{"{WIRED}", "{WLAN}", "{WLAN2}"}));
    }
    DeleteProgramSetting(kProductName, "Options", "LastNICApplied");
}

TEST(NetConfigCaptureTest, AMachineWithoutAdaptersHasNoCurrentAdapter) {
    TestNetConfig backend;
    INetConfig& net = backend;
    net.LoadConfiguration();
    EXPECT_EQ(net.CurrentAdapter(), -1);
    EXPECT_TRUE(net.AdapterList().empty());
    EXPECT_EQ(backend.CurrentAdapterKey(), "");
    EXPECT_EQ(net.IPAddress(), "");
}

}  // namespace
}  // namespace rwz::test
