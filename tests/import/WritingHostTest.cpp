// A host that writes into every object it is handed: none of it reaches the next object.
#include "tests/import/ImportRun.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>

namespace {

using import_test::ImportRun;
using import_test::Lines;

constexpr double kScribble = 77.0;
const std::wstring kScribbledText = L"scribbled";
constexpr shr::Color4b kScribbledColor{7, 7, 7, 7};

void Scribble(shr::CParamList& attributes) {
    attributes.Set(L"A", kScribbledText);
    attributes.Set(L"scribbled", kScribbledText);
}

void Scribble(std::vector<shr::Vec3d>& vertices) {
    vertices.insert(vertices.begin(), {kScribble, kScribble, kScribble});
}

void ScribbleIn(zeio::TrPen& pen) {
    pen.style = zeio::TrPen::Style::NoLine;
    pen.color = kScribbledColor;
    pen.isRelative = !pen.isRelative;
    pen.width = kScribble;
    pen.dashes.assign(3, 7.0F);
}

void ScribbleIn(zeio::TrBrush& brush) {
    brush.pattern = zeio::TrBrush::Pattern::Pattern4;
    brush.fore = kScribbledColor;
    brush.back = kScribbledColor;
}

void ScribbleIn(zeio::TrFont& font) {
    font.faceName = kScribbledText;
    font.flags = 0xFFFF;
    font.height = kScribble;
    font.widthDivisor = kScribble;
}

void ScribbleIn(zeio::TrText& text) {
    text.text = kScribbledText;
    text.position = {kScribble, kScribble, kScribble};
    text.box = {kScribble, kScribble, kScribble, kScribble};
    text.justify = zeio::TrText::Justify::Right;
    text.align = 7;
    text.transform.RotateZ(1.0);
    Scribble(text.attributes);
}

void ScribbleIn(zeio::TrMarkerSet& markers) {
    markers.symbolStyle = zeio::SymbolStyle::TrueTypeFont;
    markers.size = kScribble;
    markers.fontName = kScribbledText;
    markers.symbolIndex = 7;
    Scribble(markers.positions);
    Scribble(markers.attributes);
}

void ScribbleIn(zeio::TrPolyline& polyline) {
    Scribble(polyline.vertices);
    Scribble(polyline.attributes);
}

void ScribbleIn(zeio::TrPolygon& polygon) {
    polygon.partSizes.push_back(7);
    Scribble(polygon.vertices);
    Scribble(polygon.attributes);
}

void ScribbleIn(zeio::TrRectangle& rectangle) {
    rectangle.x1 = rectangle.y1 = rectangle.x2 = rectangle.y2 = kScribble;
    rectangle.radiusX = rectangle.radiusY = kScribble;
    Scribble(rectangle.attributes);
}

void ScribbleIn(zeio::TrEllipse& ellipse) {
    ellipse.x1 = ellipse.y1 = ellipse.x2 = ellipse.y2 = kScribble;
    Scribble(ellipse.attributes);
}

void ScribbleIn(zeio::TrNamedIds& columns) {
    columns.names.assign(3, kScribbledText);
}

void ScribbleIn(zeio::TrCRS& system) {
    system.SetCS(nullptr);
}

template <typename Class> void ScribbleIf(zeio::TrBase& object) {
    if (object.GetTypeId() == Class::GetClassTypeId()) {
        ScribbleIn(static_cast<Class&>(object));
    }
}

template <typename... Classes> void ScribbleInAnyOf(zeio::TrBase& object) {
    (ScribbleIf<Classes>(object), ...);
}

void ScribbleInObject(zeio::TrBase& object) {
    ScribbleInAnyOf<zeio::TrPen, zeio::TrBrush, zeio::TrFont, zeio::TrText, zeio::TrMarkerSet,
                    zeio::TrPolyline, zeio::TrPolygon, zeio::TrRectangle, zeio::TrEllipse,
                    zeio::TrNamedIds, zeio::TrCRS>(object);
}

// A run over a file with rows for its objects.
class ARun : public ImportRun {
public:
    explicit ARun(bool areasToCurves) {
        AddToHeader("CoordSys Earth Projection 1, 104\n\nColumns 2\n  A Char(9)\n  B Char(9)\n");
        UseRows("a,1\nb,2\nc,3\nd,4\ne,5\nf,6\n");
        Remember(L"AreasToCurves", areasToCurves);
    }
};

struct WritingRow {
    std::string name;
    std::string objects;
    bool areasToCurves = false;
};

std::ostream& operator<<(std::ostream& out, const WritingRow& row) {
    return out << row.name;
}

class AHostThatWritesIntoItsObjects : public testing::TestWithParam<WritingRow> {};

TEST_P(AHostThatWritesIntoItsObjects, IsHandedTheSameOnesAllTheSame) {
    ARun undisturbed(GetParam().areasToCurves);
    ARun disturbed(GetParam().areasToCurves);
    disturbed.Host().onObject = ScribbleInObject;

    undisturbed.Import(GetParam().objects);
    disturbed.Import(GetParam().objects);

    EXPECT_EQ(disturbed.FirstError(), "");
    EXPECT_EQ(disturbed.HostReceived(), undisturbed.HostReceived());
}

TEST_P(AHostThatWritesIntoItsObjects, DoesNotChangeTheRunningExtents) {
    ARun undisturbed(GetParam().areasToCurves);
    ARun disturbed(GetParam().areasToCurves);
    disturbed.Host().onObject = ScribbleInObject;

    undisturbed.Import(GetParam().objects);
    disturbed.Import(GetParam().objects);

    EXPECT_EQ(disturbed.Filter().extents().maxX, undisturbed.Filter().extents().maxX);
    EXPECT_EQ(disturbed.Filter().extents().maxY, undisturbed.Filter().extents().maxY);
}

const std::string kStyles = " Pen (3,5,255)\n Brush (3,255,0)\n";

// Each kind of object twice; the second one shows what the host did to the first.
const WritingRow kRows[] = {
    {"Points", "Point 1 2\n" + kStyles + "Point 1 2\n"},
    {"Lines", "Line 1 2 3 4\n" + kStyles + "Line 1 2 3 4\n"},
    {"Polylines", "Pline 2\n1 2\n3 4\n" + kStyles + "Pline 2\n1 2\n3 4\n"},
    {"Sections", "Pline Multiple 3\n2\n1 2\n3 4\n2\n5 6\n7 8\n2\n1 2\n3 4\n" + kStyles},
    {"Regions", "Region 1\n2\n1 2\n3 4\n" + kStyles + "Region 1\n2\n1 2\n3 4\n"},
    {"RegionsAsCurves", "Region 3\n2\n1 2\n3 4\n2\n5 6\n7 8\n2\n1 2\n3 4\n" + kStyles, true},
    {"Arcs", "Arc 0 0 4 2\n0 90\n" + kStyles + "Arc 0 0 4 2\n0 90\n"},
    {"Texts", "Text \"abc\"\n1 2 3 4\n Font (\"Arial\",3,0,255)\n Angle 30\n" + kStyles +
                  "Text \"def\"\n5 6 7 8\nText \"ghi\"\n0 0 0 0\n"},
    {"Rectangles", "Rect 1 2 3 4\n" + kStyles + "Rect 1 2 3 4\n"},
    {"RoundedRectangles", "Roundrect 1 2 3 4 5\n" + kStyles + "Rect 1 2 3 4\n"},
    {"Ellipses", "Ellipse 1 2 3 4\n" + kStyles + "Ellipse 1 2 3 4\n"},
    {"Multipoints", "Multipoint 2\n1 2\n3 4\n Symbol (40,255,12,\"Wingdings\",1,30)\n" + kStyles +
                        "Multipoint 2\n1 2\n3 4\n Symbol (35,16711680,12)\n"},
    {"MultipointsAndPoints", "Multipoint 2\n1 2\n3 4\nPoint 1 2\nMultipoint 1\n1 2\n"},
    {"Collections",
     "Collection 3\nRegion 1\n2\n1 2\n3 4\nPline 2\n1 2\n3 4\nMultipoint 1\n1 2\n" + kStyles},
};

INSTANTIATE_TEST_SUITE_P(, AHostThatWritesIntoItsObjects, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
