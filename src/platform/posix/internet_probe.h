// A short, bounded test of the internet connection: can a TCP connection to
// a public address be made? The address is $TELVARO_INTERNET_PROBE
// ("host:port", "host" for port 443, "[v6]:port"), by default the web-mail
// home page mail.google.com:443. Name lookup and connection together take
// at most `timeoutMs` milliseconds.
#pragma once

#include <string>

namespace telvaro::posix {

struct ProbeAddress {
    std::string host;
    std::string port = "443";
};

ProbeAddress probeAddress();
ProbeAddress parseProbeAddress(const std::string& text);
bool canConnect(const ProbeAddress& address, int timeoutMs);

}  // namespace telvaro::posix
