// Reads GeoJSON: collections, single features and geometries, newline-delimited features and text
// sequences (RFC 8142), whatever the file is called. A feature is in memory at a time, however
// large the file is.
#pragma once

#include "app/base/RereadableInput.h"
#include "app/feature/Source.h"

#include <filesystem>
#include <string>
#include <vector>

namespace app {

class GeoJsonReader : public Source {
public:
    // Takes a path or "-"; standard input is spooled, since it is read twice. Throws Failure.
    explicit GeoJsonReader(const std::filesystem::path& path);

    // One layer, with the stem of the file's name.
    std::vector<std::string> LayerNames() const override;

    // Reads everything once: the columns are the properties in first-seen order, each of the kind
    // that holds all its values; texts that are all ISO dates, times, or both without another zone
    // than Z are of those kinds. Warns of an input without features. Throws Failure, naming the
    // feature, also for faults of later features.
    LayerFacts Begin(std::size_t layer, Reporter& reporter) override;

    // One feature for each of the file, with the style that its properties say. Objects and arrays
    // are their JSON text.
    void Read(Reporter& reporter, const FeatureSink& sink) override;

private:
    bool isStandardInput_;
    double size_;  // bytes; 0 when not known
    RereadableInput input_;
    std::vector<LayerColumn> columns_;
};

}  // namespace app
