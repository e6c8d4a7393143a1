// A virtual X server for the capture tests: Xvfb started on a free display
// number (the server picks it and reports it through -displayfd), its
// density fixed at 96 pixels per inch (15 twips a pixel), and stopped when
// the object goes. A missing Xvfb or a server that does not come up is a
// failure, never a silent pass.
#pragma once

#include <sys/types.h>

#include <string>

namespace telvaro::testing {

class XvfbServer {
public:
    // `screen` as Xvfb's -screen takes it: "1024x768x24".
    explicit XvfbServer(const std::string& screen);
    ~XvfbServer();
    XvfbServer(const XvfbServer&) = delete;
    XvfbServer& operator=(const XvfbServer&) = delete;

    bool running() const { return pid_ > 0 && !display_.empty(); }
    // ":N", or empty when it did not start; `failure` says why.
    const std::string& display() const { return display_; }
    const std::string& failure() const { return failure_; }
    void stop();

private:
    pid_t pid_ = -1;
    std::string display_;
    std::string failure_;
};

}  // namespace telvaro::testing
