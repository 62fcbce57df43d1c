// Moves features from their source's system to that of the output. Needs PROJ.
#pragma once

#include "app/crs/Transformation.h"
#include "app/feature/Feature.h"

#include <cstdint>
#include <string>
#include <vector>

namespace app {

class Reprojection {
public:
    // Throws Failure when one of the systems can't be transformed.
    Reprojection(const CoordinateSystem& from, const CoordinateSystem& to);

    // Whether coordinates change at all. Curves must have become lines and regions then.
    bool IsNeeded() const { return transformation_.IsNeeded(); }

    // Leaves results as they are computed, for those who round them otherwise.
    void KeepAllDecimals() { stepsPerUnit_ = 0.0; }

    // Points that fail become infinite. Degrees are rounded to nine decimals, lengths to about a
    // hundredth of a millimetre, unless all decimals are kept: what lies behind them is the noise
    // of the computation. Texts get the height and angle that they have there, and lose their box.
    void Apply(Feature& feature);
    void Apply(std::vector<shr::Vec2d>& points);

    std::uint64_t FailedPoints() const { return failedPoints_; }

    // What a user should know about the result, beside the warnings of the systems.
    const std::vector<std::string>& Warnings() const { return transformation_.Warnings(); }

private:
    void Apply(Geometry& geometry);
    void ApplyToText(Geometry& text);

    Transformation transformation_;
    double stepsPerUnit_;  // of the rounded coordinates; 0: they are not rounded
    std::vector<double> x_;
    std::vector<double> y_;
    std::uint64_t failedPoints_ = 0;
};

}  // namespace app
