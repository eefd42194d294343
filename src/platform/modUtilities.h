// The helpers that ask the running system: conditional profile values for
// this machine, file existence, the program's folder and help file. The text
// helpers and the settings store they sit on are included for the callers.
#pragma once

#include <string>

#include "platform/modProgramSettings.h"
#include "platform/modText.h"

namespace rwz {

// Resolves a conditional profile value such as IsWindowsXP("a","b") for the
// running system.
std::string EvaluateCondition(const std::string& astrValue);

bool FileExists(const std::string& astrPath);
// The text of a NUL-terminated string at an address, cut at its first NUL.
std::string StringFromPointer(const char* apszText);

// The folder of the running executable, without a trailing separator.
std::string ProgramFolder();
// The help file: program folder + "\Rwz.hlp>main".
std::string HelpFilePath();

}  // namespace rwz
