// Draws text objects: lines of text fitted into the text's box, turned and aligned as it says.
#pragma once

#include "app/draw/LayerView.h"
#include "app/draw/Outlines.h"
#include "host/shr/Color4b.h"
#include "host/zeio/TrObjects.h"

#include <cairo.h>

#include <optional>
#include <string>
#include <vector>

namespace app {

class TextPainter {
public:
    explicit TextPainter(cairo_t* context);

    // The font's height is that of a line of text. A text that is wider or higher than its box is
    // made smaller; one that is too small to be read, or lies off the page, is left out.
    void Draw(const zeio::TrText& text, const zeio::TrFont& font, const LayerView& view,
              const shr::Color4b& color);

private:
    // A text's place on the page. The origin is the box's bottom left corner.
    struct Place {
        PagePoint origin;
        double angle = 0.0;     // radians, clockwise to the eye
        double boxWidth = 0.0;  // pixels; 0 without a box
        double boxHeight = 0.0;
        double lineHeight = 0.0;  // pixels
    };

    // Widths and heights in units of the font size.
    struct Measure {
        std::vector<double> lineWidths;
        double widest = 0.0;
        double ascent = 0.0;
        double lineHeight = 1.0;
    };

    static std::optional<Place> PlaceOnPage(const zeio::TrText& text, double fontHeight,
                                            const LayerView& view);
    void SelectFont(const zeio::TrFont& font) const;
    Measure MeasureLines(const std::vector<std::string>& lines, double stretch) const;
    static double FittingSize(const Place& place, const Measure& measure);
    static bool ReachesPage(const Place& place, const Measure& measure, double fontSize,
                            PageSize page);
    void DrawUnderline(double width, double fontSize) const;
    void DrawLine(const std::string& line, double fontSize) const;

    cairo_t* context_;
};

// The font's height in world units, never 0.
double FontHeightOf(const zeio::TrFont& font);

}  // namespace app
