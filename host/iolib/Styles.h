// Line-style helpers that import and export share with other filters of the host. They keep no
// state and may be called from any thread.
#pragma once

#include "host/platform/Export.h"
#include "host/shr/Geometry.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace iolib {

// Dash patterns: lengths of dash, gap, dash, ... in multiples of the line width, ended by 0.
QOLF_HOST_API extern const float g_LS_Dot[];
QOLF_HOST_API extern const float g_LS_Dash[];
QOLF_HOST_API extern const float g_LS_DashDot[];
QOLF_HOST_API extern const float g_LS_DashDotDot[];

// The line styles of the graphics device interface, by its numbers.
enum class GdiPenStyle : int { Solid = 0, Dash = 1, Dot = 2, DashDot = 3, DashDotDot = 4 };

// Returns the style that looks most like the pattern of `count` lengths at `dashes`: the number of
// dashes and gaps and, for a single dash, its length against its gap decide. Lengths behind a 0 do
// not count. Solid for no dashes, for null, and for values that make no pattern.
QOLF_HOST_API GdiPenStyle MatchToGDIPenStyle(const float* dashes, int count);

// Returns the points with z = 0.
QOLF_HOST_API std::vector<shr::Vec3d> Coords2DTo3D(std::span<const shr::Vec2d> points);

// The characters that no line-oriented text format takes: double quote, CR, LF, TAB and NUL.
QOLF_HOST_API extern const std::wstring_view g_UnsafeCharacters;

// Returns the text with every character of the set replaced; the length stays.
QOLF_HOST_API std::wstring ReplaceCertainCharsInString(const std::wstring& text,
                                                       std::wstring_view characters,
                                                       wchar_t replacement);

}  // namespace iolib
