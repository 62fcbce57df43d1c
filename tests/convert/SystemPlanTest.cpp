// Which system the output of a conversion gets, and what is said of it.
#include "app/convert/SystemPlan.h"

#include "app/base/Errors.h"
#include "app/crs/Definitions.h"
#include "app/crs/ReadClause.h"
#include "tests/support/KeptMessages.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

namespace {

using app::SystemRule;

class APlanOfSystems : public testing::Test {
protected:
    static app::SystemPtr Shared(app::CoordinateSystem system) {
        return std::make_shared<const app::CoordinateSystem>(std::move(system));
    }
    static app::SystemPtr System(const std::string& definition) {
        return Shared(app::SystemOfDefinition(definition));
    }
    static app::SystemPtr Clause(const std::string& clause) {
        return Shared(app::ReadClause(clause));
    }

    app::SystemPlan Plan(const app::SystemPtr& source, SystemRule rule,
                         const std::string& crs = "") {
        return app::PlanSystems(source, rule, crs, "a.mif", messages_.Reporter());
    }

    // What a plan that can't be made says.
    std::string Refusal(const app::SystemPtr& source, SystemRule rule, const std::string& crs) {
        try {
            static_cast<void>(Plan(source, rule, crs));
        } catch (const app::Failure& failure) {
            return failure.what();
        }
        return "not refused";
    }

    std::string Messages() const { return messages_.Text(); }

private:
    support::KeptMessages messages_;
};

TEST_F(APlanOfSystems, KeepsTheClauseOfTheInputForAPair) {
    const app::SystemPtr source =
        Clause(R"(Earth Projection 31, 109, "m", 5.4, 52.2, 0.9999, 155000, 463000)");

    const app::SystemPlan plan = Plan(source, SystemRule::AsClause);

    EXPECT_FALSE(plan.reprojection);
    ASSERT_NE(plan.output, nullptr);
    EXPECT_TRUE(app::IsSameSystem(*plan.output, *source));
    EXPECT_EQ(Messages(), "");
}

TEST_F(APlanOfSystems, GivesANamedSystemItsClauseInAPair) {
    const app::SystemPlan plan = Plan(System("EPSG:32635"), SystemRule::AsClause);

    EXPECT_FALSE(plan.reprojection);
    ASSERT_NE(plan.output, nullptr);
    ASSERT_TRUE(plan.output->clause);
    EXPECT_EQ(plan.output->clause->projection->code, 8);
    EXPECT_EQ(Messages(), "");
}

TEST_F(APlanOfSystems, WritesLongitudeAndLatitudeToAPairForASystemThatNoClauseExpresses) {
    const app::SystemPlan plan = Plan(System("EPSG:5514"), SystemRule::AsClause);

    EXPECT_TRUE(plan.reprojection);
    EXPECT_TRUE(app::IsWgs84(*plan.output));
    EXPECT_EQ(Messages(), "qolf: warning: a.mif: MIF can't express the projection \"Krovak (North "
                          "Orientated)\" (S-JTSK / Krovak East North); longitude and latitude of "
                          "WGS 84 are written\n");
}

TEST_F(APlanOfSystems, WritesNoSystemToAPairThatKeepsOneThatNoClauseExpresses) {
    const app::SystemPlan plan = Plan(System("EPSG:5514"), SystemRule::AsClause, "keep");

    EXPECT_FALSE(plan.reprojection);
    EXPECT_EQ(plan.output, nullptr);
    EXPECT_TRUE(Messages().ends_with("; no system is written\n")) << Messages();
}

TEST_F(APlanOfSystems, RefusesANamedSystemThatNoClauseExpresses) {
    EXPECT_EQ(Refusal(System("wgs84"), SystemRule::AsClause, "EPSG:5514"),
              "--crs EPSG:5514: MIF can't express the projection \"Krovak (North Orientated)\" "
              "(S-JTSK / Krovak East North)");
}

TEST_F(APlanOfSystems, LeadsToLongitudeAndLatitudeWhereTheFormatWantsThem) {
    for (const SystemRule rule : {SystemRule::Wgs84IfUnnamed, SystemRule::Wgs84Expected}) {
        const app::SystemPlan plan = Plan(System("EPSG:32635"), rule);

        EXPECT_TRUE(plan.reprojection);
        EXPECT_TRUE(app::IsWgs84(*plan.output));
    }
    EXPECT_EQ(Messages(), "");
}

TEST_F(APlanOfSystems, MovesNothingThatIsThereAlready) {
    const app::SystemPlan plan = Plan(System("wgs84"), SystemRule::Wgs84Expected);

    EXPECT_FALSE(plan.reprojection);
    EXPECT_TRUE(app::IsWgs84(*plan.output));
}

TEST_F(APlanOfSystems, LeadsToTheSystemThatIsNamed) {
    const app::SystemPlan plan = Plan(System("wgs84"), SystemRule::Wgs84IfUnnamed, "EPSG:5514");

    EXPECT_TRUE(plan.reprojection);
    EXPECT_EQ(plan.output->definition, "EPSG:5514");
    EXPECT_EQ(Messages(), "");
}

TEST_F(APlanOfSystems, LeavesAPlaneAsItIs) {
    const app::SystemPlan plan = Plan(nullptr, SystemRule::Wgs84IfUnnamed);

    EXPECT_FALSE(plan.reprojection);
    EXPECT_EQ(plan.output, nullptr);
    EXPECT_EQ(Messages(), "qolf: note: a.mif: has no place on the Earth; the coordinates stay as "
                          "they are\n");
}

TEST_F(APlanOfSystems, LeavesCoordinatesOfAnUnknownSystemWithAWarning) {
    const app::SystemPlan plan =
        Plan(Clause(R"(Earth Projection 99, 104, "m", 5)"), SystemRule::Wgs84IfUnnamed);

    EXPECT_FALSE(plan.reprojection);
    EXPECT_EQ(Messages(),
              "qolf: warning: a.mif: projection code 99 is not known in this format, "
              "and its coordinates can't be placed; the coordinates stay as they are\n");
}

TEST_F(APlanOfSystems, AsksForTheSystemOfTheInputWhenAnotherIsWanted) {
    EXPECT_EQ(Refusal(Clause(R"(Earth Projection 99, 104, "m", 5)"), SystemRule::Wgs84IfUnnamed,
                      "EPSG:3301"),
              "a.mif: projection code 99 is not known in this format, and its "
              "coordinates can't be placed; name the system of the file with --assume-crs");
}

TEST_F(APlanOfSystems, RefusesAnAffineTransformationThatCantBeInverted) {
    EXPECT_EQ(Refusal(Clause(R"(Earth Projection 10, 104, "m", 0 Affine Units "m", )"
                             R"(1, 2, 0, 2, 4, 0)"),
                      SystemRule::Wgs84IfUnnamed, ""),
              "a.mif: the affine transformation of the coordinate system can't be inverted; name "
              "the system of the file with --assume-crs");
}

TEST_F(APlanOfSystems, UndoesAnAffineTransformationThatAPackageCantHold) {
    const app::SystemPtr source =
        Clause(R"(Earth Projection 10, 104, "m", 0 Affine Units "m", 1, 0, 1000, 0, 1, 2000)");

    app::SystemPlan plan = Plan(source, SystemRule::Wgs84IfUnnamed, "keep");

    ASSERT_TRUE(plan.reprojection);
    EXPECT_FALSE(plan.output->clause->affine);
    std::vector<shr::Vec2d> points{{1500, 2700}};
    plan.reprojection->Apply(points);
    EXPECT_NEAR(points[0].x, 500, 1e-4);
    EXPECT_NEAR(points[0].y, 700, 1e-4);
}

TEST_F(APlanOfSystems, SaysSoWhenGeoJsonHoldsOtherCoordinates) {
    const app::SystemPlan plan = Plan(System("EPSG:32635"), SystemRule::Wgs84Expected, "keep");

    EXPECT_FALSE(plan.reprojection);
    EXPECT_EQ(Messages(),
              "qolf: note: a.mif: the coordinates are written as they are, which is not the "
              "longitude and latitude that GeoJSON readers expect\n");
}

TEST_F(APlanOfSystems, GivesGeoJsonTheSystemThatIsNamedAndSaysSo) {
    const app::SystemPlan plan = Plan(System("wgs84"), SystemRule::Wgs84Expected, "EPSG:32635");

    EXPECT_TRUE(plan.reprojection);
    EXPECT_EQ(Messages(),
              "qolf: note: a.mif: the coordinates are those of \"WGS 84 / UTM zone "
              "35N\", and not the longitude and latitude that GeoJSON readers expect\n");
}

TEST_F(APlanOfSystems, NamesADefinitionThatIsNone) {
    EXPECT_EQ(Refusal(System("wgs84"), SystemRule::AsClause, "no such system"),
              "--crs no such system: \"no such system\" is no coordinate system that PROJ knows");
}

TEST_F(APlanOfSystems, KeepsASystemThatCantBeMovedWithAWarning) {
    app::CoordinateSystem faulty;
    faulty.kind = app::SystemKind::Earth;
    faulty.definition = "+proj=nothing +type=crs";

    const app::SystemPlan plan = Plan(Shared(faulty), SystemRule::Wgs84IfUnnamed);

    EXPECT_FALSE(plan.reprojection);
    EXPECT_NE(plan.output, nullptr);
    EXPECT_TRUE(Messages().starts_with("qolf: warning: a.mif: ")) << Messages();
    EXPECT_TRUE(Messages().ends_with("; the coordinates stay as they are\n")) << Messages();
}

}  // namespace
