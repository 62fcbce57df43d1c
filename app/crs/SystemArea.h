// The part of the Earth that a coordinate system is made for. Needs PROJ.
#pragma once

#include "app/crs/CoordinateSystem.h"
#include "host/shr/Geometry.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace app {

class SystemArea {
public:
    // A system whose area is not known holds everything.
    explicit SystemArea(const CoordinateSystem& system);
    ~SystemArea();
    SystemArea(const SystemArea&) = delete;
    SystemArea& operator=(const SystemArea&) = delete;

    // Returns the first of the points, coordinates of the system, that lies outside by more than a
    // tenth of the area's width or height; points a little beyond are often used.
    std::optional<std::size_t> FirstOutside(std::span<const shr::Vec2d> points) const;

    // "longitude 21.74 to 28.2, latitude 57.52 to 59.75"; empty when it is not known.
    const std::string& Words() const { return words_; }

private:
    struct Limits;

    bool AnyOutside(std::span<const shr::Vec2d> points) const;

    std::unique_ptr<Limits> limits_;  // null when the area is not known
    std::string words_;
};

}  // namespace app
