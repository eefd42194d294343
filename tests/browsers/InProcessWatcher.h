// Answers, and records, every dialog box (message boxes included) that this
// test process shows, from a thread of its own, so that a class-level test
// never hangs on a modal window and can check what it said.
//
//   InProcessWatcher watcher;                    // answers with OK
//   watcher.SetAnswer(IDOK, {IDC_SOME_CHECKBOX}); // ticks a box first
//   ... code that shows a dialog ...
//   watcher.Boxes()                               // what was shown, in order
#pragma once

#include <windows.h>

#include <atomic>
#include <iterator>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace rwz::test {

class InProcessWatcher {
  public:
    struct Box {
        std::string Title;
        std::string Text;  // the non-empty static texts, joined by "\n"
        bool Exclamation = false;
        bool Information = false;
        std::vector<std::pair<int, std::string>> Buttons;  // id, caption (check boxes too)
        std::vector<int> Ticked;                           // check boxes the watcher ticked
    };

    InProcessWatcher() : mThread([this] { Watch(); }) {}
    ~InProcessWatcher() {
        mStop = true;
        mThread.join();
    }
    InProcessWatcher(const InProcessWatcher&) = delete;
    InProcessWatcher& operator=(const InProcessWatcher&) = delete;

    std::vector<Box> Boxes() {
        std::lock_guard<std::mutex> lock(mMutex);
        return mBoxes;
    }
    void Clear() {
        std::lock_guard<std::mutex> lock(mMutex);
        mBoxes.clear();
    }
    // The button every later box is answered with, after ticking the check
    // boxes of these ids (those the box has).
    void SetAnswer(int aintButton, std::vector<int> acolTick = {}) {
        std::lock_guard<std::mutex> lock(mMutex);
        mintAnswer = aintButton;
        mcolTick = std::move(acolTick);
    }

  private:
    static BOOL CALLBACK Found(HWND window, LPARAM param) {
        auto* self = reinterpret_cast<InProcessWatcher*>(param);
        DWORD process = 0;
        GetWindowThreadProcessId(window, &process);
        char className[64] = {};
        GetClassNameA(window, className, sizeof className);
        if (process != GetCurrentProcessId() || std::string(className) != "#32770") return TRUE;
        if (!IsWindowVisible(window)) return TRUE;  // not yet ready to be answered
        if (!self->mAnswered.insert(window).second) return TRUE;
        self->Answer(window);
        return TRUE;
    }

    static BOOL CALLBACK Child(HWND control, LPARAM param) {
        auto* box = reinterpret_cast<std::pair<Box*, HWND>*>(param);
        char className[64] = {};
        GetClassNameA(control, className, sizeof className);
        char text[4096] = {};
        GetWindowTextA(control, text, sizeof text);
        const std::string kind = className;
        const LONG style = GetWindowLongA(control, GWL_STYLE);
        if (kind == "Static") {
            if ((style & SS_TYPEMASK) == SS_ICON) {
                const HICON icon =
                    reinterpret_cast<HICON>(SendMessageA(control, STM_GETICON, 0, 0));
                if (icon == LoadIconA(nullptr, IDI_EXCLAMATION)) box->first->Exclamation = true;
                if (icon == LoadIconA(nullptr, IDI_INFORMATION)) box->first->Information = true;
            } else if (text[0]) {
                if (!box->first->Text.empty()) box->first->Text += "\n";
                box->first->Text += text;
            }
        } else if (kind == "Button") {
            box->first->Buttons.emplace_back(GetDlgCtrlID(control), text);
        }
        return TRUE;
    }

    void Answer(HWND window) {
        Box box;
        char text[1024] = {};
        GetWindowTextA(window, text, sizeof text);
        box.Title = text;
        std::pair<Box*, HWND> context(&box, window);
        EnumChildWindows(window, Child, reinterpret_cast<LPARAM>(&context));
        int answer;
        std::vector<int> tick;
        {
            std::lock_guard<std::mutex> lock(mMutex);
            answer = mintAnswer;
            tick = mcolTick;
        }
        for (int id : tick) {
            if (HWND control = GetDlgItem(window, id)) {
                // Sent, so that the box is ticked before the answer arrives.
                SendMessageA(control, BM_CLICK, 0, 0);
                box.Ticked.push_back(id);
            }
        }
        {
            std::lock_guard<std::mutex> lock(mMutex);
            mBoxes.push_back(box);
        }
        PostMessageA(window, WM_COMMAND, MAKEWPARAM(answer, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(window, answer)));
    }

    void Watch() {
        while (!mStop) {
            // A closed box's handle may come back for a later one.
            for (auto it = mAnswered.begin(); it != mAnswered.end();)
                it = IsWindow(*it) ? std::next(it) : mAnswered.erase(it);
            EnumWindows(Found, reinterpret_cast<LPARAM>(this));
            Sleep(20);
        }
    }

    std::atomic<bool> mStop{false};
    std::mutex mMutex;
    std::vector<Box> mBoxes;
    std::set<HWND> mAnswered;
    int mintAnswer = IDOK;
    std::vector<int> mcolTick;
    std::thread mThread;
};

}  // namespace rwz::test
