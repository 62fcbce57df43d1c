// The clauses behind objects: Pen, Brush, Symbol, Font and those of texts.
#pragma once

#include "app/mif/FindingCounter.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace app {

// Whether the word begins a clause, in any case.
bool IsClauseKeyword(std::string_view word);

// Reports what is wrong with a line that begins with a clause.
void CheckClauseLine(std::string_view line, const Place& place, FindingCounter& report);

// Whether the module reads a line that begins with a clause without reaching into the next line.
bool IsSafeClause(std::string_view line);

// Remembers what it was asked: a file repeats the same few clauses again and again.
class ClauseSafety {
public:
    // Whether each of the lines is safe.
    bool IsSafe(std::string_view lines);

private:
    // Bounds of the memory; behind them everything is forgotten.
    static constexpr std::size_t kMostEntries = 4096;
    static constexpr std::size_t kMostBytes = std::size_t{1} << 20;

    std::unordered_map<std::string, bool> known_;
    std::size_t bytes_ = 0;
};

}  // namespace app
