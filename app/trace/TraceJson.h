// Translation objects as JSON, one object a text: the output of qolf trace and the input of qolf
// replay (docs/trace-format.md).
#pragma once

#include "host/gcs/CSDef.h"
#include "host/zeio/TrObjects.h"

#include <string>
#include <string_view>

namespace app {

// Appends {"type":"TrPolyline",...}. Keys come in a fixed order; numbers read back to the same
// double; texts are UTF-8. An object of a class that the format does not know gives its class's
// name alone.
void AppendObjectJson(std::string& out, const zeio::TrBase& object);

// Appends the definition of a coordinate system; `null` when `system` is null.
void AppendSystemJson(std::string& out, const gcs::CSDef* system);

// Returns the name of the object's class: "TrPen".
std::string ClassName(const zeio::TrBase& object);

}  // namespace app
