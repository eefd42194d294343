#include "report/modReportLayout.h"

#include <algorithm>
#include <cstdio>

namespace rwz {

namespace {

bool IsListSeparator(char c) {
    return c == '\0' || c == ',' || c == ';' || c == ' ' || c == '\t';
}

bool IsBannerEdge(const std::string& astrLine) {
    return astrLine.size() == static_cast<size_t>(kReportWidth) &&
           astrLine.find_first_not_of('*') == std::string::npos;
}

// One logical line cut into rows of at most `aintColumns` characters.
std::vector<std::string> WrapLine(const std::string& astrLine, int aintColumns) {
    std::vector<std::string> rows;
    if (aintColumns < 1 || astrLine.size() <= static_cast<size_t>(aintColumns)) {
        rows.push_back(astrLine);
        return rows;
    }
    // Continuation rows start in the value column when the page leaves room
    // for a useful part of the value there.
    const int indent = aintColumns >= kReportLabelWidth + 16 ? kReportLabelWidth : 0;
    size_t pos = 0;
    int width = aintColumns;
    std::string prefix;
    while (pos < astrLine.size()) {
        const size_t room = static_cast<size_t>(width);
        size_t take = std::min(room, astrLine.size() - pos);
        if (pos + take < astrLine.size()) {
            // Break after the last separator in the second half of the row.
            for (size_t i = take; i > room / 2; --i) {
                const char c = astrLine[pos + i - 1];
                if (c == ' ' || c == ',' || c == ';' || c == '/' || c == '&' || c == '?') {
                    take = i;
                    break;
                }
            }
        }
        std::string row = prefix + astrLine.substr(pos, take);
        while (!row.empty() && row.back() == ' ') row.pop_back();
        rows.push_back(row);
        pos += take;
        while (pos < astrLine.size() && astrLine[pos] == ' ') ++pos;
        prefix.assign(static_cast<size_t>(indent), ' ');
        width = aintColumns - indent;
    }
    return rows;
}

}  // namespace

std::string CenterText(const std::string& astrText, int aintWidth) {
    const int length = static_cast<int>(astrText.size());
    if (length >= aintWidth) return astrText;
    const int free = aintWidth - length;
    int blanks = free / 2;
    // An odd number of free columns leaves a half: it goes to the even number.
    if (free % 2 != 0 && blanks % 2 != 0) ++blanks;
    return std::string(static_cast<size_t>(blanks), ' ') + astrText;
}

std::string ReportLine(const std::string& astrLabel, const std::string& astrValue) {
    std::string line = astrLabel;
    if (line.size() < static_cast<size_t>(kReportLabelWidth))
        line.append(static_cast<size_t>(kReportLabelWidth) - line.size(), '.');
    return line + astrValue;
}

std::string ReportRule() {
    return std::string(static_cast<size_t>(kReportWidth), '-');
}

std::string ReportBanner(const std::string& astrTitleLine) {
    const std::string stars(static_cast<size_t>(kReportWidth), '*');
    return stars + kReportLineEnd + astrTitleLine + kReportLineEnd + stars + kReportLineEnd;
}

std::string YesNo(bool ablnValue) {
    return ablnValue ? "Yes" : "No";
}

std::string ReportList(const std::string& astrList) {
    std::string result;
    size_t pos = 0;
    while (pos < astrList.size()) {
        while (pos < astrList.size() && IsListSeparator(astrList[pos])) ++pos;
        size_t end = pos;
        while (end < astrList.size() && !IsListSeparator(astrList[end])) ++end;
        if (end > pos) {
            if (!result.empty()) result += ", ";
            result.append(astrList, pos, end - pos);
        }
        pos = end;
    }
    return result;
}

std::string ReportProxy(const std::string& astrHost, const std::string& astrPort) {
    if (astrHost.empty()) return std::string();
    if (astrPort.empty()) return astrHost;
    return astrHost + ":" + astrPort;
}

std::string ReportDateTime(int aintYear, int aintMonth, int aintDay, int aintHour, int aintMinute,
                           int aintSecond) {
    char text[32];
    std::snprintf(text, sizeof text, "%02d/%02d/%04d  %02d:%02d:%02d", aintMonth, aintDay, aintYear,
                  aintHour, aintMinute, aintSecond);
    return text;
}

std::vector<std::string> ReportLines(const std::string& astrReport) {
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < astrReport.size()) {
        size_t end = astrReport.find('\n', start);
        if (end == std::string::npos) end = astrReport.size();
        size_t stop = end;
        if (stop > start && astrReport[stop - 1] == '\r') --stop;
        lines.push_back(astrReport.substr(start, stop - start));
        start = end + 1;
    }
    return lines;
}

std::vector<std::vector<std::string>> PaginateReport(const std::vector<std::string>& astrLines,
                                                     int aintRows, int aintColumns) {
    const size_t rows = static_cast<size_t>(std::max(aintRows, 1));

    // Units that must stand on one page: a wrapped line's rows, and a banner
    // together with the line after it.
    std::vector<std::vector<std::string>> units;
    for (size_t i = 0; i < astrLines.size(); ++i) {
        std::vector<std::string> unit = WrapLine(astrLines[i], aintColumns);
        if (IsBannerEdge(astrLines[i]) && i + 3 < astrLines.size() &&
            IsBannerEdge(astrLines[i + 2])) {
            for (size_t j = i + 1; j <= i + 3; ++j) {
                std::vector<std::string> more = WrapLine(astrLines[j], aintColumns);
                unit.insert(unit.end(), more.begin(), more.end());
            }
            i += 3;
        }
        units.push_back(std::move(unit));
    }

    std::vector<std::vector<std::string>> pages;
    std::vector<std::string> page;
    for (const std::vector<std::string>& unit : units) {
        const bool blank = unit.size() == 1 && unit.front().empty();
        if (page.empty() && blank) continue;
        if (!page.empty() && page.size() + unit.size() > rows) {
            pages.push_back(std::move(page));
            page.clear();
            if (blank) continue;
        }
        // A unit longer than a whole page runs on over as many pages as it needs.
        for (const std::string& row : unit) {
            if (page.size() == rows) {
                pages.push_back(std::move(page));
                page.clear();
            }
            page.push_back(row);
        }
    }
    while (!page.empty() && page.back().empty()) page.pop_back();
    if (!page.empty()) pages.push_back(std::move(page));
    return pages;
}

}  // namespace rwz
