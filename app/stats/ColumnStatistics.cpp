#include "app/stats/ColumnStatistics.h"

#include <cmath>
#include <functional>
#include <limits>

namespace app {
namespace {

bool IsEmpty(const Value& value) {
    const auto* text = std::get_if<std::string>(&value);
    return std::holds_alternative<std::monostate>(value) || (text != nullptr && text->empty());
}

// Whole numbers beyond 2^53 have no double of their own.
std::optional<double> NumberOf(const Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        return static_cast<double>(*whole);
    }
    if (const auto* truth = std::get_if<bool>(&value)) {
        return *truth ? 1.0 : 0.0;
    }
    const auto* real = std::get_if<double>(&value);
    return real != nullptr ? std::optional(*real) : std::nullopt;
}

bool IsLess(const Value& left, const Value& right) {
    const auto* leftWhole = std::get_if<std::int64_t>(&left);
    const auto* rightWhole = std::get_if<std::int64_t>(&right);
    if (leftWhole != nullptr && rightWhole != nullptr) {
        return *leftWhole < *rightWhole;
    }
    const std::optional<double> leftNumber = NumberOf(left);
    const std::optional<double> rightNumber = NumberOf(right);
    if (leftNumber && rightNumber) {
        return *leftNumber < *rightNumber;
    }
    if (leftNumber || rightNumber) {
        return leftNumber.has_value();
    }
    return std::get<std::string>(left) < std::get<std::string>(right);
}

std::uint64_t HashOf(const Value& value) {
    // Spreads the bits: the standard library's hash of a number is the number.
    const auto mixed = [](std::uint64_t bits) {
        bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9ULL;
        bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBULL;
        return bits ^ (bits >> 31U);
    };
    if (const auto* text = std::get_if<std::string>(&value)) {
        return mixed(std::hash<std::string>()(*text));
    }
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        return mixed(static_cast<std::uint64_t>(*whole));
    }
    const double number = *NumberOf(value);
    if (number == std::trunc(number) && std::fabs(number) < 9e18) {
        return mixed(static_cast<std::uint64_t>(static_cast<std::int64_t>(number)));
    }
    return mixed(std::hash<double>()(number) ^ 0x9E3779B97F4A7C15ULL);
}

}  // namespace

void ColumnStatistics::Take(const Value& value) {
    if (IsEmpty(value)) {
        return;
    }
    if (++filled_ == 1 || IsLess(value, minimum_)) {
        minimum_ = value;
    }
    if (filled_ == 1 || IsLess(maximum_, value)) {
        maximum_ = value;
    }
    if (!hasTooMany_) {
        hashes_.insert(HashOf(value));
        hasTooMany_ = hashes_.size() > kMostDistinct;
        if (hasTooMany_) {
            hashes_ = {};
        }
    }
    const std::optional<double> number = NumberOf(value);
    if (number && !std::holds_alternative<bool>(value)) {
        AddToSum(*number);
    }
}

// Adds with the rounding errors kept, so that a mean of many numbers is right to the last digits.
void ColumnStatistics::AddToSum(double number) {
    ++numberCount_;
    const double sum = sum_ + number;
    lost_ += std::fabs(sum_) >= std::fabs(number) ? (sum_ - sum) + number : (number - sum) + sum_;
    sum_ = sum;
}

std::optional<std::size_t> ColumnStatistics::Distinct() const {
    return hasTooMany_ ? std::nullopt : std::optional(hashes_.size());
}

std::optional<double> ColumnStatistics::Mean() const {
    if (numberCount_ == 0) {
        return std::nullopt;
    }
    return (sum_ + lost_) / static_cast<double>(numberCount_);
}

}  // namespace app
