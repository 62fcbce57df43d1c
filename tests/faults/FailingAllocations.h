// The C++ library's operator new, replaced for the whole test program (the host library in it
// included) by one that counts, and that fails where a test says so.
#pragma once

namespace fault_test {

enum class Failing { OnlyOne, ThatAndAllLater };

// While it lives, allocations are numbered from 1, and the one with the given number throws
// std::bad_alloc. 0 fails none. One at a time, on one thread.
class FailingAllocations {
public:
    explicit FailingAllocations(long number, Failing failing = Failing::OnlyOne);
    ~FailingAllocations();
    FailingAllocations(const FailingAllocations&) = delete;
    FailingAllocations& operator=(const FailingAllocations&) = delete;

    // True once an allocation has failed.
    static bool HasFailed();
};

// While it lives, allocations are neither numbered nor made to fail: for what a test does by itself
// in the middle of the run that it watches.
class UncountedAllocations {
public:
    UncountedAllocations();
    ~UncountedAllocations();
    UncountedAllocations(const UncountedAllocations&) = delete;
    UncountedAllocations& operator=(const UncountedAllocations&) = delete;

private:
    bool wasCounting_;
};

// Blocks that were allocated by operator new and not deleted yet.
long LiveBlocks();

}  // namespace fault_test
