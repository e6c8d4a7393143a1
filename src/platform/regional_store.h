// The user's regional settings: the eight items the runtime's conversions
// and Format read, addressed by their locale item numbers. A change that
// succeeds is in force at once for the conversions of this process.
#pragma once

#include <optional>

#include "runtime/regional.h"

namespace telvaro {

namespace lcitem {
inline constexpr int TimeFormat = 4099;       // LOCALE_STIMEFORMAT
inline constexpr int DecimalSeparator = 14;   // LOCALE_SDECIMAL
inline constexpr int ThousandSeparator = 15;  // LOCALE_STHOUSAND
inline constexpr int CurrencySymbol = 20;     // LOCALE_SCURRENCY
inline constexpr int MonetaryDecimal = 22;    // LOCALE_SMONDECIMALSEP
inline constexpr int MonetaryThousand = 23;   // LOCALE_SMONTHOUSANDSEP
inline constexpr int ShortDate = 31;          // LOCALE_SSHORTDATE
inline constexpr int LongDate = 32;           // LOCALE_SLONGDATE
}  // namespace lcitem

class RegionalStore {
public:
    virtual ~RegionalStore() = default;
    // False when the item is not one of the eight, the value is not valid for
    // it, or the store cannot be written.
    virtual bool setItem(int item, StringView value) = 0;
    // The item in force; nothing for an item that is not one of the eight.
    virtual std::optional<String> item(int item) = 0;
};

// The item of a configuration, and a configuration with one item changed
// (false when the item is not one of the eight).
std::optional<String> itemOf(const RegionalSettings& settings, int item);
bool setItemOf(RegionalSettings& settings, int item, StringView value);

}  // namespace telvaro
