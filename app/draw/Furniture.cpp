#include "app/draw/Furniture.h"

#include "app/map/FontCatalogue.h"

#include "app/draw/Canvas.h"
#include "app/draw/MarkerPainter.h"
#include "app/draw/PathPainter.h"
#include "app/draw/TextPainter.h"
#include "app/feature/LabelText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace app {

namespace {

constexpr double kEdge = 12.0;  // from the page's edge
constexpr double kTitleSize = 20.0;
constexpr int kTitleHeight = 36;
constexpr int kBarHeight = 36;
constexpr double kBarThickness = 5.0;
constexpr double kFontSize = 12.0;
constexpr double kBaseline = kFontSize * 0.36;  // below the middle of a line
constexpr double kRowHeight = 20.0;
constexpr double kSampleWidth = 28.0;
constexpr double kSampleHeight = 14.0;
constexpr double kSampleGap = 6.0;
constexpr double kLargestSample = 18.0;  // of symbols and pens
constexpr const char* kEllipsis = "\u2026";
constexpr shr::Color4b kDarkInk{34, 34, 34};
constexpr shr::Color4b kLightInk{255, 255, 255};

const shr::Color4b& InkOn(const shr::Color4b& ground) {
    const int brightness = ground.red * 3 + ground.green * 6 + ground.blue;
    return ground.alpha > 127 && brightness < 10 * 128 ? kLightInk : kDarkInk;
}

double TextWidth(cairo_t* context, const std::string& text) {
    cairo_text_extents_t extents;
    cairo_text_extents(context, text.c_str(), &extents);
    return extents.x_advance;
}

void SelectLetters(cairo_t* context, double size, bool isBold) {
    SelectFont(context, "", isBold, /*isItalic=*/false);
    cairo_set_font_size(context, size);
}

void DrawWords(cairo_t* context, double x, double baseline, const std::string& text) {
    cairo_move_to(context, x, baseline);
    cairo_show_text(context, text.c_str());
    cairo_new_path(context);
}

// The text without its end when it is wider than that.
std::string Shortened(cairo_t* context, std::string text, double width) {
    if (TextWidth(context, text) <= width) {
        return text;
    }
    while (!text.empty() && TextWidth(context, text + kEllipsis) > width) {
        while (text.size() > 1 && (static_cast<unsigned char>(text.back()) & 0xC0U) == 0x80U) {
            text.pop_back();  // a character of UTF-8 goes whole
        }
        text.pop_back();
    }
    return text + kEllipsis;
}

// Draws the samples of one layer's styles.
class SamplePainter {
public:
    SamplePainter(cairo_t* context, PageSize page, StyleSource styleSource)
        : context_(context), page_(page), styles_(ResolverWithFonts(styleSource)),
          paths_(context, page) {}

    void BeginLayer(std::size_t layer) { styles_.BeginLayer(layer); }

    // From x on, around the middle.
    void Draw(const LegendLayer::Look& look, double x, double middle) {
        const double right = x + kSampleWidth;
        Stroke stroke = styles_.StrokeOf(look.style, look.kind);
        if (look.kind == GeometryKind::Points) {
            Marker marker = styles_.MarkerOf(look.style);
            marker.diameter = std::min(marker.diameter, kLargestSample);
            const PagePoint at{x + kSampleWidth / 2.0, middle};
            MarkerPainter(context_, page_).Draw(marker, {&at, 1});
        } else if (look.kind == GeometryKind::Line) {
            stroke.width = std::min(stroke.width, kLargestSample);
            paths_.DrawLines({{{x, middle}, {right, middle}}}, stroke, /*isClosed=*/false);
        } else if (look.kind == GeometryKind::Region) {
            const double top = middle - kSampleHeight / 2.0;
            const double bottom = middle + kSampleHeight / 2.0;
            const std::vector<PagePath> ring{
                {{x, top}, {right, top}, {right, bottom}, {x, bottom}}};
            stroke.width = std::min(stroke.width, kSampleHeight / 2.0);
            paths_.FillArea(ring, styles_.FillOf(look.style));
            paths_.DrawLines(ring, stroke, /*isClosed=*/true);
        } else {
            const Lettering lettering = styles_.LetteringOf(look.style);
            SelectFont(context_, lettering.family, lettering.isBold, lettering.isItalic);
            cairo_set_font_size(context_, kFontSize);
            SetColor(context_, lettering.color);
            DrawWords(context_, x, middle + kBaseline, "Abc");
        }
    }

private:
    cairo_t* context_;
    PageSize page_;
    StyleResolver styles_;
    PathPainter paths_;
};

std::string RoundNumber(double value) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::general, 6);
    return {digits.data(), end.ptr};
}

void DrawScaleBar(cairo_t* context, PageSize map, double top, const ScaleBar& bar) {
    if (!(bar.pixels > 0.0)) {
        return;
    }
    const double left = std::min(kEdge, map.width / 4.0);
    const double middle = top + kBarHeight / 2.0;
    cairo_new_path(context);
    cairo_set_dash(context, nullptr, 0, 0.0);
    cairo_set_line_width(context, 1.0);
    cairo_rectangle(context, left, middle - kBarThickness / 2.0, bar.pixels / 2.0, kBarThickness);
    cairo_fill(context);
    cairo_rectangle(context, left, middle - kBarThickness / 2.0, bar.pixels, kBarThickness);
    cairo_stroke(context);
    SelectLetters(context, kFontSize, /*isBold=*/false);
    DrawWords(context, left + bar.pixels + kSampleGap, middle + kBaseline, bar.words);
}

}  // namespace

ScaleBar ScaleBarOf(PageSize map, std::optional<double> metresPerPixel, double unitsPerPixel) {
    const double perPixel = metresPerPixel.value_or(unitsPerPixel);
    const double most = map.width / 4.0 * perPixel;
    if (!(most > 0.0) || !std::isfinite(most)) {
        return {};
    }
    const double power = std::pow(10.0, std::floor(std::log10(most)));
    double length = power;
    for (const double factor : {2.0, 5.0}) {
        length = factor * power <= most ? factor * power : length;
    }
    ScaleBar bar{length / perPixel, {}};
    if (!metresPerPixel) {
        bar.words = RoundNumber(length) + " units";
    } else if (length >= 1000.0) {
        bar.words = RoundNumber(length / 1000.0) + " km";
    } else if (length >= 1.0) {
        bar.words = RoundNumber(length) + " m";
    } else {
        bar.words = RoundNumber(length * 1000.0) + " mm";
    }
    return bar;
}

Furniture::Furniture(const FurnitureWishes& wishes, std::span<const LegendLayer> layers,
                     StyleSource styleSource, const PageRequest& request)
    : request_(request), styleSource_(styleSource) {
    const PageSize largest = LargestPage(request);
    const Canvas scratch(PictureFormat::Png, {1, 1}, [](std::string_view) {});
    if (wishes.legend) {
        MeasureLegend(scratch.Context(), layers, largest.width / 2.0);
    }
    if (!wishes.title.empty()) {
        MeasureTitle(scratch.Context(), wishes.title, largest.width - 2.0 * kEdge);
    }
    bottom_ = wishes.scaleBar ? kBarHeight : 0;
    if (2 * (top_ + bottom_) > largest.height) {
        top_ = 0;
        bottom_ = 0;
    }
}

void Furniture::MeasureTitle(cairo_t* context, const std::string& title, double most) {
    SelectLetters(context, kTitleSize, /*isBold=*/true);
    title_ = Shortened(context, CleanName(title), most);
    top_ = title_.empty() ? 0 : kTitleHeight;
}

double Furniture::WidthOfSamples(std::size_t count) {
    return static_cast<double>(count) * (kSampleWidth + kSampleGap);
}

void Furniture::MeasureLegend(cairo_t* context, std::span<const LegendLayer> layers, double most) {
    SelectLetters(context, kFontSize, /*isBold=*/false);
    for (std::size_t i = layers.size(); i-- > 0;) {
        AddRows(context, layers[i], i, most - 2.0 * kEdge);
    }
    double width = 0.0;
    for (const Row& row : rows_) {
        width = std::max(width, WidthOfSamples(row.looks.size()) + TextWidth(context, row.text));
    }
    if (rows_.empty() || width + 2.0 * kEdge > most) {
        rows_.clear();
        return;
    }
    right_ = static_cast<int>(std::ceil(width + 2.0 * kEdge));
}

// One row, or for a layer of several styles its name and the samples below it.
void Furniture::AddRows(cairo_t* context, const LegendLayer& layer, std::size_t number,
                        double most) {
    const std::span<const LegendLayer::Look> looks(layer.looks);
    const std::string name = CleanName(layer.name);
    if (looks.size() == 1) {
        rows_.push_back({number, looks, Shortened(context, name, most - WidthOfSamples(1))});
    } else if (!looks.empty()) {
        rows_.push_back({number, {}, Shortened(context, name, most)});
        rows_.push_back({number, looks, layer.hasMore ? kEllipsis : ""});
    }
}

PageRequest Furniture::MapRequest() const {
    PageRequest request = request_;
    request.width = request.width > 0 ? std::max(request.width - right_, 1) : 0;
    request.height = request.height > 0 ? std::max(request.height - top_ - bottom_, 1) : 0;
    return request;
}

PageSize Furniture::PageAround(PageSize map) const {
    return {std::min(map.width + right_, kLargestPageSide),
            std::min(map.height + top_ + bottom_, kLargestPageSide)};
}

void Furniture::Draw(cairo_t* context, PageSize map, const ScaleBar& bar,
                     const shr::Color4b& ground) const {
    const SavedState state(context);
    const shr::Color4b& ink = InkOn(ground);
    SetColor(context, ink);
    if (top_ > 0) {
        SelectLetters(context, kTitleSize, /*isBold=*/true);
        DrawWords(context, std::max(kEdge, (map.width - TextWidth(context, title_)) / 2.0),
                  kTitleHeight / 2.0 + kTitleSize * 0.36, title_);
    }
    if (bottom_ > 0) {
        DrawScaleBar(context, map, top_ + map.height, bar);
    }
    DrawLegend(context, map, ink);
}

// What is longer than the map is left out from the end.
void Furniture::DrawLegend(cairo_t* context, PageSize map, const shr::Color4b& ink) const {
    SamplePainter samples(context, PageAround(map), styleSource_);
    double middle = top_ + kEdge + kRowHeight / 2.0;
    for (const Row& row : rows_) {
        if (middle + kRowHeight / 2.0 > top_ + map.height) {
            return;
        }
        double x = map.width + kEdge;
        samples.BeginLayer(row.layer);
        for (const LegendLayer::Look& look : row.looks) {
            samples.Draw(look, x, middle);
            x += kSampleWidth + kSampleGap;
        }
        SelectLetters(context, kFontSize, /*isBold=*/false);
        SetColor(context, ink);
        DrawWords(context, x, middle + kBaseline, row.text);
        middle += kRowHeight;
    }
}

}  // namespace app
