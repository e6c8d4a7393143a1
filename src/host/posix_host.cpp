// The host on Linux and other POSIX systems.
#include "data/factory.h"
#include "host/default_platform.h"
#include "platform/posix/home.h"
#include "host/posix_pictures.h"
#include "objects/picture.h"
#include "platform/posix/pdf_printing.h"
#include "platform/posix/posix_environment.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_profile_files.h"
#include "platform/posix/posix_regional_store.h"
#include "platform/posix/posix_registry.h"
#include "platform/posix/terminal_message_box.h"
#include "platform/posix/window_effects.h"

namespace telvaro {

namespace {

Platform posixPlatform() {
    auto regionalStore = std::make_shared<posix::PosixRegionalStore>();
    setRegional(regionalStore->load());
    Platform p;
    p.use(std::shared_ptr<MessageBoxService>(std::make_shared<posix::TerminalMessageBox>()));
    p.use(std::shared_ptr<ProfileFiles>(std::make_shared<posix::PosixProfileFiles>()));
    p.use(std::shared_ptr<FileSystem>(std::make_shared<posix::PosixFileSystem>()));
    p.use(std::shared_ptr<Registry>(std::make_shared<posix::PosixRegistry>()));
    p.use(std::shared_ptr<RegionalStore>(std::move(regionalStore)));
    p.use(std::shared_ptr<Environment>(std::make_shared<posix::PosixEnvironment>()));
    p.use(std::shared_ptr<Windows>(std::make_shared<posix::WindowEffects>()));
    // The data objects open only files the strict mapping gives: the home
    // folder and the mapped drives, nothing else.
    data::DataServices dataServices{[](StringView windowsPath) { return posix::mapPath(windowsPath); }};
    p.use(std::shared_ptr<ObjectFactory>(std::make_shared<FunctionObjectFactory>(
        [dataServices](StringView progId) { return data::createDataObject(progId, dataServices); })));
    p.use(std::shared_ptr<Pictures>(std::make_shared<posix::PosixPictures>()));
    // Printed pictures are the library's own picture objects.
    p.use(std::shared_ptr<Printing>(std::make_shared<posix::PdfPrinting>(
        [](const Variant& v) -> std::optional<posix::PrintPixels> {
            if (!v.isObject()) return std::nullopt;
            const auto* picture = dynamic_cast<const objects::Picture*>(v.object().get());
            if (!picture || picture->isEmpty()) return std::nullopt;
            return posix::PrintPixels{picture->width(), picture->height(), picture->pixels()};
        })));
    return p;
}

}  // namespace

const Platform& defaultPlatform() {
    static const Platform platform = posixPlatform();
    return platform;
}

}  // namespace telvaro
