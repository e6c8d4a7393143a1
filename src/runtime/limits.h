// How far one argument can make the library go. The runtime itself would
// build a text of a thousand million characters when asked; a caller meets
// its "Out of string space" long before, in a 32-bit process. These bounds
// answer the same errors at once, so that no argument can take seconds or
// gigabytes of the host.
#pragma once

#include <cstdint>

namespace telvaro {

// The longest text the library builds from a count or a width (String$,
// Space$, padding to a length, a repeated fill): 16 Mi characters, 32 MB.
// Past it: error 14, out of string space.
inline constexpr std::int64_t kMaxBuiltTextLength = std::int64_t(1) << 24;

}  // namespace telvaro
