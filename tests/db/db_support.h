// What the database method tests share: a call through invoke on a platform
// with scripted message boxes, and connections on the embedded engine.
#pragma once

#include <vector>

#include "data_support.h"
#include "platform/scripted_message_box.h"
#include "runtime/object.h"

namespace telvaro::dbtest {

struct Outcome {
    Variant result;
    int error = 0;
    String description;
    std::vector<ShownMessage> boxes;
};

// One late-bound call of `method`; its error is caught into the outcome.
Outcome run(const char* method, std::vector<Variant> args, std::vector<int> answers = {});

// A table of clients: codigo 1..n, nombre, ciudad.
std::vector<String> clientTable(int rows);
// An in-memory database at a client cursor location (exact counts).
ObjectRef clientConnection(int rows, std::int32_t cursorLocation = 3);

inline Variant v(const char16_t* s) { return Variant(String(s)); }
inline Variant v(std::int32_t n) { return Variant(n); }

}  // namespace telvaro::dbtest
