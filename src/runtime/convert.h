// The runtime's conversions between Variant types, under the regional
// settings in force (runtime/regional.h):
//  - to String: numbers in their shortest form (a Double in at most 15
//    significant digits, plain while they fit within 15 places after the
//    point, else exponent form "1E+20", "5.6789E-12"; Currency and Decimal
//    without trailing zeros), the regional decimal mark, no thousands
//    marks; Booleans as "True"/"False"; Dates in the short date format (and
//    the time when it is not midnight, only the time when the day is
//    30/12/1899).
//  - from String: locale-aware reading (blanks, sign, regional decimal and
//    thousands marks, exponent, currency symbol, "&H"/"&O" prefixes; "True"
//    and "False" for Booleans; dates in the regional order); error 13 when the
//    text is not a value of the type, error 6 when it is out of range.
//  - between numeric types: range checked (error 6), half to even rounding
//    into Integer, Long, Byte and Currency.
//  - Null to anything but Variant raises error 94; an object is read through
//    its default member; Empty is 0, "" or False.
#pragma once

#include <cstdint>
#include <optional>

#include "runtime/variant.h"

namespace telvaro {

String toString(const Variant& v);           // CStr
double toDouble(const Variant& v);           // CDbl
std::int16_t toInteger(const Variant& v);    // CInt
std::int32_t toLong(const Variant& v);       // CLng
std::uint8_t toByteValue(const Variant& v);  // CByte
Boolean toBoolean(const Variant& v);         // CBool (True -1, False 0)
Currency toCurrency(const Variant& v);       // CCur
Decimal toDecimal(const Variant& v);         // CDec
Date toDate(const Variant& v);               // CDate

// Text of a Double as the runtime writes it (15 significant digits,
// regional decimal mark).
String doubleToString(double d);
String currencyToString(Currency c);

// The locale-independent leading-number reader (Val): skips blanks, tabs
// and line feeds anywhere, accepts a sign, digits, one "." and an exponent
// with E or D, "&H" and "&O" prefixes; stops at the first character it
// cannot use; 0 when the text has no leading number.
double val(StringView text);

// The sign-position number-to-text conversion in its String form (Str$):
// a number (Byte, Integer, Long, Double, Currency, Decimal) is written like
// toString but with "." as the decimal mark always, and a leading blank
// when it is not negative; a Date is its toString text; an error value is
// "Error " and its number; anything else (text, Boolean, Empty, an object's
// default value) is first converted to Double. Null raises error 94.
String str(const Variant& number);

// Locale-aware reading of a number from text; empty when the text is not a
// number (a blank or empty text is not a number).
std::optional<double> parseNumber(StringView text);

// IsDate.
bool isDate(const Variant& v);

}  // namespace telvaro
