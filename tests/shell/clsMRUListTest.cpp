// The recent-files list against the real settings store in the registry.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/modUtilities.h"
#include "shell/clsMRUList.h"
#include "shell/frmOptions.h"

namespace rwz {
namespace {

using Files = std::vector<std::string>;

class MRUListTest : public ::testing::Test {
  protected:
    void SetUp() override { DeleteProgramSetting(kProductName, "Recent"); }
    void TearDown() override { DeleteProgramSetting(kProductName, "Recent"); }

    static Files Reloaded() {
        clsMRUList list;
        list.GetRecentList();
        return list.FileList();
    }
    static void SetMaxFile(const std::string& value) {
        SaveProgramSetting(kProductName, "Recent", "MaxFile", value);
    }
};

TEST_F(MRUListTest, ReopeningAPathInAnotherCaseMovesItToTheTop) {
    SetMaxFile("5");
    clsMRUList list;
    list.GetRecentList();
    list.SetRecentFile("c:\\a.rwz");
    list.SetRecentFile("C:\\B.rwz");
    list.SetRecentFile("C:\\A.RWZ");
    EXPECT_EQ((Files{"C:\\A.RWZ", "C:\\B.rwz"}), list.FileList());
    EXPECT_EQ(list.FileList(), Reloaded());
}

TEST_F(MRUListTest, TheListKeepsTheStoredMaximumAndNeverMoreThanTwenty) {
    struct Case {
        const char* maxFile;  // nullptr: never stored
        size_t kept;
    };
    for (const Case& c : {Case{nullptr, 5}, Case{"3", 3}, Case{"20", 20}, Case{"25", 20}}) {
        DeleteProgramSetting(kProductName, "Recent");
        if (c.maxFile) SetMaxFile(c.maxFile);
        clsMRUList list;
        list.GetRecentList();
        for (int i = 1; i <= 30; ++i) list.SetRecentFile("C:\\p" + std::to_string(i) + ".rwz");
        EXPECT_EQ(c.kept, list.FileList().size()) << (c.maxFile ? c.maxFile : "default");
        EXPECT_EQ("C:\\p30.rwz", list.FileList().front());
        EXPECT_EQ(list.FileList(), Reloaded());
    }
}

TEST_F(MRUListTest, RemovingAnEntryRemovesOnlyThatOneAndItStaysRemoved) {
    SetMaxFile("5");
    clsMRUList list;
    list.GetRecentList();
    for (const char* path : {"C:\\a.rwz", "C:\\b.rwz", "C:\\c.rwz"}) list.SetRecentFile(path);
    list.RemoveRecentFile("c:\\B.RWZ");
    EXPECT_EQ((Files{"C:\\c.rwz", "C:\\a.rwz"}), list.FileList());
    // The third stored entry of the longer list must not come back.
    EXPECT_EQ((Files{"C:\\c.rwz", "C:\\a.rwz"}), Reloaded());
}

TEST_F(MRUListTest, LoadingStopsAtTheFirstEmptyEntry) {
    SetMaxFile("5");
    SaveProgramSetting(kProductName, "Recent", "File1", "C:\\one.rwz");
    SaveProgramSetting(kProductName, "Recent", "File3", "C:\\three.rwz");
    EXPECT_EQ((Files{"C:\\one.rwz"}), Reloaded());
}

TEST(RecentFilesLength, OnlyAWholeNumberFromZeroToTwentyIsTaken) {
    const struct {
        const char* typed;
        int taken;  // -1: refused
    } rows[] = {
        {"4", 4},      {" 7 ", 7},   {"0", 0}, {"20", 20}, {"21", -1},
        {"99999", -1}, {"text", -1}, {"", -1}, {"-1", -1}, {"3.5", -1},
    };
    for (const auto& row : rows)
        EXPECT_EQ(frmOptions::ParseMaxRecent(row.typed).value_or(-1), row.taken) << row.typed;
}

}  // namespace
}  // namespace rwz
