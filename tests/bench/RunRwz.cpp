// Runs of Rwz.exe with the dialog watcher beside it.
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "bench/Bench.h"

namespace bench {

namespace {

// Owns a kernel handle.
using Handle = std::unique_ptr<void, decltype(&CloseHandle)>;

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

bool WatchResult::DialogsAsScripted() const {
    for (const DialogRecord& dialog : dialogs)
        if (!dialog.expected) return false;
    return scriptLeft == 0;
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
