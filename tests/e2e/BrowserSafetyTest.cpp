// What the browser back ends owe the user in a silent or failing apply: a
// hidden run shows no informational window (the Netscape notice goes to the
// log), and an opera6.ini that cannot be written, or is not Opera's, is left
// as it was and the user is told.
#include <gtest/gtest.h>

#include <windows.h>

#include <functional>
#include <random>
#include <string>

#include "bench/Bench.h"
#include "bench/standins/StandIns.h"
#include "browsers/NetscapeMachine.h"

namespace rwz::test {
namespace {

const char kProfile[] = "C:\\Profiles\\browsers.rwz";
const char kApply[] = "/hidden /load C:\\Profiles\\browsers.rwz /apply";
const char kOperaIni[] = "C:\\Program Files\\Opera7\\profile\\opera6.ini";

TEST(BrowserSafety, HiddenRunLogsTheNetscapeNoticeAndShowsNoWindow) {
    bench::Machine machine("xp-netscape7");
    InstallNetscape("xp-netscape7", false);
    bench::WriteFile(kProfile,
                     "[Enabled Sections]\r\nGeneral=0\r\nInternet Explorer=0\r\n"
                     "Netscape Navigator=1\r\nOpera=0\r\n[Netscape Navigator]\r\nNNPROFILE=\r\n"
                     "NNPROXYENABLE=1\r\nNNHTTPADDRESS=proxy.home.test\r\nNNHTTPPORT=3128\r\n");

    bench::RunResult run = bench::RunRwz(kApply);

    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    EXPECT_TRUE(run.dialogs.empty()) << run.Describe();
    EXPECT_FALSE(run.ShowedWindow()) << run.Describe();
    EXPECT_NE(std::string::npos, run.log.find("NetscapeNotice - Roamwise could not tell which"))
        << run.log;
    // The first profile found is still the one applied.
    EXPECT_NE(
        std::string::npos,
        bench::ReadFileText(AppDataFolder() + "\\Mozilla\\Profiles\\work\\k3x9q2mf.slt\\prefs.js")
            .find("\"network.proxy.http\", \"proxy.home.test\""));
}

// An opera6.ini the Opera back end must leave alone, and say so.
struct OperaCase {
    const char* Name;
    std::function<void()> Prepare;
};

TEST(BrowserSafety, OperaFileThatCannotBeWrittenIsLeftAloneAndTheUserIsTold) {
    const OperaCase cases[] = {
        {"read-only", [] { SetFileAttributesA(kOperaIni, FILE_ATTRIBUTE_READONLY); }},
        {"not an Opera file",
         [] {
             std::mt19937 random(20);
             std::string bytes(64 * 1024, '\0');
             for (char& c : bytes) c = static_cast<char>(random());
             bench::WriteFile(kOperaIni, bytes);
         }},
    };
    for (const OperaCase& c : cases) {
        SCOPED_TRACE(c.Name);
        bench::Machine machine("xp-laptop");
        ASSERT_FALSE(bench::InstallStandInOpera().empty());
        c.Prepare();
        const std::string before = bench::ReadFileText(kOperaIni);
        bench::WriteFile(kProfile,
                         "[Enabled Sections]\r\nGeneral=0\r\nInternet Explorer=0\r\n"
                         "Netscape Navigator=0\r\nOpera=1\r\n[Opera]\r\n"
                         "DefHomePage=http://www.home.test/\r\nHTTPProxyEnabled=1\r\n"
                         "HTTPProxyAddress=proxy.home.test\r\nHTTPProxyPort=3128\r\n");

        bench::RunResult run = bench::RunRwz(kApply, {bench::Answer("OK").Title("Roamwise")});

        EXPECT_EQ(0u, run.exitCode) << run.Describe();
        EXPECT_TRUE(run.DialogsAsScripted()) << run.Describe();
        ASSERT_EQ(1u, run.dialogs.size()) << run.Describe();
        EXPECT_EQ(std::string("Could not apply Opera preferences to '") + kOperaIni + "'.",
                  run.dialogs[0].text);
        EXPECT_EQ(before, bench::ReadFileText(kOperaIni));
        SetFileAttributesA(kOperaIni, FILE_ATTRIBUTE_NORMAL);
    }
}

}  // namespace
}  // namespace rwz::test
