// Geometries of every type, byte order and dimension, and broken ones.
#include "app/formats/gpkg/BlobReader.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <sstream>

namespace {

// Puts blobs together in either byte order.
class Bytes {
public:
    explicit Bytes(bool isLittle = true) : isLittle_(isLittle) {}

    Bytes& Header(unsigned flags = 1, std::size_t envelopeBytes = 0) {
        bytes_ += std::string("GP\0", 3) + static_cast<char>(flags) + std::string(4, '\0') +
                  std::string(envelopeBytes, '\x11');
        return *this;
    }
    Bytes& Type(std::uint32_t type) {
        bytes_ += static_cast<char>(isLittle_ ? 1 : 0);
        return Whole(type);
    }
    Bytes& Whole(std::uint32_t value) { return Number(value); }
    Bytes& Reals(std::initializer_list<double> values) {
        for (const double value : values) {
            Number(value);
        }
        return *this;
    }
    const std::string& Text() const { return bytes_; }

private:
    template <typename Value> Bytes& Number(Value value) {
        std::string number(sizeof value, '\0');
        std::memcpy(number.data(), &value, sizeof value);
        bytes_ += isLittle_ ? number : std::string(number.rbegin(), number.rend());
        return *this;
    }

    bool isLittle_;
    std::string bytes_;
};

// "Line: 0,0 1,1", "Region 3 3: 0,0 ...", "MultiPoints: 1,2"; "" for None.
std::string TextOf(const app::Geometry& geometry) {
    std::ostringstream text;
    if (geometry.kind == app::GeometryKind::None) {
        return "";
    }
    text << (geometry.isMulti ? "Multi" : "")
         << (geometry.kind == app::GeometryKind::Points ? "Points"
             : geometry.kind == app::GeometryKind::Line ? "Line"
                                                        : "Region");
    if (geometry.kind == app::GeometryKind::Region || geometry.isMulti) {
        for (const std::size_t size : geometry.partSizes) {
            text << " " << size;
        }
    }
    text << ":";
    for (const shr::Vec2d& point : geometry.points) {
        text << " " << point.x << "," << point.y;
    }
    return text.str();
}

// The members of a collection a line each, behind "Collection".
std::string TextOf(const app::Feature& feature) {
    if (feature.geometry.kind != app::GeometryKind::Collection) {
        return TextOf(feature.geometry);
    }
    std::string text = "Collection";
    for (const app::Geometry& member : feature.members) {
        text += "\n" + TextOf(member);
    }
    return text;
}

app::Feature FeatureOf(std::string_view bytes) {
    app::Feature feature;
    app::ReadBlob(bytes, feature);
    return feature;
}

// A block of exactly the bytes, so that a read past them is seen.
std::string Read(std::string_view bytes) {
    const auto exact = std::make_unique<char[]>(bytes.size());
    std::memcpy(exact.get(), bytes.data(), bytes.size());
    return TextOf(FeatureOf({exact.get(), bytes.size()}));
}

std::string ErrorOf(std::string_view bytes) {
    try {
        static_cast<void>(Read(bytes));
    } catch (const app::BlobError& error) {
        return error.what();
    }
    return "none";
}

struct GeometryRow {
    std::string name;
    Bytes bytes;
    std::string pieces;
};
class ReadBlob : public testing::TestWithParam<GeometryRow> {};

TEST_P(ReadBlob, GivesA) {
    EXPECT_EQ(Read(GetParam().bytes.Text()), GetParam().pieces);
}

Bytes Little() {
    return Bytes().Header();
}

INSTANTIATE_TEST_SUITE_P(
    , ReadBlob,
    testing::Values(
        GeometryRow{"Point", Little().Type(1).Reals({1, 2}), "Points: 1,2"},
        GeometryRow{"PointWithHeight", Little().Type(1001).Reals({1, 2, 9}), "Points: 1,2"},
        GeometryRow{"PointWithMeasure", Little().Type(2001).Reals({1, 2, 9}), "Points: 1,2"},
        GeometryRow{"PointWithBoth", Little().Type(3001).Reals({1, 2, 9, 9}), "Points: 1,2"},
        GeometryRow{"PointWithExtendedHeight", Little().Type(0x80000001U).Reals({1, 2, 9}),
                    "Points: 1,2"},
        GeometryRow{"PointWithExtendedBoth", Little().Type(0xC0000001U).Reals({1, 2, 9, 9}),
                    "Points: 1,2"},
        GeometryRow{"PointWithExtendedSystem", Little().Type(0x20000001U).Whole(4326).Reals({1, 2}),
                    "Points: 1,2"},
        GeometryRow{"PointInBigEndian", Bytes(false).Header(0).Type(1).Reals({1, 2}),
                    "Points: 1,2"},
        GeometryRow{"PointBehindAnEnvelope", Bytes().Header(3, 32).Type(1).Reals({1, 2}),
                    "Points: 1,2"},
        GeometryRow{"PointBehindAnEnvelopeWithHeights", Bytes().Header(5, 48).Type(1).Reals({1, 2}),
                    "Points: 1,2"},
        GeometryRow{"PointBehindAnEnvelopeWithAll", Bytes().Header(9, 64).Type(1).Reals({1, 2}),
                    "Points: 1,2"},
        GeometryRow{"EmptyPoint", Little().Type(1).Reals({std::nan(""), std::nan("")}), ""},
        GeometryRow{"LineString", Little().Type(2).Whole(2).Reals({0, 0, 1, 1}), "Line: 0,0 1,1"},
        GeometryRow{"LineStringWithHeights", Little().Type(1002).Whole(2).Reals({0, 0, 9, 1, 1, 9}),
                    "Line: 0,0 1,1"},
        GeometryRow{"EmptyLineString", Little().Type(2).Whole(0), ""},
        GeometryRow{"LineStringOfOnePoint", Little().Type(2).Whole(1).Reals({0, 0}), ""},
        GeometryRow{"PolygonWithAHole",
                    Little()
                        .Type(3)
                        .Whole(2)
                        .Whole(3)
                        .Reals({0, 0, 9, 0, 0, 9})
                        .Whole(3)
                        .Reals({1, 1, 2, 1, 1, 2}),
                    "Region 3 3: 0,0 9,0 0,9 1,1 2,1 1,2"},
        GeometryRow{"EmptyPolygon", Little().Type(3).Whole(0), ""},
        GeometryRow{"Triangle", Little().Type(17).Whole(1).Whole(3).Reals({0, 0, 9, 0, 0, 9}),
                    "Region 3: 0,0 9,0 0,9"},
        GeometryRow{"MultiPoint",
                    Little().Type(4).Whole(2).Type(1).Reals({1, 2}).Type(1).Reals({3, 4}),
                    "MultiPoints: 1,2 3,4"},
        GeometryRow{"MultiLineString",
                    Little()
                        .Type(5)
                        .Whole(2)
                        .Type(2)
                        .Whole(2)
                        .Reals({0, 0, 1, 1})
                        .Type(2)
                        .Whole(2)
                        .Reals({2, 2, 3, 3}),
                    "MultiLine 2 2: 0,0 1,1 2,2 3,3"},
        GeometryRow{"MultiPolygon",
                    Little()
                        .Type(6)
                        .Whole(2)
                        .Type(3)
                        .Whole(1)
                        .Whole(3)
                        .Reals({0, 0, 1, 0, 0, 1})
                        .Type(3)
                        .Whole(1)
                        .Whole(3)
                        .Reals({5, 5, 6, 5, 5, 6}),
                    "Region 3 3: 0,0 1,0 0,1 5,5 6,5 5,6"},
        GeometryRow{"Collection",
                    Little()
                        .Type(7)
                        .Whole(3)
                        .Type(1)
                        .Reals({1, 2})
                        .Type(2)
                        .Whole(2)
                        .Reals({0, 0, 1, 1})
                        .Type(7)
                        .Whole(1)
                        .Type(1)
                        .Reals({3, 4}),
                    "Collection\nPoints: 1,2\nLine: 0,0 1,1\nPoints: 3,4"},
        GeometryRow{"CollectionOfEmptyOnes",
                    Little().Type(7).Whole(2).Type(2).Whole(0).Type(7).Whole(0), ""},
        GeometryRow{"MultiLineStringWithAnEmptyOne",
                    Little().Type(5).Whole(2).Type(2).Whole(0).Type(2).Whole(2).Reals({0, 0, 1, 1}),
                    "MultiLine 2: 0,0 1,1"},
        GeometryRow{"EmptyMultiLineString", Little().Type(5).Whole(0), ""},
        GeometryRow{"EmptyCollection", Little().Type(7).Whole(0), ""},
        GeometryRow{"CompoundCurve",
                    Little()
                        .Type(9)
                        .Whole(2)
                        .Type(2)
                        .Whole(2)
                        .Reals({0, 0, 1, 1})
                        .Type(2)
                        .Whole(2)
                        .Reals({1, 1, 2, 0}),
                    "Line: 0,0 1,1 2,0"},
        GeometryRow{"CircularStringThatIsStraight",
                    Little().Type(8).Whole(3).Reals({0, 0, 1, 1, 2, 2}), "Line: 0,0 1,1 2,2"},
        GeometryRow{"CurvePolygon",
                    Little().Type(10).Whole(1).Type(2).Whole(3).Reals({0, 0, 1, 0, 0, 1}),
                    "Region 3: 0,0 1,0 0,1"},
        GeometryRow{"MultiCurve", Little().Type(11).Whole(1).Type(2).Whole(2).Reals({0, 0, 1, 1}),
                    "MultiLine 2: 0,0 1,1"},
        GeometryRow{"MultiSurface",
                    Little().Type(12).Whole(1).Type(3).Whole(1).Whole(3).Reals({0, 0, 1, 0, 0, 1}),
                    "Region 3: 0,0 1,0 0,1"},
        GeometryRow{"PolyhedralSurface",
                    Little().Type(15).Whole(1).Type(3).Whole(1).Whole(3).Reals({0, 0, 1, 0, 0, 1}),
                    "Region 3: 0,0 1,0 0,1"},
        GeometryRow{"Tin",
                    Little().Type(16).Whole(1).Type(17).Whole(1).Whole(3).Reals({0, 0, 1, 0, 0, 1}),
                    "Region 3: 0,0 1,0 0,1"}),
    [](const auto& row) { return row.param.name; });

TEST(ReadingABlob, StrokesAnArcOnItsCircle) {
    const Bytes bytes = Little().Type(8).Whole(3).Reals({1, 0, 0, 1, -1, 0});

    const std::vector<shr::Vec2d> points = FeatureOf(bytes.Text()).geometry.points;

    ASSERT_EQ(points.size(), 33U);
    EXPECT_EQ(points.front(), (shr::Vec2d{1, 0}));
    EXPECT_EQ(points.back(), (shr::Vec2d{-1, 0}));
    EXPECT_NEAR(points[16].x, 0.0, 1e-12);
    EXPECT_NEAR(points[16].y, 1.0, 1e-12);
}

TEST(ReadingABlob, StrokesAFullCircleOfTwoEqualEnds) {
    const Bytes bytes = Little().Type(8).Whole(3).Reals({1, 0, -1, 0, 1, 0});

    const std::vector<shr::Vec2d> points = FeatureOf(bytes.Text()).geometry.points;

    ASSERT_EQ(points.size(), 65U);
    EXPECT_NEAR(points[16].y, 1.0, 1e-12);
}

TEST(ReadingABlob, TakesAnArcOnACircleBeyondAllNumbersForStraight) {
    const Bytes bytes = Little().Type(8).Whole(3).Reals({0, 0, 1e200, 1e200, 1e200, -1e199});

    EXPECT_EQ(FeatureOf(bytes.Text()).geometry.points.size(), 3U);
}

struct BrokenRow {
    std::string name;
    std::string bytes;
    std::string error;
};
class ReadBlobRefuses : public testing::TestWithParam<BrokenRow> {};

TEST_P(ReadBlobRefuses, A) {
    EXPECT_EQ(ErrorOf(GetParam().bytes), GetParam().error);
}

Bytes Nested(int depth) {
    Bytes bytes = Little();
    for (int i = 0; i < depth; ++i) {
        bytes.Type(7).Whole(1);
    }
    return bytes.Type(1).Reals({1, 2});
}

Bytes NestedCurve(int depth) {
    Bytes bytes = Little();
    for (int i = 0; i < depth; ++i) {
        bytes.Type(9).Whole(1);
    }
    return bytes.Type(2).Whole(0);
}

INSTANTIATE_TEST_SUITE_P(
    , ReadBlobRefuses,
    testing::Values(
        BrokenRow{"BlobOfNothing", "", "the geometry ends too early"},
        BrokenRow{"BlobOfAnotherKind", "abcdefghijklmnop",
                  "the geometry is not a GeoPackage geometry"},
        BrokenRow{"HeaderAlone", Little().Text(), "the geometry ends too early"},
        BrokenRow{"HeaderWithAnUnknownEnvelope", Bytes().Header(11, 64).Text(),
                  "the geometry has an unknown envelope"},
        BrokenRow{"HeaderOfAnExtendedGeometry", Bytes().Header(33).Text(),
                  "the geometry is of a kind that the standard does not define"},
        BrokenRow{"ByteOrderThatIsNone", Little().Text() + "\x02\x01\x00\x00\x00",
                  "the geometry has an unknown byte order"},
        BrokenRow{"TypeThatIsNone", Little().Type(99).Text(),
                  "the geometry has the unknown type 99"},
        BrokenRow{"TypeOfTooManyThousands", Little().Type(4001).Text(),
                  "the geometry has the unknown type 4001"},
        BrokenRow{"CountBeyondTheBytes", Little().Type(2).Whole(0xFFFFFFFFU).Reals({0, 0}).Text(),
                  "the geometry ends too early"},
        BrokenRow{"RingCountBeyondTheBytes", Little().Type(3).Whole(0x40000000U).Text(),
                  "the geometry ends too early"},
        BrokenRow{"PointCutShort", Little().Type(1).Reals({1}).Text(),
                  "the geometry ends too early"},
        BrokenRow{"MultiPointOfALine",
                  Little()
                      .Type(4)
                      .Whole(2)
                      .Type(1)
                      .Reals({1, 2})
                      .Type(2)
                      .Whole(2)
                      .Reals({0, 0, 1, 1})
                      .Text(),
                  "the geometry has parts of several types"},
        BrokenRow{"RingOfAPointInACurvePolygon",
                  Little().Type(10).Whole(1).Type(1).Reals({1, 2}).Text(),
                  "the geometry has a curve of an unknown type"},
        BrokenRow{"DeepNesting", Nested(40).Text(), "the geometry is nested too deeply"},
        BrokenRow{"DeepNestingOfCurves", NestedCurve(40).Text(),
                  "the geometry is nested too deeply"}),
    [](const auto& row) { return row.param.name; });

TEST(ReadingABlob, TakesTheNestingOfThirtyTwoCollections) {
    EXPECT_EQ(Read(Nested(32).Text()), "Collection\nPoints: 1,2");
}

}  // namespace
