// Copies one MIF/MID pair to another, through both filters of the module.
#pragma once

#include "app/base/Reporter.h"
#include "app/feature/Source.h"
#include "app/feature/Target.h"

#include <filesystem>

namespace app {

// Goes object by object, so that nothing is lost that both filters know. Returns false when there
// was no object to write: no file is made then. Throws Failure.
bool CopyPair(const std::filesystem::path& input, const SourceOptions& sourceOptions,
              const std::filesystem::path& output, const TargetOptions& targetOptions,
              Reporter& reporter);

}  // namespace app
