#include "platform/modUtilities.h"

#include <windows.h>

#include "platform/Procedure.h"
#include "platform/Win32Handles.h"
#include "platform/modAPI.h"

namespace rwz {

// ---------------------------------------------------------------------------
// Program settings store: "\HKEY_LOCAL_MACHINE\Software\<product>\<section>"
// ---------------------------------------------------------------------------

namespace {

const char kSoftwareKey[] = "\\HKEY_LOCAL_MACHINE\\Software";

std::string ProductPath(const std::string& astrProduct) {
    return std::string(kSoftwareKey) + "\\" + astrProduct;
}

std::string SectionPath(const std::string& astrProduct, const std::string& astrSection) {
    return ProductPath(astrProduct) + "\\" + astrSection;
}

}  // namespace

void SaveProgramSetting(const std::string& astrProduct, const std::string& astrSection,
                        const std::string& astrKey, const std::string& astrValue) {
    Procedure proc("modUtilities", "SaveProgramSetting");
    proc.Run([&] {
        clsEasyRegistry registry;
        registry.SetSuppressErrors(true);
        registry.SetCurrentKey(kSoftwareKey);
        if (registry.LastError() != 0) return;
        registry.MakeKey(astrProduct + "\\" + astrSection);
        if (registry.LastError() != 0) return;
        registry.SetCurrentKey(SectionPath(astrProduct, astrSection));
        if (registry.LastError() != 0) return;
        registry.SetValueOf(astrKey, kRegString, astrValue);
    });
}

std::string GetProgramSetting(const std::string& astrProduct, const std::string& astrSection,
                              const std::string& astrKey, const std::string& astrDefault) {
    Procedure proc("modUtilities", "GetProgramSetting");
    return proc.Run(
        [&] {
            clsEasyRegistry registry;
            registry.SetSuppressErrors(true);
            registry.SetCurrentKey(SectionPath(astrProduct, astrSection));
            if (registry.LastError() != 0) return astrDefault;
            RegistryValue value = registry.ValueOf(astrKey);
            if (registry.LastError() != 0) return astrDefault;
            return value.Text;
        },
        astrDefault);
}

std::vector<RegistryValueRow> GetAllProgramSettings(const std::string& astrProduct,
                                                    const std::string& astrSection) {
    Procedure proc("modUtilities", "GetAllProgramSettings");
    return proc.Run([&] {
        clsEasyRegistry registry;
        registry.SetSuppressErrors(true);
        registry.SetCurrentKey(SectionPath(astrProduct, astrSection));
        if (registry.LastError() != 0) return std::vector<RegistryValueRow>();
        return registry.DirValue();
    });
}

void DeleteProgramSetting(const std::string& astrProduct, const std::string& astrSection,
                          const std::string& astrKey) {
    Procedure proc("modUtilities", "DeleteProgramSetting");
    proc.Run([&] {
        clsEasyRegistry registry;
        registry.SetSuppressErrors(true);
        if (!astrKey.empty()) {
            registry.SetCurrentKey(SectionPath(astrProduct, astrSection));
            if (registry.LastError() == 0) registry.DeleteValue(astrKey);
        } else {
            registry.SetCurrentKey(ProductPath(astrProduct));
            if (registry.LastError() == 0) registry.DeleteKey(astrSection);
        }
    });
}

// ---------------------------------------------------------------------------
// Conditional profile values
// ---------------------------------------------------------------------------

namespace {

enum Condition { kIs9x, kIsNT, kIs2000, kIsXP, kIsXPHome, kIs2003, kIsNTPlatform, kNoCondition };

// Checked in this order; the first head the value starts with decides.
const char* const kConditionHeads[] = {
    "iswindows9x(",     "iswindowsnt(",   "iswindows2000(", "iswindowsxp(",
    "iswindowsxphome(", "iswindows2003(", "isntplatform(",
};

Condition ConditionOf(const std::string& astrStripped) {
    const std::string lower = ToLower(astrStripped);
    for (int i = 0; i < kNoCondition; ++i) {
        if (lower.compare(0, std::char_traits<char>::length(kConditionHeads[i]),
                          kConditionHeads[i]) == 0) {
            return static_cast<Condition>(i);
        }
    }
    return kNoCondition;
}

bool Holds(Condition condition, const std::string& astrOSTag, bool ablnXPHome,
           bool ablnNTPlatform) {
    switch (condition) {
        case kIs9x:
            return astrOSTag == kOS9x;
        case kIsNT:
            return astrOSTag == kOSNT;
        case kIs2000:
            return astrOSTag == kOS2K;
        case kIsXP:
            return astrOSTag == kOSXP;
        case kIsXPHome:
            return ablnXPHome;
        case kIs2003:
            return astrOSTag == kOS2003;
        case kIsNTPlatform:
            return ablnNTPlatform;
        default:
            return false;
    }
}

// The first quoted text when the condition holds, the second otherwise.
std::string Choose(const std::string& astrStripped, bool ablnHolds) {
    const std::vector<std::string> pieces = Split(astrStripped, "\"");
    const size_t index = ablnHolds ? 1 : 3;
    return index < pieces.size() ? pieces[index] : std::string();
}

}  // namespace

std::string EvaluateCondition(const std::string& astrValue) {
    Procedure proc("modUtilities", "EvaluateCondition");
    return proc.Run([&] {
        const std::string stripped = StripNulls(astrValue);
        const Condition condition = ConditionOf(stripped);
        if (condition == kNoCondition) return stripped;
        // Only the system fact the condition asks about is looked up.
        bool holds = false;
        if (condition == kIsXPHome) {
            holds = IsXPHomeEdition();
        } else if (condition == kIsNTPlatform) {
            holds = IsNTPlatform();
        } else {
            holds = Holds(condition, GetCurrentOSTag(), false, false);
        }
        return Choose(stripped, holds);
    });
}

std::string EvaluateConditionFor(const std::string& astrValue, const std::string& astrOSTag,
                                 bool ablnXPHome, bool ablnNTPlatform) {
    const std::string stripped = StripNulls(astrValue);
    const Condition condition = ConditionOf(stripped);
    if (condition == kNoCondition) return stripped;
    return Choose(stripped, Holds(condition, astrOSTag, ablnXPHome, ablnNTPlatform));
}

// ---------------------------------------------------------------------------
// Validation and conversion
// ---------------------------------------------------------------------------

std::string StripNulls(const std::string& astrText) {
    return TrimRight(astrText.substr(0, astrText.find('\0')));
}

bool IsValidIP(const std::string& astrText) {
    Procedure proc("modUtilities", "IsValidIP");
    return proc.Run([&] {
        if (astrText.empty()) return true;
        if (astrText.find_first_not_of("0123456789.") != std::string::npos) return false;
        const std::vector<std::string> pieces = Split(astrText, ".");
        if (pieces.size() != 4) return false;
        for (const std::string& piece : pieces) {
            if (piece.empty() || piece.size() >= 4 || std::stoi(piece) > 255) return false;
        }
        return true;
    });
}

std::vector<uint8_t> CommaListToMultiString(const std::string& astrText) {
    if (astrText.empty()) return {0, 0};
    std::vector<uint8_t> bytes;
    bytes.reserve(astrText.size());
    for (char c : astrText) bytes.push_back(c == ',' ? 0 : static_cast<uint8_t>(c));
    return bytes;
}

bool FileExists(const std::string& astrPath) {
    Procedure proc("modUtilities", "FileExists");
    return proc.Run([&] {
        WIN32_FIND_DATAA found;
        FindHandle listing(FindFirstFileA(astrPath.c_str(), &found));
        return static_cast<bool>(listing) && found.cFileName[0] != '\0';
    });
}

std::string StringFromPointer(const char* apszText) {
    return apszText ? std::string(apszText) : std::string();
}

// ---------------------------------------------------------------------------
// Text helpers
// ---------------------------------------------------------------------------

std::string Trim(const std::string& text) {
    return TrimLeft(TrimRight(text));
}

std::string TrimLeft(const std::string& text) {
    const size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? std::string() : text.substr(first);
}

std::string TrimRight(const std::string& text) {
    const size_t last = text.find_last_not_of(' ');
    return last == std::string::npos ? std::string() : text.substr(0, last + 1);
}

// The system's own ANSI case mapping, as for registry and file names.
std::string ToLower(std::string text) {
    if (!text.empty()) CharLowerBuffA(&text[0], static_cast<DWORD>(text.size()));
    return text;
}

std::string ToUpper(std::string text) {
    if (!text.empty()) CharUpperBuffA(&text[0], static_cast<DWORD>(text.size()));
    return text;
}

std::vector<std::string> Split(const std::string& text, const std::string& separator) {
    if (separator.empty()) return {text};
    std::vector<std::string> pieces;
    size_t start = 0;
    for (size_t found; (found = text.find(separator, start)) != std::string::npos;
         start = found + separator.size()) {
        pieces.push_back(text.substr(start, found - start));
    }
    pieces.push_back(text.substr(start));
    return pieces;
}

std::string Join(const std::vector<std::string>& pieces, const std::string& separator) {
    std::string joined;
    for (size_t i = 0; i < pieces.size(); ++i) {
        if (i > 0) joined += separator;
        joined += pieces[i];
    }
    return joined;
}

// ---------------------------------------------------------------------------
// Program folder and help file
// ---------------------------------------------------------------------------

// Not logged: the log itself finds its file through this function.
std::string ProgramFolder() {
    std::vector<char> path(MAX_PATH);
    while (path.size() <= 65536) {
        const DWORD length =
            GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) return std::string();
        if (length < path.size()) {
            const std::string file(path.data(), length);
            const size_t slash = file.rfind('\\');
            return slash == std::string::npos ? std::string() : file.substr(0, slash);
        }
        path.resize(path.size() * 2);
    }
    return std::string();
}

std::string HelpFilePath() {
    return ProgramFolder() + "\\" + "Rwz.hlp>main";
}

}  // namespace rwz
