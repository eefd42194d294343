#include "network/NetworkBench.h"

#include <gtest/gtest.h>

namespace rwz::test {

namespace {

const char kAdapterClass[] = "{4D36E972-E325-11CE-BFC1-08002BE10318}";

}  // namespace

void ClearNetworkRegistry() {
    const std::string ccs = "SYSTEM\\CurrentControlSet\\";
    for (const std::string& key :
         {std::string("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\NetworkCards"),
          ccs + "Control\\Network", ccs + "Control\\Class\\" + kAdapterClass,
          ccs + "Services\\Tcpip\\Parameters\\Interfaces",
          ccs + "Services\\NetBT\\Parameters\\Interfaces", ccs + "Services\\VxD\\MSTCP",
          std::string("Software\\Roamwise")}) {
        RawDeleteTree(HKEY_LOCAL_MACHINE, key);
    }
    DeleteStored(HKEY_LOCAL_MACHINE, ccs + "Services\\NetBT\\Parameters", "ScopeID");
    DeleteStored(HKEY_LOCAL_MACHINE, ccs + "Services\\Tcpip\\Parameters", "SearchList");
    DeleteStored(HKEY_LOCAL_MACHINE, ccs + "Services\\lanmanserver\\parameters", "srvcomment");

    // The printers, but not the key the spooler keeps its folder in.
    const std::string printers = ccs + "Control\\Print\\Printers";
    for (const std::string& printer : RawSubKeys(HKEY_LOCAL_MACHINE, printers))
        RawDeleteTree(HKEY_LOCAL_MACHINE, printers + "\\" + printer);
    const std::string windows = "Software\\Microsoft\\Windows NT\\CurrentVersion\\";
    DeleteStored(HKEY_CURRENT_USER, windows + "Windows", "Device");
    RawDeleteTree(HKEY_CURRENT_USER, windows + "Devices");
    RawDeleteTree(HKEY_CURRENT_USER, windows + "PrinterPorts");
}

bench::Machine LoadMachine(const std::string& astrName) {
    ClearNetworkRegistry();
    return bench::Machine(astrName);
}

RecordingServices::RecordingServices() {
    SetNetworkServices(this);
}

RecordingServices::~RecordingServices() {
    SetNetworkServices(nullptr);
}

RecordingServices& RecordingServices::Answer(const std::string& astrFunction,
                                             std::vector<DWORD> aResults) {
    mResults[astrFunction] = std::move(aResults);
    mCounts[astrFunction] = 0;
    return *this;
}

std::vector<bench::StandInCall> RecordingServices::Calls(const std::string& astrFunction) const {
    std::vector<bench::StandInCall> calls;
    for (const bench::StandInCall& call : mCalls)
        if (call.function == astrFunction) calls.push_back(call);
    return calls;
}

std::vector<std::string> RecordingServices::Functions() const {
    std::vector<std::string> names;
    for (const bench::StandInCall& call : mCalls) names.push_back(call.function);
    return names;
}

DWORD RecordingServices::Result(const std::string& astrFunction) {
    auto found = mResults.find(astrFunction);
    if (found == mResults.end() || found->second.empty()) return 0;
    const size_t call = mCounts[astrFunction]++;
    return found->second[std::min(call, found->second.size() - 1)];
}

void RecordingServices::Record(const std::string& astrFunction,
                               std::vector<std::pair<std::string, std::string>> aFields,
                               DWORD alngResult) {
    aFields.emplace_back("result", std::to_string(alngResult));
    mCalls.push_back(bench::StandInCall{astrFunction, std::move(aFields)});
}

DWORD RecordingServices::NetJoinDomain(const std::string& astrDomain,
                                       const std::optional<std::string>&,
                                       const std::optional<std::string>&, DWORD alngOptions) {
    const DWORD result = Result("NetJoinDomain");
    Record("NetJoinDomain", {{"domain", astrDomain}, {"options", std::to_string(alngOptions)}},
           result);
    return result;
}

DWORD RecordingServices::NetUnjoinDomain(const std::optional<std::string>&,
                                         const std::optional<std::string>&, DWORD) {
    const DWORD result = Result("NetUnjoinDomain");
    Record("NetUnjoinDomain", {}, result);
    return result;
}

DWORD RecordingServices::NetGetJoinInformation(std::string& astrName, DWORD& alngStatus) {
    const DWORD result = Result("NetGetJoinInformation");
    astrName = result == 0 ? mstrJoinName : std::string();
    alngStatus = result == 0 ? mlngJoinStatus : 0;
    Record("NetGetJoinInformation", {}, result);
    return result;
}

DWORD RecordingServices::NetServerSetInfo(const std::string&) {
    const DWORD result = Result("NetServerSetInfo");
    Record("NetServerSetInfo", {}, result);
    return result;
}

DWORD RecordingServices::DhcpNotifyConfigChange(const std::string&, bool, DWORD, DWORD, DWORD,
                                                int) {
    const DWORD result = Result("DhcpNotifyConfigChange");
    Record("DhcpNotifyConfigChange", {}, result);
    return result;
}

bool RecordingServices::GetComputerNameExA(int aintNameType, std::string& astrName) {
    return SystemNetworkServices().GetComputerNameExA(aintNameType, astrName);
}

bool RecordingServices::SetComputerNameExA(int aintNameType, const std::string& astrName) {
    const bool result = SystemNetworkServices().SetComputerNameExA(aintNameType, astrName);
    Record("SetComputerNameExA", {}, result ? 1 : 0);
    return result;
}

std::string BoxText(const std::vector<std::string>& astrTexts) {
    std::string text;
    for (size_t i = 0; i < astrTexts.size(); ++i) text += (i ? "\r\n\r\n" : "") + astrTexts[i];
    return text;
}

void DeleteStored(HKEY ahRoot, const std::string& astrKey, const std::string& astrValue) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(ahRoot, astrKey.c_str(), 0, KEY_SET_VALUE, &key) != ERROR_SUCCESS) return;
    RegDeleteValueA(key, astrValue.c_str());
    RegCloseKey(key);
}

}  // namespace rwz::test
