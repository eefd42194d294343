// The networking services that only some supported systems have: domain and
// workgroup membership and the server comment (netapi32), the DHCP client's
// change notification (dhcpcsvc) and the DNS names of the computer (kernel32 of
// Windows 2000 and later). Windows 95 and NT 4 lack some or all of them, so the
// system's implementation looks every function up at run time; a function the
// running system lacks is reported as ERROR_PROC_NOT_FOUND (or false), never as
// a load failure of the program.
//
// They sit behind one interface so that a test can stand in for the domain
// controller, the server service and the DHCP client.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace rwz {

// NETSETUP_JOIN_STATUS values of NetGetJoinInformation.
inline constexpr DWORD kJoinStatusWorkgroup = 2;
inline constexpr DWORD kJoinStatusDomain = 3;
// NetJoinDomain options: join a domain (NETSETUP_JOIN_DOMAIN), also when
// already joined (NETSETUP_DOMAIN_JOIN_IF_JOINED).
inline constexpr DWORD kJoinDomainOptions = 0x01 | 0x20;
// DhcpNotifyConfigChange's DHCP action that leaves DHCP as it is.
inline constexpr int kDhcpIgnoreFlag = 0;
// GetComputerNameExA / SetComputerNameExA name types.
inline constexpr int kNameDnsHostname = 1;
inline constexpr int kNameDnsDomain = 2;
inline constexpr int kNamePhysicalDnsHostname = 5;
inline constexpr int kNamePhysicalDnsDomain = 6;

class INetworkServices {
  public:
    virtual ~INetworkServices() = default;

    // NetJoinDomain on the local computer, without an organizational unit. An
    // absent account or password is passed as a null pointer.
    virtual DWORD NetJoinDomain(const std::string& astrDomain,
                                const std::optional<std::string>& astrAccount,
                                const std::optional<std::string>& astrPassword,
                                DWORD alngOptions) = 0;
    // NetUnjoinDomain on the local computer.
    virtual DWORD NetUnjoinDomain(const std::optional<std::string>& astrAccount,
                                  const std::optional<std::string>& astrPassword,
                                  DWORD alngOptions) = 0;
    // NetGetJoinInformation for the local computer; on success the workgroup or
    // domain name and the join status. The name's buffer is released with
    // NetApiBufferFree before this returns.
    virtual DWORD NetGetJoinInformation(std::string& astrName, DWORD& alngStatus) = 0;
    // NetServerSetInfo on the local server at level 1005: the server comment.
    virtual DWORD NetServerSetInfo(const std::string& astrComment) = 0;
    // DhcpNotifyConfigChange for the local computer (empty server name).
    // Addresses and masks in network byte order, as inet_addr gives them.
    virtual DWORD DhcpNotifyConfigChange(const std::string& astrAdapterName, bool ablnNewIpAddress,
                                         DWORD alngIpIndex, DWORD alngIpAddress,
                                         DWORD alngSubnetMask, int aintDhcpAction) = 0;
    // GetComputerNameExA / SetComputerNameExA; false on failure.
    virtual bool GetComputerNameExA(int aintNameType, std::string& astrName) = 0;
    virtual bool SetComputerNameExA(int aintNameType, const std::string& astrName) = 0;
};

// The services in use: the system's, unless a test put others in place.
INetworkServices& NetworkServices();
// Puts `aobjServices` in place (nullptr restores the system's). For tests.
void SetNetworkServices(INetworkServices* aobjServices);
// The system's own services, for a stand-in that passes some calls on.
INetworkServices& SystemNetworkServices();

}  // namespace rwz
