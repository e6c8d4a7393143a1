#include "cli/demo_home.h"

#include <stdlib.h>

#include <string>
#include <system_error>

namespace telvaro::cli {

namespace fs = std::filesystem;

DemoHome::DemoHome(std::ostream& out) {
    if (const char* home = ::getenv("TELVARO_HOME"); home && *home) {
        folder_ = home;
        out << "Home folder: " << folder_.string() << " (TELVARO_HOME)\n\n";
        return;
    }
    std::error_code ec;
    std::string pattern = (fs::temp_directory_path(ec) / "telvaro-demo-XXXXXX").string();
    if (ec) pattern = "/tmp/telvaro-demo-XXXXXX";
    if (::mkdtemp(pattern.data()) == nullptr) throw std::system_error(errno, std::generic_category(), "mkdtemp");
    folder_ = pattern;
    temporary_ = true;
    ::setenv("TELVARO_HOME", pattern.c_str(), 1);
    out << "Home folder: " << folder_.string() << " (temporary, removed at the end; set TELVARO_HOME to keep it)\n\n";
}

DemoHome::~DemoHome() {
    if (!temporary_) return;
    std::error_code ec;
    fs::remove_all(folder_, ec);
    ::unsetenv("TELVARO_HOME");
}

}  // namespace telvaro::cli
