// Where the documents a call printed went, for the command line: a
// platform whose printing keeps its deliveries, the "printed" field of a
// batch answer, and the lines `telvaro call` writes on stderr.
#pragma once

#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>

#include "platform/platform.h"

namespace telvaro::cli {

// Puts a recording printing over the platform's own; null when the
// platform has none.
std::shared_ptr<RecordingPrinting> recordPrinting(Platform& platform);

// [{"printer": name, "job": n, "pages": n}] or [{"file": path, "pages": n}].
nlohmann::ordered_json printedOf(const RecordingPrinting& printing);

// "telvaro: printed on NAME, job N" or "telvaro: printed to PATH", a line each.
void reportPrinted(const RecordingPrinting& printing, std::ostream& err);

}  // namespace telvaro::cli
