// The profile file container: the comment header, the two sections the profile
// object owns ([Enabled Sections] and [Advanced]), and the order in which the
// area back ends and the add-ins write and read their own sections.
//
// The profile object builds a list of section owners and calls
//     SaveProfileFile / LoadProfileFile            (whole file, errors handled)
//     WriteAdvancedSettings / ReadAdvancedSettings (its [Advanced] alone)
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/RwzError.h"

namespace rwz {

inline constexpr const char* kSectionEnabled = "Enabled Sections";
inline constexpr const char* kSectionAdvanced = "Advanced";
inline constexpr const char* kKeyAutoApply = "AutoApply";
inline constexpr const char* kKeyAutoReboot = "AutoReboot";
inline constexpr const char* kKeyComments = "Comments";
inline constexpr const char* kKeyReadOnly = "ReadOnly";

// The container's own settings, as the profile object holds them.
struct ProfileFileSettings {
    bool ApplyGeneral = true;
    bool ApplyIE = true;
    bool ApplyNN = true;
    bool ApplyOpera = true;
    bool AutoApply = false;
    bool AutoReboot = false;
    std::string Comments;
    bool ReadOnly = false;  // read, never written
};

// The areas in the order their sections stand in a file; add-ins come last.
enum class ProfileArea { General, InternetExplorer, NetscapeNavigator, Opera, AddIn };

// The [Enabled Sections] key of an area ("" for add-ins, which have none).
const char* AreaKey(ProfileArea aArea);
// Whether the settings enable the area; add-ins are always asked.
bool AreaEnabled(const ProfileFileSettings& aSettings, ProfileArea aArea);

// Whoever writes and reads sections of its own in the profile: an area's back
// end or an add-in. Each function gets the profile's full path.
struct ProfileSectionOwner {
    ProfileArea Area = ProfileArea::AddIn;
    // For the browser areas: the browser is installed. An owner that is not
    // installed is never asked, whatever the profile says.
    bool Installed = true;
    std::function<void(const std::string&)> SaveSections;
    std::function<void(const std::string&)> LoadSections;
};

// The owners that take part for these settings, in file order (area order,
// then add-ins in the order given).
std::vector<const ProfileSectionOwner*> ActiveOwners(
    const ProfileFileSettings& aSettings, const std::vector<ProfileSectionOwner>& aOwners);

// The six comment lines and the empty line that open every profile, CR LF ended.
std::string ProfileHeaderText();

// A profile is a few kilobytes; a file far larger is not one.
inline constexpr size_t kMaxProfileBytes = 64u << 20;

// The section names the file holds. Raises when it cannot be read.
std::vector<std::string> ProfileSectionsOf(const std::string& astrFile);
bool HasSection(const std::vector<std::string>& acolSections, const std::string& astrName);
// Why the file is not a profile (it cannot be read, or holds none of the
// sections a profile has); "" for a profile.
std::string NotAProfileReason(const std::string& astrFile);

// Creates or empties the file and writes the comment header. Raises runtime
// error 75 when the file cannot be written.
void WriteProfileHeader(const std::string& astrFile);

// [Enabled Sections]: all four keys, "1" or "0". Reading takes "1" for a missing
// key; only exactly "1" enables an area.
void WriteEnabledSections(const std::string& astrFile, const ProfileFileSettings& aSettings);
void ReadEnabledSections(const std::string& astrFile, ProfileFileSettings& aSettings);

// [Advanced]: AutoApply, AutoReboot and Comments are written; ReadOnly is only
// read. Writing keeps the rest of the file (and its header layout).
void WriteAdvancedSettings(const std::string& astrFile, const ProfileFileSettings& aSettings);
void ReadAdvancedSettings(const std::string& astrFile, ProfileFileSettings& aSettings);

// The whole file: header, [Enabled Sections], [Advanced], then every active
// owner's sections. Everything the file held before is gone. Raises on the
// first failure; what was written up to it stays.
void WriteProfileFile(const std::string& astrFile, const ProfileFileSettings& aSettings,
                      const std::vector<ProfileSectionOwner>& aOwners);
// Reads both container sections into aSettings, then lets every active owner
// read. An area whose sections the file lacks is not enabled.
void ReadProfileFile(const std::string& astrFile, ProfileFileSettings& aSettings,
                     const std::vector<ProfileSectionOwner>& aOwners);

// WriteProfileFile as the profile object's save reports it: nothing on success,
// the error on failure, for the caller to tell the user.
// Errors other than 75 are logged under `astrWhere`
// ("clsRwzConfig:SaveConfigurationFile").
std::optional<ErrorInfo> SaveProfileFile(const std::string& astrWhere, const std::string& astrFile,
                                         const ProfileFileSettings& aSettings,
                                         const std::vector<ProfileSectionOwner>& aOwners);
// ReadProfileFile with every error logged under `astrWhere` and stopped there:
// 0 when read, 1 (nothing read) when the file is not a profile.
int LoadProfileFile(const std::string& astrWhere, const std::string& astrFile,
                    ProfileFileSettings& aSettings,
                    const std::vector<ProfileSectionOwner>& aOwners);

}  // namespace rwz
