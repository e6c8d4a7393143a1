#include "objects/window_registry.h"

#include <mutex>
#include <unordered_map>

#include "objects/picture_box.h"

namespace telvaro::objects {

namespace {

struct Registry {
    std::mutex mutex;
    std::unordered_map<std::int32_t, Control*> windows;
};

Registry& registry() {
    static Registry r;
    return r;
}

// An object whose last reference has gone is no longer reachable, even
// while its destructor has not yet taken it off the list.
std::shared_ptr<Control> live(std::int32_t handle) {
    Registry& r = registry();
    std::lock_guard lock(r.mutex);
    auto it = r.windows.find(handle);
    if (it == r.windows.end()) return nullptr;
    return std::dynamic_pointer_cast<Control>(it->second->weak_from_this().lock());
}

}  // namespace

void registerWindow(std::int32_t handle, Control* control) {
    Registry& r = registry();
    std::lock_guard lock(r.mutex);
    r.windows[handle] = control;
}

void unregisterWindow(std::int32_t handle, const Control* control) {
    Registry& r = registry();
    std::lock_guard lock(r.mutex);
    auto it = r.windows.find(handle);
    if (it != r.windows.end() && it->second == control) r.windows.erase(it);
}

std::shared_ptr<Control> windowOf(std::int32_t handle) {
    auto control = live(handle);
    return control && control->hwnd() == handle ? control : nullptr;
}

std::shared_ptr<PictureBox> deviceContextOf(std::int32_t handle) {
    auto box = std::dynamic_pointer_cast<PictureBox>(live(handle));
    return box && box->hdc() == handle ? box : nullptr;
}

}  // namespace telvaro::objects
