// One export into a folder of its own, with a host that records: verbs for the tests of the
// export filter.
#pragma once

#include "export/MifExportFilter.h"
#include "host/zeio/IoManager.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/TemporaryFolder.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mif::test {

class ExportRun {
public:
    ExportRun() : manager(host), filter(std::make_unique<MifExportFilter>(manager)) {}

    zeio::ExportStatus Begin() { return filter->BeginExport(MifPath()); }
    zeio::ExportStatus Send(zeio::TrBase& object) { return filter->ExportObject(object); }
    zeio::ExportStatus Send(zeio::TrBase&& object) { return filter->ExportObject(object); }
    zeio::ExportStatus End() { return filter->EndExport(); }

    // Names the columns.
    void SendColumns(std::vector<std::wstring> names);

    // Sends a TrInitGraphicsExp with this extent (min x, min y, max x, max y).
    void SendExtent(double minX, double minY, double maxX, double maxY);

    // A whole export of objects sent in between.
    template <class... Objects> void Export(Objects&&... objects) {
        static_cast<void>(Begin());
        (static_cast<void>(Send(std::forward<Objects>(objects))), ...);
        static_cast<void>(End());
    }

    std::wstring MifPath() const { return folder.PathOf("out.mif"); }
    std::wstring MidPath() const { return folder.PathOf("out.mid"); }

    // The files as text: line ends are "\n" on every system. Empty when there is none.
    std::string Mif() const { return ReadText("out.mif"); }
    std::string Mid() const { return ReadText("out.mid"); }
    bool HasMif() const { return folder.Has("out.mif"); }
    bool HasMid() const { return folder.Has("out.mid"); }

    // What follows the DATA line.
    std::string Objects() const;

    // The lines in front of it that begin with the prefix, without their line ends.
    std::string HeaderLines(const std::string& prefix) const;

    std::vector<std::string> Warnings() const { return host.CallsStartingWith("Warning"); }

    support::TemporaryFolder folder;
    support::RecordingHost host;
    zeio::IoManager manager;
    std::unique_ptr<MifExportFilter> filter;

private:
    std::string ReadText(const std::string& name) const;
};

// Objects in one line.
zeio::TrPolyline Polyline(std::initializer_list<shr::Vec3d> vertices);
zeio::TrPolygon Polygon(std::initializer_list<shr::Vec3d> vertices,
                        std::vector<std::int32_t> partSizes = {});
zeio::TrMarkerSet Markers(std::initializer_list<shr::Vec3d> positions);
zeio::TrRectangle Rectangle(double x1, double y1, double x2, double y2, double radiusX = 0.0,
                            double radiusY = 0.0);
zeio::TrEllipse Ellipse(double x1, double y1, double x2, double y2);
zeio::TrText Text(std::wstring text, double x, double y);
zeio::TrPen RelativePen(zeio::TrPen::Style style, double widthWorld);
zeio::TrPen AbsolutePen(zeio::TrPen::Style style, double widthInches);

// A system for the header.
zeio::TrCRS SystemObject(const gcs::CSDef& definition);

// The objects with an attribute list of name and value pairs.
template <class Object>
Object With(Object object,
            std::initializer_list<std::pair<const wchar_t*, const wchar_t*>> attributes) {
    for (const auto& [name, value] : attributes) {
        object.attributes.Set(name, std::wstring(value));
    }
    return object;
}

}  // namespace mif::test
