// Storage that grows in pages which never move: growing never copies what is
// already stored, and only the memory in use is ever touched. The first page
// starts small and grows like a vector up to a full page, so a result of a
// few rows costs little; later pages are made full size at once. A loaded
// recordset of 100,000 rows thus neither doubles its memory while it grows
// nor copies its texts again at every doubling.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "runtime/error.h"

namespace telvaro::data {

// The bytes the pages hold room for.
template <typename T>
std::size_t pagesMemory(const std::vector<std::vector<T>>& pages) {
    std::size_t bytes = pages.capacity() * sizeof(pages[0]);
    for (const auto& page : pages) bytes += page.capacity() * sizeof(T);
    return bytes;
}

// A sequence of T indexed like a vector.
template <typename T, std::size_t PageSize = 4096>
class PagedVector {
    static_assert((PageSize & (PageSize - 1)) == 0, "pages are a power of two long");

public:
    std::size_t size() const { return size_; }

    void push_back(const T& value) {
        if (pages_.empty() || pages_.back().size() == PageSize) {
            pages_.emplace_back();
            if (pages_.size() > 1) pages_.back().reserve(PageSize);
        }
        pages_.back().push_back(value);
        ++size_;
    }
    T& back() { return pages_.back().back(); }
    const T& operator[](std::size_t i) const { return pages_[i / PageSize][i % PageSize]; }

    // Drops every value; the first page keeps its room for the next ones.
    void clear() {
        if (pages_.size() > 1) pages_.resize(1);
        if (!pages_.empty()) pages_.front().clear();
        size_ = 0;
    }

    std::size_t memoryUsed() const { return pagesMemory(pages_); }

private:
    std::vector<std::vector<T>> pages_;
    std::size_t size_ = 0;
};

// Runs of T (the units of texts, the bytes of byte strings) stored one after
// the other; append answers a handle by which the run is read again. A run
// longer than a quarter of a page gets a page of its own, so a 10 MB picture
// is stored once, at its size.
template <typename T>
class PagedRuns {
public:
    static constexpr std::size_t kPage = std::size_t{1} << 16;

    std::uint64_t append(std::span<const T> run) {
        if (run.size() > kPage / 4) {
            checkPageCount();
            pages_.emplace_back(run.begin(), run.end());
            return handle(pages_.size() - 1, 0, kWholePage);
        }
        if (open_ == kNone || pages_[open_].size() + run.size() > kPage) {
            checkPageCount();
            open_ = pages_.size();
            pages_.emplace_back();
            if (open_ > 0) pages_.back().reserve(kPage);
        }
        std::vector<T>& page = pages_[open_];
        const std::size_t offset = page.size();
        page.insert(page.end(), run.begin(), run.end());
        return handle(open_, offset, run.size());
    }

    std::span<const T> view(std::uint64_t handle) const {
        const std::vector<T>& page = pages_[static_cast<std::size_t>(handle >> (kOffsetBits + kLengthBits))];
        const auto offset = static_cast<std::size_t>((handle >> kLengthBits) & ((std::uint64_t{1} << kOffsetBits) - 1));
        const auto length = static_cast<std::size_t>(handle & kWholePage);
        return length == kWholePage ? std::span<const T>(page) : std::span<const T>(page.data() + offset, length);
    }

    // Drops every run; the first page keeps its room for the next ones
    // unless it held a run larger than a page.
    void clear() {
        if (pages_.size() > 1) pages_.resize(1);
        if (!pages_.empty() && pages_.front().capacity() > kPage) std::vector<T>().swap(pages_.front());
        if (!pages_.empty()) pages_.front().clear();
        open_ = pages_.empty() ? kNone : 0;
    }

    std::size_t memoryUsed() const { return pagesMemory(pages_); }

private:
    // A handle: the page, the place in it and the length (all ones: the
    // whole page, for a run with a page of its own).
    static constexpr unsigned kOffsetBits = 17;
    static constexpr unsigned kLengthBits = 23;
    static constexpr std::uint64_t kWholePage = (std::uint64_t{1} << kLengthBits) - 1;
    static constexpr std::size_t kMostPages = std::size_t{1} << (64 - kOffsetBits - kLengthBits);
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    static std::uint64_t handle(std::size_t page, std::size_t offset, std::uint64_t length) {
        return (std::uint64_t{page} << (kOffsetBits + kLengthBits)) | (std::uint64_t{offset} << kLengthBits) | length;
    }
    void checkPageCount() const {
        if (pages_.size() >= kMostPages) raise(err::OutOfMemory);
    }

    std::vector<std::vector<T>> pages_;
    std::size_t open_ = kNone;  // the page short runs go to
};

}  // namespace telvaro::data
