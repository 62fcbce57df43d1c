// Takes the findings of one pair of files from the passes over it, and passes them on.
//
// Counts all of them, and stops passing on those of one code after a limit, so that a broken file
// of a million lines does not give a million messages.
#pragma once

#include "app/base/Counted.h"
#include "app/mif/Finding.h"
#include "app/mif/ObjectFacts.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

namespace app {

struct Place {
    FileOfPair file = FileOfPair::Mif;
    std::uint64_t line = 0;    // 1-based; 0 for the whole file
    std::uint64_t object = 0;  // 1-based number of the object or row; 0 outside the data
};

struct FindingCount {
    std::uint64_t found = 0;
    std::uint64_t reported = 0;
    Place first;  // of the first one

    // The objects, or rows, that it was found at, and the kinds of these objects: a bit for each.
    std::uint64_t objects = 0;
    std::uint64_t lastObject = 0;
    std::uint32_t kinds = 0;
};

// Indexed by FindingCode.
using FindingCounts =
    std::array<FindingCount, static_cast<std::size_t>(FindingCode::ModuleError) + 1>;

class FindingCounter {
public:
    // Only counts.
    FindingCounter() = default;

    // Passes the findings on to the sink, which must outlive the counter: of each code so many, and
    // all of them for 0. The paths are those of the messages.
    FindingCounter(FindingSink& sink, std::filesystem::path mif, std::filesystem::path mid,
                   std::uint64_t maxPerCode);

    // Whether anybody reads the messages.
    bool HasSink() const { return sink_ != nullptr; }

    // An empty advice takes that of the table.
    void Add(FindingCode code, const Place& place, std::string message, std::string advice = {});

    // The kind of the object that the next findings are made at.
    void SetKind(ObjectKind kind) { kind_ = kind; }

    // The repair of what was found last, or what comes with it.
    void Change(FileOfPair file, const Edit& edit) {
        if (sink_ != nullptr) {
            sink_->AddEdit(file, edit);
        }
    }

    // No repair that begins before the offset will follow.
    void Settle(FileOfPair file, std::uint64_t offset) {
        if (sink_ != nullptr) {
            sink_->Settle(file, offset);
        }
    }

    const FindingCounts& Counts() const { return counts_; }

private:
    FindingSink* sink_ = nullptr;
    std::filesystem::path mif_;
    std::filesystem::path mid_;
    std::uint64_t maxPerCode_ = 0;
    ObjectKind kind_ = ObjectKind::None;
    FindingCounts counts_{};
};

}  // namespace app
