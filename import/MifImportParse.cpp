// The objects of the DATA section: the loop over them, their geometry and their attributes.
#include "import/MifImportFilter.h"

#include "host/geom/Arc.h"
#include "host/shr/Text.h"
#include "host/zeio/IoManager.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <string_view>
#include <utility>

namespace mif {

namespace {

constexpr ErrorOrigin kBadPolylineSectionCount{L"MifImportParse", 677};
constexpr ErrorOrigin kBadPolylineVertexCount{L"MifImportParse", 692};
constexpr ErrorOrigin kBadRegionSectionCount{L"MifImportParse", 752};
constexpr ErrorOrigin kBadRegionVertexCount{L"MifImportParse", 775};
constexpr ErrorOrigin kArcFailed{L"MifImportParse", 1430};
constexpr ErrorOrigin kBadMultipointCount{L"MifImportParse", 1457};
constexpr ErrorOrigin kInvalidObjectType{L"MifImportParse", 1722};

constexpr wchar_t kPolylineSectionMessage[] =
    L"Bad section count (%d) in a polyline object.\nFile: %s";
constexpr wchar_t kPolylineVertexMessage[] =
    L"Bad vertex count (%d) in a polyline object.\nFile: %s";
constexpr wchar_t kRegionSectionMessage[] = L"Bad section count (%d) in a region object.\nFile: %s";
constexpr wchar_t kRegionVertexMessage[] = L"Bad vertex count (%d) in a region object.\nFile: %s";
constexpr wchar_t kMultipointMessage[] = L"Bad vertex count (%d) in a multipoint object.\nFile: %s";

constexpr int kObjectsPerProgress = 50;
constexpr int kArcPoints = 300;

// A count up to this is believed; a larger one needs as many bytes left in the file.
constexpr int kTrustedCount = 1'000'000;

// The parts of a collection that states no count.
constexpr int kDefaultCollectionCount = 3;

// Smaller differences count as zero, and this one too.
constexpr double kNoDistance = std::numeric_limits<float>::epsilon();

constexpr double kDefaultMarkerSize = 10.0;
constexpr std::wstring_view kMarkerFont = L"ZEI Default Symbols";

void StripBlanks(std::string& text) {
    text.erase(text.find_last_not_of(' ') + 1);
    text.erase(0, text.find_first_not_of(' '));
}

// Kept: both half-axes enter each coordinate, so start and end do not lie on the ellipse. The
// host's arc operation is given points of this form and takes only their directions.
shr::Vec2d ArcPoint(const shr::Box2d& box, double angleDegrees) {
    const double angle = angleDegrees * 2.0 * std::numbers::pi / 360.0;
    const double halfWidth = std::fabs(box.maxX - box.minX) / 2.0;
    const double halfHeight = std::fabs(box.maxY - box.minY) / 2.0;
    const double centreX = box.minX + halfWidth;
    const double centreY = box.minY + halfHeight;
    return {centreX + halfWidth * std::sin(angle) + halfHeight * std::cos(angle),
            centreY + halfWidth * std::cos(angle) + halfHeight * std::sin(angle)};
}

}  // namespace

struct MifImportFilter::ObjectKeyword {
    const char* keyword;
    void (MifImportFilter::*read)();
};

constinit const MifImportFilter::ObjectKeyword MifImportFilter::kObjectKeywords[] = {
    {"none", &MifImportFilter::ReadNone},
    {"point", &MifImportFilter::ReadPoint},
    {"line", &MifImportFilter::ReadLine},
    {"pline", &MifImportFilter::ReadPolyline},
    {"region", &MifImportFilter::ReadRegion},
    {"arc", &MifImportFilter::ReadArc},
    {"text", &MifImportFilter::ReadText},
    {"rect", &MifImportFilter::ReadRect},
    {"roundrect", &MifImportFilter::ReadRoundRect},
    {"ellipse", &MifImportFilter::ReadEllipse},
    {"multipoint", &MifImportFilter::ReadMultipoint},
};

void MifImportFilter::ParseDataSection() {
    run_ = std::make_unique<RunMemory>();
    for (const std::string& name : reader_.columnNames()) {
        run_->columnNames.push_back(shr::AtoW(name, 0));
    }
    SkipLineEnds();
    std::uint64_t objectCount = 0;
    while (!reader_.IsEOF()) {
        if (reader_.token().empty()) {
            reader_.NextToken();
            continue;
        }
        ParseObject();
        SkipLineEnds();
        ++objectCount;
        if (objectCount % kObjectsPerProgress == 0) {
            Manager().ProgressProportion(reader_.GetProgress());
        }
    }
    run_.reset();
}

void MifImportFilter::SkipLineEnds() {
    while (!reader_.IsEOF() && reader_.TokenIsLineEnd()) {
        reader_.NextToken();
    }
}

// Reads one object with all its parts. The parts of a collection follow one another in the file,
// those of a collection inside it first, so the number of objects still to come is all that has to
// be known: no depth of collections can exhaust the stack.
void MifImportFilter::ParseObject() {
    std::uint64_t pending = 1;
    while (pending > 0) {
        --pending;
        if (reader_.TokenIs("collection")) {
            pending += static_cast<std::uint64_t>(ReadCollectionCount());
        } else {
            ParseSingleObject();
        }
    }
}

void MifImportFilter::ParseSingleObject() {
    for (const ObjectKeyword& entry : kObjectKeywords) {
        if (reader_.TokenIs(entry.keyword)) {
            (this->*entry.read)();
            return;
        }
    }
    ThrowErrorMsg(kInvalidObjectType.source, kInvalidObjectType.line,
                  shr::FormatString(L"Invalid object type '%s' in MIF file '%s'",
                                    shr::AtoW(reader_.Token(), 0).c_str(),
                                    reader_.mifPath().c_str()));
}

int MifImportFilter::ReadCollectionCount() {
    reader_.NextToken();
    const int count = reader_.TokenAsInt();
    reader_.NextLine();
    return count < 1 ? kDefaultCollectionCount : count;
}

// An object without geometry has a row all the same.
void MifImportFilter::ReadNone() {
    reader_.NextLine();
    ReadRowAttributes(nullptr);
}

void MifImportFilter::ReadPoint() {
    reader_.NextToken();
    const shr::Vec2d point = ReadPair();
    reader_.NextLine();
    extents_.Add(point.x, point.y);
    MifStyleRecord style;
    ParseStyleClauses(style);
    HandOverPenAndBrush(style);

    // Kept: a Symbol clause is read but not applied; hosts draw single points with their own
    // symbol, in their own size.
    zeio::TrMarkerSet markerSet = MakeMarkerSet();
    markerSet.size = 0.0;
    markerSet.positions = MakeVertices(1);
    markerSet.positions.front() = {point.x, point.y, 0.0};
    ReadRowAttributes(&markerSet.attributes);
    HandOverMarkerSet(markerSet);
}

void MifImportFilter::ReadLine() {
    reader_.NextToken();
    const shr::Vec2d start = ReadPair();
    reader_.NextToken();
    const shr::Vec2d end = ReadPair();
    reader_.NextLine();
    extents_.Add(start.x, start.y);
    extents_.Add(end.x, end.y);
    MifStyleRecord style;
    ParseStyleClauses(style);
    HandOverPenAndBrush(style);

    zeio::TrPolyline polyline;
    polyline.vertices = MakeVertices(2);
    polyline.vertices[0] = {start.x, start.y, 0.0};
    polyline.vertices[1] = {end.x, end.y, 0.0};
    ReadRowAttributes(&polyline.attributes);
    HandOverWithVertices(polyline, polyline.vertices);
}

void MifImportFilter::ReadPolyline() {
    reader_.NextToken();
    if (!reader_.TokenIs("multiple")) {
        zeio::TrPolyline polyline;
        ReadRowAttributes(&polyline.attributes);
        ReadPolylineSection(polyline);
        return;
    }
    reader_.NextToken();
    const int sectionCount = ReadCount(kBadPolylineSectionCount, kPolylineSectionMessage);
    reader_.NextLine();
    shr::CParamList attributes;
    ReadRowAttributes(&attributes);
    for (int section = 0; section < sectionCount; ++section) {
        zeio::TrPolyline polyline;
        polyline.attributes = attributes;
        ReadPolylineSection(polyline);
    }
}

// Kept: each section has a style record of its own, so the Pen clause behind the last section is
// that section's alone, and the earlier ones reach the host without a pen.
void MifImportFilter::ReadPolylineSection(zeio::TrPolyline& polyline) {
    const int count = ReadCount(kBadPolylineVertexCount, kPolylineVertexMessage);
    reader_.NextLine();
    polyline.vertices = MakeVertices(static_cast<std::size_t>(count));
    ReadVertexLines(polyline.vertices);
    MifStyleRecord style;
    ParseStyleClauses(style);

    // Kept: a section of a single vertex is dropped, style and all; hosts take no line without
    // length.
    if (count == 1) {
        return;
    }
    HandOverPenAndBrush(style);
    HandOverWithVertices(polyline, polyline.vertices);
}

void MifImportFilter::ReadRegion() {
    reader_.NextToken();
    const int ringCount = ReadCount(kBadRegionSectionCount, kRegionSectionMessage);
    reader_.NextLine();
    zeio::TrPolygon polygon;
    polygon.vertices = MakeVertices(0);
    MifStyleRecord style;
    for (int ring = 0; ring < ringCount; ++ring) {
        ReadRegionRing(polygon, style);
    }
    if (options_.areasToCurves) {
        HandOverRegionAsCurves(polygon, style);
        return;
    }
    HandOverPenAndBrush(style);
    ReadRowAttributes(&polygon.attributes);
    HandOverWithVertices(polygon, polygon.vertices);
}

void MifImportFilter::ReadRegionRing(zeio::TrPolygon& polygon, MifStyleRecord& style) {
    const int count = ReadCount(kBadRegionVertexCount, kRegionVertexMessage);
    polygon.partSizes.push_back(count);
    reader_.NextLine();
    const std::size_t first = polygon.vertices.size();
    polygon.vertices.resize(first + static_cast<std::size_t>(count));
    ReadVertexLines(std::span(polygon.vertices).subspan(first));
    ParseStyleClauses(style);
}

void MifImportFilter::HandOverRegionAsCurves(const zeio::TrPolygon& polygon,
                                             const MifStyleRecord& style) {
    shr::CParamList attributes;
    ReadRowAttributes(&attributes);
    auto first = polygon.vertices.cbegin();
    for (const std::int32_t count : polygon.partSizes) {
        MifStyleRecord ringStyle;
        ringStyle = style;
        HandOverPenAndBrush(ringStyle);
        zeio::TrPolyline polyline;
        polyline.vertices = MakeVertices(static_cast<std::size_t>(count));
        std::copy_n(first, count, polyline.vertices.begin());
        first += count;
        polyline.attributes = attributes;
        HandOverWithVertices(polyline, polyline.vertices);
    }
}

void MifImportFilter::ReadMultipoint() {
    reader_.NextToken();
    const int count = ReadCount(kBadMultipointCount, kMultipointMessage);
    reader_.NextLine();
    zeio::TrMarkerSet markerSet = MakeMarkerSet();
    markerSet.positions = MakeVertices(static_cast<std::size_t>(count));
    ReadRowAttributes(&markerSet.attributes);
    ReadVertexLines(markerSet.positions);
    MifStyleRecord style;
    ParseStyleClauses(style);
    HandOverPenAndBrush(style);
    if (style.symbolSeen) {
        ApplySymbol(style, markerSet);
    }
    HandOverMarkerSet(markerSet);
}

void MifImportFilter::ReadRect() {
    reader_.NextToken();
    const shr::Box2d box = ReadBox();
    reader_.NextLine();
    MifStyleRecord style;
    ParseStyleClauses(style);
    // Kept: read a second time, which finds nothing more.
    ParseStyleClauses(style);
    HandOverRectangle(box, 0.0, style);
}

void MifImportFilter::ReadRoundRect() {
    reader_.NextToken();
    const shr::Box2d box = ReadBox();
    if (reader_.TokenIsLineEnd()) {
        reader_.NextLine();
    }
    const double radius = reader_.TokenAsDouble();
    reader_.NextLine();
    MifStyleRecord style;
    ParseStyleClauses(style);
    HandOverRectangle(box, radius, style);
}

void MifImportFilter::HandOverRectangle(const shr::Box2d& box, double radius,
                                        MifStyleRecord& style) {
    HandOverPenAndBrush(style);
    zeio::TrRectangle rectangle;
    rectangle.x1 = box.minX;
    rectangle.y1 = box.minY;
    rectangle.x2 = box.maxX;
    rectangle.y2 = box.maxY;
    rectangle.radiusX = radius;
    rectangle.radiusY = radius;
    ReadRowAttributes(&rectangle.attributes);
    ImportObject(rectangle);
}

void MifImportFilter::ReadEllipse() {
    reader_.NextToken();
    const shr::Box2d box = ReadBox();
    reader_.NextLine();
    MifStyleRecord style;
    ParseStyleClauses(style);
    HandOverPenAndBrush(style);

    zeio::TrEllipse ellipse;
    ellipse.x1 = box.minX;
    ellipse.y1 = box.minY;
    ellipse.x2 = box.maxX;
    ellipse.y2 = box.maxY;
    ReadRowAttributes(&ellipse.attributes);
    ImportObject(ellipse);
}

void MifImportFilter::ReadArc() {
    reader_.NextToken();
    const shr::Box2d box = ReadBox();
    if (reader_.TokenIsLineEnd()) {
        reader_.NextLine();
    }
    const shr::Vec2d anglesDegrees = ReadPair();
    reader_.NextLine();
    MifStyleRecord style;
    ParseStyleClauses(style);
    HandOverPenAndBrush(style);
    HandOverArc(box, ArcPoint(box, anglesDegrees.x), ArcPoint(box, anglesDegrees.y));
}

// An arc whose ends coincide has no geometry, and takes no row either.
void MifImportFilter::HandOverArc(const shr::Box2d& box, const shr::Vec2d& start,
                                  const shr::Vec2d& end) {
    const bool differsInX = std::fabs(end.x - start.x) > kNoDistance;
    const bool differsInY = std::fabs(end.y - start.y) > kNoDistance;
    if (!differsInX && !differsInY) {
        return;
    }
    zeio::TrPolyline polyline;
    if (differsInX && differsInY) {
        const auto points = std::make_unique<shr::Vec2d[]>(kArcPoints);
        if (!geom::ArcToCurve(box, start, end, kArcPoints, points.get(), nullptr)) {
            Throw_ERR_INTERNAL(kArcFailed.source, kArcFailed.line);
        }
        polyline.vertices = MakeVertices(kArcPoints);
        std::transform(points.get(), points.get() + kArcPoints, polyline.vertices.begin(),
                       [](const shr::Vec2d& point) {
                           return shr::Vec3d{point.x, point.y, 0.0};
                       });
    } else {
        polyline.vertices = MakeVertices(2);
        polyline.vertices[0] = {start.x, start.y, 0.0};
        polyline.vertices[1] = {end.x, end.y, 0.0};
    }
    ReadRowAttributes(&polyline.attributes);
    HandOverWithVertices(polyline, polyline.vertices);
}

// Reads the current token and the next one as numbers, and stays on the second.
shr::Vec2d MifImportFilter::ReadPair() {
    const double first = reader_.TokenAsDouble();
    reader_.NextToken();
    return {first, reader_.TokenAsDouble()};
}

// Reads two points into the box between them, and moves behind the last number.
shr::Box2d MifImportFilter::ReadBox() {
    const shr::Vec2d first = ReadPair();
    reader_.NextToken();
    const shr::Vec2d second = ReadPair();
    reader_.NextToken();
    extents_.Add(first.x, first.y);
    extents_.Add(second.x, second.y);
    return {std::min(first.x, second.x), std::min(first.y, second.y), std::max(first.x, second.x),
            std::max(first.y, second.y)};
}

// A list of this many vertices, in the memory of the last one. What is in it does not count.
std::vector<shr::Vec3d> MifImportFilter::MakeVertices(std::size_t count) {
    std::vector<shr::Vec3d> vertices = std::move(run_->vertices);
    vertices.resize(count);
    return vertices;
}

// Hands over an object with this list of vertices, and keeps the list's memory for the next one.
void MifImportFilter::HandOverWithVertices(zeio::TrBase& object,
                                           std::vector<shr::Vec3d>& vertices) {
    ImportObject(object);
    run_->vertices = std::move(vertices);
}

// A marker set in the host's default symbol, without positions.
zeio::TrMarkerSet MifImportFilter::MakeMarkerSet() {
    run_->markerFont = kMarkerFont;
    return zeio::TrMarkerSet(zeio::SymbolStyle::DefaultSymbolSet, kDefaultMarkerSize,
                             std::move(run_->markerFont), 0);
}

void MifImportFilter::HandOverMarkerSet(zeio::TrMarkerSet& markerSet) {
    HandOverWithVertices(markerSet, markerSet.positions);
    run_->markerFont = std::move(markerSet.fontName);
}

void MifImportFilter::ReadVertexLines(std::span<shr::Vec3d> vertices) {
    for (shr::Vec3d& vertex : vertices) {
        const shr::Vec2d point = ReadPair();
        reader_.NextLine();
        vertex = {point.x, point.y, 0.0};
        extents_.Add(point.x, point.y);
    }
}

// Reads the next row of the .mid file into the list, which is empty so far, or drops the row when
// the list is null. Without a row, or with an empty one, the list stays empty.
void MifImportFilter::ReadRowAttributes(shr::CParamList* attributes) {
    const bool hasRow = !reader_.IsMidEOF() && reader_.ReadMidRow();
    if (attributes == nullptr || !hasRow) {
        return;
    }
    std::string& field = run_->field;
    for (std::size_t column = 0; column < run_->columnNames.size(); ++column) {
        // A missing field is stored as an empty text.
        static_cast<void>(reader_.GetMidField(column, field));
        StripBlanks(field);
        attributes->Set(run_->columnNames[column], field);
    }
}

// The pen and the brush go to the host itself, so a record is handed over once.
void MifImportFilter::HandOverPenAndBrush(MifStyleRecord& style) {
    if (options_.ignoreStyles) {
        return;
    }
    if (style.penSeen) {
        ImportObject(style.pen);
    }
    if (style.brushSeen) {
        ImportObject(style.brush);
    }
}

// The current token as a count. What it counts takes at least a byte each, so a count that is
// large and exceeds the rest of the file is refused before room is made for it.
int MifImportFilter::ReadCount(const ErrorOrigin& origin, const wchar_t* format) {
    const int count = reader_.TokenAsInt();
    if (count < 1 ||
        (count > kTrustedCount && static_cast<std::uint64_t>(count) > reader_.BytesLeft())) {
        ThrowParseError(origin, format, count);
    }
    return count;
}

void MifImportFilter::ThrowParseError(const ErrorOrigin& origin, const wchar_t* format,
                                      int count) const {
    ThrowErrorMsg(origin.source, origin.line,
                  shr::FormatString(format, count, reader_.mifPath().c_str()));
}

}  // namespace mif
