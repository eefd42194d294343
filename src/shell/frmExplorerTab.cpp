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
    using B = BrowserRecord;
    BindText(IDC_IE_TEXT0, &B::DefaultHomePage);
    BindCheck(IDC_IE_CHECK0, &B::ProxyEnabled);
    BindCheck(IDC_IE_CHECK1, &B::UseSameProxy);
    BindText(IDC_IE_TEXT1, &B::HTTPAddress);
    BindText(IDC_IE_TEXT2, &B::HTTPPort);
    BindText(IDC_IE_TEXT3, &B::SecureAddress);
    BindText(IDC_IE_TEXT4, &B::SecurePort);
    BindText(IDC_IE_TEXT5, &B::FTPAddress);
    BindText(IDC_IE_TEXT6, &B::FTPPort);
    BindText(IDC_IE_TEXT7, &B::GopherAddress);
    BindText(IDC_IE_TEXT8, &B::GopherPort);
    BindText(IDC_IE_TEXT9, &B::SocksAddress);
    BindText(IDC_IE_TEXT10, &B::SocksPort);
    BindText(IDC_IE_TEXT11, &B::ProxyExceptions);
    BindCheck(IDC_IE_CHECK2, &B::IgnoreLocalAddresses);
    BindCheck(IDC_IE_CHECK3, &B::AutoDetectSettings);
    BindCheck(IDC_IE_CHECK4, &B::UseAutoConfigURL);
    BindText(IDC_IE_TEXT12, &B::AutoConfigURL);
    BindOptionPair(IDC_IE_OPTION0, IDC_IE_OPTION1, &B::ConnectViaLAN);
    BindList(
        IDC_IE_COMBO0, [](IBrowser& browser) { return browser.Record().DUNList; }, &B::CurrentDUN);
    BindCheck(IDC_IE_CHECK5, &B::DisablePWDCache);

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
