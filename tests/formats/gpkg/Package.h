// A GeoPackage in a temporary folder: written with the writer, then asked with SQL as any other
// program would.
#pragma once

#include "app/base/Reporter.h"
#include "app/feature/Feature.h"
#include "app/formats/gpkg/GeoPackageReader.h"
#include "app/formats/gpkg/GeoPackageWriter.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

struct sqlite3;

namespace gpkg_test {

app::LayerColumn Column(std::string name, app::ColumnKind kind, int width = 0);

app::Feature PointAt(double x, double y, std::vector<app::Value> values = {});
app::Feature PointsAt(std::vector<shr::Vec2d> points);
app::Feature LineThrough(std::vector<shr::Vec2d> points);

// Each ring is a list of points; a closed one ends where it begins.
app::Feature RegionOf(const std::vector<std::vector<shr::Vec2d>>& rings);

// Four corners, open.
std::vector<shr::Vec2d> Square(double x, double y, double side);

class Package : public testing::Test {
protected:
    Package();
    ~Package() override;

    std::filesystem::path Path() const { return folder_.path() / "out.gpkg"; }

    // Writes a package of one layer "layer".
    void WriteLayer(const std::vector<app::Feature>& features,
                    const std::vector<app::LayerColumn>& columns = {},
                    const app::SpatialReference& reference = app::Wgs84Reference());

    // A writer to write several layers with; call Finish on it.
    app::GeoPackageWriter& Writer();

    // Hands a copy of the feature to that writer.
    void Write(app::Feature feature) { Writer().Write(feature); }

    app::Reporter& TheReporter() { return reporter_; }

    // The rows of a query, columns parted by '|' and rows by line feeds; what a statement without
    // rows did is kept. ST_ functions are there, as in a program that knows packages.
    std::string Query(const std::string& sql);

    // What writers and readers said about the data.
    std::string Messages();

    const support::TemporaryFolder& Folder() const { return folder_; }

private:
    support::TemporaryFolder folder_;
    std::FILE* messages_;
    app::Reporter reporter_;
    std::optional<app::GeoPackageWriter> writer_;
    sqlite3* handle_ = nullptr;  // null until the first query
};

}  // namespace gpkg_test
