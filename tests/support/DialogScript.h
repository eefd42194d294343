// The one answerer of the dialogs a test's own process shows (message boxes
// included), run from a second thread so that a class-level test never hangs on
// a modal window. Each dialog is recorded, then given to the next step of the
// script; a dialog beyond the script gets the default answer (IDCANCEL unless
// SetAnswer says otherwise) and is counted as unexpected.
//
//   DialogScript boxes({});                   // no steps: every box recorded, cancelled
//   boxes.SetAnswer(IDOK, {IDC_SOME_BOX});    // ...or ticked and answered with OK
//   DialogScript script({[](HWND dialog) { ... }});
//   script.Boxes()                            // what was shown, in order
#pragma once

#include <windows.h>

#include <atomic>
#include <functional>
#include <iterator>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace rwz::test {

// The window text of a window or control.
inline std::string Text(HWND window) {
    char text[4096] = "";
    GetWindowTextA(window, text, sizeof text);
    return text;
}

class DialogScript {
  public:
    using Step = std::function<void(HWND)>;
    struct Box {
        std::string Title;
        std::string Text;  // the non-empty static texts, joined by "\n"
        bool Exclamation = false;
        bool Information = false;
        std::vector<std::pair<int, std::string>> Buttons;  // id, caption (check boxes too)
        std::vector<int> Ticked;                           // boxes the default answer ticked
    };

    explicit DialogScript(std::vector<Step> steps)
        : mSteps(std::move(steps)), mThread([this] { Watch(); }) {}
    ~DialogScript() {
        mStop = true;
        mThread.join();
    }
    DialogScript(const DialogScript&) = delete;
    DialogScript& operator=(const DialogScript&) = delete;

    // Steps that ran, and dialogs that came after the script was done.
    int StepsRun() const { return mStepsRun; }
    int Unexpected() const { return mUnexpected; }
    std::vector<Box> Boxes() {
        std::lock_guard<std::mutex> lock(mMutex);
        return mBoxes;
    }
    void Clear() {
        std::lock_guard<std::mutex> lock(mMutex);
        mBoxes.clear();
    }
    // The answer to every dialog beyond the script, after ticking these boxes.
    void SetAnswer(int button, std::vector<int> tick = {}) {
        std::lock_guard<std::mutex> lock(mMutex);
        mAnswer = button;
        mTick = std::move(tick);
    }

  private:
    static BOOL CALLBACK Found(HWND window, LPARAM param) {
        auto* self = reinterpret_cast<DialogScript*>(param);
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        char className[16] = "";
        GetClassNameA(window, className, sizeof className);
        // Visible means initialised: dialogs are shown after WM_INITDIALOG.
        if (process != GetCurrentProcessId() || std::string(className) != "#32770" ||
            !IsWindowVisible(window) || !self->mSeen.insert(window).second)
            return TRUE;
        self->Handle(window);
        return TRUE;
    }

    static BOOL CALLBACK Child(HWND control, LPARAM param) {
        Box& box = *reinterpret_cast<Box*>(param);
        char className[64] = "";
        GetClassNameA(control, className, sizeof className);
        const std::string kind = className, text = Text(control);
        if (kind == "Static" && (GetWindowLongA(control, GWL_STYLE) & SS_TYPEMASK) == SS_ICON) {
            const auto icon = reinterpret_cast<HICON>(SendMessageA(control, STM_GETICON, 0, 0));
            box.Exclamation |= icon == LoadIconA(nullptr, IDI_EXCLAMATION);
            box.Information |= icon == LoadIconA(nullptr, IDI_INFORMATION);
        } else if (kind == "Static" && !text.empty()) {
            box.Text += (box.Text.empty() ? "" : "\n") + text;
        } else if (kind == "Button") {
            box.Buttons.emplace_back(GetDlgCtrlID(control), text);
        }
        return TRUE;
    }

    void Handle(HWND window) {
        Box box;
        box.Title = Text(window);
        EnumChildWindows(window, Child, reinterpret_cast<LPARAM>(&box));
        if (mStepsRun < static_cast<int>(mSteps.size())) {
            Record(box);
            mSteps[mStepsRun](window);
            ++mStepsRun;
            return;
        }
        ++mUnexpected;
        int answer;
        {
            std::lock_guard<std::mutex> lock(mMutex);
            answer = mAnswer;
            for (int id : mTick) {
                // Sent, so that the box is ticked before the answer arrives.
                if (HWND control = GetDlgItem(window, id)) {
                    SendMessageA(control, BM_CLICK, 0, 0);
                    box.Ticked.push_back(id);
                }
            }
        }
        Record(box);
        PostMessageA(window, WM_COMMAND, MAKEWPARAM(answer, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(window, answer)));
    }

    void Record(const Box& box) {
        std::lock_guard<std::mutex> lock(mMutex);
        mBoxes.push_back(box);
    }

    void Watch() {
        while (!mStop) {
            // A closed dialog's handle may come back for a later one.
            for (auto it = mSeen.begin(); it != mSeen.end();)
                it = IsWindow(*it) ? std::next(it) : mSeen.erase(it);
            EnumWindows(Found, reinterpret_cast<LPARAM>(this));
            Sleep(20);
        }
    }

    std::vector<Step> mSteps;
    std::atomic<int> mStepsRun{0};
    std::atomic<int> mUnexpected{0};
    std::atomic<bool> mStop{false};
    std::mutex mMutex;
    std::vector<Box> mBoxes;
    int mAnswer = IDCANCEL;
    std::vector<int> mTick;
    std::set<HWND> mSeen;
    std::thread mThread;
};

}  // namespace rwz::test
