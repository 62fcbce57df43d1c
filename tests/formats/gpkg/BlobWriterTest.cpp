// The bytes of geometries.
#include "app/formats/gpkg/BlobWriter.h"
#include "app/feature/Feature.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using app::BlobWriter;
using app::GeometryType;

std::string Hex(std::string_view bytes) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string hex;
    for (const char c : bytes) {
        hex += kDigits[static_cast<unsigned char>(c) >> 4];
        hex += kDigits[static_cast<unsigned char>(c) & 15];
    }
    return hex;
}

// 1.0, 2.0, 3.0 and 4.0 as little-endian doubles.
const std::string kOne = "000000000000F03F";
const std::string kTwo = "0000000000000040";
const std::string kThree = "0000000000000840";
const std::string kFour = "0000000000001040";

TEST(BlobWriter, WritesAPointWithoutEnvelope) {
    BlobWriter writer(4326);

    writer.Begin(GeometryType::Point, {});
    writer.Point({1, 2});

    EXPECT_EQ(Hex(writer.Blob()), "47500001E61000000101000000" + kOne + kTwo);
}

TEST(BlobWriter, WritesALineWithItsEnvelope) {
    const std::vector<shr::Vec2d> points{{1, 2}, {3, 4}};
    BlobWriter writer(-1);

    writer.Begin(GeometryType::LineString, app::BoxOf(points));
    writer.Points(points);

    EXPECT_EQ(Hex(writer.Blob()), "47500003FFFFFFFF" + kOne + kThree + kTwo + kFour +
                                      "010200000002000000" + kOne + kTwo + kThree + kFour);
}

TEST(BlobWriter, ClosesARingThatIsOpen) {
    const std::vector<shr::Vec2d> open{{1, 1}, {2, 1}, {2, 2}};
    const std::vector<shr::Vec2d> closed{{1, 1}, {2, 1}, {2, 2}, {1, 1}};
    BlobWriter fromOpen(0);
    BlobWriter fromClosed(0);

    fromOpen.Ring(open);
    fromClosed.Ring(closed);

    EXPECT_EQ(Hex(fromOpen.Blob()), Hex(fromClosed.Blob()));
}

TEST(BlobWriter, StartsEachGeometryAnew) {
    BlobWriter writer(0);
    writer.Begin(GeometryType::Point, {});
    writer.Point({1, 2});
    const std::string first(writer.Blob());

    writer.Begin(GeometryType::Point, {});
    writer.Point({1, 2});

    EXPECT_EQ(writer.Blob(), first);
}

TEST(PromotedToMulti, GivesAPointAnEnvelopeAndACount) {
    BlobWriter writer(0);
    writer.Begin(GeometryType::Point, {});
    writer.Point({1, 2});

    EXPECT_EQ(Hex(app::PromotedToMulti(writer.Blob())), "4750000300000000" + kOne + kOne + kTwo +
                                                            kTwo + "010400000001000000" +
                                                            "0101000000" + kOne + kTwo);
}

TEST(PromotedToMulti, LeavesACollectingGeometryAsItIs) {
    BlobWriter writer(0);
    writer.Begin(GeometryType::MultiPoint, {});
    writer.Count(0);

    EXPECT_EQ(app::PromotedToMulti(writer.Blob()), writer.Blob());
}

TEST(BoxOf, IsEmptyWithoutPoints) {
    EXPECT_TRUE(app::BoxOf(std::vector<shr::Vec2d>()).IsEmpty());
}

TEST(BoxOf, IsEmptyWithACoordinateThatIsNoNumber) {
    const std::vector<shr::Vec2d> points{{1, 2}, {std::nan(""), 3}};

    EXPECT_TRUE(app::BoxOf(points).IsEmpty());
}

TEST(BoxOf, IsEmptyWithAnInfiniteCoordinate) {
    const std::vector<shr::Vec2d> points{{1, 2}, {1, -HUGE_VAL}};

    EXPECT_TRUE(app::BoxOf(points).IsEmpty());
}

TEST(BoxOf, HoldsAllPoints) {
    const std::vector<shr::Vec2d> points{{1, 2}, {-3, 8}, {0, -1}};

    EXPECT_EQ(app::BoxOf(points), (shr::Box2d{-3, -1, 1, 8}));
}

}  // namespace
