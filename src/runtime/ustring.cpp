#include "runtime/ustring.h"

namespace telvaro {

String fromUtf8(std::string_view in) {
    String out;
    out.reserve(in.size());
    std::size_t i = 0;
    while (i < in.size()) {
        unsigned char c = static_cast<unsigned char>(in[i]);
        if (c < 0x80) {
            // A run of ASCII goes across in one step.
            std::size_t end = i + 1;
            while (end < in.size() && static_cast<unsigned char>(in[end]) < 0x80) ++end;
            const std::size_t at = out.size();
            out.resize(at + (end - i));
            for (std::size_t k = i; k < end; ++k) out[at + (k - i)] = static_cast<char16_t>(in[k]);
            i = end;
            continue;
        }
        char32_t cp = 0xFFFD;
        std::size_t extra = 0;
        if ((c & 0xE0) == 0xC0) {
            cp = c & 0x1F;
            extra = 1;
        } else if ((c & 0xF0) == 0xE0) {
            cp = c & 0x0F;
            extra = 2;
        } else if ((c & 0xF8) == 0xF0) {
            cp = c & 0x07;
            extra = 3;
        } else {
            out.push_back(u'\uFFFD');
            ++i;
            continue;
        }
        // A broken sequence becomes one U+FFFD covering its valid prefix.
        std::size_t k = 1;
        for (; k <= extra; ++k) {
            if (i + k >= in.size()) break;
            unsigned char cc = static_cast<unsigned char>(in[i + k]);
            if ((cc & 0xC0) != 0x80) break;
            cp = (cp << 6) | (cc & 0x3F);
        }
        if (k <= extra) {
            out.push_back(u'\uFFFD');
            i += k;
            continue;
        }
        i += extra + 1;
        if (cp >= 0x10000 && cp <= 0x10FFFF) {
            cp -= 0x10000;
            out.push_back(static_cast<char16_t>(0xD800 + (cp >> 10)));
            out.push_back(static_cast<char16_t>(0xDC00 + (cp & 0x3FF)));
        } else if (cp > 0x10FFFF) {
            out.push_back(u'\uFFFD');
        } else {
            out.push_back(static_cast<char16_t>(cp));
        }
    }
    return out;
}

std::string toUtf8(StringView in) {
    std::string out;
    appendUtf8(out, in);
    return out;
}

void appendUtf8(std::string& out, StringView in) {
    out.reserve(out.size() + in.size());
    for (std::size_t i = 0; i < in.size(); ++i) {
        char32_t cp = in[i];
        if (cp >= 0xD800 && cp <= 0xDBFF && i + 1 < in.size() && in[i + 1] >= 0xDC00 && in[i + 1] <= 0xDFFF) {
            cp = 0x10000 + ((cp - 0xD800) << 10) + (in[i + 1] - 0xDC00);
            ++i;
        } else if (cp >= 0xD800 && cp <= 0xDFFF) {
            cp = 0xFFFD;
        }
        if (cp < 0x80) {
            out.push_back(static_cast<char>(cp));
        } else if (cp < 0x800) {
            out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        } else if (cp < 0x10000) {
            out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        } else {
            out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        }
    }
}

String ascii(std::string_view text) { return String(text.begin(), text.end()); }

}  // namespace telvaro
