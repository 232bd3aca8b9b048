#pragma once

#include "geometry/AcGePoint3d.h"
#include "geometry/AcGeVector3d.h"

#include <vector>

namespace host_db {

/// A rational or polynomial B-spline curve. `knots` has one number for each control point plus
/// degree plus one, never decreasing; `weights` is empty or has one positive number for each point.
class NurbsCurve {
public:
    NurbsCurve() = default;
    NurbsCurve(int degree, std::vector<double> knots, std::vector<AcGePoint3d> points,
               std::vector<double> weights);

    /// The counts fit together, knots never decrease and the parameter range is not empty.
    bool isValid() const;
    int degree() const { return degree_; }
    const std::vector<double>& knots() const { return knots_; }
    const std::vector<AcGePoint3d>& points() const { return points_; }
    const std::vector<double>& weights() const { return weights_; }
    /// Range of the parameter: knot `degree` to the knot at the number of control points; so the
    /// true ends of a curve whose end knots are not repeated, too.
    double startParam() const;
    double endParam() const;
    /// Point of the curve; a parameter outside is brought to the nearer end.
    AcGePoint3d pointAt(double param) const;
    AcGeVector3d derivativeAt(double param) const;
    /// The distinct knot values of the parameter range, ends included.
    std::vector<double> spans() const;

private:
    std::size_t spanOf(double param) const;

    int degree_ = 0;
    std::vector<double> knots_;
    std::vector<AcGePoint3d> points_;
    std::vector<double> weights_;
};

} // namespace host_db
