// The list of recently used profiles, most recent first, kept in the program
// settings (section "Recent", keys "File1", "File2", ...).
#pragma once

#include <string>
#include <vector>

namespace rwz {

class clsMRUList {
  public:
    // Full paths, most recent first.
    const std::vector<std::string>& FileList() const { return mcolFiles; }

    // Loads the list from the settings: up to the stored maximum, stopping at
    // the first empty entry.
    void GetRecentList();
    // Stores the list (and removes entries left over from a longer list).
    void SetRecentList();
    // Removes the first entry equal to the path, without regard to case, and stores the list.
    void RemoveRecentFile(const std::string& astrPath);
    // Moves or adds the path to the top, drops what exceeds the maximum, stores the list.
    void SetRecentFile(const std::string& astrPath);
    // The part of a path after its last "\".
    static std::string GetFileName(const std::string& astrPath);

    // The stored maximum ("MaxFile", default "5"), capped at kMaxFiles.
    static int MaxFiles();
    static constexpr int kMaxFiles = 20;

  private:
    std::vector<std::string> mcolFiles;
};

}  // namespace rwz
