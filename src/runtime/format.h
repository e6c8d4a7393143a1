// The runtime's Format function: number patterns (# 0 . , % E+ E- literal
// text, backslash escapes, quoted text, up to four ";" sections for
// positive, negative, zero and Null), date and time patterns (d dd ddd dddd
// w ww m mm mmm mmmm q y yy yyyy h hh n nn s ss AM/PM am/pm A/P a/p AMPM,
// "/" and ":" as the regional separators), text patterns (@ & < > !), and
// the named formats ("General Number", "Currency", "Fixed", "Standard",
// "Percent", "Scientific", "Yes/No", "True/False", "On/Off", "General Date",
// "Long Date", "Medium Date", "Short Date", "Long Time", "Medium Time",
// "Short Time"). Month and day names come from the regional settings.
#pragma once

#include "runtime/regional.h"
#include "runtime/variant.h"

namespace telvaro {

struct FormatOptions {
    int firstDayOfWeek = 1;   // 1 = Sunday
    int firstWeekOfYear = 1;  // 1 = the week of January 1
};

// Format(value, pattern): an empty pattern gives the value's text; Null and
// Empty follow the pattern's sections. A text that is neither a number nor
// a date comes back as it is under a number or date pattern. Objects are
// read through their default member. Errors: 13 for an array or an error
// value, 6 for a number outside the date range under a date pattern, 5 for
// options outside firstDayOfWeek 0..7 / firstWeekOfYear 0..3 (0 means the
// default, Sunday and the week of January 1).
String format(const Variant& value, StringView pattern, const FormatOptions& options = {});
String format(const Variant& value, StringView pattern, const RegionalSettings& settings,
              const FormatOptions& options = {});

}  // namespace telvaro
