// Coordinate systems: of the Earth (a projection and a datum) or of a plane without a place.
//
// Values throughout: a definition owns all it is made of, and none refers to another one.
#pragma once

#include "host/gcs/DatumDef.h"
#include "host/gcs/ProjectionDef.h"
#include "host/platform/Export.h"

#include <memory>
#include <optional>

namespace gcs {

// What a CSDef is. A filter that finds Earth may cast it to GCSDef.
enum class CSType : int {
    Unknown = 0,
    Earth = 1,     // a GCSDef
    Nonearth = 2,  // a PlaneDef
};

// The base of both. Filters receive one by pointer and ask its type first.
class QOLF_HOST_API CSDef {
public:
    virtual ~CSDef();

    // Never changes during the object's life.
    virtual CSType Type() const = 0;

    // The linear unit as units per metre: 1 for metres, 3.28083333333333 for survey feet. 0 when
    // there is none, which filters take for 1.
    virtual double UnitFactor() const = 0;

    // Returns a copy of the whole object, of its own class; the caller owns it.
    virtual std::unique_ptr<CSDef> Clone() const = 0;

protected:
    CSDef() = default;
    CSDef(const CSDef&) = default;
    CSDef& operator=(const CSDef&) = default;
};

// An Earth system. Either part may be missing: a fresh one has neither.
class QOLF_HOST_API GCSDef : public CSDef {
public:
    GCSDef();
    ~GCSDef() override;
    CSType Type() const override { return CSType::Earth; }
    double UnitFactor() const override;  // the projection's; 1 without a projection
    std::unique_ptr<CSDef> Clone() const override;

    // Copies the definition, replacing the one before. An unknown definition takes the part away.
    void SetProjection(const ProjectionDef& projection) { projection_ = projection; }
    void SetDatum(const DatumDef& datum) { datum_ = datum; }

    // True when the part is there and known. `resolve` asks a host with plug-in methods to resolve
    // references first, `countGeographic` whether longitude and latitude count as projected;
    // filters pass all combinations, and they make no difference here.
    bool HasProjection(bool resolve, bool countGeographic) const;
    bool HasDatum(bool resolve) const;

    // Returns the part, an unknown definition when it is missing. Valid until it is set again.
    const ProjectionDef& GetProjection() const { return projection_; }
    const DatumDef& GetDatum() const { return datum_; }

private:
    ProjectionDef projection_;
    DatumDef datum_;
};

// A plane system, with only a unit.
class QOLF_HOST_API PlaneDef : public CSDef {
public:
    // Any factor is taken as it is, 0 included.
    explicit PlaneDef(double unitsPerMetre);
    ~PlaneDef() override;
    CSType Type() const override { return CSType::Nonearth; }
    double UnitFactor() const override { return unitsPerMetre_; }
    std::unique_ptr<CSDef> Clone() const override;

private:
    double unitsPerMetre_;
};

}  // namespace gcs
