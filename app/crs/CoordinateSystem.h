// What the coordinates of a layer are: the one answer that reading, writing, drawing and
// describing share.
#pragma once

#include "app/crs/Clause.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace app {

enum class SystemKind {
    Unknown,  // the source names a system that can't be understood; `problem` says why
    Faulty,   // no coordinates can be in such a system; `problem` says why
    Plane,    // has no place on the Earth
    Earth,
};

// An Earth system is known by `definition`, in PROJ's terms. One that came from a MIF clause or
// from the host has the clause, too, and its places follow from the clause: the datum's own numbers
// lead to WGS 84, never grids or a network. One that was named by a register code or a definition
// takes PROJ's best operation that needs no network.
//
// Coordinates go easting (longitude) first, whatever axis order the register has for the system.
struct CoordinateSystem {
    SystemKind kind = SystemKind::Unknown;
    std::string name;        // in words
    std::string problem;     // Unknown and Faulty: why, in a sentence without full stop
    std::string definition;  // Earth: a register code, a PROJ string or WKT; else empty

    // Of a system that was named by its register: "EPSG", 3301. Empty and 0 for others, which may
    // equal a register entry all the same: see Identify.
    std::string authority;
    int code = 0;

    std::optional<Clause> clause;
    double metresPerUnit = 1.0;  // of the coordinates; 1 for degrees
    bool isGeographic = false;   // the coordinates are longitude and latitude in degrees

    std::vector<std::string> notes;     // what was understood in another way than it is written
    std::vector<std::string> warnings;  // what may put the coordinates into another place

    bool IsOnEarth() const { return kind == SystemKind::Earth; }
};

// A layer's system, shared by all that have it; null when the source names none.
using SystemPtr = std::shared_ptr<const CoordinateSystem>;

// Returns the unit of the coordinates: "degree", "m", "survey ft", or "1/3.5 m"; empty when nothing
// is known of them.
std::string UnitInWords(const CoordinateSystem& system);

// Longitude and latitude of WGS 84.
CoordinateSystem Wgs84System();
bool IsWgs84(const CoordinateSystem& system);

CoordinateSystem PlaneSystem(double metresPerUnit);

// A system of which only this is known: why it isn't.
CoordinateSystem UnknownSystem(std::string problem);

// The system of a clause. It is unknown when a parameter is out of range, and faulty when the
// affine transformation can't be inverted.
CoordinateSystem SystemOfClause(Clause clause);

// Whether coordinates of both systems mean the same places without a transformation, as far as
// their definitions tell.
bool IsSameSystem(const CoordinateSystem& left, const CoordinateSystem& right);

}  // namespace app
