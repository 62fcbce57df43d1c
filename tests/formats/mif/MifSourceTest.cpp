// Reading a pair through the module.
#include "app/formats/mif/MifSource.h"

#include "app/base/Errors.h"
#include "app/crs/CoordinateSystem.h"
#include "tests/support/KeptMessages.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace {

using app::ColumnKind;
using app::GeometryKind;

constexpr const char* kHeader = "Version 450\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n"
                                "CoordSys Earth Projection 1, 104\n\n"
                                "Bounds (0, 0) (10, 20)\n"
                                "Columns 2\n  id Integer\n  name Char(20)\nData\n\n";

class MifSource : public testing::Test {
protected:
    MifSource() {
        options_.noStore = true;
        options_.modulePath = QOLF_MODULE;
    }

    std::filesystem::path Path() const { return folder_.path() / "roads.mif"; }

    void WritePair(const std::string& mif, const std::string& mid = "1,\"a\"\n2,\"b\"\n3,\"c\"\n") {
        folder_.Write("roads.mif", mif);
        folder_.Write("roads.mid", mid);
    }

    app::LayerFacts FactsOf(const std::string& mif) {
        WritePair(mif);
        return app::MifSource(Path(), options_).Begin(0, messages_.Reporter());
    }

    std::vector<app::Feature> FeaturesOf(const std::string& mif,
                                         const std::string& mid = "1,\"a\"\n2,\"b\"\n") {
        WritePair(mif, mid);
        app::MifSource source(Path(), options_);
        static_cast<void>(source.Begin(0, messages_.Reporter()));
        return FeaturesOf(source);
    }

    std::vector<app::Feature> FeaturesOf(app::MifSource& source) {
        std::vector<app::Feature> features;
        source.Read(messages_.Reporter(), [&](app::Feature& feature) {
            features.push_back(feature);
            return true;
        });
        return features;
    }

    std::string ErrorOf(const std::string& mif) {
        try {
            FeaturesOf(mif);
        } catch (const app::Failure& failure) {
            return failure.what();
        }
        return "none";
    }

    support::TemporaryFolder folder_;
    support::KeptMessages messages_;
    app::SourceOptions options_;
};

TEST_F(MifSource, FindsWhatTheHeaderSays) {
    const app::LayerFacts facts = FactsOf(std::string(kHeader) + "Point 1 2\n");

    EXPECT_EQ(facts.name, "roads");
    ASSERT_EQ(facts.columns.size(), 2U);
    EXPECT_EQ(facts.columns[0].name, "id");
    EXPECT_EQ(facts.columns[0].kind, ColumnKind::Integer);
    EXPECT_EQ(facts.columns[1].kind, ColumnKind::Char);
    EXPECT_EQ(facts.columns[1].width, 20);
    EXPECT_NE(facts.system, nullptr);
    EXPECT_EQ(facts.knownExtent, (shr::Box2d{0, 0, 10, 20}));
    ASSERT_TRUE(facts.pair);
    EXPECT_EQ(facts.pair->version, 450);
    EXPECT_EQ(facts.pair->charset, "WindowsLatin1");
    EXPECT_EQ(facts.pair->codePage, "CP1252");
    EXPECT_EQ(facts.pair->delimiter, ",");
}

TEST_F(MifSource, KnowsTheUnitOfAPlane) {
    const app::LayerFacts facts =
        FactsOf("Version 300\nCoordSys NonEarth Units \"ft\"\nColumns 1\n  id Integer\nData\n\n");

    ASSERT_NE(facts.system, nullptr);
    EXPECT_EQ(facts.system->kind, app::SystemKind::Plane);
    EXPECT_EQ(facts.system->metresPerUnit, 0.3048);
    EXPECT_FALSE(facts.knownExtent);
}

TEST_F(MifSource, HandsOverObjectsWithTypedValues) {
    const std::vector<app::Feature> features =
        FeaturesOf(std::string(kHeader) + "Point 1 2\nLine 1 2 3 4\n");

    ASSERT_EQ(features.size(), 2U);
    EXPECT_EQ(features[0].geometry.kind, GeometryKind::Points);
    EXPECT_EQ(features[0].values, (std::vector<app::Value>{std::int64_t{1}, std::string("a")}));
    EXPECT_EQ(features[1].geometry.kind, GeometryKind::Line);
    EXPECT_EQ(features[1].number, 2U);
    EXPECT_EQ(messages_.Text(), "");
}

TEST_F(MifSource, ReadsNoRowsWhenNobodyWantsTheirValues) {
    WritePair(std::string(kHeader) + "Point 1 2\nLine 1 2 3 4\n", "1,\"a\"\n");
    options_.withoutValues = true;
    app::MifSource source(Path(), options_);
    source.Begin(0, messages_.Reporter());

    const std::vector<app::Feature> features = FeaturesOf(source);

    ASSERT_EQ(features.size(), 2U);
    EXPECT_EQ(features[0].values, std::vector<app::Value>(2));
    EXPECT_EQ(features[1].geometry.kind, GeometryKind::Line);
    EXPECT_EQ(messages_.Text(), "");
}

TEST_F(MifSource, ReadsTextsInTheirCharset) {
    WritePair("Version 450\nCharset \"WindowsCyrillic\"\nDelimiter \",\"\n"
              "CoordSys NonEarth Units \"m\"\nColumns 1\n  \xE8 Char(9)\nData\n\nPoint 1 2\n",
              "\"\xE4\"\n");
    app::MifSource source(Path(), options_);

    const app::LayerFacts facts = source.Begin(0, messages_.Reporter());

    EXPECT_EQ(facts.columns.front().name, "\xD0\xB8");
    EXPECT_EQ(facts.pair->codePage, "CP1251");
    EXPECT_EQ(FeaturesOf(source).front().values.front(), app::Value(std::string("\xD0\xB4")));
}

TEST_F(MifSource, KeepsEachSourcesCharsetApart) {
    const char* const header = "CoordSys NonEarth Units \"m\"\nColumns 1\n  a Char(9)\nData\n\n"
                               "Point 1 2\n";
    WritePair("Version 450\nCharset \"WindowsCyrillic\"\nDelimiter \",\"\n" + std::string(header),
              "\"\xE4\"\n");
    folder_.Write("other.mif", "Version 450\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n" +
                                   std::string(header));
    folder_.Write("other.mid", "\"\xE4\"\n");
    app::MifSource cyrillic(Path(), options_);
    app::MifSource latin(folder_.path() / "other.mif", options_);
    static_cast<void>(cyrillic.Begin(0, messages_.Reporter()));
    static_cast<void>(latin.Begin(0, messages_.Reporter()));

    EXPECT_EQ(FeaturesOf(cyrillic).front().values.front(), app::Value(std::string("\xD0\xB4")));
    EXPECT_EQ(FeaturesOf(latin).front().values.front(), app::Value(std::string("\xC3\xA4")));
}

TEST_F(MifSource, TakesCareOfAClauseThatSwallowsALine) {
    const std::string mif = "Version 300\nDelimiter \",\"\nCoordSys Earth Projection 1, 104\n"
                            "Columns 1\n  id Integer\nData\n\nPoint 1 2\n";
    EXPECT_EQ(FactsOf(mif).columns.size(), 1U);
    EXPECT_EQ(FeaturesOf(mif).front().values.front(), app::Value(std::int64_t{1}));

    options_.asIs = true;
    EXPECT_EQ(FactsOf(mif).columns.size(), 0U);
}

TEST_F(MifSource, SaysOnceWhatItTookCareOf) {
    WritePair("Version 300\nUnique 1\nCoordSys NonEarth Units \"m\"\nColumns 1\n  id Integer\n"
              "Data\n\nPoint 1 2\nPoint 1 2\nPoint 1 2\n");
    app::MifSource source(Path(), options_);
    static_cast<void>(source.Begin(0, messages_.Reporter()));
    FeaturesOf(source);
    FeaturesOf(source);

    EXPECT_EQ(messages_.Text(), "qolf: warning: " + Path().string() +
                                    ": 1 Unique clause passed over: the relation to another table "
                                    "is lost (in line 2)\n");
}

TEST_F(MifSource, StopsWhenTheSinkHasEnough) {
    WritePair(std::string(kHeader) + "Point 1 2\nPoint 3 4\nPoint 5 6\n");
    app::MifSource source(Path(), options_);
    static_cast<void>(source.Begin(0, messages_.Reporter()));
    int count = 0;

    source.Read(messages_.Reporter(), [&count](app::Feature&) { return ++count < 2; });

    EXPECT_EQ(count, 2);
}

TEST_F(MifSource, ReadsAsOftenAsWanted) {
    WritePair(std::string(kHeader) + "Point 1 2\nPoint 3 4\n");
    app::MifSource source(Path(), options_);
    static_cast<void>(source.Begin(0, messages_.Reporter()));

    EXPECT_EQ(FeaturesOf(source).size(), 2U);
    EXPECT_EQ(FeaturesOf(source).size(), 2U);
}

TEST_F(MifSource, TakesAnAssumedSystemInPlaceOfTheClause) {
    options_.assumedSystem = std::make_shared<const app::CoordinateSystem>(app::Wgs84System());
    const std::string mif = "Version 300\nCoordSys Earth Projection 99, 104, \"m\", 0\n"
                            "Columns 1\n  id Integer\nData\n\nPoint 1 2\n";

    EXPECT_EQ(FactsOf(mif).system, options_.assumedSystem);
    EXPECT_EQ(FeaturesOf(mif).size(), 1U);
}

TEST_F(MifSource, NamesTheFileThatIsNoMap) {
    EXPECT_EQ(ErrorOf("no map\n"), Path().string() + ": is not a MIF file: it has no header that "
                                                     "ends with the line Data");
}

TEST_F(MifSource, NamesTheFileThatIsNotThere) {
    app::MifSource source(folder_.path() / "none.mif", options_);
    try {
        static_cast<void>(source.Begin(0, messages_.Reporter()));
        FAIL() << "the file is not missed";
    } catch (const app::Failure& failure) {
        EXPECT_EQ(std::string(failure.what()), (folder_.path() / "none.mif").string() +
                                                   ": can't open: No such file or directory");
    }
}

constexpr const char* kUnknownProjection =
    "Version 300\nCoordSys Earth Projection 99, 104, \"m\", 0\nColumns 1\n  id Integer\nData\n\n"
    "Point 1 2\n";

TEST_F(MifSource, ReadsObjectsWhoseSystemNobodyKnows) {
    const app::LayerFacts facts = FactsOf(kUnknownProjection);

    ASSERT_NE(facts.system, nullptr);
    EXPECT_EQ(facts.system->kind, app::SystemKind::Unknown);
    EXPECT_NE(facts.system->problem.find("projection code 99"), std::string::npos)
        << facts.system->problem;
    EXPECT_EQ(FeaturesOf(kUnknownProjection).front().geometry.points,
              (std::vector<shr::Vec2d>{{1, 2}}));
}

TEST_F(MifSource, ReadsAProjectionThatTheModuleLacks) {
    const std::string mif = "Version 300\nCoordSys Earth Projection 24, 1016, \"m\", 27, 0, 1, "
                            "3500000, 0\nColumns 1\n  id Integer\nData\n\nPoint 1 2\n";
    const app::LayerFacts facts = FactsOf(mif);

    ASSERT_NE(facts.system, nullptr);
    ASSERT_TRUE(facts.system->clause);
    EXPECT_EQ(facts.system->clause->projection->code, 8);
    EXPECT_EQ(facts.columns.size(), 1U);
    EXPECT_EQ(FeaturesOf(mif).size(), 1U);
}

TEST_F(MifSource, SaysSoWhenThereIsNoObject) {
    EXPECT_TRUE(FeaturesOf(kHeader, "").empty());

    EXPECT_EQ(messages_.Text(), "qolf: warning: " + Path().string() + ": holds no objects\n");
}

}  // namespace
