// What the values of a column are, in bounded memory.
#pragma once

#include "app/feature/Values.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_set>

namespace app {

class ColumnStatistics {
public:
    // Different values are counted up to here. Each takes a few bytes, however long it is.
    static constexpr std::size_t kMostDistinct = 10'000;

    void Take(const Value& value);

    // The values that are neither null nor an empty text; the rest is about these alone.
    std::uint64_t Filled() const { return filled_; }

    // How many different values there are; absent when there are more than kMostDistinct. 1 and 1.0
    // are the same value.
    std::optional<std::size_t> Distinct() const;

    // Null for a column without values. Numbers and truth values come before texts, whose order is
    // that of their bytes.
    const Value& Minimum() const { return minimum_; }
    const Value& Maximum() const { return maximum_; }

    // Of the numbers; absent when there is none, and of truth values.
    std::optional<double> Mean() const;

private:
    void AddToSum(double number);

    std::uint64_t filled_ = 0;
    std::unordered_set<std::uint64_t> hashes_;  // of the different values; empty when too many
    bool hasTooMany_ = false;
    Value minimum_;
    Value maximum_;
    std::uint64_t numberCount_ = 0;
    double sum_ = 0.0;
    double lost_ = 0.0;  // what the additions have rounded away so far
};

}  // namespace app
