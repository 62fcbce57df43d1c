// GeoJSON to the byte.
#include "app/formats/geojson/GeoJsonWriter.h"

#include "app/base/Errors.h"
#include "tests/support/Features.h"
#include "tests/support/KeptMessages.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <string>
#include <vector>

namespace {

using app::GeoJsonForm;
using support::Column;
using support::PointAt;

class GeoJsonWriter : public testing::Test {
protected:
    std::string Written(const std::vector<app::Feature>& features,
                        const std::vector<app::LayerColumn>& columns = {},
                        GeoJsonForm form = GeoJsonForm::Lines, bool withStyles = false) {
        app::GeoJsonWriter writer(folder_.path() / "out.geojson", app::IfExists::Overwrite, form,
                                  withStyles, messages_.Reporter());
        app::LayerFacts layer;
        layer.name = "roads \"1\"";
        layer.columns = columns;
        writer.BeginLayer(layer);
        for (app::Feature feature : features) {
            writer.Write(feature);
        }
        EXPECT_TRUE(writer.Finish());
        return folder_.Read("out.geojson");
    }

    // The geometry of a single feature without properties.
    std::string GeometryOf(const app::Feature& feature) {
        const std::string line = Written({feature});
        const std::string key = "\"geometry\":";
        const std::size_t begin = line.find(key) + key.size();
        return line.substr(begin, line.size() - begin - std::string("}\n").size());
    }

    support::TemporaryFolder folder_;
    support::KeptMessages messages_;
};

TEST_F(GeoJsonWriter, WritesACollectionWithAFeaturePerLine) {
    EXPECT_EQ(Written({PointAt(1, 2, {std::int64_t{1}}), PointAt(3, 4, {std::int64_t{2}})},
                      {Column("id", app::ColumnKind::Integer)}, GeoJsonForm::Collection),
              "{\"type\":\"FeatureCollection\",\"name\":\"roads \\\"1\\\"\",\"features\":[\n"
              "{\"type\":\"Feature\",\"properties\":{\"id\":1},\"geometry\":{\"type\":\"Point\","
              "\"coordinates\":[1,2]}},\n"
              "{\"type\":\"Feature\",\"properties\":{\"id\":2},\"geometry\":{\"type\":\"Point\","
              "\"coordinates\":[3,4]}}\n"
              "]}\n");
}

TEST_F(GeoJsonWriter, WritesACollectionOfNothing) {
    EXPECT_EQ(Written({}, {}, GeoJsonForm::Collection),
              "{\"type\":\"FeatureCollection\",\"name\":\"roads \\\"1\\\"\",\"features\":[\n]}\n");
}

TEST_F(GeoJsonWriter, WritesLinesAndTextSequences) {
    const std::string feature = "{\"type\":\"Feature\",\"properties\":{},\"geometry\":{\"type\":"
                                "\"Point\",\"coordinates\":[1,2]}}\n";

    EXPECT_EQ(Written({PointAt(1, 2), PointAt(1, 2)}), feature + feature);
    EXPECT_EQ(Written({PointAt(1, 2), PointAt(1, 2)}, {}, GeoJsonForm::Sequence),
              "\x1E" + feature + "\x1E" + feature);
}

TEST_F(GeoJsonWriter, WritesValuesByTheirType) {
    const std::vector<app::LayerColumn> columns = {
        Column("a", app::ColumnKind::Integer), Column("b\"", app::ColumnKind::Char),
        Column("c", app::ColumnKind::Float), Column("d", app::ColumnKind::Logical),
        Column("e", app::ColumnKind::Date)};
    const std::string line = Written(
        {PointAt(1, 2,
                 {std::int64_t{-7}, std::string("x\n\xC3\xBC"), 0.1, true, std::monostate()})},
        columns);

    EXPECT_NE(line.find("{\"a\":-7,\"b\\\"\":\"x\\n\xC3\xBC\",\"c\":0.1,\"d\":true,\"e\":null}"),
              std::string::npos)
        << line;
}

TEST_F(GeoJsonWriter, WritesOuterRingsCounterClockwiseAndHolesClockwise) {
    const std::vector<shr::Vec2d> clockwise = {{0, 0}, {0, 9}, {9, 9}, {9, 0}};

    EXPECT_EQ(GeometryOf(support::RegionOf({clockwise, support::Square(2, 2, 1)})),
              "{\"type\":\"Polygon\",\"coordinates\":[[[0,0],[9,0],[9,9],[0,9],[0,0]],"
              "[[2,2],[2,3],[3,3],[3,2],[2,2]]]}");
}

TEST_F(GeoJsonWriter, WritesOuterRingsApartAsAMultiPolygon) {
    EXPECT_EQ(GeometryOf(support::RegionOf({support::Square(0, 0, 1), support::Square(5, 5, 1)})),
              "{\"type\":\"MultiPolygon\",\"coordinates\":[[[[0,0],[1,0],[1,1],[0,1],[0,0]]],"
              "[[[5,5],[6,5],[6,6],[5,6],[5,5]]]]}");
}

TEST_F(GeoJsonWriter, WritesPointsAndLines) {
    EXPECT_EQ(GeometryOf(support::PointsAt({{1, 2}, {3, 4}})),
              "{\"type\":\"MultiPoint\",\"coordinates\":[[1,2],[3,4]]}");
    EXPECT_EQ(GeometryOf(support::LineThrough({{1, 2}, {3, 4.5}})),
              "{\"type\":\"LineString\",\"coordinates\":[[1,2],[3,4.5]]}");
}

TEST_F(GeoJsonWriter, WritesRoundCoordinatesWithoutAnExponent) {
    EXPECT_EQ(GeometryOf(PointAt(500000, -6e6)),
              "{\"type\":\"Point\",\"coordinates\":[500000,-6000000]}");
    EXPECT_EQ(GeometryOf(PointAt(0.00001, 1e20)),
              "{\"type\":\"Point\",\"coordinates\":[0.00001,1e+20]}");
}

struct NullRow {
    const char* name;
    app::Feature feature;
};

std::ostream& operator<<(std::ostream& out, const NullRow& row) {
    return out << row.name;
}

class GeometryThatGeoJsonHasNot : public GeoJsonWriter,
                                  public testing::WithParamInterface<NullRow> {};

TEST_P(GeometryThatGeoJsonHasNot, IsNull) {
    EXPECT_EQ(GeometryOf(GetParam().feature), "null");
}

TEST_F(GeoJsonWriter, WarnsOfCoordinatesThatGiveNoGeometry) {
    const app::Feature collapsed = support::RegionOf({{{1, 1}, {2, 2}, {1, 1}}});

    Written({collapsed, support::LineThrough({{1, 2}}), PointAt(1, 2), collapsed});

    EXPECT_EQ(messages_.Text(), "qolf: warning: " + (folder_.path() / "out.geojson").string() +
                                    ": 3 objects have coordinates that give no geometry; written "
                                    "with a null geometry\n");
}

TEST_F(GeoJsonWriter, SaysNothingOfAnObjectWithoutCoordinates) {
    Written({app::Feature{}});

    EXPECT_EQ(messages_.Text(), "");
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();

INSTANTIATE_TEST_SUITE_P(
    , GeometryThatGeoJsonHasNot,
    testing::Values(NullRow{"None", app::Feature{}}, NullRow{"Infinite", PointAt(kInfinity, 1)},
                    NullRow{"LineOfOnePoint", support::LineThrough({{1, 2}})},
                    NullRow{"RegionOfTwoPoints", support::RegionOf({{{1, 2}, {3, 4}}})},
                    NullRow{"RegionThatEnclosesNothing",
                            support::RegionOf({{{1, 1}, {2, 2}, {1, 1}}})}),
    [](const auto& row) { return std::string(row.param.name); });

app::Feature TextAt(double x, double y) {
    app::Feature feature;
    feature.geometry.kind = app::GeometryKind::Text;
    feature.geometry.points = {{x, y}};
    feature.geometry.placement = {
        .text = "Lake", .angleDegrees = 30.0, .height = 2.5, .justify = app::Justify::Center};
    feature.geometry.style.font = app::Font{.name = "Arial"};
    return feature;
}

TEST_F(GeoJsonWriter, MakesAPointOfATextWithItsProperties) {
    EXPECT_EQ(Written({TextAt(1, 2)}),
              "{\"type\":\"Feature\",\"properties\":{\"text\":\"Lake\",\"angle\":30,\"height\":2.5,"
              "\"font\":\"Arial\",\"justify\":\"center\"},\"geometry\":{\"type\":\"Point\","
              "\"coordinates\":[1,2]}}\n");
}

TEST_F(GeoJsonWriter, GivesATextsPropertyThePlaceOfAColumnOfItsName) {
    app::Feature text = TextAt(1, 2);
    text.values = {std::string("column")};

    EXPECT_EQ(Written({text}, {Column("text", app::ColumnKind::Char)}).find("column"),
              std::string::npos);
}

TEST_F(GeoJsonWriter, WritesStylesWhenTold) {
    app::Feature line = support::LineThrough({{1, 2}, {3, 4}});
    line.geometry.style.pen = app::Pen{.width = 1, .pattern = 2, .color = 0xFF8000};

    EXPECT_EQ(Written({line}).find("stroke"), std::string::npos);
    EXPECT_NE(
        Written({line}, {}, GeoJsonForm::Lines, /*withStyles=*/true).find("\"stroke\":\"#ff8000\""),
        std::string::npos);
}

struct PenRow {
    std::string name;
    app::Pen pen;
    std::string stroke;
};
class StrokeOf : public GeoJsonWriter, public testing::WithParamInterface<PenRow> {};

TEST_P(StrokeOf, IsAsWideAsPicturesDrawIt) {
    app::Feature line = support::LineThrough({{1, 2}, {3, 4}});
    line.geometry.style.pen = GetParam().pen;

    EXPECT_NE(Written({line}, {}, GeoJsonForm::Lines, /*withStyles=*/true).find(GetParam().stroke),
              std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    , StrokeOf,
    testing::Values(
        PenRow{"Pixels", {.width = 4}, R"("stroke-width":4,"stroke-opacity":1)"},
        PenRow{"Points", {.width = 235}, R"("stroke-width":30,"stroke-opacity":1)"},
        PenRow{"ThirdsOfAPixel", {.width = 20}, R"("stroke-width":1.333,"stroke-opacity":1)"},
        PenRow{
            "APenOfNothing", {.width = 3, .pattern = 1}, R"("stroke-width":3,"stroke-opacity":0)"},
        PenRow{"NoWidth", {.width = 0}, R"("stroke-width":0,"stroke-opacity":1)"}),
    [](const auto& row) { return row.param.name; });

TEST_F(GeoJsonWriter, WritesTheSymbolOfAPoint) {
    app::Feature point = PointAt(1, 2);
    point.geometry.style.symbol = app::Symbol{.shape = 41, .color = 0xFF8000, .size = 18};

    EXPECT_NE(Written({point}, {}, GeoJsonForm::Lines, /*withStyles=*/true)
                  .find(R"("properties":{"marker-color":"#ff8000","marker-size":"large",)"
                        R"("marker-symbol":"star-stroked"})"),
              std::string::npos);
}

TEST_F(GeoJsonWriter, WritesTheStrokeOfATextThatHasOne) {
    app::Feature text = PointAt(1, 2);
    text.geometry.kind = app::GeometryKind::Text;
    text.geometry.style.font = app::Font{.name = "Arial"};
    text.geometry.style.pen = app::Pen{.pattern = 1};
    EXPECT_EQ(Written({text}, {}, GeoJsonForm::Lines, /*withStyles=*/true).find("stroke"),
              std::string::npos);
    text.geometry.style.pen = app::Pen{};

    EXPECT_NE(Written({text}, {}, GeoJsonForm::Lines, /*withStyles=*/true).find("stroke"),
              std::string::npos);
}

TEST_F(GeoJsonWriter, LeavesNothingWithoutItsEnd) {
    {
        app::GeoJsonWriter writer(folder_.path() / "out.geojson", app::IfExists::Refuse,
                                  GeoJsonForm::Lines, /*withStyles=*/false, messages_.Reporter());
        app::Feature point = PointAt(1, 2);
        writer.BeginLayer({});
        writer.Write(point);
    }

    EXPECT_FALSE(folder_.Has("out.geojson"));
}

TEST_F(GeoJsonWriter, RefusesAFileThatExists) {
    folder_.Write("out.geojson", "old");

    EXPECT_THROW(app::GeoJsonWriter(folder_.path() / "out.geojson", app::IfExists::Refuse,
                                    GeoJsonForm::Lines, /*withStyles=*/false, messages_.Reporter()),
                 app::Failure);
}

}  // namespace
