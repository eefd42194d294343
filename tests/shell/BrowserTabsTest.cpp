// The Internet Explorer and Opera pages on a browser record in memory that
// notes every property setter called: what a refill shows and assigns, what a
// user's edit assigns, and which fields are greyed.
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

// A browser whose setters note the name of the property they set.
class RecordingBrowser : public clsBrowserBase {
  public:
    explicit RecordingBrowser(BrowserSection aSection)
        : clsBrowserBase(aSection, "RecordingBrowser") {
        mcolDUNList = {"Northwind Dial-Up", "EarthNet"};
    }
    std::vector<std::string> Calls;

    void LoadConfiguration() override {}
    void ApplyConfiguration() override {}
    std::vector<std::string> GetUserAgents() override {
        return {"Identify as Opera", "Identify as Mozilla 5.0", "Identify as Mozilla 4.78",
                "Identify as Mozilla 3.0", "Identify as MSIE 6.0"};
    }

#define RECORD_TEXT(Name)                                   \
    void Set##Name(const std::string& astrValue) override { \
        Calls.push_back(#Name);                             \
        clsBrowserBase::Set##Name(astrValue);               \
    }
#define RECORD_FLAG(Name)                     \
    void Set##Name(bool ablnValue) override { \
        Calls.push_back(#Name);               \
        clsBrowserBase::Set##Name(ablnValue); \
    }
    RECORD_TEXT(DefaultHomePage)
    RECORD_TEXT(HTTPAddress)
    RECORD_TEXT(HTTPPort)
    RECORD_TEXT(SecureAddress)
    RECORD_TEXT(SecurePort)
    RECORD_TEXT(FTPAddress)
    RECORD_TEXT(FTPPort)
    RECORD_TEXT(GopherAddress)
    RECORD_TEXT(GopherPort)
    RECORD_TEXT(SocksAddress)
    RECORD_TEXT(SocksPort)
    RECORD_TEXT(WAISAddress)
    RECORD_TEXT(WAISPort)
    RECORD_TEXT(ProxyExceptions)
    RECORD_TEXT(AutoConfigURL)
    RECORD_TEXT(CurrentDUN)
    RECORD_TEXT(CurrentUserAgent)
    RECORD_FLAG(ProxyEnabled)
    RECORD_FLAG(UseSameProxy)
    RECORD_FLAG(IgnoreLocalAddresses)
    RECORD_FLAG(AutoDetectSettings)
    RECORD_FLAG(UseAutoConfigURL)
    RECORD_FLAG(ConnectViaLAN)
    RECORD_FLAG(DisablePWDCache)
    RECORD_FLAG(HTTPProxyEnabled)
    RECORD_FLAG(SecureProxyEnabled)
    RECORD_FLAG(FTPProxyEnabled)
    RECORD_FLAG(GopherProxyEnabled)
    RECORD_FLAG(WAISProxyEnabled)
    RECORD_FLAG(ProxyExceptionsEnabled)
#undef RECORD_TEXT
#undef RECORD_FLAG
};

class CountingHost : public ITabHost {
  public:
    void PageEdited() override { ++Edits; }
    int Edits = 0;
};

// A property as the page shows it, and how a test changes it.
struct Field {
    const char* Name;  // as the recording browser notes it
    int Id;
    std::string (IBrowser::*GetText)() const;
    void (IBrowser::*SetText)(const std::string&);
    bool (IBrowser::*GetFlag)() const;
    void (IBrowser::*SetFlag)(bool);
};

Field Text(const char* name, int id, std::string (IBrowser::*get)() const,
           void (IBrowser::*set)(const std::string&)) {
    return {name, id, get, set, nullptr, nullptr};
}
Field Flag(const char* name, int id, bool (IBrowser::*get)() const, void (IBrowser::*set)(bool)) {
    return {name, id, nullptr, nullptr, get, set};
}

using B = IBrowser;

// Every field of the Internet Explorer page.
const std::vector<Field>& ExplorerFields() {
    static const std::vector<Field> fields = {
        Text("DefaultHomePage", IDC_IE_TEXT0, &B::DefaultHomePage, &B::SetDefaultHomePage),
        Text("HTTPAddress", IDC_IE_TEXT1, &B::HTTPAddress, &B::SetHTTPAddress),
        Text("HTTPPort", IDC_IE_TEXT2, &B::HTTPPort, &B::SetHTTPPort),
        Text("SecureAddress", IDC_IE_TEXT3, &B::SecureAddress, &B::SetSecureAddress),
        Text("SecurePort", IDC_IE_TEXT4, &B::SecurePort, &B::SetSecurePort),
        Text("FTPAddress", IDC_IE_TEXT5, &B::FTPAddress, &B::SetFTPAddress),
        Text("FTPPort", IDC_IE_TEXT6, &B::FTPPort, &B::SetFTPPort),
        Text("GopherAddress", IDC_IE_TEXT7, &B::GopherAddress, &B::SetGopherAddress),
        Text("GopherPort", IDC_IE_TEXT8, &B::GopherPort, &B::SetGopherPort),
        Text("SocksAddress", IDC_IE_TEXT9, &B::SocksAddress, &B::SetSocksAddress),
        Text("SocksPort", IDC_IE_TEXT10, &B::SocksPort, &B::SetSocksPort),
        Text("ProxyExceptions", IDC_IE_TEXT11, &B::ProxyExceptions, &B::SetProxyExceptions),
        Text("AutoConfigURL", IDC_IE_TEXT12, &B::AutoConfigURL, &B::SetAutoConfigURL),
        Text("CurrentDUN", IDC_IE_COMBO0, &B::CurrentDUN, &B::SetCurrentDUN),
        Flag("ProxyEnabled", IDC_IE_CHECK0, &B::ProxyEnabled, &B::SetProxyEnabled),
        Flag("UseSameProxy", IDC_IE_CHECK1, &B::UseSameProxy, &B::SetUseSameProxy),
        Flag("IgnoreLocalAddresses", IDC_IE_CHECK2, &B::IgnoreLocalAddresses,
             &B::SetIgnoreLocalAddresses),
        Flag("AutoDetectSettings", IDC_IE_CHECK3, &B::AutoDetectSettings,
             &B::SetAutoDetectSettings),
        Flag("UseAutoConfigURL", IDC_IE_CHECK4, &B::UseAutoConfigURL, &B::SetUseAutoConfigURL),
        Flag("DisablePWDCache", IDC_IE_CHECK5, &B::DisablePWDCache, &B::SetDisablePWDCache),
        Flag("ConnectViaLAN", IDC_IE_OPTION0, &B::ConnectViaLAN, &B::SetConnectViaLAN),
    };
    return fields;
}

// Every field of the Opera page.
const std::vector<Field>& OperaFields() {
    static const std::vector<Field> fields = {
        Text("DefaultHomePage", IDC_OPERA_TEXT0, &B::DefaultHomePage, &B::SetDefaultHomePage),
        Text("HTTPAddress", IDC_OPERA_TEXT1, &B::HTTPAddress, &B::SetHTTPAddress),
        Text("HTTPPort", IDC_OPERA_TEXT2, &B::HTTPPort, &B::SetHTTPPort),
        Text("SecureAddress", IDC_OPERA_TEXT3, &B::SecureAddress, &B::SetSecureAddress),
        Text("SecurePort", IDC_OPERA_TEXT4, &B::SecurePort, &B::SetSecurePort),
        Text("FTPAddress", IDC_OPERA_TEXT5, &B::FTPAddress, &B::SetFTPAddress),
        Text("FTPPort", IDC_OPERA_TEXT6, &B::FTPPort, &B::SetFTPPort),
        Text("GopherAddress", IDC_OPERA_TEXT7, &B::GopherAddress, &B::SetGopherAddress),
        Text("GopherPort", IDC_OPERA_TEXT8, &B::GopherPort, &B::SetGopherPort),
        Text("WAISAddress", IDC_OPERA_TEXT9, &B::WAISAddress, &B::SetWAISAddress),
        Text("WAISPort", IDC_OPERA_TEXT10, &B::WAISPort, &B::SetWAISPort),
        Text("ProxyExceptions", IDC_OPERA_TEXT11, &B::ProxyExceptions, &B::SetProxyExceptions),
        Text("AutoConfigURL", IDC_OPERA_TEXT12, &B::AutoConfigURL, &B::SetAutoConfigURL),
        Text("CurrentUserAgent", IDC_OPERA_COMBO0, &B::CurrentUserAgent, &B::SetCurrentUserAgent),
        Flag("HTTPProxyEnabled", IDC_OPERA_CHECK0, &B::HTTPProxyEnabled, &B::SetHTTPProxyEnabled),
        Flag("SecureProxyEnabled", IDC_OPERA_CHECK1, &B::SecureProxyEnabled,
             &B::SetSecureProxyEnabled),
        Flag("FTPProxyEnabled", IDC_OPERA_CHECK2, &B::FTPProxyEnabled, &B::SetFTPProxyEnabled),
        Flag("GopherProxyEnabled", IDC_OPERA_CHECK3, &B::GopherProxyEnabled,
             &B::SetGopherProxyEnabled),
        Flag("WAISProxyEnabled", IDC_OPERA_CHECK4, &B::WAISProxyEnabled, &B::SetWAISProxyEnabled),
        Flag("ProxyExceptionsEnabled", IDC_OPERA_CHECK5, &B::ProxyExceptionsEnabled,
             &B::SetProxyExceptionsEnabled),
        Flag("UseAutoConfigURL", IDC_OPERA_CHECK6, &B::UseAutoConfigURL, &B::SetUseAutoConfigURL),
    };
    return fields;
}

// A page of either kind in a hidden parent window, showing a recording browser.
template <class Page, BrowserSection kSection, const char* kTemplate>
class TabTest : public ::testing::Test {
  public:
    // Shows the browser as read from the machine: nothing assigned.
    void ShowMachine() {
        mPage.RefillFrom(&mBrowser, false);
        mBrowser.ResetFlags();
        mBrowser.Calls.clear();
        mHost.Edits = 0;
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

    CountingHost mHost;
    RecordingBrowser mBrowser{kSection};
    Page mPage{kTemplate, "Page"};
    HWND mParent = nullptr;
};

const char kExplorerTemplate[] = "IE_TAB";
const char kOperaTemplate[] = "OPERA_TAB";
using ExplorerTabTest =
    TabTest<frmExplorerTab, BrowserSection::InternetExplorer, kExplorerTemplate>;
using OperaTabTest = TabTest<frmOperaTab, BrowserSection::Opera, kOperaTemplate>;

// A value for each field that differs from what the record held.
void ChangeField(IBrowser& browser, const Field& field, const std::string& astrText) {
    if (field.SetText)
        (browser.*field.SetText)(astrText);
    else
        (browser.*field.SetFlag)(!(browser.*field.GetFlag)());
}

// Opening a profile that differs in one field assigns that field alone; the
// page shows the new value.
template <class Test>
void ExpectEachFieldAssignedAlone(Test& test, const std::vector<Field>& fields,
                                  RecordingBrowser& browser, clsBrowserTab& page,
                                  const std::vector<std::string>& listValues) {
    size_t listValue = 0;
    for (const Field& field : fields) {
        SCOPED_TRACE(field.Name);
        test.ShowMachine();
        const bool isList = field.Id == IDC_IE_COMBO0 || field.Id == IDC_OPERA_COMBO0;
        const std::string text =
            isList ? listValues.at(listValue++) : std::string("new ") + field.Name;
        ChangeField(browser, field, text);
        browser.Calls.clear();
        browser.ResetFlags();

        const std::vector<int> changed = page.RefillFrom(&browser, true);
        EXPECT_EQ(std::vector<std::string>{field.Name}, browser.Calls);
        EXPECT_EQ(std::vector<int>{field.Id}, changed);
        EXPECT_TRUE(browser.IsModified());
        if (field.GetText) {
            char shown[512] = {};
            GetDlgItemTextA(page.Handle(), field.Id, shown, sizeof shown);
            EXPECT_EQ(text, shown);
        } else {
            EXPECT_EQ((browser.*field.GetFlag)(),
                      IsDlgButtonChecked(page.Handle(), field.Id) == BST_CHECKED);
        }
        // Showing the same record again assigns nothing.
        browser.Calls.clear();
        EXPECT_TRUE(page.RefillFrom(&browser, true).empty());
        EXPECT_TRUE(browser.Calls.empty());
    }
}

// --- Internet Explorer ------------------------------------------------------

TEST_F(ExplorerTabTest, ShowsTheMachineWithoutAssigning) {
    IBrowser& b = mBrowser;
    b.SetDefaultHomePage("http://intranet.northwind.test/");
    b.SetProxyEnabled(true);
    b.SetHTTPAddress("proxy.northwind.test");
    b.SetHTTPPort("8080");
    b.SetSocksAddress("socks.northwind.test");
    b.SetProxyExceptions("*.northwind.test;10.*");
    b.SetIgnoreLocalAddresses(true);
    b.SetConnectViaLAN(false);
    b.SetCurrentDUN("EarthNet");
    mBrowser.Calls.clear();
    mBrowser.ResetFlags();

    mPage.RefillFrom(&mBrowser, false);

    EXPECT_TRUE(mBrowser.Calls.empty());
    EXPECT_FALSE(mBrowser.IsModified());
    EXPECT_EQ(0, mHost.Edits);
    EXPECT_EQ("http://intranet.northwind.test/", TextOf(IDC_IE_TEXT0));
    EXPECT_EQ("proxy.northwind.test", TextOf(IDC_IE_TEXT1));
    EXPECT_EQ("8080", TextOf(IDC_IE_TEXT2));
    EXPECT_EQ("socks.northwind.test", TextOf(IDC_IE_TEXT9));
    EXPECT_EQ("*.northwind.test;10.*", TextOf(IDC_IE_TEXT11));
    EXPECT_TRUE(Checked(IDC_IE_CHECK0));
    EXPECT_TRUE(Checked(IDC_IE_CHECK2));
    EXPECT_FALSE(Checked(IDC_IE_OPTION0));
    EXPECT_TRUE(Checked(IDC_IE_OPTION1));
    EXPECT_EQ("EarthNet", TextOf(IDC_IE_COMBO0));
    // The dial-up entries are offered in the order found.
    HWND combo = Item(IDC_IE_COMBO0);
    ASSERT_EQ(2, SendMessageA(combo, CB_GETCOUNT, 0, 0));
    char item[64] = {};
    SendMessageA(combo, CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(item));
    EXPECT_STREQ("Northwind Dial-Up", item);
}

TEST_F(ExplorerTabTest, ProfileDifferingInOneFieldAssignsThatFieldAlone) {
    // The dial-up entry: one the system lists, then one it does not.
    ExpectEachFieldAssignedAlone(*this, ExplorerFields(), mBrowser, mPage, {"EarthNet"});
    ShowMachine();
    mBrowser.SetCurrentDUN("Entry of another machine");
    mBrowser.Calls.clear();
    EXPECT_EQ(std::vector<int>{IDC_IE_COMBO0}, mPage.RefillFrom(&mBrowser, true));
    EXPECT_EQ(std::vector<std::string>{"CurrentDUN"}, mBrowser.Calls);
    EXPECT_EQ("Entry of another machine", TextOf(IDC_IE_COMBO0));
}

TEST_F(ExplorerTabTest, UsersEditsAssignAtOnce) {
    mBrowser.SetProxyEnabled(true);
    ShowMachine();

    Type(IDC_IE_TEXT5, "ftp.proxy");
    Click(IDC_IE_CHECK1);
    Click(IDC_IE_OPTION0);
    // Choosing a dial-up entry from the list.
    HWND combo = Item(IDC_IE_COMBO0);
    SendMessageA(combo, CB_SETCURSEL, 1, 0);
    SendMessageA(mPage.Handle(), WM_COMMAND, MAKEWPARAM(IDC_IE_COMBO0, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));

    EXPECT_EQ(
        (std::vector<std::string>{"FTPAddress", "UseSameProxy", "ConnectViaLAN", "CurrentDUN"}),
        mBrowser.Calls);
    EXPECT_EQ("ftp.proxy", mBrowser.FTPAddress());
    EXPECT_TRUE(mBrowser.UseSameProxy());
    EXPECT_TRUE(mBrowser.ConnectViaLAN());
    EXPECT_EQ("EarthNet", mBrowser.CurrentDUN());
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
        mBrowser.SetProxyEnabled(s.proxy);
        mBrowser.SetUseSameProxy(s.same);
        mBrowser.SetUseAutoConfigURL(s.script);
        mBrowser.SetConnectViaLAN(s.lan);
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
    mBrowser.SetProxyEnabled(true);
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
    EXPECT_FALSE(mBrowser.ProxyEnabled());
}

TEST_F(ExplorerTabTest, WithoutBackEndShowsAndAssignsNothing) {
    EXPECT_TRUE(mPage.RefillFrom(nullptr, true).empty());
    Type(IDC_IE_TEXT0, "typed before any profile");
    EXPECT_TRUE(mBrowser.Calls.empty());
}

// --- Opera ------------------------------------------------------------------

TEST_F(OperaTabTest, ProfileDifferingInOneFieldAssignsThatFieldAlone) {
    ExpectEachFieldAssignedAlone(*this, OperaFields(), mBrowser, mPage,
                                 {"Identify as Mozilla 4.78"});
}

TEST_F(OperaTabTest, OffersOperasIdentitiesAndKeepsTheChoiceForAnUnknownOne) {
    mBrowser.SetCurrentUserAgent("Identify as MSIE 6.0");
    ShowMachine();
    HWND combo = Item(IDC_OPERA_COMBO0);
    ASSERT_EQ(5, SendMessageA(combo, CB_GETCOUNT, 0, 0));
    EXPECT_EQ(4, SendMessageA(combo, CB_GETCURSEL, 0, 0));

    // A profile without the identity codes has nothing to say about them.
    mBrowser.SetCurrentUserAgent("");
    mBrowser.Calls.clear();
    EXPECT_TRUE(mPage.RefillFrom(&mBrowser, true).empty());
    EXPECT_TRUE(mBrowser.Calls.empty());
    EXPECT_EQ(4, SendMessageA(combo, CB_GETCURSEL, 0, 0));

    // The user's choice.
    SendMessageA(combo, CB_SETCURSEL, 0, 0);
    SendMessageA(mPage.Handle(), WM_COMMAND, MAKEWPARAM(IDC_OPERA_COMBO0, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
    EXPECT_EQ(std::vector<std::string>{"CurrentUserAgent"}, mBrowser.Calls);
    EXPECT_EQ("Identify as Opera", mBrowser.CurrentUserAgent());
}

TEST_F(OperaTabTest, EachProtocolsSwitchGreysItsOwnServer) {
    mBrowser.SetHTTPProxyEnabled(true);
    mBrowser.SetFTPProxyEnabled(true);
    ShowMachine();
    const bool expected[] = {true, false, true, false, false};
    for (int row = 0; row < 5; ++row) {
        SCOPED_TRACE(row);
        EXPECT_EQ(expected[row], Enabled(IDC_OPERA_TEXT1 + 2 * row));
        EXPECT_EQ(expected[row], Enabled(IDC_OPERA_TEXT2 + 2 * row));
        EXPECT_TRUE(Enabled(IDC_OPERA_CHECK0 + row));
    }
    EXPECT_FALSE(Enabled(IDC_OPERA_TEXT11));
    EXPECT_FALSE(Enabled(IDC_OPERA_TEXT12));

    Click(IDC_OPERA_CHECK4);
    Click(IDC_OPERA_CHECK5);
    Click(IDC_OPERA_CHECK6);
    Click(IDC_OPERA_CHECK0);
    EXPECT_TRUE(Enabled(IDC_OPERA_TEXT9));
    EXPECT_TRUE(Enabled(IDC_OPERA_TEXT11));
    EXPECT_TRUE(Enabled(IDC_OPERA_TEXT12));
    EXPECT_FALSE(Enabled(IDC_OPERA_TEXT1));
    EXPECT_EQ((std::vector<std::string>{"WAISProxyEnabled", "ProxyExceptionsEnabled",
                                        "UseAutoConfigURL", "HTTPProxyEnabled"}),
              mBrowser.Calls);
    EXPECT_FALSE(mBrowser.HTTPProxyEnabled());
    EXPECT_EQ(4, mHost.Edits);
}

}  // namespace
}  // namespace rwz
