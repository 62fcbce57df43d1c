// The styles of a layer's features, each with a number.
#pragma once

#include "app/feature/Feature.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace app {

enum class StyledKind { Point, Line, Area, Text };

struct NumberedStyle {
    StyledKind kind = StyledKind::Point;
    Style style;
};

class LayerStyles {
public:
    static constexpr std::size_t kMostStyles = 2000;

    // Returns the number of the feature's style, from 1; that of its first member for a collection.
    // Absent for a feature without geometry. After kMostStyles different ones, a new style gets the
    // number of the first of its kind.
    std::optional<std::int64_t> NumberOf(const Feature& feature);

    // In the order of their numbers, from 1.
    const std::vector<NumberedStyle>& All() const { return styles_; }

    // The features whose style got another one's number.
    std::uint64_t Replaced() const { return replaced_; }

private:
    std::vector<NumberedStyle> styles_;
    std::unordered_map<std::string, std::int64_t> numbers_;  // by what Key makes of a style
    std::uint64_t replaced_ = 0;
};

}  // namespace app
