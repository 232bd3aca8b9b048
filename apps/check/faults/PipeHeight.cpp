#include "faults/PipeHeight.h"

#include "records/XdataKeys.h"

#include <cmath>

namespace pipenet {

namespace {

/// Millimetres of a diameter in a metre.
constexpr double kMillimetres = 1000.0;

std::optional<double> heightAt(const AcDbObjectId& id, const AcGePoint3d& place) {
    const CString start = XdataText(id, xdata::kStartElevation);
    const CString end = XdataText(id, xdata::kEndElevation);
    if (start.IsEmpty() || end.IsEmpty()) {
        return std::nullopt;
    }
    _Pipe pipe(id, CString());
    const double length = pipe.GetLength();
    const double share = length > 0.0 ? pipe.GetLength(pipe.startPoint, place) / length : 0.0;
    return NumberPrefix(start) + share * (NumberPrefix(end) - NumberPrefix(start));
}

double diameterOf(const AcDbObjectId& id) {
    return IntegerPrefix(XdataText(id, xdata::kDiameter)) / kMillimetres;
}

} // namespace

std::optional<HeightGap> heightGap(const AcDbObjectId& a, const AcDbObjectId& b,
                                   const AcGePoint3d& place) {
    const std::optional<double> heightOfA = heightAt(a, place);
    const std::optional<double> heightOfB = heightAt(b, place);
    if (!heightOfA || !heightOfB) {
        return std::nullopt;
    }
    return HeightGap{std::abs(*heightOfA - *heightOfB), diameterOf(a) + diameterOf(b)};
}

} // namespace pipenet
