#include "database/NurbsCurve.h"

#include <algorithm>
#include <array>

namespace host_db {
namespace {

/// A control point times its weight, with the weight as fourth coordinate.
using Weighted = std::array<double, 4>;

Weighted blend(const Weighted& a, const Weighted& b, double part) {
    Weighted result;
    for (std::size_t i = 0; i < 4; ++i) {
        result[i] = a[i] * (1.0 - part) + b[i] * part;
    }
    return result;
}

AcGePoint3d projected(const Weighted& point) {
    return {point[0] / point[3], point[1] / point[3], point[2] / point[3]};
}

} // namespace

NurbsCurve::NurbsCurve(int degree, std::vector<double> knots, std::vector<AcGePoint3d> points,
                       std::vector<double> weights)
    : degree_(degree), knots_(std::move(knots)), points_(std::move(points)),
      weights_(std::move(weights)) {}

bool NurbsCurve::isValid() const {
    if (degree_ < 1 || degree_ > 30 || points_.size() < static_cast<std::size_t>(degree_) + 1 ||
        knots_.size() != points_.size() + static_cast<std::size_t>(degree_) + 1) {
        return false;
    }
    const bool weighted =
        weights_.empty() ||
        (weights_.size() == points_.size() &&
         std::all_of(weights_.begin(), weights_.end(), [](double weight) { return weight > 0.0; }));
    return weighted && std::is_sorted(knots_.begin(), knots_.end()) && startParam() < endParam();
}

double NurbsCurve::startParam() const {
    return knots_[static_cast<std::size_t>(degree_)];
}

double NurbsCurve::endParam() const {
    return knots_[points_.size()];
}

std::size_t NurbsCurve::spanOf(double param) const {
    const auto first = knots_.begin() + degree_;
    const auto last = knots_.begin() + static_cast<std::ptrdiff_t>(points_.size());
    // The end belongs to the last span that has any length.
    const auto above = param >= endParam() ? std::lower_bound(first, last, endParam())
                                           : std::upper_bound(first, last, param);
    return static_cast<std::size_t>(above - knots_.begin()) - 1;
}

AcGePoint3d NurbsCurve::pointAt(double param) const {
    param = std::clamp(param, startParam(), endParam());
    const std::size_t span = spanOf(param);
    const auto degree = static_cast<std::size_t>(degree_);
    std::vector<Weighted> work(degree + 1);
    for (std::size_t i = 0; i <= degree; ++i) {
        const std::size_t at = span - degree + i;
        const double weight = weights_.empty() ? 1.0 : weights_[at];
        work[i] = {points_[at].x * weight, points_[at].y * weight, points_[at].z * weight, weight};
    }
    for (std::size_t level = 1; level <= degree; ++level) {
        for (std::size_t i = degree; i >= level; --i) {
            const double low = knots_[span - degree + i];
            const double high = knots_[span + 1 + i - level];
            work[i] = blend(work[i - 1], work[i], (param - low) / (high - low));
        }
    }
    return projected(work[degree]);
}

AcGeVector3d NurbsCurve::derivativeAt(double param) const {
    param = std::clamp(param, startParam(), endParam());
    const std::size_t span = spanOf(param);
    // A central difference inside the span; the curve is a fraction of polynomials there.
    const double low = knots_[span];
    const double high = knots_[span + 1];
    const double step = (high - low) * 1e-5;
    const double before = std::max(low, param - step);
    const double after = std::min(high, param + step);
    return (pointAt(after) - pointAt(before)) / (after - before);
}

std::vector<double> NurbsCurve::spans() const {
    std::vector<double> breaks;
    for (auto i = static_cast<std::size_t>(degree_); i <= points_.size(); ++i) {
        if (breaks.empty() || knots_[i] > breaks.back()) {
            breaks.push_back(knots_[i]);
        }
    }
    return breaks;
}

} // namespace host_db
