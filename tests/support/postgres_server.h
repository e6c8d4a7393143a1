// A private PostgreSQL server for the ODBC tests and benchmarks, started on
// first use and stopped at exit: its own cluster in a temporary folder, on
// loopback and a free port. One that cannot start fails the tests using it.
#pragma once

#include <filesystem>
#include <string>

#include "runtime/ustring.h"

namespace telvaro::data::testing {

class PostgresServer {
public:
    static PostgresServer& instance();
    bool ready() const { return ready_; }
    const std::string& failure() const { return failure_; }
    // "Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=...;Database=postgres;Uid=postgres;"
    String connectionString() const;
    void stop();
    ~PostgresServer() { stop(); }

private:
    PostgresServer();
    bool ready_ = false;
    std::string failure_;
    std::filesystem::path folder_;
    int port_ = 0;
};

}  // namespace telvaro::data::testing
