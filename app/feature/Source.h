// Where features come from: a format's reader behind one interface.
#pragma once

#include "app/base/Reporter.h"
#include "app/feature/Feature.h"
#include "app/feature/LayerFacts.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace app {

enum class DamageKind {
    Geometry,  // can't be read
    Text,      // is not UTF-8
    Bytes,     // a value of bytes that are neither text nor number
};

// What can't be read of a feature.
struct FeatureDamage {
    std::uint64_t feature = 0;  // its number
    DamageKind kind = DamageKind::Geometry;
    std::string problem;  // in words
};

using DamageSink = std::function<void(const FeatureDamage& damage)>;

// What a user may ask of the reading. A format leaves alone what it has no use for.
struct SourceOptions {
    bool asIs = false;     // --as-is: the module gets a MIF file without any care
    bool noStore = false;  // --no-store: the filter neither reads nor writes stored options
    bool withoutValues =
        false;             // values may be null, where that is faster; faults of rows go unsaid
    std::string encoding;  // --encoding, of a MIF file's texts; empty: by its header
    std::shared_ptr<const CoordinateSystem> assumedSystem;  // --assume-crs; null: the source's own
    std::string modulePath;                                 // as in Module

    // Called for what can't be read of a feature, which then goes on without it. Empty: the reading
    // ends at a geometry with a Failure. For GeoJSON and packages.
    DamageSink onDamage = {};
};

// Receives features one at a time; may change and move them. False ends the reading.
using FeatureSink = std::function<bool(Feature&)>;

// Calls come in this order: Begin a layer, Read it, as often as wanted; then another layer, or the
// same again. All operations throw Failure, which names the source.
class Source {
public:
    virtual ~Source() = default;
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    // For messages: the path as the user gave it, or "standard input".
    const std::string& Name() const { return name_; }

    // The names of the layers, in their order; UTF-8. Empty when there is no layer with features.
    virtual std::vector<std::string> LayerNames() const = 0;

    // Finds what is known before the first feature. What there is to say of the layer goes to the
    // reporter, once for each call.
    virtual LayerFacts Begin(std::size_t layer, Reporter& reporter) = 0;

    // Hands the features of the layer that was begun last to the sink, in their order. Values come
    // in the order of the layer's columns. Progress and warnings go to the reporter. What the sink
    // throws passes unchanged.
    virtual void Read(Reporter& reporter, const FeatureSink& sink) = 0;

    // The layer that a user asked for by name, in any case unless one is exact: the only one for an
    // empty name. Throws Failure, with the names there are.
    std::size_t LayerNamed(const std::string& name) const;

protected:
    explicit Source(std::string name) : name_(std::move(name)) {}

private:
    std::string name_;
};

// A source with the format of its file.
struct SourceWithFormat {
    std::unique_ptr<Source> source;
    std::string format;  // its name: "gpkg"
    std::string words;   // for people: "GeoPackage"
};

}  // namespace app
