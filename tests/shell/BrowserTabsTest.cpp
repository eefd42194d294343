// The Internet Explorer, Opera and Netscape pages (their dialog templates, in
// a hidden parent window) on a browser held in memory: each field shows and
// assigns its own setting, a user's edit assigns at once, the fields the
// settings leave unused are grey, Netscape's profile box reads the chosen
// profile afresh, and its mail dialog assigns on OK only.
#include <gtest/gtest.h>
#include <windows.h>

#include "bench/Bench.h"
#include "browsers/clsBrowserBase.h"
#include "shell/frmExplorerTab.h"
#include "shell/frmExplorerTabRes.h"
#include "shell/frmNetscapeMailRes.h"
#include "shell/frmNetscapeTab.h"
#include "shell/frmNetscapeTabRes.h"
#include "shell/frmOperaTab.h"
#include "shell/frmOperaTabRes.h"

namespace rwz {
namespace {

using R = BrowserRecord;

// A browser with two dial-up entries, the user agents of Opera, and two
// profiles, each with its own home page and proxy (read by LoadConfiguration).
class MemoryBrowser : public clsBrowserBase {
  public:
    explicit MemoryBrowser(BrowserSection aSection) : clsBrowserBase(aSection, "MemoryBrowser") {
        Version("7.2");
        mblnIsInstalled = true;
        mRecord.DUNList = {"Northwind Dial-Up", "EarthNet"};
        mRecord.ProfileList = {"work", "Home Office"};
        mRecord.CurrentProfile = "work";
    }
    void LoadConfiguration() override {
        ++Loads;
        mRecord.DefaultHomePage = mRecord.CurrentProfile == "work" ? "http://work/" : "about:blank";
        mRecord.ProxyEnabled = true;
        mRecord.ConnectViaLAN = false;
        mRecord.HTTPAddress = "proxy." + mRecord.CurrentProfile;
        ResetFlags();
    }
    void ApplyConfiguration() override {}
    void Version(const char* astrVersion) {
        mstrVersionString = astrVersion;
        msngVersion = std::stof(astrVersion);
    }
    std::vector<std::string> GetUserAgents() const override {
        return {"Identify as Opera", "Identify as Mozilla 5.0", "Identify as Mozilla 4.78"};
    }
    int Loads = 0;
};

struct CountingHost : ITabHost {
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

// A page of any kind showing a browser in memory.
template <class Page, BrowserSection kSection, const char* kTemplate>
class TabTest : public ::testing::Test {
  protected:
    void SetUp() override {
        mParent = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW, 0, 0, 700, 500, nullptr,
                                  nullptr, GetModuleHandleA(nullptr), nullptr);
        ASSERT_TRUE(mPage.Create(GetModuleHandleA(nullptr), mParent, mHost));
    }
    void TearDown() override { DestroyWindow(mParent); }

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
                if (other.Text) {
                    EXPECT_EQ(before.*other.Text, mBrowser.Record().*other.Text);
                }
                if (other.Flag) {
                    EXPECT_EQ(before.*other.Flag, mBrowser.Record().*other.Flag);
                }
            }
            if (field.Text) {
                EXPECT_EQ(mBrowser.Record().*field.Text, TextOf(field.Id));
            }
            if (field.Flag) {
                EXPECT_EQ(mBrowser.Record().*field.Flag, Checked(field.Id));
            }
            mBrowser.ResetFlags();
            EXPECT_TRUE(mPage.RefillFrom(&mBrowser, true).empty());
            EXPECT_FALSE(mBrowser.IsModified());
        }
    }

    HWND Item(int id) { return GetDlgItem(mPage.Handle(), id); }
    std::string TextOf(int id) {
        char text[512] = {};
        GetDlgItemTextA(mPage.Handle(), id, text, sizeof text);
        return text;
    }
    bool Checked(int id) { return IsDlgButtonChecked(mPage.Handle(), id) == BST_CHECKED; }
    // "1" for each enabled control, "0" for each greyed one.
    std::string Enabled(std::initializer_list<int> ids) {
        std::string states;
        for (int id : ids) states += IsWindowEnabled(Item(id)) ? '1' : '0';
        return states;
    }
    // As a user does: the control changes, then the page hears of it.
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
const char kNetscapeTemplate[] = "NETSCAPE_TAB";
using ExplorerTabTest =
    TabTest<frmExplorerTab, BrowserSection::InternetExplorer, kExplorerTemplate>;
using OperaTabTest = TabTest<frmOperaTab, BrowserSection::Opera, kOperaTemplate>;
using NetscapeTabTest = TabTest<frmNetscapeTab, BrowserSection::Navigator, kNetscapeTemplate>;

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

TEST_F(ExplorerTabTest, GreysWhatTheSettingsLeaveUnused) {
    // HTTP host and port, FTP host, secure port, SOCKS host and port, the
    // same-proxy switch, the exceptions and their local switch, the script
    // address, the dial-up entry; then those always open.
    const std::initializer_list<int> ids = {
        IDC_IE_TEXT1,  IDC_IE_TEXT2,  IDC_IE_TEXT5,  IDC_IE_TEXT4,  IDC_IE_TEXT9,
        IDC_IE_TEXT10, IDC_IE_CHECK1, IDC_IE_TEXT11, IDC_IE_CHECK2, IDC_IE_TEXT12,
        IDC_IE_COMBO0, IDC_IE_CHECK0, IDC_IE_CHECK4, IDC_IE_OPTION1};
    const struct {
        bool proxy, same, script, lan;
        const char* enabled;
    } states[] = {
        {false, false, false, true, "00000000000111"},
        {true, false, false, true, "11111111100111"},
        {true, true, false, true, "11000011100111"},
        {false, true, true, false, "00000000011111"},
    };
    for (const auto& s : states) {
        mBrowser.Assign(&R::ProxyEnabled, s.proxy);
        mBrowser.Assign(&R::UseSameProxy, s.same);
        mBrowser.Assign(&R::UseAutoConfigURL, s.script);
        mBrowser.Assign(&R::ConnectViaLAN, s.lan);
        mPage.RefillFrom(&mBrowser, false);
        EXPECT_EQ(s.enabled, Enabled(ids)) << s.proxy << s.same << s.script << s.lan;
    }
    // A click greys again; switching the area off greys everything, and on
    // again the rules hold.
    mBrowser.Assign(&R::UseAutoConfigURL, false);
    mBrowser.Assign(&R::ConnectViaLAN, true);
    mPage.RefillFrom(&mBrowser, false);
    Click(IDC_IE_CHECK0);
    EXPECT_EQ("11000011100111", Enabled(ids));
    EXPECT_TRUE(mBrowser.Record().ProxyEnabled);
    mPage.SetAvailable(false);
    EXPECT_EQ("00000000000000", Enabled(ids));
    mPage.SetAvailable(true);
    EXPECT_EQ("11000011100111", Enabled(ids));
}

// --- Opera ------------------------------------------------------------------

TEST_F(OperaTabTest, ProfileDifferingInOneFieldAssignsThatFieldAlone) {
    ExpectEachFieldAssignedAlone(kOperaFields, "Identify as Mozilla 4.78");
}

TEST_F(OperaTabTest, EachProtocolsSwitchGreysItsOwnServer) {
    // The host and port of HTTP, HTTPS, FTP, Gopher and WAIS, the exceptions,
    // the script address.
    const std::initializer_list<int> ids = {IDC_OPERA_TEXT1,  IDC_OPERA_TEXT2,  IDC_OPERA_TEXT3,
                                            IDC_OPERA_TEXT4,  IDC_OPERA_TEXT5,  IDC_OPERA_TEXT6,
                                            IDC_OPERA_TEXT7,  IDC_OPERA_TEXT8,  IDC_OPERA_TEXT9,
                                            IDC_OPERA_TEXT10, IDC_OPERA_TEXT11, IDC_OPERA_TEXT12};
    mBrowser.Assign(&R::HTTPProxyEnabled, true);
    mBrowser.Assign(&R::FTPProxyEnabled, true);
    ShowMachine();
    EXPECT_EQ("110011000000", Enabled(ids));
    for (int id : {IDC_OPERA_CHECK4, IDC_OPERA_CHECK5, IDC_OPERA_CHECK6, IDC_OPERA_CHECK0})
        Click(id);
    EXPECT_EQ("000011001111", Enabled(ids));
    EXPECT_FALSE(mBrowser.Record().HTTPProxyEnabled);
    EXPECT_TRUE(mBrowser.Record().WAISProxyEnabled);
    EXPECT_EQ(4, mHost.Edits);
}

// --- Netscape ---------------------------------------------------------------

TEST_F(NetscapeTabTest, EachConnectionSetsBothItsFlagsAndGreysTheRest) {
    mBrowser.LoadConfiguration();
    mPage.RefillFrom(&mBrowser, false);
    EXPECT_EQ("work", TextOf(IDC_NETSCAPE_COMBO0));
    EXPECT_EQ("http://work/", TextOf(IDC_NETSCAPE_TEXT0));
    EXPECT_EQ("proxy.work", TextOf(IDC_NETSCAPE_TEXT1));
    EXPECT_TRUE(Checked(IDC_NETSCAPE_OPTION1));
    EXPECT_EQ("1110", Enabled({IDC_NETSCAPE_TEXT1, IDC_NETSCAPE_TEXT13, IDC_NETSCAPE_COMBO1,
                               IDC_NETSCAPE_TEXT14}));
    EXPECT_FALSE(mBrowser.IsModified());
    const struct {
        int option;
        bool direct, manual;
        const char* enabled;  // HTTP host, automatic configuration URL
    } picks[] = {{IDC_NETSCAPE_OPTION2, false, false, "01"},
                 {IDC_NETSCAPE_OPTION0, true, false, "00"},
                 {IDC_NETSCAPE_OPTION1, false, true, "10"}};
    for (const auto& pick : picks) {
        mBrowser.ResetFlags();
        // The click does not clear the other option buttons of a hidden page.
        CheckRadioButton(mPage.Handle(), IDC_NETSCAPE_OPTION0, IDC_NETSCAPE_OPTION2, pick.option);
        Click(pick.option);
        EXPECT_EQ(pick.direct, mBrowser.Record().ConnectViaLAN) << pick.option;
        EXPECT_EQ(pick.manual, mBrowser.Record().ProxyEnabled) << pick.option;
        EXPECT_TRUE(mBrowser.IsModified()) << pick.option;
        EXPECT_EQ(pick.enabled, Enabled({IDC_NETSCAPE_TEXT1, IDC_NETSCAPE_TEXT14}));
    }
    EXPECT_EQ(3, mHost.Edits);
}

TEST_F(NetscapeTabTest, ChoosingAnotherProfileReadsThatProfile) {
    mBrowser.LoadConfiguration();
    mPage.RefillFrom(&mBrowser, false);
    Type(IDC_NETSCAPE_TEXT0, "http://edited.example/");
    ASSERT_TRUE(mBrowser.IsModified());

    Choose(IDC_NETSCAPE_COMBO0, 1);
    EXPECT_EQ("Home Office", mBrowser.Record().CurrentProfile);
    EXPECT_EQ(2, mBrowser.Loads);
    EXPECT_EQ("about:blank", TextOf(IDC_NETSCAPE_TEXT0));
    EXPECT_EQ("proxy.Home Office", TextOf(IDC_NETSCAPE_TEXT1));
    // The page shows that profile as it is: nothing to apply to it.
    EXPECT_FALSE(mBrowser.IsModified());
    EXPECT_EQ(2, mHost.Edits);
}

TEST_F(NetscapeTabTest, MailDialogAssignsOnOkOnly) {
    mBrowser.Version("4.79");
    mBrowser.Assign(&R::EMailSMTPServer, "smtp.work.example");
    mBrowser.Assign(&R::EMailPOP3Server, "pop.work.example");
    ShowMachine();
    const auto answer = [](const char* button) {
        return bench::Answer(button).Set(IDC_NSMAIL_TEXT6, "smtp.elsewhere.example");
    };
    bench::DialogWatch watch({answer("Cancel"), answer("OK")});
    Click(IDC_NETSCAPE_BUTTON0);
    EXPECT_FALSE(mBrowser.IsModified());
    EXPECT_EQ(0, mHost.Edits);
    Click(IDC_NETSCAPE_BUTTON0);
    EXPECT_EQ("smtp.elsewhere.example", mBrowser.Record().EMailSMTPServer);
    EXPECT_EQ("pop.work.example", mBrowser.Record().EMailPOP3Server);
    EXPECT_EQ(1, mHost.Edits);
    const bench::WatchResult& seen = watch.Stop();
    EXPECT_TRUE(seen.DialogsAsScripted());
    ASSERT_EQ(2u, seen.dialogs.size());
    EXPECT_EQ("smtp.work.example", seen.dialogs[0].Control(IDC_NSMAIL_TEXT6)->text);
    // The page's copy follows: reopening the same values assigns nothing.
    mBrowser.ResetFlags();
    mPage.RefillFrom(&mBrowser, true);
    EXPECT_FALSE(mBrowser.IsModified());
}

}  // namespace
}  // namespace rwz
