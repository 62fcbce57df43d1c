#include "tests/formats/gpkg/Package.h"

#include "app/formats/gpkg/BlobReader.h"
#include "app/formats/gpkg/BlobWriter.h"

#include <sqlite3.h>

#include <stdexcept>

namespace gpkg_test {
namespace {

// The bounds of all points of a blob, or nothing for an empty geometry.
std::optional<shr::Box2d> BoundsOf(sqlite3_value* value) {
    const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
    const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
    app::Feature feature;
    app::ReadBlob({bytes, size}, feature);
    std::vector<shr::Vec2d> points = feature.geometry.points;
    for (const app::Geometry& member : feature.members) {
        points.insert(points.end(), member.points.begin(), member.points.end());
    }
    const shr::Box2d box = app::BoxOf(points);
    return box.IsEmpty() ? std::nullopt : std::optional(box);
}

template <double shr::Box2d::*Bound>
void BoundInSql(sqlite3_context* context, int, sqlite3_value** arguments) {
    if (const std::optional<shr::Box2d> box = BoundsOf(arguments[0])) {
        sqlite3_result_double(context, (*box).*Bound);
    }
}

void IsEmptyInSql(sqlite3_context* context, int, sqlite3_value** arguments) {
    sqlite3_result_int(context, BoundsOf(arguments[0]) ? 0 : 1);
}

void Register(sqlite3* handle, const char* name,
              void (*function)(sqlite3_context*, int, sqlite3_value**)) {
    sqlite3_create_function(handle, name, 1, SQLITE_UTF8, nullptr, function, nullptr, nullptr);
}

int AppendRow(void* rows, int count, char** values, char**) {
    auto& text = *static_cast<std::string*>(rows);
    text += text.empty() ? "" : "\n";
    for (int i = 0; i < count; ++i) {
        text += i == 0 ? "" : "|";
        text += values[i] != nullptr ? values[i] : "NULL";
    }
    return 0;
}

}  // namespace

Package::Package() = default;

Package::~Package() {
    sqlite3_close(handle_);
}

void Package::WriteLayer(const std::vector<app::Feature>& features,
                         const std::vector<app::LayerColumn>& columns,
                         const app::SpatialReference& reference) {
    Writer().BeginLayer("layer", columns, reference);
    for (const app::Feature& feature : features) {
        Write(feature);
    }
    Writer().Finish();
}

app::GeoPackageWriter& Package::Writer() {
    if (!writer_) {
        writer_.emplace(Path(), app::IfExists::Refuse, withStyles_, TheReporter());
    }
    return *writer_;
}

std::string Package::Query(const std::string& sql) {
    if (handle_ == nullptr) {
        sqlite3_open_v2(Path().c_str(), &handle_, SQLITE_OPEN_READWRITE, nullptr);
        Register(handle_, "ST_IsEmpty", IsEmptyInSql);
        Register(handle_, "ST_MinX", BoundInSql<&shr::Box2d::minX>);
        Register(handle_, "ST_MaxX", BoundInSql<&shr::Box2d::maxX>);
        Register(handle_, "ST_MinY", BoundInSql<&shr::Box2d::minY>);
        Register(handle_, "ST_MaxY", BoundInSql<&shr::Box2d::maxY>);
    }
    std::string rows;
    char* error = nullptr;
    if (sqlite3_exec(handle_, sql.c_str(), AppendRow, &rows, &error) != SQLITE_OK) {
        const std::string reason = error;
        sqlite3_free(error);
        throw std::runtime_error(sql + ": " + reason);
    }
    return rows;
}

}  // namespace gpkg_test
