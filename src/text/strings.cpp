// String and vector helpers. A data-entry program counts how often a mark
// occurs in a text, cuts the piece between two positions, finds the n-th
// separator, pads a number with zeros to a fixed width, and turns a
// separated list such as "1,2,3" or "01/03/2024|15/03/2024" into an array
// of numbers, dates or texts that grid loading and spreadsheet export then
// search by value. Positions start at 1 and, like the counters, are 16-bit
// Integers: a text that takes a count or a position past 32767 fails with
// error 6 instead of giving a wrong answer. Every comparison ignores case
// but not accents ("ÁRBOL" is "árbol", not "arbol").
#include "text/strings.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>
#include <vector>

#include "runtime/checked.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/limits.h"
#include "runtime/text.h"

namespace telvaro::text {

namespace {

// Where Caracter occurs in Cadena under text comparison, overlapping
// occurrences included, found in one pass. The routines below still take
// their steps position by position and search by search, but each step
// then costs no more than a look-up, so a loop over a 32766-character text
// stays linear.
class Occurrences {
public:
    Occurrences(const String& Cadena, const String& Caracter)
        : textLength_(static_cast<std::int64_t>(Cadena.size())),
          findIsEmpty_(Caracter.empty()),
          positions_(textOccurrences(Cadena, Caracter)) {}

    std::size_t count() const { return positions_.size(); }

    // Whether Mid(Cadena, i, Len(Caracter)) equals Caracter as text, for an
    // i where those characters lie inside Cadena. Mid refuses a start below
    // 1 with error 5.
    bool at(std::int64_t i) const {
        if (i < 1) raise(err::InvalidProcedureCall);
        return findIsEmpty_ || std::binary_search(positions_.begin(), positions_.end(), i);
    }

    // InStr(start, Cadena, Caracter) under text comparison: the first
    // occurrence at or after `start`, 0 when there is none.
    std::int32_t inStrFrom(std::int32_t start) const {
        if (start < 1) raise(err::InvalidProcedureCall);
        // An empty Cadena is tested first: nothing is found in it.
        if (textLength_ == 0 || start > textLength_ + 1) return 0;
        if (findIsEmpty_) return start;
        const auto next = std::lower_bound(positions_.begin(), positions_.end(), start);
        return next == positions_.end() ? 0 : *next;
    }

    // The k-th occurrence, for 1 <= k <= count().
    std::int32_t nth(std::int64_t k) const { return positions_.at(static_cast<std::size_t>(k - 1)); }

private:
    std::int64_t textLength_;
    bool findIsEmpty_;
    std::vector<std::int32_t> positions_;
};

}  // namespace

std::int16_t strCuentaCaracteres(Fun&, const String& Cadena, const String& Caracter, std::int16_t PosInicio) {
    // 1. L and N; the count starts at 0.
    const auto L = static_cast<std::int64_t>(Caracter.size());
    const auto N = static_cast<std::int64_t>(Cadena.size());
    Int16 count = 0;
    const Occurrences found(Cadena, Caracter);
    // 2. Every start position from PosInicio to N, one at a time, so that
    //    overlapping occurrences all count; the loop counter is an Integer.
    forLoop(Int16(PosInicio), N, [&](Int16 i) {
        if (i.value() + L <= N + 1) {
            if (found.at(i)) ++count;
        }
    });
    // 3.
    return count;
}

String strCadenaEntrePosicion(Fun&, const String& Cadena, std::int16_t posIni, std::int16_t PosFin) {
    if (posIni > 0 && posIni < PosFin) return mid(Cadena, posIni, Int16(PosFin) - Int16(posIni));
    return {};
}

std::int16_t strPosicion_XAvo_Caracter(Fun&, const String& Cadena, const String& Caracter, std::int16_t NumCaracter) {
    // 1. Go on only when Cadena is empty or Caracter is not.
    if (!(Cadena.empty() || !Caracter.empty())) return 0;
    // 2.
    if (NumCaracter < 1) return 0;
    // 3. Search NumCaracter times, each time from one past the last hit; a
    //    search that fails brings p back to 0, so the next one wraps around.
    const Occurrences found(Cadena, Caracter);
    Int16 p = 0;
    forLoop(Int16(1), NumCaracter, [&](Int16) { p = Int16::of(found.inStrFrom(p + 1)); });
    // 4.
    return p;
}

String strDesdePosicion(const String& Cadena, std::int16_t Posicion) {
    if (Posicion > 0 && static_cast<std::size_t>(Posicion) <= Cadena.size()) return mid(Cadena, Posicion);
    return Cadena;
}

String strDespuesDeUltimo(const String& Cadena, const String& Caracter) {
    const std::int32_t last = inStrRev(Cadena, Caracter);
    if (last == 0) return Cadena;
    // Only the separator's first position is taken off: with a separator of
    // several characters the result keeps its remaining characters.
    return right(Cadena, static_cast<std::int32_t>(Cadena.size()) - last);
}

String strRellena(const String& Cadena, const String& Relleno, std::int16_t Longitud, LadoCadena Lado) {
    const bool onTheLeft = Lado == LadoCadena::Izquierdo;
    // 1. The difference goes into an Integer.
    const Int16 d = Int16::of(std::int64_t(Longitud) - static_cast<std::int64_t>(Cadena.size()));
    // 2. Too short: d copies of Relleno, before Cadena on the left side and
    //    after it on the right.
    if (d > 0) {
        if (std::int64_t(d) * static_cast<std::int64_t>(Relleno.size()) + static_cast<std::int64_t>(Cadena.size()) >
            kMaxBuiltTextLength)
            raise(err::OutOfStringSpace);
        String fill;
        try {
            fill.reserve(static_cast<std::size_t>(d) * Relleno.size() + Cadena.size());
        } catch (const std::bad_alloc&) {
            raise(err::OutOfMemory);
        }
        forLoop(Int16(1), d, [&](Int16) { fill += Relleno; });
        return onTheLeft ? fill + Cadena : Cadena + fill;
    }
    // 3. Long enough: the leftmost Longitud characters on the left side (a
    //    long text is cut on the right), the rightmost on the right side.
    //    Left and Right refuse a negative Longitud with error 5.
    return onTheLeft ? left(Cadena, Longitud) : right(Cadena, Longitud);
}

Variant fn_LlenaVector(Fun& fun, const String& Elementos, TipoDato TipoDat, const String& Separador) {
    // 1. The number of separators.
    const Int16 n = strCuentaCaracteres(fun, Elementos, Separador, 1);
    // 2. Bounds 0 to n.
    Array elements = Array::vector(0, n);
    // 3. The piece before each separator, converted as TipoDat asks.
    const Occurrences separators(Elementos, Separador);
    Int16 prev = 0;
    forLoop(Int16(0), n - 1, [&](Int16 i) {
        // pos is strPosicion_XAvo_Caracter(Elementos, Separador, i + 1).
        // There are n separators, so that search never wraps around and
        // gives the (i + 1)-th one; with an empty Separador (and so a
        // non-empty Elementos) it gives 0 and the Mid below fails.
        const Int16 pos = Separador.empty() ? Int16(0) : Int16::of(separators.nth(i + 1));
        Variant piece = mid(Elementos, prev + 1, pos - prev - 1);
        if (TipoDat == TipoDato::Fecha_) {
            piece = toDate(piece);
        } else if (TipoDat == TipoDato::Numero_) {
            piece = toDouble(piece);
        }
        elements.at(i) = std::move(piece);
        prev = pos;
    });
    // 4. The text after the last separator, always as text.
    elements.at(n) = strDesdePosicion(Elementos, prev + 1);
    // 5.
    return Variant(std::move(elements));
}

std::int32_t fn_BuscaEnVector(Fun&, const Variant& Vector, const Variant& ItemB) {
    const Array& items = Vector.array();
    std::int32_t found = -1;
    forLoop(Int32(0), items.ubound(1), [&](Int32 i) {
        const String element = toString(items.at(i));
        const String wanted = toString(ItemB);
        if (!textEquals(element, wanted)) return true;
        found = i;
        return false;
    });
    return found;
}

}  // namespace telvaro::text
