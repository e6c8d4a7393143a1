#include "platform/registry_document.h"

#include <cstdio>

#include "platform/ansi.h"
#include "runtime/text.h"

namespace telvaro {

namespace {

constexpr std::string_view kHeader = "Windows Registry Editor Version 5.00";
constexpr std::size_t kMaxKeyPart = 255;

bool sameName(StringView a, StringView b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (foldCase(a[i]) != foldCase(b[i])) return false;
    return true;
}

std::string quoted(StringView text) {
    std::string out = "\"";
    for (char c : toUtf8(text)) {
        if (c == '\\' || c == '"') out += '\\';
        out += c;
    }
    return out + "\"";
}

// Reads a quoted text at `pos` (at the opening quote); moves `pos` past it.
std::optional<String> unquote(std::string_view line, std::size_t& pos) {
    if (pos >= line.size() || line[pos] != '"') return std::nullopt;
    std::string out;
    for (++pos; pos < line.size(); ++pos) {
        char c = line[pos];
        if (c == '"') {
            ++pos;
            return fromUtf8(out);
        }
        if (c == '\\' && pos + 1 < line.size()) c = line[++pos];
        out += c;
    }
    return std::nullopt;
}

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

std::optional<std::uint32_t> parseHex32(std::string_view s) {
    if (s.empty() || s.size() > 8) return std::nullopt;
    std::uint32_t v = 0;
    for (char c : s) {
        int d = hexDigit(c);
        if (d < 0) return std::nullopt;
        v = v * 16 + static_cast<std::uint32_t>(d);
    }
    return v;
}

std::optional<std::string> parseHexBytes(std::string_view s) {
    std::string out;
    std::size_t i = 0;
    while (i < s.size()) {
        if (i + 2 > s.size()) return std::nullopt;
        int hi = hexDigit(s[i]), lo = hexDigit(s[i + 1]);
        if (hi < 0 || lo < 0) return std::nullopt;
        out += static_cast<char>(hi * 16 + lo);
        i += 2;
        if (i < s.size() && s[i] != ',') return std::nullopt;
        if (i < s.size()) ++i;
    }
    return out;
}

std::string dataText(const RegistryDocument::Value& v) {
    char buffer[16];
    if (v.type == 1) {
        std::string_view bytes = v.data;
        if (!bytes.empty() && bytes.back() == '\0') bytes.remove_suffix(1);
        return quoted(fromAnsi(bytes));
    }
    if (v.type == 4 && v.data.size() == 4) {
        std::uint32_t n = 0;
        for (int i = 3; i >= 0; --i) n = n * 256 + static_cast<unsigned char>(v.data[i]);
        std::snprintf(buffer, sizeof buffer, "%08x", n);
        return std::string("dword:") + buffer;
    }
    std::snprintf(buffer, sizeof buffer, "%x", v.type);
    std::string out = std::string("hex(") + buffer + "):";
    for (std::size_t i = 0; i < v.data.size(); ++i) {
        std::snprintf(buffer, sizeof buffer, "%s%02x", i ? "," : "", static_cast<unsigned char>(v.data[i]));
        out += buffer;
    }
    return out;
}

std::optional<RegistryDocument::Value> parseData(std::string_view s) {
    RegistryDocument::Value v;
    if (!s.empty() && s[0] == '"') {
        std::size_t pos = 0;
        auto text = unquote(s, pos);
        if (!text || pos != s.size()) return std::nullopt;
        v.type = 1;
        v.data = toAnsi(*text) + '\0';
        return v;
    }
    if (s.substr(0, 6) == "dword:") {
        auto n = parseHex32(s.substr(6));
        if (!n) return std::nullopt;
        v.type = 4;
        for (int i = 0; i < 4; ++i) v.data += static_cast<char>((*n >> (8 * i)) & 0xFF);
        return v;
    }
    if (s.substr(0, 4) == "hex(") {
        const std::size_t close = s.find("):");
        if (close == std::string_view::npos) return std::nullopt;
        auto type = parseHex32(s.substr(4, close - 4));
        auto bytes = parseHexBytes(s.substr(close + 2));
        if (!type || !bytes) return std::nullopt;
        v.type = *type;
        v.data = *bytes;
        return v;
    }
    return std::nullopt;
}

}  // namespace

std::optional<String> normalizedKeyPath(StringView path) {
    if (!path.empty() && path.back() == u'\\') path.remove_suffix(1);
    if (path.empty()) return String();
    std::size_t start = 0;
    while (start <= path.size()) {
        std::size_t end = path.find(u'\\', start);
        if (end == StringView::npos) end = path.size();
        if (end == start || end - start > kMaxKeyPart) return std::nullopt;
        start = end + 1;
    }
    return String(path);
}

RegistryDocument::RegistryDocument(String root, std::string_view utf8Text) : root_(std::move(root)) {
    Key* current = nullptr;
    std::size_t start = 0;
    while (start < utf8Text.size()) {
        std::size_t end = utf8Text.find('\n', start);
        if (end == std::string_view::npos) end = utf8Text.size();
        std::string_view line = utf8Text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        parseLine(line, current);
        start = end + 1;
    }
}

void RegistryDocument::parseLine(std::string_view line, Key*& current) {
    if (line.size() >= 2 && line.front() == '[' && line.back() == ']') {
        const String full = fromUtf8(line.substr(1, line.size() - 2));
        current = nullptr;
        if (!sameName(StringView(full).substr(0, root_.size()), root_)) return;
        StringView rest = StringView(full).substr(root_.size());
        if (!rest.empty() && rest[0] != u'\\') return;
        if (!rest.empty()) rest.remove_prefix(1);
        if (auto path = normalizedKeyPath(rest)) {
            addKey(*path);
            current = findKey(*path);
        }
        return;
    }
    if (!current || line.empty()) return;
    std::size_t pos = 0;
    String name;
    if (line[0] == '@') {
        pos = 1;
    } else if (auto quotedName = unquote(line, pos)) {
        name = *quotedName;
    } else {
        return;
    }
    if (pos >= line.size() || line[pos] != '=') return;
    if (auto value = parseData(line.substr(pos + 1))) {
        value->name = name;
        Key* key = current;
        for (auto& v : key->values) {
            if (sameName(v.name, name)) {
                v = *value;
                return;
            }
        }
        key->values.push_back(*value);
    }
}

RegistryDocument::Key* RegistryDocument::findKey(StringView path) {
    for (auto& key : keys_)
        if (sameName(key.path, path)) return &key;
    return nullptr;
}

const RegistryDocument::Key* RegistryDocument::findKey(StringView path) const {
    return const_cast<RegistryDocument*>(this)->findKey(path);
}

bool RegistryDocument::hasKey(StringView path) const { return path.empty() || findKey(path) != nullptr; }

void RegistryDocument::addKey(StringView path) {
    if (path.empty() || findKey(path)) return;
    const std::size_t parent = path.rfind(u'\\');
    if (parent != StringView::npos) addKey(path.substr(0, parent));
    keys_.push_back(Key{String(path), {}});
}

void RegistryDocument::setValue(StringView path, Value value) {
    if (path.empty()) {
        // The root itself holds no values in the store.
        return;
    }
    addKey(path);
    Key* key = findKey(path);
    for (auto& v : key->values) {
        if (sameName(v.name, value.name)) {
            const String keptName = v.name;
            v = std::move(value);
            v.name = keptName;
            return;
        }
    }
    key->values.push_back(std::move(value));
}

std::optional<RegistryDocument::Value> RegistryDocument::value(StringView path, StringView name) const {
    const Key* key = findKey(path);
    if (!key) return std::nullopt;
    for (const auto& v : key->values)
        if (sameName(v.name, name)) return v;
    return std::nullopt;
}

std::string RegistryDocument::text() const {
    std::string out(kHeader);
    out += "\n";
    for (const auto& key : keys_) {
        out += "\n[" + toUtf8(root_) + "\\" + toUtf8(key.path) + "]\n";
        for (const auto& v : key.values) out += (v.name.empty() ? "@" : quoted(v.name)) + "=" + dataText(v) + "\n";
    }
    return out;
}

}  // namespace telvaro
