// The regional check and change: the check under several configurations,
// the change through the store (order, failures), the store itself, and the
// settings a POSIX locale stands for.
#include <gtest/gtest.h>

#include "context/fun.h"
#include "frame/invoke.h"
#include "host/default_platform.h"
#include "platform/posix/home.h"
#include "platform/posix/locale_defaults.h"
#include "platform/posix/posix_regional_store.h"
#include "support/support.h"
#include "support/test_platform.h"

namespace telvaro {
namespace {

RegionalSettings with(const char16_t* shortDate, const char16_t* decimal = u".", const char16_t* thousand = u",") {
    RegionalSettings s = RegionalSettings::standard();
    s.shortDate = shortDate;
    s.decimalSeparator = decimal;
    s.thousandSeparator = thousand;
    return s;
}

TEST(RegionalCheck, TrueOnlyForDayMonthFourDigitYearAndPointDecimals) {
    // clang-format off
    struct Case {
        RegionalSettings settings;
        const char* what;
        Boolean expected;
    } cases[] = {
        {with(u"dd/MM/yyyy"), "dd/MM/yyyy", True}, {with(u"dd/MM/yy"), "two-digit year", False},
        {with(u"yyyy-MM-dd"), "year first", False}, {with(u"dd-MM-yyyy"), "no slash, four-digit year", True},
        {with(u"dd/MM/yyyy", u",", u"."), "comma decimals", False},
        // The runtime's date reading takes 31/12 as day and month when no
        // month 31 exists, so a month-first format reads the text and the
        // check fails on the month-first result.
        {with(u"MM/dd/yyyy"), "month first", False},
    };
    // clang-format on
    for (const auto& c : cases) {
        RegionalScope scope(c.settings);
        Fun fun(defaultPlatform());
        EXPECT_TRUE(identical(call(fun, "fn_VerificaConfRegional"), Variant(c.expected))) << c.what;
    }
}

// A store that records the items written and refuses some.
class RecordingStore : public RegionalStore {
public:
    std::vector<std::pair<int, String>> written;
    std::vector<int> refused;
    bool setItem(int item, StringView value) override {
        written.emplace_back(item, String(value));
        return std::find(refused.begin(), refused.end(), item) == refused.end();
    }
    std::optional<String> item(int item) override { return itemOf(regional(), item); }
};

class StorePlatform : public fakes::TestPlatform {
public:
    StorePlatform() { use(std::shared_ptr<RegionalStore>(store_)); }

private:
    std::shared_ptr<RecordingStore> store_ = std::make_shared<RecordingStore>();

public:
    RecordingStore& store = *store_;
};

TEST(RegionalChange, WritesTheEightItemsInOrderAndReportsAnyFailure) {
    StorePlatform platform;
    Fun fun(platform);
    EXPECT_TRUE(identical(call(fun, "fn_CambiaConfRegional"), Variant(True)));
    const std::vector<std::pair<int, String>> expected = {
        {31, u"dd/MM/yyyy"}, {32, u"dddd, d' de 'MMMM' de 'yyyy"},
        {14, u"."},          {15, u","},
        {4099, u"HH:mm:ss"}, {22, u"."},
        {23, u","},          {20, u"$"},
    };
    EXPECT_EQ(platform.store.written, expected);

    platform.store.written.clear();
    platform.store.refused = {32};
    EXPECT_TRUE(identical(call(fun, "fn_CambiaConfRegional"), Variant(False)));
    EXPECT_EQ(platform.store.written.size(), 8u);  // the rest still written
}

TEST(RegionalChange, ThroughTheStoreMakesTheCheckPassForEveryLaterProcess) {
    RegionalScope scope(with(u"dd/MM/yy", u",", u"."));
    Fun fun(defaultPlatform());
    EXPECT_TRUE(identical(call(fun, "fn_VerificaConfRegional"), Variant(False)));
    EXPECT_TRUE(identical(call(fun, "fn_CambiaConfRegional"), Variant(True)));
    EXPECT_TRUE(identical(call(fun, "fn_VerificaConfRegional"), Variant(True)));
    EXPECT_EQ(toString(Variant(1234.5)), u"1234.5");
    // A new store reads what was written, whatever the locale says.
    ScopedVariable locale("LC_ALL", "es_EC.UTF-8");
    const RegionalSettings loaded = posix::PosixRegionalStore().load();
    EXPECT_EQ(loaded.shortDate, u"dd/MM/yyyy");
    EXPECT_EQ(loaded.decimalSeparator, u".");
    EXPECT_EQ(loaded.longDate, u"dddd, d' de 'MMMM' de 'yyyy");
}

TEST(RegionalStore, RefusesItemsAndValuesThePlatformRefuses) {
    RegionalScope scope(RegionalSettings::standard());
    posix::PosixRegionalStore store(posix::homeFolder() / "otra" / "regional.ini");
    // clang-format off
    struct Case {
        int item;
        const char16_t* value;
        bool accepted;
    } cases[] = {
        {lcitem::DecimalSeparator, u",", true}, {lcitem::DecimalSeparator, u"", false},
        {lcitem::DecimalSeparator, u"1", false}, {lcitem::ThousandSeparator, u" ", true},
        {lcitem::ThousandSeparator, u"", true}, {lcitem::ShortDate, u"", false}, {lcitem::CurrencySymbol, u"US$", true},
        {99, u"x", false},
    };
    // clang-format on
    for (const auto& c : cases)
        EXPECT_EQ(store.setItem(c.item, c.value), c.accepted) << c.item << " " << toUtf8(c.value);
    EXPECT_EQ(regional().decimalSeparator, u",");
    EXPECT_EQ(regional().thousandSeparator, u"");
    EXPECT_EQ(store.item(lcitem::CurrencySymbol), u"US$");
    // A blank separator survives the profile rules.
    store.setItem(lcitem::ThousandSeparator, u" ");
    EXPECT_EQ(store.load().thousandSeparator, u" ");
}

TEST(LocaleDefaults, PosixLocalesStandForTheirRegionalSettings) {
    const RegionalSettings none = posix::settingsOfLocale("C", "POSIX", "C.UTF-8");
    EXPECT_EQ(none.shortDate, u"dd/MM/yyyy");

    const RegionalSettings ecuador = posix::settingsOfLocale("es_EC.UTF-8", "es_EC.UTF-8", "es_EC.UTF-8");
    EXPECT_EQ(ecuador.decimalSeparator, u",");
    EXPECT_EQ(ecuador.shortDate.substr(0, 1), u"d");  // day first

    const RegionalSettings us = posix::settingsOfLocale("en_US.UTF-8", "en_US", "en_US");
    EXPECT_EQ(us.shortDate.substr(0, 1), u"M");
    EXPECT_NE(us.timeFormat.find(u"tt"), String::npos);
}

TEST(LocaleDefaults, IcuPatternsBecomeWindowsPictures) {
    struct Case {
        const char16_t* icu;
        const char16_t* windows;
    } cases[] = {
        {u"dd/MM/y", u"dd/MM/yyyy"},     {u"EEEE, d 'de' MMMM 'de' y", u"dddd, d 'de' MMMM 'de' yyyy"},
        {u"EEE d LLL", u"ddd d MMM"},    {u"h:mm:ss\u202Fa", u"h:mm:ss tt"},
        {u"HH:mm:ss zzzz", u"HH:mm:ss"}, {u"y G", u"yyyy"},
    };
    for (const auto& c : cases) EXPECT_EQ(posix::windowsPicture(c.icu), c.windows) << toUtf8(c.icu);
}

}  // namespace
}  // namespace telvaro
