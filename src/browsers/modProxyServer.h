// Internet Explorer's proxy server list, "ftp=f:21;http=h:80" or one bare
// "host:port" that serves every protocol, and its exception list with the
// "<local>" mark. The registry value and the profile file are split and
// composed by the same code, so a profile always says what the registry says.
#pragma once

#include <string>

namespace rwz {

// The host/port pairs the list can name, and whether one proxy serves all.
struct ProxyServerList {
    bool UseSameProxy = false;
    std::string HTTPAddress;
    std::string HTTPPort;
    std::string SecureAddress;
    std::string SecurePort;
    std::string FTPAddress;
    std::string FTPPort;
    std::string GopherAddress;
    std::string GopherPort;
    std::string SocksAddress;
    std::string SocksPort;
};

// One entry ("http=h:80", "gopher=g", "h:80"): returns its protocol name as
// written ("http" for a bare entry), replaces the entry by its host and sets the
// port ("" when the entry names none). A host written with a scheme keeps it:
// "http=http://cache:80" gives the host "http://cache" and the port 80.
std::string ParseProxyServer(std::string& astrEntry, std::string& astrPort);

// Sets the pairs a list names. The HTTP, secure, FTP and Gopher pairs are
// cleared first, the SOCKS pair is not: it stays when the list names none.
// Entries of other protocols are skipped; an empty entry ends the list.
void SplitProxyList(const std::string& astrProxyServer, ProxyServerList& aList);

// The list text for the pairs: the HTTP pair alone when one proxy serves all,
// else "ftp=", "gopher=", "http=", "https=", "socks=" entries for the hosts set.
std::string ComposeProxyList(const ProxyServerList& aList);

// "ProxyOverride": the exception list, and whether "<local>" (bypass the proxy
// for intranet addresses) is in it. The list is what stands before ";<local>".
void SplitProxyOverride(const std::string& astrProxyOverride, std::string& astrExceptions,
                        bool& ablnIgnoreLocal);
std::string ComposeProxyOverride(const std::string& astrExceptions, bool ablnIgnoreLocal);

}  // namespace rwz
