#include "platform/modAPI.h"

#include <commdlg.h>

#include <cstdio>
#include <map>
#include <vector>

#include "platform/Procedure.h"
#include "platform/modRegistry.h"
#include "platform/modUtilities.h"

namespace rwz {

namespace {

static_assert(sizeof(OSVERSIONINFOEXA) == 156, "extended version record");
static_assert(sizeof(OSVERSIONINFOA) == 148, "plain version record");

const char kAppPaths[] =
    "\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";

// The program file registered under an "App Paths" key; "" when there is none.
std::string AppPath(const std::string& astrExe) {
    return reg::ReadText(kAppPaths + astrExe, "").value_or(std::string());
}

std::string VersionOfProgram(const std::string& astrPath) {
    return astrPath.empty() ? std::string() : GetFileProductVersion(astrPath);
}

// "Text (*.txt)|*.txt" in the form the dialogs expect: NUL between the fields, two at the end.
std::string DialogFilter(const std::string& astrFilter) {
    std::string filter = astrFilter;
    for (char& c : filter) {
        if (c == '|') c = '\0';
    }
    filter.append(2, '\0');
    return filter;
}

// The extension of the filter's first pattern ("*.rwz" gives "rwz"); "" for "*.*".
std::string DefaultExtension(const std::string& astrFilter) {
    const std::vector<std::string> fields = Split(astrFilter, "|");
    if (fields.size() < 2) return std::string();
    const std::string pattern = Split(fields[1], ";")[0];
    const size_t dot = pattern.rfind('.');
    if (dot == std::string::npos) return std::string();
    const std::string extension = pattern.substr(dot + 1);
    if (extension.empty() || extension.find_first_of("*?") != std::string::npos) return "";
    return extension;
}

std::string ShowFileDialog(bool ablnSave, HWND owner, const std::string& astrTitle,
                           const std::string& astrFilter, const std::string& astrDefault) {
    std::vector<char> file(MAX_PATH * 4, '\0');
    std::string folder;
    if (!astrDefault.empty()) {
        const DWORD attributes = GetFileAttributesA(astrDefault.c_str());
        if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY)) {
            folder = astrDefault;
        } else {
            const size_t slash = astrDefault.find_last_of("\\/");
            if (slash != std::string::npos) folder = astrDefault.substr(0, slash);
            const std::string name =
                slash == std::string::npos ? astrDefault : astrDefault.substr(slash + 1);
            name.copy(file.data(), file.size() - 1);
        }
    }
    const std::string filter = DialogFilter(astrFilter);
    const std::string extension = DefaultExtension(astrFilter);

    OPENFILENAMEA dialog{};
    // The size Windows 95 and NT 4 know; later systems accept it too.
    dialog.lStructSize = OPENFILENAME_SIZE_VERSION_400A;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = astrFilter.empty() ? nullptr : filter.c_str();
    dialog.nFilterIndex = 1;
    dialog.lpstrFile = file.data();
    dialog.nMaxFile = static_cast<DWORD>(file.size());
    dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    dialog.lpstrTitle = astrTitle.empty() ? nullptr : astrTitle.c_str();
    dialog.lpstrDefExt = extension.empty() ? nullptr : extension.c_str();
    dialog.Flags = OFN_HIDEREADONLY | OFN_PATHMUSTEXIST | OFN_EXPLORER |
                   (ablnSave ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);
    const BOOL chosen = ablnSave ? GetSaveFileNameA(&dialog) : GetOpenFileNameA(&dialog);
    return chosen ? std::string(file.data()) : std::string();
}

}  // namespace

bool QueryOSVersion(OSVERSIONINFOEXA& version) {
    version = OSVERSIONINFOEXA{};
    version.dwOSVersionInfoSize = sizeof(OSVERSIONINFOEXA);
    if (GetVersionExA(reinterpret_cast<OSVERSIONINFOA*>(&version))) return true;
    // Windows 95 and NT 4 before SP6 know only the plain record.
    version = OSVERSIONINFOEXA{};
    version.dwOSVersionInfoSize = sizeof(OSVERSIONINFOA);
    return GetVersionExA(reinterpret_cast<OSVERSIONINFOA*>(&version)) != 0;
}

std::string OSTagFor(DWORD platformId, DWORD major, DWORD minor) {
    if (platformId == VER_PLATFORM_WIN32_WINDOWS) return kOS9x;
    if (platformId != VER_PLATFORM_WIN32_NT) return "";
    if (major == 4) return kOSNT;
    if (major != 5) return "";
    switch (minor) {
        case 0:
            return kOS2K;
        case 1:
            return kOSXP;
        case 2:
            return kOS2003;
        default:
            return "";
    }
}

OSFamily OSFamilyOf(const std::string& astrTag) {
    if (astrTag == kOS9x) return OSFamily::Win9x;
    if (astrTag == kOSNT) return OSFamily::NT4;
    if (astrTag == kOS2K) return OSFamily::Win2K;
    if (astrTag == kOSXP) return OSFamily::XP;
    if (astrTag == kOS2003) return OSFamily::Server2003;
    return OSFamily::Unsupported;
}

const char* OSTagOf(OSFamily aFamily) {
    switch (aFamily) {
        case OSFamily::Win9x:
            return kOS9x;
        case OSFamily::NT4:
            return kOSNT;
        case OSFamily::Win2K:
            return kOS2K;
        case OSFamily::XP:
            return kOSXP;
        case OSFamily::Server2003:
            return kOS2003;
        default:
            return "";
    }
}

std::string GetCurrentOSTag() {
    Procedure proc("modAPI", "GetCurrentOSTag");
    return proc.Run([&] {
        OSVERSIONINFOEXA version;
        const bool known = QueryOSVersion(version);
        proc.Log("Major = " + std::to_string(version.dwMajorVersion) +
                 "  Minor = " + std::to_string(version.dwMinorVersion));
        if (!known) return std::string();
        return OSTagFor(version.dwPlatformId, version.dwMajorVersion, version.dwMinorVersion);
    });
}

bool IsNTPlatform() {
    Procedure proc("modAPI", "IsNTPlatform");
    return proc.Run([&] {
        OSVERSIONINFOEXA version;
        return QueryOSVersion(version) && version.dwPlatformId == VER_PLATFORM_WIN32_NT;
    });
}

bool IsXPHomeEdition() {
    Procedure proc("modAPI", "IsXPHomeEdition");
    return proc.Run([&] {
        OSVERSIONINFOEXA version;
        return QueryOSVersion(version) && version.dwPlatformId == VER_PLATFORM_WIN32_NT &&
               version.dwMajorVersion == 5 && version.dwMinorVersion == 1 &&
               (version.wSuiteMask & VER_SUITE_PERSONAL) != 0;
    });
}

std::string GetIEVersion() {
    Procedure proc("modAPI", "GetIEVersion");
    return proc.Run([&] { return VersionOfProgram(AppPath("IEXPLORE.exe")); });
}

std::string GetNetscapeVersion() {
    Procedure proc("modAPI", "GetNetscapeVersion");
    return proc.Run([&] {
        // Netscape 4, Netscape 6 and later installs each registered a different name.
        for (const char* exe : {"Netscp.exe", "Netscp6.exe", "netscape.exe"}) {
            const std::string path = AppPath(exe);
            if (!path.empty()) return VersionOfProgram(path);
        }
        return std::string();
    });
}

std::string GetOperaVersion() {
    Procedure proc("modAPI", "GetOperaVersion");
    return proc.Run([&] { return VersionOfProgram(AppPath("Opera.exe")); });
}

float GetIEVersionNumber() {
    return VersionNumber(GetIEVersion());
}
float GetNetscapeVersionNumber() {
    return VersionNumber(GetNetscapeVersion());
}
float GetOperaVersionNumber() {
    return VersionNumber(GetOperaVersion());
}

float VersionNumber(const std::string& astrVersion) {
    // Leading blanks skipped, then digits with at most one decimal point.
    size_t pos = astrVersion.find_first_not_of(" \t");
    if (pos == std::string::npos) return 0;
    double whole = 0;
    double fraction = 0;
    double scale = 1;
    bool afterPoint = false;
    for (; pos < astrVersion.size(); ++pos) {
        const char c = astrVersion[pos];
        if (c == '.' && !afterPoint) {
            afterPoint = true;
        } else if (c >= '0' && c <= '9') {
            if (afterPoint) {
                scale /= 10;
                fraction += (c - '0') * scale;
            } else {
                whole = whole * 10 + (c - '0');
            }
        } else {
            break;
        }
    }
    return static_cast<float>(whole + fraction);
}

std::string GetFileProductVersion(const std::string& astrPath) {
    Procedure proc("modAPI", "GetFileProductVersion");
    // A program's version does not change while this one runs, and start-up
    // asks for each browser's several times: the version resource is read once.
    static std::map<std::string, std::string> versions;
    if (const auto known = versions.find(astrPath); known != versions.end()) return known->second;
    std::string version = proc.Run([&] {
        DWORD ignored = 0;
        const DWORD size = GetFileVersionInfoSizeA(astrPath.c_str(), &ignored);
        if (size == 0) return std::string();
        std::vector<char> block(size);
        if (!GetFileVersionInfoA(astrPath.c_str(), 0, size, block.data())) return std::string();

        void* translation = nullptr;
        UINT length = 0;
        if (!VerQueryValueA(block.data(), "\\VarFileInfo\\Translation", &translation, &length) ||
            !translation || length < 4) {
            return std::string();
        }
        // Language word, then code page word, each written high byte first: "040904B0".
        const auto* bytes = static_cast<const unsigned char*>(translation);
        char key[16];
        std::snprintf(key, sizeof key, "%02X%02X%02X%02X", bytes[1], bytes[0], bytes[3], bytes[2]);

        const std::string name = std::string("\\StringFileInfo\\") + key + "\\ProductVersion";
        void* value = nullptr;
        if (!VerQueryValueA(block.data(), name.c_str(), &value, &length) || !value || length == 0) {
            return std::string();
        }
        return StringFromPointer(static_cast<const char*>(value));
    });
    versions.emplace(astrPath, version);
    return version;
}

std::string ShowOpenFileDialog(HWND owner, const std::string& astrTitle,
                               const std::string& astrFilter, const std::string& astrDefault) {
    Procedure proc("modAPI", "ShowOpenFileDialog");
    return proc.Run(
        [&] { return ShowFileDialog(false, owner, astrTitle, astrFilter, astrDefault); });
}

std::string ShowSaveFileDialog(HWND owner, const std::string& astrTitle,
                               const std::string& astrFilter, const std::string& astrDefault) {
    Procedure proc("modAPI", "ShowSaveFileDialog");
    return proc.Run(
        [&] { return ShowFileDialog(true, owner, astrTitle, astrFilter, astrDefault); });
}

bool ShowPrintSetupDialog(HWND owner) {
    Procedure proc("modAPI", "ShowPrintSetupDialog");
    return proc.Run([&] {
        PRINTDLGA dialog{};
        dialog.lStructSize = sizeof dialog;
        dialog.hwndOwner = owner;
        dialog.Flags = PD_PRINTSETUP;
        const bool chosen = PrintDlgA(&dialog) != 0;
        if (dialog.hDevMode) GlobalFree(dialog.hDevMode);
        if (dialog.hDevNames) GlobalFree(dialog.hDevNames);
        return chosen;
    });
}

}  // namespace rwz
