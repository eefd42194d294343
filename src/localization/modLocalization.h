// The shared localization instance that the windows use, and the one way the
// program shows a message box, so that every box looks alike.
#pragma once

#include <windows.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "localization/clsLocalization.h"

namespace rwz {

// The instance the windows use, created on first use.
clsLocalization& Localization();
// Forgets the shared instance; the next use reads the language choice again.
void ResetLocalization();

// Localization().GetMessageText.
std::string MessageText(int16_t aintKey, const std::vector<std::string>& avarParms = {});

// Texts joined by an empty line (two CR LF), as boxes show several messages.
std::string JoinMessages(std::initializer_list<std::string> texts);

// A modal message box owned by the active window, with the program's title
// ("Roamwise") unless another is given. Returns the button chosen (IDOK ...).
int ShowMessage(const std::string& astrText, UINT auintStyle,
                const std::string& astrTitle = std::string());

}  // namespace rwz
