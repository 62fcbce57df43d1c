// Coordinate systems: of the Earth (a projection and a datum) or of a plane without a place.
#pragma once

#include "host/gcs/DatumDef.h"
#include "host/gcs/ProjectionDef.h"
#include "host/platform/Export.h"

#include <memory>
#include <optional>

namespace gcs {

enum class CSType : int {
    Unknown = 0,
    Earth = 1,
    Nonearth = 2,
};

class QOLF_HOST_API CSDef {
public:
    virtual ~CSDef();
    virtual CSType Type() const = 0;

    // Units per metre; 0 when there is none.
    virtual double UnitFactor() const = 0;

    // A copy of the whole object, the caller's own.
    virtual std::unique_ptr<CSDef> Clone() const = 0;

protected:
    CSDef() = default;
    CSDef(const CSDef&) = default;
    CSDef& operator=(const CSDef&) = default;
};

// An Earth system. Either part may be missing.
class QOLF_HOST_API GCSDef : public CSDef {
public:
    GCSDef();
    ~GCSDef() override;
    CSType Type() const override { return CSType::Earth; }
    double UnitFactor() const override;  // the projection's; 1 without a projection
    std::unique_ptr<CSDef> Clone() const override;

    void SetProjection(const ProjectionDef& projection) { projection_ = projection; }
    void SetDatum(const DatumDef& datum) { datum_ = datum; }

    // The arguments ask a host with plug-in methods to resolve references first, and whether a
    // longitude/latitude system counts as projected; they make no difference here.
    bool HasProjection(bool resolve, bool countGeographic) const;
    bool HasDatum(bool resolve) const;

    // Unknown definitions when the part is missing.
    const ProjectionDef& GetProjection() const { return projection_; }
    const DatumDef& GetDatum() const { return datum_; }

private:
    ProjectionDef projection_;
    DatumDef datum_;
};

// A plane system, with only a unit.
class QOLF_HOST_API PlaneDef : public CSDef {
public:
    explicit PlaneDef(double unitsPerMetre);
    ~PlaneDef() override;
    CSType Type() const override { return CSType::Nonearth; }
    double UnitFactor() const override { return unitsPerMetre_; }
    std::unique_ptr<CSDef> Clone() const override;

private:
    double unitsPerMetre_;
};

}  // namespace gcs
