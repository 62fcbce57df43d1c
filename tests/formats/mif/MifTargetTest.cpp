// Features to pairs: whole files, byte for byte, and what is said of them. UPDATE_GOLDENS=1
// rewrites the files.
#include "app/formats/mif/MifTarget.h"

#include "app/base/Errors.h"
#include "app/crs/ReadClause.h"
#include "tests/support/Features.h"
#include "tests/support/KeptMessages.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

namespace {

using app::ColumnKind;
using app::Feature;
using app::GeometryKind;
using app::Value;
using support::Column;
using support::LineThrough;
using support::PointAt;
using support::RegionOf;
using support::Square;

const std::string kCyrillic = "\u0416\u0443\u043A\u043E\u0432\u043E";

class MifTarget : public testing::Test {
protected:
    MifTarget() {
        options_.noStore = true;
        options_.modulePath = QOLF_MODULE;
        layer_.name = "layer";
        layer_.system = std::make_shared<const app::CoordinateSystem>(
            app::ReadClause("Earth Projection 1, 104"));
    }

    bool Write(const std::vector<Feature>& features) {
        app::MifTarget target(folder_.path() / "out.mif", options_, messages_.Reporter());
        target.BeginLayer(layer_);
        for (Feature feature : features) {
            target.Write(feature);
        }
        return target.Finish();
    }

    // What was said of the output, without the names of program and file.
    std::string Messages() const {
        std::string text = messages_.Text();
        const std::string name = (folder_.path() / "out.mif").string() + ": ";
        for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name)) {
            text.erase(at, name.size());
        }
        return text;
    }

    support::TemporaryFolder folder_;
    support::KeptMessages messages_;
    app::TargetOptions options_;
    app::LayerFacts layer_;
};

Feature With(Feature feature, const std::function<void(app::Geometry&)>& change,
             std::vector<Value> values = {}) {
    change(feature.geometry);
    feature.values = std::move(values);
    return feature;
}

Feature CollectionOf(std::vector<app::Geometry> members) {
    Feature feature;
    feature.geometry.kind = GeometryKind::Collection;
    feature.members = std::move(members);
    return feature;
}

Feature Boxed(GeometryKind kind, const shr::Box2d& box) {
    Feature feature;
    feature.geometry.kind = kind;
    feature.geometry.box = box;
    return feature;
}

Feature Multi(Feature feature, std::vector<std::size_t> partSizes) {
    feature.geometry.isMulti = true;
    feature.geometry.partSizes = std::move(partSizes);
    return feature;
}

std::vector<Feature> ObjectsOfEveryKind() {
    return {
        PointAt(24.5, 59.25),
        support::PointsAt({{1, 2}, {3, 4}}),
        LineThrough({{0, 0}, {1, 1}}),
        LineThrough({{0, 0}, {1, 1}, {2, 0}}),
        Multi(LineThrough({{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 3}}), {2, 3}),
        RegionOf({Square(0, 0, 10)}),
        RegionOf({Square(0, 0, 10), Square(2, 2, 3)}),
        Boxed(GeometryKind::Rectangle, {0, 0, 4, 3}),
        Boxed(GeometryKind::Ellipse, {0, 0, 4, 3}),
        With(Boxed(GeometryKind::Arc, {0, 0, 4, 3}), [](app::Geometry& g) { g.endDegrees = 90; }),
        Feature(),
        CollectionOf({PointAt(5, 5).geometry, LineThrough({{0, 0}, {1, 1}}).geometry,
                      RegionOf({Square(0, 0, 1)}).geometry, PointAt(6, 6).geometry})};
}

std::vector<Feature> StyledObjects() {
    return {With(LineThrough({{0, 0}, {1, 1}}),
                 [](app::Geometry& g) {
                     g.style.pen = app::Pen{3, 5, 255};
                 }),
            With(RegionOf({Square(0, 0, 1)}),
                 [](app::Geometry& g) {
                     g.style.pen = app::Pen{15, 2, 0};
                     g.style.brush = app::Brush{44, 16711680, 65535};
                 }),
            With(PointAt(1, 2),
                 [](app::Geometry& g) {
                     g.style.symbol = app::Symbol{.shape = 34, .color = 255, .size = 9};
                 }),
            With(PointAt(1, 2),
                 [](app::Geometry& g) {
                     g.style.symbol = app::Symbol{.form = app::Symbol::Form::FontCharacter,
                                                  .shape = 65,
                                                  .color = 255,
                                                  .size = 24,
                                                  .name = "Map Symbols",
                                                  .rotationDegrees = 45};
                 }),
            With(PointAt(1, 2), [](app::Geometry& g) {
                g.kind = GeometryKind::Text;
                g.placement.text = "Main \"Street\"\n2";
                g.placement.angleDegrees = 30.5;
                g.placement.box = shr::Box2d{1, 2, 9, 4};
                g.placement.justify = app::Justify::Center;
                g.style.font = app::Font{.name = "Arial", .styleBits = 3, .fore = 255};
            })};
}

std::vector<Feature> RowsOfEveryType() {
    return {PointAt(1, 2,
                    {"text, \"quoted\"\nline", std::int64_t{1}, std::int64_t{100000},
                     std::int64_t{3000000000}, 0.1, true, "2026-01-31", "10:11:12",
                     "2026-01-31T10:11:12.345"}),
            PointAt(1, 2, std::vector<Value>(9)),
            PointAt(1, 2,
                    {"", std::int64_t{-1}, std::int64_t{-5}, std::int64_t{0}, -1e-9, false,
                     "1999-12-31", "23:59:59.999", "1999-12-31T23:59:59"})};
}

struct GoldenRow {
    std::string name;
    std::vector<Feature> features;
    std::vector<app::LayerColumn> columns;
    std::function<void(app::LayerFacts&, app::TargetOptions&)> change;
};
void PrintTo(const GoldenRow& row, std::ostream* out) {
    *out << row.name;
}
class PairOf : public MifTarget, public testing::WithParamInterface<GoldenRow> {};

// The bytes that the golden file asks for; it is rewritten first when that is asked for.
std::string Golden(const std::string& name, const std::string& actual) {
    const std::filesystem::path path = std::filesystem::path(QOLF_TEST_GOLDEN) / "mif" / name;
    if (std::getenv("UPDATE_GOLDENS") != nullptr) {
        std::ofstream(path, std::ios::binary) << actual;
    }
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST_P(PairOf, IsTheGoldenOne) {
    layer_.columns = GetParam().columns;
    if (GetParam().change) {
        GetParam().change(layer_, options_);
    }

    EXPECT_TRUE(Write(GetParam().features));

    EXPECT_EQ(folder_.Read("out.mif"), Golden(GetParam().name + ".mif", folder_.Read("out.mif")));
    EXPECT_EQ(folder_.Read("out.mid"), Golden(GetParam().name + ".mid", folder_.Read("out.mid")));
}

INSTANTIATE_TEST_SUITE_P(
    , PairOf,
    testing::Values(
        GoldenRow{"objects", ObjectsOfEveryKind(), {}, {}},
        GoldenRow{"styles", StyledObjects(), {}, {}},
        GoldenRow{"types",
                  RowsOfEveryType(),
                  {Column("text", ColumnKind::Char), Column("short", ColumnKind::SmallInt),
                   Column("int", ColumnKind::LargeInt), Column("long", ColumnKind::LargeInt),
                   Column("real", ColumnKind::Float), Column("truth", ColumnKind::Logical),
                   Column("day", ColumnKind::Date), Column("time", ColumnKind::Time),
                   Column("moment", ColumnKind::DateTime)},
                  {}},
        GoldenRow{"cyrillic",
                  {PointAt(1, 2, {kCyrillic}), PointAt(3, 4, {"plain"})},
                  {Column("\u0438\u043C\u044F", ColumnKind::Char)},
                  {}},
        GoldenRow{"utf8",
                  {PointAt(1, 2, {kCyrillic}), PointAt(3, 4, {"caf\u00E9"})},
                  {Column("\u0438\u043C\u044F", ColumnKind::Char)},
                  {}},
        GoldenRow{"empty", {}, {Column("name", ColumnKind::Char, 10)}, {}},
        GoldenRow{"plane",
                  {PointAt(10, 20), PointAt(30.5, 40)},
                  {},
                  [](app::LayerFacts& layer, app::TargetOptions&) { layer.system.reset(); }},
        GoldenRow{"pair",
                  {Multi(PointAt(1, 2, {"caf\u00E9", std::int64_t{5}}), {}),
                   PointAt(3, 4, {Value(), "n/a"})},
                  {Column("name", ColumnKind::Char, 20), Column("count", ColumnKind::LargeInt)},
                  [](app::LayerFacts& layer, app::TargetOptions&) {
                      layer.pair = {.version = 650,
                                    .charset = "WindowsLatin2",
                                    .codePage = "CP1250",
                                    .delimiter = ";",
                                    .coordSysText = "COORDSYS Earth Projection 1, 104\nBounds (0, "
                                                    "0) (10, 10)"};
                  }}),
    [](const auto& row) { return row.param.name; });

TEST_F(MifTarget, ListsTheColumnsThatItRenames) {
    layer_.columns = {Column("name of road", ColumnKind::Char), Column("ok", ColumnKind::Char),
                      Column("OK", ColumnKind::Char)};

    Write({});

    EXPECT_EQ(Messages(),
              "qolf: note: 2 columns were renamed: 'name of road' to name_of_road, 'OK' to OK_2\n");
}

TEST_F(MifTarget, SaysThatItMadeAColumn) {
    Write({PointAt(1, 2)});

    EXPECT_EQ(Messages(),
              "qolf: note: the column ID numbers the objects; the format wants a column\n");
}

TEST_F(MifTarget, WarnsOfTextsThatItCuts) {
    layer_.columns = {Column("a", ColumnKind::Char), Column("b", ColumnKind::Char)};
    const std::string text(300, 'x');

    Write({PointAt(1, 2, {"", text}), PointAt(1, 2, {text, text})});

    EXPECT_EQ(Messages(), "qolf: warning: 3 values were longer than the 254 bytes of a Char column "
                          "and were cut: 1 in a (first in row 2), 2 in b (first in row 1)\n");
}

TEST_F(MifTarget, WarnsOfAColumnThatBecomesText) {
    layer_.columns = {Column("count", ColumnKind::LargeInt)};

    Write({PointAt(1, 2, {std::int64_t{1}}), PointAt(1, 2, {"n/a"})});

    EXPECT_EQ(Messages(), "qolf: warning: column count became text: not all of its values are "
                          "numbers (1 other, the first 'n/a')\n");
}

TEST_F(MifTarget, WarnsOfCharactersThatTheEncodingLacks) {
    options_.encoding = "CP1252";
    layer_.columns = {Column("name", ColumnKind::Char)};

    Write({PointAt(1, 2, {"\u0416\u0443"})});

    EXPECT_EQ(Messages(), "qolf: warning: 2 characters are not in WindowsLatin1 and became '?'; "
                          "--output-encoding UTF-8 keeps all\n");
    EXPECT_EQ(folder_.Read("out.mid"), "\"??\"\n");
}

TEST_F(MifTarget, WarnsOfObjectsWithoutAPlace) {
    layer_.columns = {Column("name", ColumnKind::Char)};

    Write({PointAt(1, std::numeric_limits<double>::infinity(), {"a"})});

    EXPECT_EQ(Messages(), "qolf: warning: 1 object has coordinates that are not finite "
                          "numbers; written without geometry\n");
}

TEST_F(MifTarget, WarnsOfMoreColumnsThanOthersRead) {
    layer_.columns.assign(251, Column("", ColumnKind::Integer));
    for (std::size_t i = 0; i < layer_.columns.size(); ++i) {
        layer_.columns[i].name = "c" + std::to_string(i);
    }

    Write({});

    EXPECT_EQ(Messages(), "qolf: warning: has 251 columns, and other programs read at most 250; "
                          "--select leaves some out\n");
}

TEST_F(MifTarget, WarnsOfWiderRowsThanOthersRead) {
    for (int i = 0; i < 16; ++i) {
        layer_.columns.push_back(Column("c" + std::to_string(i), ColumnKind::Char, 254));
    }

    Write({});

    EXPECT_EQ(Messages(), "qolf: warning: its columns hold up to 4064 bytes together, and other "
                          "programs read at most 4000; --select leaves some out\n");
}

TEST_F(MifTarget, RefusesAnEncodingThatMifFilesDoNotHave) {
    options_.encoding = "KOI8-R";

    try {
        Write({});
        FAIL() << "the encoding is taken";
    } catch (const app::UsageError& error) {
        EXPECT_STREQ(error.what(),
                     "encoding KOI8-R: MIF files can't be in it; UTF-8 has every character");
    }
}

TEST_F(MifTarget, WritesTheLowestVersionThatHasTheClauseOfItsPair) {
    layer_.columns = {Column("name", ColumnKind::Char)};
    layer_.pair = {.version = 900,
                   .charset = "WindowsLatin1",
                   .codePage = "CP1252",
                   .delimiter = ",",
                   .coordSysText =
                       "CoordSys Earth Projection 8, 1016, \"m\", 27, 0, 1, 3500000, 0"};

    Write({PointAt(1, 2, {"a"})});

    EXPECT_TRUE(folder_.Read("out.mif").starts_with("Version 600\n")) << folder_.Read("out.mif");
}

struct CharsetRow {
    std::string name;
    std::string charset;
    std::string codePage;
    std::string written;
};
void PrintTo(const CharsetRow& row, std::ostream* out) {
    *out << row.name;
}
class CharsetOfAPair : public MifTarget, public testing::WithParamInterface<CharsetRow> {};

TEST_P(CharsetOfAPair, Is) {
    layer_.columns = {Column("name", ColumnKind::Char)};
    layer_.pair.emplace();
    layer_.pair->charset = GetParam().charset;
    layer_.pair->codePage = GetParam().codePage;

    Write({PointAt(1, 2, {"\u00DF"})});

    EXPECT_NE(folder_.Read("out.mif").find("\nCharset \"" + GetParam().written + "\"\n"),
              std::string::npos)
        << folder_.Read("out.mif");
}

INSTANTIATE_TEST_SUITE_P(
    , CharsetOfAPair,
    testing::Values(CharsetRow{"ItsOwn", "WindowsLatin2", "CP1250", "WindowsLatin2"},
                    CharsetRow{"ItsOwnInItsOwnWords", "windowslatin2", "CP1250", "windowslatin2"},
                    CharsetRow{"Neutral", "Neutral", "CP1252", "Neutral"},
                    CharsetRow{"ThatOfItsCodePageWithoutAName", "", "CP1252", "WindowsLatin1"},
                    CharsetRow{"ThatOfItsTrueCodePage", "WindowsLatin1", "UTF-8", "UTF-8"},
                    CharsetRow{"OneForItsTextsWhenMifHasNoName", "Neutral", "KOI8-R",
                               "WindowsLatin1"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
