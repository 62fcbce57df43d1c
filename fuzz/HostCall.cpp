#include "fuzz/HostCall.h"

#include <cstdio>

namespace fuzz {

namespace {

// Prints the number of calls at the end of the process; fuzz/run finds it in the log.
struct Counter {
    unsigned long long calls = 0;
    ~Counter() { std::fprintf(stderr, "host calls: %llu\n", calls); }
};

Counter counter;

}  // namespace

Fault TakeFault(Bytes& bytes) {
    constexpr int kWithoutFault = 200;  // of 256
    const int choice = bytes.Byte();
    if (choice < kWithoutFault) {
        return {};
    }
    constexpr FaultKind kKinds[] = {FaultKind::Allocation, FaultKind::HostCall, FaultKind::Open,
                                    FaultKind::Seek,       FaultKind::Write,    FaultKind::Removal};
    const FaultKind kind = kKinds[choice % 6];
    const int number = bytes.Byte();
    // Small numbers more often than large ones: few calls allocate much.
    return {kind, kind == FaultKind::Write ? number * number : 1 + number * number / 1024};
}

void CountCall() {
    ++counter.calls;
}

}  // namespace fuzz
