#include "shell/modShortcut.h"

#include <objbase.h>
#include <shlobj.h>

#include <vector>

#include "browsers/modShellFolders.h"
#include "localization/modLocalization.h"
#include "platform/Procedure.h"
#include "platform/RwzError.h"
#include "platform/modUtilities.h"

namespace rwz {

namespace {

const char kObject[] = "modShortcut";
// The language file's section for this command's texts.
const char kCaptions[] = "Shortcut";
const int kShellFolderDesktop = 0x10;  // the desktop's file folder (CSIDL_DESKTOPDIRECTORY)

std::string Text(const std::string& astrTag, const std::string& astrDefault,
                 const std::vector<std::string>& avarParms) {
    return FillPlaceholders(
        Localization().GetLocalizedValue(kCaptions, astrTag, false, astrDefault), avarParms);
}

// Releases a COM interface once.
template <class T>
struct ComPtr {
    T* p = nullptr;
    ComPtr() = default;
    ComPtr(const ComPtr&) = delete;
    ComPtr& operator=(const ComPtr&) = delete;
    ~ComPtr() {
        if (p) p->Release();
    }
};

// COM for the time of one call; a thread that has it already keeps it.
class ComScope {
  public:
    ComScope() : mhResult(CoInitialize(nullptr)) {}
    ~ComScope() {
        if (SUCCEEDED(mhResult)) CoUninitialize();
    }
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;

  private:
    HRESULT mhResult;
};

void Check(HRESULT ahResult, const char* astrStep) {
    if (FAILED(ahResult)) {
        char code[16];
        wsprintfA(code, "%08lX", static_cast<unsigned long>(ahResult));
        throw RwzError(kErrPathFileAccess, kObject, std::string(astrStep) + " failed (0x" + code + ")");
    }
}

}  // namespace

std::string ShortcutArguments(const std::string& astrProfile) {
    // The quotes keep a path with blanks whole for whoever reads the line; the
    // program itself drops them.
    return "/hidden /load \"" + astrProfile + "\" /apply";
}

std::string ShortcutPath(const std::string& astrFolder, const std::string& astrProfile) {
    std::string name = astrProfile.substr(astrProfile.find_last_of("\\/") + 1);
    const size_t dot = name.rfind('.');
    if (dot != std::string::npos && dot > 0) name.erase(dot);
    return astrFolder + "\\" + name + ".lnk";
}

void WriteProfileShortcut(const std::string& astrLink, const std::string& astrProfile,
                          const std::string& astrProgram) {
    Procedure proc(kObject, "WriteProfileShortcut");
    proc.LogValue(astrLink);
    proc.RunPassingOn([&] {
        const std::string& program = astrProgram;
        ComScope com;
        ComPtr<IShellLinkA> link;
        // The shell's link object is there from Windows 95 and NT 4 on.
        Check(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkA,
                               reinterpret_cast<void**>(&link.p)),
              "Creating the shell's link object");
        Check(link.p->SetPath(program.c_str()), "Setting the shortcut's target");
        Check(link.p->SetArguments(ShortcutArguments(astrProfile).c_str()),
              "Setting the arguments");
        Check(link.p->SetWorkingDirectory(program.substr(0, program.find_last_of('\\')).c_str()),
              "Setting the folder");
        Check(link.p->SetIconLocation(program.c_str(), 0), "Setting the icon");
        link.p->SetDescription(("Roamwise: " + astrProfile).substr(0, MAX_PATH - 1).c_str());
        ComPtr<IPersistFile> file;
        Check(link.p->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&file.p)),
              "Opening the shortcut file");
        std::vector<wchar_t> wide(astrLink.size() + 1);
        if (!MultiByteToWideChar(CP_ACP, 0, astrLink.c_str(), -1, wide.data(),
                                 static_cast<int>(wide.size())))
            RaiseRuntimeError(kErrBadFileName, kObject);
        Check(file.p->Save(wide.data(), TRUE), "Saving the shortcut");
    });
}

std::string CreateDesktopShortcut(HWND ahOwner, const std::string& astrProfile) {
    Procedure proc(kObject, "CreateDesktopShortcut");
    return proc.RunThen(
        [&] {
            if (astrProfile.empty()) {
                ShowMessage(
                    Text("NoFile", "Save the profile first: the shortcut applies a profile file.",
                         {}),
                    MB_OK | MB_ICONINFORMATION);
                return std::string();
            }
            const std::string desktop = GetShellFolderPath(kShellFolderDesktop);
            if (desktop.empty()) RaiseRuntimeError(kErrPathNotFound, kObject);
            const std::string link = ShortcutPath(desktop, astrProfile);
            if (FileExists(link) &&
                ShowMessage(
                    Text("Replace", "A shortcut named {%0} is already on the desktop.  Replace it?",
                         {link.substr(desktop.size() + 1)}),
                    MB_YESNO | MB_ICONQUESTION) != IDYES)
                return std::string();
            WriteProfileShortcut(link, astrProfile, ProgramFolder() + "\\Rwz.exe");
            return link;
        },
        [&](const ErrorInfo& error) {
            ShowMessage(
                Text("Failed", "The shortcut could not be created.  {%0}", {error.Description}),
                MB_OK | MB_ICONEXCLAMATION);
            return std::string();
        });
}

}  // namespace rwz
