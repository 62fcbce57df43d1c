// The benchmark's input files: made from a fixed seed into a folder, and kept there for the next
// run. Nothing large lives in the repository.
#pragma once

#include <cstddef>
#include <filesystem>
#include <vector>

namespace bench {

struct Pair {
    std::filesystem::path mif;
    std::filesystem::path mid;
};

// 64-bit linear congruential generator: the same numbers on every system.
class Random {
public:
    explicit Random(unsigned long long seed) : state_(seed) {}
    double Uniform(double from, double to);

private:
    unsigned long long state_;
};

constexpr std::size_t kRegionCount = 40000;
constexpr std::size_t kRegionVertices = 210;

struct Vertex {
    double x;
    double y;
};

// The next region of the region file: kRegionVertices vertices with six decimals each.
std::vector<Vertex> RegionFrom(Random& random);

// 40,000 regions of 210 vertices each at a scale of 1: 8.4 million vertices with six decimals,
// about 180 MB. The number of vertices of a region stays, so a smaller scale means fewer objects.
Pair Regions(const std::filesystem::path& folder, double scale);

// One million points with a symbol clause and three attributes: about 54 MB + 43 MB.
Pair Points(const std::filesystem::path& folder, double scale);

// 200,000 polylines with a pen clause: about 138 MB.
Pair Polylines(const std::filesystem::path& folder, double scale);

}  // namespace bench
