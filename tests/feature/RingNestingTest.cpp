// Which ring lies in which, and that the polygons are valid ones.
#include "app/feature/RingNesting.h"

#include "tests/support/Features.h"

#include <geos_c.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using support::RegionOf;
using support::Square;

using Rings = std::vector<std::vector<shr::Vec2d>>;

// "0[1,2] 3": ring 0 with the holes 1 and 2, ring 3.
std::string Nesting(const Rings& rings) {
    const app::Feature region = RegionOf(rings);
    const std::vector<app::Ring> spans =
        app::RingsOf(region.geometry.points, region.geometry.partSizes);
    const auto indexOf = [&](app::Ring ring) {
        std::size_t index = 0;
        const shr::Vec2d* start = region.geometry.points.data();
        while (start != ring.data()) {
            start += region.geometry.partSizes[index++];
        }
        return std::to_string(index);
    };
    std::string text;
    for (const app::NestedPolygon& polygon : app::NestRings(spans)) {
        text += (text.empty() ? "" : " ") + indexOf(polygon.outer);
        for (const app::Ring& hole : polygon.holes) {
            text += (&hole == polygon.holes.data() ? "[" : ",") + indexOf(hole);
        }
        text += polygon.holes.empty() ? "" : "]";
    }
    return text;
}

// A ring in WKT, closed if it is not.
std::string WktOf(app::Ring ring) {
    std::string text = "(";
    const auto add = [&text](const shr::Vec2d& point) {
        text += std::to_string(point.x) + " " + std::to_string(point.y);
    };
    for (const shr::Vec2d& point : ring) {
        add(point);
        text += ", ";
    }
    add(ring.front());
    return text + ")";
}

std::string WktOf(const std::vector<app::NestedPolygon>& polygons) {
    std::string text;
    for (const app::NestedPolygon& polygon : polygons) {
        text += (text.empty() ? "MULTIPOLYGON((" : ", (") + WktOf(polygon.outer);
        for (const app::Ring& hole : polygon.holes) {
            text += ", " + WktOf(hole);
        }
        text += ")";
    }
    return text + ")";
}

bool GeosFindsValid(const std::string& wkt) {
    GEOSContextHandle_t context = GEOS_init_r();
    GEOSWKTReader* reader = GEOSWKTReader_create_r(context);
    GEOSGeometry* geometry = GEOSWKTReader_read_r(context, reader, wkt.c_str());
    const bool isValid = geometry != nullptr && GEOSisValid_r(context, geometry) == 1;
    GEOSGeom_destroy_r(context, geometry);
    GEOSWKTReader_destroy_r(context, reader);
    GEOS_finish_r(context);
    return isValid;
}

struct NestingRow {
    std::string name;
    Rings rings;
    std::string nesting;
};
class NestRings : public testing::TestWithParam<NestingRow> {};

TEST_P(NestRings, OfARegion) {
    EXPECT_EQ(Nesting(GetParam().rings), GetParam().nesting);
}

TEST_P(NestRings, GivesAValidGeometry) {
    const app::Feature region = RegionOf(GetParam().rings);

    const std::string wkt =
        WktOf(app::NestRings(app::RingsOf(region.geometry.points, region.geometry.partSizes)));

    EXPECT_TRUE(GeosFindsValid(wkt)) << wkt;
}

INSTANTIATE_TEST_SUITE_P(
    , NestRings,
    testing::Values(
        NestingRow{"WithOneRing", {Square(0, 0, 9)}, "0"},
        NestingRow{"WithAHole", {Square(0, 0, 9), Square(2, 2, 3)}, "0[1]"},
        NestingRow{"WithTheHoleFirst", {Square(2, 2, 3), Square(0, 0, 9)}, "1[0]"},
        NestingRow{"WithTwoParts", {Square(0, 0, 2), Square(5, 5, 2)}, "0 1"},
        NestingRow{
            "WithAnIslandInAHole", {Square(0, 0, 9), Square(1, 1, 7), Square(3, 3, 2)}, "0[1] 2"},
        NestingRow{"WithAHoleInAnIslandInAHole",
                   {Square(4, 4, 1), Square(0, 0, 20), Square(1, 1, 17), Square(3, 3, 4)},
                   "1[2] 3[0]"},
        NestingRow{"WithHolesOfTwoParts",
                   {Square(0, 0, 9), Square(20, 0, 9), Square(22, 2, 2), Square(2, 2, 2)},
                   "0[3] 1[2]"},
        NestingRow{"WithPartsThatShareACorner", {Square(0, 0, 2), Square(2, 2, 2)}, "0 1"},
        NestingRow{"WithAHoleThatTouchesItsRingAtACorner",
                   {Square(0, 0, 9), {{0, 4}, {3, 3}, {3, 5}}},
                   "0[1]"},
        NestingRow{"WithAHoleWhoseFirstPointsLieOnItsRing",
                   {{{0, 0}, {9, 0}, {9, 9}, {4, 9}, {0, 9}}, {{4, 9}, {3, 3}, {5, 3}}},
                   "0[1]"},
        NestingRow{"WithClosedRings",
                   {{{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}}, {{1, 1}, {2, 1}, {2, 2}, {1, 1}}},
                   "0[1]"},
        NestingRow{"WithARingOfTwoPoints", {Square(0, 0, 9), {{1, 1}, {2, 2}}}, "0"},
        NestingRow{"WithARingOfOnePoint", {Square(0, 0, 9), {{1, 1}}}, "0"},
        NestingRow{"WithARingOfNothing", {Square(0, 0, 9), {}}, "0"},
        NestingRow{"WithARingThatGoesBack", {Square(0, 0, 9), {{1, 1}, {2, 2}, {1, 1}}}, "0"},
        NestingRow{"InsideABoxButOutsideTheRing",
                   {{{0, 0}, {9, 0}, {9, 1}, {1, 1}, {1, 9}, {0, 9}}, Square(4, 4, 2)},
                   "0 1"}),
    [](const auto& row) { return row.param.name; });

TEST(NestingRings, TellsTwoEqualRingsApartAsRingAndHole) {
    EXPECT_EQ(Nesting({Square(0, 0, 9), Square(0, 0, 9)}), "0[1]");
}

TEST(NestingRings, TakesManyIslandsInALakeOfManyPoints) {
    Rings rings(2);
    for (int i = 0; i < 20000; ++i) {
        const double angle = i * 2.0 * 3.14159265358979 / 20000;
        rings[0].push_back({2000 * std::cos(angle), 2000 * std::sin(angle)});
        rings[1].push_back({1900 * std::cos(angle), 1900 * std::sin(angle)});
    }
    for (int i = 0; i < 1000; ++i) {
        rings.push_back(Square(i % 40 * 20 - 400, i / 40 * 20 - 250, 5));
    }
    const app::Feature region = RegionOf(rings);

    const auto polygons =
        app::NestRings(app::RingsOf(region.geometry.points, region.geometry.partSizes));

    EXPECT_EQ(polygons.size(), 1001U);
}

}  // namespace
