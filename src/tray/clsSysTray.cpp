#include "tray/clsSysTray.h"

#include <windows.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>

#include "localization/modLocalization.h"
#include "platform/Procedure.h"
#include "platform/modLogging.h"
#include "platform/modUtilities.h"
#include "shell/RwzExitCode.h"
#include "tray/TrayCommands.h"
#include "tray/frmTrayNotice.h"

namespace rwz::tray {

namespace {

const char kObject[] = "clsSysTray";
const char kOptions[] = "Options";
const char kCopyMutex[] = "RwzSysTrayCopy";
// Language file section of the tray program's texts.
const char kCaptions[] = "SysTray";
const UINT kIconMessage = WM_APP + 1;
const UINT kIconId = 1;
const int kIconResource = 1;

using DllGetVersionFn = HRESULT(CALLBACK*)(DLLVERSIONINFO*);

// Balloons need shell32 5.0; DllGetVersion itself is missing before 4.71.
bool ShellShowsBalloons() {
    HMODULE shell = GetModuleHandleA("shell32.dll");
    auto getVersion = shell ? reinterpret_cast<DllGetVersionFn>(
                                  reinterpret_cast<void*>(GetProcAddress(shell, "DllGetVersion")))
                            : nullptr;
    if (!getVersion) return false;
    DLLVERSIONINFO version = {};
    version.cbSize = sizeof version;
    return SUCCEEDED(getVersion(&version)) && version.dwMajorVersion >= 5;
}

void CopyText(char* target, size_t size, const std::string& text) {
    lstrcpynA(target, text.c_str(), static_cast<int>(size));
}

}  // namespace

std::string RwzPath() {
    return ProgramFolder() + "\\Rwz.exe";
}

clsSysTray::clsSysTray(HINSTANCE ahInstance) : mhInstance(ahInstance) {}

clsSysTray::~clsSysTray() {
    RemoveIcon();
    if (mhIcon) DestroyIcon(mhIcon);
}

int clsSysTray::Run() {
    Procedure proc(kObject, "Run");
    return proc.Run([&] {
        mhCopyMutex.Reset(CreateMutexA(nullptr, FALSE, kCopyMutex));
        if (GetLastError() == ERROR_ALREADY_EXISTS) {
            proc.Log("another copy runs already");
            return 0;
        }
        if (!CreateTrayWindow()) {
            proc.Log("the window could not be created");
            return 1;
        }
        mblnBalloons = ShellShowsBalloons();
        AddIcon();
        // The options dialog reads this to know whether the tray program runs.
        SaveProgramSetting(kProductName, kOptions, "TrayIconActive", "1");
        RefreshProfiles();
        MSG message;
        while (GetMessageA(&message, nullptr, 0, 0) > 0) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        RemoveIcon();
        SaveProgramSetting(kProductName, kOptions, "TrayIconActive", "0");
        proc.Log("ended");
        return 0;
    });
}

bool clsSysTray::CreateTrayWindow() {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = mhInstance;
    windowClass.lpszClassName = kTrayWindowClass;
    RegisterClassA(&windowClass);
    // A hidden top-level window, so that the uninstaller can find it by its class.
    mhWnd = CreateWindowExA(0, kTrayWindowClass, "Roamwise", WS_OVERLAPPED, 0, 0, 0, 0, nullptr,
                            nullptr, mhInstance, this);
    mlngTaskbarCreated = RegisterWindowMessageA("TaskbarCreated");
    mhIcon = static_cast<HICON>(LoadImageA(mhInstance, MAKEINTRESOURCEA(kIconResource), IMAGE_ICON,
                                           GetSystemMetrics(SM_CXSMICON),
                                           GetSystemMetrics(SM_CYSMICON), 0));
    if (!mhIcon) mhIcon = LoadIconA(nullptr, MAKEINTRESOURCEA(32512));
    return mhWnd != nullptr;
}

bool clsSysTray::AddIcon() {
    Procedure proc(kObject, "AddIcon");
    return proc.Run([&] {
        NOTIFYICONDATAA data = {};
        data.cbSize = mblnBalloons ? sizeof data : NOTIFYICONDATAA_V1_SIZE;
        data.hWnd = mhWnd;
        data.uID = kIconId;
        data.uFlags = NIF_ICON | NIF_MESSAGE | NIF_TIP;
        data.uCallbackMessage = kIconMessage;
        data.hIcon = mhIcon;
        CopyText(data.szTip, 64, Caption("Tip", "Roamwise"));
        mblnIconShown = Shell_NotifyIconA(NIM_ADD, &data) != FALSE;
        // Without a taskbar (yet) the program waits for "TaskbarCreated".
        if (!mblnIconShown) proc.Log("the taskbar took no icon");
        return mblnIconShown;
    });
}

void clsSysTray::RemoveIcon() {
    if (!mblnIconShown) return;
    NOTIFYICONDATAA data = {};
    data.cbSize = NOTIFYICONDATAA_V1_SIZE;
    data.hWnd = mhWnd;
    data.uID = kIconId;
    Shell_NotifyIconA(NIM_DELETE, &data);
    mblnIconShown = false;
}

void clsSysTray::RefreshProfiles() {
    Procedure proc(kObject, "RefreshProfiles");
    proc.Run([&] {
        mProfiles = ListTrayProfiles();
        mcolMenuProfiles = MenuOrder(mProfiles);
        for (size_t i = 0; i < mcolMenuProfiles.size(); ++i)
            proc.Log(std::to_string(i) + " = " + mcolMenuProfiles[i]);
    });
}

void clsSysTray::ShowMenu() {
    Procedure proc(kObject, "ShowMenu");
    proc.Run([&] {
        if (mblnBusy) return;
        RefreshProfiles();
        HMENU menu = CreatePopupMenu();
        const size_t recent = std::min(mProfiles.recent.size(), mcolMenuProfiles.size());
        for (size_t i = 0; i < mcolMenuProfiles.size(); ++i) {
            if (i == recent && recent > 0) AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
            // "&" would underline the next letter: doubled, it shows as itself.
            std::string name = ProfileDisplayName(mcolMenuProfiles[i]);
            for (size_t at = name.find('&'); at != std::string::npos; at = name.find('&', at + 2))
                name.insert(at, "&");
            AppendMenuA(menu, MF_STRING, kCmdFirstProfile + i, name.c_str());
        }
        if (mProfiles.folderMissing)
            AppendMenuA(
                menu, MF_STRING | MF_GRAYED, 0,
                Caption("FolderMissing", "Profile folder not found: {%0}", {mProfiles.folderPath})
                    .c_str());
        else if (mcolMenuProfiles.empty())
            AppendMenuA(menu, MF_STRING | MF_GRAYED, 0,
                        Caption("NoProfiles", "(No profiles)").c_str());
        AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
        AppendMenuA(menu, MF_STRING, kCmdChooseFolder,
                    Caption("ChooseFolder", "Choose Profile &Folder...").c_str());
        AppendMenuA(menu, MF_STRING, kCmdOpenRoamwise, Caption("Open", "&Open Roamwise").c_str());
        AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
        AppendMenuA(menu, MF_STRING, kCmdExit, Caption("Exit", "E&xit").c_str());
        SetMenuDefaultItem(menu, kCmdOpenRoamwise, FALSE);

        POINT cursor;
        GetCursorPos(&cursor);
        // Without the foreground the menu would not close when the user clicks elsewhere.
        SetForegroundWindow(mhWnd);
        TrackPopupMenu(menu, TPM_RIGHTBUTTON, cursor.x, cursor.y, 0, mhWnd, nullptr);
        PostMessageA(mhWnd, WM_NULL, 0, 0);
        DestroyMenu(menu);
    });
}

void clsSysTray::OnCommand(int aintCommand) {
    if (aintCommand == kCmdExit) {
        DestroyWindow(mhWnd);
    } else if (aintCommand == kCmdOpenRoamwise) {
        OpenRoamwise();
    } else if (aintCommand == kCmdChooseFolder) {
        ChooseFolder();
    } else if (aintCommand >= kCmdFirstProfile) {
        const size_t index = static_cast<size_t>(aintCommand - kCmdFirstProfile);
        if (index < mcolMenuProfiles.size()) ApplyProfile(mcolMenuProfiles[index]);
    }
}

void clsSysTray::ApplyProfile(const std::string& astrProfile) {
    Procedure proc(kObject, "ApplyProfile");
    proc.Run([&] {
        proc.LogValue(astrProfile);
        if (mblnBusy) return;
        const std::string name = ProfileDisplayName(astrProfile);
        if (!FileExists(astrProfile)) {
            Fail(Caption("ProfileMissing", "The profile {%0} no longer exists.", {astrProfile}));
            RefreshProfiles();
            return;
        }
        DWORD code = 0;
        mblnBusy = true;
        const bool ran = RunRwz("/hidden /load \"" + astrProfile + "\" /apply", true, code);
        mblnBusy = false;
        if (!ran) return;
        // Rwz.exe has started a new DEBUG.LOG: from here on this program's lines follow its run.
        proc.Log("Rwz.exe ended with " + std::to_string(code));
        if (code == kExitApplied)
            Notify(Caption("Applied", "{%0} applied. No restart is needed.", {name}), false);
        else if (code == kExitRestartPending)
            Notify(
                Caption("RestartPending",
                        "{%0} applied. Restart Windows for all settings to take effect.", {name}),
                true);
        else
            Fail(Caption("NotApplied",
                         "{%0} could not be applied. DEBUG.LOG in the program's folder tells why.",
                         {name}));
    });
}

void clsSysTray::OpenRoamwise() {
    DWORD code = 0;
    RunRwz("", false, code);
}

void clsSysTray::ChooseFolder() {
    Procedure proc(kObject, "ChooseFolder");
    proc.Run([&] {
        const std::string title =
            Caption("ChooseFolderTitle", "Choose the folder that holds your profiles.");
        BROWSEINFOA browse = {};
        browse.hwndOwner = mhWnd;
        browse.lpszTitle = title.c_str();
        browse.ulFlags = BIF_RETURNONLYFSDIRS;
        SetForegroundWindow(mhWnd);
        LPITEMIDLIST list = SHBrowseForFolderA(&browse);
        if (!list) return;
        char path[MAX_PATH] = "";
        const bool found = SHGetPathFromIDListA(list, path) != FALSE;
        IMalloc* allocator = nullptr;
        if (SUCCEEDED(SHGetMalloc(&allocator)) && allocator) {
            allocator->Free(list);
            allocator->Release();
        }
        if (!found) return;
        proc.LogValue(path);
        SaveProfileFolderSetting(path);
        RefreshProfiles();
    });
}

void clsSysTray::Notify(const std::string& astrText, bool ablnWarning) {
    Procedure proc(kObject, "Notify");
    proc.Run([&] {
        proc.LogValue(astrText);
        const std::string title = Caption("Title", "Roamwise");
        if (mblnBalloons && mblnIconShown) {
            NOTIFYICONDATAA data = {};
            data.cbSize = sizeof data;
            data.hWnd = mhWnd;
            data.uID = kIconId;
            data.uFlags = NIF_INFO;
            data.dwInfoFlags = ablnWarning ? NIIF_WARNING : NIIF_INFO;
            data.uTimeout = 15000;
            CopyText(data.szInfo, sizeof data.szInfo, astrText);
            CopyText(data.szInfoTitle, sizeof data.szInfoTitle, title);
            if (Shell_NotifyIconA(NIM_MODIFY, &data)) return;
        }
        ShowTrayNotice(mhInstance, title, astrText);
    });
}

void clsSysTray::Fail(const std::string& astrText) {
    WriteLog("clsSysTray - Fail: " + astrText, kLogWarning);
    SetForegroundWindow(mhWnd);
    ShowMessage(astrText, MB_OK | MB_ICONEXCLAMATION);
}

bool clsSysTray::RunRwz(const std::string& astrArguments, bool ablnWait, DWORD& alngExitCode) {
    Procedure proc(kObject, "RunRwz");
    return proc.Run([&] {
        const std::string program = RwzPath();
        if (!FileExists(program)) {
            Fail(Caption("RwzMissing", "Could not locate: {%0}", {program}));
            return false;
        }
        std::string commandLine = "\"" + program + "\"";
        if (!astrArguments.empty()) commandLine += " " + astrArguments;
        proc.LogValue(commandLine);
        STARTUPINFOA startup = {};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process = {};
        std::vector<char> text(commandLine.begin(), commandLine.end());
        text.push_back('\0');
        if (!CreateProcessA(program.c_str(), text.data(), nullptr, nullptr, FALSE, 0, nullptr,
                            ProgramFolder().c_str(), &startup, &process)) {
            Fail(Caption("StartFailed", "Could not start {%0} (error {%1}).",
                         {program, std::to_string(GetLastError())}));
            return false;
        }
        KernelHandle thread(process.hThread);
        KernelHandle child(process.hProcess);
        if (!ablnWait) return true;
        // The icon keeps answering while Rwz.exe works.
        HANDLE handles[] = {child.Get()};
        while (MsgWaitForMultipleObjects(1, handles, FALSE, INFINITE, QS_ALLINPUT) ==
               WAIT_OBJECT_0 + 1) {
            MSG message;
            while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
                if (message.message == WM_QUIT) {
                    PostQuitMessage(static_cast<int>(message.wParam));
                    return false;
                }
                TranslateMessage(&message);
                DispatchMessageA(&message);
            }
        }
        alngExitCode = 0;
        GetExitCodeProcess(child.Get(), &alngExitCode);
        return true;
    });
}

std::string clsSysTray::Caption(const std::string& astrTag, const std::string& astrDefault,
                                const std::vector<std::string>& avarParms) const {
    return FillPlaceholders(
        Localization().GetLocalizedValue(kCaptions, astrTag, false, astrDefault), avarParms);
}

LRESULT CALLBACK clsSysTray::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* create = reinterpret_cast<CREATESTRUCTA*>(lParam);
        SetWindowLongPtrA(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* self = reinterpret_cast<clsSysTray*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (!self) return DefWindowProcA(window, message, wParam, lParam);
    if (!self->mhWnd) self->mhWnd = window;
    return self->OnMessage(message, wParam, lParam);
}

LRESULT clsSysTray::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == kIconMessage) {
        if (lParam == WM_RBUTTONUP) ShowMenu();
        if (lParam == WM_LBUTTONDBLCLK) OpenRoamwise();
        return 0;
    }
    if (message == mlngTaskbarCreated && mlngTaskbarCreated != 0) {
        // Explorer restarted (or started after this program): the icon is gone.
        mblnIconShown = false;
        AddIcon();
        return 0;
    }
    switch (message) {
        case WM_COMMAND:
            OnCommand(LOWORD(wParam));
            return 0;
        case WM_ENDSESSION:
            if (wParam) SaveProgramSetting(kProductName, kOptions, "TrayIconActive", "0");
            return 0;
        case WM_DESTROY:
            RemoveIcon();
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcA(mhWnd, message, wParam, lParam);
    }
}

}  // namespace rwz::tray
