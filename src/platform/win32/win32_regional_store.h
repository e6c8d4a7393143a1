// The user's regional settings on Windows. Items are written with
// SetLocaleInfoA under locale 11274 (the system applies the change to the
// current user's settings) and read back with GetLocaleInfoA into a
// 255-character buffer. The runtime's conversions and Format read the
// settings in force from the system when the library loads, and follow
// every change made through the library.
#pragma once

#include "platform/regional_store.h"
#include "runtime/regional.h"

namespace telvaro::win32 {

class Win32RegionalStore : public RegionalStore {
public:
    // The user's settings as the system holds them: the eight items, the
    // month and day names and the AM/PM designators.
    static RegionalSettings load();

    bool setItem(int item, StringView value) override;
    std::optional<String> item(int item) override;
};

}  // namespace telvaro::win32
