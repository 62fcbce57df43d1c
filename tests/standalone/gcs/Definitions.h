// Definitions of coordinate systems as short as a test needs them.
#pragma once

#include "host/gcs/CSDef.h"
#include "host/gcs/KnownLists.h"

#include <initializer_list>
#include <utility>

// A parameter by its number, and its value.
using NumberedValues = std::initializer_list<std::pair<int, double>>;

inline gcs::ProjectionDef Projection(int method, NumberedValues values) {
    gcs::ProjectionDef projection;
    projection.SetMethod(static_cast<gcs::ProjectionMethod>(method));
    for (const auto& [id, value] : values) {
        projection.SetParameter(static_cast<gcs::ProjectionParameterID>(id), value);
    }
    return projection;
}

inline gcs::DatumDef KnownDatum(const wchar_t* token) {
    gcs::DatumDef datum;
    gcs::GCSKnownDatumsList.FindByToken(token, &datum);
    return datum;
}

inline gcs::GCSDef System(const gcs::ProjectionDef& projection, const gcs::DatumDef& datum) {
    gcs::GCSDef system;
    system.SetProjection(projection);
    system.SetDatum(datum);
    return system;
}

inline gcs::ProjectionDef LongitudeLatitude() {
    return Projection(1, {{3, 1.0}});
}
