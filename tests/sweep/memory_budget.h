// A memory budget for one call, kept by counting what operator new hands
// out (the program replaces the global allocation functions). It works the
// same under AddressSanitizer, which cannot run under an address-space
// limit; the plain build adds that limit (RLIMIT_AS) as well, for what
// C libraries take with malloc.
#pragma once

#include <cstddef>
#include <cstdint>

namespace telvaro::sweep {

class MemoryBudget {
public:
    // From now until the object goes, an allocation that would take the
    // bytes in use past what was in use plus `bytes` fails with
    // std::bad_alloc, and is recorded.
    explicit MemoryBudget(std::size_t bytes);
    ~MemoryBudget();
    MemoryBudget(const MemoryBudget&) = delete;
    MemoryBudget& operator=(const MemoryBudget&) = delete;

    // True when something asked for more than the budget.
    bool exceeded() const;
    // The most bytes in use at once above the starting point.
    std::size_t peak() const;
};

// Bytes handed out by operator new and not yet given back.
std::int64_t bytesInUse();

// Limits the process's address space to what it uses now plus `bytes`
// for the object's lifetime, in the plain build; does nothing under
// AddressSanitizer.
class AddressSpaceLimit {
public:
    explicit AddressSpaceLimit(std::size_t bytes);
    ~AddressSpaceLimit();
    AddressSpaceLimit(const AddressSpaceLimit&) = delete;
    AddressSpaceLimit& operator=(const AddressSpaceLimit&) = delete;
    bool active() const { return active_; }

private:
    bool active_ = false;
    std::uint64_t oldSoft_ = 0, oldHard_ = 0;
};

}  // namespace telvaro::sweep
