// The end-to-end scenarios: every file of tests/e2e/scenarios/*.scn, each case
// of it in a fresh prefix (run-tests.sh cases). The format is described in
// tests/bench/README.md.
#include <gtest/gtest.h>

#include <windows.h>
#include <winspool.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <map>
#include <memory>
#include <random>
#include <thread>

#include "bench/Bench.h"
#include "bench/standins/NetworkStandIns.h"
#include "bench/standins/StandIns.h"
#include "browsers/NetscapeMachine.h"
#include "platform/modText.h"
#include "support/InstalledPrinters.h"
#include "support/RawRegistry.h"

namespace {

using Fields = std::vector<std::string>;

struct Line {
    std::string where;  // file:line, for failure messages
    std::string verb;
    Fields fields;  // the rest of the line, cut at " | "; "write" adds the text
};

struct Scenario {
    std::string name;
    std::vector<Line> lines;
};

void PrintTo(const Scenario& scenario, std::ostream* out) {
    *out << scenario.name;
}

std::string ScenarioDir() {
    return bench::SourceDir() + "\\tests\\e2e\\scenarios";
}

std::string Trim(const std::string& text) {
    const size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

Fields Split(const std::string& text) {
    Fields fields;
    size_t start = 0;
    for (size_t at; (at = text.find(" | ", start)) != std::string::npos; start = at + 3)
        fields.push_back(Trim(text.substr(start, at - start)));
    fields.push_back(Trim(text.substr(start)));
    return fields;
}

std::string Replace(std::string text, const std::string& from, const std::string& to) {
    for (size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

std::string Joined(const std::vector<std::string>& items, const char* separator) {
    std::string text;
    for (const std::string& item : items) text += (text.empty() ? "" : separator) + item;
    return text;
}

// "{crlf}", "{tab}" and "{nul}" in expected texts.
std::string Unescape(const std::string& text) {
    return Replace(Replace(Replace(text, "{crlf}", "\r\n"), "{tab}", "\t"), "{nul}",
                   std::string(1, '\0'));
}

// A file's lines, following "include", applying "let", gathering "write" blocks.
void ReadLines(const std::string& file, std::map<std::string, std::string>& lets,
               std::vector<Line>& out) {
    const std::vector<std::string> lines = bench::SplitLines(bench::ReadFileText(file));
    const std::string shortName = file.substr(file.find_last_of('\\') + 1);
    for (size_t i = 0; i < lines.size(); ++i) {
        std::string text = lines[i];
        for (const auto& [name, value] : lets) text = Replace(text, "{" + name + "}", value);
        text = Trim(text);
        if (text.empty() || text[0] == '#') continue;
        const size_t blank = text.find(' ');
        Line line{shortName + ":" + std::to_string(i + 1), text.substr(0, blank),
                  // " |" at the end of a line gives an empty last field.
                  blank == std::string::npos ? Fields{} : Split(text.substr(blank + 1) + " ")};
        if (line.verb == "include") {
            ReadLines(ScenarioDir() + "\\" + line.fields.at(0), lets, out);
        } else if (line.verb == "let") {
            lets[line.fields.at(0)] =
                Joined(Fields(line.fields.begin() + 1, line.fields.end()), " | ");
        } else {
            if (line.verb == "write") {
                std::string content;
                while (++i < lines.size() && Trim(lines[i]) != "end") {
                    std::string text = lines[i];
                    for (const auto& [name, value] : lets)
                        text = Replace(text, "{" + name + "}", value);
                    content += Unescape(Replace(text, "{nl}", "\r\n")) + "\r\n";
                }
                line.fields.push_back(content);
            }
            out.push_back(line);
        }
    }
}

std::string TempFolder() {
    char temp[MAX_PATH] = "";
    GetTempPathA(sizeof temp, temp);
    return temp;
}

// Every case of every scenario file; the lines before a file's first "case"
// are shared by all its cases.
std::vector<Scenario> LoadScenarios() {
    std::vector<Scenario> scenarios;
    for (const std::string& file : bench::FindFiles(ScenarioDir() + "\\*.scn")) {
        std::map<std::string, std::string> lets = {{"src", bench::SourceDir()},
                                                   {"build", bench::BuildDir()},
                                                   {"scenarios", ScenarioDir()},
                                                   {"appdata", rwz::test::AppDataFolder()},
                                                   {"temp", TempFolder()}};
        std::vector<Line> lines;
        ReadLines(ScenarioDir() + "\\" + file, lets, lines);
        std::string stem = file.substr(0, file.size() - 4);
        std::vector<Line> shared;
        bool cases = false;
        for (const Line& line : lines) {
            if (line.verb == "case") {
                scenarios.push_back({stem + "_" + line.fields.at(0), shared});
                cases = true;
            } else {
                (cases ? scenarios.back().lines : shared).push_back(line);
            }
        }
        if (!cases) scenarios.push_back({stem, shared});
    }
    for (Scenario& s : scenarios)
        for (char& c : s.name)
            if (!isalnum(static_cast<unsigned char>(c))) c = '_';
    return scenarios;
}

const std::string& Arg(const Line& line, size_t i) {
    if (i >= line.fields.size()) throw std::runtime_error(line.where + ": too few fields");
    return line.fields[i];
}

// "HKLM\key\value" -> root, key, value name; "HKLM\key" as a key alone.
HKEY RootOf(const std::string& path, std::string& rest) {
    const size_t slash = path.find('\\');
    const std::string root = path.substr(0, slash);
    rest = slash == std::string::npos ? "" : path.substr(slash + 1);
    if (root == "HKLM") return HKEY_LOCAL_MACHINE;
    if (root == "HKCU") return HKEY_CURRENT_USER;
    throw std::runtime_error("unknown registry root " + root);
}

struct RegPath {
    explicit RegPath(const std::string& path) {
        root = RootOf(path, key);
        const size_t slash = key.find_last_of('\\');
        name = key.substr(slash + 1);
        key.resize(slash);
    }
    HKEY root = nullptr;
    std::string key, name;
};

rwz::test::RawEntry ReadEntry(const std::string& text) {
    const RegPath path(text);
    const rwz::test::RawValue value = rwz::test::RawQuery(path.root, path.key, path.name);
    if (value.Result != ERROR_SUCCESS) return {REG_NONE, "<missing>"};
    return {value.Type, std::string(value.Data.begin(), value.Data.end())};
}

std::string Describe(const rwz::test::RawEntry& entry) {
    std::string text = "type " + std::to_string(entry.Type) + " [";
    static const char hex[] = "0123456789abcdef";
    for (unsigned char c : entry.Data)
        text += c >= 0x20 && c < 0x7f ? std::string(1, c)
                                      : std::string("\\x") + hex[c >> 4] + hex[c & 15];
    return text + "]";
}

// A golden line matches when its "{any}" parts match any text.
bool Matches(const std::string& actual, const std::string& golden) {
    const size_t any = golden.find("{any}");
    if (any == std::string::npos) return actual == golden;
    if (actual.compare(0, any, golden, 0, any) != 0) return false;
    const std::string rest = golden.substr(any + 5);
    for (size_t from = any; from <= actual.size(); ++from)
        if (Matches(actual.substr(from), rest)) return true;
    return false;
}

// A window of a browser's class, kept by a thread of the test with its own
// message loop, so that a close request is honoured.
class BrowserWindow {
  public:
    explicit BrowserWindow(const std::string& windowClass) : mClass(windowClass) {
        HANDLE ready = CreateEventA(nullptr, TRUE, FALSE, nullptr);
        mThread = std::thread([this, ready] {
            WNDCLASSA wc = {};
            wc.lpfnWndProc = DefWindowProcA;
            wc.hInstance = GetModuleHandleA(nullptr);
            wc.lpszClassName = mClass.c_str();
            RegisterClassA(&wc);
            CreateWindowA(mClass.c_str(), "", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr,
                          wc.hInstance, nullptr);
            mThreadId = GetCurrentThreadId();
            SetEvent(ready);
            MSG message;
            while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
        });
        WaitForSingleObject(ready, 10000);
        CloseHandle(ready);
    }
    ~BrowserWindow() {
        PostThreadMessageA(mThreadId, WM_QUIT, 0, 0);
        mThread.join();
    }

  private:
    std::string mClass;
    std::thread mThread;
    DWORD mThreadId = 0;
};

class Runner {
  public:
    ~Runner() {
        mEnded = true;
        for (std::thread& thread : mThreads) thread.join();
        if (mVars.count("served")) bench::WriteFile(mVars["served"] + "\\stop", "");
        if (mSession.hProcess) {
            TerminateProcess(mSession.hProcess, 1);
            CloseHandle(mSession.hProcess);
            CloseHandle(mSession.hThread);
        }
        for (const auto& entry : mStarted) {
            TerminateProcess(entry.second, 1);
            CloseHandle(entry.second);
        }
    }

    void Do(Line line) {
        for (std::string& field : line.fields)
            for (const auto& [name, value] : mVars) field = Replace(field, "{" + name + "}", value);
        SCOPED_TRACE(line.where + ": " + line.verb + " " + Joined(line.fields, " | "));
        const Fields& f = line.fields;
        auto arg = [&](size_t i) -> const std::string& { return Arg(line, i); };
        const std::string& v = line.verb;
        if (v == "machine") {
            mMachine = std::make_unique<bench::Machine>(arg(0));
        } else if (v == "network") {
            mNetwork = std::make_unique<bench::NetworkStandIns>();
            mNetwork->Like(*mMachine);
        } else if (v == "net-answer") {
            mNetwork->Answer(arg(0), arg(1));
        } else if (v == "opera") {
            mPrograms["opera"] = bench::InstallStandInOpera();
        } else if (v == "netscape") {
            rwz::test::InstallNetscape(mMachine->Name(), false);
            bench::ReadRegistryString(
                HKEY_LOCAL_MACHINE,
                "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\netscape.exe", "",
                mPrograms["netscape"]);
        } else if (v == "start") {
            mStarted[arg(0)] = bench::StartStandIn(mPrograms.at(arg(0)), WindowClass(arg(0)));
        } else if (v == "window") {
            mWindows.push_back(std::make_unique<BrowserWindow>(arg(0)));
        } else if (v == "setting") {
            rwz::test::RawSetString(HKEY_LOCAL_MACHINE, "Software\\Roamwise\\" + arg(0), arg(1),
                                    arg(2));
        } else if (v == "mkdir") {
            bench::MakeFolders(arg(0));
        } else if (v == "copy") {
            bench::CopyFileReplacing(arg(0), arg(1));
        } else if (v == "delete") {
            DeleteFileA(arg(0).c_str());
        } else if (v == "readonly") {
            SetFileAttributesA(arg(0).c_str(), FILE_ATTRIBUTE_READONLY);
        } else if (v == "truncate") {  // a file cut to its first half
            const std::string text = bench::ReadFileText(arg(0));
            bench::WriteFile(arg(0), text.substr(0, text.size() / 2));
        } else if (v == "random") {  // seeded bytes: a file in nobody's format
            std::mt19937 random(20);
            std::string bytes(std::stoul(arg(1)), '\0');
            for (char& c : bytes) c = static_cast<char>(random());
            bench::WriteFile(arg(0), bytes);
        } else if (v == "write") {
            bench::WriteFile(arg(0), f.back());
        } else if (v == "fill") {  // the text added COUNT times to the file's end
            std::string text;
            bench::ReadFile(arg(0), text);
            const std::string piece = Unescape(f.size() > 2 ? f[2] : "");
            for (unsigned long n = std::stoul(arg(1)); n > 0; --n) text += piece;
            bench::WriteFile(arg(0), text);
        } else if (v == "utf16") {  // the file as UTF-16 with a byte-order mark
            std::string wide = "\xFF\xFE";
            for (char c : bench::ReadFileText(arg(0))) wide += std::string{c, '\0'};
            bench::WriteFile(arg(0), wide);
        } else if (v == "reg") {
            const RegPath path(arg(0));
            rwz::test::RawSetString(path.root, path.key, path.name, f.size() > 1 ? f[1] : "");
        } else if (v == "reg-delete") {  // KEY\NAME a value, KEY\ the key and all below it
            const RegPath path(arg(0));
            if (path.name.empty())
                rwz::test::RawDeleteTree(path.root, path.key);
            else
                rwz::test::RawDeleteValue(path.root, path.key, path.name);
        } else if (v == "no-printers") {  // deleted here, Wine does not read them again from CUPS
            for (const std::string& name : rwz::test::InstalledPrinters()) {
                HANDLE printer = nullptr;
                PRINTER_DEFAULTSA access = {nullptr, nullptr, PRINTER_ALL_ACCESS};
                if (OpenPrinterA(const_cast<char*>(name.c_str()), &printer, &access)) {
                    EXPECT_TRUE(DeletePrinter(printer)) << name;
                    ClosePrinter(printer);
                }
            }
            WriteProfileStringA("windows", "device", nullptr);
            ASSERT_TRUE(rwz::test::InstalledPrinters().empty());
        } else if (v == "mutex") {  // another copy's, held to the end or until the log has TEXT
            HANDLE mutex = CreateMutexA(nullptr, FALSE, arg(0).c_str());
            const std::string until = f.size() > 1 ? f[1] : "";
            mThreads.emplace_back([this, mutex, until] {
                std::string log;
                while (!mEnded && (until.empty() || !bench::ReadFile(bench::DebugLogPath(), log) ||
                                   log.find(until) == std::string::npos))
                    Sleep(100);
                CloseHandle(mutex);
            });
        } else if (v == "ini") {
            WritePrivateProfileStringA(arg(1).c_str(), arg(2).c_str(),
                                       f.size() > 3 ? f[3].c_str() : "", arg(0).c_str());
            WritePrivateProfileStringA(nullptr, nullptr, nullptr, arg(0).c_str());
        } else if (v == "snapshot") {
            mSnapshot.clear();
            mWatched = f;
            mSnapshot = Snapshot();
        } else if (v == "answer") {
            bench::Answer answer(arg(0));
            if (f.size() > 1 && !f[1].empty()) answer.Title(f[1]);
            // "ID=text" types into a field, "+ID" / "-ID" ticks or clears a box.
            for (size_t i = 2; i < f.size(); ++i) {
                if (f[i][0] == '+')
                    answer.Check(std::stoi(f[i].substr(1)));
                else if (f[i][0] == '-')
                    answer.Uncheck(std::stoi(f[i].substr(1)));
                else
                    answer.Set(std::stoi(f[i]), f[i].substr(f[i].find('=') + 1));
            }
            mAnswers.push_back(answer);
        } else if (v == "regsvr32") {
            EXPECT_EQ(0u, bench::RunAndWait("regsvr32 /s \"" + arg(0) + "\""));
        } else if (v == "serve") {
            Serve(arg(0));
        } else if (v == "open") {
            Open(f.empty() ? bench::InstalledRwz() : arg(0), f.size() > 1 ? f[1] : "RoamwiseMain");
        } else if (v == "command") {
            const DWORD start = GetTickCount();
            EXPECT_TRUE(Send(WM_COMMAND, std::stoi(arg(0))));
            mTook = GetTickCount() - start;
        } else if (v == "choose") {  // an item of a drop-down list, as the user picks it
            const HWND box = Control(std::stoi(arg(0)));
            ASSERT_TRUE(box) << line.where;
            DWORD_PTR result = 0;
            SendMessageTimeoutA(box, CB_SELECTSTRING, static_cast<WPARAM>(-1),
                                reinterpret_cast<LPARAM>(arg(1).c_str()), SMTO_NORMAL, 60000,
                                &result);
            ASSERT_NE(static_cast<DWORD_PTR>(CB_ERR), result) << line.where;
            SendMessageTimeoutA(GetParent(box), WM_COMMAND,
                                MAKEWPARAM(GetDlgCtrlID(box), CBN_SELCHANGE),
                                reinterpret_cast<LPARAM>(box), SMTO_NORMAL, 60000, &result);
        } else if (v == "close") {
            Close();
        } else if (v == "lenient") {
            mStrict = false;
        } else if (v == "run" || v == "run-in") {
            Flush();
            bench::RunOptions options;
            options.args =
                v == "run" ? Joined(f, " | ") : Joined(Fields(f.begin() + 1, f.end()), " | ");
            if (v == "run-in") options.workDir = arg(0);
            options.script = mAnswers;
            options.strictDialogs = mStrict;
            options.timeoutMs = 60000;
            mRun = bench::RunRwz(options);
            Ran(options.args.find("/hidden") != std::string::npos);
        } else {
            Expect(line);
        }
    }

    // A fresh set of checks for the run just ended.
    void Ran(bool hidden) {
        mRan = true;
        mHidden = hidden;
        mAnswers.clear();
        mStrict = true;
        mDialog = mLogAt = 0;
        mExit = 0;
        mChanged.clear();
        mWithin.clear();
        mCalls.clear();
    }

    // What every run is held to unless its lines say otherwise.
    void Flush() {
        if (!mRan) return;
        mRan = false;
        EXPECT_EQ(mExit, mRun.exitCode) << mRun.Describe();
        if (mSessionStrict) {
            EXPECT_TRUE(mRun.DialogsAsScripted()) << mRun.Describe();
        }
        mSessionStrict = false;
        if (mHidden) {
            EXPECT_FALSE(mRun.ShowedWindow()) << mRun.Describe();
        }
        for (const auto& [function, expected] : mCalls) {
            const std::vector<bench::StandInCall> calls = mNetwork->Calls(function);
            ASSERT_EQ(expected.size(), calls.size()) << function << "\n" << mRun.log;
            for (size_t i = 0; i < calls.size(); ++i)
                for (const std::string& field : expected[i]) {
                    const size_t equals = field.find('=');
                    EXPECT_EQ(field.substr(equals + 1), calls[i][field.substr(0, equals)])
                        << calls[i].Describe();
                }
        }
        if (!mWithin.empty()) {
            const std::set<std::string> changed = rwz::test::RawDifferences(mSnapshot, Snapshot());
            EXPECT_FALSE(changed.empty());
            for (const std::string& name : changed)
                EXPECT_EQ(0u, name.rfind(mWithin, 0)) << name << " changed";
        }
        if (!mChanged.empty()) {
            // Registry names are compared as Windows does, whatever case the
            // prefix first gave them (Wine names "device" when it finds a printer).
            auto folded = [](auto first, auto last) {
                std::set<std::string> names;
                for (; first != last; ++first) names.insert(rwz::ToLower(*first));
                names.erase("none");
                return Joined({names.begin(), names.end()}, "\n");
            };
            const std::set<std::string> changed = rwz::test::RawDifferences(mSnapshot, Snapshot());
            EXPECT_EQ(folded(mChanged.begin(), mChanged.end()),
                      folded(changed.begin(), changed.end()));
        }
    }

  private:
    // Rwz.exe with its window shown, driven at its menu from "open" to "close":
    // SendMessage waits until a command is done, its dialogs answered.
    void Open(const std::string& exe, const std::string& windowClass) {
        Flush();
        bench::CopyFileReplacing(bench::BuildDir() + "\\bin\\Rwz.exe", bench::InstalledRwz());
        mWatch = std::make_unique<bench::DialogWatch>(mAnswers);
        mSessionStrict = mStrict;
        mAnswers.clear();
        mStrict = true;
        mSession = bench::LaunchProcess(exe, "\"" + exe + "\"", bench::InstallDir());
        for (int waited = 0; waited < 30000 && !mWindow; waited += 100) {
            Sleep(100);
            HWND window = nullptr;
            while ((window = FindWindowExA(nullptr, window, windowClass.c_str(), nullptr))) {
                DWORD pid = 0;
                GetWindowThreadProcessId(window, &pid);
                // A visible main window: start-up, and whatever it asked, is over.
                if (pid == mSession.dwProcessId &&
                    (IsWindowVisible(window) || windowClass != "RoamwiseMain"))
                    mWindow = window;
            }
        }
        ASSERT_TRUE(mWindow) << exe << " showed no " << windowClass << " window";
    }

    bool Send(UINT message, WPARAM wParam) {
        DWORD_PTR result = 0;
        return mWindow &&
               SendMessageTimeoutA(mWindow, message, wParam, 0, SMTO_NORMAL, 60000, &result) != 0;
    }

    // The control of the open window (on any of its pages) with this id.
    HWND Control(int aId) const {
        struct Search {
            int id;
            HWND found;
        } search{aId, nullptr};
        if (mWindow)
            EnumChildWindows(
                mWindow,
                [](HWND child, LPARAM data) -> BOOL {
                    auto* s = reinterpret_cast<Search*>(data);
                    if (GetDlgCtrlID(child) != s->id) return TRUE;
                    s->found = child;
                    return FALSE;
                },
                reinterpret_cast<LPARAM>(&search));
        return search.found;
    }

    // Closes the window as the user does and collects what the session showed.
    void Close() {
        Flush();
        EXPECT_TRUE(Send(WM_CLOSE, 0)) << "the window was gone";
        if (WaitForSingleObject(mSession.hProcess, 30000) != WAIT_OBJECT_0)
            TerminateProcess(mSession.hProcess, 259);
        GetExitCodeProcess(mSession.hProcess, &mRun.exitCode);
        CloseHandle(mSession.hProcess);
        CloseHandle(mSession.hThread);
        mSession = {};
        mWindow = nullptr;
        static_cast<bench::WatchResult&>(mRun) = mWatch->Stop();
        mRun.log = bench::ReadFileText(bench::DebugLogPath());
        Ran(false);
    }

    // version-server.py MODE in a folder of this case; {port} and {served}
    // name its port and folder in the lines that follow.
    void Serve(const std::string& mode) {
        const std::string folder = std::string(getenv("RWZ_BUILD_DIR")) + "/serve/" +
                                   testing::UnitTest::GetInstance()->current_test_info()->name();
        mVars["served"] = bench::WindowsPath(folder);
        bench::MakeFolders(mVars["served"]);
        for (const char* file : {"port", "request", "stop"})
            DeleteFileA((mVars["served"] + "\\" + file).c_str());
        PROCESS_INFORMATION server = bench::LaunchProcess(
            "", "/usr/bin/python3 " + std::string(getenv("RWZ_SOURCE_DIR")) +
                    "/tests/e2e/data/version-server.py " + mode + " " + folder);
        CloseHandle(server.hThread);
        CloseHandle(server.hProcess);
        for (int waited = 0; waited < 20000 && !bench::FileExists(mVars["served"] + "\\port");
             waited += 100)
            Sleep(100);
        mVars["port"] = bench::ReadFileText(mVars["served"] + "\\port");
        ASSERT_FALSE(mVars["port"].empty()) << "version-server.py did not start";
    }

    // The open window's texts of one kind ("title", "menu", "tab", "tip", "combo<ID>"), in
    // order, read from inside the program by MainWindowProbe.dll (e2e/probe).
    std::vector<std::string> Captions(const std::string& kind) {
        HMODULE probe = LoadLibraryA((bench::BuildDir() + "\\tests\\MainWindowProbe.dll").c_str());
        if (!probe) return {};
        auto proc = reinterpret_cast<HOOKPROC>(GetProcAddress(probe, "MainWindowProbeProc"));
        HHOOK hook = SetWindowsHookExA(WH_CALLWNDPROC, proc, probe,
                                       GetWindowThreadProcessId(mWindow, nullptr));
        static std::string answer;
        WNDCLASSA receiver = {};
        receiver.lpfnWndProc = [](HWND window, UINT message, WPARAM w, LPARAM l) -> LRESULT {
            if (message != WM_COPYDATA) return DefWindowProcA(window, message, w, l);
            const auto* copy = reinterpret_cast<const COPYDATASTRUCT*>(l);
            answer.assign(static_cast<const char*>(copy->lpData), copy->cbData);
            return TRUE;
        };
        receiver.lpszClassName = "RwzProbeReceiver";
        RegisterClassA(&receiver);
        HWND window = CreateWindowExA(0, receiver.lpszClassName, "", 0, 0, 0, 0, 0, HWND_MESSAGE,
                                      nullptr, nullptr, nullptr);
        answer.clear();
        DWORD_PTR ignored;
        SendMessageTimeoutA(mWindow, RegisterWindowMessageA("RwzMainWindowProbe"),
                            reinterpret_cast<WPARAM>(window), 0, SMTO_NORMAL, 10000, &ignored);
        DestroyWindow(window);
        UnhookWindowsHookEx(hook);
        FreeLibrary(probe);
        // Lines "kind<TAB>index<TAB>text"; a combo box's kind takes its id from the index.
        std::vector<std::string> items;
        for (const std::string& line : bench::SplitLines(answer)) {
            const size_t tab = line.find('\t'), next = line.find('\t', tab + 1);
            if (next == std::string::npos) continue;
            std::string itemKind = line.substr(0, tab);
            if (itemKind == "menu-grayed") itemKind = "menu";
            if (itemKind == "combo") itemKind += line.substr(tab + 1, next - tab - 1);
            if (itemKind == kind) items.push_back(line.substr(next + 1));
        }
        return items;
    }

    static const char* WindowClass(const std::string& program) {
        return program == "opera" ? bench::kOperaWindowClass : "MozillaWindowClass";
    }

    rwz::test::RawSnapshot Snapshot() const {
        rwz::test::RawSnapshot snapshot;
        for (const std::string& key : mWatched) {
            std::string rest;
            const HKEY root = RootOf(key, rest);
            rwz::test::RawSnapshotAdd(root, key.substr(0, 4), rest, snapshot);
        }
        return snapshot;
    }

    void Expect(const Line& line) {
        const Fields& f = line.fields;
        const std::string& v = line.verb;
        auto arg = [&](size_t i) -> const std::string& { return Arg(line, i); };
        if (v == "expect-caption") {  // KIND | ITEMS: the open window shows these in a row
            const std::vector<std::string> items = Captions(arg(0));
            const Fields want(f.begin() + 1, f.end());
            EXPECT_NE(items.end(),
                      std::search(items.begin(), items.end(), want.begin(), want.end()))
                << Joined(items, "\n");
        } else if (v == "expect-took") {  // the last command, in milliseconds
            EXPECT_GE(mTook, std::stoul(arg(0)));
            EXPECT_LT(mTook, std::stoul(arg(1)));
        } else if (v == "expect-exit") {
            mExit = static_cast<DWORD>(std::stoul(arg(0)));
        } else if (v == "expect-dialog") {
            ASSERT_LT(mDialog, mRun.dialogs.size()) << mRun.Describe();
            const bench::DialogRecord& dialog = mRun.dialogs[mDialog++];
            EXPECT_EQ(arg(0), dialog.title);
            if (f.size() > 1) {
                EXPECT_EQ(Unescape(f[1]), dialog.text);
            }
            if (f.size() > 2) {
                std::vector<std::string> buttons;
                for (const auto& button : dialog.buttons) buttons.push_back(button.second);
                EXPECT_EQ(f[2], Joined(buttons, ","));
            }
        } else if (v == "expect-dialog-has") {
            ASSERT_LT(mDialog, mRun.dialogs.size()) << mRun.Describe();
            const bench::DialogRecord& dialog = mRun.dialogs[mDialog++];
            EXPECT_EQ(arg(0), dialog.title);
            // Parts of its text; "+ID" a ticked box, "=TEXT" the button that answered it.
            for (size_t i = 1; i < f.size(); ++i) {
                if (f[i][0] == '+') {
                    EXPECT_TRUE(dialog.Control(std::stoi(f[i].substr(1)))->checked) << dialog;
                } else if (f[i][0] == '=') {
                    EXPECT_EQ(f[i].substr(1), dialog.answerText);
                } else if (isdigit(static_cast<unsigned char>(f[i][0])) &&
                           f[i].find('=') != std::string::npos) {  // "ID=TEXT": a control's text
                    const bench::DialogControl* control = dialog.Control(std::stoi(f[i]));
                    EXPECT_EQ(f[i].substr(f[i].find('=') + 1), control ? control->text : "<none>")
                        << dialog;
                } else {
                    EXPECT_NE(std::string::npos, dialog.text.find(f[i])) << dialog;
                }
            }
        } else if (v == "expect-log") {
            const size_t at = mRun.log.find(Unescape(arg(0)), mLogAt);
            EXPECT_NE(std::string::npos, at) << "not found after offset " << mLogAt << ":\n"
                                             << mRun.log;
            if (at != std::string::npos) mLogAt = at;
        } else if (v == "expect-no-log") {
            EXPECT_EQ(std::string::npos, mRun.log.find(Unescape(arg(0)))) << mRun.log;
        } else if (v == "expect-call") {
            mCalls[arg(0)];
            if (f.size() > 1 && f[1] != "none") mCalls[arg(0)].emplace_back(f.begin() + 1, f.end());
        } else if (v == "expect-changed") {
            mChanged.insert(mChanged.end(), f.begin(), f.end());
        } else if (v == "expect-no-window" && !f.empty()) {  // none of that program
            for (const bench::WindowRecord& window : mRun.windows)
                EXPECT_NE(f[0], window.exe) << window.title;
        } else if (v == "expect-no-window" || v == "expect-window") {
            EXPECT_EQ(v == "expect-window", mRun.ShowedWindow()) << mRun.Describe();
        } else if (v == "expect-changed-within") {
            mWithin = arg(0);
        } else if (v == "expect-reg") {
            ExpectRegistry(arg(0), arg(1), f.size() > 2 ? f[2] : "");
        } else if (v == "expect-setting") {
            const std::string data =
                ReadEntry("HKLM\\Software\\Roamwise\\" + arg(0) + "\\" + arg(1)).Data;
            EXPECT_EQ(f.size() > 2 && f[2] == "missing" ? "<missing>"
                      : f.size() > 2                    ? f[2]
                                                        : "",
                      std::string(data.c_str()));
        } else if (v == "expect-file") {
            ExpectGolden(arg(0), ScenarioDir() + "\\" + arg(1));
        } else if (v == "expect-same") {  // lines starting with a third field left out
            auto kept = [&](const std::string& path) {
                if (f.size() < 3) return bench::ReadFileText(path);
                std::string text;
                for (const std::string& line : bench::SplitLines(bench::ReadFileText(path)))
                    if (line.rfind(f[2], 0) != 0) text += line + "\n";
                return text;
            };
            const std::string a = kept(arg(0)), b = kept(arg(1));
            const size_t at =
                std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin();
            EXPECT_TRUE(a == b) << "from byte " << at << ":\n"
                                << a.substr(at, 200) << "\n---\n"
                                << b.substr(at, 200);
        } else if (v == "expect-line") {
            const std::vector<std::string> lines = bench::SplitLines(bench::ReadFileText(arg(0)));
            const std::string want = Unescape(arg(1));
            EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [&](const std::string& line) {
                return Matches(line, want);
            })) << Joined(lines, "\n").substr(0, 4000);
        } else if (v == "expect-no-file") {
            EXPECT_FALSE(bench::FileExists(arg(0)));
        } else if (v == "expect-ini") {
            char value[1024];
            GetPrivateProfileStringA(arg(1).c_str(), arg(2).c_str(), "<missing>", value,
                                     sizeof value, arg(0).c_str());
            EXPECT_EQ(f.size() > 3 ? f[3] : "", value);
        } else if (v == "expect-running" || v == "expect-closed") {
            const bool running = v == "expect-running";
            if (mStarted.count(arg(0))) {
                EXPECT_EQ(running, WaitForSingleObject(mStarted[arg(0)], running ? 0 : 5000) ==
                                       WAIT_TIMEOUT);
            }
            EXPECT_EQ(running,
                      FindWindowA(arg(0) == "opera" || arg(0) == "netscape" ? WindowClass(arg(0))
                                                                            : arg(0).c_str(),
                                  nullptr) != nullptr);
        } else {
            FAIL() << line.where << ": unknown line \"" << v << "\"";
        }
    }

    void ExpectRegistry(const std::string& path, const std::string& kind, const std::string& text) {
        const rwz::test::RawEntry entry = ReadEntry(path);
        if (kind == "missing") {
            EXPECT_EQ("<missing>", entry.Data) << path;
        } else if (kind == "multi") {
            EXPECT_EQ(static_cast<DWORD>(REG_MULTI_SZ), entry.Type) << path;
            EXPECT_EQ(std::string(2, '\0'),
                      entry.Data.substr(std::max<size_t>(entry.Data.size(), 2) - 2))
                << path;
            EXPECT_EQ(Replace(text, ",", "\n"),
                      Joined(rwz::test::MultiStringEntries(entry.Data), "\n"))
                << path;
        } else {
            rwz::test::RawEntry expected{REG_SZ, text + '\0'};
            if (kind == "expand") expected.Type = REG_EXPAND_SZ;
            if (kind == "dword") {
                const DWORD number = std::stoul(text);
                expected = {REG_DWORD, std::string(reinterpret_cast<const char*>(&number), 4)};
            } else if (kind == "hex") {
                expected = {REG_BINARY, ""};
                for (size_t i = 0; i + 1 < text.size(); i += 2)
                    expected.Data += static_cast<char>(std::stoi(text.substr(i, 2), nullptr, 16));
            }
            EXPECT_EQ(Describe(expected), Describe(entry)) << path;
        }
    }

    // The file, with CR LF line ends, against the golden file line by line.
    void ExpectGolden(const std::string& path, const std::string& goldenPath) {
        std::string text;
        ASSERT_TRUE(bench::ReadFile(path, text)) << path << "\n" << mRun.Describe();
        for (size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 1))
            ASSERT_TRUE(at > 0 && text[at - 1] == '\r') << path << ": bare LF at " << at;
        std::string golden = Replace(bench::ReadFileText(goldenPath), "\r\n", "\n");
        text = Replace(text, "\r\n", "\n");
        const std::vector<std::string> want = bench::SplitLines(golden);
        const std::vector<std::string> got = bench::SplitLines(text);
        bool same = want.size() == got.size() && (golden.empty() || text.back() == golden.back());
        for (size_t i = 0; same && i < want.size(); ++i) same = Matches(got[i], want[i]);
        // RWZ_UPDATE_GOLDEN=1 writes what the run gave, to be reviewed with git diff.
        if (!same && GetEnvironmentVariableA("RWZ_UPDATE_GOLDEN", nullptr, 0)) {
            bench::WriteFile(goldenPath, text);
            return;
        }
        EXPECT_TRUE(same) << path << " differs from " << goldenPath << ":\n" << text;
    }

    std::unique_ptr<bench::Machine> mMachine;
    std::unique_ptr<bench::NetworkStandIns> mNetwork;
    std::map<std::string, std::string> mPrograms;
    std::map<std::string, HANDLE> mStarted;
    std::vector<std::unique_ptr<BrowserWindow>> mWindows;
    std::vector<bench::Answer> mAnswers;
    bool mStrict = true;
    bench::RunResult mRun;
    bool mRan = false;
    bool mHidden = false;
    size_t mDialog = 0;
    size_t mLogAt = 0;
    DWORD mExit = 0;
    Fields mWatched;
    rwz::test::RawSnapshot mSnapshot;
    std::vector<std::string> mChanged;
    std::string mWithin;
    std::map<std::string, std::vector<Fields>> mCalls;
    std::map<std::string, std::string> mVars;
    std::unique_ptr<bench::DialogWatch> mWatch;
    PROCESS_INFORMATION mSession = {};
    HWND mWindow = nullptr;
    bool mSessionStrict = false;
    DWORD mTook = 0;
    std::atomic<bool> mEnded{false};
    std::vector<std::thread> mThreads;
};

class Scenarios : public testing::TestWithParam<Scenario> {};

TEST_P(Scenarios, Run) {
    Runner runner;
    for (const Line& line : GetParam().lines) {
        runner.Do(line);
        if (HasFatalFailure()) return;
    }
    runner.Flush();
}

INSTANTIATE_TEST_SUITE_P(Files, Scenarios, testing::ValuesIn(LoadScenarios()),
                         [](const testing::TestParamInfo<Scenario>& info) {
                             return info.param.name;
                         });

}  // namespace
