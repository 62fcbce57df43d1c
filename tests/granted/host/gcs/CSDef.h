#pragma once

#include "host/gcs/DatumDef.h"
#include "host/gcs/ProjectionDef.h"

namespace gcs {

enum class CSType : int { Unknown = 0, Earth = 1, Nonearth = 2 };

class CSDef {
public:
    CSDef(const CSDef&) = delete;
    CSDef& operator=(const CSDef&) = delete;

    virtual CSType Type() const;
    virtual double UnitFactor() const;

protected:
    CSDef();
    ~CSDef();
};

class GCSDef : public CSDef {
public:
    GCSDef();
    ~GCSDef();

    void SetProjection(const ProjectionDef& projection);
    void SetDatum(const DatumDef& datum);
    bool HasProjection(bool resolve, bool countGeographic) const;
    bool HasDatum(bool resolve) const;
    const ProjectionDef& GetProjection() const;
    const DatumDef& GetDatum() const;
};

}  // namespace gcs
