// Many points at once, points that fail, and systems that can't be transformed.
#include "app/crs/Transformation.h"
#include "tests/crs/Systems.h"
#include "tests/standalone/gcs/Definitions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace {

gcs::GCSDef Utm32() {
    return System(
        Projection(25, {{3, 1.0}, {6, 9.0}, {9, 0.0}, {12, 0.9996}, {4, 500000.0}, {5, 0.0}}),
        KnownDatum(L"DATUM_ED50"));
}

app::Transformation ToWgs84(const gcs::CSDef& system) {
    return {app::FromHost(&system), app::Wgs84System()};
}

TEST(ATransformation, BringsPointsThereAndBack) {
    const app::Transformation way = ToWgs84(Utm32());
    std::vector<double> x{400000.0, 500000.0, 650000.5};
    std::vector<double> y{5500000.0, 0.0, 6100000.25};

    EXPECT_EQ(way.Apply(x, y), 0U);
    EXPECT_EQ(way.ApplyBackwards(x, y), 0U);

    EXPECT_NEAR(x[0], 400000.0, 0.003);
    EXPECT_NEAR(y[0], 5500000.0, 0.003);
    EXPECT_NEAR(x[1], 500000.0, 0.003);
    EXPECT_NEAR(y[1], 0.0, 0.003);
    EXPECT_NEAR(x[2], 650000.5, 0.003);
    EXPECT_NEAR(y[2], 6100000.25, 0.003);
}

TEST(ATransformation, MarksPointsThatFailAndGoesOnBehindThem) {
    const app::Transformation way = ToWgs84(Utm32());
    std::vector<double> x{10.0, 10.0, std::numeric_limits<double>::quiet_NaN(), 10.0};
    std::vector<double> y{50.0, 95.0, 50.0, 50.0};

    EXPECT_EQ(way.ApplyBackwards(x, y), 2U);

    EXPECT_EQ(x[1], HUGE_VAL);
    EXPECT_EQ(y[1], HUGE_VAL);
    EXPECT_EQ(x[2], HUGE_VAL);
    EXPECT_EQ(y[2], HUGE_VAL);
    EXPECT_EQ(x[3], x[0]);
    EXPECT_EQ(y[3], y[0]);
    EXPECT_LT(x[3], 1e6);
}

TEST(ATransformation, FailsForALatitudeBeyondThePole) {
    const app::Transformation way = ToWgs84(System(LongitudeLatitude(), KnownDatum(L"DATUM_ED50")));
    std::vector<double> x{10.0, 10.0};
    std::vector<double> y{95.0, 90.0};

    EXPECT_EQ(way.Apply(x, y), 1U);

    EXPECT_EQ(y[0], HUGE_VAL);
    EXPECT_NEAR(y[1], 90.0, 0.01);
}

TEST(ATransformation, FailsForCoordinatesOffTheMap) {
    const app::Transformation way =
        ToWgs84(System(Projection(14, {{3, 1.0}, {6, 0.0}}), KnownDatum(L"DATUM_WGS84")));
    std::vector<double> x{0.0, 0.0};
    std::vector<double> y{2e8, 0.0};

    EXPECT_EQ(way.Apply(x, y), 1U);

    EXPECT_EQ(x[0], HUGE_VAL);
    EXPECT_EQ(x[1], 0.0);
}

TEST(ATransformation, DoesNothingWithoutPoints) {
    const app::Transformation way = ToWgs84(Utm32());

    EXPECT_EQ(way.Apply({}, {}), 0U);
}

TEST(ATransformation, CanBeMoved) {
    app::Transformation first = ToWgs84(Utm32());
    const app::Transformation second(std::move(first));
    std::vector<double> x{500000.0};
    std::vector<double> y{5500000.0};

    EXPECT_EQ(second.Apply(x, y), 0U);
}

struct ProblemRow {
    std::string name;
    gcs::GCSDef system;
    std::string problem;
};
void PrintTo(const ProblemRow& row, std::ostream* out) {
    *out << row.name;
}

class ASystemWithoutAWay : public testing::TestWithParam<ProblemRow> {};

TEST_P(ASystemWithoutAWay, ThatCantBeTransformedSaysWhyAndFailsEveryPoint) {
    const app::Transformation way = ToWgs84(GetParam().system);
    std::vector<double> x{1.0, 2.0};
    std::vector<double> y{1.0, 2.0};

    EXPECT_EQ(way.Problem(), GetParam().problem);
    EXPECT_EQ(way.Apply(x, y), 2U);
    EXPECT_EQ(x[1], HUGE_VAL);
}

gcs::DatumDef DatumWithoutNumbers() {
    gcs::DatumParameters parameters = KnownDatum(L"DATUM_ED50").GetParameters();
    parameters.dx = std::numeric_limits<double>::quiet_NaN();
    gcs::DatumDef datum;
    datum.SetParameters(&parameters);
    return datum;
}

INSTANTIATE_TEST_SUITE_P(
    , ASystemWithoutAWay,
    testing::Values(
        ProblemRow{"ThatIsUnknown", gcs::GCSDef(), "the coordinate system is not known"},
        ProblemRow{"OnAnArbitraryPlane", System(Projection(2, {}), KnownDatum(L"DATUM_WGS84")),
                   "an arbitrary plane has no place on the Earth (a projection with faulty "
                   "parameters becomes one)"},
        ProblemRow{"OfAMethodWithoutAName", System(Projection(99, {}), gcs::DatumDef()),
                   "no projection of PROJ's corresponds to method 99 of the host"},
        ProblemRow{"WithoutAScale", System(Projection(25, {{6, 9.0}, {12, 0.0}}), gcs::DatumDef()),
                   "the scale factor 0 of the projection \"Transverse Mercator\" is missing or out "
                   "of range"},
        ProblemRow{"WithADatumThatIsNoNumber", System(LongitudeLatitude(), DatumWithoutNumbers()),
                   "the datum's parameters are out of range"}),
    [](const auto& row) { return row.param.name; });

TEST(APlane, CantBeTransformed) {
    const app::Transformation way = ToWgs84(gcs::PlaneDef(1.0));

    EXPECT_EQ(way.Problem(), "a plane system has no place on the Earth");
}

}  // namespace
