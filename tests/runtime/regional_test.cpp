// The regional settings object: the derived items, and a scope that puts settings in force.
#include <gtest/gtest.h>

#include "runtime/regional.h"

namespace telvaro {
namespace {

TEST(Regional, DerivedItemsFollowTheFormats) {
    struct Case {
        const char16_t* shortDate;
        const char16_t* separator;
        RegionalSettings::DateOrder order;
        bool fourDigits;
    };
    using O = RegionalSettings::DateOrder;
    // clang-format off
    const Case cases[] = {
        {u"dd/MM/yyyy", u"/", O::DayMonthYear, true}, {u"MM-dd-yy", u"-", O::MonthDayYear, false},
        {u"yyyy.MM.dd", u".", O::YearMonthDay, true}, {u"d/M/yy", u"/", O::DayMonthYear, false},
    };
    // clang-format on
    for (const auto& c : cases) {
        RegionalSettings s;
        s.shortDate = c.shortDate;
        EXPECT_EQ(s.dateSeparator(), c.separator) << toUtf8(c.shortDate);
        EXPECT_EQ(s.dateOrder(), c.order) << toUtf8(c.shortDate);
        EXPECT_EQ(s.fourDigitYear(), c.fourDigits) << toUtf8(c.shortDate);
    }
    RegionalSettings s;
    s.timeFormat = u"HH.mm.ss";
    EXPECT_EQ(s.timeSeparator(), u".");
}

TEST(Regional, AScopePutsSettingsInForceAndRestoresThem) {
    {
        RegionalSettings comma;
        comma.decimalSeparator = u",";
        comma.thousandSeparator = u".";
        RegionalScope scope(comma);
        EXPECT_EQ(regional().decimalMark(), u',');
        EXPECT_EQ(regional().thousandMark(), u'.');
    }
    EXPECT_EQ(regional().decimalMark(), u'.');
}

}  // namespace
}  // namespace telvaro
