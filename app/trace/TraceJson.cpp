#include "app/trace/TraceJson.h"

#include "app/json/JsonObjectWriter.h"
#include "app/json/JsonText.h"
#include "standalone/Text.h"

#include <initializer_list>

namespace app {
namespace {

void AppendWide(std::string& out, std::wstring_view text) {
    AppendJsonString(out, standalone::Narrow(text));
}

void AppendNumbers(std::string& out, std::initializer_list<double> numbers) {
    out += '[';
    for (const double number : numbers) {
        if (out.back() != '[') {
            out += ',';
        }
        AppendJsonNumber(out, number);
    }
    out += ']';
}

void AppendPoint(std::string& out, const shr::Vec3d& point) {
    AppendNumbers(out, {point.x, point.y, point.z});
}

void AppendPoints(std::string& out, const std::vector<shr::Vec3d>& points) {
    out += '[';
    for (const shr::Vec3d& point : points) {
        out += &point == points.data() ? "" : ",";
        AppendPoint(out, point);
    }
    out += ']';
}

void AppendColor(std::string& out, const shr::Color4b& color) {
    AppendNumbers(out, {static_cast<double>(color.red), static_cast<double>(color.green),
                        static_cast<double>(color.blue), static_cast<double>(color.alpha)});
}

void AppendAttributes(JsonObjectWriter& writer, const zeio::TrGraphics& object) {
    JsonObjectWriter attributes(writer.Member("attributes"));
    for (std::size_t i = 0; i < object.attributes.Size(); ++i) {
        attributes.Text(standalone::Narrow(object.attributes.Name(i)), object.attributes.Value(i));
    }
    attributes.Close();
}

void AppendEllipsoid(std::string& out, const gcs::EllipsoidDef& ellipsoid) {
    JsonObjectWriter writer(out);
    writer.Number("a", ellipsoid.GetMajorRadius());
    writer.Number("f", ellipsoid.GetFlattening());
    writer.Close();
}

bool IsBoolean(gcs::ProjectionParameterID id) {
    return id == gcs::ProjectionParameterID::DefinedByAzimuth ||
           id == gcs::ProjectionParameterID::RectifiedOrigin;
}

void AppendProjection(std::string& out, const gcs::ProjectionDef& projection) {
    JsonObjectWriter writer(out);
    writer.Integer("method", static_cast<int>(projection.GetMethod()));
    JsonObjectWriter parameters(writer.Member("parameters"));
    for (int number = 0; number < gcs::kProjectionParameterCount; ++number) {
        const auto id = static_cast<gcs::ProjectionParameterID>(number);
        if (id == gcs::ProjectionParameterID::Ellipsoid || !projection.HasParameter(id)) {
            continue;
        }
        if (IsBoolean(id)) {
            parameters.Boolean(std::to_string(number), projection.GetParameter(id) != 0.0);
        } else {
            parameters.Number(std::to_string(number), projection.GetParameter(id));
        }
    }
    parameters.Close();
    if (projection.GetEllipsoid() != nullptr) {
        AppendEllipsoid(writer.Member("ellipsoid"), *projection.GetEllipsoid());
    } else {
        writer.Null("ellipsoid");
    }
    writer.Close();
}

void AppendDatum(std::string& out, const gcs::DatumDef& datum) {
    JsonObjectWriter writer(out);
    writer.Text("token", datum.GetToken());
    writer.Integer("method", static_cast<int>(datum.GetMethod()));
    writer.Integer("target", static_cast<int>(datum.GetTarget()));
    AppendEllipsoid(writer.Member("ellipsoid"), datum.GetEllipsoid());
    JsonObjectWriter parameters(writer.Member("parameters"));
    for (int number = static_cast<int>(gcs::DatumParameterID::PrimeMeridian);
         number <= static_cast<int>(gcs::DatumParameterID::Scale); ++number) {
        double value = 0.0;
        if (datum.GetParameter(static_cast<gcs::DatumParameterID>(number), value)) {
            parameters.Number(std::to_string(number), value);
        }
    }
    parameters.Close();
    writer.Close();
}

void AppendBody(JsonObjectWriter& writer, const zeio::TrInitGraphicsImp& object) {
    AppendPoint(writer.Member("min"), object.min);
    AppendPoint(writer.Member("max"), object.max);
    writer.Integer("kind", static_cast<int>(object.kind));
}

void AppendBody(JsonObjectWriter& writer, const zeio::TrInitGraphicsExp& object) {
    writer.Number("scale", object.scale);
    writer.Number("unitsPerPoint", object.unitsPerPoint);
    const shr::Box3d& extent = object.extent;
    AppendNumbers(writer.Member("extent"),
                  {extent.minX, extent.minY, extent.minZ, extent.maxX, extent.maxY, extent.maxZ});
    AppendNumbers(writer.Member("codes"),
                  {static_cast<double>(object.codes[0]), static_cast<double>(object.codes[1]),
                   static_cast<double>(object.codes[2]), static_cast<double>(object.codes[3])});
    writer.Integer("capabilities", object.capabilities);
}

void AppendBody(JsonObjectWriter& writer, const zeio::TrCRS& object) {
    AppendSystemJson(writer.Member("cs"), object.GetCS());
}

void AppendBody(JsonObjectWriter& writer, const zeio::TrNamedIds& object) {
    std::string& out = writer.Member("names");
    out += '[';
    for (const std::wstring& name : object.names) {
        out += &name == object.names.data() ? "" : ",";
        AppendWide(out, name);
    }
    out += ']';
}

void AppendBody(JsonObjectWriter& writer, const zeio::TrPen& object) {
    writer.Integer("style", static_cast<int>(object.style));
    AppendColor(writer.Member("color"), object.color);
    writer.Boolean("relative", object.isRelative);
    writer.Number("width", object.width);
    std::string& out = writer.Member("dashes");
    out += '[';
    for (const float& dash : object.dashes) {
        out += &dash == object.dashes.data() ? "" : ",";
        AppendJsonNumber(out, static_cast<double>(dash));
    }
    out += ']';
}

void AppendBody(JsonObjectWriter& writer, const zeio::TrBrush& object) {
    writer.Integer("pattern", static_cast<int>(object.pattern));
    AppendColor(writer.Member("fore"), object.fore);
    AppendColor(writer.Member("back"), object.back);
}

void AppendBody(JsonObjectWriter& writer, const zeio::TrFont& object) {
    writer.Text("face", object.faceName);
    writer.Integer("flags", object.flags);
    writer.Number("height", object.height);
    writer.Number("divisor", object.widthDivisor);
}

void AppendBody(JsonObjectWriter& writer, const zeio::TrPolyline& object) {
    AppendPoints(writer.Member("vertices"), object.vertices);
    AppendAttributes(writer, object);
}

void AppendBody(JsonObjectWriter& writer, const zeio::TrPolygon& object) {
    AppendPoints(writer.Member("vertices"), object.vertices);
    std::string& out = writer.Member("parts");
    out += '[';
    for (const std::int32_t& size : object.partSizes) {
        out += &size == object.partSizes.data() ? "" : ",";
        AppendJsonNumber(out, static_cast<std::int64_t>(size));
    }
    out += ']';
    AppendAttributes(writer, object);
}

void AppendBody(JsonObjectWriter& writer, const zeio::TrMarkerSet& object) {
    writer.Integer("symbolStyle", static_cast<int>(object.symbolStyle));
    writer.Number("size", object.size);
    writer.Text("font", object.fontName);
    writer.Integer("index", object.symbolIndex);
    AppendPoints(writer.Member("positions"), object.positions);
    AppendAttributes(writer, object);
}

void AppendBody(JsonObjectWriter& writer, const zeio::TrRectangle& object) {
    AppendNumbers(writer.Member("corners"), {object.x1, object.y1, object.x2, object.y2});
    AppendNumbers(writer.Member("radii"), {object.radiusX, object.radiusY});
    AppendAttributes(writer, object);
}

void AppendBody(JsonObjectWriter& writer, const zeio::TrEllipse& object) {
    AppendNumbers(writer.Member("corners"), {object.x1, object.y1, object.x2, object.y2});
    AppendAttributes(writer, object);
}

void AppendBody(JsonObjectWriter& writer, const zeio::TrText& object) {
    writer.Text("text", object.text);
    AppendPoint(writer.Member("position"), object.position);
    AppendNumbers(writer.Member("box"),
                  {object.box.minX, object.box.minY, object.box.maxX, object.box.maxY});
    writer.Integer("justify", static_cast<int>(object.justify));
    writer.Integer("align", object.align);
    std::string& out = writer.Member("transform");
    out += '[';
    for (const double& value : object.transform.Values()) {
        out += &value == object.transform.Values().data() ? "" : ",";
        AppendJsonNumber(out, value);
    }
    out += ']';
    AppendAttributes(writer, object);
}

template <typename Class> void AppendAs(JsonObjectWriter& writer, const zeio::TrBase& object) {
    AppendBody(writer, static_cast<const Class&>(object));
}

struct ClassRow {
    const shr::CTypeInfo* (*type)();
    const char* name;
    void (*append)(JsonObjectWriter& writer, const zeio::TrBase& object);
};

// The frequent classes first.
constexpr ClassRow kClasses[] = {
    {zeio::TrPolygon::GetClassTypeId, "TrPolygon", AppendAs<zeio::TrPolygon>},
    {zeio::TrPolyline::GetClassTypeId, "TrPolyline", AppendAs<zeio::TrPolyline>},
    {zeio::TrMarkerSet::GetClassTypeId, "TrMarkerSet", AppendAs<zeio::TrMarkerSet>},
    {zeio::TrPen::GetClassTypeId, "TrPen", AppendAs<zeio::TrPen>},
    {zeio::TrBrush::GetClassTypeId, "TrBrush", AppendAs<zeio::TrBrush>},
    {zeio::TrFont::GetClassTypeId, "TrFont", AppendAs<zeio::TrFont>},
    {zeio::TrText::GetClassTypeId, "TrText", AppendAs<zeio::TrText>},
    {zeio::TrRectangle::GetClassTypeId, "TrRectangle", AppendAs<zeio::TrRectangle>},
    {zeio::TrEllipse::GetClassTypeId, "TrEllipse", AppendAs<zeio::TrEllipse>},
    {zeio::TrCRS::GetClassTypeId, "TrCRS", AppendAs<zeio::TrCRS>},
    {zeio::TrNamedIds::GetClassTypeId, "TrNamedIds", AppendAs<zeio::TrNamedIds>},
    {zeio::TrInitGraphicsImp::GetClassTypeId, "TrInitGraphicsImp",
     AppendAs<zeio::TrInitGraphicsImp>},
    {zeio::TrInitGraphicsExp::GetClassTypeId, "TrInitGraphicsExp",
     AppendAs<zeio::TrInitGraphicsExp>},
};

const ClassRow* FindClass(const zeio::TrBase& object) {
    for (const ClassRow& row : kClasses) {
        if (row.type() == object.GetTypeId()) {
            return &row;
        }
    }
    return nullptr;
}

}  // namespace

std::string ClassName(const zeio::TrBase& object) {
    const ClassRow* row = FindClass(object);
    return row != nullptr ? row->name : standalone::Narrow(object.GetTypeId()->Name());
}

void AppendSystemJson(std::string& out, const gcs::CSDef* system) {
    if (system == nullptr) {
        out += "null";
        return;
    }
    JsonObjectWriter writer(out);
    writer.Integer("type", static_cast<int>(system->Type()));
    const auto* earth = dynamic_cast<const gcs::GCSDef*>(system);
    if (earth != nullptr && !earth->GetProjection().IsUnknown(false)) {
        AppendProjection(writer.Member("projection"), earth->GetProjection());
    } else {
        writer.Null("projection");
    }
    if (earth != nullptr && !earth->GetDatum().IsUnknown()) {
        AppendDatum(writer.Member("datum"), earth->GetDatum());
    } else {
        writer.Null("datum");
    }
    writer.Number("unit", system->UnitFactor());
    writer.Close();
}

void AppendObjectJson(std::string& out, const zeio::TrBase& object) {
    JsonObjectWriter writer(out);
    const ClassRow* row = FindClass(object);
    AppendJsonString(writer.Member("type"), ClassName(object));
    if (row != nullptr) {
        row->append(writer, object);
    }
    writer.Close();
}

}  // namespace app
