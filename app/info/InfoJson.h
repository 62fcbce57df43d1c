// The facts about a file as `qolf info --json` writes them.
#pragma once

#include "app/crs/DescribeCoordSys.h"
#include "app/info/FileFacts.h"

#include <filesystem>
#include <string>

namespace app {

// Returns the facts as a JSON object. What a file of this format never has is left out.
std::string FactsAsJson(const FileFacts& facts, const CrsIdentifier& identify);

// Returns the object in place of the facts of a file that has no header.
std::string ErrorAsJson(const std::filesystem::path& path, const std::string& error);

}  // namespace app
