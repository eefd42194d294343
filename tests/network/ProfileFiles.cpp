#include "network/ProfileFiles.h"

#include <windows.h>

#include <fstream>
#include <iterator>
#include <sstream>

namespace rwz::test {

std::string NewProfilePath() {
    static int counter = 0;
    static const std::string folder = [] {
        char temp[MAX_PATH];
        GetTempPathA(sizeof temp, temp);
        std::string path =
            std::string(temp) + "rwz-network-" + std::to_string(GetCurrentProcessId());
        CreateDirectoryA(path.c_str(), nullptr);
        return path;
    }();
    // Process ids come round again, and so would a file of an earlier run.
    const std::string path = folder + "\\profile" + std::to_string(++counter) + ".rwz";
    DeleteFileA(path.c_str());
    return path;
}

void WriteFileBytes(const std::string& astrPath, const std::string& astrBytes) {
    std::ofstream file(astrPath, std::ios::binary | std::ios::trunc);
    file << astrBytes;
}

std::string ReadFileBytes(const std::string& astrPath) {
    std::ifstream file(astrPath, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

std::string CrLfLines(std::initializer_list<std::string> lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
}

}  // namespace rwz::test
