#include "shell/frmNetscapeTab.h"

#include <utility>

#include "browsers/NavigatorLib.h"
#include "localization/modLocalization.h"
#include "platform/Procedure.h"
#include "profile/clsRwzConfig.h"
#include "shell/frmNetscapeMail.h"
#include "shell/frmNetscapeTabRes.h"

namespace rwz {

namespace {

// The connection in force, as NavigatorLib reads "network.proxy.type": no
// value is direct, 1 manual proxies, anything else the configuration URL.
bool DirectInForce(const IBrowser& browser) {
    return browser.Record().ConnectViaLAN;
}
bool ManualInForce(const IBrowser& browser) {
    return !browser.Record().ConnectViaLAN && browser.Record().ProxyEnabled;
}
bool AutomaticInForce(const IBrowser& browser) {
    return !browser.Record().ConnectViaLAN && !browser.Record().ProxyEnabled;
}

}  // namespace

frmNetscapeTab::frmNetscapeTab(const char* aszTemplate, std::string astrCaption)
    : clsBrowserTab(aszTemplate, std::move(astrCaption)) {}

IBrowser* frmNetscapeTab::BackEnd(clsRwzConfig& aobjConfig) const {
    return aobjConfig.GetNNConfig();
}

void frmNetscapeTab::OnCreate() {
    using B = BrowserRecord;
    // The profile comes first: the other settings are that profile's.
    mBindings.AddList(
        IDC_NETSCAPE_COMBO0,
        [this] { return Browser() ? Browser()->Record().ProfileList : std::vector<std::string>(); },
        [this] { return Browser() ? Browser()->Record().CurrentProfile : std::string(); },
        [this](const std::string& value) {
            if (!Browser()) return;
            if (mBindings.Refilling())
                Browser()->Assign(&BrowserRecord::CurrentProfile, value);
            else
                SwitchProfile(value);
        });
    BindText(IDC_NETSCAPE_TEXT0, &B::DefaultHomePage);

    BindConnection(IDC_NETSCAPE_OPTION0, DirectInForce, true, false);
    BindConnection(IDC_NETSCAPE_OPTION1, ManualInForce, false, true);
    BindConnection(IDC_NETSCAPE_OPTION2, AutomaticInForce, false, false);
    BindText(IDC_NETSCAPE_TEXT1, &B::HTTPAddress);
    BindText(IDC_NETSCAPE_TEXT2, &B::HTTPPort);
    BindText(IDC_NETSCAPE_TEXT3, &B::SecureAddress);
    BindText(IDC_NETSCAPE_TEXT4, &B::SecurePort);
    BindText(IDC_NETSCAPE_TEXT5, &B::FTPAddress);
    BindText(IDC_NETSCAPE_TEXT6, &B::FTPPort);
    BindText(IDC_NETSCAPE_TEXT7, &B::GopherAddress);
    BindText(IDC_NETSCAPE_TEXT8, &B::GopherPort);
    BindText(IDC_NETSCAPE_TEXT9, &B::WAISAddress);
    BindText(IDC_NETSCAPE_TEXT10, &B::WAISPort);
    BindText(IDC_NETSCAPE_TEXT11, &B::SocksAddress);
    BindText(IDC_NETSCAPE_TEXT12, &B::SocksPort);
    BindList(
        IDC_NETSCAPE_COMBO1,
        [](IBrowser&) {
            return std::vector<std::string>{"4", "5"};
        },
        &B::SocksVersion);
    BindText(IDC_NETSCAPE_TEXT13, &B::ProxyExceptions);
    BindText(IDC_NETSCAPE_TEXT14, &B::AutoConfigURL);

    const auto& mail = NetscapeMailFields();
    for (size_t i = 0; i < mail.size(); ++i)
        BindText(IDC_NETSCAPE_TEXT15 + static_cast<int>(i), mail[i]);
    BindCheck(IDC_NETSCAPE_CHECK0, &B::EMailLeaveMailOnServer);

    SetDlgItemTextA(mhWnd, IDC_NETSCAPE_LABEL10, kNavigatorMailUnavailableText);
    SetArrayCaption(IDC_NETSCAPE_LABEL0, NETSCAPE_TAB_LABELS, "Labels");
    SetArrayCaption(IDC_NETSCAPE_FRAME0, NETSCAPE_TAB_FRAMES, "Frames");
    SetArrayCaption(IDC_NETSCAPE_OPTION0, NETSCAPE_TAB_OPTIONS, "RadioButtons");
    SetArrayCaption(IDC_NETSCAPE_BUTTON0, NETSCAPE_TAB_BUTTONS, "Buttons");
    UpdateEnabling();
}

void frmNetscapeTab::BindConnection(int aintOptionId, bool (*inForce)(const IBrowser&),
                                    bool ablnDirect, bool ablnManual) {
    mBindings.AddCheck(
        aintOptionId, [this, inForce] { return Browser() && inForce(*Browser()); },
        [this, ablnDirect, ablnManual](bool ablnChosen) {
            IBrowser* browser = Browser();
            if (!browser) return;
            if (mBindings.Refilling()) {
                // A profile shows another connection: it is the profile's own.
                browser->Assign(&BrowserRecord::ConnectViaLAN, browser->Record().ConnectViaLAN);
                browser->Assign(&BrowserRecord::ProxyEnabled, browser->Record().ProxyEnabled);
            } else if (ablnChosen) {
                browser->Assign(&BrowserRecord::ConnectViaLAN, ablnDirect);
                browser->Assign(&BrowserRecord::ProxyEnabled, ablnManual);
            }
        });
}

void frmNetscapeTab::SwitchProfile(const std::string& astrProfile) {
    Procedure proc(LogTag(), "SwitchProfile");
    proc.Run([&] {
        proc.LogValue(astrProfile);
        IBrowser* browser = Browser();
        browser->Assign(&BrowserRecord::CurrentProfile, astrProfile);
        browser->LoadConfiguration();
        RefillFrom(browser, false);
    });
}

void frmNetscapeTab::ShowBrowserFacts() {
    IBrowser* browser = Browser();
    if (!browser) return;
    const std::string version =
        FillPlaceholders(Localization().GetLocalizedValue(
                             "Labels", std::string(LogTag()) + ":Version", false, "Version {%0}"),
                         {browser->VersionString()});
    if (!mhWnd) return;
    SetDlgItemTextA(mhWnd, IDC_NETSCAPE_VERSION, version.c_str());
    const bool mail = NavigatorMailAvailable(browser->Version());
    ShowWindow(GetDlgItem(mhWnd, IDC_NETSCAPE_BUTTON0), mail ? SW_SHOW : SW_HIDE);
    ShowWindow(GetDlgItem(mhWnd, IDC_NETSCAPE_LABEL10), mail ? SW_HIDE : SW_SHOW);
}

void frmNetscapeTab::UpdateEnabling() {
    ShowBrowserFacts();
    if (!Available()) return;
    const bool manual = IsChecked(IDC_NETSCAPE_OPTION1);
    for (int id = IDC_NETSCAPE_TEXT1; id <= IDC_NETSCAPE_TEXT13; ++id) Enable(id, manual);
    // Netscape 4 has no SOCKS version to set.
    const bool socksVersion = Browser() && Browser()->Version() >= NavigatorLib::kLaterPrefsVersion;
    Enable(IDC_NETSCAPE_COMBO1, manual && socksVersion);
    Enable(IDC_NETSCAPE_LABEL9, manual && socksVersion);
    Enable(IDC_NETSCAPE_TEXT14, IsChecked(IDC_NETSCAPE_OPTION2));
}

void frmNetscapeTab::OnCommand(WPARAM wParam, LPARAM) {
    if (LOWORD(wParam) == IDC_NETSCAPE_BUTTON0 && HIWORD(wParam) == BN_CLICKED)
        cmdMailAccount_Click();
}

void frmNetscapeTab::cmdMailAccount_Click() {
    Procedure proc(LogTag(), "cmdMailAccount_Click");
    proc.Run([&] {
        IBrowser* browser = Browser();
        if (!browser) return;
        // The page is a child of the main window, which owns the dialog.
        if (!ShowNetscapeMail(GetParent(mhWnd), *browser)) return;
        // The page's own copy of the account follows what the dialog assigned.
        RefillFrom(browser, false);
        Host().PageEdited();
    });
}

}  // namespace rwz
