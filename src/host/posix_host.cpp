// The host on Linux and other POSIX systems.

#include "context/frm_prog.h"
#include "data/factory.h"
#include "host/default_platform.h"
#include "host/exported_sheets.h"
#include "host/posix_display.h"
#include "host/posix_pictures.h"
#include "objects/picture.h"
#include "platform/posix/home.h"
#include "platform/posix/pdf_printing.h"
#include "platform/posix/posix_environment.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_profile_files.h"
#include "platform/posix/posix_regional_store.h"
#include "platform/posix/posix_registry.h"
#include "platform/posix/terminal_message_box.h"
#include "platform/posix/terminal_progress.h"
#include "platform/posix/window_effects.h"
#include "runtime/text.h"

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
    // The data objects open only files the strict mapping gives: the home
    // folder and the mapped drives, nothing else.
    data::DataServices dataServices{[](StringView windowsPath) { return posix::mapPath(windowsPath); }};
    p.use(std::shared_ptr<ObjectFactory>(
        std::make_shared<FunctionObjectFactory>([dataServices](StringView progId) -> ObjectRef {
            // The spreadsheet application writes its workbooks under the home folder.
            if (textEquals(progId, u"Excel.Application")) return host::makeSheetApplication(host::exportsFolder());
            return data::createDataObject(progId, dataServices);
        })));
    auto pictures = std::make_shared<posix::PosixPictures>();
    p.use(std::shared_ptr<Pictures>(pictures));
    auto display = std::make_shared<posix::PosixDisplay>(pictures);
    p.use(std::shared_ptr<DisplayService>(display));
    p.use(std::shared_ptr<Windows>(std::make_shared<posix::PosixWindows>(display)));
    // frmProg: a bar on stderr when it is a terminal, else nothing seen.
    p.use(std::shared_ptr<ProgressDisplay>(std::make_shared<posix::TerminalProgressDisplay>()));
    // Printed pictures are the library's own picture objects.
    p.use(std::shared_ptr<Printing>(
        std::make_shared<posix::PdfPrinting>([](const Variant& v) -> std::optional<posix::PrintPixels> {
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
