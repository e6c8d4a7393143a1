// The regional settings that the runtime's conversions and Format read: the
// eight items the library manages (short and long date formats, decimal and
// thousands separators, time format, monetary separators, currency symbol)
// plus the month and day names. One current configuration per process; the
// persistent store loads and saves it.
#pragma once

#include <array>
#include <cstdint>

#include "runtime/ustring.h"

namespace telvaro {

struct RegionalSettings {
    String shortDate = u"dd/MM/yyyy";
    String longDate = u"dddd, d' de 'MMMM' de 'yyyy";
    String decimalSeparator = u".";
    String thousandSeparator = u",";
    String timeFormat = u"HH:mm:ss";
    String monetaryDecimalSeparator = u".";
    String monetaryThousandSeparator = u",";
    String currencySymbol = u"$";

    // January first; Sunday first.
    std::array<String, 12> monthNames = {u"enero", u"febrero", u"marzo",      u"abril",   u"mayo",      u"junio",
                                         u"julio", u"agosto",  u"septiembre", u"octubre", u"noviembre", u"diciembre"};
    std::array<String, 12> monthAbbreviations = {u"ene", u"feb", u"mar", u"abr", u"may", u"jun",
                                                 u"jul", u"ago", u"sep", u"oct", u"nov", u"dic"};
    std::array<String, 7> dayNames = {u"domingo", u"lunes", u"martes", u"miércoles", u"jueves", u"viernes", u"sábado"};
    std::array<String, 7> dayAbbreviations = {u"dom", u"lun", u"mar", u"mié", u"jue", u"vie", u"sáb"};
    String amDesignator = u"a.m.";
    String pmDesignator = u"p.m.";

    // The configuration the applications expect: "dd/MM/yyyy", "." decimal,
    // "," thousands, "HH:mm:ss", Spanish month and day names.
    static RegionalSettings standard();

    // Derived items: the first separator character found in the short date
    // and time formats ("/" and ":" in the standard configuration).
    String dateSeparator() const;
    String timeSeparator() const;
    // The order of day, month and year in the short date format.
    enum class DateOrder { DayMonthYear, MonthDayYear, YearMonthDay };
    DateOrder dateOrder() const;
    // True when the short date format writes a four-digit year.
    bool fourDigitYear() const;

    char16_t decimalMark() const { return decimalSeparator.empty() ? u'.' : decimalSeparator[0]; }
    char16_t thousandMark() const { return thousandSeparator.empty() ? u'\0' : thousandSeparator[0]; }
};

// The configuration in force. Conversions and Format read it on every call.
const RegionalSettings& regional();
void setRegional(RegionalSettings settings);
// Counts the changes of the configuration in force, so what is made from
// it can be kept until it changes.
std::uint64_t regionalVersion();

// Puts a configuration in force for the lifetime of the guard (tests, and
// the batch protocol's per-request settings).
class RegionalScope {
public:
    explicit RegionalScope(RegionalSettings settings);
    ~RegionalScope();
    RegionalScope(const RegionalScope&) = delete;
    RegionalScope& operator=(const RegionalScope&) = delete;

private:
    RegionalSettings saved_;
};

}  // namespace telvaro
