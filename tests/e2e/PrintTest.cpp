// The settings report printed from the command line on the simulated XP
// laptop, on the test printer (a CUPS PDF queue, tests/bench/start-cups.sh)
// whose PDF is read back with poppler. Exported reports, and printing on a
// machine without printers, are scenarios.
#include <gtest/gtest.h>

#include <windows.h>
#include <winspool.h>

#include <algorithm>
#include <regex>
#include <set>

#include "bench/Bench.h"
#include "support/InstalledPrinters.h"

namespace {

// Where the test printer puts its PDFs, on the Linux side.
const char kPdfFolder[] = "/var/spool/cups-pdf/roamwise";
const char kPrinter[] = "RoamwisePDF";
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
    // The laptop with Opera installed (the stand-in program at its App Paths place).
    bench::Machine machine("xp-laptop");
    bench::CopyFileReplacing(bench::BuildDir() + "\\tests\\FakeOpera.exe",
                             "C:\\Program Files\\Opera7\\Opera.exe");
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
    const std::string profile = "C:\\Profiles\\" + name;
    bench::MakeFolders("C:\\Profiles");
    bench::MakeFolders("C:\\Reports");
    bench::CopyFileReplacing(bench::SourceDir() + "\\examples\\office.rwz", profile);
    const std::set<std::string> before = PdfFiles();

    bench::RunOptions options;
    options.args = "/hidden /load " + profile + " /export C:\\Reports\\printed.txt /print";
    options.workDir = "C:\\Reports";
    options.timeoutMs = 60000;
    bench::RunResult run = bench::RunRwz(options);
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

}  // namespace
