// The report's text layout: centring, list and proxy values, the date, and
// the cutting of the report into printed pages.
#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>

#include "report/modReportLayout.h"

namespace rwz {
namespace {

TEST(CenterText, HalvesGoToTheEvenNumber) {
    struct Case {
        size_t length;
        size_t blanks;
    };
    // (44 - length) / 2: 0.5 -> 0, 1.5 -> 2, 2.5 -> 2, 3.5 -> 4, 21.5 -> 22, 20.5 -> 20.
    const Case cases[] = {{44, 0}, {45, 0}, {60, 0}, {43, 0}, {42, 1}, {41, 2}, {40, 2},
                          {39, 2}, {37, 4}, {1, 22}, {3, 20}, {0, 22}, {15, 14}};
    for (const Case& c : cases) {
        const std::string text(c.length, 'x');
        EXPECT_EQ(std::string(c.blanks, ' ') + text, CenterText(text)) << "length " << c.length;
    }
}

TEST(CenterText, AgreesWithRoundingToEvenForEveryLength) {
    ASSERT_EQ(FE_TONEAREST, std::fegetround());
    for (int length = 0; length <= 50; ++length) {
        const std::string text(static_cast<size_t>(length), 'x');
        const long blanks = length >= 44 ? 0 : std::lrint((44 - length) / 2.0);
        EXPECT_EQ(std::string(static_cast<size_t>(blanks), ' ') + text, CenterText(text))
            << "length " << length;
    }
}

TEST(ReportLine, PadsTheLabelWithDotsToColumn29) {
    EXPECT_EQ("NIC.........................x", ReportLine("NIC", "x"));
    EXPECT_EQ("Automatic Configuration URL.http://a/",
              ReportLine("Automatic Configuration URL", "http://a/"));
    EXPECT_EQ("Auto. Detect Settings.......No", ReportLine("Auto. Detect Settings", YesNo(false)));
    EXPECT_EQ("Logon to NT Domain..........Yes", ReportLine("Logon to NT Domain", YesNo(true)));
    EXPECT_EQ(std::string(44, '-'), ReportRule());
    EXPECT_EQ(std::string(44, '*') + "\r\n*  T  *\r\n" + std::string(44, '*') + "\r\n",
              ReportBanner("*  T  *"));
}

TEST(ReportList, JoinsTheEntriesOfEveryListFormWithCommaBlank) {
    struct Case {
        std::string list;
        const char* shown;
    };
    const Case cases[] = {
        {std::string("10.0.0.5\0"
                     "10.0.0.6",
                     17),
         "10.0.0.5, 10.0.0.6"},  // a multi-string
        {std::string("10.0.0.5\0", 9), "10.0.0.5"},
        {"10.0.0.5,10.0.0.6", "10.0.0.5, 10.0.0.6"},
        {"10.0.0.5 10.0.0.6", "10.0.0.5, 10.0.0.6"},
        {"*.corp.test;10.*;;", "*.corp.test, 10.*"},
        {" a , b ", "a, b"},
        {"", ""},
        {std::string("\0\0", 2), ""},
    };
    for (const Case& c : cases) EXPECT_EQ(c.shown, ReportList(c.list));
}

TEST(ReportProxy, ServerColonPortOrLess) {
    EXPECT_EQ("proxy.test:8080", ReportProxy("proxy.test", "8080"));
    EXPECT_EQ("proxy.test", ReportProxy("proxy.test", ""));
    EXPECT_EQ("", ReportProxy("", "8080"));
    EXPECT_EQ("", ReportProxy("", ""));
}

TEST(ReportDateTime, MonthDayYearTwoBlanksThen24HourTime) {
    EXPECT_EQ("03/07/2005  09:05:02", ReportDateTime(2005, 3, 7, 9, 5, 2));
    EXPECT_EQ("12/31/1999  23:59:59", ReportDateTime(1999, 12, 31, 23, 59, 59));
}

TEST(ReportLines, SplitsAtLineEndsWithoutATrailingEmptyLine) {
    EXPECT_EQ((std::vector<std::string>{"a", "b"}), ReportLines("a\r\nb\r\n"));
    EXPECT_EQ((std::vector<std::string>{"a", "b"}), ReportLines("a\nb"));
    EXPECT_EQ((std::vector<std::string>{"", "x", ""}), ReportLines("\r\nx\r\n\r\n"));
    EXPECT_TRUE(ReportLines("").empty());
}

std::vector<std::string> Numbered(int count) {
    std::vector<std::string> lines;
    for (int i = 1; i <= count; ++i) lines.push_back("line " + std::to_string(i));
    return lines;
}

std::vector<std::string> BannerLines(const std::string& title) {
    return {std::string(44, '*'), title, std::string(44, '*')};
}

TEST(PaginateReport, FillsPagesInOrder) {
    const auto pages = PaginateReport(Numbered(10), 4, 80);
    ASSERT_EQ(3u, pages.size());
    EXPECT_EQ((std::vector<std::string>{"line 1", "line 2", "line 3", "line 4"}), pages[0]);
    EXPECT_EQ((std::vector<std::string>{"line 9", "line 10"}), pages[2]);
    EXPECT_EQ(1u, PaginateReport(Numbered(3), 60, 80).size());
    EXPECT_TRUE(PaginateReport({}, 60, 80).empty());
}

TEST(PaginateReport, KeepsABannerWithTheLineAfterIt) {
    std::vector<std::string> lines = {"a", "b"};
    for (const std::string& line : BannerLines("*  Title  *")) lines.push_back(line);
    lines.push_back("NIC.........................x");
    lines.push_back("Host........................y");
    // Rows 3 to 5 would take the banner but not its first line.
    const auto pages = PaginateReport(lines, 5, 80);
    ASSERT_EQ(2u, pages.size());
    EXPECT_EQ((std::vector<std::string>{"a", "b"}), pages[0]);
    ASSERT_EQ(5u, pages[1].size());
    EXPECT_EQ(std::string(44, '*'), pages[1][0]);
    EXPECT_EQ("NIC.........................x", pages[1][3]);
}

TEST(PaginateReport, StartsNoPageWithEmptyLines) {
    const auto pages = PaginateReport({"a", "b", "", "", "c", ""}, 2, 80);
    ASSERT_EQ(2u, pages.size());
    EXPECT_EQ((std::vector<std::string>{"c"}), pages[1]);
}

TEST(PaginateReport, WrapsAWideLineIntoTheValueColumn) {
    const std::string line = ReportLine("Proxy Exceptions",
                                        "*.alpha.test, *.beta.test, "
                                        "*.gamma.test, *.delta.test");
    const auto pages = PaginateReport({line}, 10, 60);
    ASSERT_EQ(1u, pages.size());
    ASSERT_EQ(2u, pages[0].size());
    EXPECT_EQ("Proxy Exceptions............*.alpha.test, *.beta.test,", pages[0][0]);
    EXPECT_EQ(std::string(28, ' ') + "*.gamma.test, *.delta.test", pages[0][1]);
    for (const std::string& row : pages[0]) EXPECT_LE(row.size(), 60u);
}

TEST(PaginateReport, CutsAWideLineWithoutSeparatorsAtTheEdge) {
    const std::string value(100, 'x');
    const auto pages = PaginateReport({ReportLine("Default Home Page", value)}, 10, 60);
    ASSERT_EQ(1u, pages.size());
    // 32 characters of the value on the first row, 32 on each further one.
    ASSERT_EQ(4u, pages[0].size());
    EXPECT_EQ(ReportLine("Default Home Page", std::string(32, 'x')), pages[0][0]);
    EXPECT_EQ(std::string(28, ' ') + std::string(32, 'x'), pages[0][1]);
    EXPECT_EQ(std::string(28, ' ') + std::string(32, 'x'), pages[0][2]);
    EXPECT_EQ(std::string(28, ' ') + std::string(4, 'x'), pages[0][3]);
}

TEST(PaginateReport, MovesAWrappedLineWholeToTheNextPage) {
    const std::string wide = ReportLine("DNS Servers", std::string(40, 'y'));
    const auto pages = PaginateReport({"a", "b", wide}, 3, 60);
    ASSERT_EQ(2u, pages.size());
    EXPECT_EQ((std::vector<std::string>{"a", "b"}), pages[0]);
    EXPECT_EQ(2u, pages[1].size());
}

TEST(PaginateReport, RunsAUnitLongerThanAPageOverSeveralPages) {
    const std::string wide(500, 'z');
    const auto pages = PaginateReport({wide}, 2, 60);
    size_t characters = 0;
    for (const auto& page : pages) {
        EXPECT_LE(page.size(), 2u);
        for (const std::string& row : page) characters += row.size() - row.find('z');
    }
    EXPECT_EQ(500u, characters);
    EXPECT_GE(pages.size(), 4u);
}

}  // namespace
}  // namespace rwz
