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

// clang-format off
INSTANTIATE_TEST_SUITE_P(Machines, NIC2KMachines, ::testing::Values(
    // The disabled FireWire adapter is left out unless asked for.
    MachineAdapters{"xp-laptop", false, {"Local Area Connection", "Wireless Network Connection"}, {kLaptopWired, kLaptopWireless}},
    MachineAdapters{"xp-laptop", true, {"Local Area Connection", "Wireless Network Connection", "1394 Connection (Disabled)"}, {kLaptopWired, kLaptopWireless, kLaptopFireWire}},
    // Empty connection names: both cards under their driver's name.
    MachineAdapters{"win2k-pro", false, {"3Com EtherLink XL 90XB/C Adapter Driver", "3Com EtherLink XL 90XB/C Adapter Driver"}, {kAccountsFirst, kAccountsSecond}},
    MachineAdapters{"win2003-server", true, {"Server LAN", "Local Area Connection 2 (Disabled)"}, {kServerFirst, kServerSecond}}),
    [](const ::testing::TestParamInfo<MachineAdapters>& info) {
        std::string name = info.param.Machine;
        for (char& c : name)
            if (c == '-') c = '_';
        return name + (info.param.ShowDisabled ? "_ShowingDisabled" : "");
    });
// clang-format on

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

// clang-format off
INSTANTIATE_TEST_SUITE_P(Registry, NIC2KDamage, ::testing::Values(
    Damage{"NoServiceName", [] { DeleteStored(HKEY_LOCAL_MACHINE, kCards + "\\2", "ServiceName"); }},
    Damage{"NoConnectionKey", [] { RawDeleteTree(HKEY_LOCAL_MACHINE, kConnections + "\\" + kLaptopWired); }},
    Damage{"NoPnpInstance", [] { DeleteStored(HKEY_LOCAL_MACHINE, kConnections + "\\" + kLaptopWired + "\\Connection", "PnpInstanceID"); }}),
    [](const ::testing::TestParamInfo<Damage>& info) { return std::string(info.param.Name); });
// clang-format on

}  // namespace
}  // namespace rwz::test
