// What the clauses behind an object of a .mif file say.
#pragma once

#include "app/feature/Feature.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace app {

struct ClauseValues {
    Style style;
    double angleDegrees = 0.0;
    Justify justify = Justify::Left;
    double lineSpacing = 0.0;  // 0: not stated
    std::optional<LabelLine> labelLine;
    bool isSmooth = false;
    std::optional<shr::Vec2d> center;
};

// Reads the clauses, line by line or several on a line, in any order. Of a clause that occurs twice
// the last one counts. Missing numbers are 0, names are decoded with the host's code page 0.
ClauseValues ReadClauses(std::string_view clauses);

// Remembers what it has read: a file repeats the same few clauses again and again.
class ClauseReader {
public:
    // The values are valid until the next call.
    const ClauseValues& Read(const std::string& clauses);

private:
    static constexpr std::size_t kMostEntries = 4096;

    std::unordered_map<std::string, ClauseValues> known_;
    std::string last_;
    const ClauseValues* lastValues_ = nullptr;  // null before the first call
};

}  // namespace app
