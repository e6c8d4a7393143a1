// The services the methods need from the operating system, one interface
// per concern, put together once per host (host/) and held by every Fun.
// This is the one place that lists them. A Platform is a small value: its
// services are shared, so a copy with one service replaced (scripted
// message boxes for batch, fakes for tests) costs a few pointers.
#pragma once

#include <memory>

#include "platform/display.h"
#include "platform/environment.h"
#include "platform/file_system.h"
#include "platform/message_box.h"
#include "platform/object_factory.h"
#include "platform/pictures.h"
#include "platform/printing.h"
#include "platform/profile_files.h"
#include "platform/progress_display.h"
#include "platform/regional_store.h"
#include "platform/registry.h"
#include "platform/windows.h"

namespace telvaro {

class Platform {
public:
    MessageBoxService& messageBoxes() const { return *messageBoxes_; }
    ProfileFiles& profileFiles() const { return *profileFiles_; }
    FileSystem& fileSystem() const { return *fileSystem_; }
    Registry& registry() const { return *registry_; }
    RegionalStore& regionalStore() const { return *regionalStore_; }
    Environment& environment() const { return *environment_; }
    Windows& windows() const { return *windows_; }
    ObjectFactory& objectFactory() const { return *objectFactory_; }
    Pictures& pictures() const { return *pictures_; }
    ProgressDisplay& progressDisplay() const { return *progressDisplay_; }
    DisplayService& display() const { return *display_; }
    // Error 482 (printer error) on a platform that was given no printing.
    Printing& printing() const;

    void use(std::shared_ptr<MessageBoxService> s) { messageBoxes_ = std::move(s); }
    void use(std::shared_ptr<ProfileFiles> s) { profileFiles_ = std::move(s); }
    void use(std::shared_ptr<FileSystem> s) { fileSystem_ = std::move(s); }
    void use(std::shared_ptr<Registry> s) { registry_ = std::move(s); }
    void use(std::shared_ptr<RegionalStore> s) { regionalStore_ = std::move(s); }
    void use(std::shared_ptr<Environment> s) { environment_ = std::move(s); }
    void use(std::shared_ptr<Windows> s) { windows_ = std::move(s); }
    void use(std::shared_ptr<ObjectFactory> s) { objectFactory_ = std::move(s); }
    void use(std::shared_ptr<Pictures> s) { pictures_ = std::move(s); }
    void use(std::shared_ptr<ProgressDisplay> s) { progressDisplay_ = std::move(s); }
    void use(std::shared_ptr<DisplayService> s) { display_ = std::move(s); }
    void use(std::shared_ptr<Printing> s) { printing_ = std::move(s); }
    const std::shared_ptr<Printing>& printingService() const { return printing_; }

private:
    std::shared_ptr<MessageBoxService> messageBoxes_;
    std::shared_ptr<ProfileFiles> profileFiles_;
    std::shared_ptr<FileSystem> fileSystem_;
    std::shared_ptr<Registry> registry_;
    std::shared_ptr<RegionalStore> regionalStore_;
    std::shared_ptr<Environment> environment_;
    std::shared_ptr<Windows> windows_;
    // Until a host gives its own, no class can be created (429).
    std::shared_ptr<ObjectFactory> objectFactory_ = std::make_shared<FunctionObjectFactory>();
    std::shared_ptr<Pictures> pictures_;
    // Until a host gives its own, the progress form is seen nowhere.
    std::shared_ptr<ProgressDisplay> progressDisplay_ = std::make_shared<SilentProgressDisplay>();
    std::shared_ptr<DisplayService> display_;
    std::shared_ptr<Printing> printing_;
};

}  // namespace telvaro
