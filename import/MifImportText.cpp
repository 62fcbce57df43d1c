// Text objects: their string, their place and the order in which they reach the host.
#include "import/MifImportFilter.h"

#include "host/shr/Text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace mif {

namespace {

// World units, for a file whose size is not known.
constexpr double kDefaultReference = 100.0;

// A character's width by its height.
constexpr double kCharacterWidth = 0.5;

constexpr double kSmallestHeight = std::numeric_limits<float>::epsilon();

constexpr std::uint16_t kNormalWeight = 4;
constexpr std::uint16_t kBoldWeight = 7;
constexpr int kBoldBit = 1;
constexpr int kItalicBit = 2;
constexpr int kUnderlineBit = 4;

// Kept: exact comparisons. Files written by several programs state a point as a corner of zeros.
bool IsPlacedAtPoint(const shr::Box2d& corners) {
    const bool firstIsZero = corners.minX == 0.0 && corners.minY == 0.0;
    const bool secondIsZero = corners.maxX == 0.0 && corners.maxY == 0.0;
    return (firstIsZero && corners.maxX != 0.0 && corners.maxY != 0.0) ||
           (secondIsZero && corners.minX != 0.0 && corners.minY != 0.0) ||
           (corners.minX == corners.maxX && corners.minY == corners.maxY);
}

std::uint16_t FontFlags(int fontStyle) {
    std::uint16_t flags = (fontStyle & kBoldBit) != 0 ? kBoldWeight : kNormalWeight;
    if ((fontStyle & kItalicBit) != 0) {
        flags = static_cast<std::uint16_t>(flags + zeio::TrFont::kItalic);
    }
    if ((fontStyle & kUnderlineBit) != 0) {
        flags = static_cast<std::uint16_t>(flags + zeio::TrFont::kUnderline);
    }
    return flags;
}

zeio::TrText::Justify JustifyOf(int justification) {
    if (justification == 1) {
        return zeio::TrText::Justify::Centre;
    }
    return justification == 2 ? zeio::TrText::Justify::Right : zeio::TrText::Justify::Left;
}

// Turns about the point by an angle in radians.
shr::Mat4d RotationAbout(const shr::Vec2d& point, double angle) {
    shr::Mat4d transform;
    transform.Translate(-point.x, -point.y, 0.0);
    transform.RotateZ(angle);
    transform.Translate(point.x, point.y, 0.0);
    return transform;
}

shr::Box2d BoxBetween(const shr::Vec2d& first, const shr::Vec2d& second) {
    return {std::min(first.x, second.x), std::min(first.y, second.y), std::max(first.x, second.x),
            std::max(first.y, second.y)};
}

double AngleOf(const MifStyleRecord& style) {
    return style.angleDegrees / 180.0 * std::numbers::pi;
}

}  // namespace

// Where a text stands and how high it is, in world units.
struct MifImportFilter::TextPlace {
    shr::Vec2d anchor;
    shr::Vec2d extent;  // from the anchor to the opposite corner of the box, not turned
    double height;

    // length is that of the string in bytes, angle in radians.
    static TextPlace InBox(const shr::Box2d& corners, std::size_t length, double angle);
};

void MifImportFilter::ReadText() {
    MifStyleRecord style;
    const std::string string = ReadTextString();
    // The corners as they stand, not ordered: min is the first, max the second.
    shr::Box2d corners;
    for (double* number : {&corners.minX, &corners.minY, &corners.maxX, &corners.maxY}) {
        *number = reader_.TokenAsDouble();
        reader_.NextToken();
    }
    reader_.NextLine();
    ParseStyleClauses(style);
    if (string.empty()) {
        return;
    }

    const TextPlace place = IsPlacedAtPoint(corners)
                                ? PlaceAtPoint(corners, string.size())
                                : TextPlace::InBox(corners, string.size(), AngleOf(style));
    HandOverText(string, place, style);
    extents_.Add(place.anchor.x, place.anchor.y);
}

// The string stands behind the keyword or, when nothing stands there, on the next line.
std::string MifImportFilter::ReadTextString() {
    reader_.NextToken();
    std::string string(reader_.token());
    reader_.NextLine();
    // Kept: an empty string on the keyword's line sends the search to the next line too, whatever
    // stands there.
    if (string.empty() || string.front() == '\n') {
        string = reader_.token();
        reader_.NextLine();
    }
    return string;
}

// length is that of the string in bytes.
MifImportFilter::TextPlace MifImportFilter::PlaceAtPoint(const shr::Box2d& corners,
                                                         std::size_t length) const {
    const double diagonal = ReferenceDiagonal();
    const double height = (diagonal == 0.0 ? kDefaultReference : diagonal) / 100.0;
    shr::Vec2d anchor{corners.minX, corners.minY};
    if (corners.minX == 0.0 && corners.minY == 0.0 &&
        (corners.maxX != 0.0 || corners.maxY != 0.0)) {
        anchor = {corners.maxX, corners.maxY};
    }
    const double width = height * kCharacterWidth * static_cast<double>(length);
    return {anchor, {width, height}, height};
}

MifImportFilter::TextPlace MifImportFilter::TextPlace::InBox(const shr::Box2d& corners,
                                                             std::size_t length, double angle) {
    // The box is turned about its first x and second y; the text starts where that takes the first
    // corner.
    shr::Mat3d turn;
    turn.Translate(-corners.minX, -corners.maxY);
    turn.Rotate(angle);
    turn.Translate(corners.minX, corners.maxY);
    const shr::Vec2d anchor = turn.Transform({corners.minX, corners.minY});

    const double dx = corners.minX - corners.maxX;
    const double dy = corners.minY - corners.maxY;
    const double height = std::sqrt(dx * dx + dy * dy) / static_cast<double>(length + 1);
    const double boxHeight = corners.maxY - corners.minY;
    return {anchor, {std::fabs(dx), std::fabs(dy)}, height < boxHeight ? boxHeight : height};
}

// Kept: the clause's brush and pen follow the text, where they precede every other object, and a
// text takes its row without carrying it.
void MifImportFilter::HandOverText(const std::string& string, const TextPlace& place,
                                   MifStyleRecord& style) {
    zeio::TrFont font{std::wstring()};
    font.faceName = shr::AtoW(style.fontName, 0);
    font.flags = FontFlags(style.fontStyle);
    font.height = place.height <= kSmallestHeight ? 1.0 : place.height;

    const shr::Vec2d& anchor = place.anchor;
    zeio::TrText text(std::wstring(), shr::Vec3d::ZERO);
    text.text = shr::AtoW(string, 0);
    text.position = {anchor.x, anchor.y, 0.0};
    text.box = BoxBetween(anchor, {anchor.x + place.extent.x, anchor.y + place.extent.y});
    text.justify = JustifyOf(style.justification);
    text.align = 1;
    text.transform = RotationAbout(anchor, AngleOf(style));

    ReadRowAttributes(nullptr);
    ImportObject(font);
    if (!options_.ignoreStyles) {
        zeio::TrPen noLine(zeio::TrPen::Style::NoLine, shr::Color4b(0U), 0.0);
        zeio::TrBrush fontColor(zeio::TrBrush::Pattern::Solid);
        fontColor.fore = DecodeColor(style.fontColor);
        ImportObject(noLine);
        ImportObject(fontColor);
    }
    ImportObject(text);
    if (style.brushSeen && !options_.ignoreStyles) {
        ImportObject(style.brush);
    }
    if (style.penSeen && !options_.ignoreStyles) {
        ImportObject(style.pen);
    }
}

}  // namespace mif
