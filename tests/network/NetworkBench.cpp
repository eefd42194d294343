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
    RawDeleteValue(HKEY_LOCAL_MACHINE, ccs + "Services\\NetBT\\Parameters", "ScopeID");
    RawDeleteValue(HKEY_LOCAL_MACHINE, ccs + "Services\\Tcpip\\Parameters", "SearchList");
    RawDeleteValue(HKEY_LOCAL_MACHINE, ccs + "Services\\lanmanserver\\parameters", "srvcomment");

    // The printers, but not the key the spooler keeps its folder in.
    const std::string printers = ccs + "Control\\Print\\Printers";
    for (const std::string& printer : RawSubKeys(HKEY_LOCAL_MACHINE, printers))
        RawDeleteTree(HKEY_LOCAL_MACHINE, printers + "\\" + printer);
    const std::string windows = "Software\\Microsoft\\Windows NT\\CurrentVersion\\";
    RawDeleteValue(HKEY_CURRENT_USER, windows + "Windows", "Device");
    RawDeleteTree(HKEY_CURRENT_USER, windows + "Devices");
    RawDeleteTree(HKEY_CURRENT_USER, windows + "PrinterPorts");
}

bench::Machine LoadMachine(const std::string& astrName) {
    ClearNetworkRegistry();
    return bench::Machine(astrName);
}

std::string BoxText(const std::vector<std::string>& astrTexts) {
    std::string text;
    for (size_t i = 0; i < astrTexts.size(); ++i) text += (i ? "\r\n\r\n" : "") + astrTexts[i];
    return text;
}

}  // namespace rwz::test
