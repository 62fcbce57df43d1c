// Turns the translation objects of an import into features.
#pragma once

#include "app/feature/Feature.h"
#include "host/zeio/TrObjects.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace app {

class FeatureBuilder {
public:
    // `bounds` is the box of the header's own Bounds line, by which the module grades pens.
    FeatureBuilder(std::vector<LayerColumn> columns, std::optional<shr::Box2d> bounds)
        : columns_(std::move(columns)), bounds_(bounds) {}

    // Remembers a pen, brush or font, which holds for the objects that follow, and returns false.
    // Copies a graphic object into the feature, with the style in force, and returns true.
    bool Take(zeio::TrBase& object, Feature& feature);

    // Copies the shape of a graphic object into the geometry; false for an object of another kind.
    // What the object doesn't say stays as it is.
    static bool TakeGeometry(zeio::TrBase& object, Geometry& geometry);

private:
    void TakeStyle(zeio::TrBase& object);
    void SetStyle(Geometry& geometry);
    void TakeValues(const shr::CParamList& attributes, Feature& feature);
    void SeeExtent(const Geometry& geometry);
    double Diagonal() const;

    struct ObjectStyle {
        std::optional<zeio::TrPen> pen;
        std::optional<zeio::TrBrush> brush;
    };

    std::vector<LayerColumn> columns_;
    std::optional<shr::Box2d> bounds_;
    std::optional<shr::Box2d> seen_;  // the extent of the objects so far; kept only without bounds_
    ObjectStyle style_;
    zeio::TrFont font_;

    // What a font sets aside until its text has come: the no-line pen and the colour brush between
    // the two are the text's alone.
    std::optional<ObjectStyle> styleBeforeText_;
    std::uint64_t count_ = 0;
};

}  // namespace app
