#include "localization/clsLocalization.h"

#include <commctrl.h>

#include <algorithm>

#include "platform/Procedure.h"
#include "platform/modUtilities.h"
#include "platform/AppVersion.h"
#include "platform/Win32Handles.h"

namespace rwz {

namespace {

constexpr const char* kSectionMessages = "Messages";
constexpr const char* kDefaultLanguage = "en-US";

// One key of a language file: "" when the file or the key is absent.
std::string ReadLanguageValue(const std::string& astrFile, const std::string& astrSection,
                              const std::string& astrKey) {
    char buffer[256];
    GetPrivateProfileStringA(astrSection.c_str(), astrKey.c_str(), "", buffer, 255,
                             astrFile.c_str());
    buffer[255] = '\0';
    return TrimRight(StripNulls(buffer));
}

std::string WithColon(std::string astrText, bool ablnAddTrailingColon) {
    if (ablnAddTrailingColon) astrText += ":";
    return astrText;
}

}  // namespace

std::string LanguageFilePath(const std::string& astrLanguageTag) {
    return ProgramFolder() + "\\" + astrLanguageTag + ".slf";
}

std::string CurrentLanguageTag() {
    return GetProgramSetting(kProductName, "UserInfo", "Language", kDefaultLanguage);
}

void SetCurrentLanguageTag(const std::string& astrLanguageTag) {
    SaveProgramSetting(kProductName, "UserInfo", "Language", astrLanguageTag);
}

std::vector<LanguageEntry> InstalledLanguages(const std::string& astrFolder) {
    const std::string kNotProvided = "Not Provided";
    std::vector<LanguageEntry> files;
    bool blnEnglishFile = false;
    WIN32_FIND_DATAA found;
    FindHandle search(FindFirstFileA((astrFolder + "\\*.slf").c_str(), &found));
    for (bool more = static_cast<bool>(search); more; more = FindNextFileA(search.Get(), &found)) {
        if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) continue;
        const std::string name = found.cFileName;
        const std::string path = astrFolder + "\\" + name;
        // A file without the section is no language file: not offered.
        char section[8] = "";
        if (GetPrivateProfileSectionA("Language", section, sizeof section, path.c_str()) == 0)
            continue;
        auto value = [&](const char* key) {
            const std::string text = ReadLanguageValue(path, "Language", key);
            return text.empty() ? kNotProvided : text;
        };
        LanguageEntry entry{name.substr(0, name.size() - 4), value("Name"), value("Author"),
                            value("AuthorURL")};
        if (ToLower(entry.Tag) == "en-us") blnEnglishFile = true;
        files.push_back(std::move(entry));
    }
    std::sort(files.begin(), files.end(),
              [](const LanguageEntry& a, const LanguageEntry& b) { return a.Name < b.Name; });
    std::vector<LanguageEntry> entries;
    if (!blnEnglishFile)
        entries.push_back({kDefaultLanguage, "English (United States)", RWZ_PRODUCT_NAME,
                           "http://www.roamwise.example/"});
    entries.insert(entries.end(), files.begin(), files.end());
    return entries;
}

std::string BuiltInMessageText(int16_t aintKey) {
    // The longest built-in message is well under this; a longer one is cut.
    char buffer[1024];
    const int length = LoadStringA(GetModuleHandleA(nullptr), static_cast<uint16_t>(aintKey),
                                   buffer, sizeof buffer);
    return length > 0 ? std::string(buffer, length) : std::string();
}

std::string FillPlaceholders(std::string astrText, const std::vector<std::string>& avarParms) {
    for (size_t i = 0; i < avarParms.size(); ++i) {
        const std::string placeholder = "{%" + std::to_string(i) + "}";
        std::string result;
        size_t from = 0;
        for (size_t at; (at = astrText.find(placeholder, from)) != std::string::npos;
             from = at + placeholder.size()) {
            result.append(astrText, from, at - from).append(avarParms[i]);
        }
        result.append(astrText, from, std::string::npos);
        astrText.swap(result);
    }
    return astrText;
}

std::string ControlArrayKey(const std::string& astrTag, int aintIndex) {
    return astrTag.empty() ? std::to_string(aintIndex) : astrTag + ":" + std::to_string(aintIndex);
}

clsLocalization::clsLocalization() {
    Procedure proc("clsLocalization", "Class_Initialize");
    proc.Run([&] {
        mstrLanguageFile = LanguageFilePath(CurrentLanguageTag());
        proc.LogValue(mstrLanguageFile);
    });
}

bool clsLocalization::IsUSEnglish() const {
    // Eight characters are compared with a nine-character name, so this is never
    // true: the English file, when there is one, overrides the built-in texts too.
    const std::string strEnd = mstrLanguageFile.size() > 8
                                   ? mstrLanguageFile.substr(mstrLanguageFile.size() - 8)
                                   : mstrLanguageFile;
    return ToLower(strEnd) == "en-us.slf";
}

std::string clsLocalization::ReadKey(const std::string& astrSection,
                                     const std::string& astrKey) const {
    // An empty path would make the system read its own WIN.INI instead.
    if (mstrLanguageFile.empty()) return std::string();
    return ReadLanguageValue(mstrLanguageFile, astrSection, astrKey);
}

std::string clsLocalization::GetMessageText(int16_t aintKey,
                                            const std::vector<std::string>& avarParms) const {
    Procedure proc("clsLocalization", "GetMessageText");
    return proc.Run([&] {
        std::string strText;
        if (!IsUSEnglish()) strText = ReadKey(kSectionMessages, std::to_string(aintKey));
        if (strText.empty()) strText = BuiltInMessageText(aintKey);
        return FillPlaceholders(std::move(strText), avarParms);
    });
}

void clsLocalization::SetControlArrayCaption(const ControlArray& aobjControlArray,
                                             const std::string& astrCategory,
                                             const std::string& astrTag,
                                             bool ablnAddTrailingColon) const {
    Procedure proc("clsLocalization", "SetControlArrayCaption");
    proc.Run([&] {
        for (size_t i = 0; i < aobjControlArray.size(); ++i) {
            if (!aobjControlArray[i]) continue;
            const std::string strText =
                ReadKey(astrCategory, ControlArrayKey(astrTag, static_cast<int>(i)));
            if (!strText.empty()) {
                SetWindowTextA(aobjControlArray[i],
                               WithColon(strText, ablnAddTrailingColon).c_str());
            }
        }
    });
}

void clsLocalization::SetControlCaption(HWND aobjControl, const std::string& astrCategory,
                                        const std::string& astrTag, bool ablnAddTrailingColon,
                                        const std::vector<std::string>& avarParms) const {
    Procedure proc("clsLocalization", "SetControlCaption");
    proc.Run([&] {
        const std::string strText = FillPlaceholders(ReadKey(astrCategory, astrTag), avarParms);
        if (!strText.empty()) {
            SetWindowTextA(aobjControl, WithColon(strText, ablnAddTrailingColon).c_str());
        }
    });
}

void clsLocalization::SetToolbarTooltips(HWND aobjControl, const std::string& astrCategory,
                                         const std::string& astrTag) const {
    Procedure proc("clsLocalization", "SetToolbarTooltips");
    proc.Run([&] {
        // Each button is a tool of the toolbar's tool-tip control, known by its
        // command id.
        const HWND hwndTips =
            reinterpret_cast<HWND>(SendMessageA(aobjControl, TB_GETTOOLTIPS, 0, 0));
        const int intCount = static_cast<int>(SendMessageA(aobjControl, TB_BUTTONCOUNT, 0, 0));
        for (int i = 1; i <= intCount; ++i) {
            std::string strText = ReadKey(astrCategory, ControlArrayKey(astrTag, i));
            if (strText.empty() || !hwndTips) continue;
            TBBUTTON button{};
            if (!SendMessageA(aobjControl, TB_GETBUTTON, i - 1, reinterpret_cast<LPARAM>(&button)))
                continue;
            TOOLINFOA tool{};
            tool.cbSize = TTTOOLINFOA_V1_SIZE;
            tool.hwnd = aobjControl;
            tool.uId = static_cast<UINT_PTR>(button.idCommand);
            tool.lpszText = &strText[0];
            SendMessageA(hwndTips, TTM_UPDATETIPTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
        }
    });
}

std::string clsLocalization::GetLocalizedValue(const std::string& astrCategory,
                                               const std::string& astrTag,
                                               bool ablnAddTrailingColon,
                                               const std::string& astrDefault) const {
    Procedure proc("clsLocalization", "GetLocalizedValue");
    return proc.Run(
        [&] {
            const std::string strText = ReadKey(astrCategory, astrTag);
            return strText.empty() ? astrDefault : WithColon(strText, ablnAddTrailingColon);
        },
        astrDefault);
}

}  // namespace rwz
