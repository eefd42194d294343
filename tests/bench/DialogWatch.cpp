// The dialog watcher: a thread of the test process that stands in for the user
// in a headless Wine prefix. It finds every dialog box (class "#32770") of any
// process, its own included, records what it says and answers it as scripted,
// and records the visible top-level windows of other processes, also those
// shown only for a moment, which ShowHook.dll reports from inside their
// process.
#undef _WIN32_WINNT
#define _WIN32_WINNT 0x0600  // QueryFullProcessImageName: the bench only runs under Wine
#include <windows.h>

#include <cctype>
#include <map>
#include <set>
#include <stdexcept>
#include <tuple>

#include "bench/Bench.h"

namespace bench {

namespace {

const DWORD kPollMs = 50;
const DWORD kReanswerMs = 2000;
const char kWatcherClass[] = "RwzDialogWatcher";
const ULONG_PTR kShownWindow = 0x52575A31;  // ShowHook.dll's report

std::string WindowText(HWND window) {
    char buffer[4096];
    int length = GetWindowTextA(window, buffer, sizeof buffer);
    return std::string(buffer, length > 0 ? length : 0);
}

std::string ClassOf(HWND window) {
    char buffer[256];
    int length = GetClassNameA(window, buffer, sizeof buffer);
    return std::string(buffer, length > 0 ? length : 0);
}

// Button captions compare without their mnemonic marks and without case.
std::string Plain(const std::string& text) {
    std::string out;
    for (char c : text)
        if (c != '&') out += static_cast<char>(tolower(static_cast<unsigned char>(c)));
    return out;
}

// A message to a control that may belong to a hung program: never wait long.
DWORD_PTR Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    DWORD_PTR result = 0;
    SendMessageTimeoutA(window, message, wParam, lParam, SMTO_ABORTIFHUNG, 2000, &result);
    return result;
}

bool IsChecked(HWND control) {
    return Send(control, BM_GETCHECK) == BST_CHECKED;
}

}  // namespace

class DialogWatch::Watcher {
  public:
    explicit Watcher(std::vector<Answer> script) : mScript(std::move(script)) {}

    // One look at every top-level window.
    void Scan() {
        std::vector<HWND> windows;
        EnumWindows(
            [](HWND window, LPARAM list) -> BOOL {
                reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&windows));
        std::set<HWND> seenNow;
        for (HWND window : windows) {
            DWORD pid = 0;
            GetWindowThreadProcessId(window, &pid);
            if (!IsWindowVisible(window)) continue;
            const std::string windowClass = ClassOf(window);
            if (windowClass != "#32770") {
                NoteWindow(window, pid, windowClass, "");
                continue;
            }
            seenNow.insert(window);
            // Answer only a dialog seen on two polls in a row: its
            // initialisation has then set its texts.
            auto answered = mAnswered.find(window);
            if (answered == mAnswered.end()) {
                if (mPending.count(window)) AnswerDialog(window, pid, false);
            } else if (GetTickCount() - answered->second > kReanswerMs) {
                // The answer did not close it (a wrong button, a dialog that
                // shows itself again): never leave a program blocked.
                AnswerDialog(window, pid, true);
            }
        }
        mPending = seenNow;
        // Forget dialogs that are gone, so that a handle used again is answered again.
        for (auto it = mAnswered.begin(); it != mAnswered.end();)
            it = IsWindow(it->first) ? std::next(it) : mAnswered.erase(it);
    }

    // A window of another process (not a dialog), seen once per class and title.
    void NoteWindow(HWND window, DWORD pid, const std::string& windowClass, std::string title) {
        if (pid == GetCurrentProcessId() || windowClass == "#32770") return;
        if (title.empty()) title = WindowText(window);
        if (mWindows.insert(std::make_tuple(window, windowClass, title)).second)
            mResult.windows.push_back({pid, ExeOf(pid), windowClass, title});
    }

    std::string ExeOf(DWORD pid) {
        auto found = mExes.find(pid);
        if (found != mExes.end()) return found->second;
        std::string name;
        if (HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, pid)) {
            char path[MAX_PATH * 2];
            DWORD size = sizeof path;
            if (QueryFullProcessImageNameA(process, 0, path, &size)) name.assign(path, size);
            name.erase(0, name.find_last_of("\\/") + 1);
            CloseHandle(process);
        }
        return mExes[pid] = name;
    }

    WatchResult& Result() {
        mResult.scriptLeft = mScript.size() - mNext;
        return mResult;
    }

  private:
    void AnswerDialog(HWND dialog, DWORD pid, bool again) {
        DialogRecord record;
        record.pid = pid;
        record.exe = ExeOf(pid);
        record.title = WindowText(dialog);
        for (HWND child = GetWindow(dialog, GW_CHILD); child;
             child = GetWindow(child, GW_HWNDNEXT)) {
            const std::string childClass = Plain(ClassOf(child));
            const LONG style = GetWindowLongA(child, GWL_STYLE);
            DialogControl control;
            control.id = GetDlgCtrlID(child);
            control.text = WindowText(child);
            const int kind = style & (childClass == "static" ? SS_TYPEMASK : BS_TYPEMASK);
            if (childClass == "static") {
                // Icons and pictures keep a resource name, not a text.
                if (control.text.empty() || kind == SS_ICON || kind == SS_BITMAP) continue;
                record.text += (record.text.empty() ? "" : "\n") + control.text;
                continue;
            } else if (childClass == "edit") {
                // An edit field's text lives in the field, not in its window caption.
                char buffer[4096] = "";
                Send(child, WM_GETTEXT, sizeof buffer, reinterpret_cast<LPARAM>(buffer));
                control.kind = "edit";
                control.text = buffer;
            } else if (childClass != "button") {
                continue;
            } else if (kind == BS_PUSHBUTTON || kind == BS_DEFPUSHBUTTON) {
                control.kind = "button";
                record.buttons.emplace_back(control.id, control.text);
            } else if (kind == BS_RADIOBUTTON || kind == BS_AUTORADIOBUTTON) {
                control.kind = "radio";
            } else if (kind == BS_CHECKBOX || kind == BS_AUTOCHECKBOX || kind == BS_3STATE ||
                       kind == BS_AUTO3STATE) {
                control.kind = "check";
            } else {
                continue;
            }
            control.checked = control.kind != "button" && IsChecked(child);
            record.controls.push_back(control);
        }

        if (!again && mNext < mScript.size()) {
            const Answer& line = mScript[mNext];
            if (line.title.empty() || record.title.find(line.title) != std::string::npos)
                record.answerId = FindButton(line.button, record.buttons);
            if (record.answerId != -1) {
                record.expected = true;
                // A click, so that the dialog hears of it as from the user.
                for (const auto& check : line.checks) {
                    HWND control = GetDlgItem(dialog, check.first);
                    if (control && IsChecked(control) != check.second) Send(control, BM_CLICK);
                }
                for (const auto& field : line.fields)
                    if (HWND control = GetDlgItem(dialog, field.first))
                        Send(control, WM_SETTEXT, 0,
                             reinterpret_cast<LPARAM>(field.second.c_str()));
                ++mNext;
            }
        }
        if (record.answerId == -1) record.answerId = DefaultButton(dialog, record.buttons);
        for (const auto& button : record.buttons)
            if (button.first == record.answerId) record.answerText = button.second;
        mResult.dialogs.push_back(record);

        mAnswered[dialog] = GetTickCount();
        if (record.answerId == -1)
            PostMessageA(dialog, WM_CLOSE, 0, 0);
        else
            PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(record.answerId, BN_CLICKED),
                         reinterpret_cast<LPARAM>(GetDlgItem(dialog, record.answerId)));
    }

    static int FindButton(const std::string& wanted,
                          const std::vector<std::pair<int, std::string>>& buttons) {
        const bool byId = wanted.size() > 1 && wanted[0] == '#';
        for (const auto& button : buttons)
            if (byId ? button.first == atoi(wanted.c_str() + 1)
                     : Plain(button.second) == Plain(wanted))
                return button.first;
        return -1;
    }

    // What pressing Enter would do: the default push button, else OK, else Cancel.
    static int DefaultButton(HWND dialog, const std::vector<std::pair<int, std::string>>& buttons) {
        for (const auto& button : buttons) {
            HWND control = GetDlgItem(dialog, button.first);
            if (control && (GetWindowLongA(control, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON)
                return button.first;
        }
        // Wine answers IDOK here even when the dialog has no such button.
        const DWORD_PTR defId = Send(dialog, DM_GETDEFID);
        for (int id :
             {static_cast<int>(HIWORD(defId) == DC_HASDEFID ? LOWORD(defId) : 0), IDOK, IDCANCEL})
            for (const auto& button : buttons)
                if (id && button.first == id) return id;
        return buttons.empty() ? -1 : buttons.front().first;
    }

    std::vector<Answer> mScript;
    size_t mNext = 0;
    WatchResult mResult;
    std::set<HWND> mPending;
    std::map<HWND, DWORD> mAnswered;  // dialog -> when it was answered
    std::map<DWORD, std::string> mExes;
    std::set<std::tuple<HWND, std::string, std::string>> mWindows;
};

namespace {

// ShowHook.dll's report of a top-level window being shown: "pid handle class title".
LRESULT CALLBACK ReportWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto* copy = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    auto* watcher =
        reinterpret_cast<DialogWatch::Watcher*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (message != WM_COPYDATA || !watcher || copy->dwData != kShownWindow)
        return DefWindowProcA(window, message, wParam, lParam);
    const std::string data(static_cast<const char*>(copy->lpData), copy->cbData);
    const size_t a = data.find('\t'), b = data.find('\t', a + 1), c = data.find('\t', b + 1);
    if (c == std::string::npos) return FALSE;
    watcher->NoteWindow(reinterpret_cast<HWND>(std::stoull(data.substr(a + 1))),
                        static_cast<DWORD>(std::stoul(data)), data.substr(b + 1, c - b - 1),
                        data.substr(c + 1));
    return TRUE;
}

// ShowHook.dll from the build tree, else from beside this program.
std::string ShowHookPath() {
    char path[MAX_PATH] = "";
    if (GetEnvironmentVariableA("RWZ_BUILD_DIR", nullptr, 0))
        return BuildDir() + "\\tests\\ShowHook.dll";
    std::string exe(path, GetModuleFileNameA(nullptr, path, MAX_PATH));
    return exe.substr(0, exe.find_last_of('\\') + 1) + "ShowHook.dll";
}

}  // namespace

DialogWatch::DialogWatch(const std::vector<Answer>& script, DWORD timeoutMs)
    : mWatcher(std::make_unique<Watcher>(script)),
      mStop(CreateEventA(nullptr, TRUE, FALSE, nullptr)) {
    HANDLE ready = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    mThread = std::thread([this, ready, timeoutMs] {
        // The window ShowHook.dll reports to, and the hook itself; without
        // them the watcher only polls.
        WNDCLASSA windowClass = {};
        windowClass.lpfnWndProc = ReportWindowProc;
        windowClass.lpszClassName = kWatcherClass;
        RegisterClassA(&windowClass);
        HWND window = CreateWindowExA(0, kWatcherClass, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                      nullptr, nullptr);
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(mWatcher.get()));
        HMODULE module = LoadLibraryA(ShowHookPath().c_str());
        auto proc =
            module ? reinterpret_cast<HOOKPROC>(GetProcAddress(module, "ShowHookProc")) : nullptr;
        HHOOK hook = proc ? SetWindowsHookExA(WH_CALLWNDPROCRET, proc, module, 0) : nullptr;
        SetEvent(ready);

        const DWORD start = GetTickCount();
        mWatcher->Result().watcherEnd = "timeout";
        while (GetTickCount() - start <= timeoutMs) {
            mWatcher->Scan();
            if (WaitForSingleObject(mStop, 0) == WAIT_OBJECT_0) {
                mWatcher->Scan();
                mWatcher->Result().watcherEnd = "stopped";
                break;
            }
            MsgWaitForMultipleObjects(1, &mStop, FALSE, kPollMs, QS_ALLINPUT);
            MSG message;
            while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
        }
        if (hook) UnhookWindowsHookEx(hook);
        DestroyWindow(window);
    });
    WaitForSingleObject(ready, INFINITE);
    CloseHandle(ready);
}

DialogWatch::~DialogWatch() {
    Stop();
    CloseHandle(mStop);
}

const WatchResult& DialogWatch::Stop() {
    if (mThread.joinable()) {
        SetEvent(mStop);
        mThread.join();
        mResult = mWatcher->Result();
    }
    return mResult;
}

}  // namespace bench
