#include "browsers/NavigatorPrefsLib.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/Procedure.h"
#include "platform/RwzError.h"
#include "platform/modSafeFile.h"

namespace rwz {

namespace {

const char kObject[] = "NavigatorPrefsLib";
const char kLineEnd[] = "\r\n";
const char kNoPrefsFileText[] = "Could not locate Netscape preference file.";

char AsciiLower(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string AsciiLower(std::string text) {
    for (char& c : text) c = AsciiLower(c);
    return text;
}

}  // namespace

std::string EscapePrefsText(const std::string& astrValue) {
    std::string escaped;
    escaped.reserve(astrValue.size());
    for (char c : astrValue) {
        switch (c) {
            case '\\':
            case '"':
                escaped += '\\';
                escaped += c;
                break;
            case '\n':
                escaped += "\\n";
                break;
            case '\r':
                escaped += "\\r";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

std::string UnescapePrefsText(const std::string& astrValue) {
    std::string text;
    text.reserve(astrValue.size());
    for (size_t i = 0; i < astrValue.size(); ++i) {
        if (astrValue[i] != '\\' || i + 1 == astrValue.size()) {
            text += astrValue[i];
            continue;
        }
        const char next = astrValue[++i];
        text += next == 'n' ? '\n' : next == 'r' ? '\r' : next;
    }
    return text;
}

std::vector<std::string> SplitPrefsLines(const std::string& astrText) {
    std::vector<std::string> lines;
    lines.reserve(static_cast<size_t>(std::count(astrText.begin(), astrText.end(), '\n')) + 1);
    size_t start = 0;
    while (start < astrText.size()) {
        const size_t lineFeed = astrText.find('\n', start);
        const bool ended = lineFeed != std::string::npos;
        size_t stop = ended ? lineFeed : astrText.size();
        if (ended && stop > start && astrText[stop - 1] == '\r') --stop;
        lines.emplace_back(astrText, start, stop - start);
        if (!ended) break;
        start = lineFeed + 1;
    }
    return lines;
}

// --- NavigatorPrefsLib ---------------------------------------------------------------

// --- Reading and writing the file ------------------------------------------------------

NavigatorPrefsLib::~NavigatorPrefsLib() {
    if (mstrPrefsFile.empty()) return;
    try {
        ClosePrefsFile();
    } catch (...) {
        // Nothing may leave a destructor; the close has logged what it could.
    }
}

bool NavigatorPrefsLib::OpenPrefsFile(const std::string& astrFile, bool ablnWriteOnClose) {
    Procedure proc(kObject, "OpenPrefsFile");
    return proc.Run([&] {
        if (astrFile.empty()) {
            ShowFileMessage(kNoPrefsFileText);
            return false;
        }
        // Closed until the whole file is read: a file that could not be read
        // must never be written over by ClosePrefsFile.
        mstrPrefsFile.clear();
        mcolLines.clear();
        mblnWritePrefsOnClose = false;
        proc.Log(astrFile);
        LoadPrefsText(ReadWholeFile(astrFile));
        mstrPrefsFile = astrFile;
        mblnWritePrefsOnClose = ablnWriteOnClose;
        return true;
    });
}

bool NavigatorPrefsLib::ClosePrefsFile() {
    Procedure proc(kObject, "ClosePrefsFile");
    const bool written = proc.Run(
        [&] {
            if (mblnWritePrefsOnClose && !mstrPrefsFile.empty()) {
                WriteFileSafely(mstrPrefsFile, PrefsText());
            }
            return true;
        },
        false);
    mcolLines.clear();
    mcolLines.shrink_to_fit();
    mstrPrefsFile.clear();
    return written;
}

void NavigatorPrefsLib::LoadPrefsText(const std::string& astrText) {
    mcolLines = SplitPrefsLines(astrText);
}

std::string NavigatorPrefsLib::PrefsText() const {
    size_t size = 0;
    for (const std::string& line : mcolLines) size += line.size() + 2;
    std::string text;
    text.reserve(size);
    for (const std::string& line : mcolLines) {
        text += line;
        text += kLineEnd;
    }
    return text;
}

size_t NavigatorPrefsLib::FindSetting(const std::string& astrName) const {
    const std::string key = "user_pref(\"" + AsciiLower(astrName) + "\"";
    for (size_t index = 0; index < mcolLines.size(); ++index) {
        const std::string& line = mcolLines[index];
        const size_t first = line.find_first_not_of(' ');
        if (first == std::string::npos || line.size() - first < key.size()) continue;
        size_t k = 0;
        while (k < key.size() && AsciiLower(line[first + k]) == key[k]) ++k;
        if (k == key.size()) return index + 1;
    }
    return 0;
}

std::string NavigatorPrefsLib::GetSetting(const std::string& astrName) const {
    Procedure proc(kObject, "GetSetting");
    return proc.Run([&]() -> std::string {
        const size_t number = FindSetting(astrName);
        if (number == 0) return std::string();
        const std::string& line = mcolLines[number - 1];
        // The value runs from two characters after the "," that follows the
        // name to the first ")" after it; a quoted value runs to its closing
        // quote, escaped quotes and parentheses included.
        const size_t nameEnd = line.find('"', line.find('"') + 1);
        const size_t comma = line.find(',', nameEnd == std::string::npos ? 0 : nameEnd);
        if (comma == std::string::npos) return std::string();
        const size_t start = comma + 2;
        if (start < line.size() && line[start] == '"') {
            std::string quoted;
            for (size_t i = start + 1; i < line.size(); ++i) {
                if (line[i] == '\\' && i + 1 < line.size()) {
                    quoted += line[i];
                    quoted += line[++i];
                } else if (line[i] == '"') {
                    return UnescapePrefsText(quoted);
                } else {
                    quoted += line[i];
                }
            }
            return std::string();
        }
        const size_t paren = line.find(')', start);
        if (paren == std::string::npos) return std::string();
        return line.substr(start, paren - start);
    });
}

void NavigatorPrefsLib::StoreLine(const std::string& astrName, std::string astrLine,
                                  bool ablnTextPreference) {
    const size_t number = FindSetting(astrName);
    const size_t count = mcolLines.size();
    if (number == 0) {
        mcolLines.push_back(std::move(astrLine));
    } else if (ablnTextPreference && number == count && count >= 2) {
        // A text preference on the last line goes in before the line above it.
        mcolLines[count - 1] = std::move(mcolLines[count - 2]);
        mcolLines[count - 2] = std::move(astrLine);
    } else {
        mcolLines[number - 1] = std::move(astrLine);
    }
}

void NavigatorPrefsLib::SaveSettingStr(const std::string& astrName, const std::string& astrValue) {
    Procedure proc(kObject, "SaveSettingStr");
    proc.Run([&] {
        StoreLine(astrName,
                  "user_pref(\"" + astrName + "\", \"" + EscapePrefsText(astrValue) + "\");", true);
    });
}

void NavigatorPrefsLib::SaveSettingInt(const std::string& astrName, int16_t aintValue) {
    Procedure proc(kObject, "SaveSettingInt");
    proc.Run([&] {
        StoreLine(astrName, "user_pref(\"" + astrName + "\", " + std::to_string(aintValue) + ");",
                  false);
    });
}

void NavigatorPrefsLib::SaveSettingBoolean(const std::string& astrName, bool ablnValue) {
    Procedure proc(kObject, "SaveSettingBoolean");
    proc.Run([&] {
        StoreLine(astrName,
                  "user_pref(\"" + astrName + "\", " + (ablnValue ? "true" : "false") + ");",
                  false);
    });
}

void NavigatorPrefsLib::DeleteSetting(const std::string& astrName) {
    Procedure proc(kObject, "DeleteSetting");
    proc.Run([&] {
        const size_t number = FindSetting(astrName);
        if (number != 0) mcolLines.erase(mcolLines.begin() + static_cast<ptrdiff_t>(number - 1));
    });
}

}  // namespace rwz
