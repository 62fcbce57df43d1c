// Draws text objects: lines of text fitted into the text's frame, turned and aligned as it says.
#pragma once

#include "app/draw/Viewport.h"
#include "app/feature/DrawnStyle.h"
#include "app/feature/Feature.h"

#include <cairo.h>

#include <span>
#include <string>
#include <vector>

namespace app {

// Selects the font without hinting: turned and fitted text has the proportions of the font only so.
void SelectFont(cairo_t* context, const std::string& family, bool isBold, bool isItalic);

class TextPainter {
public:
    TextPainter(cairo_t* context, PageSize page) : context_(context), page_(page) {}

    // `frame` has the corners of the text on the page (app/map/TextFrame.h). A text that is wider
    // or higher than its box is made smaller; one that is too small to be read, or lies off the
    // page, is left out.
    void Draw(const TextPlacement& text, std::span<const PagePoint> frame,
              const Lettering& lettering);

private:
    // A text's place on the page. The origin is the lower left corner.
    struct Place {
        PagePoint origin;
        double angle = 0.0;     // radians, clockwise to the eye
        double boxWidth = 0.0;  // pixels; 0 without a box
        double height = 0.0;    // pixels, of all lines together
    };

    // Widths and heights in units of the font size.
    struct Measure {
        std::vector<double> lineWidths;
        double widest = 0.0;
        double ascent = 0.0;
        double lineHeight = 1.0;   // of the letters with their descent
        double blockHeight = 1.0;  // of all lines
        double lineStep = 1.0;     // from one line to the next
    };

    static Place PlaceOf(const TextPlacement& text, std::span<const PagePoint> frame);
    Measure MeasureLines(const std::vector<std::string>& lines, double lineSpacing) const;
    static double FittingSize(const Place& place, const Measure& measure);
    bool ReachesPage(const Place& place, const Measure& measure, double fontSize) const;
    void DrawBlock(const std::vector<std::string>& lines, const Place& place,
                   const Measure& measure, double fontSize, double alignment,
                   const Lettering& lettering) const;
    void DrawUnderline(double width, double fontSize) const;
    void DrawLine(const std::string& line, double fontSize, const Lettering& lettering) const;
    void DrawLabelLine(const PagePoint& from, const PagePoint& to, bool hasArrow,
                       const shr::Color4b& color) const;

    cairo_t* context_;
    PageSize page_;
};

}  // namespace app
