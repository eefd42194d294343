// The adapter walk of Windows 2000/XP/2003 against the simulated machines'
// registries: connection names, disabled adapters, duplicates, damaged data.
#include <gtest/gtest.h>

#include "network/NetworkBench.h"
#include "network/clsNIC2K.h"
#include "platform/modUtilities.h"

namespace rwz::test {
namespace {

const std::string kCards = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\NetworkCards";
const std::string kConnections =
    "SYSTEM\\CurrentControlSet\\Control\\Network\\{4D36E972-E325-11CE-BFC1-08002BE10318}";

struct Walk {
    std::vector<std::string> Names;
    std::vector<std::string> Keys;
};

Walk Enumerate(bool ablnShowDisabled = false) {
    if (ablnShowDisabled) SaveProgramSetting(kProductName, "Options", "ShowDisabledNICS", "1");
    Walk walk;
    clsNIC2K().EnumerateAdapters(walk.Names, walk.Keys);
    return walk;
}

struct MachineAdapters {
    const char* Machine;
    bool ShowDisabled;
    std::vector<std::string> Names;
    std::vector<std::string> Keys;
};

class NIC2KMachines : public ::testing::TestWithParam<MachineAdapters> {};

TEST_P(NIC2KMachines, ListsTheConnectionsInRegistryOrder) {
    const MachineAdapters& expected = GetParam();
    LoadMachine(expected.Machine);
    const Walk walk = Enumerate(expected.ShowDisabled);
    EXPECT_EQ(expected.Names, walk.Names);
    EXPECT_EQ(expected.Keys, walk.Keys);
}

INSTANTIATE_TEST_SUITE_P(
    Machines, NIC2KMachines,
    ::testing::Values(
        // The disabled FireWire adapter is left out unless asked for.
        MachineAdapters{"xp-laptop",
                        false,
                        {"Local Area Connection", "Wireless Network Connection"},
                        {kLaptopWired, kLaptopWireless}},
        MachineAdapters{
            "xp-laptop",
            true,
            {"Local Area Connection", "Wireless Network Connection", "1394 Connection (Disabled)"},
            {kLaptopWired, kLaptopWireless, kLaptopFireWire}},
        // Empty connection names: both cards under their driver's name.
        MachineAdapters{
            "win2k-pro",
            false,
            {"3Com EtherLink XL 90XB/C Adapter Driver", "3Com EtherLink XL 90XB/C Adapter Driver"},
            {kAccountsFirst, kAccountsSecond}},
        MachineAdapters{"win2003-server", false, {"Server LAN"}, {kServerFirst}},
        MachineAdapters{"win2003-server",
                        true,
                        {"Server LAN", "Local Area Connection 2 (Disabled)"},
                        {kServerFirst, kServerSecond}},
        MachineAdapters{"xp-no-network", true, {}, {}}),
    [](const ::testing::TestParamInfo<MachineAdapters>& info) {
        std::string name = info.param.Machine;
        for (char& c : name)
            if (c == '-') c = '_';
        return name + (info.param.ShowDisabled ? "_ShowingDisabled" : "");
    });

TEST(NIC2K, OnlyTheExactOptionValueOneShowsDisabledAdapters) {
    LoadMachine("xp-laptop");
    SaveProgramSetting(kProductName, "Options", "ShowDisabledNICS", "yes");
    EXPECT_EQ(2u, Enumerate().Names.size());
}

TEST(NIC2K, AppendsToListsAlreadyHoldingAdaptersAndLogsTheWalk) {
    LoadMachine("xp-laptop");
    Walk walk;
    walk.Names = {"earlier"};
    walk.Keys = {"{EARLIER}"};
    LogWatch log;
    clsNIC2K().EnumerateAdapters(walk.Names, walk.Keys);
    ASSERT_EQ(3u, walk.Names.size());
    EXPECT_EQ("earlier", walk.Names[0]);
    EXPECT_EQ(kLaptopWireless, walk.Keys[2]);

    // NetworkCards\2 and \3 are the subkeys at positions 0 and 1 (Wine adds none
    // with a connection); the ordinals continue after the earlier entry.
    EXPECT_TRUE(
        log.Contains("clsNIC2K - EnumerateAdapters: Start search at: "
                     "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\"
                     "NetworkCards"));
    const std::vector<std::string> lines = log.Lines();
    auto has = [&](const std::string& tail) {
        for (const std::string& line : lines)
            if (line.size() >= tail.size() &&
                line.compare(line.size() - tail.size(), tail.size(), tail) == 0 &&
                line.rfind("clsNIC2K - EnumerateAdapters[", 0) == 0)
                return true;
        return false;
    };
    EXPECT_TRUE(has("]: Service name (GUID): " + std::string(kLaptopWired)));
    EXPECT_TRUE(has("]: Found NIC 1: Intel(R) PRO/100 VE Network Connection"));
    EXPECT_TRUE(has("]: Display Name: Local Area Connection"));
    EXPECT_TRUE(has("]: Key: " + std::string(kLaptopWired)));
    EXPECT_TRUE(has("]: Found NIC 2: Intel(R) PRO/Wireless 2200BG Network Connection"));
}

// Damaged registries: the adapter concerned is left out, the walk goes on.
struct Damage {
    const char* Name;
    void (*Apply)();
};

class NIC2KDamage : public ::testing::TestWithParam<Damage> {};

TEST_P(NIC2KDamage, LeavesOutTheDamagedAdapterOnly) {
    LoadMachine("xp-laptop");
    GetParam().Apply();
    const Walk walk = Enumerate();
    EXPECT_EQ(std::vector<std::string>{"Wireless Network Connection"}, walk.Names);
    EXPECT_EQ(std::vector<std::string>{kLaptopWireless}, walk.Keys);
}

INSTANTIATE_TEST_SUITE_P(
    Registry, NIC2KDamage,
    ::testing::Values(
        Damage{"NoServiceName",
               [] { DeleteStored(HKEY_LOCAL_MACHINE, kCards + "\\2", "ServiceName"); }},
        Damage{"ServiceNameNotAString",
               [] {
                   WriteStored(HKEY_LOCAL_MACHINE, kCards + "\\2", "ServiceName", REG_DWORD,
                               {1, 0, 0, 0});
               }},
        Damage{"NoConnectionKey",
               [] { RawDeleteTree(HKEY_LOCAL_MACHINE, kConnections + "\\" + kLaptopWired); }},
        Damage{"NoPnpInstance",
               [] {
                   DeleteStored(HKEY_LOCAL_MACHINE,
                                kConnections + "\\" + kLaptopWired + "\\Connection",
                                "PnpInstanceID");
               }},
        // No connection name and a driver without a display name: nothing to show.
        Damage{"NoNameAtAll",
               [] {
                   WriteStoredText(HKEY_LOCAL_MACHINE,
                                   kConnections + "\\" + kLaptopWired + "\\Connection", "Name", "");
                   DeleteStored(HKEY_LOCAL_MACHINE, "SYSTEM\\CurrentControlSet\\Services\\E100B",
                                "DisplayName");
               }}),
    [](const ::testing::TestParamInfo<Damage>& info) { return std::string(info.param.Name); });

TEST(NIC2K, ADisableCountOfZeroIsAnEnabledAdapter) {
    LoadMachine("xp-laptop");
    const std::string control =
        "SYSTEM\\CurrentControlSet\\Enum\\V1394\\NIC1394\\8A51C7002D4E0B00\\Control";
    WriteStored(HKEY_LOCAL_MACHINE, control, "DisableCount", REG_DWORD, {0, 0, 0, 0});
    EXPECT_EQ("1394 Connection", Enumerate().Names.back());
}

struct TypeCase {
    const char* Key;
    const char* Type;
};

struct MachineTypes {
    const char* Machine;
    std::vector<TypeCase> Types;
};

class NIC2KAdapterType : public ::testing::TestWithParam<MachineTypes> {};

TEST_P(NIC2KAdapterType, FromTheMediaTypeOrTheDriversBinding) {
    LoadMachine(GetParam().Machine);
    for (const TypeCase& type : GetParam().Types)
        EXPECT_EQ(type.Type, clsNIC2K().AdapterType(type.Key)) << type.Key;
}

INSTANTIATE_TEST_SUITE_P(
    Machines, NIC2KAdapterType,
    ::testing::Values(
        MachineTypes{
            "xp-laptop",
            {{kLaptopWired, "LAN"}, {kLaptopWireless, "Wireless"}, {kLaptopFireWire, "1394"}}},
        // Windows 2000 keeps no media type: the driver binds to ethernet.
        MachineTypes{"win2k-pro",
                     {{kAccountsSecond, "LAN"}, {"{00000000-0000-0000-0000-000000000000}", ""}}},
        MachineTypes{"xp-no-network", {{"", ""}}}));

}  // namespace
}  // namespace rwz::test
