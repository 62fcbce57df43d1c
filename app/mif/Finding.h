// What the checker reports: severities, findings, and the receiver that they go to.
//
// The list of all codes is in FindingCodes.h. Nothing here knows how a finding is printed.
#pragma once

#include "app/mif/FindingCodes.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace app {

// Which file of the pair a line number or an offset belongs to.
enum class FileOfPair { Mif, Mid };

struct Finding {
    const FindingInfo* code = nullptr;  // a row of the table, never null in a reported finding
    std::filesystem::path file;
    std::uint64_t line = 0;    // 1-based; 0 when the finding is about the whole file
    std::uint64_t object = 0;  // 1-based number of the object or row; 0 outside the data
    std::string message;       // what was found and what the reader makes of it
    std::string advice;        // what to do
    std::uint64_t count = 1;   // how many findings this one sums up
    bool isCaredFor = false;   // convert, draw and info read it as it was meant
};

// Replaces the bytes [begin, end) of one file of the pair.
struct Edit {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
    std::string text;
    FindingCode code = FindingCode::FileUnreadable;  // the finding that it repairs
    std::uint64_t line = 0;
    std::string what;  // for people: "count 5 becomes 4"
};

// Receives findings in file order, and, for those with one right repair, the edits.
class FindingSink {
public:
    virtual ~FindingSink() = default;
    virtual void Add(const Finding& finding) = 0;
    // Edits of one object may come in any order; an edit that covers others replaces them.
    virtual void AddEdit(FileOfPair /*file*/, const Edit& /*edit*/) {}
    // No edit that begins before offset will follow for this file.
    virtual void Settle(FileOfPair /*file*/, std::uint64_t /*offset*/) {}
};

}  // namespace app
