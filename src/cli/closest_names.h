// The names closest to one a person mistyped, for a one-line hint.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace telvaro::cli {

// Up to `limit` of `candidates`, nearest first, within an edit distance of
// a third of the typed name (at least 2), case-insensitive; a candidate
// that starts with or contains the typed name counts as near.
std::vector<std::string> closestNames(std::string_view typed, const std::vector<std::string>& candidates,
                                      std::size_t limit = 3);

// "did you mean: a, b?" or "" when nothing is close.
std::string suggestionText(const std::vector<std::string>& names);

}  // namespace telvaro::cli
