// One entry point per parser, shared by the fuzz targets and by the native
// replay of the inputs that once broke a parser (tests/native/regressions).
// Each runs the parser over arbitrary bytes and checks what must hold for any
// input; a broken promise aborts.
#pragma once

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
    prefs.GetSetting("network.proxy.http");
    prefs.GetSetting("network.proxy.http_port");
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
    ProxyServerList again;
    SplitProxyList(composed, again);
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
    for (const char* name : {"load", "uid", "pwd", "save", "export", "apply", "hidden"}) {
        SwitchValue(GetSwitch(name, args), name);
    }
    UnknownSwitches(args);
    // Masking takes the password out: its text shows fewer times in the
    // masked command line than in the command line (quotes aside, as the
    // grammar drops them).
    const std::string password = Trim(SwitchValue(GetSwitch("pwd", args), "pwd"));
    if (!password.empty()) {
        const auto count = [&](const std::string& in) {
            std::string unquoted;
            for (char c : in)
                if (c != '"') unquoted += c;
            size_t n = 0;
            for (size_t at = unquoted.find(password); at != std::string::npos;
                 at = unquoted.find(password, at + 1))
                ++n;
            return n;
        };
        Require(count(MaskPasswords(text)) < count(text) ||
                password.find('*') != std::string::npos);
    }
    ProfilePathProblem(bytes);
}

inline void RunConditions(const std::string& bytes) {
    for (const char* tag : {"9x", "NT", "2K", "XP", "2003", ""}) {
        EvaluateConditionFor(bytes, tag, false, true);
    }
    IsValidIP(bytes);
    CommaListToMultiString(bytes);
    Require(Join(Split(bytes, ","), ",") == bytes);
    Require(ToLower(ToUpper(bytes)).size() == bytes.size());
    Trim(StripNulls(bytes));
    MergeIP(SplitIP(bytes, bytes.substr(0, 1), 3));
    IniSectionNames(bytes);
}

inline void RunReportLayout(const std::string& bytes) {
    CenterText(bytes);
    ReportList(bytes);
    ReportProxy(bytes, bytes.substr(0, 5));
    const std::vector<std::string> lines = ReportLines(bytes);
    const int columns = bytes.empty() ? 40 : 20 + static_cast<unsigned char>(bytes[0]) % 100;
    PaginateReport(lines, 60, columns);
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
