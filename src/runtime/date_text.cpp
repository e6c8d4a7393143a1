// Dates as text: the runtime's reading of a date typed in the regional
// order (with month names, two-digit years and a time), and the writing of
// a date in the regional short-date and time pictures.
#include "runtime/datetime.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <iterator>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/regional.h"
#include "runtime/text.h"

namespace telvaro {

// ---------------------------------------------------------------------------
// Reading dates from text.

namespace {

struct Piece {
    bool monthName = false;
    int value = 0;   // the number, or the month 1..12
    int digits = 0;  // how many digits the number was written with
};

struct DateText {
    std::vector<Piece> pieces;  // numbers and at most one month name, in order
    bool hasTime = false;
    int hour = 0, minute = 0, second = 0;
    bool hasDesignator = false;
};

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool isLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= 0xC0 && c != 0xD7 && c != 0xF7 && c < 0x2000);
}
// The characters that separate the parts of a date and of a time: the
// usual ones and the regional date and time separators.
struct Separators {
    char16_t date = u'/';
    char16_t time = u':';
    explicit Separators(const RegionalSettings& s) {
        const String d = s.dateSeparator(), t = s.timeSeparator();
        if (!d.empty() && !isDigit(d[0]) && !isLetter(d[0])) date = d[0];
        if (!t.empty() && !isDigit(t[0]) && !isLetter(t[0])) time = t[0];
    }
    bool separatesDate(char16_t c) const {
        return c == u' ' || c == u'\t' || c == 0xA0 || c == 0x3000 || c == u'/' || c == u'-' || c == u'.' ||
               c == u',' || (c == date && c != time);
    }
    bool separatesTime(char16_t c) const { return c == u':' || (c == time && !separatesDate(c)); }
};

constexpr StringView kEnglishMonths[] = {u"january", u"february", u"march",     u"april",   u"may",      u"june",
                                         u"july",    u"august",   u"september", u"october", u"november", u"december"};
constexpr StringView kEnglishDays[] = {u"sunday",   u"monday", u"tuesday", u"wednesday",
                                       u"thursday", u"friday", u"saturday"};
constexpr StringView kSpanishMonths[] = {u"enero", u"febrero", u"marzo",      u"abril",   u"mayo",      u"junio",
                                         u"julio", u"agosto",  u"septiembre", u"octubre", u"noviembre", u"diciembre"};
constexpr StringView kSpanishDays[] = {u"domingo", u"lunes", u"martes", u"miércoles", u"jueves", u"viernes", u"sábado"};

// The words a date may hold besides numbers, folded for case, with what each
// stands for: the regional month names and abbreviations, the Spanish and
// English month names or their first three letters, "setiembre" and "set"
// (the other Spanish spelling of September), and the same for the days. A
// word then takes one look-up however many names there are. The
// configuration's separators are kept with them.
class DateWords {
public:
    static constexpr int kDay = 13;

    explicit DateWords(const RegionalSettings& s) : marks_(s) {
        // Added from the weakest claim to the strongest, each overwriting:
        // a month beats a day of the same name, an earlier month a later one.
        for (std::size_t d = 0; d < 7; ++d) {
            add(s.dayNames[d], kDay);
            add(s.dayAbbreviations[d], kDay);
            addWithShortForm(kSpanishDays[d], kDay);
            addWithShortForm(kEnglishDays[d], kDay);
        }
        add(u"setiembre", 9);
        add(u"set", 9);
        for (int m = 11; m >= 0; --m) {
            const auto i = static_cast<std::size_t>(m);
            addWithShortForm(kEnglishMonths[m], m + 1);
            addWithShortForm(kSpanishMonths[m], m + 1);
            add(s.monthAbbreviations[i], m + 1);
            add(s.monthNames[i], m + 1);
        }
    }

    // The separators of the same configuration, kept with its words.
    const Separators& marks() const { return marks_; }

    // 1 to 12 for a month, kDay for a day, 0 for neither.
    int lookUp(StringView word) const {
        if (word.size() > longest_) return 0;
        char16_t small[24];
        String large;
        char16_t* key = small;
        if (word.size() > std::size(small)) {
            large.resize(word.size());
            key = large.data();
        }
        for (std::size_t i = 0; i < word.size(); ++i) key[i] = foldCase(word[i]);
        const auto it = words_.find(StringView(key, word.size()));
        return it == words_.end() ? 0 : it->second;
    }

private:
    void add(StringView name, int meaning) {
        if (name.empty()) return;
        String key(name);
        for (auto& c : key) c = foldCase(c);
        words_[key] = meaning;
        longest_ = std::max(longest_, key.size());
    }
    // A full name or its first three letters.
    void addWithShortForm(StringView name, int meaning) {
        if (name.size() > 3) add(name.substr(0, 3), meaning);
        add(name, meaning);
    }

    // Looked up by a view of the folded word, without making a String.
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(StringView v) const { return std::hash<StringView>{}(v); }
    };
    Separators marks_;
    std::unordered_map<String, int, Hash, std::equal_to<>> words_;
    std::size_t longest_ = 0;
};

// The words of the configuration in force are kept until it changes; any
// other configuration has its words made for the one reading.
class DateWordsFor {
public:
    explicit DateWordsFor(const RegionalSettings& s) {
        if (&s != &regional()) {
            own_.emplace(s);
            words_ = &*own_;
            return;
        }
        thread_local std::optional<DateWords> kept;
        thread_local std::uint64_t keptVersion = 0;
        const std::uint64_t version = regionalVersion();
        if (!kept || keptVersion != version) {
            kept.emplace(s);
            keptVersion = version;
        }
        words_ = &*kept;
    }
    const DateWords& operator*() const { return *words_; }

private:
    std::optional<DateWords> own_;
    const DateWords* words_ = nullptr;
};

// "AM", "PM", "A", "P", "a.m.", "p. m." (any case) at position i, ending at
// a word boundary. Returns 1 for AM, 2 for PM, 0 for none, and moves i past.
int readDesignator(StringView t, std::size_t& i) {
    if (i >= t.size()) return 0;
    const char16_t c = t[i];
    const int kind = (c == u'a' || c == u'A') ? 1 : (c == u'p' || c == u'P') ? 2 : 0;
    if (!kind) return 0;
    std::size_t j = i + 1;
    const bool dotted = j < t.size() && t[j] == u'.';
    if (dotted) {
        ++j;
        while (j < t.size() && t[j] == u' ') ++j;
    }
    if (j < t.size() && (t[j] == u'm' || t[j] == u'M') && (j + 1 >= t.size() || !isLetter(t[j + 1]))) {
        ++j;
        if (j < t.size() && t[j] == u'.') ++j;
    } else {
        j = dotted ? i + 2 : i + 1;  // "a." or "a" alone
    }
    if (j < t.size() && isLetter(t[j])) return 0;
    i = j;
    return kind;
}

bool applyDesignator(DateText& p, int kind, bool numberJustBefore) {
    if (p.hasDesignator) return false;
    if (!p.hasTime) {
        // "6 PM": the number before the designator is the hour.
        if (!numberJustBefore || p.pieces.empty() || p.pieces.back().monthName || p.pieces.back().digits > 2)
            return false;
        p.hour = p.pieces.back().value;
        p.minute = p.second = 0;
        p.hasTime = true;
        p.pieces.pop_back();
    }
    p.hasDesignator = true;
    // An hour above 12 keeps its value whatever the designator says.
    if (p.hour <= 12) {
        if (kind == 2 && p.hour < 12) p.hour += 12;
        if (kind == 1 && p.hour == 12) p.hour = 0;
    }
    return true;
}

bool readNumber(StringView t, std::size_t& i, int& value, int& digits) {
    value = 0;
    digits = 0;
    while (i < t.size() && isDigit(t[i])) {
        if (digits == 9) return false;
        value = value * 10 + (t[i++] - u'0');
        ++digits;
    }
    return digits > 0;
}

// "H:mm" or "H:mm:ss" starting after the hour (i at the first separator).
bool readTime(StringView t, std::size_t& i, int hour, const Separators& marks, DateText& p) {
    int parts[3] = {hour, 0, 0};
    int count = 1;
    while (count < 3 && i < t.size() && marks.separatesTime(t[i])) {
        ++i;
        int v = 0, digits = 0;
        if (!readNumber(t, i, v, digits) || digits > 2) return false;
        parts[count++] = v;
    }
    if (count < 2) return false;
    p.hasTime = true;
    p.hour = parts[0];
    p.minute = parts[1];
    p.second = parts[2];
    return true;
}

bool tokenize(StringView t, const RegionalSettings& s, DateText& p) {
    const DateWordsFor words(s);
    const Separators& marks = (*words).marks();
    std::size_t i = 0;
    bool numberJustBefore = false;
    while (i < t.size()) {
        const char16_t c = t[i];
        if (isDigit(c)) {
            int v = 0, digits = 0;
            if (!readNumber(t, i, v, digits)) return false;
            if (i < t.size() && marks.separatesTime(t[i])) {
                if (p.hasTime || digits > 2 || !readTime(t, i, v, marks, p)) return false;
                numberJustBefore = false;
                continue;
            }
            p.pieces.push_back({false, v, digits});
            numberJustBefore = true;
            continue;
        }
        if (isLetter(c)) {
            std::size_t end = i;
            while (end < t.size() && isLetter(t[end])) ++end;
            const StringView word = t.substr(i, end - i);
            const int meaning = (*words).lookUp(word);
            if (const int m = meaning == DateWords::kDay ? 0 : meaning) {
                for (const auto& piece : p.pieces)
                    if (piece.monthName) return false;
                p.pieces.push_back({true, m, 0});
                i = end;
                numberJustBefore = false;
                continue;
            }
            std::size_t j = i;
            if (const int kind = readDesignator(t, j)) {
                if (!applyDesignator(p, kind, numberJustBefore)) return false;
                i = j;
                numberJustBefore = false;
                continue;
            }
            const bool isoT = word.size() == 1 && (c == u'T' || c == u't') && end < t.size() && isDigit(t[end]);
            if (isoT || textEquals(word, u"de") || textEquals(word, u"del") || meaning == DateWords::kDay) {
                i = end;
                numberJustBefore = false;
                continue;
            }
            return false;
        }
        if (marks.separatesDate(c)) {
            ++i;
            continue;
        }
        return false;
    }
    return true;
}

bool validDate(int y, int m, int d) {
    return y >= 100 && y <= 9999 && m >= 1 && m <= 12 && d >= 1 && d <= daysInMonth(y, m);
}

int yearOf(const Piece& p) { return p.digits <= 2 ? expandTwoDigitYear(p.value) : p.value; }

int currentYear() { return civilDate(today()).year; }

struct Ymd {
    int y = 0, m = 0, d = 0;
};

// Which of three numbers is the day, the month and the year.
enum class Order { DMY, MDY, YMD, YDM };

std::optional<Ymd> threeNumbers(const Piece& a, const Piece& b, const Piece& c, RegionalSettings::DateOrder regional) {
    if (b.digits > 2) return std::nullopt;
    using R = RegionalSettings::DateOrder;
    // The regional order first; then the readings the runtime falls back to.
    std::vector<Order> orders;
    switch (regional) {
        case R::DayMonthYear: orders = {Order::DMY, Order::MDY, Order::YMD, Order::YDM}; break;
        case R::MonthDayYear: orders = {Order::MDY, Order::YMD, Order::DMY, Order::YDM}; break;
        case R::YearMonthDay: orders = {Order::YMD, Order::YDM, Order::DMY, Order::MDY}; break;
    }
    for (Order o : orders) {
        Ymd r;
        switch (o) {
            case Order::DMY:
                if (a.digits > 2) continue;
                r = {yearOf(c), b.value, a.value};
                break;
            case Order::MDY:
                if (a.digits > 2) continue;
                r = {yearOf(c), a.value, b.value};
                break;
            case Order::YMD:
                if (c.digits > 2) continue;
                r = {yearOf(a), b.value, c.value};
                break;
            case Order::YDM:
                if (c.digits > 2) continue;
                r = {yearOf(a), c.value, b.value};
                break;
        }
        if (validDate(r.y, r.m, r.d)) return r;
    }
    return std::nullopt;
}

std::optional<Ymd> twoNumbers(const Piece& a, const Piece& b, RegionalSettings::DateOrder regional) {
    // A day and a month of the current year, in the regional order or swapped.
    if (a.digits <= 2 && b.digits <= 2) {
        const int y = currentYear();
        const bool dayFirst = regional == RegionalSettings::DateOrder::DayMonthYear;
        const Ymd first = dayFirst ? Ymd{y, b.value, a.value} : Ymd{y, a.value, b.value};
        const Ymd second{y, first.d, first.m};
        if (validDate(first.y, first.m, first.d)) return first;
        if (validDate(second.y, second.m, second.d)) return second;
    }
    // Else a month and a year: the number that can be a month is the month.
    Ymd r{0, 0, 1};
    if (a.digits > 2) {
        r = {a.value, b.value, 1};
    } else if (b.digits > 2) {
        r = {b.value, a.value, 1};
    } else if (a.value >= 1 && a.value <= 12) {
        r = {yearOf(b), a.value, 1};
    } else {
        r = {yearOf(a), b.value, 1};
    }
    if (validDate(r.y, r.m, r.d)) return r;
    return std::nullopt;
}

std::optional<Ymd> withMonthName(const std::vector<Piece>& pieces) {
    int month = 0;
    std::vector<Piece> numbers;
    for (const auto& p : pieces) {
        if (p.monthName) {
            month = p.value;
        } else {
            numbers.push_back(p);
        }
    }
    if (numbers.size() == 1) {
        const Piece& n = numbers[0];
        const int y = currentYear();
        // The number is the day when it can be; else it is the year.
        if (n.digits <= 2 && validDate(y, month, n.value)) return Ymd{y, month, n.value};
        const Ymd r{yearOf(n), month, 1};
        if (validDate(r.y, r.m, r.d)) return r;
        return std::nullopt;
    }
    if (numbers.size() != 2) return std::nullopt;
    const Piece& a = numbers[0];
    const Piece& b = numbers[1];
    // Day then year ("31 dic 1998", "Dec 31, 1998"), or year then day.
    if (a.digits <= 2 && validDate(yearOf(b), month, a.value)) return Ymd{yearOf(b), month, a.value};
    if (b.digits <= 2 && validDate(yearOf(a), month, b.value)) return Ymd{yearOf(a), month, b.value};
    return std::nullopt;
}

}  // namespace

std::optional<double> parseDate(StringView text, const RegionalSettings& settings) {
    // Every date and every time has a number in it: a month name alone is no
    // date and a designator needs an hour. Most texts tried are names.
    if (std::none_of(text.begin(), text.end(), isDigit)) return std::nullopt;
    DateText p;
    if (!tokenize(text, settings, p)) return std::nullopt;
    if (p.hasTime && (p.hour > 23 || p.minute > 59 || p.second > 59)) return std::nullopt;
    const double time = p.hasTime ? (p.hour * 3600.0 + p.minute * 60.0 + p.second) / 86400.0 : 0.0;

    bool named = false;
    for (const auto& piece : p.pieces) named = named || piece.monthName;
    std::optional<Ymd> date;
    if (p.pieces.empty()) {
        if (!p.hasTime) return std::nullopt;
        return time;
    }
    if (named) {
        date = withMonthName(p.pieces);
    } else if (p.pieces.size() == 2) {
        date = twoNumbers(p.pieces[0], p.pieces[1], settings.dateOrder());
    } else if (p.pieces.size() == 3) {
        date = threeNumbers(p.pieces[0], p.pieces[1], p.pieces[2], settings.dateOrder());
    }
    if (!date) return std::nullopt;
    return dateTimeSerial(dateSerial(date->y, date->m, date->d), time);
}

// ---------------------------------------------------------------------------
// Writing dates as text.

namespace {

String twoDigits(int v) {
    String s;
    s += static_cast<char16_t>(u'0' + v / 10 % 10);
    s += static_cast<char16_t>(u'0' + v % 10);
    return s;
}

String number(std::int64_t v) { return ascii(std::to_string(v)); }

// Expands a short-date or time picture of the regional settings: d dd ddd
// dddd, M MM MMM MMMM, y yy yyyy, H HH h hh, m mm, s ss, t tt, and quoted
// literals; other characters stand for themselves.
String expandPicture(StringView pattern, const Moment& m, const RegionalSettings& s) {
    const CivilDate c = civilDateOfDay(m.day);
    const int hour = m.seconds / 3600, minute = m.seconds / 60 % 60, second = m.seconds % 60;
    const auto weekdayIndex = static_cast<std::size_t>(weekday(static_cast<double>(m.day)) - 1);
    String out;
    for (std::size_t i = 0; i < pattern.size();) {
        const char16_t ch = pattern[i];
        if (ch == u'\'') {
            auto close = pattern.find(u'\'', i + 1);
            if (close == StringView::npos) close = pattern.size();
            out.append(pattern.substr(i + 1, close - i - 1));
            i = close + 1;
            continue;
        }
        std::size_t run = 1;
        while (i + run < pattern.size() && pattern[i + run] == ch) ++run;
        switch (ch) {
            case u'd':
                if (run == 1)
                    out += number(c.day);
                else if (run == 2)
                    out += twoDigits(c.day);
                else if (run == 3)
                    out += s.dayAbbreviations[weekdayIndex];
                else
                    out += s.dayNames[weekdayIndex];
                break;
            case u'M':
                if (run == 1)
                    out += number(c.month);
                else if (run == 2)
                    out += twoDigits(c.month);
                else if (run == 3)
                    out += s.monthAbbreviations[static_cast<std::size_t>(c.month - 1)];
                else
                    out += s.monthNames[static_cast<std::size_t>(c.month - 1)];
                break;
            case u'y':
                if (run == 1)
                    out += number(c.year % 100);
                else if (run == 2)
                    out += twoDigits(c.year % 100);
                else
                    out += number(c.year);
                break;
            case u'H': out += run == 1 ? number(hour) : twoDigits(hour); break;
            case u'h': {
                const int h12 = hour % 12 == 0 ? 12 : hour % 12;
                out += run == 1 ? number(h12) : twoDigits(h12);
                break;
            }
            case u'm': out += run == 1 ? number(minute) : twoDigits(minute); break;
            case u's': out += run == 1 ? number(second) : twoDigits(second); break;
            case u't': {
                const String& designator = hour < 12 ? s.amDesignator : s.pmDesignator;
                out += run == 1 ? designator.substr(0, 1) : designator;
                break;
            }
            default: out.append(run, ch); break;
        }
        i += run;
    }
    return out;
}

}  // namespace

String dateToString(Date d, const RegionalSettings& settings) {
    const Moment m = momentOf(d.serial);
    if (m.day == 0) return expandPicture(settings.timeFormat, m, settings);
    String text = expandPicture(settings.shortDate, m, settings);
    if (m.seconds != 0) text += u" " + expandPicture(settings.timeFormat, m, settings);
    return text;
}

}  // namespace telvaro
