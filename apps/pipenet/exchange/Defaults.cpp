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
    if (elevations_ > 0) {
        network.notes.push_back(textOf({0, "{} heights are not in the drawing and stand as {} m"},
                                       elevations_, kElevation));
    }
    if (diameters_ > 0) {
        network.notes.push_back(
            textOf({0, "{} diameters are not in the drawing and stand as {} mm"}, diameters_,
                   network.isGravity ? kSewerDiameter : kMainDiameter));
    }
    if (lengths_ > 0) {
        network.notes.push_back(
            textOf({0, "{} lengths are below {} m and stand as that"}, lengths_, kLeastLength));
    }
}

std::string lengthText(const ExchangeLink& link, Defaults& defaults) {
    constexpr int places = 6;
    const double length = defaults.length(link.length);
    return link.lengthIsGiven ? shortest(length) : decimal(length, places);
}

} // namespace pipenet
