// Styles in a package: the column that numbers them, and the documents that QGIS reads.
// UPDATE_GOLDENS=1 rewrites the documents.
#include "app/formats/gpkg/StyleDocuments.h"

#include "app/formats/gpkg/XmlText.h"
#include "tests/formats/gpkg/Package.h"
#include "tests/support/Features.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

using support::PointAt;

app::Feature LineOf(const app::Pen& pen) {
    app::Feature line = support::LineThrough({{0, 0}, {1, 1}});
    line.geometry.style.pen = pen;
    return line;
}

app::Feature AreaOf(const app::Pen& pen, const app::Brush& brush) {
    app::Feature area = support::RegionOf({support::Square(0, 0, 1)});
    area.geometry.style.pen = pen;
    area.geometry.style.brush = brush;
    return area;
}

app::Feature SymbolOf(const app::Symbol& symbol) {
    app::Feature point = PointAt(1, 2);
    point.geometry.style.symbol = symbol;
    return point;
}

app::Feature TextOf(const std::string& text, const app::Font& font) {
    app::Feature feature = PointAt(1, 2);
    feature.geometry.kind = app::GeometryKind::Text;
    feature.geometry.placement.text = text;
    feature.geometry.placement.height = 10.0;
    feature.geometry.style.font = font;
    return feature;
}

// One style of each sort.
app::LayerStyles AllSorts() {
    app::LayerStyles styles;
    const app::Pen pen{.width = 1, .pattern = 2, .color = 0x102030};
    for (const app::Feature& feature :
         {LineOf(pen), LineOf({.width = 40, .pattern = 14, .color = 0xFF0000}),
          AreaOf(pen, {.pattern = 2, .fore = 0x00FF00}),
          AreaOf({.pattern = 1}, {.pattern = 1, .fore = 0}),
          AreaOf(pen, {.pattern = 8, .fore = 0x0000FF, .back = 0xFFFF00}),
          AreaOf(pen, {.pattern = 44, .fore = 0x0000FF}),
          SymbolOf({.shape = 35, .color = 0xFF00FF, .size = 18}),
          SymbolOf({.shape = 38, .color = 0xFF00FF, .size = 18}),
          SymbolOf({.shape = 31, .color = 0, .size = 12}),
          SymbolOf({.form = app::Symbol::Form::FontCharacter,
          .shape = 65,
          .color = 0x808080,
          .size = 24,
          .name = "Wingdings",
          .styleBits = 256,
          .rotationDegrees = 30.0}),
          TextOf("a", {.name = "Arial & <Sons>", .styleBits = 3, .fore = 0x123456}),
          TextOf("a", {.name = "Arial", .styleBits = 256, .fore = 0, .back = 0xFFFFFF}),
          PointAt(1, 2)}) {
        static_cast<void>(styles.NumberOf(feature));
    }
    return styles;
}

const app::StyledColumns kColumns{"style", "text", "angle", "height"};

void ExpectGolden(const std::string& name, const std::string& document) {
    const auto file = std::filesystem::path(QOLF_TEST_GOLDEN) / "gpkg" / name;
    if (std::getenv("UPDATE_GOLDENS") != nullptr) {
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << document;
    }
    std::ifstream in(file, std::ios::binary);
    EXPECT_EQ(document, std::string(std::istreambuf_iterator<char>(in), {})) << file;
}

TEST(StyleDocuments, AreTheseOfAllSortsOfStylesInQml) {
    ExpectGolden("styles.qml", app::QmlOf(AllSorts(), kColumns, 0));
}

TEST(StyleDocuments, AreTheseOfAllSortsOfStylesInSld) {
    ExpectGolden("styles.sld", app::SldOf(AllSorts(), kColumns, 0, "roads & <rails>"));
}

TEST(XmlText, EscapesMarkupAndDropsWhatXmlCannotHold) {
    app::XmlText xml;
    xml.Text("a", "<b>&\"\x01\xFF\u202E", {{"c", "\"<\n>"}});

    EXPECT_EQ(xml.Whole(), "<a c=\"&quot;&lt; &gt;\">&lt;b&gt;&amp;&quot;</a>\n");
}

TEST(LayerStyles, GiveTheSameNumberForTheSameLook) {
    app::LayerStyles styles;
    const app::Pen red{.color = 0xFF0000};
    const app::Pen blue{.color = 0x0000FF};

    EXPECT_EQ(styles.NumberOf(LineOf(red)), 1);
    EXPECT_EQ(styles.NumberOf(LineOf(blue)), 2);
    EXPECT_EQ(styles.NumberOf(LineOf(red)), 1);
    EXPECT_EQ(styles.NumberOf(AreaOf(red, {})), 3);
    EXPECT_EQ(styles.NumberOf(app::Feature()), std::nullopt);
    EXPECT_EQ(styles.All().size(), 3U);
}

TEST(LayerStyles, PassOverWhatIsNotSeen) {
    app::LayerStyles styles;
    app::Feature line = LineOf({});
    static_cast<void>(styles.NumberOf(line));
    line.geometry.style.brush = app::Brush{.pattern = 7};

    EXPECT_EQ(styles.NumberOf(line), 1);
}

TEST(LayerStyles, AreNotEndlessInNumber) {
    app::LayerStyles styles;
    for (std::size_t i = 0; i < app::LayerStyles::kMostStyles + 5; ++i) {
        static_cast<void>(styles.NumberOf(LineOf({.color = static_cast<std::uint32_t>(i)})));
    }

    EXPECT_EQ(styles.All().size(), app::LayerStyles::kMostStyles);
    EXPECT_EQ(styles.Replaced(), 5U);
    EXPECT_EQ(styles.NumberOf(LineOf({.color = 0xFFFFFF})), 1);
}

class StyledPackage : public gpkg_test::Package {};

TEST_F(StyledPackage, HasNoStylesUnlessTold) {
    WriteLayer({LineOf({.color = 0xFF0000})});

    EXPECT_EQ(Query("SELECT count(*) FROM sqlite_master WHERE name = 'layer_styles'"), "0");
    EXPECT_EQ(Query("SELECT count(*) FROM pragma_table_info('layer') WHERE name = 'style'"), "0");
}

TEST_F(StyledPackage, NumbersTheStylesInAColumn) {
    WithStyles();
    WriteLayer(
        {LineOf({.color = 0xFF0000}), LineOf({.color = 0x0000FF}), LineOf({.color = 0xFF0000})});

    EXPECT_EQ(Query("SELECT style FROM layer ORDER BY fid"), "1\n2\n1");
}

TEST_F(StyledPackage, LeavesAColumnOfTheFileItsName) {
    WithStyles();
    app::Feature line = LineOf({.color = 0xFF0000});
    line.values = {std::string("mine")};
    WriteLayer({line}, {support::Column("style", app::ColumnKind::Char)});

    EXPECT_EQ(Query("SELECT style, style_2 FROM layer"), "mine|1");
    EXPECT_EQ(Query("SELECT styleQML LIKE '%attr=\"style_2\"%' FROM layer_styles"), "1");
}

TEST_F(StyledPackage, HasOneDefaultStyleForEachLayer) {
    WithStyles();
    Writer().BeginLayer("one", {}, app::Wgs84Reference());
    Write(LineOf({.color = 0xFF0000}));
    Writer().BeginLayer("two", {}, app::Wgs84Reference());
    Write(LineOf({.color = 0x0000FF}));
    static_cast<void>(Writer().Finish());

    EXPECT_EQ(Query("SELECT f_table_name, f_geometry_column, useAsDefault FROM layer_styles"),
              "one|geom|1\ntwo|geom|1");
    EXPECT_EQ(Query("SELECT data_type FROM gpkg_contents WHERE table_name = 'layer_styles'"),
              "attributes");
}

TEST_F(StyledPackage, KeepsTheTablesNameFromALayer) {
    WithStyles();
    Writer().BeginLayer("layer_styles", {}, app::Wgs84Reference());
    Write(LineOf({.color = 0xFF0000}));
    static_cast<void>(Writer().Finish());

    EXPECT_EQ(Query("SELECT f_table_name FROM layer_styles"), "layer_styles_2");
}

TEST_F(StyledPackage, LabelsTextsByTheirColumns) {
    WithStyles();
    WriteLayer({TextOf("Hill", {.name = "Arial"})});

    EXPECT_EQ(Query("SELECT styleQML LIKE '%fieldName=\"text\"%' FROM layer_styles"), "1");
    EXPECT_EQ(Query("SELECT style, text FROM layer"), "1|Hill");
}

}  // namespace
