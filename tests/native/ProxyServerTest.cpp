// Internet Explorer's proxy list and exception list as texts: one entry, a
// whole list, and the list composed back from its pairs.
#include <gtest/gtest.h>

#include <string>

#include "browsers/modProxyServer.h"

namespace rwz::test {
namespace {

TEST(ParseProxyServer, GivesProtocolHostAndPort) {
    const struct {
        const char *Entry, *Protocol, *Host, *Port;
    } cases[] = {
        {"FTP=f:21", "FTP", "f", "21"},
        {"proxy:8080", "http", "proxy", "8080"},  // a bare entry is named http
        {"gopher=g", "gopher", "g", ""},
        {"http=http://cache:80", "http", "http://cache", "80"},  // a scheme stays with the host
        {"http://cache:3128", "http", "http://cache", "3128"},
        {"http=h:80:90", "http", "h", "80:90"},
        {"=h:80", "", "h", "80"},
        {"a:b=c", "a:b", "", "b=c"},  // a colon before "=" leaves no host
        {"", "http", "", ""},
    };
    for (const auto& c : cases) {
        std::string entry = c.Entry, port = "stale";
        EXPECT_EQ(c.Protocol, ParseProxyServer(entry, port)) << c.Entry;
        EXPECT_EQ(c.Host, entry) << c.Entry;
        EXPECT_EQ(c.Port, port) << c.Entry;
    }
}

// The pairs as one comparable text: "same|http h:p|https ...|ftp|gopher|socks".
std::string Pairs(const ProxyServerList& l) {
    return std::string(l.UseSameProxy ? "same" : "each") + "|" + l.HTTPAddress + ":" + l.HTTPPort +
           "|" + l.SecureAddress + ":" + l.SecurePort + "|" + l.FTPAddress + ":" + l.FTPPort + "|" +
           l.GopherAddress + ":" + l.GopherPort + "|" + l.SocksAddress + ":" + l.SocksPort;
}

TEST(SplitProxyList, SetsThePairsTheListNames) {
    const struct {
        const char *Text, *Pairs, *Composed;  // Composed: "=" when it is the text itself
    } cases[] = {
        {"proxy:8080", "same|proxy:8080|proxy:8080|proxy:8080|proxy:8080|:", "="},  // never SOCKS
        {"ftp=f:21;gopher=g:70;http=h:80;https=s:443;socks=x:1080",
         "each|h:80|s:443|f:21|g:70|x:1080", "="},
        {"http=h:80;;ftp=f:21", "each|h:80|:|:|:|:", "http=h:80"},  // the empty entry ends it
        {"HTTP=h:80;wais=w:210;fTp=f:21", "each|h:80|:|f:21|:|:", "ftp=f:21;http=h:80"},
        {"http=h:eighty;ftp=f", "each|h:eighty|:|f:|:|:", "ftp=f;http=h:eighty"},
        {";", "same|:|:|:|:|:", ":"},                  // the registry's extra ";"
        {"a:1;b:2", "same|b:2|b:2|b:2|b:2|:", "b:2"},  // the last bare entry wins
        {"http=http://cache:80", "each|http://cache:80|:|:|:|:", "="},
    };
    for (const auto& c : cases) {
        ProxyServerList list;
        SplitProxyList(c.Text, list);
        EXPECT_EQ(c.Pairs, Pairs(list)) << c.Text;
        EXPECT_EQ(std::string(c.Composed) == "=" ? c.Text : c.Composed, ComposeProxyList(list));
    }
    ProxyServerList list;  // a list naming no SOCKS proxy keeps the one set
    SplitProxyList("http=h:80;socks=s:1080", list);
    SplitProxyList("ftp=f:21", list);
    EXPECT_EQ("each|:|:|f:21|:|s:1080", Pairs(list));
}

TEST(ComposeProxyList, SkipsBlankHostsAndPorts) {
    ProxyServerList list;
    list.HTTPAddress = "h";
    list.GopherAddress = "g";
    list.GopherPort = "  ";
    list.FTPAddress = " ";
    EXPECT_EQ("gopher=g;http=h", ComposeProxyList(list));
}

TEST(ProxyOverride, SplitsOffAndAppendsTheLocalMark) {
    const struct {
        const char *Value, *Exceptions;
        bool IgnoreLocal;
    } cases[] = {{"<local>", "", true},
                 {"*.corp;10.*;<local>", "*.corp;10.*", true},
                 {"*.corp;<local>;after", "*.corp", true},
                 {"*.corp;intranet", "*.corp;intranet", false}};
    for (const auto& c : cases) {
        std::string exceptions = "stale";
        bool local = !c.IgnoreLocal;
        SplitProxyOverride(c.Value, exceptions, local);
        EXPECT_EQ(c.Exceptions, exceptions) << c.Value;
        EXPECT_EQ(c.IgnoreLocal, local) << c.Value;
    }
    EXPECT_EQ("a;b;<local>", ComposeProxyOverride("a;b", true));
    EXPECT_EQ(";<local>", ComposeProxyOverride("", true));
    EXPECT_EQ("a;b", ComposeProxyOverride("a;b", false));
}

}  // namespace
}  // namespace rwz::test
