#include "app/formats/gpkg/StyleDocuments.h"
#include "app/formats/gpkg/StyleNumbers.h"
#include "app/formats/gpkg/XmlText.h"

#include <cmath>

namespace app {
namespace {

constexpr const char* kVersion = "3.22.0";

// Letters are as high as this part of the line that MIF files give the height of.
constexpr double kLettersOfLine = 0.85;

std::string ColorText(const shr::Color4b& color, double opacity = 1.0) {
    const auto alpha = static_cast<int>(std::lround(color.alpha * opacity));
    return std::to_string(color.red) + "," + std::to_string(color.green) + "," +
           std::to_string(color.blue) + "," + std::to_string(alpha);
}

std::string QuotedColumn(const std::string& name) {
    std::string quoted = "\"";
    for (const char c : name) {
        quoted += c;
        if (c == '"') {
            quoted += c;
        }
    }
    return quoted + '"';
}

class QmlWriter {
public:
    QmlWriter(const LayerStyles& styles, const StyledColumns& columns, std::size_t layer)
        : styles_(styles), columns_(columns), resolver_(ResolverFor(layer)) {}

    std::string Write() {
        bool hasTexts = false;
        for (const NumberedStyle& style : styles_.All()) {
            hasTexts = hasTexts || style.kind == StyledKind::Text;
        }
        xml_.Begin("qgis", {{"version", kVersion},
                            {"styleCategories", "Symbology|Labeling"},
                            {"labelsEnabled", hasTexts ? "1" : "0"}});
        WriteRenderer();
        if (hasTexts) {
            WriteLabeling();
        }
        xml_.End();
        return "<!DOCTYPE qgis PUBLIC 'http://mrcc.com/qgis.dtd' 'SYSTEM'>\n" + xml_.Whole();
    }

private:
    void WriteRenderer() {
        xml_.Begin("renderer-v2", {{"type", "categorizedSymbol"},
                                   {"attr", columns_.style},
                                   {"symbollevels", "0"},
                                   {"enableorderby", "0"},
                                   {"forceraster", "0"}});
        xml_.Begin("categories");
        for (std::size_t i = 0; i < styles_.All().size(); ++i) {
            xml_.Empty("category", {{"value", std::to_string(i + 1)},
                                    {"symbol", std::to_string(i)},
                                    {"label", std::to_string(i + 1)},
                                    {"render", "true"}});
        }
        xml_.End();
        xml_.Begin("symbols");
        for (std::size_t i = 0; i < styles_.All().size(); ++i) {
            WriteSymbol(std::to_string(i), styles_.All()[i]);
        }
        xml_.End();
        xml_.Empty("rotation", {});
        xml_.Empty("sizescale", {});
        xml_.End();
    }

    void BeginSymbol(const std::string& name, const char* type) {
        xml_.Begin("symbol", {{"name", name},
                              {"type", type},
                              {"alpha", "1"},
                              {"clip_to_extent", "1"},
                              {"force_rhr", "0"}});
    }

    void BeginLayer(const char* type) {
        xml_.Begin("layer", {{"class", type}, {"enabled", "1"}, {"locked", "0"}, {"pass", "0"}});
    }

    void Property(const char* name, const std::string& value) {
        xml_.Empty("prop", {{"k", name}, {"v", value}});
    }

    void WriteSymbol(const std::string& name, const NumberedStyle& style) {
        switch (style.kind) {
        case StyledKind::Point:
            BeginSymbol(name, "marker");
            WriteMarker(resolver_.MarkerOf(style.style));
            break;
        case StyledKind::Line:
            BeginSymbol(name, "line");
            WriteLine(resolver_.StrokeOf(style.style, GeometryKind::Line));
            break;
        case StyledKind::Area:
            BeginSymbol(name, "fill");
            WriteFill(name, resolver_.FillOf(style.style));
            WriteLine(resolver_.StrokeOf(style.style, GeometryKind::Region));
            break;
        case StyledKind::Text:
            // The label alone is seen.
            BeginSymbol(name, "marker");
            WriteMarker(Marker());
            break;
        }
        xml_.End();
    }

    void WriteLine(const Stroke& stroke) {
        BeginLayer("SimpleLine");
        Property("line_color", ColorText(stroke.color));
        Property("line_style", stroke.width > 0.0 ? "solid" : "no");
        Property("line_width", PointsText(stroke.width));
        Property("line_width_unit", "Point");
        Property("capstyle", stroke.dashes.empty() ? "round" : "flat");
        Property("joinstyle", "round");
        if (!stroke.dashes.empty()) {
            Property("use_custom_dash", "1");
            Property("customdash", DashText(stroke, ';'));
            Property("customdash_unit", "Point");
        }
        xml_.End();
    }

    void WriteGround(const shr::Color4b& color, double opacity) {
        BeginLayer("SimpleFill");
        Property("color", ColorText(color, opacity));
        Property("style", "solid");
        Property("outline_style", "no");
        xml_.End();
    }

    void WriteFill(const std::string& symbol, const Fill& fill) {
        const bool isSolid = fill.look.fill == AreaFill::Solid;
        if (fill.look.fill == AreaFill::None) {
            return;
        }
        if (isSolid || fill.back.alpha > 0) {
            WriteGround(isSolid ? fill.fore : fill.back, 1.0);
        }
        if (fill.look.fill == AreaFill::Tint) {
            WriteGround(fill.fore, fill.look.opacity);
        }
        int number = 0;
        for (const HatchLines& lines : fill.look.lines) {
            WriteHatch("@" + symbol + "@" + std::to_string(++number), lines, fill.fore);
        }
    }

    void WriteHatch(const std::string& name, const HatchLines& lines, const shr::Color4b& color) {
        BeginLayer("LinePatternFill");
        Property("angle", NumberText(lines.angleDegrees));
        Property("distance", PointsText(lines.spacing));
        Property("distance_unit", "Point");
        Property("line_width", PointsText(lines.width));
        Property("line_width_unit", "Point");
        Property("color", ColorText(color));
        BeginSymbol(name, "line");
        WriteLine({color, lines.width, {}});
        xml_.End();
        xml_.End();
    }

    // The border lies below the symbol, so that it takes nothing of it.
    void WriteMarker(const Marker& marker) {
        if (!marker.character.empty()) {
            if (const double border = BorderWidth(marker); border > 0.0) {
                WriteCharacter(marker, BorderColor(marker.border), border * 2.0);
            }
            WriteCharacter(marker, marker.color, 0.0);
            return;
        }
        if (!(marker.diameter > 0.0)) {
            WriteShape({}, marker.color, 0.0, 0.0);
            return;
        }
        const double size = marker.diameter * marker.shape->markerSize;
        if (marker.shape->isHollow) {
            const double line = std::max(marker.diameter * kHollowLine, 1.0);
            WriteShape(*marker.shape, marker.color, size - line, line);
            return;
        }
        if (const double border = BorderWidth(marker); border > 0.0) {
            WriteShape(*marker.shape, BorderColor(marker.border), size + 2.0 * border, 0.0);
        }
        WriteShape(*marker.shape, marker.color, size, 0.0);
    }

    // Filled, or with a line an outline of that width. Without a size nothing is seen.
    void WriteShape(const SymbolShape& shape, const shr::Color4b& color, double size, double line) {
        const bool isFilled = size > 0.0 && !(line > 0.0);
        BeginLayer("SimpleMarker");
        Property("name", shape.markerName.empty() ? "circle" : std::string(shape.markerName));
        Property("color", ColorText(color, isFilled ? 1.0 : 0.0));
        Property("size", PointsText(size));
        Property("size_unit", "Point");
        Property("angle", NumberText(shape.markerDegrees));
        WriteOutline(color, line);
    }

    void WriteCharacter(const Marker& marker, const shr::Color4b& color, double line) {
        BeginLayer("FontMarker");
        Property("font", marker.family);
        Property("chr", marker.character);
        Property("font_style", marker.isBold ? "Bold" : "");
        Property("color", ColorText(color));
        Property("size", PointsText(marker.diameter));
        Property("size_unit", "Point");
        Property("angle", NumberText(-marker.degrees));
        WriteOutline(color, line);
    }

    // Ends the layer.
    void WriteOutline(const shr::Color4b& color, double line) {
        Property("outline_color", ColorText(color));
        Property("outline_style", line > 0.0 ? "solid" : "no");
        Property("outline_width", PointsText(line));
        Property("outline_width_unit", "Point");
        Property("joinstyle", "miter");
        xml_.End();
    }

    void WriteLabeling() {
        xml_.Begin("labeling", {{"type", "rule-based"}});
        xml_.Begin("rules", {{"key", "texts"}});
        for (std::size_t i = 0; i < styles_.All().size(); ++i) {
            if (styles_.All()[i].kind == StyledKind::Text) {
                const std::string number = std::to_string(i + 1);
                xml_.Begin("rule", {{"key", "text-" + number},
                                    {"description", number},
                                    {"filter", QuotedColumn(columns_.style) + " = " + number}});
                WriteLettering(resolver_.LetteringOf(styles_.All()[i].style));
                xml_.End();
            }
        }
        xml_.End();
        xml_.End();
    }

    void WriteLettering(const Lettering& lettering) {
        xml_.Begin("settings", {{"calloutType", "simple"}});
        xml_.Begin("text-style",
                   {{"fieldName", columns_.text},
                    {"isExpression", "0"},
                    {"fontFamily", lettering.family.empty() ? "Sans Serif" : lettering.family},
                    {"fontWeight", lettering.isBold ? "75" : "50"},
                    {"namedStyle", lettering.isBold && lettering.isItalic ? "Bold Italic"
                                   : lettering.isBold                     ? "Bold"
                                   : lettering.isItalic                   ? "Italic"
                                                                          : ""},
                    {"fontItalic", lettering.isItalic ? "1" : "0"},
                    {"fontUnderline", lettering.isUnderlined ? "1" : "0"},
                    {"fontSize", "1"},
                    {"fontSizeUnit", "MapUnit"},
                    {"multilineHeight", "1"},
                    {"textColor", ColorText(lettering.color)},
                    {"textOpacity", "1"}});
        xml_.Empty("text-buffer",
                   {{"bufferDraw", lettering.halo ? "1" : "0"},
                    {"bufferSize", "0.12"},
                    {"bufferSizeUnits", "MapUnit"},
                    {"bufferColor", ColorText(lettering.halo.value_or(shr::Color4b()))},
                    {"bufferOpacity", "1"},
                    {"bufferNoFill", "0"}});
        xml_.Empty("background",
                   {{"shapeDraw", lettering.ground ? "1" : "0"},
                    {"shapeType", "0"},
                    {"shapeFillColor", ColorText(lettering.ground.value_or(shr::Color4b()))},
                    {"shapeOpacity", "1"},
                    {"shapeBorderWidth", "0"}});
        xml_.End();
        xml_.Empty("placement", {{"placement", "1"},   // over the point
                                 {"quadOffset", "2"},  // to its upper right
                                 {"xOffset", "0"},
                                 {"yOffset", "0"}});
        xml_.Empty("rendering", {{"drawLabels", "1"},
                                 {"displayAll", "1"},
                                 {"obstacle", "0"},
                                 {"scaleVisibility", "0"},
                                 {"fontLimitPixelSize", "0"},
                                 {"upsidedownLabels", "2"}});
        WriteLetteringByColumns();
        xml_.End();
    }

    void WriteLetteringByColumns() {
        xml_.Begin("dd_properties");
        xml_.Begin("Option", {{"type", "Map"}});
        xml_.Empty("Option", {{"name", "name"}, {"type", "QString"}, {"value", ""}});
        xml_.Begin("Option", {{"name", "properties"}, {"type", "Map"}});
        ByExpression("Size", QuotedColumn(columns_.height) + " * " + NumberText(kLettersOfLine));
        ByExpression("LabelRotation", "-" + QuotedColumn(columns_.angle));
        ByExpression("BufferSize", QuotedColumn(columns_.height) + " * 0.1");
        xml_.End();
        xml_.Empty("Option", {{"name", "type"}, {"type", "QString"}, {"value", "collection"}});
        xml_.End();
        xml_.End();
    }

    void ByExpression(const char* property, const std::string& expression) {
        xml_.Begin("Option", {{"name", property}, {"type", "Map"}});
        xml_.Empty("Option", {{"name", "active"}, {"type", "bool"}, {"value", "true"}});
        xml_.Empty("Option", {{"name", "expression"}, {"type", "QString"}, {"value", expression}});
        xml_.Empty("Option", {{"name", "type"}, {"type", "int"}, {"value", "3"}});
        xml_.End();
    }

    const LayerStyles& styles_;
    const StyledColumns& columns_;
    StyleResolver resolver_;
    XmlText xml_;
};

}  // namespace

std::string QmlOf(const LayerStyles& styles, const StyledColumns& columns, std::size_t layer) {
    return QmlWriter(styles, columns, layer).Write();
}

}  // namespace app
