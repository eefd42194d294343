// The settings report from the command line, on the simulated XP laptop:
// exported to a file for a loaded profile and for the current configuration,
// refused for a blank file name, and printed on the test printer (a CUPS PDF
// queue, tests/bench/start-cups.sh) whose PDF is read back with poppler.
#include <gtest/gtest.h>

#include <windows.h>
#include <winspool.h>

#include <algorithm>
#include <regex>
#include <set>

#include "bench/Bench.h"
#include "support/InstalledPrinters.h"

namespace {

const char kProfiles[] = "C:\\Profiles";
const char kReports[] = "C:\\Reports";
// Where the test printer puts its PDFs, on the Linux side.
const char kPdfFolder[] = "/var/spool/cups-pdf/roamwise";
const char kPrinter[] = "RoamwisePDF";
const std::string kStars(44, '*');

// The laptop with Opera installed (the stand-in program at its App Paths
// place) and the example profiles in C:\Profiles.
void LoadLaptop() {
    bench::Machine machine("xp-laptop");
    bench::CopyFileReplacing(bench::BuildDir() + "\\tests\\FakeOpera.exe",
                             "C:\\Program Files\\Opera7\\Opera.exe");
    bench::MakeFolders(kProfiles);
    bench::MakeFolders(kReports);
    for (const char* name : {"office.rwz", "home.rwz", "client-site.rwz"})
        bench::CopyFileReplacing(bench::SourceDir() + "\\examples\\" + name,
                                 std::string(kProfiles) + "\\" + name);
}

bench::RunResult RunIn(const std::string& folder, const std::string& args,
                       std::vector<bench::Answer> script = {}) {
    bench::RunOptions options;
    options.args = args;
    options.workDir = folder;
    options.script = std::move(script);
    options.timeoutMs = 60000;
    return bench::RunRwz(options);
}

bool Has(const std::vector<std::string>& lines, const std::string& line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

// The block that starts with the banner title, up to its empty line.
std::vector<std::string> Block(const std::vector<std::string>& lines, const std::string& title) {
    auto at = std::find(lines.begin(), lines.end(), title);
    if (at == lines.end()) return {};
    auto end = std::find(at, lines.end(), std::string());
    return std::vector<std::string>(at - 1, end);
}

std::string Dump(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += "  |" + line + "\n";
    return text;
}

// What every report begins with.
void ExpectHeader(const std::vector<std::string>& lines, const std::string& confFile,
                  const std::string& comments) {
    ASSERT_GE(lines.size(), 11u) << Dump(lines);
    EXPECT_EQ(std::string(44, '-'), lines[0]);
    EXPECT_EQ("              Roamwise v1.0.0", lines[1]);
    EXPECT_EQ("            ALL RIGHTS RESERVED.", lines[3]);
    EXPECT_EQ("", lines[4]);
    EXPECT_TRUE(
        std::regex_match(lines[5], std::regex(R"( {12}\d{2}/\d{2}/\d{4}  \d{2}:\d{2}:\d{2})")))
        << lines[5];
    EXPECT_EQ("", lines[6]);
    EXPECT_EQ(std::string(44, '-'), lines[7]);
    EXPECT_EQ("Configuration File.........." + confFile, lines[8]);
    EXPECT_EQ("Comments...................." + comments, lines[9]);
    EXPECT_EQ("", lines[10]);
}

void ExpectCrLf(const std::string& text) {
    ASSERT_GE(text.size(), 2u);
    for (size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 1))
        ASSERT_TRUE(at > 0 && text[at - 1] == '\r') << "bare LF at offset " << at;
    EXPECT_EQ("\r\n\r\n", text.substr(text.size() - 4)) << "the last block ends in an empty line";
}

TEST(ExportSwitch, WritesTheReportOfTheLoadedProfile) {
    LoadLaptop();
    bench::RunResult run = RunIn(kProfiles, "/hidden /load office.rwz /export out.txt");
    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    EXPECT_FALSE(run.ShowedWindow()) << run.Describe();

    std::string text;
    ASSERT_TRUE(bench::ReadFile("C:\\Profiles\\out.txt", text)) << run.Describe();
    ExpectCrLf(text);
    const std::vector<std::string> lines = bench::SplitLines(text);
    ExpectHeader(lines, "C:\\Profiles\\office.rwz",
                 "Office: fixed address, NORTHWIND domain, office proxy");

    const std::vector<std::string> net =
        Block(lines, "*             Network Settings             *");
    ASSERT_FALSE(net.empty()) << "no network block:\n" << Dump(lines) << run.log;
    EXPECT_TRUE(Has(net, "IP Address..................192.168.101.5")) << Dump(net);
    EXPECT_TRUE(Has(net, "IP Mask.....................255.255.255.0")) << Dump(net);
    EXPECT_TRUE(Has(net, "Default Gateway.............192.168.101.1")) << Dump(net);
    EXPECT_TRUE(Has(net, "DNS Servers.................192.168.101.2, 192.168.101.3")) << Dump(net);
    EXPECT_TRUE(Has(net, "Domain......................northwind.test")) << Dump(net);
    EXPECT_TRUE(Has(net, "Logon to NT Domain..........Yes")) << Dump(net);
    EXPECT_TRUE(Has(net, "NT Domain...................NORTHWIND")) << Dump(net);
    EXPECT_TRUE(Has(net, "DHCP Enabled................No")) << Dump(net);
    EXPECT_EQ(23u, net.size()) << Dump(net);

    const std::vector<std::string> ie =
        Block(lines, "*             Internet Explorer            *");
    ASSERT_FALSE(ie.empty()) << Dump(lines);
    EXPECT_TRUE(Has(ie, "Use Proxy Server............Yes")) << Dump(ie);
    EXPECT_TRUE(Has(ie, "HTTP Proxy Server...........proxy.northwind.test:8080")) << Dump(ie);
    EXPECT_TRUE(Has(ie, "Use Same Proxy..............Yes")) << Dump(ie);
    EXPECT_TRUE(Has(ie, "Proxy Exceptions............*.northwind.test")) << Dump(ie);
    EXPECT_TRUE(Has(ie, "Bypass Proxy for Intranet...Yes")) << Dump(ie);
    EXPECT_TRUE(Has(ie, "Default Home Page...........http://intranet.northwind.test/")) << Dump(ie);

    const std::vector<std::string> opera =
        Block(lines, "*                    Opera                 *");
    ASSERT_FALSE(opera.empty()) << Dump(lines);
    EXPECT_TRUE(Has(opera, "Connection Type.............Manual proxy configuration"))
        << Dump(opera);
    EXPECT_TRUE(Has(opera, "FTP Proxy Server............proxy.northwind.test:8080")) << Dump(opera);

    // Netscape is not installed on the laptop: no block, though the profile enables it.
    EXPECT_EQ(std::string::npos, text.find("Netscape"));
    // The blocks stand in their fixed order.
    EXPECT_LT(text.find("Network Settings"), text.find("Internet Explorer"));
    EXPECT_LT(text.find("Internet Explorer"), text.find("Opera   "));
}

TEST(ExportSwitch, WithoutAProfileWritesTheCurrentConfiguration) {
    LoadLaptop();
    bench::RunResult run = RunIn(kReports, "/hidden /export current.txt");
    EXPECT_EQ(0u, run.exitCode) << run.Describe();

    std::string text;
    ASSERT_TRUE(bench::ReadFile("C:\\Reports\\current.txt", text)) << run.Describe();
    ExpectCrLf(text);
    const std::vector<std::string> lines = bench::SplitLines(text);
    ExpectHeader(lines, "[Current Configuration]", "");

    // The laptop's own Internet Settings (tests/machines/xp-laptop).
    const std::vector<std::string> ie =
        Block(lines, "*             Internet Explorer            *");
    ASSERT_FALSE(ie.empty()) << Dump(lines);
    EXPECT_TRUE(Has(ie, "Version.....................6.0.2900.2180") ||
                Has(ie, "Version.....................9.0.8112.16421"))
        << Dump(ie);
    EXPECT_TRUE(Has(ie, "Socks Proxy Server..........socks.northwind.test:1080")) << Dump(ie);
    EXPECT_TRUE(Has(ie, "Proxy Exceptions............*.northwind.test, 10.*")) << Dump(ie);
    EXPECT_TRUE(Has(ie, "Bypass Proxy for Intranet...Yes")) << Dump(ie);
    EXPECT_TRUE(Has(ie, "Dial-Up Account.............Northwind Dial-Up")) << Dump(ie);
    EXPECT_TRUE(
        Has(ie, "Connection Type.............Connect to the Internet using a local area network"))
        << Dump(ie);

    // Opera's opera6.ini: three proxies on, Gopher and WAIS off.
    const std::vector<std::string> opera =
        Block(lines, "*                    Opera                 *");
    ASSERT_FALSE(opera.empty()) << Dump(lines);
    EXPECT_TRUE(Has(opera, "Secure Proxy Server.........proxy.northwind.test:8443")) << Dump(opera);
    EXPECT_TRUE(Has(opera, "Gopher Proxy Server.........")) << Dump(opera);
    EXPECT_TRUE(Has(opera, "Proxy Exceptions............*.northwind.test, 10.*")) << Dump(opera);
}

TEST(ExportSwitch, ABlankFileNameIsRefusedWithAMessage) {
    LoadLaptop();
    bench::RunResult run =
        RunIn(kReports, "/hidden /export    ", {bench::Answer("OK").Title("Roamwise")});
    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    ASSERT_EQ(1u, run.dialogs.size()) << run.Describe();
    EXPECT_EQ("Roamwise", run.dialogs[0].title);
    EXPECT_EQ("Missing export filename.", run.dialogs[0].text);
    EXPECT_EQ((std::vector<std::pair<int, std::string>>{{IDOK, "OK"}}), run.dialogs[0].buttons);

    // Nothing was written beside the program or in the working folder.
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA("C:\\Reports\\*", &found);
    std::set<std::string> names;
    if (search != INVALID_HANDLE_VALUE) {
        do names.insert(found.cFileName);
        while (FindNextFileA(search, &found));
        FindClose(search);
    }
    EXPECT_EQ((std::set<std::string>{".", ".."}), names);
    EXPECT_NE(std::string::npos, run.log.find("clsSettings - ExportAllSettings")) << run.log;
}

// An export that cannot be written says so, as a failed save does; a file
// marked read-only is left as it was.
struct FailedExport {
    const char* target;
    const char* message;  // part of the box's text
};

class ExportFailure : public testing::TestWithParam<FailedExport> {};

TEST_P(ExportFailure, ShowsAMessage) {
    LoadLaptop();
    const std::string readOnly = "C:\\Reports\\ro.txt";
    bench::WriteFile(readOnly, "kept\r\n");
    SetFileAttributesA(readOnly.c_str(), FILE_ATTRIBUTE_READONLY);
    bench::RunResult run = RunIn(kReports, std::string("/hidden /export ") + GetParam().target,
                                 {bench::Answer("OK").Title("Roamwise")});
    SetFileAttributesA(readOnly.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    ASSERT_EQ(1u, run.dialogs.size()) << run.Describe();
    EXPECT_NE(std::string::npos, run.dialogs[0].text.find(GetParam().message)) << run.Describe();
    EXPECT_EQ("kept\r\n", bench::ReadFileText(readOnly));
    EXPECT_NE(std::string::npos, run.log.find("ERROR - ")) << run.log;
}

INSTANTIATE_TEST_SUITE_P(
    Targets, ExportFailure,
    testing::Values(FailedExport{"C:\\NoSuchFolder\\r.txt", "Error: Path not found"},
                    FailedExport{"C:\\Profiles", "Error accessing file 'C:\\Profiles'."},
                    FailedExport{"ro.txt", "Error accessing file 'ro.txt'."}),
    [](const testing::TestParamInfo<FailedExport>& info) {
        return std::string(info.index == 0   ? "missing_folder"
                           : info.index == 1 ? "folder"
                                             : "read_only");
    });

// Each example profile reads as its comments say: the lines its report
// must hold on the XP laptop.
struct ExampleCase {
    const char* profile;
    std::vector<std::string> lines;
};

class ExampleProfile : public testing::TestWithParam<ExampleCase> {};

TEST_P(ExampleProfile, ReportsWhatItsCommentsPromise) {
    LoadLaptop();
    const std::string profile = GetParam().profile;
    bench::RunResult run =
        RunIn(kProfiles, "/hidden /load " + profile + " /export C:\\Reports\\example.txt");
    EXPECT_TRUE(run.dialogs.empty()) << run.Describe();
    const std::vector<std::string> lines =
        bench::SplitLines(bench::ReadFileText("C:\\Reports\\example.txt"));
    ASSERT_GT(lines.size(), 10u) << run.Describe();
    EXPECT_EQ("Configuration File..........C:\\Profiles\\" + profile, lines[8]);
    for (const std::string& line : GetParam().lines)
        EXPECT_TRUE(Has(lines, line)) << "missing: " << line << "\n" << Dump(lines);
}

INSTANTIATE_TEST_SUITE_P(
    Examples, ExampleProfile,
    testing::Values(
        ExampleCase{"home.rwz",
                    {"DHCP Enabled................Yes", "Workgroup...................HOME",
                     "Logon to NT Domain..........No", "Host........................laptop1",
                     "Use Proxy Server............No",
                     "Default Home Page...........http://www.example.com/",
                     "Connection Type.............Direct connection to the Internet"}},
        // A pattern picks the wireless adapter, {IGNORE} keeps the laptop's
        // names and its Opera proxies (switched off), conditions resolve for XP.
        ExampleCase{"client-site.rwz",
                    {"NIC.........................Wireless Network Connection",
                     "IP Address..................10.20.30.41",
                     "Domain......................client.example.net",
                     "Host........................laptop1", "Computer Name...............LAPTOP1",
                     "HTTP Proxy Server...........proxy.client.example.net:3128",
                     "Automatic Configuration URL.http://proxy.client.example.net/proxy.pac",
                     "Default Home Page...........http://portal.client.example.net/",
                     "Connection Type.............Automatic proxy configuration",
                     "HTTP Proxy Server...........proxy.northwind.test:8080 (disabled)"}}),
    [](const testing::TestParamInfo<ExampleCase>& info) {
        std::string name = info.param.profile;
        name = name.substr(0, name.find('.'));
        for (char& c : name)
            if (c == '-') c = '_';
        return name;
    });

// --- Printing ---------------------------------------------------------------

// Runs a command of the Linux side (Wine starts Linux programs too) through
// the shell and returns what it wrote. Wine can neither wait for a Linux
// process nor report its exit code, so the command ends by writing a mark
// file, which is waited for.
std::string LinuxOutput(const std::string& command, const std::string& tag) {
    const std::string base =
        "/tmp/rwz-report-test-" + std::to_string(GetCurrentProcessId()) + "-" + tag;
    const std::string output = base + ".txt";
    const std::string done = base + ".done";
    DeleteFileA(bench::WindowsPath(output).c_str());
    DeleteFileA(bench::WindowsPath(done).c_str());

    const char shell[] = "Z:\\bin\\sh";
    std::string line =
        "sh -c \"" + command + " > '" + output + "' 2>&1; echo done > '" + done + "'\"";
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    if (!CreateProcessA(shell, &line[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process)) {
        ADD_FAILURE() << "cannot start " << shell << ": error " << GetLastError();
        return std::string();
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    for (int tries = 0; tries < 240 && !bench::FileExists(bench::WindowsPath(done)); ++tries)
        Sleep(250);
    if (!bench::FileExists(bench::WindowsPath(done)))
        ADD_FAILURE() << "no end within 60 s: " << command;
    std::string text = bench::ReadFileText(bench::WindowsPath(output));
    DeleteFileA(bench::WindowsPath(output).c_str());
    DeleteFileA(bench::WindowsPath(done).c_str());
    return text;
}

std::set<std::string> PdfFiles() {
    std::set<std::string> names;
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA((bench::WindowsPath(kPdfFolder) + "\\*.pdf").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do names.insert(found.cFileName);
    while (FindNextFileA(search, &found));
    FindClose(search);
    return names;
}

using rwz::test::InstalledPrinters;

std::string DefaultPrinter() {
    char device[512] = "";
    GetProfileStringA("windows", "device", "", device, sizeof device);
    std::string name = device;
    return name.substr(0, name.find(','));
}

// Waits for the PDF whose text holds `marker` among those not in `before`;
// its text (pdftotext -layout) goes to `text`. Empty when none came in time.
std::string WaitForPdf(const std::set<std::string>& before, const std::string& marker,
                       std::string& text) {
    std::set<std::string> checked;
    for (int tries = 0; tries < 240; ++tries) {
        for (const std::string& name : PdfFiles()) {
            if (before.count(name) || checked.count(name)) continue;
            const std::string unixPath = std::string(kPdfFolder) + "/" + name;
            std::string pdf;
            // A PDF is complete once it ends with its end-of-file mark.
            if (!bench::ReadFile(bench::WindowsPath(unixPath), pdf) ||
                pdf.find("%%EOF", pdf.size() > 64 ? pdf.size() - 64 : 0) == std::string::npos)
                continue;
            checked.insert(name);
            text = LinuxOutput("pdftotext -layout '" + unixPath + "' -", "text");
            // The PDF names the hyphen glyph in a way that poppler reads as
            // a soft hyphen (U+00AD); a reader sees "-".
            for (size_t at = text.find("\xC2\xAD"); at != std::string::npos;
                 at = text.find("\xC2\xAD", at))
                text.replace(at, 2, "-");
            if (text.find(marker) != std::string::npos) return unixPath;
        }
        Sleep(250);
    }
    return std::string();
}

// The report's text as a reader compares it: lines without outer blanks,
// empty lines and page breaks dropped, the time replaced.
std::vector<std::string> Comparable(const std::string& text) {
    std::vector<std::string> lines;
    static const std::regex time(R"(\d{2}/\d{2}/\d{4} +\d{2}:\d{2}:\d{2})");
    for (std::string line : bench::SplitLines(text)) {
        line.erase(std::remove(line.begin(), line.end(), '\f'), line.end());
        const size_t first = line.find_first_not_of(' ');
        if (first == std::string::npos) continue;
        line = line.substr(first, line.find_last_not_of(' ') - first + 1);
        lines.push_back(std::regex_match(line, time) ? "<time>" : line);
    }
    return lines;
}

TEST(PrintSwitch, PrintsTheReportOnTheDefaultPrinterInCourierNew10) {
    LoadLaptop();
    const std::vector<std::string> printers = InstalledPrinters();
    ASSERT_TRUE(std::find(printers.begin(), printers.end(), kPrinter) != printers.end())
        << "Wine sees no test printer " << kPrinter << ": start it with tests/bench/start-cups.sh";
    // The laptop's own printers have no device behind them: the user makes the
    // PDF printer the default one.
    ASSERT_TRUE(SetDefaultPrinterA(kPrinter)) << "error " << GetLastError();
    ASSERT_EQ(kPrinter, DefaultPrinter());

    // A profile name no other test prints: it finds this run's PDF.
    const std::string name = "office-" + std::to_string(GetCurrentProcessId()) + "-" +
                             std::to_string(GetTickCount()) + ".rwz";
    const std::string profile = std::string(kProfiles) + "\\" + name;
    bench::CopyFileReplacing(std::string(kProfiles) + "\\office.rwz", profile);
    const std::set<std::string> before = PdfFiles();

    bench::RunResult run =
        RunIn(kReports, "/hidden /load " + profile + " /export C:\\Reports\\printed.txt /print");
    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    EXPECT_TRUE(run.dialogs.empty()) << run.Describe();
    EXPECT_NE(std::string::npos, run.log.find(std::string("page(s) printed on ") + kPrinter))
        << run.log;

    std::string printed;
    const std::string pdf = WaitForPdf(before, name, printed);
    ASSERT_FALSE(pdf.empty()) << "no PDF with " << name << " in " << kPdfFolder << " within 60 s\n"
                              << run.log;

    // The printed text is the report, line for line.
    const std::string exported = bench::ReadFileText("C:\\Reports\\printed.txt");
    ASSERT_FALSE(exported.empty());
    EXPECT_EQ(Comparable(exported), Comparable(printed)) << printed;

    // One font: Courier New, or on a system without Microsoft's fonts the face
    // that stands in for it with the same metrics.
    const std::string fonts = LinuxOutput("pdffonts '" + pdf + "'", "fonts");
    static const std::regex font(R"(\n[A-Z]{6}\+(CourierNew\S*|LiberationMono\S*) )");
    EXPECT_TRUE(std::regex_search(fonts, font)) << fonts;
    EXPECT_EQ(3u, bench::SplitLines(fonts).size()) << "more than one font:\n" << fonts;

    // 10 point: Courier New moves 0.6 em a character, 6 points at 10 point.
    const std::string boxes = LinuxOutput("pdftotext -bbox -f 1 -l 1 '" + pdf + "' -", "boxes");
    std::smatch all, reserved;
    static const std::regex allWord(R"re(xMin="([0-9.]+)"[^>]*>ALL<)re");
    static const std::regex reservedWord(R"re(xMin="([0-9.]+)"[^>]*>RESERVED\.<)re");
    ASSERT_TRUE(std::regex_search(boxes, all, allWord) &&
                std::regex_search(boxes, reserved, reservedWord))
        << boxes.substr(0, 2000);
    // "ALL RIGHTS " is 11 characters.
    const double advance = (std::stod(reserved[1]) - std::stod(all[1])) / 11;
    EXPECT_NEAR(6.0, advance, 0.1) << "points per character";
    if (!HasFailure()) DeleteFileA(bench::WindowsPath(pdf).c_str());
}

TEST(PrintSwitch, AMachineWithoutPrintersPrintsNothingAndSaysSoInTheLog) {
    LoadLaptop();
    // The printers go; this process keeps Wine from reading them again from
    // CUPS while the program runs (see InstalledPrinters()).
    for (const std::string& name : InstalledPrinters()) {
        HANDLE printer = nullptr;
        PRINTER_DEFAULTSA access = {nullptr, nullptr, PRINTER_ALL_ACCESS};
        ASSERT_TRUE(OpenPrinterA(const_cast<char*>(name.c_str()), &printer, &access)) << name;
        EXPECT_TRUE(DeletePrinter(printer)) << name;
        ClosePrinter(printer);
    }
    WriteProfileStringA("windows", "device", nullptr);
    ASSERT_TRUE(InstalledPrinters().empty());

    bench::RunResult run = RunIn(kReports, "/hidden /export C:\\Reports\\none.txt /print");
    EXPECT_EQ(0u, run.exitCode) << run.Describe();
    EXPECT_TRUE(run.dialogs.empty()) << run.Describe();
    EXPECT_NE(
        std::string::npos,
        run.log.find("clsSettings - PrintAllSettings: No Printers Installed - nothing printed"))
        << run.log;
    EXPECT_EQ(std::string::npos, run.log.find("page(s) printed")) << run.log;

    const std::vector<std::string> lines =
        bench::SplitLines(bench::ReadFileText("C:\\Reports\\none.txt"));
    const std::vector<std::string> net =
        Block(lines, "*             Network Settings             *");
    ASSERT_FALSE(net.empty()) << Dump(lines);
    EXPECT_EQ("Default Printer.............No Printers Installed", net.back());
}

}  // namespace
