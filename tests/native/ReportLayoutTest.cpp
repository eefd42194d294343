// The report's text layout where the report files do not show it: list values
// in every form they come in, and the cutting of the report into printed
// pages.
#include <gtest/gtest.h>

#include "report/modReportLayout.h"

namespace rwz {
namespace {

TEST(ReportList, JoinsTheEntriesOfEveryListFormWithCommaBlank) {
    using namespace std::string_literals;
    const struct {
        std::string list;
        const char* shown;
    } cases[] = {
        {"10.0.0.5\0"s
         "10.0.0.6",
         "10.0.0.5, 10.0.0.6"},  // a multi-string
        {"10.0.0.5\0"s, "10.0.0.5"},
        {"10.0.0.5,10.0.0.6", "10.0.0.5, 10.0.0.6"},
        {"10.0.0.5 10.0.0.6", "10.0.0.5, 10.0.0.6"},
        {"*.corp.test;10.*;;", "*.corp.test, 10.*"},
        {" a , b ", "a, b"},
        {"", ""},
        {"\0\0"s, ""},
    };
    for (const auto& c : cases) EXPECT_EQ(c.shown, ReportList(c.list)) << c.list;
}

TEST(PaginateReport, FillsPagesInOrder) {
    const auto pages = PaginateReport({"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}, 4, 80);
    ASSERT_EQ(3u, pages.size());
    EXPECT_EQ((std::vector<std::string>{"1", "2", "3", "4"}), pages[0]);
    EXPECT_EQ((std::vector<std::string>{"9", "10"}), pages[2]);
    EXPECT_TRUE(PaginateReport({}, 60, 80).empty());
}

TEST(PaginateReport, KeepsABannerWithTheLineAfterIt) {
    const std::string stars(44, '*');
    const std::vector<std::string> lines = {"a",   "b",       stars,    "*  Title  *",
                                            stars, "NIC...x", "Host..y"};
    // Rows 3 to 5 would take the banner but not its first line.
    const auto pages = PaginateReport(lines, 5, 80);
    ASSERT_EQ(2u, pages.size());
    EXPECT_EQ((std::vector<std::string>{"a", "b"}), pages[0]);
    ASSERT_EQ(5u, pages[1].size());
    EXPECT_EQ(std::string(44, '*'), pages[1][0]);
    EXPECT_EQ("NIC...x", pages[1][3]);
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
}

}  // namespace
}  // namespace rwz
