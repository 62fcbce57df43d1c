#include "app/formats/gpkg/StyleDocuments.h"
#include "app/formats/gpkg/StyleNumbers.h"
#include "app/formats/gpkg/XmlText.h"

#include <algorithm>

namespace app {
namespace {

class SldWriter {
public:
    SldWriter(const LayerStyles& styles, const StyledColumns& columns, std::size_t layer)
        : styles_(styles), columns_(columns), resolver_(ResolverFor(layer)) {}

    std::string Write(const std::string& layerName) {
        xml_.Begin("StyledLayerDescriptor", {{"xmlns", "http://www.opengis.net/sld"},
                                             {"xmlns:ogc", "http://www.opengis.net/ogc"},
                                             {"version", "1.0.0"}});
        xml_.Begin("NamedLayer");
        xml_.Text("Name", layerName);
        xml_.Begin("UserStyle");
        xml_.Text("Name", layerName);
        xml_.Begin("FeatureTypeStyle");
        for (std::size_t i = 0; i < styles_.All().size(); ++i) {
            WriteRule(std::to_string(i + 1), styles_.All()[i]);
        }
        for (int i = 0; i < 4; ++i) {
            xml_.End();
        }
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + xml_.Whole();
    }

private:
    void WriteRule(const std::string& number, const NumberedStyle& style) {
        xml_.Begin("Rule");
        xml_.Text("Name", number);
        xml_.Begin("ogc:Filter");
        xml_.Begin("ogc:PropertyIsEqualTo");
        xml_.Text("ogc:PropertyName", columns_.style);
        xml_.Text("ogc:Literal", number);
        xml_.End();
        xml_.End();
        switch (style.kind) {
        case StyledKind::Point:
            WritePoint(resolver_.MarkerOf(style.style));
            break;
        case StyledKind::Line:
            xml_.Begin("LineSymbolizer");
            WriteStroke(resolver_.StrokeOf(style.style, GeometryKind::Line));
            xml_.End();
            break;
        case StyledKind::Area:
            xml_.Begin("PolygonSymbolizer");
            WriteFill(resolver_.FillOf(style.style));
            WriteStroke(resolver_.StrokeOf(style.style, GeometryKind::Region));
            xml_.End();
            break;
        case StyledKind::Text:
            WriteText(resolver_.LetteringOf(style.style));
            break;
        }
        xml_.End();
    }

    void Parameter(const char* name, const std::string& value) {
        xml_.Text("CssParameter", value, {{"name", name}});
    }

    void WriteColor(const char* element, const char* name, const shr::Color4b& color,
                    double opacity = 1.0) {
        xml_.Begin(element);
        Parameter(name, HexText(color));
        if (const double seen = color.alpha / 255.0 * opacity; seen < 1.0) {
            Parameter((std::string(name) + "-opacity").c_str(), NumberText(seen));
        }
        xml_.End();
    }

    // Lengths are pixels.
    void WriteStroke(const Stroke& stroke) {
        if (!(stroke.width > 0.0)) {
            return;
        }
        xml_.Begin("Stroke");
        Parameter("stroke", HexText(stroke.color));
        Parameter("stroke-width", NumberText(stroke.width));
        Parameter("stroke-linejoin", "round");
        Parameter("stroke-linecap", stroke.dashes.empty() ? "round" : "butt");
        if (!stroke.dashes.empty()) {
            std::string dashes;
            for (const double dash : stroke.dashes) {
                dashes += (dashes.empty() ? "" : " ") +
                          NumberText(dash * std::max(stroke.width, kThinnestDashUnit));
            }
            Parameter("stroke-dasharray", dashes);
        }
        xml_.End();
    }

    void WriteFill(const Fill& fill) {
        switch (fill.look.fill) {
        case AreaFill::None:
            return;
        case AreaFill::Solid:
            WriteColor("Fill", "fill", fill.fore);
            return;
        case AreaFill::Tint:
            WriteColor("Fill", "fill", fill.fore, fill.look.opacity);
            return;
        case AreaFill::Lines:
            WriteColor("Fill", "fill", fill.fore, InkOf(fill.look));
        }
    }

    // How much of an area the lines of a hatch cover.
    static double InkOf(const BrushLook& look) {
        double free = 1.0;
        for (const HatchLines& lines : look.lines) {
            free *= 1.0 - lines.width / lines.spacing;
        }
        return 1.0 - free;
    }

    void WritePoint(const Marker& marker) {
        if (!(marker.diameter > 0.0)) {
            return;
        }
        const bool isHollow = marker.character.empty() && marker.shape->isHollow;
        xml_.Begin("PointSymbolizer");
        xml_.Begin("Graphic");
        xml_.Begin("Mark");
        xml_.Text("WellKnownName",
                  marker.character.empty() ? WellKnownName(*marker.shape) : "circle");
        if (isHollow) {
            WriteStroke({marker.color, std::max(marker.diameter * kHollowLine, 1.0), {}});
        } else {
            WriteColor("Fill", "fill", marker.color);
        }
        xml_.End();
        xml_.Text("Size", NumberText(marker.diameter * marker.shape->markerSize));
        if (const double degrees = marker.shape->markerDegrees + TurnOf(*marker.shape);
            degrees != 0.0) {
            xml_.Text("Rotation", NumberText(degrees));
        }
        xml_.End();
        xml_.End();
    }

    // The names that SLD knows are few: a diamond is a square on its corner.
    static std::string WellKnownName(const SymbolShape& shape) {
        if (shape.markerName == "diamond") {
            return "square";
        }
        if (shape.markerName == "cross_fill") {
            return "cross";
        }
        return shape.markerName == "arrow" ? "triangle" : std::string(shape.markerName);
    }

    static double TurnOf(const SymbolShape& shape) {
        return shape.markerName == "diamond" ? 45.0 : 0.0;
    }

    void WriteText(const Lettering& lettering) {
        xml_.Begin("TextSymbolizer");
        xml_.Begin("Label");
        xml_.Text("ogc:PropertyName", columns_.text);
        xml_.End();
        xml_.Begin("Font");
        if (!lettering.family.empty()) {
            Parameter("font-family", lettering.family);
        }
        Parameter("font-style", lettering.isItalic ? "italic" : "normal");
        Parameter("font-weight", lettering.isBold ? "bold" : "normal");
        xml_.End();
        if (lettering.halo) {
            xml_.Begin("Halo");
            WriteColor("Fill", "fill", *lettering.halo);
            xml_.End();
        }
        WriteColor("Fill", "fill", lettering.color);
        xml_.End();
    }

    const LayerStyles& styles_;
    const StyledColumns& columns_;
    StyleResolver resolver_;
    XmlText xml_;
};

}  // namespace

std::string SldOf(const LayerStyles& styles, const StyledColumns& columns, std::size_t layer,
                  const std::string& layerName) {
    return SldWriter(styles, columns, layer).Write(layerName);
}

}  // namespace app
