// The rules every profile section goes through (modProfileIO) that are the
// program's own, not the system's INI reader's: what counts as a flag, a line
// break in a value written, and the error a file that cannot be written raises.
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
