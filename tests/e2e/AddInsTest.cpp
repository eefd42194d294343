// Add-ins as a user's machine has them: the hosts file add-in registered with
// regsvr32, entered in the program settings, created by its class name when
// Roamwise starts, and run from its menu entry.
#include <gtest/gtest.h>

#include <string>

#include "RwzSession.h"
#include "addins/hosts/HostsAddInRes.h"
#include "bench/Bench.h"
#include "shell/frmAddInsRes.h"
#include "shell/frmMainRes.h"

namespace {

const char kHostsFile[] = "C:\\windows\\system32\\drivers\\etc\\hosts";

void SetValue(const std::string& key, const std::string& name, const std::string& data) {
    HKEY handle = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExA(HKEY_LOCAL_MACHINE, key.c_str(), 0, nullptr, 0,
                                             KEY_WRITE, nullptr, &handle, nullptr));
    RegSetValueExA(handle, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(data.c_str()),
                   static_cast<DWORD>(data.size() + 1));
    RegCloseKey(handle);
}

// Installs and registers RwzHosts.dll as its setup would, and enters it under
// "Add-Ins" with the given class name and systems.
void InstallHostsAddIn(const std::string& className = "Roamwise.HostsFile",
                       const std::string& os = "xp") {
    const std::string dll = bench::InstallDir() + "\\AddIns\\RwzHosts.dll";
    bench::MakeFolders(bench::InstallDir() + "\\AddIns");
    bench::CopyFileReplacing(bench::BuildDir() + "\\bin\\AddIns\\RwzHosts.dll", dll);
    ASSERT_EQ(0u, bench::RunAndWait("regsvr32 /s \"" + dll + "\""));
    SetValue("Software\\Roamwise\\Add-Ins", "Hosts File", "");
    const std::string section = "Software\\Roamwise\\Add-Ins\\Hosts File";
    SetValue(section, "Class", className);
    SetValue(section, "File", dll);
    SetValue(section, "Version", "1.0.0");
    SetValue(section, "OS", os);
    SetValue(section, "Active", "1");
}

bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST(AddIns, OnXPItsEntryOpensItsEditorAndAChangeMarksTheProfileChanged) {
    bench::Machine machine("xp-laptop");
    InstallHostsAddIn();
    RwzSession rwz(
        {bench::Answer("OK").Title("Hosts File").Set(IDC_HOSTS_ENTRIES, "10.9.8.7 intranet"),
         bench::Answer("&No").Title("Roamwise")});
    EXPECT_TRUE(rwz.Command(IDM_ADDIN_FIRST));
    rwz.Close();

    EXPECT_TRUE(Has(rwz.log, "Add-In menu entry: Hosts File...")) << rwz.log;
    ASSERT_EQ(2u, rwz.dialogs.size()) << rwz.log;
    EXPECT_TRUE(Has(rwz.dialogs[0].text, "Profile: (current configuration)")) << rwz.dialogs[0];
    // Only a changed profile asks to be saved on the way out.
    EXPECT_EQ("Save configuration?", rwz.dialogs[1].text);
    EXPECT_TRUE(rwz.DialogsAsScripted());
}

TEST(AddIns, OnWindows98AnAddInForXPIsNotOffered) {
    bench::Machine machine("win98-desktop");
    InstallHostsAddIn();
    RwzSession rwz({});
    rwz.Close();

    EXPECT_TRUE(Has(rwz.log, "Add-In 'Hosts File' not offered (Active 1, OS 'xp')")) << rwz.log;
    EXPECT_FALSE(Has(rwz.log, "Add-In menu entry")) << rwz.log;
    EXPECT_TRUE(rwz.DialogsAsScripted());
}

TEST(AddIns, AProfileAppliesItsHostsEntriesAndKeepsTheRestOfTheFile) {
    bench::Machine machine("xp-laptop");
    InstallHostsAddIn("Roamwise.HostsFile", "*");
    // The block of an earlier apply is replaced where it stands.
    bench::WriteFile(kHostsFile,
                     "127.0.0.1 localhost\r\n# Roamwise hosts entries: begin\r\n10.0.0.1 old\r\n"
                     "# Roamwise hosts entries: end\r\n::1 localhost\r\n");
    bench::WriteFile("C:\\hosts.rwz",
                     "[Enabled Sections]\r\nGeneral=0\r\nInternet Explorer=0\r\n"
                     "Netscape Navigator=0\r\nOpera=0\r\n[Advanced]\r\nAutoApply=1\r\n"
                     "[Hosts File]\r\nEntries=2\r\nEntry1=10.9.8.7 intranet\r\n"
                     "Entry2=10.9.8.8 mail\r\n");

    bench::RunResult run =
        bench::RunRwz("/hidden /load C:\\hosts.rwz", {bench::Answer("OK").Title("Roamwise")});

    EXPECT_EQ(
        "127.0.0.1 localhost\r\n"
        "# Roamwise hosts entries: begin\r\n10.9.8.7 intranet\r\n10.9.8.8 mail\r\n"
        "# Roamwise hosts entries: end\r\n::1 localhost\r\n",
        bench::ReadFileText(kHostsFile))
        << run.Describe();
}

TEST(AddIns, TheManagerListsAnAddInSwitchesItOffAndShowsItsAboutBox) {
    bench::Machine machine("xp-laptop");
    InstallHostsAddIn();
    // The manager stays open after the about box: the watcher then closes it
    // with its default button, Close.
    RwzSession rwz({bench::Answer("&About...").Title("Add-In Manager").Uncheck(IDC_ADDINS_ACTIVE),
                    bench::Answer("OK").Title("About Hosts File Add-In")});
    EXPECT_TRUE(rwz.Command(IDM_TOOLS_ADDINS));
    rwz.Close();

    // Switched off, the add-in loses its menu entry at once.
    const size_t entry = rwz.log.find("Add-In menu entry: Hosts File...");
    EXPECT_NE(std::string::npos, rwz.log.find("Add-In 'Hosts File' not offered (Active 0", entry))
        << rwz.log;
    ASSERT_EQ(3u, rwz.dialogs.size()) << rwz.log;
    const bench::DialogRecord& manager = rwz.dialogs[0];
    EXPECT_TRUE(Has(manager.text, bench::InstallDir() + "\\AddIns\\RwzHosts.dll")) << manager;
    EXPECT_TRUE(Has(manager.text, "1.0.0")) << manager;
    EXPECT_TRUE(manager.Control(IDC_ADDINS_ACTIVE)->checked) << manager;
    EXPECT_EQ("Close", rwz.dialogs[2].answerText);
    std::string active;
    EXPECT_TRUE(bench::ReadRegistryString(
        HKEY_LOCAL_MACHINE, "Software\\Roamwise\\Add-Ins\\Hosts File", "Active", active));
    EXPECT_EQ("0", active);
}

// A class that is not registered, or an add-in that fails: the user is told,
// and the main window goes on working.
TEST(AddIns, AnUnregisteredClassIsReportedAndStartUpGoesOn) {
    bench::Machine machine("xp-laptop");
    InstallHostsAddIn("Roamwise.NoSuchAddIn");
    RwzSession rwz({bench::Answer("OK").Title("Roamwise"), bench::Answer("OK").Title("About")});
    EXPECT_TRUE(rwz.Command(IDM_HELP_ABOUT));
    rwz.Close();

    ASSERT_EQ(2u, rwz.dialogs.size()) << rwz.log;
    EXPECT_EQ("Error referencing Add-In control: 'Roamwise.NoSuchAddIn'.", rwz.dialogs[0].text);
    EXPECT_TRUE(rwz.DialogsAsScripted());
}

TEST(AddIns, AnAddInWhoseShowFailsIsReportedAndTheWindowGoesOn) {
    bench::Machine machine("xp-laptop");
    InstallHostsAddIn();
    // A hosts "file" that cannot be read: the add-in's Show raises an error.
    DeleteFileA(kHostsFile);
    bench::MakeFolders(kHostsFile);
    RwzSession rwz({bench::Answer("OK").Title("Roamwise"), bench::Answer("OK").Title("About")});
    EXPECT_TRUE(rwz.Command(IDM_ADDIN_FIRST));
    EXPECT_TRUE(rwz.Command(IDM_HELP_ABOUT));
    rwz.Close();

    ASSERT_EQ(2u, rwz.dialogs.size()) << rwz.log;
    EXPECT_EQ(
        "An error occurred while attempting to access an Add-In [Hosts File].\r\n\r\n"
        "The hosts file '" +
            std::string(kHostsFile) + "' could not be read.",
        rwz.dialogs[0].text);
    EXPECT_TRUE(Has(rwz.log, "frmMain:mnuAddIns_Click")) << rwz.log;
    EXPECT_TRUE(rwz.DialogsAsScripted());
}

}  // namespace
