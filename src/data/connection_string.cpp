#include "data/connection_string.h"

#include "data/errors.h"
#include "data/names.h"

namespace telvaro::data {

namespace {

constexpr StringView kSource = u"ADODB.Connection";

StringView trimBlanks(StringView s) {
    while (!s.empty() && (s.front() == u' ' || s.front() == u'\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == u' ' || s.back() == u'\t')) s.remove_suffix(1);
    return s;
}

}  // namespace

std::vector<ConnectionPair> parseConnectionString(StringView text) {
    std::vector<ConnectionPair> pairs;
    std::size_t i = 0;
    while (i < text.size()) {
        const std::size_t equals = text.find(u'=', i);
        const std::size_t semicolon = text.find(u';', i);
        if (semicolon != StringView::npos && (equals == StringView::npos || semicolon < equals)) {
            // An empty entry (";;" or a trailing ";") is allowed; a key without a value is not.
            if (!trimBlanks(text.substr(i, semicolon - i)).empty()) raiseAdo(ado::InvalidArgument, kSource);
            i = semicolon + 1;
            continue;
        }
        if (equals == StringView::npos) {
            if (!trimBlanks(text.substr(i)).empty()) raiseAdo(ado::InvalidArgument, kSource);
            break;
        }
        ConnectionPair pair{String(trimBlanks(text.substr(i, equals - i))), {}};
        if (pair.key.empty()) raiseAdo(ado::InvalidArgument, kSource);
        std::size_t j = equals + 1;
        while (j < text.size() && text[j] == u' ') ++j;
        if (j < text.size() && text[j] == u'{') {
            // A braced value runs to the closing brace; "}}" stands for one "}".
            ++j;
            bool closed = false;
            while (j < text.size()) {
                if (text[j] == u'}') {
                    if (j + 1 < text.size() && text[j + 1] == u'}') {
                        pair.value += u'}';
                        j += 2;
                        continue;
                    }
                    closed = true;
                    ++j;
                    break;
                }
                pair.value += text[j++];
            }
            if (!closed) raiseAdo(ado::InvalidArgument, kSource);
            const std::size_t end = text.find(u';', j);
            if (!trimBlanks(text.substr(j, end == StringView::npos ? StringView::npos : end - j)).empty())
                raiseAdo(ado::InvalidArgument, kSource);
            i = end == StringView::npos ? text.size() : end + 1;
        } else {
            const std::size_t end = text.find(u';', j);
            pair.value = String(trimBlanks(text.substr(j, end == StringView::npos ? StringView::npos : end - j)));
            i = end == StringView::npos ? text.size() : end + 1;
        }
        pairs.push_back(std::move(pair));
    }
    return pairs;
}

String connectionValueText(StringView value) {
    if (value.find_first_of(u";={} ") == StringView::npos) return String(value);
    String text = u"{";
    for (char16_t c : value) text += c == u'}' ? String(u"}}") : String(1, c);
    return text + u"}";
}

std::optional<String> connectionValue(const std::vector<ConnectionPair>& pairs, StringView key) {
    for (const auto& pair : pairs)
        if (sameName(pair.key, key)) return pair.value;
    return std::nullopt;
}

ConnectionTarget chooseEngine(StringView connectionString) {
    const StringView text = trimBlanks(connectionString);
    if (text.empty()) raiseAdo(ado::InvalidArgument, kSource);
    if (startsWithName(text, u"odbc:")) return {Engine::Odbc, String(trimBlanks(text.substr(5)))};
    if (text.find(u'=') == StringView::npos) return {Engine::Embedded, String(text)};

    const auto pairs = parseConnectionString(text);
    const auto provider = connectionValue(pairs, u"Provider");
    const bool odbcKeys = connectionValue(pairs, u"Driver") || connectionValue(pairs, u"DSN");
    if (provider && !sameName(*provider, u"SQLite") && !sameName(*provider, u"MSDASQL") &&
        !startsWithName(*provider, u"MSDASQL."))
        raiseAdo(ado::ProviderNotFound, kSource);
    if (!provider && odbcKeys) return {Engine::Odbc, String(text)};
    if (provider && !sameName(*provider, u"SQLite")) {
        // The driver manager gets the string without the provider's own key.
        String odbc;
        for (const auto& pair : pairs) {
            if (sameName(pair.key, u"Provider")) continue;
            odbc += pair.key + u"=";
            // A driver's name is always braced, as the driver manager expects.
            odbc += sameName(pair.key, u"Driver") ? u"{" + pair.value + u"}" : connectionValueText(pair.value);
            odbc += u";";
        }
        return {Engine::Odbc, odbc};
    }
    const auto file = connectionValue(pairs, u"Data Source");
    if (!file || file->empty()) raiseAdo(ado::InvalidArgument, kSource);
    return {Engine::Embedded, *file};
}

}  // namespace telvaro::data
