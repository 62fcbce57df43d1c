#include "app/convert/MergedSource.h"

#include "app/base/Errors.h"

#include <algorithm>
#include <utility>

namespace app {
namespace {

// Sources that stay open between Begin and Read. Opening one anew costs a pass over its file.
constexpr std::size_t kMostOpen = 64;

bool IsPlaced(const LayerFacts& facts) {
    return facts.system != nullptr && facts.system->IsOnEarth();
}

}  // namespace

MergedSource::MergedSource(std::vector<MergePart> parts, MergeSettings settings)
    : Source("the merged layer"), parts_(std::move(parts)), settings_(std::move(settings)) {}

LayerFacts MergedSource::Begin(std::size_t /*layer*/, Reporter& reporter) {
    begun_.clear();
    columns_ = {};
    for (const MergePart& part : parts_) {
        Begun& begun = begun_.emplace_back();
        begun.source = part.open();
        begun.facts = begun.source->Begin(part.layer, reporter);
        columns_.Add(begun.facts.columns);
        if (begun_.size() > kMostOpen) {
            begun.source.reset();
        }
    }
    if (settings_.withSourceColumn) {
        columns_.AddOwn("source");
    }
    LayerFacts facts;
    facts.name = settings_.name;
    facts.columns = columns_.All();
    facts.system = CommonSystem();
    PlanWays(facts.system, reporter);
    facts.knownExtent = CommonExtent();
    facts.pair = CommonPair();
    for (const std::string& note : columns_.Notes()) {
        reporter.Note(note);
    }
    return facts;
}

// Null when no part is on the Earth. When all parts have one system, it is that one: whoever takes
// the features then moves them once.
SystemPtr MergedSource::CommonSystem() const {
    const auto first =
        std::ranges::find_if(begun_, [](const Begun& begun) { return IsPlaced(begun.facts); });
    if (first == begun_.end()) {
        return begun_.front().facts.system;
    }
    const SystemPtr& system = first->facts.system;
    const bool isOne = std::ranges::all_of(begun_, [&system](const Begun& begun) {
        return !IsPlaced(begun.facts) || IsSameSystem(*begun.facts.system, *system);
    });
    return isOne || settings_.wantedSystem == nullptr ? system : settings_.wantedSystem;
}

void MergedSource::PlanWays(const SystemPtr& common, Reporter& reporter) {
    const bool isCommonPlaced = common != nullptr && common->IsOnEarth();
    for (std::size_t i = 0; i < begun_.size(); ++i) {
        const LayerFacts& facts = begun_[i].facts;
        const std::string prefix = parts_[i].label + ": ";
        if (!isCommonPlaced || !IsPlaced(facts)) {
            if (isCommonPlaced) {
                reporter.Warning(prefix +
                                 "has no place on the Earth; its coordinates are taken to "
                                 "be in \"" +
                                 common->name + "\"");
            }
            continue;
        }
        if (IsSameSystem(*facts.system, *common)) {
            continue;
        }
        Reprojection way(*facts.system, *common);
        for (const std::string& warning : way.Warnings()) {
            reporter.Warning(prefix + warning);
        }
        if (way.IsNeeded()) {
            reporter.Note(prefix + "is moved from \"" + facts.system->name + "\" to \"" +
                          common->name + "\"");
            begun_[i].way.emplace(std::move(way));
        }
    }
}

// What a MIF file of the layer keeps: only what all parts have, and they must be pairs.
std::optional<PairFacts> MergedSource::CommonPair() const {
    std::optional<PairFacts> common = begun_.front().facts.pair;
    for (const Begun& begun : begun_) {
        const std::optional<PairFacts>& pair = begun.facts.pair;
        if (!common || !pair || pair->charset != common->charset ||
            pair->codePage != common->codePage || pair->delimiter != common->delimiter) {
            return std::nullopt;
        }
        common->version = std::max(common->version, pair->version);
        if (pair->coordSysText != common->coordSysText) {
            common->coordSysText.clear();
        }
    }
    return common;
}

std::optional<shr::Box2d> MergedSource::CommonExtent() const {
    std::optional<shr::Box2d> all = begun_.front().facts.knownExtent;
    for (const Begun& begun : begun_) {
        const std::optional<shr::Box2d>& box = begun.facts.knownExtent;
        if (!all || !box || begun.way) {
            return std::nullopt;
        }
        all = shr::Box2d{std::min(all->minX, box->minX), std::min(all->minY, box->minY),
                         std::max(all->maxX, box->maxX), std::max(all->maxY, box->maxY)};
    }
    return all;
}

void MergedSource::Read(Reporter& reporter, const FeatureSink& sink) {
    count_ = 0;
    isEnough_ = false;
    for (std::size_t i = 0; i < begun_.size() && !isEnough_; ++i) {
        ReadPart(i, reporter, sink);
    }
}

void MergedSource::ReadPart(std::size_t number, Reporter& reporter, const FeatureSink& sink) {
    Begun& begun = begun_[number];
    std::unique_ptr<Source> opened;
    if (begun.source == nullptr) {
        opened = parts_[number].open();
        Reporter silent = reporter;
        silent.SetVerbosity(Verbosity::BarOnly);  // it had its say in Begin
        static_cast<void>(opened->Begin(parts_[number].layer, silent));
    }
    Source& source = opened != nullptr ? *opened : *begun.source;
    const std::uint64_t failedBefore = begun.way ? begun.way->FailedPoints() : 0;
    source.Read(reporter, [&](Feature& feature) {
        feature.number = ++count_;
        feature.values = columns_.Arranged(number, std::move(feature.values));
        if (settings_.withSourceColumn) {
            feature.values.back() = parts_[number].label;
        }
        if (begun.way) {
            FlattenCurves(feature, settings_.segments);
            begun.way->Apply(feature);
        }
        isEnough_ = !sink(feature);
        return !isEnough_;
    });
    if (begun.way && begun.way->FailedPoints() > failedBefore) {
        reporter.Warning(parts_[number].label + ": " +
                         std::to_string(begun.way->FailedPoints() - failedBefore) +
                         " points have no place in the common coordinate system");
    }
}

}  // namespace app
