#include "profile/modProfileFile.h"

#include <windows.h>

#include "platform/AppVersion.h"
#include "platform/Procedure.h"
#include "platform/Win32Handles.h"
#include "platform/modLogging.h"
#include "platform/modSafeFile.h"
#include "platform/modText.h"
#include "profile/modProfileIO.h"

namespace rwz {

namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr ProfileArea kAreasInFileOrder[] = {ProfileArea::General, ProfileArea::InternetExplorer,
                                             ProfileArea::NetscapeNavigator, ProfileArea::Opera,
                                             ProfileArea::AddIn};

// The six comment lines without the empty line that follows them.
std::string HeaderLines() {
    const std::string strRule = ";" + std::string(44, '-');
    const std::string strVersion = std::to_string(RWZ_VERSION_MAJOR) + "." +
                                   std::to_string(RWZ_VERSION_MINOR) + "." +
                                   std::to_string(RWZ_VERSION_REVISION);
    std::string text;
    for (const std::string& line :
         {strRule, "; " RWZ_PRODUCT_NAME " - v" + strVersion, std::string(";"),
          std::string("; A " RWZ_PRODUCT_NAME
                      " profile: network and browser settings to apply in one step."),
          std::string("; It may be edited by hand; keep to one key=value per line."), strRule}) {
        text += line + kLineEnd;
    }
    return text;
}

// Makes the system write out whatever it still holds of the file in its
// profile cache (Windows 95 writes profiles lazily), so that plain file access
// and the private-profile functions see the same content.
void FlushProfileCache(const std::string& astrFile) {
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, astrFile.c_str());
}

// A file marked read-only is refused as Windows refuses it, also where the
// file system would let its owner write it anyway.
void RefuseReadOnly(const std::string& astrFile) {
    const DWORD attributes = GetFileAttributesA(astrFile.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY)) {
        RaiseRuntimeError(kErrPathFileAccess, "Rwz");
    }
}

void WriteWholeFile(const std::string& astrFile, const std::string& astrContent) {
    RefuseReadOnly(astrFile);
    KernelHandle file(CreateFileA(astrFile.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) RaiseRuntimeError(kErrPathFileAccess, "Rwz");
    DWORD written = 0;
    if (!WriteFile(file.Get(), astrContent.data(), static_cast<DWORD>(astrContent.size()), &written,
                   nullptr) ||
        written != astrContent.size()) {
        RaiseRuntimeError(kErrPathFileAccess, "Rwz");
    }
    if (!file.Close()) RaiseRuntimeError(kErrPathFileAccess, "Rwz");
}

// The file's content, or nothing when it cannot be read.
bool ReadWholeFile(const std::string& astrFile, std::string& astrContent) {
    KernelHandle file(CreateFileA(astrFile.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return false;
    const DWORD size = GetFileSize(file.Get(), nullptr);
    if (size == INVALID_FILE_SIZE) return false;
    astrContent.assign(size, '\0');
    DWORD read = 0;
    return size == 0 ||
           (ReadFile(file.Get(), &astrContent[0], size, &read, nullptr) && read == size);
}

// The private-profile functions of some systems rewrite the whole file on every
// key and drop its empty lines, the one closing the header among them. Puts it
// back when the file still opens with the header's comment lines.
void KeepHeaderLayout(const std::string& astrFile) {
    FlushProfileCache(astrFile);
    std::string strContent;
    if (!ReadWholeFile(astrFile, strContent)) return;
    const std::string strLines = HeaderLines();
    if (strContent.compare(0, strLines.size(), strLines) != 0) return;
    if (strContent.compare(strLines.size(), 2, kLineEnd) == 0) return;
    strContent.insert(strLines.size(), kLineEnd);
    WriteWholeFile(astrFile, strContent);
}

void WriteAdvancedSection(const std::string& astrFile, const ProfileFileSettings& aSettings) {
    WriteProfileString(astrFile, kSectionAdvanced, kKeyAutoApply,
                       ProfileFlagText(aSettings.AutoApply));
    WriteProfileString(astrFile, kSectionAdvanced, kKeyAutoReboot,
                       ProfileFlagText(aSettings.AutoReboot));
    WriteProfileString(astrFile, kSectionAdvanced, kKeyComments, aSettings.Comments);
}

}  // namespace

const char* AreaKey(ProfileArea aArea) {
    switch (aArea) {
        case ProfileArea::General:
            return "General";
        case ProfileArea::InternetExplorer:
            return "Internet Explorer";
        case ProfileArea::NetscapeNavigator:
            return "Netscape Navigator";
        case ProfileArea::Opera:
            return "Opera";
        case ProfileArea::AddIn:
            break;
    }
    return "";
}

bool AreaEnabled(const ProfileFileSettings& aSettings, ProfileArea aArea) {
    switch (aArea) {
        case ProfileArea::General:
            return aSettings.ApplyGeneral;
        case ProfileArea::InternetExplorer:
            return aSettings.ApplyIE;
        case ProfileArea::NetscapeNavigator:
            return aSettings.ApplyNN;
        case ProfileArea::Opera:
            return aSettings.ApplyOpera;
        case ProfileArea::AddIn:
            break;
    }
    return true;
}

std::vector<const ProfileSectionOwner*> ActiveOwners(
    const ProfileFileSettings& aSettings, const std::vector<ProfileSectionOwner>& aOwners) {
    std::vector<const ProfileSectionOwner*> active;
    for (ProfileArea area : kAreasInFileOrder) {
        if (!AreaEnabled(aSettings, area)) continue;
        for (const ProfileSectionOwner& owner : aOwners) {
            if (owner.Area == area && owner.Installed) active.push_back(&owner);
        }
    }
    return active;
}

std::string ProfileHeaderText() {
    return HeaderLines() + kLineEnd;
}

namespace {

// A profile that cannot be written, whatever the file system's reason (read
// only, in use, no such folder), is reported to the user as "Path/File access
// error" (75); errors of the section owners pass as they are.
template <class Body>
void ReportFileErrorsAs75(Body&& body) {
    try {
        body();
    } catch (const RwzError& error) {
        switch (error.Number()) {
            case kErrFileNotFound:
            case kErrPathNotFound:
            case kErrPermissionDenied:
            case kErrBadFileName:
            case kErrDiskFull:
                RaiseRuntimeError(kErrPathFileAccess, "Rwz");
            default:
                throw;
        }
    }
}

}  // namespace

std::vector<std::string> ProfileSectionsOf(const std::string& astrFile) {
    FlushProfileCache(astrFile);
    return IniSectionNames(ReadWholeFile(astrFile, kMaxProfileBytes));
}

bool HasSection(const std::vector<std::string>& acolSections, const std::string& astrName) {
    for (const std::string& section : acolSections) {
        if (ToLower(section) == ToLower(astrName)) return true;
    }
    return false;
}

std::string NotAProfileReason(const std::string& astrFile) {
    std::vector<std::string> sections;
    try {
        sections = ProfileSectionsOf(astrFile);
    } catch (const std::exception& error) {
        return astrFile + " cannot be read (" + error.what() + ")";
    }
    for (const char* name : {kSectionEnabled, kSectionAdvanced, "Network", "Printer",
                             "Internet Explorer", "Netscape Navigator", "Opera"}) {
        if (HasSection(sections, name)) return std::string();
    }
    return astrFile + " holds none of a profile's sections";
}

void WriteProfileHeader(const std::string& astrFile) {
    Procedure proc("modProfileFile", "WriteProfileHeader");
    FlushProfileCache(astrFile);
    WriteWholeFile(astrFile, ProfileHeaderText());
}

void WriteEnabledSections(const std::string& astrFile, const ProfileFileSettings& aSettings) {
    Procedure proc("modProfileFile", "WriteEnabledSections");
    for (ProfileArea area : kAreasInFileOrder) {
        if (area == ProfileArea::AddIn) continue;
        WriteProfileString(astrFile, kSectionEnabled, AreaKey(area),
                           ProfileFlagText(AreaEnabled(aSettings, area)));
    }
}

void ReadEnabledSections(const std::string& astrFile, ProfileFileSettings& aSettings) {
    Procedure proc("modProfileFile", "ReadEnabledSections");
    // A missing key enables its area; a key with any other value than "1"
    // (even an empty one) disables it.
    const auto enabled = [&](ProfileArea area) {
        return ProfileFlag(ReadProfileString(astrFile, kSectionEnabled, AreaKey(area), "1"));
    };
    aSettings.ApplyGeneral = enabled(ProfileArea::General);
    aSettings.ApplyIE = enabled(ProfileArea::InternetExplorer);
    aSettings.ApplyNN = enabled(ProfileArea::NetscapeNavigator);
    aSettings.ApplyOpera = enabled(ProfileArea::Opera);
}

void WriteAdvancedSettings(const std::string& astrFile, const ProfileFileSettings& aSettings) {
    Procedure proc("modProfileFile", "WriteAdvancedSettings");
    RefuseReadOnly(astrFile);
    FlushProfileCache(astrFile);
    ReportFileErrorsAs75([&] {
        EditFileSafely(astrFile, [&](const std::string& copy) {
            WriteAdvancedSection(copy, aSettings);
            KeepHeaderLayout(copy);
        });
    });
}

void ReadAdvancedSettings(const std::string& astrFile, ProfileFileSettings& aSettings) {
    Procedure proc("modProfileFile", "ReadAdvancedSettings");
    aSettings.AutoApply = ProfileFlag(ReadProfileString(astrFile, kSectionAdvanced, kKeyAutoApply));
    aSettings.AutoReboot =
        ProfileFlag(ReadProfileString(astrFile, kSectionAdvanced, kKeyAutoReboot));
    aSettings.Comments = ReadProfileString(astrFile, kSectionAdvanced, kKeyComments);
    aSettings.ReadOnly = ProfileFlag(ReadProfileString(astrFile, kSectionAdvanced, kKeyReadOnly));
}

void WriteProfileFile(const std::string& astrFile, const ProfileFileSettings& aSettings,
                      const std::vector<ProfileSectionOwner>& aOwners) {
    Procedure proc("modProfileFile", "WriteProfileFile");
    proc.LogValue(astrFile);
    FlushProfileCache(astrFile);
    // Written whole into a copy that then takes the file's place: a failure
    // on the way leaves the old profile as it was.
    ReportFileErrorsAs75([&] {
        EditFileSafely(astrFile, [&](const std::string& copy) {
            WriteProfileHeader(copy);
            // Each key written appends its section at the end of the file the
            // first time, so the sections stand in the order they are written here.
            WriteEnabledSections(copy, aSettings);
            WriteAdvancedSection(copy, aSettings);
            for (const ProfileSectionOwner* owner : ActiveOwners(aSettings, aOwners)) {
                if (owner->SaveSections) owner->SaveSections(copy);
            }
            KeepHeaderLayout(copy);
        });
    });
}

void ReadProfileFile(const std::string& astrFile, ProfileFileSettings& aSettings,
                     const std::vector<ProfileSectionOwner>& aOwners) {
    Procedure proc("modProfileFile", "ReadProfileFile");
    proc.LogValue(astrFile);
    ReadEnabledSections(astrFile, aSettings);
    // An area whose own sections the file lacks is never applied, whatever
    // [Enabled Sections] says: its back end would read nothing but defaults.
    const std::vector<std::string> sections = ProfileSectionsOf(astrFile);
    aSettings.ApplyGeneral = aSettings.ApplyGeneral &&
                             (HasSection(sections, "Network") || HasSection(sections, "Printer"));
    aSettings.ApplyIE = aSettings.ApplyIE && HasSection(sections, "Internet Explorer");
    aSettings.ApplyNN = aSettings.ApplyNN && HasSection(sections, "Netscape Navigator");
    aSettings.ApplyOpera = aSettings.ApplyOpera && HasSection(sections, "Opera");
    ReadAdvancedSettings(astrFile, aSettings);
    for (const ProfileSectionOwner* owner : ActiveOwners(aSettings, aOwners)) {
        if (owner->LoadSections) owner->LoadSections(astrFile);
    }
}

std::optional<ErrorInfo> SaveProfileFile(const std::string& astrWhere, const std::string& astrFile,
                                         const ProfileFileSettings& aSettings,
                                         const std::vector<ProfileSectionOwner>& aOwners) {
    Procedure proc("modProfileFile", "SaveProfileFile");
    try {
        WriteProfileFile(astrFile, aSettings, aOwners);
        return std::nullopt;
    } catch (const std::exception& error) {
        const ErrorInfo info = ErrorOf(error);
        // A file that cannot be written is the user's business, not a fault.
        if (info.Number != kErrPathFileAccess) LogError(info, astrWhere);
        return info;
    }
}

int LoadProfileFile(const std::string& astrWhere, const std::string& astrFile,
                    ProfileFileSettings& aSettings,
                    const std::vector<ProfileSectionOwner>& aOwners) {
    Procedure proc("modProfileFile", "LoadProfileFile");
    try {
        const std::string problem = NotAProfileReason(astrFile);
        if (!problem.empty()) {
            WriteLog("modProfileFile - LoadProfileFile: not a profile, nothing read: " + problem,
                     kLogWarning);
            return 1;
        }
        ReadProfileFile(astrFile, aSettings, aOwners);
    } catch (const std::exception& error) {
        LogError(ErrorOf(error), astrWhere);
    }
    return 0;
}

}  // namespace rwz
