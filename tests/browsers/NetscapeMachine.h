// The Netscape part of a simulated machine (tests/machines/<name>/), and the
// pieces of it that only a test can put in place:
//   netscape.reg          App Paths entry, Netscape 4 user lists (imported)
//   files/                Netscape 4 profile folders (copied onto C:\)
//   netscape/stand-in     the stand-in program (FakeNetscape479.exe or
//                         FakeNetscape72.exe of the build), copied to the path
//                         the App Paths entry names
//   netscape/appdata/     copied into the user's application data folder
//   netscape/registry.txt written there as Mozilla\registry.dat
//
// A class-level test installs the Netscape part alone and removes it again;
// an end-to-end test loads the whole machine with bench::Machine and then
// calls InstallNetscape(name, false) for the rest.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace rwz::test {

// The user's application data folder, as the shell names it.
std::string AppDataFolder();
// <application data>\Mozilla\registry.dat
std::string MozillaRegistryFile();

// One profile of a Mozilla profile registry: its name and folder ("" for a
// profile without a "directory" entry).
struct MozillaProfileEntry {
    std::string Name;
    std::string Directory;
};
// The bytes of a profile registry with "/Common/Profiles" listing these
// profiles, in this order, and the given "CurrentProfile" entry.
std::string MakeMozillaRegistry(const std::vector<MozillaProfileEntry>& acolProfiles,
                                const std::string& astrCurrentProfile = std::string());

// Installs the Netscape part of tests/machines/<name>. With
// ablnRegistryAndFiles, also imports its netscape.reg and copies its files/
// (bench::Machine has done that when it loaded the whole machine).
// Throws std::runtime_error on failure.
void InstallNetscape(const std::string& astrMachine, bool ablnRegistryAndFiles = true);

// Removes everything any Netscape machine installs: the Netscape and App
// Paths keys, the profile folders, the Mozilla folder, the stand-ins, and the
// "NavigatorWarning" option.
void RemoveNetscape();

// Deletes a folder with everything in it; nothing when it does not exist.
void DeleteTree(const std::string& astrFolder);

}  // namespace rwz::test
