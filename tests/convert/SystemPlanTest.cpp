// Which system the output of a conversion gets, and what is said of it.
#include "app/convert/SystemPlan.h"

#include "app/base/Errors.h"
#include "tests/support/KeptMessages.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using app::SystemRule;

class APlanOfSystems : public testing::Test {
protected:
    std::unique_ptr<gcs::CSDef> System(const std::string& definition) {
        return app::SystemOfDefinition("--crs", definition, messages_.Reporter());
    }

    app::SystemPlan Plan(const gcs::CSDef* source, SystemRule rule, const std::string& crs = "") {
        return app::PlanSystems(source, rule, crs, "a.mif", messages_.Reporter());
    }

    std::string Messages() const { return messages_.Text(); }

private:
    support::KeptMessages messages_;
};

TEST_F(APlanOfSystems, KeepsTheInputsSystemWhereTheFormatTakesAny) {
    const auto utm = System("EPSG:32635");

    const app::SystemPlan plan = Plan(utm.get(), SystemRule::AsInput);

    EXPECT_FALSE(plan.reprojection);
    ASSERT_NE(plan.output, nullptr);
    EXPECT_FALSE(app::IsWgs84(plan.output.get()));
    EXPECT_EQ(Messages(), "");
}

TEST_F(APlanOfSystems, LeadsToLongitudeAndLatitudeWhereTheFormatWantsThem) {
    const auto utm = System("EPSG:32635");
    for (const SystemRule rule : {SystemRule::Wgs84IfUnnamed, SystemRule::Wgs84Only}) {
        const app::SystemPlan plan = Plan(utm.get(), rule);

        EXPECT_TRUE(plan.reprojection);
        EXPECT_TRUE(app::IsWgs84(plan.output.get()));
    }
    EXPECT_EQ(Messages(), "");
}

TEST_F(APlanOfSystems, MovesNothingThatIsThereAlready) {
    const auto degrees = System("wgs84");

    const app::SystemPlan plan = Plan(degrees.get(), SystemRule::Wgs84Only);

    EXPECT_FALSE(plan.reprojection);
    EXPECT_TRUE(app::IsWgs84(plan.output.get()));
}

TEST_F(APlanOfSystems, LeadsToTheSystemThatIsNamed) {
    const auto degrees = System("wgs84");

    const app::SystemPlan plan = Plan(degrees.get(), SystemRule::AsInput, "EPSG:32635");

    EXPECT_TRUE(plan.reprojection);
    EXPECT_FALSE(app::IsWgs84(plan.output.get()));
}

TEST_F(APlanOfSystems, LeavesAPlaneAsItIs) {
    const app::SystemPlan plan = Plan(nullptr, SystemRule::Wgs84IfUnnamed);

    EXPECT_FALSE(plan.reprojection);
    EXPECT_EQ(plan.output, nullptr);
    EXPECT_EQ(Messages(), "qolf: note: a.mif: has no place on the Earth; the coordinates stay as "
                          "they are\n");
}

TEST_F(APlanOfSystems, SaysSoWhenGeoJsonHoldsOtherCoordinates) {
    const auto utm = System("EPSG:32635");

    const app::SystemPlan plan = Plan(utm.get(), SystemRule::Wgs84Only, "keep");

    EXPECT_FALSE(plan.reprojection);
    EXPECT_EQ(Messages(),
              "qolf: note: a.mif: the coordinates are written as they are, which is not the "
              "longitude and latitude that GeoJSON readers expect\n");
}

TEST_F(APlanOfSystems, RefusesAnotherSystemForGeoJson) {
    const auto degrees = System("wgs84");

    EXPECT_THROW(static_cast<void>(Plan(degrees.get(), SystemRule::Wgs84Only, "EPSG:32635")),
                 app::UsageError);
}

TEST_F(APlanOfSystems, NamesADefinitionThatIsNone) {
    const auto degrees = System("wgs84");
    try {
        static_cast<void>(Plan(degrees.get(), SystemRule::AsInput, "no such system"));
        FAIL() << "the definition is not refused";
    } catch (const app::Failure& failure) {
        EXPECT_TRUE(std::string(failure.what()).starts_with("--crs no such system: "))
            << failure.what();
    }
}

TEST_F(APlanOfSystems, KeepsASystemThatCantBeMovedWithAWarning) {
    gcs::GCSDef faulty;  // neither a projection nor a datum

    const app::SystemPlan plan = Plan(&faulty, SystemRule::Wgs84IfUnnamed);

    EXPECT_FALSE(plan.reprojection);
    EXPECT_NE(plan.output, nullptr);
    EXPECT_TRUE(Messages().starts_with("qolf: warning: a.mif: ")) << Messages();
    EXPECT_TRUE(Messages().ends_with("; the coordinates stay as they are\n")) << Messages();
}

}  // namespace
