// A browser back end whose live browser is nothing (for the profile sections
// alone), and scratch files for the browser tests.
#pragma once

#include <windows.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "browsers/clsBrowserBase.h"

namespace rwz::test {

class TestBrowser : public clsBrowserBase {
  public:
    explicit TestBrowser(BrowserSection aSection) : clsBrowserBase(aSection, "clsTestBrowser") {}
    void SetProfiles(std::vector<std::string> acolProfiles) {
        mRecord.ProfileList = std::move(acolProfiles);
    }
    void LoadConfiguration() override {}
    void ApplyConfiguration() override {}
};

// A file in the temporary folder, removed when the test ends.
class ScratchFile {
  public:
    explicit ScratchFile(const std::string& astrName, const char* aszExtension = ".rwz") {
        char folder[MAX_PATH];
        GetTempPathA(sizeof folder, folder);
        mstrPath = std::string(folder) + "rwz-browsers-" + std::to_string(GetCurrentProcessId()) +
                   "-" + astrName + aszExtension;
        DeleteFileA(mstrPath.c_str());
    }
    ~ScratchFile() { DeleteFileA(mstrPath.c_str()); }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    const std::string& Path() const { return mstrPath; }
    void Write(const std::string& astrBytes) const {
        std::ofstream out(mstrPath, std::ios::binary | std::ios::trunc);
        out << astrBytes;
    }
    std::string Read() const {
        std::ifstream in(mstrPath, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }

  private:
    std::string mstrPath;
};

}  // namespace rwz::test
