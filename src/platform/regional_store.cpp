#include "platform/regional_store.h"

namespace telvaro {

namespace {

struct ItemRule {
    int item;
    String RegionalSettings::*field;
    std::size_t minLength;
    std::size_t maxLength;
    bool digitsAllowed;
};

// The lengths the platform accepts for each item (its buffers hold one
// more character for the ending zero); separators may not be digits.
constexpr ItemRule kRules[] = {
    {lcitem::ShortDate, &RegionalSettings::shortDate, 1, 79, true},
    {lcitem::LongDate, &RegionalSettings::longDate, 1, 79, true},
    {lcitem::DecimalSeparator, &RegionalSettings::decimalSeparator, 1, 3, false},
    {lcitem::ThousandSeparator, &RegionalSettings::thousandSeparator, 0, 3, false},
    {lcitem::TimeFormat, &RegionalSettings::timeFormat, 1, 79, true},
    {lcitem::MonetaryDecimal, &RegionalSettings::monetaryDecimalSeparator, 1, 3, false},
    {lcitem::MonetaryThousand, &RegionalSettings::monetaryThousandSeparator, 0, 3, false},
    {lcitem::CurrencySymbol, &RegionalSettings::currencySymbol, 1, 12, true},
};

const ItemRule* ruleOf(int item) {
    for (const auto& rule : kRules)
        if (rule.item == item) return &rule;
    return nullptr;
}

bool hasDigit(StringView s) {
    for (char16_t c : s)
        if (c >= u'0' && c <= u'9') return true;
    return false;
}

}  // namespace

std::optional<String> itemOf(const RegionalSettings& settings, int item) {
    const ItemRule* rule = ruleOf(item);
    if (!rule) return std::nullopt;
    return settings.*(rule->field);
}

bool setItemOf(RegionalSettings& settings, int item, StringView value) {
    const ItemRule* rule = ruleOf(item);
    if (!rule || value.size() < rule->minLength || value.size() > rule->maxLength) return false;
    if (!rule->digitsAllowed && hasDigit(value)) return false;
    settings.*(rule->field) = String(value);
    return true;
}

}  // namespace telvaro
