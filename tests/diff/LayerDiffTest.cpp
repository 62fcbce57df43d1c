#include "app/diff/LayerDiff.h"

#include "tests/support/Features.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace {

using app::Feature;
using app::Value;

// Points at 0 0 with a key and a value, numbered from 1.
std::vector<Feature> Features(const std::vector<std::pair<Value, int>>& rows) {
    std::vector<Feature> features;
    for (const auto& [key, value] : rows) {
        features.push_back(support::PointAt(0, 0, {key, std::int64_t{value}}));
        features.back().number = features.size();
    }
    return features;
}

app::FeatureReader ReaderOf(const std::vector<Feature>& features) {
    return [features](const auto& take) {
        for (const Feature& feature : features) {
            take(feature);
        }
    };
}

// "-3" a removed feature, "+4" an added one, "2>3" a changed one, "=" one that is the same.
class Written : public app::DiffSink {
public:
    void Removed(const Feature& left) override { text += "-" + std::to_string(left.number) + " "; }
    void Added(const Feature& right) override { text += "+" + std::to_string(right.number) + " "; }
    void Changed(const Feature& left, const Feature& right,
                 const app::FeatureDifference& difference) override {
        text += std::to_string(left.number) + ">" + std::to_string(right.number) +
                (difference.geometry.empty() ? "" : "g") + (difference.values.empty() ? "" : "v") +
                " ";
    }
    void Same() override { text += "= "; }

    std::string text;
};

std::string ByOrder(const std::vector<Feature>& left, const std::vector<Feature>& right) {
    Written written;
    app::DiffByOrder(ReaderOf(left), ReaderOf(right), {}, written);
    return written.text;
}

std::string ByKey(const std::vector<Feature>& left, const std::vector<Feature>& right,
                  std::uint64_t repeated = 0) {
    Written written;
    EXPECT_EQ(app::DiffByKey(ReaderOf(left), ReaderOf(right), 0, {}, written), repeated);
    return written.text;
}

Value Key(int key) {
    return std::int64_t{key};
}

TEST(ADiffByOrder, ComparesOneByOne) {
    EXPECT_EQ(ByOrder(Features({{Key(1), 1}, {Key(2), 2}}), Features({{Key(1), 1}, {Key(2), 3}})),
              "= 2>2v ");
}

TEST(ADiffByOrder, HasTheRestAsRemovedOrAdded) {
    const std::vector<Feature> one = Features({{Key(1), 1}});
    const std::vector<Feature> three = Features({{Key(1), 1}, {Key(2), 2}, {Key(3), 3}});

    EXPECT_EQ(ByOrder(three, one), "= -2 -3 ");
    EXPECT_EQ(ByOrder(one, three), "= +2 +3 ");
    EXPECT_EQ(ByOrder({}, {}), "");
}

TEST(ADiffByOrder, SeesGeometries) {
    std::vector<Feature> moved = Features({{Key(1), 1}});
    moved[0].geometry.points[0].x = 1;

    EXPECT_EQ(ByOrder(Features({{Key(1), 1}}), moved), "1>1g ");
}

TEST(ADiffByOrder, TakesLayersThatAreLongerThanTheMemoryOfASpool) {
    std::vector<Feature> features;
    for (int i = 0; i < 40; ++i) {
        features.push_back(support::LineThrough(std::vector<shr::Vec2d>(70'000)));
    }
    std::string all;
    for (std::size_t i = 0; i < features.size(); ++i) {
        all += "= ";
    }

    EXPECT_EQ(ByOrder(features, features), all);
}

TEST(ADiffByKey, FindsFeaturesInAnyOrder) {
    EXPECT_EQ(ByKey(Features({{Key(1), 1}, {Key(2), 2}, {Key(3), 3}}),
                    Features({{Key(3), 3}, {Key(4), 4}, {Key(1), 9}})),
              "= +2 1>3v -2 ");
}

TEST(ADiffByKey, TakesEqualNumbersForOneKey) {
    EXPECT_EQ(ByKey(Features({{Key(5), 1}, {true, 2}}), Features({{5.0, 1}, {Key(1), 2}})), "= = ");
}

TEST(ADiffByKey, ComparesThoseOfOneKeyInTheirOrder) {
    const std::vector<Feature> left = Features({{Key(1), 1}, {Key(1), 2}, {Key(1), 3}});

    EXPECT_EQ(ByKey(left, Features({{Key(1), 1}, {Key(1), 9}}), 2), "= 2>2v -3 ");
    EXPECT_EQ(ByKey(Features({{Value(), 1}}), Features({{Value(), 1}, {std::string(), 1}})),
              "= +2 ");
}

}  // namespace
