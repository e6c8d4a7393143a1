#include "dates/date_helpers.h"

#include <cmath>

#include "context/fun.h"
#include "runtime/checked.h"
#include "runtime/convert.h"
#include "runtime/datetime.h"
#include "runtime/format.h"
#include "text/fractions.h"

namespace telvaro::dates {

namespace {

// Int: the largest whole number not greater than the value.
double Int(double x) { return std::floor(x); }

// The whole day of a date serial (the time of day dropped).
std::int64_t dayNumber(double serial) { return static_cast<std::int64_t>(std::trunc(serial)); }

}  // namespace

String MyFecha(Fun&, const String& Fecha) { return format(Variant(Fecha), u"yyyy-mm-dd"); }

// The age in a fixed-length calendar: 365-day years, a leap day every four
// years, 30-day months, with 0.95 thresholds that absorb the approximation.
String fecEdadExacta(Fun&, Date FechaActual, Date FechaNacimiento) {
    const Int32 D = Int32::of(dayNumber(FechaActual.serial) - dayNumber(FechaNacimiento.serial));
    const Int16 L = Int16::ofDouble(Int(D / 365.0 / 4));
    const Int32 D2 = D - Int32(L.value());
    const Int16 Y = Int16::ofDouble(Int(D2 / 365.0));
    const double f = D2 / 365.0 - Int(D2 / 365.0);

    double months = f * 12;
    const double monthFraction = months - Int(months);
    if (months - Int(months) > 0.95) months += 0.1;
    const Int16 M = Int16::ofDouble(Int(months));

    double days = monthFraction * 30;
    if (days - Int(days) > 0.95) days += 0.1;
    const Int16 Dd = Int16::ofDouble(Int(days));

    auto phrase = [&](const char16_t* yearWord, const char16_t* monthWord, const char16_t* dayWord) {
        return str(Variant(Y.value())) + yearWord + str(Variant(M.value())) + monthWord + str(Variant(Dd.value())) +
               dayWord;
    };
    const bool yearsPlural = Y == 0 || Y > 1, yearSingular = Y == 1;
    const bool monthsPlural = M == 0 || M > 1, monthSingular = M == 1;
    const bool daysPlural = Dd >= 0, daySingular = Dd == 1;

    // Eight tests, one per combination of words; the last that holds wins.
    String result;
    if (yearsPlural && monthsPlural && daysPlural) result = phrase(u" años con ", u" meses y ", u" días");
    if (yearsPlural && monthsPlural && daySingular) result = phrase(u" años con ", u" meses y ", u" día");
    if (yearSingular && monthsPlural && daysPlural) result = phrase(u" año con ", u" meses y ", u" días");
    if (yearSingular && monthsPlural && daySingular) result = phrase(u" año con ", u" meses y ", u" día");
    if (yearsPlural && monthSingular && daysPlural) result = phrase(u" años con ", u" mes y ", u" días");
    if (yearsPlural && monthSingular && daySingular) result = phrase(u" años con ", u" mes y ", u" día");
    if (yearSingular && monthSingular && daysPlural) result = phrase(u" año con ", u" mes y ", u" días");
    if (yearSingular && monthSingular && daySingular) result = phrase(u" año con ", u" mes y ", u" día");
    return result;
}

std::uint8_t fecUltimoDiaMes(Fun& fun, std::uint8_t Mes, std::int16_t Anio) {
    // Every year divisible by 4 is a leap year here: no century rule.
    const bool leap = text::numEsMultiplo(fun, Anio, 4).isTrue();
    switch (Mes) {
        case 1:
        case 3:
        case 5:
        case 7:
        case 8:
        case 10:
        case 12: return 31;
        case 4:
        case 6:
        case 9:
        case 11: return 30;
        case 2: return leap ? 29 : 28;
        default: return 0;
    }
}

Date FechaPrimerDia(Fun&, const Variant& Fecha) {
    // Null compares as unknown with "", which the test treats as false.
    const bool given = !Fecha.isNull() && !Fecha.isMissing() && !toString(Fecha).empty();
    const double d = given ? toDate(Fecha).serial : today();
    return Date{d - day(Variant(Date{d})) + 1};
}

}  // namespace telvaro::dates
