// What the operating system says: which system is running, which browsers are
// installed in which version, and the standard file dialogs.
#pragma once

#include <windows.h>

#include <string>

namespace rwz {

// Operating-system tags.
inline constexpr const char* kOS9x = "9x";
inline constexpr const char* kOSNT = "NT";
inline constexpr const char* kOS2K = "2K";
inline constexpr const char* kOSXP = "XP";
inline constexpr const char* kOS2003 = "2003";

// The families of systems the program tells apart. Code compares families; the
// tags above are what the log, the profiles and conditional values carry.
enum class OSFamily { Unsupported, Win9x, NT4, Win2K, XP, Server2003 };

OSFamily OSFamilyOf(const std::string& astrTag);
// The tag of a family; "" for Unsupported.
const char* OSTagOf(OSFamily aFamily);
// 2000, XP and Server 2003: one network back end, the networking services.
inline bool IsNT5Family(OSFamily aFamily) {
    return aFamily == OSFamily::Win2K || aFamily == OSFamily::XP ||
           aFamily == OSFamily::Server2003;
}

// The version record of the running system: the extended record first, then
// the plain one, as older systems reject the extended one. False when both fail.
bool QueryOSVersion(OSVERSIONINFOEXA& version);

// The tag for a platform id and version; "" for an unsupported system.
std::string OSTagFor(DWORD platformId, DWORD major, DWORD minor);

// "9x", "NT", "2K", "XP", "2003", or "" on an unsupported system.
std::string GetCurrentOSTag();
bool IsNTPlatform();
bool IsXPHomeEdition();

// Product version strings of the installed browsers' program files; "" when
// not installed. The ...Number twins give the leading number (0 for "").
std::string GetIEVersion();
std::string GetNetscapeVersion();
std::string GetOperaVersion();
float GetIEVersionNumber();
float GetNetscapeVersionNumber();
float GetOperaVersionNumber();
// The leading number of a version string ("4.79 [en]" gives 4.79).
float VersionNumber(const std::string& astrVersion);

// The "ProductVersion" string of a file's version resource, "" when none.
std::string GetFileProductVersion(const std::string& astrPath);

// Common dialogs. Filters use "|" between fields, as in
// "Text Files (*.txt)|*.txt|All Files (*.*)|*.*". Empty result on cancel.
std::string ShowOpenFileDialog(HWND owner, const std::string& astrTitle,
                               const std::string& astrFilter, const std::string& astrDefault);
std::string ShowSaveFileDialog(HWND owner, const std::string& astrTitle,
                               const std::string& astrFilter, const std::string& astrDefault);
// The print-setup dialog; false on cancel.
bool ShowPrintSetupDialog(HWND owner);

}  // namespace rwz
