// Ecuadorian identity numbers. The cédula is the 10-digit personal identity
// number: two digits of province, a class digit (0 to 6 for people), six
// more digits and a check digit computed with weights 2,1,2,1,... (modulo
// 10). The RUC is the 13-digit taxpayer number: a cédula followed by an
// establishment number ("001"), or a company or public-entity number with
// its own modulo-11 check digit. Each has a format check, a full check that
// may ask the user to accept a doubtful number, and a variant that tells
// whether the user did.
//
//     fn_ValidaCedula("1710034065")        -> True   (format only)
//     fn_ValidaCedula2("1710034065", True) -> True   (check digit 5 is right)
//     fn_ValidaRUC("1710034065001")        -> True
#pragma once

#include <cstdint>

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::ident {

Boolean fn_ValidaCedula(Fun&, const String& NumCedula);
Boolean fn_ValidaCedula2(Fun&, const String& NumCedula, Boolean Advertir);
std::int16_t fn_ValidaCedula3(Fun&, const String& NumCedula, Boolean Advertir);
Boolean fn_ValidaRUC(Fun&, const String& NumRUC);
Boolean fn_ValidaRUC2(Fun&, const String& NumRUC, Boolean Advertir);
Boolean fn_ValidaRUC3(Fun&, const String& NumRUC, Boolean Advertir);

}  // namespace telvaro::ident
