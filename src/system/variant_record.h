// The layout of a Variant in a fixed-length record of a random-access file,
// all numbers little-endian:
//
//   2 bytes   the type code (0 Empty, 1 Null, 2 Integer, 3 Long, 5 Double,
//             6 Currency, 7 Date, 8 String, 10 Error, 11 Boolean,
//             14 Decimal, 17 Byte; 0x2000 + element type for an array)
//   then      Integer, Boolean: 2 bytes; Long, Error: 4; Double, Date: 8
//             (IEEE double); Currency: 8 (count of 1/10000); Byte: 1;
//             Decimal: 14 (scale, sign 0 or 0x80, high 32 bits, low 64
//             bits); String: 2 bytes of length, then that many ANSI bytes;
//             Empty, Null: nothing; an array: 2 bytes of dimensions, for
//             each dimension 4 bytes of element count and 4 of lower bound,
//             then every element in this same layout, first subscript
//             fastest.
//
// The rest of the record is zeros, so a record never written, or past the
// end of the file, reads back as Empty. A value whose layout does not fit
// the record is error 59 (bad record length), never cut; an object is
// error 13; a record whose bytes are not this layout is error 458.
#pragma once

#include <string>
#include <string_view>

#include "runtime/variant.h"

namespace telvaro::system {

std::string encodeRecord(const Variant& value, std::size_t recordLength);
Variant decodeRecord(std::string_view record);

}  // namespace telvaro::system
