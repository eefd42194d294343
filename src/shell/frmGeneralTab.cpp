#include "shell/frmGeneralTab.h"

#include <algorithm>
#include <utility>

#include "localization/modLocalization.h"
#include "network/modAddressCheck.h"
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

std::string Replaced(std::string astrText, char from, char to) {
    std::replace(astrText.begin(), astrText.end(), from, to);
    return astrText;
}

}  // namespace

int16_t AddressFieldMessage(int aintControlId, const std::string& astrText) {
    switch (aintControlId) {
        case IDC_GEN_IPADDRESS:
            return AddressListMessage(&NetRecord::IPAddress, astrText);
        case IDC_GEN_IPMASK:
            return AddressListMessage(&NetRecord::IPMask, astrText);
        case IDC_GEN_GATEWAY:
            return AddressListMessage(&NetRecord::DefaultGateway, astrText);
        case IDC_GEN_DNSSERVERS:
            return AddressListMessage(&NetRecord::DNSServers, astrText);
        default:
            return 0;
    }
}

frmGeneralTab::frmGeneralTab(const char* aszTemplate, std::string astrCaption)
    : clsTabPage(aszTemplate, std::move(astrCaption)), mOS(OSFamilyOf(GetCurrentOSTag())) {}

void frmGeneralTab::Refill(clsRwzConfig& aobjConfig, bool ablnAssign) {
    RefillFrom(aobjConfig.GetNetConfig(), ablnAssign);
}

std::vector<int> frmGeneralTab::RefillFrom(INetConfig* aobjNet, bool ablnAssign) {
    Procedure proc(kObject, "InitializeNICControls");
    return proc.Run([&] {
        mobjNet = aobjNet;
        std::vector<int> changed;
        if (!mobjNet) return changed;
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
        // The printer options are edited in their own dialog: a profile whose
        // options differ from those shown assigns them again, as one group.
        const std::string printerOptions = PrinterOptionsShown();
        if (ablnAssign && printerOptions != mstrShownPrinterOptions) {
            const NetRecord shown = mobjNet->Record();
            mobjNet->Assign(&NetRecord::PrinterPort, shown.PrinterPort);
            mobjNet->Assign(&NetRecord::PrinterCaptureDev, shown.PrinterCaptureDev);
            mobjNet->Assign(&NetRecord::PrinterCapturePath, shown.PrinterCapturePath);
            mobjNet->Assign(&NetRecord::PrinterCaptureReconnect, shown.PrinterCaptureReconnect);
            changed.push_back(IDC_GEN_PRINTEROPTIONS);
        }
        mstrShownPrinterOptions = printerOptions;
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
    const int16_t index = mobjNet->Record().CurrentAdapter;
    const int shown = mBindings.Choice(mhWnd, IDC_GEN_ADAPTER);
    if (index < 0 || shown < 0 || index == shown) return;
    // The fields show another adapter than the profile's: what the profile
    // changes on its adapter is measured against that adapter's own settings,
    // so show those first, then put the profile's values back where they differ.
    const NetRecord profile = mobjNet->Record();
    NICSelected(index);
    const NetRecord& machine = mobjNet->Record();
    for (NetFlag field : {&NetRecord::DNSEnabled, &NetRecord::DHCPEnabled})
        if (machine.*field != profile.*field) mobjNet->Assign(field, profile.*field);
    for (NetText field :
         {&NetRecord::DNSServers, &NetRecord::IPAddress, &NetRecord::IPMask,
          &NetRecord::DefaultGateway, &NetRecord::WINSServer1, &NetRecord::WINSServer2})
        if (machine.*field != profile.*field) mobjNet->Assign(field, profile.*field);
    if (machine.WINSEnabled != profile.WINSEnabled)
        mobjNet->Assign(&NetRecord::WINSEnabled, profile.WINSEnabled);
}

void frmGeneralTab::BindText(int aintControlId, NetText aField) {
    mBindings.AddText(
        aintControlId,
        [this, aField] { return mobjNet ? mobjNet->Record().*aField : std::string(); },
        [this, aField](const std::string& value) {
            if (mobjNet) mobjNet->Assign(aField, value);
        });
}

void frmGeneralTab::BindCheck(int aintControlId, NetFlag aField) {
    mBindings.AddCheck(
        aintControlId, [this, aField] { return mobjNet && mobjNet->Record().*aField; },
        [this, aField](bool value) {
            if (mobjNet) mobjNet->Assign(aField, value);
        });
}

void frmGeneralTab::OnCreate() {
    using N = NetRecord;
    mBindings.AddChoice(
        IDC_GEN_ADAPTER,
        [this] { return mobjNet ? mobjNet->Record().AdapterList : std::vector<std::string>(); },
        [this] { return mobjNet ? static_cast<int>(mobjNet->Record().CurrentAdapter) : -1; },
        [this](int index) {
            if (mobjNet && index != mobjNet->Record().CurrentAdapter) NICSelected(index);
        });
    mBindings.AddCheck(
        IDC_GEN_DHCP, [this] { return mobjNet && mobjNet->Record().DHCPEnabled; },
        [this](bool value) { DHCPToggled(value); });
    mBindings.AddText(
        IDC_GEN_IPADDRESS,
        [this] { return SplitIP(mstrShownAddresses, ",", mintIPIndex + 1)[mintIPIndex]; },
        [this](const std::string& value) { AssignEntry(false, value); });
    mBindings.AddText(
        IDC_GEN_IPMASK,
        [this] { return SplitIP(mstrShownMasks, ",", mintIPIndex + 1)[mintIPIndex]; },
        [this](const std::string& value) { AssignEntry(true, value); });
    BindText(IDC_GEN_GATEWAY, &N::DefaultGateway);
    BindText(IDC_GEN_DNSSERVERS, &N::DNSServers);
    BindCheck(IDC_GEN_DNS, &N::DNSEnabled);
    BindText(IDC_GEN_SEARCHLIST, &N::SearchList);
    mBindings.AddCheck(
        IDC_GEN_WINS, [this] { return mobjNet && mobjNet->Record().WINSEnabled; },
        [this](bool value) { WINSToggled(value); });
    BindText(IDC_GEN_WINSSERVER1, &N::WINSServer1);
    BindText(IDC_GEN_WINSSERVER2, &N::WINSServer2);
    BindText(IDC_GEN_COMPUTERNAME, &N::ComputerName);
    BindText(IDC_GEN_DESCRIPTION, &N::ComputerDescription);
    BindText(IDC_GEN_HOST, &N::Host);
    BindText(IDC_GEN_DOMAINNAME, &N::DomainName);
    BindText(IDC_GEN_SCOPEID, &N::ScopeID);
    mBindings.AddOptionPair(
        IDC_GEN_USEDOMAIN, IDC_GEN_USEWORKGROUP,
        [this] { return mobjNet && mobjNet->Record().NTLogonEnabled; },
        [this](bool value) {
            if (mobjNet) mobjNet->Assign(&NetRecord::NTLogonEnabled, value);
        });
    BindText(IDC_GEN_WORKGROUP, &N::Workgroup);
    BindText(IDC_GEN_NTDOMAIN, &N::NTDomain);
    BindCheck(IDC_GEN_SETPRINTER, &N::EnableDefaultPrinter);
    BindCheck(IDC_GEN_QUICKLOGON, &N::QuickLogon);
    BindCheck(IDC_GEN_PWDCACHE, &N::DisablePWDCache);
    mBindings.AddList(
        IDC_GEN_PRINTER,
        [this] {
            const std::vector<std::string> printers =
                mobjNet ? mobjNet->Record().printerList : std::vector<std::string>();
            return printers.empty() ? std::vector<std::string>{kNoPrinters} : printers;
        },
        [this] {
            if (!mobjNet || mobjNet->Record().printerList.empty()) return std::string(kNoPrinters);
            return mobjNet->Record().DefaultPrinter;
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
    } else if (id == IDC_GEN_PRINTEROPTIONS && code == BN_CLICKED) {
        SendMessageA(GetParent(mhWnd), WM_COMMAND, IDC_GEN_PRINTEROPTIONS, 0);
    }
}

std::string frmGeneralTab::AddressList() const {
    return mobjNet ? MergeIP(SplitIP(Replaced(mobjNet->Record().IPAddress, '\0', ',')))
                   : std::string();
}

std::string frmGeneralTab::MaskList() const {
    return mobjNet ? MergeIP(SplitIP(Replaced(mobjNet->Record().IPMask, '\0', ',')))
                   : std::string();
}

void frmGeneralTab::AssignList(bool ablnMask, const std::string& astrCommaList) {
    if (!mobjNet) return;
    const std::string value = mobjNet->AddressListFromCommas(astrCommaList);
    if (ablnMask) {
        mobjNet->Assign(&NetRecord::IPMask, value);
        mstrShownMasks = astrCommaList;
    } else {
        mobjNet->Assign(&NetRecord::IPAddress, value);
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
    if (!box) return;
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
        // Only the adapter's own fields: the machine-wide ones still show what
        // they showed, so that a profile's change to them is still seen as one.
        mBindings.Refill(
            mhWnd, false,
            {IDC_GEN_DHCP, IDC_GEN_IPADDRESS, IDC_GEN_IPMASK, IDC_GEN_GATEWAY, IDC_GEN_DNSSERVERS,
             IDC_GEN_DNS, IDC_GEN_WINS, IDC_GEN_WINSSERVER1, IDC_GEN_WINSSERVER2});
        mblnRefilling = false;
        ShowAdapterType();
    });
}

void frmGeneralTab::DHCPToggled(bool ablnOn) {
    Procedure proc(kObject, "DHCPToggled");
    proc.Run([&] {
        if (!mobjNet) return;
        mobjNet->Assign(&NetRecord::DHCPEnabled, ablnOn);
        if (mblnRefilling || !DHCPGivesWINS()) return;
        // There the DHCP server gives the WINS servers: WINS is switched off
        // with DHCP and follows its box again without it.
        if (ablnOn) mBindings.ShowChecked(mhWnd, IDC_GEN_WINS, false);
        mobjNet->Assign(&NetRecord::WINSEnabled, !ablnOn && IsChecked(IDC_GEN_WINS));
    });
}

void frmGeneralTab::WINSToggled(bool ablnOn) {
    Procedure proc(kObject, "WINSToggled");
    proc.Run([&] {
        if (!mobjNet) return;
        mobjNet->Assign(&NetRecord::WINSEnabled, ablnOn);
        // On 2000/XP/2003 WINS is on exactly when servers are listed, so
        // switching it off empties the server fields (each assigns itself).
        if (!mblnRefilling && !ablnOn && IsNT5Family(mOS)) {
            SetDlgItemTextA(mhWnd, IDC_GEN_WINSSERVER1, "");
            SetDlgItemTextA(mhWnd, IDC_GEN_WINSSERVER2, "");
        }
    });
}

void frmGeneralTab::DefaultPrinterSelected(const std::string& astrPrinter) {
    Procedure proc(kObject, "DefaultPrinterSelected");
    proc.Run([&] {
        if (!mobjNet || astrPrinter == kNoPrinters) return;
        mobjNet->Assign(&NetRecord::DefaultPrinter, astrPrinter);
        // A profile brings its own port; a choice of the user shows the printer's.
        if (!mblnRefilling) {
            mobjNet->GetAdvPrinterSettings();
            mstrShownPrinterOptions = PrinterOptionsShown();
        }
        ShowPrinterPort();
    });
}

void frmGeneralTab::ShowAdapterType() {
    std::string text;
    if (mobjNet && mobjNet->Record().CurrentAdapter >= 0 &&
        (mOS == OSFamily::Win2K || mOS == OSFamily::XP)) {
        const std::string type = mobjNet->CurrentAdapterType();
        text = "[" + (type.empty() ? std::string("Unknown Adapter Type") : type) + "]";
    }
    SetDlgItemTextA(mhWnd, IDC_GEN_ADAPTERTYPE, text.c_str());
}

std::string frmGeneralTab::PrinterOptionsShown() const {
    const NetRecord& record = mobjNet->Record();
    return Join({record.PrinterPort, record.PrinterCaptureDev, record.PrinterCapturePath,
                 record.PrinterCaptureReconnect ? "1" : "0"},
                "\n");
}

void frmGeneralTab::ShowPrinterPort() {
    const std::string port = mobjNet ? mobjNet->Record().PrinterPort : std::string();
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
    return mBindings.Checked(mhWnd, aintControlId);
}

void frmGeneralTab::Enable(int aintControlId, bool ablnEnabled) const {
    if (HWND control = GetDlgItem(mhWnd, aintControlId)) EnableWindow(control, ablnEnabled);
}

bool frmGeneralTab::DHCPGivesWINS() const {
    return mOS == OSFamily::Win9x || mOS == OSFamily::NT4;
}

void frmGeneralTab::UpdateEnabling() {
    Procedure proc(kObject, "EnableNICControls");
    proc.Run([&] {
        if (!Available() || !mhWnd) return;
        const bool adapter = mobjNet && mobjNet->Record().CurrentAdapter >= 0;
        const bool fixed = adapter && !IsChecked(IDC_GEN_DHCP);
        const bool dhcpGivesWINS = DHCPGivesWINS() && IsChecked(IDC_GEN_DHCP);
        const bool wins = adapter && !dhcpGivesWINS;
        for (int id : {IDC_GEN_LABEL_ADAPTER, IDC_GEN_ADAPTER, IDC_GEN_DHCP,
                       IDC_GEN_LABEL_DNSSERVERS, IDC_GEN_DNSSERVERS})
            Enable(id, adapter);
        for (int id :
             {IDC_GEN_LABEL_IPADDRESS, IDC_GEN_IPADDRESS, IDC_GEN_IPINDEX, IDC_GEN_LABEL_IPMASK,
              IDC_GEN_IPMASK, IDC_GEN_LABEL_GATEWAY, IDC_GEN_GATEWAY})
            Enable(id, fixed);
        Enable(IDC_GEN_WINS, wins);
        // 2000/XP/2003 resolve names by DNS always: the box only shows it.
        Enable(IDC_GEN_DNS, adapter && !IsNT5Family(mOS));
        for (int id : {IDC_GEN_LABEL_WINSSERVERS, IDC_GEN_WINSSERVER1, IDC_GEN_WINSSERVER2})
            Enable(id, wins && IsChecked(IDC_GEN_WINS));

        const bool domain = IsChecked(IDC_GEN_USEDOMAIN);
        Enable(IDC_GEN_WORKGROUP, !domain);
        Enable(IDC_GEN_NTDOMAIN, domain);
        // Only the 2000/XP/2003 back end keeps a domain account.
        Enable(IDC_GEN_ACCOUNT, domain && IsNT5Family(mOS));
        // Only 95/98/ME have the quick logon and the password cache switch.
        for (int id : {IDC_GEN_QUICKLOGON, IDC_GEN_PWDCACHE})
            if (HWND control = GetDlgItem(mhWnd, id))
                ShowWindow(control, mOS == OSFamily::Win9x ? SW_SHOW : SW_HIDE);

        const bool printers = mobjNet && !mobjNet->Record().printerList.empty();
        Enable(IDC_GEN_SETPRINTER, printers);
        Enable(IDC_GEN_PRINTER, printers && IsChecked(IDC_GEN_SETPRINTER));
        // The port belongs to a printer; the capture goes with it.
        Enable(IDC_GEN_PRINTEROPTIONS, printers);
    });
}

}  // namespace rwz
