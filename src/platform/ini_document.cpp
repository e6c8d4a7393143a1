#include "platform/ini_document.h"

#include "runtime/text.h"

namespace telvaro {

namespace {

const String kNewLine = u"\r\n";

String trimBlanks(StringView s) {
    std::size_t b = 0, e = s.size();
    while (b < e && (s[b] == u' ' || s[b] == u'\t')) ++b;
    while (e > b && (s[e - 1] == u' ' || s[e - 1] == u'\t')) --e;
    return String(s.substr(b, e - b));
}

// "[name]" -> name; not a header -> nothing.
std::optional<String> headerName(const String& line) {
    String t = trimBlanks(line);
    if (t.empty() || t[0] != u'[') return std::nullopt;
    auto close = t.find(u']');
    return trimBlanks(StringView(t).substr(1, close == String::npos ? String::npos : close - 1));
}

// "key = value" -> key and the raw value; comments and other lines -> nothing.
bool splitEntry(const String& line, String& key, String& raw) {
    String t = trimBlanks(line);
    if (t.empty() || t[0] == u';') return false;
    auto eq = t.find(u'=');
    if (eq == String::npos) return false;
    key = trimBlanks(StringView(t).substr(0, eq));
    raw = trimBlanks(StringView(t).substr(eq + 1));
    return true;
}

}  // namespace

IniDocument::IniDocument(StringView text) {
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t nl = text.find(u'\n', start);
        Line line;
        if (nl == StringView::npos) {
            line.content = String(text.substr(start));
            start = text.size();
        } else {
            std::size_t end = nl;
            if (end > start && text[end - 1] == u'\r') --end;
            line.content = String(text.substr(start, end - start));
            line.ending = String(text.substr(end, nl + 1 - end));
            start = nl + 1;
        }
        lines_.push_back(std::move(line));
    }
}

std::optional<std::size_t> IniDocument::findSection(StringView section) const {
    const String wanted = trimBlanks(section);
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        auto name = headerName(lines_[i].content);
        if (name && textEquals(*name, wanted)) return i;
    }
    return std::nullopt;
}

std::size_t IniDocument::sectionEnd(std::size_t header) const {
    std::size_t i = header + 1;
    while (i < lines_.size() && !headerName(lines_[i].content)) ++i;
    return i;
}

std::optional<String> IniDocument::value(StringView section, StringView key) const {
    auto header = findSection(section);
    if (!header) return std::nullopt;
    const String wanted = trimBlanks(key);
    for (std::size_t i = *header + 1, end = sectionEnd(*header); i < end; ++i) {
        String k, raw;
        if (!splitEntry(lines_[i].content, k, raw) || !textEquals(k, wanted)) continue;
        if (raw.size() >= 2 && (raw.front() == u'"' || raw.front() == u'\'') && raw.back() == raw.front())
            raw = raw.substr(1, raw.size() - 2);
        return raw;
    }
    return std::nullopt;
}

void IniDocument::set(StringView section, StringView key, StringView value) {
    const String wantedKey = trimBlanks(key);
    auto header = findSection(section);
    if (!header) {
        if (!lines_.empty() && lines_.back().ending.empty()) lines_.back().ending = kNewLine;
        lines_.push_back({u"[" + trimBlanks(section) + u"]", kNewLine});
        lines_.push_back({wantedKey + u"=" + String(value), kNewLine});
        return;
    }
    const std::size_t end = sectionEnd(*header);
    for (std::size_t i = *header + 1; i < end; ++i) {
        String k, raw;
        if (splitEntry(lines_[i].content, k, raw) && textEquals(k, wantedKey)) {
            lines_[i].content = k + u"=" + String(value);
            return;
        }
    }
    // After the last line of the section that is not blank.
    std::size_t at = end;
    while (at > *header + 1 && trimBlanks(lines_[at - 1].content).empty()) --at;
    if (lines_[at - 1].ending.empty()) lines_[at - 1].ending = kNewLine;
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), {wantedKey + u"=" + String(value), kNewLine});
}

String IniDocument::text() const {
    String out;
    for (const auto& line : lines_) out += line.content + line.ending;
    return out;
}

}  // namespace telvaro
