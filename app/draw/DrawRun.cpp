#include "app/draw/DrawRun.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/platform/System.h"
#include "app/crs/Definitions.h"
#include "app/draw/LabelPainter.h"
#include "app/draw/MapPainter.h"
#include "app/draw/MapScale.h"
#include "app/draw/PictureMap.h"
#include "app/map/MapExtent.h"

#include <optional>

namespace app {

namespace {

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
    if (const std::optional<FarObjectsFound> far = map.FindFarObjects()) {
        reporter.Note(NoteOf(*far));
    }
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

void PaintObjects(PictureMap& map, MapPainter& painter) {
    map.Geometries().Read({.beginLayer = [&](std::size_t layer) { painter.BeginLayer(layer); },
                           .take = [&](const Geometry& geometry,
                                       std::string_view /*label*/) { painter.Draw(geometry); }});
}

// The top layer's labels find their places first. The map is read once for each layer: what waits
// is then never more than one object.
void PaintLabels(PictureMap& map, LabelPainter& painter) {
    const auto read = [&map](const auto& take) {
        std::size_t current = 0;
        map.Geometries().Read(
            {.beginLayer = [&current](std::size_t layer) { current = layer; },
             .take = [&](const Geometry& geometry,
                         std::string_view label) { take(current, geometry, label); }});
    };
    read([&painter](std::size_t, const Geometry& geometry, std::string_view) {
        painter.Avoid(geometry);
    });
    for (std::size_t layer = map.Legend().size(); layer-- > 0;) {
        if (map.HasLabels(layer)) {
            read([&](std::size_t of, const Geometry& geometry, std::string_view label) {
                if (of == layer && !label.empty()) {
                    painter.Draw(geometry, label);
                }
            });
        }
    }
}

// Draws the map on its part of the page.
void PaintMap(const DrawOptions& options, PictureMap& map, const Viewport& viewport,
              const Canvas& canvas, const PagePoint& corner) {
    cairo_t* const context = canvas.Context();
    const SavedState state(context);
    const PageSize part = viewport.Page();
    if (part != canvas.Page()) {
        cairo_translate(context, corner.x, corner.y);
        cairo_rectangle(context, 0.0, 0.0, part.width, part.height);
        cairo_clip(context);
    }
    MapPainter painter(context, viewport, options.styleSource);
    PaintObjects(map, painter);
    if (!options.map.labels.empty()) {
        LabelPainter labels(context, viewport, options.styleSource);
        PaintLabels(map, labels);
    }
}

}  // namespace

int RunDraw(const DrawOptions& options, Reporter& reporter) {
    MapReader reader(options.map, WantedSystem(options, reporter));
    if (options.output != "-") {
        for (const std::string& file : options.map.paths) {
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
    const Furniture furniture(options.furniture, map.Legend(), options.styleSource, options.page);
    const double stretchX =
        reader.Systems().IsGeographic() ? LongitudeStretch(*frame.Extent()) : 1.0;
    const PageSize mapPage = frame.ChoosePageSize(furniture.MapRequest(), stretchX);
    const PageSize page = furniture.PageAround(mapPage);
    const Viewport viewport = frame.FitInto(mapPage, options.page.margin, stretchX);
    Canvas canvas(options.format, page, [&output](std::string_view bytes) { output.Write(bytes); });
    canvas.Fill(options.background);
    PaintMap(options, map, viewport, canvas, furniture.MapCorner());
    furniture.Draw(canvas.Context(), mapPage,
                   ScaleBarOf(mapPage, MetresPerPixel(reader.Systems().Target().get(), viewport),
                              1.0 / viewport.PixelsPerUnit()),
                   options.background);
    canvas.Finish();
    output.Finish();
    reporter.Detail(options.output + ": " + std::to_string(page.width) + " x " +
                    std::to_string(page.height) + " pixels");
    return 0;
}

}  // namespace app
