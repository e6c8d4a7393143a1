#include "support/postgres_server.h"

#include <netinet/in.h>
#include <pwd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>

#include "runtime/convert.h"

namespace telvaro::data::testing {

namespace fs = std::filesystem;

namespace {

constexpr const char* kBin = "/usr/lib/postgresql/15/bin/";

int freePort() {
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    int port = 0;
    if (::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
        ::getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length) == 0)
        port = ntohs(address.sin_port);
    ::close(fd);
    return port;
}

// As the postgres user when the tests run as root: the server refuses root.
int runAsServerUser(const std::string& command) {
    const std::string full = ::geteuid() == 0 ? "runuser -u postgres -- " + command : command;
    return std::system((full + " > /dev/null 2>&1").c_str());
}

}  // namespace

PostgresServer& PostgresServer::instance() {
    static PostgresServer server;
    return server;
}

PostgresServer::PostgresServer() {
    failure_ = [this]() -> std::string {
        std::string pattern = (fs::temp_directory_path() / "telvaro-pg-XXXXXX").string();
        if (!::mkdtemp(pattern.data())) return "no temporary folder for the database cluster";
        folder_ = pattern;
        if (::geteuid() == 0) {
            const passwd* user = ::getpwnam("postgres");
            if (!user || ::chown(folder_.c_str(), user->pw_uid, user->pw_gid) != 0)
                return "the postgres user cannot own " + folder_.string();
        }
        const std::string data = (folder_ / "data").string(), log = (folder_ / "log").string();
        if (runAsServerUser(std::string(kBin) + "initdb -D " + data + " -A trust -U postgres --no-sync -E UTF8") != 0)
            return "initdb failed in " + data;
        port_ = freePort();
        const std::string options =
            "-c listen_addresses=127.0.0.1 -p " + std::to_string(port_) + " -k " + folder_.string() + " -c fsync=off";
        if (runAsServerUser(std::string(kBin) + "pg_ctl -D " + data + " -l " + log + " -o '" + options +
                            "' -w -t 60 start") != 0)
            return "pg_ctl could not start the server on port " + std::to_string(port_) + " (see " + log + ")";
        return {};
    }();
    ready_ = failure_.empty();
}

String PostgresServer::connectionString() const {
    return u"Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=" + ascii(std::to_string(port_)) +
           u";Database=postgres;Uid=postgres;";
}

void PostgresServer::stop() {
    if (folder_.empty()) return;
    if (ready_)
        runAsServerUser(std::string(kBin) + "pg_ctl -D " + (folder_ / "data").string() + " -m immediate -w stop");
    ready_ = false;
    std::error_code ec;
    fs::remove_all(folder_, ec);
    folder_.clear();
}

}  // namespace telvaro::data::testing
