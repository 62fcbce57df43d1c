// What is known of a layer before its first feature.
#pragma once

#include "app/feature/Values.h"
#include "host/shr/Geometry.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace app {

struct CoordinateSystem;

// What a MIF pair says of itself that a MIF file made of it keeps.
struct PairFacts {
    int version = 300;
    std::string charset = {};    // the name in the header; "" when it has none
    std::string codePage = {};   // that its texts were read in: "CP1252", "UTF-8"
    std::string delimiter = {};  // one character
    // The CoordSys clause as it is written, from the keyword on, with its Bounds, also when these
    // are on a line of their own behind it; line ends are LF. "" without a clause, and when
    // `LayerFacts::system` is no longer the clause's.
    std::string coordSysText = {};
};

// What a layer is before its first feature.
struct LayerFacts {
    std::string name;  // UTF-8
    std::vector<LayerColumn> columns;
    std::shared_ptr<const CoordinateSystem> system;  // of the coordinates; null: none is named
    std::optional<shr::Box2d> knownExtent;           // in these, when the source states one
    std::optional<PairFacts> pair = {};              // absent when the source is not a MIF pair
};

}  // namespace app
