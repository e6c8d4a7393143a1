// The key filter of numeric boxes, called from a key-press handler that
// assigns the result back to its KeyAscii:
//
//     KeyAscii = VerificaNumero(txtPrecio, KeyAscii)            2 decimals, no sign
//     KeyAscii = VerificaNumero(txtSaldo, KeyAscii, 2, True, 12)
//     KeyAscii = VerificaNumero(grdDetalle, KeyAscii, 3, , , True)   the grid's cell
//
// The result is always 0: an acceptable key is appended to the end of the
// text by the method itself, whatever the caret position.
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::forms {

std::int16_t VerificaNumero(Fun& fun, const ObjectRef& Objeto, std::int16_t KeyAscii, std::int16_t NumDecimales,
                            Boolean ConSigno, std::int16_t Longitud, Boolean EsGridEx);

// Whether a point may follow `Texto` typed up to `Pos`: not in an empty
// box, not right after a lone leading "-", and not when more than `Limite`
// characters would follow it.
bool numPuedePonerPunto(StringView Texto, std::int16_t Pos, std::int16_t Limite);

}  // namespace telvaro::forms
