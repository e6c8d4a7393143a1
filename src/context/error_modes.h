// How a run-time error leaves a method. Most methods are untrapped: the
// first RuntimeError ends the method and reaches the caller unchanged (plain
// C++ propagation). Two other modes exist, each a small mechanism here:
//
//  - Statement-skipping: the method runs as a list of statements; a failing
//    statement is abandoned, its error becomes the pending error (readable
//    as errorNumber(), like the runtime's Err.Number) and the next statement
//    runs. The method then returns normally.
//
//        SkipErrors onError;
//        onError([&] { list.call(u"Clear"); });
//        onError([&] { list.put(u"ListIndex", 0); });
//        if (onError.errorNumber() != 0) ...
//
//  - Handler: the body jumps to a local handler on the first error, and the
//    handler decides what to raise or return.
#pragma once

#include <optional>
#include <utility>

#include "runtime/error.h"

namespace telvaro {

class SkipErrors {
public:
    // Runs one statement; a RuntimeError it raises is recorded, not thrown.
    template <typename Statement>
    void operator()(Statement&& statement) {
        try {
            std::forward<Statement>(statement)();
        } catch (const RuntimeError& e) {
            pending_ = e;
        }
    }

    // Runs one statement that yields a value; nullopt when it failed.
    template <typename Expression>
    auto value(Expression&& expression) -> std::optional<decltype(expression())> {
        try {
            return std::forward<Expression>(expression)();
        } catch (const RuntimeError& e) {
            pending_ = e;
            return std::nullopt;
        }
    }

    // The pending error's number (0 when none), as Err.Number reads it.
    int errorNumber() const { return pending_ ? pending_->number() : 0; }
    const std::optional<RuntimeError>& pendingError() const { return pending_; }
    bool failed() const { return pending_.has_value(); }
    // Err.Clear.
    void clear() { pending_.reset(); }

private:
    std::optional<RuntimeError> pending_;
};

// Handler mode: runs `body`; on a RuntimeError, returns what `handler`
// makes of it (the handler may raise an error of its own).
template <typename Body, typename Handler>
auto withHandler(Body&& body, Handler&& handler) -> decltype(body()) {
    try {
        return std::forward<Body>(body)();
    } catch (const RuntimeError& e) {
        return std::forward<Handler>(handler)(e);
    }
}

}  // namespace telvaro
