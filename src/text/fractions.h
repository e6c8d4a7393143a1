// Fractions and stock quantities. Inventory screens keep goods sold both by
// the pack and by the loose unit: "5.03" with a pack of 12 is five packs and
// three units. These methods turn that notation into packs as a decimal
// number and back, add and subtract such quantities, and offer the
// integer-part, decimal-part, truncation and multiple tests they are built
// on. Numbers travel between the steps as text: written with the regional
// settings, read back with the leading-number reader.
//
//     numFraccion_a_Decimal("5.06", 12) -> 5.5     (5 packs and 6 of 12 units)
//     numDecimal_a_Fraccion("3.5", 12)  -> "3.06"
//     StockResta(5.06, "2.08", 12)      -> 2.1     (66 - 32 = 34 units: 2 packs, 10 units)
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::text {

double numFraccion_a_Decimal(Fun&, const String& CantidadFraccionad, std::int16_t NumFraciones);
String numDecimal_a_Fraccion(Fun&, const String& CantidadDecimal, std::int16_t NumFraciones);
double StockResta(Fun&, double CantActual, String CantiResta, std::int16_t NumFracciones);
double StockSuma(Fun&, double CantActual, String CantiSuma, std::int16_t NumFracciones);
Boolean numEsMultiplo(Fun&, double Numero, double Factor);
double numParteEntera(Fun&, double Numero);
double numParteDecimal(Fun&, double Numero);
double numTruncar(Fun&, double Numero, std::int16_t NumDecimal);

// Round(x, decimals): half to even at the given number of decimals;
// error 5 for negative decimals.
double roundDecimals(double x, int decimals);

}  // namespace telvaro::text
