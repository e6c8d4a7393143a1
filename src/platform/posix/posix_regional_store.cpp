#include "platform/posix/posix_regional_store.h"

#include "platform/ini_document.h"
#include "platform/posix/atomic_file.h"
#include "platform/posix/home.h"
#include "platform/posix/locale_defaults.h"

namespace telvaro::posix {

namespace fs = std::filesystem;

namespace {

constexpr const char16_t* kSection = u"intl";

struct StoredItem {
    int item;
    const char16_t* key;
};

constexpr StoredItem kStoredItems[] = {
    {lcitem::ShortDate, u"sShortDate"},
    {lcitem::LongDate, u"sLongDate"},
    {lcitem::DecimalSeparator, u"sDecimal"},
    {lcitem::ThousandSeparator, u"sThousand"},
    {lcitem::TimeFormat, u"sTimeFormat"},
    {lcitem::MonetaryDecimal, u"sMonDecimalSep"},
    {lcitem::MonetaryThousand, u"sMonThousandSep"},
    {lcitem::CurrencySymbol, u"sCurrency"},
};

const char16_t* keyOf(int item) {
    for (const auto& stored : kStoredItems)
        if (stored.item == item) return stored.key;
    return nullptr;
}

}  // namespace

PosixRegionalStore::PosixRegionalStore(fs::path file) : file_(std::move(file)) {}

fs::path PosixRegionalStore::file() const { return file_.empty() ? homeFolder() / "regional.ini" : file_; }

RegionalSettings PosixRegionalStore::load() const {
    RegionalSettings settings =
        settingsOfLocale(localeNameFor("LC_NUMERIC"), localeNameFor("LC_TIME"), localeNameFor("LC_MONETARY"));
    if (auto bytes = readBytes(file())) {
        const IniDocument document(fromUtf8(*bytes));
        for (const auto& stored : kStoredItems) {
            if (auto value = document.value(kSection, stored.key)) setItemOf(settings, stored.item, *value);
        }
    }
    return settings;
}

bool PosixRegionalStore::setItem(int item, StringView value) {
    RegionalSettings inForce = regional();
    const char16_t* key = keyOf(item);
    if (!key || !setItemOf(inForce, item, value)) return false;
    std::error_code ec;
    fs::create_directories(file().parent_path(), ec);
    const bool stored = changeFile(file(), [&](const std::string& old) {
        IniDocument document(fromUtf8(old));
        // Quoted, so that a blank separator survives the profile rules.
        document.set(kSection, key, u"\"" + String(value) + u"\"");
        return toUtf8(document.text());
    });
    if (stored) setRegional(std::move(inForce));
    return stored;
}

std::optional<String> PosixRegionalStore::item(int item) { return itemOf(regional(), item); }

}  // namespace telvaro::posix
