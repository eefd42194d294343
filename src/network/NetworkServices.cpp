#include "network/NetworkServices.h"

#include <algorithm>
#include <map>
#include <vector>

#include "platform/Procedure.h"
#include "platform/Win32Handles.h"

namespace rwz {

namespace {

const char kObject[] = "NetworkServices";
const char kNetApi[] = "netapi32.dll";
const char kDhcpClient[] = "dhcpcsvc.dll";
const char kKernel[] = "kernel32.dll";

using NetJoinDomainFn = DWORD(WINAPI*)(LPCWSTR, LPCWSTR, LPCWSTR, LPCWSTR, LPCWSTR, DWORD);
using NetUnjoinDomainFn = DWORD(WINAPI*)(LPCWSTR, LPCWSTR, LPCWSTR, DWORD);
using NetGetJoinInformationFn = DWORD(WINAPI*)(LPCWSTR, LPWSTR*, DWORD*);
using NetServerSetInfoFn = DWORD(WINAPI*)(LPWSTR, DWORD, LPBYTE, LPDWORD);
using NetApiBufferFreeFn = DWORD(WINAPI*)(LPVOID);
using DhcpNotifyConfigChangeFn = DWORD(WINAPI*)(LPWSTR, LPWSTR, BOOL, DWORD, DWORD, DWORD, int);
using GetComputerNameExAFn = BOOL(WINAPI*)(int, LPSTR, LPDWORD);
using SetComputerNameExAFn = BOOL(WINAPI*)(int, LPCSTR);

// SERVER_INFO_1005.
struct ServerComment {
    LPWSTR Comment;
};

// A function of a library, or nullptr when the running system lacks either.
// Each library is loaded once and stays loaded for the life of the process.
HMODULE Library(const char* astrLibrary) {
    static std::map<std::string, Module> libraries;
    auto found = libraries.find(astrLibrary);
    if (found == libraries.end())
        found = libraries.emplace(astrLibrary, Module(LoadLibraryA(astrLibrary))).first;
    return found->second.Get();
}

template <class Fn>
Fn Lookup(const char* astrLibrary, const char* astrFunction) {
    const HMODULE library = Library(astrLibrary);
    return library ? reinterpret_cast<Fn>(GetProcAddress(library, astrFunction)) : nullptr;
}

std::wstring Wide(const std::string& astrText) {
    if (astrText.empty()) return std::wstring();
    const int length = MultiByteToWideChar(CP_ACP, 0, astrText.data(),
                                           static_cast<int>(astrText.size()), nullptr, 0);
    std::wstring text(static_cast<size_t>(length), L'\0');
    MultiByteToWideChar(CP_ACP, 0, astrText.data(), static_cast<int>(astrText.size()), &text[0],
                        length);
    return text;
}

std::string Narrow(const wchar_t* apszText) {
    if (!apszText || !*apszText) return std::string();
    const int length = WideCharToMultiByte(CP_ACP, 0, apszText, -1, nullptr, 0, nullptr, nullptr);
    if (length <= 1) return std::string();
    std::string text(static_cast<size_t>(length), '\0');
    WideCharToMultiByte(CP_ACP, 0, apszText, -1, &text[0], length, nullptr, nullptr);
    text.resize(static_cast<size_t>(length - 1));
    return text;
}

// An optional text as the API wants it: a null pointer when absent.
class WideArgument {
  public:
    explicit WideArgument(const std::optional<std::string>& astrText)
        : mblnPresent(astrText.has_value()), mstrText(mblnPresent ? Wide(*astrText) : L"") {}
    LPCWSTR Get() const { return mblnPresent ? mstrText.c_str() : nullptr; }

  private:
    bool mblnPresent;
    std::wstring mstrText;
};

void LogMissing(const Procedure& proc, const char* astrLibrary) {
    proc.Log(std::string("not available on this system (") + astrLibrary + ")");
}

class SystemServices : public INetworkServices {
  public:
    DWORD NetJoinDomain(const std::string& astrDomain,
                        const std::optional<std::string>& astrAccount,
                        const std::optional<std::string>& astrPassword,
                        DWORD alngOptions) override {
        Procedure proc(kObject, "NetJoinDomain");
        return proc.Run(
            [&]() -> DWORD {
                auto join = Lookup<NetJoinDomainFn>(kNetApi, "NetJoinDomain");
                if (!join) {
                    LogMissing(proc, kNetApi);
                    return ERROR_PROC_NOT_FOUND;
                }
                const std::wstring domain = Wide(astrDomain);
                const WideArgument account(astrAccount);
                const WideArgument password(astrPassword);
                return join(nullptr, domain.c_str(), nullptr, account.Get(), password.Get(),
                            alngOptions);
            },
            static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
    }

    DWORD NetUnjoinDomain(const std::optional<std::string>& astrAccount,
                          const std::optional<std::string>& astrPassword,
                          DWORD alngOptions) override {
        Procedure proc(kObject, "NetUnjoinDomain");
        return proc.Run(
            [&]() -> DWORD {
                auto unjoin = Lookup<NetUnjoinDomainFn>(kNetApi, "NetUnjoinDomain");
                if (!unjoin) {
                    LogMissing(proc, kNetApi);
                    return ERROR_PROC_NOT_FOUND;
                }
                const WideArgument account(astrAccount);
                const WideArgument password(astrPassword);
                return unjoin(nullptr, account.Get(), password.Get(), alngOptions);
            },
            static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
    }

    DWORD NetGetJoinInformation(std::string& astrName, DWORD& alngStatus) override {
        Procedure proc(kObject, "NetGetJoinInformation");
        astrName.clear();
        alngStatus = 0;
        return proc.Run(
            [&]() -> DWORD {
                auto query = Lookup<NetGetJoinInformationFn>(kNetApi, "NetGetJoinInformation");
                auto release = Lookup<NetApiBufferFreeFn>(kNetApi, "NetApiBufferFree");
                if (!query || !release) {
                    LogMissing(proc, kNetApi);
                    return ERROR_PROC_NOT_FOUND;
                }
                LPWSTR buffer = nullptr;
                DWORD status = 0;
                const DWORD result = query(nullptr, &buffer, &status);
                if (result == ERROR_SUCCESS) {
                    astrName = Narrow(buffer);
                    alngStatus = status;
                }
                if (buffer) release(buffer);
                return result;
            },
            static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
    }

    DWORD NetServerSetInfo(const std::string& astrComment) override {
        Procedure proc(kObject, "NetServerSetInfo");
        return proc.Run(
            [&]() -> DWORD {
                auto setInfo = Lookup<NetServerSetInfoFn>(kNetApi, "NetServerSetInfo");
                if (!setInfo) {
                    LogMissing(proc, kNetApi);
                    return ERROR_PROC_NOT_FOUND;
                }
                std::wstring comment = Wide(astrComment);
                ServerComment info = {&comment[0]};
                DWORD parameterError = 0;
                return setInfo(nullptr, 1005, reinterpret_cast<LPBYTE>(&info), &parameterError);
            },
            static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
    }

    DWORD DhcpNotifyConfigChange(const std::string& astrAdapterName, bool ablnNewIpAddress,
                                 DWORD alngIpIndex, DWORD alngIpAddress, DWORD alngSubnetMask,
                                 int aintDhcpAction) override {
        Procedure proc(kObject, "DhcpNotifyConfigChange");
        return proc.Run(
            [&]() -> DWORD {
                auto notify =
                    Lookup<DhcpNotifyConfigChangeFn>(kDhcpClient, "DhcpNotifyConfigChange");
                if (!notify) {
                    LogMissing(proc, kDhcpClient);
                    return ERROR_PROC_NOT_FOUND;
                }
                wchar_t server[1] = {L'\0'};
                std::wstring adapter = Wide(astrAdapterName);
                return notify(server, &adapter[0], ablnNewIpAddress ? TRUE : FALSE, alngIpIndex,
                              alngIpAddress, alngSubnetMask, aintDhcpAction);
            },
            static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
    }

    bool GetComputerNameExA(int aintNameType, std::string& astrName) override {
        Procedure proc(kObject, "GetComputerNameExA");
        astrName.clear();
        return proc.Run([&] {
            auto query = Lookup<GetComputerNameExAFn>(kKernel, "GetComputerNameExA");
            if (!query) {
                LogMissing(proc, kKernel);
                return false;
            }
            std::vector<char> buffer(256);
            DWORD size = static_cast<DWORD>(buffer.size());
            BOOL ok = query(aintNameType, buffer.data(), &size);
            if (!ok && GetLastError() == ERROR_MORE_DATA && size > buffer.size()) {
                buffer.resize(size + 1);
                size = static_cast<DWORD>(buffer.size());
                ok = query(aintNameType, buffer.data(), &size);
            }
            if (!ok) return false;
            astrName.assign(buffer.data(), std::min<size_t>(size, buffer.size()));
            astrName = astrName.substr(0, astrName.find('\0'));
            return true;
        });
    }

    bool SetComputerNameExA(int aintNameType, const std::string& astrName) override {
        Procedure proc(kObject, "SetComputerNameExA");
        return proc.Run([&] {
            auto store = Lookup<SetComputerNameExAFn>(kKernel, "SetComputerNameExA");
            if (!store) {
                LogMissing(proc, kKernel);
                return false;
            }
            return store(aintNameType, astrName.c_str()) != FALSE;
        });
    }
};

SystemServices gSystemServices;
INetworkServices* gServices = &gSystemServices;

}  // namespace

INetworkServices& NetworkServices() {
    return *gServices;
}

void SetNetworkServices(INetworkServices* aobjServices) {
    gServices = aobjServices ? aobjServices : &gSystemServices;
}

INetworkServices& SystemNetworkServices() {
    return gSystemServices;
}

}  // namespace rwz
