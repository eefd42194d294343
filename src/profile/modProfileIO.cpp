#include "profile/modProfileIO.h"

#include <windows.h>

#include "platform/RwzError.h"

namespace rwz {

std::string ReadProfileString(const std::string& astrFile, const std::string& astrSection,
                              const std::string& astrKey, const std::string& astrDefault) {
    char buffer[kProfileValueBuffer];
    const DWORD length =
        GetPrivateProfileStringA(astrSection.c_str(), astrKey.c_str(), astrDefault.c_str(), buffer,
                                 sizeof buffer, astrFile.c_str());
    return std::string(buffer, buffer + length).c_str();  // cut at the first NUL
}

void WriteProfileString(const std::string& astrFile, const std::string& astrSection,
                        const std::string& astrKey, const std::string& astrValue) {
    const std::string line = astrValue.substr(0, astrValue.find_first_of("\r\n"));
    if (!WritePrivateProfileStringA(astrSection.c_str(), astrKey.c_str(), line.c_str(),
                                    astrFile.c_str())) {
        RaiseRuntimeError(kErrPathFileAccess, "Rwz");
    }
}

}  // namespace rwz
