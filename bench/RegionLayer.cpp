#include "bench/RegionLayer.h"

#include "app/formats/mif/PairWriter.h"
#include "bench/CountingHost.h"
#include "export/MifExportFilter.h"
#include "host/zeio/IoManager.h"
#include "host/zeio/TrObjects.h"

#include <cstddef>
#include <string>

namespace bench {
namespace {

std::string NameOf(std::size_t region) {
    return "parcel number " + std::to_string(region);
}

}  // namespace

RegionLayer::RegionLayer(double scale) {
    Random random(1);
    regions_.resize(static_cast<std::size_t>(kRegionCount * scale));
    for (std::vector<Vertex>& region : regions_) {
        region = RegionFrom(random);
    }
}

void RegionLayer::WriteByModule(const std::filesystem::path& mif) const {
    CountingHost host;
    zeio::IoManager manager(host);
    mif::MifExportFilter filter(manager);
    filter.BeginExport(mif.wstring());
    zeio::TrNamedIds columns;
    columns.names = {L"ID", L"NAME"};
    filter.ExportObject(columns);
    zeio::TrPen pen;
    filter.ExportObject(pen);
    zeio::TrBrush brush(zeio::TrBrush::Pattern::Solid);
    filter.ExportObject(brush);
    zeio::TrPolygon polygon;
    polygon.vertices.resize(kRegionVertices);
    for (std::size_t i = 0; i < regions_.size(); ++i) {
        for (std::size_t vertex = 0; vertex < kRegionVertices; ++vertex) {
            polygon.vertices[vertex] = {regions_[i][vertex].x, regions_[i][vertex].y, 0.0};
        }
        polygon.attributes.Set(L"ID", std::to_string(i));
        polygon.attributes.Set(L"NAME", NameOf(i));
        filter.ExportObject(polygon);
    }
    filter.EndExport();
}

void RegionLayer::WriteByCommand(const std::filesystem::path& mif) const {
    app::PairWriter writer(mif, app::IfExists::Overwrite);
    writer.Begin({.columns = {{.name = "ID", .kind = app::ColumnKind::LargeInt},
                              {.name = "NAME", .kind = app::ColumnKind::Char}},
                  .charset = {},
                  .rows = {},
                  .coordSys = "CoordSys Earth Projection 1, 104",
                  .boundsPlace = app::BoundsPlace::SameLine,
                  .objects = {}});
    app::Feature feature;
    feature.geometry.kind = app::GeometryKind::Region;
    feature.geometry.points.resize(kRegionVertices);
    feature.geometry.partSizes = {kRegionVertices};
    feature.geometry.style.pen = app::Pen{};
    feature.geometry.style.brush = app::Brush{.pattern = 2};
    feature.values.resize(2);
    for (std::size_t i = 0; i < regions_.size(); ++i) {
        for (std::size_t vertex = 0; vertex < kRegionVertices; ++vertex) {
            feature.geometry.points[vertex] = {regions_[i][vertex].x, regions_[i][vertex].y};
        }
        feature.values = {static_cast<std::int64_t>(i), NameOf(i)};
        writer.Write(feature);
    }
    static_cast<void>(writer.Finish());
}

std::uintmax_t BytesOf(std::filesystem::path mif) {
    const std::uintmax_t bytes = std::filesystem::file_size(mif);
    return bytes + std::filesystem::file_size(mif.replace_extension(".mid"));
}

}  // namespace bench
