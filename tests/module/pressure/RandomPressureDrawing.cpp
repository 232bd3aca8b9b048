#include "module/pressure/RandomPressureDrawing.h"

namespace module_tests {

namespace {

constexpr double kGrid = 0.25;
constexpr int kSide = 65; ///< places of the grid along a side: 16 units

} // namespace

RandomPressureDrawing::RandomPressureDrawing(std::uint32_t seed, const Shape& shape)
    : state_(seed * 2654435761U + 12345U), shape_(shape) {}

/// A linear congruential generator (Numerical Recipes), so that all machines draw the same.
int RandomPressureDrawing::upTo(int count) {
    state_ = state_ * 1664525U + 1013904223U;
    return static_cast<int>((state_ >> 8) % static_cast<std::uint32_t>(count));
}

AcGePoint3d RandomPressureDrawing::anywhere() {
    const double x = upTo(kSide) * kGrid;
    return {x, upTo(kSide) * kGrid, 0.0};
}

/// An end or a middle of a pipe drawn before, or a step of the grid beside it.
AcGePoint3d RandomPressureDrawing::somewhereKnown() {
    if (known_.empty() || oneIn(4)) {
        return anywhere();
    }
    AcGePoint3d at = known_[static_cast<std::size_t>(upTo(static_cast<int>(known_.size())))];
    if (oneIn(6)) {
        at.x += (upTo(3) - 1) * kGrid;
        at.y += (upTo(3) - 1) * kGrid;
    }
    return at;
}

void RandomPressureDrawing::drawPipe(PressureDrawing& drawing, Ids& ids) {
    constexpr double bulges[] = {1.0, -1.0, 0.5, -0.4, 0.85, -1.09};
    constexpr const wchar_t* heights[] = {L"1", L"2.5", L"3"};
    const AcGePoint3d from = somewhereKnown();
    AcGePoint3d to = oneIn(3) ? somewhereKnown() : anywhere();
    if (oneIn(3)) {
        (oneIn(2) ? to.x : to.y) = oneIn(2) ? from.x : from.y;
    }
    const double bulge = oneIn(shape_.arcsIn) ? bulges[upTo(6)] : 0.0;
    const PipeTexts texts{.diameter = oneIn(2) ? L"100" : L"200",
                          .flow = oneIn(2) ? L"SE" : L"ES",
                          .startElevation = heights[upTo(3)],
                          .endElevation = heights[upTo(3)]};
    if (oneIn(12)) {
        drawing.addPipe(from, to, {.system = kSewer});
        return;
    }
    const bool isArc = bulge != 0.0 && !(from == to) && arcs_ < shape_.mostArcs;
    arcs_ += isArc ? 1 : 0;
    ids.push_back(isArc ? drawing.arc(from, to, bulge, texts) : drawing.main(from, to, texts));
    known_.push_back(from);
    known_.push_back(to);
    known_.push_back(from + (to - from) * 0.5);
}

void RandomPressureDrawing::drawFitting(PressureDrawing& drawing) {
    constexpr const wchar_t* names[] = {L"VLT_WELL_01", L"VLT_WELL_05", L"VLT_WELL_15"};
    constexpr const wchar_t* diameters[] = {L"0.5", L"1", L"2", L"4", nullptr};
    const wchar_t* name = names[upTo(3)];
    const wchar_t* diameter = diameters[upTo(5)];
    drawing.fitting(somewhereKnown(), name, diameter, oneIn(5) ? kSewer : kSupply);
}

Ids RandomPressureDrawing::draw(PressureDrawing& drawing) {
    Ids ids;
    const int pipes = 3 + upTo(shape_.pipes - 2);
    for (int i = 0; i < pipes; ++i) {
        drawPipe(drawing, ids);
        if (shape_.fittings && oneIn(2)) {
            drawFitting(drawing);
        }
    }
    return ids;
}

} // namespace module_tests
