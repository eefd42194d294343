// The Internet Explorer and Opera pages: each field shows and assigns its own
// setting, a profile differing in one field assigns that field alone, and the
// fields the settings leave unused are grey.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "browsers/clsBrowserBase.h"
#include "shell/frmExplorerTab.h"
#include "shell/frmExplorerTabRes.h"
#include "shell/frmOperaTab.h"
#include "shell/frmOperaTabRes.h"

namespace rwz {
namespace {

using R = BrowserRecord;

class MemoryBrowser : public clsBrowserBase {
  public:
    explicit MemoryBrowser(BrowserSection aSection) : clsBrowserBase(aSection, "MemoryBrowser") {
        mRecord.DUNList = {"Northwind Dial-Up", "EarthNet"};
    }
    void LoadConfiguration() override {}
    void ApplyConfiguration() override {}
    std::vector<std::string> GetUserAgents() const override {
        return {"Identify as Opera", "Identify as Mozilla 5.0", "Identify as Mozilla 4.78",
                "Identify as Mozilla 3.0", "Identify as MSIE 6.0"};
    }
};

class CountingHost : public ITabHost {
  public:
    void PageEdited() override { ++Edits; }
    int Edits = 0;
};

// A field of a page and the setting it shows.
struct Field {
    int Id;
    std::string R::*Text;
    bool R::*Flag;
};

const std::vector<Field> kExplorerFields = {
    {IDC_IE_TEXT0, &R::DefaultHomePage, nullptr},
    {IDC_IE_TEXT1, &R::HTTPAddress, nullptr},
    {IDC_IE_TEXT2, &R::HTTPPort, nullptr},
    {IDC_IE_TEXT3, &R::SecureAddress, nullptr},
    {IDC_IE_TEXT4, &R::SecurePort, nullptr},
    {IDC_IE_TEXT5, &R::FTPAddress, nullptr},
    {IDC_IE_TEXT6, &R::FTPPort, nullptr},
    {IDC_IE_TEXT7, &R::GopherAddress, nullptr},
    {IDC_IE_TEXT8, &R::GopherPort, nullptr},
    {IDC_IE_TEXT9, &R::SocksAddress, nullptr},
    {IDC_IE_TEXT10, &R::SocksPort, nullptr},
    {IDC_IE_TEXT11, &R::ProxyExceptions, nullptr},
    {IDC_IE_TEXT12, &R::AutoConfigURL, nullptr},
    {IDC_IE_COMBO0, &R::CurrentDUN, nullptr},
    {IDC_IE_CHECK0, nullptr, &R::ProxyEnabled},
    {IDC_IE_CHECK1, nullptr, &R::UseSameProxy},
    {IDC_IE_CHECK2, nullptr, &R::IgnoreLocalAddresses},
    {IDC_IE_CHECK3, nullptr, &R::AutoDetectSettings},
    {IDC_IE_CHECK4, nullptr, &R::UseAutoConfigURL},
    {IDC_IE_CHECK5, nullptr, &R::DisablePWDCache},
    {IDC_IE_OPTION0, nullptr, &R::ConnectViaLAN},
};

const std::vector<Field> kOperaFields = {
    {IDC_OPERA_TEXT0, &R::DefaultHomePage, nullptr},
    {IDC_OPERA_TEXT1, &R::HTTPAddress, nullptr},
    {IDC_OPERA_TEXT2, &R::HTTPPort, nullptr},
    {IDC_OPERA_TEXT3, &R::SecureAddress, nullptr},
    {IDC_OPERA_TEXT4, &R::SecurePort, nullptr},
    {IDC_OPERA_TEXT5, &R::FTPAddress, nullptr},
    {IDC_OPERA_TEXT6, &R::FTPPort, nullptr},
    {IDC_OPERA_TEXT7, &R::GopherAddress, nullptr},
    {IDC_OPERA_TEXT8, &R::GopherPort, nullptr},
    {IDC_OPERA_TEXT9, &R::WAISAddress, nullptr},
    {IDC_OPERA_TEXT10, &R::WAISPort, nullptr},
    {IDC_OPERA_TEXT11, &R::ProxyExceptions, nullptr},
    {IDC_OPERA_TEXT12, &R::AutoConfigURL, nullptr},
    {IDC_OPERA_COMBO0, &R::CurrentUserAgent, nullptr},
    {IDC_OPERA_CHECK0, nullptr, &R::HTTPProxyEnabled},
    {IDC_OPERA_CHECK1, nullptr, &R::SecureProxyEnabled},
    {IDC_OPERA_CHECK2, nullptr, &R::FTPProxyEnabled},
    {IDC_OPERA_CHECK3, nullptr, &R::GopherProxyEnabled},
    {IDC_OPERA_CHECK4, nullptr, &R::WAISProxyEnabled},
    {IDC_OPERA_CHECK5, nullptr, &R::ProxyExceptionsEnabled},
    {IDC_OPERA_CHECK6, nullptr, &R::UseAutoConfigURL},
};

// A page of either kind in a hidden parent window, showing a browser in memory.
template <class Page, BrowserSection kSection, const char* kTemplate>
class TabTest : public ::testing::Test {
  public:
    // Shows the browser as read from the machine: nothing assigned.
    void ShowMachine() {
        mPage.RefillFrom(&mBrowser, false);
        mBrowser.ResetFlags();
        mHost.Edits = 0;
    }

    // A profile differing in one field assigns that field alone, to the
    // setting the field shows; showing it again assigns nothing.
    void ExpectEachFieldAssignedAlone(const std::vector<Field>& fields, const char* listValue) {
        for (const Field& field : fields) {
            SCOPED_TRACE(field.Id);
            ShowMachine();
            if (field.Text)
                mBrowser.Assign(field.Text, field.Id == fields[13].Id ? listValue : "new");
            else
                mBrowser.Assign(field.Flag, !(mBrowser.Record().*field.Flag));
            mBrowser.ResetFlags();
            const BrowserRecord before = mBrowser.Record();

            EXPECT_EQ(std::vector<int>{field.Id}, mPage.RefillFrom(&mBrowser, true));
            EXPECT_TRUE(mBrowser.IsModified());
            for (const Field& other : fields) {
                if (other.Text) EXPECT_EQ(before.*other.Text, mBrowser.Record().*other.Text);
                if (other.Flag) EXPECT_EQ(before.*other.Flag, mBrowser.Record().*other.Flag);
            }
            if (field.Text) EXPECT_EQ(mBrowser.Record().*field.Text, TextOf(field.Id));
            if (field.Flag) EXPECT_EQ(mBrowser.Record().*field.Flag, Checked(field.Id));
            mBrowser.ResetFlags();
            EXPECT_TRUE(mPage.RefillFrom(&mBrowser, true).empty());
            EXPECT_FALSE(mBrowser.IsModified());
        }
    }

  protected:
    void SetUp() override {
        mParent = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW, 0, 0, 700, 500, nullptr,
                                  nullptr, GetModuleHandleA(nullptr), nullptr);
        ASSERT_TRUE(mParent);
        ASSERT_TRUE(mPage.Create(GetModuleHandleA(nullptr), mParent, mHost));
    }
    void TearDown() override { DestroyWindow(mParent); }

    HWND Item(int id) { return GetDlgItem(mPage.Handle(), id); }
    std::string TextOf(int id) {
        char text[512] = {};
        GetDlgItemTextA(mPage.Handle(), id, text, sizeof text);
        return text;
    }
    bool Checked(int id) { return IsDlgButtonChecked(mPage.Handle(), id) == BST_CHECKED; }
    bool Enabled(int id) { return IsWindowEnabled(Item(id)) != FALSE; }
    // What a user's click does: the button changes, then the page hears of it.
    void Click(int id) { SendMessageA(Item(id), BM_CLICK, 0, 0); }
    void Type(int id, const std::string& text) {
        SetDlgItemTextA(mPage.Handle(), id, text.c_str());
    }
    void Choose(int id, int index) {
        SendMessageA(Item(id), CB_SETCURSEL, index, 0);
        SendMessageA(mPage.Handle(), WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(Item(id)));
    }

    CountingHost mHost;
    MemoryBrowser mBrowser{kSection};
    Page mPage{kTemplate, "Page"};
    HWND mParent = nullptr;
};

const char kExplorerTemplate[] = "IE_TAB";
const char kOperaTemplate[] = "OPERA_TAB";
using ExplorerTabTest =
    TabTest<frmExplorerTab, BrowserSection::InternetExplorer, kExplorerTemplate>;
using OperaTabTest = TabTest<frmOperaTab, BrowserSection::Opera, kOperaTemplate>;

// --- Internet Explorer ------------------------------------------------------

TEST_F(ExplorerTabTest, ProfileDifferingInOneFieldAssignsThatFieldAlone) {
    // The dial-up entry: one the system lists, then one it does not.
    ExpectEachFieldAssignedAlone(kExplorerFields, "EarthNet");
    ExpectEachFieldAssignedAlone({kExplorerFields[13]}, "Entry of another machine");
}

TEST_F(ExplorerTabTest, UsersEditsAssignAtOnce) {
    mBrowser.Assign(&R::ProxyEnabled, true);
    ShowMachine();
    Type(IDC_IE_TEXT5, "ftp.proxy");
    Click(IDC_IE_CHECK1);
    Click(IDC_IE_OPTION0);
    Choose(IDC_IE_COMBO0, 1);
    EXPECT_EQ("ftp.proxy", mBrowser.Record().FTPAddress);
    EXPECT_TRUE(mBrowser.Record().UseSameProxy);
    EXPECT_TRUE(mBrowser.Record().ConnectViaLAN);
    EXPECT_EQ("EarthNet", mBrowser.Record().CurrentDUN);
    EXPECT_EQ(4, mHost.Edits);
}

struct ExplorerState {
    bool proxy, same, script, lan;
    // Expected: HTTP host, FTP host, SOCKS host, same-proxy switch, exceptions,
    // script address, dial-up entry.
    bool http, ftp, socks, sameSwitch, exceptions, url, dun;
};

TEST_F(ExplorerTabTest, GreysWhatTheSettingsLeaveUnused) {
    const ExplorerState states[] = {
        {false, false, false, true, false, false, false, false, false, false, false},
        {true, false, false, true, true, true, true, true, true, false, false},
        {true, true, false, true, true, false, false, true, true, false, false},
        {false, true, true, false, false, false, false, false, false, true, true},
    };
    for (const ExplorerState& s : states) {
        SCOPED_TRACE(testing::Message() << "proxy " << s.proxy << " same " << s.same << " script "
                                        << s.script << " lan " << s.lan);
        mBrowser.Assign(&R::ProxyEnabled, s.proxy);
        mBrowser.Assign(&R::UseSameProxy, s.same);
        mBrowser.Assign(&R::UseAutoConfigURL, s.script);
        mBrowser.Assign(&R::ConnectViaLAN, s.lan);
        mPage.RefillFrom(&mBrowser, false);
        EXPECT_EQ(s.http, Enabled(IDC_IE_TEXT1));
        EXPECT_EQ(s.http, Enabled(IDC_IE_TEXT2));
        EXPECT_EQ(s.ftp, Enabled(IDC_IE_TEXT5));
        EXPECT_EQ(s.ftp, Enabled(IDC_IE_TEXT4));
        EXPECT_EQ(s.socks, Enabled(IDC_IE_TEXT9));
        EXPECT_EQ(s.socks, Enabled(IDC_IE_TEXT10));
        EXPECT_EQ(s.sameSwitch, Enabled(IDC_IE_CHECK1));
        EXPECT_EQ(s.exceptions, Enabled(IDC_IE_TEXT11));
        EXPECT_EQ(s.exceptions, Enabled(IDC_IE_CHECK2));
        EXPECT_EQ(s.url, Enabled(IDC_IE_TEXT12));
        EXPECT_EQ(s.dun, Enabled(IDC_IE_COMBO0));
        // Always open to change.
        EXPECT_TRUE(Enabled(IDC_IE_CHECK0));
        EXPECT_TRUE(Enabled(IDC_IE_CHECK4));
        EXPECT_TRUE(Enabled(IDC_IE_OPTION1));
    }
}

TEST_F(ExplorerTabTest, ClicksRegreyTheFieldsAndTheAreaSwitchKeepsTheRules) {
    mBrowser.Assign(&R::ProxyEnabled, true);
    ShowMachine();
    ASSERT_TRUE(Enabled(IDC_IE_TEXT5));

    Click(IDC_IE_CHECK1);
    EXPECT_FALSE(Enabled(IDC_IE_TEXT5));
    EXPECT_TRUE(Enabled(IDC_IE_TEXT1));

    // Switching the area off greys everything; on again, the rules hold.
    mPage.SetAvailable(false);
    EXPECT_FALSE(Enabled(IDC_IE_TEXT1));
    EXPECT_FALSE(Enabled(IDC_IE_CHECK0));
    mPage.SetAvailable(true);
    EXPECT_TRUE(Enabled(IDC_IE_TEXT1));
    EXPECT_FALSE(Enabled(IDC_IE_TEXT5));
    EXPECT_FALSE(Enabled(IDC_IE_TEXT12));

    Click(IDC_IE_CHECK0);
    EXPECT_FALSE(Enabled(IDC_IE_TEXT1));
    EXPECT_FALSE(mBrowser.Record().ProxyEnabled);
}

// --- Opera ------------------------------------------------------------------

TEST_F(OperaTabTest, ProfileDifferingInOneFieldAssignsThatFieldAlone) {
    ExpectEachFieldAssignedAlone(kOperaFields, "Identify as Mozilla 4.78");
}

TEST_F(OperaTabTest, EachProtocolsSwitchGreysItsOwnServer) {
    mBrowser.Assign(&R::HTTPProxyEnabled, true);
    mBrowser.Assign(&R::FTPProxyEnabled, true);
    ShowMachine();
    const bool expected[] = {true, false, true, false, false};
    for (int row = 0; row < 5; ++row) {
        SCOPED_TRACE(row);
        EXPECT_EQ(expected[row], Enabled(IDC_OPERA_TEXT1 + 2 * row));
        EXPECT_EQ(expected[row], Enabled(IDC_OPERA_TEXT2 + 2 * row));
    }
    EXPECT_FALSE(Enabled(IDC_OPERA_TEXT11));
    EXPECT_FALSE(Enabled(IDC_OPERA_TEXT12));
    for (int id : {IDC_OPERA_CHECK4, IDC_OPERA_CHECK5, IDC_OPERA_CHECK6, IDC_OPERA_CHECK0})
        Click(id);
    EXPECT_TRUE(Enabled(IDC_OPERA_TEXT9));
    EXPECT_TRUE(Enabled(IDC_OPERA_TEXT11));
    EXPECT_TRUE(Enabled(IDC_OPERA_TEXT12));
    EXPECT_FALSE(Enabled(IDC_OPERA_TEXT1));
    EXPECT_FALSE(mBrowser.Record().HTTPProxyEnabled);
    EXPECT_TRUE(mBrowser.Record().WAISProxyEnabled);
    EXPECT_EQ(4, mHost.Edits);
}

}  // namespace
}  // namespace rwz
