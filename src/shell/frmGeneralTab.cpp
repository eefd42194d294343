#include "shell/frmGeneralTab.h"

#include <algorithm>
#include <utility>

#include "localization/modLocalization.h"
#include "network/clsNetConfig2K.h"
#include "network/clsNetConfigBase.h"
#include "platform/Procedure.h"
#include "platform/modAPI.h"
#include "platform/modUtilities.h"
#include "profile/clsRwzConfig.h"
#include "shell/frmCredentials.h"
#include "shell/frmGeneralTabRes.h"

namespace rwz {

namespace {

const char kObject[] = "frmMain";
const char kNoPrinters[] = "No printers installed";
// The index box offers this many entries at most.
const int kMaxAddresses = 16;

enum : int16_t {
    kMsgInvalidIP = 20,
    kMsgInvalidMask = 21,
    kMsgInvalidGateway = 22,
    kMsgInvalidDNS = 23,
};

std::string Replaced(std::string astrText, char from, char to) {
    std::replace(astrText.begin(), astrText.end(), from, to);
    return astrText;
}

bool IsValidIPList(const std::string& astrText) {
    for (const std::string& part : Split(astrText, ","))
        if (!IsValidIP(part)) return false;
    return true;
}

}  // namespace

int16_t AddressFieldMessage(int aintControlId, const std::string& astrText) {
    switch (aintControlId) {
        case IDC_GEN_IPADDRESS:
            return IsValidIP(astrText) ? 0 : kMsgInvalidIP;
        case IDC_GEN_IPMASK:
            return IsValidIP(astrText) ? 0 : kMsgInvalidMask;
        case IDC_GEN_GATEWAY:
            return IsValidIPList(astrText) ? 0 : kMsgInvalidGateway;
        case IDC_GEN_DNSSERVERS:
            return IsValidIPList(astrText) ? 0 : kMsgInvalidDNS;
        default:
            return 0;
    }
}

frmGeneralTab::frmGeneralTab(const char* aszTemplate, std::string astrCaption)
    : clsTabPage(aszTemplate, std::move(astrCaption)), mstrOS(GetCurrentOSTag()) {}

void frmGeneralTab::Refill(clsRwzConfig& aobjConfig, bool ablnAssign) {
    RefillFrom(aobjConfig.GetNetConfig(), ablnAssign);
}

std::vector<int> frmGeneralTab::RefillFrom(INetConfig* aobjNet, bool ablnAssign) {
    Procedure proc(kObject, "InitializeNICControls");
    return proc.Run([&] {
        mobjNet = aobjNet;
        std::vector<int> changed;
        if (!mobjNet || !mhWnd) return changed;
        if (ablnAssign) ShowProfileAdapter();
        mblnRefilling = true;
        // The fields show one entry of each list; the lists are compared whole.
        const std::string addresses = AddressList();
        const std::string masks = MaskList();
        if (ablnAssign && addresses != mstrShownAddresses) AssignList(false, addresses);
        if (ablnAssign && masks != mstrShownMasks) AssignList(true, masks);
        mstrShownAddresses = addresses;
        mstrShownMasks = masks;
        FillIndexBox();
        changed = mBindings.Refill(mhWnd, ablnAssign);
        mblnRefilling = false;
        if (ablnAssign && !changed.empty())
            proc.Log(std::to_string(changed.size()) + " settings differ");
        ShowAdapterType();
        ShowPrinterPort();
        UpdateEnabling();
        return changed;
    });
}

void frmGeneralTab::ShowProfileAdapter() {
    const int16_t index = mobjNet->CurrentAdapter();
    const LRESULT shown = SendMessageA(GetDlgItem(mhWnd, IDC_GEN_ADAPTER), CB_GETCURSEL, 0, 0);
    if (index < 0 || shown == CB_ERR || index == shown) return;
    // The fields show another adapter than the profile's: what the profile
    // changes on its adapter is measured against that adapter's own settings,
    // so show those first, then put the profile's values back where they differ.
    INetConfig& net = *mobjNet;
    const bool dhcp = net.DHCPEnabled(), dns = net.DNSEnabled(), wins = net.WINSEnabled();
    const std::string addresses = net.IPAddress(), masks = net.IPMask(),
                      gateways = net.DefaultGateway(), servers = net.DNSServers(),
                      wins1 = net.WINSServer1(), wins2 = net.WINSServer2();
    NICSelected(index);
    if (net.DNSEnabled() != dns) net.SetDNSEnabled(dns);
    if (net.DNSServers() != servers) net.SetDNSServers(servers);
    if (net.IPAddress() != addresses) net.SetIPAddress(addresses);
    if (net.IPMask() != masks) net.SetIPMask(masks);
    if (net.DefaultGateway() != gateways) net.SetDefaultGateway(gateways);
    if (net.DHCPEnabled() != dhcp) net.SetDHCPEnabled(dhcp);
    if (net.WINSServer1() != wins1) net.SetWINSServer1(wins1);
    if (net.WINSServer2() != wins2) net.SetWINSServer2(wins2);
    if (net.WINSEnabled() != wins) net.SetWINSEnabled(wins);
}

void frmGeneralTab::BindText(int aintControlId, std::string (INetConfig::*get)() const,
                             void (INetConfig::*set)(const std::string&)) {
    mBindings.AddText(
        aintControlId, [this, get] { return mobjNet ? (mobjNet->*get)() : std::string(); },
        [this, set](const std::string& value) {
            if (mobjNet) (mobjNet->*set)(value);
        });
}

void frmGeneralTab::BindCheck(int aintControlId, bool (INetConfig::*get)() const,
                              void (INetConfig::*set)(bool)) {
    mBindings.AddCheck(
        aintControlId, [this, get] { return mobjNet && (mobjNet->*get)(); },
        [this, set](bool value) {
            if (mobjNet) (mobjNet->*set)(value);
        });
}

void frmGeneralTab::OnCreate() {
    using N = INetConfig;
    mBindings.AddChoice(
        IDC_GEN_ADAPTER,
        [this] { return mobjNet ? mobjNet->AdapterList() : std::vector<std::string>(); },
        [this] { return mobjNet ? static_cast<int>(mobjNet->CurrentAdapter()) : -1; },
        [this](int index) {
            if (mobjNet && index != mobjNet->CurrentAdapter()) NICSelected(index);
        });
    mBindings.AddCheck(
        IDC_GEN_DHCP, [this] { return mobjNet && mobjNet->DHCPEnabled(); },
        [this](bool value) { DHCPToggled(value); });
    mBindings.AddText(
        IDC_GEN_IPADDRESS,
        [this] { return SplitIP(mstrShownAddresses, ",", mintIPIndex + 1)[mintIPIndex]; },
        [this](const std::string& value) { AssignEntry(false, value); });
    mBindings.AddText(
        IDC_GEN_IPMASK,
        [this] { return SplitIP(mstrShownMasks, ",", mintIPIndex + 1)[mintIPIndex]; },
        [this](const std::string& value) { AssignEntry(true, value); });
    BindText(IDC_GEN_GATEWAY, &N::DefaultGateway, &N::SetDefaultGateway);
    BindText(IDC_GEN_DNSSERVERS, &N::DNSServers, &N::SetDNSServers);
    BindText(IDC_GEN_SEARCHLIST, &N::SearchList, &N::SetSearchList);
    mBindings.AddCheck(
        IDC_GEN_WINS, [this] { return mobjNet && mobjNet->WINSEnabled(); },
        [this](bool value) { WINSToggled(value); });
    BindText(IDC_GEN_WINSSERVER1, &N::WINSServer1, &N::SetWINSServer1);
    BindText(IDC_GEN_WINSSERVER2, &N::WINSServer2, &N::SetWINSServer2);
    BindText(IDC_GEN_COMPUTERNAME, &N::ComputerName, &N::SetComputerName);
    BindText(IDC_GEN_DESCRIPTION, &N::ComputerDescription, &N::SetComputerDescription);
    BindText(IDC_GEN_HOST, &N::Host, &N::SetHost);
    BindText(IDC_GEN_DOMAINNAME, &N::DomainName, &N::SetDomainName);
    BindText(IDC_GEN_SCOPEID, &N::ScopeID, &N::SetScopeID);
    mBindings.AddOptionPair(
        IDC_GEN_USEDOMAIN, IDC_GEN_USEWORKGROUP,
        [this] { return mobjNet && mobjNet->NTLogonEnabled(); },
        [this](bool value) {
            if (mobjNet) mobjNet->SetNTLogonEnabled(value);
        });
    BindText(IDC_GEN_WORKGROUP, &N::Workgroup, &N::SetWorkgroup);
    BindText(IDC_GEN_NTDOMAIN, &N::NTDomain, &N::SetNTDomain);
    BindCheck(IDC_GEN_SETPRINTER, &N::EnableDefaultPrinter, &N::SetEnableDefaultPrinter);
    mBindings.AddList(
        IDC_GEN_PRINTER,
        [this] {
            const std::vector<std::string> printers =
                mobjNet ? mobjNet->printerList() : std::vector<std::string>();
            return printers.empty() ? std::vector<std::string>{kNoPrinters} : printers;
        },
        [this] {
            if (!mobjNet || mobjNet->printerList().empty()) return std::string(kNoPrinters);
            return mobjNet->DefaultPrinter();
        },
        [this](const std::string& value) { DefaultPrinterSelected(value); });
    UpdateEnabling();
}

void frmGeneralTab::OnCommand(WPARAM wParam, LPARAM) {
    const int id = LOWORD(wParam);
    const int code = HIWORD(wParam);
    if (code == EN_KILLFOCUS) {
        ValidateField(id);
    } else if (id == IDC_GEN_IPINDEX && code == CBN_SELCHANGE) {
        const LRESULT selected = SendMessageA(GetDlgItem(mhWnd, id), CB_GETCURSEL, 0, 0);
        if (selected != CB_ERR) IPAddressIndexSelected(static_cast<int>(selected));
    } else if (id == IDC_GEN_ACCOUNT && code == BN_CLICKED && mobjNet) {
        // The page is a child of the main window (GetAncestor is missing on 95 and NT 4).
        ModifyCredentials(*mobjNet, GetParent(mhWnd));
        Host().PageEdited();
    }
}

std::string frmGeneralTab::AddressList() const {
    return mobjNet ? MergeIP(SplitIP(Replaced(mobjNet->IPAddress(), '\0', ','))) : std::string();
}

std::string frmGeneralTab::MaskList() const {
    return mobjNet ? MergeIP(SplitIP(Replaced(mobjNet->IPMask(), '\0', ','))) : std::string();
}

void frmGeneralTab::AssignList(bool ablnMask, const std::string& astrCommaList) {
    if (!mobjNet) return;
    // The 2000/XP/2003 record keeps its lists as multi-strings.
    const auto* base = dynamic_cast<const clsNetConfigBase*>(mobjNet);
    const bool nul = base ? base->Particulars().NulSeparatedAddresses : Is2KFamily();
    const std::string value = nul ? Replaced(astrCommaList, ',', '\0') : astrCommaList;
    if (ablnMask) {
        mobjNet->SetIPMask(value);
        mstrShownMasks = astrCommaList;
    } else {
        mobjNet->SetIPAddress(value);
        mstrShownAddresses = astrCommaList;
    }
}

void frmGeneralTab::AssignEntry(bool ablnMask, const std::string& astrEntry) {
    // A refill has compared and assigned the whole lists already.
    if (mblnRefilling) return;
    std::vector<std::string> entries =
        SplitIP(ablnMask ? mstrShownMasks : mstrShownAddresses, ",", mintIPIndex + 1);
    entries[mintIPIndex] = Trim(astrEntry);
    AssignList(ablnMask, MergeIP(entries));
    FillIndexBox();
}

void frmGeneralTab::FillIndexBox() {
    HWND box = GetDlgItem(mhWnd, IDC_GEN_IPINDEX);
    // One entry per address or mask, and one more for adding an address.
    const int used = static_cast<int>(
        std::max(SplitIP(mstrShownAddresses).size(), SplitIP(mstrShownMasks).size()));
    const int count = std::min(
        kMaxAddresses, (mstrShownAddresses.empty() && mstrShownMasks.empty()) ? 1 : used + 1);
    if (mintIPIndex >= count) mintIPIndex = 0;
    if (SendMessageA(box, CB_GETCOUNT, 0, 0) != count) {
        SendMessageA(box, CB_RESETCONTENT, 0, 0);
        for (int i = 1; i <= count; ++i)
            SendMessageA(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(std::to_string(i).c_str()));
    }
    SendMessageA(box, CB_SETCURSEL, static_cast<WPARAM>(mintIPIndex), 0);
}

void frmGeneralTab::IPAddressIndexSelected(int aintIndex) {
    Procedure proc(kObject, "IPAddressIndexSelected");
    proc.Run([&] {
        if (aintIndex < 0) return;
        mintIPIndex = aintIndex;
        FillIndexBox();
        // Only the address and mask fields show something else: nothing is assigned.
        mblnRefilling = true;
        mBindings.Refill(mhWnd, false);
        mblnRefilling = false;
    });
}

void frmGeneralTab::NICSelected(int aintIndex) {
    Procedure proc(kObject, "NICSelected");
    proc.Run([&] {
        proc.LogValue(std::to_string(aintIndex));
        mobjNet->SetCurrentAdapter(static_cast<int16_t>(aintIndex));
        // The fields show the chosen adapter's settings as the machine has them.
        mblnRefilling = true;
        mintIPIndex = 0;
        mstrShownAddresses = AddressList();
        mstrShownMasks = MaskList();
        FillIndexBox();
        mBindings.Refill(mhWnd, false);
        mblnRefilling = false;
        ShowAdapterType();
    });
}

void frmGeneralTab::DHCPToggled(bool ablnOn) {
    Procedure proc(kObject, "DHCPToggled");
    proc.Run([&] {
        if (!mobjNet) return;
        mobjNet->SetDHCPEnabled(ablnOn);
        if (mblnRefilling || (mstrOS != "9x" && mstrOS != "NT")) return;
        // There the DHCP server gives the WINS servers: WINS is switched off
        // with DHCP and follows its box again without it.
        if (ablnOn) CheckDlgButton(mhWnd, IDC_GEN_WINS, BST_UNCHECKED);
        mobjNet->SetWINSEnabled(!ablnOn && IsChecked(IDC_GEN_WINS));
    });
}

void frmGeneralTab::WINSToggled(bool ablnOn) {
    Procedure proc(kObject, "WINSToggled");
    proc.Run([&] {
        if (!mobjNet) return;
        mobjNet->SetWINSEnabled(ablnOn);
        // On 2000/XP/2003 WINS is on exactly when servers are listed, so
        // switching it off empties the server fields (each assigns itself).
        if (!mblnRefilling && !ablnOn && Is2KFamily()) {
            SetDlgItemTextA(mhWnd, IDC_GEN_WINSSERVER1, "");
            SetDlgItemTextA(mhWnd, IDC_GEN_WINSSERVER2, "");
        }
    });
}

void frmGeneralTab::DefaultPrinterSelected(const std::string& astrPrinter) {
    Procedure proc(kObject, "DefaultPrinterSelected");
    proc.Run([&] {
        if (!mobjNet || astrPrinter == kNoPrinters) return;
        mobjNet->SetDefaultPrinter(astrPrinter);
        // A profile brings its own port; a choice of the user shows the printer's.
        if (!mblnRefilling) mobjNet->GetAdvPrinterSettings();
        ShowPrinterPort();
    });
}

void frmGeneralTab::ShowAdapterType() {
    std::string text;
    if (mobjNet && mobjNet->CurrentAdapter() >= 0 && (mstrOS == "2K" || mstrOS == "XP")) {
        const auto* net2K = dynamic_cast<const clsNetConfig2K*>(mobjNet);
        const std::string type = net2K ? net2K->CurrentAdapterType() : std::string();
        text = "[" + (type.empty() ? std::string("Unknown Adapter Type") : type) + "]";
    }
    SetDlgItemTextA(mhWnd, IDC_GEN_ADAPTERTYPE, text.c_str());
}

void frmGeneralTab::ShowPrinterPort() {
    const std::string port = mobjNet ? mobjNet->PrinterPort() : std::string();
    SetDlgItemTextA(mhWnd, IDC_GEN_PRINTERPORT, port.empty() ? "" : ("Port: " + port).c_str());
}

void frmGeneralTab::ValidateField(int aintControlId) {
    Procedure proc(kObject, "ValidateField");
    proc.Run([&] {
        const int16_t message =
            AddressFieldMessage(aintControlId, FieldBindings::ControlText(mhWnd, aintControlId));
        // The field keeps what was typed, and the user goes where he went.
        if (message) ShowMessage(MessageText(message), MB_OK | MB_ICONEXCLAMATION);
    });
}

bool frmGeneralTab::IsChecked(int aintControlId) const {
    return IsDlgButtonChecked(mhWnd, aintControlId) == BST_CHECKED;
}

void frmGeneralTab::Enable(int aintControlId, bool ablnEnabled) const {
    if (HWND control = GetDlgItem(mhWnd, aintControlId)) EnableWindow(control, ablnEnabled);
}

bool frmGeneralTab::Is2KFamily() const {
    return mstrOS == "2K" || mstrOS == "XP" || mstrOS == "2003";
}

void frmGeneralTab::UpdateEnabling() {
    Procedure proc(kObject, "EnableNICControls");
    proc.Run([&] {
        if (!Available() || !mhWnd) return;
        const bool adapter = mobjNet && mobjNet->CurrentAdapter() >= 0;
        const bool fixed = adapter && !IsChecked(IDC_GEN_DHCP);
        const bool dhcpGivesWINS = (mstrOS == "9x" || mstrOS == "NT") && IsChecked(IDC_GEN_DHCP);
        const bool wins = adapter && !dhcpGivesWINS;
        for (int id : {IDC_GEN_LABEL_ADAPTER, IDC_GEN_ADAPTER, IDC_GEN_DHCP,
                       IDC_GEN_LABEL_DNSSERVERS, IDC_GEN_DNSSERVERS})
            Enable(id, adapter);
        for (int id :
             {IDC_GEN_LABEL_IPADDRESS, IDC_GEN_IPADDRESS, IDC_GEN_IPINDEX, IDC_GEN_LABEL_IPMASK,
              IDC_GEN_IPMASK, IDC_GEN_LABEL_GATEWAY, IDC_GEN_GATEWAY})
            Enable(id, fixed);
        Enable(IDC_GEN_WINS, wins);
        for (int id : {IDC_GEN_LABEL_WINSSERVERS, IDC_GEN_WINSSERVER1, IDC_GEN_WINSSERVER2})
            Enable(id, wins && IsChecked(IDC_GEN_WINS));

        const bool domain = IsChecked(IDC_GEN_USEDOMAIN);
        Enable(IDC_GEN_WORKGROUP, !domain);
        Enable(IDC_GEN_NTDOMAIN, domain);
        // Only the 2000/XP/2003 back end keeps a domain account.
        Enable(IDC_GEN_ACCOUNT, domain && Is2KFamily());

        const bool printers = mobjNet && !mobjNet->printerList().empty();
        Enable(IDC_GEN_SETPRINTER, printers);
        Enable(IDC_GEN_PRINTER, printers && IsChecked(IDC_GEN_SETPRINTER));
    });
}

}  // namespace rwz
