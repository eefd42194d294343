// Runs of Rwz.exe with the dialog watcher beside it.
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <stdexcept>

#include "bench/Bench.h"

namespace bench {

namespace {

// Owns a kernel handle.
using Handle = std::unique_ptr<void, decltype(&CloseHandle)>;

std::string Unescape(const std::string& field) {
    std::string out;
    for (size_t i = 0; i < field.size(); ++i) {
        if (field[i] != '\\' || i + 1 == field.size()) {
            out += field[i];
            continue;
        }
        char next = field[++i];
        out += next == 't' ? '\t' : next == 'n' ? '\n' : next == 'r' ? '\r' : next;
    }
    return out;
}

std::vector<std::string> Fields(const std::string& line) {
    std::vector<std::string> fields;
    size_t start = 0;
    for (;;) {
        size_t tab = line.find('\t', start);
        fields.push_back(Unescape(line.substr(start, tab - start)));
        if (tab == std::string::npos) break;
        start = tab + 1;
    }
    return fields;
}

void ParseRecords(const std::string& text, WatchResult& result) {
    for (const std::string& line : SplitLines(text)) {
        std::vector<std::string> f = Fields(line);
        if (f[0] == "dialog" && f.size() >= 8) {
            DialogRecord dialog;
            dialog.pid = std::stoul(f[1]);
            dialog.exe = f[2];
            dialog.title = f[3];
            dialog.text = f[4];
            dialog.answerId = std::stoi(f[5]);
            dialog.answerText = f[6];
            dialog.expected = f[7] == "expected";
            // kind:id[:state]=text
            for (size_t i = 8; i < f.size(); ++i) {
                size_t equals = f[i].find('=');
                std::string head = f[i].substr(0, equals);
                DialogControl control;
                control.text = equals == std::string::npos ? "" : f[i].substr(equals + 1);
                size_t colon = head.find(':');
                control.kind = head.substr(0, colon);
                control.id = std::stoi(head.substr(colon + 1));
                size_t state = head.find(':', colon + 1);
                control.checked = state != std::string::npos && head.substr(state + 1) == "1";
                if (control.kind == "button") dialog.buttons.emplace_back(control.id, control.text);
                dialog.controls.push_back(control);
            }
            result.dialogs.push_back(dialog);
        } else if (f[0] == "window" && f.size() >= 5) {
            result.windows.push_back({static_cast<DWORD>(std::stoul(f[1])), f[2], f[3], f[4]});
        } else if (f[0] == "end" && f.size() >= 3) {
            result.watcherEnd = f[1];
            result.scriptLeft = std::stoul(f[2]);
        }
    }
}

std::string ScriptText(const std::vector<Answer>& script) {
    std::string text;
    for (const Answer& answer : script) {
        std::string line = "button=" + answer.button;
        if (!answer.title.empty()) line += "\ttitle=" + answer.title;
        for (const auto& check : answer.checks)
            line += (check.second ? "\tcheck=" : "\tuncheck=") + std::to_string(check.first);
        for (const auto& field : answer.fields)
            line += "\tset=" + std::to_string(field.first) + ":" + field.second;
        text += line + "\r\n";
    }
    return text;
}

std::string TempFolder() {
    char temp[MAX_PATH];
    GetTempPathA(MAX_PATH, temp);
    std::string folder = std::string(temp) + "rwzbench";
    MakeFolders(folder);
    return folder;
}

HANDLE StartProcess(const std::string& program, const std::string& args, const std::string& workDir,
                    DWORD* pid = nullptr) {
    std::string commandLine = "\"" + program + "\"";
    if (!args.empty()) commandLine += " " + args;
    PROCESS_INFORMATION process = LaunchProcess(program, commandLine, workDir);
    CloseHandle(process.hThread);
    if (pid) *pid = process.dwProcessId;
    return process.hProcess;
}

}  // namespace

const DialogControl* DialogRecord::Control(int id) const {
    for (const DialogControl& control : controls)
        if (control.id == id) return &control;
    return nullptr;
}

bool RunResult::ShowedWindow() const {
    for (const WindowRecord& window : windows)
        if (window.pid == pid) return true;
    return false;
}

std::vector<DialogRecord> WatchResult::UnexpectedDialogs() const {
    std::vector<DialogRecord> found;
    for (const DialogRecord& dialog : dialogs)
        if (!dialog.expected) found.push_back(dialog);
    return found;
}

std::ostream& operator<<(std::ostream& out, const DialogRecord& dialog) {
    out << (dialog.expected ? "dialog" : "UNEXPECTED dialog") << " of " << dialog.exe << " \""
        << dialog.title << "\": \"" << dialog.text << "\" controls [";
    for (size_t i = 0; i < dialog.controls.size(); ++i) {
        const DialogControl& control = dialog.controls[i];
        out << (i ? ", " : "") << control.kind << " " << control.id;
        if (control.kind == "check" || control.kind == "radio")
            out << (control.checked ? " (on)" : " (off)");
        out << " \"" << control.text << "\"";
    }
    return out << "] answered " << dialog.answerId << " " << dialog.answerText;
}

std::string RunResult::Describe() const {
    std::ostringstream out;
    out << "run of pid " << pid << ": exit code " << exitCode << (timedOut ? ", TIMED OUT" : "")
        << "\n";
    for (const DialogRecord& dialog : dialogs) out << "  " << dialog << "\n";
    for (const WindowRecord& window : windows)
        out << "  window of " << window.exe << " (pid " << window.pid << ") class "
            << window.windowClass << " \"" << window.title << "\"\n";
    if (scriptLeft) out << "  " << scriptLeft << " scripted answer(s) unused\n";
    out << "  watcher: " << (watcherEnd.empty() ? "no end record" : watcherEnd) << "\n";
    out << "  DEBUG.LOG" << (logExists ? ":\n" + log : " missing") << "\n";
    return out.str();
}

RunResult RunRwz(const std::string& args, std::vector<Answer> script, DWORD timeoutMs) {
    RunOptions options;
    options.args = args;
    options.script = std::move(script);
    options.timeoutMs = timeoutMs;
    return RunRwz(options);
}

DialogWatch::DialogWatch(const std::vector<Answer>& script, DWORD timeoutMs) {
    static int watches = 0;
    std::string id = std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++watches);
    std::string folder = TempFolder();
    std::string scriptFile = folder + "\\script-" + id + ".txt";
    mOutFile = folder + "\\dialogs-" + id + ".txt";
    WriteFile(scriptFile, ScriptText(script));
    DeleteFileA(mOutFile.c_str());
    std::string stopName = "RwzBenchStop-" + id;
    std::string readyName = "RwzBenchReady-" + id;
    mStop = CreateEventA(nullptr, TRUE, FALSE, stopName.c_str());
    Handle ready(CreateEventA(nullptr, TRUE, FALSE, readyName.c_str()), &CloseHandle);

    std::string watcherExe = BuildDir() + "\\tests\\DialogWatcher.exe";
    std::string watcherArgs = "--script \"" + scriptFile + "\" --out \"" + mOutFile +
                              "\" --stop-event " + stopName + " --ready-event " + readyName +
                              " --timeout " + std::to_string(timeoutMs / 1000 + 1);
    mWatcher = StartProcess(watcherExe, watcherArgs, "");
    HANDLE readyOrGone[] = {ready.get(), mWatcher};
    if (WaitForMultipleObjects(2, readyOrGone, FALSE, 15000) != WAIT_OBJECT_0) {
        TerminateProcess(mWatcher, 1);
        CloseHandle(mWatcher);
        CloseHandle(mStop);
        throw std::runtime_error("the dialog watcher did not start: " + watcherExe);
    }
}

DialogWatch::~DialogWatch() {
    Stop();
    CloseHandle(mWatcher);
    CloseHandle(mStop);
}

const WatchResult& DialogWatch::Stop() {
    if (mStopped) return mResult;
    mStopped = true;
    SetEvent(mStop);
    if (WaitForSingleObject(mWatcher, 10000) != WAIT_OBJECT_0) TerminateProcess(mWatcher, 1);
    ParseRecords(ReadFileText(mOutFile), mResult);
    return mResult;
}

RunResult RunRwz(const RunOptions& options) {
    std::string program =
        options.program.empty() ? BuildDir() + "\\bin\\Rwz.exe" : WindowsPath(options.program);
    if (!FileExists(program)) throw std::runtime_error("no program " + program + " (not built?)");
    CopyFileReplacing(program, InstalledRwz());

    DialogWatch watch(options.script, options.timeoutMs + 30000);
    RunResult result;
    std::string workDir = options.workDir.empty() ? InstallDir() : options.workDir;
    Handle process(StartProcess(InstalledRwz(), options.args, workDir, &result.pid), &CloseHandle);
    if (WaitForSingleObject(process.get(), options.timeoutMs) != WAIT_OBJECT_0) {
        result.timedOut = true;
        TerminateProcess(process.get(), 259);
        WaitForSingleObject(process.get(), 5000);
    }
    GetExitCodeProcess(process.get(), &result.exitCode);
    static_cast<WatchResult&>(result) = watch.Stop();
    result.logExists = ReadFile(DebugLogPath(), result.log);

    if (result.timedOut)
        ADD_FAILURE() << "Rwz.exe " << options.args << " did not end within " << options.timeoutMs
                      << " ms\n"
                      << result.Describe();
    if (options.strictDialogs && !result.DialogsAsScripted())
        ADD_FAILURE() << "Rwz.exe " << options.args << ": the dialogs were not the ones scripted\n"
                      << result.Describe();
    return result;
}

}  // namespace bench
