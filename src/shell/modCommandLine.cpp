#include "shell/modCommandLine.h"

#include <windows.h>

#include "platform/Procedure.h"
#include "platform/modLogging.h"
#include "platform/modUtilities.h"

namespace rwz {

namespace {

const char kPasswordSwitch[] = "pwd";

// "pwd secret " becomes "pwd **** ": the name, its separator, the mask, and the
// trailing blanks the value had (they belong to the grammar, not the secret).
std::string MaskEntry(const std::string& entry) {
    const size_t nameLength = sizeof kPasswordSwitch - 1;
    if (ToLower(entry.substr(0, nameLength)) != kPasswordSwitch) return entry;
    if (entry.size() <= nameLength + 1) return entry;
    const std::string value = entry.substr(nameLength + 1);
    const std::string trimmed = TrimRight(value);
    if (trimmed.empty()) return entry;
    return entry.substr(0, nameLength + 1) + "****" + value.substr(trimmed.size());
}

}  // namespace

std::string CommandLineText() {
    const char* text = GetCommandLineA();
    // Skip the program's path, quoted or not, then the blanks after it.
    if (*text == '"') {
        ++text;
        while (*text && *text != '"') ++text;
        if (*text == '"') ++text;
    } else {
        while (*text && *text != ' ' && *text != '\t') ++text;
    }
    while (*text == ' ' || *text == '\t') ++text;
    return text;
}

std::vector<std::string> GetCommandLineArgs(const std::string& astrText, int aintMaxArgs) {
    Procedure proc("frmMain", "GetCommandLineArgs");
    proc.LogValue(MaskPasswords(astrText));
    std::vector<std::string> args;
    bool inside = false;
    for (char c : astrText) {
        if (c == '/') {
            inside = false;
            continue;
        }
        if (!inside) {
            if (static_cast<int>(args.size()) >= aintMaxArgs) break;
            args.emplace_back();
            inside = true;
        }
        if (c != '"') args.back() += c;
    }
    return args;
}

std::string GetSwitch(const std::string& astrName, const std::vector<std::string>& avarArgs) {
    std::string result;
    const std::string name = ToLower(astrName);
    for (const std::string& entry : avarArgs) {
        if (ToLower(entry.substr(0, name.size())) == name) {
            result = entry;
            break;
        }
    }
    WriteLog("frmMain - GetSwitch: " + astrName + " = " + MaskEntry(result), kLogDebug);
    return result;
}

std::string SwitchValue(const std::string& astrEntry, const std::string& astrName) {
    const size_t start = astrName.size() + 1;
    return start < astrEntry.size() ? astrEntry.substr(start) : std::string();
}

std::string MaskPasswords(const std::string& astrText) {
    std::string masked;
    size_t start = 0;
    while (true) {
        const size_t slash = astrText.find('/', start);
        const std::string segment = astrText.substr(start, slash - start);
        // Quotes are not part of an entry, so look past them for the name.
        std::string unquoted;
        for (char c : segment)
            if (c != '"') unquoted += c;
        masked += MaskEntry(unquoted) != unquoted ? MaskEntry(unquoted) : segment;
        if (slash == std::string::npos) break;
        masked += '/';
        start = slash + 1;
    }
    return masked;
}

}  // namespace rwz
