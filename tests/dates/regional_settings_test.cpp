// The regional check and change, the store, the settings a POSIX locale stands for.
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

// The runtime's date reading takes 31/12 as day and month when no month 31 exists, so a month-first format
// reads the text and the check fails on the month-first result.
TEST(RegionalCheck, TrueOnlyForDayMonthFourDigitYearAndPointDecimals) {
    // clang-format off
    const std::pair<RegionalSettings, Boolean> cases[] = {
        {with(u"dd/MM/yyyy"), True}, {with(u"dd/MM/yy"), False}, {with(u"yyyy-MM-dd"), False},
        {with(u"dd-MM-yyyy"), True}, {with(u"dd/MM/yyyy", u",", u"."), False}, {with(u"MM/dd/yyyy"), False},
    };
    // clang-format on
    for (const auto& [settings, expected] : cases) {
        RegionalScope scope(settings);
        Fun fun(defaultPlatform());
        EXPECT_TRUE(identical(call(fun, "fn_VerificaConfRegional"), Variant(expected))) << toUtf8(settings.shortDate);
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
    std::shared_ptr<RecordingStore> store = std::make_shared<RecordingStore>();
    StorePlatform() { use(std::shared_ptr<RegionalStore>(store)); }
};

TEST(MyFecha, ReadsTheTextInTheRegionalOrder) {
    RegionalScope scope(with(u"MM/dd/yyyy"));
    checkCalls({{"MyFecha", {u"03/15/2024"}, u"2024-03-15"}});
}

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
    EXPECT_EQ(platform.store->written, expected);

    platform.store->written.clear();
    platform.store->refused = {32};
    EXPECT_TRUE(identical(call(fun, "fn_CambiaConfRegional"), Variant(False)));
    EXPECT_EQ(platform.store->written.size(), 8u);  // the rest still written
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
    const std::tuple<int, const char16_t*, bool> cases[] = {
        {lcitem::DecimalSeparator, u",", true}, {lcitem::DecimalSeparator, u"", false},
        {lcitem::DecimalSeparator, u"1", false}, {lcitem::ThousandSeparator, u"", true},
        {lcitem::ShortDate, u"", false},
        {lcitem::CurrencySymbol, u"US$", true}, {99, u"x", false},
    };
    // clang-format on
    for (auto [item, value, accepted] : cases) EXPECT_EQ(store.setItem(item, value), accepted) << item;
    EXPECT_EQ(regional().decimalSeparator, u",");
    EXPECT_EQ(regional().thousandSeparator, u"");
    EXPECT_EQ(store.item(lcitem::CurrencySymbol), u"US$");
    store.setItem(lcitem::ThousandSeparator, u" ");  // a blank survives the profile rules
    EXPECT_EQ(store.load().thousandSeparator, u" ");
}

TEST(LocaleDefaults, PosixLocalesStandForTheirRegionalSettings) {
    EXPECT_EQ(posix::settingsOfLocale("C", "POSIX", "C.UTF-8").shortDate, u"dd/MM/yyyy");
    const RegionalSettings ecuador = posix::settingsOfLocale("es_EC.UTF-8", "es_EC.UTF-8", "es_EC.UTF-8");
    EXPECT_EQ(ecuador.decimalSeparator + ecuador.shortDate.substr(0, 1), u",d");  // day first
    const RegionalSettings us = posix::settingsOfLocale("en_US.UTF-8", "en_US", "en_US");
    EXPECT_TRUE(us.shortDate.starts_with(u"M") && us.timeFormat.find(u"tt") != String::npos);
    // clang-format off
    const std::pair<const char16_t*, const char16_t*> pictures[] = {
        {u"dd/MM/y", u"dd/MM/yyyy"}, {u"EEEE, d 'de' MMMM 'de' y", u"dddd, d 'de' MMMM 'de' yyyy"},
        {u"EEE d LLL", u"ddd d MMM"}, {u"h:mm:ss\u202Fa", u"h:mm:ss tt"}, {u"HH:mm:ss zzzz", u"HH:mm:ss"},
        {u"y G", u"yyyy"},
    };
    // clang-format on
    for (auto [icu, windows] : pictures) EXPECT_EQ(posix::windowsPicture(icu), windows) << toUtf8(icu);
}

}  // namespace
}  // namespace telvaro
