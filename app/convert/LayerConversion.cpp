#include "app/convert/LayerConversion.h"

#include <utility>

namespace app {
namespace {

FilterSettings FilterSettingsOf(const ConvertOptions& options) {
    FilterSettings settings;
    settings.columns = options.select;
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
    plan_ = PlanSystems(facts.system.get(), format_.systems, options_.crs, subject, reporter_);
    if (plan_.reprojection) {
        facts.knownExtent.reset();  // a box does not stay one
        if (facts.pair) {
            facts.pair->coordSysText.clear();
        }
    }
    facts.system = std::move(plan_.output);
    facts.columns = filter_.SelectColumns(facts.columns, subject);
    target_.BeginLayer(facts);
    return !filter_.IsEmpty();
}

bool LayerConversion::Take(Feature& feature) {
    if (plan_.reprojection || !format_.holds.curves) {
        FlattenCurves(feature, options_.segments);
    }
    if (plan_.reprojection) {
        plan_.reprojection->Apply(feature);
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
    isAnyWritten_ = true;
    return !filter_.CountIsLast();
}

void LayerConversion::End() {
    if (outsideCount_ > 0 && !isAnyWritten_) {
        reporter_.Warning(
            subject_ + ": no object meets --bbox, whose numbers are coordinates of the output; " +
            (format_.holds.emptyLayers && !options_.asIs ? "an empty layer" : "nothing") +
            " is written");
    }
    if (plan_.reprojection && plan_.reprojection->FailedPoints() > 0) {
        reporter_.Warning(subject_ + ": " + std::to_string(plan_.reprojection->FailedPoints()) +
                          " points have no place in the output's coordinate system");
    }
}

}  // namespace app
