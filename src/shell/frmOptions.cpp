#include "shell/frmOptions.h"

#include <shellapi.h>

#include <cctype>

#include "localization/modLocalization.h"
#include "platform/Procedure.h"
#include "platform/modAPI.h"
#include "platform/modRegistry.h"
#include "platform/modUtilities.h"
#include "shell/frmOptionsRes.h"

namespace rwz {

namespace {

const char kObject[] = "frmOptions";
// The language file's tag for this dialog in every category.
const char kTag[] = "Options";
const char kOptions[] = "Options";
const char kRunKey[] = "\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";
const char kTrayValue[] = "RwzSysTray";
const char kProgramValue[] = "Roamwise";
const char kFileType[] = "rwz_auto_file";
const char kClassesRoot[] = "\\HKEY_CLASSES_ROOT\\";
const char kOpenVerb[] = "Open with Roamwise";

enum : int16_t {
    kMsgAutoReboot = 25,
    kMsgErrorLoading = 26,
    kMsgStartTray = 27,
    kMsgErrorSaving = 28,
    kMsgLookAndFeel = 29,
    kMsgNumericValue = 30,
};

constexpr int kOptionCount = 4;

int CheckId(int aintIndex) {
    return IDC_OPTIONS_CHECK0 + aintIndex;
}
int OptionId(int aintIndex) {
    return IDC_OPTIONS_OPTION0 + aintIndex;
}

std::string Flag(bool ablnOn) {
    return ablnOn ? "1" : "0";
}
bool FlagSetting(const char* aszSection, const char* aszKey, const char* aszDefault) {
    return GetProgramSetting(kProductName, aszSection, aszKey, aszDefault) == "1";
}

std::string TrayProgramPath() {
    return ProgramFolder() + "\\RwzSysTray.exe";
}
std::string ProgramPath() {
    return ProgramFolder() + "\\Rwz.exe";
}
std::string AssociationCommandKey() {
    return std::string(kClassesRoot) + kFileType + "\\shell\\" + kOpenVerb + "\\command";
}

bool WriteText(const std::string& astrKey, const std::string& astrName,
               const std::string& astrValue) {
    return reg::Write(astrKey, astrName, kRegString, astrValue);
}

}  // namespace

std::optional<int> frmOptions::ParseMaxRecent(const std::string& astrText) {
    const std::string text = Trim(astrText);
    if (text.empty() || text.size() > 5) return std::nullopt;
    for (char c : text)
        if (!std::isdigit(static_cast<unsigned char>(c))) return std::nullopt;
    const int value = std::stoi(text);
    if (value > kMaxRecentFiles) return std::nullopt;
    return value;
}

bool frmOptions::OnInit() {
    Procedure proc(kObject, "Form_Load");
    proc.Run([&] {
        ApplyCaptions();
        LoadOptions();
    });
    return true;
}

bool frmOptions::OnCommand(int aintId, int aintCode, HWND control) {
    // Automatic reset restarts without asking: make sure it is meant.
    if (aintId == CheckId(kAutoReset) && aintCode == BN_CLICKED) {
        if (IsChecked(aintId) &&
            ShowMessage(MessageText(kMsgAutoReboot), MB_YESNO | MB_ICONQUESTION) != IDYES)
            SetChecked(aintId, false);
        return true;
    }
    return clsDialog::OnCommand(aintId, aintCode, control);
}

void frmOptions::OnOK() {
    if (SaveOptions()) End(IDOK);
}

void frmOptions::ApplyCaptions() {
    const clsLocalization& objLocalization = Localization();
    objLocalization.SetControlCaption(mhWnd, "WindowTitles", kTag);
    objLocalization.SetControlArrayCaption({Item(IDOK), Item(IDCANCEL)}, "Buttons", kTag);
    objLocalization.SetControlArrayCaption({Item(IDC_OPTIONS_FRAME0), Item(IDC_OPTIONS_FRAME1)},
                                           "Frames", kTag);
    objLocalization.SetControlArrayCaption({Item(IDC_OPTIONS_LABEL0)}, "Labels", kTag);
    ControlArray chkOption, optOption;
    for (int i = 0; i < kCheckCount; ++i) chkOption.push_back(Item(CheckId(i)));
    for (int i = 0; i < kOptionCount; ++i) optOption.push_back(Item(OptionId(i)));
    objLocalization.SetControlArrayCaption(chkOption, "Checkboxes", kTag);
    objLocalization.SetControlArrayCaption(optOption, "RadioButtons", kTag);
}

void frmOptions::LoadOptions() {
    Procedure proc(kObject, "LoadOptions");
    proc.RunThen(
        [&] {
            const std::string restart = GetProgramSetting(kProductName, kOptions, "Restart", "0");
            for (int i = 0; i < kOptionCount; ++i)
                SetChecked(OptionId(i), restart == std::to_string(i));
            SetChecked(CheckId(kAutoReset), FlagSetting(kOptions, "AutoReset", "0"));
            SetChecked(CheckId(kAutoShutdown), FlagSetting(kOptions, "AutoShutdown", "0"));
            SetChecked(CheckId(kShowDisabledNICs), FlagSetting(kOptions, "ShowDisabledNICs", "1"));
            SetChecked(CheckId(kTrayAtStartup), reg::Read(kRunKey, kTrayValue).has_value());
            SetChecked(CheckId(kProgramAtStartup), reg::Read(kRunKey, kProgramValue).has_value());
            SetItemText(IDC_OPTIONS_MAXRECENT,
                        GetProgramSetting(kProductName, "Recent", "MaxFile", "5"));

            const std::string command =
                reg::ReadText(AssociationCommandKey(), "").value_or(std::string());
            // The installer quotes both the program and "%1" (paths with spaces);
            // either form opens profiles with this copy.
            std::string unquoted;
            for (char c : command)
                if (c != '"') unquoted += c;
            mblnAssociated = ToUpper(unquoted) == ToUpper(ProgramFolder()) + "\\RWZ.EXE %1";
            SetChecked(CheckId(kAssociation), mblnAssociated);

            mblnIsXP = OSFamilyOf(Trim(GetCurrentOSTag())) == OSFamily::XP;
            mblnXPLook = FileExists(ProgramPath() + ".manifest");
            SetChecked(CheckId(kXPLookAndFeel), mblnXPLook);
            EnableItem(CheckId(kXPLookAndFeel), mblnIsXP);
        },
        [&] { ShowMessage(MessageText(kMsgErrorLoading), MB_OK | MB_ICONEXCLAMATION); });
}

bool frmOptions::SaveOptions() {
    // A length that is no number refuses the whole dialog: nothing is stored.
    const std::optional<int> maxRecent = ParseMaxRecent(ItemText(IDC_OPTIONS_MAXRECENT));
    if (!maxRecent) {
        ShowMessage(MessageText(kMsgNumericValue, {std::to_string(kMaxRecentFiles)}),
                    MB_OK | MB_ICONINFORMATION, "Roamwise");
        SetFocus(Item(IDC_OPTIONS_MAXRECENT));
        return false;
    }
    Procedure proc(kObject, "SaveOptions");
    proc.RunThen(
        [&] {
            for (int i = 0; i < kOptionCount; ++i) {
                if (IsChecked(OptionId(i)))
                    SaveProgramSetting(kProductName, kOptions, "Restart", std::to_string(i));
            }
            SaveTrayProgram(IsChecked(CheckId(kTrayAtStartup)));
            if (IsChecked(CheckId(kProgramAtStartup)))
                WriteText(kRunKey, kProgramValue, ProgramPath());
            else
                reg::DeleteValue(kRunKey, kProgramValue);
            SaveProgramSetting(kProductName, kOptions, "AutoShutdown",
                               Flag(IsChecked(CheckId(kAutoShutdown))));
            SaveProgramSetting(kProductName, kOptions, "AutoReset",
                               Flag(IsChecked(CheckId(kAutoReset))));
            SaveProgramSetting(kProductName, kOptions, "ShowDisabledNICs",
                               Flag(IsChecked(CheckId(kShowDisabledNICs))));
            SaveProgramSetting(kProductName, "Recent", "MaxFile", std::to_string(*maxRecent));
            const bool associate = IsChecked(CheckId(kAssociation));
            if (associate != mblnAssociated) SaveAssociation(associate);
            const bool xpLook = IsChecked(CheckId(kXPLookAndFeel));
            if (mblnIsXP && xpLook != mblnXPLook) SetWindowsXPLookAndFeel(xpLook);
        },
        [&] { ShowMessage(MessageText(kMsgErrorSaving), MB_OK | MB_ICONEXCLAMATION); });
    return true;
}

void frmOptions::SaveTrayProgram(bool ablnOn) {
    if (!ablnOn) {
        reg::DeleteValue(kRunKey, kTrayValue);
        return;
    }
    const std::string path = TrayProgramPath();
    if (!FileExists(path)) {
        ShowMessage("Could not locate: " + path, MB_OK | MB_ICONEXCLAMATION);
        return;
    }
    WriteText(kRunKey, kTrayValue, path);
    if (!FlagSetting(kOptions, "TrayIconActive", "0") &&
        ShowMessage(MessageText(kMsgStartTray), MB_YESNO | MB_ICONQUESTION) == IDYES)
        ShellExecuteA(mhWnd, "open", path.c_str(), nullptr, ProgramFolder().c_str(),
                      SW_SHOWMINIMIZED);
}

void frmOptions::SaveAssociation(bool ablnOn) {
    const std::string fileType = std::string(kClassesRoot) + kFileType;
    if (!ablnOn) {
        reg::DeleteKey(fileType + "\\shell", kOpenVerb);
        return;
    }
    WriteText(std::string(kClassesRoot) + ".rwz", "", kFileType);
    WriteText(fileType, "", "Roamwise Configuration");
    WriteText(fileType + "\\DefaultIcon", "", ProgramPath() + ",0");
    WriteText(AssociationCommandKey(), "", ProgramPath() + " %1");
}

void frmOptions::SetWindowsXPLookAndFeel(bool ablnOn) {
    Procedure proc(kObject, "SetWindowsXPLookAndFeel");
    proc.Run([&] {
        for (const std::string& program : {ProgramPath(), TrayProgramPath()}) {
            const std::string on = program + ".manifest";
            const std::string off = on + ".disabled";
            if (ablnOn)
                MoveFileA(off.c_str(), on.c_str());
            else
                MoveFileA(on.c_str(), off.c_str());
        }
    });
    ShowMessage(MessageText(kMsgLookAndFeel), MB_OK | MB_ICONINFORMATION);
}

}  // namespace rwz
