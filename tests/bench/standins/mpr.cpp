// Stands in for mpr.dll in test runs: plays the network that printer captures
// go to, which Wine lacks (its WNetAddConnection2A answers 1222, no network).
// A capture answers as scripted ("Result", 0 by default); WNetGetConnectionA
// tells the path a device is connected to as the script's section of that
// name lists it ("LPT2=\\server\laser"), else that it is not connected.
// See StandInRecord.h for the script and the record.
#include "StandInRecord.h"

#include <winnetwk.h>

namespace {

std::string Text(const char* text) {
    return text ? text : "(null)";
}

}  // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) standin::gModule = instance;
    return TRUE;
}

__declspec(dllexport) DWORD WINAPI WNetCancelConnection2A(LPCSTR name, DWORD flags, BOOL force) {
    const DWORD result = standin::Result("WNetCancelConnection2A");
    standin::Record("WNetCancelConnection2A", {{"name", Text(name)},
                                               {"flags", std::to_string(flags)},
                                               {"force", force ? "1" : "0"},
                                               {"result", std::to_string(result)}});
    return result;
}

__declspec(dllexport) DWORD WINAPI
    WNetAddConnection2A(LPNETRESOURCEA resource, LPCSTR password, LPCSTR user, DWORD flags) {
    const DWORD result = standin::Result("WNetAddConnection2A");
    standin::Record("WNetAddConnection2A",
                    {{"type", resource ? std::to_string(resource->dwType) : "(null)"},
                     {"local", resource ? Text(resource->lpLocalName) : "(null)"},
                     {"remote", resource ? Text(resource->lpRemoteName) : "(null)"},
                     {"provider", resource ? Text(resource->lpProvider) : "(null)"},
                     {"password", Text(password)},
                     {"user", Text(user)},
                     {"flags", std::to_string(flags)},
                     {"result", std::to_string(result)}});
    return result;
}

__declspec(dllexport) DWORD WINAPI WNetGetConnectionA(LPCSTR local, LPSTR remote, LPDWORD length) {
    const std::string path = local ? standin::Setting("WNetGetConnectionA", local, "") : "";
    if (path.empty()) return ERROR_NOT_CONNECTED;
    if (!remote || !length || *length <= path.size()) {
        if (length) *length = static_cast<DWORD>(path.size() + 1);
        return ERROR_MORE_DATA;
    }
    lstrcpyA(remote, path.c_str());
    return NO_ERROR;
}

}  // extern "C"
