#include "platform/posix/posix_file_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "platform/posix/home.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace telvaro::posix {

namespace fs = std::filesystem;

namespace {

bool isSeparator(char16_t c) { return c == u'\\' || c == u'/'; }

bool hasWildcards(StringView s) { return s.find_first_of(u"*?") != StringView::npos; }

// The runtime's error for a failed call, with the standard description that
// callers show and compare.
[[noreturn]] void raiseFromErrno(int error, int otherwise) {
    switch (error) {
        case ENOENT:
        case ENOTDIR: raise(err::PathNotFound);
        case EACCES:
        case EPERM:
        case EROFS: raise(err::PermissionDenied);
        case ENOSPC:
        case EDQUOT: raise(err::DiskFull);
        case EMFILE:
        case ENFILE: raise(err::TooManyFiles);
        default: raise(otherwise);
    }
}

// "*" any run of characters, "?" one character, letters compared without
// regard to case; "*.*" matches every name, with or without a dot.
bool wildcardMatch(StringView name, StringView pattern) {
    if (pattern == u"*.*") pattern = u"*";
    std::size_t n = 0, p = 0, starP = StringView::npos, starN = 0;
    while (n < name.size()) {
        if (p < pattern.size() && (pattern[p] == u'?' || foldCase(pattern[p]) == foldCase(name[n]))) {
            ++n;
            ++p;
        } else if (p < pattern.size() && pattern[p] == u'*') {
            starP = p++;
            starN = n;
        } else if (starP != StringView::npos) {
            p = starP + 1;
            n = ++starN;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == u'*') ++p;
    return p == pattern.size();
}

// Open fails as the runtime's Open does: 76 for a missing folder, 75 for
// anything it may not open (a folder, a read-only file).
[[noreturn]] void raiseOpenError(int error) {
    if (error == ENOENT || error == ENOTDIR) raise(err::PathNotFound);
    if (error == EMFILE || error == ENFILE) raise(err::TooManyFiles);
    raise(err::PathFileAccessError);
}

// A descriptor for random access, created when missing; closed on scope exit.
class RandomFile {
public:
    explicit RandomFile(const fs::path& path) : fd_(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644)) {
        if (fd_ < 0) raiseOpenError(errno);
    }
    ~RandomFile() { ::close(fd_); }
    RandomFile(const RandomFile&) = delete;
    RandomFile& operator=(const RandomFile&) = delete;
    int fd() const { return fd_; }

private:
    int fd_;
};

off_t recordOffset(std::int32_t number, std::size_t length) {
    if (number < 1) raise(err::BadRecordNumber);
    return static_cast<off_t>(number - 1) * static_cast<off_t>(length);
}

}  // namespace

fs::path PosixFileSystem::resolve(StringView path) {
    ensureSystemDrive();
    return mapPath(path);
}

bool PosixFileSystem::fileExists(StringView path) {
    if (path.empty() || hasWildcards(path)) return false;
    std::error_code ec;
    try {
        return fs::is_regular_file(resolve(path), ec);
    } catch (const RuntimeError&) {
        return false;  // a name no file can have
    }
}

bool PosixFileSystem::folderExists(StringView path) {
    if (path.empty() || hasWildcards(path)) return false;
    std::error_code ec;
    try {
        return fs::is_directory(resolve(path), ec);
    } catch (const RuntimeError&) {
        return false;  // a name no folder can have
    }
}

void PosixFileSystem::createFolder(StringView path) {
    if (path.empty()) raise(err::InvalidProcedureCall);
    const fs::path folder = resolve(path);
    if (::mkdir(folder.c_str(), 0755) == 0) return;
    const int error = errno;
    if (error == EEXIST) raise(err::FileAlreadyExists);
    raiseFromErrno(error, err::PathFileAccessError);
}

void PosixFileSystem::deleteFiles(StringView files) {
    std::size_t cut = files.size();
    while (cut > 0 && !isSeparator(files[cut - 1])) --cut;
    const StringView pattern = files.substr(cut);
    const fs::path folder = cut == 0 ? fs::current_path() : resolve(files.substr(0, cut));
    std::error_code ec;
    if (!fs::is_directory(folder, ec)) raise(err::PathNotFound);

    std::vector<fs::path> victims;
    if (pattern.empty()) {
        raise(err::FileNotFound);
    } else if (hasWildcards(pattern)) {
        for (const auto& entry : fs::directory_iterator(folder, ec)) {
            if (entry.is_regular_file(ec) && wildcardMatch(fromUtf8(entry.path().filename().string()), pattern))
                victims.push_back(entry.path());
        }
    } else {
        const fs::path file = folder / toUtf8(pattern);
        if (fs::is_regular_file(file, ec)) victims.push_back(file);
    }
    if (victims.empty()) raise(err::FileNotFound);
    // The folder's permissions decide on Linux; a read-only file goes too.
    for (const auto& file : victims) {
        if (::unlink(file.c_str()) != 0) raiseFromErrno(errno, err::PathFileAccessError);
    }
}

String PosixFileSystem::specialFolder(int which) {
    std::error_code ec;
    switch (which) {
        case 0: fs::create_directories(resolve(u"C:\\Windows"), ec); return u"C:\\Windows";
        case 1: fs::create_directories(resolve(u"C:\\Windows\\System32"), ec); return u"C:\\Windows\\System32";
        case 2:
            // Inside drive C like the others: the system's own temporary
            // folder is out of the library's reach.
            fs::create_directories(resolve(u"C:\\Windows\\Temp"), ec);
            return u"C:\\Windows\\Temp";
        default: raise(err::InvalidProcedureCall);
    }
}

String PosixFileSystem::applicationPath() {
    if (const char* path = std::getenv("TELVARO_APP_PATH"); path && *path) return fromUtf8(path);
    return u"C:\\Telvaro";
}

void PosixFileSystem::appendToFile(StringView path, std::string_view bytes) {
    const fs::path file = resolve(path);
    const int fd = ::open(file.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0) raiseOpenError(errno);
    // One write: appends of other processes land before or after, not inside.
    const ssize_t written = ::write(fd, bytes.data(), bytes.size());
    const int error = errno;
    ::close(fd);
    if (written != static_cast<ssize_t>(bytes.size())) raiseFromErrno(written < 0 ? error : ENOSPC, err::DeviceIOError);
}

std::string PosixFileSystem::readRecord(StringView path, std::int32_t number, std::size_t length) {
    const fs::path file = resolve(path);
    RandomFile random(file);
    const off_t offset = recordOffset(number, length);
    std::string record(length, '\0');
    std::size_t done = 0;
    while (done < length) {
        const ssize_t got =
            ::pread(random.fd(), record.data() + done, length - done, offset + static_cast<off_t>(done));
        if (got < 0) raiseFromErrno(errno, err::DeviceIOError);
        if (got == 0) break;  // past the end: the rest reads as zeros
        done += static_cast<std::size_t>(got);
    }
    return record;
}

void PosixFileSystem::writeRecord(StringView path, std::int32_t number, std::string_view bytes) {
    const fs::path file = resolve(path);
    RandomFile random(file);
    const off_t offset = recordOffset(number, bytes.size());
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t put =
            ::pwrite(random.fd(), bytes.data() + done, bytes.size() - done, offset + static_cast<off_t>(done));
        if (put < 0) raiseFromErrno(errno, err::DeviceIOError);
        done += static_cast<std::size_t>(put);
    }
}

}  // namespace telvaro::posix
