#include "sweep/memory_budget.h"

#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <new>
#include <string>

#if defined(__SANITIZE_ADDRESS__)
#define TELVARO_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TELVARO_ADDRESS_SANITIZER 1
#endif
#endif

namespace telvaro::sweep {

namespace {

std::atomic<std::int64_t> inUse{0};
std::atomic<std::int64_t> start{0};
std::atomic<std::int64_t> highest{0};
std::atomic<std::int64_t> limit{0};  // 0: no budget
std::atomic<bool> overBudget{false};

void* take(std::size_t size, std::size_t alignment) {
    const std::int64_t cap = limit.load(std::memory_order_relaxed);
    if (cap > 0 && inUse.load(std::memory_order_relaxed) + static_cast<std::int64_t>(size) > cap) {
        overBudget = true;
        return nullptr;
    }
    void* p = nullptr;
    if (alignment <= alignof(std::max_align_t)) {
        p = std::malloc(size ? size : 1);
    } else if (::posix_memalign(&p, alignment, size ? size : 1) != 0) {
        p = nullptr;
    }
    if (!p) return nullptr;
    const std::int64_t now = inUse.fetch_add(static_cast<std::int64_t>(::malloc_usable_size(p))) +
                             static_cast<std::int64_t>(::malloc_usable_size(p));
    std::int64_t seen = highest.load(std::memory_order_relaxed);
    while (now > seen && !highest.compare_exchange_weak(seen, now)) {
    }
    return p;
}

void give(void* p) {
    if (!p) return;
    inUse.fetch_sub(static_cast<std::int64_t>(::malloc_usable_size(p)));
    std::free(p);
}

void* takeOrThrow(std::size_t size, std::size_t alignment) {
    if (void* p = take(size, alignment)) return p;
    throw std::bad_alloc();
}

}  // namespace

MemoryBudget::MemoryBudget(std::size_t bytes) {
    start = inUse.load();
    highest = start.load();
    overBudget = false;
    limit = start + static_cast<std::int64_t>(bytes);
}

MemoryBudget::~MemoryBudget() { limit = 0; }

bool MemoryBudget::exceeded() const { return overBudget; }

std::size_t MemoryBudget::peak() const { return static_cast<std::size_t>(highest - start); }

std::int64_t bytesInUse() { return inUse; }

AddressSpaceLimit::AddressSpaceLimit(std::size_t bytes) {
#ifndef TELVARO_ADDRESS_SANITIZER
    // The address space in use now: the first field of /proc/self/statm, in
    // pages.
    std::ifstream statm("/proc/self/statm");
    std::uint64_t pages = 0;
    if (!(statm >> pages)) return;
    rlimit old{};
    if (::getrlimit(RLIMIT_AS, &old) != 0) return;
    const std::uint64_t wanted = pages * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE)) + bytes;
    if (old.rlim_cur != RLIM_INFINITY && old.rlim_cur <= wanted) return;
    rlimit tighter{static_cast<rlim_t>(wanted), old.rlim_max};
    if (::setrlimit(RLIMIT_AS, &tighter) != 0) return;
    oldSoft_ = old.rlim_cur;
    oldHard_ = old.rlim_max;
    active_ = true;
#else
    (void)bytes;
#endif
}

AddressSpaceLimit::~AddressSpaceLimit() {
    if (!active_) return;
    rlimit old{static_cast<rlim_t>(oldSoft_), static_cast<rlim_t>(oldHard_)};
    ::setrlimit(RLIMIT_AS, &old);
}

}  // namespace telvaro::sweep

// The program's allocation functions: every form of new and delete goes
// through the counter.
using telvaro::sweep::give;
using telvaro::sweep::takeOrThrow;

void* operator new(std::size_t n) { return takeOrThrow(n, 0); }
void* operator new[](std::size_t n) { return takeOrThrow(n, 0); }
void* operator new(std::size_t n, std::align_val_t a) { return takeOrThrow(n, static_cast<std::size_t>(a)); }
void* operator new[](std::size_t n, std::align_val_t a) { return takeOrThrow(n, static_cast<std::size_t>(a)); }
void* operator new(std::size_t n, const std::nothrow_t&) noexcept { return telvaro::sweep::take(n, 0); }
void* operator new[](std::size_t n, const std::nothrow_t&) noexcept { return telvaro::sweep::take(n, 0); }
void* operator new(std::size_t n, std::align_val_t a, const std::nothrow_t&) noexcept {
    return telvaro::sweep::take(n, static_cast<std::size_t>(a));
}
void* operator new[](std::size_t n, std::align_val_t a, const std::nothrow_t&) noexcept {
    return telvaro::sweep::take(n, static_cast<std::size_t>(a));
}
void operator delete(void* p) noexcept { give(p); }
void operator delete[](void* p) noexcept { give(p); }
void operator delete(void* p, std::size_t) noexcept { give(p); }
void operator delete[](void* p, std::size_t) noexcept { give(p); }
void operator delete(void* p, std::align_val_t) noexcept { give(p); }
void operator delete[](void* p, std::align_val_t) noexcept { give(p); }
void operator delete(void* p, std::size_t, std::align_val_t) noexcept { give(p); }
void operator delete[](void* p, std::size_t, std::align_val_t) noexcept { give(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { give(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { give(p); }
