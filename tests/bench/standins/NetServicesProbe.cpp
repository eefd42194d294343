// Calls the program's networking services as Rwz.exe does, through the same
// run-time lookups, and writes what each call answered: proves that the
// stand-in DLLs are found, answer as scripted, and that Wine's own functions
// are not reached.
//
//   NetServicesProbe.exe RESULTS-FILE all     every service, as an apply uses them
//   NetServicesProbe.exe RESULTS-FILE join    NetJoinDomain only (safe without stand-ins)
//
// RESULTS-FILE: one line per call, "Function=result" and what it returned.
#include <winsock2.h>

#include <cstdio>
#include <string>

#include "network/NetworkServices.h"

int main(int argc, char** argv) {
    if (argc < 3) return 2;
    const std::string mode = argv[2];
    rwz::INetworkServices& services = rwz::NetworkServices();
    std::string out;
    auto line = [&](const std::string& text) { out += text + "\r\n"; };

    line("NetJoinDomain=" +
         std::to_string(services.NetJoinDomain("NORTHWIND", std::string("jsmith"),
                                               std::string("s3cret"), rwz::kJoinDomainOptions)));
    if (mode == "all") {
        std::string name;
        DWORD status = 0;
        const DWORD joined = services.NetGetJoinInformation(name, status);
        line("NetGetJoinInformation=" + std::to_string(joined) + " " + name + " " +
             std::to_string(status));
        line("NetUnjoinDomain=" +
             std::to_string(services.NetUnjoinDomain(std::nullopt, std::nullopt, 0)));
        line("NetJoinDomain=" +
             std::to_string(services.NetJoinDomain("WORKGROUP", std::nullopt, std::nullopt, 0)));
        line("NetServerSetInfo=" + std::to_string(services.NetServerSetInfo("Field laptop")));
        for (DWORD index = 0; index < 2; ++index) {
            const std::string address = "192.168.101." + std::to_string(5 + index);
            line(
                "DhcpNotifyConfigChange=" +
                std::to_string(services.DhcpNotifyConfigChange(
                    "{6A3C7E10-5B2D-4F0E-9C41-8E2D5B7A9F01}", true, index,
                    inet_addr(address.c_str()), inet_addr("255.255.255.0"), rwz::kDhcpIgnoreFlag)));
        }
        std::string host;
        const bool found = services.GetComputerNameExA(rwz::kNameDnsHostname, host);
        line("GetComputerNameExA=" + std::to_string(found ? 1 : 0) + " " + host);
    }

    FILE* file = std::fopen(argv[1], "wb");
    if (!file) return 1;
    std::fwrite(out.data(), 1, out.size(), file);
    std::fclose(file);
    return 0;
}
