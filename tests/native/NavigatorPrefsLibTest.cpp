// The prefs.js editor over text: each row is a file, one edit, and the file
// the edit must leave (line ends become CR LF; other lines keep their text).
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "browsers/NavigatorPrefsLib.h"

namespace rwz {
namespace {

const char kHttp[] = "user_pref(\"network.proxy.http\", \"proxy.example\");\r\n";
const char kPort[] = "user_pref(\"network.proxy.http_port\", 8080);\r\n";
const char kNote[] = "// a comment\r\n";

using Edit = std::function<void(NavigatorPrefsLib&)>;

void Str(NavigatorPrefsLib& p, const char* value) {
    p.SaveSettingStr("network.proxy.http", value);
}

TEST(NavigatorPrefsLib, EditsKeepEveryOtherLine) {
    struct Case {
        const char* what;
        std::string before;
        Edit edit;
        std::string after;
    };
    const std::string http2 = "user_pref(\"network.proxy.http\", \"p2\");\r\n";
    const Case cases[] = {
        {"the only line, CR LF", kHttp, [](auto& p) { Str(p, "p2"); }, http2},
        {"the only line, no line end", "user_pref(\"network.proxy.http\", \"proxy.example\");",
         [](auto& p) { Str(p, "p2"); }, http2},
        {"an empty file", "", [](auto& p) { Str(p, "p2"); }, http2},
        {"an empty file, an integer", "",
         [](auto& p) { p.SaveSettingInt("network.proxy.http_port", 8080); }, kPort},
        {"a text preference on the last line moves up one", std::string(kNote) + kHttp,
         [](auto& p) { Str(p, "p2"); }, http2 + kNote},
        {"an integer on the last line stays", std::string(kNote) + kPort,
         [](auto& p) { p.SaveSettingInt("network.proxy.http_port", -32768); },
         std::string(kNote) + "user_pref(\"network.proxy.http_port\", -32768);\r\n"},
        {"a name in other letter case is replaced in place",
         std::string("user_pref(\"Network.Proxy.HTTP\", \"x\");\n") + kNote,
         [](auto& p) { Str(p, "p2"); }, http2 + kNote},
        {"a longer name is not the name", kPort + std::string(kNote), [](auto& p) { Str(p, "p2"); },
         kPort + std::string(kNote) + http2},
        {"a new Boolean is appended", kNote, [](auto& p) { p.SaveSettingBoolean("a.b", false); },
         std::string(kNote) + "user_pref(\"a.b\", false);\r\n"},
        {"a quote and a backslash are escaped", kNote, [](auto& p) { Str(p, "proxy\"x.test\\"); },
         std::string(kNote) + "user_pref(\"network.proxy.http\", \"proxy\\\"x.test\\\\\");\r\n"},
        {"a line break cannot start a preference", kNote,
         [](auto& p) { Str(p, "x\");\r\nuser_pref(\"evil\", 1);"); },
         std::string(kNote) + "user_pref(\"network.proxy.http\", "
                              "\"x\\\");\\r\\nuser_pref(\\\"evil\\\", 1);\");\r\n"},
        {"deleting", std::string(kHttp) + kNote + kPort,
         [](auto& p) { p.DeleteSetting("NETWORK.PROXY.HTTP"); }, std::string(kNote) + kPort},
        {"a lone CR stays in its line", "a\rb\nc", [](auto&) {}, "a\rb\r\nc\r\n"},
    };
    for (const Case& c : cases) {
        NavigatorPrefsLib prefs;
        prefs.LoadPrefsText(c.before);
        c.edit(prefs);
        EXPECT_EQ(c.after, prefs.PrefsText()) << c.what;
    }
}

TEST(NavigatorPrefsLib, ReadsValuesAsWritten) {
    struct Case {
        const char* line;
        const char* value;
    };
    const Case cases[] = {
        {"user_pref(\"n\", \"proxy.example\");", "proxy.example"},
        {"  USER_PREF(\"N\", 8080);", "8080"},
        {"user_pref(\"n\", true);", "true"},
        {"user_pref(\"n\", \"b(c)\");", "b(c)"},
        {"user_pref(\"n\", \"a\\\"b\\\\c\");", "a\"b\\c"},
        {"user_pref(\"n\", \"C:\\\\Program Files\\\\x\");", "C:\\Program Files\\x"},
        {"user_pref(\"n\", \"unterminated);", ""},
        {"user_pref(\"n\"", ""},
        {"user_pref(\"nx\", 1);", ""},
    };
    for (const Case& c : cases) {
        NavigatorPrefsLib prefs;
        prefs.LoadPrefsText(c.line);
        EXPECT_EQ(c.value, prefs.GetSetting("n")) << c.line;
    }
}

}  // namespace
}  // namespace rwz
