#include "app/draw/TextPainter.h"

#include "app/draw/Canvas.h"
#include "app/draw/LabelText.h"
#include "app/draw/PagePath.h"

#include <algorithm>
#include <cmath>

namespace app {

namespace {

constexpr double kSmallestFont = 1.5;    // pixels
constexpr double kLargestFont = 4000.0;  // pixels

// Larger letters are drawn as outlines: the library keeps a picture of each other letter.
constexpr double kLargestCachedFont = 200.0;

constexpr double kMeasuringSize = 100.0;

// The usual ratio of character width to height, which a font without a divisor has.
constexpr double kUsualWidthRatio = 0.7;

double WidthStretch(const zeio::TrFont& font) {
    if (!std::isfinite(font.widthDivisor) || font.widthDivisor <= 0.0) {
        return 1.0;
    }
    return std::clamp(1.0 / font.widthDivisor / kUsualWidthRatio, 0.25, 4.0);
}

double AlignmentOf(zeio::TrText::Justify justify) {
    switch (justify) {
    case zeio::TrText::Justify::Centre:
        return 0.5;
    case zeio::TrText::Justify::Right:
        return 1.0;
    case zeio::TrText::Justify::Left:
        break;
    }
    return 0.0;
}

double DistanceOf(const PagePoint& from, const PagePoint& to) {
    return std::hypot(to.x - from.x, to.y - from.y);
}

}  // namespace

double FontHeightOf(const zeio::TrFont& font) {
    return std::isfinite(font.height) && font.height > 0.0 ? font.height : 1.0;
}

TextPainter::TextPainter(cairo_t* context) : context_(context) {}

void TextPainter::Draw(const zeio::TrText& text, const zeio::TrFont& font, const LayerView& view,
                       const shr::Color4b& color) {
    const std::optional<Place> place = PlaceOnPage(text, FontHeightOf(font), view);
    if (!place || color.alpha == 0) {
        return;
    }
    const std::vector<std::string> lines = LinesOf(text.text);
    const SavedState state(context_);
    SelectFont(font);
    const Measure measure = MeasureLines(lines, WidthStretch(font));
    const double fontSize = FittingSize(*place, measure);
    if (!(fontSize >= kSmallestFont) || !(fontSize <= kLargestFont) ||
        !ReachesPage(*place, measure, fontSize, view.Page())) {
        return;
    }
    SetColor(context_, color);
    cairo_translate(context_, place->origin.x, place->origin.y);
    cairo_rotate(context_, place->angle);

    const double blockHeight = measure.lineHeight * fontSize * static_cast<double>(lines.size());
    const double spare = place->boxHeight > 0.0 ? (place->boxHeight - blockHeight) / 2.0 : 0.0;
    double baseline = -blockHeight - spare + measure.ascent * fontSize;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const double width = measure.lineWidths[i] * fontSize;
        const SavedState lineState(context_);
        cairo_translate(context_, (place->boxWidth - width) * AlignmentOf(text.justify), baseline);
        if ((font.flags & zeio::TrFont::kUnderline) != 0) {
            DrawUnderline(width, fontSize);
        }
        cairo_scale(context_, WidthStretch(font), 1.0);
        DrawLine(lines[i], fontSize);
        baseline += measure.lineHeight * fontSize;
    }
}

double TextPainter::FittingSize(const Place& place, const Measure& measure) {
    const double lineCount = static_cast<double>(measure.lineWidths.size());
    double lineHeight = place.lineHeight;
    if (place.boxHeight > 0.0) {
        lineHeight = std::min(lineHeight, place.boxHeight / lineCount);
    }
    double fontSize = lineHeight / measure.lineHeight;
    if (place.boxWidth > 0.0 && measure.widest > 0.0) {
        fontSize = std::min(fontSize, place.boxWidth / measure.widest);
    }
    return fontSize;
}

bool TextPainter::ReachesPage(const Place& place, const Measure& measure, double fontSize,
                              PageSize page) {
    const double lineCount = static_cast<double>(measure.lineWidths.size());
    const double blockWidth = measure.widest * fontSize;
    const double blockHeight = measure.lineHeight * lineCount * fontSize;
    const double reach =
        std::max(blockWidth, place.boxWidth) + std::max(blockHeight, place.boxHeight);
    const PageBox nearPage{-reach, -reach, page.width + reach, page.height + reach};
    return nearPage.Contains(place.origin);
}

std::optional<TextPainter::Place>
TextPainter::PlaceOnPage(const zeio::TrText& text, double fontHeight, const LayerView& view) {
    const TextFrame frame = FrameOf(text, fontHeight);
    const auto origin = view.ToPage(frame.bottomLeft);
    const auto right = view.ToPage(frame.bottomRight);
    const auto up = view.ToPage(frame.topLeft);
    if (!origin || !right || !up) {
        return std::nullopt;
    }
    Place place;
    place.origin = *origin;
    place.boxWidth = DistanceOf(*origin, *right);
    const double height = DistanceOf(*origin, *up);
    place.boxHeight = frame.hasBox ? height : 0.0;
    // A box without width has its direction from its other side.
    place.angle = place.boxWidth > 0.0 ? std::atan2(right->y - origin->y, right->x - origin->x)
                                       : std::atan2(up->x - origin->x, origin->y - up->y);
    const double boxHeight = text.box.maxY - text.box.minY;
    place.lineHeight = frame.hasBox && boxHeight > 0.0
                           ? height * (fontHeight / boxHeight)
                           : view.LengthOnPage(frame.bottomLeft, fontHeight);
    return place;
}

void TextPainter::SelectFont(const zeio::TrFont& font) const {
    const std::string face = CleanName(font.faceName);
    const bool isItalic = (font.flags & zeio::TrFont::kItalic) != 0;
    const bool isBold = (font.flags & zeio::TrFont::kWeightMask) >= zeio::TrFont::kBoldFrom;
    cairo_select_font_face(context_, face.empty() ? "sans-serif" : face.c_str(),
                           isItalic ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
                           isBold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_font_options_t* const options = cairo_font_options_create();
    // Turned and fitted text has the proportions of the font only without hinting.
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_set_font_options(context_, options);
    cairo_font_options_destroy(options);
}

TextPainter::Measure TextPainter::MeasureLines(const std::vector<std::string>& lines,
                                               double stretch) const {
    cairo_set_font_size(context_, kMeasuringSize);
    cairo_font_extents_t font;
    cairo_font_extents(context_, &font);
    Measure measure;
    measure.ascent = font.ascent / kMeasuringSize;
    measure.lineHeight = std::max((font.ascent + font.descent) / kMeasuringSize, 0.1);
    for (const std::string& line : lines) {
        cairo_text_extents_t extents;
        cairo_text_extents(context_, line.c_str(), &extents);
        measure.lineWidths.push_back(extents.x_advance / kMeasuringSize * stretch);
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

void TextPainter::DrawLine(const std::string& line, double fontSize) const {
    cairo_move_to(context_, 0.0, 0.0);
    if (fontSize <= kLargestCachedFont) {
        cairo_set_font_size(context_, fontSize);
        cairo_show_text(context_, line.c_str());
    } else {
        cairo_set_font_size(context_, kMeasuringSize);
        cairo_scale(context_, fontSize / kMeasuringSize, fontSize / kMeasuringSize);
        cairo_text_path(context_, line.c_str());
        cairo_fill(context_);
    }
    cairo_new_path(context_);
}

}  // namespace app
