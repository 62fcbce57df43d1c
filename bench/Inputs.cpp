#include "bench/Inputs.h"

#include <cmath>
#include <cstdio>
#include <memory>
#include <numbers>
#include <stdexcept>
#include <string>

namespace bench {

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

File Create(const std::filesystem::path& path) {
    File file(std::fopen(path.string().c_str(), "wb"));
    if (!file) {
        throw std::runtime_error("can't create " + path.string());
    }
    return file;
}

Pair NamesOf(const std::filesystem::path& folder, const std::string& name, double scale) {
    const std::string stem = name + "-" + std::to_string(std::lround(scale * 1000.0));
    return Pair{folder / (stem + ".mif"), folder / (stem + ".mid")};
}

bool Exists(const Pair& pair) {
    return std::filesystem::exists(pair.mif) && std::filesystem::exists(pair.mid);
}

std::size_t Scaled(std::size_t count, double scale) {
    return static_cast<std::size_t>(static_cast<double>(count) * scale);
}

void WriteHeader(std::FILE* mif, const char* columns) {
    std::fprintf(mif,
                 "VERSION 300\nCHARSET \"WindowsLatin1\"\nDELIMITER \",\"\n"
                 "COORDSYS Earth Projection 1, 104\n\n"
                 "%sDATA\n",
                 columns);
}

}  // namespace

double Random::Uniform(double from, double to) {
    state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
    const double fraction = static_cast<double>(state_ >> 11) * 0x1.0p-53;
    return from + fraction * (to - from);
}

std::vector<Vertex> RegionFrom(Random& random) {
    constexpr double kMillionths = 1e6;
    const double x = random.Uniform(101.0, 179.0);
    const double y = random.Uniform(11.0, 79.0);
    std::vector<Vertex> vertices;
    vertices.reserve(kRegionVertices);
    for (std::size_t i = 0; i < kRegionVertices; ++i) {
        const std::size_t step = i + 1 == kRegionVertices ? 0 : i;
        const double angle =
            2.0 * std::numbers::pi * static_cast<double>(step) / (kRegionVertices - 1);
        const double radius = step == 0 ? 0.015 : random.Uniform(0.01, 0.02);
        vertices.push_back(
            {std::round((x + radius * std::cos(angle)) * kMillionths) / kMillionths,
             std::round((y + radius * std::sin(angle)) * kMillionths) / kMillionths});
    }
    return vertices;
}

Pair Regions(const std::filesystem::path& folder, double scale) {
    Pair pair = NamesOf(folder, "regions", scale);
    if (Exists(pair)) {
        return pair;
    }
    const File mif = Create(pair.mif);
    const File mid = Create(pair.mid);
    WriteHeader(mif.get(), "COLUMNS 2\n  ID Integer\n  NAME Char(32)\n");
    Random random(1);
    for (std::size_t region = 0; region < Scaled(kRegionCount, scale); ++region) {
        std::fprintf(mif.get(), "REGION 1\n  %zu\n", kRegionVertices);
        for (const Vertex& vertex : RegionFrom(random)) {
            std::fprintf(mif.get(), "%.6f %.6f\n", vertex.x, vertex.y);
        }
        std::fprintf(mif.get(), "    PEN (1,2,0)\n    BRUSH (2,16777215,16777215)\n");
        std::fprintf(mid.get(), "%zu,\"parcel number %zu\"\n", region, region);
    }
    return pair;
}

Pair Points(const std::filesystem::path& folder, double scale) {
    Pair pair = NamesOf(folder, "points", scale);
    if (Exists(pair)) {
        return pair;
    }
    const File mif = Create(pair.mif);
    const File mid = Create(pair.mid);
    WriteHeader(mif.get(), "COLUMNS 3\n  ID Integer\n  NAME Char(32)\n  KIND Char(16)\n");
    Random random(2);
    for (std::size_t point = 0; point < Scaled(1000000, scale); ++point) {
        std::fprintf(mif.get(), "POINT %.6f %.6f\n    SYMBOL (35,255,12)\n",
                     random.Uniform(101.0, 179.0), random.Uniform(11.0, 79.0));
        std::fprintf(mid.get(), "%zu,\"a place name %zu\",\"settlement\"\n", point, point);
    }
    return pair;
}

Pair Polylines(const std::filesystem::path& folder, double scale) {
    Pair pair = NamesOf(folder, "polylines", scale);
    if (Exists(pair)) {
        return pair;
    }
    const File mif = Create(pair.mif);
    const File mid = Create(pair.mid);
    WriteHeader(mif.get(), "COLUMNS 1\n  ID Integer\n");
    Random random(3);
    constexpr std::size_t kVertices = 31;
    for (std::size_t line = 0; line < Scaled(200000, scale); ++line) {
        double x = random.Uniform(101.0, 179.0);
        double y = random.Uniform(11.0, 79.0);
        std::fprintf(mif.get(), "PLINE %zu\n", kVertices);
        for (std::size_t i = 0; i < kVertices; ++i) {
            x += random.Uniform(-0.005, 0.005);
            y += random.Uniform(-0.005, 0.005);
            std::fprintf(mif.get(), "%.6f %.6f\n", x, y);
        }
        std::fprintf(mif.get(), "    PEN (1,2,255)\n");
        std::fprintf(mid.get(), "%zu\n", line);
    }
    return pair;
}

}  // namespace bench
