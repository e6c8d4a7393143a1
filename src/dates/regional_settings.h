// The regional configuration the applications expect: dates written
// day/month/four-digit year, "." for decimals and "," for thousands, in
// amounts too. An application checks it at start-up and offers to impose it.
//
//     fn_VerificaConfRegional()   -> False   (decimals written with ",")
//     fn_CambiaConfRegional()     -> True    (the eight items written)
//     fn_VerificaConfRegional()   -> True
#pragma once

#include "runtime/variant.h"

namespace telvaro {
class Fun;
}

namespace telvaro::dates {

Boolean fn_CambiaConfRegional(Fun&);
Boolean fn_VerificaConfRegional(Fun&);

}  // namespace telvaro::dates
