// Where features go: a format's writer behind one interface.
#pragma once

#include "app/base/Output.h"
#include "app/feature/Feature.h"
#include "app/feature/LayerFacts.h"

#include <optional>
#include <string>

namespace app {

// What a user may ask of the writing. A format leaves alone what it has no use for.
struct TargetOptions {
    IfExists ifExists = IfExists::Refuse;
    bool asIs = false;                        // --as-is: MIF files as the module writes them
    std::string encoding;                     // of a MIF file; empty: one that has all texts
    bool withStyles = false;                  // --styles
    bool isAppended = false;                  // --append: to a file that may be there already
    bool noStore = false;                     // --no-store, for the export filter
    std::optional<std::string> optionString;  // for the export filter; absent: its stored options
    std::string modulePath;                   // as in Module
};

// Calls come in this order: for each layer BeginLayer, then Write for its features; Finish at the
// end. All operations throw Failure.
class Target {
public:
    Target() = default;
    virtual ~Target() = default;
    Target(const Target&) = delete;
    Target& operator=(const Target&) = delete;

    // `layer` describes the features as they are written: their columns and their coordinates.
    virtual void BeginLayer(const LayerFacts& layer) = 0;

    // May move parts out of the feature. Curves come only to a format that can hold them
    // (FormatHolds::curves).
    virtual void Write(Feature& feature) = 0;

    // Completes the output and moves it into place; without it nothing is left. Returns false when
    // there was nothing to write and no output was made.
    virtual bool Finish() = 0;
};

}  // namespace app
