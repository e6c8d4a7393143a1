#include "forms/xvfb_server.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace telvaro::testing {

namespace {

std::string findXvfb() {
    const char* path = std::getenv("PATH");
    std::stringstream folders(path ? path : "/usr/bin:/bin");
    for (std::string folder; std::getline(folders, folder, ':');) {
        const std::filesystem::path candidate = std::filesystem::path(folder) / "Xvfb";
        if (::access(candidate.c_str(), X_OK) == 0) return candidate.string();
    }
    return {};
}

}  // namespace

XvfbServer::XvfbServer(const std::string& screen) {
    const std::string program = findXvfb();
    if (program.empty()) {
        failure_ = "Xvfb is not installed (package xvfb): the capture tests need it";
        return;
    }
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
        ::execl(program.c_str(), "Xvfb", "-displayfd", fd.c_str(), "-screen", "0", screen.c_str(), "-dpi", "96",
                "-nolisten", "tcp", "-noreset", static_cast<char*>(nullptr));
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
        failure_ = "Xvfb did not report a display within 10 s";
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
