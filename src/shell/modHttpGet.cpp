#include "shell/modHttpGet.h"

#include <windows.h>
#include <winsock.h>

#include <cstring>

namespace rwz {
namespace {

// Winsock for the time of one exchange.
class WinsockSession {
  public:
    WinsockSession() {
        WSADATA data;
        mblnStarted = WSAStartup(MAKEWORD(1, 1), &data) == 0;
    }
    ~WinsockSession() {
        if (mblnStarted) WSACleanup();
    }
    WinsockSession(const WinsockSession&) = delete;
    WinsockSession& operator=(const WinsockSession&) = delete;
    bool Started() const { return mblnStarted; }

  private:
    bool mblnStarted = false;
};

class Socket {
  public:
    Socket() : mSocket(socket(AF_INET, SOCK_STREAM, 0)) {}
    ~Socket() {
        if (mSocket != INVALID_SOCKET) closesocket(mSocket);
    }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    SOCKET Get() const { return mSocket; }

  private:
    SOCKET mSocket;
};

// Milliseconds left until `deadline` (a GetTickCount value), 0 when past.
unsigned long Remaining(DWORD deadline) {
    const long left = static_cast<long>(deadline - GetTickCount());
    return left > 0 ? static_cast<unsigned long>(left) : 0;
}

// Waits until the socket can be read (or written); false at the time limit.
bool WaitFor(SOCKET s, bool ablnWrite, unsigned long aulngMs, bool& ablnFailed) {
    fd_set ready, failed;
    FD_ZERO(&ready);
    FD_ZERO(&failed);
    FD_SET(s, &ready);
    FD_SET(s, &failed);
    timeval limit = {static_cast<long>(aulngMs / 1000), static_cast<long>(aulngMs % 1000) * 1000};
    const int count =
        select(0, ablnWrite ? nullptr : &ready, ablnWrite ? &ready : nullptr, &failed, &limit);
    ablnFailed = count == SOCKET_ERROR || FD_ISSET(s, &failed);
    return count > 0;
}

std::string Seconds(unsigned long ms) {
    return std::to_string((ms + 999) / 1000);
}

}  // namespace

bool HttpExchange(const std::string& astrHost, int aintPort, const std::string& astrRequest,
                  const HttpLimits& aobjLimits, std::string& astrResponse,
                  std::string& astrProblem) {
    astrResponse.clear();
    const std::string where = astrHost + ":" + std::to_string(aintPort);
    WinsockSession winsock;
    if (!winsock.Started()) {
        astrProblem = "Windows networking (Winsock) is not available.";
        return false;
    }
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<u_short>(aintPort));
    address.sin_addr.s_addr = inet_addr(astrHost.c_str());
    if (address.sin_addr.s_addr == INADDR_NONE) {
        hostent* host = gethostbyname(astrHost.c_str());
        if (!host || host->h_addrtype != AF_INET || !host->h_addr_list[0]) {
            astrProblem = "The server " + astrHost + " could not be found.";
            return false;
        }
        memcpy(&address.sin_addr, host->h_addr_list[0], sizeof address.sin_addr);
    }

    Socket s;
    u_long nonBlocking = 1;
    if (s.Get() == INVALID_SOCKET || ioctlsocket(s.Get(), FIONBIO, &nonBlocking) != 0) {
        astrProblem = "A network connection could not be opened.";
        return false;
    }
    bool failed = false;
    if (connect(s.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        if (WSAGetLastError() != WSAEWOULDBLOCK) failed = true;
        if (!failed && !WaitFor(s.Get(), true, aobjLimits.connectMs, failed) && !failed) {
            astrProblem = "The server " + where + " did not accept a connection within " +
                          Seconds(aobjLimits.connectMs) + " seconds.";
            return false;
        }
    }
    if (failed) {
        astrProblem = "The server " + where + " refused the connection or cannot be reached.";
        return false;
    }

    const DWORD deadline = GetTickCount() + aobjLimits.answerMs;
    const std::string timedOut = "The server " + where + " did not answer within " +
                                 Seconds(aobjLimits.answerMs) + " seconds.";
    size_t sent = 0;
    while (sent < astrRequest.size()) {
        if (!WaitFor(s.Get(), true, Remaining(deadline), failed) || failed) {
            astrProblem = failed ? "The connection to " + where + " was lost." : timedOut;
            return false;
        }
        const int count = send(s.Get(), astrRequest.data() + sent,
                               static_cast<int>(astrRequest.size() - sent), 0);
        if (count == SOCKET_ERROR && WSAGetLastError() != WSAEWOULDBLOCK) {
            astrProblem = "The connection to " + where + " was lost.";
            return false;
        }
        if (count > 0) sent += count;
    }

    char buffer[4096];
    while (true) {
        if (!WaitFor(s.Get(), false, Remaining(deadline), failed) && !failed) {
            astrProblem = timedOut;
            return false;
        }
        const int count = recv(s.Get(), buffer, sizeof buffer, 0);
        if (count == 0) break;  // the server has said everything
        if (count == SOCKET_ERROR) {
            if (WSAGetLastError() == WSAEWOULDBLOCK) continue;
            // A reset after a complete answer still leaves the answer.
            if (!astrResponse.empty()) break;
            astrProblem = "The connection to " + where + " was lost.";
            return false;
        }
        astrResponse.append(buffer, count);
        if (astrResponse.size() > aobjLimits.maxBytes) {
            astrProblem = "The answer of " + where + " is far larger than a version page.";
            return false;
        }
    }
    return true;
}

}  // namespace rwz
