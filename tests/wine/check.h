// A small harness for the automation clients run under Wine: each check
// prints what failed with its context, and the program's exit status is
// the number of failed checks.
#pragma once

#include <cstdio>
#include <string>

namespace wine_test {

inline int failures = 0;

inline void check(bool ok, const std::string& what, const std::string& detail = {}) {
    if (ok) return;
    ++failures;
    std::printf("FAIL %s%s%s\n", what.c_str(), detail.empty() ? "" : ": ", detail.c_str());
}

inline int finish(const char* program) {
    std::printf("%s: %s (%d failed)\n", program, failures ? "FAILED" : "passed", failures);
    return failures;
}

inline std::string hex(long value) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(value));
    return text;
}

}  // namespace wine_test
