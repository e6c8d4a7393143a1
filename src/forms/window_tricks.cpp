#include "forms/window_tricks.h"

#include "callers/control.h"
#include "context/fun.h"
#include "runtime/checked.h"

namespace telvaro::forms {

namespace {
constexpr std::int16_t kEmptyListExtent = 200;
}  // namespace

void fn_ScrollHListBox(Fun& fun, const ObjectRef& Lista) {
    const callers::Control list{Variant(Lista)};
    Int16 extent = kEmptyListExtent;
    if (list.listCount() > 0) {
        const std::int32_t count = list.listCount();
        for (std::int32_t i = 0; i < count; ++i) {
            // The required estimate: (FontSize - 2) pixels a character.
            const double fontSize = list.fontSize();
            const Int16 width = Int16::ofDouble((fontSize - 2) * static_cast<double>(list.listItem(i).size()));
            if (i == 0 || width > extent) extent = width;
        }
    }
    fun.platform().windows().setHorizontalExtent(list.hwnd(), extent);
}

void fn_FormSiempreVisible(Fun& fun, const ObjectRef& Formulario) {
    const std::int32_t window = callers::Control{Variant(Formulario)}.hwnd();
    fun.platform().windows().keepOnTop(window);
}

void fn_VentanaFlotante(Fun& fun, const ObjectRef& Formulario, const ObjectRef& Padre) {
    const std::int32_t window = callers::Control{Variant(Formulario)}.hwnd();
    const std::int32_t owner = callers::Control{Variant(Padre)}.hwnd();
    fun.platform().windows().setOwner(window, owner);
}

void fn_MoverControl(Fun& fun, std::int32_t hWnd_control) { fun.platform().windows().dragByBody(hWnd_control); }

}  // namespace telvaro::forms
