#pragma once

#include <limits>

/// A range of a curve's parameter; a side without a bound is infinite.
class AcGeInterval {
public:
    AcGeInterval() = default;
    AcGeInterval(double lower, double upper) : lower_(lower), upper_(upper) {}

    AcGeInterval& set(double lower, double upper) { return *this = AcGeInterval(lower, upper); }
    double lowerBound() const { return lower_; }
    double upperBound() const { return upper_; }
    bool isBoundedBelow() const { return lower_ > -std::numeric_limits<double>::infinity(); }
    bool isBoundedAbove() const { return upper_ < std::numeric_limits<double>::infinity(); }
    bool isBounded() const { return isBoundedBelow() && isBoundedAbove(); }
    /// Upper less lower bound.
    double length() const { return upper_ - lower_; }
    /// Whether `value` lies in the range, bounds included.
    bool contains(double value) const { return value >= lower_ && value <= upper_; }
    /// The value of the range next to `value`.
    double clamp(double value) const {
        return value < lower_ ? lower_ : (value > upper_ ? upper_ : value);
    }

private:
    double lower_ = -std::numeric_limits<double>::infinity();
    double upper_ = std::numeric_limits<double>::infinity();
};
