// One plain HTTP exchange over Winsock 1.1 (wsock32, which every supported
// system has): connect, send the request, read until the server closes the
// connection. Never blocks longer than its time-outs (select() on a
// non-blocking socket), except for a host name lookup.
#pragma once

#include <cstddef>
#include <string>

namespace rwz {

struct HttpLimits {
    unsigned long connectMs = 10000;  // to establish the connection
    unsigned long answerMs = 10000;   // for the whole answer, after connecting
    size_t maxBytes = 128 * 1024;     // a longer answer is refused
};

// The server's whole answer in `astrResponse`; false with a message for the
// user in `astrProblem` when there is none.
bool HttpExchange(const std::string& astrHost, int aintPort, const std::string& astrRequest,
                  const HttpLimits& aobjLimits, std::string& astrResponse,
                  std::string& astrProblem);

}  // namespace rwz
