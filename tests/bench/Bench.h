// The end-to-end test bench, Windows side: simulated machines and runs of
// Rwz.exe with a dialog watcher beside it, each case in a fresh Wine prefix of
// its own (run-tests.sh). README.md shows how a test uses it.
#pragma once

#include <windows.h>

#include <memory>
#include <ostream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace bench {

// --- Paths and files -------------------------------------------------------

// "/work/main/x" -> "Z:\work\main\x" (Wine maps the Unix root to Z:).
std::string WindowsPath(const std::string& unixPath);
// The source tree and the 64-bit build tree, as Windows paths; from the
// environment variables RWZ_SOURCE_DIR and RWZ_BUILD_DIR that run-tests.sh
// passes. Throw when they are not set.
std::string SourceDir();
std::string BuildDir();
// Where the bench installs Rwz.exe in the prefix, and so where DEBUG.LOG is.
std::string InstallDir();    // C:\Program Files\Roamwise
std::string InstalledRwz();  // ...\Rwz.exe
std::string DebugLogPath();  // ...\DEBUG.LOG

bool FileExists(const std::string& path);
// The whole file; false (or "") when it cannot be read.
bool ReadFile(const std::string& path, std::string& contents);
std::string ReadFileText(const std::string& path);
// Creates or replaces the file (creating its folder); throws on failure.
void WriteFile(const std::string& path, const std::string& contents);
// Creates a folder and its parents.
void MakeFolders(const std::string& path);
// Copies a file, replacing the target. The prefix's files are hard links
// shared with the base prefix, so the target is deleted first, never
// overwritten in place.
void CopyFileReplacing(const std::string& from, const std::string& to);
// Copies a folder's contents onto another folder, recursively.
void CopyTree(const std::string& from, const std::string& to);

// Starts a process (`application` "" takes it from the command line), trying
// again when Wine fails to start it for a passing reason. Throws when it
// cannot be started. The caller closes both handles.
PROCESS_INFORMATION LaunchProcess(const std::string& application, const std::string& commandLine,
                                  const std::string& workDir = std::string());

// Runs a command line and waits; returns its exit code. Throws when it cannot
// be started or does not end within the time limit (it is then killed).
DWORD RunAndWait(const std::string& commandLine, DWORD timeoutMs = 30000);

// The names of the files (not folders) matching a pattern ("C:\\x\\*.reg"), sorted.
std::vector<std::string> FindFiles(const std::string& pattern);

// Splits text into lines at CR LF or LF.
std::vector<std::string> SplitLines(const std::string& text);

// A string value (REG_SZ or REG_EXPAND_SZ, unexpanded) of the running prefix's
// registry; `value` "" is the default value. False when key or value is missing.
bool ReadRegistryString(HKEY root, const std::string& key, const std::string& value,
                        std::string& data);

// --- Simulated machines ----------------------------------------------------

// A folder tests/machines/<name>/ turned into the machine of the running
// prefix: `version` (the Windows version Wine emulates for Rwz.exe: win95,
// win98, winme, nt40, win2k, winxp, win2003, or e.g. win10 for an unsupported
// system), *.reg files imported with Wine's regedit, and an optional files/
// folder copied onto C:\.
class Machine {
  public:
    // Loads the machine into the running prefix; throws std::runtime_error on
    // any failure. `name` is a folder name under tests/machines or a path.
    explicit Machine(const std::string& name);

    const std::string& Name() const { return mName; }
    const std::string& Folder() const { return mFolder; }

    // Imports one more .reg file (a Windows path) into the prefix.
    static void ImportRegFile(const std::string& path);

  private:
    std::string mName;
    std::string mFolder;
};

// --- Runs of Rwz.exe -------------------------------------------------------

// How one expected dialog is answered: the button's text ("&Yes" or "Yes";
// "&" and case are ignored) or "#" and its id ("#6"); optionally only a dialog
// whose title contains `title`; optionally, before the button is pressed,
// check boxes ticked or cleared and option buttons chosen (by a click), then
// texts put into controls (edit fields), all by control id.
struct Answer {
    Answer(const char* buttonText) : button(buttonText) {}
    Answer(std::string buttonText) : button(std::move(buttonText)) {}
    Answer& Title(std::string part) {
        title = std::move(part);
        return *this;
    }
    Answer& Set(int controlId, std::string text) {
        fields.emplace_back(controlId, std::move(text));
        return *this;
    }
    Answer& Check(int controlId) {
        checks.emplace_back(controlId, true);
        return *this;
    }
    Answer& Uncheck(int controlId) {
        checks.emplace_back(controlId, false);
        return *this;
    }

    std::string button;
    std::string title;
    std::vector<std::pair<int, std::string>> fields;
    std::vector<std::pair<int, bool>> checks;  // id, ticked
};

// A control of a dialog as it was shown, before the answer.
struct DialogControl {
    std::string kind;  // "button", "check", "radio" or "edit"
    int id = 0;
    bool checked = false;  // check boxes and option buttons
    std::string text;      // caption, or an edit field's contents
};

// One dialog box the watcher saw and answered.
struct DialogRecord {
    DWORD pid = 0;
    std::string exe;  // image name of the process that showed it
    std::string title;
    std::string text;                                  // all static texts, joined by "\n"
    std::vector<std::pair<int, std::string>> buttons;  // push buttons: id, caption
    std::vector<DialogControl> controls;               // all of them, in tab order
    int answerId = -1;
    std::string answerText;
    bool expected = false;  // answered by the script (else: by its default button)

    // The control with that id; nullptr when there is none.
    const DialogControl* Control(int id) const;
};

// One visible top-level window (not a dialog) of another process.
struct WindowRecord {
    DWORD pid = 0;
    std::string exe;
    std::string windowClass;
    std::string title;
};

struct RunOptions {
    std::string args;            // the command-line text after the program path
    std::vector<Answer> script;  // the expected dialogs, in order
    DWORD timeoutMs = 30000;     // time limit of the run
    std::string program;         // the exe to install as Rwz.exe; default: the built one
    std::string workDir;         // default: the install folder
    bool strictDialogs = true;   // unexpected or missing dialogs fail the test
};

// What the dialog watcher saw.
struct WatchResult {
    std::vector<DialogRecord> dialogs;
    std::vector<WindowRecord> windows;  // of every process but the test's own
    size_t scriptLeft = 0;              // scripted answers no dialog used
    std::string watcherEnd;             // "stopped", or "timeout"

    // Whether there was no unexpected dialog and no unused answer.
    bool DialogsAsScripted() const;
};

// The dialog watcher, a thread of the test process running from construction
// to Stop() (or destruction) beside whatever the test does meanwhile: code of
// this process that shows message boxes, or programs the test starts. RunRwz
// uses one.
//
//   bench::DialogWatch watch({bench::Answer("&Yes")});
//   ... code that asks a question ...
//   EXPECT_TRUE(watch.Stop().DialogsAsScripted());
class DialogWatch {
  public:
    // The watcher ends by itself after `timeoutMs`.
    explicit DialogWatch(const std::vector<Answer>& script = {}, DWORD timeoutMs = 120000);
    ~DialogWatch();
    DialogWatch(const DialogWatch&) = delete;
    DialogWatch& operator=(const DialogWatch&) = delete;

    // Stops the watcher (once) and returns what it saw.
    const WatchResult& Stop();

    class Watcher;  // what the watcher's thread keeps

  private:
    std::unique_ptr<Watcher> mWatcher;
    HANDLE mStop;
    std::thread mThread;
    WatchResult mResult;
};

struct RunResult : WatchResult {
    DWORD pid = 0;
    DWORD exitCode = 0;
    bool timedOut = false;  // killed at the time limit (also fails the test)
    bool logExists = false;
    std::string log;  // DEBUG.LOG after the run

    // Whether the program showed a visible top-level window other than a dialog.
    bool ShowedWindow() const;
    std::vector<std::string> LogLines() const { return SplitLines(log); }
    // Everything above, for failure messages.
    std::string Describe() const;
};

// Installs the program as C:\Program Files\Roamwise\Rwz.exe, starts the
// dialog watcher, runs the program with the command line, waits for its end
// (killing it at the time limit) and collects what happened.
RunResult RunRwz(const RunOptions& options);
RunResult RunRwz(const std::string& args, std::vector<Answer> script = {}, DWORD timeoutMs = 30000);

std::ostream& operator<<(std::ostream& out, const DialogRecord& dialog);

}  // namespace bench
