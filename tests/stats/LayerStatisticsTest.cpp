#include "app/stats/LayerStatistics.h"

#include "tests/support/Features.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

namespace {

using app::GeometryKind;
using app::LayerStatistics;

const app::KindStatistics& KindOf(const LayerStatistics& layer, GeometryKind kind) {
    return layer.Kinds()[static_cast<std::size_t>(kind)];
}

TEST(LayerStatistics, CountObjectsByKindWithTheirExtents) {
    LayerStatistics layer({});
    layer.Take(support::PointAt(1, 2));
    layer.Take(support::PointAt(5, -2));
    layer.Take(support::LineThrough({{0, 0}, {3, 4}}));
    layer.Take(support::EllipseIn({10, 10, 12, 11}));

    EXPECT_EQ(layer.Features(), 4U);
    EXPECT_EQ(KindOf(layer, GeometryKind::Points).count, 2U);
    EXPECT_EQ(KindOf(layer, GeometryKind::Points).extent, (shr::Box2d{1, -2, 5, 2}));
    EXPECT_EQ(KindOf(layer, GeometryKind::Line).extent, (shr::Box2d{0, 0, 3, 4}));
    EXPECT_EQ(KindOf(layer, GeometryKind::Ellipse).count, 1U);
    EXPECT_EQ(KindOf(layer, GeometryKind::Region).extent, std::nullopt);
    EXPECT_EQ(layer.Extent(), (shr::Box2d{0, -2, 12, 11}));
}

TEST(LayerStatistics, NameEveryKind) {
    const LayerStatistics layer({});

    std::string names;
    for (const app::KindStatistics& kind : layer.Kinds()) {
        names += std::string(kind.name) + ";";
    }
    EXPECT_EQ(names, "without place;points;lines;regions;rectangles;ellipses;arcs;texts;"
                     "collections;");
    EXPECT_EQ(layer.Extent(), std::nullopt);
}

TEST(LayerStatistics, TakeTheMembersOfACollectionForItsExtent) {
    LayerStatistics layer({});
    app::Feature collection;
    collection.geometry.kind = GeometryKind::Collection;
    collection.members = {support::PointAt(1, 1).geometry, support::PointAt(2, 3).geometry};
    layer.Take(collection);

    EXPECT_EQ(KindOf(layer, GeometryKind::Collection).extent, (shr::Box2d{1, 1, 2, 3}));
    EXPECT_EQ(KindOf(layer, GeometryKind::Points).count, 0U);
}

TEST(LayerStatistics, LeaveCoordinatesThatAreNoNumbersOutOfTheExtent) {
    LayerStatistics layer({});
    layer.Take(support::PointAt(std::numeric_limits<double>::quiet_NaN(), 1));

    EXPECT_EQ(KindOf(layer, GeometryKind::Points).count, 1U);
    EXPECT_EQ(layer.Extent(), std::nullopt);
}

TEST(LayerStatistics, TakeMissingValuesAsNull) {
    LayerStatistics layer({support::Column("a", app::ColumnKind::Integer),
                           support::Column("b", app::ColumnKind::Integer)});
    layer.Take(support::PointAt(1, 2, {std::int64_t{3}}));

    EXPECT_EQ(layer.Values()[0].Filled(), 1U);
    EXPECT_EQ(layer.Values()[1].Filled(), 0U);
}

}  // namespace
