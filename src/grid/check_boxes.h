// Check boxes and pictures in the cells of a caller's grid. A check-box
// cell keeps its value as its own text (the application reads it back with
// TextMatrix), hides that text, and shows one of the four pictures of the
// hidden form frmDll: imSI (checked), imNO (unchecked), imSid and imNOd
// (the same, disabled). The cell values of the four states are the
// caller's (ValorSI 1, ValorNO 0, DeshabSI 11, DeshabNO 10 by default),
// compared as text.
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::grid {

// A picture file in a cell; a name without ":" is taken from the folder of
// the running application. The loader's error (53, 481) reaches the caller
// with painting off and the current cell moved.
void fn_PoneImagenGrid(Fun&, const ObjectRef& Grid, std::int32_t Fila, std::int16_t Columna, const String& RutaImg,
                       Boolean DejarTexto, std::int16_t Ancho, std::int16_t Alto);
// One check box; with InvertirValores its value is toggled first.
void fn_PoneCheckGrid(Fun&, const ObjectRef& Grid, std::int32_t Fila, std::int16_t Columna, const Variant& ValorSI,
                      const Variant& ValorNO, const Variant& DeshabSI, const Variant& DeshabNO, Boolean InvertirValores,
                      std::int16_t Ancho, std::int16_t Alto);
// A column of check boxes over rows FilInicio..FilFin.
void fn_PoneCheckColumnaGrid(Fun&, const ObjectRef& Grid, std::int16_t Columna, const Variant& ValorSI,
                             const Variant& ValorNO, const Variant& DeshabSI, const Variant& DeshabNO,
                             Boolean InvertirValores, std::int32_t FilInicio, std::int32_t FilFin, std::int16_t Ancho,
                             std::int16_t Alto);
// A check box whose picture follows the two flags, not the cell's text;
// PonerElValor, when not empty, becomes the cell's text.
void fn_PoneCheck(Fun&, const ObjectRef& Grid, std::int32_t Fila, std::int16_t Columna, Boolean Checked,
                  Boolean Deshabilitado, const Variant& PonerElValor);

}  // namespace telvaro::grid
