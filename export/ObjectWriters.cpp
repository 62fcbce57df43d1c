// The export filter's answer to each kind of translation object: the MIF text of graphic objects
// with their row of attributes, and the taking over of styles, columns and coordinate system.
//
// A graphic object first makes sure of the header, then widens the bounds, then is written. The
// vertices that a writer adds of its own do not widen the bounds.
#include "export/MifExportFilter.h"

#include "export/StyleCodes.h"
#include "host/shr/Text.h"
#include "host/zeio/IoManager.h"
#include "reader/Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <numbers>

namespace mif {

namespace {

using Ring = std::span<const shr::Vec3d>;

// Kept: 32678, not 32768. Files of 4085 to 4096 vertices declare version 450 since ever.
constexpr std::size_t kSmallObjectBytes = 32678;
constexpr std::size_t kBytesPerVertex = 8;
constexpr unsigned kLargeObjectVersion = 450;
constexpr std::size_t kManyVertices = 1'000'000;
constexpr unsigned kManyVerticesVersion = 800;

constexpr std::size_t kSmallestRing = 3;   // vertices of a ring as declared
constexpr std::size_t kSmallestCurve = 2;  // vertices of a ring that becomes a polyline

constexpr double kDefaultFontHeight = 1.0;
constexpr double kDefaultWidthRatio = 0.7;  // character width to height

constexpr std::uint32_t kCapabilities = 0x013E0100;
constexpr std::uint32_t kRendersText = 0x1;
constexpr std::uint32_t kRendersMarkers = 0x2;

constexpr std::size_t kFlushBytes = std::size_t{32} * 1024;

// The polygon's rings, in order. Sizes that are negative or run past the vertex list are clamped
// to what is there.
std::vector<Ring> RingsOf(const zeio::TrPolygon& polygon) {
    const Ring vertices(polygon.vertices);
    if (polygon.partSizes.empty()) {
        return {vertices};
    }
    std::vector<Ring> rings;
    rings.reserve(polygon.partSizes.size());
    Ring rest = vertices;
    for (const std::int32_t partSize : polygon.partSizes) {
        const std::size_t wanted = static_cast<std::size_t>(std::max(partSize, 0));
        const std::size_t size = std::min(wanted, rest.size());
        rings.push_back(rest.first(size));
        rest = rest.subspan(size);
    }
    return rings;
}

}  // namespace

void MifExportFilter::WritePolyline(zeio::TrPolyline& polyline) {
    const Ring vertices(polyline.vertices);
    if (vertices.empty()) {
        return;
    }
    WriteRestOfHeader();
    WidenBounds(vertices);
    ++plineCount_;
    RaiseVersionForVertices(vertices.size());

    text_ += "PLINE " + std::to_string(std::max(vertices.size(), kSmallestCurve)) + '\n';
    AppendVertices(vertices);
    if (vertices.size() == 1) {
        AppendVertex(vertices.front().x + kSingleEpsilon, vertices.front().y);
    }
    FlushText();
    WritePenClause();
    WriteMidRow(polyline.attributes);
}

void MifExportFilter::WritePolygon(zeio::TrPolygon& polygon) {
    WriteRestOfHeader();
    WidenBounds(polygon.vertices);
    RaiseVersionForVertices(polygon.vertices.size());

    if (!options_.areasToCurves) {
        WriteRegion(RingsOf(polygon), polygon.attributes);
        return;
    }
    // Kept: without part sizes nothing is written for the polygon. Hosts that let areas become
    // curves send the part sizes.
    if (!polygon.partSizes.empty()) {
        WriteCurves(RingsOf(polygon), polygon.attributes);
    }
}

// Kept: the rings are not closed by repeating their first vertex. The host's areas come closed
// when it wants them drawn so.
void MifExportFilter::WriteCurves(std::span<const Ring> rings, const shr::CParamList& attributes) {
    for (const Ring ring : rings) {
        if (ring.size() < kSmallestCurve) {
            continue;
        }
        ++plineCount_;
        text_ += "PLINE " + std::to_string(ring.size()) + '\n';
        AppendVertices(ring);
        FlushText();
        WritePenClause();
        WriteMidRow(attributes);
    }
}

void MifExportFilter::WriteRegion(std::span<const Ring> rings, const shr::CParamList& attributes) {
    ++regionCount_;
    const auto ringCount =
        std::count_if(rings.begin(), rings.end(), [](Ring ring) { return !ring.empty(); });
    text_ += "REGION " + std::to_string(ringCount) + '\n';
    for (const Ring ring : rings) {
        if (ring.empty()) {
            continue;
        }
        text_ += "  " + std::to_string(std::max(ring.size(), kSmallestRing)) + '\n';
        AppendVertices(ring);
        const shr::Vec3d& first = ring.front();
        if (ring.size() < kSmallestRing) {
            AppendVertex(first.x + kSingleEpsilon, first.y);
        }
        if (ring.size() == 1) {
            AppendVertex(first.x, first.y + kSingleEpsilon);
        }
    }
    FlushText();
    WriteMidRow(attributes);
    WritePenClause();
    WriteBrushClause();
}

// Kept: no SYMBOL clause. Readers draw the points with their own default symbol.
void MifExportFilter::WriteMarkers(zeio::TrMarkerSet& markers) {
    WriteRestOfHeader();
    for (const shr::Vec3d& position : markers.positions) {
        text_ += "POINT ";
        AppendVertex(position.x, position.y);
        FlushText();
        WriteMidRow(markers.attributes);
        bounds_.Widen(position.x, position.y);
    }
}

void MifExportFilter::WriteRectangle(zeio::TrRectangle& rectangle) {
    WriteRestOfHeader();
    bounds_.Widen(rectangle.x1, rectangle.y1);
    bounds_.Widen(rectangle.x2, rectangle.y2);
    if (rectangle.radiusX == 0.0 && rectangle.radiusY == 0.0) {
        text_ += "RECT ";
        AppendNumbers({rectangle.x1, rectangle.y1, rectangle.x2, rectangle.y2});
    } else {
        text_ += "ROUNDRECT ";
        AppendNumbers({rectangle.x1, rectangle.y1, rectangle.x2, rectangle.y2,
                       (rectangle.radiusX + rectangle.radiusY) * 0.5});
    }
    FlushText();
    WritePenClause();
    WriteBrushClause();
    WriteMidRow(rectangle.attributes);
}

void MifExportFilter::WriteEllipse(zeio::TrEllipse& ellipse) {
    WriteRestOfHeader();
    bounds_.Widen(ellipse.x1, ellipse.y1);
    bounds_.Widen(ellipse.x2, ellipse.y2);
    text_ += "ELLIPSE ";
    AppendNumbers({ellipse.x1, ellipse.y1, ellipse.x2, ellipse.y2});
    FlushText();
    WritePenClause();
    WriteBrushClause();
    WriteMidRow(ellipse.attributes);
}

void MifExportFilter::WriteText(zeio::TrText& text) {
    const double rotation = text.transform.GetRotation2();
    const double angleDegrees = rotation * 180.0 / std::numbers::pi;
    WriteRestOfHeader();
    const shr::Box2d rectangle = TextRectangle(text, rotation);
    bounds_.Widen(rectangle.minX, rectangle.minY);
    bounds_.Widen(rectangle.maxX, rectangle.maxY);

    // Kept: the text stands as it is, a double quote or a line end in it included. The text ends
    // at a NUL.
    WriteMifWide(shr::FormatString(L"TEXT \"%s\"\n", text.text.c_str()));
    text_ += "  ";
    AppendNumbers({rectangle.minX, rectangle.minY, rectangle.maxX, rectangle.maxY});
    text_ += "Angle ";
    AppendNumbers({angleDegrees});
    FlushText();
    WriteFontClause();
    WriteMidRow(text.attributes);
}

// The corners (x1, y1, x2, y2) as the TEXT object states them; they need not be in order.
shr::Box2d MifExportFilter::TextRectangle(const zeio::TrText& text, double rotationRadians) const {
    const double height = FontHeight();
    const double length = static_cast<double>(text.text.size()) * CharacterWidth();
    const double px = text.position.x;
    const double py = text.position.y;
    if (rotationRadians != 0.0) {
        const double x1 = px - height * std::sin(rotationRadians);
        const double y1 = py + height * std::cos(rotationRadians) - height;
        return {x1, y1, x1 + length, y1 + height};
    }
    if (text.box.minX > text.box.maxX || text.box.minY > text.box.maxY) {  // an empty box
        return {px, py, px + length, py - height};
    }
    // The box is measured as it lies without the text's rotation, and here there is none.
    const shr::Vec3d low = text.transform.Transform({text.box.minX, text.box.minY, 0.0});
    const shr::Vec3d high = text.transform.Transform({text.box.maxX, text.box.maxY, 0.0});
    return {px, py, px + std::abs(high.x - low.x), py + std::abs(high.y - low.y)};
}

double MifExportFilter::FontHeight() const {
    return font_.height == 0.0 ? kDefaultFontHeight : font_.height;
}

double MifExportFilter::CharacterWidth() const {
    return font_.widthDivisor == 0.0 ? FontHeight() * kDefaultWidthRatio
                                     : FontHeight() / font_.widthDivisor;
}

void MifExportFilter::TakeColumns(zeio::TrNamedIds& columns) {
    columns_.Replace(columns.names);
}

void MifExportFilter::TakeCoordinateSystem(zeio::TrCRS& system) {
    // A host that keeps georeference in its own file only says so with this option at false.
    bool savesInternally = false;
    const bool isStated =
        Manager().GetOption(L"SaveRefInfoAsInternal", savesInternally, /*persistent=*/false);
    if (!isStated || savesInternally) {
        system_ = system;
    }
}

void MifExportFilter::TakeFont(zeio::TrFont& font) {
    font_ = font;
}

void MifExportFilter::TakePen(zeio::TrPen& pen) {
    pen_ = pen;
}

void MifExportFilter::TakeBrush(zeio::TrBrush& brush) {
    brush_ = brush;
}

void MifExportFilter::AnswerInitGraphics(zeio::TrInitGraphicsExp& questions) {
    constexpr std::array<std::uint8_t, 4> kCodes = {0, 6, 0, 0};
    std::copy(kCodes.begin(), kCodes.end(), std::begin(questions.codes));
    questions.capabilities = kCapabilities | (options_.renderText ? kRendersText : 0) |
                             (options_.renderMarkers ? kRendersMarkers : 0);
    if (questions.scale != 0.0) {
        scale_ = questions.scale;
    }
    if (questions.unitsPerPoint != 0.0) {
        unitsPerPoint_ = questions.unitsPerPoint;
    }
    extent_ = questions.extent;
}

void MifExportFilter::WidenBounds(Ring vertices) {
    for (const shr::Vec3d& vertex : vertices) {
        bounds_.Widen(vertex.x, vertex.y);
    }
}

void MifExportFilter::RaiseVersionForVertices(std::size_t count) {
    if (count > kSmallObjectBytes / kBytesPerVertex) {
        RaiseVersion(kLargeObjectVersion);
    }
    if (count > kManyVertices) {
        RaiseVersion(kManyVerticesVersion);
    }
}

// Appends one line: the values with a blank between them.
void MifExportFilter::AppendNumbers(std::initializer_list<double> values) {
    for (const double value : values) {
        AppendDouble18G(text_, value);
        text_ += ' ';
    }
    text_.back() = '\n';
}

void MifExportFilter::AppendVertex(double x, double y) {
    AppendDouble18G(text_, x);
    text_ += ' ';
    AppendDouble18G(text_, y);
    text_ += '\n';
}

// Appends a line a vertex, and hands full blocks of lines over on the way, so that memory does not
// grow with the object.
void MifExportFilter::AppendVertices(Ring vertices) {
    for (const shr::Vec3d& vertex : vertices) {
        AppendVertex(vertex.x, vertex.y);
        if (text_.size() >= kFlushBytes) {
            FlushText();
        }
    }
}

}  // namespace mif
