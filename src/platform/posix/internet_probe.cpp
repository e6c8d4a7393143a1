#include "platform/posix/internet_probe.h"

#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace telvaro::posix {

namespace {

using Clock = std::chrono::steady_clock;

int msLeft(Clock::time_point deadline) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return left > 0 ? static_cast<int>(left) : 0;
}

// getaddrinfo may block for as long as the resolver likes; the
// asynchronous form is waited for only until the deadline. A lookup still
// running then is abandoned to the resolver's thread, which owns it from
// then on (a few hundred bytes, once per probe that timed out).
struct Lookup {
    std::string host, port;
    addrinfo hints{};
    gaicb request{};
};

addrinfo* resolve(const ProbeAddress& address, Clock::time_point deadline) {
    auto lookup = std::make_unique<Lookup>();
    lookup->host = address.host;
    lookup->port = address.port;
    lookup->hints.ai_family = AF_UNSPEC;
    lookup->hints.ai_socktype = SOCK_STREAM;
    lookup->request.ar_name = lookup->host.c_str();
    lookup->request.ar_service = lookup->port.c_str();
    lookup->request.ar_request = &lookup->hints;
    gaicb* list[] = {&lookup->request};
    if (getaddrinfo_a(GAI_NOWAIT, list, 1, nullptr) != 0) return nullptr;
    while (gai_error(&lookup->request) == EAI_INPROGRESS) {
        const int left = msLeft(deadline);
        if (left == 0) {
            if (gai_cancel(&lookup->request) != EAI_ALLDONE) {
                if (gai_error(&lookup->request) == EAI_INPROGRESS) (void)lookup.release();
                return nullptr;
            }
            break;
        }
        timespec wait{left / 1000, (left % 1000) * 1000000L};
        gai_suspend(list, 1, &wait);
    }
    if (gai_error(&lookup->request) != 0) return nullptr;
    return lookup->request.ar_result;
}

bool connectWithin(const addrinfo& a, Clock::time_point deadline) {
    const int fd = ::socket(a.ai_family, a.ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, a.ai_protocol);
    if (fd < 0) return false;
    bool connected = ::connect(fd, a.ai_addr, a.ai_addrlen) == 0;
    if (!connected && errno == EINPROGRESS) {
        pollfd p{fd, POLLOUT, 0};
        if (::poll(&p, 1, msLeft(deadline)) == 1) {
            int error = 0;
            socklen_t size = sizeof error;
            connected = ::getsockopt(fd, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
        }
    }
    ::close(fd);
    return connected;
}

}  // namespace

ProbeAddress parseProbeAddress(const std::string& text) {
    ProbeAddress address;
    if (!text.empty() && text[0] == '[') {
        const std::size_t close = text.find(']');
        address.host = text.substr(1, close == std::string::npos ? std::string::npos : close - 1);
        if (close != std::string::npos && close + 1 < text.size() && text[close + 1] == ':')
            address.port = text.substr(close + 2);
        return address;
    }
    const std::size_t colon = text.rfind(':');
    if (colon != std::string::npos && text.find(':') == colon) {
        address.host = text.substr(0, colon);
        address.port = text.substr(colon + 1);
    } else {
        address.host = text;
    }
    return address;
}

ProbeAddress probeAddress() {
    const char* configured = std::getenv("TELVARO_INTERNET_PROBE");
    return parseProbeAddress(configured && *configured ? configured : "mail.google.com:443");
}

bool canConnect(const ProbeAddress& address, int timeoutMs) {
    if (address.host.empty() || address.port.empty()) return false;
    const auto deadline = Clock::now() + std::chrono::milliseconds(timeoutMs);
    addrinfo* found = resolve(address, deadline);
    bool connected = false;
    for (addrinfo* a = found; a && !connected && msLeft(deadline) > 0; a = a->ai_next)
        connected = connectWithin(*a, deadline);
    if (found) freeaddrinfo(found);
    return connected;
}

}  // namespace telvaro::posix
