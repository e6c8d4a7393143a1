// Printing a whole form on the printer, and the line cutting it uses:
//
//     ImprimeForm frmFactura, "NOPRINT", , 0, 360
//     lineas = SeparaEnLineasImprimir(n, txtObservacion.Text, 4320, Printer.Font)
//     celda = LimitaTamTexto(grd.TextMatrix(1, 2), grd.ColWidth(2), grd.Font)
//     fn_FijaImpresora "LPT1:"
//
// Lengths are in twips. The design is in docs/architecture/printing.md and
// docs/behaviour/forms.md.
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::forms {

// Among the installed printers, the last one whose port is Puerto becomes
// the current printer; with none, the current printer stays.
void fn_FijaImpresora(Fun&, const String& Puerto);

// Prints the form's controls at their places, from (X_ini, Y_ini), Copias
// times. Statement-skipping mode: a control that cannot be read or drawn is
// left out and the method returns normally.
void ImprimeForm(Fun&, const ObjectRef& Formulario, const String& NoEstosTags, const String& NombreContenedor,
                 double X_ini, double Y_ini, Boolean SelecPrinter, std::int32_t AnchoPapel, std::int32_t AltoPapel,
                 std::int16_t Copias, std::int16_t MismoPapel, const String& PuertoPrn, std::int16_t LineaRegresar);

// The text cut into lines no wider than Tamanio in the font Letra: an array
// of Strings from 0, whose count goes into Indices.
Variant SeparaEnLineasImprimir(Fun&, std::int16_t& Indices, const String& Texto, double Tamanio,
                               const ObjectRef& Letra);

// The longest start of the text's first line that fits Tamanio in Letra.
String LimitaTamTexto(Fun&, const String& Texto, double Tamanio, const ObjectRef& Letra);

}  // namespace telvaro::forms
