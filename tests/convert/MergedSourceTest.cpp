#include "app/convert/MergedSource.h"

#include "app/crs/Definitions.h"
#include "tests/support/Features.h"
#include "tests/support/KeptMessages.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using app::ColumnKind;
using app::Value;
using support::Column;

struct GivenLayer {
    app::LayerFacts facts;
    std::vector<app::Feature> features;
};

// A source of one layer that says when it is begun.
class GivenSource : public app::Source {
public:
    explicit GivenSource(const GivenLayer& layer) : Source("a file"), layer_(layer) {}

    std::vector<std::string> LayerNames() const override { return {"layer"}; }
    app::LayerFacts Begin(std::size_t, app::Reporter& reporter) override {
        reporter.Note("begun");
        return layer_.facts;
    }
    void Read(app::Reporter&, const app::FeatureSink& sink) override {
        for (app::Feature feature : layer_.features) {
            if (!sink(feature)) {
                return;
            }
        }
    }

private:
    const GivenLayer& layer_;
};

class AMergedSource : public testing::Test {
protected:
    app::SystemPtr System(const std::string& definition) {
        return app::SystemOfOption("--crs", definition, messages_.Reporter());
    }

    void Give(const std::string& system, std::vector<app::Feature> features,
              std::vector<app::LayerColumn> columns = {}) {
        GivenLayer& layer = *layers_.emplace_back(std::make_unique<GivenLayer>());
        layer.facts.columns = std::move(columns);
        layer.facts.system = system.empty() ? nullptr : System(system);
        layer.facts.knownExtent = shr::Box2d{0, 0, 1, static_cast<double>(layers_.size())};
        layer.features = std::move(features);
    }

    app::MergedSource Merged() {
        std::vector<app::MergePart> parts;
        for (const auto& layer : layers_) {
            parts.push_back({[&layer] { return std::make_unique<GivenSource>(*layer); }, 0,
                             std::string(1, static_cast<char>('a' + parts.size()))});
        }
        return {std::move(parts), settings_};
    }

    std::vector<app::Feature> FeaturesOf(app::Source& source, std::size_t most = 1000) {
        std::vector<app::Feature> features;
        source.Read(messages_.Reporter(), [&](app::Feature& feature) {
            features.push_back(feature);
            return features.size() < most;
        });
        return features;
    }

    // Without what the sources themselves say.
    std::string Messages() const {
        std::string text = messages_.Text();
        const std::string begun = "qolf: note: begun\n";
        for (auto at = text.find(begun); at != std::string::npos; at = text.find(begun)) {
            text.erase(at, begun.size());
        }
        return text;
    }

    std::vector<std::unique_ptr<GivenLayer>> layers_;
    app::MergeSettings settings_;
    support::KeptMessages messages_;
};

TEST_F(AMergedSource, HasTheFeaturesOfAllPartsNumberedAnew) {
    Give("wgs84", {support::PointAt(1, 2, {std::int64_t{5}})}, {Column("id", ColumnKind::Integer)});
    Give("wgs84", {support::PointAt(3, 4, {std::int64_t{6}})}, {Column("id", ColumnKind::Integer)});
    settings_.name = "all";
    app::MergedSource source = Merged();

    const app::LayerFacts facts = source.Begin(0, messages_.Reporter());
    const std::vector<app::Feature> features = FeaturesOf(source);

    EXPECT_EQ(facts.name, "all");
    EXPECT_TRUE(app::IsWgs84(*facts.system));
    EXPECT_EQ(facts.knownExtent, (shr::Box2d{0, 0, 1, 2}));
    ASSERT_EQ(features.size(), 2U);
    EXPECT_EQ(features[1].number, 2U);
    EXPECT_EQ(features[1].values, (std::vector<Value>{std::int64_t{6}}));
    EXPECT_EQ(Messages(), "");
}

TEST_F(AMergedSource, SaysOfWhichPartAFeatureIs) {
    Give("wgs84", {support::PointAt(1, 2, {std::string("x")})},
         {Column("source", ColumnKind::Char)});
    Give("wgs84", {support::PointAt(3, 4)});
    settings_.withSourceColumn = true;
    app::MergedSource source = Merged();

    const app::LayerFacts facts = source.Begin(0, messages_.Reporter());
    const std::vector<app::Feature> features = FeaturesOf(source);

    EXPECT_EQ(facts.columns.back().name, "source_2");
    EXPECT_EQ(features[0].values, (std::vector<Value>{std::string("x"), std::string("a")}));
    EXPECT_EQ(features[1].values, (std::vector<Value>{std::monostate(), std::string("b")}));
}

TEST_F(AMergedSource, MovesPartsIntoTheSystemOfTheFirst) {
    Give("wgs84", {support::PointAt(27, 1)});
    Give("EPSG:32635", {support::PointAt(500000, 0)});
    app::MergedSource source = Merged();

    const app::LayerFacts facts = source.Begin(0, messages_.Reporter());
    const std::vector<app::Feature> features = FeaturesOf(source);

    EXPECT_TRUE(app::IsWgs84(*facts.system));
    EXPECT_FALSE(facts.knownExtent);
    EXPECT_NEAR(features[1].geometry.points[0].x, 27.0, 1e-9);
    EXPECT_EQ(Messages(), "qolf: note: b: is moved from \"WGS 84 / UTM zone 35N\" to \"WGS 84\"\n");
}

TEST_F(AMergedSource, MovesPartsOfSeveralSystemsStraightIntoTheOneThatIsWanted) {
    Give("EPSG:32635", {support::PointAt(500000, 0)});
    Give("EPSG:32634", {support::PointAt(500000, 0)});
    settings_.wantedSystem = System("wgs84");
    app::MergedSource source = Merged();

    const app::LayerFacts facts = source.Begin(0, messages_.Reporter());
    const std::vector<app::Feature> features = FeaturesOf(source);

    EXPECT_TRUE(app::IsWgs84(*facts.system));
    EXPECT_NEAR(features[0].geometry.points[0].x, 27.0, 1e-9);
    EXPECT_NEAR(features[1].geometry.points[0].x, 21.0, 1e-9);
}

TEST_F(AMergedSource, LeavesPartsOfOneSystemInIt) {
    Give("EPSG:32635", {support::PointAt(500000, 0)});
    Give("EPSG:32635", {support::PointAt(500001, 0)});
    settings_.wantedSystem = System("wgs84");
    app::MergedSource source = Merged();

    EXPECT_EQ(source.Begin(0, messages_.Reporter()).system->code, 32635);
    EXPECT_EQ(FeaturesOf(source)[1].geometry.points[0].x, 500001.0);
}

TEST_F(AMergedSource, WarnsOfAPartWithoutAPlace) {
    Give("wgs84", {support::PointAt(1, 2)});
    Give("", {support::PointAt(3, 4)});
    app::MergedSource source = Merged();

    static_cast<void>(source.Begin(0, messages_.Reporter()));

    EXPECT_EQ(Messages(), "qolf: warning: b: has no place on the Earth; its coordinates are taken "
                          "to be in \"WGS 84\"\n");
}

TEST_F(AMergedSource, HasNoPlaceWhenNoPartHasOne) {
    Give("", {support::PointAt(1, 2)});
    Give("", {support::PointAt(3, 4)});
    app::MergedSource source = Merged();

    EXPECT_EQ(source.Begin(0, messages_.Reporter()).system, nullptr);
    EXPECT_EQ(Messages(), "");
}

TEST_F(AMergedSource, EndsWhenNoMoreIsWanted) {
    Give("", {support::PointAt(1, 2), support::PointAt(1, 3)});
    Give("", {support::PointAt(3, 4)});
    app::MergedSource source = Merged();
    static_cast<void>(source.Begin(0, messages_.Reporter()));

    EXPECT_EQ(FeaturesOf(source, 2).size(), 2U);
    EXPECT_EQ(FeaturesOf(source).size(), 3U) << "and can be read again";
}

TEST_F(AMergedSource, KeepsWhatPairsHaveInCommon) {
    for (const char* const clause : {"CoordSys Earth Projection 1, 104", "CoordSys Nonearth"}) {
        Give("", {});
        layers_.back()->facts.pair = app::PairFacts{.version = 300, .charset = "WindowsLatin1"};
        layers_.back()->facts.pair->coordSysText = clause;
    }
    layers_.back()->facts.pair->version = 450;

    const app::LayerFacts facts = Merged().Begin(0, messages_.Reporter());

    ASSERT_TRUE(facts.pair);
    EXPECT_EQ(facts.pair->version, 450);
    EXPECT_EQ(facts.pair->charset, "WindowsLatin1");
    EXPECT_EQ(facts.pair->coordSysText, "");
}

TEST_F(AMergedSource, IsNoPairWhenCharsetsDiffer) {
    for (const char* const charset : {"WindowsLatin1", "WindowsCyrillic"}) {
        Give("", {});
        layers_.back()->facts.pair = app::PairFacts{.version = 300, .charset = charset};
    }

    EXPECT_FALSE(Merged().Begin(0, messages_.Reporter()).pair);
}

TEST_F(AMergedSource, OpensManyPartsAnewAndLetsThemSpeakOnce) {
    for (int i = 0; i < 70; ++i) {
        Give("", {support::PointAt(i, 0)});
    }
    app::MergedSource source = Merged();
    static_cast<void>(source.Begin(0, messages_.Reporter()));
    const std::string said = messages_.Text();

    EXPECT_EQ(FeaturesOf(source).back().geometry.points[0].x, 69.0);
    EXPECT_EQ(messages_.Text(), said);
}

}  // namespace
