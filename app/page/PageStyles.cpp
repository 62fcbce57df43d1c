#include "app/page/PageStyles.h"

#include "app/json/JsonObjectWriter.h"
#include "app/map/FontCatalogue.h"
#include "app/page/GlyphOutline.h"
#include "app/page/PageText.h"

#include <algorithm>
#include <span>
#include <vector>

namespace app {

namespace {

constexpr int kStyleDecimals = 3;

void AddNumber(JsonObjectWriter& object, std::string_view key, double value) {
    AppendRounded(object.Member(key), value, kStyleDecimals);
}

void AddColor(JsonObjectWriter& object, std::string_view key, const shr::Color4b& color) {
    AppendColor(object.Member(key), color);
}

// At least one number.
void AppendList(std::string& out, std::span<const double> numbers) {
    char before = '[';
    for (const double number : numbers) {
        out += before;
        AppendRounded(out, number, kStyleDecimals);
        before = ',';
    }
    out += ']';
}

void AppendRing(std::string& out, std::span<const shr::Vec2d> ring) {
    std::vector<double> numbers;
    for (const shr::Vec2d& point : ring) {
        numbers.push_back(point.x);
        numbers.push_back(point.y);
    }
    AppendList(out, numbers);
}

// Nothing for a pen that draws nothing.
void AddStroke(JsonObjectWriter& look, const Stroke& stroke) {
    if (!(stroke.width > 0.0)) {
        return;
    }
    std::string& out = look.Member("stroke");
    JsonObjectWriter object(out);
    AddColor(object, "color", stroke.color);
    AddNumber(object, "width", stroke.width);
    if (!stroke.dashes.empty()) {
        std::vector<double> lengths;
        for (const double dash : stroke.dashes) {
            lengths.push_back(dash * std::max(stroke.width, kThinnestDashUnit));
        }
        AppendList(object.Member("dashes"), lengths);
    }
    object.Close();
}

void AddFill(JsonObjectWriter& look, const Fill& fill) {
    if (fill.look.fill == AreaFill::None) {
        return;
    }
    shr::Color4b fore = fill.fore;
    if (fill.look.fill == AreaFill::Tint) {
        fore.alpha = static_cast<std::uint8_t>(fore.alpha * fill.look.opacity);
    }
    std::string& out = look.Member("fill");
    JsonObjectWriter object(out);
    AddColor(object, "color", fore);
    if (fill.look.fill != AreaFill::Solid && fill.back.alpha > 0) {
        AddColor(object, "back", fill.back);
    }
    if (fill.look.fill == AreaFill::Lines) {
        std::string& lines = object.Member("lines");
        lines += '[';
        for (const HatchLines& row : fill.look.lines) {
            lines += lines.back() == '[' ? "" : ",";
            AppendList(lines, std::vector<double>{row.angleDegrees, row.spacing, row.width});
        }
        lines += ']';
    }
    object.Close();
}

void AddMarker(JsonObjectWriter& look, const Marker& marker) {
    std::string& out = look.Member("marker");
    JsonObjectWriter object(out);
    AddNumber(object, "size", marker.diameter);
    AddColor(object, "color", marker.color);
    if (marker.border != Marker::Border::None) {
        AddColor(object, "border", BorderColor(marker.border));
        AddNumber(object, "borderWidth", BorderWidth(marker));
    }
    std::vector<std::vector<shr::Vec2d>> rings;
    if (!marker.character.empty()) {
        rings = GlyphOutline(marker);
        AddNumber(object, "degrees", marker.degrees);
        object.Boolean("shadow", marker.hasShadow);
    } else if (!marker.shape->outline.empty()) {
        rings.emplace_back(marker.shape->outline.begin(), marker.shape->outline.end());
    }
    if (marker.character.empty() && marker.shape->isHollow) {
        AddNumber(object, "line", std::max(marker.diameter * kHollowLine, 1.0));
    }
    if (!rings.empty()) {  // else a circle
        std::string& list = object.Member("rings");
        for (const std::vector<shr::Vec2d>& ring : rings) {
            list += &ring == &rings.front() ? '[' : ',';
            AppendRing(list, ring);
        }
        list += ']';
    }
    object.Close();
}

void AddLettering(JsonObjectWriter& look, const Lettering& lettering) {
    std::string& out = look.Member("font");
    JsonObjectWriter object(out);
    AppendPageString(object.Member("family"), lettering.family);
    object.Boolean("bold", lettering.isBold);
    object.Boolean("italic", lettering.isItalic);
    object.Boolean("underlined", lettering.isUnderlined);
    object.Boolean("shadow", lettering.hasShadow);
    AddColor(object, "color", lettering.color);
    if (lettering.halo) {
        AddColor(object, "halo", *lettering.halo);
    }
    if (lettering.ground) {
        AddColor(object, "ground", *lettering.ground);
    }
    object.Close();
}

}  // namespace

PageStyles::PageStyles(StyleSource source) : resolver_(ResolverWithFonts(source)) {}

void PageStyles::BeginLayer(std::size_t layer) {
    resolver_.BeginLayer(layer);
    lastKind_ = GeometryKind::None;
}

std::uint32_t PageStyles::NumberOf(const Geometry& geometry) {
    if (geometry.kind == lastKind_ && geometry.style == lastStyle_) {
        return lastNumber_;
    }
    lastKind_ = geometry.kind;
    lastStyle_ = geometry.style;
    const auto number = static_cast<std::uint32_t>(numbers_.size());
    const auto [known, isNew] = numbers_.try_emplace(LookOf(geometry), number);
    if (isNew) {
        json_.pop_back();
        json_ += (number > 0 ? "," : "") + known->first + "]";
    }
    lastNumber_ = known->second;
    return lastNumber_;
}

std::string PageStyles::LookOf(const Geometry& geometry) const {
    std::string text;
    JsonObjectWriter look(text);
    switch (geometry.kind) {
    case GeometryKind::Points:
        AddMarker(look, resolver_.MarkerOf(geometry.style));
        break;
    case GeometryKind::Text:
        AddLettering(look, resolver_.LetteringOf(geometry.style));
        break;
    case GeometryKind::Region:
        AddFill(look, resolver_.FillOf(geometry.style));
        [[fallthrough]];
    default:
        AddStroke(look, resolver_.StrokeOf(geometry.style, geometry.kind));
    }
    look.Close();
    return text;
}

}  // namespace app
