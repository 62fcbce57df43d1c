// Turns the translation objects of an import into features.
#pragma once

#include "app/feature/Feature.h"
#include "host/zeio/TrObjects.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace app {

// Text of the host's code page 0 as UTF-8.
std::string Utf8FromNarrow(std::string narrow);

class FeatureBuilder {
public:
    explicit FeatureBuilder(std::vector<LayerColumn> columns) : columns_(std::move(columns)) {}

    // Remembers a pen, brush or font, which holds for what follows. A graphic object moves into the
    // feature (the object's vectors may be left empty) and gives true.
    bool Take(zeio::TrBase& object, Feature& feature);

private:
    bool TakeGeometry(zeio::TrBase& object, Feature& feature);
    void TakePolygon(const zeio::TrPolygon& polygon, Feature& feature);
    void TakeText(const zeio::TrText& text, Feature& feature);
    void TakeStyle(zeio::TrBase& object);
    void TakeValues(const shr::CParamList& attributes, Feature& feature);

    std::vector<LayerColumn> columns_;
    FeatureStyle style_;
    zeio::TrFont font_;

    // What a font sets aside until its text has come: the no-line pen and the colour brush between
    // the two are the text's alone.
    FeatureStyle styleBeforeText_;
    bool hasStyleBeforeText_ = false;
    std::uint64_t count_ = 0;
};

}  // namespace app
