#include "browsers/OperaLib.h"

#include <windows.h>

#include <optional>
#include <utility>
#include <vector>

#include "browsers/modShellFolders.h"
#include "platform/Procedure.h"
#include "platform/RwzError.h"
#include "platform/Win32Handles.h"
#include "platform/modAPI.h"
#include "platform/modUtilities.h"
#include "platform/modSafeFile.h"
#include "profile/modProfileIO.h"

namespace rwz {

namespace {

constexpr const char* kTag = "clsOpera";
const std::string kOperaFirstLine = "Opera Preferences version";

struct UserAgent {
    const char* Name;
    const char* ID;
    const char* Version;
};

// Opera 7 writes version code 0 with the MSIE identity, as it does for the
// first version of every identity its menu offers.
const UserAgent kUserAgents[] = {
    {"Identify as Opera", "1", "1"},        {"Identify as Mozilla 5.0", "2", "0"},
    {"Identify as Mozilla 4.78", "2", "1"}, {"Identify as Mozilla 3.0", "2", "2"},
    {"Identify as MSIE 6.0", "3", "0"},
};

enum class IniEncoding {
    Text,    // as it stands
    Flag,    // "1"/"0"
    Server,  // host ":" port
    Code,    // a user agent code: written only when known
};

// "host:port" split at its first colon; no colon is a host alone.
std::pair<std::string, std::string> SplitServer(const std::string& astrValue) {
    const std::string::size_type colon = astrValue.find(':');
    if (colon == std::string::npos) return {astrValue, std::string()};
    return {astrValue.substr(0, colon), astrValue.substr(colon + 1)};
}

// As Opera writes a server: no colon without a port.
std::string ComposeServer(const std::string& astrHost, const std::string& astrPort) {
    return astrPort.empty() ? astrHost : astrHost + ":" + astrPort;
}

}  // namespace

struct OperaLib::IniKey {
    const char* Section;
    const char* Key;
    IniEncoding Encoding;
    std::string BrowserRecord::*Text;  // text, code, or a server's host
    std::string BrowserRecord::*Port;  // a server's port
    bool BrowserRecord::*Flag;
    const char* Default;
};

const std::vector<OperaLib::IniKey>& OperaLib::IniKeys() {
    using O = BrowserRecord;
    constexpr auto T = IniEncoding::Text;
    constexpr auto F = IniEncoding::Flag;
    constexpr auto S = IniEncoding::Server;
    constexpr auto C = IniEncoding::Code;
    static const std::vector<IniKey> keys = {
        {"User Prefs", "Home URL", T, &O::DefaultHomePage, nullptr, nullptr, ""},
        {"Proxy", "Automatic Proxy Configuration URL", T, &O::AutoConfigURL, nullptr, nullptr, ""},
        {"Proxy", "Use Automatic Proxy Configuration", F, nullptr, nullptr, &O::UseAutoConfigURL,
         ""},
        {"Proxy", "No Proxy Servers", T, &O::ProxyExceptions, nullptr, nullptr, ""},
        {"Proxy", "No Proxy Servers Check", F, nullptr, nullptr, &O::ProxyExceptionsEnabled, ""},
        {"Proxy", "Use HTTP", F, nullptr, nullptr, &O::HTTPProxyEnabled, ""},
        {"Proxy", "Use HTTPS", F, nullptr, nullptr, &O::SecureProxyEnabled, ""},
        {"Proxy", "Use FTP", F, nullptr, nullptr, &O::FTPProxyEnabled, ""},
        {"Proxy", "Use GOPHER", F, nullptr, nullptr, &O::GopherProxyEnabled, ""},
        {"Proxy", "Use WAIS", F, nullptr, nullptr, &O::WAISProxyEnabled, ""},
        {"Proxy", "HTTP Server", S, &O::HTTPAddress, &O::HTTPPort, nullptr, ""},
        {"Proxy", "HTTPS Server", S, &O::SecureAddress, &O::SecurePort, nullptr, ""},
        {"Proxy", "FTP Server", S, &O::FTPAddress, &O::FTPPort, nullptr, ""},
        {"Proxy", "Gopher Server", S, &O::GopherAddress, &O::GopherPort, nullptr, ""},
        {"Proxy", "WAIS Server", S, &O::WAISAddress, &O::WAISPort, nullptr, ""},
        // Opera identifies itself as MSIE unless told otherwise.
        {"User Agent", "Spoof UserAgent ID", C, &O::UserAgentID, nullptr, nullptr, "3"},
        {"User Agent", "Spoof Version Code", C, &O::UserAgentVersion, nullptr, nullptr, ""},
    };
    return keys;
}

OperaLib::OperaLib() : clsBrowserBase(BrowserSection::Opera, kTag) {
    mstrSettingsFile = FindSettingsFile();
    mstrVersionString = GetOperaVersion();
    msngVersion = VersionNumber(mstrVersionString);
    // Opera 7 was the first to keep its settings in this form.
    mblnIsInstalled = msngVersion > 7.0f;
    ResetFlags();
}

std::string OperaLib::FindSettingsFile() {
    Procedure proc(kTag, "FindSettingsFile");
    return proc.Run([&] {
        const std::string appData = GetShellFolderPath(kShellFolderAppData);
        if (!appData.empty()) {
            const std::string file = appData + "\\Opera\\Opera7\\profile\\opera6.ini";
            if (FileExists(file)) return file;
        }
        const std::string programs = GetShellFolderPath(kShellFolderProgramFiles);
        if (programs.empty()) return std::string();
        return programs + "\\Opera7\\profile\\opera6.ini";
    });
}

std::vector<std::string> OperaLib::GetUserAgents() const {
    std::vector<std::string> names;
    for (const UserAgent& agent : kUserAgents) names.emplace_back(agent.Name);
    return names;
}

std::string OperaLib::UserAgentOf(const std::string& astrID, const std::string& astrVersion) {
    if (astrID == "1") return kUserAgents[0].Name;
    if (astrID == "3") return kUserAgents[4].Name;
    if (astrID != "2") return std::string();
    for (const UserAgent& agent : kUserAgents) {
        if (astrID == agent.ID && astrVersion == agent.Version) return agent.Name;
    }
    return std::string();
}

void OperaLib::Assigned(std::string BrowserRecord::*aField) {
    if (aField != &BrowserRecord::CurrentUserAgent) return;
    const std::string& name = mRecord.CurrentUserAgent;
    // Choosing the identity the codes already give keeps them as Opera wrote them.
    if (UserAgentOf(mRecord.UserAgentID, mRecord.UserAgentVersion) == name) return;
    for (const UserAgent& agent : kUserAgents) {
        if (name == agent.Name) {
            mRecord.UserAgentID = agent.ID;
            mRecord.UserAgentVersion = agent.Version;
        }
    }
}

void OperaLib::DeriveFromCodesAndSwitches() {
    BrowserRecord& r = mRecord;
    r.ProxyEnabled = r.HTTPProxyEnabled || r.FTPProxyEnabled || r.SecureProxyEnabled ||
                     r.GopherProxyEnabled || r.WAISProxyEnabled;
    r.CurrentUserAgent = UserAgentOf(r.UserAgentID, r.UserAgentVersion);
}

void OperaLib::LoadConfiguration() {
    Procedure proc(kTag, "LoadConfiguration");
    proc.Run([&] {
        proc.Log(mstrSettingsFile);
        if (mstrSettingsFile.empty() || !FileExists(mstrSettingsFile)) return;
        for (const IniKey& key : IniKeys()) {
            const std::string value =
                StripNulls(ReadProfileString(mstrSettingsFile, key.Section, key.Key, key.Default));
            if (value == kIgnoreValue) continue;
            switch (key.Encoding) {
                case IniEncoding::Text:
                case IniEncoding::Code:
                    mRecord.*key.Text = value;
                    break;
                case IniEncoding::Flag:
                    mRecord.*key.Flag = ProfileFlag(value);
                    break;
                case IniEncoding::Server: {
                    auto [host, port] = SplitServer(value);
                    mRecord.*key.Text = host;
                    mRecord.*key.Port = port;
                    break;
                }
            }
        }
        DeriveFromCodesAndSwitches();
    });
}

// Opera's own settings file begins with this line (after a UTF-8 mark, if any).
bool OperaLib::IsOperaSettingsFile(const std::string& astrFile) {
    KernelHandle file(CreateFileA(astrFile.c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return false;
    char head[64] = {};
    DWORD read = 0;
    if (!ReadFile(file.Get(), head, sizeof head, &read, nullptr)) return false;
    std::string first(head, read);
    if (first.compare(0, 3, "\xEF\xBB\xBF") == 0) first.erase(0, 3);
    return first.compare(0, kOperaFirstLine.size(), kOperaFirstLine) == 0;
}

void OperaLib::ApplyConfiguration() {
    Procedure proc(kTag, "ApplyConfiguration");
    proc.RunThen(
        [&] {
            if (!IsModified()) return;
            proc.Log(mstrSettingsFile);
            // The keys whose value the record changes, with the text to write.
            std::vector<std::pair<const IniKey*, std::string>> changes;
            for (const IniKey& key : IniKeys()) {
                const std::string live = StripNulls(
                    ReadProfileString(mstrSettingsFile, key.Section, key.Key, key.Default));
                std::string text;
                bool same = false;
                switch (key.Encoding) {
                    case IniEncoding::Text:
                        text = mRecord.*key.Text;
                        same = live == text;
                        break;
                    case IniEncoding::Flag:
                        text = ProfileFlagText(mRecord.*key.Flag);
                        same = ProfileFlag(live) == mRecord.*key.Flag;
                        break;
                    case IniEncoding::Server:
                        text = ComposeServer(mRecord.*key.Text, mRecord.*key.Port);
                        same = SplitServer(live) ==
                               std::make_pair(mRecord.*key.Text, mRecord.*key.Port);
                        break;
                    case IniEncoding::Code:
                        // A profile without the codes has nothing to say about them.
                        text = mRecord.*key.Text;
                        same = text.empty() || live == text;
                        break;
                }
                if (!same) changes.emplace_back(&key, text);
            }
            if (!changes.empty() && FileExists(mstrSettingsFile)) {
                // A settings file marked read-only is one its user wants kept as it is.
                const DWORD attributes = GetFileAttributesA(mstrSettingsFile.c_str());
                if (attributes & FILE_ATTRIBUTE_READONLY)
                    RaiseRuntimeError(kErrPermissionDenied, kTag);
                // Whatever else has the name is not Opera's to lose.
                if (!IsOperaSettingsFile(mstrSettingsFile))
                    throw RwzError(kErrPathFileAccess, kTag, "not an Opera settings file");
            }
            // The changes go into a copy that then takes the file's place, so the
            // file is never left half-written.
            if (!changes.empty()) {
                EditFileSafely(mstrSettingsFile, [&](const std::string& copy) {
                    for (const auto& [key, text] : changes) {
                        WriteProfileString(copy, key->Section, key->Key, text);
                        proc.Log(std::string(key->Key) + " = " + text);
                    }
                });
            }
            ResetFlags();
        },
        [&] {
            ShowBrowserMessage("Could not apply Opera preferences to '" + mstrSettingsFile + "'.");
        });
}

void OperaLib::LoadConfigurationFile(const std::string& astrFile) {
    clsBrowserBase::LoadConfigurationFile(astrFile);
    DeriveFromCodesAndSwitches();
}

}  // namespace rwz
