// Regional settings on Linux. Before anything is written, the settings in
// force are those the process's POSIX locale stands for (locale_defaults.h);
// each item written is kept in <home>/regional.ini, section [intl], under
// the name the item has in a Windows profile (sShortDate, sDecimal ...), and
// overrides the locale's value from then on, for every process.
#pragma once

#include <filesystem>

#include "platform/regional_store.h"

namespace telvaro::posix {

class PosixRegionalStore : public RegionalStore {
public:
    explicit PosixRegionalStore(std::filesystem::path file = {});  // default: <home>/regional.ini

    // The locale's settings with the stored items over them.
    RegionalSettings load() const;

    bool setItem(int item, StringView value) override;
    std::optional<String> item(int item) override;

private:
    std::filesystem::path file() const;

    std::filesystem::path file_;
};

}  // namespace telvaro::posix
