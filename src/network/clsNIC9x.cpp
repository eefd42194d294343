#include "network/clsNIC9x.h"

#include "platform/Procedure.h"
#include "platform/modLogging.h"
#include "platform/modRegistry.h"

namespace rwz {

namespace {

const char kObject[] = "clsNIC9x";
const char kEnumKey[] = "\\HKEY_LOCAL_MACHINE\\Enum\\";
// The buses network cards sit on: virtual devices (dial-up adapter),
// multifunction cards, PCI, ISA Plug and Play, PC Card.
const char* const kBuses[] = {"Root", "MF", "PCI", "ISAPNP", "PCMCIA"};
// Bindings of the TCP/IP protocol are named "MSTCP\nnnn".
const char kTcpipBinding[] = "MSTCP";

// A single string value, cut at its first NUL; "" when it cannot be read.
std::string ReadName(const std::string& astrKey, const char* astrValue) {
    const std::string text = reg::ReadText(astrKey, astrValue).value_or(std::string());
    return text.substr(0, text.find('\0'));
}

}  // namespace

void clsNIC9x::EnumerateAdapters(std::vector<std::string>& astrNames,
                                 std::vector<std::string>& astrKeys) {
    Procedure proc(kObject, "EnumerateAdapters");
    proc.Run([&] {
        for (const char* bus : kBuses) EnumAdapters(bus, astrNames, astrKeys);
    });
}

void clsNIC9x::EnumAdapters(const std::string& astrStart, std::vector<std::string>& astrNames,
                            std::vector<std::string>& astrKeys) {
    Procedure proc(kObject, "EnumAdapters");
    proc.Run([&] {
        const std::string strBus = kEnumKey + astrStart;
        WriteLog("clsNIC9x - EnumerateAdapters: Start search at: " + strBus, kLogDebug);
        for (const std::string& strType : reg::SubKeys(strBus)) {
            const std::string strTypeKey = strBus + "\\" + strType;
            for (const std::string& strInstance : reg::SubKeys(strTypeKey)) {
                const std::string strDevice = strTypeKey + "\\" + strInstance;
                const std::string strWhere = "clsNIC9x - EnumerateAdapters[" + astrStart + "\\" +
                                             strType + "\\" + strInstance;
                if (ReadName(strDevice, "Class") != "Net") continue;
                const std::string strDescription = ReadName(strDevice, "DeviceDesc");

                std::string strBinding;
                for (const RegistryValueRow& row : reg::Values(strDevice + "\\Bindings")) {
                    if (row.Name.compare(0, 5, kTcpipBinding) == 0) {
                        strBinding = row.Name;
                        break;
                    }
                }
                if (strBinding.empty()) {
                    WriteLog(strWhere + "]: Not bound to TCP/IP: " + strDescription, kLogDebug);
                    continue;
                }
                const std::string strDriver =
                    ReadName(std::string(kEnumKey) + "Network\\" + strBinding, "Driver");
                if (strDescription.empty() || strDriver.empty()) continue;

                WriteLog(strWhere + "]: Found NIC " + std::to_string(astrNames.size()) + ": " +
                             strBinding,
                         kLogDebug);
                WriteLog(strWhere + "]: Display Name: " + strDescription, kLogDebug);
                WriteLog(strWhere + "]: Key: " + strDriver, kLogDebug);
                astrNames.push_back(strDescription);
                astrKeys.push_back(strDriver);
            }
        }
    });
}

}  // namespace rwz
