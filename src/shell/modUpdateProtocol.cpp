#include "shell/modUpdateProtocol.h"

#include <cctype>
#include <vector>

namespace rwz {
namespace {

std::string Trim(const std::string& text) {
    const char* blanks = " \t\r\n";
    const size_t first = text.find_first_not_of(blanks);
    if (first == std::string::npos) return std::string();
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string Lower(std::string text) {
    for (char& c : text) c = static_cast<char>(tolower(static_cast<unsigned char>(c)));
    return text;
}

std::vector<long> VersionNumbers(const std::string& text) {
    std::vector<long> numbers;
    size_t start = 0;
    while (true) {
        const size_t dot = text.find('.', start);
        const std::string part = text.substr(start, dot == std::string::npos ? dot : dot - start);
        if (part.empty() || part.size() > 5) return {};
        for (char c : part)
            if (!isdigit(static_cast<unsigned char>(c))) return {};
        const long number = std::stol(part);
        if (number > 65535) return {};
        numbers.push_back(number);
        if (dot == std::string::npos) break;
        start = dot + 1;
    }
    if (numbers.size() > 4) return {};
    return numbers;
}

}  // namespace

std::string Base64(const std::string& astrBytes) {
    static const char kDigits[] =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    for (size_t i = 0; i < astrBytes.size(); i += 3) {
        unsigned long group = static_cast<unsigned char>(astrBytes[i]) << 16;
        if (i + 1 < astrBytes.size()) group |= static_cast<unsigned char>(astrBytes[i + 1]) << 8;
        if (i + 2 < astrBytes.size()) group |= static_cast<unsigned char>(astrBytes[i + 2]);
        out += kDigits[(group >> 18) & 63];
        out += kDigits[(group >> 12) & 63];
        out += i + 1 < astrBytes.size() ? kDigits[(group >> 6) & 63] : '=';
        out += i + 2 < astrBytes.size() ? kDigits[group & 63] : '=';
    }
    return out;
}

std::string BuildVersionRequest(const std::string& astrHost, int aintPort,
                                const std::string& astrPage, const std::string& astrAccount,
                                const std::string& astrPassword,
                                const std::string& astrProgramVersion) {
    std::string host = astrHost;
    if (aintPort != 80) host += ":" + std::to_string(aintPort);
    std::string request = "GET /" + astrPage + " HTTP/1.0\r\n";
    request += "Host: " + host + "\r\n";
    request += "User-Agent: Roamwise/" + astrProgramVersion + "\r\n";
    if (!astrAccount.empty())
        request += "Authorization: Basic " + Base64(astrAccount + ":" + astrPassword) + "\r\n";
    request += "\r\n";
    return request;
}

bool ParseHttpResponse(const std::string& astrResponse, int& aintStatus, std::string& astrBody,
                       std::string& astrProblem) {
    aintStatus = 0;
    astrBody.clear();
    const size_t lineEnd = astrResponse.find('\n');
    const std::string statusLine = Trim(astrResponse.substr(0, lineEnd));
    // "HTTP/1.x 200 OK"
    if (statusLine.compare(0, 5, "HTTP/") != 0 || statusLine.size() < 12 ||
        statusLine.find(' ') == std::string::npos) {
        astrProblem = "The server's answer is not an HTTP response.";
        return false;
    }
    const std::string code = statusLine.substr(statusLine.find(' ') + 1, 3);
    if (code.size() != 3 || !isdigit(static_cast<unsigned char>(code[0])) ||
        !isdigit(static_cast<unsigned char>(code[1])) ||
        !isdigit(static_cast<unsigned char>(code[2]))) {
        astrProblem = "The server's answer is not an HTTP response.";
        return false;
    }
    aintStatus = std::stoi(code);
    size_t bodyStart = astrResponse.find("\r\n\r\n");
    if (bodyStart != std::string::npos) {
        bodyStart += 4;
    } else if ((bodyStart = astrResponse.find("\n\n")) != std::string::npos) {
        bodyStart += 2;
    } else {
        bodyStart = astrResponse.size();
    }
    astrBody = astrResponse.substr(bodyStart);
    if (aintStatus != 200) {
        astrProblem = "The server answered: " + statusLine.substr(statusLine.find(' ') + 1);
        return false;
    }
    return true;
}

bool ParseVersionPage(const std::string& astrPage, VersionPage& aobjPage,
                      std::string& astrProblem) {
    aobjPage = VersionPage();
    if (astrPage.size() > kMaxPageBytes || astrPage.find('\0') != std::string::npos) {
        astrProblem = "The version page is not a text page of the expected form.";
        return false;
    }
    size_t start = 0;
    while (start < astrPage.size()) {
        size_t end = astrPage.find('\n', start);
        if (end == std::string::npos) end = astrPage.size();
        std::string line = Trim(astrPage.substr(start, end - start));
        start = end + 1;
        // Tags in front of a field ("<pre>Roamwise-Version: ...") are skipped.
        while (!line.empty() && line[0] == '<' && line.find('>') != std::string::npos)
            line = Trim(line.substr(line.find('>') + 1));
        const size_t colon = line.find(':');
        if (colon == std::string::npos || Lower(line.substr(0, 9)) != "roamwise-") continue;
        const std::string field = Lower(Trim(line.substr(9, colon - 9)));
        const std::string value = Trim(line.substr(colon + 1, line.find('<', colon) - colon - 1));
        std::string* target = field == "version"    ? &aobjPage.Version
                              : field == "released" ? &aobjPage.Released
                              : field == "notes"    ? &aobjPage.Notes
                                                    : nullptr;
        if (target && target->empty()) *target = value;
    }
    if (aobjPage.Version.empty()) {
        astrProblem = "The version page names no version.";
        return false;
    }
    if (!IsVersionText(aobjPage.Version)) {
        astrProblem = "The version page names no valid version ('" + aobjPage.Version + "').";
        return false;
    }
    return true;
}

bool IsVersionText(const std::string& astrVersion) {
    return !VersionNumbers(astrVersion).empty();
}

int CompareVersions(const std::string& astrLeft, const std::string& astrRight) {
    std::vector<long> left = VersionNumbers(astrLeft);
    std::vector<long> right = VersionNumbers(astrRight);
    left.resize(4, 0);
    right.resize(4, 0);
    return left < right ? -1 : (right < left ? 1 : 0);
}

}  // namespace rwz
