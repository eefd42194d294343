// The reading and writing rules every profile section goes through
// (modProfileIO), and the error a file that cannot be written raises.
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

}  // namespace
}  // namespace rwz
