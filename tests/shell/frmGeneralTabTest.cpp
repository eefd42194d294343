// The General page: the list helpers, the validation of the address fields,
// and the real page (its dialog template, a hidden parent window) driven
// against a test back end: what a refill shows and assigns, what a user's edit
// assigns, the index box, the adapter box, the enabling rules, the messages of
// fields left with a bad address, and the domain account dialog.
#include <windows.h>

#include <atomic>
#include <functional>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "network/TestNetConfig.h"
#include "platform/modUtilities.h"
#include "shell/frmCredentials.h"
#include "shell/frmCredentialsRes.h"
#include "shell/frmGeneralTab.h"
#include "shell/frmGeneralTabRes.h"
#include "support/DialogScript.h"

namespace rwz {
namespace {

using test::TestNetConfig;
using S = NetSetting;

const std::string kTwoAddresses = std::string("192.168.101.5") + '\0' + "192.168.101.6";
const std::string kTwoMasks = std::string("255.255.255.0") + '\0' + "255.255.0.0";

// --- validation -------------------------------------------

TEST(AddressFieldMessage, NamesTheMessageOfEachField) {
    struct Case {
        int id;
        std::string text;
        int16_t message;
    } cases[] = {
        {IDC_GEN_IPADDRESS, "192.168.101.5", 0},
        {IDC_GEN_IPADDRESS, "", 0},
        {IDC_GEN_IPADDRESS, "192.168.101", 20},
        {IDC_GEN_IPADDRESS, "192.168.101.256", 20},
        {IDC_GEN_IPMASK, "255.255.255.0", 0},
        {IDC_GEN_IPMASK, "255.255.x.0", 21},
        {IDC_GEN_GATEWAY, "192.168.101.1,192.168.101.2", 0},
        {IDC_GEN_GATEWAY, "192.168.101.1,192.168.1", 22},
        {IDC_GEN_DNSSERVERS, "", 0},
        {IDC_GEN_DNSSERVERS, "10.0.0.1,dns.example", 23},
        {IDC_GEN_HOST, "not an address", 0},  // other fields are free text
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.message, AddressFieldMessage(c.id, c.text)) << c.id << " " << c.text;
}

// --- Dialogs of this process, answered from a second thread ------------------

using test::DialogScript;
using test::Text;

void Click(HWND dialog, int id) {
    PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), 0);
}

// --- The page ---------------------------------------------------------------

struct CountingHost : ITabHost {
    void PageEdited() override { ++edits; }
    int edits = 0;
};

class GeneralTab : public ::testing::Test {
  protected:
    void SetUp() override {
        TestNetConfig::Clear();
        TestNetConfig::Put("IPAddress", kTwoAddresses, "{WIRED}");
        TestNetConfig::Put("IPMask", kTwoMasks, "{WIRED}");
        TestNetConfig::Put("Gateway", "192.168.101.1", "{WIRED}");
        TestNetConfig::Put("DNS", "192.168.101.2,192.168.101.3", "{WIRED}");
        TestNetConfig::Put("WINS1", "192.168.101.4", "{WIRED}");
        TestNetConfig::Put("WINS", "1");
        TestNetConfig::Put("DHCP", "1", "{WIRELESS}");
        TestNetConfig::Put("Computer", "MACHINE");
        TestNetConfig::Put("Workgroup", "MACHINEWG");
        TestNetConfig::Put("DefaultPrinter", "Office Laser");
        net.Adapters = {{"Local Area Connection", "{WIRED}"},
                        {"Wireless Network Connection", "{WIRELESS}"}};
        net.Printers = {"Office Laser", "Home Inkjet"};
        parent = CreateWindowExA(0, "STATIC", "parent", WS_POPUP, 0, 0, 600, 400, nullptr, nullptr,
                                 GetModuleHandleA(nullptr), nullptr);
        ASSERT_TRUE(parent);
        page.SetOSFamily(OSFamily::XP);
        ASSERT_TRUE(page.Create(GetModuleHandleA(nullptr), parent, host));
    }
    void TearDown() override { DestroyWindow(parent); }

    // Loads the machine and shows it, as the main window does at start.
    void ShowMachine() {
        net.LoadConfiguration();
        page.RefillFrom(&net, false);
    }
    std::string Field(int id) const { return FieldBindings::ControlText(page.Handle(), id); }
    // Types into a field as a user would: the field's own change notification.
    void Type(int id, const std::string& text) { SetDlgItemTextA(page.Handle(), id, text.c_str()); }
    void Tick(int id, bool ticked) {
        CheckDlgButton(page.Handle(), id, ticked ? BST_CHECKED : BST_UNCHECKED);
        SendMessageA(page.Handle(), WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(page.Handle(), id)));
    }
    void Choose(int id, int index) {
        HWND box = GetDlgItem(page.Handle(), id);
        SendMessageA(box, CB_SETCURSEL, index, 0);
        SendMessageA(page.Handle(), WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(box));
    }
    bool Enabled(int id) const { return IsWindowEnabled(GetDlgItem(page.Handle(), id)) != 0; }
    int Count(int id) const {
        return static_cast<int>(SendMessageA(GetDlgItem(page.Handle(), id), CB_GETCOUNT, 0, 0));
    }
    int Selected(int id) const {
        return static_cast<int>(SendMessageA(GetDlgItem(page.Handle(), id), CB_GETCURSEL, 0, 0));
    }
    std::vector<S> Flagged() const {
        std::vector<S> flagged;
        for (int i = 0; i < static_cast<int>(S::Count); ++i)
            if (net.IsChanged(static_cast<S>(i))) flagged.push_back(static_cast<S>(i));
        return flagged;
    }

    TestNetConfig net;
    CountingHost host;
    HWND parent = nullptr;
    frmGeneralTab page{"GENERAL_TAB", "General"};
};

TEST_F(GeneralTab, ShowsTheRecordWithoutAssigningAnything) {
    ShowMachine();
    EXPECT_EQ(0, Selected(IDC_GEN_ADAPTER));
    EXPECT_EQ(2, Count(IDC_GEN_ADAPTER));
    EXPECT_EQ("[Unknown Adapter Type]", Field(IDC_GEN_ADAPTERTYPE));
    EXPECT_EQ("192.168.101.5", Field(IDC_GEN_IPADDRESS));
    EXPECT_EQ("255.255.255.0", Field(IDC_GEN_IPMASK));
    EXPECT_EQ(3, Count(IDC_GEN_IPINDEX));  // two addresses and a free entry
    EXPECT_EQ("192.168.101.1", Field(IDC_GEN_GATEWAY));
    EXPECT_EQ("192.168.101.2,192.168.101.3", Field(IDC_GEN_DNSSERVERS));
    EXPECT_EQ("192.168.101.4", Field(IDC_GEN_WINSSERVER1));
    EXPECT_EQ("MACHINE", Field(IDC_GEN_COMPUTERNAME));
    EXPECT_EQ("MACHINEWG", Field(IDC_GEN_WORKGROUP));
    EXPECT_EQ("Office Laser", FieldBindings::ListText(page.Handle(), IDC_GEN_PRINTER));
    EXPECT_EQ(BST_CHECKED, IsDlgButtonChecked(page.Handle(), IDC_GEN_USEWORKGROUP));
    EXPECT_TRUE(Flagged().empty());
    EXPECT_EQ(0, host.edits);
    // Fixed addresses, a workgroup: the address fields and the workgroup are open.
    EXPECT_TRUE(Enabled(IDC_GEN_IPADDRESS));
    EXPECT_TRUE(Enabled(IDC_GEN_WORKGROUP));
    EXPECT_FALSE(Enabled(IDC_GEN_NTDOMAIN));
    EXPECT_FALSE(Enabled(IDC_GEN_ACCOUNT));
}

TEST_F(GeneralTab, RefillAfterAProfileAssignsExactlyWhatDiffers) {
    ShowMachine();
    // The profile differs in the second address only (not shown in the
    // fields), in the host name and in the domain membership.
    char folder[MAX_PATH] = "";
    GetTempPathA(MAX_PATH, folder);
    const std::string file = std::string(folder) + "general-tab.rwz";
    net.SaveConfigurationfile(file);
    WritePrivateProfileStringA("Network", "IPAddress", "192.168.101.5,192.168.101.9", file.c_str());
    WritePrivateProfileStringA("Network", "HostName", "office1", file.c_str());
    WritePrivateProfileStringA("Network", "NTLogon", "1", file.c_str());
    WritePrivateProfileStringA("Network", "NTDomain", "NORTHWIND", file.c_str());
    net.LoadConfigurationFile(file);
    DeleteFileA(file.c_str());

    const std::vector<int> changed = page.RefillFrom(&net, true);
    EXPECT_EQ((std::vector<S>{S::NTLogon, S::NTDomain, S::Host, S::IPAddress}), Flagged());
    EXPECT_EQ((std::vector<int>{IDC_GEN_HOST, IDC_GEN_USEDOMAIN, IDC_GEN_NTDOMAIN}), changed);
    EXPECT_EQ(std::string("192.168.101.5") + '\0' + "192.168.101.9", net.Record().IPAddress);
    EXPECT_TRUE(Enabled(IDC_GEN_NTDOMAIN));
    EXPECT_TRUE(Enabled(IDC_GEN_ACCOUNT));
    EXPECT_FALSE(Enabled(IDC_GEN_WORKGROUP));
    // The same refill again changes nothing more.
    net.ResetFlags();
    EXPECT_TRUE(page.RefillFrom(&net, true).empty());
    EXPECT_TRUE(Flagged().empty());
}

TEST_F(GeneralTab, AddressFieldsEditTheEntryOfTheIndexBox) {
    ShowMachine();
    Choose(IDC_GEN_IPINDEX, 1);
    EXPECT_EQ("192.168.101.6", Field(IDC_GEN_IPADDRESS));
    EXPECT_EQ("255.255.0.0", Field(IDC_GEN_IPMASK));
    EXPECT_TRUE(Flagged().empty());  // choosing an entry changes nothing

    Type(IDC_GEN_IPADDRESS, "192.168.101.7");
    EXPECT_EQ(std::string("192.168.101.5") + '\0' + "192.168.101.7", net.Record().IPAddress);
    EXPECT_EQ((std::vector<S>{S::IPAddress}), Flagged());
    EXPECT_GE(host.edits, 1);

    // The free entry adds an address; the box then offers one more.
    Choose(IDC_GEN_IPINDEX, 2);
    EXPECT_EQ("", Field(IDC_GEN_IPADDRESS));
    Type(IDC_GEN_IPADDRESS, "10.0.0.1");
    Type(IDC_GEN_IPMASK, "255.0.0.0");
    EXPECT_EQ(std::string("192.168.101.5") + '\0' + "192.168.101.7" + '\0' + "10.0.0.1",
              net.Record().IPAddress);
    EXPECT_EQ(kTwoMasks + '\0' + "255.0.0.0", net.Record().IPMask);
    EXPECT_EQ(4, Count(IDC_GEN_IPINDEX));

    // Retyping the first address keeps the others in place.
    Choose(IDC_GEN_IPINDEX, 0);
    Type(IDC_GEN_IPADDRESS, "");
    Type(IDC_GEN_IPADDRESS, "1");
    EXPECT_EQ(std::string("1") + '\0' + "192.168.101.7" + '\0' + "10.0.0.1",
              net.Record().IPAddress);
}

TEST_F(GeneralTab, TextAndCheckEditsAssignAtOnce) {
    ShowMachine();
    Type(IDC_GEN_GATEWAY, "10.0.0.254");
    Type(IDC_GEN_COMPUTERNAME, "OFFICE1");
    EXPECT_EQ("10.0.0.254", net.Record().DefaultGateway);
    EXPECT_EQ("OFFICE1", net.Record().ComputerName);
    EXPECT_FALSE(net.Record().ResetRequired);

    Tick(IDC_GEN_DHCP, true);
    EXPECT_TRUE(net.Record().DHCPEnabled);
    EXPECT_TRUE(net.Record().ResetRequired);
    // With DHCP the addresses and gateways are greyed; DNS servers stay.
    EXPECT_FALSE(Enabled(IDC_GEN_IPADDRESS));
    EXPECT_FALSE(Enabled(IDC_GEN_IPINDEX));
    EXPECT_FALSE(Enabled(IDC_GEN_GATEWAY));
    EXPECT_TRUE(Enabled(IDC_GEN_DNSSERVERS));
    EXPECT_TRUE(Enabled(IDC_GEN_WINS));  // 2000/XP/2003 keep WINS apart from DHCP

    // Switching WINS off on XP empties the servers, which are then written.
    Tick(IDC_GEN_WINS, false);
    EXPECT_FALSE(net.Record().WINSEnabled);
    EXPECT_EQ("", net.Record().WINSServer1);
    EXPECT_TRUE(net.IsChanged(S::WINSServer1));
    EXPECT_FALSE(Enabled(IDC_GEN_WINSSERVER1));

    Tick(IDC_GEN_USEDOMAIN, true);
    EXPECT_TRUE(net.Record().NTLogonEnabled);
    EXPECT_TRUE(Enabled(IDC_GEN_NTDOMAIN));
}

TEST_F(GeneralTab, DHCPSwitchesWINSOffOnNineXAndNT) {
    ShowMachine();
    page.SetOSFamily(OSFamily::Win9x);
    Tick(IDC_GEN_DHCP, true);
    EXPECT_FALSE(net.Record().WINSEnabled);
    EXPECT_TRUE(net.IsChanged(S::WINSEnabled));
    EXPECT_FALSE(Enabled(IDC_GEN_WINS));
    EXPECT_FALSE(Enabled(IDC_GEN_WINSSERVER1));
    Tick(IDC_GEN_DHCP, false);
    EXPECT_TRUE(Enabled(IDC_GEN_WINS));
}

TEST_F(GeneralTab, AdapterBoxChoosesByPositionAndShowsThatAdapter) {
    // Two adapters of the same name: the box still tells them apart.
    net.Adapters[1].first = net.Adapters[0].first;
    ShowMachine();
    Choose(IDC_GEN_ADAPTER, 1);
    EXPECT_EQ(1, net.Record().CurrentAdapter);
    EXPECT_EQ("", Field(IDC_GEN_IPADDRESS));
    EXPECT_EQ("", Field(IDC_GEN_GATEWAY));
    EXPECT_EQ(BST_CHECKED, IsDlgButtonChecked(page.Handle(), IDC_GEN_DHCP));
    EXPECT_FALSE(Enabled(IDC_GEN_IPADDRESS));
    EXPECT_TRUE(Flagged().empty());  // the other adapter's settings are the machine's
    EXPECT_EQ(1, Selected(IDC_GEN_ADAPTER));
}

TEST_F(GeneralTab, NoAdapterAndNoPrinter) {
    net.Adapters.clear();
    net.Printers.clear();
    ShowMachine();
    EXPECT_EQ(-1, net.Record().CurrentAdapter);
    EXPECT_FALSE(Enabled(IDC_GEN_ADAPTER));
    EXPECT_FALSE(Enabled(IDC_GEN_DHCP));
    EXPECT_FALSE(Enabled(IDC_GEN_IPADDRESS));
    EXPECT_FALSE(Enabled(IDC_GEN_WINS));
    EXPECT_EQ("", Field(IDC_GEN_ADAPTERTYPE));
    EXPECT_EQ("No printers installed", FieldBindings::ListText(page.Handle(), IDC_GEN_PRINTER));
    EXPECT_FALSE(Enabled(IDC_GEN_PRINTER));
    EXPECT_TRUE(Enabled(IDC_GEN_COMPUTERNAME));  // the machine-wide names stay
}

TEST_F(GeneralTab, PrinterChoiceAssignsThePrinter) {
    ShowMachine();
    Choose(IDC_GEN_PRINTER, 1);
    EXPECT_EQ("Home Inkjet", net.Record().DefaultPrinter);
    EXPECT_TRUE(net.IsChanged(S::DefaultPrinter));
}

TEST_F(GeneralTab, LeavingAFieldWithABadAddressShowsItsMessage) {
    ShowMachine();
    struct Case {
        int id;
        std::string text;
        std::string message;
    } cases[] = {
        {IDC_GEN_IPADDRESS, "192.168.1", "Please enter a valid IP address (e.g. 192.168.101.5)."},
        {IDC_GEN_IPMASK, "255.255.255.", "Please enter a valid Mask address (e.g. 255.255.255.0)."},
        {IDC_GEN_GATEWAY, "10.0.0.1,gw",
         "Please enter a valid Gateway address list separated by commas (e.g. "
         "192.168.101.5,192.168.101.6)."},
        {IDC_GEN_DNSSERVERS, "10.0.0.1;10.0.0.2",
         "Please enter a valid DNS Server address list separated by commas (e.g. "
         "192.168.101.5,192.168.101.6)."},
    };
    for (const Case& c : cases) {
        Type(c.id, c.text);
        std::string title, text;
        std::vector<std::string> buttons;
        {
            DialogScript script({[&](HWND box) {
                title = Text(box);
                char message[512] = "";
                GetDlgItemTextA(box, 0xFFFF, message, sizeof message);
                text = message;
                for (HWND child = GetWindow(box, GW_CHILD); child;
                     child = GetWindow(child, GW_HWNDNEXT)) {
                    char cls[16] = "";
                    GetClassNameA(child, cls, sizeof cls);
                    if (std::string(cls) == "Button" && IsWindowVisible(child))
                        buttons.push_back(Text(child));
                }
                Click(box, IDOK);
            }});
            SendMessageA(page.Handle(), WM_COMMAND, MAKEWPARAM(c.id, EN_KILLFOCUS),
                         reinterpret_cast<LPARAM>(GetDlgItem(page.Handle(), c.id)));
            EXPECT_EQ(1, script.StepsRun());
            EXPECT_EQ(0, script.Unexpected());
        }
        EXPECT_EQ("Roamwise", title);
        EXPECT_EQ(c.message, text);
        EXPECT_EQ(std::vector<std::string>{"OK"}, buttons);
        EXPECT_EQ(c.text, Field(c.id));  // what was typed stays
    }
    // A valid list shows nothing.
    Type(IDC_GEN_GATEWAY, "10.0.0.1,10.0.0.2");
    DialogScript none({});
    SendMessageA(page.Handle(), WM_COMMAND, MAKEWPARAM(IDC_GEN_GATEWAY, EN_KILLFOCUS), 0);
    Sleep(200);
    EXPECT_EQ(0, none.Unexpected());
}

// --- The domain account -----------------------------------------------------

// Fills the credentials dialog and presses a button.
DialogScript::Step Credentials(const std::string& user, const std::string& password, int button,
                               bool* promptShown = nullptr, bool* promptTicked = nullptr) {
    return [=](HWND dialog) {
        if (promptShown) *promptShown = IsWindowVisible(GetDlgItem(dialog, IDC_CRED_CHECK0)) != 0;
        if (promptTicked)
            *promptTicked = IsDlgButtonChecked(dialog, IDC_CRED_CHECK0) == BST_CHECKED;
        SendMessageA(GetDlgItem(dialog, IDC_CRED_TEXT0), WM_SETTEXT, 0,
                     reinterpret_cast<LPARAM>(user.c_str()));
        SendMessageA(GetDlgItem(dialog, IDC_CRED_TEXT1), WM_SETTEXT, 0,
                     reinterpret_cast<LPARAM>(password.c_str()));
        Click(dialog, button);
    };
}

TEST(Credentials, ModifyStoresTheAccountOrThePlaceholder) {
    TestNetConfig net;
    net.Assign(&NetRecord::NTDomainUserName, "old");
    net.Assign(&NetRecord::NTDomainPassword, "oldpw");
    {
        DialogScript script({Credentials("admin", "secret", IDCANCEL)});
        ModifyCredentials(net, nullptr);
    }
    EXPECT_EQ("old", net.Record().NTDomainUserName);  // Cancel keeps what was stored
    {
        DialogScript script({Credentials("admin", "secret", IDOK)});
        ModifyCredentials(net, nullptr);
    }
    EXPECT_EQ("admin", net.Record().NTDomainUserName);
    EXPECT_EQ("secret", net.Record().NTDomainPassword);
    {
        DialogScript script({[](HWND dialog) {
            CheckDlgButton(dialog, IDC_CRED_CHECK0, BST_CHECKED);
            Click(dialog, IDOK);
        }});
        ModifyCredentials(net, nullptr);
    }
    EXPECT_EQ("{Prompt}", net.Record().NTDomainUserName);
    EXPECT_EQ("{Prompt}", net.Record().NTDomainPassword);
    EXPECT_FALSE(net.IsChanged(S::NTDomain));  // the account flags nothing

    // A placeholder in capitals opens with the box ticked and the fields empty.
    net.Assign(&NetRecord::NTDomainUserName, "{PROMPT}");
    bool shown = false, ticked = false;
    std::string userShown = "?";
    {
        DialogScript script({[&](HWND dialog) {
            shown = IsWindowVisible(GetDlgItem(dialog, IDC_CRED_CHECK0)) != 0;
            ticked = IsDlgButtonChecked(dialog, IDC_CRED_CHECK0) == BST_CHECKED;
            userShown = Text(GetDlgItem(dialog, IDC_CRED_TEXT0));
            Click(dialog, IDCANCEL);
        }});
        ModifyCredentials(net, nullptr);
    }
    EXPECT_TRUE(shown);
    EXPECT_TRUE(ticked);
    EXPECT_EQ("", userShown);
}

TEST(Credentials, PromptAsksWithoutTheCheckBox) {
    TestNetConfig net;
    net.Assign(&NetRecord::NTDomainUserName, "{prompt}");
    net.Assign(&NetRecord::NTDomainPassword, "{prompt}");
    bool shown = true;
    bool cancelled = false;
    {
        DialogScript script({Credentials("admin", "secret", IDCANCEL, &shown)});
        cancelled = PromptForCredentials(net, nullptr);
    }
    EXPECT_TRUE(cancelled);
    EXPECT_FALSE(shown);
    EXPECT_EQ("{prompt}", net.Record().NTDomainUserName);
    {
        DialogScript script({Credentials("admin", "secret", IDOK)});
        cancelled = PromptForCredentials(net, nullptr);
    }
    EXPECT_FALSE(cancelled);
    EXPECT_EQ("admin", net.Record().NTDomainUserName);
    EXPECT_EQ("secret", net.Record().NTDomainPassword);
    EXPECT_TRUE(IsPromptPlaceholder("{PROMPT}"));
    EXPECT_TRUE(IsPromptPlaceholder("{Prompt} "));
    EXPECT_FALSE(IsPromptPlaceholder("prompt"));
}

}  // namespace
}  // namespace rwz
