// Answers the dialogs a test's own process shows, from a second thread, so that
// a class-level test never hangs on a modal window: each dialog goes to the
// next step; one beyond the script is cancelled and counted as unexpected.
#pragma once

#include <windows.h>

#include <atomic>
#include <functional>
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

    explicit DialogScript(std::vector<Step> steps)
        : mSteps(std::move(steps)), mThread([this] { Watch(); }) {}
    ~DialogScript() {
        mStop = true;
        mThread.join();
    }

    // Steps that ran, and dialogs that came after the script was done.
    int StepsRun() const { return mStepsRun; }
    int Unexpected() const { return mUnexpected; }

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
        if (self->mStepsRun < static_cast<int>(self->mSteps.size())) {
            self->mSteps[self->mStepsRun](window);
            ++self->mStepsRun;
        } else {
            ++self->mUnexpected;
            PostMessageA(window, WM_COMMAND, IDCANCEL, 0);
        }
        return TRUE;
    }

    void Watch() {
        while (!mStop) {
            // A closed dialog's handle may come back for a later one.
            for (auto it = mSeen.begin(); it != mSeen.end();)
                it = IsWindow(*it) ? ++it : mSeen.erase(it);
            EnumWindows(Found, reinterpret_cast<LPARAM>(this));
            Sleep(20);
        }
    }

    std::vector<Step> mSteps;
    std::atomic<int> mStepsRun{0};
    std::atomic<int> mUnexpected{0};
    std::atomic<bool> mStop{false};
    std::set<HWND> mSeen;
    std::thread mThread;
};

}  // namespace rwz::test
