#include "browsers/modShellFolders.h"

#include <windows.h>
#include <shlobj.h>

#include "platform/Procedure.h"
#include "platform/modRegistry.h"
#include "platform/modUtilities.h"

namespace rwz {

namespace {

// The shell's answer: SHGetSpecialFolderLocation and SHGetPathFromIDListA are
// in every shell from Windows 95 and NT 4 on (SHGetSpecialFolderPathA is not).
std::string ShellPath(int aintFolder) {
    LPITEMIDLIST list = nullptr;
    if (FAILED(SHGetSpecialFolderLocation(nullptr, aintFolder, &list)) || !list) return "";
    char path[MAX_PATH] = "";
    const bool found = SHGetPathFromIDListA(list, path) != FALSE;
    IMalloc* allocator = nullptr;
    if (SUCCEEDED(SHGetMalloc(&allocator)) && allocator) {
        allocator->Free(list);
        allocator->Release();
    }
    return found ? std::string(path) : std::string();
}

std::string RegistryPath(int aintFolder) {
    const char* key = nullptr;
    const char* value = nullptr;
    if (aintFolder == kShellFolderAppData) {
        key =
            "\\HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell "
            "Folders";
        value = "AppData";
    } else if (aintFolder == kShellFolderProgramFiles) {
        key = "\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion";
        value = "ProgramFilesDir";
    } else {
        return "";
    }
    return StripNulls(reg::ReadText(key, value).value_or(std::string()));
}

}  // namespace

std::string GetShellFolderPath(int aintFolder) {
    Procedure proc("modShellFolders", "GetShellFolderPath");
    return proc.Run([&] {
        std::string path = ShellPath(aintFolder);
        if (path.empty()) path = RegistryPath(aintFolder);
        while (path.size() > 3 && (path.back() == '\\' || path.back() == '/')) path.pop_back();
        proc.LogValue(std::to_string(aintFolder) + ": " + path);
        return path;
    });
}

}  // namespace rwz
