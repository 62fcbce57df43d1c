#include "app/convert/SystemPlan.h"

#include "app/base/Errors.h"
#include "app/crs/ClauseForExport.h"
#include "app/crs/Definitions.h"
#include "app/crs/SystemNotes.h"

#include <utility>

namespace app {

namespace {

SystemPtr Shared(CoordinateSystem system) {
    return std::make_shared<const CoordinateSystem>(std::move(system));
}

// What a kept system becomes for a format that has no affine transformations.
CoordinateSystem WithoutAffine(const CoordinateSystem& system) {
    Clause clause = *system.clause;
    clause.affine.reset();
    return SystemOfClause(std::move(clause));
}

// Coordinates that can't be placed stay as they are, unless a place was asked for.
void CheckSource(const SystemPtr& source, const std::string& crs, const std::string& prefix,
                 Reporter& reporter) {
    if (source == nullptr) {
        return;
    }
    const std::string advice = "; name the system of the file with --assume-crs";
    const bool isPlaceAsked = !crs.empty() && crs != kKeepSystem;
    const bool isUnknown = source->kind == SystemKind::Unknown;
    if (source->kind == SystemKind::Faulty || (isUnknown && isPlaceAsked)) {
        throw Failure(prefix + source->problem + advice);
    }
    if (isUnknown) {
        reporter.Warning(prefix + source->problem + "; the coordinates stay as they are");
    }
    SayNotes(*source, prefix, reporter);
}

SystemPlan Reprojected(const SystemPtr& source, SystemPtr wanted, const std::string& prefix,
                       Reporter& reporter) {
    SystemPlan plan;
    try {
        Reprojection reprojection(*source, *wanted);
        for (const std::string& warning : reprojection.Warnings()) {
            reporter.Warning(prefix + warning);
        }
        if (reprojection.IsNeeded()) {
            plan.reprojection.emplace(std::move(reprojection));
        }
        plan.output = std::move(wanted);
    } catch (const Failure& failure) {
        reporter.Warning(prefix + failure.what() + "; the coordinates stay as they are");
        plan.output = source;
    }
    return plan;
}

// The coordinates stay, unless the format can't say what they are.
SystemPlan Kept(const SystemPtr& source, SystemRule rule, bool isAsked, const std::string& prefix,
                Reporter& reporter) {
    const bool hasAffine = source->clause && source->clause->affine;
    if (rule != SystemRule::AsClause) {
        return hasAffine ? Reprojected(source, Shared(WithoutAffine(*source)), prefix, reporter)
                         : SystemPlan{source, std::nullopt};
    }
    try {
        return {AsClause(*source, prefix, reporter), std::nullopt};
    } catch (const Failure& failure) {
        if (isAsked) {
            reporter.Warning(std::string(failure.what()) + "; no system is written");
            return {};
        }
        reporter.Warning(std::string(failure.what()) +
                         "; longitude and latitude of WGS 84 are written");
        return Reprojected(source, AsClause(Wgs84System(), prefix, reporter), prefix, reporter);
    }
}

SystemPtr ClauseOfOption(const std::string& option, const std::string& definition,
                         const CoordinateSystem& system, Reporter& reporter) {
    try {
        return AsClause(system, option + " " + definition + ": ", reporter);
    } catch (const Failure& failure) {
        throw UsageError(failure.what());
    }
}

SystemPlan Plan(const SystemPtr& source, SystemRule rule, const std::string& crs,
                const std::string& prefix, Reporter& reporter) {
    if (source == nullptr || !source->IsOnEarth()) {
        if (!crs.empty() && crs != kKeepSystem) {
            static_cast<void>(SystemOfOption("--crs", crs, reporter));  // refuses what is no system
        }
        return {source, std::nullopt};
    }
    if (crs == kKeepSystem || (crs.empty() && rule == SystemRule::AsClause)) {
        return Kept(source, rule, crs == kKeepSystem, prefix, reporter);
    }
    SystemPtr named = crs.empty() ? Shared(Wgs84System()) : SystemOfOption("--crs", crs, reporter);
    if (rule != SystemRule::AsClause) {
        return Reprojected(source, std::move(named), prefix, reporter);
    }
    SystemPtr clause = ClauseOfOption("--crs", crs, *named, reporter);
    return IsSameSystem(*source, *named) ? SystemPlan{std::move(clause), std::nullopt}
                                         : Reprojected(source, std::move(clause), prefix, reporter);
}

}  // namespace

SystemPlan PlanSystems(const SystemPtr& source, SystemRule rule, const std::string& crs,
                       const std::string& subject, Reporter& reporter) {
    const std::string prefix = subject + ": ";
    CheckSource(source, crs, prefix, reporter);
    SystemPlan plan = Plan(source, rule, crs, prefix, reporter);
    if (rule == SystemRule::Wgs84Expected && (plan.output == nullptr || !IsWgs84(*plan.output))) {
        reporter.Note(prefix +
                      (plan.reprojection
                           ? "the coordinates are those of \"" + plan.output->name + "\", and not"
                           : "the coordinates are written as they are, which is not") +
                      " the longitude and latitude that GeoJSON readers expect");
    } else if (crs != kKeepSystem && (source == nullptr || source->kind == SystemKind::Plane) &&
               (rule != SystemRule::AsClause || !crs.empty())) {
        reporter.Note(prefix + "has no place on the Earth; the coordinates stay as they are");
    }
    return plan;
}

SystemPtr AsClause(const CoordinateSystem& system, const std::string& prefix, Reporter& reporter) {
    ClauseForExport found = ClauseOf(system);
    if (!found) {
        throw Failure(prefix + found.problem);
    }
    for (const std::string& warning : found.warnings) {
        reporter.Warning(prefix + warning);
    }
    return Shared(SystemOfClause(std::move(*found.clause)));
}

}  // namespace app
