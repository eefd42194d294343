// Stands in for the user in a headless Wine prefix: finds every dialog box
// (class "#32770") that another process shows, records what it says and
// answers it as scripted. Also records the visible top-level windows of other
// processes, so that a test can tell whether a program showed its window: by
// polling, and through ShowHook.dll (when it stands beside the watcher) even
// for a window shown only for a moment.
//
// The script and record formats are in tests/bench/README.md.

// A test tool that only ever runs under Wine: newer functions are fine here.
#undef _WIN32_WINNT
#define _WIN32_WINNT 0x0600
#include <windows.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace {

struct ScriptLine {
    std::string button;  // text, or "#id"
    std::string title;   // substring the title must contain; empty: any
    std::vector<std::pair<int, std::string>> fields;
    std::vector<std::pair<int, bool>> checks;  // id, ticked
};

const UINT kPollMs = 50;
const DWORD kReanswerMs = 2000;

std::string Escape(const std::string& text) {
    std::string out;
    const std::string special = "\\\t\n\r", letter = "\\tnr";
    for (char c : text) {
        size_t at = special.find(c);
        out += at == std::string::npos ? std::string(1, c) : "\\" + letter.substr(at, 1);
    }
    return out;
}

std::string Lower(std::string text) {
    for (char& c : text) c = static_cast<char>(tolower(static_cast<unsigned char>(c)));
    return text;
}

// Button captions compare without their mnemonic marks and without case.
std::string Plain(const std::string& text) {
    std::string out;
    for (char c : text)
        if (c != '&') out += c;
    return Lower(out);
}

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

std::string ExeOf(DWORD pid) {
    static std::map<DWORD, std::string> cache;
    auto found = cache.find(pid);
    if (found != cache.end()) return found->second;
    std::string name;
    HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, pid);
    if (process) {
        char path[MAX_PATH * 2];
        DWORD size = sizeof path;
        if (QueryFullProcessImageNameA(process, 0, path, &size)) {
            name.assign(path, size);
            size_t slash = name.find_last_of("\\/");
            if (slash != std::string::npos) name.erase(0, slash + 1);
        }
        CloseHandle(process);
    }
    cache[pid] = name;
    return name;
}

bool ParseScript(const std::string& file, std::vector<ScriptLine>& script) {
    FILE* in = fopen(file.c_str(), "rb");
    if (!in) {
        fprintf(stderr, "DialogWatcher: cannot read script %s\n", file.c_str());
        return false;
    }
    char buffer[4096];
    bool ok = true;
    for (int number = 1; fgets(buffer, sizeof buffer, in); ++number) {
        std::string line = buffer;
        line.erase(line.find_last_not_of("\r\n") + 1);
        if (line.empty() || line[0] == ';') continue;
        ScriptLine entry;
        for (size_t start = 0, tab; start <= line.size(); start = tab + 1) {
            tab = std::min(line.find('\t', start), line.size());
            const std::string field = line.substr(start, tab - start);
            const size_t equals = std::min(field.find('='), field.size());
            const std::string key = field.substr(0, equals),
                              value = field.substr(equals + 1 - (equals == field.size()));
            const size_t colon = value.find(':');
            if (key == "button")
                entry.button = value;
            else if (key == "title")
                entry.title = value;
            else if ((key == "check" || key == "uncheck") && !value.empty())
                entry.checks.emplace_back(atoi(value.c_str()), key == "check");
            else if (key == "set" && colon != std::string::npos)
                entry.fields.emplace_back(atoi(value.c_str()), value.substr(colon + 1));
            else if (!field.empty())
                ok = !fprintf(stderr, "DialogWatcher: %s:%d: unknown field \"%s\"\n", file.c_str(),
                              number, field.c_str());
        }
        if (entry.button.empty())
            ok = !fprintf(stderr, "DialogWatcher: %s:%d: no button\n", file.c_str(), number);
        script.push_back(entry);
    }
    fclose(in);
    return ok;
}

class Watcher {
  public:
    Watcher(std::vector<ScriptLine> script, FILE* out) : mScript(std::move(script)), mOut(out) {}

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
            if (pid == GetCurrentProcessId() || !IsWindowVisible(window)) continue;
            std::string windowClass = ClassOf(window);
            if (windowClass == "#32770") {
                seenNow.insert(window);
                // Answer only a dialog seen on two polls in a row: its
                // initialisation has then set its texts.
                auto answered = mAnswered.find(window);
                if (answered == mAnswered.end()) {
                    if (mPending.count(window)) Answer(window, pid, false);
                } else if (GetTickCount() - answered->second > kReanswerMs) {
                    // The answer did not close it (a wrong button, a dialog that
                    // shows itself again): never leave a program blocked.
                    Answer(window, pid, true);
                }
            } else {
                NoteWindow(window, pid, windowClass, WindowText(window));
            }
        }
        mPending = seenNow;
        // Forget dialogs that are gone, so that a handle used again is answered again.
        for (auto it = mAnswered.begin(); it != mAnswered.end();)
            it = IsWindow(it->first) ? std::next(it) : mAnswered.erase(it);
    }

    // A top-level window being shown, as ShowHook.dll reports it from inside
    // its process: seen even when it is shown only for a moment.
    void NoteShown(HWND window, DWORD pid, const std::string& windowClass,
                   const std::string& title) {
        if (pid == GetCurrentProcessId() || windowClass == "#32770") return;
        NoteWindow(window, pid, windowClass, title);
    }

    void End(const char* reason) { Write({"end", reason, std::to_string(mScript.size() - mNext)}); }

  private:
    void NoteWindow(HWND window, DWORD pid, const std::string& windowClass,
                    const std::string& title) {
        if (!mWindows.insert(std::make_tuple(window, windowClass, title)).second) return;
        Write({"window", std::to_string(pid), ExeOf(pid), windowClass, title});
    }

    void Answer(HWND dialog, DWORD pid, bool again) {
        std::string title = WindowText(dialog);
        std::string text;
        std::vector<std::pair<int, std::string>> buttons;
        std::vector<std::pair<int, HWND>> buttonWindows;
        std::vector<std::string> controls;
        for (HWND child = GetWindow(dialog, GW_CHILD); child;
             child = GetWindow(child, GW_HWNDNEXT)) {
            std::string childClass = Lower(ClassOf(child));
            LONG style = GetWindowLongA(child, GWL_STYLE);
            int id = GetDlgCtrlID(child);
            std::string prefix = std::to_string(id);
            if (childClass == "static") {
                std::string childText = WindowText(child);
                // Icons and pictures keep a resource name, not a text.
                int kind = style & SS_TYPEMASK;
                if (childText.empty() || kind == SS_ICON || kind == SS_BITMAP) continue;
                if (!text.empty()) text += "\n";
                text += childText;
            } else if (childClass == "button") {
                int kind = style & BS_TYPEMASK;
                if (kind == BS_PUSHBUTTON || kind == BS_DEFPUSHBUTTON) {
                    buttons.emplace_back(id, WindowText(child));
                    buttonWindows.emplace_back(id, child);
                    controls.push_back("button:" + prefix + "=" + WindowText(child));
                } else if (kind == BS_CHECKBOX || kind == BS_AUTOCHECKBOX || kind == BS_3STATE ||
                           kind == BS_AUTO3STATE || kind == BS_RADIOBUTTON ||
                           kind == BS_AUTORADIOBUTTON) {
                    bool radio = kind == BS_RADIOBUTTON || kind == BS_AUTORADIOBUTTON;
                    controls.push_back(std::string(radio ? "radio:" : "check:") + prefix + ":" +
                                       (IsChecked(child) ? "1" : "0") + "=" + WindowText(child));
                }
            } else if (childClass == "edit") {
                controls.push_back("edit:" + prefix + "=" + ControlText(child));
            }
        }

        int answer = -1;
        bool expected = false;
        if (!again && mNext < mScript.size()) {
            const ScriptLine& line = mScript[mNext];
            bool titleFits = line.title.empty() || title.find(line.title) != std::string::npos;
            if (titleFits) answer = FindButton(line.button, buttons);
            if (answer != -1) {
                expected = true;
                for (const auto& check : line.checks) {
                    HWND control = GetDlgItem(dialog, check.first);
                    // A click, so that the dialog hears of it as from the user.
                    DWORD_PTR ignored;
                    if (control && IsChecked(control) != check.second)
                        SendMessageTimeoutA(control, BM_CLICK, 0, 0, SMTO_ABORTIFHUNG, 2000,
                                            &ignored);
                }
                for (const auto& field : line.fields) {
                    HWND control = GetDlgItem(dialog, field.first);
                    DWORD_PTR ignored;
                    if (control)
                        SendMessageTimeoutA(control, WM_SETTEXT, 0,
                                            reinterpret_cast<LPARAM>(field.second.c_str()),
                                            SMTO_ABORTIFHUNG, 2000, &ignored);
                }
                ++mNext;
            }
        }
        if (answer == -1) answer = DefaultButton(dialog, buttons);

        std::string answerText;
        HWND answerWindow = nullptr;
        for (size_t i = 0; i < buttons.size(); ++i)
            if (buttons[i].first == answer) {
                answerText = buttons[i].second;
                answerWindow = buttonWindows[i].second;
            }

        std::vector<std::string> record = {
            "dialog", std::to_string(pid),    ExeOf(pid), title,
            text,     std::to_string(answer), answerText, expected ? "expected" : "unexpected"};
        record.insert(record.end(), controls.begin(), controls.end());
        Write(record);

        mAnswered[dialog] = GetTickCount();
        if (answer == -1)
            PostMessageA(dialog, WM_CLOSE, 0, 0);
        else
            PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(answer, BN_CLICKED),
                         reinterpret_cast<LPARAM>(answerWindow));
    }

    static bool IsChecked(HWND control) {
        DWORD_PTR state = 0;
        return SendMessageTimeoutA(control, BM_GETCHECK, 0, 0, SMTO_ABORTIFHUNG, 2000, &state) &&
               state == BST_CHECKED;
    }

    // An edit field's text lives in the field, not in its window caption.
    static std::string ControlText(HWND control) {
        char buffer[4096] = "";
        DWORD_PTR length = 0;
        if (!SendMessageTimeoutA(control, WM_GETTEXT, sizeof buffer,
                                 reinterpret_cast<LPARAM>(buffer), SMTO_ABORTIFHUNG, 2000, &length))
            return "";
        return std::string(buffer, length < sizeof buffer ? length : 0);
    }

    static int FindButton(const std::string& wanted,
                          const std::vector<std::pair<int, std::string>>& buttons) {
        bool byId = wanted.size() > 1 && wanted[0] == '#';
        for (const auto& button : buttons) {
            if (byId ? button.first == atoi(wanted.c_str() + 1)
                     : Plain(button.second) == Plain(wanted))
                return button.first;
        }
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
        DWORD_PTR result = 0;
        if (SendMessageTimeoutA(dialog, DM_GETDEFID, 0, 0, SMTO_ABORTIFHUNG, 2000, &result) &&
            HIWORD(result) == DC_HASDEFID) {
            for (const auto& button : buttons)
                if (button.first == LOWORD(result)) return button.first;
        }
        for (int id : {IDOK, IDCANCEL})
            for (const auto& button : buttons)
                if (button.first == id) return id;
        return buttons.empty() ? -1 : buttons.front().first;
    }

    void Write(const std::vector<std::string>& fields) {
        std::string line;
        for (size_t i = 0; i < fields.size(); ++i) {
            if (i) line += '\t';
            line += Escape(fields[i]);
        }
        line += '\n';
        fputs(line.c_str(), mOut);
        fflush(mOut);
    }

    std::vector<ScriptLine> mScript;
    size_t mNext = 0;
    FILE* mOut;
    std::set<HWND> mPending;
    std::map<HWND, DWORD> mAnswered;  // dialog -> when it was answered
    std::set<std::tuple<HWND, std::string, std::string>> mWindows;
};

Watcher* gWatcher = nullptr;
const char kWatcherClass[] = "RwzDialogWatcher";
const ULONG_PTR kShownWindow = 0x52575A31;  // ShowHook.dll's report

LRESULT CALLBACK WatcherWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COPYDATA && gWatcher) {
        const auto* copy = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        if (copy->dwData == kShownWindow) {
            // pid, handle, class, title
            const std::string data(static_cast<const char*>(copy->lpData), copy->cbData);
            const size_t a = data.find('\t'), b = data.find('\t', a + 1),
                         c = data.find('\t', b + 1);
            if (b == std::string::npos || c == std::string::npos) return FALSE;
            gWatcher->NoteShown(reinterpret_cast<HWND>(std::stoull(data.substr(a + 1))),
                                static_cast<DWORD>(std::stoul(data)), data.substr(b + 1, c - b - 1),
                                data.substr(c + 1));
            return TRUE;
        }
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

// The message-only window ShowHook.dll reports to, and the hook itself, when
// ShowHook.dll stands beside the watcher. Without it the watcher only polls.
HHOOK InstallShowHook() {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = WatcherWindowProc;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = kWatcherClass;
    RegisterClassA(&windowClass);
    if (!CreateWindowExA(0, kWatcherClass, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                         windowClass.hInstance, nullptr))
        return nullptr;
    char path[MAX_PATH];
    DWORD length = GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string dll(path, length);
    dll = dll.substr(0, dll.find_last_of('\\') + 1) + "ShowHook.dll";
    HMODULE module = LoadLibraryA(dll.c_str());
    if (!module) return nullptr;
    auto proc = reinterpret_cast<HOOKPROC>(GetProcAddress(module, "ShowHookProc"));
    return proc ? SetWindowsHookExA(WH_CALLWNDPROCRET, proc, module, 0) : nullptr;
}

const char kUsage[] =
    " [--script FILE] [--out FILE] [--timeout SECONDS] [--stop-event NAME] [--stop-file FILE]"
    " [--ready-event NAME]";

}  // namespace

int main(int argc, char** argv) {
    // --script, --out, --timeout (seconds), --stop-event, --stop-file, --ready-event
    std::map<std::string, std::string> options;
    for (int i = 1; i < argc; i += 2) {
        const std::string name = argv[i];
        if (i + 1 == argc || std::string(kUsage).find(" [" + name + " ") == std::string::npos) {
            fprintf(stderr, "usage: DialogWatcher.exe%s\n", kUsage);
            return 2;
        }
        options[name] = argv[i + 1];
    }
    const std::string scriptFile = options["--script"], outFile = options["--out"];
    const std::string stopFile = options["--stop-file"];
    const DWORD timeoutMs = options.count("--timeout")
                                ? static_cast<DWORD>(atof(options["--timeout"].c_str()) * 1000)
                                : 120000;

    std::vector<ScriptLine> script;
    if (!scriptFile.empty() && !ParseScript(scriptFile, script)) return 2;
    FILE* out = outFile.empty() ? stdout : fopen(outFile.c_str(), "wb");
    if (!out) {
        fprintf(stderr, "DialogWatcher: cannot write %s\n", outFile.c_str());
        return 2;
    }

    HANDLE stopEvent = nullptr;
    if (options.count("--stop-event"))
        stopEvent = CreateEventA(nullptr, TRUE, FALSE, options["--stop-event"].c_str());

    Watcher watcher(std::move(script), out);
    gWatcher = &watcher;
    HHOOK hook = InstallShowHook();

    if (options.count("--ready-event")) {
        HANDLE ready = OpenEventA(EVENT_MODIFY_STATE, FALSE, options["--ready-event"].c_str());
        if (ready) {
            SetEvent(ready);
            CloseHandle(ready);
        }
    }

    DWORD start = GetTickCount();
    const char* reason = "timeout";
    for (;;) {
        watcher.Scan();
        if ((stopEvent && WaitForSingleObject(stopEvent, 0) == WAIT_OBJECT_0) ||
            (!stopFile.empty() &&
             GetFileAttributesA(stopFile.c_str()) != INVALID_FILE_ATTRIBUTES)) {
            watcher.Scan();
            reason = "stopped";
            break;
        }
        if (GetTickCount() - start > timeoutMs) break;
        DWORD waitCount = stopEvent ? 1 : 0;
        MsgWaitForMultipleObjects(waitCount, &stopEvent, FALSE, kPollMs, QS_ALLINPUT);
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
    }
    watcher.End(reason);
    if (hook) UnhookWindowsHookEx(hook);
    gWatcher = nullptr;
    if (out != stdout) fclose(out);
    if (stopEvent) CloseHandle(stopEvent);
    return 0;
}
