// Numbers, colours and lengths as style documents have them.
#pragma once

#include "app/feature/DrawnStyle.h"

#include <string>

namespace app {

// With at most four decimals, without zeros behind them.
std::string NumberText(double number);

// Pixels of 1/96 inch as points.
std::string PointsText(double pixels);

// "#rrggbb"
std::string HexText(const shr::Color4b& color);

// Makes characters of symbol fonts from their codes, whether the font is installed here or not.
StyleResolver ResolverFor(std::size_t layer);

// The lengths of dash, gap, dash, ... in points, with `separator` between them. Empty when solid.
std::string DashText(const Stroke& stroke, char separator);

}  // namespace app
