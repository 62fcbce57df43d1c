// A GeoPackage in a temporary folder: written with the writer, then asked with SQL as any other
// program would.
#pragma once

#include "app/formats/gpkg/GeoPackageReader.h"
#include "app/formats/gpkg/GeoPackageWriter.h"
#include "tests/support/Features.h"
#include "tests/support/KeptMessages.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

struct sqlite3;

namespace gpkg_test {

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

    // Called before the writer is wanted: it writes styles.
    void WithStyles() { withStyles_ = true; }

    // Hands a copy of the feature to that writer.
    void Write(app::Feature feature) { Writer().Write(feature); }

    app::Reporter& TheReporter() { return messages_.Reporter(); }

    // The rows of a query, columns parted by '|' and rows by line feeds; what a statement without
    // rows did is kept. ST_ functions are there, as in a program that knows packages.
    std::string Query(const std::string& sql);

    // What writers and readers said about the data.
    std::string Messages() const { return messages_.Text(); }

    const support::TemporaryFolder& Folder() const { return folder_; }

private:
    support::TemporaryFolder folder_;
    support::KeptMessages messages_;
    bool withStyles_ = false;
    std::optional<app::GeoPackageWriter> writer_;
    sqlite3* handle_ = nullptr;  // null until the first query
};

}  // namespace gpkg_test
