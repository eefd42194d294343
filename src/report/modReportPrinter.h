// Prints the settings report through GDI: "Courier New" 10 point, one report
// line per row, pages laid out by PaginateReport.
#pragma once

#include <windows.h>

#include <string>

namespace rwz {

// The font of the printout.
inline constexpr const char* kReportFontFace = "Courier New";
inline constexpr int kReportFontPoints = 10;
// The name of the print job.
inline constexpr const char* kReportDocumentName = "Roamwise Settings";

// The system's default printer, from the "device" entry of the [windows]
// section ("name,driver,port"), which every supported system keeps.
struct PrinterDevice {
    std::string Name;
    std::string Driver;
    std::string Port;
};
// False when no default printer is set (no printer installed).
bool GetDefaultPrinterDevice(PrinterDevice& aDevice);
// The printers installed, local and connected.
int CountPrinters();
// The parts of a "device" entry; false when it names no printer.
bool ParsePrinterDevice(const std::string& astrEntry, PrinterDevice& aDevice);

// A device context for the printer; nullptr when none can be made.
HDC CreatePrinterDC(const PrinterDevice& aDevice);

// Prints the report on the printer of `ahDC` as one document, and returns
// the number of pages printed. Raises an error when the spooler refuses the
// document or a page (the document is then aborted).
int PrintReportOnDC(HDC ahDC, const std::string& astrReport);

}  // namespace rwz
