#include "network/clsNICNT.h"

#include "platform/Procedure.h"
#include "platform/modLogging.h"
#include "platform/modRegistry.h"

namespace rwz {

namespace {

const char kObject[] = "clsNICNT";
const char kCardsRoot[] = "\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\";

// A single string value, cut at its first NUL; "" when it cannot be read.
std::string ReadName(const std::string& astrKey, const char* astrValue) {
    const std::string text = reg::ReadText(astrKey, astrValue).value_or(std::string());
    return text.substr(0, text.find('\0'));
}

}  // namespace

void clsNICNT::EnumerateAdapters(std::vector<std::string>& astrNames,
                                 std::vector<std::string>& astrKeys) {
    Procedure proc(kObject, "EnumerateAdapters");
    proc.Run([&] { EnumAdapters("NetworkCards", astrNames, astrKeys); });
}

void clsNICNT::EnumAdapters(const std::string& astrStart, std::vector<std::string>& astrNames,
                            std::vector<std::string>& astrKeys) {
    Procedure proc(kObject, "EnumAdapters");
    proc.Run([&] {
        const std::string strCards = kCardsRoot + astrStart;
        WriteLog("clsNICNT - EnumerateAdapters: Start search at: " + strCards.substr(1), kLogDebug);
        const std::vector<std::string> cards = reg::SubKeys(strCards);

        size_t lngOrdinal = astrNames.size();
        for (size_t i = 0; i < cards.size(); ++i) {
            const std::string strWhere = "clsNICNT - EnumerateAdapters[" + std::to_string(i);
            const std::string strCard = strCards + "\\" + cards[i];
            if (!reg::KeyExists(strCard)) continue;
            // The system's own adapters (the RAS WAN miniports) carry "Hidden" = 1.
            if (reg::ReadNumber(strCard, "Hidden").value_or(0) != 0) {
                WriteLog(strWhere + "]: Hidden: " + cards[i], kLogDebug);
                continue;
            }
            const std::string strService = ReadName(strCard, "ServiceName");
            const std::string strTitle = ReadName(strCard, "Title");
            // Without its service the card's TCP/IP settings cannot be found;
            // without a title it could be neither shown nor chosen by a profile.
            if (strService.empty() || strTitle.empty()) continue;

            astrNames.push_back(strTitle);
            astrKeys.push_back(strService);
            WriteLog(strWhere + "]: Found NIC " + std::to_string(lngOrdinal) + ": " + cards[i],
                     kLogDebug);
            WriteLog(strWhere + "]: Display Name: " + strTitle, kLogDebug);
            WriteLog(strWhere + "]: Key: " + strService, kLogDebug);
            ++lngOrdinal;
        }
    });
}

}  // namespace rwz
