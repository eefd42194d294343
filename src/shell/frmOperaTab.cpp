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
    using B = IBrowser;
    BindText(IDC_OPERA_TEXT0, &B::DefaultHomePage, &B::SetDefaultHomePage);
    BindCheck(IDC_OPERA_CHECK0, &B::HTTPProxyEnabled, &B::SetHTTPProxyEnabled);
    BindText(IDC_OPERA_TEXT1, &B::HTTPAddress, &B::SetHTTPAddress);
    BindText(IDC_OPERA_TEXT2, &B::HTTPPort, &B::SetHTTPPort);
    BindCheck(IDC_OPERA_CHECK1, &B::SecureProxyEnabled, &B::SetSecureProxyEnabled);
    BindText(IDC_OPERA_TEXT3, &B::SecureAddress, &B::SetSecureAddress);
    BindText(IDC_OPERA_TEXT4, &B::SecurePort, &B::SetSecurePort);
    BindCheck(IDC_OPERA_CHECK2, &B::FTPProxyEnabled, &B::SetFTPProxyEnabled);
    BindText(IDC_OPERA_TEXT5, &B::FTPAddress, &B::SetFTPAddress);
    BindText(IDC_OPERA_TEXT6, &B::FTPPort, &B::SetFTPPort);
    BindCheck(IDC_OPERA_CHECK3, &B::GopherProxyEnabled, &B::SetGopherProxyEnabled);
    BindText(IDC_OPERA_TEXT7, &B::GopherAddress, &B::SetGopherAddress);
    BindText(IDC_OPERA_TEXT8, &B::GopherPort, &B::SetGopherPort);
    BindCheck(IDC_OPERA_CHECK4, &B::WAISProxyEnabled, &B::SetWAISProxyEnabled);
    BindText(IDC_OPERA_TEXT9, &B::WAISAddress, &B::SetWAISAddress);
    BindText(IDC_OPERA_TEXT10, &B::WAISPort, &B::SetWAISPort);
    BindCheck(IDC_OPERA_CHECK5, &B::ProxyExceptionsEnabled, &B::SetProxyExceptionsEnabled);
    BindText(IDC_OPERA_TEXT11, &B::ProxyExceptions, &B::SetProxyExceptions);
    BindCheck(IDC_OPERA_CHECK6, &B::UseAutoConfigURL, &B::SetUseAutoConfigURL);
    BindText(IDC_OPERA_TEXT12, &B::AutoConfigURL, &B::SetAutoConfigURL);
    BindList(
        IDC_OPERA_COMBO0, [](IBrowser& browser) { return browser.GetUserAgents(); },
        &B::CurrentUserAgent, &B::SetCurrentUserAgent);

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
