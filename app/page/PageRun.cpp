#include "app/page/PageRun.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/platform/System.h"
#include "app/crs/Definitions.h"
#include "app/json/ShortestNumber.h"
#include "app/map/MapExtent.h"
#include "app/page/PageDocument.h"
#include "app/page/PageLayers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

namespace app {

namespace {

constexpr double kMegabyte = 1 << 20;

std::string Megabytes(double bytes) {
    std::array<char, 32> digits{};
    const double value = bytes / kMegabyte;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::fixed, value < 10.0 ? 1 : 0);
    return std::string(digits.data(), end.ptr) + " MB";
}

// "12 m" or "0.5 units", in two digits, on the ground in the middle of the map.
std::string LengthOnGround(double tolerance, PagePlane plane, const shr::Box2d& extent) {
    double length = tolerance;
    if (plane == PagePlane::Degrees) {
        const double latitude = std::clamp((extent.minY + extent.maxY) / 2.0, -85.0, 85.0);
        length *= std::cos(latitude * std::numbers::pi / 180.0);
    }
    const double unit = std::pow(10.0, std::floor(std::log10(length)) - 1.0);
    return PlainText(std::round(length / unit) * unit) +
           (plane == PagePlane::Degrees ? " m" : " units");
}

void WarnOfEmptyView(const PageOptions& options, const PageLayers& layers, Reporter& reporter) {
    if (options.bbox && !layers.Extent()) {
        reporter.Warning("no object lies in --bbox " + CornersOf(*options.bbox));
    }
}

// Throws Failure for a map without an object, unless a box of it is wanted.
void CheckObjects(const PageOptions& options, PageLayers& layers, Reporter& reporter) {
    WarnOfEmptyView(options, layers, reporter);
    if (layers.Extent()) {
        if (const std::optional<FarObjectsFound> far = layers.FindFarObjects()) {
            reporter.Note(NoteOf(*far));
        }
    } else if (!options.bbox) {
        throw Failure(PathText(PathFromArgument(options.map.paths.front())) +
                      ": no object to show; with --bbox the page is made all the same");
    }
}

[[noreturn]] void FailTooLarge(const PageOptions& options, double least) {
    const auto wanted = static_cast<std::uint64_t>(std::ceil(least * 1.1 / kMegabyte));
    throw Failure(options.output + ": attributes and places alone make a page of about " +
                  Megabytes(least) + ", more than " +
                  Megabytes(static_cast<double>(options.budget)) + "; allow that with --size " +
                  std::to_string(wanted) + "M, or take a part of the map with --bbox");
}

PageContent ContentWithin(const PageOptions& options, PageLayers& layers, std::size_t frame) {
    const double least = static_cast<double>(layers.LeastSize() + frame);
    if (options.budget > frame) {
        if (std::optional<PageContent> content = layers.Within(options.budget - frame)) {
            return std::move(*content);
        }
    }
    FailTooLarge(options, least);
}

void Write(const PageOptions& options, const std::string& head, const PageContent& content,
           const std::string& end) {
    OutputFile output(PathFromArgument(options.output), options.ifExists);
    output.Write(head);
    for (const std::string& layer : content.layers) {
        output.Write(kLayerBegin);
        output.Write(layer);
        output.Write(kLayerEnd);
    }
    output.Write(end);
    output.Finish();
}

void Say(const PageOptions& options, const PageLayers& layers, PagePlane plane,
         const PageContent& content, double size, Reporter& reporter) {
    if (content.isThinned) {
        reporter.Note(options.output + ": lines and outlines are thinned to about " +
                      LengthOnGround(content.tolerance, plane, *layers.Extent()) +
                      " to stay within " + Megabytes(static_cast<double>(options.budget)) +
                      "; --size sets another limit");
    }
    reporter.Detail(options.output + ": " + Megabytes(size));
}

}  // namespace

int RunPage(const PageOptions& options, Reporter& reporter) {
    MapInput input = options.map;
    input.needsValues = true;
    input.leavesOutUnplaced = true;
    MapReader reader(input, std::make_shared<const CoordinateSystem>(Wgs84System()));
    if (options.output != "-") {
        for (const std::string& file : options.map.paths) {
            CheckNotInput(PathFromArgument(file), PathFromArgument(options.output));
        }
        CheckOutput(PathFromArgument(options.output), options.ifExists);
    } else if (IsTerminal(stdout)) {
        reporter.SetProgress(false);  // the page goes there
    }
    PageLayers layers(options.bbox, options.styleSource);
    reader.Read(layers, reporter);
    const PagePlane plane = reader.IsAnyPlaced() ? PagePlane::Degrees : PagePlane::Units;
    layers.Choose(plane);
    CheckObjects(options, layers, reporter);
    if (!options.baseMap.url.empty() && plane == PagePlane::Units) {
        reporter.Warning("no layer has a place on the Earth; the page has no base map");
    }

    const std::string head = DocumentHead(options, layers, plane);
    const std::string end = DocumentEnd();
    std::size_t frame = head.size() + end.size();
    frame += layers.Names().size() * (kLayerBegin.size() + kLayerEnd.size());
    const PageContent content = ContentWithin(options, layers, frame);
    Write(options, head, content, end);
    std::size_t size = frame;
    for (const std::string& layer : content.layers) {
        size += layer.size();
    }
    Say(options, layers, plane, content, static_cast<double>(size), reporter);
    return 0;
}

}  // namespace app
