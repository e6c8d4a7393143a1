#include "cli/closest_names.h"

#include <algorithm>
#include <cctype>

namespace telvaro::cli {

namespace {

std::string lower(std::string_view s) {
    std::string out(s);
    for (auto& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

std::size_t editDistance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t above = row[j];
            row[j] = std::min({row[j] + 1, row[j - 1] + 1, diagonal + (a[i - 1] == b[j - 1] ? 0 : 1)});
            diagonal = above;
        }
    }
    return row[b.size()];
}

}  // namespace

std::vector<std::string> closestNames(std::string_view typed, const std::vector<std::string>& candidates,
                                      std::size_t limit) {
    const std::string key = lower(typed);
    if (key.empty()) return {};
    const std::size_t allowed = std::max<std::size_t>(2, key.size() / 3);
    std::vector<std::pair<std::size_t, std::string>> near;
    for (const auto& c : candidates) {
        const std::string name = lower(c);
        std::size_t distance = editDistance(key, name);
        if (key.size() >= 3 && name.find(key) != std::string::npos) distance = std::min<std::size_t>(distance, 1);
        if (distance <= allowed) near.emplace_back(distance, c);
    }
    std::stable_sort(near.begin(), near.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::string> out;
    for (const auto& [distance, name] : near) {
        if (out.size() == limit) break;
        out.push_back(name);
    }
    return out;
}

std::string suggestionText(const std::vector<std::string>& names) {
    if (names.empty()) return "";
    std::string text = "did you mean: ";
    for (std::size_t i = 0; i < names.size(); ++i) text += (i ? ", " : "") + names[i];
    return text + "?";
}

}  // namespace telvaro::cli
