// The stand-in browsers of the simulated machines. A machine registers a
// browser's program under App Paths in its .reg files; the program itself is
// built with the tests, so it is copied to that place once the machine is
// loaded:
//
//   bench::Machine machine("xp-laptop");
//   std::string opera = bench::InstallStandInOpera();  // C:\Program Files\Opera7\Opera.exe
#pragma once

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

}  // namespace bench
