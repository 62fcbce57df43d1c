// A fixed import and a fixed export through the built module, small enough for a simulator that
// counts instructions (instructions.sh).
//
//   fixed_run inputs FOLDER    makes the input files
//   fixed_run import FOLDER    reads them
//   fixed_run export FOLDER    writes regions of full-precision doubles

#include "bench/CountingHost.h"
#include "bench/Inputs.h"
#include "host/zeio/IoExportFilter.h"
#include "host/zeio/IoImportFilter.h"
#include "host/zeio/IoManager.h"
#include "host/zeio/TrObjects.h"
#include "tests/module/LoadedModule.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>

namespace {

// 200 regions with 42,000 vertices, 5000 points, 1000 polylines.
constexpr double kScale = 0.005;

std::size_t Import(const std::filesystem::path& folder) {
    const module_test::LoadedModule module;
    bench::CountingHost host;
    zeio::IoManager manager(host);
    for (const bench::Pair& pair : {bench::Regions(folder, kScale), bench::Points(folder, kScale),
                                    bench::Polylines(folder, kScale)}) {
        const std::unique_ptr<zeio::IoImportFilter> filter(module.NewImportFilter(manager));
        filter->Import(pair.mif.wstring());
    }
    return host.objects();
}

std::size_t Export(const std::filesystem::path& folder) {
    const module_test::LoadedModule module;
    bench::CountingHost host;
    zeio::IoManager manager(host);
    const std::unique_ptr<zeio::IoExportFilter> filter(module.NewExportFilter(manager));
    bench::Random random(4);
    zeio::TrPolygon polygon;
    polygon.vertices.resize(bench::kRegionVertices);
    constexpr std::size_t kRegions = 200;
    filter->BeginExport((folder / "out.mif").wstring());
    for (std::size_t region = 0; region < kRegions; ++region) {
        for (shr::Vec3d& vertex : polygon.vertices) {
            vertex.x = random.Uniform(300000.0, 700000.0);
            vertex.y = random.Uniform(300000.0, 700000.0);
        }
        filter->ExportObject(polygon);
    }
    filter->EndExport();
    return kRegions;
}

std::size_t Run(const std::string& work, const std::filesystem::path& folder) {
    if (work == "inputs") {
        static_cast<void>(bench::Regions(folder, kScale));
        static_cast<void>(bench::Points(folder, kScale));
        static_cast<void>(bench::Polylines(folder, kScale));
        return 0;
    }
    return work == "import" ? Import(folder) : Export(folder);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const std::size_t objects = argc == 3 ? Run(argv[1], argv[2]) : 0;
        std::printf("%zu objects\n", objects);
        return argc == 3 ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "fixed_run: %s\n", error.what());
    } catch (...) {
        std::fputs("fixed_run: the module threw\n", stderr);
    }
    return EXIT_FAILURE;
}
