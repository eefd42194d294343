// Internet Explorer's proxy list and exception list as texts: one entry, a
// whole list, and the list composed back from its pairs.
#include <gtest/gtest.h>

#include <string>

#include "browsers/modProxyServer.h"

namespace rwz::test {
namespace {

struct EntryCase {
    const char* Entry;
    const char* Protocol;
    const char* Host;
    const char* Port;
};

class ParseProxyServerTest : public testing::TestWithParam<EntryCase> {};

TEST_P(ParseProxyServerTest, GivesProtocolHostAndPort) {
    std::string entry = GetParam().Entry;
    std::string port = "stale";
    EXPECT_EQ(GetParam().Protocol, ParseProxyServer(entry, port));
    EXPECT_EQ(GetParam().Host, entry);
    EXPECT_EQ(GetParam().Port, port);
}

INSTANTIATE_TEST_SUITE_P(
    Entries, ParseProxyServerTest,
    testing::Values(
        EntryCase{"http=h:80", "http", "h", "80"}, EntryCase{"FTP=f:21", "FTP", "f", "21"},
        // A bare entry is the proxy for every protocol, named http.
        EntryCase{"proxy:8080", "http", "proxy", "8080"}, EntryCase{"proxy", "http", "proxy", ""},
        EntryCase{"gopher=g", "gopher", "g", ""},
        // A scheme stays with the host; the port follows the second colon.
        EntryCase{"http=http://cache:80", "http", "http://cache", "80"},
        EntryCase{"http=http://cache", "http", "http://cache", ""},
        EntryCase{"http://cache:3128", "http", "http://cache", "3128"},
        // Without "//" the first colon splits, the rest is the port.
        EntryCase{"http=h:80:90", "http", "h", "80:90"},
        EntryCase{"http=h:eighty", "http", "h", "eighty"}, EntryCase{"http=h:", "http", "h", ""},
        EntryCase{"http=:80", "http", "", "80"}, EntryCase{"=h:80", "", "h", "80"},
        // A colon before "=" leaves no host rather than failing.
        EntryCase{"a:b=c", "a:b", "", "b=c"}, EntryCase{"", "http", "", ""}));

// The pairs as one comparable text: "same|http h:p|https ...|ftp|gopher|socks".
std::string Pairs(const ProxyServerList& list) {
    return std::string(list.UseSameProxy ? "same" : "each") + "|" + list.HTTPAddress + ":" +
           list.HTTPPort + "|" + list.SecureAddress + ":" + list.SecurePort + "|" +
           list.FTPAddress + ":" + list.FTPPort + "|" + list.GopherAddress + ":" + list.GopherPort +
           "|" + list.SocksAddress + ":" + list.SocksPort;
}

struct ListCase {
    const char* Text;
    const char* Pairs;  // as Pairs() writes them
};

class SplitProxyListTest : public testing::TestWithParam<ListCase> {};

TEST_P(SplitProxyListTest, SetsThePairsTheListNames) {
    ProxyServerList list;
    SplitProxyList(GetParam().Text, list);
    EXPECT_EQ(GetParam().Pairs, Pairs(list)) << "list \"" << GetParam().Text << "\"";
}

INSTANTIATE_TEST_SUITE_P(
    Lists, SplitProxyListTest,
    testing::Values(
        // One proxy for all: HTTP, secure, FTP and Gopher, never SOCKS.
        ListCase{"proxy:8080", "same|proxy:8080|proxy:8080|proxy:8080|proxy:8080|:"},
        ListCase{"ftp=f:21;http=h:80;socks=s:1080", "each|h:80|:|f:21|:|s:1080"},
        ListCase{"ftp=f:21;gopher=g:70;http=h:80;https=s:443;socks=x:1080",
                 "each|h:80|s:443|f:21|g:70|x:1080"},
        // The empty entry ends the list.
        ListCase{"http=h:80;;ftp=f:21", "each|h:80|:|:|:|:"},
        ListCase{";http=h:80", "each|:|:|:|:|:"},
        // Other protocols are skipped, names match without case.
        ListCase{"http=h:80;wais=w:210;ftp=f:21", "each|h:80|:|f:21|:|:"},
        ListCase{"HTTP=h:80;Https=s:443;fTp=f:21", "each|h:80|s:443|f:21|:|:"},
        ListCase{"=h:80;news=n:119", "each|:|:|:|:|:"},
        ListCase{"http=h:eighty;ftp=f", "each|h:eighty|:|f:|:|:"},
        // The registry's extra ";" and an empty value: one proxy with no host.
        ListCase{";", "same|:|:|:|:|:"}, ListCase{"", "each|:|:|:|:|:"},
        // Several bare entries: the last one wins.
        ListCase{"a:1;b:2", "same|b:2|b:2|b:2|b:2|:"}));

TEST(SplitProxyList, KeepsTheSocksPairWhenTheListNamesNone) {
    ProxyServerList list;
    SplitProxyList("http=h:80;socks=s:1080", list);
    SplitProxyList("ftp=f:21", list);
    EXPECT_EQ("each|:|:|f:21|:|s:1080", Pairs(list));
}

TEST(SplitProxyList, ReadsALongListInOnePass) {
    std::string text;
    for (int i = 0; i < 20000; ++i) text += "news=n" + std::to_string(i) + ":119;";
    text += "http=h:80";
    ProxyServerList list;
    SplitProxyList(text, list);
    EXPECT_EQ("h", list.HTTPAddress);
}

TEST(ComposeProxyList, WritesHostsSetInFixedOrder) {
    ProxyServerList list;
    list.HTTPAddress = "h";
    list.HTTPPort = "80";
    list.FTPAddress = "f";
    EXPECT_EQ("ftp=f;http=h:80", ComposeProxyList(list));

    list.GopherAddress = "g";
    list.GopherPort = "  ";  // a blank port is no port
    list.SecureAddress = "s";
    list.SecurePort = "443";
    list.SocksAddress = "x";
    list.SocksPort = "1080";
    list.FTPAddress = " ";  // a blank host is no host
    EXPECT_EQ("gopher=g;http=h:80;https=s:443;socks=x:1080", ComposeProxyList(list));

    EXPECT_EQ("", ComposeProxyList(ProxyServerList{}));
}

TEST(ComposeProxyList, OneProxyForAllIsTheHTTPPairAlone) {
    ProxyServerList list;
    list.UseSameProxy = true;
    list.HTTPAddress = "proxy";
    list.HTTPPort = "8080";
    list.FTPAddress = "other";
    list.SocksAddress = "socks";
    EXPECT_EQ("proxy:8080", ComposeProxyList(list));
    list.HTTPPort.clear();
    EXPECT_EQ("proxy:", ComposeProxyList(list));
}

TEST(ComposeProxyList, GivesBackWhatTheSplitterRead) {
    for (const char* text : {"ftp=f:21;gopher=g:70;http=h:80;https=s:443;socks=x:1080", "gopher=g",
                             "proxy:8080", "http=http://cache:80"}) {
        ProxyServerList list;
        SplitProxyList(text, list);
        EXPECT_EQ(text, ComposeProxyList(list));
    }
}

struct OverrideCase {
    const char* Value;
    const char* Exceptions;
    bool IgnoreLocal;
};

class ProxyOverrideTest : public testing::TestWithParam<OverrideCase> {};

TEST_P(ProxyOverrideTest, SplitsOffTheLocalMark) {
    std::string exceptions = "stale";
    bool local = !GetParam().IgnoreLocal;
    SplitProxyOverride(GetParam().Value, exceptions, local);
    EXPECT_EQ(GetParam().Exceptions, exceptions);
    EXPECT_EQ(GetParam().IgnoreLocal, local);
}

INSTANTIATE_TEST_SUITE_P(Values, ProxyOverrideTest,
                         testing::Values(OverrideCase{"<local>", "", true},
                                         OverrideCase{"*.corp;10.*;<local>", "*.corp;10.*", true},
                                         OverrideCase{"*.corp;<local>;after", "*.corp", true},
                                         OverrideCase{"*.corp;intranet", "*.corp;intranet", false},
                                         OverrideCase{"", "", false}));

TEST(ComposeProxyOverride, AppendsTheLocalMark) {
    EXPECT_EQ("a;b;<local>", ComposeProxyOverride("a;b", true));
    EXPECT_EQ(";<local>", ComposeProxyOverride("", true));
    EXPECT_EQ("a;b", ComposeProxyOverride("a;b", false));
}

}  // namespace
}  // namespace rwz::test
