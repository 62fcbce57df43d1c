#include "app/crs/Transformation.h"

#include "app/base/Angles.h"
#include "app/crs/ProjText.h"
#include "app/crs/detail/Frames.h"
#include "app/crs/detail/ProjHandles.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <optional>
#include <utility>

namespace app {

namespace {

using detail::PjHandle;

// Rounding may carry a pole a little too far.
constexpr double kPoleDegrees = 90.0 + 1e-9;

void MarkFailed(double& x, double& y) {
    x = HUGE_VAL;
    y = HUGE_VAL;
}

bool IsFailed(double x, double y) {
    return !std::isfinite(x) || !std::isfinite(y);
}

std::size_t CountFailed(std::span<double> x, std::span<double> y) {
    std::size_t failed = 0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        if (IsFailed(x[i], y[i])) {
            MarkFailed(x[i], y[i]);
            ++failed;
        }
    }
    return failed;
}

// Points off the Earth, and those that are no numbers, must not reach PROJ: it would wrap some.
void MarkImpossible(std::span<double> longitudes, std::span<double> latitudes, double pole) {
    for (std::size_t i = 0; i < longitudes.size(); ++i) {
        if (IsFailed(longitudes[i], latitudes[i]) || std::fabs(latitudes[i]) > pole) {
            MarkFailed(longitudes[i], latitudes[i]);
        }
    }
}

std::size_t FailAll(std::span<double> x, std::span<double> y) {
    std::fill(x.begin(), x.end(), HUGE_VAL);
    std::fill(y.begin(), y.end(), HUGE_VAL);
    return x.size();
}

struct Step {
    PjHandle operation;
    PJ_DIRECTION direction = PJ_FWD;
};

// The limit of latitudes in a system's own unit; nothing for one that is not in angles.
using Pole = std::optional<double>;

Pole PoleOf(PJ_CONTEXT* context, const CoordinateSystem& system) {
    if (!system.isGeographic) {
        return std::nullopt;
    }
    if (system.clause || IsWgs84(system)) {
        return kPoleDegrees;
    }
    const PjHandle crs(proj_create(context, system.definition.c_str()));
    const double unit = crs ? detail::AxesOf(context, crs.get()).unit : kDegree;
    return kPoleDegrees * kDegree / unit;
}

}  // namespace

class Transformation::Steps {
public:
    Steps(const CoordinateSystem& from, const CoordinateSystem& to)
        : context_(detail::MakeContext()) {
        Build(from, to);
        fromPole_ = PoleOf(context_.get(), from);
        toPole_ = PoleOf(context_.get(), to);
    }

    std::size_t Run(std::span<double> x, std::span<double> y, bool isBackwards) {
        Check(isBackwards ? toPole_ : fromPole_, x, y);
        const std::size_t count = steps_.size();
        for (std::size_t i = 0; i < count; ++i) {
            const Step& step = steps_[isBackwards ? count - 1 - i : i];
            const bool isForward = (step.direction == PJ_FWD) != isBackwards;
            proj_trans_generic(step.operation.get(), isForward ? PJ_FWD : PJ_INV, x.data(),
                               sizeof(double), x.size(), y.data(), sizeof(double), y.size(),
                               nullptr, 0, 0, nullptr, 0, 0);
            static_cast<void>(CountFailed(x, y));
        }
        Check(isBackwards ? fromPole_ : toPole_, x, y);
        return CountFailed(x, y);
    }

    // Whether points spread over the area of use come out as they go in.
    bool ChangesPoints(const CoordinateSystem& from, const CoordinateSystem& to);

    bool IsEmpty() const { return steps_.empty(); }
    const std::string& Problem() const { return problem_; }
    const std::vector<std::string>& Warnings() const { return warnings_; }

private:
    static void Check(Pole pole, std::span<double> x, std::span<double> y) {
        if (pole) {
            MarkImpossible(x, y, *pole);
        } else {
            static_cast<void>(CountFailed(x, y));  // marks what is no number
        }
    }

    void Build(const CoordinateSystem& from, const CoordinateSystem& to);
    void AddPipeline(const std::string& pipeline, PJ_DIRECTION direction);
    void AddOperation(const PjHandle& source, const PjHandle& target);
    void AddClause(const Clause& clause, const CoordinateSystem& named, PJ_DIRECTION direction);
    PjHandle SharedFrame(const Clause& clause, const CoordinateSystem& named) const;
    PjHandle Create(const CoordinateSystem& system) const;
    void Refuse(const std::string& why);

    detail::ContextHandle context_;  // outlives the operations
    std::vector<Step> steps_;
    Pole fromPole_;
    Pole toPole_;
    std::string problem_;
    std::vector<std::string> warnings_;
};

void Transformation::Steps::Refuse(const std::string& why) {
    const int error = proj_context_errno(context_.get());
    problem_ =
        why +
        (error == 0 ? "" : std::string(": ") + proj_context_errno_string(context_.get(), error));
}

void Transformation::Steps::AddPipeline(const std::string& pipeline, PJ_DIRECTION direction) {
    PjHandle operation(proj_create(context_.get(), pipeline.c_str()));
    if (!operation) {
        Refuse("PROJ refuses the system");
        return;
    }
    steps_.push_back({std::move(operation), direction});
}

// PROJ chooses among several operations by the place of each point. Those that take two datums for
// the same are only taken when there is no other.
void Transformation::Steps::AddOperation(const PjHandle& source, const PjHandle& target) {
    constexpr std::array<const char*, 2> kNoBallpark{"ALLOW_BALLPARK=NO", nullptr};
    if (!source || !target) {
        Refuse("PROJ refuses the system");
        return;
    }
    PjHandle operation(proj_create_crs_to_crs_from_pj(context_.get(), source.get(), target.get(),
                                                      nullptr, kNoBallpark.data()));
    if (!operation) {
        operation.reset(proj_create_crs_to_crs_from_pj(context_.get(), source.get(), target.get(),
                                                       nullptr, nullptr));
        warnings_.push_back("no transformation is known between the datums of \"" +
                            std::string(proj_get_name(source.get())) + "\" and \"" +
                            proj_get_name(target.get()) + "\"; they are taken as the same");
    }
    if (operation) {
        operation.reset(proj_normalize_for_visualization(context_.get(), operation.get()));
    }
    if (!operation) {
        Refuse("PROJ knows no transformation");
        return;
    }
    steps_.push_back({std::move(operation), PJ_FWD});
}

PjHandle Transformation::Steps::Create(const CoordinateSystem& system) const {
    return PjHandle(proj_create(context_.get(), system.definition.c_str()));
}

// The geographic system of the named one, when the clause's datum is that of the register; else
// null.
PjHandle Transformation::Steps::SharedFrame(const Clause& clause,
                                            const CoordinateSystem& named) const {
    PjHandle frame = detail::RegisteredFrame(context_.get(), DatumOf(clause));
    const PjHandle crs = Create(named);
    const bool isShared = frame && crs && detail::IsOnFrame(context_.get(), crs.get(), frame.get());
    return isShared ? std::move(frame) : nullptr;
}

// From a clause to longitude and latitude on the datum that it shares with the named system, else
// on WGS 84; or the other way.
void Transformation::Steps::AddClause(const Clause& clause, const CoordinateSystem& named,
                                      PJ_DIRECTION direction) {
    const bool isForward = direction == PJ_FWD;
    PjHandle frame = IsWgs84(named) ? nullptr : SharedFrame(clause, named);
    const std::string greenwich =
        frame ? detail::PipelineFromGreenwich(context_.get(), frame.get()) : "";
    std::vector<std::string> pipelines{frame ? PipelineToGeographic(clause)
                                             : PipelineToWgs84(clause)};
    if (!greenwich.empty()) {
        pipelines.push_back(greenwich);
    }
    if (!frame) {
        frame = Create(Wgs84System());
    }
    if (!isForward) {
        std::reverse(pipelines.begin(), pipelines.end());
        AddOperation(Create(named), std::move(frame));
    }
    for (const std::string& pipeline : pipelines) {
        AddPipeline(pipeline, direction);
    }
    if (isForward) {
        AddOperation(std::move(frame), Create(named));
    }
}

void Transformation::Steps::Build(const CoordinateSystem& from, const CoordinateSystem& to) {
    if (IsSameSystem(from, to)) {
        return;
    }
    if (from.clause && to.clause) {
        AddPipeline(PipelineToWgs84(*from.clause), PJ_FWD);
        AddPipeline(PipelineToWgs84(*to.clause), PJ_INV);
    } else if (from.clause) {
        AddClause(*from.clause, to, PJ_FWD);
    } else if (to.clause) {
        AddClause(*to.clause, from, PJ_INV);
    } else {
        AddOperation(Create(from), Create(to));
    }
}

// Looks at points of the area where the named system is used. A pair without a named system was
// compared by its clauses.
bool Transformation::Steps::ChangesPoints(const CoordinateSystem& from,
                                          const CoordinateSystem& to) {
    constexpr double kMillimetre = 1e-3;
    constexpr double kMillimetreInDegrees = 1e-8;
    if (from.isGeographic != to.isGeographic || (from.clause && to.clause)) {
        return true;
    }
    const bool isNamedTarget = !to.clause;
    const CoordinateSystem& named = isNamedTarget ? to : from;
    const PjHandle crs = Create(named);
    detail::AreaPoints in = detail::PointsIn(detail::AreaOf(context_.get(), crs.get()));
    const CoordinateSystem& start = isNamedTarget ? from : to;
    Steps toStart(Wgs84System(), start);
    toStart.Run(in.longitudes, in.latitudes, /*isBackwards=*/false);
    detail::AreaPoints out = in;
    Run(out.longitudes, out.latitudes, /*isBackwards=*/!isNamedTarget);
    const double tolerance =
        from.isGeographic ? kMillimetreInDegrees : kMillimetre / to.metresPerUnit;
    bool isAnyCompared = false;
    for (std::size_t i = 0; i < in.longitudes.size(); ++i) {
        if (IsFailed(in.longitudes[i], in.latitudes[i])) {
            continue;
        }
        isAnyCompared = true;
        if (!(std::fabs(in.longitudes[i] - out.longitudes[i]) < tolerance &&
              std::fabs(in.latitudes[i] - out.latitudes[i]) < tolerance)) {
            return true;
        }
    }
    return !isAnyCompared;
}

Transformation::Transformation(const CoordinateSystem& from, const CoordinateSystem& to) {
    for (const CoordinateSystem* const system : {&from, &to}) {
        if (!system->IsOnEarth()) {
            problem_ = system->problem.empty() ? "a plane system has no place on the Earth"
                                               : system->problem;
            return;
        }
    }
    auto steps = std::make_unique<Steps>(from, to);
    problem_ = steps->Problem();
    if (!problem_.empty()) {
        return;
    }
    warnings_ = steps->Warnings();
    isNeeded_ = !steps->IsEmpty() && steps->ChangesPoints(from, to);
    steps_ = std::move(steps);
}

Transformation::~Transformation() = default;
Transformation::Transformation(Transformation&&) noexcept = default;
Transformation& Transformation::operator=(Transformation&&) noexcept = default;

std::size_t Transformation::Apply(std::span<double> x, std::span<double> y) const {
    assert(x.size() == y.size());
    return steps_ ? steps_->Run(x, y, /*isBackwards=*/false) : FailAll(x, y);
}

std::size_t Transformation::ApplyBackwards(std::span<double> x, std::span<double> y) const {
    assert(x.size() == y.size());
    return steps_ ? steps_->Run(x, y, /*isBackwards=*/true) : FailAll(x, y);
}

}  // namespace app
