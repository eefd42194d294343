// The General page (its dialog template, in a hidden parent window) on the
// 2000/XP/2003 back end of the simulated xp-laptop: what it shows, what each
// field assigns and flags, what it greys, the index box over the address
// lists, a refill after a profile, the validation of the address fields, and
// the domain account dialog.
#include <gtest/gtest.h>

#include "network/NetworkBench.h"
#include "network/clsNetConfig2K.h"
#include "shell/frmCredentials.h"
#include "shell/frmCredentialsRes.h"
#include "shell/frmGeneralTab.h"
#include "shell/frmGeneralTabRes.h"

namespace rwz::test {
namespace {

using R = NetRecord;
using S = NetSetting;

TEST(AddressFieldMessage, NamesTheMessageOfEachField) {
    const struct {
        int id;
        const char* text;
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
    for (const auto& c : cases)
        EXPECT_EQ(c.message, AddressFieldMessage(c.id, c.text)) << c.id << " " << c.text;
}

struct CountingHost : ITabHost {
    void PageEdited() override { ++edits; }
    int edits = 0;
};

class GeneralTab : public ::testing::Test {
  protected:
    void SetUp() override {
        LoadMachine("xp-laptop");
        parent = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 600, 400, nullptr, nullptr,
                                 GetModuleHandleA(nullptr), nullptr);
        page.SetOSFamily(OSFamily::XP);
        ASSERT_TRUE(page.Create(GetModuleHandleA(nullptr), parent, host));
        ShowMachine();
    }
    void TearDown() override { DestroyWindow(parent); }

    // The machine as the main window shows it at start: nothing flagged.
    void ShowMachine() {
        net.LoadConfiguration();
        page.RefillFrom(&net, false);
        net.ResetFlags();
    }
    HWND Item(int id) const { return GetDlgItem(page.Handle(), id); }
    std::string Field(int id) const { return FieldBindings::ControlText(page.Handle(), id); }
    // As a user does: the control changes, then the page hears of it.
    void Type(int id, const std::string& text) { SetDlgItemTextA(page.Handle(), id, text.c_str()); }
    void Click(int id) { SendMessageA(Item(id), BM_CLICK, 0, 0); }
    // An option button: the click does not clear the other of a hidden page.
    void Pick(int id) {
        CheckRadioButton(page.Handle(), IDC_GEN_USEWORKGROUP, IDC_GEN_USEDOMAIN, id);
        Click(id);
    }
    void Choose(int id, int index) {
        SendMessageA(Item(id), CB_SETCURSEL, index, 0);
        SendMessageA(page.Handle(), WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(Item(id)));
    }
    int Count(int id) const { return static_cast<int>(SendMessageA(Item(id), CB_GETCOUNT, 0, 0)); }
    // "1" for each enabled control, "0" for each greyed one.
    std::string Enabled(std::initializer_list<int> ids) const {
        std::string states;
        for (int id : ids) states += IsWindowEnabled(Item(id)) ? '1' : '0';
        return states;
    }
    std::vector<S> Flagged() const {
        std::vector<S> flagged;
        for (int i = 0; i < static_cast<int>(S::Count); ++i)
            if (net.IsChanged(static_cast<S>(i))) flagged.push_back(static_cast<S>(i));
        return flagged;
    }

    clsNetConfig2K net;
    CountingHost host;
    HWND parent = nullptr;
    frmGeneralTab page{"GENERAL_TAB", "General"};
};

TEST_F(GeneralTab, ShowsTheMachineWithoutAssigningAnything) {
    const std::pair<int, const char*> shown[] = {
        {IDC_GEN_IPADDRESS, "192.168.101.5"},
        {IDC_GEN_IPMASK, "255.255.255.0"},
        {IDC_GEN_GATEWAY, "192.168.101.1"},
        {IDC_GEN_DNSSERVERS, "192.168.101.2,192.168.101.3"},
        {IDC_GEN_WINSSERVER1, "192.168.101.4"},
        {IDC_GEN_WINSSERVER2, "192.168.101.7"},
        {IDC_GEN_COMPUTERNAME, "LAPTOP1"},
        {IDC_GEN_DESCRIPTION, "Field laptop"},
        {IDC_GEN_HOST, "laptop1"},
        {IDC_GEN_WORKGROUP, "WORKGROUP"},
    };
    for (const auto& [id, text] : shown) EXPECT_EQ(text, Field(id)) << id;
    EXPECT_EQ("HP LaserJet 4050 Series PCL",
              FieldBindings::ListText(page.Handle(), IDC_GEN_PRINTER));
    EXPECT_EQ(3, Count(IDC_GEN_IPINDEX));  // two addresses and a free entry
    EXPECT_EQ(2, Count(IDC_GEN_ADAPTER));
    EXPECT_TRUE(Flagged().empty());
    EXPECT_EQ(0, host.edits);
}

// Each field typed into assigns its own setting and flags it.
TEST_F(GeneralTab, EachFieldAssignsItsSetting) {
    const struct {
        int id;
        std::string R::*field;
        S setting;
    } fields[] = {
        {IDC_GEN_GATEWAY, &R::DefaultGateway, S::DefaultGateway},
        {IDC_GEN_DNSSERVERS, &R::DNSServers, S::DNSServers},
        {IDC_GEN_SEARCHLIST, &R::SearchList, S::SearchList},
        {IDC_GEN_WINSSERVER1, &R::WINSServer1, S::WINSServer1},
        {IDC_GEN_WINSSERVER2, &R::WINSServer2, S::WINSServer2},
        {IDC_GEN_COMPUTERNAME, &R::ComputerName, S::ComputerName},
        {IDC_GEN_DESCRIPTION, &R::ComputerDescription, S::ComputerDescription},
        {IDC_GEN_HOST, &R::Host, S::Host},
        {IDC_GEN_DOMAINNAME, &R::DomainName, S::Domain},
        {IDC_GEN_SCOPEID, &R::ScopeID, S::ScopeID},
        {IDC_GEN_WORKGROUP, &R::Workgroup, S::Workgroup},
        {IDC_GEN_NTDOMAIN, &R::NTDomain, S::NTDomain},
    };
    for (const auto& f : fields) {
        ShowMachine();
        Type(f.id, "10.9.8.7");
        EXPECT_EQ("10.9.8.7", net.Record().*f.field) << f.id;
        EXPECT_EQ(std::vector<S>{f.setting}, Flagged()) << f.id;
    }
    ShowMachine();
    Choose(IDC_GEN_PRINTER, static_cast<int>(SendMessageA(Item(IDC_GEN_PRINTER), CB_FINDSTRINGEXACT,
                                                          -1, LPARAM("EPSON Stylus C84 Series"))));
    EXPECT_EQ("EPSON Stylus C84 Series", net.Record().DefaultPrinter);
    EXPECT_TRUE(net.IsChanged(S::DefaultPrinter));
    EXPECT_GE(host.edits, 13);
}

// The switches assign, flag what goes with them, and grey what they leave unused.
TEST_F(GeneralTab, SwitchesAssignAndGreyWhatTheyLeaveUnused) {
    const std::initializer_list<int> ids = {
        IDC_GEN_IPADDRESS,   IDC_GEN_IPINDEX,   IDC_GEN_GATEWAY,  IDC_GEN_DNSSERVERS, IDC_GEN_WINS,
        IDC_GEN_WINSSERVER1, IDC_GEN_WORKGROUP, IDC_GEN_NTDOMAIN, IDC_GEN_ACCOUNT};
    EXPECT_EQ("111110100", Enabled(ids));  // fixed addresses, WINS off, a workgroup

    Click(IDC_GEN_DHCP);
    EXPECT_TRUE(net.Record().DHCPEnabled);
    EXPECT_TRUE(net.Record().ResetRequired);
    EXPECT_EQ("000110100", Enabled(ids));  // 2000/XP keep WINS apart from DHCP

    Click(IDC_GEN_WINS);
    EXPECT_TRUE(net.Record().WINSEnabled);
    EXPECT_EQ((std::vector<S>{S::WINSEnabled, S::WINSServer1, S::WINSServer2, S::ScopeID,
                              S::DHCPEnabled}),
              Flagged());
    EXPECT_EQ("000111100", Enabled(ids));

    Pick(IDC_GEN_USEDOMAIN);
    EXPECT_TRUE(net.Record().NTLogonEnabled);
    EXPECT_EQ("000111011", Enabled(ids));
}

// On 95/98/ME and NT 4 the DHCP server gives WINS: DHCP switches it off.
TEST_F(GeneralTab, DHCPSwitchesWINSOffOnNineXAndNT) {
    page.SetOSFamily(OSFamily::Win9x);
    Click(IDC_GEN_WINS);
    Click(IDC_GEN_DHCP);
    EXPECT_FALSE(net.Record().WINSEnabled);
    EXPECT_TRUE(net.IsChanged(S::WINSEnabled));
    EXPECT_EQ("00", Enabled({IDC_GEN_WINS, IDC_GEN_WINSSERVER1}));
}

TEST_F(GeneralTab, AddressFieldsEditTheEntryOfTheIndexBox) {
    // The record keeps the lists as multi-strings.
    const auto list = [](std::initializer_list<std::string> entries) {
        std::string text;
        for (const std::string& entry : entries) text += entry + '\0';
        return text.substr(0, text.size() - 1);
    };
    Choose(IDC_GEN_IPINDEX, 1);
    EXPECT_EQ("192.168.101.6", Field(IDC_GEN_IPADDRESS));
    EXPECT_TRUE(Flagged().empty());  // choosing an entry changes nothing

    Type(IDC_GEN_IPADDRESS, "192.168.101.9");
    EXPECT_EQ(list({"192.168.101.5", "192.168.101.9"}), net.Record().IPAddress);
    EXPECT_EQ(std::vector<S>{S::IPAddress}, Flagged());

    // The free entry adds an address; the box then offers one more.
    Choose(IDC_GEN_IPINDEX, 2);
    Type(IDC_GEN_IPADDRESS, "10.0.0.1");
    Type(IDC_GEN_IPMASK, "255.0.0.0");
    EXPECT_EQ(list({"192.168.101.5", "192.168.101.9", "10.0.0.1"}), net.Record().IPAddress);
    EXPECT_EQ(list({"255.255.255.0", "255.255.255.0", "255.0.0.0"}), net.Record().IPMask);
    EXPECT_EQ(4, Count(IDC_GEN_IPINDEX));

    // Retyping the first address keeps the others in place.
    Choose(IDC_GEN_IPINDEX, 0);
    Type(IDC_GEN_IPADDRESS, "");
    Type(IDC_GEN_IPADDRESS, "1");
    EXPECT_EQ(list({"1", "192.168.101.9", "10.0.0.1"}), net.Record().IPAddress);
}

TEST_F(GeneralTab, TheOtherAdapterShowsAsTheMachineHasIt) {
    Choose(IDC_GEN_ADAPTER, 1);
    EXPECT_EQ(1, net.Record().CurrentAdapter);
    EXPECT_EQ("0.0.0.0", Field(IDC_GEN_IPADDRESS));
    EXPECT_EQ("", Field(IDC_GEN_GATEWAY));
    EXPECT_EQ(BST_CHECKED, IsDlgButtonChecked(page.Handle(), IDC_GEN_DHCP));
    EXPECT_TRUE(Flagged().empty());
}

TEST_F(GeneralTab, RefillAfterAProfileAssignsExactlyWhatDiffers) {
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

    // The second address is not in the fields, yet assigned.
    EXPECT_EQ((std::vector<int>{IDC_GEN_HOST, IDC_GEN_USEDOMAIN, IDC_GEN_NTDOMAIN}),
              page.RefillFrom(&net, true));
    EXPECT_EQ((std::vector<S>{S::NTLogon, S::NTDomain, S::Host, S::IPAddress}), Flagged());
    net.ResetFlags();
    EXPECT_TRUE(page.RefillFrom(&net, true).empty());
    EXPECT_TRUE(Flagged().empty());
}

TEST_F(GeneralTab, AnAddressFieldLeftWithABadAddressSaysSo) {
    Type(IDC_GEN_GATEWAY, "10.0.0.1,gw");
    bench::DialogWatch watch({bench::Answer("OK").Title("Roamwise")});
    SendMessageA(page.Handle(), WM_COMMAND, MAKEWPARAM(IDC_GEN_GATEWAY, EN_KILLFOCUS),
                 reinterpret_cast<LPARAM>(Item(IDC_GEN_GATEWAY)));
    Type(IDC_GEN_GATEWAY, "10.0.0.1,10.0.0.2");  // a valid list says nothing
    SendMessageA(page.Handle(), WM_COMMAND, MAKEWPARAM(IDC_GEN_GATEWAY, EN_KILLFOCUS),
                 reinterpret_cast<LPARAM>(Item(IDC_GEN_GATEWAY)));
    const bench::WatchResult& seen = watch.Stop();
    EXPECT_TRUE(seen.DialogsAsScripted());
    ASSERT_EQ(1u, seen.dialogs.size());
    EXPECT_NE(std::string::npos, seen.dialogs[0].text.find("Gateway address list"));
}

// The account dialog: OK stores what was typed or the placeholder, Cancel
// keeps what was stored; a placeholder opens with the box ticked.
TEST(Credentials, StoresTheAccountOrThePlaceholderOnOkOnly) {
    clsNetConfig2K net;
    net.Assign(&R::NTDomainUserName, "old");
    const auto typed = [](const char* button) {
        return bench::Answer(button).Set(IDC_CRED_TEXT0, "admin").Set(IDC_CRED_TEXT1, "secret");
    };
    bench::DialogWatch watch({typed("Cancel"), typed("OK"),
                              bench::Answer("OK").Check(IDC_CRED_CHECK0), bench::Answer("Cancel"),
                              typed("Cancel"), typed("OK")});
    ModifyCredentials(net, nullptr);
    EXPECT_EQ("old", net.Record().NTDomainUserName);
    ModifyCredentials(net, nullptr);
    EXPECT_EQ("admin", net.Record().NTDomainUserName);
    EXPECT_EQ("secret", net.Record().NTDomainPassword);
    ModifyCredentials(net, nullptr);
    EXPECT_EQ("{Prompt}", net.Record().NTDomainUserName);
    EXPECT_EQ("{Prompt}", net.Record().NTDomainPassword);
    EXPECT_FALSE(net.IsChanged(S::NTDomain));  // the account flags nothing

    net.Assign(&R::NTDomainUserName, "{PROMPT}");
    ModifyCredentials(net, nullptr);
    // Asked at apply time: Cancel says so and keeps the placeholder.
    EXPECT_TRUE(PromptForCredentials(net, nullptr));
    EXPECT_EQ("{PROMPT}", net.Record().NTDomainUserName);
    EXPECT_FALSE(PromptForCredentials(net, nullptr));
    EXPECT_EQ("admin", net.Record().NTDomainUserName);
    const bench::WatchResult& seen = watch.Stop();
    EXPECT_TRUE(seen.DialogsAsScripted());
    ASSERT_EQ(6u, seen.dialogs.size());
    EXPECT_TRUE(seen.dialogs[3].Control(IDC_CRED_CHECK0)->checked);
    EXPECT_EQ("", seen.dialogs[3].Control(IDC_CRED_TEXT0)->text);
    EXPECT_TRUE(IsPromptPlaceholder("{Prompt} "));
    EXPECT_FALSE(IsPromptPlaceholder("prompt"));
}

}  // namespace
}  // namespace rwz::test
