// Translation objects from JSON, the counterpart of TraceJson.h.
#pragma once

#include "host/zeio/TrObjects.h"

#include <nlohmann/json_fwd.hpp>

#include <memory>
#include <string>

namespace app {

// Makes the translation object that a JSON object with a "type" describes. Absent keys leave the
// defaults of the class; unknown keys are ignored. Throws JsonError.
std::unique_ptr<zeio::TrBase> ObjectFromJson(const nlohmann::json& json);

// Makes the object of one line of a trace: an object alone, or a call of ImportObject with one.
// Returns null for another call. Throws JsonError.
std::unique_ptr<zeio::TrBase> ObjectOfLine(const std::string& line);

}  // namespace app
