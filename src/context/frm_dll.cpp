#include "context/frm_dll.h"

#include <array>
#include <optional>

#include "context/fun.h"

namespace telvaro {

namespace {

struct FrmDll {
    std::array<ObjectRef, 4> pictures;

    explicit FrmDll(const Fun& fun) {
        for (auto kind : {CheckBoxPicture::Checked, CheckBoxPicture::Unchecked, CheckBoxPicture::CheckedDisabled,
                          CheckBoxPicture::UncheckedDisabled}) {
            const auto pixels = checkBoxPixels(kind);
            pictures[static_cast<std::size_t>(kind)] =
                fun.platform().pictures().fromPixels(kCheckBoxSide, kCheckBoxSide, pixels, checkBoxControlName(kind));
        }
    }
};

}  // namespace

Variant frmDllPicture(const Fun& fun, CheckBoxPicture kind) {
    // Loaded on first reference by this thread; a load that fails leaves
    // the form unloaded, so the next reference tries again.
    thread_local std::optional<FrmDll> form;
    if (!form) form.emplace(fun);
    return Variant(form->pictures[static_cast<std::size_t>(kind)]);
}

}  // namespace telvaro
