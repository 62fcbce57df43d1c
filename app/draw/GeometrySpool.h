// Keeps the geometry of a map between the reading and the drawing, so that every file is read once.
#pragma once

#include "app/base/Spool.h"
#include "app/feature/Feature.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace app {

class GeometrySpool {
public:
    // What follows belongs to this layer.
    void BeginLayer(std::size_t layer);

    // Keeps kind, points, parts, style, and of a text its placement. `label` is UTF-8, empty for
    // none. Throws Failure when the temporary folder has no room.
    void Add(const Geometry& geometry, std::string_view label);

    // Receives what was added. The label is valid during the call.
    struct Receiver {
        std::function<void(std::size_t layer)> beginLayer;
        std::function<void(const Geometry& geometry, std::string_view label)> take;
    };

    // Gives back everything in its order, as often as wanted.
    void Read(const Receiver& receiver);

private:
    void WriteText(std::string_view text);
    void WriteStyle(const Style& style);
    static std::string TakeText(Spool::Reader& from);
    static Style TakeStyle(Spool::Reader& from);
    static void TakePlacement(Spool::Reader& from, TextPlacement& placement);

    Spool spool_;
    Style style_;  // of the last geometry
};

}  // namespace app
