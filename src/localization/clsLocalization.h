// Texts of the chosen language: captions of windows and controls, tool tips and
// numbered messages are read from the language file (program folder + "\" +
// language tag + ".slf"); where the file has no text, the built-in one stays.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace rwz {

// A control array: the member at position i has the index i; empty slots
// (nullptr) are skipped.
using ControlArray = std::vector<HWND>;

class clsLocalization {
  public:
    // Takes the language chosen in the settings ("UserInfo"/"Language", default
    // "en-US"); a later choice does not change this instance.
    clsLocalization();

    // Full path of the language file.
    const std::string& LanguageFile() const { return mstrLanguageFile; }

    // Never true (see the .cpp), so even an "en-us.slf" file is consulted.
    bool IsUSEnglish() const;

    // Message `aintKey` from the file's "Messages" section, else the built-in
    // one; "{%0}", "{%1}" ... are replaced by the parameters given.
    std::string GetMessageText(int16_t aintKey,
                               const std::vector<std::string>& avarParms = {}) const;

    // Caption of every member from key tag + ":" + index (the bare index when
    // the tag is empty) in the category.
    void SetControlArrayCaption(const ControlArray& aobjControlArray,
                                const std::string& astrCategory, const std::string& astrTag,
                                bool ablnAddTrailingColon = false) const;
    // Caption of one control from key `astrTag`, placeholders filled.
    void SetControlCaption(HWND aobjControl, const std::string& astrCategory,
                           const std::string& astrTag, bool ablnAddTrailingColon = false,
                           const std::vector<std::string>& avarParms = {}) const;
    // Tool tips of a toolbar's buttons 1 to its button count, keys as for
    // control arrays. The toolbar needs TBSTYLE_TOOLTIPS.
    void SetToolbarTooltips(HWND aobjControl, const std::string& astrCategory,
                            const std::string& astrTag) const;
    // One text, or `astrDefault` when the file has none.
    std::string GetLocalizedValue(const std::string& astrCategory, const std::string& astrTag,
                                  bool ablnAddTrailingColon, const std::string& astrDefault) const;

  private:
    std::string ReadKey(const std::string& astrSection, const std::string& astrKey) const;

    std::string mstrLanguageFile;
};

// The language file of a tag: program folder + "\" + tag + ".slf".
std::string LanguageFilePath(const std::string& astrLanguageTag);

// The language tag chosen in the settings ("UserInfo"/"Language", default "en-US").
std::string CurrentLanguageTag();
void SetCurrentLanguageTag(const std::string& astrLanguageTag);

// One language the user can choose: a language file, or the built-in English.
struct LanguageEntry {
    std::string Tag;                      // the file's name without ".slf"
    std::string Name, Author, AuthorURL;  // "Not Provided" where the file has none
};
// The built-in English first (unless an "en-us.slf" stands in for it), then one
// entry per "*.slf" file in `astrFolder` that has a [Language] section, by name.
std::vector<LanguageEntry> InstalledLanguages(const std::string& astrFolder);

// The program's own text of message `aintKey`; "" for a number it lacks.
std::string BuiltInMessageText(int16_t aintKey);

// Replaces every "{%i}" by parameter i, for i from 0 to the last parameter.
std::string FillPlaceholders(std::string astrText, const std::vector<std::string>& avarParms);

// The key of array member `aintIndex`: tag + ":" + index, or the bare index.
std::string ControlArrayKey(const std::string& astrTag, int aintIndex);

}  // namespace rwz
