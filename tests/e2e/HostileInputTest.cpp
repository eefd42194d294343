// Damaged and hostile inputs given to Rwz.exe the way users and shortcuts give
// them: each run ends by itself with a message or a log line, leaves the
// user's files as they were unless the apply succeeded, and never writes a
// password in clear text.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "bench/Bench.h"
#include "NetscapePrefLines.h"
#include "browsers/NetscapeMachine.h"

namespace rwz::test {
namespace {

const char kProfile[] = "C:\\Profiles\\p.rwz";
const char kInvalid[] = "You have selected an invalid configuration file.";

std::string Random(size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::string bytes(size, '\0');
    for (char& c : bytes) c = static_cast<char>(random());
    return bytes;
}

std::string Utf16(const std::string& text) {
    std::string wide = "\xFF\xFE";
    for (char c : text) wide += std::string{c, '\0'};
    return wide;
}

// What an apply could change on the machine, as Wine's regedit exports it.
std::string MachineState() {
    std::string state;
    for (const char* key : {"HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\Tcpip",
                            "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\ComputerName",
                            "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\"
                            "Internet Settings"}) {
        bench::RunAndWait(std::string("regedit /E C:\\state.reg \"") + key + "\"");
        state += bench::ReadFileText("C:\\state.reg");
    }
    std::string applied;
    if (bench::ReadRegistryString(HKEY_LOCAL_MACHINE, "Software\\Roamwise\\Options",
                                  "LastFileApplied", applied))
        state += "LastFileApplied=" + applied;
    return state;
}

TEST(HostileInput, WhatIsNotAProfileAppliesNothing) {
    struct Case {
        const char* what;
        std::function<void()> make;
    };
    const std::string office = bench::ReadFileText(bench::SourceDir() + "\\examples\\office.rwz");
    std::string sections;
    for (int i = 0; i < 10000; ++i) sections += "[S" + std::to_string(i) + "]\r\nk=v\r\n";
    const Case cases[] = {
        {"empty", [] { bench::WriteFile(kProfile, ""); }},
        {"64 KB of random bytes", [] { bench::WriteFile(kProfile, Random(65536, 7)); }},
        {"UTF-16 with a byte-order mark", [&] { bench::WriteFile(kProfile, Utf16(office)); }},
        {"one 1 MB line", [] { bench::WriteFile(kProfile, std::string(1 << 20, 'x')); }},
        {"10,000 sections of no profile", [&] { bench::WriteFile(kProfile, sections); }},
        {"a folder", [] { bench::MakeFolders(kProfile); }},
    };
    for (const Case& c : cases) {
        bench::Machine machine("xp-laptop");
        c.make();
        const std::string before = MachineState();
        const bench::RunResult run =
            bench::RunRwz(std::string("/hidden /load ") + kProfile + " /apply",
                          {bench::Answer("OK").Title("Roamwise")});
        EXPECT_FALSE(run.timedOut) << c.what;
        EXPECT_TRUE(run.DialogsAsScripted()) << c.what << run.Describe();
        ASSERT_FALSE(run.dialogs.empty()) << c.what;
        EXPECT_NE(std::string::npos, run.dialogs[0].text.find(kInvalid)) << c.what;
        EXPECT_NE(std::string::npos, run.log.find("not a profile")) << c.what;
        EXPECT_EQ(before, MachineState()) << c.what;
    }
}

TEST(HostileInput, CommandLinesEndWithAMessageOrALogLine) {
    struct Case {
        std::string args;
        const char* message;  // in the one dialog; "" when none is shown
        const char* logged;
    };
    std::string many = "/hidden";
    while (many.size() < 30000) many += " /x";
    const Case cases[] = {
        {"/hidden /load", "path is missing", "path is missing"},
        {"/hidden /load C:\\" + std::string(300, 'p') + ".rwz", "too long", "too long"},
        {many, "", "unknown switches: 'x ', 'x '"},
        {"/hidden /load \"C:\\no such.rwz /apply", "could not be opened", "GetSwitch: load"},
        {"/hidden /a /b /c /d /e /f /g /h /i /j /load C:\\Profiles\\office.rwz /apply",
         "could not be opened", "'i ', 'j '"},
    };
    for (const Case& c : cases) {
        bench::Machine machine("xp-laptop");
        bench::RunOptions options;
        options.args = c.args;
        if (*c.message) options.script = {bench::Answer("OK")};
        const bench::RunResult run = bench::RunRwz(options);
        EXPECT_FALSE(run.timedOut) << c.args.substr(0, 80);
        EXPECT_FALSE(run.ShowedWindow()) << c.args.substr(0, 80);
        EXPECT_TRUE(run.DialogsAsScripted()) << run.Describe();
        if (*c.message && !run.dialogs.empty())
            EXPECT_NE(std::string::npos, run.dialogs[0].text.find(c.message)) << run.Describe();
        EXPECT_NE(std::string::npos, run.log.find(c.logged)) << c.args.substr(0, 80);
    }
}

TEST(HostileInput, CredentialsAreTrimmedAndNeverLogged) {
    bench::Machine machine("xp-laptop");
    bench::CopyFileReplacing(bench::SourceDir() + "\\examples\\office.rwz", kProfile);
    for (const char* pwd : {"/pwd Secret1 ", "/pwd abc/def ", "/ pwd Secret1 ", "/pwdSecret1 ",
                            "/password=Secret1 "}) {
        const bench::RunResult run =
            bench::RunRwz(std::string("/hidden /load ") + kProfile + " /uid alice " + pwd +
                          "/save C:\\Profiles\\s.rwz");
        EXPECT_EQ(std::string::npos, run.log.find("Secret1")) << pwd;
        EXPECT_EQ(std::string::npos, run.log.find("abc")) << pwd;
        EXPECT_EQ(std::string::npos, run.log.find("ecret1")) << pwd;
    }
    // The saved account is the one given without the blank the command line had.
    bench::RunRwz(std::string("/hidden /load ") + kProfile +
                  " /uid alice /pwd Secret1 /save C:\\Profiles\\s.rwz");
    bench::RunRwz(std::string("/hidden /load ") + kProfile +
                  " /save C:\\Profiles\\t.rwz /uid alice /pwd Secret1");
    const auto account = [](const std::string& file) {
        const std::string text = bench::ReadFileText(file);
        const size_t from = text.find("NTDomainUserName=");
        return from == std::string::npos ? text
                                         : text.substr(from, text.find("SearchList=") - from);
    };
    EXPECT_EQ(account("C:\\Profiles\\t.rwz"), account("C:\\Profiles\\s.rwz"));
}

TEST(HostileInput, AReadOnlySaveTargetIsLeftAsItWas) {
    bench::Machine machine("xp-laptop");
    bench::CopyFileReplacing(bench::SourceDir() + "\\examples\\office.rwz", kProfile);
    const char kTarget[] = "C:\\Profiles\\locked.rwz";
    bench::WriteFile(kTarget, "[Advanced]\r\nComments=keep me\r\n");
    SetFileAttributesA(kTarget, FILE_ATTRIBUTE_READONLY);
    const bench::RunResult run = bench::RunRwz(
        std::string("/hidden /load ") + kProfile + " /save " + kTarget,
        {bench::Answer("OK").Title("Roamwise"), bench::Answer("OK").Title("Roamwise")});
    ASSERT_FALSE(run.dialogs.empty());
    EXPECT_NE(std::string::npos, run.dialogs[0].text.find("Error accessing file"))
        << run.Describe();
    EXPECT_TRUE(run.DialogsAsScripted()) << run.Describe();
    EXPECT_EQ("[Advanced]\r\nComments=keep me\r\n", bench::ReadFileText(kTarget));
    // A file held open by another program: the save either fails or replaces
    // it whole, never leaving part of the new profile in it.
    SetFileAttributesA(kTarget, FILE_ATTRIBUTE_NORMAL);
    bench::RunRwz(std::string("/hidden /load ") + kProfile + " /save C:\\Profiles\\free.rwz");
    const std::string saved = bench::ReadFileText("C:\\Profiles\\free.rwz");
    HANDLE held =
        CreateFileA(kTarget, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    bench::RunOptions options;
    options.args = std::string("/hidden /load ") + kProfile + " /save " + kTarget;
    options.strictDialogs = false;
    const bench::RunResult locked = bench::RunRwz(options);
    CloseHandle(held);
    const std::string after = bench::ReadFileText(kTarget);
    EXPECT_TRUE(after == "[Advanced]\r\nComments=keep me\r\n" || after == saved)
        << after.substr(0, 200) << locked.Describe();
}

// prefs.js as users' disks hold it: each row is the file before, and whether
// the apply may change it.
TEST(HostileInput, PrefsFilesKeepEveryOtherLine) {
    struct Case {
        const char* what;
        std::string prefs;
        bool readOnly;
    };
    const std::string http = "user_pref(\"network.proxy.http\", \"proxy.example\");\r\n";
    std::string big;
    while (big.size() < (20u << 20)) big += "// " + std::string(97, 'z') + "\r\n";
    const Case cases[] = {
        {"one line", http, false},
        {"empty", "", false},
        {"NUL bytes", std::string("// a\0b\r\n", 8) + http, false},
        {"a 1 MB line", "// " + std::string(1 << 20, 'y') + "\r\n" + http, false},
        {"20 MB", big + http, false},
        {"read-only", http, true},
    };
    for (const Case& c : cases) {
        bench::Machine machine("xp-netscape7");
        InstallNetscape("xp-netscape7", false);
        const std::string prefs =
            AppDataFolder() + "\\Mozilla\\Profiles\\work\\k3x9q2mf.slt\\prefs.js";
        bench::WriteFile(prefs, c.prefs);
        if (c.readOnly) SetFileAttributesA(prefs.c_str(), FILE_ATTRIBUTE_READONLY);
        bench::WriteFile(
            kProfile,
            "[Enabled Sections]\r\nGeneral=0\r\nInternet Explorer=0\r\n"
            "Netscape Navigator=1\r\nOpera=0\r\n[Netscape Navigator]\r\n"
            "NNPROFILE=work\r\nNNPROXYENABLE=1\r\nNNHTTPADDRESS=proxy\"x.test\r\n"
            "NNHTTPPORT=3128\r\nNNDEFHOMEPAGE=http://a/\");user_pref(\"x\", 1);//\r\n");
        bench::RunOptions options;
        options.args = std::string("/hidden /load ") + kProfile + " /apply";
        options.strictDialogs = false;
        const bench::RunResult run = bench::RunRwz(options);
        EXPECT_FALSE(run.timedOut) << c.what;
        const std::vector<std::string> after = FileLines(prefs);
        if (c.readOnly) {
            EXPECT_EQ(c.prefs, bench::ReadFileText(prefs)) << c.what;
            continue;
        }
        EXPECT_EQ(OtherLines(bench::SplitLines(c.prefs)), OtherLines(after)) << c.what;
        const std::map<std::string, std::string> set = NavigatorPrefLines(after);
        EXPECT_EQ(TextPref("network.proxy.http", "proxy\\\"x.test"), set.at("network.proxy.http"))
            << c.what;
        EXPECT_EQ(TextPref("browser.startup.homepage", "http://a/\\\");user_pref(\\\"x\\\", 1);//"),
                  set.at("browser.startup.homepage"))
            << c.what;
    }
}

}  // namespace
}  // namespace rwz::test
