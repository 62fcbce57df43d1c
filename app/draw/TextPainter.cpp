#include "app/draw/TextPainter.h"

#include "app/draw/Canvas.h"
#include "app/draw/PagePath.h"
#include "app/feature/LabelText.h"
#include "app/map/platform/Fonts.h"

#include <algorithm>
#include <cmath>

namespace app {

namespace {

constexpr double kSmallestFont = 1.5;    // pixels
constexpr double kLargestFont = 4000.0;  // pixels

// Larger letters are drawn as outlines: the library keeps a picture of each other letter.
constexpr double kLargestCachedFont = 200.0;

constexpr double kMeasuringSize = 100.0;

// Of the font size.
constexpr double kHaloWidth = 0.12;
constexpr double kTextShadowOffset = 0.06;
constexpr shr::Color4b kTextShadowColor{150, 150, 150};

double AlignmentOf(Justify justify) {
    switch (justify) {
    case Justify::Center:
        return 0.5;
    case Justify::Right:
        return 1.0;
    case Justify::Left:
        break;
    }
    return 0.0;
}

double DistanceOf(const PagePoint& from, const PagePoint& to) {
    return std::hypot(to.x - from.x, to.y - from.y);
}

}  // namespace

void SelectFont(cairo_t* context, const std::string& family, bool isBold, bool isItalic) {
    cairo_select_font_face(context, family.empty() ? UsualFontFamily() : family.c_str(),
                           isItalic ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
                           isBold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_set_font_options(context, options);
    cairo_font_options_destroy(options);
}

void TextPainter::Draw(const TextPlacement& text, std::span<const PagePoint> frame,
                       const Lettering& lettering) {
    const Place place = PlaceOf(text, frame);
    const std::vector<std::string> lines = LinesOf(text.text);
    const SavedState state(context_);
    SelectFont(context_, lettering.family, lettering.isBold, lettering.isItalic);
    const Measure measure = MeasureLines(lines, text.lineSpacing);
    const double fontSize = FittingSize(place, measure);
    if (!(fontSize >= kSmallestFont) || !(fontSize <= kLargestFont) ||
        !ReachesPage(place, measure, fontSize)) {
        return;
    }
    if (text.labelLine && frame.size() > 3) {
        DrawLabelLine(place.origin, frame[3], text.labelLine->hasArrow, lettering.color);
    }
    cairo_translate(context_, place.origin.x, place.origin.y);
    cairo_rotate(context_, place.angle);
    DrawBlock(lines, place, measure, fontSize, AlignmentOf(text.justify), lettering);
}

void TextPainter::DrawBlock(const std::vector<std::string>& lines, const Place& place,
                            const Measure& measure, double fontSize, double alignment,
                            const Lettering& lettering) const {
    const double blockHeight = measure.blockHeight * fontSize;
    const double spare = place.boxWidth > 0.0 ? (place.height - blockHeight) / 2.0 : 0.0;
    if (lettering.ground) {
        const double blockWidth = measure.widest * fontSize;
        SetColor(context_, *lettering.ground);
        cairo_rectangle(context_, (place.boxWidth - blockWidth) * alignment, -blockHeight - spare,
                        blockWidth, blockHeight);
        cairo_fill(context_);
    }
    double baseline = -blockHeight - spare + measure.ascent * fontSize;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const double width = measure.lineWidths[i] * fontSize;
        const SavedState lineState(context_);
        cairo_translate(context_, (place.boxWidth - width) * alignment, baseline);
        DrawLine(lines[i], fontSize, lettering);
        if (lettering.isUnderlined) {
            DrawUnderline(width, fontSize);
        }
        baseline += measure.lineStep * fontSize;
    }
}

double TextPainter::FittingSize(const Place& place, const Measure& measure) {
    double fontSize = place.height / measure.blockHeight;
    if (place.boxWidth > 0.0 && measure.widest > 0.0) {
        fontSize = std::min(fontSize, place.boxWidth / measure.widest);
    }
    return fontSize;
}

bool TextPainter::ReachesPage(const Place& place, const Measure& measure, double fontSize) const {
    const double reach = std::max(measure.widest * fontSize, place.boxWidth) +
                         std::max(measure.blockHeight * fontSize, place.height);
    const PageBox nearPage{-reach, -reach, page_.width + reach, page_.height + reach};
    return nearPage.Contains(place.origin);
}

TextPainter::Place TextPainter::PlaceOf(const TextPlacement& text,
                                        std::span<const PagePoint> frame) {
    const PagePoint& origin = frame[0];
    const PagePoint& right = frame[1];
    const PagePoint& up = frame[2];
    Place place;
    place.origin = origin;
    place.boxWidth = text.box ? DistanceOf(origin, right) : 0.0;
    place.height = DistanceOf(origin, up);
    // A box without width has its direction from its other side.
    place.angle = DistanceOf(origin, right) > 0.0
                      ? std::atan2(right.y - origin.y, right.x - origin.x)
                      : std::atan2(up.x - origin.x, origin.y - up.y);
    return place;
}

TextPainter::Measure TextPainter::MeasureLines(const std::vector<std::string>& lines,
                                               double lineSpacing) const {
    cairo_set_font_size(context_, kMeasuringSize);
    cairo_font_extents_t font;
    cairo_font_extents(context_, &font);
    Measure measure;
    measure.ascent = font.ascent / kMeasuringSize;
    measure.lineHeight = std::max((font.ascent + font.descent) / kMeasuringSize, 0.1);
    measure.lineStep = measure.lineHeight * (lineSpacing > 0.0 ? lineSpacing : 1.0);
    measure.blockHeight =
        measure.lineHeight + measure.lineStep * static_cast<double>(lines.size() - 1);
    for (const std::string& line : lines) {
        cairo_text_extents_t extents;
        cairo_text_extents(context_, line.c_str(), &extents);
        measure.lineWidths.push_back(extents.x_advance / kMeasuringSize);
        measure.widest = std::max(measure.widest, measure.lineWidths.back());
    }
    return measure;
}

void TextPainter::DrawUnderline(double width, double fontSize) const {
    constexpr double kDepth = 0.12;      // of the font size, below the baseline
    constexpr double kThickness = 0.06;  // of the font size
    cairo_rectangle(context_, 0.0, kDepth * fontSize, width, kThickness * fontSize);
    cairo_fill(context_);
}

void TextPainter::DrawLine(const std::string& line, double fontSize,
                           const Lettering& lettering) const {
    const bool isPath = fontSize > kLargestCachedFont;
    if (isPath) {
        cairo_set_font_size(context_, kMeasuringSize);
        cairo_scale(context_, fontSize / kMeasuringSize, fontSize / kMeasuringSize);
    } else {
        cairo_set_font_size(context_, fontSize);
    }
    const double size = isPath ? kMeasuringSize : fontSize;
    if (lettering.halo) {
        cairo_move_to(context_, 0.0, 0.0);
        cairo_text_path(context_, line.c_str());
        SetColor(context_, *lettering.halo);
        cairo_set_line_width(context_, 2.0 * kHaloWidth * size);
        cairo_stroke(context_);
    }
    const auto draw = [&](double offset, const shr::Color4b& color) {
        SetColor(context_, color);
        cairo_move_to(context_, offset, offset);
        if (isPath) {
            cairo_text_path(context_, line.c_str());
            cairo_fill(context_);
        } else {
            cairo_show_text(context_, line.c_str());
        }
        cairo_new_path(context_);
    };
    if (lettering.hasShadow) {
        draw(kTextShadowOffset * size, kTextShadowColor);
    }
    draw(0.0, lettering.color);
}

void TextPainter::DrawLabelLine(const PagePoint& from, const PagePoint& to, bool hasArrow,
                                const shr::Color4b& color) const {
    constexpr double kArrowLength = 7.0;
    constexpr double kArrowHalfWidth = 2.5;
    const double length = DistanceOf(from, to);
    if (!(length > 0.0) || !std::isfinite(length)) {
        return;
    }
    const PagePoint along{(to.x - from.x) / length, (to.y - from.y) / length};
    SetColor(context_, color);
    cairo_new_path(context_);
    cairo_set_dash(context_, nullptr, 0, 0.0);
    cairo_set_line_width(context_, 1.0);
    cairo_move_to(context_, from.x, from.y);
    cairo_line_to(context_, to.x, to.y);
    cairo_stroke(context_);
    if (!hasArrow) {
        return;
    }
    const PagePoint base{to.x - along.x * kArrowLength, to.y - along.y * kArrowLength};
    cairo_move_to(context_, to.x, to.y);
    cairo_line_to(context_, base.x - along.y * kArrowHalfWidth, base.y + along.x * kArrowHalfWidth);
    cairo_line_to(context_, base.x + along.y * kArrowHalfWidth, base.y - along.x * kArrowHalfWidth);
    cairo_close_path(context_);
    cairo_fill(context_);
}

}  // namespace app
