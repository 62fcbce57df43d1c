// Features in short, for tests that compare many of them.
#pragma once

#include "app/feature/Feature.h"

#include <string>
#include <vector>

namespace support {

// One line per feature: its geometry, the parts of its style that it has, and its values. "Line 0
// 0, 1 1 | 2 2, 3 3 pen 1 2 255 [a, 1.5]", "None [null]", "Collection {Points 1 1; Line 0 0, 1 1}
// []".
std::string TextOf(const app::Feature& feature);
std::string TextOf(const std::vector<app::Feature>& features);

}  // namespace support
