#include "forms/xvfb_server.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

namespace telvaro::testing {

XvfbServer::XvfbServer(const std::string& screen) {
    int pipeFds[2];
    if (::pipe(pipeFds) != 0) {
        failure_ = "no pipe for Xvfb's display number";
        return;
    }
    pid_ = ::fork();
    if (pid_ == 0) {
        ::close(pipeFds[0]);
        const int devNull = ::open("/dev/null", O_RDWR);
        ::dup2(devNull, 0);
        ::dup2(devNull, 1);
        ::dup2(devNull, 2);
        const std::string fd = std::to_string(pipeFds[1]);
        ::execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-screen", "0", screen.c_str(), "-dpi", "96", "-nolisten",
                 "tcp", "-noreset", static_cast<char*>(nullptr));
        ::_exit(127);
    }
    ::close(pipeFds[1]);
    if (pid_ < 0) {
        ::close(pipeFds[0]);
        failure_ = "could not start Xvfb";
        return;
    }
    // The server writes its display number once it accepts connections.
    std::string number;
    pollfd p{pipeFds[0], POLLIN, 0};
    while (::poll(&p, 1, 10000) > 0) {
        char c;
        if (::read(pipeFds[0], &c, 1) != 1 || c == '\n') break;
        number += c;
    }
    ::close(pipeFds[0]);
    if (number.empty()) {
        failure_ = "Xvfb did not report a display within 10 s (is the package xvfb installed?)";
        stop();
        return;
    }
    display_ = ":" + number;
}

XvfbServer::~XvfbServer() { stop(); }

void XvfbServer::stop() {
    if (pid_ > 0) {
        ::kill(pid_, SIGTERM);
        int status = 0;
        ::waitpid(pid_, &status, 0);
    }
    pid_ = -1;
    display_.clear();
}

}  // namespace telvaro::testing
