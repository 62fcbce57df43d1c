// Systems of files as rows of the package's table, and back.
#include "app/formats/gpkg/SpatialReference.h"

#include "app/crs/Datums.h"
#include "app/crs/Definitions.h"
#include "app/crs/Transformation.h"

#include <gtest/gtest.h>

#include <string>

namespace {

app::CoordinateSystem System(const std::string& definition) {
    return app::SystemOfDefinition(definition);
}

app::SpatialReference ReferenceOf(const std::string& definition) {
    const app::CoordinateSystem system = System(definition);
    return app::ReferenceOf(&system);
}

TEST(ReferenceOf, NoSystemIsUndefined) {
    EXPECT_TRUE(app::ReferenceOf(nullptr).IsUndefined());
}

TEST(ReferenceOf, APlaneIsUndefined) {
    const app::CoordinateSystem plane = app::PlaneSystem(1.0);

    EXPECT_TRUE(app::ReferenceOf(&plane).IsUndefined());
}

TEST(ReferenceOf, Wgs84IsTheRowThatEveryPackageHas) {
    EXPECT_EQ(ReferenceOf("EPSG:4326"), app::Wgs84Reference());
}

TEST(ReferenceOf, ASystemOfTheRegisterHasItsCode) {
    const app::SpatialReference reference = ReferenceOf("EPSG:32635");

    EXPECT_EQ(reference.organization, "EPSG");
    EXPECT_EQ(reference.code, 32635);
    EXPECT_EQ(reference.name, "WGS 84 / UTM zone 35N");
    EXPECT_EQ(reference.definition.substr(0, 30), "PROJCS[\"WGS 84 / UTM zone 35N\"");
}

TEST(ReferenceOf, ASystemThatAnotherAuthorityNamesHasThatCode) {
    const app::SpatialReference reference = ReferenceOf("ESRI:102003");

    EXPECT_EQ(reference.organization, "ESRI");
    EXPECT_EQ(reference.code, 102003);
}

TEST(ReferenceOf, TheSystemThatWasNamedIsNotTheOneThatIsEqual) {
    EXPECT_EQ(ReferenceOf("EPSG:25835").code, 25835);
    EXPECT_EQ(ReferenceOf("EPSG:3067").code, 3067);
    EXPECT_EQ(ReferenceOf("EPSG:31467").code, 31467);
}

TEST(ReferenceOf, AClauseThatEqualsASystemOfTheRegisterHasItsCode) {
    app::Clause clause;
    clause.projection = app::KnownProjection(10);
    clause.datum = app::DatumOfCode(157);
    const app::CoordinateSystem system = app::SystemOfClause(clause);

    EXPECT_EQ(app::ReferenceOf(&system).code, 3857);
}

constexpr const char* kOwn =
    "+proj=tmerc +lat_0=2 +lon_0=22.25 +k=0.9 +x_0=7 +y_0=8 +ellps=bessel +towgs84=1,2,3";

TEST(ReferenceOf, ASystemOfItsOwnHasADefinitionAndNoCode) {
    const app::SpatialReference reference = ReferenceOf(kOwn);

    EXPECT_EQ(reference.organization, "NONE");
    EXPECT_EQ(reference.code, -1);
    EXPECT_FALSE(reference.IsUndefined());
    EXPECT_NE(reference.definition.find("Transverse_Mercator"), std::string::npos);
}

TEST(SystemOf, AnUndefinedReferenceIsNull) {
    EXPECT_EQ(app::SystemOf({}), nullptr);
}

TEST(SystemOf, AReferenceThatNobodyKnowsIsUnknownWithAReason) {
    const app::SystemPtr system =
        app::SystemOf({.name = "x", .definition = "FOO[1]", .description = ""});

    ASSERT_NE(system, nullptr);
    EXPECT_EQ(system->kind, app::SystemKind::Unknown);
    EXPECT_NE(system->problem, "");
}

TEST(SystemOf, ACodeGivesTheSystem) {
    const app::SystemPtr system = app::SystemOf(ReferenceOf("EPSG:28992"));

    ASSERT_NE(system, nullptr);
    EXPECT_EQ(system->definition, "EPSG:28992");
}

TEST(SystemOf, ADefinitionGivesTheSystem) {
    const app::SystemPtr system = app::SystemOf(ReferenceOf(kOwn));

    ASSERT_NE(system, nullptr);
    ASSERT_TRUE(system->IsOnEarth()) << system->problem;
    EXPECT_FALSE(app::Transformation(System(kOwn), *system).IsNeeded());
}

TEST(SystemOf, ACodeThatProjLacksGivesTheDefinition) {
    app::SpatialReference reference = ReferenceOf("EPSG:28992");
    reference.organization = "EPSG";
    reference.code = 999999;

    EXPECT_TRUE(app::SystemOf(reference)->IsOnEarth());
}

}  // namespace
