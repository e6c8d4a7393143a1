#include "platform/posix/launcher.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <optional>

#include "platform/posix/home.h"

namespace telvaro::posix {

namespace fs = std::filesystem;

namespace {

bool isExecutableFile(const fs::path& p) {
    std::error_code ec;
    return fs::is_regular_file(p, ec) && ::access(p.c_str(), X_OK) == 0;
}

bool isAddress(StringView file) { return file.find(u"://") != StringView::npos || file.substr(0, 7) == u"mailto:"; }

// A program on the PATH.
std::optional<fs::path> onPath(const std::string& name) {
    const char* path = std::getenv("PATH");
    if (!path) return std::nullopt;
    std::string folders = path;
    std::size_t start = 0;
    while (start <= folders.size()) {
        std::size_t end = folders.find(':', start);
        if (end == std::string::npos) end = folders.size();
        const fs::path candidate = fs::path(end > start ? folders.substr(start, end - start) : ".") / name;
        if (isExecutableFile(candidate)) return candidate;
        start = end + 1;
    }
    return std::nullopt;
}

std::optional<fs::path> opener() {
    const char* configured = std::getenv("TELVARO_OPENER");
    const std::string name = configured && *configured ? configured : "xdg-open";
    if (name.find('/') != std::string::npos)
        return isExecutableFile(name) ? std::optional<fs::path>(name) : std::nullopt;
    return onPath(name);
}

// The file a name stands for: a path as mapped; a bare name in the working
// folder, else a program on the PATH, with or without ".exe".
std::optional<fs::path> locate(StringView file, const fs::path& folder) {
    std::error_code ec;
    if (file.find_first_of(u"\\/:") != StringView::npos) {
        // Absolute: the program starts in its own working folder.
        fs::path p = fs::absolute(mapPath(file), ec);
        if (fs::exists(p, ec)) return p;
        return std::nullopt;
    }
    const std::string name = toUtf8(file);
    // "." and ".." name folders, never a file to run.
    if (name.find_first_not_of('.') == std::string::npos) return std::nullopt;
    if (!folder.empty() && fs::exists(folder / name, ec)) return folder / name;
    if (auto program = onPath(name)) return program;
    if (name.size() > 4 && (name.substr(name.size() - 4) == ".exe" || name.substr(name.size() - 4) == ".EXE"))
        return onPath(name.substr(0, name.size() - 4));
    return std::nullopt;
}

}  // namespace

std::vector<std::string> splitParameters(StringView parameters) {
    std::vector<std::string> out;
    String current;
    bool inQuotes = false, any = false;
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const char16_t c = parameters[i];
        if (c == u'"') {
            if (inQuotes && i + 1 < parameters.size() && parameters[i + 1] == u'"') {
                current += u'"';
                ++i;
            } else {
                inQuotes = !inQuotes;
            }
            any = true;
        } else if ((c == u' ' || c == u'\t') && !inQuotes) {
            if (any) out.push_back(toUtf8(current));
            current.clear();
            any = false;
        } else {
            current += c;
            any = true;
        }
    }
    if (any) out.push_back(toUtf8(current));
    return out;
}

std::vector<std::string> launchCommand(StringView file, StringView parameters, const fs::path& folder) {
    if (file.empty()) return {};
    if (isAddress(file)) {
        if (auto program = opener()) return {program->string(), toUtf8(file)};
        return {};
    }
    const auto target = locate(file, folder);
    if (!target) return {};
    if (isExecutableFile(*target)) {
        std::vector<std::string> command{target->string()};
        for (auto& p : splitParameters(parameters)) command.push_back(std::move(p));
        return command;
    }
    if (auto program = opener()) return {program->string(), target->string()};
    return {};
}

std::vector<std::string> openDocumentCommand(const fs::path& document) {
    if (auto program = opener()) return {program->string(), document.string()};
    return {};
}

bool startDetached(const std::vector<std::string>& command, const fs::path& folder) {
    if (command.empty()) return false;
    // Everything the children need is made before fork: after it, only
    // async-signal-safe calls.
    std::vector<char*> argv;
    for (const auto& a : command) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    std::error_code ec;
    const std::string workingFolder = !folder.empty() && fs::is_directory(folder, ec) ? folder.string() : std::string();
    const int devNull = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    if (devNull < 0) return false;

    const pid_t child = ::fork();
    if (child < 0) {
        ::close(devNull);
        return false;
    }
    if (child == 0) {
        // The intermediate child: a new session, then the program in a
        // grandchild that init adopts, so no zombie is left behind.
        ::setsid();
        if (::fork() == 0) {
            ::dup2(devNull, 0);
            ::dup2(devNull, 1);
            ::dup2(devNull, 2);
            if (!workingFolder.empty() && ::chdir(workingFolder.c_str()) != 0) ::_exit(127);
            ::execv(argv[0], argv.data());
            ::_exit(127);
        }
        ::_exit(0);
    }
    ::close(devNull);
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return true;
}

}  // namespace telvaro::posix
