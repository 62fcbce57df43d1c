#include "app/formats/gpkg/ExistingLayer.h"

#include "app/base/Errors.h"
#include "app/feature/ColumnTypes.h"
#include "app/query/ColumnNames.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace app {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::string Or(const std::string& text, const char* otherwise) {
    return text.empty() ? otherwise : text;
}

}  // namespace

ExistingLayer::ExistingLayer(SqliteDatabase& database, PackageLayer layer, const LayerFacts& facts,
                             std::string subject)
    : database_(database), layer_(std::move(layer)), subject_(std::move(subject)),
      geometry_(layer_.srsId), extent_{kInfinity, kInfinity, -kInfinity, -kInfinity} {
    if (layer_.isView) {
        Fail("is a view, to which no rows can be added");
    }
    if (layer_.needsHeights) {
        Fail("needs a height for each position, which the objects don't have");
    }
    TakeColumns(facts.columns);
    CheckValuesOfOthers();
    CheckSystem(facts);
    FindPlacement();
    PrepareInsert();
}

void ExistingLayer::Fail(const std::string& problem) const {
    throw Failure(subject_ + ": layer " + layer_.name + " is there already, and " + problem);
}

void ExistingLayer::TakeColumns(const std::vector<LayerColumn>& columns) {
    for (const LayerColumn& column : columns) {
        const std::optional<std::size_t> at = FindColumn(layer_.columns, column.name);
        if (!at) {
            Fail(NoSuchColumn(layer_.columns, column.name) +
                 "; --select leaves it out, --layer names another layer");
        }
        const LayerColumn& own = layer_.columns[*at];
        if (WidenedColumn(own, column).kind != own.kind) {
            Fail("its column " + own.name + " can't hold all values of the type " +
                 ColumnKindName(column.kind) + "; --layer names another layer");
        }
        if (IsTaken(own.name)) {
            Fail("two columns would go into its column " + own.name);
        }
        columns_.push_back({own.name, own});
    }
}

void ExistingLayer::CheckSystem(const LayerFacts& facts) const {
    const SystemPtr own = SystemOf(layer_.reference);
    const bool isOwnPlaced = own != nullptr && own->IsOnEarth();
    const bool isPlaced = facts.system != nullptr && facts.system->IsOnEarth();
    if (isPlaced != isOwnPlaced) {
        Fail(isPlaced ? "has no coordinate system of the Earth, which the objects have"
                      : "has a coordinate system of the Earth, which the objects don't have");
    }
    if (isPlaced && !IsSameSystem(*facts.system, *own) &&
        ReferenceOf(facts.system.get()) != ReferenceOf(own.get())) {
        const std::string code =
            own->code == 0 ? "" : own->authority + ":" + std::to_string(own->code);
        Fail("is in \"" + own->name + "\", the objects are in \"" + facts.system->name +
             "\"; --crs " + Or(code, "SYSTEM") + " moves them");
    }
}

// The columns that LayerTable makes for texts, unless they are for values of the features.
void ExistingLayer::FindPlacement() {
    for (const PlacementColumn& column : kPlacementColumns) {
        const std::string name = column.name;
        // Where the layer has a column of this name, the number of the other one is the next free.
        std::optional<std::size_t> at = FindColumn(layer_.columns, name);
        for (int number = 2; at && IsTaken(layer_.columns[*at].name); ++number) {
            at = FindColumn(layer_.columns, name + "_" + std::to_string(number));
        }
        if (!at) {
            placement_.clear();
            return;
        }
        placement_.push_back(layer_.columns[*at].name);
    }
}

bool ExistingLayer::IsTaken(const std::string& name) const {
    return std::ranges::any_of(columns_,
                               [&name](const TableColumn& taken) { return taken.name == name; });
}

// Columns that the features don't have must do without a value of theirs.
void ExistingLayer::CheckValuesOfOthers() {
    SqliteStatement needed(database_, "SELECT name FROM pragma_table_info(?) WHERE \"notnull\" AND "
                                      "dflt_value IS NULL AND NOT pk AND name <> ?");
    needed.BindText(1, layer_.name);
    needed.BindText(2, layer_.geometryColumn);
    while (needed.Step()) {
        const std::string name(needed.Text(0));
        if (!IsTaken(name)) {
            Fail("its column " + name + " needs a value, which the objects don't have");
        }
    }
}

// Whether an earlier run has given the layer styles. New rows have none of them.
bool ExistingLayer::HasStyles() {
    if (!FindColumn(layer_.columns, "style")) {
        return false;
    }
    SqliteStatement table(database_, "SELECT count(*) FROM sqlite_schema WHERE name = "
                                     "'layer_styles'");
    if (!table.Step() || table.Whole(0) == 0) {
        return false;
    }
    SqliteStatement styles(database_, "SELECT count(*) FROM layer_styles WHERE f_table_name = ?");
    styles.BindText(1, layer_.name);
    return styles.Step() && styles.Whole(0) > 0;
}

void ExistingLayer::PrepareInsert() {
    std::string names = QuotedName(layer_.geometryColumn);
    std::string values = "?";
    const auto add = [&](const std::string& name) {
        names += ", " + QuotedName(name);
        values += ", ?";
    };
    for (const TableColumn& column : columns_) {
        add(column.name);
    }
    for (const std::string& name : placement_) {
        add(name);
    }
    insert_.emplace(database_, "INSERT INTO " + QuotedName(layer_.name) + " (" + names +
                                   ") VALUES (" + values + ")");
    binding_.Prepare(1 + columns_.size() + placement_.size());
}

void ExistingLayer::Write(const Feature& feature) {
    ++summary_.written;
    binding_.BeginRow();
    BindGeometry(feature);
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        TableColumn& column = columns_[i];
        binding_.BindValue(
            *insert_, static_cast<int>(i) + 2, column,
            WidenedValue(column.source, i < feature.values.size() ? feature.values[i] : Value()));
    }
    BindPlacement(feature);
    static_cast<void>(insert_->Step());  // an insertion has no rows
}

void ExistingLayer::BindGeometry(const Feature& feature) {
    if (!geometry_.Build(feature)) {
        insert_->BindNull(1);
        summary_.withoutGeometry += feature.geometry.kind == GeometryKind::None ? 0 : 1;
        return;
    }
    extent_ = Union(extent_, geometry_.Box());
    const std::string type = GeometryTypeName(geometry_.Type());
    if (layer_.geometryType == "GEOMETRY" || layer_.geometryType == type) {
        insert_->BindBlob(1, geometry_.Blob());
    } else if (layer_.geometryType == GeometryTypeName(MultiOf(geometry_.Type()))) {
        promoted_ = PromotedToMulti(geometry_.Blob());
        insert_->BindBlob(1, promoted_);
    } else {
        Fail("holds geometries of the type " + layer_.geometryType + ", while object " +
             std::to_string(feature.number) + " is a " + type + "; --layer names another layer");
    }
}

void ExistingLayer::BindPlacement(const Feature& feature) {
    if (feature.geometry.kind == GeometryKind::Text && placement_.empty()) {
        Fail("has no columns text, angle, height, font and justify of its own for texts; --layer "
             "names another layer");
    }
    if (!placement_.empty()) {
        binding_.BindPlacement(*insert_, static_cast<int>(columns_.size()) + 2, feature.geometry);
    }
}

LayerSummary ExistingLayer::Finish() {
    insert_.reset();
    std::string set = "last_change = strftime('%Y-%m-%dT%H:%M:%fZ','now')";
    if (!extent_.IsEmpty()) {
        set += ", min_x = min(coalesce(min_x, ?1), ?1), min_y = min(coalesce(min_y, ?2), ?2), "
               "max_x = max(coalesce(max_x, ?3), ?3), max_y = max(coalesce(max_y, ?4), ?4)";
    }
    SqliteStatement update(database_, "UPDATE gpkg_contents SET " + set + " WHERE table_name = ?5");
    if (!extent_.IsEmpty()) {
        update.BindReal(1, extent_.minX);
        update.BindReal(2, extent_.minY);
        update.BindReal(3, extent_.maxX);
        update.BindReal(4, extent_.maxY);
    }
    update.BindText(5, layer_.name);
    static_cast<void>(update.Step());  // a change has no rows
    summary_.unstyled = HasStyles() ? summary_.written : 0;
    for (const TableColumn& column : columns_) {
        if (column.mismatchCount > 0) {
            summary_.mismatches.push_back({column.name, column.mismatchCount});
        }
    }
    return summary_;
}

}  // namespace app
