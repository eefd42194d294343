// Stands in for netapi32.dll in test runs: plays the domain controller and the
// server service. Wine's own netapi32 lacks NetJoinDomain and NetUnjoinDomain
// and ends the process in NetServerSetInfo, so a program under test must
// never reach it. See StandInRecord.h for the script and the record.
#include <set>

#include "StandInRecord.h"

namespace {

// Buffers handed out, so that NetApiBufferFree can tell its own from others.
std::set<void*> gBuffers;

void* Allocate(size_t size) {
    void* buffer = HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, size);
    if (buffer) gBuffers.insert(buffer);
    return buffer;
}

std::string Number(DWORD value) {
    return std::to_string(value);
}

}  // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) standin::gModule = instance;
    return TRUE;
}

__declspec(dllexport) DWORD WINAPI NetJoinDomain(LPCWSTR server, LPCWSTR domain, LPCWSTR ou,
                                                 LPCWSTR account, LPCWSTR password, DWORD options) {
    const DWORD result = standin::Result("NetJoinDomain");
    standin::Record("NetJoinDomain", {{"server", standin::Text(server)},
                                      {"domain", standin::Text(domain)},
                                      {"ou", standin::Text(ou)},
                                      {"account", standin::Text(account)},
                                      {"password", standin::Text(password)},
                                      {"options", Number(options)},
                                      {"result", Number(result)}});
    return result;
}

__declspec(dllexport) DWORD WINAPI
    NetUnjoinDomain(LPCWSTR server, LPCWSTR account, LPCWSTR password, DWORD options) {
    const DWORD result = standin::Result("NetUnjoinDomain");
    standin::Record("NetUnjoinDomain", {{"server", standin::Text(server)},
                                        {"account", standin::Text(account)},
                                        {"password", standin::Text(password)},
                                        {"options", Number(options)},
                                        {"result", Number(result)}});
    return result;
}

__declspec(dllexport) DWORD WINAPI
    NetGetJoinInformation(LPCWSTR server, LPWSTR* name, DWORD* status) {
    const DWORD result = standin::Result("NetGetJoinInformation");
    const std::string joined = standin::Setting("NetGetJoinInformation", "Name", "WORKGROUP");
    const DWORD joinStatus = static_cast<DWORD>(std::strtoul(
        standin::Setting("NetGetJoinInformation", "Status", "2").c_str(), nullptr, 10));
    if (result == 0 && name && status) {
        const int length = MultiByteToWideChar(CP_ACP, 0, joined.c_str(), -1, nullptr, 0);
        auto* buffer = static_cast<LPWSTR>(Allocate(static_cast<size_t>(length) * sizeof(WCHAR)));
        if (buffer) MultiByteToWideChar(CP_ACP, 0, joined.c_str(), -1, buffer, length);
        *name = buffer;
        *status = joinStatus;
    }
    standin::Record("NetGetJoinInformation", {{"server", standin::Text(server)},
                                              {"name", result == 0 ? joined : ""},
                                              {"status", result == 0 ? Number(joinStatus) : ""},
                                              {"result", Number(result)}});
    return result;
}

__declspec(dllexport) DWORD WINAPI
    NetServerSetInfo(LPWSTR server, DWORD level, LPBYTE buffer, LPDWORD parameterError) {
    const DWORD result = standin::Result("NetServerSetInfo");
    // SERVER_INFO_1005 holds one pointer: the comment.
    std::string comment = "(none)";
    if (level == 1005 && buffer) comment = standin::Text(*reinterpret_cast<LPWSTR*>(buffer));
    if (parameterError) *parameterError = 0;
    standin::Record("NetServerSetInfo", {{"server", standin::Text(server)},
                                         {"level", Number(level)},
                                         {"comment", comment},
                                         {"result", Number(result)}});
    return result;
}

__declspec(dllexport) DWORD WINAPI NetApiBufferAllocate(DWORD size, LPVOID* buffer) {
    if (!buffer) return ERROR_INVALID_PARAMETER;
    *buffer = Allocate(size ? size : 1);
    return *buffer ? 0 : ERROR_NOT_ENOUGH_MEMORY;
}

__declspec(dllexport) DWORD WINAPI NetApiBufferFree(LPVOID buffer) {
    const bool ours = gBuffers.erase(buffer) > 0;
    if (ours) HeapFree(GetProcessHeap(), 0, buffer);
    standin::Record("NetApiBufferFree",
                    {{"buffer", buffer ? (ours ? "ours" : "unknown") : "(null)"}});
    return 0;
}

}  // extern "C"
