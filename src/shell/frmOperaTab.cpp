#include "shell/frmOperaTab.h"

#include <utility>

#include "profile/clsRwzConfig.h"
#include "shell/frmOperaTabRes.h"

namespace rwz {

frmOperaTab::frmOperaTab(const char* aszTemplate, std::string astrCaption)
    : clsBrowserTab(aszTemplate, std::move(astrCaption)) {}

IBrowser* frmOperaTab::BackEnd(clsRwzConfig& aobjConfig) const {
    return aobjConfig.GetOperaConfig();
}

void frmOperaTab::OnCreate() {
    using B = BrowserRecord;
    BindText(IDC_OPERA_TEXT0, &B::DefaultHomePage);
    BindCheck(IDC_OPERA_CHECK0, &B::HTTPProxyEnabled);
    BindText(IDC_OPERA_TEXT1, &B::HTTPAddress);
    BindText(IDC_OPERA_TEXT2, &B::HTTPPort);
    BindCheck(IDC_OPERA_CHECK1, &B::SecureProxyEnabled);
    BindText(IDC_OPERA_TEXT3, &B::SecureAddress);
    BindText(IDC_OPERA_TEXT4, &B::SecurePort);
    BindCheck(IDC_OPERA_CHECK2, &B::FTPProxyEnabled);
    BindText(IDC_OPERA_TEXT5, &B::FTPAddress);
    BindText(IDC_OPERA_TEXT6, &B::FTPPort);
    BindCheck(IDC_OPERA_CHECK3, &B::GopherProxyEnabled);
    BindText(IDC_OPERA_TEXT7, &B::GopherAddress);
    BindText(IDC_OPERA_TEXT8, &B::GopherPort);
    BindCheck(IDC_OPERA_CHECK4, &B::WAISProxyEnabled);
    BindText(IDC_OPERA_TEXT9, &B::WAISAddress);
    BindText(IDC_OPERA_TEXT10, &B::WAISPort);
    BindCheck(IDC_OPERA_CHECK5, &B::ProxyExceptionsEnabled);
    BindText(IDC_OPERA_TEXT11, &B::ProxyExceptions);
    BindCheck(IDC_OPERA_CHECK6, &B::UseAutoConfigURL);
    BindText(IDC_OPERA_TEXT12, &B::AutoConfigURL);
    BindList(
        IDC_OPERA_COMBO0, [](IBrowser& browser) { return browser.GetUserAgents(); },
        &B::CurrentUserAgent);

    SetArrayCaption(IDC_OPERA_LABEL0, OPERA_TAB_LABELS, "Labels");
    SetArrayCaption(IDC_OPERA_FRAME0, OPERA_TAB_FRAMES, "Frames");
    SetArrayCaption(IDC_OPERA_CHECK0, OPERA_TAB_CHECKS, "Checkboxes");
    UpdateEnabling();
}

void frmOperaTab::UpdateEnabling() {
    if (!Available()) return;
    for (int row = 0; row < 5; ++row) {
        const bool on = IsChecked(IDC_OPERA_CHECK0 + row);
        Enable(IDC_OPERA_TEXT1 + 2 * row, on);
        Enable(IDC_OPERA_TEXT2 + 2 * row, on);
    }
    Enable(IDC_OPERA_TEXT11, IsChecked(IDC_OPERA_CHECK5));
    Enable(IDC_OPERA_TEXT12, IsChecked(IDC_OPERA_CHECK6));
}

}  // namespace rwz
