// String and vector helpers. Callers count, cut, locate and pad pieces of
// text, and turn a separated list ("1,2,3") into an array of typed values
// that grid loading and spreadsheet export search. Positions start at 1;
// counters are 16-bit, so texts past 32767 characters overflow (error 6).
#include "text/strings.h"

#include "runtime/checked.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace telvaro::text {

std::int16_t strCuentaCaracteres(Fun&, const String& Cadena, const String& Caracter, std::int16_t PosInicio) {
    const std::int64_t L = static_cast<std::int64_t>(Caracter.size());
    const std::int64_t N = static_cast<std::int64_t>(Cadena.size());
    Int16 count = 0;
    forLoop(Int16(PosInicio), N, [&](Int16 i) {
        if (i.value() + L <= N + 1) {
            if (textEquals(mid(Cadena, i, Int32::of(L)), Caracter)) ++count;
        }
    });
    return count;
}

String strCadenaEntrePosicion(Fun&, const String& Cadena, std::int16_t posIni, std::int16_t PosFin) {
    if (posIni > 0 && posIni < PosFin) return mid(Cadena, posIni, Int16(PosFin) - Int16(posIni));
    return {};
}

std::int16_t strPosicion_XAvo_Caracter(Fun&, const String& Cadena, const String& Caracter, std::int16_t NumCaracter) {
    if (!(Cadena.empty() || !Caracter.empty())) return 0;
    if (NumCaracter < 1) return 0;
    Int16 p = 0;
    forLoop(Int16(1), NumCaracter, [&](Int16) { p = Int16::of(inStr(p + 1, Cadena, Caracter)); });
    return p;
}

String strDesdePosicion(const String& Cadena, std::int16_t Posicion) {
    if (Posicion > 0 && static_cast<std::size_t>(Posicion) <= Cadena.size()) return mid(Cadena, Posicion);
    return Cadena;
}

String strDespuesDeUltimo(const String& Cadena, const String& Caracter) {
    std::int32_t last = inStrRev(Cadena, Caracter);
    if (last == 0) return Cadena;
    return right(Cadena, static_cast<std::int32_t>(Cadena.size()) - last);
}

String strRellena(const String& Cadena, const String& Relleno, std::int16_t Longitud, LadoCadena Lado) {
    const Int16 d = Int16(Longitud) - Int16::of(static_cast<std::int64_t>(Cadena.size()));
    const bool onTheLeft = Lado == LadoCadena::Izquierdo;
    if (d > 0) {
        String fill;
        forLoop(Int16(1), d, [&](Int16) { fill += Relleno; });
        return onTheLeft ? fill + Cadena : Cadena + fill;
    }
    if (Longitud < 0) raise(err::InvalidProcedureCall);
    return onTheLeft ? left(Cadena, Longitud) : right(Cadena, Longitud);
}

Variant fn_LlenaVector(Fun& fun, const String& Elementos, TipoDato TipoDat, const String& Separador) {
    const Int16 n = strCuentaCaracteres(fun, Elementos, Separador, 1);
    Array elements = Array::vector(0, n);
    Int16 prev = 0;
    forLoop(Int16(0), n - 1, [&](Int16 i) {
        const Int16 pos = strPosicion_XAvo_Caracter(fun, Elementos, Separador, i + 1);
        Variant piece = mid(Elementos, prev + 1, Int32(pos.value()) - prev.value() - 1);
        if (TipoDat == TipoDato::Fecha_) {
            piece = toDate(piece);
        } else if (TipoDat == TipoDato::Numero_) {
            piece = toDouble(piece);
        }
        elements.at(i) = piece;
        prev = pos;
    });
    elements.at(n) = strDesdePosicion(Elementos, Int16(prev + Int16(1)));
    return Variant(std::move(elements));
}

std::int32_t fn_BuscaEnVector(Fun&, const Variant& Vector, const Variant& ItemB) {
    const Array& items = Vector.array();
    std::int32_t found = -1;
    forLoop(Int32(0), items.ubound(1), [&](Int32 i) {
        if (!textEquals(toString(items.at(i)), toString(ItemB))) return true;
        found = i;
        return false;
    });
    return found;
}

}  // namespace telvaro::text
