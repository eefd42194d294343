// One entry point per parser, for the fuzz targets and the replay of
// tests/native/regressions: arbitrary bytes in, a broken promise aborts.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "browsers/NavigatorPrefsLib.h"
#include "browsers/ZvMozillaLib.h"
#include "browsers/modProxyServer.h"
#include "platform/modText.h"
#include "report/modReportLayout.h"
#include "shell/modCommandLine.h"

namespace rwz::fuzz {

inline void Require(bool ablnHolds) {
    if (!ablnHolds) std::abort();
}

inline void RunRegistry(const std::string& bytes) {
    ZvMozillaLib registry;
    registry.ReadRegistry(bytes);
    Require(registry.NodeCount() <= ZvMozillaLib::kMaxNodes);
    registry.ToXML();
    registry.ProfileList();
    registry.CurrentProfileName();
}

inline void RunPrefs(const std::string& bytes) {
    NavigatorPrefsLib prefs;
    prefs.LoadPrefsText(bytes);
    const size_t lines = prefs.Lines().size();
    // A value made of the input's own first bytes must read back as written.
    const std::string value = bytes.substr(0, 64);
    prefs.SaveSettingStr("network.proxy.http", value);
    Require(prefs.GetSetting("network.proxy.http") == value);
    prefs.SaveSettingInt("network.proxy.http_port", 8080);
    Require(prefs.GetSetting("network.proxy.http_port") == "8080");
    prefs.SaveSettingBoolean("network.proxy.share_proxy_settings", true);
    Require(prefs.Lines().size() >= lines && prefs.Lines().size() <= lines + 3);
    prefs.DeleteSetting("network.proxy.type");
    // Written and read again, the text gives the same lines.
    NavigatorPrefsLib again;
    again.LoadPrefsText(prefs.PrefsText());
    Require(again.Lines().size() == prefs.Lines().size());
}

inline void RunProxy(const std::string& bytes) {
    ProxyServerList list;
    SplitProxyList(bytes, list);
    const std::string composed = ComposeProxyList(list);
    SplitProxyList(composed, list);
    std::string exceptions;
    bool local = false;
    SplitProxyOverride(bytes, exceptions, local);
    ComposeProxyOverride(exceptions, local);
    std::string entry = bytes, port;
    ParseProxyServer(entry, port);
}

inline void RunCommandLine(const std::string& bytes) {
    const std::string text = CommandLineText(bytes.c_str());
    const std::vector<std::string> args = GetCommandLineArgs(text);
    for (const char* name : {"load", "uid", "pwd", "save", "export", "apply", "hidden"})
        SwitchValue(GetSwitch(name, args), name);
    UnknownSwitches(args);
    // Masking takes the password out: it shows fewer times in the masked
    // line than in the line (quotes aside, as the grammar drops them).
    const std::string password = Trim(SwitchValue(GetSwitch("pwd", args), "pwd"));
    const auto count = [&](std::string in) {
        in.erase(std::remove(in.begin(), in.end(), '"'), in.end());
        size_t n = 0;
        for (size_t at = in.find(password); at != std::string::npos; at = in.find(password, at + 1))
            ++n;
        return n;
    };
    Require(password.empty() || password.find('*') != std::string::npos ||
            count(MaskPasswords(text)) < count(text));
    ProfilePathProblem(bytes);
}

inline void RunConditions(const std::string& bytes) {
    for (const char* tag : {"9x", "NT", "2K", "XP", "2003", ""})
        EvaluateConditionFor(bytes, tag, false, true);
    IsValidIP(bytes);
    Require(Join(Split(bytes, ","), ",") == bytes);
    MergeIP(SplitIP(bytes, bytes.substr(0, 1), 3));
    IniSectionNames(bytes);
}

inline void RunReportLayout(const std::string& bytes) {
    CenterText(bytes);
    ReportList(bytes);
    const int columns = bytes.empty() ? 40 : 20 + static_cast<unsigned char>(bytes[0]) % 100;
    PaginateReport(ReportLines(bytes), 60, columns);
}

struct Parser {
    const char* Name;
    void (*Run)(const std::string&);
};

inline const std::vector<Parser>& Parsers() {
    static const std::vector<Parser> parsers = {
        {"registry", RunRegistry},     {"prefs", RunPrefs},
        {"proxy", RunProxy},           {"commandline", RunCommandLine},
        {"conditions", RunConditions}, {"reportlayout", RunReportLayout},
    };
    return parsers;
}

}  // namespace rwz::fuzz
