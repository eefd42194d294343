#include "HostsAddIn.h"

#include <stdexcept>

#include "HostsAddInRes.h"
#include "HostsBlock.h"

namespace rwzhosts {
namespace {

// The profile file section this add-in keeps its entries in.
const char kSection[] = "Hosts File";

enum Member : DISPID { kShow = 1, kChanged, kRestart, kAbout, kInitialize, kApply, kLoad, kSave };

struct MemberName {
    const wchar_t* name;
    DISPID id;
};
const MemberName kMembers[] = {
    {L"Show", kShow},         {L"Changed", kChanged},       {L"Restart", kRestart},
    {L"about", kAbout},       {L"Initialize", kInitialize}, {L"ApplySettings", kApply},
    {L"LoadSettings", kLoad}, {L"SaveSettings", kSave},
};

std::string Narrow(const wchar_t* text, int length) {
    if (!text || length <= 0) return std::string();
    const int size = WideCharToMultiByte(CP_ACP, 0, text, length, nullptr, 0, nullptr, nullptr);
    std::string out(size, '\0');
    WideCharToMultiByte(CP_ACP, 0, text, length, &out[0], size, nullptr, nullptr);
    return out;
}

BSTR ToBSTR(const std::string& text) {
    const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), (int)text.size(), nullptr, 0);
    BSTR out = SysAllocStringLen(nullptr, size);
    if (out) MultiByteToWideChar(CP_ACP, 0, text.data(), (int)text.size(), out, size);
    return out;
}

// Argument `index` (from the left) as text.
std::string TextArgument(const DISPPARAMS* params, UINT index) {
    if (!params || index >= params->cArgs)
        throw std::runtime_error("A required argument is missing.");
    VARIANT text;
    VariantInit(&text);
    if (FAILED(VariantChangeType(&text, &params->rgvarg[params->cArgs - 1 - index], 0, VT_BSTR)))
        throw std::runtime_error("An argument cannot be read as text.");
    std::string out = Narrow(text.bstrVal, (int)SysStringLen(text.bstrVal));
    VariantClear(&text);
    return out;
}

// Windows 95/98/ME keep the hosts file in the Windows folder, NT-based
// systems with the other TCP/IP files.
std::string HostsPath() {
    char folder[MAX_PATH] = "";
    if (GetVersion() & 0x80000000u) {
        GetWindowsDirectoryA(folder, MAX_PATH);
        return std::string(folder) + "\\hosts";
    }
    GetSystemDirectoryA(folder, MAX_PATH);
    return std::string(folder) + "\\drivers\\etc\\hosts";
}

// A missing file is an empty one.
std::string ReadHostsFile(const std::string& astrPath) {
    const DWORD attributes = GetFileAttributesA(astrPath.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return std::string();
    HANDLE file = (attributes & FILE_ATTRIBUTE_DIRECTORY)
                      ? INVALID_HANDLE_VALUE
                      : CreateFileA(astrPath.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        throw std::runtime_error("The hosts file '" + astrPath + "' could not be read.");
    std::string text;
    char buffer[4096];
    DWORD got = 0;
    while (ReadFile(file, buffer, sizeof buffer, &got, nullptr) && got > 0)
        text.append(buffer, got);
    CloseHandle(file);
    return text;
}

void WriteHostsFile(const std::string& astrPath, const std::string& astrText) {
    HANDLE file = CreateFileA(astrPath.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    const bool ok = file != INVALID_HANDLE_VALUE &&
                    WriteFile(file, astrText.data(), (DWORD)astrText.size(), &written, nullptr) &&
                    written == astrText.size();
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
    if (!ok) throw std::runtime_error("The hosts file '" + astrPath + "' could not be written.");
}

std::string ProfileString(const std::string& astrPath, const std::string& astrKey) {
    char buffer[1024] = "";
    GetPrivateProfileStringA(kSection, astrKey.c_str(), "", buffer, sizeof buffer,
                             astrPath.c_str());
    return buffer;
}

INT_PTR CALLBACK AboutProc(HWND window, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) return TRUE;
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
        EndDialog(window, IDOK);
        return TRUE;
    }
    return FALSE;
}

void ShowAbout(HWND owner) {
    DialogBoxParamA(gModule, MAKEINTRESOURCEA(IDD_HOSTS_ABOUT), owner, AboutProc, 0);
}

// What the editor shows and gives back.
struct EditorState {
    std::string profile;
    std::string text;
};

INT_PTR CALLBACK EditorProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* state = reinterpret_cast<EditorState*>(GetWindowLongPtrA(window, DWLP_USER));
    switch (message) {
        case WM_INITDIALOG:
            state = reinterpret_cast<EditorState*>(lParam);
            SetWindowLongPtrA(window, DWLP_USER, lParam);
            SetDlgItemTextA(
                window, IDC_HOSTS_PROFILE,
                ("Profile: " +
                 (state->profile.empty() ? std::string("(current configuration)") : state->profile))
                    .c_str());
            SetDlgItemTextA(window, IDC_HOSTS_FILE, ("Hosts file: " + HostsPath()).c_str());
            SetDlgItemTextA(window, IDC_HOSTS_ENTRIES, state->text.c_str());
            return TRUE;
        case WM_COMMAND:
            switch (LOWORD(wParam)) {
                case IDOK: {
                    const int length = GetWindowTextLengthA(GetDlgItem(window, IDC_HOSTS_ENTRIES));
                    std::string text(length + 1, '\0');
                    GetDlgItemTextA(window, IDC_HOSTS_ENTRIES, &text[0], length + 1);
                    text.resize(length);
                    state->text = text;
                    EndDialog(window, IDOK);
                    return TRUE;
                }
                case IDCANCEL:
                    EndDialog(window, IDCANCEL);
                    return TRUE;
                case IDC_HOSTS_ABOUT:
                    ShowAbout(window);
                    return TRUE;
            }
            break;
    }
    return FALSE;
}

}  // namespace

LONG gServerLocks = 0;
HINSTANCE gModule = nullptr;

HostsAddIn::HostsAddIn() {
    InterlockedIncrement(&gServerLocks);
}
HostsAddIn::~HostsAddIn() {
    InterlockedDecrement(&gServerLocks);
}

HRESULT HostsAddIn::QueryInterface(REFIID riid, void** object) {
    if (!object) return E_POINTER;
    if (IsEqualIID(riid, IID_IUnknown) || IsEqualIID(riid, IID_IDispatch)) {
        *object = static_cast<IDispatch*>(this);
        AddRef();
        return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
}

ULONG HostsAddIn::AddRef() {
    return InterlockedIncrement(&mRefs);
}

ULONG HostsAddIn::Release() {
    const LONG refs = InterlockedDecrement(&mRefs);
    if (refs == 0) delete this;
    return refs;
}

HRESULT HostsAddIn::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT HostsAddIn::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    if (info) *info = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT HostsAddIn::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (!names || !ids || count == 0) return E_INVALIDARG;
    HRESULT result = S_OK;
    for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    // Names are matched without case, as late binding does.
    for (const MemberName& member : kMembers)
        if (_wcsicmp(names[0], member.name) == 0) ids[0] = member.id;
    if (ids[0] == DISPID_UNKNOWN || count > 1) result = DISP_E_UNKNOWNNAME;
    return result;
}

HRESULT HostsAddIn::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                           EXCEPINFO* exception, UINT*) {
    if (result) VariantInit(result);
    try {
        switch (id) {
            case kShow:
                Show(TextArgument(params, 0));
                break;
            case kChanged:
            case kRestart:
                if (result) {
                    result->vt = VT_BOOL;
                    // Editing the hosts file never needs a restart.
                    result->boolVal =
                        (id == kChanged && mblnChanged) ? VARIANT_TRUE : VARIANT_FALSE;
                }
                break;
            case kAbout:
                ShowAbout(GetActiveWindow());
                break;
            case kInitialize:
                break;
            case kApply:
                ApplySettings();
                break;
            case kLoad:
                LoadSettings(TextArgument(params, 0));
                break;
            case kSave:
                SaveSettings(TextArgument(params, 0));
                break;
            default:
                return DISP_E_MEMBERNOTFOUND;
        }
        return S_OK;
    } catch (const std::exception& error) {
        if (exception) {
            ZeroMemory(exception, sizeof *exception);
            exception->wCode = 1000;
            exception->bstrSource = ToBSTR("Roamwise.HostsFile");
            exception->bstrDescription = ToBSTR(error.what());
        }
        return DISP_E_EXCEPTION;
    }
}

const std::vector<std::string>& HostsAddIn::Entries() {
    if (!mblnRead) {
        mvarEntries = ReadBlock(ReadHostsFile(HostsPath()));
        mblnRead = true;
    }
    return mvarEntries;
}

void HostsAddIn::Show(const std::string& astrProfile) {
    mblnChanged = false;
    EditorState state{astrProfile, JoinEntries(Entries())};
    if (DialogBoxParamA(gModule, MAKEINTRESOURCEA(IDD_HOSTS_EDIT), GetActiveWindow(), EditorProc,
                        reinterpret_cast<LPARAM>(&state)) != IDOK)
        return;
    std::vector<std::string> entries = SplitEntries(state.text);
    if (entries == mvarEntries) return;
    mvarEntries = entries;
    mblnInProfile = true;
    mblnChanged = true;
}

void HostsAddIn::ApplySettings() {
    // A profile that says nothing about the hosts file leaves it alone.
    if (!mblnInProfile) return;
    const std::string path = HostsPath();
    const std::string before = ReadHostsFile(path);
    const std::string after = ReplaceBlock(before, mvarEntries);
    if (after != before) WriteHostsFile(path, after);
}

void HostsAddIn::LoadSettings(const std::string& astrPath) {
    mblnChanged = false;
    const std::string count = ProfileString(astrPath, "Entries");
    mblnInProfile = !count.empty();
    if (!mblnInProfile) {
        mblnRead = false;  // back to the machine's own entries
        return;
    }
    mvarEntries.clear();
    const int entries = atoi(count.c_str());
    for (int i = 1; i <= entries; ++i) {
        const std::string entry = ProfileString(astrPath, "Entry" + std::to_string(i));
        if (!entry.empty()) mvarEntries.push_back(entry);
    }
    mblnRead = true;
}

void HostsAddIn::SaveSettings(const std::string& astrPath) {
    const std::vector<std::string>& entries = Entries();
    WritePrivateProfileStringA(kSection, nullptr, nullptr, astrPath.c_str());
    if (!WritePrivateProfileStringA(kSection, "Entries", std::to_string(entries.size()).c_str(),
                                    astrPath.c_str()))
        throw std::runtime_error("The hosts entries could not be saved in '" + astrPath + "'.");
    for (size_t i = 0; i < entries.size(); ++i)
        WritePrivateProfileStringA(kSection, ("Entry" + std::to_string(i + 1)).c_str(),
                                   entries[i].c_str(), astrPath.c_str());
}

}  // namespace rwzhosts
