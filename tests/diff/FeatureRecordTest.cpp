#include "app/diff/FeatureRecord.h"

#include "app/base/Errors.h"
#include "tests/support/Features.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

using app::GeometryKind;

app::Feature FullFeature() {
    app::Feature feature = support::RegionOf({support::Square(0, 0, 4), support::Square(1, 1, 1)});
    feature.number = 7;
    feature.geometry.box = {1, 2, 3, 4};
    feature.geometry.radiusX = 0.5;
    feature.geometry.radiusY = 0.25;
    feature.geometry.startDegrees = 10;
    feature.geometry.endDegrees = 20;
    feature.geometry.placement.text = "a text";
    feature.geometry.placement.angleDegrees = 30;
    feature.geometry.placement.height = 2;
    feature.geometry.placement.justify = app::Justify::Right;
    feature.members = {support::PointAt(8, 9).geometry};
    feature.values = {std::monostate(), std::string("x\0y", 3), std::int64_t{-5}, 0.5, true};
    return feature;
}

TEST(ARecord, GivesTheFeatureBack) {
    const app::Feature feature = FullFeature();

    const app::Feature back = app::FeatureOf(app::RecordOf(feature));

    EXPECT_EQ(back.number, 7U);
    EXPECT_EQ(back.geometry, feature.geometry);
    EXPECT_EQ(back.members, feature.members);
    EXPECT_EQ(back.values, feature.values);
}

TEST(ARecord, OfAnEmptyFeatureIsOne) {
    EXPECT_EQ(app::FeatureOf(app::RecordOf({})).geometry.kind, GeometryKind::None);
}

TEST(ARecord, LeavesStylesOut) {
    app::Feature feature = support::PointAt(1, 2);
    feature.geometry.style.pen = app::Pen{};

    EXPECT_FALSE(app::FeatureOf(app::RecordOf(feature)).geometry.style.pen);
}

class ACutRecord : public testing::TestWithParam<int> {};

TEST_P(ACutRecord, IsRefused) {
    const std::string record = app::RecordOf(FullFeature());
    const std::string cut = record.substr(0, record.size() * GetParam() / 20);

    EXPECT_THROW(static_cast<void>(app::FeatureOf(cut)), app::Failure);
}

INSTANTIATE_TEST_SUITE_P(, ACutRecord, testing::Range(0, 20));

}  // namespace
