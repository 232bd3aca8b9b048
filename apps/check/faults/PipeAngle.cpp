#include "faults/PipeAngle.h"

#include "HandleText.h"
#include "Systems.h"

#include <algorithm>
#include <fmt/format.h>
#include <numbers>

namespace pipenet {

double degrees(double radians) {
    return radians * 180.0 / std::numbers::pi;
}

double degreesBetween(const _Pipe& a, const _Pipe& b) {
    const double angle = (a.endPoint - a.startPoint).angleTo(b.endPoint - b.startPoint);
    return degrees(std::min(angle, std::numbers::pi - angle));
}

std::string foreignWellSentence(const AcDbObjectId& pipe, const AcDbObjectId& well) {
    return fmt::format("{} ends in {}, which belongs to the system '{}' and holds no end of "
                       "another; correct the system of one of the two, or move the end",
                       nameOf(pipe), nameOf(well), utf8(systemNameOf(well)));
}

} // namespace pipenet
