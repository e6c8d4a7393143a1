// The batch protocol: JSON Lines requests on one stream, one answer line
// per request on the other (see docs/batch-protocol.md).
#pragma once

#include <iosfwd>
#include <string>

namespace telvaro::cli {

// Answers one request line; never throws.
std::string answerRequest(const std::string& line);

// Reads requests until the end of `in`, writing and flushing each answer.
void runBatch(std::istream& in, std::ostream& out);

}  // namespace telvaro::cli
