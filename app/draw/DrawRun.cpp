#include "app/draw/DrawRun.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/platform/System.h"
#include "app/crs/Definitions.h"
#include "app/draw/MapPainter.h"
#include "app/draw/PictureMap.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

namespace app {

namespace {

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

void SayFarObjects(PictureMap& map, Reporter& reporter) {
    const std::optional<FarObjectsFound> far = map.FindFarObjects();
    if (!far) {
        return;
    }
    const bool isWide = far->timesAsWide >= far->timesAsHigh;
    const double times = isWide ? far->timesAsWide : far->timesAsHigh;
    const std::string objects =
        far->count == 1 ? "1 object makes" : std::to_string(far->count) + " objects make";
    reporter.Note(objects + " the map " + std::to_string(std::llround(std::min(times, 1e15))) +
                  " times as " + (isWide ? "wide" : "high") + "; --bbox " + CornersOf(far->rest) +
                  " shows the rest");
}

SystemPtr WantedSystem(const DrawOptions& options, Reporter& reporter) {
    return options.map.crs.empty() ? nullptr : SystemOfOption("--crs", options.map.crs, reporter);
}

// Throws Failure for a map without an object, unless a box of it is wanted.
MapFrame FrameOf(const DrawOptions& options, PictureMap& map, Reporter& reporter) {
    if (options.bbox) {
        WarnOfEmptyBox(*options.bbox, map.Frame().Extent(), reporter);
        MapFrame frame;
        frame.Include(*options.bbox, 0.0);
        return frame;
    }
    if (!map.Frame().Extent()) {
        throw Failure(PathText(PathFromArgument(options.map.paths.front())) +
                      ": no object to draw; with --bbox the picture is made all the same");
    }
    SayFarObjects(map, reporter);
    return map.Frame();
}

void Paint(PictureMap& map, MapPainter& painter) {
    map.Geometries().Read({.beginLayer = [&](std::size_t layer) { painter.BeginLayer(layer); },
                           .take = [&](const Geometry& geometry,
                                       std::string_view /*label*/) { painter.Draw(geometry); }});
}

}  // namespace

int RunDraw(const DrawOptions& options, Reporter& reporter) {
    MapReader reader(options.map, WantedSystem(options, reporter));
    if (options.output != "-") {
        for (const std::string& file : reader.Files()) {
            CheckNotInput(PathFromArgument(file), PathFromArgument(options.output));
        }
    }
    OutputFile output(PathFromArgument(options.output), options.ifExists);
    if (options.output == "-" && IsTerminal(stdout)) {
        reporter.SetProgress(false);  // the picture goes there
    }
    PictureMap map(options.page, options.bbox, options.styleSource);
    reader.Read(map, reporter);

    const MapFrame frame = FrameOf(options, map, reporter);
    const double stretchX =
        reader.Systems().IsGeographic() ? LongitudeStretch(*frame.Extent()) : 1.0;
    const PageSize page = frame.ChoosePageSize(options.page, stretchX);
    const Viewport viewport = frame.FitInto(page, options.page.margin, stretchX);
    Canvas canvas(options.format, page, [&output](std::string_view bytes) { output.Write(bytes); });
    canvas.Fill(options.background);
    MapPainter painter(canvas.Context(), viewport, options.styleSource);
    Paint(map, painter);
    canvas.Finish();
    output.Finish();
    reporter.Detail(options.output + ": " + std::to_string(page.width) + " x " +
                    std::to_string(page.height) + " pixels");
    return 0;
}

}  // namespace app
