// GeoPackages as they are read: whole databases, and one whose geometries and columns are the
// input.
#include "app/base/Errors.h"
#include "app/base/Reporter.h"
#include "app/formats/gpkg/BlobReader.h"
#include "app/formats/gpkg/GeoPackageReader.h"
#include "app/sqlite/Sqlite.h"
#include "fuzz/FuzzInput.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <numeric>

namespace {

void CheckGeometry(const app::Geometry& geometry) {
    const std::size_t vertices =
        std::accumulate(geometry.partSizes.begin(), geometry.partSizes.end(), std::size_t{0});
    fuzz::Require(geometry.kind != app::GeometryKind::Region || vertices == geometry.points.size(),
                  "the rings have the region's vertices");
    fuzz::Require(geometry.kind != app::GeometryKind::Line || geometry.points.size() >= 2,
                  "a line has two vertices");
}

void CheckFeature(const app::Feature& feature) {
    CheckGeometry(feature.geometry);
    std::ranges::for_each(feature.members, CheckGeometry);
    fuzz::Require(feature.members.empty() || feature.geometry.kind == app::GeometryKind::Collection,
                  "a collection alone has members");
}

// Reads all layers; damage is told, and does not end the reading.
void ReadPackage(const std::filesystem::path& path) {
    static std::FILE* const nowhere = std::fopen("/dev/null", "w");
    app::Reporter reporter(nowhere, /*isTerminal=*/false, /*useColor=*/false);
    try {
        app::GeoPackageReader reader(path, [](const app::FeatureDamage& damage) {
            fuzz::Require(!damage.problem.empty(), "damage is told in words");
        });
        const std::size_t layers = reader.LayerNames().size();
        for (std::size_t layer = 0; layer < layers; ++layer) {
            const app::LayerFacts facts = reader.Begin(layer, reporter);
            std::uint64_t left = 1000;  // a view may have rows without end
            reader.Read(reporter, [&](app::Feature& feature) {
                fuzz::Require(feature.values.size() == facts.columns.size(),
                              "a feature has a value a column");
                CheckFeature(feature);
                return --left > 0;
            });
        }
    } catch (const app::Failure& failure) {
        fuzz::Require(*failure.what() != '\0', "a failure says what it is");
    }
}

// The input's first line are the columns of a table, as SQL; the rest is one geometry.
void MakePackage(const std::filesystem::path& path, std::string_view columns,
                 std::string_view blob) {
    app::SqliteDatabase database(path, app::SqliteDatabase::Mode::Create, "package");
    database.Execute(
        "CREATE TABLE gpkg_contents (table_name TEXT, data_type TEXT, identifier TEXT);"
        "CREATE TABLE gpkg_geometry_columns (table_name TEXT, column_name TEXT, srs_id);"
        "CREATE TABLE gpkg_spatial_ref_sys (srs_name, srs_id, organization, "
        "organization_coordsys_id, definition);"
        "INSERT INTO gpkg_contents VALUES ('t', 'features', 't');"
        "INSERT INTO gpkg_geometry_columns VALUES ('t', 'geom', 4326);"
        "INSERT INTO gpkg_spatial_ref_sys VALUES ('WGS 84', 4326, 'EPSG', 4326, '')");
    try {
        database.Execute("CREATE TABLE t (geom BLOB, " + std::string(columns) + ")");
    } catch (const app::Failure&) {
        database.Execute("CREATE TABLE t (geom BLOB)");
    }
    app::SqliteStatement insert(database, "INSERT INTO t (geom) VALUES (?)");
    insert.BindBlob(1, blob);
    insert.Step();
    database.Close();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::TextOf(data, size);
    const std::filesystem::path path = fuzz::PathOf("map.gpkg");
    fuzz::RemoveFile("map.gpkg");
    if (text.starts_with("SQLite format 3")) {
        fuzz::WriteFile("map.gpkg", text);
        ReadPackage(path);
        return 0;
    }
    app::Feature feature;
    try {
        app::ReadBlob(text, feature);
        CheckFeature(feature);
    } catch (const app::BlobError& error) {
        fuzz::Require(*error.what() != '\0', "an error says what it is");
    }
    if (const std::size_t lineEnd = text.find('\n'); lineEnd != std::string_view::npos) {
        try {
            MakePackage(path, text.substr(0, lineEnd), text.substr(lineEnd + 1));
        } catch (const app::Failure&) {
            return 0;  // SQL that changes more than the table
        }
        ReadPackage(path);
    }
    return 0;
}
