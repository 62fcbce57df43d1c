// One call of a host: the fault that is in force meanwhile, and how the call ended.
#pragma once

#include "fuzz/MemoryFiles.h"
#include "fuzz/ObjectsFromBytes.h"
#include "fuzz/UnwillingHost.h"
#include "host/zeio/Errors.h"
#include "tests/faults/FailingAllocations.h"

#include <memory>
#include <new>

namespace fuzz {

enum class Outcome {
    Returned,
    OpenError,
    WriteError,
    OtherError,   // of the host's throw operations
    OutOfMemory,  // only when an allocation was made to fail
    Unwilling,    // only when the host was made to throw
};

struct CallResult {
    Outcome outcome = Outcome::Returned;
    int value = 0;
};

enum class FaultKind { None, Allocation, HostCall, Open, Seek, Write, Removal };

struct Fault {
    FaultKind kind = FaultKind::None;
    // Which allocation or which call of the host fails, counted from 1. For `Write`: how many times
    // 16 bytes can still be written.
    int number = 0;
};

// Most calls have none.
Fault TakeFault(Bytes& bytes);

// Counts a call. The process prints the number of calls when it ends.
void CountCall();

// Runs a call with the fault in force. Ends the program when the call throws what no host has to
// expect.
template <class Call> CallResult RunCall(UnwillingHost& host, const Fault& fault, Call call) {
    CountCall();
    FileFaults& files = MemoryFiles::Get().faults;
    files.opens = fault.kind == FaultKind::Open;
    files.seeks = fault.kind == FaultKind::Seek;
    files.removals = fault.kind == FaultKind::Removal;
    if (fault.kind == FaultKind::Write) {
        files.bytesLeft = static_cast<std::size_t>(fault.number) * 16;
    }
    host.ThrowAt(fault.kind == FaultKind::HostCall ? fault.number : 0);
    const long number = fault.kind == FaultKind::Allocation ? fault.number : 0;
    CallResult result;
    try {
        const fault_test::FailingAllocations allocations(number);
        result.value = static_cast<int>(call());
    } catch (const zeio::FileOpenError&) {
        result.outcome = Outcome::OpenError;
    } catch (const zeio::FileWriteError&) {
        result.outcome = Outcome::WriteError;
    } catch (const shr::IError& error) {
        Require(!error.Source().empty() && error.Line() > 0, "an error says where it is from");
        result.outcome = Outcome::OtherError;
    } catch (const std::bad_alloc&) {
        Require(fault_test::FailingAllocations::HasFailed(), "memory is there");
        result.outcome = Outcome::OutOfMemory;
    } catch (const HostIsUnwilling&) {
        Require(fault.kind == FaultKind::HostCall, "the host has thrown");
        result.outcome = Outcome::Unwilling;
    }
    host.ThrowAt(0);
    files.opens = files.seeks = files.removals = false;
    return result;
}

// Destroys the filter with the fault in force: it must let no exception out, leave no file open and
// end its progress.
template <class Filter>
void DestroyFilter(UnwillingHost& host, const Fault& fault, std::unique_ptr<Filter>& filter) {
    const CallResult result = RunCall(host, fault, [&] {
        filter.reset();
        return 0;
    });
    Require(result.outcome == Outcome::Returned, "a filter lets no exception out when it goes");
    Require(MemoryFiles::Get().openStreams() == 0, "a filter that goes closes its files");
    Require(!host.isProgressShown(), "a filter that goes ends its progress");
}

}  // namespace fuzz
