#include "shell/clsMRUList.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>

#include "platform/Procedure.h"
#include "platform/modUtilities.h"

namespace rwz {

namespace {

const char kRecent[] = "Recent";

std::string FileKey(size_t position) {
    return "File" + std::to_string(position);
}

bool SamePath(const std::string& a, const std::string& b) {
    return lstrcmpiA(a.c_str(), b.c_str()) == 0;
}

void RemoveFirst(std::vector<std::string>& files, const std::string& path) {
    auto found = std::find_if(files.begin(), files.end(),
                              [&](const std::string& file) { return SamePath(file, path); });
    if (found != files.end()) files.erase(found);
}

}  // namespace

int clsMRUList::MaxFiles() {
    const int stored = std::atoi(GetProgramSetting(kProductName, kRecent, "MaxFile", "5").c_str());
    return std::clamp(stored, 0, kMaxFiles);
}

void clsMRUList::GetRecentList() {
    Procedure proc("clsMRUList", "GetRecentList");
    proc.Run([&] {
        mcolFiles.clear();
        const int maximum = MaxFiles();
        for (int i = 1; i <= maximum; ++i) {
            std::string file = GetProgramSetting(kProductName, kRecent, FileKey(i), "");
            if (file.empty()) break;
            mcolFiles.push_back(std::move(file));
        }
    });
}

void clsMRUList::SetRecentList() {
    Procedure proc("clsMRUList", "SetRecentList");
    proc.Run([&] {
        for (size_t i = 0; i < mcolFiles.size(); ++i)
            SaveProgramSetting(kProductName, kRecent, FileKey(i + 1), mcolFiles[i]);
        // A shorter list must not let older entries reappear on the next load.
        for (const RegistryValueRow& row : GetAllProgramSettings(kProductName, kRecent)) {
            const std::string name = ToLower(row.Name);
            if (name.compare(0, 4, "file") != 0) continue;
            const long position = std::atol(name.c_str() + 4);
            if (position > static_cast<long>(mcolFiles.size()))
                DeleteProgramSetting(kProductName, kRecent, row.Name);
        }
    });
}

void clsMRUList::RemoveRecentFile(const std::string& astrPath) {
    Procedure proc("clsMRUList", "RemoveRecentFile");
    proc.Run([&] {
        RemoveFirst(mcolFiles, astrPath);
        SetRecentList();
    });
}

void clsMRUList::SetRecentFile(const std::string& astrPath) {
    Procedure proc("clsMRUList", "SetRecentFile");
    proc.Run([&] {
        RemoveFirst(mcolFiles, astrPath);
        mcolFiles.insert(mcolFiles.begin(), astrPath);
        const size_t maximum = static_cast<size_t>(MaxFiles());
        if (mcolFiles.size() > maximum) mcolFiles.resize(maximum);
        SetRecentList();
    });
}

std::string clsMRUList::GetFileName(const std::string& astrPath) {
    const size_t slash = astrPath.rfind('\\');
    return slash == std::string::npos ? astrPath : astrPath.substr(slash + 1);
}

}  // namespace rwz
