// Whether two geometries are the same, and in words what differs.
#pragma once

#include "app/feature/Feature.h"

#include <string>

namespace app {

struct GeometryRules {
    double tolerance = 0.0;  // coordinates that differ by up to this much are the same
    // A text is the same as a point at its place: of two formats one has no texts.
    bool areTextsPoints = false;
};

// Returns "" for geometries that are the same: of the same kind, with the same coordinates in the
// same order. The rings of regions may be in any order, begin at any vertex, go either way round,
// and be closed or not. Styles are not compared. Otherwise returns what differs, for people:
// "vertices: 12 -> 13", "2 of 12 vertices moved, by up to 0.5".
std::string DifferenceOf(const Geometry& left, const Geometry& right, const GeometryRules& rules);

// The same for whole features, of which collections have members.
std::string GeometryDifferenceOf(const Feature& left, const Feature& right,
                                 const GeometryRules& rules);

// Returns the geometry in words: "line of 5 vertices", "region of 2 rings, 9 vertices".
std::string GeometryInWords(const Feature& feature);

}  // namespace app
