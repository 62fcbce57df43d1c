#include "host/iolib/Styles.h"

#include <algorithm>
#include <cmath>

namespace iolib {

const float g_LS_Dot[] = {1.0F, 1.0F, 0.0F};
const float g_LS_Dash[] = {3.0F, 1.0F, 0.0F};
const float g_LS_DashDot[] = {3.0F, 1.0F, 1.0F, 1.0F, 0.0F};
const float g_LS_DashDotDot[] = {3.0F, 1.0F, 1.0F, 1.0F, 1.0F, 1.0F, 0.0F};

const std::wstring_view g_UnsafeCharacters(L"\"\r\n\t\0", 5);

namespace {

// A dash that is this many times as long as its gap, or longer, is no dot.
constexpr float kDashToGap = 1.5F;

// The lengths in front of the first 0; empty when one of them is no length.
std::span<const float> Lengths(const float* dashes, int count) {
    if (dashes == nullptr || count <= 0) {
        return {};
    }
    const std::span<const float> all(dashes, static_cast<std::size_t>(count));
    const auto end = std::find(all.begin(), all.end(), 0.0F);
    const auto used = all.first(static_cast<std::size_t>(end - all.begin()));
    const bool areLengths = std::all_of(used.begin(), used.end(), [](float length) {
        return std::isfinite(length) && length > 0.0F;
    });
    return areLengths ? used : std::span<const float>();
}

// The dash-gap pairs of one period. An odd list is run through twice before it repeats.
std::vector<std::pair<float, float>> Pairs(std::span<const float> lengths) {
    const std::size_t count = lengths.size() % 2 == 0 ? lengths.size() / 2 : lengths.size();
    std::vector<std::pair<float, float>> pairs;
    for (std::size_t i = 0; i < count; ++i) {
        pairs.emplace_back(lengths[2 * i % lengths.size()], lengths[(2 * i + 1) % lengths.size()]);
    }
    // A list that says the same pair again and again means that pair.
    if (std::adjacent_find(pairs.begin(), pairs.end(), std::not_equal_to<>()) == pairs.end()) {
        pairs.resize(std::min<std::size_t>(pairs.size(), 1));
    }
    return pairs;
}

}  // namespace

GdiPenStyle MatchToGDIPenStyle(const float* dashes, int count) {
    const auto pairs = Pairs(Lengths(dashes, count));
    switch (pairs.size()) {
    case 0:
        return GdiPenStyle::Solid;
    case 1:
        return pairs[0].first >= pairs[0].second * kDashToGap ? GdiPenStyle::Dash
                                                              : GdiPenStyle::Dot;
    case 2:
        return GdiPenStyle::DashDot;
    default:
        return GdiPenStyle::DashDotDot;
    }
}

std::vector<shr::Vec3d> Coords2DTo3D(std::span<const shr::Vec2d> points) {
    std::vector<shr::Vec3d> result;
    result.reserve(points.size());
    for (const shr::Vec2d& point : points) {
        result.push_back({point.x, point.y, 0.0});
    }
    return result;
}

std::wstring ReplaceCertainCharsInString(const std::wstring& text, std::wstring_view characters,
                                         wchar_t replacement) {
    std::wstring result = text;
    std::replace_if(
        result.begin(), result.end(),
        [&](wchar_t character) { return characters.find(character) != std::wstring_view::npos; },
        replacement);
    return result;
}

}  // namespace iolib
