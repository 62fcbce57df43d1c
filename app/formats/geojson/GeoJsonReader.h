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
    // Takes a path, or "-" for standard input, which is copied to a private file: it is read twice.
    // Throws Failure when the file can't be opened. `onDamage` is that of SourceOptions.
    explicit GeoJsonReader(const std::filesystem::path& path, DamageSink onDamage = {});

    // One layer, with the stem of the file's name.
    std::vector<std::string> LayerNames() const override;

    // Reads everything once. The columns are the properties in the order in which they appear, each
    // of the kind that can hold all its values. Texts that are all ISO dates, or times, or both
    // (without a zone or with Z) give columns of these kinds. Warns of an input without features.
    // Throws Failure, with the number of the feature, for any fault in the input.
    LayerFacts Begin(std::size_t layer, Reporter& reporter) override;

    // Hands over one feature for each of the file, with the style that its properties give. Values
    // that are objects or arrays become their JSON text.
    void Read(Reporter& reporter, const FeatureSink& sink) override;

private:
    bool isStandardInput_;
    double size_;  // bytes; 0 when not known
    RereadableInput input_;
    std::vector<LayerColumn> columns_;
    DamageSink onDamage_;
};

}  // namespace app
