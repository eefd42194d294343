#include "network/NetworkBench.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "platform/modLogging.h"

namespace rwz::test {

namespace {

const char kAdapterClass[] = "{4D36E972-E325-11CE-BFC1-08002BE10318}";

std::string Address(DWORD alngAddress) {
    return std::to_string(alngAddress & 0xFF) + "." + std::to_string((alngAddress >> 8) & 0xFF) +
           "." + std::to_string((alngAddress >> 16) & 0xFF) + "." +
           std::to_string((alngAddress >> 24) & 0xFF);
}

std::string Optional(const std::optional<std::string>& astrText) {
    return astrText ? *astrText : std::string("(null)");
}

std::string FileText(const std::string& astrPath) {
    std::ifstream in(astrPath, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

}  // namespace

// --- Machines ------------------------------------------------------------------

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
    DeleteStored(HKEY_LOCAL_MACHINE, kNetBTParameters, "ScopeID");
    DeleteStored(HKEY_LOCAL_MACHINE, kTcpipParameters, "SearchList");
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

// --- Recording services --------------------------------------------------------

RecordingServices::RecordingServices() {
    SetNetworkServices(this);
}

RecordingServices::~RecordingServices() {
    SetNetworkServices(nullptr);
}

RecordingServices& RecordingServices::Like(const bench::Machine& aMachine) {
    const std::string script = aMachine.Folder() + "\\network-services.ini";
    if (!bench::FileExists(script)) return *this;
    auto read = [&](const char* section, const char* key) {
        char value[256] = {};
        GetPrivateProfileStringA(section, key, "", value, sizeof value, script.c_str());
        return std::string(value);
    };
    const std::string name = read("NetGetJoinInformation", "Name");
    const std::string status = read("NetGetJoinInformation", "Status");
    if (!name.empty()) mstrJoinName = name;
    if (!status.empty()) mlngJoinStatus = std::stoul(status);
    return *this;
}

RecordingServices& RecordingServices::Answer(const std::string& astrFunction,
                                             std::vector<DWORD> aResults) {
    mResults[astrFunction] = std::move(aResults);
    mCounts[astrFunction] = 0;
    return *this;
}

RecordingServices& RecordingServices::JoinInformation(const std::string& astrName,
                                                      DWORD alngStatus) {
    mstrJoinName = astrName;
    mlngJoinStatus = alngStatus;
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
                                       const std::optional<std::string>& astrAccount,
                                       const std::optional<std::string>& astrPassword,
                                       DWORD alngOptions) {
    const DWORD result = Result("NetJoinDomain");
    Record("NetJoinDomain",
           {{"server", "(null)"},
            {"domain", astrDomain},
            {"ou", "(null)"},
            {"account", Optional(astrAccount)},
            {"password", Optional(astrPassword)},
            {"options", std::to_string(alngOptions)}},
           result);
    return result;
}

DWORD RecordingServices::NetUnjoinDomain(const std::optional<std::string>& astrAccount,
                                         const std::optional<std::string>& astrPassword,
                                         DWORD alngOptions) {
    const DWORD result = Result("NetUnjoinDomain");
    Record("NetUnjoinDomain",
           {{"server", "(null)"},
            {"account", Optional(astrAccount)},
            {"password", Optional(astrPassword)},
            {"options", std::to_string(alngOptions)}},
           result);
    return result;
}

DWORD RecordingServices::NetGetJoinInformation(std::string& astrName, DWORD& alngStatus) {
    const DWORD result = Result("NetGetJoinInformation");
    astrName = result == 0 ? mstrJoinName : std::string();
    alngStatus = result == 0 ? mlngJoinStatus : 0;
    Record("NetGetJoinInformation", {{"server", "(null)"}, {"name", astrName}}, result);
    return result;
}

DWORD RecordingServices::NetServerSetInfo(const std::string& astrComment) {
    const DWORD result = Result("NetServerSetInfo");
    Record("NetServerSetInfo", {{"server", "(null)"}, {"level", "1005"}, {"comment", astrComment}},
           result);
    return result;
}

DWORD RecordingServices::DhcpNotifyConfigChange(const std::string& astrAdapterName,
                                                bool ablnNewIpAddress, DWORD alngIpIndex,
                                                DWORD alngIpAddress, DWORD alngSubnetMask,
                                                int aintDhcpAction) {
    const DWORD result = Result("DhcpNotifyConfigChange");
    Record("DhcpNotifyConfigChange",
           {{"server", ""},
            {"adapter", astrAdapterName},
            {"new", ablnNewIpAddress ? "1" : "0"},
            {"index", std::to_string(alngIpIndex)},
            {"address", Address(alngIpAddress)},
            {"mask", Address(alngSubnetMask)},
            {"action", std::to_string(aintDhcpAction)}},
           result);
    return result;
}

bool RecordingServices::GetComputerNameExA(int aintNameType, std::string& astrName) {
    return SystemNetworkServices().GetComputerNameExA(aintNameType, astrName);
}

bool RecordingServices::SetComputerNameExA(int aintNameType, const std::string& astrName) {
    const bool result = SystemNetworkServices().SetComputerNameExA(aintNameType, astrName);
    Record("SetComputerNameExA", {{"type", std::to_string(aintNameType)}, {"name", astrName}},
           result ? 1 : 0);
    return result;
}

// --- Dialog boxes ----------------------------------------------------------------

std::string BoxText(const std::vector<std::string>& astrTexts) {
    std::string text;
    for (size_t i = 0; i < astrTexts.size(); ++i) text += (i ? "\r\n\r\n" : "") + astrTexts[i];
    return text;
}

// --- Debug log -------------------------------------------------------------------

LogWatch::LogWatch() {
    mlngStart = FileText(LogFilePath()).size();
}

std::vector<std::string> LogWatch::Lines() const {
    // Other test programs may write to the same log at the same time: only
    // this thread's lines count.
    char thread[16];
    std::snprintf(thread, sizeof thread, "[0x%08lX]", GetCurrentThreadId() & 0xFFFFFFFFul);
    const std::string text = FileText(LogFilePath());
    std::vector<std::string> lines;
    for (const std::string& line :
         bench::SplitLines(text.substr(std::min(mlngStart, text.size())))) {
        if (line.rfind(thread, 0) != 0) continue;
        // "[0x...][date time] - Level - message": the message only.
        const size_t dash = line.find("] - ");
        const size_t level =
            dash == std::string::npos ? std::string::npos : line.find(" - ", dash + 4);
        if (level != std::string::npos) lines.push_back(line.substr(level + 3));
    }
    return lines;
}

bool LogWatch::Contains(const std::string& astrLine) const {
    for (const std::string& line : Lines())
        if (line == astrLine) return true;
    return false;
}

// --- Registry --------------------------------------------------------------------

std::string StoredValue::Text() const {
    std::string text(Bytes.begin(), Bytes.end());
    return text.substr(0, text.find('\0'));
}

std::vector<std::string> StoredValue::Entries() const {
    std::vector<std::string> entries;
    std::string entry;
    for (BYTE byte : Bytes) {
        if (byte != 0) {
            entry += static_cast<char>(byte);
            continue;
        }
        if (entry.empty()) break;  // the empty entry ends the list
        entries.push_back(entry);
        entry.clear();
    }
    if (!entry.empty()) entries.push_back(entry);
    return entries;
}

DWORD StoredValue::Number() const {
    DWORD number = 0;
    for (size_t i = 0; i < Bytes.size() && i < 4; ++i) number |= DWORD{Bytes[i]} << (8 * i);
    return number;
}

StoredValue ReadStored(HKEY ahRoot, const std::string& astrKey, const std::string& astrValue) {
    StoredValue stored;
    HKEY key = nullptr;
    if (RegOpenKeyExA(ahRoot, astrKey.c_str(), 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS)
        return stored;
    DWORD size = 0;
    if (RegQueryValueExA(key, astrValue.c_str(), nullptr, &stored.Type, nullptr, &size) ==
        ERROR_SUCCESS) {
        stored.Bytes.resize(size);
        if (RegQueryValueExA(key, astrValue.c_str(), nullptr, &stored.Type,
                             size ? stored.Bytes.data() : nullptr, &size) == ERROR_SUCCESS) {
            stored.Exists = true;
            stored.Bytes.resize(size);
        }
    }
    RegCloseKey(key);
    return stored;
}

void WriteStored(HKEY ahRoot, const std::string& astrKey, const std::string& astrValue,
                 DWORD alngType, const std::vector<BYTE>& aBytes) {
    HKEY key = nullptr;
    LONG result = RegCreateKeyExA(ahRoot, astrKey.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr,
                                  &key, nullptr);
    if (result == ERROR_SUCCESS) {
        result = RegSetValueExA(key, astrValue.c_str(), 0, alngType,
                                aBytes.empty() ? nullptr : aBytes.data(),
                                static_cast<DWORD>(aBytes.size()));
        RegCloseKey(key);
    }
    if (result != ERROR_SUCCESS)
        throw std::runtime_error("cannot write " + astrKey + "\\" + astrValue);
}

void WriteStoredText(HKEY ahRoot, const std::string& astrKey, const std::string& astrValue,
                     const std::string& astrText) {
    std::vector<BYTE> bytes(astrText.begin(), astrText.end());
    bytes.push_back(0);
    WriteStored(ahRoot, astrKey, astrValue, REG_SZ, bytes);
}

void DeleteStored(HKEY ahRoot, const std::string& astrKey, const std::string& astrValue) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(ahRoot, astrKey.c_str(), 0, KEY_SET_VALUE, &key) != ERROR_SUCCESS) return;
    RegDeleteValueA(key, astrValue.c_str());
    RegCloseKey(key);
}

std::string InterfaceKey(const std::string& astrAdapterKey) {
    return std::string(kTcpipParameters) + "\\Interfaces\\" + astrAdapterKey;
}

std::string NetBTInterfaceKey(const std::string& astrAdapterKey) {
    return std::string(kNetBTParameters) + "\\Interfaces\\Tcpip_" + astrAdapterKey;
}

std::map<std::string, StoredValue> WritableValues(const std::string& astrAdapterKey) {
    const std::string ccs = "SYSTEM\\CurrentControlSet\\";
    const std::vector<std::pair<std::string, std::string>> machine = {
        {InterfaceKey(astrAdapterKey), "IPAddress"},
        {InterfaceKey(astrAdapterKey), "SubnetMask"},
        {InterfaceKey(astrAdapterKey), "DefaultGateway"},
        {InterfaceKey(astrAdapterKey), "EnableDHCP"},
        {InterfaceKey(astrAdapterKey), "NameServer"},
        {NetBTInterfaceKey(astrAdapterKey), "NameServerList"},
        {kNetBTParameters, "ScopeID"},
        {kTcpipParameters, "SearchList"},
        {kTcpipParameters, "Hostname"},
        {kTcpipParameters, "NV Hostname"},
        {kTcpipParameters, "Domain"},
        {kTcpipParameters, "NV Domain"},
        {ccs + "Control\\ComputerName\\ComputerName", "ComputerName"},
        {ccs + "Services\\lanmanserver\\parameters", "srvcomment"},
    };
    std::map<std::string, StoredValue> values;
    for (const auto& place : machine)
        values["HKLM\\" + place.first + "\\" + place.second] =
            ReadStored(HKEY_LOCAL_MACHINE, place.first, place.second);
    const std::string windows = "Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows";
    values["HKCU\\" + windows + "\\Device"] = ReadStored(HKEY_CURRENT_USER, windows, "Device");
    return values;
}

std::string NulList(const std::vector<std::string>& astrEntries) {
    std::string list;
    for (size_t i = 0; i < astrEntries.size(); ++i)
        list += (i ? std::string(1, '\0') : "") + astrEntries[i];
    return list;
}

}  // namespace rwz::test
