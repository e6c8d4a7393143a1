#include "platform/posix/locale_defaults.h"

#include <unicode/datefmt.h>
#include <unicode/dcfmtsym.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>

#include <cstdlib>
#include <memory>
#include <optional>

namespace telvaro::posix {

namespace {

String fromIcu(const icu::UnicodeString& s) {
    return String(reinterpret_cast<const char16_t*>(s.getBuffer()), s.length());
}

// The ICU locale of a POSIX name; nothing for C, POSIX and unknown names.
std::optional<icu::Locale> icuLocale(const std::string& posixName) {
    std::string name = posixName.substr(0, posixName.find_first_of(".@"));
    if (name.empty() || name == "C" || name == "POSIX") return std::nullopt;
    icu::Locale locale(name.c_str());
    if (locale.isBogus() || std::string(locale.getLanguage()).empty()) return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    // A language ICU has no data for falls back to the root locale.
    std::unique_ptr<icu::DateFormat> probe(icu::DateFormat::createDateInstance(icu::DateFormat::kShort, locale));
    if (!probe) return std::nullopt;
    (void)status;
    return locale;
}

String patternOf(icu::DateFormat* format) {
    auto* simple = dynamic_cast<icu::SimpleDateFormat*>(format);
    if (!simple) return {};
    icu::UnicodeString pattern;
    simple->toPattern(pattern);
    return windowsPicture(fromIcu(pattern));
}

String symbol(const icu::DecimalFormatSymbols& symbols, icu::DecimalFormatSymbols::ENumberFormatSymbol which) {
    String s = fromIcu(symbols.getConstSymbol(which));
    for (auto& c : s)
        if (c == u'\u00A0' || c == u'\u202F') c = u' ';
    return s;
}

}  // namespace

std::string localeNameFor(const char* categoryVariable) {
    for (const char* variable : {"LC_ALL", categoryVariable, "LANG"}) {
        const char* value = std::getenv(variable);
        if (value && *value) return value;
    }
    return "C";
}

String windowsPicture(StringView p) {
    String out;
    std::size_t i = 0;
    while (i < p.size()) {
        const char16_t c = p[i];
        if (c == u'\'') {  // a quoted literal is copied with its quotes
            std::size_t end = i + 1;
            while (end < p.size() && p[end] != u'\'') ++end;
            out.append(p.substr(i, end + 1 - i));
            i = end + 1;
            continue;
        }
        std::size_t run = 1;
        while (i + run < p.size() && p[i + run] == c) ++run;
        switch (c) {
            case u'y': out += run == 2 ? u"yy" : u"yyyy"; break;
            case u'E':
            case u'c': out += run >= 4 ? u"dddd" : u"ddd"; break;
            case u'L': out += String(std::min<std::size_t>(run, 4), u'M'); break;
            case u'a': out += u"tt"; break;
            case u'G':
            case u'z':
            case u'Z':
            case u'v':
                // Era and time zone have no Windows picture: dropped with a
                // blank before them.
                while (!out.empty() && out.back() == u' ') out.pop_back();
                break;
            case u'\u00A0':
            case u'\u202F': out += String(run, u' '); break;
            default: out.append(run, c); break;
        }
        i += run;
    }
    return out;
}

RegionalSettings settingsOfLocale(const std::string& numeric, const std::string& time, const std::string& monetary) {
    RegionalSettings settings = RegionalSettings::standard();
    if (auto locale = icuLocale(numeric)) {
        UErrorCode status = U_ZERO_ERROR;
        icu::DecimalFormatSymbols symbols(*locale, status);
        if (U_SUCCESS(status)) {
            settings.decimalSeparator = symbol(symbols, icu::DecimalFormatSymbols::kDecimalSeparatorSymbol);
            settings.thousandSeparator = symbol(symbols, icu::DecimalFormatSymbols::kGroupingSeparatorSymbol);
        }
    }
    if (auto locale = icuLocale(monetary)) {
        UErrorCode status = U_ZERO_ERROR;
        icu::DecimalFormatSymbols symbols(*locale, status);
        if (U_SUCCESS(status)) {
            settings.monetaryDecimalSeparator = symbol(symbols, icu::DecimalFormatSymbols::kMonetarySeparatorSymbol);
            settings.monetaryThousandSeparator =
                symbol(symbols, icu::DecimalFormatSymbols::kMonetaryGroupingSeparatorSymbol);
            settings.currencySymbol = symbol(symbols, icu::DecimalFormatSymbols::kCurrencySymbol);
        }
    }
    if (auto locale = icuLocale(time)) {
        std::unique_ptr<icu::DateFormat> shortDate(
            icu::DateFormat::createDateInstance(icu::DateFormat::kShort, *locale));
        std::unique_ptr<icu::DateFormat> longDate(icu::DateFormat::createDateInstance(icu::DateFormat::kFull, *locale));
        std::unique_ptr<icu::DateFormat> timeOfDay(
            icu::DateFormat::createTimeInstance(icu::DateFormat::kMedium, *locale));
        if (String s = patternOf(shortDate.get()); !s.empty()) settings.shortDate = s;
        if (String s = patternOf(longDate.get()); !s.empty()) settings.longDate = s;
        if (String s = patternOf(timeOfDay.get()); !s.empty()) settings.timeFormat = s;
    }
    return settings;
}

}  // namespace telvaro::posix
