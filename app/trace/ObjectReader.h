// Translation objects from JSON, the counterpart of app/TraceJson.h.
#pragma once

#include "host/zeio/TrObjects.h"

#include <nlohmann/json_fwd.hpp>

#include <memory>
#include <stdexcept>

namespace app {

// What is wrong with a piece of JSON: an unknown type, or a key of the wrong kind, which it names.
class ObjectError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Makes the object of a JSON object with a "type". Keys that are not there leave the class's
// defaults; keys that the class does not have are ignored. Throws ObjectError.
std::unique_ptr<zeio::TrBase> ObjectFromJson(const nlohmann::json& json);

}  // namespace app
