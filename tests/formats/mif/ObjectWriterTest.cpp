// Objects and their clauses as text.
#include "app/formats/mif/ObjectWriter.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using app::Geometry;
using app::GeometryKind;

app::Feature FeatureOf(Geometry geometry, std::vector<Geometry> members = {}) {
    app::Feature feature;
    feature.geometry = std::move(geometry);
    feature.members = std::move(members);
    return feature;
}

Geometry GeometryOf(GeometryKind kind, std::vector<shr::Vec2d> points,
                    std::vector<std::size_t> partSizes = {}) {
    Geometry geometry;
    geometry.kind = kind;
    geometry.points = std::move(points);
    geometry.partSizes = std::move(partSizes);
    return geometry;
}

Geometry Boxed(GeometryKind kind) {
    Geometry geometry;
    geometry.kind = kind;
    geometry.box = {1, 2, 3.5, 4};
    return geometry;
}

// The geometry after a change to it.
template <typename Change> Geometry With(Geometry geometry, Change change) {
    change(geometry);
    return geometry;
}

Geometry TextAt(const std::string& text, const shr::Box2d& box) {
    Geometry geometry = GeometryOf(GeometryKind::Text, {{box.minX, box.minY}});
    geometry.placement.text = text;
    geometry.placement.box = box;
    return geometry;
}

std::string Written(const app::Feature& feature, const app::ObjectChoices& choices = {}) {
    app::PairCharset charset;
    app::ObjectWriter writer(choices, charset);
    std::string text;
    writer.Append(text, feature);
    return text;
}

struct ObjectRow {
    std::string name;
    app::Feature feature;
    std::string text;
};
void PrintTo(const ObjectRow& row, std::ostream* out) {
    *out << row.name;
}
class AnObject : public testing::TestWithParam<ObjectRow> {};

TEST_P(AnObject, IsWrittenAs) {
    EXPECT_EQ(Written(GetParam().feature), GetParam().text);
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();
const std::vector<shr::Vec2d> kTriangle = {{0, 0}, {4, 0}, {2, 3}, {0, 0}};

INSTANTIATE_TEST_SUITE_P(
    Points, AnObject,
    testing::Values(
        ObjectRow{"Point", FeatureOf(GeometryOf(GeometryKind::Points, {{500000, 6543210.25}})),
                  "Point 500000 6543210.25\n"},
        ObjectRow{"Multipoint", FeatureOf(GeometryOf(GeometryKind::Points, {{1, 2}, {3, 4}})),
                  "Multipoint 2\n1 2\n3 4\n"},
        ObjectRow{"MultipointOfOne",
                  FeatureOf(With(GeometryOf(GeometryKind::Points, {{1, 2}}),
                                 [](Geometry& g) { g.isMulti = true; })),
                  "Multipoint 1\n1 2\n"},
        ObjectRow{"AShapeSymbol",
                  FeatureOf(With(GeometryOf(GeometryKind::Points, {{1, 2}}),
                                 [](Geometry& g) {
                                     g.style.symbol =
                                         app::Symbol{.shape = 34, .color = 255, .size = 9};
                                 })),
                  "Point 1 2\n    Symbol (34,255,9)\n"},
        ObjectRow{"AFontSymbol",
                  FeatureOf(With(GeometryOf(GeometryKind::Points, {{1, 2}}),
                                 [](Geometry& g) {
                                     g.style.symbol =
                                         app::Symbol{.form = app::Symbol::Form::FontCharacter,
                                                     .shape = 65,
                                                     .color = 255,
                                                     .size = 24,
                                                     .name = "Map Symbols",
                                                     .styleBits = 17,
                                                     .rotationDegrees = 22.5};
                                 })),
                  "Point 1 2\n    Symbol (65,255,24,\"Map Symbols\",17,22.5)\n"},
        ObjectRow{"ABitmapSymbol",
                  FeatureOf(With(GeometryOf(GeometryKind::Points, {{1, 2}}),
                                 [](Geometry& g) {
                                     g.style.symbol = app::Symbol{.form = app::Symbol::Form::Bitmap,
                                                                  .color = 255,
                                                                  .size = 24,
                                                                  .name = "PIN1.BMP",
                                                                  .styleBits = 2};
                                 })),
                  "Point 1 2\n    Symbol (\"PIN1.BMP\",255,24,2)\n"},
        ObjectRow{"NoPenOfAPoint",
                  FeatureOf(With(GeometryOf(GeometryKind::Points, {{1, 2}}),
                                 [](Geometry& g) { g.style.pen.emplace(); })),
                  "Point 1 2\n"}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Lines, AnObject,
    testing::Values(
        ObjectRow{"LineOfTwoVertices", FeatureOf(GeometryOf(GeometryKind::Line, {{0, 1}, {2, 3}})),
                  "Line 0 1 2 3\n"},
        ObjectRow{"ASmoothLine",
                  FeatureOf(With(GeometryOf(GeometryKind::Line, {{0, 1}, {2, 3}}),
                                 [](Geometry& g) {
                                     g.isSmooth = true;
                                     g.style.pen = app::Pen{2, 5, 255};
                                 })),
                  "Pline 2\n0 1\n2 3\n    Pen (2,5,255)\n    Smooth\n"},
        ObjectRow{"Pline", FeatureOf(GeometryOf(GeometryKind::Line, {{0, 1}, {2, 3}, {4, 5}})),
                  "Pline 3\n0 1\n2 3\n4 5\n"},
        ObjectRow{"PlineOfTwoVertices",
                  FeatureOf(With(GeometryOf(GeometryKind::Line, {{0, 1}, {2, 3}}),
                                 [](Geometry& g) { g.isPolyline = true; })),
                  "Pline 2\n0 1\n2 3\n"},
        ObjectRow{"PlineOfOneVertex", FeatureOf(GeometryOf(GeometryKind::Line, {{0, 1}})),
                  "Pline 1\n0 1\n"},
        ObjectRow{"PlineMultiple",
                  FeatureOf(GeometryOf(GeometryKind::Line, {{0, 1}, {2, 3}, {4, 5}, {6, 7}, {8, 9}},
                                       {2, 3})),
                  "Pline Multiple 2\n  2\n0 1\n2 3\n  3\n4 5\n6 7\n8 9\n"},
        ObjectRow{"PlineMultipleOfOne",
                  FeatureOf(With(GeometryOf(GeometryKind::Line, {{0, 1}, {2, 3}}),
                                 [](Geometry& g) { g.isMulti = true; })),
                  "Pline Multiple 1\n  2\n0 1\n2 3\n"},
        ObjectRow{"NoBrushOfALine",
                  FeatureOf(With(GeometryOf(GeometryKind::Line, {{0, 1}, {2, 3}}),
                                 [](Geometry& g) {
                                     g.style.pen = app::Pen{1, 44, 0};
                                     g.style.brush.emplace();
                                 })),
                  "Line 0 1 2 3\n    Pen (1,44,0)\n"}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Areas, AnObject,
    testing::Values(
        ObjectRow{"Region", FeatureOf(GeometryOf(GeometryKind::Region, kTriangle, {4})),
                  "Region 1\n  4\n0 0\n4 0\n2 3\n0 0\n"},
        ObjectRow{"RegionWithAHole",
                  FeatureOf(GeometryOf(GeometryKind::Region,
                                       {{0, 0}, {4, 0}, {2, 3}, {1, 1}, {2, 1}, {2, 2}}, {3, 3})),
                  "Region 2\n  3\n0 0\n4 0\n2 3\n  3\n1 1\n2 1\n2 2\n"},
        ObjectRow{"NoEmptyRing", FeatureOf(GeometryOf(GeometryKind::Region, kTriangle, {0, 4, 0})),
                  "Region 1\n  4\n0 0\n4 0\n2 3\n0 0\n"},
        ObjectRow{"ClausesOfARegion",
                  FeatureOf(With(GeometryOf(GeometryKind::Region, kTriangle, {4}),
                                 [](Geometry& g) {
                                     g.style.pen = app::Pen{15, 2, 255};
                                     g.style.brush = app::Brush{.pattern = 5, .fore = 16711680};
                                     g.center = shr::Vec2d{2, 1.5};
                                 })),
                  "Region 1\n  4\n0 0\n4 0\n2 3\n0 0\n    Pen (15,2,255)\n    Brush "
                  "(5,16711680)\n    Center 2 1.5\n"},
        ObjectRow{"Rect", FeatureOf(Boxed(GeometryKind::Rectangle)), "Rect 1 2 3.5 4\n"},
        ObjectRow{"Roundrect",
                  FeatureOf(With(Boxed(GeometryKind::Rectangle),
                                 [](Geometry& g) {
                                     g.radiusX = 0.25;
                                     g.radiusY = 0.25;
                                     g.style.brush = app::Brush{3, 255, 65535};
                                 })),
                  "Roundrect 1 2 3.5 4 0.25\n    Brush (3,255,65535)\n"},
        ObjectRow{"Ellipse", FeatureOf(Boxed(GeometryKind::Ellipse)), "Ellipse 1 2 3.5 4\n"},
        ObjectRow{"Arc",
                  FeatureOf(With(Boxed(GeometryKind::Arc),
                                 [](Geometry& g) {
                                     g.startDegrees = 30.5;
                                     g.endDegrees = 270;
                                     g.style.pen = app::Pen{1, 2, 0};
                                     g.style.brush.emplace();
                                 })),
                  "Arc 1 2 3.5 4\n  30.5 270\n    Pen (1,2,0)\n"}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Texts, AnObject,
    testing::Values(
        ObjectRow{"Text", FeatureOf(TextAt("Main Street", {10, 20, 60, 30})),
                  "Text \"Main Street\"\n    10 20 60 30\n"},
        ObjectRow{"QuotesAndLines", FeatureOf(TextAt("a \"b\"\nc\r\nd\\e", {10, 20, 60, 30})),
                  "Text \"a \"\"b\"\"\\nc\\nd\\e\"\n    10 20 60 30\n"},
        ObjectRow{"AllClauses",
                  FeatureOf(With(TextAt("x", {10, 20, 60, 30}),
                                 [](Geometry& g) {
                                     g.placement.angleDegrees = 45.9;
                                     g.placement.justify = app::Justify::Right;
                                     g.placement.lineSpacing = 1.5;
                                     g.placement.labelLine = app::LabelLine{true, {100, 120}};
                                     g.style.font = app::Font{.name = "Arial",
                                                              .styleBits = 6,
                                                              .fore = 255,
                                                              .back = 65535};
                                 })),
                  "Text \"x\"\n    10 20 60 30\n    Font (\"Arial\",6,0,255,65535)\n    Spacing "
                  "1.5\n    Justify Right\n    Angle 45.9\n    Label Line Arrow 100 120\n"},
        ObjectRow{"Centered",
                  FeatureOf(With(TextAt("x", {10, 20, 60, 30}),
                                 [](Geometry& g) {
                                     g.placement.justify = app::Justify::Center;
                                     g.placement.labelLine = app::LabelLine{false, {1, 2}};
                                 })),
                  "Text \"x\"\n    10 20 60 30\n    Justify Center\n    Label Line Simple 1 2\n"},
        ObjectRow{"ABoxOfItsLettersWithoutOne",
                  FeatureOf(With(GeometryOf(GeometryKind::Text, {{10, 20}}),
                                 [](Geometry& g) {
                                     g.placement.text = "ab\ncde";
                                     g.placement.height = 10;
                                 })),
                  "Text \"ab\\ncde\"\n    10 20 31 40\n"},
        ObjectRow{"ABoxAboutItsUpperLeftCornerWhenTurned",
                  FeatureOf(With(GeometryOf(GeometryKind::Text, {{10, 20}}),
                                 [](Geometry& g) {
                                     g.placement.text = "ab";
                                     g.placement.height = 10;
                                     g.placement.angleDegrees = 90;
                                 })),
                  "Text \"ab\"\n    0 10 14 20\n    Angle 90\n"}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Collections, AnObject,
    testing::Values(
        ObjectRow{"EachMemberWithItsStyle",
                  FeatureOf(GeometryOf(GeometryKind::Collection, {}),
                            {GeometryOf(GeometryKind::Region, kTriangle, {4}),
                             With(GeometryOf(GeometryKind::Line, {{0, 1}, {2, 3}}),
                                  [](Geometry& g) {
                                      g.style.pen = app::Pen{1, 2, 3};
                                  }),
                             GeometryOf(GeometryKind::Points, {{5, 6}})}),
                  "Collection 3\nRegion 1\n  4\n0 0\n4 0\n2 3\n0 0\nPline 2\n0 1\n2 3\n    Pen "
                  "(1,2,3)\nMultipoint 1\n5 6\n"},
        ObjectRow{"MembersOfOneKindAsOnePart",
                  FeatureOf(GeometryOf(GeometryKind::Collection, {}),
                            {GeometryOf(GeometryKind::Points, {{1, 2}}),
                             GeometryOf(GeometryKind::Line, {{0, 1}, {2, 3}}),
                             GeometryOf(GeometryKind::Points, {{3, 4}}),
                             GeometryOf(GeometryKind::Line, {{4, 5}, {6, 7}, {8, 9}}),
                             GeometryOf(GeometryKind::Region, kTriangle, {4}),
                             GeometryOf(GeometryKind::Region, kTriangle, {4})}),
                  "Collection 3\nMultipoint 2\n1 2\n3 4\nPline Multiple 2\n  2\n0 1\n2 3\n  3\n4 "
                  "5\n6 7\n8 9\nRegion 2\n  4\n0 0\n4 0\n2 3\n0 0\n  4\n0 0\n4 0\n2 3\n0 0\n"},
        ObjectRow{"MembersOfDifferentStylesAsTheyAre",
                  FeatureOf(GeometryOf(GeometryKind::Collection, {}),
                            {GeometryOf(GeometryKind::Line, {{0, 1}, {2, 3}}),
                             With(GeometryOf(GeometryKind::Line, {{0, 1}, {2, 3}}),
                                  [](Geometry& g) {
                                      g.style.pen = app::Pen{1, 2, 3};
                                  })}),
                  "Collection 2\nPline 2\n0 1\n2 3\nPline 2\n0 1\n2 3\n    Pen (1,2,3)\n"},
        ObjectRow{"NoMembers", FeatureOf(GeometryOf(GeometryKind::Collection, {})), "None\n"}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Nothing, AnObject,
    testing::Values(
        ObjectRow{"WithoutGeometry", FeatureOf({}), "None\n"},
        ObjectRow{"WithoutVertices", FeatureOf(GeometryOf(GeometryKind::Line, {})), "None\n"},
        ObjectRow{"AtNoPlace", FeatureOf(GeometryOf(GeometryKind::Points, {{1, kInfinity}})),
                  "None\n"},
        ObjectRow{"AMemberAtNoPlace",
                  FeatureOf(GeometryOf(GeometryKind::Collection, {}),
                            {GeometryOf(GeometryKind::Points, {{1, kInfinity}})}),
                  "None\n"},
        ObjectRow{"ABoxAtNoPlace",
                  FeatureOf(With(Boxed(GeometryKind::Ellipse),
                                 [](Geometry& g) { g.box.maxX = kInfinity; })),
                  "None\n"}),
    [](const auto& row) { return row.param.name; });

TEST(AnObjectWriter, CountsWhatHasNoPlace) {
    app::PairCharset charset;
    app::ObjectWriter writer({}, charset);
    std::string text;

    writer.Append(text, FeatureOf(GeometryOf(GeometryKind::Points, {{1, kInfinity}})));
    writer.Append(text, FeatureOf({}));

    EXPECT_EQ(writer.UnplacedCount(), 1U);
}

TEST(AnObjectWriter, WritesAreasAsPolylinesWhenToldSo) {
    EXPECT_EQ(Written(FeatureOf(GeometryOf(GeometryKind::Region, kTriangle, {4})),
                      {.areasToCurves = true}),
              "Pline 4\n0 0\n4 0\n2 3\n0 0\n");
}

TEST(AnObjectWriter, LeavesOutTextsAndPointsWhenToldSo) {
    app::PairCharset charset;
    const app::ObjectWriter writer({.hasTexts = false, .hasPoints = false}, charset);

    EXPECT_FALSE(writer.Wants(FeatureOf(TextAt("x", {0, 0, 1, 1}))));
    EXPECT_FALSE(writer.Wants(FeatureOf(GeometryOf(GeometryKind::Points, {{1, 2}}))));
    EXPECT_TRUE(writer.Wants(FeatureOf({})));
}

TEST(AnObjectWriter, LeavesPointsOutOfCollectionsWhenToldSo) {
    EXPECT_EQ(Written(FeatureOf(GeometryOf(GeometryKind::Collection, {}),
                                {GeometryOf(GeometryKind::Points, {{1, 2}}),
                                 GeometryOf(GeometryKind::Line, {{0, 1}, {2, 3}})}),
                      {.hasPoints = false}),
              "Collection 1\nPline 2\n0 1\n2 3\n");
}

TEST(AnObjectWriter, KnowsTheBoxOfEverything) {
    app::PairCharset charset;
    app::ObjectWriter writer({}, charset);
    std::string text;

    EXPECT_TRUE(writer.Bounds().IsEmpty());
    writer.Append(text, FeatureOf(GeometryOf(GeometryKind::Points, {{-1, 9}})));
    writer.Append(text, FeatureOf(Boxed(GeometryKind::Ellipse)));

    EXPECT_EQ(writer.Bounds(), (shr::Box2d{-1, 2, 3.5, 9}));
}

struct VersionRow {
    std::string name;
    app::Feature (*feature)();  // made by the test: one has a million vertices
    int version;
};
void PrintTo(const VersionRow& row, std::ostream* out) {
    *out << row.name;
}
class TheVersionOf : public testing::TestWithParam<VersionRow> {};

TEST_P(TheVersionOf, Is) {
    app::PairCharset charset;
    app::ObjectWriter writer({}, charset);
    std::string text;

    writer.Append(text, GetParam().feature());

    EXPECT_EQ(writer.Version(), GetParam().version);
}

app::Feature LineOf(std::size_t vertices) {
    return FeatureOf(GeometryOf(GeometryKind::Line, std::vector<shr::Vec2d>(vertices)));
}

app::Feature BoxWithPen(int width) {
    return FeatureOf(With(Boxed(GeometryKind::Rectangle), [width](Geometry& g) {
        g.style.pen = app::Pen{width, 2, 0};
    }));
}

INSTANTIATE_TEST_SUITE_P(
    , TheVersionOf,
    testing::Values(
        VersionRow{"ALine", [] { return LineOf(4084); }, 300},
        VersionRow{"ALargeLine", [] { return LineOf(4085); }, 450},
        VersionRow{"AVeryLargeLine", [] { return LineOf(1'000'001); }, 800},
        VersionRow{"APenOfPoints", [] { return BoxWithPen(11); }, 450},
        VersionRow{"APenOfPixels", [] { return BoxWithPen(10); }, 300},
        VersionRow{"AMultipoint",
                   [] {
                       return FeatureOf(GeometryOf(GeometryKind::Points, {{1, 2}, {3, 4}}));
                   },
                   650},
        VersionRow{"ACollection",
                   [] {
                       return FeatureOf(GeometryOf(GeometryKind::Collection, {}),
                                        {GeometryOf(GeometryKind::Line, {{0, 1}, {2, 3}})});
                   },
                   650}),
    [](const auto& row) { return row.param.name; });

TEST(TheVersionOfManyLines, IsThatOfTheModule) {
    app::PairCharset charset;
    app::ObjectWriter writer({}, charset);
    std::string text;

    for (int i = 0; i < 32000; ++i) {
        writer.Append(text, LineOf(3));
    }
    EXPECT_EQ(writer.Version(), 300);
    writer.Append(text, LineOf(3));

    EXPECT_EQ(writer.Version(), 800);
}

}  // namespace
