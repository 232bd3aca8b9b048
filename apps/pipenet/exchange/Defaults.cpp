#include "exchange/Defaults.h"

#include "exchange/ExchangeText.h"
#include "Messages.h"

namespace pipenet {

double Defaults::elevation(const std::optional<double>& given) {
    elevations_ += given ? 0 : 1;
    return given.value_or(kElevation);
}

int Defaults::diameter(int given, int missing) {
    diameters_ += given > 0 ? 0 : 1;
    return given > 0 ? given : missing;
}

double Defaults::length(double given) {
    lengths_ += given < kLeastLength ? 1 : 0;
    return given < kLeastLength ? kLeastLength : given;
}

void Defaults::note(ExchangeNetwork& network) const {
    const auto add = [&network](const Message& message, int count, auto value) {
        if (count > 0) {
            network.notes.push_back(textOf(message, value, count));
        }
    };
    add({0, "heights that the drawing lacks stand as {} m ({} of them)"}, elevations_, kElevation);
    add({0, "diameters that the drawing lacks stand as {} mm ({} of them)"}, diameters_,
        network.isGravity ? kSewerDiameter : kMainDiameter);
    add({0, "lengths below {} m stand as that ({} of them)"}, lengths_, kLeastLength);
}

std::string lengthText(const ExchangeLink& link, Defaults& defaults) {
    constexpr int places = 6;
    const double length = defaults.length(link.length);
    return link.lengthIsGiven ? shortest(length) : decimal(length, places);
}

} // namespace pipenet
