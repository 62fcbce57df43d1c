// The regions of the region file with their rows and styles, in memory, to be written as MIF.
#pragma once

#include "bench/Inputs.h"

#include <cstdint>
#include <filesystem>
#include <vector>

namespace bench {

class RegionLayer {
public:
    // As many regions as Regions has at that scale.
    explicit RegionLayer(double scale);

    // By the export of the module, as its host would.
    void WriteByModule(const std::filesystem::path& mif) const;

    // By the command's own writer, as a conversion does.
    void WriteByCommand(const std::filesystem::path& mif) const;

private:
    std::vector<std::vector<Vertex>> regions_;
};

// The bytes of both files of a pair.
std::uintmax_t BytesOf(std::filesystem::path mif);

}  // namespace bench
