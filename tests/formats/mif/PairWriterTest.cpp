// Whole pairs: what is written first and known last.
#include "app/formats/mif/PairWriter.h"

#include "app/base/Errors.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using app::ColumnKind;
using app::Value;

const std::string kCyrillic = "\u0416\u0443\u043A";
const std::string kCyrillicBytes = "\xC6\xF3\xEA";

app::Feature PointWith(std::vector<Value> values) {
    app::Feature feature;
    feature.geometry.kind = app::GeometryKind::Points;
    feature.geometry.points = {{1, 2}};
    feature.values = std::move(values);
    return feature;
}

app::Feature TextWith(const std::string& text, std::vector<Value> values) {
    app::Feature feature = PointWith(std::move(values));
    feature.geometry.kind = app::GeometryKind::Text;
    feature.geometry.placement.text = text;
    feature.geometry.placement.box = shr::Box2d{1, 2, 3, 4};
    return feature;
}

// Without the blanks that fill the line before Data.
std::string Squeezed(std::string mif) {
    const std::size_t end = mif.find("\nData\n");
    const std::size_t begin = mif.find_last_not_of(' ', end - 1) + 1;
    mif.erase(begin, end - begin);
    return mif;
}

class APair : public testing::Test {
protected:
    app::PairOutcome Write(app::PairLayer layer, const std::vector<app::Feature>& features) {
        app::PairWriter writer(folder_.path() / "out.mif", app::IfExists::Refuse);
        writer.Begin(std::move(layer));
        for (const app::Feature& feature : features) {
            writer.Write(feature);
        }
        return writer.Finish();
    }

    std::string Mif() const { return Squeezed(folder_.Read("out.mif")); }
    std::string Mid() const { return folder_.Read("out.mid"); }

    support::TemporaryFolder folder_;
};

app::PairLayer LayerOf(std::vector<app::LayerColumn> columns) {
    app::PairLayer layer;
    layer.columns = std::move(columns);
    layer.coordSys = "CoordSys Earth Projection 1, 104";
    layer.boundsPlace = app::BoundsPlace::SameLine;
    return layer;
}

TEST_F(APair, HasItsObjectsAndRowsBehindItsHeader) {
    Write(LayerOf({{"name", ColumnKind::Char, 0, 0}, {"count", ColumnKind::LargeInt, 0, 0}}),
          {PointWith({"a", std::int64_t{1}}), PointWith({"bcd", Value()})});

    EXPECT_EQ(Mif(), "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n"
                     "CoordSys Earth Projection 1, 104 Bounds (0, 1) (2, 3)\n"
                     "Columns 2\n  name Char(3)\n  count Integer\n\nData\n"
                     "Point 1 2\nPoint 1 2\n");
    EXPECT_EQ(Mid(), "\"a\",1\n\"bcd\",\n");
}

TEST_F(APair, IsCompleteWithoutObjects) {
    Write(LayerOf({{"name", ColumnKind::Char, 0, 0}}), {});

    EXPECT_EQ(Mif(), "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n"
                     "CoordSys Earth Projection 1, 104 Bounds (0, 0) (1, 1)\n"
                     "Columns 1\n  name Char(1)\n\nData\n");
    EXPECT_EQ(Mid(), "");
}

TEST_F(APair, CountsItsRowsWithoutColumns) {
    Write(LayerOf({}), {PointWith({}), PointWith({})});

    EXPECT_NE(Mif().find("\nColumns 1\n  ID Integer\n"), std::string::npos);
    EXPECT_EQ(Mid(), "1\n2\n");
}

TEST_F(APair, NeedsTheHighestVersionOfItsParts) {
    app::PairLayer layer = LayerOf({{"moment", ColumnKind::DateTime, 0, 0}});
    layer.version = 650;

    Write(std::move(layer), {PointWith({"2026-01-31T10:11:12"})});

    EXPECT_TRUE(Mif().starts_with("Version 900\n"));
}

TEST_F(APair, HasTheVersionOfItsClause) {
    app::PairLayer layer = LayerOf({});
    layer.version = 1050;

    Write(std::move(layer), {});

    EXPECT_TRUE(Mif().starts_with("Version 1050\n"));
}

TEST_F(APair, IsInTheCharsetThatItsTextsNeed) {
    const app::PairOutcome outcome =
        Write(LayerOf({{kCyrillic, ColumnKind::Char, 0, 0}, {"note", ColumnKind::Char, 0, 0}}),
              {PointWith({"plain", "x"}),
               TextWith(kCyrillic + " \"a\"", {kCyrillic, "a\"" + kCyrillic})});

    EXPECT_EQ(Mif(), "Version 300\nCharset \"WindowsCyrillic\"\nDelimiter \",\"\n"
                     "CoordSys Earth Projection 1, 104 Bounds (1, 2) (3, 4)\n"
                     "Columns 2\n  " +
                         kCyrillicBytes +
                         " Char(5)\n  note Char(5)\n\nData\n"
                         "Point 1 2\nText \"" +
                         kCyrillicBytes + " \"\"a\"\"\"\n    1 2 3 4\n");
    EXPECT_EQ(Mid(),
              "\"plain\",\"x\"\n\"" + kCyrillicBytes + "\",\"a\"\"" + kCyrillicBytes + "\"\n");
    EXPECT_EQ(outcome.charset, "WindowsCyrillic");
    EXPECT_EQ(outcome.columns[0].column.name, kCyrillic);
}

TEST_F(APair, IsInUtf8WhenNoOtherCharsetHasItsTexts) {
    Write(LayerOf({{"name", ColumnKind::Char, 0, 0}}),
          {PointWith({kCyrillic}), PointWith({"caf\u00E9"})});

    EXPECT_NE(Mif().find("Charset \"UTF-8\"\n"), std::string::npos);
    EXPECT_NE(Mif().find("  name Char(6)\n"), std::string::npos);
    EXPECT_EQ(Mid(), "\"" + kCyrillic + "\"\n\"caf\u00E9\"\n");
}

TEST_F(APair, CutsLongTextsInTheCharsetThatItGets) {
    std::string text;
    for (int i = 0; i < 200; ++i) {
        text += "\u0416";
    }

    const app::PairOutcome outcome =
        Write(LayerOf({{"a", ColumnKind::Char, 0, 0}, {"b", ColumnKind::Char, 0, 0}}),
              {PointWith({text, text + text})});

    EXPECT_EQ(Mid(), "\"" + std::string(200, '\xC6') + "\",\"" + std::string(254, '\xC6') + "\"\n");
    EXPECT_EQ(outcome.columns[0].cutCount, 0U);
    EXPECT_EQ(outcome.columns[0].column.width, 200);
    EXPECT_EQ(outcome.columns[1].cutCount, 1U);
    EXPECT_EQ(outcome.columns[1].column.width, 254);
}

TEST_F(APair, CutsLongAsciiWithAnOpenCharset) {
    const app::PairOutcome outcome =
        Write(LayerOf({{"a", ColumnKind::Char, 0, 0}}), {PointWith({std::string(300, 'x')})});

    EXPECT_EQ(Mid(), "\"" + std::string(254, 'x') + "\"\n");
    EXPECT_EQ(outcome.columns[0].cutCount, 1U);
}

TEST_F(APair, KeepsTheCharsetThatItIsGiven) {
    app::PairLayer layer = LayerOf({{"n\u00E9", ColumnKind::Char, 0, 0}});
    layer.charset.emplace("Neutral", "CP1252");

    const app::PairOutcome outcome =
        Write(std::move(layer), {PointWith({"caf\u00E9"}), PointWith({kCyrillic})});

    EXPECT_NE(Mif().find("Charset \"Neutral\"\n"), std::string::npos);
    EXPECT_NE(Mif().find("  n\xE9 Char(4)\n"), std::string::npos);
    EXPECT_EQ(Mid(), "\"caf\xE9\"\n\"???\"\n");
    EXPECT_EQ(outcome.lostCharacters, 3U);
}

TEST_F(APair, CountsNoObjectThatIsLeftOut) {
    app::PairLayer layer = LayerOf({{"name", ColumnKind::Char, 0, 0}});
    layer.objects.hasTexts = false;

    Write(std::move(layer), {TextWith("x", {"text"}), PointWith({"point"})});

    EXPECT_TRUE(Mif().ends_with("Data\nPoint 1 2\n"));
    EXPECT_EQ(Mid(), "\"point\"\n");
}

TEST_F(APair, OfManyPiecesIsWrittenAgainAsAWhole) {
    constexpr int kRows = 20000;
    std::vector<app::Feature> features(kRows, TextWith(kCyrillic, {kCyrillic}));

    Write(LayerOf({{"name", ColumnKind::Char, 0, 0}}), features);

    const std::string row = "\"" + kCyrillicBytes + "\"\n";
    const std::string object = "Text " + row + "    1 2 3 4\n";
    std::string rows;
    std::string objects;
    for (int i = 0; i < kRows; ++i) {
        rows += row;
        objects += object;
    }
    EXPECT_EQ(Mid(), rows);
    EXPECT_EQ(Mif().substr(Mif().find("Data\n") + 5), objects);
}

TEST_F(APair, LeavesNothingWithoutItsEnd) {
    {
        app::PairWriter writer(folder_.path() / "out.mif", app::IfExists::Refuse);
        writer.Begin(LayerOf({}));
        writer.Write(PointWith({}));
    }

    EXPECT_TRUE(std::filesystem::is_empty(folder_.path()));
}

TEST_F(APair, ReplacesNothingUnlessToldSo) {
    folder_.Write("out.mid", "mine");

    EXPECT_THROW(app::PairWriter(folder_.path() / "out.mif", app::IfExists::Refuse), app::Failure);
    EXPECT_EQ(folder_.Read("out.mid"), "mine");
}

// What a pair of so many objects says on a disk that is full after so many bytes.
std::string FailureOf(const std::filesystem::path& path, std::size_t count, const std::string& text,
                      rlim_t bytes) {
    const support::FileSizeLimit limit(bytes);
    try {
        app::PairWriter writer(path, app::IfExists::Refuse);
        writer.Begin(LayerOf({{"name", ColumnKind::Char, 0, 0}}));
        for (std::size_t i = 0; i < count; ++i) {
            writer.Write(PointWith({text}));
        }
        static_cast<void>(writer.Finish());
    } catch (const app::Failure& failure) {
        return failure.what();
    }
    return "";
}

TEST_F(APair, SaysWhenTheDiskIsFull) {
    const std::string path = (folder_.path() / "out").string();

    EXPECT_EQ(FailureOf(path + ".mif", 100000, "abcdefghijkl", 500000),
              path + ".mid: can't write: File too large");
    EXPECT_EQ(FailureOf(path + ".mif", 10, "abcdefghijkl", 100),
              path + ".mif: can't write: File too large");
    EXPECT_TRUE(std::filesystem::is_empty(folder_.path()));
}

}  // namespace
