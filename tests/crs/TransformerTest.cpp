// Many points at once, points that fail, and systems that can't be transformed.
#include "app/crs/CoordinateTransformer.h"
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

TEST(TheTransformer, BringsPointsThereAndBack) {
    const app::CoordinateTransformer transformer(Utm32());
    std::vector<double> x{400000.0, 500000.0, 650000.5};
    std::vector<double> y{5500000.0, 0.0, 6100000.25};

    EXPECT_EQ(transformer.ToWgs84(x, y), 0U);
    EXPECT_EQ(transformer.FromWgs84(x, y), 0U);

    EXPECT_NEAR(x[0], 400000.0, 0.003);
    EXPECT_NEAR(y[0], 5500000.0, 0.003);
    EXPECT_NEAR(x[1], 500000.0, 0.003);
    EXPECT_NEAR(y[1], 0.0, 0.003);
    EXPECT_NEAR(x[2], 650000.5, 0.003);
    EXPECT_NEAR(y[2], 6100000.25, 0.003);
}

TEST(TheTransformer, MarksPointsThatFailAndGoesOnBehindThem) {
    const app::CoordinateTransformer transformer(Utm32());
    std::vector<double> x{10.0, 10.0, std::numeric_limits<double>::quiet_NaN(), 10.0};
    std::vector<double> y{50.0, 95.0, 50.0, 50.0};

    EXPECT_EQ(transformer.FromWgs84(x, y), 2U);

    EXPECT_EQ(x[1], HUGE_VAL);
    EXPECT_EQ(y[1], HUGE_VAL);
    EXPECT_EQ(x[2], HUGE_VAL);
    EXPECT_EQ(y[2], HUGE_VAL);
    EXPECT_EQ(x[3], x[0]);
    EXPECT_EQ(y[3], y[0]);
    EXPECT_LT(x[3], 1e6);
}

TEST(TheTransformer, FailsForALatitudeBeyondThePole) {
    const app::CoordinateTransformer transformer(
        System(LongitudeLatitude(), KnownDatum(L"DATUM_ED50")));
    std::vector<double> x{10.0, 10.0};
    std::vector<double> y{95.0, 90.0};

    EXPECT_EQ(transformer.ToWgs84(x, y), 1U);

    EXPECT_EQ(y[0], HUGE_VAL);
    EXPECT_NEAR(y[1], 90.0, 0.01);
}

TEST(TheTransformer, FailsForCoordinatesOffTheMap) {
    const app::CoordinateTransformer transformer(
        System(Projection(14, {{3, 1.0}, {6, 0.0}}), KnownDatum(L"DATUM_WGS84")));
    std::vector<double> x{0.0, 0.0};
    std::vector<double> y{2e8, 0.0};

    EXPECT_EQ(transformer.ToWgs84(x, y), 1U);

    EXPECT_EQ(x[0], HUGE_VAL);
    EXPECT_EQ(x[1], 0.0);
}

TEST(TheTransformer, DoesNothingWithoutPoints) {
    const app::CoordinateTransformer transformer(Utm32());

    EXPECT_EQ(transformer.ToWgs84({}, {}), 0U);
}

TEST(TheTransformer, CanBeMoved) {
    app::CoordinateTransformer first(Utm32());
    const app::CoordinateTransformer second(std::move(first));
    std::vector<double> x{500000.0};
    std::vector<double> y{5500000.0};

    EXPECT_EQ(second.ToWgs84(x, y), 0U);
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
    const app::CoordinateTransformer transformer(GetParam().system);
    std::vector<double> x{1.0, 2.0};
    std::vector<double> y{1.0, 2.0};

    EXPECT_EQ(transformer.problem(), GetParam().problem);
    EXPECT_EQ(transformer.ToWgs84(x, y), 2U);
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
        ProblemRow{"OfTheOtherObliqueMercator", System(Projection(28, {}), gcs::DatumDef()),
                   "no projection of PROJ's corresponds to \"Oblique Mercator of another kind\""},
        ProblemRow{"OfAMethodWithoutAName", System(Projection(99, {}), gcs::DatumDef()),
                   "no projection of PROJ's corresponds to method 99"},
        ProblemRow{"WithAMissingParameter", System(Projection(25, {{6, 9.0}}), gcs::DatumDef()),
                   "parameter 9 of the projection \"Transverse Mercator\" is missing or out of "
                   "range"},
        ProblemRow{"WithADatumThatIsNoNumber", System(LongitudeLatitude(), DatumWithoutNumbers()),
                   "the datum's parameters are out of range"}),
    [](const auto& row) { return row.param.name; });

TEST(APlane, CantBeTransformed) {
    const app::CoordinateTransformer transformer(gcs::PlaneDef(1.0));

    EXPECT_EQ(transformer.problem(), "a plane system has no place on the Earth");
}

}  // namespace
