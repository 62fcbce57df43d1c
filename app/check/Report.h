// Takes the findings of one pair of files from the checking parts and passes them on.
//
// Counts all of them, and stops passing on those of one code after a limit, so that a broken file
// of a million lines does not give a million messages.
#pragma once

#include "app/check/Finding.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

namespace app::check {

struct Place {
    PairFile file = PairFile::Mif;
    std::uint64_t line = 0;
    std::uint64_t object = 0;
};

struct CodeCount {
    std::uint64_t found = 0;
    std::uint64_t reported = 0;
};

// Indexed by Code.
using CodeCounts = std::array<CodeCount, static_cast<std::size_t>(Code::ModuleError) + 1>;

class Report {
public:
    // maxPerCode 0 passes all on. The sink must outlive the report.
    Report(FindingSink& sink, std::filesystem::path mif, std::filesystem::path mid,
           std::uint64_t maxPerCode);

    // An empty advice takes that of the table.
    void Add(Code code, const Place& place, std::string message, std::string advice = {});
    void Change(PairFile file, const Edit& edit) { sink_.AddEdit(file, edit); }
    void Settle(PairFile file, std::uint64_t offset) { sink_.Settle(file, offset); }

    const CodeCounts& Counts() const { return counts_; }

private:
    FindingSink& sink_;
    std::filesystem::path mif_;
    std::filesystem::path mid_;
    std::uint64_t maxPerCode_;
    CodeCounts counts_{};
};

// "3 vertices", "1 vertex".
std::string Counted(std::uint64_t count, const char* one, const char* many);

}  // namespace app::check
