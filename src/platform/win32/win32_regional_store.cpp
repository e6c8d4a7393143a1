#include "platform/win32/win32_regional_store.h"

#include <string>

#include "platform/win32/win32_text.h"

namespace telvaro::win32 {

namespace {

constexpr LCID kSpanishLocale = 11274;
constexpr int kBufferSize = 255;

std::optional<String> userItem(LCTYPE item) {
    wchar_t buffer[kBufferSize] = {};
    const int n = GetLocaleInfoW(LOCALE_USER_DEFAULT, item, buffer, kBufferSize);
    if (n <= 0) return std::nullopt;
    return fromWide(buffer, static_cast<std::size_t>(n - 1));
}

void readInto(String& field, LCTYPE item) {
    if (auto value = userItem(item)) field = std::move(*value);
}

}  // namespace

RegionalSettings Win32RegionalStore::load() {
    RegionalSettings s = RegionalSettings::standard();
    readInto(s.shortDate, LOCALE_SSHORTDATE);
    readInto(s.longDate, LOCALE_SLONGDATE);
    readInto(s.decimalSeparator, LOCALE_SDECIMAL);
    readInto(s.thousandSeparator, LOCALE_STHOUSAND);
    readInto(s.timeFormat, LOCALE_STIMEFORMAT);
    readInto(s.monetaryDecimalSeparator, LOCALE_SMONDECIMALSEP);
    readInto(s.monetaryThousandSeparator, LOCALE_SMONTHOUSANDSEP);
    readInto(s.currencySymbol, LOCALE_SCURRENCY);
    for (int m = 0; m < 12; ++m) {
        readInto(s.monthNames[m], LOCALE_SMONTHNAME1 + m);
        readInto(s.monthAbbreviations[m], LOCALE_SABBREVMONTHNAME1 + m);
    }
    // The system numbers the days from Monday; the runtime from Sunday.
    for (int d = 0; d < 7; ++d) {
        readInto(s.dayNames[(d + 1) % 7], LOCALE_SDAYNAME1 + d);
        readInto(s.dayAbbreviations[(d + 1) % 7], LOCALE_SABBREVDAYNAME1 + d);
    }
    readInto(s.amDesignator, LOCALE_S1159);
    readInto(s.pmDesignator, LOCALE_S2359);
    return s;
}

bool Win32RegionalStore::setItem(int item, StringView value) {
    if (SetLocaleInfoA(kSpanishLocale, static_cast<LCTYPE>(item), ansi(value).c_str()) == 0) return false;
    RegionalSettings settings = regional();
    setItemOf(settings, item, value);
    setRegional(std::move(settings));
    return true;
}

std::optional<String> Win32RegionalStore::item(int item) {
    if (!itemOf(regional(), item)) return std::nullopt;
    char buffer[kBufferSize] = {};
    const int n = GetLocaleInfoA(LOCALE_USER_DEFAULT, static_cast<LCTYPE>(item), buffer, kBufferSize);
    if (n <= 0) return String();
    return fromAnsi(buffer, static_cast<std::size_t>(n - 1));
}

}  // namespace telvaro::win32
