#include "platform/win32/win32_text.h"

#include <climits>

namespace telvaro::win32 {

std::string ansi(StringView s) {
    if (s.empty()) return {};
    const auto units = static_cast<int>(std::min<std::size_t>(s.size(), INT_MAX / 2));
    const auto* text = reinterpret_cast<const wchar_t*>(s.data());
    const int n = WideCharToMultiByte(CP_ACP, 0, text, units, nullptr, 0, "?", nullptr);
    std::string out(static_cast<std::size_t>(n), '\0');
    WideCharToMultiByte(CP_ACP, 0, text, units, out.data(), n, "?", nullptr);
    return out;
}

String fromAnsi(const char* bytes, std::size_t n) {
    if (n == 0) return {};
    const auto count = static_cast<int>(std::min<std::size_t>(n, INT_MAX / 2));
    const int units = MultiByteToWideChar(CP_ACP, 0, bytes, count, nullptr, 0);
    String out(static_cast<std::size_t>(units), u'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes, count, reinterpret_cast<wchar_t*>(out.data()), units);
    return out;
}

}  // namespace telvaro::win32
