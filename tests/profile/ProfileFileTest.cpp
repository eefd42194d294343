// The profile container against files written and read by the system's own
// private-profile functions.
#include <windows.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/AppVersion.h"
#include "platform/RwzError.h"
#include "platform/modLogging.h"
#include "profile/modProfileFile.h"
#include "profile/modProfileIO.h"

namespace rwz {
namespace {

// A folder of its own for each test, removed afterwards.
class ProfileFileTest : public ::testing::Test {
  protected:
    void SetUp() override {
        char temp[MAX_PATH];
        GetTempPathA(sizeof temp, temp);
        static int counter = 0;
        mFolder = std::string(temp) + "rwz-profile-" + std::to_string(GetCurrentProcessId()) + "-" +
                  std::to_string(++counter);
        ASSERT_TRUE(CreateDirectoryA(mFolder.c_str(), nullptr));
    }
    void TearDown() override {
        WIN32_FIND_DATAA found;
        HANDLE find = FindFirstFileA((mFolder + "\\*").c_str(), &found);
        if (find != INVALID_HANDLE_VALUE) {
            do {
                const std::string path = mFolder + "\\" + found.cFileName;
                SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
                DeleteFileA(path.c_str());
                WritePrivateProfileStringA(nullptr, nullptr, nullptr, path.c_str());
            } while (FindNextFileA(find, &found));
            FindClose(find);
        }
        RemoveDirectoryA(mFolder.c_str());
    }

    std::string Path(const std::string& name) const { return mFolder + "\\" + name; }

    static void WriteRaw(const std::string& path, const std::string& content) {
        HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
        ASSERT_NE(file, INVALID_HANDLE_VALUE);
        DWORD written = 0;
        WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
        CloseHandle(file);
    }
    static std::string ReadRaw(const std::string& path) {
        HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
        if (file == INVALID_HANDLE_VALUE) return "<missing>";
        std::string content(GetFileSize(file, nullptr), '\0');
        DWORD read = 0;
        if (!content.empty()) ReadFile(file, &content[0], content.size(), &read, nullptr);
        CloseHandle(file);
        return content;
    }

    std::string mFolder;
};

// Section owners that write one or two sections each and note every call.
struct FakeOwners {
    std::vector<std::string> calls;
    std::vector<ProfileSectionOwner> owners;

    explicit FakeOwners(bool ieInstalled = true, bool nnInstalled = true,
                        bool operaInstalled = true) {
        // Deliberately out of file order: the container puts them in order.
        Add(ProfileArea::AddIn, true, "AddIn", {{"Tray Add-In", "Mode", "2"}});
        Add(ProfileArea::Opera, operaInstalled, "Opera", {{"Opera", "ProxyEnable", "0"}});
        Add(ProfileArea::General, true, "Network",
            {{"Network", "Adapter", "index:0"}, {"Printer", "DefaultPrinter", "HP LaserJet"}});
        Add(ProfileArea::NetscapeNavigator, nnInstalled, "Netscape",
            {{"Netscape Navigator", "HTTPProxy", "proxy"}});
        Add(ProfileArea::InternetExplorer, ieInstalled, "IE",
            {{"Internet Explorer", "ProxyEnable", "1"}});
    }

    struct Key {
        const char* section;
        const char* key;
        const char* value;
    };
    void Add(ProfileArea area, bool installed, const std::string& name, std::vector<Key> keys) {
        ProfileSectionOwner owner;
        owner.Area = area;
        owner.Installed = installed;
        owner.SaveSections = [this, name, keys](const std::string& file) {
            calls.push_back("save " + name);
            for (const Key& k : keys) WriteProfileString(file, k.section, k.key, k.value);
        };
        owner.LoadSections = [this, name](const std::string&) { calls.push_back("load " + name); };
        owners.push_back(std::move(owner));
    }
};

std::vector<std::string> Lines(const std::string& content) {
    std::vector<std::string> lines;
    size_t from = 0;
    for (size_t at; (at = content.find("\r\n", from)) != std::string::npos; from = at + 2) {
        lines.push_back(content.substr(from, at - from));
    }
    if (from < content.size()) lines.push_back(content.substr(from) + "<no line end>");
    return lines;
}

std::string JoinLines(const std::vector<std::string>& lines, size_t from) {
    std::string text;
    for (size_t i = from; i < lines.size(); ++i) text += lines[i] + "\n";
    return text;
}

TEST_F(ProfileFileTest, WritesHeaderThenContainerThenAreasInOrder) {
    ProfileFileSettings settings;
    settings.ApplyNN = false;  // installed but switched off
    settings.AutoApply = true;
    settings.Comments = "Office, 3rd floor";
    FakeOwners fake(true, true, /*operaInstalled=*/false);
    const std::string file = Path("Office.rwz");

    WriteProfileFile(file, settings, fake.owners);

    const std::vector<std::string> lines = Lines(ReadRaw(file));
    ASSERT_GE(lines.size(), 7u);
    const std::string rule = ";" + std::string(44, '-');
    EXPECT_EQ(lines[0], rule);
    EXPECT_EQ(lines[1], "; Roamwise - v" RWZ_VERSION_TEXT);
    EXPECT_EQ(lines[2], ";");
    EXPECT_EQ(lines[3].substr(0, 2), "; ");
    EXPECT_EQ(lines[4].substr(0, 2), "; ");
    EXPECT_EQ(lines[5], rule);
    EXPECT_EQ(lines[6], "");  // the empty line survives the key-by-key rewrites
    EXPECT_EQ(JoinLines(lines, 7),
              "[Enabled Sections]\n"
              "General=1\n"
              "Internet Explorer=1\n"
              "Netscape Navigator=0\n"
              "Opera=1\n"
              "[Advanced]\n"
              "AutoApply=1\n"
              "AutoReboot=0\n"
              "Comments=Office, 3rd floor\n"
              "[Network]\n"
              "Adapter=index:0\n"
              "[Printer]\n"
              "DefaultPrinter=HP LaserJet\n"
              "[Internet Explorer]\n"
              "ProxyEnable=1\n"
              "[Tray Add-In]\n"
              "Mode=2\n");
    EXPECT_EQ(fake.calls, (std::vector<std::string>{"save Network", "save IE", "save AddIn"}));
}

TEST_F(ProfileFileTest, SavingTwiceGivesTheSameBytes) {
    ProfileFileSettings settings;
    settings.AutoReboot = true;
    settings.Comments = "Home";
    FakeOwners fake;
    const std::string file = Path("Home.rwz");

    WriteProfileFile(file, settings, fake.owners);
    const std::string first = ReadRaw(file);
    WriteProfileFile(file, settings, fake.owners);
    EXPECT_EQ(ReadRaw(file), first);

    // Reading it back and saving what was read changes nothing either.
    ProfileFileSettings read;
    ReadProfileFile(file, read, fake.owners);
    WriteProfileFile(file, read, fake.owners);
    EXPECT_EQ(ReadRaw(file), first);
}

TEST_F(ProfileFileTest, SavingReplacesEverythingTheFileHeld) {
    const std::string file = Path("Client.rwz");
    WriteRaw(file,
             "; hand-made\r\n[Enabled Sections]\r\nOpera=1\r\n[Advanced]\r\nReadOnly=1\r\n"
             "Comments=old\r\n[Opera]\r\nProxyEnable=1\r\n[Unknown]\r\nx=1\r\n");
    ProfileFileSettings settings;  // Opera stays on, but Opera is not installed here
    FakeOwners fake(true, true, /*operaInstalled=*/false);

    WriteProfileFile(file, settings, fake.owners);

    const std::string content = ReadRaw(file);
    EXPECT_EQ(content.find("hand-made"), std::string::npos);
    EXPECT_EQ(content.find("ReadOnly"), std::string::npos);
    EXPECT_EQ(content.find("[Opera]"), std::string::npos);
    EXPECT_EQ(content.find("[Unknown]"), std::string::npos);
    EXPECT_NE(content.find("Opera=1\r\n"), std::string::npos);
}

TEST_F(ProfileFileTest, AdvancedSettingsAloneKeepTheRestOfTheFile) {
    ProfileFileSettings settings;
    settings.Comments = "before";
    FakeOwners fake;
    const std::string file = Path("Edit.rwz");
    WriteProfileFile(file, settings, fake.owners);

    settings.Comments = "after";
    settings.AutoApply = true;
    WriteAdvancedSettings(file, settings);
    const std::string edited = ReadRaw(file);

    WriteProfileFile(file, settings, fake.owners);
    EXPECT_EQ(edited, ReadRaw(file));
}

TEST_F(ProfileFileTest, OwnersAreAskedOnlyForEnabledInstalledAreas) {
    struct Case {
        bool general, ie, nn, opera;  // enabled
        bool ieInstalled, nnInstalled, operaInstalled;
        std::vector<std::string> loads;
    };
    const Case cases[] = {
        {true,
         true,
         true,
         true,
         true,
         true,
         true,
         {"load Network", "load IE", "load Netscape", "load Opera", "load AddIn"}},
        {false, false, false, false, true, true, true, {"load AddIn"}},
        {true, true, true, true, false, false, false, {"load Network", "load AddIn"}},
        {false, true, false, true, true, false, true, {"load IE", "load Opera", "load AddIn"}},
    };
    for (const Case& c : cases) {
        const std::string file = Path("areas.rwz");
        ProfileFileSettings settings;
        settings.ApplyGeneral = c.general;
        settings.ApplyIE = c.ie;
        settings.ApplyNN = c.nn;
        settings.ApplyOpera = c.opera;
        FakeOwners writer;
        WriteProfileFile(file, settings, writer.owners);

        FakeOwners fake(c.ieInstalled, c.nnInstalled, c.operaInstalled);
        ProfileFileSettings read;
        ReadProfileFile(file, read, fake.owners);
        EXPECT_EQ(fake.calls, c.loads);
        EXPECT_EQ(read.ApplyGeneral, c.general);
        EXPECT_EQ(read.ApplyIE, c.ie);
        EXPECT_EQ(read.ApplyNN, c.nn);
        EXPECT_EQ(read.ApplyOpera, c.opera);
    }
}

TEST_F(ProfileFileTest, OnlyExactlyOneEnablesAnArea) {
    struct Case {
        const char* line;  // the General line of [Enabled Sections]
        bool enabled;
    };
    const Case cases[] = {
        {"General=1", true},     {"General= 1", true},    {"General = 1 ", true},
        {"general=1", true},     {"General=\"1\"", true}, {"General=yes", false},
        {"General=true", false}, {"General=01", false},   {"General=", false},
        {"General=0", false},    {"General=1x", false},   {"; General=0", true},
        {"General", true},  // no "=": not a key, the default applies
    };
    for (const Case& c : cases) {
        const std::string file = Path("general.rwz");
        WriteRaw(file,
                 std::string("[Enabled Sections]\r\n") + c.line + "\r\nInternet Explorer=0\r\n");
        ProfileFileSettings settings;
        ReadEnabledSections(file, settings);
        EXPECT_EQ(settings.ApplyGeneral, c.enabled) << c.line;
        EXPECT_FALSE(settings.ApplyIE) << c.line;  // the next key is not disturbed
        EXPECT_TRUE(settings.ApplyNN) << c.line;   // missing keys enable
    }
}

TEST_F(ProfileFileTest, FileWithOnlyReadOnlyOpensEverythingEnabledAndReadOnly) {
    const std::string file = Path("ro.rwz");
    WriteRaw(file, "[Advanced]\r\nReadOnly=1\r\n");
    ProfileFileSettings settings;
    settings.ApplyIE = false;
    settings.AutoApply = true;
    settings.Comments = "stale";
    FakeOwners fake;

    ReadProfileFile(file, settings, fake.owners);

    EXPECT_TRUE(settings.ApplyGeneral && settings.ApplyIE && settings.ApplyNN &&
                settings.ApplyOpera);
    EXPECT_TRUE(settings.ReadOnly);
    EXPECT_FALSE(settings.AutoApply);
    EXPECT_FALSE(settings.AutoReboot);
    EXPECT_EQ(settings.Comments, "");
}

TEST_F(ProfileFileTest, MissingFileReadsAsDefaultsAndIsNotCreated) {
    const std::string file = Path("nowhere.rwz");
    ProfileFileSettings settings;
    settings.ApplyOpera = false;
    settings.ReadOnly = true;
    settings.AutoReboot = true;
    FakeOwners fake;

    EXPECT_EQ(LoadProfileFile("clsRwzConfig:LoadConfigurationFile", file, settings, fake.owners),
              0);

    EXPECT_TRUE(settings.ApplyGeneral && settings.ApplyIE && settings.ApplyNN &&
                settings.ApplyOpera);
    EXPECT_FALSE(settings.ReadOnly || settings.AutoReboot || settings.AutoApply);
    EXPECT_EQ(fake.calls.size(), 5u);  // every back end reads its own defaults
    EXPECT_EQ(GetFileAttributesA(file.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(ProfileFileTest, LongCommentReadsBackAs254Characters) {
    std::string comment;
    for (int i = 0; i < 300; ++i) comment += static_cast<char>('a' + i % 26);
    ProfileFileSettings settings;
    settings.Comments = comment;
    const std::string file = Path("long.rwz");
    WriteProfileFile(file, settings, {});

    EXPECT_NE(ReadRaw(file).find("Comments=" + comment + "\r\n"), std::string::npos);
    ProfileFileSettings read;
    ReadAdvancedSettings(file, read);
    EXPECT_EQ(read.Comments, comment.substr(0, 254));
}

TEST_F(ProfileFileTest, CommentWithLineBreakReadsUpToTheBreak) {
    ProfileFileSettings settings;
    settings.Comments = "first line\r\nsecond line";
    settings.AutoReboot = true;
    FakeOwners fake;
    const std::string file = Path("break.rwz");
    WriteProfileFile(file, settings, fake.owners);
    const std::string first = ReadRaw(file);
    WriteProfileFile(file, settings, fake.owners);
    EXPECT_EQ(ReadRaw(file), first);

    ProfileFileSettings read;
    ReadProfileFile(file, read, fake.owners);
    EXPECT_EQ(read.Comments, "first line");
    EXPECT_TRUE(read.AutoReboot);
    EXPECT_EQ(ReadProfileString(file, "Advanced", "second line", "none"), "none");
    EXPECT_EQ(ReadProfileString(file, "Network", "Adapter"), "index:0");
}

TEST_F(ProfileFileTest, FirstOfDuplicateSectionsAndKeysWins) {
    const std::string file = Path("dup.rwz");
    WriteRaw(file,
             "[Enabled Sections]\r\nGeneral=0\r\nOpera=0\r\nOpera=1\r\n"
             "[Advanced]\r\nComments=one\r\n"
             "[ENABLED SECTIONS]\r\nGeneral=1\r\nInternet Explorer=0\r\n");
    ProfileFileSettings settings;
    ReadProfileFile(file, settings, {});
    EXPECT_FALSE(settings.ApplyGeneral);
    EXPECT_FALSE(settings.ApplyOpera);
    EXPECT_TRUE(settings.ApplyIE);  // only the first copy of the section is read
    EXPECT_EQ(settings.Comments, "one");
}

TEST_F(ProfileFileTest, FileThatCannotBeWrittenRaisesPathFileAccess) {
    const std::string kept = "[Advanced]\r\nComments=keep\r\n";
    const std::string readOnly = Path("read-only.rwz");
    WriteRaw(readOnly, kept);
    SetFileAttributesA(readOnly.c_str(), FILE_ATTRIBUTE_READONLY);
    const std::string inUse = Path("in-use.rwz");
    WriteRaw(inUse, kept);
    HANDLE holder = CreateFileA(inUse.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(holder, INVALID_HANDLE_VALUE);
    const std::string missingFolder = Path("no such folder\\x.rwz");

    for (const std::string& file : {readOnly, inUse, missingFolder}) {
        try {
            WriteProfileFile(file, ProfileFileSettings{}, {});
            ADD_FAILURE() << file << " was written";
        } catch (const RwzError& error) {
            EXPECT_EQ(error.Number(), kErrPathFileAccess) << file;
        }
    }
    try {
        WriteAdvancedSettings(readOnly, ProfileFileSettings{});
        ADD_FAILURE() << "[Advanced] written into a read-only file";
    } catch (const RwzError& error) {
        EXPECT_EQ(error.Number(), kErrPathFileAccess);
    }
    CloseHandle(holder);
    SetFileAttributesA(readOnly.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(ReadRaw(readOnly), kept);
    EXPECT_EQ(ReadRaw(inUse), kept);
}

TEST_F(ProfileFileTest, FailedSaveReturnsTheErrorAndLogsOnlyFaults) {
    const std::string readOnly = Path("locked.rwz");
    WriteRaw(readOnly, "");
    SetFileAttributesA(readOnly.c_str(), FILE_ATTRIBUTE_READONLY);
    const std::string broken = Path("broken.rwz");
    FakeOwners fake;
    fake.owners[2].SaveSections = [](const std::string&) {
        throw RwzError(kObjectError + 7, "clsNetConfig2K", "Adapter list unavailable");
    };
    const std::string where = "clsRwzConfig:SaveConfigurationFile";
    const std::string logged = " : " + where + "\r\n";

    size_t logStart = ReadRaw(LogFilePath()).size();
    auto failure = SaveProfileFile(where, readOnly, ProfileFileSettings{}, {});
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->Number, kErrPathFileAccess);
    // A file that cannot be written is no fault of the program: not logged.
    EXPECT_EQ(ReadRaw(LogFilePath()).substr(logStart).find(logged), std::string::npos);
    logStart = ReadRaw(LogFilePath()).size();
    failure = SaveProfileFile(where, broken, ProfileFileSettings{}, fake.owners);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->Description, "Adapter list unavailable");
    EXPECT_NE(ReadRaw(LogFilePath())
                  .substr(logStart)
                  .find("ERROR - Adapter list unavailable (" + std::to_string(kObjectError + 7) +
                        ")" + logged),
              std::string::npos);
    // What was written before the error stays.
    EXPECT_EQ(ReadProfileString(broken, "Advanced", "AutoApply"), "0");
    EXPECT_EQ(ReadProfileString(broken, "Network", "Adapter", "none"), "none");
}

TEST_F(ProfileFileTest, FailedLoadStopsAtTheFailingOwnerAndStillReportsZero) {
    const std::string file = Path("load.rwz");
    WriteRaw(file, "[Enabled Sections]\r\nOpera=0\r\n[Advanced]\r\nAutoApply=1\r\n");
    FakeOwners fake;
    fake.owners[4].LoadSections = [&](const std::string&) {  // Internet Explorer
        fake.calls.push_back("load IE");
        throw RwzError(kObjectError + 1, "InternetExplorerLib", "broken");
    };
    ProfileFileSettings settings;

    EXPECT_EQ(LoadProfileFile("clsRwzConfig:LoadConfigurationFile", file, settings, fake.owners),
              0);
    EXPECT_EQ(fake.calls, (std::vector<std::string>{"load Network", "load IE"}));
    EXPECT_TRUE(settings.AutoApply);
    EXPECT_FALSE(settings.ApplyOpera);
}

}  // namespace
}  // namespace rwz
