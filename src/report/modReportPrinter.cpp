#include "report/modReportPrinter.h"

#include <winspool.h>

#include <algorithm>
#include <vector>

#include "platform/RwzError.h"
#include "report/modReportLayout.h"

namespace rwz {

namespace {

const char kSource[] = "modReportPrinter";
// Paper margin on every side, in thousandths of an inch.
constexpr int kMarginMils = 750;

// Selects a GDI object into a device context for the lifetime of the owner,
// then deletes it.
class SelectedFont {
  public:
    SelectedFont(HDC ahDC, HFONT ahFont)
        : mhDC(ahDC), mhFont(ahFont), mhOld(ahFont ? SelectObject(ahDC, ahFont) : nullptr) {}
    ~SelectedFont() {
        if (mhOld) SelectObject(mhDC, mhOld);
        if (mhFont) DeleteObject(mhFont);
    }
    SelectedFont(const SelectedFont&) = delete;
    SelectedFont& operator=(const SelectedFont&) = delete;

  private:
    HDC mhDC;
    HFONT mhFont;
    HGDIOBJ mhOld;
};

// The printable rectangle inside the margins, in device units relative to the
// printable area's origin.
RECT PrintableRect(HDC ahDC) {
    const int dpiX = std::max(GetDeviceCaps(ahDC, LOGPIXELSX), 1);
    const int dpiY = std::max(GetDeviceCaps(ahDC, LOGPIXELSY), 1);
    const int offsetX = GetDeviceCaps(ahDC, PHYSICALOFFSETX);
    const int offsetY = GetDeviceCaps(ahDC, PHYSICALOFFSETY);
    int paperWidth = GetDeviceCaps(ahDC, PHYSICALWIDTH);
    int paperHeight = GetDeviceCaps(ahDC, PHYSICALHEIGHT);
    const int printableWidth = GetDeviceCaps(ahDC, HORZRES);
    const int printableHeight = GetDeviceCaps(ahDC, VERTRES);
    // A driver without paper sizes: the printable area is the paper.
    if (paperWidth <= 0) paperWidth = printableWidth;
    if (paperHeight <= 0) paperHeight = printableHeight;
    const int marginX = MulDiv(kMarginMils, dpiX, 1000);
    const int marginY = MulDiv(kMarginMils, dpiY, 1000);

    RECT area;
    area.left = std::max(marginX - offsetX, 0);
    area.top = std::max(marginY - offsetY, 0);
    area.right = std::min(paperWidth - marginX - offsetX, printableWidth);
    area.bottom = std::min(paperHeight - marginY - offsetY, printableHeight);
    if (area.right <= area.left) {
        area.left = 0;
        area.right = printableWidth;
    }
    if (area.bottom <= area.top) {
        area.top = 0;
        area.bottom = printableHeight;
    }
    return area;
}

}  // namespace

bool ParsePrinterDevice(const std::string& astrEntry, PrinterDevice& aDevice) {
    aDevice = PrinterDevice{};
    const size_t first = astrEntry.find(',');
    aDevice.Name = astrEntry.substr(0, first);
    if (first != std::string::npos) {
        const size_t second = astrEntry.find(',', first + 1);
        aDevice.Driver = astrEntry.substr(first + 1, second - (first + 1));
        if (second != std::string::npos) aDevice.Port = astrEntry.substr(second + 1);
    }
    return !aDevice.Name.empty();
}

bool GetDefaultPrinterDevice(PrinterDevice& aDevice) {
    char entry[1024] = "";
    GetProfileStringA("windows", "device", "", entry, sizeof entry);
    return ParsePrinterDevice(entry, aDevice);
}

int CountPrinters() {
    // Level 2 is a level every supported system lists printers at; Windows 95
    // knows no printer connections and fails that call, which counts none.
    int total = 0;
    for (DWORD flags :
         {static_cast<DWORD>(PRINTER_ENUM_LOCAL), static_cast<DWORD>(PRINTER_ENUM_CONNECTIONS)}) {
        DWORD needed = 0;
        DWORD count = 0;
        EnumPrintersA(flags, nullptr, 2, nullptr, 0, &needed, &count);
        if (needed == 0) continue;
        std::vector<BYTE> buffer(needed);
        if (EnumPrintersA(flags, nullptr, 2, buffer.data(), needed, &needed, &count))
            total += static_cast<int>(count);
    }
    return total;
}

HDC CreatePrinterDC(const PrinterDevice& aDevice) {
    // The driver named in the entry is what Windows 95 needs; the NT family
    // takes "WINSPOOL" or no driver at all.
    const char* port = aDevice.Port.empty() ? nullptr : aDevice.Port.c_str();
    HDC dc = nullptr;
    if (!aDevice.Driver.empty())
        dc = CreateDCA(aDevice.Driver.c_str(), aDevice.Name.c_str(), port, nullptr);
    if (!dc) dc = CreateDCA("WINSPOOL", aDevice.Name.c_str(), nullptr, nullptr);
    if (!dc) dc = CreateDCA(nullptr, aDevice.Name.c_str(), nullptr, nullptr);
    return dc;
}

int PrintReportOnDC(HDC ahDC, const std::string& astrReport) {
    const int dpiY = std::max(GetDeviceCaps(ahDC, LOGPIXELSY), 1);
    HFONT font = CreateFontA(-MulDiv(kReportFontPoints, dpiY, 72), 0, 0, 0, FW_NORMAL, FALSE, FALSE,
                             FALSE, ANSI_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS,
                             DEFAULT_QUALITY, FIXED_PITCH | FF_MODERN, kReportFontFace);
    if (!font) throw RwzError(kObjectError + 1, kSource, "The printer font could not be made.");
    SelectedFont selected(ahDC, font);

    TEXTMETRICA metrics{};
    GetTextMetricsA(ahDC, &metrics);
    const int rowHeight = std::max<int>(metrics.tmHeight + metrics.tmExternalLeading, 1);
    SIZE cell{};
    GetTextExtentPoint32A(ahDC, "M", 1, &cell);
    const int charWidth = std::max<int>(cell.cx, 1);

    const RECT area = PrintableRect(ahDC);
    const int rows = std::max<int>((area.bottom - area.top) / rowHeight, 1);
    const int columns = std::max<int>((area.right - area.left) / charWidth, 1);

    std::vector<std::string> lines = ReportLines(astrReport);
    for (std::string& line : lines) std::replace(line.begin(), line.end(), '\t', ' ');
    const std::vector<std::vector<std::string>> pages = PaginateReport(lines, rows, columns);

    DOCINFOA document{};
    document.cbSize = sizeof document;
    document.lpszDocName = kReportDocumentName;
    if (StartDocA(ahDC, &document) <= 0)
        throw RwzError(kObjectError + 2, kSource,
                   "The printer did not accept the document (error " +
                       std::to_string(GetLastError()) + ").");
    SetBkMode(ahDC, TRANSPARENT);
    SetTextAlign(ahDC, TA_LEFT | TA_TOP | TA_NOUPDATECP);
    for (const std::vector<std::string>& page : pages) {
        bool printed = StartPage(ahDC) > 0;
        int y = area.top;
        for (size_t i = 0; printed && i < page.size(); ++i, y += rowHeight) {
            if (!page[i].empty())
                printed = TextOutA(ahDC, area.left, y, page[i].c_str(),
                                   static_cast<int>(page[i].size())) != FALSE;
        }
        if (!printed || EndPage(ahDC) <= 0) {
            AbortDoc(ahDC);
            throw RwzError(kObjectError + 3, kSource,
                       "The printer did not accept a page (error " +
                           std::to_string(GetLastError()) + ").");
        }
    }
    if (EndDoc(ahDC) <= 0)
        throw RwzError(kObjectError + 4, kSource, "The printer did not finish the document.");
    return static_cast<int>(pages.size());
}

}  // namespace rwz
