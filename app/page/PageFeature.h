// An object on its way into a page.
#pragma once

#include "app/feature/Feature.h"

#include <cstdint>
#include <string>
#include <vector>

namespace app {

// A geometry: points, sections of a line, rings of a region, or a text.
struct PageMember {
    // A section or a ring. The holes of a polygon follow its outer ring.
    struct Part {
        std::uint32_t size;  // points
        bool isHole;
    };

    GeometryKind kind = GeometryKind::Points;
    bool isMulti = false;
    std::uint32_t style = 0;  // its number in PageStyles
    std::string text;         // of a Text: members of a JSON object, without the braces
    std::vector<Part> parts;  // of a Line or Region
    // The four points of a Text are those of its frame (app/map/TextFrame.h). Rings do not repeat
    // their first point. All are finite.
    std::vector<shr::Vec2d> points;
    std::vector<float> weights;  // of the points of a Line or Region (app/page/VertexWeights.h)
};

struct PageFeature {
    std::uint64_t number = 0;         // 1-based, in its layer
    std::string properties;           // a JSON object
    std::vector<PageMember> members;  // none of them without a point
};

// What the coordinates of a page are.
enum class PagePlane {
    Degrees,  // longitude and latitude, shown in the Mercator projection of the web
    Units,    // of a plane without a place on the Earth
};

// Returns what a page shows of a geometry that is no Collection, but for its style: no points when
// that is nothing. Curves must have become lines and regions. With `unwraps`, lines that jump from
// one end of the longitudes to the other go on beyond it instead.
PageMember MemberOf(const Geometry& geometry, PagePlane plane, bool unwraps);

// Where the point is on the page's plane: metres at the equator, or the units of the file.
shr::Vec2d OnPlane(const shr::Vec2d& point, PagePlane plane);

// Appends the feature as a GeoJSON feature with two members more: "style", the number of its style
// or a list with those of the members, and "text". Vertices lighter than `tolerance` are left out;
// what a ring keeps is at least three.
void AppendFeature(std::string& out, const PageFeature& feature, float tolerance, int decimals);

}  // namespace app
