// Printing the report through Wine's spooler: the default printer's entry,
// a document on the test printer (tests/bench/start-cups.sh), and nothing on a
// machine whose printers are gone.
#include <gtest/gtest.h>

#include <windows.h>
#include <winspool.h>

#include <vector>

#include "report/clsSettings.h"
#include "report/modReportLayout.h"
#include "report/modReportPrinter.h"
#include "support/InstalledPrinters.h"

namespace rwz {
namespace {

TEST(ParsePrinterDevice, NameDriverAndPortOfTheDeviceEntry) {
    PrinterDevice device;
    ASSERT_TRUE(ParsePrinterDevice("RoamwisePDF,wineps.drv,CUPS:RoamwisePDF", device));
    EXPECT_EQ("RoamwisePDF", device.Name);
    EXPECT_EQ("wineps.drv", device.Driver);
    EXPECT_EQ("CUPS:RoamwisePDF", device.Port);

    ASSERT_TRUE(ParsePrinterDevice("Office Laser,winspool,Ne00:", device));
    EXPECT_EQ("Office Laser", device.Name);
    EXPECT_EQ("Ne00:", device.Port);

    ASSERT_TRUE(ParsePrinterDevice("Lonely", device));
    EXPECT_EQ("", device.Driver);
    EXPECT_FALSE(ParsePrinterDevice("", device));
    EXPECT_FALSE(ParsePrinterDevice(",winspool,LPT1:", device));
}

using rwz::test::InstalledPrinters;

// A report of three pages or so: the printer has to break it.
std::string LongReport() {
    std::string report;
    for (int i = 1; i <= 150; ++i)
        report += ReportLine("Line " + std::to_string(i), std::string(i % 7 == 0 ? 90 : 10, 'v')) +
                  "\r\n";
    return report;
}

TEST(PrintReport, PrintsOnTheDefaultPrinterAndNothingOnceThePrintersAreGone) {
    PrinterDevice device;
    if (!GetDefaultPrinterDevice(device))
        GTEST_SKIP() << "no default printer: start the test printer with tests/bench/start-cups.sh";
    EXPECT_GE(CountPrinters(), 1);
    EXPECT_TRUE(clsSettings().PrintReport(LongReport()));

    // The machine loses its printers. This process has read the CUPS queues
    // when it loaded the spooler, so they are not read again before it ends.
    for (const std::string& name : InstalledPrinters()) {
        HANDLE printer = nullptr;
        PRINTER_DEFAULTSA access = {nullptr, nullptr, PRINTER_ALL_ACCESS};
        ASSERT_TRUE(OpenPrinterA(const_cast<char*>(name.c_str()), &printer, &access)) << name;
        EXPECT_TRUE(DeletePrinter(printer)) << name << ": error " << GetLastError();
        ClosePrinter(printer);
    }
    WriteProfileStringA("windows", "device", nullptr);
    ASSERT_EQ(0, CountPrinters());
    ASSERT_FALSE(GetDefaultPrinterDevice(device)) << device.Name;

    EXPECT_FALSE(clsSettings().PrintReport(LongReport()));
}

}  // namespace
}  // namespace rwz
