// Writes features as GeoJSON (RFC 7946): a collection with a feature a line, one feature a line,
// or a text sequence (RFC 8142).
#pragma once

#include "app/base/Output.h"
#include "app/feature/Target.h"

#include <string>
#include <vector>

namespace app {

enum class GeoJsonForm { Collection, Lines, Sequence };

class GeoJsonWriter : public FeatureTarget {
public:
    // With styles, pens and brushes become simplestyle properties (stroke, fill, ...).
    GeoJsonWriter(const std::filesystem::path& path, IfExists ifExists, GeoJsonForm form,
                  bool withStyles);

    void BeginLayer(const LayerFacts& layer) override;

    // Regions become polygons with their holes, outer rings counter-clockwise; texts become points
    // with the properties text, angle, height and font. A coordinate that is no finite number, or
    // too few of them, give a null geometry.
    void Write(Feature& feature) override;
    bool Finish() override;
    bool TakesCurves() const override { return false; }

private:
    void WriteProperties(const Feature& feature);
    void WriteTextProperties(const Feature& feature);
    void WriteStyle(const Feature& feature);
    void WriteGeometry(const Feature& feature);
    void WriteRegion(const Feature& feature);
    void Key(const std::string& name);

    OutputFile output_;
    GeoJsonForm form_;
    bool withStyles_;
    std::string collectionName_;
    std::vector<std::string> keys_;  // of the layer's columns, as JSON with their colon
    std::vector<bool> isTextKey_;    // a column with the name of a text's property
    std::string text_;               // of the feature under way
    bool isFirstProperty_ = true;
    std::size_t count_ = 0;
    bool isBegun_ = false;
};

}  // namespace app
