#include "tests/faults/FailingAllocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace fault_test {

namespace {

std::atomic<long> g_liveBlocks = 0;
std::atomic<bool> g_isCounting = false;
std::atomic<bool> g_hasFailed = false;
long g_count = 0;
long g_failingNumber = 0;
Failing g_failing = Failing::OnlyOne;

bool FailsNow() {
    if (!g_isCounting) {
        return false;
    }
    ++g_count;
    const bool fails = g_failing == Failing::OnlyOne
                           ? g_count == g_failingNumber
                           : g_failingNumber != 0 && g_count >= g_failingNumber;
    g_hasFailed = g_hasFailed || fails;
    return fails;
}

void* AllocateOrNull(std::size_t size) noexcept {
    void* const block = FailsNow() ? nullptr : std::malloc(size == 0 ? 1 : size);
    g_liveBlocks += block != nullptr ? 1 : 0;
    return block;
}

void* Allocate(std::size_t size) {
    void* const block = AllocateOrNull(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

void Free(void* block) {
    if (block != nullptr) {
        --g_liveBlocks;
        std::free(block);
    }
}

}  // namespace

FailingAllocations::FailingAllocations(long number, Failing failing) {
    g_count = 0;
    g_failingNumber = number;
    g_failing = failing;
    g_hasFailed = false;
    g_isCounting = true;
}

FailingAllocations::~FailingAllocations() {
    g_isCounting = false;
}

bool FailingAllocations::HasFailed() {
    return g_hasFailed;
}

UncountedAllocations::UncountedAllocations() : wasCounting_(g_isCounting.exchange(false)) {}

UncountedAllocations::~UncountedAllocations() {
    g_isCounting = wasCounting_;
}

long LiveBlocks() {
    return g_liveBlocks;
}

}  // namespace fault_test

// All forms that are used, because a sanitizer has its own of those that are not here, and they
// don't go together.
void* operator new(std::size_t size) {
    return fault_test::Allocate(size);
}

void* operator new[](std::size_t size) {
    return fault_test::Allocate(size);
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return fault_test::AllocateOrNull(size);
}

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return fault_test::AllocateOrNull(size);
}

void operator delete(void* block) noexcept {
    fault_test::Free(block);
}

void operator delete[](void* block) noexcept {
    fault_test::Free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
    fault_test::Free(block);
}

void operator delete[](void* block, std::size_t /*size*/) noexcept {
    fault_test::Free(block);
}

void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept {
    fault_test::Free(block);
}

void operator delete[](void* block, const std::nothrow_t& /*tag*/) noexcept {
    fault_test::Free(block);
}
