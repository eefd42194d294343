#include "platform/modUtilities.h"

#include <windows.h>

#include <vector>

#include "platform/Procedure.h"
#include "platform/Win32Handles.h"
#include "platform/modAPI.h"

namespace rwz {

std::string EvaluateCondition(const std::string& astrValue) {
    Procedure proc("modUtilities", "EvaluateCondition");
    return proc.Run([&] {
        // Only the system fact the condition asks about is looked up.
        const std::string lower = ToLower(StripNulls(astrValue));
        if (lower.compare(0, 16, "iswindowsxphome(") == 0) {
            return EvaluateConditionFor(astrValue, "", IsXPHomeEdition(), false);
        }
        if (lower.compare(0, 13, "isntplatform(") == 0) {
            return EvaluateConditionFor(astrValue, "", false, IsNTPlatform());
        }
        if (lower.compare(0, 9, "iswindows") == 0) {
            return EvaluateConditionFor(astrValue, GetCurrentOSTag(), false, false);
        }
        return StripNulls(astrValue);
    });
}

bool FileExists(const std::string& astrPath) {
    Procedure proc("modUtilities", "FileExists");
    return proc.Run([&] {
        WIN32_FIND_DATAA found;
        FindHandle listing(FindFirstFileA(astrPath.c_str(), &found));
        return static_cast<bool>(listing) && found.cFileName[0] != '\0';
    });
}

std::string StringFromPointer(const char* apszText) {
    return apszText ? std::string(apszText) : std::string();
}

// Not logged: the log itself finds its file through this function.
std::string ProgramFolder() {
    std::vector<char> path(MAX_PATH);
    while (path.size() <= 65536) {
        const DWORD length =
            GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) return std::string();
        if (length < path.size()) {
            const std::string file(path.data(), length);
            const size_t slash = file.rfind('\\');
            return slash == std::string::npos ? std::string() : file.substr(0, slash);
        }
        path.resize(path.size() * 2);
    }
    return std::string();
}

std::string HelpFilePath() {
    return ProgramFolder() + "\\" + "Rwz.hlp>main";
}

}  // namespace rwz
