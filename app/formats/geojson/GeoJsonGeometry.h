// GeoJSON geometries as features hold them.
#pragma once

#include "app/feature/Feature.h"

#include <nlohmann/json_fwd.hpp>

#include <stdexcept>
#include <string>

namespace app {

// What is wrong with a geometry, for the end of a sentence.
class GeometryError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Returns the "type" of an object; "" when it has none or when that is not a text.
std::string TypeOf(const nlohmann::ordered_json& object);

// Sets the feature's geometry and members. Null, an empty geometry and a collection of such become
// None; a polygon has a part for each ring, and collections in collections give their members.
// Heights are dropped. Throws GeometryError.
void ReadGeometry(const nlohmann::ordered_json& json, Feature& feature);

}  // namespace app
