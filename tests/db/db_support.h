// What the database method tests share: calls on a scripted platform, and
// connections on the embedded engine and the test server.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "context/fun.h"
#include "data_support.h"
#include "platform/recording_progress_display.h"
#include "platform/scripted_message_box.h"
#include "runtime/object.h"

namespace telvaro::dbtest {

struct Outcome {
    Variant result;
    int error = 0;
    String description;
    std::vector<ShownMessage> boxes;
};

// Late-bound calls on one platform whose message boxes answer `answers` and
// whose progress form is recorded and stays loaded between the calls.
class Session {
public:
    explicit Session(std::vector<int> answers = {});
    // One call of `method`; its error is caught into the outcome.
    Outcome run(const char* method, std::vector<Variant> args);
    // The progress form's entries since the last look.
    std::vector<std::string> progress();
    Fun fun() { return Fun(platform_); }

private:
    std::shared_ptr<RecordingProgressDisplay> recorder_ = std::make_shared<RecordingProgressDisplay>();
    ScriptedPlatform platform_;
};

// One call in a session of its own.
inline Outcome run(const char* method, std::vector<Variant> args, std::vector<int> answers = {}) {
    return Session(std::move(answers)).run(method, std::move(args));
}

// A table of clients: codigo 1..n, nombre, ciudad.
std::vector<String> clientTable(int rows);
// An in-memory database at a client cursor location (exact counts).
ObjectRef clientConnection(int rows, std::int32_t cursorLocation = 3);

inline Variant v(const char16_t* s) { return Variant(String(s)); }
inline Variant v(std::int32_t n) { return Variant(n); }
inline Variant v(Boolean b) { return Variant(b); }
inline Variant i16(std::int16_t n) { return Variant(n); }

// An open connection to the test server at `cursorLocation`; fails the
// test (by throwing) when the server did not start.
ObjectRef serverConnection(std::int32_t cursorLocation);

}  // namespace telvaro::dbtest
