// The styles of a page: each look of an object once, as JSON that the page's script reads.
#pragma once

#include "app/feature/DrawnStyle.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>

namespace app {

class PageStyles {
public:
    explicit PageStyles(StyleSource source);

    // Layers have colours by their number, from 0.
    void BeginLayer(std::size_t layer);

    // Returns the number of the object's look: what it is depends on the kind of the geometry.
    std::uint32_t NumberOf(const Geometry& geometry);

    // A JSON list; the object at a number is the look of that number.
    const std::string& Json() const { return json_; }

private:
    std::string LookOf(const Geometry& geometry) const;

    StyleResolver resolver_;
    std::string json_ = "[]";
    std::unordered_map<std::string, std::uint32_t> numbers_;  // by the look's JSON
    Style lastStyle_;                                         // of the object before
    GeometryKind lastKind_ = GeometryKind::None;
    std::uint32_t lastNumber_ = 0;
};

}  // namespace app
