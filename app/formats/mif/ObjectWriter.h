// Objects as the Data section of a .mif file has them.
#pragma once

#include "app/feature/Feature.h"
#include "app/formats/mif/PairCharset.h"

#include <cstdint>
#include <limits>
#include <span>
#include <string>

namespace app {

// What of a layer is written, and how.
struct ObjectChoices {
    bool areasToCurves = false;  // regions as polylines
    bool hasTexts = true;
    bool hasPoints = true;
};

class ObjectWriter {
public:
    // `charset` must outlive the writer.
    ObjectWriter(const ObjectChoices& choices, PairCharset& charset)
        : choices_(choices), charset_(charset) {}

    // Whether the choices let the feature through.
    bool Wants(const Feature& feature) const { return IsChosen(feature.geometry.kind); }

    // Appends the feature as one object with its clauses:
    // - several sections as Pline Multiple, several points as Multipoint;
    // - two vertices as Line unless the geometry says that it is a polyline;
    // - members of a Collection that are of one kind and style as one part, as the format has it;
    // - None for what has no vertices, or a coordinate that is not a finite number.
    // A clause is written when the style has it and the object takes it.
    void Append(std::string& out, const Feature& feature);

    // The box of everything written; empty when nothing has a place.
    const shr::Box2d& Bounds() const { return bounds_; }

    // The lowest version of the format that has all that was written.
    int Version() const;

    // Objects that became None for a coordinate that is not a finite number.
    std::uint64_t UnplacedCount() const { return unplacedCount_; }

private:
    enum class Place { Alone, InCollection };

    bool IsChosen(GeometryKind kind) const;
    void AppendGeometry(std::string& out, const Geometry& geometry, Place place);
    void AppendCollection(std::string& out, std::span<const Geometry> members);
    void AppendPoints(std::string& out, const Geometry& geometry, Place place);
    void AppendLine(std::string& out, const Geometry& geometry, Place place);
    void AppendRegion(std::string& out, const Geometry& geometry);
    void AppendBoxed(std::string& out, const Geometry& geometry);
    void AppendText(std::string& out, const Geometry& geometry);
    void AppendSections(std::string& out, const Geometry& geometry);
    void AppendVertices(std::string& out, std::span<const shr::Vec2d> points);
    void AppendPoint(std::string& out, const shr::Vec2d& point);
    void AppendCorners(std::string& out, const shr::Box2d& box);
    void See(const shr::Vec2d& point);
    void SeeVertices(std::size_t count);
    void Need(int version);

    static constexpr double kInfinity = std::numeric_limits<double>::infinity();

    ObjectChoices choices_;
    PairCharset& charset_;
    shr::Box2d bounds_{kInfinity, kInfinity, -kInfinity, -kInfinity};
    int version_ = 300;
    std::uint64_t lineAndRegionCount_ = 0;
    std::uint64_t unplacedCount_ = 0;
};

}  // namespace app
