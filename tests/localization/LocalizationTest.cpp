// Language files in the program's folder, the language choice in the settings
// store, real windows and a real toolbar.
#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "localization/clsLocalization.h"
#include "localization/modLocalization.h"
#include "platform/modUtilities.h"

namespace rwz {
namespace {

// Chooses a language for the test and writes its file beside the program;
// everything is taken back afterwards.
class LocalizationTest : public ::testing::Test {
  protected:
    void TearDown() override {
        for (const std::string& file : mFiles) {
            DeleteFileA(file.c_str());
            // The system keeps profiles it has read; make it forget this one.
            WritePrivateProfileStringA(nullptr, nullptr, nullptr, file.c_str());
        }
        DeleteProgramSetting(kProductName, "UserInfo", "Language");
        ResetLocalization();
        for (HWND window : mWindows) DestroyWindow(window);
    }

    void ChooseLanguage(const std::string& tag) {
        SaveProgramSetting(kProductName, "UserInfo", "Language", tag);
        ResetLocalization();
    }
    void WriteLanguageFile(const std::string& name, const std::string& content) {
        const std::string path = ProgramFolder() + "\\" + name;
        HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
        ASSERT_NE(file, INVALID_HANDLE_VALUE);
        DWORD written = 0;
        WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
        CloseHandle(file);
        mFiles.push_back(path);
    }

    HWND Window(const char* cls, const char* caption, HWND parent = nullptr) {
        HWND window =
            CreateWindowExA(0, cls, caption, parent ? WS_CHILD : WS_OVERLAPPEDWINDOW, 0, 0, 100, 20,
                            parent, nullptr, GetModuleHandleA(nullptr), nullptr);
        EXPECT_NE(window, nullptr) << cls;
        if (!parent) mWindows.push_back(window);
        return window;
    }
    static std::string Caption(HWND window) {
        char text[256] = "";
        GetWindowTextA(window, text, sizeof text);
        return text;
    }

    // A toolbar with tool tips: buttons 101 and 102, a separator, button 103.
    HWND Toolbar(HWND parent) {
        INITCOMMONCONTROLSEX init{sizeof init, ICC_BAR_CLASSES};
        InitCommonControlsEx(&init);
        HWND toolbar = CreateWindowExA(0, TOOLBARCLASSNAMEA, "", WS_CHILD | TBSTYLE_TOOLTIPS, 0, 0,
                                       0, 0, parent, nullptr, GetModuleHandleA(nullptr), nullptr);
        EXPECT_NE(toolbar, nullptr);
        SendMessageA(toolbar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
        TBBUTTON buttons[4] = {};
        const int ids[4] = {101, 102, 0, 103};
        for (int i = 0; i < 4; ++i) {
            buttons[i].iBitmap = i == 2 ? 0 : I_IMAGENONE;
            buttons[i].idCommand = ids[i];
            buttons[i].fsState = TBSTATE_ENABLED;
            buttons[i].fsStyle = i == 2 ? BTNS_SEP : BTNS_BUTTON;
            buttons[i].iString = -1;
        }
        SendMessageA(toolbar, TB_ADDBUTTONSA, 4, reinterpret_cast<LPARAM>(buttons));
        return toolbar;
    }
    static std::string Tooltip(HWND toolbar, int id) {
        HWND tips = reinterpret_cast<HWND>(SendMessageA(toolbar, TB_GETTOOLTIPS, 0, 0));
        char text[256] = "";
        TOOLINFOA tool{};
        tool.cbSize = TTTOOLINFOA_V1_SIZE;
        tool.hwnd = toolbar;
        tool.uId = id;
        tool.lpszText = text;
        SendMessageA(tips, TTM_GETTEXTA, sizeof text, reinterpret_cast<LPARAM>(&tool));
        return text;
    }

    std::vector<std::string> mFiles;
    std::vector<HWND> mWindows;
};

const char kGermanFile[] =
    "[Language]\r\nName=Deutsch (Test)\r\n"
    "[WindowTitles]\r\nfrmMain=Roamwise - {%0}\r\n"
    "[Buttons]\r\nfrmMain:0=Anwenden\r\nfrmMain:1=\r\nfrmMain:2=Abbrechen\r\n"
    "[Labels]\r\n1=Adresse\r\n"
    "[ToolbarTips]\r\nfrmMain:1=\xD6"
    "ffnen\r\nfrmMain:4=Speichern   \r\n"
    "[Messages]\r\n25=Sind Sie sicher?\r\n26=\r\n30=Bitte eine Zahl von 0 bis {%0} eingeben.\r\n";

TEST_F(LocalizationTest, LanguageFileOverridesCaptionsTipsAndMessages) {
    WriteLanguageFile("de-TEST.slf", kGermanFile);
    ChooseLanguage("de-TEST");
    HWND form = Window("STATIC", "Roamwise");
    const ControlArray buttons = {Window("BUTTON", "&Apply", form),
                                  Window("BUTTON", "&Options", form),
                                  Window("BUTTON", "Cancel", form)};
    const ControlArray labels = {Window("STATIC", "Name", form), Window("STATIC", "Address", form)};
    HWND toolbar = Toolbar(form);
    const clsLocalization& texts = Localization();

    texts.SetControlCaption(form, "WindowTitles", "frmMain", false,
                            {"B\xFC"
                             "ro"});
    texts.SetControlArrayCaption(buttons, "Buttons", "frmMain", false);
    texts.SetControlArrayCaption(labels, "Labels", "", true);
    texts.SetToolbarTooltips(toolbar, "ToolbarTips", "frmMain");

    EXPECT_EQ(Caption(form),
              "Roamwise - B\xFC"
              "ro");
    EXPECT_EQ(Caption(buttons[0]), "Anwenden");
    EXPECT_EQ(Caption(buttons[1]), "&Options");  // present but empty: built-in stays
    EXPECT_EQ(Caption(buttons[2]), "Abbrechen");
    EXPECT_EQ(Caption(labels[0]), "Name");  // nothing found: no colon either
    EXPECT_EQ(Caption(labels[1]), "Adresse:");
    EXPECT_EQ(Tooltip(toolbar, 101),
              "\xD6"
              "ffnen");  // the system's code page
    EXPECT_EQ(Tooltip(toolbar, 102), "");
    EXPECT_EQ(Tooltip(toolbar, 103), "Speichern");  // button 4: the separator counts

    EXPECT_EQ(texts.GetLocalizedValue("Labels", "1", true, "x"), "Adresse:");
    EXPECT_EQ(texts.GetLocalizedValue("Labels", "0", true, "Name"), "Name");
    EXPECT_EQ(texts.GetMessageText(25), "Sind Sie sicher?");
    EXPECT_EQ(texts.GetMessageText(26), "Error loading options.");  // empty key: built-in
    EXPECT_EQ(texts.GetMessageText(30, {"16"}), "Bitte eine Zahl von 0 bis 16 eingeben.");
    EXPECT_EQ(texts.GetMessageText(60), "Current Configuration");
}

TEST_F(LocalizationTest, EnglishFileOverridesTheBuiltInEnglish) {
    WriteLanguageFile("en-us.slf", "[Messages]\r\n25=Really set AutoReboot?\r\n");
    DeleteProgramSetting(kProductName, "UserInfo", "Language");
    ResetLocalization();

    EXPECT_EQ(MessageText(25), "Really set AutoReboot?");
    EXPECT_EQ(MessageText(26), "Error loading options.");
}

TEST(FillPlaceholdersTest, FilledByPosition) {
    struct Case {
        const char* text;
        std::vector<std::string> parms;
        const char* filled;
    };
    const std::vector<std::string> eleven = {"p0", "p1", "p2", "p3", "p4", "p5",
                                             "p6", "p7", "p8", "p9", "p10"};
    const Case cases[] = {
        {"{%0} and {%1}", {"a"}, "a and {%1}"},
        {"{%0}{%0} {%1}", {"a", "b"}, "aa b"},
        {"{%1} before {%0}", {"a", "b"}, "b before a"},
        {"{%10} {%1}", eleven, "p10 p1"},
        {"{%0} {0} %0", {"a"}, "a {0} %0"},
    };
    for (const Case& c : cases) EXPECT_EQ(FillPlaceholders(c.text, c.parms), c.filled) << c.text;
}

TEST_F(LocalizationTest, LanguageListOffersOnlyLanguageFilesWithTheirAuthors) {
    WriteLanguageFile("xx-aa.slf",
                      "[Language]\r\nName=Zed\r\nAuthor=Ann\r\nAuthorURL=http://a\r\n");
    WriteLanguageFile("xx-bb.slf", "[Language]\r\nName=Alpha\r\n");
    WriteLanguageFile("xx-cc.slf", "MZ\x90 not a language file");
    WriteLanguageFile("xx-dd.slf", "[Messages]\r\n8=only messages\r\n");
    std::vector<std::string> listed;
    for (const LanguageEntry& e : InstalledLanguages(ProgramFolder()))
        listed.push_back(e.Tag + "|" + e.Name + "|" + e.Author + "|" + e.AuthorURL);
    EXPECT_EQ(listed, (std::vector<std::string>{
                          "en-US|English (United States)|Roamwise|http://www.roamwise.example/",
                          "xx-bb|Alpha|Not Provided|Not Provided",
                          "xx-aa|Zed|Ann|http://a",
                      }));
    // An English file stands in for the built-in entry.
    WriteLanguageFile("en-us.slf", "[Language]\r\nName=English (mine)\r\n");
    std::vector<std::string> names;
    for (const LanguageEntry& e : InstalledLanguages(ProgramFolder())) names.push_back(e.Name);
    EXPECT_EQ(names, (std::vector<std::string>{"Alpha", "English (mine)", "Zed"}));
}

TEST_F(LocalizationTest, ChosenFileThatIsNoLanguageFileLeavesEnglish) {
    WriteLanguageFile("xx-cc.slf", "MZ\x90 not a language file");
    ChooseLanguage("xx-cc");
    EXPECT_EQ(MessageText(8), "No configuration changes have been made.");
    ChooseLanguage("missing");
    EXPECT_EQ(MessageText(60), "Current Configuration");
}

}  // namespace
}  // namespace rwz
