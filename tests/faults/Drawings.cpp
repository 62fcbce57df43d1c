#include "tests/faults/Drawings.h"

#include "host/gcs/KnownLists.h"

#include <numbers>
#include <utility>

namespace fault_test {

namespace {

void AddStyles(Objects& objects) {
    zeio::TrPen pen(zeio::TrPen::Style::CustomDash, shr::Color4b(1, 2, 3), 0.5);
    pen.dashes = {0.25F, 0.25F};
    objects.push_back(std::make_unique<zeio::TrPen>(pen));
    objects.push_back(std::make_unique<zeio::TrBrush>(zeio::TrBrush::Pattern::Cross));
    zeio::TrFont font(L"A typeface with a name of some length");
    font.height = 2.5;
    objects.push_back(std::make_unique<zeio::TrFont>(font));
}

void AddSystem(Objects& objects) {
    gcs::ProjectionDef projection;
    projection.SetMethod(gcs::ProjectionMethod::LongitudeLatitude);
    gcs::DatumDef datum;
    gcs::GCSKnownDatumsList.Enum(gcs::GCSKnownDatumsList.FindByToken(L"DATUM_WGS84", nullptr),
                                 datum);
    gcs::GCSDef definition;
    definition.SetProjection(projection);
    definition.SetDatum(datum);
    auto system = std::make_unique<zeio::TrCRS>();
    system->SetCS(&definition);
    objects.push_back(std::move(system));
}

Objects Preparation() {
    Objects objects;
    objects.push_back(std::make_unique<zeio::TrInitGraphicsExp>());
    AddSystem(objects);
    auto columns = std::make_unique<zeio::TrNamedIds>();
    columns->names = {L"A column with a long name", L"B"};
    objects.push_back(std::move(columns));
    AddStyles(objects);
    return objects;
}

template <class Object> Objects With(Object object) {
    Objects objects = Preparation();
    object.attributes.Set(L"A column with a long name",
                          std::wstring(L"a value \"that\" is longer than a small string"));
    object.attributes.Set(L"B", std::string("narrow text of some length, too"));
    objects.push_back(std::make_unique<Object>(std::move(object)));
    return objects;
}

std::vector<shr::Vec3d> Vertices(std::size_t count) {
    std::vector<shr::Vec3d> vertices;
    for (std::size_t i = 0; i < count; ++i) {
        vertices.push_back({static_cast<double>(i) / 3.0, static_cast<double>(i * i), 0.0});
    }
    return vertices;
}

Objects PolylineDrawing() {
    zeio::TrPolyline polyline;
    polyline.vertices = Vertices(50);
    return With(std::move(polyline));
}

Objects PolygonDrawing() {
    zeio::TrPolygon polygon;
    polygon.vertices = Vertices(50);
    polygon.partSizes = {20, 30};
    return With(std::move(polygon));
}

Objects MarkersDrawing() {
    zeio::TrMarkerSet markers;
    markers.positions = Vertices(3);
    return With(std::move(markers));
}

Objects RectangleDrawing() {
    zeio::TrRectangle rectangle;
    rectangle.x2 = 4.0;
    rectangle.y2 = 3.0;
    return With(std::move(rectangle));
}

Objects RoundRectangleDrawing() {
    zeio::TrRectangle rectangle;
    rectangle.x2 = 4.0;
    rectangle.y2 = 3.0;
    rectangle.radiusX = 0.5;
    rectangle.radiusY = 0.25;
    return With(std::move(rectangle));
}

Objects EllipseDrawing() {
    zeio::TrEllipse ellipse;
    ellipse.x2 = 4.0;
    ellipse.y2 = 3.0;
    return With(std::move(ellipse));
}

Objects TextDrawing() {
    zeio::TrText text(L"a text that is longer than a small string", {1.0, 2.0, 0.0});
    text.transform.RotateZ(std::numbers::pi / 6.0);
    return With(std::move(text));
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const ImportRow& row) {
    return out << row.name;
}

std::ostream& operator<<(std::ostream& out, const ExportRow& row) {
    return out << row.name;
}

const std::vector<ImportRow>& ImportRows() {
    static const std::vector<ImportRow> rows{
        {"None", "None\n"},
        {"Point", "Point 1 2\n Symbol (35,16711680,12,\"A font of symbols\",1,30)\n"},
        {"Line", "Line 1 2 3 4\n Pen (3,5,255)\n"},
        {"Polyline", "Pline 3\n1 2\n3 4\n5 6\n Pen (3,14,255)\n Smooth\n"},
        {"Sections", "Pline Multiple 2\n2\n1 2\n3 4\n3\n1 2\n3 4\n5 6\n Pen (21,2,255)\n"},
        {"Region", "Region 2\n3\n0 0\n1 0\n1 1\n4\n0 0\n9 0\n9 9\n0 9\n Pen (1,2,0)\n"
                   " Brush (55,255,0)\n Center 1 1\n"},
        {"Arc", "Arc 0 0 4 4\n10 100\n Pen (1,2,0)\n"},
        {"Text", "Text \"a text that is longer than a small string\"\n0 0 9 1\n"
                 " Font (\"A typeface of some length\",7,12,255)\n Spacing 1.5\n Justify Right\n"
                 " Angle 30\n Label Line Simple 1 2\n Pen (1,2,0)\n Brush (2,1)\n"},
        {"Rect", "Rect 0 0 4 3\n Pen (1,2,0)\n Brush (2,1)\n"},
        {"RoundRect", "RoundRect 0 0 4 3\n1.5\n Pen (1,2,0)\n Brush (2,1)\n"},
        {"Ellipse", "Ellipse 0 0 4 3\n Pen (1,2,0)\n Brush (2,1)\n"},
        {"Multipoint", "Multipoint 3\n1 2\n3 4\n5 6\n Symbol (35,255,12,\"A symbol font\",0,0)\n"},
        {"Collection", "Collection 3\nRegion 1\n3\n0 0\n1 0\n1 1\nPline 2\n1 2\n3 4\n"
                       "Multipoint 1\n1 2\n"},
    };
    return rows;
}

std::string MifWith(const std::string& objects) {
    return "Version 300\nCharset \"WindowsLatin1\"\nDelimiter \",\"\n"
           "CoordSys Earth Projection 8, 9999, 0, 1, 2, 3, 4, 5, 6, 7, 8, \"m\", 9, 0, 0.9996, "
           "500000, 0\nBounds (0, 0) (10, 10)\nColumns 2\n  A_column_with_a_long_name Char(60)\n"
           "  B Integer\nData\n\n" +
           objects;
}

std::string MidRows() {
    std::string rows;
    for (int i = 0; i < 5; ++i) {
        rows += "\"a value that is longer than a small string\",12345\n";
    }
    return rows;
}

const std::vector<ExportRow>& ExportRows() {
    static const std::vector<ExportRow> rows{
        {"Polyline", &PolylineDrawing},
        {"Polygon", &PolygonDrawing},
        {"Markers", &MarkersDrawing},
        {"Rectangle", &RectangleDrawing},
        {"RoundRectangle", &RoundRectangleDrawing},
        {"Ellipse", &EllipseDrawing},
        {"Text", &TextDrawing},
    };
    return rows;
}

void ExportAll(zeio::IoExportFilter& filter, const std::wstring& path, const Objects& objects) {
    filter.BeginExport(path);
    for (const std::unique_ptr<zeio::TrBase>& object : objects) {
        filter.ExportObject(*object);
    }
    filter.EndExport();
}

Objects WholeDrawing() {
    Objects drawing;
    for (const ExportRow& row : ExportRows()) {
        Objects objects = row.make();
        std::move(objects.begin(), objects.end(), std::back_inserter(drawing));
    }
    return drawing;
}

}  // namespace fault_test
