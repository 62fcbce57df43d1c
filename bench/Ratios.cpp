// Runs every benchmark beside its reference in one process and prints one table of ratios. Times
// on a shared machine are noisy, so the smallest of several interleaved repetitions counts, and a
// figure is only ever a ratio of two of them.
//
//   bench_ratios [--scale 1.0] [--folder DIR] [--qolf PATH] [--before PATH]
//                [Google Benchmark options]
//
// --before names the qolf of another build, whose conversions are the reference of --qolf's.

#include "app/mif/PairReading.h"
#include "bench/ChildProcess.h"
#include "bench/CountingHost.h"
#include "bench/Inputs.h"
#include "bench/RegionLayer.h"
#include "export/MifExportFilter.h"
#include "host/zeio/IoManager.h"
#include "host/zeio/TrObjects.h"
#include "import/MifImportFilter.h"
#include "reader/CMifReader.h"

#include <benchmark/benchmark.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <limits>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using bench::Pair;

// One pass over a file with the C library's unlocked single-byte read.
unsigned long long ReadBytes(const std::filesystem::path& path) {
    std::FILE* file = std::fopen(path.string().c_str(), "rb");
    if (file == nullptr) {
        throw std::runtime_error("can't open " + path.string());
    }
    unsigned long long sum = 0;
    for (int c = getc_unlocked(file); c != EOF; c = getc_unlocked(file)) {
        sum += static_cast<unsigned long long>(c);
    }
    static_cast<void>(std::fclose(file));
    return sum;
}

// Reads every token of the file and converts those that begin like numbers.
double Tokenize(const std::filesystem::path& path) {
    mif::CMifInputFile input;
    if (!input.OpenFile(path.wstring())) {
        throw std::runtime_error("can't open " + path.string());
    }
    input.Rewind();
    double sum = 0.0;
    while (!input.IsEOF()) {
        const char first = *input.Token();
        if ((first >= '0' && first <= '9') || first == '-') {
            sum += input.TokenAsDouble();
        }
        input.NextToken();
    }
    return sum;
}

std::size_t Import(const std::filesystem::path& path) {
    bench::CountingHost host;
    zeio::IoManager manager(host);
    mif::MifImportFilter filter(manager);
    filter.Import(path.wstring());
    return host.objects();
}

std::vector<double> ExportCoordinates(double scale) {
    bench::Random random(4);
    std::vector<double> values(static_cast<std::size_t>(bench::kRegionCount * scale) *
                               bench::kRegionVertices * 2);
    for (double& value : values) {
        value = random.Uniform(300000.0, 700000.0);
    }
    return values;
}

// The reference of the export: the same coordinates, formatted and written with nothing around.
void FormatCoordinates(const std::vector<double>& values, const std::filesystem::path& path) {
    std::FILE* file = std::fopen(path.string().c_str(), "wb");
    if (file == nullptr) {
        throw std::runtime_error("can't create " + path.string());
    }
    char buffer[64];
    for (std::size_t i = 0; i < values.size(); ++i) {
        std::to_chars_result result = std::to_chars(buffer, buffer + sizeof buffer, values[i],
                                                    std::chars_format::general, 18);
        *result.ptr++ = i % 2 == 0 ? ' ' : '\n';
        std::fwrite(buffer, 1, static_cast<std::size_t>(result.ptr - buffer), file);
    }
    static_cast<void>(std::fclose(file));
}

void Export(const std::vector<double>& values, const std::filesystem::path& path) {
    bench::CountingHost host;
    zeio::IoManager manager(host);
    mif::MifExportFilter filter(manager);
    filter.BeginExport(path.wstring());
    zeio::TrPolygon polygon;
    polygon.vertices.resize(bench::kRegionVertices);
    const std::size_t numbers = bench::kRegionVertices * 2;
    for (std::size_t at = 0; at + numbers <= values.size(); at += numbers) {
        for (std::size_t i = 0; i < bench::kRegionVertices; ++i) {
            polygon.vertices[i] = {values[at + 2 * i], values[at + 2 * i + 1], 0.0};
        }
        filter.ExportObject(polygon);
    }
    filter.EndExport();
}

// The smallest time of each benchmark, in seconds.
class SmallestTimes : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration) {
                continue;
            }
            const double seconds =
                run.real_accumulated_time / static_cast<double>(std::max<long>(run.iterations, 1));
            const auto [at, isNew] = times_.try_emplace(run.run_name.function_name, seconds);
            if (!isNew) {
                at->second = std::min(at->second, seconds);
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    bool Has(const std::string& name) const { return times_.contains(name); }

    // No number for a benchmark that a filter left out.
    double Of(const std::string& name) const {
        return Has(name) ? times_.at(name) : std::numeric_limits<double>::quiet_NaN();
    }

    double Ratio(const std::string& work, const std::string& reference) const {
        return Of(work) / Of(reference);
    }

private:
    std::map<std::string, double> times_;
};

void Register(const std::string& name, std::function<void()> work) {
    benchmark::RegisterBenchmark(name.c_str(),
                                 [work = std::move(work)](benchmark::State& state) {
                                     for ([[maybe_unused]] auto iteration : state) {
                                         work();
                                     }
                                 })
        ->Iterations(1)
        ->Repetitions(9)
        ->ReportAggregatesOnly(false)
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond);
}

struct Row {
    std::string work;
    std::string reference;
    double ratio;  // no number: not measured in this run
    double reach;
    const char* unit;
};

void Print(const std::vector<Row>& rows) {
    std::printf("\n| work | reference | measured | to reach | |\n|---|---|---|---|---|\n");
    for (const Row& row : rows) {
        if (std::isnan(row.ratio)) {
            continue;
        }
        std::printf("| %s | %s | %.2f %s | %.2f %s | %s |\n", row.work.c_str(),
                    row.reference.c_str(), row.ratio, row.unit, row.reach, row.unit,
                    row.ratio <= row.reach ? "reached" : "NOT reached");
    }
}

struct Settings {
    double scale = 1.0;
    std::filesystem::path folder = std::filesystem::temp_directory_path() / "qolf-bench";
    std::filesystem::path qolf;
    std::filesystem::path before;
};

struct Input {
    const char* name;  // with a reach for the ratio of its conversions to those of before
    Pair pair;
    double reach;
};

std::vector<Input> InputsOf(const Settings& settings) {
    return {{"regions", bench::Regions(settings.folder, settings.scale), 1.15},
            {"points", bench::Points(settings.folder, settings.scale), 1.5},
            {"polylines", bench::Polylines(settings.folder, settings.scale), 1.15}};
}

Settings TakeSettings(int& argc, char** argv) {
    Settings settings;
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        const std::string name = argv[i];
        if (name == "--scale" && i + 1 < argc) {
            settings.scale = std::stod(argv[++i]);
        } else if (name == "--folder" && i + 1 < argc) {
            settings.folder = argv[++i];
        } else if (name == "--qolf" && i + 1 < argc) {
            settings.qolf = argv[++i];
        } else if (name == "--before" && i + 1 < argc) {
            settings.before = argv[++i];
        } else {
            argv[kept++] = argv[i];
        }
    }
    argc = kept;
    return settings;
}

// Of the pair that the command wrote to the one of the module.
double BytesRatio(const Settings& settings, const SmallestTimes& times) {
    if (!times.Has("write/command") || !times.Has("write/module")) {
        return std::numeric_limits<double>::quiet_NaN();  // files of an earlier run tell nothing
    }
    return static_cast<double>(bench::BytesOf(settings.folder / "command.mif")) /
           static_cast<double>(bench::BytesOf(settings.folder / "module.mif"));
}

// The pass that makes a pair ready for reading, check, and conversions.
void RegisterReading(const Settings& settings) {
    const std::vector<Input> inputs = InputsOf(settings);
    for (const Input& input : inputs) {
        Register(std::string("ready/") + input.name, [mif = input.pair.mif] {
            const app::PairReading reading(mif);
            benchmark::DoNotOptimize(reading.Pair().objects.Objects());
        });
    }
    if (settings.qolf.empty()) {
        return;
    }
    Register("check/regions",
             [qolf = settings.qolf.string(), mif = inputs.front().pair.mif.string()] {
                 bench::RunOrThrow({qolf, "check", mif});
             });
    for (const Input& input : inputs) {
        const std::string target = (settings.folder / "out.geojson").string();
        for (const auto& [prefix, qolf] :
             {std::pair("before/", settings.before), std::pair("after/", settings.qolf)}) {
            if (settings.before.empty()) {
                continue;
            }
            Register(prefix + std::string(input.name),
                     [qolf = qolf.string(), mif = input.pair.mif.string(), target] {
                         bench::RunOrThrow({qolf, "convert", "--quiet", "--overwrite", "--crs",
                                            "keep", mif, target});
                     });
        }
    }
}

void AddReadingRows(const Settings& settings, const SmallestTimes& times, std::vector<Row>& rows) {
    const std::vector<Input> inputs = InputsOf(settings);
    for (const Input& input : inputs) {
        const std::string name = input.name;
        rows.push_back({"make the " + name + " ready for reading", "the bare import",
                        times.Ratio("ready/" + name, "import/" + name), 0.4, "x"});
    }
    if (settings.qolf.empty()) {
        return;
    }
    rows.push_back({"check the region file", "the bare import",
                    times.Ratio("check/regions", "import/regions"), 2.5, "x"});
    for (const Input& input : inputs) {
        const std::string name = input.name;
        if (!settings.before.empty()) {
            rows.push_back({"convert the " + name + " to GeoJSON", "the other build",
                            times.Ratio("after/" + name, "before/" + name), input.reach, "x"});
        }
    }
}

void RegisterAll(const Settings& settings, const std::vector<double>& coordinates,
                 const bench::RegionLayer& layer, std::vector<Row>& rows) {
    const Pair regions = bench::Regions(settings.folder, settings.scale);
    const Pair points = bench::Points(settings.folder, settings.scale);
    const Pair lines = bench::Polylines(settings.folder, settings.scale);
    Register("pass/regions", [=] { benchmark::DoNotOptimize(ReadBytes(regions.mif)); });
    Register("tokenize/regions", [=] { benchmark::DoNotOptimize(Tokenize(regions.mif)); });
    Register("import/regions", [=] { benchmark::DoNotOptimize(Import(regions.mif)); });
    Register("pass/points", [=] {
        benchmark::DoNotOptimize(ReadBytes(points.mif));
        benchmark::DoNotOptimize(ReadBytes(points.mid));
    });
    Register("import/points", [=] { benchmark::DoNotOptimize(Import(points.mif)); });
    Register("pass/polylines", [=] { benchmark::DoNotOptimize(ReadBytes(lines.mif)); });
    Register("import/polylines", [=] { benchmark::DoNotOptimize(Import(lines.mif)); });
    const std::filesystem::path out = settings.folder / "out.mif";
    Register("format/coordinates", [&coordinates, out] { FormatCoordinates(coordinates, out); });
    Register("export/regions", [&coordinates, out] { Export(coordinates, out); });
    Register("write/module",
             [&layer, out = settings.folder / "module.mif"] { layer.WriteByModule(out); });
    Register("write/command",
             [&layer, out = settings.folder / "command.mif"] { layer.WriteByCommand(out); });
    if (settings.qolf.empty()) {
        return;
    }
    for (const char* extension : {"geojson", "gpkg"}) {
        const std::string target = (settings.folder / "out.").string() + extension;
        Register(std::string("convert/") + extension, [=, qolf = settings.qolf.string()] {
            bench::RunOrThrow({qolf, "convert", "--quiet", "--overwrite", "--crs", "keep",
                               regions.mif.string(), target});
        });
        rows.push_back({std::string("convert regions to ") + extension, "the bare import", 0.0,
                        std::string(extension) == "gpkg" ? 4.0 : 3.0, "x"});
    }
    for (const auto& [name, input] : {std::pair("regions", regions), std::pair("points", points)}) {
        const std::string picture = (settings.folder / "out.png").string();
        Register(std::string("draw/") + name, [=, qolf = settings.qolf.string()] {
            bench::RunOrThrow({qolf, "draw", "--quiet", "--overwrite", "--width", "1000",
                               input.mif.string(), picture});
        });
    }
}

// What the command draws, and what it takes of the machine.
void AddCommandRows(const Settings& settings, const SmallestTimes& times, std::vector<Row>& rows) {
    if (settings.qolf.empty()) {
        return;
    }
    rows.push_back({"draw the regions, 1000 pixels wide", "the bare import",
                    times.Ratio("draw/regions", "import/regions"), 6.0, "x"});
    rows.push_back({"draw the points, 1000 pixels wide", "the bare import",
                    times.Ratio("draw/points", "import/points"), 4.0, "x"});
    const std::string qolf = settings.qolf.string();
    const auto peak = [&](double scale) {
        return bench::PeakMebibytes(
            {qolf, "info", "--count", bench::Regions(settings.folder, scale).mif.string()});
    };
    const double small = peak(settings.scale / 10.0);
    rows.push_back({"peak memory of an import of 10 times the file", "the smaller file's peak",
                    peak(settings.scale) - small, 1.0, "MiB more"});
    rows.push_back({"start-up: info on a small file", "/bin/true",
                    bench::StartUpMilliseconds(
                        {qolf, "info", bench::Points(settings.folder, 0.001).mif.string()}) -
                        bench::StartUpMilliseconds({"/bin/true"}),
                    10.0, "ms more"});
}

}  // namespace

int main(int argc, char** argv) {
    const Settings settings = TakeSettings(argc, argv);
    std::filesystem::create_directories(settings.folder);
    const std::vector<double> coordinates = ExportCoordinates(settings.scale);
    std::vector<Row> converts;
    const bench::RegionLayer layer(settings.scale);
    RegisterAll(settings, coordinates, layer, converts);
    RegisterReading(settings);

    benchmark::Initialize(&argc, argv);
    SmallestTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);

    const char* pass = "one pass of unlocked single-byte reads";
    std::vector<Row> rows = {
        {"tokenize and convert the region file", pass,
         times.Ratio("tokenize/regions", "pass/regions"), 4.0, "x"},
        {"import the region file", pass, times.Ratio("import/regions", "pass/regions"), 6.0, "x"},
        {"import the points", pass, times.Ratio("import/points", "pass/points"), 12.0, "x"},
        {"import the polylines", pass, times.Ratio("import/polylines", "pass/polylines"), 6.0, "x"},
        {"export the regions", "formatting the coordinates",
         times.Ratio("export/regions", "format/coordinates"), 1.3, "x"},
        {"write the region file as MIF", "the module's export of the same",
         times.Ratio("write/command", "write/module"), 1.0, "x"},
        // Six decimals need 21 bytes for a vertex; the module's 18 digits take 40.
        {"bytes of that", "the module's", BytesRatio(settings, times), 0.50, "x"},
    };
    AddReadingRows(settings, times, rows);
    for (Row& row : converts) {
        const bool isPackage = row.work.ends_with("gpkg");
        row.ratio = times.Ratio(isPackage ? "convert/gpkg" : "convert/geojson", "import/regions");
        rows.push_back(row);
    }
    AddCommandRows(settings, times, rows);
    Print(rows);
    return 0;
}
