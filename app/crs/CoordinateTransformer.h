// Moves coordinates between a file's system and longitude and latitude of WGS 84.
#pragma once

#include "host/gcs/CSDef.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace app {

// Uses the datum parameters of the system alone, never grids or a network. Heights are taken as 0
// on both sides, which costs up to about 2 mm on the way there and back.
//
// An object belongs to one thread at a time; several objects are independent.
class CoordinateTransformer {
public:
    // A system that can't be transformed gives an object that only knows its problem().
    explicit CoordinateTransformer(const gcs::CSDef& system);
    ~CoordinateTransformer();
    CoordinateTransformer(CoordinateTransformer&&) noexcept;
    CoordinateTransformer& operator=(CoordinateTransformer&&) noexcept;

    // Transforms the points (x[i], y[i]) in place; both spans have the same length. Longitudes and
    // latitudes are degrees, x is the longitude. A point that fails becomes HUGE_VAL in x and y.
    // Returns how many failed; all, when there is a problem().
    std::size_t ToWgs84(std::span<double> x, std::span<double> y) const;
    std::size_t FromWgs84(std::span<double> x, std::span<double> y) const;

    // Why the system can't be transformed; empty when it can.
    const std::string& problem() const { return problem_; }

    // What a user should know about the result.
    const std::vector<std::string>& warnings() const { return warnings_; }

private:
    struct Pipeline;

    std::unique_ptr<Pipeline> pipeline_;  // null with a problem
    std::string problem_;
    std::vector<std::string> warnings_;
};

}  // namespace app
