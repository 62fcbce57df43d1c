// Which layers of a source are converted.
#pragma once

#include "app/feature/Source.h"

#include <cstddef>
#include <string>
#include <vector>

namespace app {

// Returns the numbers of the layers that --layer names, in its order and each once; of all when it
// names none. A name may be several with commas between them, unless a layer is called so. Throws
// Failure, with the names there are, for a layer that the source lacks.
std::vector<std::size_t> ChosenLayers(const Source& source, const std::vector<std::string>& names);

}  // namespace app
