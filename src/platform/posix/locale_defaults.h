// The regional settings a POSIX locale stands for, from ICU's locale data:
// separators and currency symbol of the locale, its short, long and time
// formats written as Windows format pictures ("d/M/yy" -> "d/M/yy",
// "EEEE, d 'de' MMMM 'de' y" -> "dddd, d 'de' MMMM 'de' yyyy"). The C and
// POSIX locales, and names ICU does not know, stand for no preference: the
// configuration the applications expect. Month and day names stay Spanish.
#pragma once

#include <string>

#include "runtime/regional.h"

namespace telvaro::posix {

// The locale name the environment gives a category: LC_ALL, else the
// category's own variable (such as "LC_NUMERIC"), else LANG.
std::string localeNameFor(const char* categoryVariable);

// `numeric`, `time` and `monetary` are POSIX locale names ("es_EC.UTF-8").
RegionalSettings settingsOfLocale(const std::string& numeric, const std::string& time, const std::string& monetary);

// An ICU date or time pattern as a Windows format picture.
String windowsPicture(StringView icuPattern);

}  // namespace telvaro::posix
