// What the update check says to the web server and how it reads the answer.
// Plain C++ (no windows.h), so it can be tested on any machine.
//
// The request is one HTTP/1.0 GET of the version page, with the account in a
// Basic authorization header. The version page ("rwz_version.htm") is text,
// HTML or not; the lines that matter have the form
//     Roamwise-Version: 1.2.0
// ("Roamwise-" and a field name, without case, then ":" and the value, which
// ends at the line's end or at the first "<"; tags before it are skipped). Fields: Version
// (required: one to four numbers from 0 to 65535, separated by "."), Released and Notes (optional,
// shown to the user). The first line of a field counts. A page over kMaxPageBytes, or holding a NUL
// byte, is not a version page.
#pragma once

#include <cstddef>
#include <string>

namespace rwz {

inline constexpr size_t kMaxPageBytes = 64 * 1024;

struct VersionPage {
    std::string Version;
    std::string Released;
    std::string Notes;
};

// The whole request, CR LF line ends, ending in an empty line.
std::string BuildVersionRequest(const std::string& astrHost, int aintPort,
                                const std::string& astrPage, const std::string& astrAccount,
                                const std::string& astrPassword,
                                const std::string& astrProgramVersion);

// Splits a complete HTTP response into its status code and its body. False
// (with the reason in `astrProblem`) when it is no HTTP response.
bool ParseHttpResponse(const std::string& astrResponse, int& aintStatus, std::string& astrBody,
                       std::string& astrProblem);

// False (with the reason) when the text is no version page.
bool ParseVersionPage(const std::string& astrPage, VersionPage& aobjPage, std::string& astrProblem);

bool IsVersionText(const std::string& astrVersion);
// Number by number, a missing number counting as 0: -1, 0 or 1. Both must be
// version texts.
int CompareVersions(const std::string& astrLeft, const std::string& astrRight);

std::string Base64(const std::string& astrBytes);

}  // namespace rwz
