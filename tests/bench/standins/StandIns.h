// The stand-in browsers of the simulated machines. A machine registers a
// browser's program under App Paths in its .reg files; the program itself is
// built with the tests, so it is copied to that place once the machine is
// loaded:
//
//   bench::Machine machine("xp-laptop");
//   std::string opera = bench::InstallStandInOpera();  // C:\Program Files\Opera7\Opera.exe
//   HANDLE running = bench::StartStandIn(opera, bench::kOperaWindowClass);
#pragma once

#include <stdexcept>
#include <string>

#include "bench/Bench.h"

namespace bench {

// Window class of Opera's top-level windows, which the stand-in opens.
inline constexpr const char* kOperaWindowClass = "OpWindow";

// Copies the stand-in Opera to the program file the running prefix registers
// under App Paths\Opera.exe and returns that path; "" when no Opera is
// registered. Throws when the copy fails.
inline std::string InstallStandInOpera() {
    std::string program;
    if (!ReadRegistryString(HKEY_LOCAL_MACHINE,
                            "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Opera.exe",
                            "", program) ||
        program.empty()) {
        return std::string();
    }
    const std::string::size_type slash = program.find_last_of('\\');
    if (slash != std::string::npos) MakeFolders(program.substr(0, slash));
    CopyFileReplacing(BuildDir() + "\\tests\\FakeOpera.exe", program);
    return program;
}

// Starts an installed stand-in browser and waits until its window of
// `windowClass` is open; returns the process handle (the caller closes it).
// Throws when it does not start or opens no window within 10 s. "/hidden"
// keeps the window from being shown.
inline HANDLE StartStandIn(const std::string& program, const char* windowClass,
                           bool hidden = true) {
    PROCESS_INFORMATION process =
        LaunchProcess(program, "\"" + program + "\"" + (hidden ? " /hidden" : ""));
    CloseHandle(process.hThread);
    for (int i = 0; i < 200; ++i) {
        if (FindWindowA(windowClass, nullptr)) return process.hProcess;
        Sleep(50);
    }
    TerminateProcess(process.hProcess, 1);
    CloseHandle(process.hProcess);
    throw std::runtime_error(program + " opened no \"" + windowClass + "\" window");
}

}  // namespace bench
