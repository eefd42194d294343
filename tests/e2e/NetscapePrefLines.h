// Reading prefs.js files line by line: the Netscape back end's own preference
// lines by name, and every other line in order.
#pragma once
#include <map>
#include <set>
#include <string>
#include <vector>
#include "bench/Bench.h"
namespace rwz::test {
// The file's lines, split at CR LF or LF.
inline std::vector<std::string> FileLines(const std::string& astrPath) {
    return bench::SplitLines(bench::ReadFileText(astrPath));
}

// The preference name of a user_pref line, lower-cased; "" for other lines.
inline std::string PrefNameOf(const std::string& astrLine) {
    const std::string head = "user_pref(\"";
    const size_t start = astrLine.find_first_not_of(" \t");
    if (start == std::string::npos || astrLine.compare(start, head.size(), head) != 0) return "";
    const size_t nameStart = start + head.size();
    const size_t end = astrLine.find('"', nameStart);
    if (end == std::string::npos) return "";
    std::string name = astrLine.substr(nameStart, end - nameStart);
    for (char& c : name) c = static_cast<char>(tolower(static_cast<unsigned char>(c)));
    return name;
}

// Every preference the back end reads or writes, of both version families.
inline const std::set<std::string>& NavigatorPrefNames() {
    static const std::set<std::string> names = {
        "network.proxy.http",
        "network.proxy.http_port",
        "network.proxy.ftp",
        "network.proxy.ftp_port",
        "network.proxy.ssl",
        "network.proxy.ssl_port",
        "network.proxy.gopher",
        "network.proxy.gopher_port",
        "network.proxy.wais",
        "network.proxy.wais_port",
        "network.hosts.socks_server",
        "network.hosts.socks_serverport",
        "network.proxy.socks",
        "network.proxy.socks_port",
        "network.proxy.socks_version",
        "network.proxy.type",
        "network.proxy.autoconfig_url",
        "network.proxy.no_proxies_on",
        "browser.startup.homepage",
        "mail.identity.username",
        "mail.identity.useremail",
        "mail.identity.reply_to",
        "mail.identity.organization",
        "network.hosts.pop_server",
        "mail.pop_name",
        "network.hosts.smtp_server",
        "mail.smtp_name",
        "mail.leave_on_server",
    };
    return names;
}

// The lines that are not the back end's preferences, in order.
inline std::vector<std::string> OtherLines(const std::vector<std::string>& acolLines) {
    std::vector<std::string> lines;
    for (const std::string& line : acolLines)
        if (!NavigatorPrefNames().count(PrefNameOf(line))) lines.push_back(line);
    return lines;
}

// The back end's preference lines by name; a name twice is reported as "<twice>".
inline std::map<std::string, std::string> NavigatorPrefLines(
    const std::vector<std::string>& acolLines) {
    std::map<std::string, std::string> prefs;
    for (const std::string& line : acolLines) {
        const std::string name = PrefNameOf(line);
        if (!NavigatorPrefNames().count(name)) continue;
        prefs[name] = prefs.count(name) ? "<twice>" : line;
    }
    return prefs;
}

inline std::string TextPref(const std::string& astrName, const std::string& astrValue) {
    return "user_pref(\"" + astrName + "\", \"" + astrValue + "\");";
}
inline std::string PlainPref(const std::string& astrName, const std::string& astrValue) {
    return "user_pref(\"" + astrName + "\", " + astrValue + ");";
}

}  // namespace rwz::test
