#include "app/diff/DiffRun.h"

#include "app/base/Counted.h"
#include "app/base/Errors.h"
#include "app/base/Output.h"
#include "app/base/Paths.h"
#include "app/crs/Definitions.h"
#include "app/crs/Reprojection.h"
#include "app/diff/DiffReport.h"
#include "app/formats/Formats.h"
#include "app/json/ShortestNumber.h"
#include "app/query/Question.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace app {
namespace {

// One of the two files.
struct Side {
    const Format& format;
    std::unique_ptr<Source> source;
    std::vector<std::string> layers;
};

// A layer of a side, begun.
struct BegunLayer {
    Source& source;
    LayerFacts facts;
    std::string subject;  // for messages
};

// A layer of the first file and the one of the second that is compared with it.
using LayerPair = std::pair<std::size_t, std::size_t>;

Side Open(const std::string& file, const SourceOptions& options) {
    const Format& format = FormatOfPath(file);
    Side side{format, format.openSource(file, options), {}};
    side.layers = side.source->LayerNames();
    return side;
}

std::size_t LayerNamed(const Side& side, const std::string& name) {
    return side.format.holds.layers ? side.source->LayerNamed(name) : 0;
}

// The layers to compare. Two files of one layer each are compared whatever their layers are called;
// of others, layers of one name are.
std::vector<LayerPair> PairsOf(const Side& left, const Side& right, const std::string& name,
                               DiffReport& report) {
    const bool isOne = left.layers.size() == 1 && right.layers.size() == 1;
    if (!name.empty() || isOne) {
        report.OnlyLayers({}, {});
        return {{LayerNamed(left, name), LayerNamed(right, name)}};
    }
    std::vector<LayerPair> pairs;
    std::vector<std::string> onlyInLeft;
    std::vector<std::string> onlyInRight;
    for (std::size_t i = 0; i < left.layers.size(); ++i) {
        const auto at = std::ranges::find(right.layers, left.layers[i]);
        if (at == right.layers.end()) {
            onlyInLeft.push_back(left.layers[i]);
        } else {
            pairs.emplace_back(i, static_cast<std::size_t>(at - right.layers.begin()));
        }
    }
    for (const std::string& layer : right.layers) {
        if (std::ranges::count(left.layers, layer) == 0) {
            onlyInRight.push_back(layer);
        }
    }
    report.OnlyLayers(onlyInLeft, onlyInRight);
    return pairs;
}

BegunLayer BeginLayer(const Side& side, std::size_t layer, Reporter& reporter) {
    BegunLayer begun{*side.source, side.source->Begin(layer, reporter), side.source->Name()};
    if (side.layers.size() > 1) {
        begun.subject += ", layer " + side.layers[layer];
    }
    return begun;
}

bool IsPlaced(const SystemPtr& system) {
    return system != nullptr && system->IsOnEarth();
}

// How the second layer's coordinates come into the system of the first; absent when they are there.
std::optional<Reprojection> WayBetween(const BegunLayer& left, const BegunLayer& right,
                                       Reporter& reporter) {
    const SystemPtr& to = left.facts.system;
    const SystemPtr& from = right.facts.system;
    if (!IsPlaced(to) || !IsPlaced(from)) {
        if (IsPlaced(to) || IsPlaced(from)) {
            reporter.Note((IsPlaced(to) ? right : left).subject +
                          ": has no place on the Earth; coordinates are compared as they are");
        }
        return std::nullopt;
    }
    if (IsSameSystem(*from, *to)) {
        return std::nullopt;
    }
    Reprojection way(*from, *to);
    for (const std::string& warning : way.Warnings()) {
        reporter.Warning(right.subject + ": " + warning);
    }
    if (!way.IsNeeded()) {
        return std::nullopt;
    }
    reporter.Note(right.subject + ": compared in \"" + to->name + "\", the system of " +
                  left.subject);
    return way;
}

// A millimetre, in the units of the coordinates.
double Millimetre(const CoordinateSystem& system) {
    constexpr double kDegrees = 1e-8;
    return system.isGeographic ? kDegrees : 0.001 / system.metresPerUnit;
}

// Reads a layer as it is compared.
class ComparedLayer {
public:
    ComparedLayer(BegunLayer& layer, const std::vector<std::size_t>& places,
                  const DiffOptions& options, bool isFlattened)
        : layer_(layer), places_(places), options_(options), isFlattened_(isFlattened) {
        if (!options.where.empty()) {
            question_.emplace(options.where, layer.facts.columns, layer.subject);
        }
    }

    void MoveBy(Reprojection* way) { way_ = way; }

    void Read(Reporter& reporter, const std::function<void(const Feature&)>& take) {
        layer_.source.Read(reporter, [&](Feature& feature) {
            if (question_ && !question_->Holds(feature)) {
                return true;
            }
            std::vector<Value> values;
            for (const std::size_t place : places_) {
                values.push_back(place < feature.values.size() ? std::move(feature.values[place])
                                                               : Value());
            }
            feature.values = std::move(values);
            if (isFlattened_) {
                FlattenCurves(feature, options_.segments);
            }
            if (way_ != nullptr) {
                way_->Apply(feature);
            }
            take(feature);
            return true;
        });
    }

private:
    BegunLayer& layer_;
    const std::vector<std::size_t>& places_;
    const DiffOptions& options_;
    bool isFlattened_;
    std::optional<Question> question_;
    Reprojection* way_ = nullptr;  // null: coordinates stay
};

void SayTotals(const DiffTotals& totals, const DiffOptions& options, const std::string& subject,
               Reporter& reporter) {
    if (totals.Different() == 0) {
        reporter.Note(subject + ": the same: " + Counted(totals.same, "object", "objects"));
    } else if (options.key.empty() && totals.added != totals.removed &&
               totals.changed > totals.same) {
        reporter.Note(subject + ": most objects have changed; when some were put between others, "
                                "--key COLUMN compares those with the same value");
    }
}

void DiffLayers(const Side& leftSide, const Side& rightSide, const LayerPair& layers,
                const DiffOptions& options, DiffReport& report, Reporter& reporter) {
    BegunLayer left = BeginLayer(leftSide, layers.first, reporter);
    BegunLayer right = BeginLayer(rightSide, layers.second, reporter);
    const SharedColumns columns =
        ShareColumns(left.facts.columns, right.facts.columns,
                     {options.select, options.key, left.subject, right.subject});
    std::optional<Reprojection> way = WayBetween(left, right, reporter);
    const bool isOneFormat = &leftSide.format == &rightSide.format;
    const bool areCurvesKept =
        leftSide.format.holds.curves && rightSide.format.holds.curves && !way;
    GeometryRules rules;
    rules.areTextsPoints = !isOneFormat;
    rules.tolerance = options.tolerance.value_or(way ? Millimetre(*left.facts.system) : 0.0);
    ComparedLayer leftLayer(left, columns.inLeft, options, !areCurvesKept);
    ComparedLayer rightLayer(right, columns.inRight, options, !areCurvesKept);
    rightLayer.MoveBy(way ? &*way : nullptr);
    const FeatureReader readLeft = [&](const auto& take) { leftLayer.Read(reporter, take); };
    const FeatureReader readRight = [&](const auto& take) { rightLayer.Read(reporter, take); };

    report.BeginLayer(left.subject, right.subject, columns);
    if (columns.key) {
        const std::uint64_t repeated = DiffByKey(readLeft, readRight, *columns.key, rules, report);
        if (repeated > 0) {
            reporter.Note(left.subject + ": " + Counted(repeated, "object has", "objects have") +
                          " the key of another; those are compared in their order");
        }
    } else {
        DiffByOrder(readLeft, readRight, rules, report);
    }
    SayTotals(report.EndLayer(), options, right.subject, reporter);
}

void CheckOptions(const DiffOptions& options) {
    if (options.left == "-" && options.right == "-") {
        throw UsageError("only one of the files can be standard input");
    }
    if (options.tolerance && !(*options.tolerance >= 0.0)) {
        throw UsageError("--tolerance must be 0 or more");
    }
}

}  // namespace

int RunDiff(const DiffOptions& options, Reporter& reporter) {
    CheckOptions(options);
    SourceOptions sourceOptions = options.source;
    if (!options.assumedCrs.empty()) {
        sourceOptions.assumedSystem = SystemOfOption("--assume-crs", options.assumedCrs, reporter);
    }
    const Side left = Open(options.left, sourceOptions);
    const Side right = Open(options.right, sourceOptions);
    OutputFile output("-", IfExists::Overwrite);
    DiffReport report(output, {options.json, options.most}, left.source->Name(),
                      right.source->Name());
    for (const LayerPair& layers : PairsOf(left, right, options.layer, report)) {
        DiffLayers(left, right, layers, options, report, reporter);
    }
    return report.Finish() ? 0 : 1;
}

}  // namespace app
