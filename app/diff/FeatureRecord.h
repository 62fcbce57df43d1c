// Features as bytes, for temporary files.
#pragma once

#include "app/feature/Feature.h"

#include <string>
#include <string_view>

namespace app {

// Returns all that is compared: number, geometry with members and text, values; without styles.
std::string RecordOf(const Feature& feature);

// Throws Failure for bytes that RecordOf has not made.
Feature FeatureOf(std::string_view record);

}  // namespace app
