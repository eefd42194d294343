#include "network/clsNIC2K.h"

#include "platform/Procedure.h"
#include "platform/modLogging.h"
#include "platform/modRegistry.h"
#include "platform/modUtilities.h"

namespace rwz {

namespace {

const char kObject[] = "clsNIC2K";
const char kCardsRoot[] = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\";
const char kNetworkKey[] = "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Network";
const char kEnumKey[] = "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Enum\\";
const char kServicesKey[] = "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Services\\";
// The device setup class of network adapters.
const char kAdapterClass[] = "{4D36E972-E325-11CE-BFC1-08002BE10318}";
const char kClassKey[] = "\\HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Class\\";

// A single string value, cut at its first NUL.
bool ReadName(const std::string& astrKey, const std::string& astrValue, std::string& astrName) {
    const std::optional<std::string> text = reg::ReadText(astrKey, astrValue);
    astrName = text ? text->substr(0, text->find('\0')) : std::string();
    return text.has_value();
}

// The connection's "MediaSubType" (the connections folder's sub-media type).
std::string MediaSubTypeName(long alngType) {
    switch (alngType) {
        case 1:
            return "LAN";
        case 2:
            return "Wireless";
        case 3:
            return "ATM";
        case 4:
            return "LAN Emulation";
        case 5:
            return "1394";
        case 6:
            return "Direct";
        case 7:
            return "Infrared";
        case 8:
            return "Connection Manager";
        default:
            return "";
    }
}

// The media a driver binds to at its lower edge ("ethernet", "wlan", ...).
std::string LowerRangeName(const std::string& astrRange) {
    std::string found;
    for (const std::string& piece : Split(ToLower(astrRange), ",")) {
        const std::string medium = Trim(piece);
        if (medium == "wlan" || medium == "wireless") return "Wireless";
        if (!found.empty()) continue;
        if (medium == "ethernet") found = "LAN";
        if (medium == "1394") found = "1394";
        if (medium == "atm") found = "ATM";
        if (medium == "tokenring") found = "Token Ring";
        if (medium == "fddi") found = "FDDI";
    }
    return found;
}

}  // namespace

void clsNIC2K::EnumerateAdapters(std::vector<std::string>& astrNames,
                                 std::vector<std::string>& astrKeys) {
    Procedure proc(kObject, "EnumerateAdapters");
    proc.Run([&] { EnumAdapters("NetworkCards", astrNames, astrKeys); });
}

void clsNIC2K::EnumAdapters(const std::string& astrStart, std::vector<std::string>& astrNames,
                            std::vector<std::string>& astrKeys) {
    Procedure proc(kObject, "EnumAdapters");
    proc.Run([&] {
        const bool blnShowDisabled =
            GetProgramSetting(kProductName, "Options", "ShowDisabledNICS", "") == "1";

        const std::string strCards = std::string(kCardsRoot) + astrStart;
        WriteLog("clsNIC2K - EnumerateAdapters: Start search at: " + strCards, kLogDebug);
        const std::vector<std::string> cards = reg::SubKeys("\\" + strCards);
        if (cards.empty()) return;
        const std::vector<std::string> classes = reg::SubKeys(kNetworkKey);
        if (classes.empty()) return;

        size_t lngOrdinal = astrNames.size();
        for (size_t i = 0; i < cards.size(); ++i) {
            const std::string strWhere = "clsNIC2K - EnumerateAdapters[" + std::to_string(i);
            const std::string strCard = "\\" + strCards + "\\" + cards[i];
            std::string strService;
            std::string strDescription;
            if (!ReadName(strCard, "ServiceName", strService) || strService.empty()) continue;
            ReadName(strCard, "Description", strDescription);
            WriteLog(strWhere + "]: Service name (GUID): " + strService, kLogDebug);

            for (const std::string& strClass : classes) {
                const std::string strConnection =
                    std::string(kNetworkKey) + "\\" + strClass + "\\" + strService + "\\Connection";
                if (!reg::KeyExists(strConnection)) continue;

                // The connection name replaces the card's description.
                std::string strDisplayName;
                ReadName(strConnection, "Name", strDisplayName);
                std::string strInstance;
                if (!ReadName(strConnection, "PnpInstanceID", strInstance) || strInstance.empty())
                    continue;

                const bool blnDisabled =
                    reg::ReadNumber(kEnumKey + strInstance + "\\Control", "DisableCount")
                        .value_or(0) != 0;
                std::string strDriver;
                ReadName(kEnumKey + strInstance, "Service", strDriver);
                if (blnDisabled && !blnShowDisabled) {
                    WriteLog(strWhere + "]: Disabled: " + strService, kLogDebug);
                    continue;
                }

                if (strDisplayName.empty() && !strDriver.empty())
                    ReadName(kServicesKey + strDriver, "DisplayName", strDisplayName);
                // A nameless adapter could be neither shown nor chosen by a profile.
                if (strDisplayName.empty()) continue;
                if (blnDisabled) strDisplayName += " (Disabled)";

                astrNames.push_back(strDisplayName);
                astrKeys.push_back(strService);
                WriteLog(
                    strWhere + "]: Found NIC " + std::to_string(lngOrdinal) + ": " + strDescription,
                    kLogDebug);
                WriteLog(strWhere + "]: Display Name: " + strDisplayName, kLogDebug);
                WriteLog(strWhere + "]: Key: " + strService, kLogDebug);
                ++lngOrdinal;
            }
        }
    });
}

std::string clsNIC2K::AdapterType(const std::string& astrKey) {
    Procedure proc(kObject, "AdapterType");
    return proc.Run([&] {
        if (astrKey.empty()) return std::string();
        if (const std::optional<long> mediaType = reg::ReadNumber(
                std::string(kNetworkKey) + "\\" + kAdapterClass + "\\" + astrKey + "\\Connection",
                "MediaSubType")) {
            const std::string strType = MediaSubTypeName(*mediaType);
            if (!strType.empty()) return strType;
        }

        // The driver instance whose NetCfgInstanceId is the adapter key.
        const std::string strClass = std::string(kClassKey) + kAdapterClass;
        for (const std::string& strInstance : reg::SubKeys(strClass)) {
            std::string strId;
            if (!ReadName(strClass + "\\" + strInstance, "NetCfgInstanceId", strId) ||
                ToLower(strId) != ToLower(astrKey))
                continue;
            std::string strRange;
            ReadName(strClass + "\\" + strInstance + "\\Ndi\\Interfaces", "LowerRange", strRange);
            return LowerRangeName(strRange);
        }
        return std::string();
    });
}

}  // namespace rwz
