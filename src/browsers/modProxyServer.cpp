#include "browsers/modProxyServer.h"

#include "platform/Procedure.h"
#include "platform/modText.h"

namespace rwz {

namespace {

constexpr const char* kLocalMark = "<local>";
constexpr const char* kLocalSuffix = ";<local>";

}  // namespace

std::string ParseProxyServer(std::string& astrEntry, std::string& astrPort) {
    Procedure proc("clsExplorer", "ParseProxyServer");
    return proc.Run([&] {
        std::string entry = astrEntry;
        std::string::size_type equals = entry.find('=');
        if (equals == std::string::npos) {
            // One proxy for all protocols is written without a protocol.
            entry = "http=" + entry;
            equals = 4;
        }
        const std::string protocol = entry.substr(0, equals);

        // With a scheme ("http://cache:80") the port follows the second colon;
        // "http://cache" alone has none.
        const std::string::size_type first = entry.find(':');
        std::string::size_type second = std::string::npos;
        const bool hasScheme = first != std::string::npos && entry.find("//") != std::string::npos;
        if (hasScheme) second = entry.find(':', first + 1);

        if (first != std::string::npos && (!hasScheme || second != std::string::npos)) {
            const std::string::size_type colon = second != std::string::npos ? second : first;
            // A colon inside the protocol name leaves no host at all.
            astrEntry = colon > equals ? entry.substr(equals + 1, colon - equals - 1) : "";
            astrPort = entry.substr(colon + 1);
        } else {
            astrEntry = entry.substr(equals + 1);
            astrPort.clear();
        }
        return protocol;
    });
}

void SplitProxyList(const std::string& astrProxyServer, ProxyServerList& aList) {
    const std::string text = astrProxyServer + ";";
    aList.UseSameProxy = text.find('=') == std::string::npos && text != ";";
    aList.HTTPAddress.clear();
    aList.HTTPPort.clear();
    aList.FTPAddress.clear();
    aList.FTPPort.clear();
    aList.GopherAddress.clear();
    aList.GopherPort.clear();
    aList.SecureAddress.clear();
    aList.SecurePort.clear();

    std::string::size_type start = 0;
    while (start < text.size()) {
        const std::string::size_type end = text.find(';', start);
        if (end == std::string::npos || end == start) break;  // an empty entry ends the list
        std::string host = text.substr(start, end - start);
        std::string port;
        const std::string protocol = ToUpper(ParseProxyServer(host, port));
        if (protocol == "HTTP") {
            aList.HTTPAddress = host;
            aList.HTTPPort = port;
            if (aList.UseSameProxy) {
                aList.FTPAddress = aList.GopherAddress = aList.SecureAddress = host;
                aList.FTPPort = aList.GopherPort = aList.SecurePort = port;
            }
        } else if (protocol == "FTP") {
            aList.FTPAddress = host;
            aList.FTPPort = port;
        } else if (protocol == "GOPHER") {
            aList.GopherAddress = host;
            aList.GopherPort = port;
        } else if (protocol == "HTTPS") {
            aList.SecureAddress = host;
            aList.SecurePort = port;
        } else if (protocol == "SOCKS") {
            aList.SocksAddress = host;
            aList.SocksPort = port;
        }
        start = end + 1;
    }
}

std::string ComposeProxyList(const ProxyServerList& aList) {
    if (aList.UseSameProxy) return aList.HTTPAddress + ":" + aList.HTTPPort;

    struct Pair {
        const char* Prefix;
        const std::string& Host;
        const std::string& Port;
    };
    const Pair pairs[] = {
        {"ftp=", aList.FTPAddress, aList.FTPPort},
        {"gopher=", aList.GopherAddress, aList.GopherPort},
        {"http=", aList.HTTPAddress, aList.HTTPPort},
        {"https=", aList.SecureAddress, aList.SecurePort},
        {"socks=", aList.SocksAddress, aList.SocksPort},
    };
    std::string text;
    for (const Pair& pair : pairs) {
        if (Trim(pair.Host).empty()) continue;
        text += pair.Prefix + pair.Host;
        if (!Trim(pair.Port).empty()) text += ":" + pair.Port;
        text += ";";
    }
    if (!text.empty()) text.pop_back();
    return text;
}

void SplitProxyOverride(const std::string& astrProxyOverride, std::string& astrExceptions,
                        bool& ablnIgnoreLocal) {
    const std::string::size_type local = astrProxyOverride.find(kLocalMark);
    ablnIgnoreLocal = local != std::string::npos;
    // Whatever follows the mark is dropped with it.
    astrExceptions = !ablnIgnoreLocal ? astrProxyOverride
                                      : astrProxyOverride.substr(0, local == 0 ? 0 : local - 1);
}

std::string ComposeProxyOverride(const std::string& astrExceptions, bool ablnIgnoreLocal) {
    return ablnIgnoreLocal ? astrExceptions + kLocalSuffix : astrExceptions;
}

}  // namespace rwz
