#include "localization/modLocalization.h"

#include <memory>

#include "platform/AppVersion.h"
#include "platform/Procedure.h"

namespace rwz {

namespace {

std::unique_ptr<clsLocalization>& SharedInstance() {
    static std::unique_ptr<clsLocalization> instance;
    return instance;
}

}  // namespace

clsLocalization& Localization() {
    auto& instance = SharedInstance();
    if (!instance) instance = std::make_unique<clsLocalization>();
    return *instance;
}

void ResetLocalization() {
    SharedInstance().reset();
}

std::string MessageText(int16_t aintKey, const std::vector<std::string>& avarParms) {
    return Localization().GetMessageText(aintKey, avarParms);
}

std::string JoinMessages(std::initializer_list<std::string> texts) {
    std::string result;
    bool blnFirst = true;
    for (const std::string& text : texts) {
        if (!blnFirst) result += "\r\n\r\n";
        result += text;
        blnFirst = false;
    }
    return result;
}

int ShowMessage(const std::string& astrText, UINT auintStyle, const std::string& astrTitle) {
    Procedure proc("modLocalization", "ShowMessage");
    proc.Log(astrText);
    const std::string strTitle = astrTitle.empty() ? RWZ_PRODUCT_NAME : astrTitle;
    return MessageBoxA(GetActiveWindow(), astrText.c_str(), strTitle.c_str(), auintStyle);
}

}  // namespace rwz
