#include "app/draw/DrawRun.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/platform/System.h"
#include "app/crs/GcsFromCrs.h"
#include "app/draw/ExtentCollector.h"
#include "app/draw/LayerSystems.h"
#include "app/mif/MifHeader.h"
#include "app/mif/ModuleCopy.h"
#include "app/run/CodePage.h"
#include "app/run/ImportRun.h"
#include "standalone/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <optional>
#include <utility>

namespace app {

namespace {

// One input on its way through the module.
class DrawnFile {
public:
    DrawnFile(const std::string& file, const DrawOptions& options, Reporter& reporter)
        : path_(PathFromArgument(file)), header_(ScanHeader(path_)), copy_(path_) {
        if (!options.asIs && header_.hasData && !header_.isReadByModule) {
            copy_.Cut(0, header_.dataOffset, HeaderForModule(header_));
            copy_.Finish();
        }
        ImportSettings settings;
        settings.path = copy_.IsCopy() ? copy_.Path() : path_;
        settings.shownPath = path_;
        settings.noStore = true;  // a picture does not depend on what an earlier run remembered
        settings.modulePath = options.modulePath;
        SetCodePageFor(header_, options.encoding, false, PathText(path_), reporter);
        settings.codePage = standalone::CodePage0();
        run_.emplace(std::move(settings), reporter);
    }

    const MifHeader& Header() const { return header_; }
    ImportRun& Run() { return *run_; }

private:
    std::filesystem::path path_;
    MifHeader header_;
    ModuleCopy copy_;
    std::optional<ImportRun> run_;
};

const gcs::CSDef* SystemIn(const zeio::TrBase& object) {
    return object.GetTypeId() == zeio::TrCRS::GetClassTypeId()
               ? static_cast<const zeio::TrCRS&>(object).GetCS()
               : nullptr;
}

// The picture's system while no object is read, from the first input that has one.
void SettleSystem(const DrawOptions& options, Reporter& reporter, LayerSystems& systems) {
    for (const std::string& file : options.inputs) {
        if (systems.HasTarget()) {
            return;
        }
        DrawnFile(file, options, reporter)
            .Run()
            .ImportHeader(reporter, [&systems](const zeio::TrBase& object) {
                if (const gcs::CSDef* system = SystemIn(object)) {
                    static_cast<void>(systems.TransformFrom(*system));
                }
            });
    }
}

// Hands the objects of every input to a target, each input as a layer.
class LayerReader {
public:
    LayerReader(const DrawOptions& options, LayerSystems& systems)
        : options_(options), systems_(systems) {}

    void Read(LayerTarget& target, Reporter& reporter) {
        bool isAnyPlaced = !options_.crs.empty();
        std::vector<std::string> unplaced;
        for (std::size_t layer = 0; layer < options_.inputs.size(); ++layer) {
            const std::string& file = options_.inputs[layer];
            bool isPlaced = false;
            target.BeginLayer(layer);
            DrawnFile drawn(file, options_, reporter);
            if (drawn.Header().ownBounds) {
                target.SetBounds(*drawn.Header().ownBounds);
            }
            const std::uint64_t count =
                drawn.Run().Import(reporter, [&](const zeio::TrBase& object) {
                    if (const gcs::CSDef* system = SystemIn(object)) {
                        isPlaced = true;
                        target.SetTransform(TransformOf(file, *system, reporter));
                    }
                    target.Add(object);
                });
            if (count == 0) {
                reporter.Warning(PathText(PathFromArgument(file)) + ": holds no objects");
            }
            isAnyPlaced = isAnyPlaced || isPlaced;
            if (!isPlaced) {
                unplaced.push_back(file);
            }
        }
        for (const std::string& file : isAnyPlaced ? unplaced : std::vector<std::string>()) {
            reporter.Warning(PathText(PathFromArgument(file)) +
                             ": has no coordinate system of the Earth; drawn as it stands");
        }
    }

private:
    PointTransform TransformOf(const std::string& file, const gcs::CSDef& system,
                               Reporter& reporter) {
        LayerTransform transform = systems_.TransformFrom(system);
        if (!transform.problem.empty()) {
            reporter.Warning(PathText(PathFromArgument(file)) +
                             ": can't be moved into the picture's coordinate system (" +
                             transform.problem + "); drawn as it stands");
        }
        return transform.transform;
    }

    const DrawOptions& options_;
    LayerSystems& systems_;
};

// Paints, and collects the extent on the way.
class WatchedPainter : public LayerTarget {
public:
    explicit WatchedPainter(MapPainter& painter) : painter_(painter) {}

    void BeginLayer(std::size_t layer) override {
        painter_.BeginLayer(layer);
        collector_.BeginLayer(layer);
    }
    void SetTransform(PointTransform transform) override {
        painter_.SetTransform(transform);
        collector_.SetTransform(std::move(transform));
    }
    void SetBounds(const shr::Box2d& bounds) override { painter_.SetBounds(bounds); }
    void Add(const zeio::TrBase& object) override {
        painter_.Add(object);
        collector_.Add(object);
    }

    std::optional<shr::Box2d> Extent() const { return collector_.Extent(); }

private:
    MapPainter& painter_;
    ExtentCollector collector_;
};

constexpr int kShownDigits = 8;

std::string CornersOf(const shr::Box2d& box) {
    std::string text;
    for (const double number : {box.minX, box.minY, box.maxX, box.maxY}) {
        std::array<char, 32> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                       std::chars_format::general, kShownDigits);
        text += text.empty() ? "" : ",";
        text.append(digits.data(), end.ptr);
    }
    return text;
}

// A picture of nothing is most often a box in other coordinates.
void WarnOfEmptyBox(const shr::Box2d& box, const std::optional<shr::Box2d>& extent,
                    Reporter& reporter) {
    if (extent && (extent->maxX < box.minX || extent->minX > box.maxX || extent->maxY < box.minY ||
                   extent->minY > box.maxY)) {
        reporter.Warning("no object lies in --bbox " + CornersOf(box) +
                         "; the map, in the coordinates of the picture, is " + CornersOf(*extent));
    }
}

shr::Box2d ExtentOf(const DrawOptions& options, LayerReader& reader, Reporter& reporter) {
    ExtentCollector collector;
    reader.Read(collector, reporter);
    if (!collector.Extent()) {
        throw Failure(PathText(PathFromArgument(options.inputs.front())) +
                      ": no object to draw; with --bbox the picture is made all the same");
    }
    return *collector.Extent();
}

std::unique_ptr<gcs::CSDef> NamedSystem(const std::string& definition, Reporter& reporter) {
    if (definition.empty()) {
        return nullptr;
    }
    CrsForExport crs = GcsFromCrs(definition);
    if (!crs) {
        throw Failure("--crs " + definition + ": " + crs.problem);
    }
    const std::string option = "--crs " + definition + ": ";
    for (const std::string& warning : crs.warnings) {
        reporter.Detail(option + warning);
    }
    return std::move(crs.system);
}

}  // namespace

int RunDraw(const DrawOptions& options, Reporter& reporter) {
    for (const std::string& input :
         options.output == "-" ? std::vector<std::string>() : options.inputs) {
        CheckNotInput(PathFromArgument(input), PathFromArgument(options.output));
    }
    OutputFile output(PathFromArgument(options.output), options.ifExists);
    LayerSystems systems(NamedSystem(options.crs, reporter));
    LayerReader reader(options, systems);

    // What is read twice has its say once.
    if (options.output == "-" && IsTerminal(stdout)) {
        reporter.SetProgress(false);  // the picture goes there
    }
    Reporter silent = reporter;
    silent.SetVerbosity(std::min(reporter.GetVerbosity(), Verbosity::BarOnly));
    shr::Box2d world;
    if (options.bbox) {
        world = *options.bbox;
        SettleSystem(options, silent, systems);
    } else {
        world = ExtentOf(options, reader, reporter);
    }
    const double stretchX = systems.IsGeographic() ? LongitudeStretch(world) : 1.0;
    const PageSize page = ChoosePageSize(world, stretchX, options.page);
    Canvas canvas(options.format, page, [&output](std::string_view bytes) { output.Write(bytes); });
    canvas.Fill(options.background);
    MapPainter painter(canvas.Context(), Viewport(world, stretchX, page, options.page.margin),
                       options.styleSource);
    if (options.bbox) {
        WatchedPainter watched(painter);
        reader.Read(watched, reporter);
        WarnOfEmptyBox(world, watched.Extent(), reporter);
    } else {
        reader.Read(painter, silent);
    }
    canvas.Finish();
    output.Finish();
    reporter.Detail(options.output + ": " + std::to_string(page.width) + " x " +
                    std::to_string(page.height) + " pixels");
    return 0;
}

}  // namespace app
