#pragma once

#include "exchange/ExchangeNetwork.h"

namespace pipenet {

/// What stands for a value that the drawing lacks. Counts what it had to stand in for.
class Defaults {
public:
    static constexpr double kElevation = 0.0;     ///< metres
    static constexpr int kSewerDiameter = 300;    ///< millimetres
    static constexpr int kMainDiameter = 100;     ///< millimetres
    static constexpr double kLeastLength = 0.1;   ///< metres; the engines take no pipe without one
    static constexpr double kStorageDepth = 3.0;  ///< metres
    static constexpr double kPressureHead = 30.0; ///< metres of water above the picked end
    static constexpr double kTankLevel = 3.0;     ///< metres of water in a tank
    static constexpr double kTankDepth = 5.0;     ///< metres
    static constexpr double kTankDiameter = 10.0; ///< metres
    static constexpr double kOutletLength = 1.0;  ///< metres, of an added outlet

    double elevation(const std::optional<double>& given);
    int diameter(int given, int missing);
    double length(double given);

    /// Says what was stood in for.
    void note(ExchangeNetwork& network) const;

private:
    int elevations_ = 0;
    int diameters_ = 0;
    int lengths_ = 0;
};

/// A link's length in metres: as given, or as drawn to a thousandth of a millimetre.
std::string lengthText(const ExchangeLink& link, Defaults& defaults);

} // namespace pipenet
