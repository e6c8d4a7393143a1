// The batch protocol: JSON Lines requests on one stream, one answer line
// per request on the other (see docs/batch-protocol.md).
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

namespace telvaro::cli {

// A request nested deeper than this, or a line longer than this, is
// answered as a malformed line without being decoded.
inline constexpr std::size_t kMaxNesting = 1000;
inline constexpr std::size_t kMaxLineBytes = std::size_t(64) << 20;

// Answers one request line; never throws.
std::string answerRequest(const std::string& line);

// Reads requests until the end of `in`, writing and flushing each answer.
// 0 at the end of the requests; 1, with a message on `err`, as soon as an
// answer cannot be written or the requests cannot be read.
int runBatch(std::istream& in, std::ostream& out, std::ostream& err);

}  // namespace telvaro::cli
