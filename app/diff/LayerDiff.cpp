#include "app/diff/LayerDiff.h"

#include "app/base/Paths.h"
#include "app/base/Spool.h"
#include "app/base/TempFolder.h"
#include "app/diff/FeatureRecord.h"
#include "app/feature/ValueText.h"
#include "app/sqlite/Sqlite.h"

#include <cmath>
#include <string>
#include <string_view>

namespace app {
namespace {

void Pass(const Feature& left, const Feature& right, const GeometryRules& rules, DiffSink& sink) {
    const FeatureDifference difference = Compare(left, right, rules);
    if (difference.IsNone()) {
        sink.Same();
    } else {
        sink.Changed(left, right, difference);
    }
}

// The same for values that are the same: 5 and 5.0, true and 1.
std::string KeyText(const Value& value) {
    const auto* truth = std::get_if<bool>(&value);
    return truth != nullptr ? std::string(*truth ? "1" : "0") : TextOf(value);
}

// The features of a layer, found by their keys.
class KeyedFeatures {
public:
    KeyedFeatures()
        : database_(folder_.File("features"), SqliteDatabase::Mode::Create,
                    "the temporary folder " + PathText(folder_.Path().parent_path())) {
        database_.Execute("CREATE TABLE feature(id INTEGER PRIMARY KEY, key TEXT, record BLOB)");
        database_.Execute("BEGIN");
        insert_.emplace(database_, "INSERT INTO feature(key, record) VALUES (?, ?)");
    }

    void Add(const std::string& key, const Feature& feature) {
        const std::string record = RecordOf(feature);
        insert_->BindText(1, key);
        insert_->BindBlob(2, record);
        static_cast<void>(insert_->Step());  // an insertion has no rows
    }

    // Called once, behind the last Add. Returns how many have the key of one before them.
    std::uint64_t Finish() {
        insert_.reset();
        database_.Execute("CREATE INDEX feature_key ON feature(key)");
        SqliteStatement count(database_, "SELECT count(*) - count(DISTINCT key) FROM feature");
        static_cast<void>(count.Step());
        const auto repeated = static_cast<std::uint64_t>(count.Whole(0));
        count.Reset();
        find_.emplace(database_,
                      "SELECT id, record FROM feature WHERE key = ? ORDER BY id LIMIT 1");
        remove_.emplace(database_, "DELETE FROM feature WHERE id = ?");
        return repeated;
    }

    // Takes the first feature with the key away. Absent when there is none left.
    std::optional<Feature> Take(const std::string& key) {
        find_->BindText(1, key);
        if (!find_->Step()) {
            return std::nullopt;
        }
        Feature feature = FeatureOf(find_->Blob(1));
        remove_->BindWhole(1, find_->Whole(0));
        find_->Reset();
        static_cast<void>(remove_->Step());  // a removal has no rows
        return feature;
    }

    // Those that were not taken, in their order.
    void ReadRest(const std::function<void(const Feature&)>& take) {
        SqliteStatement rest(database_, "SELECT record FROM feature ORDER BY id");
        while (rest.Step()) {
            take(FeatureOf(rest.Blob(0)));
        }
    }

private:
    TempFolder folder_;
    SqliteDatabase database_;
    std::optional<SqliteStatement> insert_;
    std::optional<SqliteStatement> find_;
    std::optional<SqliteStatement> remove_;
};

}  // namespace

void DiffByOrder(const FeatureReader& left, const FeatureReader& right, const GeometryRules& rules,
                 DiffSink& sink) {
    Spool spool;
    left([&spool](const Feature& feature) {
        const std::string record = RecordOf(feature);
        spool.Put(record.size());
        spool.Write(record);
    });
    Spool::Reader records(spool);
    const auto next = [&records] { return FeatureOf(records.Read(records.Take<std::size_t>())); };
    right([&](const Feature& feature) {
        if (records.IsAtEnd()) {
            sink.Added(feature);
        } else {
            Pass(next(), feature, rules, sink);
        }
    });
    while (!records.IsAtEnd()) {
        sink.Removed(next());
    }
}

std::uint64_t DiffByKey(const FeatureReader& left, const FeatureReader& right, std::size_t key,
                        const GeometryRules& rules, DiffSink& sink) {
    KeyedFeatures features;
    left([&](const Feature& feature) { features.Add(KeyText(feature.values[key]), feature); });
    const std::uint64_t repeated = features.Finish();
    right([&](const Feature& feature) {
        const std::optional<Feature> other = features.Take(KeyText(feature.values[key]));
        if (other) {
            Pass(*other, feature, rules, sink);
        } else {
            sink.Added(feature);
        }
    });
    features.ReadRest([&sink](const Feature& feature) { sink.Removed(feature); });
    return repeated;
}

}  // namespace app
