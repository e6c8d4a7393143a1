#include "platform/ansi.h"

namespace telvaro {

namespace {

// Bytes 0x80..0x9F; the five the code page leaves undefined map to the
// control characters of the same number, so that they survive a round trip.
constexpr char16_t kHigh[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                                0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

String fromAnsi(std::string_view bytes) {
    String out;
    out.reserve(bytes.size());
    for (char b : bytes) {
        auto u = static_cast<unsigned char>(b);
        out.push_back(u >= 0x80 && u <= 0x9F ? kHigh[u - 0x80] : static_cast<char16_t>(u));
    }
    return out;
}

std::string toAnsi(StringView text) {
    std::string out;
    out.reserve(text.size());
    for (char16_t c : text) {
        if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) {
            out.push_back(static_cast<char>(c));
            continue;
        }
        char mapped = '?';
        for (int k = 0; k < 32; ++k)
            if (kHigh[k] == c) mapped = static_cast<char>(0x80 + k);
        out.push_back(mapped);
    }
    return out;
}

}  // namespace telvaro
