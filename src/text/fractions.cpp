#include "text/fractions.h"

#include <cmath>

#include "context/fun.h"
#include "runtime/checked.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"
#include "text/strings.h"

namespace telvaro::text {

namespace {

// A number written as text with the regional settings (CStr).
String textOf(double x) { return toString(Variant(x)); }
String textOf(std::int32_t x) { return toString(Variant(x)); }

// Text read back as a number with the leading-number reader (Val).
double numberOf(const String& text) { return val(text); }

// A Double into a 32-bit integer, half to even (CLng); error 6 outside.
std::int32_t wholeOf(double x) { return Int32::ofDouble(x).value(); }

// The number of characters of the pack size written in decimal.
std::int16_t widthOf(std::int16_t packSize) { return Int16::of(static_cast<std::int64_t>(textOf(packSize).size())); }

// The text of a number's decimal part after its ".", padded on the right
// with zeros to the width when shorter, read as a number of loose units.
double looseUnitsOf(Fun& fun, const String& quantity, std::int16_t width) {
    String fraction = textOf(numParteDecimal(fun, numberOf(quantity)));
    fraction = strDesdePosicion(fraction, Int16::of(inStr(fraction, u".") + 1));
    if (static_cast<std::int64_t>(fraction.size()) < width) fraction = left(fraction + u"0000000", width);
    return numberOf(fraction);
}

// A quantity in loose units: whole packs times the pack size plus the
// loose units after the ".".
std::int32_t unitsOf(Fun& fun, const String& quantity, std::int16_t packSize, std::int16_t width) {
    if (inStr(quantity, u".") == 0) return wholeOf(numberOf(quantity) * packSize);
    const Int32 packs = Int32(packSize) * Int32(wholeOf(numParteEntera(fun, numberOf(quantity))));
    return wholeOf(packs.value() + looseUnitsOf(fun, quantity, width));
}

// The shared steps of StockResta and StockSuma; `sign` is -1 to subtract.
double stockMove(Fun& fun, double current, const String& quantity, std::int16_t packSize, int sign) {
    const std::int16_t width = widthOf(packSize);
    const String r = textOf(roundDecimals(numberOf(quantity), packSize < 1 ? 4 : width));
    if (inStr(r, u".") == 0 || packSize <= 1) return roundDecimals(current + sign * numberOf(r), 4);

    const String a = textOf(roundDecimals(current, width));
    const Int32 A = unitsOf(fun, a, packSize, width);
    const Int32 B = unitsOf(fun, r, packSize, width);
    const Int32 D = sign < 0 ? A - B : A + B;

    const double q = static_cast<double>(D.value()) / packSize;
    const double loose = roundDecimals(packSize * numParteDecimal(fun, q), 0);
    const String F = right(u"00000" + textOf(loose), width);
    const std::int32_t U = wholeOf(numParteEntera(fun, q));
    return roundDecimals(numberOf(textOf(U) + u"." + F), width);
}

}  // namespace

double roundDecimals(double x, int decimals) {
    if (decimals < 0) raise(err::InvalidProcedureCall);
    if (std::isnan(x) || std::isinf(x) || decimals > 22) return x;
    const double scale = std::pow(10.0, decimals);
    double scaled = std::fabs(x) * scale;
    if (std::isinf(scaled)) return x;
    double whole = std::floor(scaled);
    const double fraction = scaled - whole;
    if (fraction > 0.5 || (fraction == 0.5 && std::fmod(whole, 2.0) != 0)) whole += 1;
    const double result = whole / scale;
    return x < 0 ? -result : result;
}

double numParteEntera(Fun&, double Numero) {
    const double absolute = numberOf(textOf(std::fabs(Numero)));
    Int32 e = wholeOf(absolute);
    if (absolute < e) e -= 1;
    if (numberOf(textOf(Numero)) < 0) e = -e;
    return e;
}

double numParteDecimal(Fun&, double Numero) {
    String s = textOf(roundDecimals(Numero, 9));
    const std::int32_t point = inStr(s, u".");
    s = point > 0 ? u"0" + mid(s, point) : String(u"0");
    if (Numero < 0) s = u"-" + s;
    return numberOf(s);
}

double numTruncar(Fun&, double Numero, std::int16_t NumDecimal) {
    String s = textOf(Numero);
    const Int16 point = Int16::of(inStr(s, u"."));
    if (point > 0 && static_cast<std::int64_t>(s.size()) - point >= NumDecimal) s = left(s, point + NumDecimal);
    return numberOf(s);
}

Boolean numEsMultiplo(Fun&, double Numero, double Factor) {
    const std::int32_t dividend = wholeOf(numberOf(textOf(Numero)));
    const std::int32_t divisor = wholeOf(Factor);
    if (divisor == 0) raise(err::DivisionByZero);
    const Int32 q = Int32::of(static_cast<std::int64_t>(dividend) / divisor);
    const double d = Numero / Factor;
    return Boolean(d - q.value() == 0);
}

double numFraccion_a_Decimal(Fun& fun, const String& CantidadFraccionad, std::int16_t NumFraciones) {
    const std::int16_t width = widthOf(NumFraciones);
    const String s = textOf(roundDecimals(numberOf(CantidadFraccionad), width));
    const std::int32_t point = inStr(s, u".");
    if (point == 0) return numberOf(s);
    const std::int32_t U = wholeOf(numParteEntera(fun, toDouble(Variant(s))));
    String F = strDesdePosicion(s, Int16::of(point + 1));
    if (static_cast<std::int64_t>(F.size()) < width) F = left(F + u"00000", width);
    if (NumFraciones == 0) raise(err::DivisionByZero);
    return U + roundDecimals(numberOf(F) / NumFraciones, 6);
}

String numDecimal_a_Fraccion(Fun& fun, const String& CantidadDecimal, std::int16_t NumFraciones) {
    const double quantity = numberOf(CantidadDecimal);
    const std::int32_t U = wholeOf(numParteEntera(fun, quantity));
    const double d = numParteDecimal(fun, quantity);
    if (d > 0) {
        const double F = roundDecimals(NumFraciones * d + 0.000001, 0);
        return textOf(U) + u"." + strRellena(textOf(F), u"0", widthOf(NumFraciones), LadoCadena::Izquierdo);
    }
    return textOf(U);
}

double StockResta(Fun& fun, double CantActual, String CantiResta, std::int16_t NumFracciones) {
    return stockMove(fun, CantActual, CantiResta, NumFracciones, -1);
}

double StockSuma(Fun& fun, double CantActual, String CantiSuma, std::int16_t NumFracciones) {
    return stockMove(fun, CantActual, CantiSuma, NumFracciones, +1);
}

}  // namespace telvaro::text
