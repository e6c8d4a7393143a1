#include "platform/posix/posix_profile_files.h"

#include "platform/ansi.h"
#include "platform/ini_document.h"
#include "platform/posix/atomic_file.h"
#include "platform/posix/home.h"
#include "runtime/error.h"

namespace telvaro::posix {

namespace fs = std::filesystem;

namespace {

String withoutTrailingBlanks(StringView s) {
    std::size_t e = s.size();
    while (e > 0 && s[e - 1] == u' ') --e;
    return String(s.substr(0, e));
}

}  // namespace

fs::path PosixProfileFiles::locate(StringView file) {
    if (isFullPath(file)) return mapPath(file);
    return mapPath(u"C:\\Windows\\" + String(file));
}

String PosixProfileFiles::getString(StringView file, StringView section, StringView key, StringView defaultText,
                                    std::size_t bufferSize) {
    String result = withoutTrailingBlanks(defaultText);
    std::optional<std::string> bytes;
    try {
        bytes = readBytes(locate(file));
    } catch (const RuntimeError&) {
        // A name no file can have: nothing to read, as for a missing file.
    }
    if (bytes) {
        if (auto value = IniDocument(fromAnsi(*bytes)).value(section, key)) result = *value;
    }
    if (bufferSize == 0) return {};
    if (result.size() > bufferSize - 1) result.resize(bufferSize - 1);
    return result;
}

bool PosixProfileFiles::writeString(StringView file, StringView section, StringView key, StringView value) {
    // As the file writes do: drive C is there before anything is written.
    ensureSystemDrive();
    fs::path path;
    try {
        path = locate(file);
    } catch (const RuntimeError&) {
        return false;
    }
    std::error_code ec;
    // The Windows folder always exists on Windows; other folders must.
    if (!isFullPath(file)) fs::create_directories(path.parent_path(), ec);
    if (!fs::is_directory(path.parent_path(), ec)) return false;
    return changeFile(path, [&](const std::string& old) {
        IniDocument document(fromAnsi(old));
        document.set(section, key, value);
        return toAnsi(document.text());
    });
}

}  // namespace telvaro::posix
