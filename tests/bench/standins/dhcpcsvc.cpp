// Stands in for dhcpcsvc.dll in test runs: plays the DHCP client service,
// which Wine's own dhcpcsvc ends the process for when told of new addresses.
// See StandInRecord.h for the script and the record.
#include "StandInRecord.h"

namespace {

std::string Number(DWORD value) {
    return std::to_string(value);
}

// DHCPCAPI_PARAMS_ARRAY, passed by value.
struct ParamsArray {
    ULONG nParams;
    void* Params;
};

}  // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) standin::gModule = instance;
    return TRUE;
}

__declspec(dllexport) DWORD WINAPI
    DhcpNotifyConfigChange(LPWSTR server, LPWSTR adapter, BOOL newAddress, DWORD index,
                           DWORD address, DWORD mask, int action) {
    const DWORD result = standin::Result("DhcpNotifyConfigChange");
    standin::Record("DhcpNotifyConfigChange", {{"server", standin::Text(server)},
                                               {"adapter", standin::Text(adapter)},
                                               {"new", newAddress ? "1" : "0"},
                                               {"index", Number(index)},
                                               {"address", standin::Address(address)},
                                               {"mask", standin::Address(mask)},
                                               {"action", std::to_string(action)},
                                               {"result", Number(result)}});
    return result;
}

// What Wine's internet libraries may ask when they look for a proxy: nothing
// to tell, so they look elsewhere.
__declspec(dllexport) DWORD WINAPI DhcpCApiInitialize(LPDWORD version) {
    if (version) *version = 2;
    return 0;
}

__declspec(dllexport) void WINAPI DhcpCApiCleanup() {}

__declspec(dllexport) DWORD WINAPI DhcpRequestParams(DWORD, LPVOID, LPWSTR, LPVOID, ParamsArray,
                                                     ParamsArray, LPBYTE, LPDWORD, LPWSTR) {
    return ERROR_NOT_SUPPORTED;
}

}  // extern "C"
