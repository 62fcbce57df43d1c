// How an object is drawn, in the terms of MIF files.
//
// The numbers are those of the file: a pattern that no program knows is carried as it is. Colours
// are red * 65536 + green * 256 + blue.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace app {

inline constexpr int kMostPixels = 10;  // that a pen's width counts

// Pen (width, pattern, colour): lines and outlines.
struct Pen {
    // 0 to kMostPixels: pixels, and 0 draws no line; above: tenths of a point, plus kMostPixels.
    int width = 1;
    int pattern = 2;  // 1 draws no line, 2 a solid one
    std::uint32_t color = 0;

    bool operator==(const Pen&) const = default;
};

// Brush (pattern, fore [, back]): the inside of areas.
struct Brush {
    int pattern = 1;  // 1 draws nothing, 2 a solid fill
    std::uint32_t fore = 0;
    std::optional<std::uint32_t> back =
        {};  // absent: what lies below shows between the pattern's lines

    bool operator==(const Brush&) const = default;
};

// The three forms of the Symbol clause: points.
struct Symbol {
    enum class Form {
        Shape,          // (shape, colour, size)
        FontCharacter,  // (character, colour, size, font, style, rotation)
        Bitmap,         // (file name, colour, size, style)
    };
    Form form = Form::Shape;
    int shape = 35;  // Shape: the number of the shape; FontCharacter: the code of the character
    std::uint32_t color = 0;
    int size = 12;          // points
    std::string name = {};  // FontCharacter: the font; Bitmap: the file; UTF-8
    // FontCharacter: 1 bold, 16 black border, 32 drop shadow, 256 white border. Bitmap: 1 with its
    // background, 2 in the colour given here, 4 at its own size.
    int styleBits = 0;
    double rotationDegrees = 0.0;  // FontCharacter; counter-clockwise

    bool operator==(const Symbol&) const = default;
};

// Font ("name", style, size, fore [, back]): texts.
struct Font {
    std::string name = {};  // UTF-8; "" when the source names none
    int styleBits = 0;      // 1 bold, 2 italic, 4 underlined, 16 outlined, 32 shadow, 256 halo, ...
    int size = 0;           // points; 0 where the text's box gives the height
    std::uint32_t fore = 0;
    std::optional<std::uint32_t> back = {};

    bool operator==(const Font&) const = default;
};

// Each part is absent when the source gave none.
struct Style {
    std::optional<Pen> pen;
    std::optional<Brush> brush;
    std::optional<Symbol> symbol;
    std::optional<Font> font;

    bool operator==(const Style&) const = default;
};

}  // namespace app
