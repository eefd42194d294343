#include "shell/modCommandLine.h"

#include "platform/Procedure.h"
#include "platform/modLogging.h"
#include "platform/modText.h"

namespace rwz {

namespace {

const char kPasswordSwitch[] = "pwd";
// The longest path the ANSI file functions take, its NUL included.
const size_t kMaxPath = 260;

const char* const kSwitches[] = {"hidden", "about",  "help",     "load",   "uid",   "pwd",
                                 "save",   "export", "apply",    "print",  "force", "prompt",
                                 "manual", "reboot", "shutdown", "suspend"};

bool IsPasswordEntry(const std::string& entry) {
    return ToLower(entry.substr(0, sizeof kPasswordSwitch - 1)) == kPasswordSwitch;
}

// A "pwd" entry that has begun its value: a "/" in it is part of the password.
bool HasPasswordValue(const std::string& entry) {
    return IsPasswordEntry(entry) && entry.size() > sizeof kPasswordSwitch;
}

// An entry someone meant as a password: "pwd...", and also " pwd x",
// "password x", "pass=x", "pw x" that the program does not take.
bool LooksLikePassword(const std::string& entry) {
    const std::string word = ToLower(TrimLeft(entry));
    return word.compare(0, 2, "pw") == 0 || word.compare(0, 4, "pass") == 0;
}

// "pwd secret " becomes "pwd **** ": the name (up to the first blank, ":" or
// "=" for the look-alikes) and its separator, the mask, and the trailing blanks.
std::string MaskEntry(const std::string& entry) {
    if (!LooksLikePassword(entry)) return entry;
    const size_t start = entry.find_first_not_of(' ');
    size_t nameEnd;
    if (IsPasswordEntry(entry)) {
        nameEnd = sizeof kPasswordSwitch - 1;
    } else {
        nameEnd = entry.find_first_of(" :=", start);
        if (nameEnd == std::string::npos) nameEnd = entry.size();
    }
    // The separator stays when it is one (a blank, ":" or "="); in "pwdsecret"
    // the character after the name belongs to the password.
    if (nameEnd < entry.size() &&
        (entry[nameEnd] == ' ' || entry[nameEnd] == ':' || entry[nameEnd] == '='))
        ++nameEnd;
    const std::string trimmed = TrimRight(entry);
    if (trimmed.size() <= nameEnd) return entry;
    return entry.substr(0, nameEnd) + "****" + entry.substr(trimmed.size());
}

}  // namespace

std::string CommandLineText(const char* apszFullCommandLine) {
    const char* text = apszFullCommandLine ? apszFullCommandLine : "";
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

std::vector<std::string> GetCommandLineArgs(const std::string& astrText) {
    Procedure proc("frmMain", "GetCommandLineArgs");
    proc.LogValue(MaskPasswords(astrText));
    return SplitCommandLine(astrText);
}

std::vector<std::string> SplitCommandLine(const std::string& astrText) {
    std::vector<std::string> args;
    bool inside = false;
    char previous = ' ';
    for (char c : astrText) {
        const bool keepSlash = inside && previous != ' ' && HasPasswordValue(args.back());
        previous = c;
        if (c == '/' && !keepSlash) {
            inside = false;
            continue;
        }
        if (!inside) {
            args.emplace_back();
            inside = true;
        }
        if (c != '"') args.back() += c;
    }
    return args;
}

std::string FindSwitch(const std::string& astrName, const std::vector<std::string>& avarArgs) {
    const std::string name = ToLower(astrName);
    for (const std::string& entry : avarArgs)
        if (ToLower(entry.substr(0, name.size())) == name) return entry;
    return std::string();
}

std::string GetSwitch(const std::string& astrName, const std::vector<std::string>& avarArgs) {
    const std::string result = FindSwitch(astrName, avarArgs);
    WriteLog("frmMain - GetSwitch: " + astrName + " = " + MaskEntry(result), kLogDebug);
    return result;
}

std::string SwitchValue(const std::string& astrEntry, const std::string& astrName) {
    const size_t start = astrName.size() + 1;
    return start < astrEntry.size() ? astrEntry.substr(start) : std::string();
}

std::vector<std::string> UnknownSwitches(const std::vector<std::string>& avarArgs) {
    std::vector<std::string> unknown;
    for (const std::string& entry : avarArgs) {
        const std::string lower = ToLower(entry);
        bool known = false;
        for (const char* name : kSwitches) known = known || lower.rfind(name, 0) == 0;
        const std::string trimmed = TrimRight(lower);
        const bool path =
            trimmed.size() >= 4 && trimmed.compare(trimmed.size() - 4, 4, ".rwz") == 0;
        if (!known && !path) unknown.push_back(MaskEntry(entry));
    }
    return unknown;
}

std::string UnknownSwitchesText(const std::vector<std::string>& acolUnknown) {
    const size_t kShown = 10;
    std::string text = "unknown switches: ";
    for (size_t i = 0; i < acolUnknown.size() && i < kShown; ++i)
        text += (i ? ", '" : "'") + acolUnknown[i] + "'";
    if (acolUnknown.size() > kShown)
        text += " (and " + std::to_string(acolUnknown.size() - kShown) + " more)";
    return text;
}

std::string MaskPasswords(const std::string& astrText) {
    // Masks each entry as GetCommandLineArgs cuts it, quotes and all.
    std::string masked;
    std::string segment;
    std::string unquoted;
    char previous = ' ';
    auto flush = [&] {
        masked += MaskEntry(unquoted) != unquoted ? MaskEntry(unquoted) : segment;
        segment.clear();
        unquoted.clear();
    };
    for (char c : astrText) {
        const bool keepSlash = previous != ' ' && HasPasswordValue(unquoted);
        previous = c;
        if (c == '/' && !keepSlash) {
            flush();
            masked += '/';
            continue;
        }
        segment += c;
        if (c != '"') unquoted += c;
    }
    flush();
    return masked;
}

std::string ProfilePathProblem(const std::string& astrPath) {
    if (Trim(astrPath).empty()) return "The profile's path is missing after the switch \"load\".";
    if (astrPath.size() >= kMaxPath) {
        return "The path of the profile is too long (" + std::to_string(astrPath.size()) +
               " characters; the system allows " + std::to_string(kMaxPath - 1) +
               "): " + astrPath.substr(0, 60) + "...";
    }
    return std::string();
}

}  // namespace rwz
