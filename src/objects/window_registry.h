// The library's own windows by handle. Every control and form is listed
// under its hWnd while it lives, and every picture box also under its hDC,
// so that what is sent to a handle (the paint messages of a picture copy)
// finds the object. A lookup gives an owning reference, or nullptr for a
// handle that names no live object.
#pragma once

#include <cstdint>
#include <memory>

namespace telvaro::objects {

class Control;
class PictureBox;

void registerWindow(std::int32_t handle, Control* control);
// Forgets the handle if it still names `control`.
void unregisterWindow(std::int32_t handle, const Control* control);

std::shared_ptr<Control> windowOf(std::int32_t handle);
// The picture box whose hDC is `handle`.
std::shared_ptr<PictureBox> deviceContextOf(std::int32_t handle);

}  // namespace telvaro::objects
