// Rwz.exe started on each simulated machine: it logs its header and ends
// without a window with /hidden, and refuses an unsupported system.
#include <gtest/gtest.h>

#include <regex>

#include "bench/Bench.h"

namespace {

const std::string kHyphens(21, '-');
// Every machine registers Wine's own Internet Explorer program for now.
const char kIEVersion[] = "9.0.8112.16421";
const char kUnsupportedTitle[] = "Non-Supported Operating System";
const char kUnsupportedText[] =
    "The current operating system is not supported by this version of Roamwise.  "
    "Please check the Roamwise web site to see if there is an updated version available.";

// Minutes between a log time stamp "MM/DD/YYYY HH:MM:SS" and now; -1 if malformed.
long MinutesFromNow(const std::string& stamp) {
    std::smatch m;
    static const std::regex pattern(R"((\d{2})/(\d{2})/(\d{4}) (\d{2}):(\d{2}):(\d{2}))");
    if (!std::regex_match(stamp, m, pattern)) return -1;
    SYSTEMTIME logged = {};
    logged.wMonth = static_cast<WORD>(std::stoi(m[1]));
    logged.wDay = static_cast<WORD>(std::stoi(m[2]));
    logged.wYear = static_cast<WORD>(std::stoi(m[3]));
    logged.wHour = static_cast<WORD>(std::stoi(m[4]));
    logged.wMinute = static_cast<WORD>(std::stoi(m[5]));
    logged.wSecond = static_cast<WORD>(std::stoi(m[6]));
    SYSTEMTIME now;
    GetLocalTime(&now);
    FILETIME a, b;
    if (!SystemTimeToFileTime(&logged, &a) || !SystemTimeToFileTime(&now, &b)) return -1;
    auto ticks = [](const FILETIME& t) {
        return (static_cast<long long>(t.dwHighDateTime) << 32) | t.dwLowDateTime;
    };
    long long difference = ticks(b) - ticks(a);
    return static_cast<long>((difference < 0 ? -difference : difference) / 600000000LL);
}

// The header block and the entry line that follows it.
void ExpectHeader(const std::vector<std::string>& lines, const std::string& osTag) {
    ASSERT_GE(lines.size(), 11u);
    EXPECT_EQ(kHyphens, lines[0]);
    EXPECT_EQ("Roamwise Log File", lines[1]);
    EXPECT_EQ(kHyphens, lines[2]);
    ASSERT_FALSE(lines[3].empty());
    EXPECT_EQ(' ', lines[3][0]);
    long minutes = MinutesFromNow(lines[3].substr(1));
    EXPECT_TRUE(minutes >= 0 && minutes <= 10) << "date line: \"" << lines[3] << "\"";
    EXPECT_EQ(kHyphens, lines[4]);
    EXPECT_EQ("Rwz:\t1.0.0", lines[5]);
    EXPECT_EQ(" OS:\t" + osTag, lines[6]);
    EXPECT_EQ(std::string(" IE:\t") + kIEVersion, lines[7]);
    EXPECT_EQ(" NN:\t", lines[8]);
    EXPECT_EQ(kHyphens, lines[9]);
    static const std::regex entry(
        R"(\[0x[0-9A-F]{8}\]\[\d{2}/\d{2}/\d{2} \d{2}:\d{2}:\d{2}\] - Debug - frmMain - Form_Load)");
    EXPECT_TRUE(std::regex_match(lines[10], entry))
        << "first line after the header: \"" << lines[10] << "\"";
}

struct SupportedCase {
    const char* machine;
    const char* osTag;
};

class StartupOnSupportedSystem : public testing::TestWithParam<SupportedCase> {};

TEST_P(StartupOnSupportedSystem, HiddenEndsWithoutWindowAndLogsTheHeader) {
    bench::Machine machine(GetParam().machine);
    bench::RunResult run = bench::RunRwz("/hidden");

    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    EXPECT_TRUE(run.dialogs.empty()) << run.Describe();
    EXPECT_FALSE(run.ShowedWindow()) << run.Describe();
    ASSERT_TRUE(run.logExists) << "no DEBUG.LOG beside " << bench::InstalledRwz();
    ExpectHeader(run.LogLines(), GetParam().osTag);
    // Every line is CR LF ended, the header's last one included.
    for (size_t at = run.log.find('\n'); at != std::string::npos; at = run.log.find('\n', at + 1))
        ASSERT_TRUE(at > 0 && run.log[at - 1] == '\r') << "bare LF at offset " << at;
    EXPECT_EQ("\r\n", run.log.substr(run.log.size() - 2));
}

INSTANTIATE_TEST_SUITE_P(
    Machines, StartupOnSupportedSystem,
    testing::Values(SupportedCase{"win95-desktop", "9x"}, SupportedCase{"win98-desktop", "9x"},
                    SupportedCase{"winme-desktop", "9x"}, SupportedCase{"nt40-workstation", "NT"},
                    SupportedCase{"win2k-pro", "2K"}, SupportedCase{"xp-laptop", "XP"},
                    SupportedCase{"win2003-server", "2003"}),
    [](const testing::TestParamInfo<SupportedCase>& info) {
        std::string name = info.param.machine;
        for (char& c : name)
            if (c == '-') c = '_';
        return name;
    });

// With or without switches, an unsupported system gets the box and no window.
class StartupOnUnsupportedSystem : public testing::TestWithParam<const char*> {};

TEST_P(StartupOnUnsupportedSystem, ShowsTheBoxAndEnds) {
    bench::Machine machine("win10-unsupported");
    bench::RunResult run =
        bench::RunRwz(GetParam(), {bench::Answer("OK").Title(kUnsupportedTitle)});

    ASSERT_EQ(1u, run.dialogs.size()) << run.Describe();
    const bench::DialogRecord& box = run.dialogs[0];
    EXPECT_EQ(run.pid, box.pid);
    EXPECT_EQ(kUnsupportedTitle, box.title);
    EXPECT_EQ(kUnsupportedText, box.text);
    EXPECT_EQ((std::vector<std::pair<int, std::string>>{{IDOK, "OK"}}), box.buttons);
    EXPECT_FALSE(run.ShowedWindow()) << run.Describe();
    EXPECT_FALSE(run.timedOut);
    ASSERT_TRUE(run.logExists);
    ExpectHeader(run.LogLines(), "");
}

INSTANTIATE_TEST_SUITE_P(CommandLines, StartupOnUnsupportedSystem, testing::Values("/hidden", ""),
                         [](const testing::TestParamInfo<const char*>& info) {
                             return std::string(*info.param ? "hidden" : "no_switches");
                         });

TEST(DebugLog, EachStartReplacesThePreviousLog) {
    bench::Machine machine("xp-laptop");
    bench::RunRwz("/hidden");
    // Something the first run could not have written, as from an older version.
    std::string stale = bench::ReadFileText(bench::DebugLogPath()) + "stale line from before\r\n";
    bench::WriteFile(bench::DebugLogPath(), stale);

    bench::RunResult second = bench::RunRwz("/hidden");
    ASSERT_TRUE(second.logExists);
    EXPECT_EQ(std::string::npos, second.log.find("stale line from before"));
    size_t first = second.log.find("Roamwise Log File");
    EXPECT_EQ(kHyphens.size() + 2, first);
    EXPECT_EQ(std::string::npos, second.log.find("Roamwise Log File", first + 1));
    ExpectHeader(second.LogLines(), "XP");
}

}  // namespace
