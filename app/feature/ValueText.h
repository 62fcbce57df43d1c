// Values as people and JSON readers see them.
#pragma once

#include "app/feature/Values.h"

#include <string>

namespace app {

// A value as people read it; empty for null.
std::string TextOf(const Value& value);

// Appends the value as JSON.
void AppendJsonValue(std::string& out, const Value& value);

}  // namespace app
