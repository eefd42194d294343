// What the network area refuses to apply, on the simulated XP laptop: values
// that are not addresses, lists cut short by the profile read, and an adapter
// pattern that matches no adapter. Each is told in one message box and leaves
// every network value as it was. Also the form of the multi-strings written.
#include <gtest/gtest.h>

#include <windows.h>

#include <string>
#include <vector>

#include "bench/Bench.h"
#include "bench/standins/NetworkStandIns.h"

namespace {

const char kWiredInterface[] =
    "SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters\\Interfaces\\"
    "{6A3C7E10-5B2D-4F0E-9C41-8E2D5B7A9F01}";
const char kTcpip[] = "SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters";
const char kExplorerMain[] = "Software\\Microsoft\\Internet Explorer\\Main";

// The raw data of a value; "<missing>" when absent.
std::string Raw(HKEY root, const std::string& key, const char* name, DWORD* type = nullptr) {
    HKEY handle = nullptr;
    if (RegOpenKeyExA(root, key.c_str(), 0, KEY_READ, &handle) != ERROR_SUCCESS) return "<missing>";
    DWORD size = 0, kind = 0;
    std::string data;
    if (RegQueryValueExA(handle, name, nullptr, &kind, nullptr, &size) == ERROR_SUCCESS) {
        data.resize(size);
        RegQueryValueExA(handle, name, nullptr, &kind, reinterpret_cast<BYTE*>(&data[0]), &size);
        data.resize(size);
    } else {
        data = "<missing>";
    }
    RegCloseKey(handle);
    if (type) *type = kind;
    return data;
}

// The laptop's profile as saved, with some [Network] keys replaced (written
// into the text, so that a value of any length stands in the file as given).
void WriteProfile(const std::vector<std::pair<std::string, std::string>>& keys) {
    bench::RunResult saved = bench::RunRwz("/hidden /save C:\\x.rwz");
    ASSERT_TRUE(bench::FileExists("C:\\x.rwz")) << saved.Describe();
    std::string text;
    for (const std::string& line : bench::SplitLines(bench::ReadFileText("C:\\x.rwz"))) {
        bool replaced = false;
        for (const auto& [key, value] : keys) replaced = replaced || line.rfind(key + "=", 0) == 0;
        if (!replaced) text += line + "\r\n";
        if (line == "[Network]")
            for (const auto& [key, value] : keys) text += key + "=" + value + "\r\n";
    }
    bench::WriteFile("C:\\x.rwz", text);
}

TEST(NetworkSafety, AddressListsAreWrittenAsTerminatedMultiStrings) {
    bench::Machine machine("xp-laptop");
    bench::NetworkStandIns network;
    network.Like(machine);
    WriteProfile({{"IPAddress", "10.1.0.5,10.1.0.6"}, {"IPMask", "255.255.0.0,255.255.0.0"}});
    bench::RunResult run = bench::RunRwz("/hidden /load C:\\x.rwz /apply");
    EXPECT_TRUE(run.DialogsAsScripted()) << run.Describe();
    DWORD type = 0;
    EXPECT_EQ(std::string("10.1.0.5\0"
                          "10.1.0.6\0\0",
                          19),
              Raw(HKEY_LOCAL_MACHINE, kWiredInterface, "IPAddress", &type));
    EXPECT_EQ(static_cast<DWORD>(REG_MULTI_SZ), type);
}

struct Refusal {
    const char* name;
    std::string key, value;
    std::string message;
};

void PrintTo(const Refusal& refusal, std::ostream* out) {
    *out << refusal.name;
}

class NetworkRefusal : public testing::TestWithParam<Refusal> {};

TEST_P(NetworkRefusal, TellsWhyAndLeavesTheNetworkAsItWas) {
    bench::Machine machine("xp-laptop");
    bench::NetworkStandIns network;
    network.Like(machine);
    // The bad value goes with a good change, which must not be applied either.
    WriteProfile({{"SearchList", "corp.example"}, {GetParam().key, GetParam().value}});
    const std::string addressesBefore = Raw(HKEY_LOCAL_MACHINE, kWiredInterface, "IPAddress");
    const std::string searchListBefore = Raw(HKEY_LOCAL_MACHINE, kTcpip, "SearchList");
    bench::RunResult run =
        bench::RunRwz("/hidden /load C:\\x.rwz /apply", {bench::Answer("OK").Title("Roamwise")});
    ASSERT_EQ(1u, run.dialogs.size()) << run.Describe();
    EXPECT_EQ(GetParam().message, run.dialogs[0].text);
    EXPECT_EQ(addressesBefore, Raw(HKEY_LOCAL_MACHINE, kWiredInterface, "IPAddress"));
    EXPECT_EQ(searchListBefore, Raw(HKEY_LOCAL_MACHINE, kTcpip, "SearchList"));
    EXPECT_TRUE(network.Calls("DhcpNotifyConfigChange").empty());
}

std::string ManyAddresses() {
    std::string list;
    for (int i = 0; i < 5000; ++i)
        list += (i ? "," : "") + std::string("10.0.") + std::to_string(i / 250) + "." +
                std::to_string(i % 250 + 1);
    return list;
}

const char kNotApplied[] = "The network settings were not applied: the ";
const std::string kAddress = "\r\n\r\nPlease enter a valid IP address (e.g. 192.168.101.5).";

INSTANTIATE_TEST_SUITE_P(
    BadValues, NetworkRefusal,
    testing::Values(
        Refusal{
            "AddressOutOfRange", "IPAddress", "999.1.1.1",
            kNotApplied + std::string("IPAddress value \"999.1.1.1\" is not valid.") + kAddress},
        Refusal{"AddressTooShort", "IPAddress", "10.1.0.5,1.2.3",
                kNotApplied + std::string("IPAddress value \"1.2.3\" is not valid.") + kAddress},
        Refusal{"AddressNotANumber", "IPAddress", "abc",
                kNotApplied + std::string("IPAddress value \"abc\" is not valid.") + kAddress},
        Refusal{"MaskWithAGap", "IPMask", "255.0.255.0",
                kNotApplied + std::string("IPMask value \"255.0.255.0\" is not valid.") +
                    "\r\n\r\nPlease enter a valid Mask address (e.g. 255.255.255.0)."},
        Refusal{"Gateway", "DefaultGateway", "10.0.0.1,gateway",
                kNotApplied + std::string("DefaultGateway value \"gateway\" is not valid.") +
                    "\r\n\r\nPlease enter a valid Gateway address list separated by commas (e.g. "
                    "192.168.101.5,192.168.101.6)."},
        Refusal{"DNSServer", "NameServer", "10.0.0.300",
                kNotApplied + std::string("NameServer value \"10.0.0.300\" is not valid.") +
                    "\r\n\r\nPlease enter a valid DNS Server address list separated by commas "
                    "(e.g. 192.168.101.5,192.168.101.6)."},
        Refusal{"WINSServer", "NameServer2", "wins",
                kNotApplied + std::string("NameServer2 value \"wins\" is not valid.") + kAddress},
        Refusal{"ListCutByTheRead", "IPAddress", ManyAddresses(),
                kNotApplied + std::string("IPAddress value is longer than 254 characters and "
                                          "was cut when the profile was read.")},
        Refusal{"PatternMatchingNoAdapter", "Adapter", "{*Bluetooth*}",
                "The network settings were not applied: no network adapter matches the Adapter "
                "value {*Bluetooth*}."}),
    [](const testing::TestParamInfo<Refusal>& info) { return std::string(info.param.name); });

TEST(NetworkSafety, AnUnmatchedAdapterLeavesTheOtherAreasApplied) {
    bench::Machine machine("xp-laptop");
    bench::NetworkStandIns network;
    network.Like(machine);
    WriteProfile({{"Adapter", "{*Bluetooth*}"}, {"IPAddress", "10.1.0.5"}});
    WritePrivateProfileStringA("Enabled Sections", "Internet Explorer", "1", "C:\\x.rwz");
    WritePrivateProfileStringA("Internet Explorer", "DefHomePage", "http://www.home.test/",
                               "C:\\x.rwz");
    bench::RunResult run =
        bench::RunRwz("/hidden /load C:\\x.rwz /apply", {bench::Answer("OK").Title("Roamwise")});
    EXPECT_TRUE(run.DialogsAsScripted()) << run.Describe();
    EXPECT_EQ(std::string("http://www.home.test/\0", 22),
              Raw(HKEY_CURRENT_USER, kExplorerMain, "Start Page"));
}

}  // namespace
