#include "app/convert/LayerChoice.h"

#include "app/base/Errors.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class NamedLayers : public app::Source {
public:
    explicit NamedLayers(std::vector<std::string> names)
        : Source("in.gpkg"), names_(std::move(names)) {}

    std::vector<std::string> LayerNames() const override { return names_; }
    app::LayerFacts Begin(std::size_t, app::Reporter&) override { return {}; }
    void Read(app::Reporter&, const app::FeatureSink&) override {}

private:
    std::vector<std::string> names_;
};

using Numbers = std::vector<std::size_t>;

TEST(ChosenLayers, AreAllWhenNoneIsNamed) {
    EXPECT_EQ(app::ChosenLayers(NamedLayers({"a", "b", "c"}), {}), (Numbers{0, 1, 2}));
    EXPECT_EQ(app::ChosenLayers(NamedLayers({}), {}), Numbers{});
}

TEST(ChosenLayers, AreThoseBetweenCommasAndOfSeveralOptions) {
    EXPECT_EQ(app::ChosenLayers(NamedLayers({"a", "b", "c"}), {"c,a", "b"}), (Numbers{2, 0, 1}));
}

TEST(ChosenLayers, AreEachThereOnce) {
    EXPECT_EQ(app::ChosenLayers(NamedLayers({"a", "b"}), {"a,b,a"}), (Numbers{0, 1}));
}

TEST(ChosenLayers, MayBeOneWithACommaInItsName) {
    EXPECT_EQ(app::ChosenLayers(NamedLayers({"a", "b", "a,b"}), {"a,b"}), Numbers{2});
}

TEST(ChosenLayers, AreFoundWithoutRegardToCaseUnlessOneIsExact) {
    EXPECT_EQ(app::ChosenLayers(NamedLayers({"Roads", "roads"}), {"roads"}), Numbers{1});
    EXPECT_EQ(app::ChosenLayers(NamedLayers({"Roads", "x"}), {"ROADS"}), Numbers{0});
}

TEST(ChosenLayers, AreRefusedWithASuggestion) {
    try {
        static_cast<void>(app::ChosenLayers(NamedLayers({"roads", "places"}), {"places,raods"}));
        FAIL() << "the layer is not refused";
    } catch (const app::Failure& failure) {
        EXPECT_STREQ(failure.what(),
                     "in.gpkg: holds no layer raods; did you mean roads? It has: roads, places");
    }
}

}  // namespace
