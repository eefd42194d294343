// The Netscape page and its mail dialog on a browser whose profiles live in
// memory: what the page shows and greys, what a user's choice assigns, the
// profile switch that reads the chosen profile afresh, and the dialog's OK and Cancel.
#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <map>
#include <string>
#include <thread>

#include "browsers/NavigatorLib.h"
#include "browsers/clsBrowserBase.h"
#include "shell/frmNetscapeMailRes.h"
#include "shell/frmNetscapeTab.h"
#include "shell/frmNetscapeTabRes.h"

namespace rwz {
namespace {

// Netscape with two profiles, each with its own home page in "prefs.js".
class MemoryNavigator : public clsBrowserBase {
  public:
    explicit MemoryNavigator(const char* astrVersion)
        : clsBrowserBase(BrowserSection::Navigator, "MemoryNavigator") {
        mstrVersionString = astrVersion;
        msngVersion = std::stof(astrVersion);
        mblnIsInstalled = true;
        mRecord.ProfileList = {"work", "Home Office"};
        mRecord.CurrentProfile = "work";
        LoadConfiguration();
    }
    std::map<std::string, std::string> HomePages = {{"work", "http://intranet.work.example/"},
                                                    {"Home Office", "about:blank"}};
    int Loads = 0;

    void LoadConfiguration() override {
        ++Loads;
        mRecord.DefaultHomePage = HomePages[mRecord.CurrentProfile];
        mRecord.ProxyEnabled = true;
        mRecord.ConnectViaLAN = false;
        mRecord.HTTPAddress = "proxy." + mRecord.CurrentProfile;
        ResetFlags();
    }
    void ApplyConfiguration() override {}
};

class CountingHost : public ITabHost {
  public:
    void PageEdited() override { ++Edits; }
    int Edits = 0;
};

class NetscapeTabTest : public ::testing::Test {
  protected:
    void SetUp() override {
        mParent = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW, 0, 0, 600, 400, nullptr,
                                  nullptr, GetModuleHandleA(nullptr), nullptr);
        ASSERT_TRUE(mParent);
        ASSERT_TRUE(mTab.Create(GetModuleHandleA(nullptr), mParent, mHost));
    }
    void TearDown() override { DestroyWindow(mParent); }

    HWND Page() { return mTab.Handle(); }
    HWND Item(int id) { return GetDlgItem(Page(), id); }
    std::string Text(int id) {
        char text[512] = {};
        GetDlgItemTextA(Page(), id, text, sizeof text);
        return text;
    }
    bool Checked(int id) { return IsDlgButtonChecked(Page(), id) == BST_CHECKED; }
    bool Enabled(int id) { return IsWindowEnabled(Item(id)) != FALSE; }
    // What the user does: the control changes, then its parent hears of it.
    void Click(int id) {
        CheckRadioButton(Page(), IDC_NETSCAPE_OPTION0, IDC_NETSCAPE_OPTION2, id);
        SendMessageA(Page(), WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                     reinterpret_cast<LPARAM>(Item(id)));
    }
    void Choose(int id, int index) {
        SendMessageA(Item(id), CB_SETCURSEL, index, 0);
        SendMessageA(Page(), WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(Item(id)));
    }

    HWND mParent = nullptr;
    CountingHost mHost;
    frmNetscapeTab mTab{"NETSCAPE_TAB", "Netscape"};
};

TEST_F(NetscapeTabTest, ShowsTheConnectionAndGreysWhatItLeavesUnused) {
    MemoryNavigator browser("7.2");
    mTab.RefillFrom(&browser, false);
    EXPECT_EQ("work", Text(IDC_NETSCAPE_COMBO0));
    EXPECT_EQ("http://intranet.work.example/", Text(IDC_NETSCAPE_TEXT0));
    EXPECT_EQ("proxy.work", Text(IDC_NETSCAPE_TEXT1));
    EXPECT_TRUE(Checked(IDC_NETSCAPE_OPTION1));
    EXPECT_FALSE(Checked(IDC_NETSCAPE_OPTION0) || Checked(IDC_NETSCAPE_OPTION2));
    EXPECT_TRUE(Enabled(IDC_NETSCAPE_TEXT1) && Enabled(IDC_NETSCAPE_TEXT13));
    EXPECT_TRUE(Enabled(IDC_NETSCAPE_COMBO1));
    EXPECT_FALSE(Enabled(IDC_NETSCAPE_TEXT14));
    EXPECT_FALSE(browser.IsModified());
    EXPECT_EQ(0, mHost.Edits);

    // Picking each connection sets both flags that make it, and greys the rest.
    struct Pick {
        int option;
        bool direct, manual;
    };
    for (const Pick& pick :
         {Pick{IDC_NETSCAPE_OPTION2, false, false}, Pick{IDC_NETSCAPE_OPTION0, true, false},
          Pick{IDC_NETSCAPE_OPTION1, false, true}}) {
        browser.ResetFlags();
        Click(pick.option);
        EXPECT_EQ(pick.direct, browser.Record().ConnectViaLAN) << pick.option;
        EXPECT_EQ(pick.manual, browser.Record().ProxyEnabled) << pick.option;
        EXPECT_TRUE(browser.IsModified()) << pick.option;
        EXPECT_EQ(pick.manual, Enabled(IDC_NETSCAPE_TEXT1)) << pick.option;
        EXPECT_EQ(pick.option == IDC_NETSCAPE_OPTION2, Enabled(IDC_NETSCAPE_TEXT14));
    }
    EXPECT_EQ(3, mHost.Edits);
}

TEST_F(NetscapeTabTest, ChoosingAnotherProfileReadsThatProfile) {
    MemoryNavigator browser("7.2");
    mTab.RefillFrom(&browser, false);
    SetDlgItemTextA(Page(), IDC_NETSCAPE_TEXT0, "http://edited.example/");
    ASSERT_TRUE(browser.IsModified());

    Choose(IDC_NETSCAPE_COMBO0, 1);
    EXPECT_EQ("Home Office", browser.Record().CurrentProfile);
    EXPECT_EQ(2, browser.Loads);
    EXPECT_EQ("about:blank", Text(IDC_NETSCAPE_TEXT0));
    EXPECT_EQ("proxy.Home Office", Text(IDC_NETSCAPE_TEXT1));
    // The page shows that profile as it is: nothing to apply to it.
    EXPECT_FALSE(browser.IsModified());
    EXPECT_EQ(2, mHost.Edits);
}

// The mail dialog, answered from another thread while it runs modally.
class MailDialogAnswer {
  public:
    MailDialogAnswer(int aintField, std::string astrText, int aintButton) {
        mThread = std::thread([=] {
            for (int i = 0; i < 200 && !mDone; ++i) {
                HWND dialog = FindWindowA("#32770", "Netscape E-mail Account");
                if (dialog && IsWindowVisible(dialog)) {
                    char shown[256] = {};
                    GetDlgItemTextA(dialog, IDC_NSMAIL_TEXT6, shown, sizeof shown);
                    mShownSmtp = shown;
                    SetDlgItemTextA(dialog, aintField, astrText.c_str());
                    PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(aintButton, BN_CLICKED), 0);
                    mDone = true;
                    return;
                }
                Sleep(50);
            }
        });
    }
    ~MailDialogAnswer() { Wait(); }
    std::string ShownSmtp() {
        Wait();
        return mShownSmtp;
    }

  private:
    void Wait() {
        if (mThread.joinable()) mThread.join();
    }
    std::thread mThread;
    std::atomic<bool> mDone{false};
    std::string mShownSmtp;
};

TEST_F(NetscapeTabTest, MailDialogAssignsOnOkOnly) {
    MemoryNavigator browser("4.79");
    browser.Assign(&BrowserRecord::EMailSMTPServer, "smtp.work.example");
    browser.Assign(&BrowserRecord::EMailPOP3Server, "pop.work.example");
    browser.ResetFlags();
    mTab.RefillFrom(&browser, false);

    {
        MailDialogAnswer answer(IDC_NSMAIL_TEXT6, "smtp.elsewhere.example", IDCANCEL);
        SendMessageA(Page(), WM_COMMAND, MAKEWPARAM(IDC_NETSCAPE_BUTTON0, BN_CLICKED),
                     reinterpret_cast<LPARAM>(Item(IDC_NETSCAPE_BUTTON0)));
        EXPECT_EQ("smtp.work.example", answer.ShownSmtp());
    }
    EXPECT_FALSE(browser.IsModified());
    EXPECT_EQ("smtp.work.example", browser.Record().EMailSMTPServer);
    EXPECT_EQ(0, mHost.Edits);

    {
        MailDialogAnswer answer(IDC_NSMAIL_TEXT6, "smtp.elsewhere.example", IDOK);
        SendMessageA(Page(), WM_COMMAND, MAKEWPARAM(IDC_NETSCAPE_BUTTON0, BN_CLICKED),
                     reinterpret_cast<LPARAM>(Item(IDC_NETSCAPE_BUTTON0)));
    }
    EXPECT_TRUE(browser.IsModified());
    EXPECT_EQ("smtp.elsewhere.example", browser.Record().EMailSMTPServer);
    EXPECT_EQ("pop.work.example", browser.Record().EMailPOP3Server);
    EXPECT_EQ(1, mHost.Edits);
    // The page's copy follows: reopening the same values assigns nothing.
    browser.ResetFlags();
    mTab.RefillFrom(&browser, true);
    EXPECT_FALSE(browser.IsModified());
}

}  // namespace
}  // namespace rwz
