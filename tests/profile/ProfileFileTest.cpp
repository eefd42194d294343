// The profile file: the reading and writing rules every profile section goes
// through (modProfileIO), and what the container asks of the section owners
// and tells the user when a file cannot be written.
#include <gtest/gtest.h>

#include <windows.h>

#include "platform/RwzError.h"
#include "profile/modProfileFile.h"
#include "profile/modProfileIO.h"

namespace rwz {
namespace {

std::string TempFile(const std::string& name) {
    char temp[MAX_PATH];
    GetTempPathA(sizeof temp, temp);
    return std::string(temp) + "rwz-" + std::to_string(GetCurrentProcessId()) + "-" + name;
}

void WriteRaw(const std::string& path, const std::string& content) {
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, path.c_str());
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
    CloseHandle(file);
}

std::string ReadRaw(const std::string& path) {
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, path.c_str());
    HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                              0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return "<missing>";
    std::string content(GetFileSize(file, nullptr), '\0');
    DWORD read = 0;
    if (!content.empty())
        ReadFile(file, &content[0], static_cast<DWORD>(content.size()), &read, nullptr);
    CloseHandle(file);
    return content;
}

// A value as read from a file holding these lines (key "Key" of [S]).
TEST(ProfileIOTest, ReadingRules) {
    const std::string long300 = std::string(300, 'x');
    const struct {
        std::string Lines;
        std::string Value;
    } cases[] = {
        {"[S]\r\nKey=1\r\n", "1"},
        {"[S]\r\nKey = 1 \r\n", "1"},   // blanks around it dropped
        {"[s]\r\nkey=1\r\n", "1"},      // names in any case
        {"[S]\r\nKey=\"1\"\r\n", "1"},  // matching quotes dropped
        {"[S]\r\nKey='a b'\r\n", "a b"},
        {"[S]\r\nKey=a\r\nKey=b\r\n", "a"},         // the first of duplicate keys
        {"[S]\r\nKey=a\r\n[S]\r\nKey=b\r\n", "a"},  // ...and of duplicate sections
        {"[S]\r\n; Key=a\r\n", "<default>"},        // a comment is no key
        {"[S]\r\nKey\r\n", "<default>"},            // nor a line without "="
        {"[S]\r\nKey=\r\n", ""},
        {"[S]\r\nKey=" + long300 + "\r\n", long300.substr(0, 254)},
    };
    const std::string file = TempFile("rules.ini");
    for (const auto& c : cases) {
        WriteRaw(file, c.Lines);
        EXPECT_EQ(c.Value, ReadProfileString(file, "S", "Key", "<default>")) << c.Lines;
    }
    DeleteFileA(file.c_str());
}

// A flag is on only when its value is exactly "1"; a line break ends a value
// written; a file that cannot be written raises the path/file access error.
TEST(ProfileIOTest, FlagsLineBreaksAndRefusals) {
    for (const char* on : {"1"}) EXPECT_TRUE(ProfileFlag(on));
    for (const char* off : {"0", "", "yes", "true", "01", "1x", "2"})
        EXPECT_FALSE(ProfileFlag(off)) << off;

    const std::string file = TempFile("write.ini");
    WriteRaw(file, "");
    WriteProfileString(file, "Advanced", "Comments", "first line\r\nsecond line");
    EXPECT_EQ("[Advanced]\r\nComments=first line\r\n", ReadRaw(file));

    SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_READONLY);
    for (const std::string& path : {file, TempFile("no such folder\\x.rwz")}) {
        try {
            WriteProfileFile(path, ProfileFileSettings{}, {});
            ADD_FAILURE() << path << " was written";
        } catch (const RwzError& error) {
            EXPECT_EQ(kErrPathFileAccess, error.Number()) << path;
        }
    }
    SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ("[Advanced]\r\nComments=first line\r\n", ReadRaw(file));
    DeleteFileA(file.c_str());
}

// Section owners that note every call.
struct Owners {
    std::vector<std::string> calls;
    std::vector<ProfileSectionOwner> owners;
    Owners(bool ie, bool nn, bool opera) {
        const struct {
            ProfileArea Area;
            bool Installed;
            const char* Name;
        } areas[] = {{ProfileArea::AddIn, true, "AddIn"},
                     {ProfileArea::Opera, opera, "Opera"},
                     {ProfileArea::General, true, "Network"},
                     {ProfileArea::NetscapeNavigator, nn, "Netscape"},
                     {ProfileArea::InternetExplorer, ie, "IE"}};
        for (const auto& a : areas) {
            ProfileSectionOwner owner;
            owner.Area = a.Area;
            owner.Installed = a.Installed;
            const std::string name = a.Name;
            owner.LoadSections = [this, name](const std::string&) { calls.push_back(name); };
            owners.push_back(owner);
        }
    }
};

// Owners are asked in file order, only for areas enabled and installed.
TEST(ProfileFileTest, OwnersAreAskedOnlyForEnabledInstalledAreas) {
    const struct {
        const char* Enabled;  // the [Enabled Sections] lines
        bool IE, NN, Opera;   // installed
        std::vector<std::string> Loads;
    } cases[] = {
        {"", true, true, true, {"Network", "IE", "Netscape", "Opera", "AddIn"}},
        {"General=0\r\nInternet Explorer=0\r\nNetscape Navigator=0\r\nOpera=0\r\n",
         true,
         true,
         true,
         {"AddIn"}},
        {"", false, false, false, {"Network", "AddIn"}},
        {"General=0\r\nNetscape Navigator=0\r\n", true, false, true, {"IE", "Opera", "AddIn"}},
    };
    const std::string file = TempFile("areas.rwz");
    for (const auto& c : cases) {
        WriteRaw(file, std::string("[Enabled Sections]\r\n") + c.Enabled);
        Owners owners(c.IE, c.NN, c.Opera);
        ProfileFileSettings settings;
        ReadProfileFile(file, settings, owners.owners);
        EXPECT_EQ(c.Loads, owners.calls) << c.Enabled;
    }
    DeleteFileA(file.c_str());
}

// Saving replaces whatever the file held; a failed save says why.
TEST(ProfileFileTest, SavingReplacesTheFileAndAFailureIsReturned) {
    const std::string file = TempFile("client.rwz");
    WriteRaw(file, "; hand-made\r\n[Advanced]\r\nReadOnly=1\r\n[Unknown]\r\nx=1\r\n");
    WriteProfileFile(file, ProfileFileSettings{}, {});
    const std::string saved = ReadRaw(file);
    for (const char* gone : {"hand-made", "ReadOnly", "[Unknown]"})
        EXPECT_EQ(std::string::npos, saved.find(gone)) << gone;

    // A file that cannot be written is a failure the caller shows, not a fault.
    SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_READONLY);
    const auto failure = SaveProfileFile("clsRwzConfig:SaveConfigurationFile", file,
                                         ProfileFileSettings{}, {});
    SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    DeleteFileA(file.c_str());
    ASSERT_TRUE(failure);
    EXPECT_EQ(kErrPathFileAccess, failure->Number);
}

}  // namespace
}  // namespace rwz
