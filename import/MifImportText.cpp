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

// Sets the text's position, its box from there and the rotation about it.
void PlaceText(const shr::Vec2d& anchor, const shr::Vec2d& extent, double angle,
               zeio::TrText& text) {
    const shr::Vec2d opposite{anchor.x + extent.x, anchor.y + extent.y};
    text.position = {anchor.x, anchor.y, 0.0};
    text.box = {std::min(anchor.x, opposite.x), std::min(anchor.y, opposite.y),
                std::max(anchor.x, opposite.x), std::max(anchor.y, opposite.y)};
    shr::Mat4d transform;
    transform.Translate(-anchor.x, -anchor.y, 0.0);
    transform.RotateZ(angle);
    transform.Translate(anchor.x, anchor.y, 0.0);
    text.transform = transform;
}

}  // namespace

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

    zeio::TrText& text = objects_->text;
    text.text = shr::AtoW(string, 0);
    text.justify = JustifyOf(style.justification);
    text.align = 1;
    text.attributes.Clear();
    const double angle = style.angleDegrees / 180.0 * std::numbers::pi;
    const double height = IsPlacedAtPoint(corners) ? PlaceTextAtPoint(corners, string.size(), angle)
                                                   : PlaceTextInBox(corners, string.size(), angle);

    zeio::TrFont& font = objects_->font;
    font.faceName = shr::AtoW(style.fontName, 0);
    font.flags = FontFlags(style.fontStyle);
    font.height = height <= kSmallestHeight ? 1.0 : height;
    HandOverText(style);
    extents_.Add(text.position.x, text.position.y);
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

// Returns the height. length is that of the string in bytes.
double MifImportFilter::PlaceTextAtPoint(const shr::Box2d& corners, std::size_t length,
                                         double angle) {
    const double diagonal = ReferenceDiagonal();
    const double height = (diagonal == 0.0 ? kDefaultReference : diagonal) / 100.0;
    shr::Vec2d anchor{corners.minX, corners.minY};
    if (corners.minX == 0.0 && corners.minY == 0.0 &&
        (corners.maxX != 0.0 || corners.maxY != 0.0)) {
        anchor = {corners.maxX, corners.maxY};
    }
    const double width = height * kCharacterWidth * static_cast<double>(length);
    PlaceText(anchor, {width, height}, angle, objects_->text);
    return height;
}

// Returns the height. length is that of the string in bytes.
double MifImportFilter::PlaceTextInBox(const shr::Box2d& corners, std::size_t length,
                                       double angle) {
    // The box is turned about its first x and second y; the text starts where that takes the first
    // corner.
    shr::Mat3d turn;
    turn.Translate(-corners.minX, -corners.maxY);
    turn.Rotate(angle);
    turn.Translate(corners.minX, corners.maxY);
    const shr::Vec2d anchor = turn.Transform({corners.minX, corners.minY});

    const double dx = corners.minX - corners.maxX;
    const double dy = corners.minY - corners.maxY;
    PlaceText(anchor, {std::fabs(dx), std::fabs(dy)}, angle, objects_->text);
    const double height = std::sqrt(dx * dx + dy * dy) / static_cast<double>(length + 1);
    const double boxHeight = corners.maxY - corners.minY;
    return height < boxHeight ? boxHeight : height;
}

// Kept: the clause's brush and pen follow the text, where they precede every other object, and a
// text takes its row without carrying it.
void MifImportFilter::HandOverText(MifStyleRecord& style) {
    ReadRowAttributes(nullptr);
    ImportObject(objects_->font);
    if (!options_.ignoreStyles) {
        zeio::TrPen noLine(zeio::TrPen::Style::NoLine, shr::Color4b(0U), 0.0);
        zeio::TrBrush fontColor(zeio::TrBrush::Pattern::Solid);
        fontColor.fore = DecodeColor(style.fontColor);
        ImportObject(noLine);
        ImportObject(fontColor);
    }
    ImportObject(objects_->text);
    if (style.brushSeen && !options_.ignoreStyles) {
        ImportObject(style.brush);
    }
    if (style.penSeen && !options_.ignoreStyles) {
        ImportObject(style.pen);
    }
}

}  // namespace mif
