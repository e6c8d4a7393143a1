// A grid of the library's own filled from rows of texts, and grid methods
// called on it through the frame.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "context/fun.h"
#include "frame/invoke.h"
#include "objects/flex_grid.h"
#include "support/support.h"
#include "support/test_platform.h"

namespace telvaro::gridtest {

using Rows = std::vector<std::vector<std::string>>;
using I16 = std::int16_t;

// A grid with one fixed row and column, its texts row by row.
inline std::shared_ptr<objects::FlexGrid> makeGrid(const Rows& rows, std::int32_t fixedRows = 1) {
    const auto cols = rows.empty() ? 2 : static_cast<std::int32_t>(rows.front().size());
    auto grid = std::make_shared<objects::FlexGrid>(u"Grid", static_cast<std::int32_t>(rows.size()), cols);
    grid->setFixedRows(fixedRows);
    for (std::size_t r = 0; r < rows.size(); ++r)
        for (std::size_t c = 0; c < rows[r].size(); ++c)
            grid->setTextMatrix(static_cast<std::int32_t>(r), static_cast<std::int32_t>(c), fromUtf8(rows[r][c]));
    grid->clearCalls();
    return grid;
}

// The texts of a grid, cells joined by "," and rows by "/".
inline std::string joinedTexts(const objects::FlexGrid& grid) {
    std::string out;
    for (std::int32_t r = 0; r < grid.rows(); ++r)
        for (std::int32_t c = 0; c < grid.cols(); ++c)
            out += (r && !c ? "/" : c ? "," : "") + toUtf8(grid.textMatrix(r, c));
    return out;
}

// The member calls the grid received, in order, one blank between them.
inline std::string callsOf(const objects::FlexGrid& grid) {
    std::string calls;
    for (const auto& c : grid.calls()) calls += (calls.empty() ? "" : " ") + toUtf8(c);
    return calls;
}

// Calls `method` with the grid first, then `args`, kept for lastArgs().
class GridMethods : public ::testing::Test {
protected:
    Variant run(const char* method, const std::shared_ptr<objects::FlexGrid>& grid, std::vector<Variant> args = {}) {
        args.insert(args.begin(), Variant(ObjectRef(grid)));
        Variant result = invoke(fun_, std::string_view(method), args);
        lastArgs_ = std::move(args);
        return result;
    }
    int errorOf(const char* method, const Variant& grid, std::vector<Variant> args = {}) {
        args.insert(args.begin(), grid);
        const int error = errorNumberOf([&] { invoke(fun_, std::string_view(method), args); });
        lastArgs_ = std::move(args);
        return error;
    }
    int errorOf(const char* method, const std::shared_ptr<objects::FlexGrid>& g, std::vector<Variant> args = {}) {
        return errorOf(method, Variant(ObjectRef(g)), std::move(args));
    }
    const std::vector<Variant>& lastArgs() const { return lastArgs_; }

    fakes::TestPlatform platform_;
    Fun fun_{platform_};
    std::vector<Variant> lastArgs_;
};

}  // namespace telvaro::gridtest
