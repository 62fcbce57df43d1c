#include "app/formats/gpkg/BlobFunctions.h"

#include "app/feature/Feature.h"
#include "app/formats/gpkg/BlobReader.h"
#include "app/formats/gpkg/FeatureBlob.h"

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <exception>
#include <optional>
#include <string_view>

namespace app {
namespace {

// The box of the blob's geometry, which is empty for an empty one. Absent for what is no geometry.
std::optional<shr::Box2d> BoxOfBlob(sqlite3_value* value) {
    const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
    if (bytes == nullptr) {
        return std::nullopt;
    }
    Feature feature;
    ReadBlob({bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))}, feature);
    shr::Box2d box = BoxOf(feature.geometry);
    for (const Geometry& member : feature.members) {
        box = Union(box, BoxOf(member));
    }
    return box;
}

enum class Answer : std::intptr_t { MinX, MaxX, MinY, MaxY, IsEmpty };

void Respond(sqlite3_context* context, int, sqlite3_value** arguments) {
    std::optional<shr::Box2d> box;
    try {
        box = BoxOfBlob(arguments[0]);
    } catch (const std::exception&) {
        return;  // null
    }
    const auto answer =
        static_cast<Answer>(reinterpret_cast<std::intptr_t>(sqlite3_user_data(context)));
    if (!box) {
        return;
    }
    if (answer == Answer::IsEmpty) {
        sqlite3_result_int(context, box->IsEmpty() ? 1 : 0);
    } else if (!box->IsEmpty()) {
        const std::array<double, 4> bounds{box->minX, box->maxX, box->minY, box->maxY};
        sqlite3_result_double(context, bounds.at(static_cast<std::size_t>(answer)));
    }
}

struct FunctionRow {
    const char* name;
    Answer answer;
};
constexpr std::array<FunctionRow, 5> kFunctions{{{"ST_MinX", Answer::MinX},
                                                 {"ST_MaxX", Answer::MaxX},
                                                 {"ST_MinY", Answer::MinY},
                                                 {"ST_MaxY", Answer::MaxY},
                                                 {"ST_IsEmpty", Answer::IsEmpty}}};

}  // namespace

void RegisterBlobFunctions(SqliteDatabase& database) {
    for (const FunctionRow& row : kFunctions) {
        const int result = sqlite3_create_function_v2(
            database.Handle(), row.name, 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
            reinterpret_cast<void*>(static_cast<std::intptr_t>(row.answer)), Respond, nullptr,
            nullptr, nullptr);
        if (result != SQLITE_OK) {
            database.Fail();
        }
    }
}

}  // namespace app
