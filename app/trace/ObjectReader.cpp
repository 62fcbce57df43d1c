#include "app/trace/ObjectReader.h"

#include "app/json/JsonValues.h"
#include "host/gcs/KnownLists.h"
#include "standalone/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace app {

using Json = nlohmann::json;

namespace {

std::optional<int> IdOf(const std::string& key, int least, int most) {
    int id = 0;
    const auto result = std::from_chars(key.data(), key.data() + key.size(), id);
    const bool isWhole = result.ec == std::errc() && result.ptr == key.data() + key.size();
    return isWhole && id >= least && id <= most ? std::optional(id) : std::nullopt;
}

gcs::EllipsoidDef EllipsoidFrom(const Json& json) {
    const JsonMembers members(json, "an ellipsoid");
    double a = 0.0;
    double f = 0.0;
    members.Read("a", a);
    members.Read("f", f);
    return {a, f};
}

void ReadProjectionParameter(const JsonMembers& parameters, const std::string& key,
                             gcs::ProjectionDef& projection) {
    const std::optional<int> number = IdOf(key, 3, gcs::kProjectionParameterCount - 1);
    if (!number) {
        throw JsonError("a projection has no parameter \"" + key + "\"");
    }
    const auto id = static_cast<gcs::ProjectionParameterID>(*number);
    if (id == gcs::ProjectionParameterID::DefinedByAzimuth ||
        id == gcs::ProjectionParameterID::RectifiedOrigin) {
        bool value = false;
        parameters.Read(key.c_str(), value);
        projection.SetParameter(id, value);
    } else {
        double value = 0.0;
        parameters.Read(key.c_str(), value);
        projection.SetParameter(id, value);
    }
}

gcs::ProjectionDef ProjectionFrom(const Json& json) {
    const JsonMembers members(json, "a projection");
    gcs::ProjectionDef projection;
    auto method = gcs::ProjectionMethod::Unknown;
    members.ReadEnum("method", method);
    projection.SetMethod(method);
    if (const Json* list = members.Find("parameters")) {
        const JsonMembers parameters(*list, "a projection's parameters");
        for (const auto& entry : list->items()) {
            ReadProjectionParameter(parameters, entry.key(), projection);
        }
    }
    const Json* ellipsoid = members.Find("ellipsoid");
    if (ellipsoid != nullptr && !ellipsoid->is_null()) {
        projection.SetParameter(gcs::ProjectionParameterID::Ellipsoid, EllipsoidFrom(*ellipsoid));
    }
    return projection;
}

void ReadDatumParameters(const Json& list, gcs::DatumParameters& parameters) {
    struct Row {
        const char* key;
        double* target;
    };
    const std::array<Row, 8> rows{{{"4", &parameters.primeMeridian},
                                   {"5", &parameters.dx},
                                   {"6", &parameters.dy},
                                   {"7", &parameters.dz},
                                   {"8", &parameters.rx},
                                   {"9", &parameters.ry},
                                   {"10", &parameters.rz},
                                   {"11", &parameters.scale}}};
    const JsonMembers members(list, "a datum's parameters");
    for (const Row& row : rows) {
        members.Read(row.key, *row.target);
    }
}

gcs::DatumDef DatumFrom(const Json& json) {
    const JsonMembers members(json, "a datum");
    std::wstring token;
    members.Read("token", token);
    gcs::DatumDef known;
    if (!token.empty() && gcs::GCSKnownDatumsList.FindByToken(token.c_str(), &known) < 2) {
        known = gcs::DatumDef();
    }
    // Absent members are those of the known datum.
    gcs::DatumParameters parameters = known.GetParameters();
    members.ReadEnum("method", parameters.kind);
    members.ReadEnum("target", parameters.target);
    if (const Json* ellipsoid = members.Find("ellipsoid")) {
        parameters.ellipsoid = EllipsoidFrom(*ellipsoid);
    }
    if (const Json* list = members.Find("parameters")) {
        ReadDatumParameters(*list, parameters);
    }
    if (!token.empty()) {
        return {token, known.GetName(), parameters};
    }
    gcs::DatumDef own;
    own.SetParameters(&parameters);
    return own;
}

std::unique_ptr<gcs::CSDef> SystemFrom(const Json& json) {
    if (json.is_null()) {
        return nullptr;
    }
    const JsonMembers members(json, "a coordinate system");
    auto type = gcs::CSType::Earth;
    members.ReadEnum("type", type);
    if (type == gcs::CSType::Nonearth) {
        double unit = 1.0;
        members.Read("unit", unit);
        return std::make_unique<gcs::PlaneDef>(unit);
    }
    if (type != gcs::CSType::Earth) {
        members.WrongKind("type", "1 (of the Earth) or 2 (a plane)");
    }
    auto system = std::make_unique<gcs::GCSDef>();
    const Json* projection = members.Find("projection");
    if (projection != nullptr && !projection->is_null()) {
        system->SetProjection(ProjectionFrom(*projection));
    }
    const Json* datum = members.Find("datum");
    if (datum != nullptr && !datum->is_null()) {
        system->SetDatum(DatumFrom(*datum));
    }
    return system;
}

void ReadAttributes(const JsonMembers& members, zeio::TrGraphics& object) {
    const Json* json = members.Find("attributes");
    if (json == nullptr) {
        return;
    }
    if (!json->is_object()) {
        members.WrongKind("attributes", "an object of texts");
    }
    for (const auto& entry : json->items()) {
        if (!entry.value().is_string()) {
            members.WrongKind("attributes", "an object of texts");
        }
        object.attributes.Set(standalone::Widen(entry.key()),
                              standalone::Widen(entry.value().get_ref<const std::string&>()));
    }
}

using ObjectPtr = std::unique_ptr<zeio::TrBase>;

ObjectPtr ReadInitImp(const JsonMembers& members) {
    auto object = std::make_unique<zeio::TrInitGraphicsImp>(shr::Vec3d::ZERO, shr::Vec3d::ZERO,
                                                            zeio::TrGraphics::FT_COORDSYS::World);
    members.Read("min", object->min);
    members.Read("max", object->max);
    members.ReadEnum("kind", object->kind);
    return object;
}

ObjectPtr ReadInitExp(const JsonMembers& members) {
    auto object = std::make_unique<zeio::TrInitGraphicsExp>();
    members.Read("scale", object->scale);
    members.Read("unitsPerPoint", object->unitsPerPoint);
    if (const auto e = members.Numbers("extent", 6); !e.empty()) {
        object->extent = {e[0], e[1], e[2], e[3], e[4], e[5]};
    }
    if (const auto codes = members.Numbers("codes", 4); !codes.empty()) {
        for (std::size_t i = 0; i < 4; ++i) {
            if (!(codes[i] >= 0.0 && codes[i] <= 255.0)) {
                members.WrongKind("codes", "a list of 4 numbers from 0 to 255");
            }
            object->codes[i] = static_cast<std::uint8_t>(codes[i]);
        }
    }
    members.ReadInteger("capabilities", object->capabilities);
    return object;
}

ObjectPtr ReadCrs(const JsonMembers& members) {
    auto object = std::make_unique<zeio::TrCRS>();
    if (const Json* json = members.Find("cs")) {
        object->SetCS(SystemFrom(*json).get());
    }
    return object;
}

ObjectPtr ReadNamedIds(const JsonMembers& members) {
    auto object = std::make_unique<zeio::TrNamedIds>();
    members.Read("names", object->names);
    return object;
}

ObjectPtr ReadPen(const JsonMembers& members) {
    auto object = std::make_unique<zeio::TrPen>();
    members.ReadEnum("style", object->style);
    members.Read("color", object->color);
    members.Read("relative", object->isRelative);
    members.Read("width", object->width);
    std::vector<double> dashes;
    members.Read("dashes", dashes);
    for (const double dash : dashes) {
        object->dashes.push_back(static_cast<float>(dash));
    }
    return object;
}

ObjectPtr ReadBrush(const JsonMembers& members) {
    auto object = std::make_unique<zeio::TrBrush>();
    members.ReadEnum("pattern", object->pattern);
    members.Read("fore", object->fore);
    members.Read("back", object->back);
    return object;
}

ObjectPtr ReadFont(const JsonMembers& members) {
    auto object = std::make_unique<zeio::TrFont>();
    members.Read("face", object->faceName);
    members.ReadInteger("flags", object->flags);
    members.Read("height", object->height);
    members.Read("divisor", object->widthDivisor);
    return object;
}

ObjectPtr ReadPolyline(const JsonMembers& members) {
    auto object = std::make_unique<zeio::TrPolyline>();
    members.Read("vertices", object->vertices);
    ReadAttributes(members, *object);
    return object;
}

ObjectPtr ReadPolygon(const JsonMembers& members) {
    auto object = std::make_unique<zeio::TrPolygon>();
    members.Read("vertices", object->vertices);
    std::vector<double> parts;
    members.Read("parts", parts);
    for (const double part : parts) {
        if (!(part >= std::numeric_limits<std::int32_t>::min() &&
              part <= std::numeric_limits<std::int32_t>::max() && std::trunc(part) == part)) {
            members.WrongKind("parts", "a list of whole numbers");
        }
        object->partSizes.push_back(static_cast<std::int32_t>(part));
    }
    ReadAttributes(members, *object);
    return object;
}

ObjectPtr ReadMarkerSet(const JsonMembers& members) {
    auto object = std::make_unique<zeio::TrMarkerSet>();
    members.ReadEnum("symbolStyle", object->symbolStyle);
    members.Read("size", object->size);
    members.Read("font", object->fontName);
    members.ReadInteger("index", object->symbolIndex);
    members.Read("positions", object->positions);
    ReadAttributes(members, *object);
    return object;
}

template <typename Object> void ReadCorners(const JsonMembers& members, Object& object) {
    if (const auto corners = members.Numbers("corners", 4); !corners.empty()) {
        object.x1 = corners[0];
        object.y1 = corners[1];
        object.x2 = corners[2];
        object.y2 = corners[3];
    }
    ReadAttributes(members, object);
}

ObjectPtr ReadRectangle(const JsonMembers& members) {
    auto object = std::make_unique<zeio::TrRectangle>();
    ReadCorners(members, *object);
    if (const auto radii = members.Numbers("radii", 2); !radii.empty()) {
        object->radiusX = radii[0];
        object->radiusY = radii[1];
    }
    return object;
}

ObjectPtr ReadEllipse(const JsonMembers& members) {
    auto object = std::make_unique<zeio::TrEllipse>();
    ReadCorners(members, *object);
    return object;
}

ObjectPtr ReadText(const JsonMembers& members) {
    auto object = std::make_unique<zeio::TrText>();
    members.Read("text", object->text);
    members.Read("position", object->position);
    if (const auto box = members.Numbers("box", 4); !box.empty()) {
        object->box = {box[0], box[1], box[2], box[3]};
    }
    members.ReadEnum("justify", object->justify);
    members.ReadInteger("align", object->align);
    if (const auto numbers = members.Numbers("transform", 16); !numbers.empty()) {
        std::array<double, 16> values{};
        std::copy(numbers.begin(), numbers.end(), values.begin());
        object->transform = shr::Mat4d(values);
    }
    ReadAttributes(members, *object);
    return object;
}

struct TypeRow {
    const char* name;
    ObjectPtr (*read)(const JsonMembers& members);
};
constexpr TypeRow kTypes[] = {
    {"TrPolygon", ReadPolygon},
    {"TrPolyline", ReadPolyline},
    {"TrMarkerSet", ReadMarkerSet},
    {"TrPen", ReadPen},
    {"TrBrush", ReadBrush},
    {"TrFont", ReadFont},
    {"TrText", ReadText},
    {"TrRectangle", ReadRectangle},
    {"TrEllipse", ReadEllipse},
    {"TrCRS", ReadCrs},
    {"TrNamedIds", ReadNamedIds},
    {"TrInitGraphicsImp", ReadInitImp},
    {"TrInitGraphicsExp", ReadInitExp},
};

}  // namespace

std::unique_ptr<zeio::TrBase> ObjectFromJson(const Json& json) {
    if (!json.is_object() || !json.contains("type") || !json["type"].is_string()) {
        throw JsonError("the object has no \"type\"");
    }
    const std::string& type = json["type"].get_ref<const std::string&>();
    for (const TypeRow& row : kTypes) {
        if (type == row.name) {
            return row.read(JsonMembers(json, type));
        }
    }
    throw JsonError("unknown type \"" + type + "\"");
}

std::unique_ptr<zeio::TrBase> ObjectOfLine(const std::string& line) {
    const Json json = ParseJson(line);
    if (json.is_discarded() || !json.is_object()) {
        throw JsonError("is not a JSON object");
    }
    const auto call = json.find("call");
    if (call == json.end()) {
        return ObjectFromJson(json);
    }
    if (*call != "ImportObject") {
        return nullptr;
    }
    const auto object = json.find("object");
    if (object == json.end()) {
        throw JsonError("the call has no \"object\"");
    }
    return ObjectFromJson(*object);
}

}  // namespace app
