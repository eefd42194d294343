// The Netscape part of a simulated machine (tests/machines/<name>/), and the
// pieces of it that only a test can put in place:
//   netscape.reg, files/  imported and copied by bench::Machine
//   netscape/stand-in     the stand-in program (FakeNetscape479.exe or
//                         FakeNetscape72.exe of the build), copied to the path
//                         the App Paths entry names
//   netscape/appdata/     copied into the user's application data folder
//   netscape/registry.txt written there as Mozilla\registry.dat
//
// An end-to-end test loads the whole machine with bench::Machine and then
// calls InstallNetscape(name, false) for the rest.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace rwz::test {

// The user's application data folder, as the shell names it.
std::string AppDataFolder();

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

// Installs what bench::Machine leaves out of the Netscape part of
// tests/machines/<name> (the second argument is not used). Throws
// std::runtime_error on failure.
void InstallNetscape(const std::string& astrMachine, bool = false);

}  // namespace rwz::test
