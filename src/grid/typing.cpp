#include "grid/typing.h"

#include "forms/backspace.h"
#include "grid/cells.h"
#include "platform/ansi.h"

namespace telvaro::grid {

namespace {

constexpr std::int16_t kEscape = 27, kEnter = 13, kBackspace = 8;

// Chr: the character of a code of the ANSI code page; error 5 outside 0..255.
String characterOf(std::int16_t code) {
    if (code < 0 || code > 255) raise(err::InvalidProcedureCall);
    const char byte = static_cast<char>(static_cast<unsigned char>(code));
    return fromAnsi(std::string_view(&byte, 1));
}

}  // namespace

void EscribeGrid(Fun& fun, const ObjectRef& Grid, std::int16_t& KEyAsci) {
    if (KEyAsci != kEscape && KEyAsci != kEnter && KEyAsci != kBackspace) {
        const callers::FlexGrid grid(Grid);
        String text = grid.text();
        text += characterOf(KEyAsci);
        grid.setText(text);
    }
    if (KEyAsci == kBackspace) KEyAsci = forms::fn_Backspace(fun, Grid);
}

}  // namespace telvaro::grid
