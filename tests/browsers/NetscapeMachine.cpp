#include "browsers/NetscapeMachine.h"

#include <windows.h>
#include <shlobj.h>

#include <stdexcept>

#include "bench/Bench.h"
#include "browsers/RegistryDatWriter.h"

namespace rwz::test {

namespace {

const char kAppPaths[] = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";
const char* const kNetscapePrograms[] = {"Netscp.exe", "Netscp6.exe", "netscape.exe"};

std::string Trimmed(const std::string& astrText) {
    const size_t first = astrText.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) return std::string();
    return astrText.substr(first, astrText.find_last_not_of(" \t\r\n") - first + 1);
}

std::string MachineFolder(const std::string& astrMachine) {
    return bench::SourceDir() + "\\tests\\machines\\" + astrMachine;
}

// The program an App Paths entry names; "" when there is none.
std::string RegisteredProgram(const char* astrExe) {
    std::string path;
    bench::ReadRegistryString(HKEY_LOCAL_MACHINE, std::string(kAppPaths) + astrExe, "", path);
    return path;
}

void InstallStandIn(const std::string& astrFolder) {
    const std::string standIn = Trimmed(bench::ReadFileText(astrFolder + "\\netscape\\stand-in"));
    if (standIn.empty()) return;
    bool installed = false;
    for (const char* exe : kNetscapePrograms) {
        const std::string target = RegisteredProgram(exe);
        if (target.empty()) continue;
        bench::CopyFileReplacing(bench::BuildDir() + "\\tests\\" + standIn, target);
        installed = true;
    }
    if (!installed) throw std::runtime_error("no App Paths entry for Netscape in " + astrFolder);
}

void WriteMozillaRegistry(const std::string& astrFolder) {
    std::string text;
    if (!bench::ReadFile(astrFolder + "\\netscape\\registry.txt", text)) return;
    const std::string appData = AppDataFolder();
    std::vector<MozillaProfileEntry> profiles;
    std::string current;
    for (const std::string& rawLine : bench::SplitLines(text)) {
        const std::string line = Trimmed(rawLine);
        if (line.empty() || line[0] == '#') continue;
        const size_t equals = line.find('=');
        if (equals == std::string::npos)
            throw std::runtime_error("registry.txt: no \"=\" in \"" + line + "\"");
        const std::string name = line.substr(0, equals);
        const std::string folder = line.substr(equals + 1);
        if (name == "CurrentProfile") {
            current = folder;
        } else {
            profiles.push_back({name, folder.empty() ? folder : appData + "\\" + folder});
        }
    }
    bench::WriteFile(AppDataFolder() + "\\Mozilla\\registry.dat",
                     MakeMozillaRegistry(profiles, current));
}

}  // namespace

std::string AppDataFolder() {
    char path[MAX_PATH] = {};
    if (!SHGetSpecialFolderPathA(nullptr, path, CSIDL_APPDATA, TRUE))
        throw std::runtime_error("no application data folder");
    return path;
}

std::string MakeMozillaRegistry(const std::vector<MozillaProfileEntry>& acolProfiles,
                                const std::string& astrCurrentProfile) {
    RegistryDatWriter writer;
    writer.AddKey(writer.Root(), "Users");
    const auto common = writer.AddKey(writer.Root(), "Common");
    const auto list = writer.AddKey(common, "Profiles");
    writer.AddIntArray(list, "AutoStartWithLast", {0});
    writer.AddString(list, "Version", "1.0");
    if (!astrCurrentProfile.empty()) writer.AddString(list, "CurrentProfile", astrCurrentProfile);
    for (const MozillaProfileEntry& profile : acolProfiles) {
        const auto key = writer.AddKey(list, profile.Name);
        if (!profile.Directory.empty()) writer.AddString(key, "directory", profile.Directory);
        writer.AddString(key, "NCHavePregInfo", "");
        writer.AddString(key, "migrated", "yes");
    }
    return writer.Build();
}

void InstallNetscape(const std::string& astrMachine, bool) {
    const std::string folder = MachineFolder(astrMachine);
    InstallStandIn(folder);
    if (GetFileAttributesA((folder + "\\netscape\\appdata").c_str()) != INVALID_FILE_ATTRIBUTES)
        bench::CopyTree(folder + "\\netscape\\appdata", AppDataFolder());
    WriteMozillaRegistry(folder);
}

}  // namespace rwz::test
