// Finds places for labels: around points, along lines, inside areas.
//
// Places depend on the page and on what was placed before alone, so that a map always gets the same
// labels.
#pragma once

#include "app/draw/PagePath.h"
#include "app/draw/Viewport.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace app {

// A label's size in pixels.
struct LabelSize {
    double width = 0.0;
    double height = 0.0;
};

// Where a label's middle is, and its turn.
struct LabelPlace {
    PagePoint middle;
    double angle = 0.0;  // radians, clockwise to the eye; from -pi/2 to pi/2
};

// Parts of the page that are taken, in small squares.
class TakenCells {
public:
    explicit TakenCells(PageSize page);

    // Also false for a box that is not wholly on the page.
    bool IsFree(const PageBox& box) const;
    void Take(const PageBox& box);

private:
    struct Range {
        std::size_t left;
        std::size_t top;
        std::size_t right;
        std::size_t bottom;
    };
    Range RangeOf(const PageBox& box) const;

    PageSize page_;
    std::size_t columns_;
    std::size_t rows_;
    std::vector<std::uint8_t> cells_;
};

class LabelPlaces {
public:
    explicit LabelPlaces(PageSize page) : page_(page), labels_(page), symbols_(page) {}

    // No label may cover what is here.
    void Block(const LabelPlace& place, LabelSize size);

    // Labels go on the box only when there is no other place for them.
    void Avoid(const PageBox& box) { symbols_.Take(box); }

    // Each of these takes the place that it returns; absent when there is no room.

    // Beside a symbol that reaches so many pixels around the point: right, left, above, below, and
    // between these.
    std::optional<LabelPlace> AroundPoint(const PagePoint& point, double reach, LabelSize size);

    // On a straight part of the line, turned like it, upright; not beside the same text.
    std::optional<LabelPlace> AlongLine(const PagePath& line, LabelSize size,
                                        const std::string& text);

    // In the widest part of the area between the rings that has the label's height.
    std::optional<LabelPlace> InsideArea(const std::vector<PagePath>& rings, LabelSize size);

private:
    bool TakeTurned(const LabelPlace& place, LabelSize size);
    bool IsNearSameText(const std::string& text, const PagePoint& at) const;

    PageSize page_;
    TakenCells labels_;
    TakenCells symbols_;
    std::map<std::string, std::vector<PagePoint>> onLines_;
};

}  // namespace app
