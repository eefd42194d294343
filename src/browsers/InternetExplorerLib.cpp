#include "browsers/InternetExplorerLib.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/Procedure.h"
#include "platform/Win32Handles.h"
#include "platform/clsEasyRegistry.h"
#include "platform/modAPI.h"
#include "platform/modLogging.h"
#include "platform/modUtilities.h"
#include "profile/modProfileIO.h"

namespace rwz {

namespace {

constexpr const char* kTag = "clsExplorer";

const std::string kInternetSettings =
    "\\HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";
const std::string kConnections = kInternetSettings + "\\Connections";
const std::string kExplorerMain =
    "\\HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\Main";
const std::string kRemoteAccess = "\\HKEY_CURRENT_USER\\RemoteAccess";
const std::string kRemoteAddresses = "\\HKEY_CURRENT_USER\\RemoteAccess\\Addresses\\";
const std::string kAutoDialDefault =
    "\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\RAS AutoDial\\Default";

// Byte 8 of "DefaultConnectionSettings" holds the connection flags; bit value
// 8 is "automatically detect settings".
constexpr size_t kConnectionFlagsByte = 8;
constexpr uint8_t kAutoDetectFlag = 8;

// RASENTRYNAMEA as Windows 95 and NT 4 know it: the size field and a name of
// at most 256 characters, 264 bytes with the padding.
struct RasEntryName {
    DWORD Size;
    char Name[257];
};
static_assert(sizeof(RasEntryName) == 264, "the entry-name record the dial-up service expects");
constexpr DWORD kRasEntries = 256;
using RasEnumEntriesFunction = DWORD(WINAPI*)(LPCSTR, LPCSTR, RasEntryName*, LPDWORD, LPDWORD);

// A value as the registry holds it; nothing when the key or the value is missing.
std::optional<RegistryValue> ReadValue(const std::string& astrKey, const std::string& astrName) {
    clsEasyRegistry registry;
    registry.SetSuppressErrors(true);
    registry.SetCurrentKey(astrKey);
    if (registry.LastError() != 0) return std::nullopt;
    RegistryValue value = registry.ValueOf(astrName);
    if (registry.LastError() != 0) return std::nullopt;
    return value;
}

// A text value up to its first NUL; "" when missing or not text.
std::string ReadText(const std::string& astrKey, const std::string& astrName) {
    const std::optional<RegistryValue> value = ReadValue(astrKey, astrName);
    if (!value || value->Type != kRegString) return std::string();
    return value->Text.c_str();
}

// The first byte of a flag value (a four-byte binary or a double word).
std::optional<uint8_t> FirstByte(const std::optional<RegistryValue>& aValue) {
    if (!aValue || aValue->Bytes.empty()) return std::nullopt;
    return aValue->Bytes.front();
}

// A value's number: a double word, or up to four binary bytes, low byte first.
std::optional<uint32_t> NumberOf(const std::optional<RegistryValue>& aValue) {
    if (!aValue) return std::nullopt;
    if (aValue->Type == kRegDword) return static_cast<uint32_t>(aValue->Number);
    if (aValue->Type != kRegBinary || aValue->Bytes.empty()) return std::nullopt;
    uint32_t number = 0;
    for (size_t i = 0; i < aValue->Bytes.size() && i < 4; ++i) {
        number |= static_cast<uint32_t>(aValue->Bytes[i]) << (8 * i);
    }
    return number;
}

// Writes a value, creating its key when missing. False when the registry
// refused (the failure is the pending error).
bool WriteValue(const std::string& astrKey, const std::string& astrName, int aintType,
                const RegistryData& aData) {
    clsEasyRegistry registry;
    registry.SetSuppressErrors(true);
    registry.SetCurrentKey(astrKey);
    if (registry.LastError() != 0) {
        const std::string::size_type sub = astrKey.find('\\', 1);
        if (sub == std::string::npos) return false;
        registry.SetCurrentKey(astrKey.substr(0, sub));
        if (registry.LastError() != 0) return false;
        registry.MakeKey(astrKey.substr(sub + 1));
        registry.SetCurrentKey(astrKey);
        if (registry.LastError() != 0) return false;
    }
    registry.SetValueOf(astrName, aintType, aData);
    return registry.LastError() == 0;
}

// A four-byte flag, first byte 1 or 0: in the binary form when the value is
// binary already, else as a double word (the same four bytes).
bool WriteFlag(const std::string& astrName, bool ablnOn,
               const std::optional<RegistryValue>& aLive) {
    if (aLive && aLive->Type == kRegBinary) {
        return WriteValue(kInternetSettings, astrName, kRegBinary,
                          std::vector<uint8_t>{ablnOn ? uint8_t{1} : uint8_t{0}, 0, 0, 0});
    }
    return WriteValue(kInternetSettings, astrName, kRegDword, ablnOn ? 1.0 : 0.0);
}

void Written(const Procedure& aProc, bool ablnWritten, const std::string& astrWhat) {
    if (ablnWritten) {
        aProc.Log(astrWhat);
    } else {
        LogError(aProc.Where());
    }
}

// "EnableAutoDial": dial-up when its first byte is not 0. Without the value
// Windows never dials, so the connection is the local network.
bool ConnectsViaLAN(const std::optional<RegistryValue>& aValue) {
    const std::optional<uint8_t> first = FirstByte(aValue);
    return !first || *first == 0;
}

}  // namespace

InternetExplorerLib::InternetExplorerLib(const std::string& astrOSTag)
    : clsBrowserBase(BrowserSection::InternetExplorer, kTag), mstrOSTag(astrOSTag) {
    mstrVersionString = GetIEVersion();
    msngVersion = VersionNumber(mstrVersionString);
    // Versions up to 3.0 keep their settings elsewhere.
    mblnIsInstalled = msngVersion > 3.0f;
}

InternetExplorerLib::InternetExplorerLib() : InternetExplorerLib(GetCurrentOSTag()) {}

ProxyServerList InternetExplorerLib::ProxyList() const {
    ProxyServerList list;
    list.UseSameProxy = mblnUseSameProxy;
    list.HTTPAddress = mstrHTTPAddress;
    list.HTTPPort = mstrHTTPPort;
    list.SecureAddress = mstrSecureAddress;
    list.SecurePort = mstrSecurePort;
    list.FTPAddress = mstrFTPAddress;
    list.FTPPort = mstrFTPPort;
    list.GopherAddress = mstrGopherAddress;
    list.GopherPort = mstrGopherPort;
    list.SocksAddress = mstrSocksAddress;
    list.SocksPort = mstrSocksPort;
    return list;
}

void InternetExplorerLib::TakeProxyList(const ProxyServerList& aList) {
    mblnUseSameProxy = aList.UseSameProxy;
    mstrHTTPAddress = aList.HTTPAddress;
    mstrHTTPPort = aList.HTTPPort;
    mstrSecureAddress = aList.SecureAddress;
    mstrSecurePort = aList.SecurePort;
    mstrFTPAddress = aList.FTPAddress;
    mstrFTPPort = aList.FTPPort;
    mstrGopherAddress = aList.GopherAddress;
    mstrGopherPort = aList.GopherPort;
    mstrSocksAddress = aList.SocksAddress;
    mstrSocksPort = aList.SocksPort;
}

void InternetExplorerLib::SplitProxyServer(const std::string& astrProxyServer) {
    ProxyServerList list = ProxyList();
    SplitProxyList(astrProxyServer, list);
    TakeProxyList(list);
}

std::string InternetExplorerLib::ComposeProxyServer() const {
    return ComposeProxyList(ProxyList());
}

// --- Reading the live settings.

void InternetExplorerLib::GetProxyAddresses() {
    Procedure proc(kTag, "getProxyAddresses");
    proc.Run([&] {
        const std::string value = ReadText(kInternetSettings, "ProxyServer");
        proc.LogValue(value);
        // The registry's list gets one ";" more than the profile's: a missing
        // value reads as one proxy for all protocols, with no host.
        SplitProxyServer(Trim(value) + ";");
    });
}

void InternetExplorerLib::GetProxyEnabled() {
    Procedure proc(kTag, "GetProxyEnabled");
    proc.Run([&] {
        mblnProxyEnabled = false;
        const std::optional<uint8_t> first = FirstByte(ReadValue(kInternetSettings, "ProxyEnable"));
        mblnProxyEnabled = first && *first == 1;
    });
}

void InternetExplorerLib::GetProxyExceptions() {
    Procedure proc(kTag, "GetProxyExceptions");
    proc.Run([&] {
        SplitProxyOverride(ReadText(kInternetSettings, "ProxyOverride"), mstrProxyExceptions,
                           mblnIgnoreLocalAddresses);
    });
}

void InternetExplorerLib::GetDefaultHomePage() {
    Procedure proc(kTag, "GetDefaultHomePage");
    proc.Run([&] { mstrDefaultHomePage = ReadText(kExplorerMain, "Start Page"); });
}

void InternetExplorerLib::GetConnectViaLAN() {
    Procedure proc(kTag, "GetConnectViaLAN");
    proc.Run([&] {
        mblnConnectViaLAN = ConnectsViaLAN(ReadValue(kInternetSettings, "EnableAutoDial"));
    });
}

void InternetExplorerLib::GetDUNList() {
    Procedure proc(kTag, "GetDUNList");
    proc.Run([&] {
        mcolDUNList.clear();
        if (mstrOSTag == kOS9x) {
            mstrCurrentDUN = ReadText(kRemoteAccess, "InternetProfile");
            clsEasyRegistry registry;
            registry.SetSuppressErrors(true);
            registry.SetCurrentKey(kRemoteAddresses);
            if (registry.LastError() != 0) return;
            for (const RegistryValueRow& row : registry.DirValue()) {
                if (!row.Name.empty()) mcolDUNList.push_back(row.Name);
            }
            return;
        }

        mstrCurrentDUN = ReadText(kAutoDialDefault, "DefaultInternet");
        // The dial-up service is an optional part of every system: looked up
        // when needed, never linked.
        Module ras(LoadLibraryA("rasapi32.dll"));
        if (!ras) {
            proc.Log("no dial-up networking (rasapi32.dll)");
            return;
        }
        const auto enumEntries = reinterpret_cast<RasEnumEntriesFunction>(
            reinterpret_cast<void*>(GetProcAddress(ras.Get(), "RasEnumEntriesA")));
        if (!enumEntries) {
            proc.Log("no RasEnumEntriesA in rasapi32.dll");
            return;
        }
        std::vector<RasEntryName> entries(kRasEntries);
        for (RasEntryName& entry : entries) entry.Size = sizeof(RasEntryName);
        DWORD bytes = sizeof(RasEntryName) * kRasEntries;
        DWORD count = 0;
        const DWORD result = enumEntries(nullptr, nullptr, entries.data(), &bytes, &count);
        if (result != 0) {
            proc.Log("RasEnumEntriesA returned " + std::to_string(result));
            return;
        }
        for (DWORD i = 0; i < count && i < kRasEntries; ++i) {
            const char* name = entries[i].Name;
            mcolDUNList.emplace_back(name, std::find(name, name + sizeof entries[i].Name, '\0'));
        }
    });
}

void InternetExplorerLib::GetAutoDetectSettings() {
    Procedure proc(kTag, "GetAutoDetectSettings");
    proc.Run([&] {
        mblnAutoDetectSettings = false;
        const std::optional<RegistryValue> value =
            ReadValue(kConnections, "DefaultConnectionSettings");
        if (!value || value->Bytes.size() <= kConnectionFlagsByte) return;
        mblnAutoDetectSettings = (value->Bytes[kConnectionFlagsByte] & kAutoDetectFlag) != 0;
    });
}

void InternetExplorerLib::GetAutoConfigURL() {
    Procedure proc(kTag, "GetAutoConfigURL");
    proc.Run([&] {
        mstrAutoConfigURL = ReadText(kInternetSettings, "AutoConfigURL");
        mblnUseAutoConfigURL = !mstrAutoConfigURL.empty();
    });
}

void InternetExplorerLib::GetDisablePWDCache() {
    Procedure proc(kTag, "GetDisablePWDCache");
    proc.Run([&] {
        const std::optional<uint32_t> number =
            NumberOf(ReadValue(kInternetSettings, "DisablePasswordCaching"));
        mblnDisablePWDCache = number && *number == 1;
    });
}

// --- Writing the live settings. Each leaves its value alone when the value
// already says what the record says.

void InternetExplorerLib::SetProxyAddresses() {
    Procedure proc(kTag, "SetProxyAddresses");
    proc.Run([&] {
        const std::string text = ComposeProxyServer();
        ProxyServerList live;
        SplitProxyList(Trim(ReadText(kInternetSettings, "ProxyServer")) + ";", live);
        if (ComposeProxyList(live) == text) return;
        Written(proc, WriteValue(kInternetSettings, "ProxyServer", kRegString, text),
                "ProxyServer = " + text);
    });
}

void InternetExplorerLib::SetProxyEnabled() {
    Procedure proc(kTag, "SetProxyEnabled");
    proc.Run([&] {
        const std::optional<RegistryValue> live = ReadValue(kInternetSettings, "ProxyEnable");
        const std::optional<uint8_t> first = FirstByte(live);
        if ((first && *first == 1) == mblnProxyEnabled) return;
        Written(proc, WriteFlag("ProxyEnable", mblnProxyEnabled, live),
                std::string("ProxyEnable = ") + ProfileFlagText(mblnProxyEnabled));
    });
}

void InternetExplorerLib::SetProxyExceptions() {
    Procedure proc(kTag, "SetProxyExceptions");
    proc.Run([&] {
        const std::string text =
            ComposeProxyOverride(mstrProxyExceptions, mblnIgnoreLocalAddresses);
        std::string liveExceptions;
        bool liveLocal = false;
        SplitProxyOverride(ReadText(kInternetSettings, "ProxyOverride"), liveExceptions, liveLocal);
        if (ComposeProxyOverride(liveExceptions, liveLocal) == text) return;
        Written(proc, WriteValue(kInternetSettings, "ProxyOverride", kRegString, text),
                "ProxyOverride = " + text);
    });
}

void InternetExplorerLib::SetDefaultHomePage() {
    Procedure proc(kTag, "SetDefaultHomePage");
    proc.Run([&] {
        if (ReadText(kExplorerMain, "Start Page") == mstrDefaultHomePage) return;
        Written(proc, WriteValue(kExplorerMain, "Start Page", kRegString, mstrDefaultHomePage),
                "Start Page = " + mstrDefaultHomePage);
    });
}

void InternetExplorerLib::SetConnectViaLAN() {
    Procedure proc(kTag, "SetConnectViaLAN");
    proc.Run([&] {
        // Read as "EnableAutoDial", written as "EnableAutodial": the name
        // Internet Explorer itself writes.
        const std::optional<RegistryValue> live = ReadValue(kInternetSettings, "EnableAutoDial");
        if (ConnectsViaLAN(live) == mblnConnectViaLAN) return;
        Written(proc, WriteFlag("EnableAutodial", !mblnConnectViaLAN, live),
                std::string("EnableAutodial = ") + ProfileFlagText(!mblnConnectViaLAN));
    });
}

void InternetExplorerLib::SetDUN() {
    Procedure proc(kTag, "SetDUN");
    proc.Run([&] {
        const bool win9x = mstrOSTag == kOS9x;
        const std::string& key = win9x ? kRemoteAccess : kAutoDialDefault;
        const char* name = win9x ? "InternetProfile" : "DefaultInternet";
        if (ReadText(key, name) == mstrCurrentDUN) return;
        Written(proc, WriteValue(key, name, kRegString, mstrCurrentDUN),
                std::string(name) + " = " + mstrCurrentDUN);
    });
}

void InternetExplorerLib::SetAutoDetectSettings() {
    Procedure proc(kTag, "SetAutoDetectSettings");
    proc.Run([&] {
        const std::optional<RegistryValue> live =
            ReadValue(kConnections, "DefaultConnectionSettings");
        if (!live || live->Bytes.size() <= kConnectionFlagsByte) {
            // Internet Explorer writes the record when its connection settings
            // are first saved; a missing or cut record has no flag to change.
            if (mblnAutoDetectSettings) {
                WriteLog(std::string(kTag) +
                             " - SetAutoDetectSettings: \"DefaultConnectionSettings\" " +
                             (live ? "holds only " + std::to_string(live->Bytes.size()) + " bytes"
                                   : std::string("is missing")) +
                             ": automatic detection left off",
                         kLogWarning);
            }
            return;
        }
        std::vector<uint8_t> bytes = live->Bytes;
        uint8_t& flags = bytes[kConnectionFlagsByte];
        const uint8_t before = flags;
        flags = mblnAutoDetectSettings ? (flags | kAutoDetectFlag)
                                       : (flags & static_cast<uint8_t>(~kAutoDetectFlag));
        if (flags == before) return;
        Written(proc, WriteValue(kConnections, "DefaultConnectionSettings", kRegBinary, bytes),
                std::string("DefaultConnectionSettings auto-detect = ") +
                    ProfileFlagText(mblnAutoDetectSettings));
    });
}

void InternetExplorerLib::SetAutoConfigURL() {
    Procedure proc(kTag, "SetAutoConfigURL");
    proc.Run([&] {
        const std::optional<RegistryValue> live = ReadValue(kInternetSettings, "AutoConfigURL");
        const std::string liveText = live && live->Type == kRegString ? live->Text.c_str() : "";
        if (mblnUseAutoConfigURL) {
            if (liveText == mstrAutoConfigURL) return;  // a missing value reads as empty
            Written(proc,
                    WriteValue(kInternetSettings, "AutoConfigURL", kRegString, mstrAutoConfigURL),
                    "AutoConfigURL = " + mstrAutoConfigURL);
            return;
        }
        // Not in use: the value goes. An empty one already means the same.
        if (!live || liveText.empty()) return;
        clsEasyRegistry registry;
        registry.SetSuppressErrors(true);
        registry.SetCurrentKey(kInternetSettings);
        if (registry.LastError() == 0) registry.DeleteValue("AutoConfigURL");
        Written(proc, registry.LastError() == 0, "AutoConfigURL deleted");
    });
}

void InternetExplorerLib::SetDisablePWDCache() {
    Procedure proc(kTag, "SetDisablePWDCache");
    proc.Run([&] {
        const std::optional<uint32_t> live =
            NumberOf(ReadValue(kInternetSettings, "DisablePasswordCaching"));
        if ((live && *live == 1) == mblnDisablePWDCache) return;
        Written(proc,
                WriteValue(kInternetSettings, "DisablePasswordCaching", kRegDword,
                           mblnDisablePWDCache ? 1.0 : 0.0),
                std::string("DisablePasswordCaching = ") + ProfileFlagText(mblnDisablePWDCache));
    });
}

// --- The whole record.

void InternetExplorerLib::LoadConfiguration() {
    Procedure proc(kTag, "loadConfiguration");
    proc.Run([&] {
        GetProxyAddresses();
        GetProxyEnabled();
        GetProxyExceptions();
        GetDefaultHomePage();
        GetConnectViaLAN();
        GetDUNList();
        GetAutoDetectSettings();
        GetAutoConfigURL();
        GetDisablePWDCache();
        ResetFlags();
    });
}

void InternetExplorerLib::ApplyConfiguration() {
    Procedure proc(kTag, "ApplyConfiguration");
    proc.Run([&] {
        if (!IsModified()) return;
        SetProxyAddresses();
        SetProxyEnabled();
        SetProxyExceptions();
        SetDefaultHomePage();
        SetConnectViaLAN();
        SetDUN();
        SetAutoDetectSettings();
        SetAutoConfigURL();
        SetDisablePWDCache();
        ResetFlags();
    });
}

void InternetExplorerLib::LoadConfigurationFile(const std::string& astrFile) {
    clsBrowserBase::LoadConfigurationFile(astrFile);
    // The section keeps no switch of its own for the script: as in the
    // registry, a URL means it is used.
    mblnUseAutoConfigURL = !mstrAutoConfigURL.empty();
}

}  // namespace rwz
