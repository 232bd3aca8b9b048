#pragma once

#include "geometry/AcGePoint3d.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

/// Searches and sums along a smooth curve that is known by its points and derivatives alone. Each
/// works over the curve's breaks: parameters between which it is smooth.
namespace host_db {

/// Probes between two breaks. A cubic has at most a handful of extremes there, so that none of
/// them can hide between two probes of this many.
inline constexpr int kProbes = 32;

/// The parameter in [low, high] at which `value`, which has one least place there, is least.
template<typename Value>
double leastWithin(const Value& value, double low, double high) {
    constexpr double kGolden = 0.61803398874989484820;
    double a = high - kGolden * (high - low);
    double b = low + kGolden * (high - low);
    double atA = value(a);
    double atB = value(b);
    for (int i = 0; i < 90 && low < a && a < b && b < high; ++i) {
        if (atA <= atB) {
            high = b;
            b = a;
            atB = atA;
            a = high - kGolden * (high - low);
            atA = value(a);
        } else {
            low = a;
            a = b;
            atA = atB;
            b = low + kGolden * (high - low);
            atB = value(b);
        }
    }
    return atA <= atB ? a : b;
}

/// The parameter at which `value` is least over all breaks; the first of equal ones.
template<typename Value>
double leastOver(const Value& value, const std::vector<double>& breaks) {
    std::vector<double> probes{breaks.front()};
    for (std::size_t i = 1; i < breaks.size(); ++i) {
        for (int k = 1; k <= kProbes; ++k) {
            const double part = static_cast<double>(k) / kProbes;
            probes.push_back(k == kProbes ? breaks[i]
                                          : breaks[i - 1] + part * (breaks[i] - breaks[i - 1]));
        }
    }
    double best = probes.front();
    double least = std::numeric_limits<double>::infinity();
    const auto offer = [&](double param) {
        const double found = value(param);
        if (found < least) {
            least = found;
            best = param;
        }
    };
    std::vector<double> values;
    values.reserve(probes.size());
    for (const double probe : probes) {
        values.push_back(value(probe));
    }
    for (std::size_t i = 0; i < probes.size(); ++i) {
        offer(probes[i]);
        const bool isValley = i > 0 && i + 1 < probes.size() && values[i] <= values[i - 1] &&
                              values[i] <= values[i + 1];
        if (isValley) {
            offer(leastWithin(value, probes[i - 1], probes[i + 1]));
        }
        // A valley may lie between an end and its neighbour as well.
        if (i + 1 < probes.size() && (i == 0 || i + 2 == probes.size())) {
            offer(leastWithin(value, probes[i], probes[i + 1]));
        }
    }
    return best;
}

/// Length of the curve from `low` to `high`, between which it is smooth; `speed` is the length of
/// the derivative. Gauss's rule of five points on sixteen parts.
template<typename Speed>
double lengthBetween(const Speed& speed, double low, double high) {
    constexpr int kParts = 16;
    constexpr double kAt[] = {0.0, 0.53846931010568309104, 0.90617984593866399280};
    constexpr double kWeight[] = {0.56888888888888888889, 0.47862867049936646804,
                                  0.23692688505618908751};
    double sum = 0.0;
    const double half = (high - low) / (2.0 * kParts);
    for (int part = 0; part < kParts; ++part) {
        const double middle = low + half * (2.0 * part + 1.0);
        sum += kWeight[0] * speed(middle);
        for (int i = 1; i < 3; ++i) {
            sum += kWeight[i] * (speed(middle - half * kAt[i]) + speed(middle + half * kAt[i]));
        }
    }
    return sum * half;
}

/// Length from the first break to `param`.
template<typename Speed>
double lengthOver(const Speed& speed, const std::vector<double>& breaks, double param) {
    double sum = 0.0;
    for (std::size_t i = 1; i < breaks.size() && breaks[i - 1] < param; ++i) {
        sum += lengthBetween(speed, breaks[i - 1], std::fmin(param, breaks[i]));
    }
    return sum;
}

/// The parameter in [low, high] at which the growing function `length` reaches `wanted`.
template<typename Length>
double paramAtLength(const Length& length, double low, double high, double wanted) {
    for (int i = 0; i < 200; ++i) {
        const double middle = low + (high - low) / 2.0;
        if (!(low < middle && middle < high)) {
            break;
        }
        (length(middle) < wanted ? low : high) = middle;
    }
    return high;
}

} // namespace host_db
