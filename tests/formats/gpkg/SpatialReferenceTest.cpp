// Systems of files as rows of the package's table, and back.
#include "app/formats/gpkg/SpatialReference.h"

#include "app/crs/CrsIdentity.h"
#include "app/crs/GcsFromCrs.h"
#include "app/crs/GcsToProj.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

// Throws when MIF has no such system.
std::unique_ptr<gcs::CSDef> System(const std::string& definition) {
    app::CrsForExport crs = app::GcsFromCrs(definition);
    if (!crs) {
        throw std::runtime_error(crs.problem);
    }
    return std::move(crs.system);
}

TEST(ReferenceOf, NoSystemIsUndefined) {
    EXPECT_TRUE(app::ReferenceOf(nullptr).IsUndefined());
}

TEST(ReferenceOf, APlaneIsUndefined) {
    const gcs::PlaneDef plane{1.0};

    EXPECT_TRUE(app::ReferenceOf(&plane).IsUndefined());
}

TEST(ReferenceOf, Wgs84IsTheRowThatEveryPackageHas) {
    EXPECT_EQ(app::ReferenceOf(System("EPSG:4326").get()), app::Wgs84Reference());
}

TEST(ReferenceOf, ASystemOfTheRegisterHasItsCode) {
    const app::SpatialReference reference = app::ReferenceOf(System("EPSG:32635").get());

    EXPECT_EQ(reference.organization, "EPSG");
    EXPECT_EQ(reference.code, 32635);
    EXPECT_EQ(reference.name, "WGS 84 / UTM zone 35N");
    EXPECT_EQ(reference.definition.substr(0, 30), "PROJCS[\"WGS 84 / UTM zone 35N\"");
}

TEST(ReferenceOf, ASystemOfItsOwnHasADefinitionAndNoCode) {
    const app::SpatialReference reference = app::ReferenceOf(
        System(
            "+proj=tmerc +lat_0=2 +lon_0=22.25 +k=0.9 +x_0=7 +y_0=8 +ellps=bessel +towgs84=1,2,3")
            .get());

    EXPECT_EQ(reference.organization, "NONE");
    EXPECT_FALSE(reference.IsUndefined());
    EXPECT_NE(reference.definition.find("Transverse_Mercator"), std::string::npos);
}

TEST(SystemOf, AnUndefinedReferenceIsNullWithoutAReason) {
    std::string problem;

    EXPECT_EQ(app::SystemOf({}, problem), nullptr);
    EXPECT_EQ(problem, "");
}

TEST(SystemOf, AReferenceThatNobodyKnowsHasAReason) {
    std::string problem;

    EXPECT_EQ(app::SystemOf({.name = "x", .definition = "FOO[1]", .description = ""}, problem),
              nullptr);
    EXPECT_NE(problem, "");
}

TEST(SystemOf, ACodeGivesTheSystem) {
    std::string problem;

    const auto system = app::SystemOf(app::ReferenceOf(System("EPSG:32635").get()), problem);

    ASSERT_NE(system, nullptr);
    EXPECT_EQ(app::Identify(*system).epsgCode, 32635);
}

TEST(SystemOf, ADefinitionGivesTheSystem) {
    const std::string definition =
        "+proj=tmerc +lat_0=2 +lon_0=22.25 +k=0.9 +x_0=7 +y_0=8 +ellps=bessel +towgs84=1,2,3";
    const auto original = System(definition);
    std::string problem;

    const auto system = app::SystemOf(app::ReferenceOf(original.get()), problem);

    ASSERT_NE(system, nullptr) << problem;
    EXPECT_EQ(app::ToProj(*system).crs, app::ToProj(*original).crs);
}

}  // namespace
