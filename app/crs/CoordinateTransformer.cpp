#include "app/crs/CoordinateTransformer.h"

#include "app/crs/GcsToProj.h"
#include "app/crs/detail/ProjHandles.h"

#include <algorithm>
#include <cassert>
#include <cmath>

namespace app {

struct CoordinateTransformer::Pipeline {
    detail::ContextHandle context;  // outlives the transformation
    detail::PjHandle transformation;
    bool isGeographic = false;  // the file's coordinates are degrees
};

namespace {

// Rounding may carry a pole a little too far.
constexpr double kPoleDegrees = 90.0 + 1e-9;

void MarkFailed(double& x, double& y) {
    x = HUGE_VAL;
    y = HUGE_VAL;
}

bool IsFailed(double x, double y) {
    return !std::isfinite(x) || !std::isfinite(y);
}

// Points off the Earth, and those that are no numbers, must not reach PROJ: it would wrap some.
void MarkImpossible(std::span<double> longitudes, std::span<double> latitudes) {
    for (std::size_t i = 0; i < longitudes.size(); ++i) {
        if (IsFailed(longitudes[i], latitudes[i]) || std::fabs(latitudes[i]) > kPoleDegrees) {
            MarkFailed(longitudes[i], latitudes[i]);
        }
    }
}

void Transform(PJ* transformation, PJ_DIRECTION direction, std::span<double> x,
               std::span<double> y) {
    proj_trans_generic(transformation, direction, x.data(), sizeof(double), x.size(), y.data(),
                       sizeof(double), y.size(), nullptr, 0, 0, nullptr, 0, 0);
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

std::size_t FailAll(std::span<double> x, std::span<double> y) {
    std::fill(x.begin(), x.end(), HUGE_VAL);
    std::fill(y.begin(), y.end(), HUGE_VAL);
    return x.size();
}

}  // namespace

CoordinateTransformer::CoordinateTransformer(const gcs::CSDef& system) {
    const ProjDefinition definition = ToProj(system);
    problem_ = definition.problem;
    warnings_ = definition.warnings;
    if (!problem_.empty()) {
        return;
    }
    auto pipeline = std::make_unique<Pipeline>();
    pipeline->isGeographic = definition.isGeographic;
    pipeline->context = detail::MakeContext();
    pipeline->transformation.reset(
        proj_create(pipeline->context.get(), definition.toWgs84.c_str()));
    if (!pipeline->transformation) {
        const int error = proj_context_errno(pipeline->context.get());
        problem_ = std::string("PROJ refuses the system: ") +
                   proj_context_errno_string(pipeline->context.get(), error);
        return;
    }
    pipeline_ = std::move(pipeline);
}

CoordinateTransformer::~CoordinateTransformer() = default;
CoordinateTransformer::CoordinateTransformer(CoordinateTransformer&&) noexcept = default;
CoordinateTransformer& CoordinateTransformer::operator=(CoordinateTransformer&&) noexcept = default;

std::size_t CoordinateTransformer::ToWgs84(std::span<double> x, std::span<double> y) const {
    assert(x.size() == y.size());
    if (!pipeline_) {
        return FailAll(x, y);
    }
    if (pipeline_->isGeographic) {
        MarkImpossible(x, y);
    } else {
        static_cast<void>(CountFailed(x, y));  // marks what is no number
    }
    Transform(pipeline_->transformation.get(), PJ_FWD, x, y);
    MarkImpossible(x, y);
    return CountFailed(x, y);
}

std::size_t CoordinateTransformer::FromWgs84(std::span<double> x, std::span<double> y) const {
    assert(x.size() == y.size());
    if (!pipeline_) {
        return FailAll(x, y);
    }
    MarkImpossible(x, y);
    Transform(pipeline_->transformation.get(), PJ_INV, x, y);
    return CountFailed(x, y);
}

}  // namespace app
