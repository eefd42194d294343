// Rwz.exe started on each simulated machine: it logs its header and ends
// without a window with /hidden, and refuses an unsupported system.
#include <gtest/gtest.h>

#include <regex>

#include "bench/Bench.h"
#include "bench/standins/NetworkStandIns.h"

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

// A log that cannot be written beside the program (here: a folder has its
// name) goes to the user's temporary folder, and its header says so.
TEST(DebugLog, AnUnwritableLogGoesToTheTemporaryFolder) {
    bench::Machine machine("xp-laptop");
    bench::MakeFolders(bench::DebugLogPath());
    char temp[MAX_PATH] = "";
    GetTempPathA(sizeof temp, temp);
    const std::string moved = std::string(temp) + "DEBUG.LOG";
    DeleteFileA(moved.c_str());

    bench::RunResult run = bench::RunRwz("/hidden");
    RemoveDirectoryA(bench::DebugLogPath().c_str());
    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    const std::string log = bench::ReadFileText(moved);
    DeleteFileA(moved.c_str());
    EXPECT_NE(std::string::npos, log.find("\r\nLog:\t" + moved + " ")) << log;
    EXPECT_NE(std::string::npos, log.find("frmMain - Form_Load")) << log;
}

// A copy started while another runs (here: the test holds the running copy's
// mutex) keeps that copy's log. Asked to apply, it waits for the other to end
// and then applies; otherwise it says why it ends.
TEST(DebugLog, ASecondCopyAddsToTheRunningCopysLog) {
    bench::Machine machine("xp-laptop");
    bench::NetworkStandIns network;
    network.Like(machine);
    const std::string running = "a line of the running copy\r\n";
    bench::MakeFolders("C:\\Profiles");
    bench::CopyFileReplacing(bench::SourceDir() + "\\examples\\office.rwz",
                             "C:\\Profiles\\office.rwz");

    HANDLE other = CreateMutexA(nullptr, FALSE, "Roamwise.MainWindow");
    bench::WriteFile(bench::DebugLogPath(), running);
    bench::RunResult ends = bench::RunRwz("/hidden");
    EXPECT_EQ(0u, ends.exitCode) << ends.Describe();
    EXPECT_EQ(0u, ends.log.find(running)) << ends.log;
    EXPECT_NE(std::string::npos, ends.log.find("this copy brings it forward and ends")) << ends.log;
    EXPECT_EQ(std::string::npos, ends.log.find("Roamwise Log File")) << ends.log;

    // The other copy ends once this one has said that it waits.
    bench::WriteFile(bench::DebugLogPath(), running);
    HANDLE release = CreateThread(
        nullptr, 0,
        [](void* mutex) -> DWORD {
            for (int i = 0; i < 300; ++i) {
                std::string log;
                bench::ReadFile(bench::DebugLogPath(), log);
                if (log.find("this copy applies when it has finished") != std::string::npos) break;
                Sleep(100);
            }
            CloseHandle(static_cast<HANDLE>(mutex));
            return 0;
        },
        other, 0, nullptr);
    bench::RunOptions apply;
    apply.args = "/hidden /load C:\\Profiles\\office.rwz /apply";
    apply.strictDialogs = false;  // what the apply itself asks is not the point here
    bench::RunResult applies = bench::RunRwz(apply);
    WaitForSingleObject(release, INFINITE);
    CloseHandle(release);
    EXPECT_EQ(0u, applies.exitCode) << applies.Describe();
    EXPECT_EQ(0u, applies.log.find(running)) << applies.log;
    const size_t waits = applies.log.find("this copy applies when it has finished");
    const size_t header = applies.log.find("Roamwise Log File");
    EXPECT_LT(waits, header) << applies.log;
    EXPECT_NE(std::string::npos, applies.log.find("ApplyConfiguration", header)) << applies.log;
}

}  // namespace
