#include "shell/frmExplorerTab.h"

#include <utility>

#include "profile/clsRwzConfig.h"
#include "shell/frmExplorerTabRes.h"

namespace rwz {

frmExplorerTab::frmExplorerTab(const char* aszTemplate, std::string astrCaption)
    : clsBrowserTab(aszTemplate, std::move(astrCaption)) {}

IBrowser* frmExplorerTab::BackEnd(clsRwzConfig& aobjConfig) const {
    return aobjConfig.GetIEConfig();
}

void frmExplorerTab::OnCreate() {
    using B = IBrowser;
    BindText(IDC_IE_TEXT0, &B::DefaultHomePage, &B::SetDefaultHomePage);
    BindCheck(IDC_IE_CHECK0, &B::ProxyEnabled, &B::SetProxyEnabled);
    BindCheck(IDC_IE_CHECK1, &B::UseSameProxy, &B::SetUseSameProxy);
    BindText(IDC_IE_TEXT1, &B::HTTPAddress, &B::SetHTTPAddress);
    BindText(IDC_IE_TEXT2, &B::HTTPPort, &B::SetHTTPPort);
    BindText(IDC_IE_TEXT3, &B::SecureAddress, &B::SetSecureAddress);
    BindText(IDC_IE_TEXT4, &B::SecurePort, &B::SetSecurePort);
    BindText(IDC_IE_TEXT5, &B::FTPAddress, &B::SetFTPAddress);
    BindText(IDC_IE_TEXT6, &B::FTPPort, &B::SetFTPPort);
    BindText(IDC_IE_TEXT7, &B::GopherAddress, &B::SetGopherAddress);
    BindText(IDC_IE_TEXT8, &B::GopherPort, &B::SetGopherPort);
    BindText(IDC_IE_TEXT9, &B::SocksAddress, &B::SetSocksAddress);
    BindText(IDC_IE_TEXT10, &B::SocksPort, &B::SetSocksPort);
    BindText(IDC_IE_TEXT11, &B::ProxyExceptions, &B::SetProxyExceptions);
    BindCheck(IDC_IE_CHECK2, &B::IgnoreLocalAddresses, &B::SetIgnoreLocalAddresses);
    BindCheck(IDC_IE_CHECK3, &B::AutoDetectSettings, &B::SetAutoDetectSettings);
    BindCheck(IDC_IE_CHECK4, &B::UseAutoConfigURL, &B::SetUseAutoConfigURL);
    BindText(IDC_IE_TEXT12, &B::AutoConfigURL, &B::SetAutoConfigURL);
    BindOptionPair(IDC_IE_OPTION0, IDC_IE_OPTION1, &B::ConnectViaLAN, &B::SetConnectViaLAN);
    BindList(
        IDC_IE_COMBO0, [](IBrowser& browser) { return browser.DUNList(); }, &B::CurrentDUN,
        &B::SetCurrentDUN);
    BindCheck(IDC_IE_CHECK5, &B::DisablePWDCache, &B::SetDisablePWDCache);

    SetArrayCaption(IDC_IE_LABEL0, IE_TAB_LABELS, "Labels");
    SetArrayCaption(IDC_IE_FRAME0, IE_TAB_FRAMES, "Frames");
    SetArrayCaption(IDC_IE_CHECK0, IE_TAB_CHECKS, "Checkboxes");
    SetArrayCaption(IDC_IE_OPTION0, IE_TAB_OPTIONS, "RadioButtons");
    UpdateEnabling();
}

void frmExplorerTab::UpdateEnabling() {
    if (!Available()) return;
    const bool proxy = IsChecked(IDC_IE_CHECK0);
    const bool perProtocol = proxy && !IsChecked(IDC_IE_CHECK1);
    Enable(IDC_IE_CHECK1, proxy);
    // The HTTP row is the one proxy for all protocols.
    Enable(IDC_IE_LABEL1, proxy);
    Enable(IDC_IE_TEXT1, proxy);
    Enable(IDC_IE_TEXT2, proxy);
    for (int row = 0; row < 4; ++row) {
        Enable(IDC_IE_LABEL2 + row, perProtocol);
        Enable(IDC_IE_TEXT3 + 2 * row, perProtocol);
        Enable(IDC_IE_TEXT4 + 2 * row, perProtocol);
    }
    Enable(IDC_IE_FRAME1, proxy);
    Enable(IDC_IE_LABEL6, proxy);
    Enable(IDC_IE_TEXT11, proxy);
    Enable(IDC_IE_CHECK2, proxy);

    const bool script = IsChecked(IDC_IE_CHECK4);
    Enable(IDC_IE_LABEL7, script);
    Enable(IDC_IE_TEXT12, script);

    Enable(IDC_IE_COMBO0, IsChecked(IDC_IE_OPTION1));
}

}  // namespace rwz
