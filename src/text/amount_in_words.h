// Amounts in Spanish words, for invoices and cheques: the whole part in
// words, the currency word, "con" and the cents in words with the cents
// word, each part in the grammatical gender of its noun.
//
//     Numero2Letra("1234.56", 0, 2, "dólares", "centavos", Masculino, Masculino)
//       -> "mil doscientos treinta y cuatro dólares con cincuenta y seis centavos"
//     Numero2Letra("21", 0, 2, "pesetas", "céntimos", Femenino, Masculino)
//       -> "veintiuna pesetas con cero céntimos"
//
// Lo is the length of the line the amount is printed on: when it is above
// 0, the text is filled with "*" up to Lo characters so that nothing can be
// written after it on a cheque (a longer text is never cut).
#pragma once

#include <cstdint>

#include "context/enums.h"
#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::text {

String Numero2Letra(Fun&, String strNum, std::int32_t Lo, std::int32_t NumDecimales, String sMoneda, String sCentimos,
                    eSexo SexoMoneda, eSexo SexoCentimos);

// A whole number from 0 to 999 999 999 999 999 in words, in the gender of
// the noun that follows; `beforeNoun` gives the short forms "un",
// "veintiún" used before a masculine noun.
String numberInWords(std::int64_t n, eSexo gender, bool beforeNoun);

}  // namespace telvaro::text
