// A virtual X server for the capture tests and the capture benchmark: Xvfb
// on a display number of its own choosing, told through -displayfd, at 96
// pixels per inch (15 twips a pixel).
#pragma once

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

namespace telvaro::testing {

// ":N", or "" when the server does not come up within 10 s; `pid` is the
// server's process, for stopXvfb.
inline std::string startXvfb(pid_t& pid) {
    int fds[2];
    if (::pipe(fds) != 0) return "";
    pid = ::fork();
    if (pid == 0) {
        const int devNull = ::open("/dev/null", O_RDWR);
        ::dup2(devNull, 1);
        ::dup2(devNull, 2);
        const std::string fd = std::to_string(fds[1]);
        ::execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-screen", "0", "1024x768x24", "-dpi", "96", "-nolisten",
                 "tcp", "-noreset", static_cast<char*>(nullptr));
        ::_exit(127);
    }
    ::close(fds[1]);
    std::string number;
    pollfd p{fds[0], POLLIN, 0};
    for (char c; ::poll(&p, 1, 10000) > 0 && ::read(fds[0], &c, 1) == 1 && c != '\n';) number += c;
    ::close(fds[0]);
    return number.empty() ? "" : ":" + number;
}

inline void stopXvfb(pid_t pid) {
    if (pid > 0) ::kill(pid, SIGTERM), ::waitpid(pid, nullptr, 0);
}

}  // namespace telvaro::testing
