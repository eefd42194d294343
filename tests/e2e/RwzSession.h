// Rwz.exe with its window shown, driven like a user at the menu: the test
// sends menu commands to the main window and the dialog watcher answers what
// they open. SendMessage waits until the command is done, so the dialogs of
// one command are answered before the next is sent.
//
//   RwzSession rwz({bench::Answer("OK").Title("Hosts File")});
//   rwz.Command(IDM_ADDIN_FIRST);
//   rwz.Close();  // then rwz.dialogs, rwz.log
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "bench/Bench.h"

class RwzSession : public bench::WatchResult {
  public:
    // Installs the built Rwz.exe, starts it and waits until its main window is shown.
    explicit RwzSession(const std::vector<bench::Answer>& script) : mWatch(script) {
        bench::CopyFileReplacing(bench::BuildDir() + "\\bin\\Rwz.exe", bench::InstalledRwz());
        mProcess = bench::LaunchProcess(bench::InstalledRwz(), "\"" + bench::InstalledRwz() + "\"",
                                        bench::InstallDir());
        for (int waited = 0; waited < 30000 && !mWindow; waited += 100) {
            Sleep(100);
            EnumWindows(&FindMain, reinterpret_cast<LPARAM>(this));
        }
        if (!mWindow) ADD_FAILURE() << "Rwz.exe showed no main window";
    }
    ~RwzSession() {
        if (mProcess.hProcess) Close();
    }
    RwzSession(const RwzSession&) = delete;
    RwzSession& operator=(const RwzSession&) = delete;

    // Runs a menu command; false when the window did not finish it in time.
    bool Command(int id, DWORD timeoutMs = 60000) { return Send(WM_COMMAND, id, timeoutMs); }

    // Closes the window as the user does, waits for the program's end and
    // collects the dialogs and the debug log.
    void Close() {
        Send(WM_CLOSE, 0, 60000);
        if (WaitForSingleObject(mProcess.hProcess, 30000) != WAIT_OBJECT_0) {
            ADD_FAILURE() << "Rwz.exe did not end after its window was closed";
            TerminateProcess(mProcess.hProcess, 259);
            WaitForSingleObject(mProcess.hProcess, 5000);
        }
        CloseHandle(mProcess.hProcess);
        CloseHandle(mProcess.hThread);
        mProcess = {};
        static_cast<bench::WatchResult&>(*this) = mWatch.Stop();
        log = bench::ReadFileText(bench::DebugLogPath());
    }

    std::string log;

  private:
    static BOOL CALLBACK FindMain(HWND window, LPARAM self) {
        auto* session = reinterpret_cast<RwzSession*>(self);
        char name[64] = "";
        DWORD pid = 0;
        GetWindowThreadProcessId(window, &pid);
        GetClassNameA(window, name, sizeof name);
        // Visible: start-up (and whatever it asked) is over.
        if (pid != session->mProcess.dwProcessId || std::string(name) != "RoamwiseMain" ||
            !IsWindowVisible(window))
            return TRUE;
        session->mWindow = window;
        return FALSE;
    }

    bool Send(UINT message, WPARAM wParam, DWORD timeoutMs) {
        DWORD_PTR result = 0;
        return mWindow && SendMessageTimeoutA(mWindow, message, wParam, 0, SMTO_NORMAL, timeoutMs,
                                              &result) != 0;
    }

    bench::DialogWatch mWatch;
    PROCESS_INFORMATION mProcess = {};
    HWND mWindow = nullptr;
};
