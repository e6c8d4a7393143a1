// Helpers shared by the test programs.
#pragma once

#include <cstdlib>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/variant.h"

namespace telvaro {

// "Integer 3", "String \"abc\"", "Null", "Error 13 while printing" ...
inline std::string describe(const Variant& v) {
    std::string type = toUtf8(typeName(v));
    if (v.isArray()) {
        std::string items;
        for (const auto& item : v.array().elements()) items += (items.empty() ? "" : ", ") + describe(item);
        return type + "{" + items + "}";
    }
    if (v.isEmpty() || v.isNull() || v.isObject() || v.type() == VarType::Error) return type;
    try {
        std::string text = toUtf8(toString(v));
        return type + (v.isString() ? " \"" + text + "\"" : " " + text);
    } catch (const RuntimeError& e) {
        return type + " (unprintable: " + e.what() + ")";
    }
}

inline void PrintTo(const Variant& v, std::ostream* os) { *os << describe(v); }

// The number of the RuntimeError `f` raises; 0 when it raises none.
inline int errorNumberOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

// A late-bound call and its result (same type and value), or its error when not 0.
struct MethodCase {
    const char* method;
    std::vector<Variant> args;
    Variant expected;
    int error = 0;
};

// Calls each case through a fresh Fun, naming the call in every failure.
void checkCalls(const std::vector<MethodCase>& cases);

// Sets (or, with nullptr, removes) an environment variable while the object lives.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        value ? ::setenv(name, value, 1) : ::unsetenv(name);
    }
    ~ScopedVariable() { old_ ? ::setenv(name_.c_str(), old_->c_str(), 1) : ::unsetenv(name_.c_str()); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    std::string name_;
    std::optional<std::string> old_;
};

}  // namespace telvaro
