// Which parameters a projection method can't do without, and which values it refuses.
#include "tests/standalone/gcs/Definitions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace {

using gcs::ProjectionParameterID;

struct ClauseRow {
    std::string name;
    int method;
    std::vector<int> set;     // what reading such a clause sets
    std::vector<int> needed;  // of these, in the order of the numbers
};
void PrintTo(const ClauseRow& row, std::ostream* out) {
    *out << row.name;
}

// Values that no check objects to: parallels that are neither equal nor opposite.
double HarmlessValue(int id) {
    return id == 11 ? 50.0 : id == 12 || id == 3 ? 1.0 : 40.0;
}

gcs::ProjectionDef Without(const ClauseRow& row, int omitted) {
    gcs::ProjectionDef projection = Projection(row.method, {{3, 1.0}});
    for (const int id : row.set) {
        if (id != omitted) {
            projection.SetParameter(static_cast<ProjectionParameterID>(id), HarmlessValue(id));
        }
    }
    return projection;
}

// The ids whose absence is reported, each when it alone is left out.
std::vector<int> MissedIds(const ClauseRow& row) {
    std::vector<int> missed;
    for (int id = 0; id < gcs::kProjectionParameterCount; ++id) {
        if (Without(row, id).CheckParameters() == static_cast<ProjectionParameterID>(id) &&
            id != 0) {
            missed.push_back(id);
        }
    }
    return missed;
}

class AMethod : public testing::TestWithParam<ClauseRow> {};

TEST_P(AMethod, IsContentWithWhatItsClauseSets) {
    EXPECT_EQ(Without(GetParam(), 0).CheckParameters(), ProjectionParameterID::None);
}

TEST_P(AMethod, MissesEachParameterThatItNeeds) {
    EXPECT_EQ(MissedIds(GetParam()), GetParam().needed);
}

TEST_P(AMethod, WithoutAnyParameterMissesTheFirst) {
    const auto projection = Projection(GetParam().method, {});

    EXPECT_EQ(static_cast<int>(projection.CheckParameters()),
              GetParam().needed.empty() ? 0 : GetParam().needed.front());
}

INSTANTIATE_TEST_SUITE_P(
    , AMethod,
    testing::Values(ClauseRow{"LongitudeLatitude", 1, {}, {}},
                    ClauseRow{"ArbitraryPlane", 2, {}, {}},
                    ClauseRow{"LambertConformal", 16, {6, 7, 9, 10, 11, 4, 5}, {6, 9, 10, 11}},
                    ClauseRow{"EqualAreaPolar", 17, {6, 7, 9, 10}, {6, 10}},
                    ClauseRow{"EqualAreaAnyLatitude", 17, {6, 7, 10}, {6, 10}},
                    ClauseRow{"EquidistantAzimuthal", 4, {6, 7, 10}, {6, 10}},
                    ClauseRow{"EquidistantConic", 10, {6, 7, 9, 10, 11, 4, 5}, {6, 9, 10, 11}},
                    ClauseRow{"HotineOblique", 12, {6, 7, 9, 10, 14, 12, 4, 5}, {7, 9, 12, 14}},
                    ClauseRow{"OtherOblique", 28, {6, 7, 9, 10, 14, 12, 4, 5}, {7, 9, 12, 14}},
                    ClauseRow{"TransverseMercator", 25, {6, 7, 9, 10, 12, 4, 5}, {6, 9, 12}},
                    ClauseRow{"GaussKrueger", 26, {6, 7, 9, 10, 12, 4, 5}, {6, 9, 12}},
                    ClauseRow{"Albers", 3, {6, 7, 9, 10, 11, 14, 4, 5}, {6, 9, 10, 11}},
                    ClauseRow{"Mercator", 13, {6, 7}, {6}}, ClauseRow{"Miller", 18, {6, 7}, {6}},
                    ClauseRow{"Robinson", 22, {6, 7}, {6}}, ClauseRow{"Mollweide", 14, {6, 7}, {6}},
                    ClauseRow{"EckertIV", 7, {6, 7}, {6}}, ClauseRow{"EckertVI", 8, {6, 7}, {6}},
                    ClauseRow{"Sinusoidal", 24, {6, 7}, {6}},
                    ClauseRow{"NewZealandMapGrid", 29, {4, 5}, {4, 5}},
                    ClauseRow{"Stereographic", 20, {6, 7, 9, 10, 12, 4, 5}, {6, 9, 12}},
                    ClauseRow{"Polyconic", 21, {6, 7, 9, 10, 4, 5}, {6, 9}},
                    ClauseRow{"CassiniSoldner", 6, {6, 7, 9, 10, 4, 5}, {6, 9}},
                    ClauseRow{"EquidistantCylindrical", 9, {6, 7, 10, 4, 5}, {6, 10}}),
    [](const auto& row) { return row.param.name; });

struct ValueRow {
    std::string name;
    int id;
    double value;
    bool isRefused;
};
void PrintTo(const ValueRow& row, std::ostream* out) {
    *out << row.name;
}

class AValue : public testing::TestWithParam<ValueRow> {};

TEST_P(AValue, IsRefusedByItsParameterWhenOutOfRange) {
    auto projection = Projection(25, {{6, 9.0}, {9, 0.0}, {12, 1.0}});

    projection.SetParameter(static_cast<ProjectionParameterID>(GetParam().id), GetParam().value);

    EXPECT_EQ(static_cast<int>(projection.CheckParameters()),
              GetParam().isRefused ? GetParam().id : 0);
}

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

INSTANTIATE_TEST_SUITE_P(, AValue,
                         testing::Values(ValueRow{"LatitudeAtThePole", 9, -90.0, false},
                                         ValueRow{"LatitudeBeyondThePole", 9, 90.1, true},
                                         ValueRow{"FirstParallelBeyondThePole", 10, -90.1, true},
                                         ValueRow{"SecondParallelBeyondThePole", 11, 91.0, true},
                                         ValueRow{"LongitudeOfATurn", 6, 360.0, false},
                                         ValueRow{"LongitudeBeyondATurn", 6, -360.1, true},
                                         ValueRow{"CentreLongitudeBeyondATurn", 7, 361.0, true},
                                         ValueRow{"ScaleFactorOfZero", 12, 0.0, true},
                                         ValueRow{"NegativeScaleFactor", 12, -1.0, true},
                                         ValueRow{"UnitOfZero", 3, 0.0, true},
                                         ValueRow{"TinyUnit", 3, 1e-6, false},
                                         ValueRow{"FalseEastingThatIsNoNumber", 4, kNan, true},
                                         ValueRow{"FalseNorthingWithoutEnd", 5, HUGE_VAL, true},
                                         ValueRow{"LatitudeThatIsNoNumber", 9, kNan, true},
                                         ValueRow{"AzimuthThatIsNoNumber", 14, kNan, true},
                                         ValueRow{"AzimuthOfAnySize", 14, 500000.0, false}),
                         [](const auto& row) { return row.param.name; });

TEST(CheckParameters, RefusesOppositeParallelsOfAConeByTheSecond) {
    const auto cone = Projection(16, {{6, 0.0}, {9, 0.0}, {10, 30.0}, {11, -30.0}});

    EXPECT_EQ(cone.CheckParameters(), ProjectionParameterID::StandardParallel2);
}

TEST(CheckParameters, RefusesParallelsThatAreBothTheEquator) {
    const auto cone = Projection(3, {{6, 0.0}, {9, 0.0}, {10, 0.0}, {11, 0.0}});

    EXPECT_EQ(cone.CheckParameters(), ProjectionParameterID::StandardParallel2);
}

TEST(CheckParameters, AcceptsEqualParallelsOfACone) {
    const auto cone = Projection(10, {{6, 0.0}, {9, 0.0}, {10, 30.0}, {11, 30.0}});

    EXPECT_EQ(cone.CheckParameters(), ProjectionParameterID::None);
}

TEST(CheckParameters, RefusesAnEllipsoidWithoutASize) {
    auto projection = LongitudeLatitude();
    projection.SetParameter(ProjectionParameterID::Ellipsoid, gcs::EllipsoidDef());

    EXPECT_EQ(projection.CheckParameters(), ProjectionParameterID::Ellipsoid);
}

TEST(CheckParameters, RefusesAFlatEllipsoid) {
    auto projection = LongitudeLatitude();
    projection.SetParameter(ProjectionParameterID::Ellipsoid, gcs::EllipsoidDef(6378137.0, 1.0));

    EXPECT_EQ(projection.CheckParameters(), ProjectionParameterID::Ellipsoid);
}

TEST(CheckParameters, ReportsTheLowestOfSeveralFaults) {
    const auto projection = Projection(25, {{3, -1.0}, {6, 400.0}});

    EXPECT_EQ(projection.CheckParameters(), ProjectionParameterID::UnitsPerMetre);
}

TEST(CheckParameters, NeedsNoEllipsoid) {
    EXPECT_EQ(Projection(13, {{6, 0.0}}).CheckParameters(), ProjectionParameterID::None);
}

}  // namespace
