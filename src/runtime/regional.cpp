#include "runtime/regional.h"

#include <atomic>
#include <mutex>

namespace telvaro {

RegionalSettings RegionalSettings::standard() { return RegionalSettings{}; }

static String firstSeparator(const String& pattern, const char16_t* fallback) {
    bool quoted = false;
    for (char16_t c : pattern) {
        if (c == u'\'') {
            quoted = !quoted;
            continue;
        }
        if (quoted) continue;
        bool letter = (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
        if (!letter && c != u' ') return String(1, c);
    }
    return fallback;
}

String RegionalSettings::dateSeparator() const { return firstSeparator(shortDate, u"/"); }
String RegionalSettings::timeSeparator() const { return firstSeparator(timeFormat, u":"); }

RegionalSettings::DateOrder RegionalSettings::dateOrder() const {
    for (char16_t c : shortDate) {
        if (c == u'd' || c == u'D') return DateOrder::DayMonthYear;
        if (c == u'M' || c == u'm') return DateOrder::MonthDayYear;
        if (c == u'y' || c == u'Y') return DateOrder::YearMonthDay;
    }
    return DateOrder::DayMonthYear;
}

bool RegionalSettings::fourDigitYear() const { return shortDate.find(u"yyyy") != String::npos; }

namespace {
std::mutex regionalMutex;
RegionalSettings& current() {
    static RegionalSettings settings = RegionalSettings::standard();
    return settings;
}
}  // namespace

const RegionalSettings& regional() { return current(); }

namespace {
std::atomic<std::uint64_t> changes{0};
}  // namespace

void setRegional(RegionalSettings settings) {
    std::lock_guard lock(regionalMutex);
    current() = std::move(settings);
    changes.fetch_add(1, std::memory_order_release);
}

std::uint64_t regionalVersion() { return changes.load(std::memory_order_acquire); }

RegionalScope::RegionalScope(RegionalSettings settings) : saved_(regional()) { setRegional(std::move(settings)); }
RegionalScope::~RegionalScope() { setRegional(std::move(saved_)); }

}  // namespace telvaro
