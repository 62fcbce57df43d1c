// A GeoPackage as the target of a conversion.
#pragma once

#include "app/feature/Target.h"
#include "app/formats/gpkg/GeoPackageWriter.h"

#include <filesystem>

namespace app {

class PackageTarget : public FeatureTarget {
public:
    // reporter must outlive the target. Throws Failure.
    PackageTarget(const std::filesystem::path& path, IfExists ifExists, Reporter& reporter)
        : writer_(path, ifExists, reporter) {}

    void BeginLayer(const LayerFacts& layer) override {
        writer_.BeginLayer(layer.name, layer.columns, ReferenceOf(layer.system));
    }
    void Write(Feature& feature) override { writer_.Write(feature); }
    bool Finish() override {
        writer_.Finish();
        return true;
    }
    bool TakesCurves() const override { return false; }

private:
    GeoPackageWriter writer_;
};

}  // namespace app
