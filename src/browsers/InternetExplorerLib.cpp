#include "browsers/InternetExplorerLib.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/Procedure.h"
#include "platform/Win32Handles.h"
#include "platform/modLogging.h"
#include "platform/modRegistry.h"
#include "platform/modUtilities.h"
#include "profile/modProfileIO.h"

namespace rwz {

namespace {

constexpr const char* kTag = "clsExplorer";

#define RWZ_INTERNET_SETTINGS \
    "\\HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings"
const char kInternetSettings[] = RWZ_INTERNET_SETTINGS;
const char kConnections[] = RWZ_INTERNET_SETTINGS "\\Connections";
#undef RWZ_INTERNET_SETTINGS
const char kExplorerMain[] = "\\HKEY_CURRENT_USER\\Software\\Microsoft\\Internet Explorer\\Main";
const char kRemoteAccess[] = "\\HKEY_CURRENT_USER\\RemoteAccess";
const char kRemoteAddresses[] = "\\HKEY_CURRENT_USER\\RemoteAccess\\Addresses\\";
const char kAutoDialDefault[] = "\\HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\RAS AutoDial\\Default";

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

// A text value up to its first NUL; "" when missing or not text.
std::string ReadText(const std::string& astrKey, const std::string& astrName) {
    return reg::ReadText(astrKey, astrName).value_or(std::string()).c_str();
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

// A four-byte flag, first byte 1 or 0: in the binary form when the value is
// binary already, else as a double word (the same four bytes).
bool WriteFlag(const char* aszKey, const char* aszName, bool ablnOn,
               const std::optional<RegistryValue>& aLive) {
    if (aLive && aLive->Type == kRegBinary) {
        return reg::Write(aszKey, aszName, kRegBinary,
                          std::vector<uint8_t>{ablnOn ? uint8_t{1} : uint8_t{0}, 0, 0, 0});
    }
    return reg::Write(aszKey, aszName, kRegDword, ablnOn ? 1.0 : 0.0);
}

void Written(const Procedure& aProc, bool ablnWritten, const std::string& astrWhat) {
    if (ablnWritten) {
        aProc.Log(astrWhat);
    } else {
        WriteLog(astrWhat + " not written : " + aProc.Where(), kLogError);
    }
}

// "EnableAutoDial": dial-up when its first byte is not 0. Without the value
// Windows never dials, so the connection is the local network.
bool ConnectsViaLAN(const std::optional<RegistryValue>& aValue) {
    const std::optional<uint8_t> first = FirstByte(aValue);
    return !first || *first == 0;
}

enum class Kind {
    Text,      // a string value
    Flag,      // four bytes, first byte 1 when on
    DialFlag,  // "EnableAutoDial": on (dial-up) unless its first byte is 0; the record holds the
               // opposite
    Number,    // a double word, 1 when on
    Code,      // read and written by a function of the back end
};

}  // namespace

// One setting: the operation names its log lines carry, the record member,
// and the registry value read (and the name written, where Internet Explorer
// spells it otherwise).
struct InternetExplorerLib::Setting {
    const char* Get;
    const char* Set;
    Kind Form;
    std::string BrowserRecord::*Text;
    bool BrowserRecord::*Flag;
    const char* Key;
    const char* Name;
    const char* WriteName;
    void (InternetExplorerLib::*Read)(const Procedure&);
    void (InternetExplorerLib::*Write)(const Procedure&);
};

// Loaded and applied in this order.
const InternetExplorerLib::Setting InternetExplorerLib::kSettings[] = {
    {"getProxyAddresses", "SetProxyAddresses", Kind::Code, nullptr, nullptr, nullptr, nullptr,
     nullptr, &InternetExplorerLib::GetProxyAddresses, &InternetExplorerLib::SetProxyAddresses},
    {"GetProxyEnabled", "SetProxyEnabled", Kind::Flag, nullptr, &BrowserRecord::ProxyEnabled,
     kInternetSettings, "ProxyEnable", "ProxyEnable", nullptr, nullptr},
    {"GetProxyExceptions", "SetProxyExceptions", Kind::Code, nullptr, nullptr, nullptr, nullptr,
     nullptr, &InternetExplorerLib::GetProxyExceptions, &InternetExplorerLib::SetProxyExceptions},
    {"GetDefaultHomePage", "SetDefaultHomePage", Kind::Text, &BrowserRecord::DefaultHomePage,
     nullptr, kExplorerMain, "Start Page", "Start Page", nullptr, nullptr},
    {"GetConnectViaLAN", "SetConnectViaLAN", Kind::DialFlag, nullptr, &BrowserRecord::ConnectViaLAN,
     kInternetSettings, "EnableAutoDial", "EnableAutodial", nullptr, nullptr},
    {"GetDUNList", "SetDUN", Kind::Code, nullptr, nullptr, nullptr, nullptr, nullptr,
     &InternetExplorerLib::GetDUNList, &InternetExplorerLib::SetDUN},
    {"GetAutoDetectSettings", "SetAutoDetectSettings", Kind::Code, nullptr, nullptr, nullptr,
     nullptr, nullptr, &InternetExplorerLib::GetAutoDetectSettings,
     &InternetExplorerLib::SetAutoDetectSettings},
    {"GetAutoConfigURL", "SetAutoConfigURL", Kind::Code, nullptr, nullptr, nullptr, nullptr,
     nullptr, &InternetExplorerLib::GetAutoConfigURL, &InternetExplorerLib::SetAutoConfigURL},
    {"GetDisablePWDCache", "SetDisablePWDCache", Kind::Number, nullptr,
     &BrowserRecord::DisablePWDCache, kInternetSettings, "DisablePasswordCaching",
     "DisablePasswordCaching", nullptr, nullptr},
};

InternetExplorerLib::InternetExplorerLib(OSFamily aFamily)
    : clsBrowserBase(BrowserSection::InternetExplorer, kTag), mFamily(aFamily) {
    mstrVersionString = GetIEVersion();
    msngVersion = VersionNumber(mstrVersionString);
    // Versions up to 3.0 keep their settings elsewhere.
    mblnIsInstalled = msngVersion > 3.0f;
}

InternetExplorerLib::InternetExplorerLib() : InternetExplorerLib(OSFamilyOf(GetCurrentOSTag())) {}

ProxyServerList InternetExplorerLib::ProxyList() const {
    ProxyServerList list;
    list.UseSameProxy = mRecord.UseSameProxy;
    list.HTTPAddress = mRecord.HTTPAddress;
    list.HTTPPort = mRecord.HTTPPort;
    list.SecureAddress = mRecord.SecureAddress;
    list.SecurePort = mRecord.SecurePort;
    list.FTPAddress = mRecord.FTPAddress;
    list.FTPPort = mRecord.FTPPort;
    list.GopherAddress = mRecord.GopherAddress;
    list.GopherPort = mRecord.GopherPort;
    list.SocksAddress = mRecord.SocksAddress;
    list.SocksPort = mRecord.SocksPort;
    return list;
}

void InternetExplorerLib::TakeProxyList(const ProxyServerList& aList) {
    mRecord.UseSameProxy = aList.UseSameProxy;
    mRecord.HTTPAddress = aList.HTTPAddress;
    mRecord.HTTPPort = aList.HTTPPort;
    mRecord.SecureAddress = aList.SecureAddress;
    mRecord.SecurePort = aList.SecurePort;
    mRecord.FTPAddress = aList.FTPAddress;
    mRecord.FTPPort = aList.FTPPort;
    mRecord.GopherAddress = aList.GopherAddress;
    mRecord.GopherPort = aList.GopherPort;
    mRecord.SocksAddress = aList.SocksAddress;
    mRecord.SocksPort = aList.SocksPort;
}

void InternetExplorerLib::SplitProxyServer(const std::string& astrProxyServer) {
    ProxyServerList list = ProxyList();
    SplitProxyList(astrProxyServer, list);
    TakeProxyList(list);
}

std::string InternetExplorerLib::ComposeProxyServer() const {
    return ComposeProxyList(ProxyList());
}

// --- The settings a row describes.

void InternetExplorerLib::Read(const Setting& aSetting, const Procedure& aProc) {
    switch (aSetting.Form) {
        case Kind::Text:
            mRecord.*aSetting.Text = ReadText(aSetting.Key, aSetting.Name);
            break;
        case Kind::Flag: {
            const std::optional<uint8_t> first = FirstByte(reg::Read(aSetting.Key, aSetting.Name));
            mRecord.*aSetting.Flag = first && *first == 1;
            break;
        }
        case Kind::DialFlag:
            mRecord.*aSetting.Flag = ConnectsViaLAN(reg::Read(aSetting.Key, aSetting.Name));
            break;
        case Kind::Number: {
            const std::optional<uint32_t> number = NumberOf(reg::Read(aSetting.Key, aSetting.Name));
            mRecord.*aSetting.Flag = number && *number == 1;
            break;
        }
        case Kind::Code:
            (this->*aSetting.Read)(aProc);
            break;
    }
}

// Each leaves its value alone when the value already says what the record says.
void InternetExplorerLib::Write(const Setting& aSetting, const Procedure& aProc) {
    const std::string name = aSetting.WriteName ? aSetting.WriteName : "";
    switch (aSetting.Form) {
        case Kind::Text: {
            const std::string& text = mRecord.*aSetting.Text;
            if (ReadText(aSetting.Key, aSetting.Name) == text) return;
            Written(aProc, reg::Write(aSetting.Key, name, kRegString, text), name + " = " + text);
            break;
        }
        case Kind::Flag: {
            const bool on = mRecord.*aSetting.Flag;
            const std::optional<RegistryValue> live = reg::Read(aSetting.Key, aSetting.Name);
            const std::optional<uint8_t> first = FirstByte(live);
            if ((first && *first == 1) == on) return;
            Written(aProc, WriteFlag(aSetting.Key, aSetting.WriteName, on, live),
                    name + " = " + ProfileFlagText(on));
            break;
        }
        case Kind::DialFlag: {
            const bool lan = mRecord.*aSetting.Flag;
            const std::optional<RegistryValue> live = reg::Read(aSetting.Key, aSetting.Name);
            if (ConnectsViaLAN(live) == lan) return;
            Written(aProc, WriteFlag(aSetting.Key, aSetting.WriteName, !lan, live),
                    name + " = " + ProfileFlagText(!lan));
            break;
        }
        case Kind::Number: {
            const bool on = mRecord.*aSetting.Flag;
            const std::optional<uint32_t> live = NumberOf(reg::Read(aSetting.Key, aSetting.Name));
            if ((live && *live == 1) == on) return;
            Written(aProc, reg::Write(aSetting.Key, name, kRegDword, on ? 1.0 : 0.0),
                    name + " = " + ProfileFlagText(on));
            break;
        }
        case Kind::Code:
            (this->*aSetting.Write)(aProc);
            break;
    }
}

// --- The settings that need code.

void InternetExplorerLib::GetProxyAddresses(const Procedure& aProc) {
    const std::string value = ReadText(kInternetSettings, "ProxyServer");
    aProc.LogValue(value);
    // The registry's list gets one ";" more than the profile's: a missing
    // value reads as one proxy for all protocols, with no host.
    SplitProxyServer(Trim(value) + ";");
}

void InternetExplorerLib::SetProxyAddresses(const Procedure& aProc) {
    const std::string text = ComposeProxyServer();
    ProxyServerList live;
    SplitProxyList(Trim(ReadText(kInternetSettings, "ProxyServer")) + ";", live);
    if (ComposeProxyList(live) == text) return;
    Written(aProc, reg::Write(kInternetSettings, "ProxyServer", kRegString, text),
            "ProxyServer = " + text);
}

void InternetExplorerLib::GetProxyExceptions(const Procedure&) {
    SplitProxyOverride(ReadText(kInternetSettings, "ProxyOverride"), mRecord.ProxyExceptions,
                       mRecord.IgnoreLocalAddresses);
}

void InternetExplorerLib::SetProxyExceptions(const Procedure& aProc) {
    const std::string text =
        ComposeProxyOverride(mRecord.ProxyExceptions, mRecord.IgnoreLocalAddresses);
    std::string liveExceptions;
    bool liveLocal = false;
    SplitProxyOverride(ReadText(kInternetSettings, "ProxyOverride"), liveExceptions, liveLocal);
    if (ComposeProxyOverride(liveExceptions, liveLocal) == text) return;
    Written(aProc, reg::Write(kInternetSettings, "ProxyOverride", kRegString, text),
            "ProxyOverride = " + text);
}

void InternetExplorerLib::GetDUNList(const Procedure& aProc) {
    mRecord.DUNList.clear();
    if (mFamily == OSFamily::Win9x) {
        mRecord.CurrentDUN = ReadText(kRemoteAccess, "InternetProfile");
        for (const RegistryValueRow& row : reg::Values(kRemoteAddresses)) {
            if (!row.Name.empty()) mRecord.DUNList.push_back(row.Name);
        }
        return;
    }

    mRecord.CurrentDUN = ReadText(kAutoDialDefault, "DefaultInternet");
    // The dial-up service is an optional part of every system: looked up
    // when needed, never linked.
    Module ras(LoadLibraryA("rasapi32.dll"));
    if (!ras) {
        aProc.Log("no dial-up networking (rasapi32.dll)");
        return;
    }
    const auto enumEntries = reinterpret_cast<RasEnumEntriesFunction>(
        reinterpret_cast<void*>(GetProcAddress(ras.Get(), "RasEnumEntriesA")));
    if (!enumEntries) {
        aProc.Log("no RasEnumEntriesA in rasapi32.dll");
        return;
    }
    std::vector<RasEntryName> entries(kRasEntries);
    for (RasEntryName& entry : entries) entry.Size = sizeof(RasEntryName);
    DWORD bytes = sizeof(RasEntryName) * kRasEntries;
    DWORD count = 0;
    const DWORD result = enumEntries(nullptr, nullptr, entries.data(), &bytes, &count);
    if (result != 0) {
        aProc.Log("RasEnumEntriesA returned " + std::to_string(result));
        return;
    }
    for (DWORD i = 0; i < count && i < kRasEntries; ++i) {
        const char* name = entries[i].Name;
        mRecord.DUNList.emplace_back(name, std::find(name, name + sizeof entries[i].Name, '\0'));
    }
}

void InternetExplorerLib::SetDUN(const Procedure& aProc) {
    const bool win9x = mFamily == OSFamily::Win9x;
    const char* key = win9x ? kRemoteAccess : kAutoDialDefault;
    const char* name = win9x ? "InternetProfile" : "DefaultInternet";
    if (ReadText(key, name) == mRecord.CurrentDUN) return;
    Written(aProc, reg::Write(key, name, kRegString, mRecord.CurrentDUN),
            std::string(name) + " = " + mRecord.CurrentDUN);
}

void InternetExplorerLib::GetAutoDetectSettings(const Procedure&) {
    mRecord.AutoDetectSettings = false;
    const std::optional<RegistryValue> value = reg::Read(kConnections, "DefaultConnectionSettings");
    if (!value || value->Bytes.size() <= kConnectionFlagsByte) return;
    mRecord.AutoDetectSettings = (value->Bytes[kConnectionFlagsByte] & kAutoDetectFlag) != 0;
}

void InternetExplorerLib::SetAutoDetectSettings(const Procedure& aProc) {
    const bool on = mRecord.AutoDetectSettings;
    const std::optional<RegistryValue> live = reg::Read(kConnections, "DefaultConnectionSettings");
    if (!live || live->Bytes.size() <= kConnectionFlagsByte) {
        // Internet Explorer writes the record when its connection settings
        // are first saved; a missing or cut record has no flag to change.
        if (on) {
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
    flags = on ? (flags | kAutoDetectFlag) : (flags & static_cast<uint8_t>(~kAutoDetectFlag));
    if (flags == before) return;
    Written(aProc, reg::Write(kConnections, "DefaultConnectionSettings", kRegBinary, bytes),
            std::string("DefaultConnectionSettings auto-detect = ") + ProfileFlagText(on));
}

void InternetExplorerLib::GetAutoConfigURL(const Procedure&) {
    mRecord.AutoConfigURL = ReadText(kInternetSettings, "AutoConfigURL");
    mRecord.UseAutoConfigURL = !mRecord.AutoConfigURL.empty();
}

void InternetExplorerLib::SetAutoConfigURL(const Procedure& aProc) {
    const std::optional<RegistryValue> live = reg::Read(kInternetSettings, "AutoConfigURL");
    const std::string liveText = live && live->Type == kRegString ? live->Text.c_str() : "";
    if (mRecord.UseAutoConfigURL) {
        if (liveText == mRecord.AutoConfigURL) return;  // a missing value reads as empty
        Written(aProc,
                reg::Write(kInternetSettings, "AutoConfigURL", kRegString, mRecord.AutoConfigURL),
                "AutoConfigURL = " + mRecord.AutoConfigURL);
        return;
    }
    // Not in use: the value goes. An empty one already means the same.
    if (!live || liveText.empty()) return;
    Written(aProc, reg::DeleteValue(kInternetSettings, "AutoConfigURL"), "AutoConfigURL deleted");
}

// --- The whole record.

void InternetExplorerLib::LoadConfiguration() {
    Procedure proc(kTag, "loadConfiguration");
    proc.Run([&] {
        for (const Setting& setting : kSettings) {
            Procedure step(kTag, setting.Get);
            step.Run([&] { Read(setting, step); });
        }
        ResetFlags();
    });
}

void InternetExplorerLib::ApplyConfiguration() {
    Procedure proc(kTag, "ApplyConfiguration");
    proc.Run([&] {
        if (!IsModified()) return;
        for (const Setting& setting : kSettings) {
            Procedure step(kTag, setting.Set);
            step.Run([&] { Write(setting, step); });
        }
        ResetFlags();
    });
}

}  // namespace rwz
