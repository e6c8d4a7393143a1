#include "platform/posix/posix_environment.h"

#include <pwd.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>

#include "platform/posix/home.h"
#include "platform/posix/internet_probe.h"
#include "platform/posix/launcher.h"
#include "platform/posix/sound_output.h"
#include "runtime/error.h"

namespace telvaro::posix {

PosixEnvironment::PosixEnvironment() : sound_(std::make_unique<SoundOutput>()) {}
PosixEnvironment::~PosixEnvironment() = default;

String PosixEnvironment::computerName() {
    char name[HOST_NAME_MAX + 1] = {};
    if (::gethostname(name, sizeof name - 1) != 0) return {};
    std::string host = name;
    return fromUtf8(host.substr(0, host.find('.')));
}

String PosixEnvironment::userName() {
    passwd entry{};
    passwd* found = nullptr;
    char buffer[4096];
    if (::getpwuid_r(::geteuid(), &entry, buffer, sizeof buffer, &found) == 0 && found) return fromUtf8(found->pw_name);
    const char* user = std::getenv("USER");
    return user ? fromUtf8(user) : String();
}

void PosixEnvironment::open(StringView file, StringView parameters, StringView folder, int /*showCommand*/) {
    // Linux has no "show without activating": the window manager decides.
    std::filesystem::path workingFolder;
    try {
        if (!folder.empty()) workingFolder = mapPath(folder);
        startDetached(launchCommand(file, parameters, workingFolder), workingFolder);
    } catch (const RuntimeError&) {
        // A name no file or folder can have: nothing is started, as when
        // the file is not found.
    }
}

bool PosixEnvironment::internetReachable() { return canConnect(probeAddress(), kProbeTimeoutMs); }

bool PosixEnvironment::playSound(StringView file, int flags) {
    try {
        return sound_->play(mapPath(file), flags);
    } catch (const RuntimeError&) {
        return false;  // a name no file can have: nothing to play
    }
}

}  // namespace telvaro::posix
