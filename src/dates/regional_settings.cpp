#include "dates/regional_settings.h"

#include "context/error_modes.h"
#include "context/fun.h"
#include "runtime/convert.h"
#include "text/strings.h"

namespace telvaro::dates {

namespace {

struct ItemValue {
    int item;
    const char16_t* value;
};

// The configuration, in the order it is written.
constexpr ItemValue kExpected[] = {
    {lcitem::ShortDate, u"dd/MM/yyyy"}, {lcitem::LongDate, u"dddd, d' de 'MMMM' de 'yyyy"},
    {lcitem::DecimalSeparator, u"."},   {lcitem::ThousandSeparator, u","},
    {lcitem::TimeFormat, u"HH:mm:ss"},  {lcitem::MonetaryDecimal, u"."},
    {lcitem::MonetaryThousand, u","},   {lcitem::CurrencySymbol, u"$"},
};

bool startsWith(const std::optional<String>& text, char16_t c) { return text && !text->empty() && (*text)[0] == c; }

}  // namespace

Boolean fn_CambiaConfRegional(Fun& fun) {
    RegionalStore& store = fun.platform().regionalStore();
    bool result = true;
    SkipErrors onError;
    for (const auto& [item, value] : kExpected) {
        onError([&] {
            if (!store.setItem(item, value)) result = false;  // the other items are still written
        });
    }
    // Read back the separators, each while the one before matched; what is
    // read does not change the result.
    onError([&] {
        startsWith(store.item(lcitem::DecimalSeparator), u'.') &&
            startsWith(store.item(lcitem::MonetaryDecimal), u'.') &&
            startsWith(store.item(lcitem::ThousandSeparator), u',') &&
            startsWith(store.item(lcitem::MonetaryThousand), u',');
    });
    if (onError.failed()) result = false;
    onError.clear();
    return Boolean(result);
}

Boolean fn_VerificaConfRegional(Fun&) {
    bool result = true;
    // 31 December 1998 read under the settings in force: a month-first
    // format without a month 31 raises type mismatch here.
    const Date d = toDate(Variant(u"31/12/1998"));
    if (toString(Variant(5.0 / 2)).find(u',') != String::npos) result = false;  // "," as decimal mark
    const String dateText = toString(Variant(d));
    if (dateText.substr(0, 2) == u"12" || dateText.substr(0, 2) == u"19") result = false;  // month or year first
    if (text::strDespuesDeUltimo(dateText, u"/").size() < 4) result = false;               // two-digit year
    return Boolean(result);
}

}  // namespace telvaro::dates
