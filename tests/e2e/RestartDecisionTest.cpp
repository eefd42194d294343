// What happens after a profile is applied when one of its changes needs a
// restart: the restart dialog, or the saved preference with AutoReboot.
#include <gtest/gtest.h>

#include <string>

#include "bench/Bench.h"
#include "bench/standins/NetworkStandIns.h"
#include "shell/frmRestartRes.h"

namespace {

const char kProfile[] = "C:\\wireless.rwz";

bool LogHas(const bench::RunResult& run, const std::string& text) {
    return run.log.find(text) != std::string::npos;
}

// The laptop's own settings, but its wireless adapter switched from DHCP to a
// fixed address: a change that takes effect only after a restart. The profile
// applies itself as soon as it is opened.
void WriteWirelessProfile(bool autoReboot) {
    bench::RunResult saved = bench::RunRwz(std::string("/hidden /save ") + kProfile);
    ASSERT_TRUE(bench::FileExists(kProfile)) << saved.Describe();
    auto set = [](const char* section, const char* key, const char* value) {
        ASSERT_TRUE(WritePrivateProfileStringA(section, key, value, kProfile));
    };
    for (const char* area : {"Internet Explorer", "Netscape Navigator", "Opera"})
        set("Enabled Sections", area, "0");
    set("Network", "Adapter", "Wireless Network Connection");
    set("Network", "DHCP", "0");
    set("Network", "IPAddress", "10.2.0.5");
    set("Network", "IPMask", "255.255.255.0");
    set("Advanced", "AutoApply", "1");
    set("Advanced", "AutoReboot", autoReboot ? "1" : "0");
}

TEST(RestartDecision, WithoutAutoRebootTheRestartDialogDecides) {
    bench::Machine machine("xp-laptop");
    bench::NetworkStandIns network;
    network.Like(machine);
    WriteWirelessProfile(false);

    bench::RunResult run =
        bench::RunRwz(std::string("/hidden /load ") + kProfile,
                      {bench::Answer("OK").Title("Restart").Check(IDC_RESTART_OPTION1)});

    ASSERT_EQ(1u, run.dialogs.size()) << run.Describe();
    EXPECT_TRUE(LogHas(run, "ExitWindowsEx(18, 0) = ")) << run.log;
    EXPECT_FALSE(run.ShowedWindow()) << run.Describe();
}

TEST(RestartDecision, AutoRebootWithNoSavedActionTellsTheUserToRestartLater) {
    bench::Machine machine("xp-laptop");
    bench::NetworkStandIns network;
    network.Like(machine);
    WriteWirelessProfile(true);

    bench::RunResult run = bench::RunRwz(std::string("/hidden /load ") + kProfile,
                                         {bench::Answer("OK").Title("Roamwise")});

    ASSERT_EQ(1u, run.dialogs.size()) << run.Describe();
    EXPECT_EQ("The changes will take effect the next time you reboot.", run.dialogs[0].text);
    EXPECT_TRUE(LogHas(run, "ExecuteRestartOption: Code = 0")) << run.log;
    EXPECT_FALSE(LogHas(run, "ExitWindowsEx(")) << run.log;
}

}  // namespace
