// The text layout of the settings report: fixed-width lines of a 44-column
// page (rules, banners, centred titles) and labelled data lines whose values
// start in column 29, and the cutting of the report into printed pages.
#pragma once

#include <string>
#include <vector>

namespace rwz {

// Width of rules, banners and centred lines.
inline constexpr int kReportWidth = 44;
// Width of a label with its dots; the value starts right after it.
inline constexpr int kReportLabelWidth = 28;
// Line end of the report.
inline constexpr const char* kReportLineEnd = "\r\n";

// The text with (width - length) / 2 blanks in front, the half rounded to the
// even number; a text as wide as the line or wider is returned unchanged.
std::string CenterText(const std::string& astrText, int aintWidth = kReportWidth);

// The label padded with dots to 28 characters, then the value.
std::string ReportLine(const std::string& astrLabel, const std::string& astrValue);

// 44 hyphens.
std::string ReportRule();

// The three banner lines (44 asterisks, the title line, 44 asterisks), each
// followed by the line end.
std::string ReportBanner(const std::string& astrTitleLine);

std::string YesNo(bool ablnValue);

// A list as the back ends hold it (entries separated by NUL, ",", ";" or
// blanks) written for a reader: the entries joined by ", ".
std::string ReportList(const std::string& astrList);

// A proxy as server ":" port; the server alone when there is no port, nothing
// without a server.
std::string ReportProxy(const std::string& astrHost, const std::string& astrPort);

// "MM/DD/YYYY  HH:MM:SS", 24-hour clock.
std::string ReportDateTime(int aintYear, int aintMonth, int aintDay, int aintHour, int aintMinute,
                           int aintSecond);

// The report's lines, split at CR LF (or a lone LF); a final line end opens no
// further line.
std::vector<std::string> ReportLines(const std::string& astrReport);

// The report's lines laid out on pages of `aintRows` rows of `aintColumns`
// characters. A line wider than the page continues on the next rows, indented
// to the value column and broken after a separator where one is near the end;
// a line is never split across pages; a banner stays on the page of the line
// that follows it; a page does not start with empty lines.
std::vector<std::vector<std::string>> PaginateReport(const std::vector<std::string>& astrLines,
                                                     int aintRows, int aintColumns);

}  // namespace rwz
