// The adapter walk of Windows 2000/XP/2003 against the simulated machines'
// registries, also damaged ones: connection names, disabled adapters,
// duplicate names, and an adapter whose entries are missing left out.
#include <gtest/gtest.h>

#include "network/NetworkBench.h"
#include "network/clsNIC2K.h"
#include "platform/modUtilities.h"

namespace rwz::test {
namespace {

const std::string kCards = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\NetworkCards";
const std::string kConnections =
    "SYSTEM\\CurrentControlSet\\Control\\Network\\{4D36E972-E325-11CE-BFC1-08002BE10318}";
using Names = std::vector<std::string>;

TEST(NIC2K, ListsTheConnectionsInRegistryOrder) {
    const std::string wired = kConnections + "\\" + kLaptopWired;
    const std::string noName = "3Com EtherLink XL 90XB/C Adapter Driver";
    const struct {
        const char* machine;
        bool showDisabled;
        void (*damage)(const std::string& wired);
        Names names;
        Names keys;
    } cases[] = {
        // The disabled FireWire adapter is left out unless asked for.
        {"xp-laptop",
         false,
         nullptr,
         {"Local Area Connection", "Wireless Network Connection"},
         {kLaptopWired, kLaptopWireless}},
        {"xp-laptop",
         true,
         nullptr,
         {"Local Area Connection", "Wireless Network Connection", "1394 Connection (Disabled)"},
         {kLaptopWired, kLaptopWireless, kLaptopFireWire}},
        // Empty connection names: both cards under their driver's name.
        {"win2k-pro", false, nullptr, {noName, noName}, {kAccountsFirst, kAccountsSecond}},
        {"win2003-server",
         true,
         nullptr,
         {"Server LAN", "Local Area Connection 2 (Disabled)"},
         {kServerFirst, kServerSecond}},
        // Damage: the adapter concerned is left out, the walk goes on.
        {"xp-laptop",
         false,
         [](const std::string&) {
             DeleteStored(HKEY_LOCAL_MACHINE, kCards + "\\2", "ServiceName");
         },
         {"Wireless Network Connection"},
         {kLaptopWireless}},
        {"xp-laptop",
         false,
         [](const std::string& w) { RawDeleteTree(HKEY_LOCAL_MACHINE, w); },
         {"Wireless Network Connection"},
         {kLaptopWireless}},
        {"xp-laptop",
         false,
         [](const std::string& w) {
             DeleteStored(HKEY_LOCAL_MACHINE, w + "\\Connection", "PnpInstanceID");
         },
         {"Wireless Network Connection"},
         {kLaptopWireless}},
    };
    for (const auto& c : cases) {
        const std::string what = std::to_string(&c - cases);
        LoadMachine(c.machine);
        if (c.showDisabled) SaveProgramSetting(kProductName, "Options", "ShowDisabledNICS", "1");
        if (c.damage) c.damage(wired);
        Names names, keys;
        clsNIC2K().EnumerateAdapters(names, keys);
        EXPECT_EQ(c.names, names) << what;
        EXPECT_EQ(c.keys, keys) << what;
    }
}

}  // namespace
}  // namespace rwz::test
