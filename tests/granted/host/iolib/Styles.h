#pragma once

#include <string>

namespace iolib {

// Ended by 0.
extern const float g_LS_Dot[];
extern const float g_LS_Dash[];
extern const float g_LS_DashDot[];
extern const float g_LS_DashDotDot[];

enum class GdiPenStyle : int { Solid = 0, Dash = 1, Dot = 2, DashDot = 3, DashDotDot = 4 };

GdiPenStyle MatchToGDIPenStyle(const float* dashes, int count);

// The default set is the host's, whatever it is made of.
class CharacterSet;
extern const CharacterSet& g_UnsafeCharacters;

std::wstring ReplaceCertainCharsInString(const std::wstring& text, const CharacterSet& characters,
                                         wchar_t replacement);

}  // namespace iolib
