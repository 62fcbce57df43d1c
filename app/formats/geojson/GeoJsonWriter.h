// Writes features as GeoJSON (RFC 7946): a collection with one feature per line, one feature per
// line or a text sequence (RFC 8142).
#pragma once

#include "app/base/Output.h"
#include "app/base/Reporter.h"
#include "app/feature/Target.h"

#include <string>
#include <vector>

namespace app {

enum class GeoJsonForm { Collection, Lines, Sequence };

class GeoJsonWriter : public Target {
public:
    // With styles, pens and brushes become simplestyle properties (stroke, fill, ...). The reporter
    // must outlive the writer.
    GeoJsonWriter(const std::filesystem::path& path, IfExists ifExists, GeoJsonForm form,
                  bool withStyles, Reporter& reporter);

    void BeginLayer(const LayerFacts& layer) override;

    // Regions become polygons with their holes, outer rings counter-clockwise; texts become points
    // with the properties text, angle, height and font. A feature without geometry, a coordinate
    // that is not a finite number, and too few of them give a null geometry; a member of a
    // collection with the same faults is left out.
    void Write(Feature& feature) override;

    // Warns of objects whose coordinates gave a null geometry.
    bool Finish() override;

private:
    void WriteProperties(const Feature& feature);
    void WriteTextProperties(const Geometry& geometry);
    void WriteStyle(const Geometry& geometry);
    void WriteStroke(const Pen& pen);
    void WriteMarker(const Style& style);
    void WriteCollection(const std::vector<Geometry>& members);

    // Each returns false, with nothing written, for a geometry that GeoJSON can't hold.
    bool WriteGeometry(const Geometry& geometry);
    bool WriteLine(const Geometry& geometry);
    bool WriteRegion(const Geometry& geometry);
    void Key(const std::string& name);

    Reporter& reporter_;
    std::string subject_;
    OutputFile output_;
    GeoJsonForm form_;
    bool withStyles_;
    std::string collectionName_;
    std::vector<std::string> keys_;  // of the layer's columns, as JSON with their colon
    std::vector<bool> isTextKey_;    // a column with the name of a text's property
    std::string text_;               // of the feature under way
    bool isFirstProperty_ = true;
    std::size_t count_ = 0;
    std::size_t withoutGeometry_ = 0;  // objects that have coordinates
    bool isBegun_ = false;
};

}  // namespace app
