// Moves coordinates from one system to another. Needs PROJ.
#pragma once

#include "app/crs/CoordinateSystem.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace app {

// A system that came from a MIF clause or the host is reached by its projection and its datum's own
// numbers; one that was named, by PROJ's best operation for each point that needs no network. No
// datum shift is made between a clause and a named system on the same datum of the register.
// Heights are taken as 0 on both sides, which costs up to about 2 mm on the way there and back.
//
// An object belongs to one thread at a time; several objects are independent.
class Transformation {
public:
    // A pair that can't be transformed gives an object that only knows its Problem().
    Transformation(const CoordinateSystem& from, const CoordinateSystem& to);
    ~Transformation();
    Transformation(Transformation&&) noexcept;
    Transformation& operator=(Transformation&&) noexcept;

    // Whether coordinates change at all: false for systems that agree to a tenth of a millimetre
    // over the area where both are used.
    bool IsNeeded() const { return isNeeded_; }

    // Transforms the points (x[i], y[i]) in place; both spans have the same length. Longitudes and
    // latitudes are degrees, x is the longitude. A point that fails becomes HUGE_VAL in x and y.
    // Returns how many failed; all, when there is a Problem().
    std::size_t Apply(std::span<double> x, std::span<double> y) const;

    // The same from `to` to `from`.
    std::size_t ApplyBackwards(std::span<double> x, std::span<double> y) const;

    // Why the pair can't be transformed; empty when it can.
    const std::string& Problem() const { return problem_; }

    // What a user should know about the result, beside the warnings of the systems.
    const std::vector<std::string>& Warnings() const { return warnings_; }

private:
    class Steps;

    std::unique_ptr<Steps> steps_;  // null with a problem
    bool isNeeded_ = true;
    std::string problem_;
    std::vector<std::string> warnings_;
};

}  // namespace app
