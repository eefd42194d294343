#include "network/modPrinterCapture.h"

#include <winnetwk.h>

#include <cctype>

#include "platform/Procedure.h"
#include "platform/Win32Handles.h"
#include "platform/modUtilities.h"

namespace rwz {

namespace {

const char kObject[] = "modPrinterCapture";
// The network provider router: there on every supported system, but no part
// of the libraries the program may import.
const char kRouter[] = "mpr.dll";

using CancelFn = DWORD(WINAPI*)(LPCSTR, DWORD, BOOL);
using AddFn = DWORD(WINAPI*)(LPNETRESOURCEA, LPCSTR, LPCSTR, DWORD);
using GetFn = DWORD(WINAPI*)(LPCSTR, LPSTR, LPDWORD);

template <class Fn>
Fn Router(const char* astrFunction) {
    // Loaded once, for the life of the process.
    static Module router(LoadLibraryA(kRouter));
    return router ? reinterpret_cast<Fn>(GetProcAddress(router.Get(), astrFunction)) : nullptr;
}

std::string Upper(std::string astrText) {
    for (char& c : astrText) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return astrText;
}

}  // namespace

bool IsCaptureDevice(const std::string& astrDevice) {
    const std::string device = Upper(astrDevice);
    return device.size() == 4 && device.compare(0, 3, "LPT") == 0 && device[3] >= '1' &&
           device[3] <= '8';
}

bool IsPrinterPath(const std::string& astrPath) {
    if (astrPath.size() < 5 || astrPath.size() > 254 || astrPath.compare(0, 2, "\\\\") != 0)
        return false;
    const std::string rest = astrPath.substr(2);
    const size_t slash = rest.find('\\');
    if (slash == std::string::npos || rest.find('\\', slash + 1) != std::string::npos) return false;
    for (char c : rest)
        if (static_cast<unsigned char>(c) < 0x20 || c == '/') return false;
    return !Trim(rest.substr(0, slash)).empty() && !Trim(rest.substr(slash + 1)).empty();
}

DWORD CancelCapture(const std::string& astrDevice, bool ablnForce) {
    Procedure proc(kObject, "CancelCapture");
    return proc.Run(
        [&]() -> DWORD {
            auto cancel = Router<CancelFn>("WNetCancelConnection2A");
            if (!cancel) return ERROR_PROC_NOT_FOUND;
            const DWORD result = cancel(astrDevice.c_str(), CONNECT_UPDATE_PROFILE, ablnForce);
            proc.Log("WNetCancelConnection2A(" + astrDevice + ") RC = " + std::to_string(result));
            return result;
        },
        static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
}

DWORD AddCapture(const std::string& astrDevice, const std::string& astrPath, bool ablnReconnect) {
    Procedure proc(kObject, "AddCapture");
    return proc.Run(
        [&]() -> DWORD {
            auto add = Router<AddFn>("WNetAddConnection2A");
            if (!add) return ERROR_PROC_NOT_FOUND;
            std::string device = astrDevice;
            std::string path = astrPath;
            char provider[1] = {'\0'};
            NETRESOURCEA resource = {};
            resource.dwType = RESOURCETYPE_PRINT;
            resource.lpLocalName = &device[0];
            resource.lpRemoteName = &path[0];
            resource.lpProvider = provider;
            // No password and "1" as the user name: what captures have always
            // been made with, kept so that they behave as they always did.
            const DWORD result =
                add(&resource, "", "1", ablnReconnect ? CONNECT_UPDATE_PROFILE : 0);
            proc.Log("WNetAddConnection2A(" + astrDevice + ", " + astrPath +
                     ") RC = " + std::to_string(result));
            return result;
        },
        static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
}

std::string CapturePath(const std::string& astrDevice) {
    auto query = Router<GetFn>("WNetGetConnectionA");
    if (!query) return std::string();
    char path[MAX_PATH + 1] = {};
    DWORD size = sizeof path;
    if (query(astrDevice.c_str(), path, &size) != NO_ERROR) return std::string();
    return path;
}

}  // namespace rwz
