#include "app/convert/LayerConversion.h"

#include "app/base/Counted.h"
#include "app/base/Errors.h"

#include <utility>

namespace app {
namespace {

FilterSettings FilterSettingsOf(const ConvertOptions& options) {
    FilterSettings settings;
    settings.columns = options.select;
    settings.where = options.where;
    if (!options.box.empty()) {
        settings.box = shr::Box2d{options.box[0], options.box[1], options.box[2], options.box[3]};
    }
    settings.limit = options.limit;
    return settings;
}

}  // namespace

LayerConversion::LayerConversion(const ConvertOptions& options, const Format& format,
                                 Target& target, Reporter& reporter)
    : options_(options), format_(format), target_(target), reporter_(reporter),
      filter_(FilterSettingsOf(options)) {}

bool LayerConversion::Begin(LayerFacts facts, const std::string& subject) {
    subject_ = subject;
    plan_ = PlanSystems(facts.system, format_.systems, options_.crs, subject, reporter_);
    if (plan_.reprojection) {
        if (options_.precision) {
            plan_.reprojection->KeepAllDecimals();
        }
        facts.knownExtent.reset();  // a box does not stay one
        if (facts.pair) {
            facts.pair->coordSysText.clear();
        }
    }
    facts.system = plan_.output;
    facts.columns = filter_.BeginLayer(facts.columns, subject);
    target_.BeginLayer(facts);
    return !filter_.IsEmpty();
}

bool LayerConversion::Take(Feature& feature) {
    if (!filter_.Answers(feature)) {
        ++unaskedCount_;
        return true;
    }
    if (plan_.reprojection || !format_.holds.curves) {
        FlattenCurves(feature, options_.segments);
    }
    if (plan_.reprojection) {
        Reproject(feature);
    }
    if (options_.precision) {
        RoundCoordinates(feature, *options_.precision);
    }
    if (!filter_.Wants(feature)) {
        ++outsideCount_;
        return true;
    }
    filter_.SelectValues(feature);
    target_.Write(feature);
    ++writtenCount_;
    return !filter_.CountIsLast();
}

void LayerConversion::Reproject(Feature& feature) {
    const std::uint64_t failedBefore = plan_.reprojection->FailedPoints();
    plan_.reprojection->Apply(feature);
    if (plan_.reprojection->FailedPoints() > failedBefore) {
        ++unplacedCount_;
    } else if (feature.geometry.kind != GeometryKind::None) {
        isAnyPlaced_ = true;
    }
}

void LayerConversion::SayUnplaced() const {
    if (!isAnyPlaced_) {
        throw Failure(subject_ + ": no object has a place in the output's coordinate system; the "
                                 "coordinates seem to be of another system than the input declares "
                                 "(--assume-crs names that of a MIF file, --crs keep leaves the "
                                 "coordinates as they are)");
    }
    reporter_.Warning(subject_ + ": " + Counted(unplacedCount_, "object", "objects") + " (" +
                      Counted(plan_.reprojection->FailedPoints(), "point", "points") +
                      (unplacedCount_ == 1 ? ") has" : ") have") +
                      " no place in the output's coordinate system");
}

void LayerConversion::End() {
    if (outsideCount_ + unaskedCount_ > 0 && writtenCount_ == 0) {
        reporter_.Warning(
            subject_ + ": no object meets " +
            (outsideCount_ == 0   ? "--where"
             : unaskedCount_ == 0 ? "--bbox, whose numbers are coordinates of the output"
                                  : "both --where and --bbox") +
            "; " + (format_.holds.emptyLayers && !options_.asIs ? "an empty layer" : "nothing") +
            " is written");
    }
    if (unplacedCount_ > 0) {
        SayUnplaced();
    }
}

}  // namespace app
