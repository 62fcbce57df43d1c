#include "app/check/LayerCheck.h"

#include "app/base/Errors.h"
#include "app/base/InputFile.h"
#include "app/base/Paths.h"
#include "app/base/Utf8.h"
#include "app/check/RingCheck.h"
#include "app/check/ShapeCheck.h"
#include "app/crs/SystemArea.h"
#include "app/formats/Formats.h"
#include "app/mif/Numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace app {
namespace {

bool IsPlace(const shr::Vec2d& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

std::size_t CharactersOf(std::string_view utf8) {
    return static_cast<std::size_t>(std::ranges::count_if(
        utf8, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

template <typename Whole> bool IsWithin(std::int64_t number) {
    return number >= std::numeric_limits<Whole>::min() &&
           number <= std::numeric_limits<Whole>::max();
}

bool IsWholeOf(ColumnKind kind, std::int64_t number) {
    switch (kind) {
    case ColumnKind::SmallInt:
        return IsWithin<std::int16_t>(number);
    case ColumnKind::Integer:
        return IsWithin<std::int32_t>(number);
    default:
        return true;
    }
}

bool IsNumberKind(ColumnKind kind) {
    return kind == ColumnKind::SmallInt || kind == ColumnKind::Integer ||
           kind == ColumnKind::LargeInt || kind == ColumnKind::Float || kind == ColumnKind::Decimal;
}

// Whether a column of the kind may have the value.
struct SuitsKind {
    ColumnKind kind;

    bool operator()(std::monostate) const { return true; }
    bool operator()(const std::string& text) const {
        return kind == ColumnKind::Char || KindOfText(text) == kind;
    }
    bool operator()(std::int64_t number) const {
        return IsNumberKind(kind) && IsWholeOf(kind, number);
    }
    bool operator()(double) const {
        return kind == ColumnKind::Float || kind == ColumnKind::Decimal;
    }
    bool operator()(bool) const { return kind == ColumnKind::Logical; }
};

struct ShownValue {
    std::string operator()(std::monostate) const { return "null"; }
    std::string operator()(const std::string& text) const {
        constexpr std::size_t kMost = 40;
        std::string_view rest = text;
        std::string shown;
        while (!rest.empty() && shown.size() < kMost) {
            const std::string_view before = rest;
            TakeCodePoint(rest);
            shown += before.substr(0, before.size() - rest.size());
        }
        return "'" + shown + (rest.empty() ? "'" : "...'");
    }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(double number) const { return NumberAsText(number); }
    std::string operator()(bool isTrue) const { return isTrue ? "true" : "false"; }
};

// What of a column's values is said once for the layer.
struct ColumnSeen {
    std::uint64_t texts = 0;
    std::uint64_t others = 0;
};

class LayerChecker {
public:
    LayerChecker(LayerFacts facts, std::string prefix, FindingCounter& report)
        : facts_(std::move(facts)), prefix_(std::move(prefix)), report_(report),
          seen_(facts_.columns.size()) {
        if (facts_.system != nullptr) {
            area_.emplace(*facts_.system);
        }
    }

    void Take(const Feature& feature) {
        number_ = feature.number;
        ++count_;
        CheckGeometry(feature.geometry);
        for (const Geometry& member : feature.members) {
            CheckGeometry(member);
        }
        if (feature.geometry.kind == GeometryKind::None && feature.number != damaged_) {
            firstWithout_ = withoutGeometry_ == 0 ? number_ : firstWithout_;
            ++withoutGeometry_;
        }
        for (std::size_t i = 0; i < feature.values.size() && i < facts_.columns.size(); ++i) {
            CheckValue(facts_.columns[i], feature.values[i], seen_[i]);
        }
    }

    void TakeDamage(const FeatureDamage& damage) {
        number_ = damage.feature;
        switch (damage.kind) {
        case DamageKind::Geometry:
            damaged_ = damage.feature;
            Add(FindingCode::GeometryUnreadable, damage.problem);
            break;
        case DamageKind::Text:
            Add(FindingCode::TextNotUtf8, damage.problem);
            break;
        case DamageKind::Bytes:
            Add(FindingCode::ValueLeftOut, damage.problem);
            break;
        }
    }

    // What can be said of the whole layer alone.
    void End() {
        if (withoutGeometry_ > 0) {
            number_ = withoutGeometry_ == 1 ? firstWithout_ : 0;
            Add(FindingCode::GeometryMissing,
                withoutGeometry_ == 1
                    ? std::string("the feature has no geometry")
                    : std::to_string(withoutGeometry_) + " of " +
                          Counted(count_, "feature has", "features have") +
                          " no geometry; the first one is " + std::to_string(firstWithout_));
        }
        number_ = 0;
        for (std::size_t i = 0; i < seen_.size(); ++i) {
            if (seen_[i].texts > 0 && seen_[i].others > 0) {
                Add(FindingCode::ColumnOfSeveralTypes,
                    "the column " + facts_.columns[i].name + " has " +
                        Counted(seen_[i].texts, "text and ", "texts and ") +
                        Counted(seen_[i].others, "value", "values") + " of other types");
            }
        }
    }

private:
    void Add(FindingCode code, const std::string& message, const std::string& advice = {}) {
        report_.Add(code, PlaceOfFeature(), prefix_ + message, advice);
    }

    Place PlaceOfFeature() const { return {FileOfPair::Mif, 0, number_}; }

    void CheckGeometry(const Geometry& geometry) {
        const auto wrong = std::ranges::find_if_not(geometry.points, IsPlace);
        if (wrong != geometry.points.end()) {
            Add(FindingCode::CoordinateNotFinite, PointText(*wrong) + " is no place");
            return;
        }
        CheckPlaces(geometry.points);
        std::size_t begin = 0;
        const auto check = [&](std::size_t size) {
            CheckPart(geometry, std::span(geometry.points).subspan(begin, size));
            begin += size;
        };
        if (geometry.partSizes.empty() && geometry.kind == GeometryKind::Line) {
            check(geometry.points.size());
        }
        std::ranges::for_each(geometry.partSizes, check);
    }

    // Reports the first point that lies outside.
    void CheckPlaces(std::span<const shr::Vec2d> points) {
        const bool isGeographic = facts_.system != nullptr && facts_.system->isGeographic;
        const auto beyond = std::ranges::find_if(points, [&](const shr::Vec2d& point) {
            return isGeographic && (std::fabs(point.x) > 360.0 || std::fabs(point.y) > 90.000001);
        });
        if (beyond != points.end()) {
            Add(FindingCode::OutsideEarth, PointText(*beyond) + " lies outside the Earth",
                "Check the coordinate, the order of x and y, and the coordinate system.");
            return;
        }
        const auto outside = area_ ? area_->FirstOutside(points) : std::nullopt;
        if (outside) {
            Add(FindingCode::OutsideArea, PointText(points[*outside]) +
                                              " lies outside the area of the coordinate system, " +
                                              area_->Words());
        }
    }

    void CheckPart(const Geometry& geometry, std::span<const shr::Vec2d> points) {
        if (const std::uint64_t doubled = CountDoubled(points); doubled > 0) {
            Add(FindingCode::DuplicateVertices,
                Counted(doubled, "vertex equals", "vertices equal") + " the one before");
        }
        if (geometry.kind == GeometryKind::Region) {
            CheckRing(points, rings_,
                      [this](FindingCode code, const std::string& message) { Add(code, message); });
        }
    }

    void CheckValue(const LayerColumn& column, const Value& value, ColumnSeen& seen) {
        if (std::holds_alternative<std::monostate>(value)) {
            return;
        }
        const auto* const text = std::get_if<std::string>(&value);
        ++(text != nullptr ? seen.texts : seen.others);
        const auto* const number = std::get_if<double>(&value);
        if (number != nullptr && !std::isfinite(*number)) {
            Add(FindingCode::NumberNotFinite,
                "the value of " + column.name + " is " + NumberAsText(*number));
            return;
        }
        // Values of other types make a column of GeoJSON one of texts, which is said once.
        if (column.kind != ColumnKind::Char && !std::visit(SuitsKind{column.kind}, value)) {
            Add(FindingCode::ValueNotOfType, "the value " + std::visit(ShownValue(), value) +
                                                 " of " + column.name + " is not of the type " +
                                                 ColumnKindName(column.kind));
        }
        if (text != nullptr && column.kind == ColumnKind::Char && column.width > 0 &&
            CharactersOf(*text) > static_cast<std::size_t>(column.width)) {
            Add(FindingCode::ValueTooWide,
                "the value " + ShownValue()(*text) + " of " + column.name + " has " +
                    std::to_string(CharactersOf(*text)) + " characters, and the column has " +
                    std::to_string(column.width));
        }
    }

    LayerFacts facts_;
    std::string prefix_;
    FindingCounter& report_;
    std::optional<SystemArea> area_;  // absent without a system
    RingTester rings_;
    std::vector<ColumnSeen> seen_;  // by the columns
    std::uint64_t number_ = 0;      // of the feature under check; 0: the layer
    std::uint64_t count_ = 0;
    std::uint64_t damaged_ = 0;  // the last feature with a geometry that can't be read
    std::uint64_t withoutGeometry_ = 0;
    std::uint64_t firstWithout_ = 0;
};

// Without the name at its front, which every finding has.
std::string ReasonOf(const Failure& failure, const std::string& name) {
    std::string text = failure.what();
    return text.starts_with(name + ": ") ? text.substr(name.size() + 2) : text;
}

void CheckAll(const std::filesystem::path& file, const Format& format, FindingCounter& report) {
    Reporter silent(stderr, false, false);
    silent.SetVerbosity(Verbosity::Quiet);
    std::optional<LayerChecker> checker;
    SourceOptions options;
    options.onDamage = [&checker](const FeatureDamage& damage) {
        if (checker) {
            checker->TakeDamage(damage);
        }
    };
    const std::unique_ptr<Source> source = format.openSource(ArgumentOfPath(file), options);
    const std::vector<std::string> names = source->LayerNames();
    if (names.empty()) {
        throw Failure("holds no layer with features");
    }
    for (std::size_t layer = 0; layer < names.size(); ++layer) {
        checker.reset();
        LayerFacts facts = source->Begin(layer, silent);
        checker.emplace(std::move(facts), names.size() > 1 ? "layer " + names[layer] + ": " : "",
                        report);
        source->Read(silent, [&](Feature& feature) {
            checker->Take(feature);
            return true;
        });
        checker->End();
    }
}

}  // namespace

FindingCounts CheckLayers(const std::filesystem::path& file, const Format& format,
                          std::uint64_t maxPerCode, FindingSink& sink) {
    FindingCounter report(sink, file, file, maxPerCode);
    try {
        CheckAll(file, format, report);
    } catch (const Failure& failure) {
        const bool isThere = OpenInput(file) != nullptr;
        report.Add(FindingCode::FileUnreadable, {}, ReasonOf(failure, PathText(file)),
                   isThere ? "Write the file again with the program that made it." : "");
    }
    return report.Counts();
}

}  // namespace app
