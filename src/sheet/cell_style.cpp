#include "sheet/cell_style.h"

#include <functional>

#include "runtime/error.h"

namespace telvaro::sheet {

StyleTable::StyleTable() { intern(CellStyle{}); }

StyleId StyleTable::intern(const CellStyle& style) {
    if (auto it = ids_.find(style); it != ids_.end()) return it->second;
    if (styles_.size() >= 64000) raise(err::OutOfMemory);  // the file format's own limit of formats
    const auto id = static_cast<StyleId>(styles_.size());
    styles_.push_back(style);
    ids_.emplace(style, id);
    return id;
}

std::size_t StyleTable::Hash::operator()(const CellStyle& s) const {
    std::size_t h = std::hash<double>{}(s.fontSize) ^ (s.bold ? 0x9e3779b9u : 0u) ^ (std::size_t(s.shape) << 8);
    for (const Edge& e : {s.top, s.bottom, s.left, s.right}) h = h * 31 + (std::size_t(e.style) << 24 ^ e.color);
    return h;
}

}  // namespace telvaro::sheet
