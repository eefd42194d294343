// What the tests of the Windows 2000/XP/2003 network classes share: a
// simulated machine loaded into the running prefix (after the network places a
// previous machine left behind are cleared), and networking services that
// record every call and answer as scripted.
#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <vector>

#include "bench/Bench.h"
#include "bench/standins/NetworkStandIns.h"
#include "network/NetworkServices.h"
#include "support/RawRegistry.h"

namespace rwz::test {

// Removes what a machine's network, names and printers files put into the
// registry, and the program's own settings, so that the next machine starts
// from a clean prefix.
void ClearNetworkRegistry();
// ClearNetworkRegistry, then the machine's folder loaded into the prefix.
bench::Machine LoadMachine(const std::string& astrName);

// Networking services that record every call and answer as scripted (a
// workgroup member by default); the computer's DNS names are
// passed on to the system (Wine keeps them in the registry). Puts itself in
// place for its lifetime.
class RecordingServices : public INetworkServices {
  public:
    RecordingServices();
    ~RecordingServices() override;
    RecordingServices(const RecordingServices&) = delete;
    RecordingServices& operator=(const RecordingServices&) = delete;

    // Results for successive calls of a function; the last one repeats.
    RecordingServices& Answer(const std::string& astrFunction, std::vector<DWORD> aResults);

    std::vector<bench::StandInCall> Calls(const std::string& astrFunction) const;
    // The functions called, in order.
    std::vector<std::string> Functions() const;
    void ClearCalls() { mCalls.clear(); }

    DWORD NetJoinDomain(const std::string& astrDomain,
                        const std::optional<std::string>& astrAccount,
                        const std::optional<std::string>& astrPassword, DWORD alngOptions) override;
    DWORD NetUnjoinDomain(const std::optional<std::string>& astrAccount,
                          const std::optional<std::string>& astrPassword,
                          DWORD alngOptions) override;
    DWORD NetGetJoinInformation(std::string& astrName, DWORD& alngStatus) override;
    DWORD NetServerSetInfo(const std::string& astrComment) override;
    DWORD DhcpNotifyConfigChange(const std::string& astrAdapterName, bool ablnNewIpAddress,
                                 DWORD alngIpIndex, DWORD alngIpAddress, DWORD alngSubnetMask,
                                 int aintDhcpAction) override;
    bool GetComputerNameExA(int aintNameType, std::string& astrName) override;
    bool SetComputerNameExA(int aintNameType, const std::string& astrName) override;

  private:
    DWORD Result(const std::string& astrFunction);
    void Record(const std::string& astrFunction,
                std::vector<std::pair<std::string, std::string>> aFields, DWORD alngResult);

    std::map<std::string, std::vector<DWORD>> mResults;
    std::map<std::string, size_t> mCounts;
    std::string mstrJoinName = "WORKGROUP";
    DWORD mlngJoinStatus = kJoinStatusWorkgroup;
    std::vector<bench::StandInCall> mCalls;
};

// A message box text as the watcher reads it: the texts joined by blank lines.
std::string BoxText(const std::vector<std::string>& astrTexts);

void DeleteStored(HKEY ahRoot, const std::string& astrKey, const std::string& astrValue);

// The adapter keys of the simulated machines.
inline constexpr const char* kLaptopWired = "{6A3C7E10-5B2D-4F0E-9C41-8E2D5B7A9F01}";
inline constexpr const char* kLaptopWireless = "{2F1B9D44-7C3A-4E5B-8D20-1A6C4E9B3D72}";
inline constexpr const char* kLaptopFireWire = "{C83E1F5A-0D4B-4A97-B6E2-5F7A3C9D1E84}";
inline constexpr const char* kAccountsFirst = "{0B6F8A2C-3E41-4D95-A7C2-64E1F0D3B5A7}";
inline constexpr const char* kAccountsSecond = "{9D2E4C71-8A05-4F3B-B1E6-2C7A5D0F8E93}";
inline constexpr const char* kServerFirst = "{5E7C2B90-1F3A-4C6D-8B4E-0A9D3F2E6C15}";
inline constexpr const char* kServerSecond = "{7B1D4E62-A93C-4F08-9E25-3C6F8A0B2D47}";

}  // namespace rwz::test
