// Where converted features go: a format's writer behind one interface.
#pragma once

#include "app/feature/Feature.h"
#include "host/gcs/CSDef.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace app {

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
    const gcs::CSDef* system = nullptr;     // of the coordinates as written; null: nothing is known
    std::optional<shr::Box2d> knownExtent;  // in these coordinates, when the input states one
    std::optional<PairFacts> pair = {};     // absent when the input is no MIF pair
};

class FeatureTarget {
public:
    virtual ~FeatureTarget() = default;

    // Called once a layer, before its features. Throws Failure.
    virtual void BeginLayer(const LayerFacts& layer) = 0;

    // May move parts out of the feature. Throws Failure.
    virtual void Write(Feature& feature) = 0;

    // Completes the output and moves it into place; without it nothing is left. False when there
    // was nothing to write and no output was made.
    virtual bool Finish() = 0;

    // Whether rectangles and ellipses can be written as they are.
    virtual bool TakesCurves() const = 0;
};

}  // namespace app
