#include "tests/support/ObjectText.h"

#include "standalone/Text.h"

#include <array>
#include <charconv>
#include <span>

namespace support {

namespace {

std::string Join(std::initializer_list<double> numbers) {
    std::string text;
    for (const double number : numbers) {
        text += (text.empty() ? "" : ",") + DescribeNumber(number);
    }
    return text;
}

std::string Quoted(const std::wstring& text) {
    return '"' + standalone::Narrow(text) + '"';
}

std::string Points(std::span<const shr::Vec3d> points) {
    std::string text;
    for (const shr::Vec3d& point : points) {
        text += ' ' + Join({point.x, point.y});
        text += point.z == 0.0 ? "" : ',' + DescribeNumber(point.z);
    }
    return text;
}

std::string Color(const shr::Color4b& color) {
    return Join({static_cast<double>(color.red), static_cast<double>(color.green),
                 static_cast<double>(color.blue), static_cast<double>(color.alpha)});
}

std::string Attributes(const shr::CParamList& attributes) {
    std::string text;
    for (std::size_t index = 0; index < attributes.Size(); ++index) {
        text += (index == 0 ? " {" : ", ") + standalone::Narrow(attributes.Name(index)) + '=' +
                standalone::Narrow(attributes.Value(index));
    }
    return text.empty() ? text : text + '}';
}

std::string Describe(const zeio::TrInitGraphicsImp& start) {
    return "InitGraphicsImp" + Points(std::array{start.min, start.max}) +
           " kind=" + std::to_string(static_cast<int>(start.kind));
}

std::string Describe(const zeio::TrCRS& coordinateSystem) {
    const auto* earth = dynamic_cast<const gcs::GCSDef*>(coordinateSystem.GetCS());
    if (earth == nullptr) {
        return coordinateSystem.GetCS() == nullptr ? "CRS none" : "CRS plane";
    }
    return "CRS projection=" +
           std::to_string(static_cast<int>(earth->GetProjection().GetMethod())) +
           " datum=" + Quoted(earth->GetDatum().GetToken());
}

std::string Describe(const zeio::TrNamedIds& columns) {
    std::string text = "NamedIds";
    for (const std::wstring& name : columns.names) {
        text += ' ' + standalone::Narrow(name);
    }
    return text;
}

std::string Describe(const zeio::TrPen& pen) {
    std::string text = "Pen style=" + std::to_string(static_cast<int>(pen.style)) +
                       " color=" + Color(pen.color) + (pen.isRelative ? " relative" : " inches") +
                       " width=" + DescribeNumber(pen.width);
    for (std::size_t index = 0; index < pen.dashes.size(); ++index) {
        text += (index == 0 ? " dashes=" : ",") + DescribeNumber(double{pen.dashes[index]});
    }
    return text;
}

std::string Describe(const zeio::TrBrush& brush) {
    return "Brush pattern=" + std::to_string(static_cast<int>(brush.pattern)) +
           " fore=" + Color(brush.fore) + " back=" + Color(brush.back);
}

std::string Describe(const zeio::TrFont& font) {
    return "Font " + Quoted(font.faceName) + " flags=" + std::to_string(font.flags) +
           " height=" + DescribeNumber(font.height) +
           (font.widthDivisor == 0.0 ? "" : " divisor=" + DescribeNumber(font.widthDivisor));
}

std::string Describe(const zeio::TrPolyline& polyline) {
    return "Polyline" + Points(polyline.vertices) + Attributes(polyline.attributes);
}

std::string Describe(const zeio::TrPolygon& polygon) {
    std::string text = "Polygon parts=";
    for (std::size_t index = 0; index < polygon.partSizes.size(); ++index) {
        text += (index == 0 ? "" : ",") + std::to_string(polygon.partSizes[index]);
    }
    return text + Points(polygon.vertices) + Attributes(polygon.attributes);
}

std::string Describe(const zeio::TrMarkerSet& markers) {
    return "MarkerSet style=" + std::to_string(static_cast<int>(markers.symbolStyle)) +
           " size=" + DescribeNumber(markers.size) + " font=" + Quoted(markers.fontName) +
           " index=" + std::to_string(markers.symbolIndex) + Points(markers.positions) +
           Attributes(markers.attributes);
}

std::string Describe(const zeio::TrRectangle& box) {
    return "Rectangle " + Join({box.x1, box.y1, box.x2, box.y2}) +
           " radii=" + Join({box.radiusX, box.radiusY}) + Attributes(box.attributes);
}

std::string Describe(const zeio::TrEllipse& ellipse) {
    return "Ellipse " + Join({ellipse.x1, ellipse.y1, ellipse.x2, ellipse.y2}) +
           Attributes(ellipse.attributes);
}

std::string Describe(const zeio::TrText& text) {
    return "Text " + Quoted(text.text) + " at" + Points(std::array{text.position}) +
           " box=" + Join({text.box.minX, text.box.minY, text.box.maxX, text.box.maxY}) +
           " justify=" + std::to_string(static_cast<int>(text.justify)) +
           " align=" + std::to_string(text.align) +
           " rotation=" + DescribeNumber(text.transform.GetRotation2()) +
           Attributes(text.attributes);
}

std::string Describe(const zeio::TrInitGraphicsExp& start) {
    return "InitGraphicsExp scale=" + DescribeNumber(start.scale) +
           " unitsPerPoint=" + DescribeNumber(start.unitsPerPoint) + " codes=" +
           Join({static_cast<double>(start.codes[0]), static_cast<double>(start.codes[1]),
                 static_cast<double>(start.codes[2]), static_cast<double>(start.codes[3])}) +
           " capabilities=" + std::to_string(start.capabilities);
}

// The text of the object when it is of this very class, else an empty one.
template <typename Class> std::string DescribeIf(const zeio::TrBase& object) {
    return object.GetTypeId() == Class::GetClassTypeId()
               ? Describe(static_cast<const Class&>(object))
               : std::string();
}

template <typename... Classes> std::string DescribeAnyOf(const zeio::TrBase& object) {
    return (DescribeIf<Classes>(object) + ...);
}

}  // namespace

std::string DescribeObject(const zeio::TrBase& object) {
    const std::string text =
        DescribeAnyOf<zeio::TrInitGraphicsImp, zeio::TrInitGraphicsExp, zeio::TrCRS,
                      zeio::TrNamedIds, zeio::TrPen, zeio::TrBrush, zeio::TrFont, zeio::TrPolyline,
                      zeio::TrPolygon, zeio::TrMarkerSet, zeio::TrRectangle, zeio::TrEllipse,
                      zeio::TrText>(object);
    return text.empty() ? "unknown " + standalone::Narrow(object.GetTypeId()->Name()) : text;
}

std::string DescribeNumber(double value) {
    char text[32];
    const std::to_chars_result result = std::to_chars(std::begin(text), std::end(text), value);
    return {text, result.ptr};
}

}  // namespace support
